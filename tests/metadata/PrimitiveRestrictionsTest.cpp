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

TEST(PrimitiveRestrictionsNumbers, BoundsInOrderWithTypeSignedness)
{
    // message null: passes.
    const struct { ItemType type; const char* value; CPrimitiveRestrictions facets; const char* message; } cases[] = {
        {ItemType_i1, "-5", Bounds("-5", "5", "", ""), nullptr},
        {ItemType_i1, "-6", Bounds("-5", "", "", ""), "Invalid Value for n [-6]"},
        {ItemType_i2, "300", Bounds("", "", "", "300"), "Invalid Value for n [300]"},
        {ItemType_i4, "10", Bounds("", "", "10", ""), "Invalid Value for n [10]"},
        {ItemType_i4, "11", Bounds(" 0 ", " 20 ", "10", "12"), nullptr},
        {ItemType_i8, "-9000000000", Bounds("-8000000000", "", "", ""), "Invalid Value for n [-9000000000]"},
        {ItemType_ui1, "200", Bounds("", "199", "", ""), "Invalid Value for n [200]"},
        {ItemType_ui2, "65535", Bounds("1", "65535", "", ""), nullptr},
        // Unsigned comparison: 4000000000 is above 5; the number shows through %d.
        {ItemType_ui4, "4000000000", Bounds("5", "", "", ""), nullptr},
        {ItemType_ui4, "4000000000", Bounds("", "5", "", ""), "Invalid Value for n [-294967296]"},
        {ItemType_ui8, "18446744073709551615", Bounds("", "", "", "1"), "Invalid Value for n [18446744073709551615]"},
        {ItemType_r4, "1.5", Bounds("", "1.25", "", ""), "Invalid Value for n [1.500000]"},
        {ItemType_r8, "-0.5", Bounds("-1", "0", "-1", "0"), nullptr},
        {ItemType_r8, "NaN", Bounds("", "", "", ""), nullptr},
        {ItemType_r8, "NaN", Bounds("", "", "", "INF"), "Invalid Value for n [nan]"},
        {ItemType_boolean, "true", Bounds("x", "y", "z", "w"), nullptr},
    };
    for (const auto& c : cases) {
        const OrvexVariant v = Parsed(c.value, c.type);
        if (c.message)
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", v, c.type, c.facets), COrvexException, c.message);
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
