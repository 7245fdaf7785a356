// Every way out and back in through the byte and file entry points: the examples
// written in each form, encoding and compression, to bytes and to files, read back
// through each reading entry point with no option set, must give objects that
// write the same text as the originals. And what the library writes is taken by
// other tools: gzip and Python's zlib and gzip modules unpack it to the very text,
// xmllint accepts the XML in each encoding, and the Java Fast Infoset decoder reads
// the Fast Infoset back to the same objects; a tool that is not installed skips its rows.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "TestUtil.h"
#include "examples/ExamplePaths.h"
#include "examples/library/Library.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

namespace {

bool FileExists(const std::string& path)
{
    return std::ifstream(path).good();
}

// The Primer's order with text beyond ASCII and characters to escape put in.
CSmartPtr<CPurchaseOrder> SampleOrder()
{
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    order->FromXmlFile(ExamplePath("purchase-order/po.xml").c_str());
    order->SetComment("Gr\xC3\xBC\xC3\x9F" "e & <Dank> \xE2\x82\xAC 5");
    return order;
}

// An example object read from its sample file, with text beyond ASCII put in,
// and a way to make an empty object of its class.
struct CExample
{
    const char* name;
    CSmartPtr<CXmlGeneratedClass> object;
    std::function<CSmartPtr<CXmlGeneratedClass>()> fresh;
};

std::vector<CExample> Examples()
{
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    library->FromXmlFile(ExamplePath("library/library.xml").c_str());
    library->SetName("Biblioth\xC3\xA8que \xE2\x80\x93 \xE5\x9B\xB3\xE6\x9B\xB8 \xF0\x9F\x93\x9A");
    return {{"library", library, [] { return CSmartPtr<CXmlGeneratedClass>(CLibrary::CreateInstance()); }},
            {"purchase-order", SampleOrder(),
             [] { return CSmartPtr<CXmlGeneratedClass>(CPurchaseOrder::CreateInstance()); }}};
}

enum Form { Form_Text, Form_FastInfoset };
enum Source { Source_Pointer, Source_BinaryData, Source_File };

struct COutput
{
    Form form;
    XmlEncoding encoding;  // text only
    bool header;           // text: declaration; Fast Infoset: FInfoDecl_V10 instead of none
    CompressionType compression;
    bool toFile;
};

std::string Describe(const CExample& example, const COutput& out, Source source)
{
    return std::string(example.name) + (out.form == Form_Text ? " text enc " + std::to_string(out.encoding) : " fi") +
           (out.header ? " header" : "") + " compression " + std::to_string(out.compression) +
           (out.toFile ? " to file" : " to stream") + " read from " +
           std::vector<std::string>{"pointer", "CBinaryData", "file"}[source];
}

CBinaryData WriteStream(const CXmlGeneratedClass& object, const COutput& out)
{
    if (out.form == Form_Text)
        return object.ToXmlStream(out.header, true, out.encoding, EOL_CRLF,
                                  CXmlSerializationContext::GetDefaultContext(), out.compression);
    return object.ToFastInfosetStream(out.header ? FInfoDecl_V10 : FInfoDecl_None,
                                      CXmlSerializationContext::GetDefaultContext(), out.compression);
}

void WriteFile(const CXmlGeneratedClass& object, const COutput& out, const std::string& path)
{
    if (out.form == Form_Text)
        object.ToXmlFile(path.c_str(), out.header, true, out.encoding, EOL_CRLF,
                         CXmlSerializationContext::GetDefaultContext(), out.compression);
    else
        object.ToFastInfosetFile(path.c_str(), out.header ? FInfoDecl_V10 : FInfoDecl_None,
                                 CXmlSerializationContext::GetDefaultContext(), out.compression);
}

std::vector<COutput> Outputs()
{
    std::vector<COutput> outputs;
    for (bool toFile : {false, true})
        for (CompressionType compression : {Compression_None, Compression_GZIP, Compression_ZLIB})
            for (bool header : {true, false}) {
                for (XmlEncoding encoding : {Encoding_UTF8, Encoding_UTF16, Encoding_UTF16_NoDeclaration})
                    outputs.push_back({Form_Text, encoding, header, compression, toFile});
                outputs.push_back({Form_FastInfoset, Encoding_Unspecified, header, compression, toFile});
            }
    return outputs;
}

}  // namespace

