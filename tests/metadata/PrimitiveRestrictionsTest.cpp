// The facets of every value kind: bounds, lengths, patterns, and their failures.
#include "orvexxml/metadata/PrimitiveRestrictions.h"

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"

using namespace OrvexXmlLib5;
using namespace OrvexTest;

namespace {

CPrimitiveRestrictions Bounds(const char* minInc, const char* maxInc, const char* minExc, const char* maxExc)
{
    return CPrimitiveRestrictions(nullptr, -1, -1, minInc, maxInc, minExc, maxExc, -1);
}

CPrimitiveRestrictions All(const char* bound)
{
    return Bounds(bound, bound, bound, bound);
}

CPrimitiveRestrictions Pattern(const char* pattern)
{
    return CPrimitiveRestrictions(pattern, -1, -1, nullptr, nullptr, nullptr, nullptr, -1);
}

OrvexVariant StringValue(const std::string& text)
{
    OrvexVariant v;
    v.SetString(text);
    return v;
}

OrvexVariant Parsed(const char* text, ItemType type)
{
    OrvexVariant v;
    v.FromString(text, type, CWhitespaceUtils::WhitespaceRule::Collapse);
    return v;
}

}  // namespace

// Numbers by their type's signedness and width, the ordered value classes with their
// partial order, decimals, big integers, and date parts as numbers.
TEST(PrimitiveRestrictionsBounds, AtAndBeyondTheLimitOfEachType)
{
    // shown: the value in the failure text; null: the value passes.
    const struct { ItemType type; const char* value; CPrimitiveRestrictions facets; const char* shown; } cases[] = {
        {ItemType_i1, "-5", Bounds("-5", "5", "", ""), nullptr},
        {ItemType_i1, "-6", Bounds("-5", "", "", ""), "-6"},
        {ItemType_i2, "300", Bounds("", "", "", "300"), "300"},
        {ItemType_i4, "10", Bounds("", "", "10", ""), "10"},
        {ItemType_i4, "11", Bounds(" 0 ", " 20 ", "10", "12"), nullptr},
        {ItemType_i8, "-9000000000", Bounds("-8000000000", "", "", ""), "-9000000000"},
        {ItemType_ui1, "200", Bounds("", "199", "", ""), "200"},
        {ItemType_ui2, "65535", Bounds("1", "65535", "", ""), nullptr},
        // Unsigned comparison: 4000000000 is above 5; the number shows through %d.
        {ItemType_ui4, "4000000000", Bounds("5", "", "", ""), nullptr},
        {ItemType_ui4, "4000000000", Bounds("", "5", "", ""), "-294967296"},
        {ItemType_ui8, "18446744073709551615", Bounds("", "", "", "1"), "18446744073709551615"},
        {ItemType_r4, "1.5", Bounds("", "1.25", "", ""), "1.500000"},
        {ItemType_r8, "-0.5", Bounds("-1", "0", "-1", "0"), nullptr},
        {ItemType_r8, "NaN", Bounds("", "", "", ""), nullptr},
        {ItemType_r8, "NaN", Bounds("", "", "", "INF"), "nan"},
        {ItemType_boolean, "true", Bounds("x", "y", "z", "w"), nullptr},
        {ItemType_duration, "PT24H", Bounds("P1D", "P1D", "", ""), nullptr},
        {ItemType_duration, "PT24H", Bounds("", "", "", "P1D"), "PT24H"},
        {ItemType_duration, "P1M", Bounds("P32D", "", "", ""), "P1M"},
        {ItemType_yearMonth, "2000-05", Bounds("", " 2000-04 ", "", ""), "2000-05"},
        {ItemType_monthDay, "--03-01", Bounds("", "", "--02-29", "--03-02"), nullptr},
        {ItemType_date, "2000-01-03", Bounds("", "2000-01-01Z", "", ""), "2000-01-03"},
        {ItemType_date, "-0002-12-31", Bounds("", "", "-0001-01-01", ""), "-0002-12-31"},
        {ItemType_datetime, "2000-01-01T12:00:00Z", Bounds("", "", "2000-01-01T13:00:00+01:00", ""),
         "2000-01-01T12:00:00Z"},
        {ItemType_time, "11:59:59.999", Bounds("", "", "", "12:00:00"), nullptr},
        {ItemType_time, "12:00:00", Bounds("", "", "", "12:00:00"), "12:00:00"},
        // Indeterminate comparisons pass every bound: a month against 30 days, a
        // value without zone near a zoned one, years of opposite signs.
        {ItemType_duration, "P1M", All("P30D"), nullptr},
        {ItemType_date, "2000-01-01", All("2000-01-01Z"), nullptr},
        {ItemType_datetime, "2000-01-01T12:00:00Z", All("2000-01-01T20:00:00"), nullptr},
        {ItemType_date, "-0001-12-31", All("0001-01-01"), nullptr},
        {ItemType_decimal, "1.5", Bounds("1.50", "1.5", "", "1.50000000000000000001"), nullptr},
        {ItemType_decimal, "1.5", Bounds("", "1.49999999999999999999", "", ""), "1.5"},
        {ItemType_decimal, "1E2", Bounds("", "", "100.0", ""), "100"},
        {ItemType_integer, "99999999999999999999", Bounds("", "99999999999999999999", "-1E1", ""), nullptr},
        {ItemType_integer, "99999999999999999999", Bounds("", "", "", "99999999999999999999"), "99999999999999999999"},
        // Date parts are unsigned numbers; a bound is any form that has the part.
        {ItemType_year, "2000", Bounds("2000", "", "1999-12-31", ""), nullptr},
        {ItemType_year, "2000", Bounds("", "", "2000-12", ""), "2000"},
        {ItemType_year, "-0044", Bounds("", "9999", "", ""), "65492"},
        {ItemType_month, "--05", Bounds("2000-05", "--05-31", "--04", "--06"), nullptr},
        {ItemType_month, "--05", Bounds("", "", "", "--05-01"), "5"},
        {ItemType_day, "---31", Bounds("", "---30", "", ""), "31"},
    };
    for (const auto& c : cases) {
        const OrvexVariant v = Parsed(c.value, c.type);
        if (c.shown)
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", v, c.type, c.facets), COrvexException,
                             std::string("Invalid Value for n [") + c.shown + "]");
        else
            EXPECT_NO_THROW(CheckPrimitiveRestriction("n", v, c.type, c.facets)) << c.value;
    }
}

