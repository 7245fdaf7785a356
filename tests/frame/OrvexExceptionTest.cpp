#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

#include "TestUtil.h"

#include <climits>
#include <cstdint>
#include <type_traits>

using namespace OrvexXmlLib5;

TEST(OrvexException, ChainOfThreeGivesThreeLinesOutermostFirst)
{
    COrvexInvalidValueException cause("cause");
    COrvexValidationException middle("middle", cause);
    COrvexException outer("outer", middle);
    EXPECT_EQ(outer.GetFullMessage(), "outer\nmiddle\ncause");
    EXPECT_EQ(outer.GetMessageA(), "outer");
    EXPECT_STREQ(outer.what(), "outer");
}

TEST(OrvexException, CopyAndAssignmentCloneTheChain)
{
    COrvexException a("a", COrvexOverFlowException("deep"));
    COrvexException b(a);
    EXPECT_NE(b.GetInnerException(), a.GetInnerException());
    EXPECT_EQ(b.GetFullMessage(), "a\ndeep");
    COrvexException c("c");
    c = a;
    EXPECT_EQ(c.GetFullMessage(), "a\ndeep");
    c = COrvexException("plain");
    EXPECT_EQ(c.GetInnerException(), nullptr);
    COrvexException& self = c;
    c = self;  // self-assignment keeps the object intact
    EXPECT_EQ(c.GetFullMessage(), "plain");
    COrvexInvalidStateException fromBase = COrvexException("x", COrvexException("y"));
    EXPECT_EQ(fromBase.GetFullMessage(), "x\ny");
}

// Callers catch validation failures apart from the others, and everything as std::exception.
static_assert(std::is_base_of_v<COrvexValidationException, COrvexInvalidValueException> &&
              std::is_base_of_v<COrvexValidationException, COrvexInvalidNamespaceException> &&
              std::is_base_of_v<COrvexException, COrvexValidationException> &&
              std::is_base_of_v<std::exception, COrvexException>);
static_assert(!std::is_base_of_v<COrvexValidationException, COrvexInvalidParamException> &&
              !std::is_base_of_v<COrvexValidationException, COrvexInvalidStateException> &&
              !std::is_base_of_v<COrvexValidationException, COrvexOverFlowException> &&
              std::is_base_of_v<COrvexException, COrvexInvalidParamException> &&
              std::is_base_of_v<COrvexException, COrvexInvalidStateException> &&
              std::is_base_of_v<COrvexException, COrvexOverFlowException>);

TEST(FormatString, ConversionsAndMicrosoftPrefixes)
{
    const std::int64_t big = INT64_MIN;
    const std::uint64_t ubig = UINT64_MAX;
    EXPECT_EQ(FormatString("%I64d|%I64u", big, ubig), "-9223372036854775808|18446744073709551615");
    EXPECT_EQ(FormatString("%d %5s|%-3c|%%", 42, "ab", 'z'), "42    ab|z  |%");
    EXPECT_EQ(FormatString("%hd %ld %I32d", static_cast<short>(-3), 7L, 9), "-3 7 9");
    EXPECT_EQ(FormatString("%.3f %e", 3.14159, 1.5), "3.142 1.500000e+00");
    EXPECT_EQ(FormatString("%*d|%.*s", 4, 7, 2, "xyz"), "   7|xy");
    EXPECT_EQ(FormatString("%#x %Fs %Ns", 255, "far", "near"), "0xff far near");
    EXPECT_EQ(FormatString("%Iu", static_cast<size_t>(12)), "12");
    EXPECT_EQ(FormatString("%s", static_cast<const char*>(nullptr)), "(null)");
    EXPECT_EQ(FormatString("%f", 1e300).size(), 308u);
}

TEST(FormatString, CutAtTheFirstTerminatorButNeverTruncated)
{
    EXPECT_EQ(FormatString("a%cb", 0), "a");
    EXPECT_EQ(FormatString("%c", 0), "");
    EXPECT_EQ(FormatString("%s%c%s", std::string(600, 'x').c_str(), 0, "tail"), std::string(600, 'x'));
    std::string longText(100000, 'q');
    longText[99999] = 'z';
    std::string out = FormatString("[%s]", longText.c_str());
    ASSERT_EQ(out.size(), 100002u);
    EXPECT_EQ(out.substr(99999, 3), "qz]");
}
