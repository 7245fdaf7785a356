#include "orvexxml/xml/StringBuffer.h"

#include <string>

#include "TestUtil.h"

using namespace OrvexXmlLib5;

namespace {

TEST(StringBuffer, ChunkBoundaryAndJoin)
{
    CStringBuffer buffer(0x10000);
    EXPECT_EQ("", buffer.GetString());
    const std::string full(65535, 'x');
    buffer.Append(full);
    EXPECT_EQ(1u, buffer.GetChunkCount());
    buffer.AppendChar('y');
    EXPECT_EQ(2u, buffer.GetChunkCount());
    EXPECT_EQ(full + "y", buffer.GetString());
    // The joined text stands for both chunks; further text goes behind it.
    EXPECT_EQ(1u, buffer.GetChunkCount());
    buffer.Append("z");
    EXPECT_EQ(full + "yz", buffer.GetString());
    buffer.Reset();
    buffer.Append(static_cast<const char*>(nullptr));
    EXPECT_EQ(0u, buffer.GetChunkCount());
}

TEST(StringBuffer, CopyStringGivesTheTextAndKeepsTheChunks)
{
    CStringBuffer buffer(8);
    EXPECT_EQ("", buffer.CopyString());
    std::string expected;
    for (int i = 0; i < 40; ++i) {
        const std::string piece(static_cast<std::size_t>(i % 11), static_cast<char>('a' + i % 26));
        buffer.Append(piece);
        expected += piece;
        const std::size_t chunks = buffer.GetChunkCount();
        EXPECT_EQ(expected, buffer.CopyString()) << i;
        EXPECT_EQ(chunks, buffer.GetChunkCount());
    }
    EXPECT_EQ(expected, buffer.GetString());
    EXPECT_EQ(expected, buffer.CopyString());
}

TEST(StringBuffer, EmptyTextAppendsNothingEvenBeforeTheFirstChunk)
{
    CStringBuffer buffer(16);
    buffer.Append(std::string());
    buffer.Append("", 0);
    EXPECT_EQ(0u, buffer.GetChunkCount());
    EXPECT_EQ("", buffer.GetString());
    buffer.Append("ab");
    buffer.Reset();
    buffer.Append(std::string());
    buffer.Append("c", 1);
    EXPECT_EQ("c", buffer.GetString());
}

TEST(StringBuffer, TextSplitsAnywhereAcrossChunks)
{
    // Multi-byte characters, entities and CR LF fall across the boundary at every offset.
    const struct
    {
        std::size_t fill;
        const char* text;
        EOLType eol;
        const char* expected;
    } cases[] = {
        {65534, "\xC3\xA9", EOL_LF, "\xC3\xA9"},          {65533, "\xE2\x82\xAC", EOL_LF, "\xE2\x82\xAC"},
        {65534, "\xF0\x9F\x98\x80", EOL_LF, "\xF0\x9F\x98\x80"}, {65534, "a\nb", EOL_CRLF, "a\r\nb"},
        {65533, "a\nb", EOL_CRLF, "a\r\nb"},              {65534, "\r\n", EOL_CRLF, "\r\n"},
        {65532, "&amp;", EOL_LF, "&amp;amp;"},            {65535, "\"", EOL_LF, "&quot;"},
    };
    for (const auto& c : cases) {
        for (unsigned long chunkSize : {0x10000ul, 3ul}) {
            CStringBuffer buffer(chunkSize);
            const std::string fill(c.fill, '.');
            buffer.Append(fill);
            buffer.AppendEscaped(c.text, c.eol);
            EXPECT_EQ(fill + c.expected, buffer.GetString()) << c.fill << " " << c.text;
        }
    }
}

TEST(StringBuffer, EscapingTable)
{
    const struct
    {
        const char* text;
        EOLType eol;
        const char* expected;
    } cases[] = {
        {"a<b&\"c\">", EOL_LF, "a&lt;b&amp;&quot;c&quot;&gt;"},
        {"it's\tx", EOL_LF, "it's\tx"},
        {"a\r\nb", EOL_LF, "a\nb"},
        {"a\r\nb\n", EOL_CRLF, "a\r\nb\r\n"},
        {"lone\rcr\r", EOL_CRLF, "lonecr"},
        {"caf\xC3\xA9 \xE2\x82\xAC", EOL_LF, "caf\xC3\xA9 \xE2\x82\xAC"},
        {"", EOL_CRLF, ""},
    };
    for (const auto& c : cases) {
        CStringBuffer buffer(0x10000);
        buffer.AppendEscaped(c.text, c.eol);
        EXPECT_EQ(c.expected, buffer.GetString()) << c.text;
    }
}

TEST(StringBuffer, InvalidEolFailsBeforeAppending)
{
    CStringBuffer buffer(0x10000);
    buffer.Append("kept");
    EXPECT_THROW_MSG(buffer.AppendEscaped("a\nb", static_cast<EOLType>(2)), COrvexException, "Invalid EOL type.");
    EXPECT_THROW_MSG(buffer.AppendEscaped("none", static_cast<EOLType>(-1)), COrvexException, "Invalid EOL type.");
    EXPECT_EQ("kept", buffer.GetString());
}

}  // namespace
