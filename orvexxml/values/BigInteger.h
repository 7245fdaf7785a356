// CBigInteger: the value of xs:integer, a sign and decimal digits of any length.
// Text converts digit for digit; the arithmetic is exact and never goes through binary.
// Products, quotients and square roots of long values run on limbs of nine digits
// in less than quadratic time (detail/LimbArithmetic.h): a million digits by a
// million take well under a second.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <string>
#include <vector>

#include "orvexxml/values/detail/DigitVector.h"

namespace OrvexXmlLib5 {

class CDecimal;

// The value of xs:integer: a sign and decimal digits of any length, with exact
// arithmetic. A zero may carry the negative sign (-0); it equals 0 and prints as "0".
class ORVEXXML_API CBigInteger
{
public:
    // The limits that the conversions test against. They are built while the library
    // loads and may be used from main() on; the static initialisers of other
    // libraries must not rely on them.
    static const CBigInteger MAX_LONG;
    // -2147483648.
    static const CBigInteger MIN_LONG;
    // 9223372036854775807.
    static const CBigInteger MAX_LONGLONG;
    // -9223372036854775808.
    static const CBigInteger MIN_LONGLONG;
    // 17 followed by 307 zeros (1.7E+308).
    static const CBigInteger MAX_DOUBLE;
    // The negative of MAX_DOUBLE.
    static const CBigInteger MIN_DOUBLE;

    // Zero.
    CBigInteger();
    // The value of an int.
    CBigInteger(int value);
    // The value of a long.
    CBigInteger(long value);
    // The value of a long long.
    CBigInteger(long long value);
    // The value of an unsigned int.
    CBigInteger(unsigned int value);
    // The value of an unsigned long.
    CBigInteger(unsigned long value);
    // The value of an unsigned long long.
    CBigInteger(unsigned long long value);
    // Rounds to the nearest whole number, a half towards zero (2.5 gives 2).
    // Fails with COrvexOverFlowException for an infinity or NaN.
    CBigInteger(double value);
    // See Parse.
    CBigInteger(const char* text);
    // Rounds a half towards zero, as CDecimal's own rounding does.
    explicit CBigInteger(const CDecimal& value);
    // Copies sign and digits.
    CBigInteger(const CBigInteger& other) = default;
    // Takes the digits of other.
    CBigInteger(CBigInteger&& other) noexcept = default;
    // Copies sign and digits.
    CBigInteger& operator=(const CBigInteger& other) = default;
    // Takes the digits of other.
    CBigInteger& operator=(CBigInteger&& other) noexcept = default;
    ~CBigInteger() = default;

    // Text of signs, digits and whitespace alone reads its trailing run of digits:
    // "" is zero, "-" is zero with the negative sign, "12-34" is 34. Any other text
    // is read as a CDecimal and rounded, and fails as CDecimal's parser does.
    void Parse(const char* text);
    // Zero is always "0", never "-0".
    std::string ToString() const;

    // Makes the value non-negative.
    void Abs() { m_sign = 1; }
    // Flips the sign (0 becomes -0).
    void Negate() { m_sign = -m_sign; }
    // Flips the sign of this object itself and returns it.
    CBigInteger& operator-();
    // The absolute value.
    CBigInteger GetAbs() const;
    // The value with the sign flipped.
    CBigInteger GetNegative() const;

    // The exact sum.
    CBigInteger operator+(const CBigInteger& other) const;
    // The exact difference.
    CBigInteger operator-(const CBigInteger& other) const;
    // The exact product.
    CBigInteger operator*(const CBigInteger& other) const;
    // Truncates towards zero. Fails with COrvexInvalidValueException for a zero divisor.
    CBigInteger operator/(const CBigInteger& other) const;
    // The remainder has the sign of the dividend. Fails for a zero divisor.
    CBigInteger operator%(const CBigInteger& other) const;
    // Adds other in place.
    CBigInteger& operator+=(const CBigInteger& other);
    // Subtracts other in place.
    CBigInteger& operator-=(const CBigInteger& other);
    // Multiplies by other in place.
    CBigInteger& operator*=(const CBigInteger& other);
    // Divides by other in place, as operator/ does.
    CBigInteger& operator/=(const CBigInteger& other);
    // Keeps the remainder, as operator% gives it.
    CBigInteger& operator%=(const CBigInteger& other);