TEST(StreamRoundTrip, EveryFormEncodingCompressionAndEntryPointReadsBackEqual)
{
    const std::string path = OrvexTest::TempPath("round-trip.out");
    int checked = 0;
    for (const CExample& example : Examples()) {
        const std::string expected = example.object->ToXml(false, false);
        for (const COutput& out : Outputs()) {
            std::remove(path.c_str());
            if (out.toFile && out.compression == Compression_ZLIB) {
                // Zlib is only for bytes: refused before the file is even created.
                EXPECT_THROW_MSG(WriteFile(*example.object, out, path), COrvexException,
                                 "ZLIB Compression only available for To Stream methods.");
                EXPECT_FALSE(FileExists(path));
                continue;
            }
            if (out.toFile) {
                WriteFile(*example.object, out, path);
                // The file is the stream, behind FF FE for UTF-16 even when compressed.
                const bool mark = out.form == Form_Text && out.encoding != Encoding_UTF8;
                const std::string stream = WriteStream(*example.object, out).GetString();
                EXPECT_EQ((mark ? std::string("\xFF\xFE") : std::string()) + stream, ReadTextFile(path));
            } else {
                WriteStream(*example.object, out).ToFile(path.c_str(), Encoding_Unspecified);
            }
            const std::string fileBytes = ReadTextFile(path);
            if (out.compression == Compression_GZIP) {
                const std::size_t at = out.toFile && out.encoding >= Encoding_UTF16 ? 2 : 0;
                EXPECT_EQ(at, fileBytes.find("\x1F\x8B"));
            }
            if (out.compression == Compression_ZLIB) {
                EXPECT_EQ('\x78', fileBytes[0]);
            }

            for (Source source : {Source_Pointer, Source_BinaryData, Source_File}) {
                SCOPED_TRACE(Describe(example, out, source));
                CSmartPtr<CXmlGeneratedClass> back = example.fresh();
                CBinaryData data(reinterpret_cast<unsigned char*>(const_cast<char*>(fileBytes.data())),
                                 static_cast<unsigned long>(fileBytes.size()), false);
                if (source == Source_Pointer) back->FromXmlStream(data.GetData(), data.GetLength());
                if (source == Source_BinaryData) back->FromXmlStream(data);
                if (source == Source_File) back->FromXmlFile(path.c_str());
                EXPECT_EQ(expected, back->ToXml(false, false));
                ++checked;
            }
        }
    }
    // 2 examples x (24 streams + 16 files that zlib leaves) x 3 sources.
    EXPECT_EQ(2 * (24 + 16) * 3, checked);
}

TEST(StreamRoundTrip, WrongArgumentsFailBeforeAnyFileIsWrittenAndFailuresNameTheCause)
{
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    EXPECT_THROW_MSG(library->FromXmlFile(nullptr), COrvexException,
                     "Failed to open the file [(null)] Error [0x00000016]");
    EXPECT_THROW_MSG(library->FromXmlStream(CBinaryData()), COrvexException, "XML Stream is empty!");
    library->FromXmlFile(ExamplePath("library/library.xml").c_str());
    const std::string path = OrvexTest::TempPath("refused.xml");
    std::remove(path.c_str());
    // Zlib to a file is refused in the round-trip test above, for both forms.
    const struct { std::function<void()> write; const char* message; } cases[] = {
        {[&] { library->ToXmlFile(path.c_str(), true, true, Encoding_UTF8, static_cast<EOLType>(2)); },
         "Invalid EOL type."},
        {[&] { library->ToXmlFile(path.c_str(), true, true, Encoding_Unspecified); },
         "Unknown Encoding, select UTF-8"},
        {[&] { library->ToXmlFile(path.c_str(), false, false, static_cast<XmlEncoding>(4)); },
         "Unknown Encoding, select UTF-8"},
    };
    for (const auto& c : cases) {
        EXPECT_THROW_MSG(c.write(), COrvexException, c.message);
        EXPECT_FALSE(FileExists(path)) << c.message;
    }
    // Text output takes Encoding_Unspecified for its declaration; bytes refuse it.
    EXPECT_EQ(0u, library->ToXml().find("<?xml version=\"1.0\"?>"));
    EXPECT_THROW_MSG(library->ToXmlStream(true, true, Encoding_Unspecified), COrvexException,
                     "Unknown Encoding, select UTF-8");

    // The file and stream failures name their cause; a missing file and a directory
    // are the document's own failures, tested there.
    EXPECT_THROW_MSG(library->ToXmlFile(OrvexTest::TempPath("no/such/dir/out.xml").c_str()), COrvexException,
                     "Failed to write data to the file [" + OrvexTest::TempPath("no/such/dir/out.xml") +
                         "] error [0x00000002]");
}

// --- other tools on what the library writes

namespace {

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
    return (status == 0 ? std::string() : "exit status " + std::to_string(status) + "\n") + ReadTextFile(errors);
}

// The checker beside this repository, or one on the path.
std::string FiOracle()
{
    if (HasTool("fi-oracle")) return "fi-oracle";
    const std::string beside = ExamplePath("../../shared/tools/fi-oracle/fi-oracle");
    return std::ifstream(beside).good() ? beside : std::string();
}

}  // namespace

TEST(StreamTools, CompressedOutputUnpacksWithGzipAndPython)
{
    CSmartPtr<CPurchaseOrder> order = SampleOrder();
    const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext();
    const std::string packed = OrvexTest::TempPath("tools-packed.bin");
    const std::string unpacked = OrvexTest::TempPath("tools-unpacked.xml");
    // In the commands %in and %out are the file names.
    const struct { const char* tool; const char* command; CompressionType compression; } rows[] = {
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
            EXPECT_EQ(text, ReadTextFile(unpacked));
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
