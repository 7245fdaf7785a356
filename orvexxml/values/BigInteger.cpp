#include "orvexxml/values/BigInteger.h"

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/values/Decimal.h"
#include "orvexxml/values/detail/LimbArithmetic.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace OrvexXmlLib5 {

// Built through the decimal parser; CDecimal's maximum divider is a constant-initialised
// int, so it holds its value before these run, whatever the order of the other units.
const CBigInteger CBigInteger::MAX_LONG(CDecimal("2147483647"));
const CBigInteger CBigInteger::MIN_LONG(CDecimal("-2147483648"));
const CBigInteger CBigInteger::MAX_LONGLONG(CDecimal("9223372036854775807"));
const CBigInteger CBigInteger::MIN_LONGLONG(CDecimal("-9223372036854775808"));
const CBigInteger CBigInteger::MAX_DOUBLE(CDecimal("1.7E+308"));
const CBigInteger CBigInteger::MIN_DOUBLE(CDecimal("-1.7E+308"));

namespace {

inline char DigitAt(const detail::CDigitVector& v, std::size_t i)
{
    return i < v.size() ? v[i] : 0;
}

inline bool IsDigitChar(char c)
{
    return c >= '0' && c <= '9';
}

// acc += b, in place.
void AddTo(detail::CDigitVector& acc, const detail::CDigitVector& b)
{
    if (acc.size() < b.size())
        acc.resize(b.size(), 0);
    char carry = 0;
    std::size_t i = 0;
    for (; i < b.size(); ++i) {
        char d = static_cast<char>(acc[i] + b[i] + carry);
        carry = d >= 10;
        acc[i] = carry ? static_cast<char>(d - 10) : d;
    }
    for (; carry && i < acc.size(); ++i) {
        if (acc[i] == 9) {
            acc[i] = 0;
        } else {
            ++acc[i];
            carry = 0;
        }
    }
    if (carry)
        acc.push_back(1);
    if (acc.empty())
        acc.push_back(0);
}

// acc -= b for acc >= b, in place, leaving leading zeros for the caller to clean.
void SubtractFrom(detail::CDigitVector& acc, const detail::CDigitVector& b)
{
    char borrow = 0;
    std::size_t i = 0;
    for (; i < b.size() && i < acc.size(); ++i) {
        char d = static_cast<char>(acc[i] - b[i] - borrow);
        borrow = d < 0;
        acc[i] = borrow ? static_cast<char>(d + 10) : d;
    }
    for (; borrow && i < acc.size(); ++i) {
        if (acc[i] == 0) {
            acc[i] = 9;
        } else {
            --acc[i];
            borrow = 0;
        }
    }
}

bool IsZeroDigits(const detail::CDigitVector& v)
{
    return v.size() <= 1 && (v.empty() || v[0] == 0);
}

// Scaling by powers of ten is how decimals change their number of places: those
// products and quotients are digit moves, linear in the length.
bool IsPowerOfTen(const detail::CDigitVector& v)
{
    if (v.empty() || v.back() != 1)
        return false;
    for (std::size_t i = 0; i + 1 < v.size(); ++i)
        if (v[i] != 0)
            return false;
    return true;
}

// Values of up to 19 digits fit in 64 bits, and so do products of up to 19 digits.
constexpr std::size_t kMachineDigits = 19;

std::uint64_t ToMachine(const detail::CDigitVector& v)
{
    std::uint64_t value = 0;
    for (std::size_t i = v.size(); i-- > 0;)
        value = value * 10 + static_cast<std::uint64_t>(v[i]);
    return value;
}

void ShiftUp(const detail::CDigitVector& a, std::size_t k, detail::CDigitVector& out)
{
    if (&out != &a)
        out = a;
    out.insert(out.begin(), k, 0);
}

// Products and quotients beyond machine words run on limbs of nine digits (see
// detail/LimbArithmetic.h); the digits convert to limbs and back in linear time.
void MultiplyLimbs(const detail::CDigitVector& a, const detail::CDigitVector& b, detail::CDigitVector& out)
{
    detail::DigitsFromLimbs(detail::Multiply(detail::LimbsFromDigits(a), detail::LimbsFromDigits(b)), out);
}

void DivideLimbs(const detail::CDigitVector& a, const detail::CDigitVector& b, detail::CDigitVector& quotient,
                 detail::CDigitVector& remainder)
{
    detail::Limbs q;
    detail::Limbs r;
    detail::Divide(detail::LimbsFromDigits(a), detail::LimbsFromDigits(b), q, r);
    detail::DigitsFromLimbs(q, quotient);
    detail::DigitsFromLimbs(r, remainder);
}

}  // namespace

