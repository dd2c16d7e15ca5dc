#include <quorvel/types/fraction.h>
#include <quorvel/types/vector2d.h>

#include "support/archive_image.h"

#include <cmath>

typedef CFraction F;

// Both members, since CFraction's own == compares values.
static std::pair<int, int> Of(const F& fraction) {
    return {fraction.GetNumerator(), fraction.GetDenominator()};
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
        EXPECT_EQ(Of(reduced), Of(lowest));
        EXPECT_EQ(fraction.IsInLowestTerms(), result && Of(fraction) == Of(lowest));
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
        EXPECT_EQ(Of(result), Of(equivalent)) << denominator;
        itself.GetEquivalentFraction(denominator, itself);
        EXPECT_EQ(Of(itself), Of(equivalent)) << denominator;
    }
}

TEST(Fraction, ArithmeticReducesAndWraps) {
    const std::tuple<const char*, F, F> rows[] = {
        {"sum", F(1, 2) += F(1, 3), {5, 6}},
        {"signs move up", F(1, -2) - F(1, -3), {-1, 6}},
        {"quotient", F(1, 2) / F(-3, 4), {2, -3}},
        {"quotient by zero", F(1, 2) / F(0, 4), {0, 0}},
        {"numerators wrap", F(INT_MAX) + 1, {INT_MIN, 1}},
        {"denominators wrap to 0", F(1, 65536) * F(1, 65536), {1, 0}},
        {"both at the minimum", F(1, INT_MIN) + F(1, INT_MIN), {0, 0}},
        {"minimum by -1", F(1, -1) + F(1, INT_MIN), {INT_MIN + 1, INT_MIN}},
        {"unsigned, too large", 2147483648u, {0, 0}},
        {"64 bits, too large", 4294967297ll, {0, 0}},
    };
    for (const auto& [label, result, expected] : rows)
        EXPECT_EQ(Of(result), Of(expected)) << label;
}

TEST(Fraction, ComparesValuesAndNeverTheUndefined) {
    const F undefined(1, 0), half(1, 2), third(-1, -3);
    EXPECT_TRUE(half == F(2, 4) && half >= F(2, 4) && half <= F(2, 4) && third != half);
    EXPECT_TRUE(third < half && half > third && third <= half);
    EXPECT_TRUE(F(INT_MIN, -1) > INT_MAX);
    EXPECT_FALSE(undefined == undefined || undefined != undefined || undefined >= half);
    EXPECT_FALSE(F().IsReciprocal(undefined));
    EXPECT_TRUE(half.IsReciprocal(2));
    EXPECT_TRUE(F(1, -2).IsNegative() && F(INT_MIN, -2).IsPositive() && F().IsZero());
    EXPECT_FALSE(F(-1, 0).IsNegative() || F(0, 0).IsZero() || F(0, -1).IsNegative());
}

TEST(Fraction, DecimalsBecomeNearFractions) {
    const std::tuple<double, F> rows[] = {
        {0.75, {3, 4}},  {-3.5, {-7, 2}},         {3.1415926536, {103993, 33102}},
        {-0.0, {0, 1}},  {-2147483648.0, {0, 0}}, {2147483647, {INT_MAX, 1}},
        {0.1f, {1, 10}}, {2147483647.5, {0, 0}},  {2000000000.7, {2000000001, 1}},
        {1e-8, {0, 1}},  {std::nan(""), {0, 0}},  {63818.3225799165, {1978368, 31}},
    };
    for (const auto& [value, fraction] : rows)
        EXPECT_EQ(Of(F(value)), Of(fraction)) << value;
}

TEST(Fraction, TextHasTheSignInFront) {
    const std::tuple<F, const WCHAR*, const WCHAR*> rows[] = {
        {{-6, -4}, _T("6/4"), _T("1 2/4")},
        {{-7, 2}, _T("-7/2"), _T("-3 1/2")},
        {{5, 0}, _T("0"), _T("0")},
        {{INT_MIN, -1}, _T("2147483648/1"), _T("2147483648")},
        {{1, INT_MIN}, _T("-1/2147483648"), _T("-1/2147483648")},
    };
    for (const auto& [fraction, plain, mixed] : rows) {
        EXPECT_EQ(fraction.GetText(FALSE), plain);
        EXPECT_EQ(fraction.GetText(TRUE), mixed);
    }
}

TEST(Fraction, IsStoredNumeratorFirst) {
    ExpectImage(F(-2, 259), std::string("\xfe\xff\xff\xff\3\1\0\0", 8), F(7, 9));
}

TEST(Vector2D, MeasuresTheDistanceFromALine) {
    EXPECT_TRUE(CVector2D(POINT{INT_MIN, 5}, POINT{INT_MAX, 3}) == CVector2D(4294967295.0, -2));
    EXPECT_EQ(CVector2D::GetLengthOfNormal({7, 1}, {-4, 4}), std::sqrt(32.0));
    EXPECT_FALSE(std::isfinite(CVector2D::GetLengthOfNormal({1, 1}, {0, 0})));
}
