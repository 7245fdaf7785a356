#include "orvexxml/platform/CodePage.h"

#include <gtest/gtest.h>

using namespace OrvexXmlLib5;
using namespace OrvexXmlLib5::Platform;

namespace {

// Restores the process-wide encoding whatever a test sets.
class LocalEncoding : public ::testing::Test
{
protected:
    void TearDown() override { SetLocalCharEncoding(3); }
};

std::u16string U16(std::initializer_list<char16_t> units) { return std::u16string(units); }

}  // namespace

TEST_F(LocalEncoding, StartsAsThreadDefaultWhichIsUtf8)
{
    EXPECT_EQ(GetLocalCharEncoding(), 3u);
    EXPECT_TRUE(LocalIsUtf8());
    for (unsigned cp : {0u, 3u, 65001u}) {
        SetLocalCharEncoding(cp);
        EXPECT_TRUE(LocalIsUtf8()) << cp;
    }
    SetLocalCharEncoding(1252);
    EXPECT_FALSE(LocalIsUtf8());
}

// What UTF-8 can't hold becomes U+FFFD, what the code page can't hold '?'.
TEST_F(LocalEncoding, Utf8ToAndFromTheLocalCodePage)
{
    const std::string text = "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80";
    struct Case { unsigned codePage; std::string utf8, local; };
    const Case toLocal[] = {
        {65001, text, text}, {65001, "", ""},
        // Truncated, overlong and surrogate encodings each become U+FFFD.
        {65001, "a\xC3", "a\xEF\xBF\xBD"}, {65001, "\xC0\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {65001, "\xED\xA0\x80", "\xEF\xBF\xBD"},
        // U+00E9 and U+20AC exist in 1252; U+4E2D does not. An unknown code page is ASCII.
        {1252, "\xC3\xA9\xE2\x82\xAC\xE4\xB8\xAD!", "\xE9\x80?!"}, {28591, "\xC3\xBF\xE2\x82\xAC", "\xFF?"},
        {4242, "a\xC3\xA9", "a?"}};
    for (const Case& c : toLocal) {
        SetLocalCharEncoding(c.codePage);
        EXPECT_EQ(Utf8ToLocal(c.utf8), c.local) << c.codePage << " " << c.utf8;
    }
    const Case toUtf8[] = {
        {65001, text, text}, {1252, "\xC3\xA9\xE2\x82\xAC", "\xE9\x80"}, {4242, "a\xEF\xBF\xBD", "a\xE9"}};
    for (const Case& c : toUtf8) {
        SetLocalCharEncoding(c.codePage);
        EXPECT_EQ(LocalToUtf8(c.local), c.utf8) << c.codePage << " " << c.local;
    }
    SetLocalCharEncoding(1252);
    EXPECT_EQ(LocalToUtf16(std::string("A\xE9")), U16({u'A', 0x00E9}));
    EXPECT_EQ(Utf16ToLocal(U16({0x00E9, 0xD83D, 0xDE00}).data(), 3), "\xE9?");
}

TEST_F(LocalEncoding, Utf16ConversionsHandleSurrogates)
{
    const std::u16string pair = U16({0xD83D, 0xDE00});
    EXPECT_EQ(Utf16ToUtf8(pair.data(), pair.size()), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Utf8ToUtf16("\xF0\x9F\x98\x80", 4), pair);
    const std::u16string lone = U16({u'a', 0xDC00, u'b'});
    EXPECT_EQ(Utf16ToUtf8(lone.data(), lone.size()), "a\xEF\xBF\xBD" "b");
    EXPECT_EQ(Utf16Length(u"abc"), 3u);
    EXPECT_EQ(Utf16Length(nullptr), 0u);
}

TEST_F(LocalEncoding, CombiningCodePagesKeepTheirLastLetter)
{
    // 1258 and 1255 decode a letter only once they know whether a combining mark
    // follows it, so the end of the text has to release the last one.
    struct Case
    {
        unsigned codePage;
        std::string local;
        std::u16string wide;
    } cases[] = {
        {1258, "ab\xE3", u"ab\u0103"}, {1258, "\xE3", u"\u0103"},
        {1258, "\xE3\xAD", u"\u0103\u00AD"},
        {1258, "a\xEC", u"\u00E1"},  // a letter and a combining acute compose
        {1255, "\xE3", u"\u05D3"}, {1255, "\xE3\xAD", u"\u05D3\u00AD"},
    };
    for (const Case& c : cases) {
        SetLocalCharEncoding(c.codePage);
        EXPECT_EQ(LocalToUtf16(c.local), c.wide) << c.codePage << " " << c.local;
        const std::u16string wide = LocalToUtf16(c.local);
        const std::string local = Utf16ToLocal(wide.data(), wide.size());
        EXPECT_EQ(LocalToUtf16(local), wide) << c.codePage << " " << c.local;
        EXPECT_EQ(LocalToUtf8(c.local), Utf16ToUtf8(c.wide.data(), c.wide.size()));
    }
}