TEST(PrimitiveRestrictionsNumbers, OneDescriptorGivesTheSameAnswersAtEveryCheckAndForEveryType)
{
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", Parsed("1", ItemType_i1), ItemType_i1, Bounds("", "300", "", "")),
                     COrvexInvalidValueException, "The value [300] is to large to fit in a i1");
    // The bounds are parsed once per descriptor, a copy keeps its own; a bound that
    // does not parse still fails at every check that reaches it, and only after the
    // bounds before it. The same texts read as other types give those types' answers.
    const CPrimitiveRestrictions facets = Bounds("10", "x", "", ""), copy = facets;
    const CPrimitiveRestrictions wide = Bounds("-1", "99999999999999999999", "", "");
    // message null: passes; conversion: fails as COrvexInvalidValueException.
    const struct { const CPrimitiveRestrictions* facets; ItemType type; const char *value, *message; bool conversion; }
        cases[] = {
        {&facets, ItemType_i4, "9", "Invalid Value for n [9]", false},
        {&copy, ItemType_i4, "11", "The value [x] can not be converted to a i4", true},
        {&facets, ItemType_i1, "9", "Invalid Value for n [9]", false},
        {&copy, ItemType_r8, "10.5", "The value [x] can not be converted to a r8", true},
        {&copy, ItemType_i4, "9", "Invalid Value for n [9]", false},
        {&facets, ItemType_r8, "10.5", "The value [x] can not be converted to a r8", true},
        {&wide, ItemType_integer, "99999999999999999999", nullptr, false},
        {&wide, ItemType_integer, "100000000000000000000", "Invalid Value for n [100000000000000000000]", false},
        {&wide, ItemType_decimal, "-1.5", "Invalid Value for n [-1.5]", false},
    };
    for (int round = 0; round < 3; ++round)
        for (const auto& c : cases) {
            const auto check = [&] { CheckPrimitiveRestriction("n", Parsed(c.value, c.type), c.type, *c.facets); };
            if (!c.message)
                EXPECT_NO_THROW(check());
            else if (c.conversion)
                EXPECT_TRUE(ThrowsExactly<COrvexInvalidValueException>(check, c.message)) << c.value;
            else
                EXPECT_TRUE(ThrowsExactly<COrvexException>(check, c.message)) << c.value;
        }
}

