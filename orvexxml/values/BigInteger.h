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

namespace OrvexXmlLib5 {

class CDecimal;

class ORVEXXML_API CBigInteger
{
public:
    // The limits that the conversions test against. They are built while the library
    // loads and may be used from main() on; the static initialisers of other
    // libraries must not rely on them.
    static const CBigInteger MAX_LONG;
    static const CBigInteger MIN_LONG;
    static const CBigInteger MAX_LONGLONG;
    static const CBigInteger MIN_LONGLONG;
    static const CBigInteger MAX_DOUBLE;
    static const CBigInteger MIN_DOUBLE;

    // Zero.
    CBigInteger();
    CBigInteger(int value);
    CBigInteger(long value);
    CBigInteger(long long value);
    CBigInteger(unsigned int value);
    CBigInteger(unsigned long value);
    CBigInteger(unsigned long long value);
    // Rounds to the nearest whole number, a half towards zero (2.5 gives 2).
    // Fails with COrvexOverFlowException for an infinity or NaN.
    CBigInteger(double value);
    // See Parse.
    CBigInteger(const char* text);
    // Rounds a half towards zero, as CDecimal's own rounding does.
    explicit CBigInteger(const CDecimal& value);
    CBigInteger(const CBigInteger& other) = default;
    CBigInteger(CBigInteger&& other) noexcept = default;
    CBigInteger& operator=(const CBigInteger& other) = default;
    CBigInteger& operator=(CBigInteger&& other) noexcept = default;
    ~CBigInteger() = default;

    // Text of signs, digits and whitespace alone reads its trailing run of digits:
    // "" is zero, "-" is zero with the negative sign, "12-34" is 34. Any other text
    // is read as a CDecimal and rounded, and fails as CDecimal's parser does.
    void Parse(const char* text);
    // Zero is always "0", never "-0".
    std::string ToString() const;

    void Abs() { m_sign = 1; }
    void Negate() { m_sign = -m_sign; }
    // Flips the sign of this object itself and returns it.
    CBigInteger& operator-();
    CBigInteger GetAbs() const;
    CBigInteger GetNegative() const;

    CBigInteger operator+(const CBigInteger& other) const;
    CBigInteger operator-(const CBigInteger& other) const;
    CBigInteger operator*(const CBigInteger& other) const;
    // Truncates towards zero. Fails with COrvexInvalidValueException for a zero divisor.
    CBigInteger operator/(const CBigInteger& other) const;
    // The remainder has the sign of the dividend. Fails for a zero divisor.
    CBigInteger operator%(const CBigInteger& other) const;
    CBigInteger& operator+=(const CBigInteger& other);
    CBigInteger& operator-=(const CBigInteger& other);
    CBigInteger& operator*=(const CBigInteger& other);
    CBigInteger& operator/=(const CBigInteger& other);
    CBigInteger& operator%=(const CBigInteger& other);

    // -0 equals 0, yet orders below it: the order looks at the sign first.
    bool operator==(const CBigInteger& other) const;
    bool operator!=(const CBigInteger& other) const { return !(*this == other); }
    bool operator<(const CBigInteger& other) const;
    bool operator>(const CBigInteger& other) const { return other < *this; }
    bool operator<=(const CBigInteger& other) const { return !(*this > other); }
    bool operator>=(const CBigInteger& other) const { return !(*this < other); }

    // Fail with COrvexInvalidValueException outside the range of the target type.
    explicit operator int() const;
    explicit operator std::int64_t() const;

    // The floor of the square root. Fails for a negative value and for zero.
    CBigInteger SquareRoot() const;
    static CBigInteger Pow10(unsigned int n);

protected:
    using Digits = std::vector<char>;

    CBigInteger(int sign, const Digits& digits);
    CBigInteger(int sign, Digits&& digits);

    // The digit-vector layer: magnitudes only, least significant digit first. An
    // empty vector reads as zero. Results may be written into an argument.
    static int Position(const Digits& v);
    static void Clean(Digits& v);
    static int Compare(const Digits& a, const Digits& b);
    static void ShiftLeft(Digits& v, int n);
    static void Build(unsigned int value, Digits& out);
    static void BuildDWORDLONG(std::uint64_t value, Digits& out);
    static void BuildDouble(double value, Digits& out);
    static void Build(const std::string& text, Digits& out);
    static void Add(const Digits& a, const Digits& b, Digits& out);
    // Requires a >= b.
    static void Subtract(const Digits& a, const Digits& b, Digits& out);
    static void Multiply(const Digits& a, char digit, Digits& out);
    static void Multiply(const Digits& a, const Digits& b, Digits& out);
    static void Pow10(unsigned int n, Digits& out);
    // b must not be zero.
    static void Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder);

    bool IsZero() const { return m_digits.size() <= 1 && (m_digits.empty() || m_digits[0] == 0); }
    // True sign tests: -0 is neither.
    bool IsPositive() const { return m_sign > 0 && !IsZero(); }
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
