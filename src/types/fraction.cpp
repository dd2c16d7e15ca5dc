#include <quorvel/types/fraction.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <limits>
#include <numeric>

namespace {

// Wraps a result to 32 bits. Overflow of int is undefined, and the division traps.
int Wrap(std::int64_t value) {
    return static_cast<int>(static_cast<std::uint32_t>(value));
}

int Product(int a, int b) {
    return Wrap(std::int64_t{a} * b);
}

int Quotient(std::int64_t dividend, std::int64_t divisor) {
    return Wrap(dividend / divisor);
}

// Whether the quotient is exact. In 32 bits, -2147483648 % -1 traps.
bool Divides(std::int64_t divisor, std::int64_t dividend) {
    return dividend % divisor == 0;
}

// Uses 64 bits, which hold every magnitude.
std::int64_t CommonDivisor(std::int64_t a, std::int64_t b) {
    return a == 0 && b == 0 ? 1 : std::gcd(a, b);
}

CFraction Reduced(int numerator, int denominator) {
    CFraction result(numerator, denominator);
    result.ReduceToLowestTerms();
    return result;
}

// p/q + sign * r/s.
CFraction Sum(const CFraction& left, const CFraction& right, int sign) {
    if (left.IsUndefined() || right.IsUndefined())
        return {0, 0};
    const int q = left.GetDenominator();
    const int s = right.GetDenominator();
    const std::int64_t product =
        Product(Wrap(std::abs(std::int64_t{q})), Wrap(std::abs(std::int64_t{s})));
    const int common = Quotient(product, CommonDivisor(q, s));
    const std::int64_t first = Product(Quotient(common, q), left.GetNumerator());
    const std::int64_t second = Product(Quotient(common, s), right.GetNumerator());
    return Reduced(Wrap(first + sign * second), common);
}

template <class Comparison>
BOOL Compare(const CFraction& left, const CFraction& right, Comparison comparison) {
    return !left.IsUndefined() && !right.IsUndefined() &&
           comparison(left.GetDecimal(), right.GetDecimal());
}

} // namespace

CFraction::CFraction(float value) noexcept : CFraction(static_cast<double>(value)) {}

CFraction::CFraction(double value) noexcept {
    DecimalToFraction(value, m_numerator, m_denominator);
}

void CFraction::GetNumeratorAndDenominator(int& numerator, int& denominator) const noexcept {
    numerator = m_numerator;
    denominator = m_denominator;
}

void CFraction::SetNumeratorAndDenominator(int numerator, int denominator) noexcept {
    m_numerator = numerator;
    m_denominator = denominator;
}

BOOL CFraction::IsNegative() const noexcept {
    return m_numerator != 0 && m_denominator != 0 && (m_numerator < 0) != (m_denominator < 0);
}

BOOL CFraction::IsPositive() const noexcept {
    return m_numerator != 0 && m_denominator != 0 && (m_numerator < 0) == (m_denominator < 0);
}

BOOL CFraction::IsInLowestTerms() const noexcept {
    int numerator;
    int denominator;
    return GetLowestTerms(numerator, denominator) && numerator == m_numerator &&
           denominator == m_denominator;
}

BOOL CFraction::IsReciprocal(const CFraction& other) const noexcept {
    return other == GetReciprocal();
}

double CFraction::GetDecimal() const noexcept {
    return m_denominator != 0 ? static_cast<double>(m_numerator) / m_denominator : 0.0;
}

BOOL CFraction::GetLowestTerms(int& numerator, int& denominator) const noexcept {
    GetNumeratorAndDenominator(numerator, denominator);
    if (m_denominator == 0)
        return FALSE;
    const std::int64_t divisor = CommonDivisor(m_numerator, m_denominator);
    if (m_denominator == divisor)
        return TRUE;
    numerator = Quotient(m_numerator, divisor);
    denominator = Quotient(m_denominator, divisor);
    return TRUE;
}

BOOL CFraction::GetLowestTerms(CFraction& result) const noexcept {
    return GetLowestTerms(result.m_numerator, result.m_denominator);
}

BOOL CFraction::ReduceToLowestTerms() noexcept {
    return GetLowestTerms(*this);
}

BOOL CFraction::GetEquivalentFraction(int denominator, CFraction& result) const noexcept {
    const CFraction source(*this);
    result = CFraction();
    if (denominator == 0 || source.IsUndefined())
        return FALSE;
    int numerator = source.m_numerator;
    if (denominator < source.m_denominator) {
        if (!Divides(denominator, source.m_denominator))
            return FALSE;
        const int factor = Quotient(source.m_denominator, denominator);
        if (!Divides(factor, numerator))
            return FALSE;
        numerator = Quotient(numerator, factor);
    } else if (denominator > source.m_denominator) {
        if (!Divides(source.m_denominator, denominator))
            return FALSE;
        numerator = Product(numerator, Quotient(denominator, source.m_denominator));
    }
    result.SetNumeratorAndDenominator(numerator, denominator);
    return TRUE;
}