// ---------------------------------------------------------------- digit-vector layer

int CBigInteger::Position(const Digits& v)
{
    return v.empty() ? 1 : static_cast<int>(v.size());
}

void CBigInteger::Clean(Digits& v)
{
    while (v.size() > 1 && v.back() == 0)
        v.pop_back();
}

int CBigInteger::Compare(const Digits& a, const Digits& b)
{
    const int na = Position(a);
    const int nb = Position(b);
    if (na != nb)
        return na < nb ? -1 : 1;
    for (std::size_t i = static_cast<std::size_t>(na); i-- > 0;) {
        const char da = DigitAt(a, i);
        const char db = DigitAt(b, i);
        if (da != db)
            return da < db ? -1 : 1;
    }
    return 0;
}

void CBigInteger::ShiftLeft(Digits& v, int n)
{
    if (n > 0)
        v.insert(v.begin(), static_cast<std::size_t>(n), 0);
}

void CBigInteger::Build(unsigned int value, Digits& out)
{
    BuildDWORDLONG(value, out);
}

void CBigInteger::BuildDWORDLONG(std::uint64_t value, Digits& out)
{
    out.clear();
    if (value == 0) {
        out.push_back(0);
        return;
    }
    while (value > 0) {
        out.push_back(static_cast<char>(value % 10));
        value /= 10;
    }
}

void CBigInteger::BuildDouble(double value, Digits& out)
{
    out.clear();
    // A half rounds down; the digits beyond the double's precision are whatever
    // the repeated scaling by 0.1 leaves, exactly as this loop computes them.
    double r = std::ceil(value - 0.5);
    if (r == 0) {
        out.push_back(0);
        return;
    }
    while (r > 0) {
        out.push_back(static_cast<char>(std::fmod(r, 10.0)));
        double whole;
        std::modf(r * 0.1, &whole);
        r = whole;
    }
}

void CBigInteger::Build(const std::string& text, Digits& out)
{
    out.clear();
    const char* begin = text.data();
    const char* p = begin + text.size();
    while (p > begin && IsDigitChar(p[-1])) {
        --p;
        out.push_back(static_cast<char>(text[static_cast<std::size_t>(p - begin)] - '0'));
    }
    Clean(out);
}

void CBigInteger::Add(const Digits& a, const Digits& b, Digits& out)
{
    if (&out == &a && &out == &b) {
        const Digits copy(b);
        AddTo(out, copy);
    } else if (&out == &a) {
        AddTo(out, b);
    } else if (&out == &b) {
        AddTo(out, a);
    } else {
        out = a;
        AddTo(out, b);
    }
}

void CBigInteger::Subtract(const Digits& a, const Digits& b, Digits& out)
{
    if (&a == &b) {
        out.assign(1, 0);
        return;
    }
    if (&out == &b) {
        const Digits copy(b);
        out = a;
        SubtractFrom(out, copy);
    } else {
        if (&out != &a)
            out = a;
        SubtractFrom(out, b);
    }
    Clean(out);
    if (out.empty())
        out.push_back(0);
}

void CBigInteger::Multiply(const Digits& a, char digit, Digits& out)
{
    if (digit == 0 || IsZeroDigits(a)) {
        out.assign(1, 0);
        return;
    }
    if (&out != &a)
        out = a;
    int carry = 0;
    for (char& d : out) {
        const int v = d * digit + carry;
        d = static_cast<char>(v % 10);
        carry = v / 10;
    }
    if (carry)
        out.push_back(static_cast<char>(carry));
}

