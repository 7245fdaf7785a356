// The Fast Infoset writer octet by octet: small documents against hand-read
// bytes, documents against the committed bytes of the Java library, the octet
// forms at each boundary, the vocabulary limit, and the misuses that must fail.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "FastInfosetTestSupport.h"
#include "orvexxml/fastinfoset/detail/WriterOctets.h"

using namespace OrvexXmlLib5;
using namespace OrvexTest;

namespace {

const std::string XmlNs = "http://www.w3.org/XML/1998/namespace";

TEST(FastInfosetWriter, SmallDocumentsGiveTheseOctets)
{
    const std::pair<const char*, const char*> cases[] = {
        // The smallest document: one octet ends both the root and the document.
        {"D0|<a|>|E", "E0 00 00 01 00 3C 00 61 FF"},
        // Empty text writes no chunk but closes the start tag, attributes and all.
        {"D0|<a|@x=1|#|<b|>|>|E", "E0 00 00 01 00 7C 00 61 78 00 78 40 31 F0 3C 00 62 FF F0"},
        {"D0|<a|@x=|>|E", "E0 00 00 01 00 7C 00 61 78 00 78 FF F0 FF"},
        // The end of the attributes is written at once and the element's own end
        // is held back. The Java library holds back the first as well and gives
        // ... 40 76 FF FF here: both forms end the same items, ours in the order
        // the algorithm states, at no cost in length for a whole document.
        {"D0|<r|<c|@k=v|>|>|E", "E0 00 00 01 00 3C 00 72 7C 00 63 78 00 6B 40 76 F0 FF F0"},
        // The same value twice: a literal entered in the table, then index 1.
        {"D0|<a|@x=abc|<b|@x=abc|>|>|E",
         "E0 00 00 01 00 7C 00 61 78 00 78 42 61 62 63 F0 7C 00 62 00 80 F0 FF F0"},
        // Six octets are never entered, however often they come.
        {"D0|<a|@x=abcdef|@y=abcdef|>|E",
         "E0 00 00 01 00 7C 00 61 78 00 78 05 61 62 63 64 65 66 78 00 79 05 61 62 63 64 65 66 F0 FF"},
        // Text after a child: the held terminator first, so the chunk is the parent's.
        {"D0|<a|<b|>|#hi|#hi|>|E", "E0 00 00 01 00 3C 00 61 3C 00 62 F0 91 68 69 A0 FF"},
        {"D0|<a|#abcdef|>|E", "E0 00 00 01 00 3C 00 61 82 03 61 62 63 64 65 66 FF"},
        // Comments, schemas and processing instructions are not carried; a
        // processing instruction closes the start tag.
        {"D0|?<?pi x?>|<a|!c|$<xs:schema/>|?<?pi?>|>|E", "E0 00 00 01 00 3C 00 61 FF"},
        // Non-ASCII text goes out in UTF-8.
        {"D0|<a|#\xC3\xBC|>|E", "E0 00 00 01 00 3C 00 61 91 C3 BC FF"},
        // The declaration in front of the identification.
        {"D1|<a|>|E", "3C 3F 78 6D 6C 20 65 6E 63 6F 64 69 6E 67 3D 27 66 69 6E 66 27 3F 3E "
                      "E0 00 00 01 00 3C 00 61 FF"},
        // Two documents from one writer: the tables start afresh.
        {"D0|<a|>|E|D0|<a|>|E", "E0 00 00 01 00 3C 00 61 FF"},
    };
    for (const auto& c : cases) EXPECT_EQ(Hex(WriteFastInfosetScript(c.first)), c.second) << c.first;
}

TEST(FastInfosetWriter, DeclarationsHaveTheirTexts)
{
    // 1 to 9: versions none, 1.0 and 1.1, each with standalone absent, yes and no.
    for (int n = 0; n < 10; ++n) {
        std::string text;
        if (n) {
            const char* versions[] = {"", "version='1.0' ", "version='1.1' "};
            const char* standalones[] = {"", " standalone='yes'", " standalone='no'"};
            text = std::string("<?xml ") + versions[(n - 1) / 3] + "encoding='finf'" + standalones[(n - 1) % 3] + "?>";
        }
        const char* declared = GetFInfoDeclText(static_cast<FInfoDecl>(n));
        EXPECT_EQ(declared ? std::string(declared) : "(null)", n ? text : "(null)");
        EXPECT_EQ(WriteFastInfosetScript("D" + std::to_string(n) + "|<a|>|E"),
                  text + std::string("\xE0\0\0\x01\0\x3C\0\x61\xFF", 9));
    }
    EXPECT_EQ(GetFInfoDeclText(static_cast<FInfoDecl>(10)), nullptr);
    EXPECT_EQ(GetFInfoDeclText(static_cast<FInfoDecl>(-1)), nullptr);
}

// The script that writes vectors/large.xml (see make.sh there).
std::string LargeScript()
{
    std::string s = "D0|<r";
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 300; ++i) {
            const std::string n = std::to_string(i);
            s += "|<e" + n + "|@a" + std::to_string(i % 70) + "=v" + n + "|#t" + n + "|>";
        }
    const std::string long1(70, 'n'), long2(400, 'm');
    s += "|<" + long1 + "|@" + long2 + "=" + std::string(9, 'x') + "|#" + std::string(3, 'y') + "|>";
    s += "|<" + long2 + "|@" + long1 + "=" + std::string(300, 'x') + "|#" + std::string(300, 'y') + "|>";
    return s + "|>|E";
}

