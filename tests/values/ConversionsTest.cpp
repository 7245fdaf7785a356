#include "orvexxml/values/Conversions.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"

using namespace OrvexXmlLib5;
using Rule = CWhitespaceUtils::WhitespaceRule;
using Invalid = COrvexInvalidValueException;

namespace {

struct I4Case
{
    const char* text;
    Rule rule;
    std::int32_t value;
};

struct FailCase
{
    std::string text;
    Rule rule;
    const char* message;
};

}  // namespace

TEST(ConversionsI4, AcceptsWhatTheCParserAccepts)
{
    const I4Case cases[] = {
        {"", Rule::Preserve, 0},
        {"0", Rule::Preserve, 0},
        {"-0", Rule::Preserve, 0},
        {"+17", Rule::Preserve, 17},
        {"  42", Rule::Preserve, 42},
        {"\v\f42", Rule::Preserve, 42},
        {" 42 ", Rule::Collapse, 42},
        {"2147483647", Rule::Preserve, 2147483647},
        {"-2147483648", Rule::Preserve, std::numeric_limits<std::int32_t>::min()},
        {"000000000000000000012", Rule::Preserve, 12},
        {"7\r", Rule::Preserve, 7},
    };
    for (const auto& c : cases) EXPECT_EQ(CConversions::i4FromString(c.text, c.rule), c.value) << c.text;
}

TEST(ConversionsI4, FailuresNameI4AndQuoteProcessedText)
{
    const FailCase cases[] = {
        {"2147483648", Rule::Preserve, "The value [2147483648] is to large to fit in a i4"},
        {"-2147483649", Rule::Preserve, "The value [-2147483649] is to large to fit in a i4"},
        {"  99999999999999999999999x", Rule::Collapse,
         "The value [99999999999999999999999x] is to large to fit in a i4"},
        {"abc", Rule::Preserve, "The value [abc] can not be converted to a i4"},
        {"42 ", Rule::Preserve, "The value [42 ] can not be converted to a i4"},
        {" ", Rule::Preserve, "The value [ ] can not be converted to a i4"},
        {"+", Rule::Preserve, "The value [+] can not be converted to a i4"},
        {"+-1", Rule::Preserve, "The value [+-1] can not be converted to a i4"},
        {"0x10", Rule::Preserve, "The value [0x10] can not be converted to a i4"},
        {"1.0", Rule::Preserve, "The value [1.0] can not be converted to a i4"},
        {"\t4\t2", Rule::Replace, "The value [ 4 2] can not be converted to a i4"},
    };
    for (const auto& c : cases) EXPECT_THROW_MSG(CConversions::i4FromString(c.text, c.rule), Invalid, c.message);
}

TEST(ConversionsUI4, WrapsMinusAndChecksThirtyTwoBits)
{
    EXPECT_EQ(CConversions::ui4FromString("4294967295", Rule::Preserve), 4294967295u);
    EXPECT_EQ(CConversions::ui4FromString("-1", Rule::Preserve), 4294967295u);
    EXPECT_EQ(CConversions::ui4FromString("-4294967295", Rule::Preserve), 1u);
    EXPECT_EQ(CConversions::ui4FromString("", Rule::Preserve), 0u);
    EXPECT_THROW_MSG(CConversions::ui4FromString("4294967296", Rule::Preserve), Invalid,
                     "The value [4294967296] is to large to fit in a ui4");
    EXPECT_THROW_MSG(CConversions::ui4FromString("-4294967296", Rule::Preserve), Invalid,
                     "The value [-4294967296] is to large to fit in a ui4");
    EXPECT_THROW_MSG(CConversions::ui4FromString("1e3", Rule::Preserve), Invalid,
                     "The value [1e3] can not be converted to a ui4");
}