CString CFraction::GetText(BOOL mixed) const {
    CString text;
    if (m_numerator == 0 || m_denominator == 0) {
        text = _T("0");
        return text;
    }
    // Uses 64 bits: 32 bits cannot hold the magnitude of -2147483648.
    const LONGLONG denominator = std::abs(LONGLONG{m_denominator});
    const LONGLONG numerator = m_denominator < 0 ? -LONGLONG{m_numerator} : m_numerator;
    const LONGLONG whole = numerator / denominator;
    const LONGLONG remainder = std::abs(numerator % denominator);
    if (!mixed || whole == 0)
        text.Format(_T("%I64d/%I64d"), numerator, denominator);
    else if (remainder == 0)
        text.Format(_T("%I64d"), whole);
    else
        text.Format(_T("%I64d %I64d/%I64d"), whole, remainder, denominator);
    return text;
}

int CFraction::GetGreatestCommonDivisor(int a, int b) noexcept {
    return Wrap(CommonDivisor(a, b));
}

int CFraction::GetLeastCommonMultiple(int a, int b) noexcept {
    return Quotient(Product(a, b), CommonDivisor(a, b));
}

int CFraction::GetLowestCommonDenominator(const CFraction& first,
                                          const CFraction& second) noexcept {
    return GetLeastCommonMultiple(first.m_denominator, second.m_denominator);
}

void CFraction::DecimalToFraction(double value, int& numerator, int& denominator) noexcept {
    constexpr int kLargest = std::numeric_limits<int>::max();
    constexpr double kTolerance = 1e-7;
    constexpr int kMostTerms = 16;

    numerator = denominator = 0;
    const double magnitude = std::fabs(value);
    if (!(magnitude <= kLargest)) // NaN included
        return;
    // Convergents h/k; the two before the first are 0/1 and 1/0. The first convergent always fits,
    // and for a whole number it is the result.
    std::int64_t lastH = 0, h = 1;
    std::int64_t lastK = 1, k = 0;
    double rest = magnitude; // fits in 32 bits: the reciprocals below stay under 1e7
    for (int term = 0; term < kMostTerms; ++term) {
        const int whole = static_cast<int>(rest);
        const std::int64_t nextH = whole * h + lastH;
        const std::int64_t nextK = whole * k + lastK;
        if (nextH > kLargest || nextK > kLargest)
            break;
        lastH = h;
        h = nextH;
        lastK = k;
        k = nextK;
        const double fraction = rest - whole;
        if (fraction < kTolerance)
            break;
        rest = 1 / fraction;
        if (std::fabs(static_cast<double>(h) / static_cast<double>(k) - magnitude) < kTolerance)
            break;
    }
    numerator = static_cast<int>(value < 0 ? -h : h);
    denominator = static_cast<int>(k);
}

void CFraction::Serialize(CArchive& archive) {
    if (archive.IsStoring()) {
        archive << m_numerator << m_denominator;
        return;
    }
    CFraction loaded;
    archive >> loaded.m_numerator >> loaded.m_denominator;
    *this = loaded;
}

CFraction& CFraction::operator+=(const CFraction& other) noexcept {
    return *this = *this + other;
}

CFraction& CFraction::operator-=(const CFraction& other) noexcept {
    return *this = *this - other;
}

CFraction& CFraction::operator*=(const CFraction& other) noexcept {
    return *this = *this * other;
}

CFraction& CFraction::operator/=(const CFraction& other) noexcept {
    return *this = *this / other;
}

CFraction operator+(const CFraction& left, const CFraction& right) noexcept {
    return Sum(left, right, 1);
}

CFraction operator-(const CFraction& left, const CFraction& right) noexcept {
    return Sum(left, right, -1);
}

CFraction operator*(const CFraction& left, const CFraction& right) noexcept {
    if (left.IsUndefined() || right.IsUndefined())
        return {0, 0};
    return Reduced(Product(left.GetNumerator(), right.GetNumerator()),
                   Product(left.GetDenominator(), right.GetDenominator()));
}

CFraction operator/(const CFraction& left, const CFraction& right) noexcept {
    return left * right.GetReciprocal();
}

BOOL operator==(const CFraction& left, const CFraction& right) noexcept {
    return Compare(left, right, std::equal_to<>());
}

BOOL operator!=(const CFraction& left, const CFraction& right) noexcept {
    return Compare(left, right, std::not_equal_to<>());
}

BOOL operator<(const CFraction& left, const CFraction& right) noexcept {
    return Compare(left, right, std::less<>());
}

BOOL operator>(const CFraction& left, const CFraction& right) noexcept {
    return Compare(left, right, std::greater<>());
}

BOOL operator<=(const CFraction& left, const CFraction& right) noexcept {
    return Compare(left, right, std::less_equal<>());
}

BOOL operator>=(const CFraction& left, const CFraction& right) noexcept {
    return Compare(left, right, std::greater_equal<>());
}
