#include "orvexxml/xml/XmlWriter.h"

#include <string>

#include "TestUtil.h"
#include "WriterScript.h"

using namespace OrvexXmlLib5;
using OrvexTest::WriteScript;

namespace {

// Opens the protected helpers of the writer core.
class PrefixProbe : public CXmlTextWriter
{
public:
    using CXmlWriter::GetUniquePrefix;
    using CXmlWriter::NsIntToString;
};

TEST(XmlWriterPrefixes, NamesAndFirstFreePrefix)
{
    const std::pair<int, const char*> names[] = {{0, "AA"}, {1, "AB"}, {26, "BA"}, {675, "ZZ"}, {676, "BAA"}};
    for (const auto& c : names) EXPECT_EQ(c.second, PrefixProbe::NsIntToString(c.first)) << c.first;

    const std::pair<CXmlWriter::NamespaceMap, const char*> maps[] = {
        {{}, "AA"},
        {{{"urn:a", "AA"}, {"urn:b", "AB"}}, "AC"},
        {{{"urn:a", "AA"}, {"urn:c", "AC"}}, "AB"},
        {{{"urn:z", "AA"}, {"urn:a", "x"}, {"urn:b", "AAA"}, {"urn:c", "aa"}}, "AB"},
    };
    for (const auto& c : maps) EXPECT_EQ(c.second, PrefixProbe::GetUniquePrefix(c.first));
    CXmlWriter::NamespaceMap full;
    for (int i = 0; i < 677; ++i) full["urn:" + std::to_string(i)] = PrefixProbe::NsIntToString(i);
    EXPECT_EQ("BAB", PrefixProbe::GetUniquePrefix(full));
}

TEST(XmlWriterContext, ChildSharesScopeUntilItChanges)
{
    auto* root = new CXmlWriter::CXmlWriterContext("root", "", "urn:d", {{"urn:r", "r"}}, nullptr);
    auto* child = new CXmlWriter::CXmlWriterContext("child", "", root);
    auto* grandChild = new CXmlWriter::CXmlWriterContext("grand", "", child);
    EXPECT_EQ(2, grandChild->m_depth);
    EXPECT_EQ(&root->GetNamespaceMap(), &grandChild->GetNamespaceMap());
    child->AddNamespace("urn:c", "c");
    EXPECT_EQ("urn:d", child->GetDefaultNamespace());
    EXPECT_EQ(2u, grandChild->GetNamespaceMap().size());
    EXPECT_EQ(1u, root->GetNamespaceMap().size());
    grandChild->SetDefaultNamespace("urn:g");
    EXPECT_EQ("urn:d", child->GetDefaultNamespace());
    EXPECT_EQ("c", grandChild->GetPrefix("urn:c"));
    EXPECT_EQ(child, grandChild->DetachParent());
    delete grandChild;
    // Deleting a context deletes its parent chain.
    delete child;
}

TEST(XmlWriterScopes, DeclarationsLiveAndDieWithTheirElement)
{
    const std::pair<const char*, const char*> cases[] = {
        // Descendants use an ancestor's prefix and declare nothing.
        {"<root|<a urn:n|<b urn:n|@at urn:n=1|<c urn:m|>|>|<d urn:m|>|>|>",
         "<root><AA:a xmlns:AA=\"urn:n\"><AA:b AA:at=\"1\"><AB:c xmlns:AB=\"urn:m\"/></AA:b>"
         "<AB:d xmlns:AB=\"urn:m\"/></AA:a></root>"},
        // AddNamespace and SetDefaultNamespace on an open element are declared on the
        // next element started and hold in its scope only.
        {"+r urn:r|<root urn:r|<a|+q urn:q|=urn:d|@at urn:q=1|<b urn:q|<c urn:d|>|>|<e urn:q|>|>|>",
         "<r:root xmlns:r=\"urn:r\"><a xmlns:AA=\"urn:q\" AA:at=\"1\"><q:b xmlns=\"urn:d\" xmlns:q=\"urn:q\"><c/>"
         "</q:b><AA:e/></a></r:root>"},
        // A prefix declared again for another URI hides the outer one below it.
        {"+p urn:a|<root urn:a|+p urn:b|<x urn:b|<y urn:a|>|>|>",
         "<p:root xmlns:p=\"urn:a\"><p:x xmlns:p=\"urn:b\"><AA:y xmlns:AA=\"urn:a\"/></p:x></p:root>"},
        // Namespace URIs are escaped like attribute values wherever they are declared.
        {"+p u&<\"|=d&<\"|<root u&<\"|@a x\">=1|<c|=z<|<d|>|>|>",
         "<p:root xmlns=\"d&amp;&lt;&quot;\" xmlns:p=\"u&amp;&lt;&quot;\" xmlns:AA=\"x&quot;&gt;\" AA:a=\"1\"><c>"
         "<d xmlns=\"z&lt;\"/></c></p:root>"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.second, WriteScript(c.first)) << c.first;
}

TEST(XmlWriterDocument, EndDocumentChecksOpenElements)
{
    CXmlTextWriter writer;
    OrvexTest::RunWriterScript(writer, "E|<root|<child|>");
    EXPECT_EQ(1, writer.GetOpenElementCount());
    EXPECT_THROW_MSG(writer.WriteEndDocument(), COrvexException, "An Element has not been closed.");
    OrvexTest::RunWriterScript(writer, ">|E|E");
    EXPECT_EQ(0, writer.GetOpenElementCount());
}

TEST(XmlWriterDocument, DestroyedInMidDocumentReleasesOpenElements)
{
    // The sanitizer build reports any context or map that is left behind.
    std::string script = "+x urn:x|<root urn:x";
    for (int i = 0; i < 200; ++i) script += std::string("|<level urn:") + (i % 2 ? "y" : "z") + "|+p urn:p";
    EXPECT_THROW_MSG(WriteScript(script + "|#text|@late=1"), COrvexException,
                     "Attributes must be added before elements");
}

}  // namespace