void CBigInteger::Multiply(const Digits& a, const Digits& b, Digits& out)
{
    if (IsZeroDigits(a) || IsZeroDigits(b)) {
        out.assign(1, 0);
        return;
    }
    if (IsPowerOfTen(b) && &out != &b) {
        ShiftUp(a, b.size() - 1, out);
        return;
    }
    if (IsPowerOfTen(a) && &out != &a) {
        ShiftUp(b, a.size() - 1, out);
        return;
    }
    if (a.size() + b.size() <= kMachineDigits) {
        BuildDWORDLONG(ToMachine(a) * ToMachine(b), out);
        return;
    }
    MultiplyLimbs(a, b, out);
}

void CBigInteger::Pow10(unsigned int n, Digits& out)
{
    out.assign(static_cast<std::size_t>(n) + 1, 0);
    out[n] = 1;
}

void CBigInteger::Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder)
{
    if (Compare(a, b) < 0) {
        Digits r(a);
        if (r.empty())
            r.push_back(0);
        quotient.assign(1, 0);
        remainder = std::move(r);
        return;
    }
    Digits q;
    Digits r;
    if (a.size() <= kMachineDigits) {
        const std::uint64_t x = ToMachine(a);
        const std::uint64_t y = ToMachine(b);
        BuildDWORDLONG(x / y, q);
        BuildDWORDLONG(x % y, r);
    } else if (IsPowerOfTen(b)) {
        const std::size_t k = b.size() - 1;
        q.assign(a.begin() + static_cast<std::ptrdiff_t>(k), a.end());
        r.assign(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(k));
        Clean(q);
        Clean(r);
        if (r.empty())
            r.push_back(0);
    } else {
        DivideLimbs(a, b, q, r);
    }
    quotient = std::move(q);
    remainder = std::move(r);
}

// ---------------------------------------------------------------- construction and text

// Zero without a digit, so that a default value costs no allocation; every reader
// of the digits goes through Magnitude().
CBigInteger::CBigInteger() : m_sign(1) {}

const CBigInteger::Digits& CBigInteger::Magnitude() const
{
    static const Digits zero(1, 0);
    return m_digits.empty() ? zero : m_digits;
}

CBigInteger::Digits& CBigInteger::MutableMagnitude()
{
    if (m_digits.empty()) m_digits.push_back(0);
    return m_digits;
}

CBigInteger::CBigInteger(int value) : CBigInteger(static_cast<long long>(value)) {}

CBigInteger::CBigInteger(long value) : CBigInteger(static_cast<long long>(value)) {}

CBigInteger::CBigInteger(long long value) : m_sign(value < 0 ? -1 : 1)
{
    const std::uint64_t magnitude =
        value < 0 ? std::uint64_t(0) - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    BuildDWORDLONG(magnitude, m_digits);
}

CBigInteger::CBigInteger(unsigned int value) : CBigInteger(static_cast<unsigned long long>(value)) {}

CBigInteger::CBigInteger(unsigned long value) : CBigInteger(static_cast<unsigned long long>(value)) {}

CBigInteger::CBigInteger(unsigned long long value) : m_sign(1)
{
    BuildDWORDLONG(value, m_digits);
}

CBigInteger::CBigInteger(double value) : m_sign(value < 0 ? -1 : 1)
{
    if (!std::isfinite(value))
        throw COrvexOverFlowException("The Double value is not a finite number and can not be converted to an Integer");
    BuildDouble(std::fabs(value), m_digits);
}

CBigInteger::CBigInteger(const char* text) : m_sign(1)
{
    Parse(text);
}

CBigInteger::CBigInteger(const CDecimal& value) : m_sign(1)
{
    *this = value.ToBigInteger();
}

CBigInteger::CBigInteger(int sign, const Digits& digits) : m_sign(sign), m_digits(digits) {}

CBigInteger::CBigInteger(int sign, Digits&& digits) : m_sign(sign), m_digits(std::move(digits)) {}

void CBigInteger::AssignDigitText(const char* begin, const char* end)
{
    m_sign = 1;
    m_digits.resize(static_cast<std::size_t>(end - begin));
    char* out = m_digits.data();
    for (const char* p = end; p > begin;)
        *out++ = static_cast<char>(*--p - '0');
    Clean(m_digits);
    if (m_digits.empty())
        m_digits.push_back(0);
}

