// The writer's output against the Java Fast Infoset library, where java runs:
// the committed vectors are its bytes, and everything we write, from scripts and
// from generated classes, reads back in it as the same infoset as the XML text.
#include <gtest/gtest.h>

#include <string>

#include "FastInfosetTestSupport.h"
#include "examples/library/Library.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "orvexxml/fastinfoset/detail/WriterVocabulary.h"

using namespace OrvexXmlLib5;
using namespace OrvexTest;

namespace {

class FastInfosetOracle : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_oracle = OraclePath();
        if (m_oracle.empty()) GTEST_SKIP() << "java or fi-oracle is not available";
    }

    std::string Dump(const std::string& path) { return RunOracle(m_oracle, "dump '" + path + "'"); }

    // The Java library's view of our bytes equals its view of the XML.
    void ExpectSameInfoset(const std::string& name, const std::string& fastInfoset, const std::string& xml)
    {
        const std::string fiPath = TempPath(name + ".finf");
        const std::string xmlPath = TempPath(name + ".xml");
        WriteBinaryFile(fiPath, fastInfoset);
        WriteBinaryFile(xmlPath, xml);
        const std::string fromXml = Dump(xmlPath);
        ASSERT_EQ(fromXml.find("oracle failed"), std::string::npos) << name;
        EXPECT_EQ(Dump(fiPath), fromXml) << name;
    }

    std::string m_oracle;
};

TEST_F(FastInfosetOracle, VectorsAreTheJavaLibrarysBytesAndOursReadTheSame)
{
    const char* vectors[] = {"attribute-text", "siblings", "root-namespaces", "made-up-prefixes", "default-namespace",
                             "xml-prefix",     "xsi-type", "values",          "large",           "purchase-order"};
    for (const char* name : vectors) {
        const std::string xml = VectorPath(std::string(name) + ".xml");
        const std::string expected = ReadBinaryFile(VectorPath(std::string(name) + ".finf"));
        EXPECT_EQ(Hex(RunOracle(m_oracle, "xml2fi '" + xml + "' - --minimal --table-limit 6")), Hex(expected))
            << name;
        EXPECT_EQ(Dump(VectorPath(std::string(name) + ".finf")), Dump(xml)) << name;
    }
}

// Where the bytes part from the Java library's: a value of 5 characters in 10
// UTF-8 octets, which the Java library indexes (it counts characters) and we
// write out (we count octets). The infoset is the same.
TEST_F(FastInfosetOracle, ValuesCountedInOctetsReadTheSame)
{
    const std::string value = "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F\xC3\xA9";
    const std::string fi = WriteFastInfosetScript("D0|<r|@a=" + value + "|<c|@a=" + value + "|#" + value + "|>|#" +
                                                  value + "|>|E");
    ExpectSameInfoset("octets", fi,
                      "<r a=\"" + value + "\"><c a=\"" + value + "\">" + value + "</c>" + value + "</r>");
}

// Where the terminators part from the Java library's: an element with attributes
// and no content (see the writer's tests).
TEST_F(FastInfosetOracle, AttributeListEndsReadTheSame)
{
    ExpectSameInfoset("attribute-ends", WriteFastInfosetScript("D0|<r|<c|@k=v|>|<c|@k=w|>|>|E"),
                      "<r><c k=\"v\"/><c k=\"w\"/></r>");
}

TEST_F(FastInfosetOracle, GeneratedClassesWriteTheInfosetOfTheirXml)
{
    using namespace OrvexExamples;
    CSmartPtr<CPurchaseOrder> primer = CPurchaseOrder::CreateInstance();
    primer->FromXml(ReadTextFile(ExamplePath("purchase-order/po.xml")).c_str());
    ExpectSameInfoset("primer", primer->ToFastInfosetStream().GetString(), primer->ToXml(true, false, EOL_LF));

    CSmartPtr<CPurchaseOrder> large = MakeLargeOrder(500);
    ExpectSameInfoset("large-order", large->ToFastInfosetStream().GetString(), large->ToXml(true, false, EOL_LF));

    // Aliases and a default namespace from the context, xsi:type on members.
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    library->FromXml(ReadTextFile(ExamplePath("library/library.xml")).c_str());
    ExpectSameInfoset("library", library->ToFastInfosetStream().GetString(), library->ToXml(true, false, EOL_LF));
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add("lib", "urn:orvex:library");
    context.GetNamespaceAliases().Add("z", "urn:unused");
    context.SetDefaultNamespaceURI("urn:orvex:library");
    ExpectSameInfoset("library-aliases", library->ToFastInfosetStream(FInfoDecl_None, context).GetString(),
                      library->ToXml(true, false, EOL_LF, context));
}

// More distinct values than a vocabulary table holds: the Java library reads the
// literals past the limit as the values they are.
TEST_F(FastInfosetOracle, DocumentPastTheVocabularyLimitReadsBack)
{
    const std::uint32_t count = Detail::CWriterVocabulary::MaxEntries + 5;
    std::string script = "D0|<r", xml = "<r>";
    for (std::uint32_t n = 0; n < count; ++n) {
        // The last values repeat the first and the last entered ones.
        const std::uint32_t k = n + 3 >= count ? (n + 3 == count ? 0 : count - 4) : n;
        std::string value(5, 'a');
        for (std::uint32_t i = 5, rest = k; i-- > 0; rest /= 26) value[i] = static_cast<char>('a' + rest % 26);
        script += "|<c|#" + value + "|>";
        xml += "<c>" + value + "</c>";
    }
    ExpectSameInfoset("vocabulary-limit", WriteFastInfosetScript(script + "|>|E"), xml + "</r>");
}

}  // namespace
