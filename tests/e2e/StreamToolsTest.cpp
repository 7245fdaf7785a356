// What the library writes is taken by other tools: gzip and Python's zlib and gzip
// modules unpack it to the very text, xmllint accepts the XML in each encoding, and
// the Java Fast Infoset decoder reads the Fast Infoset back to the same objects.
// A tool that is not installed skips its rows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "TestUtil.h"
#include "examples/ExamplePaths.h"
#include "examples/purchase-order/PurchaseOrder.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

namespace {

std::string ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

bool HasTool(const std::string& name)
{
    return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

int RunTool(const std::string& command)
{
    return std::system((command + " 2>/dev/null").c_str());
}

std::string Quote(const std::string& path)
{
    return "'" + path + "'";
}

// xmllint's diagnostics, empty when it takes the file; it reports namespace errors
// without failing, so its exit code alone says too little.
std::string Lint(const std::string& path)
{
    const std::string errors = OrvexTest::TempPath("tools-lint.err");
    const int status = std::system(("xmllint --noout " + Quote(path) + " 2> " + Quote(errors)).c_str());
    return (status == 0 ? std::string() : "exit status " + std::to_string(status) + "\n") + ReadBytes(errors);
}

// The checker beside this repository, or one on the path.
std::string FiOracle()
{
    if (HasTool("fi-oracle")) return "fi-oracle";
    const std::string beside = ExamplePath("../../shared/tools/fi-oracle/fi-oracle");
    return std::ifstream(beside).good() ? beside : std::string();
}

CSmartPtr<CPurchaseOrder> SampleOrder()
{
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    order->FromXmlFile(ExamplePath("purchase-order/po.xml").c_str());
    order->SetComment("Gr\xC3\xBC\xC3\x9F" "e \xE2\x82\xAC");
    return order;
}

}  // namespace

TEST(StreamTools, CompressedOutputUnpacksWithGzipAndPython)
{
    CSmartPtr<CPurchaseOrder> order = SampleOrder();
    const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext();
    const std::string packed = OrvexTest::TempPath("tools-packed.bin");
    const std::string unpacked = OrvexTest::TempPath("tools-unpacked.xml");
    const struct
    {
        const char* tool;
        const char* command;  // %in and %out are the file names
        CompressionType compression;
    } rows[] = {
        {"gzip", "gzip -dc %in > %out", Compression_GZIP},
        {"python3", "python3 -c \"import sys,gzip; open(sys.argv[2],'wb').write(gzip.open(sys.argv[1]).read())\" %in %out",
         Compression_GZIP},
        {"python3", "python3 -c \"import sys,zlib; open(sys.argv[2],'wb').write(zlib.decompress(open(sys.argv[1],'rb').read()))\" %in %out",
         Compression_ZLIB},
    };
    for (const auto& row : rows) {
        if (!HasTool(row.tool)) continue;
        for (XmlEncoding encoding : {Encoding_UTF8, Encoding_UTF16}) {
            SCOPED_TRACE(std::string(row.command) + " encoding " + std::to_string(encoding));
            const std::string text = order->ToXmlStream(true, true, encoding, EOL_LF, context).GetString();
            order->ToXmlStream(true, true, encoding, EOL_LF, context, row.compression)
                .ToFile(packed.c_str(), Encoding_Unspecified);
            std::string command = row.command;
            command.replace(command.find("%in"), 3, Quote(packed));
            command.replace(command.find("%out"), 4, Quote(unpacked));
            ASSERT_EQ(0, RunTool(command));
            EXPECT_EQ(text, ReadBytes(unpacked));
        }
    }
}

TEST(StreamTools, XmllintAcceptsTheTextInEveryEncoding)
{
    if (!HasTool("xmllint")) GTEST_SKIP() << "xmllint is not installed";
    CSmartPtr<CPurchaseOrder> order = SampleOrder();
    const std::string path = OrvexTest::TempPath("tools-lint.xml");
    for (XmlEncoding encoding : {Encoding_UTF8, Encoding_UTF16, Encoding_UTF16_NoDeclaration})
        for (bool header : {true, false}) {
            order->ToXmlFile(path.c_str(), header, true, encoding, EOL_CRLF);
            EXPECT_EQ("", Lint(path)) << encoding << " header " << header;
        }

    // Names in the XML namespace come out with the prefix xml and no declaration.
    CXmlTextWriter writer;
    writer.WriteStartDocument(Encoding_UTF8);
    writer.WriteStartElement("root", "urn:r");
    writer.WriteAttribute("lang", "http://www.w3.org/XML/1998/namespace", "en");
    writer.WriteAttribute("space", "http://www.w3.org/XML/1998/namespace", "preserve");
    writer.WriteEndElement();
    writer.WriteEndDocument();
    writer.GetBytes(Encoding_UTF8).ToFile(path.c_str(), Encoding_UTF8);
    EXPECT_EQ("", Lint(path));
}

TEST(StreamTools, FastInfosetOutputDecodesWithTheJavaLibrary)
{
    const std::string oracle = FiOracle();
    if (oracle.empty()) GTEST_SKIP() << "fi-oracle is not available";
    CSmartPtr<CPurchaseOrder> order = SampleOrder();
    const std::string finf = OrvexTest::TempPath("tools.finf");
    const std::string xml = OrvexTest::TempPath("tools-from-fi.xml");
    for (CompressionType compression : {Compression_None, Compression_GZIP}) {
        order->ToFastInfosetFile(finf.c_str(), FInfoDecl_V10, CXmlSerializationContext::GetDefaultContext(),
                                 compression);
        if (compression == Compression_GZIP) {
            ASSERT_EQ(0, RunTool("gzip -dc < " + Quote(finf) + " > " + Quote(finf + ".raw")));
        }
        const std::string raw = compression == Compression_GZIP ? finf + ".raw" : finf;
        ASSERT_EQ(0, RunTool(Quote(oracle) + " fi2xml " + Quote(raw) + " " + Quote(xml)));
        CSmartPtr<CPurchaseOrder> back = CPurchaseOrder::CreateInstance();
        back->FromXmlFile(xml.c_str());
        EXPECT_EQ(order->ToXml(false, false), back->ToXml(false, false));
    }
}
