#include "orvexxml/values/Conversions.h"

#include <cerrno>
#include <charconv>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/values/detail/QuotedValue.h"

namespace OrvexXmlLib5 {

namespace {

// The C library's isspace in the "C" locale, without the locale lookup.
inline bool IsCSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

inline bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// What the C library's strtol/strtoul leave behind for a base 10 parse: the
// magnitude (saturated above 2^32), the sign, whether any digit was used and
// whether the end pointer reached the terminating zero.
struct DecimalScan
{
    std::uint64_t magnitude = 0;
    bool negative = false;
    bool converted = false;
    bool complete = false;
};

DecimalScan ScanDecimal32(const char* text)
{
    DecimalScan scan;
    const char* p = text;
    while (IsCSpace(*p)) ++p;
    if (*p == '+' || *p == '-') {
        scan.negative = (*p == '-');
        ++p;
    }
    if (!IsDigit(*p)) {
        // No conversion: the end pointer stays at the start of the text.
        scan.complete = (*text == '\0');
        scan.negative = false;
        return scan;
    }
    scan.converted = true;
    const std::uint64_t cap = std::uint64_t(1) << 33;
    for (; IsDigit(*p); ++p) {
        if (scan.magnitude < cap) scan.magnitude = scan.magnitude * 10 + std::uint64_t(*p - '0');
    }
    scan.complete = (*p == '\0');
    return scan;
}

template <typename T>
std::string IntegerText(T value)
{
    char buffer[24];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

// Widths and precisions beyond this are refused: the run-time library would build a
// text of gigabytes for "%.999999999f", and no number format needs more.
constexpr int kMaxFormatField = 1000;

// Skips a width or precision, false when it is beyond kMaxFormatField.
bool SkipField(const char*& p)
{
    int value = 0;
    for (; IsDigit(*p); ++p) {
        value = value * 10 + (*p - '0');
        if (value > kMaxFormatField) return false;
    }
    return true;
}

// Accepts a printf format that consumes exactly one double and nothing else.
bool IsFloatingFormat(const char* format)
{
    int conversions = 0;
    for (const char* p = format; *p; ++p) {
        if (*p != '%') continue;
        ++p;
        if (*p == '%') continue;
        while (*p == '-' || *p == '+' || *p == ' ' || *p == '#' || *p == '0') ++p;
        if (!SkipField(p)) return false;
        if (*p == '.') {
            ++p;
            if (!SkipField(p)) return false;
        }
        if (*p == 'l') ++p;
        if (*p == '\0' || std::strchr("fFeEgGaA", *p) == nullptr) return false;
        ++conversions;
    }
    return conversions == 1;
}

// "%.<precision>" and one of g, f or e, with a precision of one or two digits: the
// default formats and most given ones. Gives false for any other format.
bool SimpleFloatingFormat(const char* format, int& precision, std::chars_format& kind)
{
    if (format[0] != '%' || format[1] != '.' || format[2] < '0' || format[2] > '9') return false;
    precision = format[2] - '0';
    const char* p = format + 3;
    if (*p >= '0' && *p <= '9') precision = precision * 10 + (*p++ - '0');
    if (p[1] != '\0') return false;
    switch (p[0]) {
        case 'g':
            kind = std::chars_format::general;
            return true;
        case 'f':
            kind = std::chars_format::fixed;
            return true;
        case 'e':
            kind = std::chars_format::scientific;
            return true;
        default:
            return false;
    }
}

bool IsDecimalPointDot()
{
    const char* point = std::localeconv()->decimal_point;
    return point[0] == '.' && point[1] == '\0';
}

std::string FloatingText(double value, const char* format)
{
    // These forms of finite values go through to_chars, which gives printf's text
    // exactly where the decimal point is '.', without printf's parsing of the format.
    int precision;
    std::chars_format kind;
    if (SimpleFloatingFormat(format, precision, kind) && std::isfinite(value) && IsDecimalPointDot()) {
        char buffer[64];
        const std::to_chars_result done = std::to_chars(buffer, buffer + sizeof buffer, value, kind, precision);
        if (done.ec == std::errc()) return std::string(buffer, done.ptr);
    }
    if (!IsFloatingFormat(format))
        throw COrvexInvalidParamException(FormatString("Invalid format [%s] for a floating-point value", format));
    char buffer[32];
    int n = std::snprintf(buffer, sizeof buffer, format, value);
    if (n < 0) return std::string();
    if (static_cast<std::size_t>(n) < sizeof buffer) return std::string(buffer, static_cast<std::size_t>(n));
    // Longer than the usual buffer: the caller gets the whole text, not a truncated number.
    std::string out(static_cast<std::size_t>(n) + 1, '\0');
    std::snprintf(&out[0], out.size(), format, value);
    out.resize(static_cast<std::size_t>(n));
    return out;
}

// strtod's acceptance, on a fast path for the decimal forms. Gives the value and
// whether the end pointer reached the terminating zero.
double ParseDouble(const char* text, bool& complete)
{
    const char* p = text;
    while (IsCSpace(*p)) ++p;
    const char* q = p;
    if (*q == '+') {
        ++q;
        if (*q == '-') {
            complete = (*text == '\0');
            return 0.0;
        }
    }
    const char* digits = (*q == '-') ? q + 1 : q;
    bool hex = digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X');
    if (!hex) {
        const char* end = q + std::strlen(q);
        double value = 0.0;
        auto result = std::from_chars(q, end, value);
        if (result.ec == std::errc()) {
            complete = (result.ptr == end);
            return value;
        }
        if (result.ec == std::errc::invalid_argument) {
            complete = (*text == '\0');
            return 0.0;
        }
    }
    // Hexadecimal forms and values beyond the range of a double: the C library
    // gives the overflow or underflow value, which is what is wanted here.
    char* end = nullptr;
    int savedErrno = errno;
    double value = std::strtod(text, &end);
    errno = savedErrno;
    complete = (*end == '\0');
    return value;
}

// IEEE narrowing with rounding to nearest, without the undefined behaviour of a
// C++ conversion of a value beyond the range of float.
float NarrowToFloat(double value)
{
    if (std::isnan(value) || std::fabs(value) <= static_cast<double>(FLT_MAX)) return static_cast<float>(value);
    // Halfway between FLT_MAX and 2^128 rounds to even, that is to infinity.
    const double halfway = std::ldexp(0x1.ffffffp0, 127);
    if (std::fabs(value) < halfway) return std::copysign(FLT_MAX, static_cast<float>(std::signbit(value) ? -1 : 1));
    return std::copysign(HUGE_VALF, static_cast<float>(std::signbit(value) ? -1 : 1));
}

// atoi's reading of a format: optional blanks and sign, then digits up to the first
// other character; no digits give 0. Saturates instead of overflowing.
int LeadingInteger(const char* text)
{
    const char* p = text;
    while (IsCSpace(*p)) ++p;
    bool negative = false;
    if (*p == '+' || *p == '-') {
        negative = (*p == '-');
        ++p;
    }
    long long value = 0;
    for (; IsDigit(*p); ++p) {
        value = value * 10 + (*p - '0');
        if (value > 2147483648LL) value = 2147483648LL;
    }
    if (negative) value = -value;
    if (value > 2147483647LL) value = 2147483647LL;
    return static_cast<int>(value);
}

// The date forms without a time, with the kind that the text's shape gives.
CDateTime ParseDateForm(const std::string& text, CWhitespaceUtils::WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    CDateTime value;
    value.ParseXSDDate(processed.c_str());
    return value;
}

bool EqualsIgnoreCase(const char* text, const char* literal)
{
    for (; *literal; ++text, ++literal) {
        char c = *text;
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != *literal) return false;
    }
    return *text == '\0';
}

}  // namespace

std::string CConversions::i1ToString(char value)
{
    return IntegerText(static_cast<int>(static_cast<signed char>(value)));
}

std::string CConversions::i2ToString(short value)
{
    return IntegerText(static_cast<int>(value));
}

std::string CConversions::i4ToString(std::int32_t value)
{
    return IntegerText(value);
}

std::string CConversions::i8ToString(std::int64_t value)
{
    return IntegerText(value);
}

std::string CConversions::ui1ToString(unsigned char value)
{
    return IntegerText(static_cast<unsigned>(value));
}

std::string CConversions::ui2ToString(unsigned short value)
{
    return IntegerText(static_cast<unsigned>(value));
}

std::string CConversions::ui4ToString(std::uint32_t value)
{
    return IntegerText(value);
}

std::string CConversions::ui8ToString(std::uint64_t value)
{
    return IntegerText(value);
}

std::string CConversions::r4ToString(float value, const char* format)
{
    return FloatingText(static_cast<double>(value), format ? format : "%.7g");
}

std::string CConversions::r8ToString(double value, const char* format)
{
    return FloatingText(value, format ? format : "%.16g");
}

std::string CConversions::booleanToString(bool value)
{
    return value ? "true" : "false";
}

std::string CConversions::charToString(char value)
{
    return value == '\0' ? std::string() : std::string(1, value);
}

std::string CConversions::stringToString(const std::string& value)
{
    return value;
}

std::string CConversions::yearToString(unsigned short value)
{
    return IntegerText(static_cast<unsigned>(value));
}

std::string CConversions::monthToString(unsigned char value)
{
    char buffer[10];
    int n = std::snprintf(buffer, sizeof buffer, "--%02u", static_cast<unsigned>(value));
    return std::string(buffer, static_cast<std::size_t>(n));
}

std::string CConversions::dayToString(unsigned char value)
{
    char buffer[10];
    int n = std::snprintf(buffer, sizeof buffer, "---%02u", static_cast<unsigned>(value));
    return std::string(buffer, static_cast<std::size_t>(n));
}

std::int32_t CConversions::i4FromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    DecimalScan scan = ScanDecimal32(processed.c_str());
    if (scan.converted && scan.magnitude > (scan.negative ? 2147483648ull : 2147483647ull))
        throw COrvexInvalidValueException(
            FormatString("The value [%s] is to large to fit in a i4", detail::QuotedValue(processed).c_str()));
    if (!scan.complete)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] can not be converted to a i4", detail::QuotedValue(processed).c_str()));
    std::int64_t value = static_cast<std::int64_t>(scan.magnitude);
    return static_cast<std::int32_t>(scan.negative ? -value : value);
}

