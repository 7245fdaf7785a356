#include "orvexxml/values/Conversions.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"

using namespace OrvexXmlLib5;
using Rule = CWhitespaceUtils::WhitespaceRule;
using Invalid = COrvexInvalidValueException;

namespace {

constexpr Rule P = Rule::Preserve, C = Rule::Collapse;

// Every integer parser as one type, its value written as text, so that one table holds them all.
using Parser = std::string (*)(const std::string&, Rule);
template <typename T, T (*F)(const std::string&, Rule)>
std::string AsText(const std::string& text, Rule rule)
{
    return std::to_string(F(text, rule));
}
const Parser i1 = AsText<char, CConversions::i1FromString>, i2 = AsText<short, CConversions::i2FromString>,
             i4 = AsText<std::int32_t, CConversions::i4FromString>,
             i8 = AsText<std::int64_t, CConversions::i8FromString>,
             ui1 = AsText<unsigned char, CConversions::ui1FromString>,
             ui2 = AsText<unsigned short, CConversions::ui2FromString>,
             ui4 = AsText<std::uint32_t, CConversions::ui4FromString>,
             ui8 = AsText<std::uint64_t, CConversions::ui8FromString>;

std::string TooLarge(const std::string& text, const char* type)
{
    return "The value [" + text + "] is to large to fit in a " + type;
}
std::string NotA(const std::string& text, const char* type)
{
    return "The value [" + text + "] can not be converted to a " + type;
}

}  // namespace

