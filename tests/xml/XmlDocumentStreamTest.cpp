// Loading bytes and files: which route each form of input takes (inflated or not,
// Fast Infoset or XML text), the limit on inflated size, and the file failures.
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <tuple>

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;

namespace {

const std::string FiStart("\xE0\x00\x00\x01\x00\x3C\x00\x61\xFF", 9);

// A gzip member (windowBits 31) or a zlib stream (15) of text.
std::string Deflate(const std::string& text, int windowBits)
{
    z_stream stream;
    std::memset(&stream, 0, sizeof stream);
    deflateInit2(&stream, 9, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    std::string out(deflateBound(&stream, text.size()) + 32, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(&out[0]);
    stream.avail_out = static_cast<uInt>(out.size());
    EXPECT_EQ(Z_STREAM_END, deflate(&stream, Z_FINISH));
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

std::string Gzip(const std::string& text) { return Deflate(text, 15 + 16); }
std::string Zlib(const std::string& text) { return Deflate(text, 15); }

std::string Utf16(const std::string& ascii)
{
    std::string out;
    for (char c : ascii) out += {c, '\0'};
    return out;
}

// The local name of the root after loading bytes, or the message of the failure.
std::string LoadStream(const std::string& bytes, std::uint64_t limit = CXmlSerializationContext::DefaultMaxInflatedSize)
{
    CXmlDocument document;
    document.SetMaxInflatedSize(limit);
    try {
        document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                               static_cast<unsigned long>(bytes.size()));
    } catch (const COrvexException& e) {
        return e.GetMessage();
    }
    return document.GetDocumentElement()->GetLocalName();
}

}  // namespace

TEST(XmlDocumentStream, EachFormTakesItsRouteWithNoOptionSet)
{
    const std::string gzip = Gzip("<b/>");
    const std::tuple<const char*, std::string, std::string> cases[] = {  // what, bytes, root's name or failure
        {"plain text", "<a>x</a>", "a"},
        {"gzip", gzip, "b"},
        {"zlib", Zlib("<c>text</c>"), "c"},
        {"UTF-16 with mark", "\xFF\xFE" + Utf16("<d/>"), "d"},
        {"UTF-16 without mark", Utf16("<?xml version=\"1.0\" encoding=\"UTF-16\"?><e/>"), "e"},
        {"zlib of UTF-16", Zlib(Utf16("<f/>")), "f"},
        // As a UTF-16 file with compression is written: the mark outside the compressed bytes.
        {"mark then gzip", "\xFF\xFE" + Gzip(Utf16("<g/>")), "g"},
        {"mark then zlib", "\xFF\xFE" + Zlib(Utf16("<h/>")), "h"},
        // Only a whole stream is inflated; anything else reaches the XML parser as it is.
        {"gzip cut short", gzip.substr(0, gzip.size() - 4), "not well-formed (invalid token) at line 1"},
        {"gzip header, corrupt body", gzip.substr(0, 10) + "<i/>", "not well-formed (invalid token) at line 1"},
        {"gzip of gzip", Gzip(gzip), "not well-formed (invalid token) at line 1"},
        {"empty gzip", Gzip(""), "Invalid or empty XML document"},
        {"gzip then garbage", gzip + "garbage", "b"},
        // Fast Infoset is recognised after inflating, with or without its declaration.
        {"Fast Infoset", FiStart, "a"},
        {"zlib of Fast Infoset", Zlib(FiStart), "a"},
        {"gzip of Fast Infoset", Gzip(FiStart), "a"},
        {"declared Fast Infoset", "<?xml version='1.0' encoding='finf'?>" + FiStart, "a"},
        {"declared, double quotes", "<?xml version=\"1.0\" encoding=\"finf\"?>" + FiStart,
         "unknown encoding at line 1"},
        {"declaration without identification", "<?xml encoding='finf'?><a/>",
         "XML declaration not well-formed at line 1"},
        {"identification alone", FiStart.substr(0, 4), "Invalid or empty XML document"},
    };
    for (const auto& [what, bytes, result] : cases) EXPECT_EQ(result, LoadStream(bytes)) << what;
    // Text given as a string is never taken for Fast Infoset.
    CXmlDocument document;
    EXPECT_THROW_MSG(document.LoadXml("<?xml version='1.0' encoding='finf'?>\xE0\x01\x01\x01<a/>"), COrvexException,
                     "unknown encoding at line 1");
}

TEST(XmlDocumentStream, InflatedSizeIsBoundedByTheLimit)
{
    const std::string exact = "<a>" + std::string(993, 'x') + "</a>";  // 1000 bytes
    ASSERT_EQ(1000u, exact.size());
    const std::string over = "The inflated input is larger than the limit of [999] bytes set in the serialization "
                             "context.";
    EXPECT_EQ("a", LoadStream(Gzip(exact), 1000));
    EXPECT_EQ(over, LoadStream(Gzip(exact), 999));
    EXPECT_EQ(over, LoadStream("\xFF\xFE" + Zlib(exact), 999));
    EXPECT_EQ("a", LoadStream(Zlib(exact), 0));  // 0 lifts the limit
    // Uncompressed input is not limited by it.
    EXPECT_EQ("a", LoadStream(exact, 10));

    // 16 MiB of blanks in about 16 KiB: the load stops at the limit, not at the end.
    const std::string bomb = Gzip(std::string(16 << 20, ' '));
    ASSERT_LT(bomb.size(), 20000u);
    EXPECT_EQ("The inflated input is larger than the limit of [1048576] bytes set in the serialization context.",
              LoadStream(bomb, 1 << 20));
    EXPECT_EQ(256u << 20, CXmlDocument().GetMaxInflatedSize());
    EXPECT_EQ(256u << 20, CXmlSerializationContext().GetMaxInflatedSize());
}

TEST(XmlDocumentStream, FilesLoadWholeAndFailuresCarryTheErrorNumber)
{
    const std::string path = OrvexTest::TempPath("document-stream.xml.gz");
    std::ofstream(path, std::ios::binary) << Gzip("<root><child/></root>");
    CXmlDocument document;
    document.Load(path.c_str());
    EXPECT_EQ("child", document.GetDocumentElement()->GetFirstElement()->GetLocalName());
    // A second load starts from the empty state.
    const std::string plain = "<other/>";
    document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(plain.data())),
                           static_cast<unsigned long>(plain.size()));
    EXPECT_EQ("other", document.GetDocumentElement()->GetLocalName());
    EXPECT_EQ(nullptr, document.GetDocumentElement()->GetFirstElement());

    const std::string empty = OrvexTest::TempPath("document-stream-empty.xml");
    std::ofstream(empty).close();
    const std::string missing = OrvexTest::TempPath("document-stream-missing.xml");
    const std::pair<std::string, std::string> failures[] = {
        {missing, "Failed to open the file [" + missing + "] Error [0x00000002]"},
        {OrvexTest::TempPath("."), "Failed to read the contents of the file [" + OrvexTest::TempPath(".") +
                                       "] Error [0x00000015]"},
        {empty, "Invalid or empty XML document"},
    };
    for (const auto& f : failures) {  // (bindings can't be captured by the check's lambda)
        EXPECT_THROW_MSG(document.Load(f.first.c_str()), COrvexException, f.second);
        EXPECT_EQ(nullptr, document.GetDocumentElement());
    }
    EXPECT_THROW_MSG(document.LoadXmlStream(nullptr, 5), COrvexException, "XML Stream is empty!");
}