std::uint32_t CConversions::ui4FromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    DecimalScan scan = ScanDecimal32(processed.c_str());
    if (scan.converted && scan.magnitude > 4294967295ull)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] is to large to fit in a ui4", detail::QuotedValue(processed).c_str()));
    if (!scan.complete)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] can not be converted to a ui4", detail::QuotedValue(processed).c_str()));
    std::uint32_t value = static_cast<std::uint32_t>(scan.magnitude);
    return scan.negative ? static_cast<std::uint32_t>(0u - value) : value;
}

char CConversions::i1FromString(const std::string& text, WhitespaceRule rule)
{
    std::int32_t value = i4FromString(text, rule);
    if (value < -128 || value > 127)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] is to large to fit in a i1", detail::QuotedValue(text).c_str()));
    return static_cast<char>(value);
}

short CConversions::i2FromString(const std::string& text, WhitespaceRule rule)
{
    std::int32_t value = i4FromString(text, rule);
    if (value < -32768 || value > 32767)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] is to large to fit in a i2", detail::QuotedValue(text).c_str()));
    return static_cast<short>(value);
}

unsigned char CConversions::ui1FromString(const std::string& text, WhitespaceRule rule)
{
    std::uint32_t value = ui4FromString(text, rule);
    if (value > 255)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] is to large to fit in a ui1", detail::QuotedValue(text).c_str()));
    return static_cast<unsigned char>(value);
}