TEST(ConversionsNarrow, RangeOfEachTypeAndRawTextInMessage)
{
    EXPECT_EQ(CConversions::i1FromString("-128", Rule::Preserve), char(-128));
    EXPECT_EQ(CConversions::i1FromString("127", Rule::Preserve), char(127));
    EXPECT_EQ(CConversions::i1FromString("", Rule::Preserve), char(0));
    EXPECT_EQ(CConversions::i2FromString("-32768", Rule::Preserve), short(-32768));
    EXPECT_EQ(CConversions::i2FromString("32767", Rule::Preserve), short(32767));
    EXPECT_EQ(CConversions::ui1FromString("255", Rule::Preserve), 255);
    EXPECT_EQ(CConversions::ui2FromString("65535", Rule::Preserve), 65535);

    const struct
    {
        std::function<void()> parse;
        const char* message;
    } cases[] = {
        {[] { CConversions::i1FromString("128", Rule::Preserve); }, "The value [128] is to large to fit in a i1"},
        {[] { CConversions::i1FromString("-129", Rule::Preserve); }, "The value [-129] is to large to fit in a i1"},
        {[] { CConversions::i2FromString(" 40000 ", Rule::Collapse); },
         "The value [ 40000 ] is to large to fit in a i2"},
        {[] { CConversions::i2FromString("-32769", Rule::Preserve); }, "The value [-32769] is to large to fit in a i2"},
        {[] { CConversions::ui1FromString("256", Rule::Preserve); }, "The value [256] is to large to fit in a ui1"},
        {[] { CConversions::ui1FromString("-1", Rule::Preserve); }, "The value [-1] is to large to fit in a ui1"},
        {[] { CConversions::ui2FromString("65536", Rule::Preserve); }, "The value [65536] is to large to fit in a ui2"},
        // A text that is no number names the wide type, and one beyond 32 bits too.
        {[] { CConversions::i1FromString("abc", Rule::Preserve); }, "The value [abc] can not be converted to a i4"},
        {[] { CConversions::i2FromString("3000000000", Rule::Preserve); },
         "The value [3000000000] is to large to fit in a i4"},
        {[] { CConversions::ui2FromString("x", Rule::Preserve); }, "The value [x] can not be converted to a ui4"},
    };
    for (const auto& c : cases) EXPECT_THROW_MSG(c.parse(), Invalid, c.message);
}

