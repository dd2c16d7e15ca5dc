// CFraction: a common fraction of two signed 32-bit integers.
//
// A denominator of 0 means that the fraction is undefined. The sign may sit on either member, and
// only the operations that say so move it. Members are exact; a sum or product that leaves 32 bits
// wraps, and a denominator that wraps to 0 makes the result undefined. That includes the quotient
// -2147483648 / -1, which wraps to -2147483648.
//
// Nothing throws but GetText and Serialize. One object may be used by one thread at a time.
#pragma once

#include <quorvel/framework/archive.h>
#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <concepts>
#include <utility>

class QUORVEL_API CFraction {
public:
    CFraction() noexcept = default; // 0/1
    CFraction(int number) noexcept : m_numerator(number) {}
    // An integer of any other type, so that LONG, DWORD and std::int64_t are taken alike on every
    // system. One that does not fit in 32 bits gives 0/0.
    template <std::integral Integer>
    CFraction(Integer number) noexcept
        : m_numerator(std::in_range<int>(+number) ? static_cast<int>(number) : 0),
          m_denominator(std::in_range<int>(+number)) {}
    CFraction(int numerator, int denominator) noexcept
        : m_numerator(numerator), m_denominator(denominator) {}
    CFraction(float value) noexcept; // as DecimalToFraction
    CFraction(double value) noexcept;
    CFraction(const CFraction& other) noexcept = default;
    CFraction& operator=(const CFraction& other) noexcept = default;

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

    // The members swapped, with their signs: 1/0 of 0/1.
    CFraction GetReciprocal() const noexcept { return {m_denominator, m_numerator}; }
    double GetDecimal() const noexcept; // 0.0 when undefined

    // The members divided by their greatest common divisor; a negative denominator stays negative.
    // Deliberate: a positive denominator that divides the numerator is left as it is, so that 4/2
    // and 0/2 stay and count as in lowest terms. FALSE, and the members themselves, when undefined.
    BOOL GetLowestTerms(int& numerator, int& denominator) const noexcept;
    BOOL GetLowestTerms(CFraction& result) const noexcept;
    BOOL ReduceToLowestTerms() noexcept; // FALSE, and nothing changed, when undefined

    // The same value over another denominator. FALSE, and 0/1 as the result, for a denominator of
    // 0, an undefined fraction, and where there is none: a smaller denominator, by sign too, must
    // divide the old one and a larger one be its multiple, so -4 is refused for 1/-2. The result
    // may be this object.
    BOOL GetEquivalentFraction(int denominator, CFraction& result) const noexcept;

    // "7/2" or "-1/3": not reduced, the sign in front. With `mixed` and a whole part "-3 1/2", or
    // "2" without a remainder. "0" for a numerator or a denominator of 0.
    CString GetText(BOOL mixed) const;

    // Never negative, and 1 for 0 and 0. 2147483648, which does not fit, is given as -2147483648.
    static int GetGreatestCommonDivisor(int a, int b) noexcept;
    static int GetLeastCommonMultiple(int a, int b) noexcept; // the product wraps before division
    static int GetLowestCommonDenominator(const CFraction& first, const CFraction& second) noexcept;

    // The first convergent of the value's continued fraction that is nearer than 1e-7: 3/4 of 0.75.
    // Where there is none among the first 16 that fit in 32 bits, the last of these: it is nearer
    // than 1e-6, or than a 2147483648th of the value. 0/0 for a magnitude above 2147483647 and for
    // NaN.
    static void DecimalToFraction(double value, int& numerator, int& denominator) noexcept;

    // Stores, or loads, the numerator and then the denominator as 32-bit integers. Throws as
    // CArchive does; nothing is then loaded.
    void Serialize(CArchive& archive);

    CFraction& operator+=(const CFraction& other) noexcept;
    CFraction& operator-=(const CFraction& other) noexcept;
    CFraction& operator*=(const CFraction& other) noexcept;
    CFraction& operator/=(const CFraction& other) noexcept;

private:
    int m_numerator = 0;
    int m_denominator = 1;
};

// Results are in lowest terms as GetLowestTerms has it: 1/2 - 1/2 is 0/2. 0/0 when an operand is
// undefined, and for a division by zero. Deliberate: a quotient is the product with the reciprocal,
// so that 1/2 by the undefined 3/0 is 0/6.
QUORVEL_API CFraction operator+(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API CFraction operator-(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API CFraction operator*(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API CFraction operator/(const CFraction& left, const CFraction& right) noexcept;

// By value as doubles, so 1/2 equals 2/4. Deliberate: each, != included, is FALSE when an operand
// is undefined.
QUORVEL_API BOOL operator==(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator!=(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator<(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator>(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator<=(const CFraction& left, const CFraction& right) noexcept;
QUORVEL_API BOOL operator>=(const CFraction& left, const CFraction& right) noexcept;