TEST(PrimitiveRestrictionsTypes, CharAndUnknownTypesAreRefused)
{
    OrvexVariant v;
    v.SetChar('c');
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", v, ItemType_char, CPrimitiveRestrictions()),
                     COrvexInvalidValueException, "unknown type [char]");
    v.SetI4(1);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", v, static_cast<ItemType>(40), CPrimitiveRestrictions()),
                     COrvexInvalidValueException, "unknown type [i4]");
}

TEST(PrimitiveRestrictionsStrings, LengthsAreBytesAndZeroIsALimit)
{
    const struct { std::string value; int minLength, maxLength, length; bool passes; } cases[] = {
        {"", 0, -1, -1, true},          {"abc", 0, -1, -1, true},    {"", -1, 0, -1, true},
        {"a", -1, 0, -1, false},        {"", -1, -1, 0, true},       {"a", -1, -1, 0, false},
        {"ab", 3, -1, -1, false},       {"abc", 3, 3, 3, true},      {"abcd", -1, 3, -1, false},
        {"\xC3\xA9", -1, 1, -1, false}, {"\xC3\xA9", 2, 2, 2, true}, {std::string("a\0b", 3), 3, 3, 3, true},
    };
    for (const auto& c : cases) {
        CPrimitiveRestrictions facets(nullptr, c.minLength, c.maxLength, nullptr, nullptr, nullptr, nullptr, c.length);
        if (c.passes)
            EXPECT_NO_THROW(CheckPrimitiveRestriction("s", StringValue(c.value), ItemType_string, facets)) << c.value;
        else
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("s", StringValue(c.value), ItemType_string, facets),
                             COrvexException, "Invalid Value for s [" + c.value + "]");
    }
    // Lengths come before the pattern: a pattern that does not compile is not reached.
    CPrimitiveRestrictions both("(", 5, -1, nullptr, nullptr, nullptr, nullptr, -1);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("s", StringValue("abc"), ItemType_string, both), COrvexException,
                     "Invalid Value for s [abc]");
}

// "a|ab" refuses "ab": the first alternative wins and ends early. \i and \c are
// rewritten inside a class too, and an escaped backslash protects the letter after
// it. "." takes one character of two bytes; \w knows no Unicode properties.
TEST(PrimitiveRestrictionsPatterns, WholeValueMustMatch)
{
    const struct { const char* pattern; std::string value; bool passes; } cases[] = {
        {"a.b", std::string("a\0b", 3), true}, {"[0-9]{3}", "123", true}, {"[0-9]{3}", "1234", false},
        {"[0-9]{3}", "x123", false}, {"a|ab", "ab", false}, {"ab|a", "ab", true}, {"\\i\\c*", "_x1:-.", true},
        {"\\i\\c*", "1x", false}, {"\\I", "1", true}, {"\\C+", "  ", true}, {"\\C", "a", false},
        {"[\\c]+", "a(.)|:", true}, {"[\\c]", "-", false}, {"a\\\\i", "a\\i", true}, {"a\\\\i", "ax", false},
        {".", "\xC3\xA9", true}, {"\\w", "\xC3\xA9", false}, {"\\d+", "", false}, {"x*", "", true},
    };
    for (const auto& c : cases) {
        CPrimitiveRestrictions facets = Pattern(c.pattern);
        if (c.passes)
            EXPECT_NO_THROW(CheckPrimitiveRestriction("p", StringValue(c.value), ItemType_string, facets))
                << c.pattern << " " << c.value;
        else
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("p", StringValue(c.value), ItemType_string, facets),
                             COrvexException, "Invalid Value for p [" + c.value + "]")
                << c.pattern;
    }
}

TEST(PrimitiveRestrictionsPatterns, BadPatternFailsAtEveryValueWithPcreText)
{
    const struct { const char* pattern; const char* error; } cases[] = {
        {"(", "missing closing parenthesis"}, {"[a-", "missing terminating ] for character class"},
        {"a{2,1}", "numbers out of order in {} quantifier"}, {"\\", "\\ at end of pattern"},
        {"[\\i]", "unmatched closing parenthesis"},
    };
    for (const auto& c : cases)
        for (int i = 0; i < 2; ++i)
            EXPECT_THROW_MSG(
                CheckPrimitiveRestriction("elem", StringValue("v"), ItemType_string, Pattern(c.pattern)),
                COrvexException,
                std::string("Invalid Regular Expression: ") + c.pattern + " Error: '" + c.error + "' for 'elem'");
}

