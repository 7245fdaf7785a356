#include "orvexxml/values/Decimal.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/values/WhitespaceUtils.h"
#include "orvexxml/values/detail/QuotedValue.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

#if defined(__clang__)
#define ORVEX_CONSTINIT [[clang::require_constant_initialization]]
#elif defined(__GNUC__)
#define ORVEX_CONSTINIT __constinit
#else
#define ORVEX_CONSTINIT
#endif

namespace OrvexXmlLib5 {

// Must not wait for dynamic initialisation: see the declaration.
ORVEX_CONSTINIT int CDecimal::m_maxDivider = 30;

namespace {

const char* const kParseFailure = "The string representing a Decimal, contained an invalid char at position %d [%s]";

[[noreturn]] void FailAt(std::size_t position, const char* text)
{
    throw COrvexInvalidValueException(
        FormatString(kParseFailure, static_cast<int>(position), detail::QuotedValue(text).c_str()));
}

inline bool IsDigitChar(char c)
{
    return c >= '0' && c <= '9';
}

// Digits as characters, most significant first; short runs stay off the heap.
class DigitRun
{
public:
    void Push(char c)
    {
        if (m_size < sizeof(m_inline)) {
            m_inline[m_size++] = c;
            return;
        }
        if (m_heap.empty())
            m_heap.assign(m_inline, m_size);
        m_heap.push_back(c);
        ++m_size;
    }
    const char* Begin() const { return m_heap.empty() ? m_inline : m_heap.data(); }
    const char* End() const { return Begin() + m_size; }
    std::size_t Size() const { return m_size; }

private:
    char m_inline[64];
    std::size_t m_size = 0;
    std::string m_heap;
};

// The magnitude as digits, most significant first; zero is "0".
void AppendMagnitude(std::string& out, const detail::CDigitVector& digits)
{
    if (digits.empty()) {
        out.push_back('0');
        return;
    }
    for (std::size_t i = digits.size(); i-- > 0;)
        out.push_back(static_cast<char>('0' + digits[i]));
}

std::size_t MagnitudeLength(const detail::CDigitVector& digits)
{
    return digits.empty() ? 1 : digits.size();
}

}  // namespace

// ---------------------------------------------------------------- construction

CDecimal::CDecimal() : m_divider(1) {}

CDecimal::CDecimal(int value) : m_whole(value), m_divider(1) {}

CDecimal::CDecimal(long value) : m_whole(value), m_divider(1) {}

CDecimal::CDecimal(long long value) : m_whole(value), m_divider(1) {}

CDecimal::CDecimal(unsigned int value) : m_whole(value), m_divider(1) {}

CDecimal::CDecimal(unsigned long value) : m_whole(value), m_divider(1) {}

CDecimal::CDecimal(unsigned long long value) : m_whole(value), m_divider(1) {}

CDecimal::CDecimal(const CBigInteger& value) : m_whole(value), m_divider(1) {}

CDecimal::CDecimal(double value)
    : m_whole(CBigInteger::NoDigits()), m_fraction(CBigInteger::NoDigits()), m_divider(1)
{
    // Thirteen fixed places and a line feed that the parser skips as whitespace.
    char buffer[400];
    const std::to_chars_result r =
        std::to_chars(buffer, buffer + sizeof(buffer) - 2, value, std::chars_format::fixed, 13);
    char* end = r.ec == std::errc() ? r.ptr : buffer;
    *end++ = '\n';
    *end = '\0';
    Parse(buffer);
}

CDecimal::CDecimal(const char* text)
    : m_whole(CBigInteger::NoDigits()), m_fraction(CBigInteger::NoDigits()), m_divider(1)
{
    Parse(text);
}

CDecimal::CDecimal(const CBigInteger& whole, const CBigInteger& fraction, int divider)
    : m_whole(whole), m_fraction(fraction), m_divider(divider)
{
}

void CDecimal::SetMaxDecimalPlaces(int places)
{
    if (places < 0 || places > MAX_DECIMAL_PLACES)
        throw COrvexInvalidParamException(FormatString(
            "The number of decimal places must be between 0 and %d [%d]", MAX_DECIMAL_PLACES, places));
    m_maxDivider = places;
}

// ---------------------------------------------------------------- parsing

void CDecimal::Parse(const char* text)
{
    if (text == nullptr)
        FailAt(0, "");
    const std::size_t length = std::strlen(text);
    std::size_t i = 0;
    char sign = '+';
    DigitRun integerDigits;
    DigitRun fractionDigits;

    // Integer digits; a sign may stand anywhere among them and the last one counts.
    for (; i < length; ++i) {
        const char c = text[i];
        if (IsDigitChar(c))
            integerDigits.Push(c);
        else if (c == '-' || c == '+')
            sign = c;
        else if (c == '.' || c == 'e' || c == 'E')
            break;
        else if (!CWhitespaceUtils::IsWhiteSpace(c))
            FailAt(i, text);
    }
    if (i < length && text[i] == '.') {
        for (++i; i < length; ++i) {
            const char c = text[i];
            if (IsDigitChar(c))
                fractionDigits.Push(c);
            else if (!CWhitespaceUtils::IsWhiteSpace(c))
                break;
        }
    }
    char exponentSign = '+';
    std::size_t exponentDigits = 0;
    std::int64_t exponent = 0;
    if (i < length && (text[i] == 'e' || text[i] == 'E')) {
        for (++i; i < length; ++i) {
            const char c = text[i];
            if (c == '-' || c == '+')
                exponentSign = c;
            else if (!CWhitespaceUtils::IsWhiteSpace(c))
                break;
        }
        // The exponent saturates: a negative one beyond the value's digits gives zero
        // whatever its size, and a positive one beyond the limit is refused here.
        for (; i < length && IsDigitChar(text[i]); ++i) {
            ++exponentDigits;
            exponent = std::min<std::int64_t>(exponent * 10 + (text[i] - '0'), INT32_MAX);
            if (exponentSign == '+' && exponent > MAX_EXPONENT)
                FailAt(i, text);
        }
    }
    if (i < length)
        FailAt(i, text);

    m_whole.AssignDigitText(integerDigits.Begin(), integerDigits.End());
    m_fraction.AssignDigitText(fractionDigits.Begin(), fractionDigits.End());
    m_divider = fractionDigits.Size() > 1 ? static_cast<int>(fractionDigits.Size()) : 1;
    if (sign == '-') {
        m_whole.Negate();
        m_fraction.Negate();
    }
    if (exponentDigits > 0) {
        if (exponentSign == '-') {
            // Any divisor above the dividend of the division gives the same zero.
            const std::int64_t beyond = static_cast<std::int64_t>(MagnitudeLength(m_whole.Magnitude())) + m_divider +
                                        static_cast<std::int64_t>(m_maxDivider) + 3;
            const unsigned int e = static_cast<unsigned int>(std::min(exponent, beyond));
            *this = *this / CDecimal(CBigInteger::Pow10(e));
        } else {
            *this = *this * CDecimal(CBigInteger::Pow10(static_cast<unsigned int>(exponent)));
        }
    }
    Rationalise();
    CutToMaxDivider();
}

// ---------------------------------------------------------------- scale

void CDecimal::Rationalise()
{
    // The fraction's text, right-aligned in a field of divider zeros, loses its
    // trailing zeros down to the second character: the divider stays at least 1.
    const bool zero = m_fraction.IsZero();
    const std::size_t textLength = zero ? 1 : m_fraction.Magnitude().size();
    const std::size_t field = std::max<std::size_t>(textLength, m_divider > 0 ? m_divider : 0);
    std::size_t trailing = 0;
    if (zero) {
        trailing = field - 1;
    } else {
        while (trailing < m_fraction.m_digits.size() && m_fraction.m_digits[trailing] == 0)
            ++trailing;
        trailing = std::min(trailing, field - 1);
    }
    if (trailing == 0)
        return;
    if (zero)
        m_fraction = CBigInteger();  // a divided zero loses its sign
    else
        m_fraction.m_digits.erase(m_fraction.m_digits.begin(),  // not zero, so it has its digits
                                  m_fraction.m_digits.begin() + static_cast<std::ptrdiff_t>(trailing));
    m_divider -= static_cast<int>(trailing);
}

void CDecimal::CutToMaxDivider()
{
    // The rounding can leave zeros at the end ("...0667" cut from "...066700067"):
    // they go as well, so that every result is in its shortest form.
    if (m_divider > m_maxDivider) {
        ChangeFractionalDivider(m_maxDivider);
        Rationalise();
    }
}

CBigInteger CDecimal::FractionAt(int divider) const
{
    CBigInteger f(m_fraction);
    if (divider > m_divider && !f.IsZero())
        CBigInteger::ShiftLeft(f.MutableMagnitude(), divider - m_divider);
    return f;
}

void CDecimal::ChangeFractionalDivider(int divider)
{
    if (divider >= m_divider) {
        if (!m_fraction.IsZero())
            CBigInteger::ShiftLeft(m_fraction.MutableMagnitude(), divider - m_divider);
        m_divider = divider;
        return;
    }
    const CBigInteger p = CBigInteger::Pow10(static_cast<unsigned int>(m_divider - divider));
    const CBigInteger rem = m_fraction % p;
    m_fraction = m_fraction / p;
    m_divider = divider;
    // Exactly one half does not round: the rounding is half towards zero.
    int carry = 0;
    if (rem > p / CBigInteger(2))
        carry = 1;
    else if (rem < p / CBigInteger(-2))
        carry = -1;
    if (carry == 0)
        return;
    if (m_divider == 0) {
        m_whole += CBigInteger(carry);
        return;
    }
    m_fraction += CBigInteger(carry);
    const CBigInteger q = CBigInteger::Pow10(static_cast<unsigned int>(m_divider));
    if (CBigInteger::Compare(m_fraction.Magnitude(), q.Magnitude()) >= 0) {
        if (m_fraction.m_sign > 0) {
            m_fraction -= q;
            m_whole += CBigInteger(1);
        } else {
            m_fraction += q;
            m_whole -= CBigInteger(1);
        }
    }
    if (m_whole.IsPositive() && m_fraction.IsNegative()) {
        m_fraction += q;
        m_whole -= CBigInteger(1);
    } else if (m_whole.IsNegative() && m_fraction.IsPositive()) {
        m_fraction -= q;
        m_whole += CBigInteger(1);
    }
    if (m_whole.IsZero())
        m_whole.m_sign = m_fraction.m_sign;
}

int CDecimal::Normalize(CDecimal& a, CDecimal& b)
{
    const int d = std::max(a.m_divider, b.m_divider);
    a.ChangeFractionalDivider(d);
    b.ChangeFractionalDivider(d);
    return d;
}

// ---------------------------------------------------------------- text and conversions

std::string CDecimal::ToString() const
{
    if (m_fraction.IsZero())
        return m_whole.ToString();
    std::string s;
    const std::size_t fractionLength = m_fraction.Magnitude().size();
    const std::size_t pad =
        static_cast<std::size_t>(m_divider) > fractionLength ? static_cast<std::size_t>(m_divider) - fractionLength : 0;
    s.reserve(2 + MagnitudeLength(m_whole.Magnitude()) + pad + fractionLength);
    s += SignText();
    AppendMagnitude(s, m_whole.Magnitude());
    s.push_back('.');
    s.append(pad, '0');
    AppendMagnitude(s, m_fraction.Magnitude());
    return s;
}

std::string CDecimal::ToString(int places) const
{
    if (places < 0)
        throw COrvexInvalidParamException(FormatString("The number of decimal places can not be negative [%d]", places));
    // A five one place beyond the last kept digit, with the sign of the value: the
    // sum then rounds a half away from zero when the fraction is cut.
    std::string term = SignText();
    term += "0.";
    term.append(static_cast<std::size_t>(places), '0');
    term.push_back('5');
    CDecimal r(term.c_str());
    r += *this;

    std::string fraction;
    const std::size_t fractionLength = MagnitudeLength(r.m_fraction.Magnitude());
    if (static_cast<std::size_t>(r.m_divider) > fractionLength)
        fraction.append(static_cast<std::size_t>(r.m_divider) - fractionLength, '0');
    AppendMagnitude(fraction, r.m_fraction.Magnitude());
    if (fraction.size() > static_cast<std::size_t>(places))
        fraction.resize(static_cast<std::size_t>(places));

    std::string s = r.SignText();
    AppendMagnitude(s, r.m_whole.Magnitude());
    s.push_back('.');
    s += fraction;
    return s;
}

double CDecimal::ToDouble() const
{
    if (m_whole > CBigInteger::MAX_DOUBLE || m_whole < CBigInteger::MIN_DOUBLE)
        throw COrvexOverFlowException("The Decimal value if to large to fit into a Double");
    const std::string text = ToString();
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::int64_t CDecimal::ToLongLong() const
{
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    if (rounded.m_whole > CBigInteger::MAX_LONGLONG || rounded.m_whole < CBigInteger::MIN_LONGLONG)
        throw COrvexOverFlowException("The Decimal value if to large to fit into a LONGLONG");
    return static_cast<std::int64_t>(rounded.m_whole);
}

std::int32_t CDecimal::ToLong() const
{
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    if (rounded.m_whole > CBigInteger::MAX_LONG || rounded.m_whole < CBigInteger::MIN_LONG)
        throw COrvexOverFlowException("The Decimal value if to large to fit into a LONG");
    return static_cast<int>(rounded.m_whole);
}

CBigInteger CDecimal::ToBigInteger() const
{
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    return std::move(rounded.m_whole);
}

// ---------------------------------------------------------------- arithmetic

void CDecimal::Negate()
{
    m_whole.Negate();
    m_fraction.Negate();
}

CDecimal CDecimal::GetNegative() const
{
    CDecimal d(*this);
    d.Negate();
    return d;
}

CDecimal CDecimal::operator+(const CDecimal& other) const
{
    CDecimal a(*this);
    CDecimal b(other);
    const int d = Normalize(a, b);
    const CBigInteger q = CBigInteger::Pow10(static_cast<unsigned int>(d));
    const CBigInteger one(1);
    CBigInteger fraction = a.m_fraction + b.m_fraction;
    CBigInteger whole = a.m_whole + b.m_whole;
    while (fraction.m_sign > 0 && CBigInteger::Compare(fraction.Magnitude(), q.Magnitude()) >= 0) {
        fraction -= q;
        whole += one;
    }
    while (fraction.m_sign < 0 && CBigInteger::Compare(fraction.Magnitude(), q.Magnitude()) >= 0) {
        fraction += q;
        whole -= one;
    }
    if (whole.IsPositive() && fraction.IsNegative()) {
        fraction += q;
        whole -= one;
    } else if (whole.IsNegative() && fraction.IsPositive()) {
        fraction -= q;
        whole += one;
    }
    if (whole.IsZero())
        whole.m_sign = fraction.m_sign;
    CDecimal result(whole, fraction, d);
    result.Rationalise();
    return result;
}

CDecimal CDecimal::operator-(const CDecimal& other) const
{
    return *this + other.GetNegative();
}

CDecimal CDecimal::operator*(const CDecimal& other) const
{
    CDecimal a(*this);
    CDecimal b(other);
    const int d = Normalize(a, b);
    const CBigInteger p = CBigInteger::Pow10(static_cast<unsigned int>(d));
    const CBigInteger q = CBigInteger::Pow10(static_cast<unsigned int>(2 * d));
    const CBigInteger s = (a.m_whole * b.m_whole) * q + (b.m_whole * a.m_fraction) * p +
                          (b.m_fraction * a.m_whole) * p + a.m_fraction * b.m_fraction;
    CDecimal result(s / q, s % q, 2 * d);
    result.Rationalise();
    result.CutToMaxDivider();
    return result;
}

CDecimal CDecimal::operator/(const CDecimal& other) const
{
    CDecimal a(*this);
    CDecimal b(other);
    const int d = Normalize(a, b);
    const CBigInteger p = CBigInteger::Pow10(static_cast<unsigned int>(d));
    // Two guard digits beyond the kept places drive the final rounding.
    const CBigInteger t = CBigInteger::Pow10(static_cast<unsigned int>(m_maxDivider) + 2);
    const CBigInteger n = (p * a.m_whole + a.m_fraction) * t;
    const CBigInteger m = p * b.m_whole + b.m_fraction;
    const CBigInteger r = n / m;
    CDecimal result(r / t, r % t, m_maxDivider + 2);
    result.Rationalise();
    result.CutToMaxDivider();
    return result;
}

CDecimal& CDecimal::operator+=(const CDecimal& other)
{
    return *this = *this + other;
}

CDecimal& CDecimal::operator-=(const CDecimal& other)
{
    return *this = *this - other;
}

CDecimal& CDecimal::operator*=(const CDecimal& other)
{
    return *this = *this * other;
}

CDecimal& CDecimal::operator/=(const CDecimal& other)
{
    return *this = *this / other;
}

CDecimal& CDecimal::operator++()
{
    return *this += CDecimal(1);
}

CDecimal& CDecimal::operator--()
{
    return *this -= CDecimal(1);
}

CDecimal CDecimal::operator++(int) const
{
    return *this + CDecimal(1);
}

CDecimal CDecimal::operator--(int) const
{
    return *this - CDecimal(1);
}

// ---------------------------------------------------------------- comparison

// Normalising never changes the wholes, so only the fraction with the smaller
// divider is scaled, and only when the wholes are equal.
bool CDecimal::operator==(const CDecimal& other) const
{
    if (!(m_whole == other.m_whole))
        return false;
    const int d = std::max(m_divider, other.m_divider);
    if (m_divider == other.m_divider)
        return m_fraction == other.m_fraction;
    return FractionAt(d) == other.FractionAt(d);
}

bool CDecimal::operator<(const CDecimal& other) const
{
    if (m_whole < other.m_whole)
        return true;
    if (!(m_whole == other.m_whole))
        return false;
    if (m_divider == other.m_divider)
        return m_fraction < other.m_fraction;
    const int d = std::max(m_divider, other.m_divider);
    return FractionAt(d) < other.FractionAt(d);
}

bool CDecimal::operator>(const CDecimal& other) const
{
    if (m_whole > other.m_whole)
        return true;
    if (!(m_whole == other.m_whole))
        return false;
    if (m_divider == other.m_divider)
        return m_fraction > other.m_fraction;
    const int d = std::max(m_divider, other.m_divider);
    return FractionAt(d) > other.FractionAt(d);
}

bool CDecimal::operator<=(const CDecimal& other) const
{
    if (m_whole < other.m_whole)
        return true;
    if (!(m_whole == other.m_whole))
        return false;
    if (m_divider == other.m_divider)
        return m_fraction <= other.m_fraction;
    const int d = std::max(m_divider, other.m_divider);
    return FractionAt(d) <= other.FractionAt(d);
}

bool CDecimal::operator>=(const CDecimal& other) const
{
    if (m_whole > other.m_whole)
        return true;
    if (!(m_whole == other.m_whole))
        return false;
    if (m_divider == other.m_divider)
        return m_fraction >= other.m_fraction;
    const int d = std::max(m_divider, other.m_divider);
    return FractionAt(d) >= other.FractionAt(d);
}

}  // namespace OrvexXmlLib5