// Our bytes equal the Java library's for documents in the writer's subset: made
// with its table policy limited to 6 characters, which is 6 octets for ASCII.
TEST(FastInfosetWriter, WritesTheBytesOfTheJavaLibrary)
{
    const std::string xsi = "http://www.w3.org/2001/XMLSchema-instance";
    const std::tuple<const char*, std::string> cases[] = {  // vector, script
        {"attribute-text", "D0|<a|@x=1|#hi|>|E"},
        {"siblings", "D0|<r|<c|>|<c|>|>|E"},
        // The writer's map ascending by URI after the default namespace.
        {"root-namespaces",
         "D0|+p urn:b|+q urn:a|=urn:d|<r urn:a|@k urn:b=v|@k=w|<c urn:b|@k urn:a=v|#y|>|<c urn:a|#x|>|>|E"},
        // Made-up prefixes declared where they are made; the sibling declares again
        // (by index), the child inherits.
        {"made-up-prefixes", "D0|<r|<c urn:x|@k urn:y=1|<d urn:x|>|>|<c urn:x|>|>|E"},
        // An element in the default namespace still takes a prefix.
        {"default-namespace", "D0|=urn:d|<r urn:d|<c urn:d|#t|>|>|E"},
        {"xml-prefix", "D0|<r|@lang " + XmlNs + "=en|<c|@lang " + XmlNs + "=en|@space " + XmlNs +
                           "=preserve|#t|>|>|E"},
        {"xsi-type", "D0|<r|<c|^urn:t T|#1|>|<c|^ U|#2|>|>|E"},
        {"values", "D0|<r|@a=abc|@b=abc|@c=|@d=abcdef|@e=abcdef|@f=\xC3\xBC|<c|#abc|>|#abc|<c|#abcdef|>|#abcdef|"
                   "<c|#\xC3\xBC|>|#\xC3\xBC|>|E"},
        {"large", LargeScript()},
    };
    for (const auto& [vector, script] : cases) {
        const std::string expected = ReadBinaryFile(VectorPath(std::string(vector) + ".finf"));
        ASSERT_FALSE(expected.empty()) << vector;
        EXPECT_EQ(Hex(WriteFastInfosetScript(script)), Hex(expected)) << vector;
    }
}

TEST(FastInfosetWriter, IntegersAndLengthsTakeTheirFormsAtEachBoundary)
{
    using Fn = void (*)(std::string&, unsigned char, std::uint32_t);
    const Fn i2 = Detail::WriteIntegerOnSecondBit, i3 = Detail::WriteIntegerOnThirdBit,
             i4 = Detail::WriteIntegerOnFourthBit;
    const std::tuple<Fn, unsigned char, std::uint32_t, const char*> cases[] = {  // fn, bits, value, octets
        {i2, 0x80, 1, "80"},          {i2, 0x80, 64, "BF"},         {i2, 0x80, 65, "C0 00"},
        {i2, 0x80, 8256, "DF FF"},    {i2, 0x80, 8257, "E0 00 00"}, {i2, 0, 1u << 20, "6F DF BF"},
        {i3, 0x40, 1, "40"},          {i3, 0, 32, "1F"},            {i3, 0, 33, "20 00"},
        {i3, 0, 2080, "27 FF"},       {i3, 0, 2081, "28 00 00"},    {i3, 0x40, 526368, "6F FF FF"},
        {i3, 0, 526369, "30 00 00 00"}, {i3, 0, 1u << 20, "30 07 F7 DF"}, {i4, 0xA0, 1, "A0"},
        {i4, 0xA0, 16, "AF"},         {i4, 0xA0, 17, "B0 00"},      {i4, 0xA0, 1040, "B3 FF"},
        {i4, 0xA0, 1041, "B4 00 00"}, {i4, 0xA0, 263184, "B7 FF FF"}, {i4, 0xA0, 263185, "B8 00 00 00"},
        {i4, 0xA0, 1u << 20, "B8 0B FB EF"},
    };
    for (const auto& [fn, bits, value, octets] : cases) {
        std::string out;
        fn(out, bits, value);
        EXPECT_EQ(Hex(out), octets) << value;
    }

    using StringFn = void (*)(std::string&, unsigned char, const std::string&);
    const StringFn s2 = Detail::WriteStringOnSecondBit, s5 = Detail::WriteStringOnFifthBit,
                   s7 = Detail::WriteStringOnSeventhBit;
    const std::tuple<StringFn, std::size_t, const char*> strings[] = {  // fn, length, expectedHead
        {s2, 1, "00"},    {s2, 64, "3F"},  {s2, 65, "40 00"},  {s2, 320, "40 FF"},  {s2, 321, "60 00 00 00 00"},
        {s2, 70000, "60 00 01 10 2F"},     {s5, 1, "00"},      {s5, 8, "07"},       {s5, 9, "08 00"},
        {s5, 264, "08 FF"},                {s5, 265, "0C 00 00 00 00"},             {s7, 1, "00"},
        {s7, 2, "01"},    {s7, 3, "02 00"}, {s7, 258, "02 FF"}, {s7, 259, "03 00 00 00 00"},
    };
    for (const auto& [fn, length, expectedHead] : strings) {
        std::string out;
        const std::string text(length, 'z');
        fn(out, 0, text);
        const std::string head = std::string(expectedHead);
        const std::size_t headOctets = (head.size() + 1) / 3;
        ASSERT_EQ(out.size(), headOctets + length) << length;
        EXPECT_EQ(Hex(out.substr(0, headOctets)), head) << length;
        EXPECT_EQ(out.substr(headOctets), text);
    }
}

