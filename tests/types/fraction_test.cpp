#include <quorvel/types/fraction.h>
#include <quorvel/types/vector2d.h>

#include "support/archive_image.h"
#include "support/test.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>

namespace {

typedef CFraction F;

// Compares both members, since CFraction's own == compares values.
testing::AssertionResult Is(const F& fraction, const F& expected) {
    if (fraction.GetNumerator() == expected.GetNumerator() &&
        fraction.GetDenominator() == expected.GetDenominator())
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << fraction.GetNumerator() << '/' << fraction.GetDenominator() << " is not "
           << expected.GetNumerator() << '/' << expected.GetDenominator();
}

TEST(Fraction, CommonDivisorIsNeverNegative) {
    // Products wrap, also to 0; one absolute value does not fit.
    const std::tuple<int, int, int, int> rows[] = {
        {0, 0, 1, 0},  {-12, 18, 6, -36},  {65536, 65537, 1, 65536}, {INT_MIN, -1, 1, INT_MIN},
        {0, -5, 5, 0}, {INT_MIN, 6, 2, 0}, {INT_MIN, 0, INT_MIN, 0},
    };
    for (const auto& [a, b, divisor, multiple] : rows) {
        EXPECT_EQ(F::GetGreatestCommonDivisor(a, b), divisor) << a << ' ' << b;
        EXPECT_EQ(F::GetLowestCommonDenominator(F(1, a), F(1, b)), multiple) << a << ' ' << b;
    }
}

TEST(Fraction, LowestTermsKeepWhatTheirDenominatorDivides) {
    const std::tuple<BOOL, F, F> rows[] = {
        {TRUE, {2, 4}, {1, 2}}, {FALSE, {4, 0}, {4, 0}},  {TRUE, {0, INT_MIN}, {0, -1}},
        {TRUE, {0, 2}, {0, 2}}, {TRUE, {4, -6}, {2, -3}}, {TRUE, {INT_MIN, INT_MIN}, {-1, -1}},
        {TRUE, {4, 2}, {4, 2}}, {TRUE, {0, -5}, {0, -1}}, {TRUE, {INT_MIN, -1}, {INT_MIN, -1}},
    };
    for (const auto& [result, fraction, lowest] : rows) {
        F reduced(fraction);
        EXPECT_EQ(reduced.ReduceToLowestTerms(), result);
        EXPECT_TRUE(Is(reduced, lowest));
        EXPECT_EQ(fraction.IsInLowestTerms(), result && Is(fraction, lowest));
    }
}

TEST(Fraction, EquivalentNeedsAFactor) {
    const std::tuple<F, int, BOOL, F> rows[] = {
        {{1, 2}, 6, TRUE, {3, 6}},         {{3, 6}, 2, TRUE, {1, 2}},
        {{5, 6}, 6, TRUE, {5, 6}},         {{1, 2}, -2, TRUE, {-1, -2}},
        {{5, 6}, 4, FALSE, {0, 1}},        {{1, -2}, -4, FALSE, {0, 1}},
        {{1, 2}, 0, FALSE, {0, 1}},        {{1, 0}, 2, FALSE, {0, 1}},
        {{1, INT_MIN}, -1, FALSE, {0, 1}}, {{INT_MIN, 2}, -2, TRUE, {INT_MIN, -2}},
    };
    for (const auto& [fraction, denominator, isThere, equivalent] : rows) {
        F result(7, 7), itself(fraction);
        EXPECT_EQ(fraction.GetEquivalentFraction(denominator, result), isThere);
        EXPECT_TRUE(Is(result, equivalent)) << denominator;
        itself.GetEquivalentFraction(denominator, itself);
        EXPECT_TRUE(Is(itself, equivalent)) << denominator;
    }
}

TEST(Fraction, ArithmeticReducesAndWraps) {
    F sum(1, 2);
    sum += F(1, 3);
    const std::tuple<const char*, F, F> rows[] = {
        {"sum", sum, {5, 6}},
        {"zero", F(1, 2) - F(1, 2), {0, 2}},
        {"signs move up", F(1, -2) - F(1, -3), {-1, 6}},
        {"product", F(2, 3) * F(3, 4), {1, 2}},
        {"quotient", F(1, 2) / F(-3, 4), {2, -3}},
        {"quotient by zero", F(1, 2) / F(0, 4), {0, 0}},
        {"quotient by an undefined one", F(1, 2) / F(3, 0), {0, 6}},
        {"numerators wrap", F(INT_MAX) + 1, {INT_MIN, 1}},
        {"denominators wrap to 0", F(1, 65536) * F(1, 65536), {1, 0}},
        {"both at the minimum", F(1, INT_MIN) + F(1, INT_MIN), {0, 0}},
        {"minimum by -1", F(1, -1) + F(1, INT_MIN), {INT_MIN + 1, INT_MIN}},
        {"product at the minimum", F(INT_MIN, -1) * F(-1, 1), {INT_MIN, -1}},
    };
    for (const auto& [label, result, expected] : rows)
        EXPECT_TRUE(Is(result, expected)) << label;
}

TEST(Fraction, ComparesValuesAndNeverTheUndefined) {
    const F undefined(1, 0), half(1, 2), third(-1, -3);
    EXPECT_TRUE(half == F(2, 4) && half >= F(2, 4) && half <= F(2, 4) && third != half);
    EXPECT_TRUE(third < half && half > third && third <= half && half >= third);
    EXPECT_TRUE(F(INT_MIN, -1) > INT_MAX);
    EXPECT_FALSE(undefined == undefined || undefined != undefined || undefined >= half);
    EXPECT_FALSE(F().IsReciprocal(undefined));
    EXPECT_TRUE(half.IsReciprocal(2));
    EXPECT_TRUE(F(1, -2).IsNegative() && F(INT_MIN, -2).IsPositive() && F().IsZero());
    EXPECT_FALSE(F(-1, 0).IsNegative() || F(0, 0).IsZero() || F(0, -1).IsNegative());
}

TEST(Fraction, DecimalsBecomeNearFractions) {
    // The convergents of the long one: 63818/1, 191455/3, 1786913/28, 1978368/31, 2824918049/44265.
    const std::tuple<double, F> rows[] = {
        {0.75, {3, 4}},  {-3.5, {-7, 2}},        {-2147483648.0, {0, 0}},
        {-0.0, {0, 1}},  {HUGE_VAL, {0, 0}},     {2147483647, {INT_MAX, 1}},
        {1e-8, {0, 1}},  {0.3333333, {1, 3}},    {3.1415926536, {103993, 33102}},
        {0.1f, {1, 10}}, {2147483647.5, {0, 0}}, {2000000000.7, {2000000001, 1}},
        {-2.0, {-2, 1}}, {std::nan(""), {0, 0}}, {63818.3225799165, {1978368, 31}},
    };
    for (const auto& [value, fraction] : rows)
        EXPECT_TRUE(Is(F(value), fraction)) << value;
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::ldexp(std::uniform_real_distribution<>(-1, 1)(random), i % 32);
        const double tolerance = std::max(1e-6, std::fabs(std::ldexp(value, -31)));
        ASSERT_NEAR(F(value).GetDecimal(), value, tolerance);
    }
}