TEST(ConversionsI8, StopsAtFirstBadCharacterAndWraps)
{
    const struct
    {
        const char* text;
        std::int64_t value;
    } cases[] = {
        {"12abc", 12},
        {"abc", 0},
        {"", 0},
        {"  -7", -7},
        {"+9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"18446744073709551616", 0},
        {"1 2", 1},
    };
    for (const auto& c : cases) EXPECT_EQ(CConversions::i8FromString(c.text, Rule::Preserve), c.value) << c.text;
    EXPECT_EQ(CConversions::ui8FromString("18446744073709551615", Rule::Preserve), 18446744073709551615ull);
    EXPECT_EQ(CConversions::ui8FromString("-1", Rule::Preserve), 18446744073709551615ull);
}

TEST(ConversionsReal, ParsesLikeStrtodWithoutRangeCheck)
{
    EXPECT_EQ(CConversions::r8FromString("", Rule::Preserve), 0.0);
    EXPECT_EQ(CConversions::r8FromString(" 1.5", Rule::Preserve), 1.5);
    EXPECT_EQ(CConversions::r8FromString("+2.5e3", Rule::Preserve), 2500.0);
    EXPECT_EQ(CConversions::r8FromString("-.25", Rule::Preserve), -0.25);
    EXPECT_EQ(CConversions::r8FromString("0x1p4", Rule::Preserve), 16.0);
    EXPECT_EQ(CConversions::r8FromString("1e999", Rule::Preserve), HUGE_VAL);
    EXPECT_EQ(CConversions::r8FromString("-1e999", Rule::Preserve), -HUGE_VAL);
    EXPECT_EQ(CConversions::r8FromString("1e-999", Rule::Preserve), 0.0);
    EXPECT_EQ(CConversions::r8FromString("INF", Rule::Preserve), HUGE_VAL);
    EXPECT_TRUE(std::isnan(CConversions::r8FromString("nan", Rule::Preserve)));
    EXPECT_EQ(CConversions::r8FromString("0.1", Rule::Preserve), 0.1);
    EXPECT_EQ(CConversions::r4FromString("1e39", Rule::Preserve), HUGE_VALF);
    EXPECT_EQ(CConversions::r4FromString("-1e39", Rule::Preserve), -HUGE_VALF);
    EXPECT_EQ(CConversions::r4FromString("3.4028235e38", Rule::Preserve), std::numeric_limits<float>::max());
    EXPECT_EQ(CConversions::r4FromString("0.1", Rule::Preserve), 0.1f);

    const FailCase cases[] = {
        {"1.5 ", Rule::Preserve, "The value [1.5 ] can not be converted to a r8"},
        {"abc", Rule::Preserve, "The value [abc] can not be converted to a r8"},
        {"+-1", Rule::Preserve, "The value [+-1] can not be converted to a r8"},
        {"1e", Rule::Preserve, "The value [1e] can not be converted to a r8"},
        {".", Rule::Preserve, "The value [.] can not be converted to a r8"},
        {" 1,5\t", Rule::Collapse, "The value [1,5] can not be converted to a r8"},
    };
    for (const auto& c : cases) {
        EXPECT_THROW_MSG(CConversions::r8FromString(c.text, c.rule), Invalid, c.message);
        EXPECT_THROW_MSG(CConversions::r4FromString(c.text, c.rule), Invalid, c.message);
    }
}

TEST(ConversionsText, EmbeddedZeroEndsNumericText)
{
    const std::string text("12\0abc", 6);
    EXPECT_EQ(CConversions::i4FromString(text, Rule::Preserve), 12);
    EXPECT_EQ(CConversions::i8FromString(text, Rule::Preserve), 12);
    EXPECT_EQ(CConversions::r8FromString(text, Rule::Preserve), 12.0);
    EXPECT_TRUE(CConversions::booleanFromString(std::string("1\0x", 3), Rule::Preserve));
    EXPECT_EQ(CConversions::stringFromString(text, Rule::Preserve), text);
    EXPECT_EQ(CConversions::stringFromString(text, Rule::Collapse), "12");
}

TEST(ConversionsBoolean, LiteralsInAnyCase)
{
    EXPECT_TRUE(CConversions::booleanFromString("TRUE", Rule::Preserve));
    EXPECT_FALSE(CConversions::booleanFromString("False", Rule::Preserve));
    EXPECT_TRUE(CConversions::booleanFromString(" 1 ", Rule::Collapse));
    EXPECT_FALSE(CConversions::booleanFromString("0", Rule::Preserve));
    const char* bad[] = {"yes", "", " true", "truex", "2", "tru"};
    for (const char* text : bad)
        EXPECT_THROW_MSG(CConversions::booleanFromString(text, Rule::Preserve), Invalid,
                         std::string("A Boolean Value read from an XML document was invalid [") + text +
                             "]. Valid values are 'true', 'false', '1', or '0'");
    // The raw text is quoted, before whitespace processing.
    EXPECT_THROW_MSG(CConversions::booleanFromString(" no ", Rule::Collapse), Invalid,
                     "A Boolean Value read from an XML document was invalid [ no ]. Valid values are 'true', "
                     "'false', '1', or '0'");
}

TEST(ConversionsChar, ExactlyOneCharacter)
{
    EXPECT_EQ(CConversions::charFromString("x", Rule::Preserve), 'x');
    EXPECT_EQ(CConversions::charFromString(" y ", Rule::Collapse), 'y');
    const FailCase cases[] = {
        {"", Rule::Preserve, "The value [] can not be a char as it is either empty of greater than 1 char long"},
        {" ", Rule::Collapse, "The value [] can not be a char as it is either empty of greater than 1 char long"},
        {"ab", Rule::Preserve, "The value [ab] can not be a char as it is either empty of greater than 1 char long"},
    };
    for (const auto& c : cases) EXPECT_THROW_MSG(CConversions::charFromString(c.text, c.rule), Invalid, c.message);
    EXPECT_EQ(CConversions::charToString('\0'), "");
    EXPECT_EQ(CConversions::charToString('q'), "q");
}

TEST(ConversionsToString, FormsOfEachType)
{
    EXPECT_EQ(CConversions::i1ToString(char(-5)), "-5");
    EXPECT_EQ(CConversions::i1ToString(char(0x80)), "-128");
    EXPECT_EQ(CConversions::i2ToString(-32768), "-32768");
    EXPECT_EQ(CConversions::i4ToString(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(CConversions::i8ToString(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(CConversions::ui1ToString(255), "255");
    EXPECT_EQ(CConversions::ui2ToString(65535), "65535");
    EXPECT_EQ(CConversions::ui4ToString(4294967295u), "4294967295");
    EXPECT_EQ(CConversions::ui8ToString(18446744073709551615ull), "18446744073709551615");
    EXPECT_EQ(CConversions::r4ToString(0.1f), "0.1");
    EXPECT_EQ(CConversions::r4ToString(1.5f, "%.2f"), "1.50");
    EXPECT_EQ(CConversions::r8ToString(0.1), "0.1");
    EXPECT_EQ(CConversions::r8ToString(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(CConversions::r8ToString(1e300, "%f").size(), 308u);
    EXPECT_EQ(CConversions::booleanToString(true), "true");
    EXPECT_EQ(CConversions::booleanToString(false), "false");
    EXPECT_EQ(CConversions::yearToString(99), "99");
    EXPECT_EQ(CConversions::monthToString(5), "--05");
    EXPECT_EQ(CConversions::dayToString(7), "---07");
    EXPECT_EQ(CConversions::stringToString(std::string("a\0b", 3)), std::string("a\0b", 3));
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
        bits ^= bits << 13;
        bits ^= bits >> 7;
        bits ^= bits << 17;
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
    const std::int32_t ints[] = {0, 1, -1, 2147483647, -2147483647 - 1, 123456789};
    for (auto v : ints) EXPECT_EQ(CConversions::i4FromString(CConversions::i4ToString(v), Rule::Collapse), v);
    const double reals[] = {0.0, -0.0, 1e-300, 1e308, 3.141592653589793, -2.5e-10};
    for (double v : reals) EXPECT_EQ(CConversions::r8FromString(CConversions::r8ToString(v), Rule::Collapse), v);
    // Sixteen digits do not carry every double: the largest one reads back as infinity.
    EXPECT_EQ(CConversions::r8FromString(CConversions::r8ToString(1.7976931348623157e308), Rule::Collapse), HUGE_VAL);
    const std::uint64_t wide[] = {0, 1, 9223372036854775808ull, 18446744073709551615ull};
    for (auto v : wide) EXPECT_EQ(CConversions::ui8FromString(CConversions::ui8ToString(v), Rule::Collapse), v);
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
    EXPECT_EQ(CConversions::yearFromString("-0001", Rule::Collapse), 65535);  // the signed year's 16 bits
    EXPECT_EQ(CConversions::hexBinaryFromString("\t0aFf\n", Rule::Collapse).GetAsBase64(), "Cv8=");
    // What the rule leaves: blanks inside hex fail, inside base64 they decode to nothing.
    EXPECT_THROW_MSG(CConversions::hexBinaryFromString("0A FF", Rule::Collapse), COrvexException,
                     "Invalid char in hex string [ ]");
    EXPECT_EQ(CConversions::base64BinaryFromString("Cv 8=", Rule::Collapse).GetLength(), 0u);
    EXPECT_THROW_MSG(CConversions::durationFromString(" P1D", Rule::Preserve), Invalid,
                     "Invalid XSD Duration [ P1D] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    EXPECT_THROW_MSG(CConversions::timeFromString("   ", Rule::Collapse), Invalid, "Invalid XSD Time (Empty String)");
    EXPECT_THROW_MSG(CConversions::yearFromString("--05", Rule::Collapse), COrvexInvalidStateException,
                     "Failed to GetYear. Invalid Date Type: gMonth.");
    EXPECT_THROW_MSG(CConversions::monthFromString("---07", Rule::Collapse), COrvexInvalidStateException,
                     "Failed to GetMonth. Invalid Date Type: gDay.");
}
