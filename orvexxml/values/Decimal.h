// CDecimal: the value of xs:decimal, exact up to a process-wide number of places.
// Also the parser of number text in scientific notation for CBigInteger.
#pragma once

#include "orvexxml/Export.h"

#include "orvexxml/values/BigInteger.h"

#include <cstdint>
#include <string>

namespace OrvexXmlLib5 {

// The value of xs:decimal: a whole part and a fraction, both exact, of any length.
// Products, quotients and parsed values keep at most GetMaxDecimalPlaces places.
class ORVEXXML_API CDecimal
{
public:
    // Positive exponents above this are refused by the parser: 1E+n has n + 1 digits,
    // and a short text must not make the value that large. Negative exponents of any
    // size are taken; beyond the value's own digits they give zero.
    static constexpr int MAX_EXPONENT = 10000;
    // The largest setting of SetMaxDecimalPlaces.
    static constexpr int MAX_DECIMAL_PLACES = 1000000;

    // Zero.
    CDecimal();
    // The value of an int.
    CDecimal(int value);
    // The value of a long.
    CDecimal(long value);
    // The value of a long long.
    CDecimal(long long value);
    // The value of an unsigned int.
    CDecimal(unsigned int value);
    // The value of an unsigned long.
    CDecimal(unsigned long value);
    // The value of an unsigned long long.
    CDecimal(unsigned long long value);
    // The value of a whole number.
    CDecimal(const CBigInteger& value);
    // Thirteen places of the double, then rationalised. Fails with
    // COrvexInvalidValueException for an infinity or NaN, as their text does.
    CDecimal(double value);
    // Fails with COrvexInvalidValueException naming the position of the first bad
    // character; a null text fails at position 0. The message quotes the text, cut
    // after 256 bytes with "..." (see detail/QuotedValue.h).
    CDecimal(const char* text);
    // Copies the value.
    CDecimal(const CDecimal& other) = default;
    // Takes the value of other.
    CDecimal(CDecimal&& other) noexcept = default;
    // Copies the value.
    CDecimal& operator=(const CDecimal& other) = default;
    // Takes the value of other.
    CDecimal& operator=(CDecimal&& other) noexcept = default;
    ~CDecimal() = default;

    // The shortest form: "5", "1.05", "-0.5". Zero is "0".
    std::string ToString() const;
    // Fixed places, a half rounded away from zero; always has a point ("12." for 0
    // places). Fails with COrvexInvalidParamException for negative places.
    std::string ToString(int places) const;
    // Fail with COrvexOverFlowException beyond the range of the target type.
    double ToDouble() const;
    // Rounded to a whole number as ToBigInteger rounds.
    std::int64_t ToLongLong() const;
    // Rounded to a whole number as ToBigInteger rounds.
    std::int32_t ToLong() const;
    // Rounds a half towards zero; no limit.
    CBigInteger ToBigInteger() const;

    // Flips the sign.
    void Negate();
    // The value with the sign flipped.
    CDecimal GetNegative() const;

    // The exact sum.
    CDecimal operator+(const CDecimal& other) const;
    // The exact difference.
    CDecimal operator-(const CDecimal& other) const;
    // The product, rounded to GetMaxDecimalPlaces places.
    CDecimal operator*(const CDecimal& other) const;
    // Fails with COrvexInvalidValueException for a zero divisor.
    CDecimal operator/(const CDecimal& other) const;
    // Adds other in place.
    CDecimal& operator+=(const CDecimal& other);
    // Subtracts other in place.
    CDecimal& operator-=(const CDecimal& other);
    // Multiplies by other in place, as operator* does.
    CDecimal& operator*=(const CDecimal& other);
    // Divides by other in place, as operator/ does.
    CDecimal& operator/=(const CDecimal& other);
    // Adds one in place.
    CDecimal& operator++();
    // Subtracts one in place.
    CDecimal& operator--();
    // The postfix forms give the value plus or minus one and leave the object as it was.
    CDecimal operator++(int) const;
    // The value minus one; the object stays as it was.
    CDecimal operator--(int) const;

    // True for the same value; trailing zeros of the fraction do not count.
    bool operator==(const CDecimal& other) const;
    // The negation of operator==.
    bool operator!=(const CDecimal& other) const { return !(*this == other); }
    // The numeric order.
    bool operator<(const CDecimal& other) const;
    // The numeric order.
    bool operator>(const CDecimal& other) const;
    // The numeric order.
    bool operator<=(const CDecimal& other) const;
    // The numeric order.
    bool operator>=(const CDecimal& other) const;

    // Products, quotients and parsed values are rounded to this many places.
    // Meant to be set at start-up; SetMaxDecimalPlaces fails with
    // COrvexInvalidParamException outside 0 to MAX_DECIMAL_PLACES.
    static int GetMaxDecimalPlaces() { return m_maxDivider; }
    // Sets GetMaxDecimalPlaces; see above.
    static void SetMaxDecimalPlaces(int places);

private:
    friend class CBigInteger;

    CDecimal(const CBigInteger& whole, const CBigInteger& fraction, int divider);

    void Parse(const char* text);
    void Rationalise();
    void ChangeFractionalDivider(int divider);
    static int Normalize(CDecimal& a, CDecimal& b);
    // The fraction scaled by 10^(divider - m_divider), for a divider not below m_divider.
    CBigInteger FractionAt(int divider) const;
    void CutToMaxDivider();
    // The sign text of the value: "-" when the whole carries the negative sign.
    const char* SignText() const { return m_whole.m_sign < 0 ? "-" : ""; }

    // Constant-initialised: the limits of CBigInteger are built through this class
    // during dynamic initialisation, which always runs after constant initialisation.
    static int m_maxDivider;

    CBigInteger m_whole;
    CBigInteger m_fraction;
    int m_divider;
};

}  // namespace OrvexXmlLib5