TEST(Fraction, TakesEveryIntegerThatFits) {
    const std::tuple<F, F> rows[] = {
        {LONG{-7}, {-7, 1}},    {-7L, {-7, 1}}, {std::int64_t{-2147483648}, {INT_MIN, 1}},
        {2147483648u, {0, 0}},  {'\7', {7, 1}}, {2147483647u, {2147483647, 1}},
        {4294967297ll, {0, 0}},
    };
    for (const auto& [fraction, expected] : rows)
        EXPECT_TRUE(Is(fraction, expected));
    EXPECT_TRUE(F(6, 3) == LONG{2} && LONG{2} == F(6, 3) && F(1, 2) < DWORD{1});
}

TEST(Fraction, TextHasTheSignInFront) {
    const std::tuple<F, const WCHAR*, const WCHAR*> rows[] = {
        {{0, 5}, _T("0"), _T("0")},        {{-6, -4}, _T("6/4"), _T("1 2/4")},
        {{5, 0}, _T("0"), _T("0")},        {{-7, 2}, _T("-7/2"), _T("-3 1/2")},
        {{9, 3}, _T("9/3"), _T("3")},      {{INT_MIN, -1}, _T("2147483648/1"), _T("2147483648")},
        {{7, 2}, _T("7/2"), _T("3 1/2")},  {{1, INT_MIN}, _T("-1/2147483648"), _T("-1/2147483648")},
        {{1, -3}, _T("-1/3"), _T("-1/3")},
    };
    for (const auto& [fraction, plain, mixed] : rows) {
        EXPECT_EQ(fraction.GetText(FALSE), plain);
        EXPECT_EQ(fraction.GetText(TRUE), mixed);
    }
}

TEST(Fraction, IsStoredNumeratorFirst) {
    const std::string image("\xfe\xff\xff\xff\3\1\0\0", 8);
    EXPECT_EQ(Stored([](CArchive& archive) { F(-2, 259).Serialize(archive); }), image);
    F loaded(7, 9);
    const auto load = [&](CArchive& archive) { loaded.Serialize(archive); };
    EXPECT_EQ(LoadCause(image.substr(1), load), CArchiveException::endOfFile);
    EXPECT_TRUE(Is(loaded, {7, 9}));
    EXPECT_EQ(LoadCause(image, load), CArchiveException::none);
    EXPECT_TRUE(Is(loaded, {-2, 259}));
}

TEST(Vector2D, MeasuresTheDistanceFromALine) {
    EXPECT_TRUE(CVector2D(POINT{INT_MIN, 5}, POINT{INT_MAX, 3}) == CVector2D(4294967295.0, -2));
    EXPECT_TRUE(CVector2D(5, 1) - CVector2D(2, 5) == CVector2D(3, -4));
    EXPECT_EQ(CVector2D(3, -4).GetMagnitude(), 5.0);
    EXPECT_EQ(CVector2D::GetLengthOfNormal({0, 2}, {1, 0}), 2.0);
    EXPECT_EQ(CVector2D::GetLengthOfNormal({7, 1}, {-4, 4}), std::sqrt(32.0));
    EXPECT_FALSE(std::isfinite(CVector2D::GetLengthOfNormal({1, 1}, {0, 0})));
}

} // namespace