TEST(FastInfosetWriter, VocabularyCountsEveryLiteralAndStopsAtItsLimit)
{
    Detail::CWriterVocabulary table(3);
    EXPECT_EQ(table.Add("a"), 1u);
    // The reader adds a literal again; the first index stays the one to send.
    EXPECT_EQ(table.Add("a"), 2u);
    EXPECT_EQ(table.Find("a"), 1u);
    EXPECT_EQ(table.Add("b"), 3u);
    EXPECT_TRUE(table.IsFull());
    EXPECT_EQ(table.Add("c"), 0u);
    EXPECT_EQ(table.Find("c"), 0u);
    EXPECT_EQ(table.Find("b"), 3u);
}

// A document with more distinct short values than a table holds: the values past
// the limit go out as literals without the add-to-table bit, every time, and the
// entries before it are still sent as indexes.
TEST(FastInfosetWriter, ValuesPastTheVocabularyLimitStayLiterals)
{
    const std::uint32_t limit = Detail::CWriterVocabulary::MaxEntries;
    auto value = [](std::uint32_t n) {
        std::string text(5, 'a');
        for (int i = 4; i >= 0; --i, n /= 26) text[i] = static_cast<char>('a' + n % 26);
        return text;
    };
    std::string fill = "D0|<r";
    for (std::uint32_t n = 0; n < limit; ++n) fill += "|<c|@v=" + value(n) + "|>";
    CFastInfosetWriter writer;
    RunWriterScript(writer, fill);
    const std::size_t filled = writer.GetOutput().GetLength();
    for (std::uint32_t n : {limit, limit, 0u, limit - 1}) RunWriterScript(writer, "<c|@v=" + value(n) + "|>");
    RunWriterScript(writer, ">|E");
    const std::string tail = writer.GetOutput().GetString().substr(filled);
    // Each element: its terminator owed from the one before, the surrogate 2 with
    // the attributes bit, the attribute surrogate 1, the value, the end of the attributes.
    const std::string literal = "04 " + Hex(value(limit));
    EXPECT_EQ(Hex(tail),
              "F0 41 00 " + literal + " F0 F0 41 00 " + literal + " F0 F0 41 00 80 F0 F0 41 00 EF DF BF F0 FF F0");
}

TEST(FastInfosetWriter, MisusesFailWithTheirMessages)
{
    const std::pair<const char*, const char*> cases[] = {
        {"D0|<a|#t|@x=1", "Attributes must be added before elements"},
        {"D0|<a|#|@x=1", "Attributes must be added before elements"},
        {"D0|<a|<b|>|@x=1", "Attributes must be added before elements"},
        {"D0|<a|<b|>|^urn:t T", "Attributes must be added before elements"},
        {"D0|@x=1", "Attributes must be added before elements"},
        {"D0|^urn:t T", "Attributes must be added before elements"},
        {"D0|<a|E", "An Element has not been closed."},
        {"D0|>", "There is no open Element to end."},
    };
    for (const auto& c : cases) EXPECT_THROW_MSG(WriteFastInfosetScript(c.first), COrvexException, c.second) << c.first;
    // A second end of the document adds nothing.
    EXPECT_EQ(Hex(WriteFastInfosetScript("D0|<a|>|E|E")), "E0 00 00 01 00 3C 00 61 FF");
}

}  // namespace