unsigned short CConversions::ui2FromString(const std::string& text, WhitespaceRule rule)
{
    std::uint32_t value = ui4FromString(text, rule);
    if (value > 65535)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] is to large to fit in a ui2", detail::QuotedValue(text).c_str()));
    return static_cast<unsigned short>(value);
}

std::int64_t CConversions::i8FromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    const char* p = processed.c_str();
    while (IsCSpace(*p)) ++p;
    bool negative = false;
    if (*p == '+' || *p == '-') {
        negative = (*p == '-');
        ++p;
    }
    std::uint64_t value = 0;
    for (; IsDigit(*p); ++p) value = value * 10 + std::uint64_t(*p - '0');
    return static_cast<std::int64_t>(negative ? 0 - value : value);
}

std::uint64_t CConversions::ui8FromString(const std::string& text, WhitespaceRule rule)
{
    return static_cast<std::uint64_t>(i8FromString(text, rule));
}

double CConversions::r8FromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    bool complete = false;
    double value = ParseDouble(processed.c_str(), complete);
    if (!complete)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] can not be converted to a r8", detail::QuotedValue(processed).c_str()));
    return value;
}

float CConversions::r4FromString(const std::string& text, WhitespaceRule rule)
{
    return NarrowToFloat(r8FromString(text, rule));
}