// i4 and ui4 accept what strtol and strtoul accept; the narrow types check their range
// on that and quote the raw text; i8 and ui8 stop at the first bad character and wrap.
TEST(ConversionsInteger, EachParserAtItsLimits)
{
    // result: the value, or the message of the failure.
    struct Case { Parser parse; const char* text; Rule rule; std::string result; };
    const Case cases[] = {
        {i4, "", P, "0"},                 {i4, "-0", P, "0"},               {i4, "+17", P, "17"},
        {i4, "\v\f42", P, "42"},          {i4, " 42 ", C, "42"},            {i4, "7\r", P, "7"},
        {i4, "2147483647", P, "2147483647"}, {i4, "-2147483648", P, "-2147483648"},
        {i4, "000000000000000000012", P, "12"},
        {i4, "2147483648", P, TooLarge("2147483648", "i4")}, {i4, "-2147483649", P, TooLarge("-2147483649", "i4")},
        {i4, "  99999999999999999999999x", C, TooLarge("99999999999999999999999x", "i4")},
        {i4, "abc", P, NotA("abc", "i4")}, {i4, "42 ", P, NotA("42 ", "i4")},   {i4, " ", P, NotA(" ", "i4")},
        {i4, "+", P, NotA("+", "i4")},     {i4, "+-1", P, NotA("+-1", "i4")},   {i4, "0x10", P, NotA("0x10", "i4")},
        {i4, "1.0", P, NotA("1.0", "i4")}, {i4, "\t4\t2", Rule::Replace, NotA(" 4 2", "i4")},
        {ui4, "", P, "0"},                 {ui4, "4294967295", P, "4294967295"}, {ui4, "-1", P, "4294967295"},
        {ui4, "-4294967295", P, "1"},      {ui4, "4294967296", P, TooLarge("4294967296", "ui4")},
        {ui4, "-4294967296", P, TooLarge("-4294967296", "ui4")}, {ui4, "1e3", P, NotA("1e3", "ui4")},
        {i1, "", P, "0"},                  {i1, "-128", P, "-128"},          {i1, "127", P, "127"},
        {i1, "128", P, TooLarge("128", "i1")}, {i1, "-129", P, TooLarge("-129", "i1")},
        {i2, "-32768", P, "-32768"},       {i2, "32767", P, "32767"},
        {i2, " 40000 ", C, TooLarge(" 40000 ", "i2")}, {i2, "-32769", P, TooLarge("-32769", "i2")},
        {ui1, "255", P, "255"},            {ui1, "256", P, TooLarge("256", "ui1")},
        {ui1, "-1", P, TooLarge("-1", "ui1")},
        {ui2, "65535", P, "65535"},        {ui2, "65536", P, TooLarge("65536", "ui2")},
        // A text that is no number names the wide type, and one beyond 32 bits too.
        {i1, "abc", P, NotA("abc", "i4")}, {i2, "3000000000", P, TooLarge("3000000000", "i4")},
        {ui2, "x", P, NotA("x", "ui4")},
        {i8, "12abc", P, "12"},            {i8, "abc", P, "0"},              {i8, "", P, "0"},
        {i8, "  -7", P, "-7"},             {i8, "1 2", P, "1"},              {i8, "18446744073709551616", P, "0"},
        {i8, "+9223372036854775807", P, "9223372036854775807"}, {i8, "-9223372036854775808", P, "-9223372036854775808"},
        {i8, "9223372036854775808", P, "-9223372036854775808"},
        {ui8, "18446744073709551615", P, "18446744073709551615"}, {ui8, "-1", P, "18446744073709551615"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        if (c.result.compare(0, 11, "The value [") == 0)
            EXPECT_THROW_MSG(c.parse(c.text, c.rule), Invalid, c.result);
        else
            EXPECT_EQ(c.parse(c.text, c.rule), c.result);
    }
}

TEST(ConversionsReal, ParsesLikeStrtodWithoutRangeCheck)
{
    const std::pair<const char*, double> doubles[] = {
        {"", 0.0},          {" 1.5", 1.5},        {"+2.5e3", 2500.0}, {"-.25", -0.25},    {"0x1p4", 16.0},
        {"1e999", HUGE_VAL}, {"-1e999", -HUGE_VAL}, {"1e-999", 0.0},   {"INF", HUGE_VAL}, {"0.1", 0.1}};
    for (const auto& c : doubles) EXPECT_EQ(CConversions::r8FromString(c.first, P), c.second) << c.first;
    EXPECT_TRUE(std::isnan(CConversions::r8FromString("nan", P)));
    const std::pair<const char*, float> floats[] = {
        {"1e39", HUGE_VALF}, {"-1e39", -HUGE_VALF}, {"3.4028235e38", std::numeric_limits<float>::max()}, {"0.1", 0.1f}};
    for (const auto& c : floats) EXPECT_EQ(CConversions::r4FromString(c.first, P), c.second) << c.first;

    const std::pair<const char*, Rule> cases[] = {{"1.5 ", P}, {"abc", P}, {"+-1", P},
                                                  {"1e", P},   {".", P},   {" 1,5\t", C}};
    for (const auto& c : cases) {
        const std::string processed = c.second == C ? "1,5" : c.first;
        EXPECT_THROW_MSG(CConversions::r8FromString(c.first, c.second), Invalid, NotA(processed, "r8"));
        EXPECT_THROW_MSG(CConversions::r4FromString(c.first, c.second), Invalid, NotA(processed, "r8"));
    }
}

TEST(ConversionsText, EmbeddedZeroEndsNumericText)
{
    const std::string text("12\0abc", 6);
    EXPECT_EQ(CConversions::i4FromString(text, P), 12);
    EXPECT_EQ(CConversions::i8FromString(text, P), 12);
    EXPECT_EQ(CConversions::r8FromString(text, P), 12.0);
    EXPECT_TRUE(CConversions::booleanFromString(std::string("1\0x", 3), P));
    EXPECT_EQ(CConversions::stringFromString(text, P), text);
    EXPECT_EQ(CConversions::stringFromString(text, C), "12");
}

TEST(ConversionsText, BooleanLiteralsInAnyCaseAndExactlyOneChar)
{
    const std::pair<const char*, bool> literals[] = {{"TRUE", true}, {"False", false}, {" 1 ", true}, {"0", false}};
    for (const auto& c : literals) EXPECT_EQ(CConversions::booleanFromString(c.first, C), c.second) << c.first;
    // The raw text is quoted, before whitespace processing.
    const std::pair<const char*, Rule> bad[] = {{"yes", P}, {"", P},  {" true", P}, {"truex", P},
                                                {"2", P},   {"tru", P}, {" no ", C}};
    for (const auto& c : bad)
        EXPECT_THROW_MSG(CConversions::booleanFromString(c.first, c.second), Invalid,
                         std::string("A Boolean Value read from an XML document was invalid [") + c.first +
                             "]. Valid values are 'true', 'false', '1', or '0'");

    EXPECT_EQ(CConversions::charFromString(" y ", C), 'y');
    const std::tuple<const char*, Rule, const char*> chars[] = {{"", P, ""}, {" ", C, ""}, {"ab", P, "ab"}};
    for (const auto& [text, rule, quoted] : chars)
        EXPECT_THROW_MSG(CConversions::charFromString(text, rule), Invalid,
                         std::string("The value [") + quoted +
                             "] can not be a char as it is either empty of greater than 1 char long");
}

// The variant tests write a common value of every kind; these are the extremes and formats.
TEST(ConversionsToString, FormsOfEachType)
{
    const std::pair<std::string, std::string> cases[] = {
        {CConversions::i1ToString(char(0x80)), "-128"}, {CConversions::i2ToString(-32768), "-32768"},
        {CConversions::i4ToString(std::numeric_limits<std::int32_t>::min()), "-2147483648"},
        {CConversions::i8ToString(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808"},
        {CConversions::r4ToString(0.1f), "0.1"}, {CConversions::r4ToString(1.5f, "%.2f"), "1.50"},
        {CConversions::r8ToString(1.0 / 3.0), "0.3333333333333333"}, {CConversions::booleanToString(false), "false"},
        {CConversions::charToString('\0'), ""},
        {CConversions::stringToString(std::string("a\0b", 3)), std::string("a\0b", 3)},
    };
    for (const auto& c : cases) EXPECT_EQ(c.first, c.second);
    EXPECT_EQ(CConversions::r8ToString(1e300, "%f").size(), 308u);
}

TEST(ConversionsToString, FloatingFormatMustTakeOneDouble)
{
    const char* bad[] = {"%s",   "%d",     "%f %f",  "no conversion",   "%*f",
                         "%Lf",  "%",      "%1001f", "%.99999999999f", "%2147483648.1f"};
    for (const char* format : bad)
        EXPECT_THROW_MSG(CConversions::r8ToString(1.0, format), COrvexInvalidParamException,
                         std::string("Invalid format [") + format + "] for a floating-point value");
    EXPECT_EQ(CConversions::r8ToString(2.0, "%% %+08.3e"), "% +2.000e+00");
    // A thousand is the widest field taken.
    EXPECT_EQ(CConversions::r8ToString(0.5, "%1000.1000f").size(), 1002u);
}

// The %g, %f and %e formats take a faster way than printf: its text must be printf's to the
// byte, for every precision it takes, at rounding edges, extremes and signed zero.
TEST(ConversionsToString, SimpleFloatingFormatsGivePrintfsText)
{
    std::vector<double> values = {0.0, -0.0, 1.0, -1.5, 0.1, 2.5, 0.5, 1e21, 1e-7, 123456789012345678.0,
                                  9.9999999999999995e22, 0.000099999, 999999.5, 1e16, 9.999999999999999e15,
                                  std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
                                  std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::lowest()};
    std::uint64_t bits = 0x9E3779B97F4A7C15ull;
    for (int i = 0; i < 400; ++i) {
        bits ^= bits << 13, bits ^= bits >> 7, bits ^= bits << 17;
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) values.push_back(value);
    }
    for (const char* format : {"%.0g", "%.1g", "%.6g", "%.7g", "%.15g", "%.16g", "%.17g", "%.20g", "%.40g", "%.99g",
                               "%.0f", "%.2f", "%.10f", "%.30f", "%.0e", "%.3e", "%.16e", "%.70e"}) {
        for (double value : values) {
            char expected[512];
            std::snprintf(expected, sizeof expected, format, value);
            ASSERT_EQ(CConversions::r8ToString(value, format), expected) << format << " of " << value;
        }
    }
}

TEST(ConversionsRoundTrip, IntegersAndDoubles)
{
    for (std::int32_t v : {0, -1, 2147483647, -2147483647 - 1})
        EXPECT_EQ(CConversions::i4FromString(CConversions::i4ToString(v), C), v);
    for (double v : {0.0, -0.0, 1e-300, 1e308, 3.141592653589793, -2.5e-10})
        EXPECT_EQ(CConversions::r8FromString(CConversions::r8ToString(v), C), v);
    // Sixteen digits do not carry every double: the largest one reads back as infinity.
    EXPECT_EQ(CConversions::r8FromString(CConversions::r8ToString(1.7976931348623157e308), C), HUGE_VAL);
    for (std::uint64_t v : {0ull, 9223372036854775808ull, 18446744073709551615ull})
        EXPECT_EQ(CConversions::ui8FromString(CConversions::ui8ToString(v), C), v);
}

TEST(ConversionsValueClasses, FormsOfTheClassesAndTheRuleBeforeParsing)
{
    const CDecimal d("-12.345");
    // A decimal format gives its leading number as the count of places.
    EXPECT_EQ(CConversions::decimalToString(d, " +5x"), "-12.34500");
    EXPECT_EQ(CConversions::decimalToString(d, "%.2f"), "-12.");
    EXPECT_THROW_MSG(CConversions::decimalToString(d, "-99999999999"), COrvexInvalidParamException,
                     "The number of decimal places can not be negative [-2147483648]");
    // The five date writers are one: the value's kind picks the form.
    CDateTime gMonth;
    gMonth.SetGMonth(5);
    for (auto write : {CConversions::dateToString, CConversions::datetimeToString, CConversions::timeToString,
                       CConversions::yearMonthToString, CConversions::monthDayToString})
        EXPECT_EQ(write(gMonth), "--05");
    EXPECT_EQ(CConversions::yearFromString("-0001", C), 65535);  // the signed year's 16 bits
    EXPECT_EQ(CConversions::hexBinaryFromString("\t0aFf\n", C).GetAsBase64(), "Cv8=");
    // What the rule leaves: blanks inside hex fail, inside base64 they decode to nothing.
    EXPECT_THROW_MSG(CConversions::hexBinaryFromString("0A FF", C), COrvexException,
                     "Invalid char in hex string [ ]");
    EXPECT_EQ(CConversions::base64BinaryFromString("Cv 8=", C).GetLength(), 0u);
    EXPECT_THROW_MSG(CConversions::durationFromString(" P1D", P), Invalid,
                     "Invalid XSD Duration [ P1D] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    EXPECT_THROW_MSG(CConversions::timeFromString("   ", C), Invalid, "Invalid XSD Time (Empty String)");
    EXPECT_THROW_MSG(CConversions::yearFromString("--05", C), COrvexInvalidStateException,
                     "Failed to GetYear. Invalid Date Type: gMonth.");
    EXPECT_THROW_MSG(CConversions::monthFromString("---07", C), COrvexInvalidStateException,
                     "Failed to GetMonth. Invalid Date Type: gDay.");
}