TEST(PrimitiveRestrictionsPatterns, LongValuesAndBacktrackingEndInAResult)
{
    const std::string longValue(100000, 'a');
    EXPECT_NO_THROW(CheckPrimitiveRestriction("p", StringValue(longValue), ItemType_string, Pattern("a*")));
    EXPECT_NO_THROW(CheckPrimitiveRestriction("p", StringValue(longValue), ItemType_string, Pattern("(a|b)*")));
    EXPECT_NO_THROW(CheckPrimitiveRestriction("p", StringValue(longValue), ItemType_string, Pattern("(\\i|\\c)+")));
    EXPECT_THROW(CheckPrimitiveRestriction("p", StringValue(longValue + "b"), ItemType_string, Pattern("(a*)*c")),
                 COrvexException);
    EXPECT_THROW(CheckPrimitiveRestriction("p", StringValue(longValue), ItemType_string, Pattern("(a|aa)*b")),
                 COrvexException);
}

TEST(PrimitiveRestrictionsBounds, BoundThatDoesNotParseFailsAsItsConversion)
{
    const struct { ItemType type; const char* value; const char* bound; const char* message; } cases[] = {
        {ItemType_decimal, "1", "abc",
         "The string representing a Decimal, contained an invalid char at position 0 [abc]"},
        {ItemType_integer, "1", "1.5.",
         "The string representing a Decimal, contained an invalid char at position 3 [1.5.]"},
        {ItemType_duration, "P1D", "   ", "Invalid XSD Duration (Empty String)"},
        {ItemType_monthDay, "--05-01", "--13-01", "Invalid Month [13] (1 <= month <= 12)"},
        {ItemType_datetime, "2000-01-01T00:00:00", "2000-01-01", "Invalid XSD DateTime [2000-01-01]"},
        {ItemType_time, "12:00:00", "noon", "Invalid XSD Time [noon] expected hh:mm:ss[.ff]"},
        {ItemType_year, "2000", "99", "Invalid XSD Date [99] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    };
    for (const auto& c : cases)
        EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", Parsed(c.value, c.type), c.type, Bounds("", "", "", c.bound)),
                         COrvexInvalidValueException, c.message);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", Parsed("--05", ItemType_month), ItemType_month, All("2000")),
                     COrvexInvalidStateException, "Failed to GetMonth. Invalid Date Type: gYear.");
    // The first failing bound ends the check before a later one is parsed.
    const OrvexVariant date = Parsed("2000-01-01", ItemType_date);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("d", date, ItemType_date, Bounds("2001-01-01", "", "", "bad")),
                     COrvexException, "Invalid Value for d [2000-01-01]");
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("d", date, ItemType_date, Bounds("1999-01-01", "", "", "bad")),
                     COrvexInvalidValueException, "Invalid XSD Date [bad] expected CCYY-MM-DD[Z|[+|-]hh:mm]");
    // Lengths and patterns do not apply to these kinds.
    EXPECT_NO_THROW(CheckPrimitiveRestriction(
        "d", date, ItemType_date, CPrimitiveRestrictions("(", 99, 0, nullptr, nullptr, nullptr, nullptr, 0)));
}

TEST(PrimitiveRestrictionsBinary, LengthsInBytesShownInHex)
{
    const struct { ItemType type; const char* value; int minLength, maxLength, length; bool passes; } cases[] = {
        {ItemType_hexBinary, "0AFF", 2, 2, 2, true},       {ItemType_hexBinary, "0AFF", 3, -1, -1, false},
        {ItemType_hexBinary, "0AFF", -1, 1, -1, false},    {ItemType_hexBinary, "0AFF", -1, -1, 0, false},
        {ItemType_hexBinary, "", 0, 0, 0, true},           {ItemType_base64Binary, "Cv8=", -1, -1, 2, true},
        {ItemType_base64Binary, "Cv8=", -1, 1, -1, false}, {ItemType_base64Binary, "Cv8=", -1, -1, 3, false},
    };
    for (const auto& c : cases) {
        // Bounds and patterns do not apply to binary values.
        const CPrimitiveRestrictions facets("(", c.minLength, c.maxLength, "zz", "zz", "zz", "zz", c.length);
        if (c.passes)
            EXPECT_NO_THROW(CheckPrimitiveRestriction("b", Parsed(c.value, c.type), c.type, facets));
        else
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("b", Parsed(c.value, c.type), c.type, facets), COrvexException,
                             "Invalid Value for b [0AFF]");
    }
}