    // -0 equals 0, yet orders below it: the order looks at the sign first.
    bool operator==(const CBigInteger& other) const;
    // The negation of operator==.
    bool operator!=(const CBigInteger& other) const { return !(*this == other); }
    // Orders by sign first (-0 below 0), then by value.
    bool operator<(const CBigInteger& other) const;
    // other < *this.
    bool operator>(const CBigInteger& other) const { return other < *this; }
    // Not greater.
    bool operator<=(const CBigInteger& other) const { return !(*this > other); }
    // Not less.
    bool operator>=(const CBigInteger& other) const { return !(*this < other); }

    // Fail with COrvexInvalidValueException outside the range of the target type.
    explicit operator int() const;
    // The same for 64 bits.
    explicit operator std::int64_t() const;

    // The floor of the square root. Fails for a negative value and for zero.
    CBigInteger SquareRoot() const;
    // 10 to the power n.
    static CBigInteger Pow10(unsigned int n);

protected:
    // Decimal digits, each from 0 to 9, least significant first.
    using Digits = detail::CDigitVector;

    // A value of sign (1 or -1) and magnitude digits.
    CBigInteger(int sign, const Digits& digits);
    // The same, taking the digits over.
    CBigInteger(int sign, Digits&& digits);

    // The digit-vector layer: magnitudes only, least significant digit first. An
    // empty vector reads as zero. Results may be written into an argument.
    static int Position(const Digits& v);
    // Drops leading zeros, keeping one digit.
    static void Clean(Digits& v);
    // Compares two magnitudes: -1, 0 or 1.
    static int Compare(const Digits& a, const Digits& b);
    // Multiplies v by 10 to the power n; nothing for n of 0 or below.
    static void ShiftLeft(Digits& v, int n);
    // The digits of value.
    static void Build(unsigned int value, Digits& out);
    // The digits of a 64-bit value.
    static void BuildDWORDLONG(std::uint64_t value, Digits& out);
    // The digits of the magnitude of value rounded to a whole number, a half downwards.
    static void BuildDouble(double value, Digits& out);
    // The trailing run of digit characters in text.
    static void Build(const std::string& text, Digits& out);
    // a + b.
    static void Add(const Digits& a, const Digits& b, Digits& out);
    // Requires a >= b.
    static void Subtract(const Digits& a, const Digits& b, Digits& out);
    // a times one digit.
    static void Multiply(const Digits& a, char digit, Digits& out);
    // a times b.
    static void Multiply(const Digits& a, const Digits& b, Digits& out);
    // 10 to the power n.
    static void Pow10(unsigned int n, Digits& out);
    // b must not be zero.
    static void Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder);

    // True for 0 and -0.
    bool IsZero() const { return m_digits.size() <= 1 && (m_digits.empty() || m_digits[0] == 0); }
    // True sign tests: -0 is neither.
    bool IsPositive() const { return m_sign > 0 && !IsZero(); }
    // True for a value below zero.
    bool IsNegative() const { return m_sign < 0 && !IsZero(); }

private:
    friend class CDecimal;

    // An empty digit vector, to be filled at once: spares the allocation of a zero.
    struct NoDigits
    {
    };
    explicit CBigInteger(NoDigits) : m_sign(1) {}

    CBigInteger Sum(const CBigInteger& other, int otherSign) const;
    void DivideBy(const CBigInteger& other, CBigInteger* quotient, CBigInteger* remainder,
                  const char* zeroMessage) const;
    // Digits given as characters '0' to '9', most significant first.
    void AssignDigitText(const char* begin, const char* end);

    // The digits, with zero's single digit for a value made empty (a default one).
    const Digits& Magnitude() const;
    // The digits to change in place, zero's digit made real first.
    Digits& MutableMagnitude();

    int m_sign;
    Digits m_digits;
};

}  // namespace OrvexXmlLib5
