#include "orvexxml/xml/StringBuffer.h"

#include <gtest/gtest.h>

#include <string>

#include "TestUtil.h"

using namespace OrvexXmlLib5;

namespace {

const std::size_t ChunkText = 65535;

TEST(StringBuffer, EmptyBufferGivesEmptyString)
{
    CStringBuffer buffer(0x10000);
    EXPECT_EQ("", buffer.GetString());
    EXPECT_EQ(0u, buffer.GetChunkCount());
    buffer.Append(static_cast<const char*>(nullptr));
    buffer.AppendEscaped(nullptr, EOL_LF);
    EXPECT_EQ(0u, buffer.GetLength());
}

TEST(StringBuffer, FullChunkStaysOneAndNextByteOpensAnother)
{
    CStringBuffer buffer(0x10000);
    const std::string full(ChunkText, 'x');
    buffer.Append(full);
    EXPECT_EQ(1u, buffer.GetChunkCount());
    buffer.AppendChar('y');
    EXPECT_EQ(2u, buffer.GetChunkCount());
    EXPECT_EQ(full + "y", buffer.GetString());
    // The joined text stands for both chunks; further text goes behind it.
    EXPECT_EQ(1u, buffer.GetChunkCount());
    buffer.Append("z");
    EXPECT_EQ(full + "yz", buffer.GetString());
}

TEST(StringBuffer, TextSplitsAnywhereAcrossChunks)
{
    // Multi-byte characters and the two bytes of CR LF fall on each boundary offset.
    struct Case
    {
        std::size_t fill;
        const char* text;
        EOLType eol;
        bool escaped;
        const char* expected;
    };
    const Case cases[] = {
        {ChunkText - 1, "\xC3\xA9", EOL_LF, false, "\xC3\xA9"},
        {ChunkText - 2, "\xE2\x82\xAC", EOL_LF, false, "\xE2\x82\xAC"},
        {ChunkText - 1, "\xE2\x82\xAC", EOL_LF, false, "\xE2\x82\xAC"},
        {ChunkText - 1, "\xF0\x9F\x98\x80!", EOL_LF, true, "\xF0\x9F\x98\x80!"},
        {ChunkText - 1, "a\nb", EOL_CRLF, true, "a\r\nb"},
        {ChunkText - 2, "a\nb", EOL_CRLF, true, "a\r\nb"},
        {ChunkText - 1, "\r\n", EOL_CRLF, true, "\r\n"},
        {ChunkText - 3, "&amp;", EOL_LF, true, "&amp;amp;"},
        {ChunkText, "\"", EOL_LF, true, "&quot;"},
    };
    for (const Case& c : cases) {
        CStringBuffer buffer(0x10000);
        const std::string fill(c.fill, '.');
        buffer.Append(fill);
        if (c.escaped)
            buffer.AppendEscaped(c.text, c.eol);
        else
            buffer.Append(c.text);
        EXPECT_EQ(2u, buffer.GetChunkCount()) << c.fill << " " << c.text;
        EXPECT_EQ(fill + c.expected, buffer.GetString()) << c.fill << " " << c.text;
    }
}

TEST(StringBuffer, ManyChunksJoinInOrder)
{
    CStringBuffer buffer(7);
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string piece = std::to_string(i) + (i % 3 ? "," : ";\n");
        buffer.Append(piece);
        expected += piece;
    }
    EXPECT_EQ(expected.size(), buffer.GetLength());
    EXPECT_EQ(expected, buffer.GetString());
    EXPECT_EQ(expected, buffer.GetString());
}

TEST(StringBuffer, ResetKeepsChunkSize)
{
    CStringBuffer buffer(4);
    buffer.Append("abcdefg");
    EXPECT_EQ(3u, buffer.GetChunkCount());
    buffer.Reset();
    EXPECT_EQ("", buffer.GetString());
    buffer.Append("hijk");
    EXPECT_EQ(2u, buffer.GetChunkCount());
    EXPECT_EQ("hijk", buffer.GetString());
}

TEST(StringBuffer, TinyChunkSizeStillHoldsText)
{
    for (unsigned long size : {0ul, 1ul, 2ul}) {
        CStringBuffer buffer(size);
        buffer.AppendEscaped("a<b", EOL_LF);
        EXPECT_EQ("a&lt;b", buffer.GetString());
    }
}

TEST(StringBuffer, EscapingTable)
{
    struct Case
    {
        const char* text;
        EOLType eol;
        const char* expected;
    };
    const Case cases[] = {
        {"a<b&\"c\">", EOL_LF, "a&lt;b&amp;&quot;c&quot;&gt;"},
        {"it's", EOL_LF, "it's"},
        {"tab\there", EOL_LF, "tab\there"},
        {"a\r\nb", EOL_LF, "a\nb"},
        {"a\r\nb", EOL_CRLF, "a\r\nb"},
        {"a\nb\n", EOL_CRLF, "a\r\nb\r\n"},
        {"lone\rcr", EOL_CRLF, "lonecr"},
        {"\r\r\r", EOL_LF, ""},
        {"caf\xC3\xA9 \xE2\x82\xAC", EOL_LF, "caf\xC3\xA9 \xE2\x82\xAC"},
        {"", EOL_CRLF, ""},
        {"&&", EOL_LF, "&amp;&amp;"},
    };
    for (const Case& c : cases) {
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
    EXPECT_THROW_MSG(buffer.AppendEscaped("no line end", static_cast<EOLType>(-1)), COrvexException,
                     "Invalid EOL type.");
    EXPECT_EQ("kept", buffer.GetString());
}

}  // namespace