void CBigInteger::Parse(const char* text)
{
    if (text == nullptr) {
        // Left to the decimal parser, which refuses it.
        *this = CDecimal(text).ToBigInteger();
        return;
    }
    const std::size_t length = std::strlen(text);
    for (std::size_t i = 0; i < length; ++i) {
        const char c = text[i];
        if (!IsDigitChar(c) && c != '-' && c != '+' && c != ' ' && c != '\n' && c != '\r' && c != '\t') {
            *this = CDecimal(text).ToBigInteger();
            return;
        }
    }
    const char* begin = text;
    const char* end = text + length;
    while (begin < end && *begin == ' ')
        ++begin;
    while (end > begin && end[-1] == ' ')
        --end;
    m_sign = 1;
    m_digits.clear();
    if (begin == end) {
        m_digits.push_back(0);
        return;
    }
    if (*begin == '-') {
        m_sign = -1;
        ++begin;
    }
    // Only the trailing run of digits counts: "+12" is 12 and "12-34" is 34.
    const char* p = end;
    while (p > begin && IsDigitChar(p[-1]))
        --p;
    m_digits.reserve(static_cast<std::size_t>(end - p));
    for (const char* q = end; q > p;)
        m_digits.push_back(static_cast<char>(*--q - '0'));
    Clean(m_digits);
}

std::string CBigInteger::ToString() const
{
    if (IsZero())
        return "0";
    // Not zero, so the digits are there.
    std::string s;
    s.reserve(m_digits.size() + 1);
    if (m_sign < 0)
        s.push_back('-');
    for (std::size_t i = m_digits.size(); i-- > 0;)
        s.push_back(static_cast<char>('0' + m_digits[i]));
    return s;
}

CBigInteger& CBigInteger::operator-()
{
    Negate();
    return *this;
}

CBigInteger CBigInteger::GetAbs() const
{
    return CBigInteger(1, m_digits);
}

CBigInteger CBigInteger::GetNegative() const
{
    return CBigInteger(-m_sign, m_digits);
}

// ---------------------------------------------------------------- arithmetic

CBigInteger CBigInteger::Sum(const CBigInteger& other, int otherSign) const
{
    CBigInteger result;
    if (m_sign == otherSign) {
        Add(Magnitude(), other.Magnitude(), result.m_digits);
        result.m_sign = m_sign;
        return result;
    }
    const int c = Compare(Magnitude(), other.Magnitude());
    if (c == 0)
        return result;
    if (c > 0) {
        Subtract(Magnitude(), other.Magnitude(), result.m_digits);
        result.m_sign = m_sign;
    } else {
        Subtract(other.Magnitude(), Magnitude(), result.m_digits);
        result.m_sign = otherSign;
    }
    return result;
}

CBigInteger CBigInteger::operator+(const CBigInteger& other) const
{
    return Sum(other, other.m_sign);
}

CBigInteger CBigInteger::operator-(const CBigInteger& other) const
{
    return Sum(other, -other.m_sign);
}

CBigInteger CBigInteger::operator*(const CBigInteger& other) const
{
    CBigInteger result;
    Multiply(Magnitude(), other.Magnitude(), result.m_digits);
    result.m_sign = m_sign * other.m_sign;
    return result;
}

void CBigInteger::DivideBy(const CBigInteger& other, CBigInteger* quotient, CBigInteger* remainder,
                           const char* zeroMessage) const
{
    if (other.IsZero())
        throw COrvexInvalidValueException(zeroMessage);
    if (IsZero()) {
        if (quotient)
            *quotient = CBigInteger();
        if (remainder)
            *remainder = CBigInteger();
        return;
    }
    Digits q;
    Digits r;
    Divide(Magnitude(), other.Magnitude(), q, r);
    const int quotientSign = m_sign == other.m_sign ? 1 : -1;
    const int remainderSign = m_sign;
    if (quotient)
        *quotient = CBigInteger(quotientSign, std::move(q));
    if (remainder)
        *remainder = CBigInteger(remainderSign, std::move(r));
}

CBigInteger CBigInteger::operator/(const CBigInteger& other) const
{
    CBigInteger q;
    DivideBy(other, &q, nullptr, "ERROR: Overflow in operator/!");
    return q;
}

