// CFraction: a common fraction of two signed 32-bit integers.
//
// A denominator of 0 means that the fraction is undefined. Either member may be negative; only the
// operations that say so move the sign. Members are exact. A sum or product beyond 32 bits wraps; a
// denominator that wraps to 0 makes the result undefined. The quotient -2147483648 / -1 wraps to
// -2147483648 too.
//
// Only GetText and Serialize throw. One thread at a time may use an object.
#pragma once

#include <quorvel/framework/archive.h>
#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <concepts>
#include <utility>

class QUORVEL_API CFraction {
public:
    CFraction() noexcept = default;                         // 0/1
    CFraction(int number) noexcept : m_numerator(number) {} // number/1
    // Integers of any other type, so that LONG, DWORD and std::int64_t work alike on every system.
    // A number that does not fit in 32 bits gives 0/0.
    template <std::integral Integer>
    CFraction(Integer number) noexcept
        : m_numerator(std::in_range<int>(+number) ? static_cast<int>(number) : 0),
          m_denominator(std::in_range<int>(+number)) {}
    // The members are stored unchanged.
    CFraction(int numerator, int denominator) noexcept
        : m_numerator(numerator), m_denominator(denominator) {}
    CFraction(float value) noexcept;  // as DecimalToFraction
    CFraction(double value) noexcept; // as DecimalToFraction
    CFraction(const CFraction& other) noexcept = default;
    CFraction& operator=(const CFraction& other) noexcept = default;

    // Every value is accepted and nothing is reduced.
    int GetNumerator() const noexcept { return m_numerator; }
    int GetDenominator() const noexcept { return m_denominator; }
    void GetNumeratorAndDenominator(int& numerator, int& denominator) const noexcept;
    void SetNumerator(int numerator) noexcept { m_numerator = numerator; }
    void SetDenominator(int denominator) noexcept { m_denominator = denominator; }
    void SetNumeratorAndDenominator(int numerator, int denominator) noexcept;

    // An undefined fraction is neither zero nor negative nor positive.
    BOOL IsUndefined() const noexcept { return m_denominator == 0; }
    BOOL IsZero() const noexcept { return m_numerator == 0 && m_denominator != 0; }
    BOOL IsNegative() const noexcept;
    BOOL IsPositive() const noexcept;
    BOOL IsInLowestTerms() const noexcept; // GetLowestTerms succeeds and changes nothing
    BOOL IsReciprocal(const CFraction& other) const noexcept; // `other` == GetReciprocal()

    // Swaps the members together with their signs: the reciprocal of 0/1 is 1/0.
    CFraction GetReciprocal() const noexcept { return {m_denominator, m_numerator}; }
    double GetDecimal() const noexcept; // 0.0 when undefined

    // The members divided by their greatest common divisor; a negative denominator stays negative.
    // Deliberate: when a positive denominator divides the numerator, the members stay, so 4/2 and
    // 0/2 count as in lowest terms. FALSE with the members unchanged when undefined.
    BOOL GetLowestTerms(int& numerator, int& denominator) const noexcept;
    BOOL GetLowestTerms(CFraction& result) const noexcept;
    BOOL ReduceToLowestTerms() noexcept; // FALSE and no change when undefined

    // The same value with another denominator. Returns FALSE with the result 0/1 for a denominator
    // of 0, for an undefined fraction, and when it is impossible: a smaller denominator (signed)
    // must divide the old one, and a larger one must be a multiple of it. So -4 is refused for
    // 1/-2. The result may be this object.
    BOOL GetEquivalentFraction(int denominator, CFraction& result) const noexcept;

    // "7/2" or "-1/3": not reduced, with the sign in front. With `mixed` and a whole part "-3 1/2",
    // or "2" if there is no remainder. "0" when the numerator or the denominator is 0.
    CString GetText(BOOL mixed) const;

    // Never negative; 1 for 0 and 0. Exception: 2147483648 does not fit and wraps to -2147483648.
    static int GetGreatestCommonDivisor(int a, int b) noexcept;
    static int GetLeastCommonMultiple(int a, int b) noexcept; // the product wraps before division
    // The least common multiple of the denominators.
    static int GetLowestCommonDenominator(const CFraction& first, const CFraction& second) noexcept;

    // The first convergent of the value's continued fraction that differs by less than 1e-7: 3/4
    // for 0.75. If the first 16 that fit in 32 bits contain no such one, the last of them; it
    // differs by less than 1e-6, or than a 2147483648th of the value. 0/0 for NaN and for a
    // magnitude above 2147483647.
    static void DecimalToFraction(double value, int& numerator, int& denominator) noexcept;

    // Stores or loads the numerator and then the denominator as 32-bit integers. Throws as CArchive
    // does; the fraction is then unchanged.
    void Serialize(CArchive& archive);

    // As the operators below.
    CFraction& operator+=(const CFraction& other) noexcept;
    CFraction& operator-=(const CFraction& other) noexcept;
    CFraction& operator*=(const CFraction& other) noexcept;
    CFraction& operator/=(const CFraction& other) noexcept;

private:
    int m_numerator = 0;
    int m_denominator = 1;
};

// Results are in lowest terms in the sense of GetLowestTerms: 1/2 - 1/2 is 0/2. The result is 0/0
// when an operand is undefined, and for a division by zero. Deliberate: a quotient is the product
// with the reciprocal, so 1/2 divided by the undefined 3/0 is 0/6.
QUORVEL_API CFraction operator+(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API CFraction operator-(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API CFraction operator*(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API CFraction operator/(const CFraction& left, const CFraction& right) noexcept;

// Compare as doubles, so 1/2 equals 2/4. Deliberate: all of them, including !=, return FALSE when
// an operand is undefined.
QUORVEL_API BOOL operator==(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator!=(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator<(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator>(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator<=(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator>=(const CFraction& left, const CFraction& right) noexcept;