bool CConversions::booleanFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    const char* p = processed.c_str();
    if (EqualsIgnoreCase(p, "true")) return true;
    if (EqualsIgnoreCase(p, "false")) return false;
    if (EqualsIgnoreCase(p, "1")) return true;
    if (EqualsIgnoreCase(p, "0")) return false;
    throw COrvexInvalidValueException(FormatString(
        "A Boolean Value read from an XML document was invalid [%s]. Valid values are 'true', 'false', '1', or '0'",
        detail::QuotedValue(text).c_str()));
}

char CConversions::charFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    if (processed.size() != 1)
        throw COrvexInvalidValueException(
            FormatString("The value [%s] can not be a char as it is either empty of greater than 1 char long",
                         detail::QuotedValue(processed).c_str()));
    return processed[0];
}

std::string CConversions::stringFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    if (&processed == &text) return text;
    return scratch;
}

std::string CConversions::decimalToString(const CDecimal& value, const char* format)
{
    if (format == nullptr) return value.ToString();
    return value.ToString(LeadingInteger(format));
}

std::string CConversions::integerToString(const CBigInteger& value)
{
    return value.ToString();
}

std::string CConversions::dateToString(const CDateTime& value)
{
    return value.ToString("s");
}

std::string CConversions::datetimeToString(const CDateTime& value)
{
    return value.ToString("s");
}

std::string CConversions::timeToString(const CDateTime& value)
{
    return value.ToString("s");
}

std::string CConversions::yearMonthToString(const CDateTime& value)
{
    return value.ToString("s");
}

std::string CConversions::monthDayToString(const CDateTime& value)
{
    return value.ToString("s");
}

std::string CConversions::durationToString(const CDateTimeSpan& value)
{
    return value.ToString();
}

std::string CConversions::hexBinaryToString(const CBinaryData& value)
{
    return value.GetAsHexString();
}

std::string CConversions::base64BinaryToString(const CBinaryData& value)
{
    return value.GetAsBase64();
}

CDecimal CConversions::decimalFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    return CDecimal(processed.c_str());
}

CBigInteger CConversions::integerFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    return CBigInteger(processed.c_str());
}

CDateTimeSpan CConversions::durationFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    CDateTimeSpan value;
    value.ParseXSDDuration(processed.c_str());
    return value;
}

CDateTime CConversions::datetimeFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    CDateTime value;
    value.ParseXSDDateTime(processed.c_str());
    return value;
}

CDateTime CConversions::timeFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    CDateTime value;
    value.ParseXSDTime(processed.c_str());
    return value;
}

CDateTime CConversions::dateFromString(const std::string& text, WhitespaceRule rule)
{
    return ParseDateForm(text, rule);
}

CDateTime CConversions::yearMonthFromString(const std::string& text, WhitespaceRule rule)
{
    return ParseDateForm(text, rule);
}

CDateTime CConversions::monthDayFromString(const std::string& text, WhitespaceRule rule)
{
    return ParseDateForm(text, rule);
}

unsigned short CConversions::yearFromString(const std::string& text, WhitespaceRule rule)
{
    return static_cast<unsigned short>(ParseDateForm(text, rule).GetYear());
}

unsigned char CConversions::monthFromString(const std::string& text, WhitespaceRule rule)
{
    return ParseDateForm(text, rule).GetMonth();
}

unsigned char CConversions::dayFromString(const std::string& text, WhitespaceRule rule)
{
    return ParseDateForm(text, rule).GetDay();
}

CBinaryData CConversions::hexBinaryFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    CBinaryData value;
    value.SetAsHexString(processed.c_str());
    return value;
}

CBinaryData CConversions::base64BinaryFromString(const std::string& text, WhitespaceRule rule)
{
    std::string scratch;
    const std::string& processed = CWhitespaceUtils::ApplyRule(rule, text, scratch);
    CBinaryData value;
    value.SetAsBase64(processed.c_str());
    return value;
}

}  // namespace OrvexXmlLib5