CBigInteger CBigInteger::operator%(const CBigInteger& other) const
{
    CBigInteger r;
    DivideBy(other, nullptr, &r, "ERROR: Overflow in operator%!");
    return r;
}

CBigInteger& CBigInteger::operator+=(const CBigInteger& other)
{
    if (m_sign == other.m_sign) {
        Add(MutableMagnitude(), other.Magnitude(), m_digits);
        return *this;
    }
    return *this = Sum(other, other.m_sign);
}

CBigInteger& CBigInteger::operator-=(const CBigInteger& other)
{
    if (m_sign == -other.m_sign && this != &other) {
        Add(MutableMagnitude(), other.Magnitude(), m_digits);
        return *this;
    }
    return *this = Sum(other, -other.m_sign);
}

CBigInteger& CBigInteger::operator*=(const CBigInteger& other)
{
    const int sign = m_sign * other.m_sign;
    Multiply(MutableMagnitude(), other.Magnitude(), m_digits);
    m_sign = sign;
    return *this;
}

CBigInteger& CBigInteger::operator/=(const CBigInteger& other)
{
    CBigInteger q;
    DivideBy(other, &q, nullptr, "ERROR: Overflow in operator /=!");
    return *this = std::move(q);
}

CBigInteger& CBigInteger::operator%=(const CBigInteger& other)
{
    CBigInteger r;
    DivideBy(other, nullptr, &r, "ERROR: Overflow in operator%=!");
    return *this = std::move(r);
}

// ---------------------------------------------------------------- comparison and conversion

bool CBigInteger::operator==(const CBigInteger& other) const
{
    return Compare(Magnitude(), other.Magnitude()) == 0 && (IsZero() || m_sign == other.m_sign);
}

// A zero may carry either sign (a negated or divided zero keeps it), and equality
// ignores it; so does the order, which must agree with equality for sorted keys.
bool CBigInteger::operator<(const CBigInteger& other) const
{
    const int sign = IsZero() ? 0 : m_sign;
    const int otherSign = other.IsZero() ? 0 : other.m_sign;
    if (sign != otherSign)
        return sign < otherSign;
    if (sign == 0)
        return false;
    const int c = Compare(Magnitude(), other.Magnitude());
    return sign < 0 ? c > 0 : c < 0;
}

CBigInteger::operator int() const
{
    if (*this < MIN_LONG || *this > MAX_LONG)
        throw COrvexInvalidValueException("ERROR: Domain in operator int()!");
    std::int64_t magnitude = 0;
    for (std::size_t i = m_digits.size(); i-- > 0;)
        magnitude = magnitude * 10 + m_digits[i];
    return static_cast<int>(m_sign > 0 ? magnitude : -magnitude);
}

CBigInteger::operator std::int64_t() const
{
    if (*this < MIN_LONGLONG || *this > MAX_LONGLONG)
        throw COrvexInvalidValueException("ERROR: Domain in operator int()!");
    std::uint64_t magnitude = 0;
    for (std::size_t i = m_digits.size(); i-- > 0;)
        magnitude = magnitude * 10 + static_cast<std::uint64_t>(m_digits[i]);
    if (m_sign > 0)
        return static_cast<std::int64_t>(magnitude);
    // The lowest value has no positive counterpart: negate in unsigned arithmetic.
    return magnitude == (std::uint64_t(1) << 63) ? INT64_MIN : -static_cast<std::int64_t>(magnitude);
}

CBigInteger CBigInteger::SquareRoot() const
{
    if (*this < CBigInteger(0))
        throw COrvexInvalidValueException("ERROR: Negative Number in function SquareRoot()!");
    // Zero fails as the division by zero that the root's iteration would meet.
    if (IsZero())
        throw COrvexInvalidValueException("ERROR: Overflow in operator/!");
    Digits root;
    detail::DigitsFromLimbs(detail::SquareRoot(detail::LimbsFromDigits(Magnitude())), root);
    return CBigInteger(1, std::move(root));
}

CBigInteger CBigInteger::Pow10(unsigned int n)
{
    Digits digits;
    Pow10(n, digits);
    return CBigInteger(1, std::move(digits));
}

}  // namespace OrvexXmlLib5
