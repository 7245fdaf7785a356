#include "orvexxml/xml/StringBuffer.h"

#include <string>
#include <tuple>

#include "TestUtil.h"

using namespace OrvexXmlLib5;

namespace {

TEST(StringBuffer, ChunkBoundaryJoinAndEmptyText)
{
    CStringBuffer buffer(0x10000);
    buffer.Append(std::string());
    buffer.Append("", 0);
    buffer.Append(static_cast<const char*>(nullptr));
    EXPECT_EQ(0u, buffer.GetChunkCount());  // empty text makes no chunk, even the first
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
    buffer.Append(std::string());
    buffer.Append("c", 1);
    EXPECT_EQ("c", buffer.GetString());
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
}

TEST(StringBuffer, EscapingAnywhereAcrossChunks)
{
    // Each text after fill bytes, so that multi-byte characters, entities and CR LF
    // fall across the chunk boundary.
    const std::tuple<std::size_t, const char*, EOLType, const char*> cases[] = {  // fillSize, text, eol, expected
        {0, "a<b&\"c\">", EOL_LF, "a&lt;b&amp;&quot;c&quot;&gt;"}, {0, "it's\tx", EOL_LF, "it's\tx"},
        {0, "a\r\nb", EOL_LF, "a\nb"},          {0, "lone\rcr\r", EOL_CRLF, "lonecr"},
        {0, "", EOL_CRLF, ""},                  {65534, "\xC3\xA9", EOL_LF, "\xC3\xA9"},
        {65533, "\xE2\x82\xAC", EOL_LF, "\xE2\x82\xAC"}, {65534, "\xF0\x9F\x98\x80", EOL_LF, "\xF0\x9F\x98\x80"},
        {65534, "a\nb", EOL_CRLF, "a\r\nb"},    {65533, "a\r\nb\n", EOL_CRLF, "a\r\nb\r\n"},
        {65532, "&amp;", EOL_LF, "&amp;amp;"},  {65535, "\"", EOL_LF, "&quot;"},
        {65534, "\r\n", EOL_CRLF, "\r\n"},
    };
    for (const auto& [fillSize, text, eol, expected] : cases) {
        for (unsigned long chunkSize : {0x10000ul, 3ul}) {
            CStringBuffer buffer(chunkSize);
            const std::string fill(fillSize, '.');
            buffer.Append(fill);
            buffer.AppendEscaped(text, eol);
            EXPECT_EQ(fill + expected, buffer.GetString()) << fillSize << " " << text;
        }
    }
    // An invalid line end fails before anything is appended.
    CStringBuffer buffer(0x10000);
    buffer.Append("kept");
    EXPECT_THROW_MSG(buffer.AppendEscaped("a\nb", static_cast<EOLType>(2)), COrvexException, "Invalid EOL type.");
    EXPECT_THROW_MSG(buffer.AppendEscaped("none", static_cast<EOLType>(-1)), COrvexException, "Invalid EOL type.");
    EXPECT_EQ("kept", buffer.GetString());
}

}  // namespace
