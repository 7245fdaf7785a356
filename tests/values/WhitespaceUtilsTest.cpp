#include "orvexxml/values/WhitespaceUtils.h"

#include "TestUtil.h"

using namespace OrvexXmlLib5;
using Rule = CWhitespaceUtils::WhitespaceRule;

TEST(WhitespaceUtils, RulesOverTable)
{
    struct Case { std::string in, preserve, replace, collapse; };
    const Case cases[] = {
        {"", "", "", ""}, {"\r\n", "\n", " ", ""},
        {"  a \t\r\n b  ", "  a \t\n b  ", "  a    b  ", "a b"}, {"   ", "   ", "   ", ""},
        {"a\r b", "a b", "a b", "a b"}, {"plain", "plain", "plain", "plain"},
        {"\xC3\xA9\xA0x", "\xC3\xA9\xA0x", "\xC3\xA9\xA0x", "\xC3\xA9\xA0x"},
        {std::string("a b\0c d", 7), std::string("a b\0c d", 7), "a b", "a b"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(Rule::Preserve, c.in), c.preserve);
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(Rule::Replace, c.in), c.replace);
        EXPECT_EQ(CWhitespaceUtils::ApplyRule(Rule::Collapse, c.in), c.collapse);
    }
}

TEST(WhitespaceUtils, CountedPreserveStopsAtLengthAndZero)
{
    EXPECT_EQ(CWhitespaceUtils::Preserve("a\rbcd", 3), "ab");
    EXPECT_EQ(CWhitespaceUtils::Preserve("abc", 0), "");
    EXPECT_EQ(CWhitespaceUtils::Preserve("abc", -5), "");
    EXPECT_EQ(CWhitespaceUtils::Preserve("a\0bc", 4), "a");
}

TEST(WhitespaceUtils, UnknownRuleFailsWithBaseClass)
{
    EXPECT_THROW_MSG(CWhitespaceUtils::ApplyRule(static_cast<Rule>(3), "x"), COrvexException,
                     "Unknown WhitespaceRule");
    for (char c : {' ', '\t', '\r', '\n'}) EXPECT_TRUE(CWhitespaceUtils::IsWhiteSpace(c));
    for (char c : {'\v', '\f', 'a', '\0', static_cast<char>(0xA0)}) EXPECT_FALSE(CWhitespaceUtils::IsWhiteSpace(c));
}

// The form with a scratch string gives the same text as the copying form, and the
// input itself exactly when the rule changes nothing.
TEST(WhitespaceUtils, ScratchFormAgreesAndKeepsUnchangedText)
{
    const std::string inputs[] = {"",   "plain", "a b",  " a",  "a ",  "a  b", "a\tb", "a\nb",
                                  "a\rb", " ",     "\xC3\xA9 \xA0x", std::string("a\0b", 3), std::string("\0", 1),
                                  "12.50", " 12.50 "};
    for (const Rule rule : {Rule::Preserve, Rule::Replace, Rule::Collapse}) {
        for (const std::string& in : inputs) {
            std::string scratch = "untouched";
            const std::string& out = CWhitespaceUtils::ApplyRule(rule, in, scratch);
            const std::string expected = CWhitespaceUtils::ApplyRule(rule, in);
            EXPECT_EQ(out, expected) << static_cast<int>(rule) << " [" << in << "]";
            if (&out == &in)
                EXPECT_EQ(scratch, "untouched");
            else
                EXPECT_NE(in, expected) << static_cast<int>(rule) << " [" << in << "]";
        }
    }
    std::string scratch;
    EXPECT_EQ(&CWhitespaceUtils::ApplyRule(Rule::Collapse, inputs[2], scratch), &inputs[2]);
    EXPECT_THROW_MSG(CWhitespaceUtils::ApplyRule(static_cast<Rule>(7), inputs[1], scratch), COrvexException,
                     "Unknown WhitespaceRule");
}
