#include "orvexxml/xml/XmlWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "TestUtil.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexXmlLib5;

namespace {

// Opens the protected helpers of the writer core.
class PrefixProbe : public CXmlTextWriter
{
public:
    using CXmlWriter::GetUniquePrefix;
    using CXmlWriter::NsIntToString;
    CXmlWriterContext* Current() const { return m_currentContext; }
};

TEST(XmlWriterPrefixes, NsIntToStringCountsInBase26)
{
    const std::pair<int, const char*> cases[] = {
        {0, "AA"}, {1, "AB"}, {25, "AZ"}, {26, "BA"}, {27, "BB"}, {675, "ZZ"}, {676, "BAA"}, {677, "BAB"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.second, PrefixProbe::NsIntToString(c.first)) << c.first;
}

TEST(XmlWriterPrefixes, UniquePrefixIsFirstFreeOverAllValues)
{
    struct Case
    {
        CXmlWriter::NamespaceMap map;
        const char* expected;
    };
    const Case cases[] = {
        {{}, "AA"},
        {{{"urn:a", "AA"}, {"urn:b", "AB"}}, "AC"},
        {{{"urn:a", "AA"}, {"urn:c", "AC"}}, "AB"},
        {{{"urn:z", "AA"}, {"urn:a", "x"}, {"urn:b", "AAA"}}, "AB"},
        {{{"urn:a", "AB"}, {"urn:b", "aa"}}, "AA"},
    };
    for (const Case& c : cases) EXPECT_EQ(c.expected, PrefixProbe::GetUniquePrefix(c.map));

    CXmlWriter::NamespaceMap full;
    for (int i = 0; i < 676; ++i) full["urn:" + std::to_string(i)] = PrefixProbe::NsIntToString(i);
    EXPECT_EQ("BAA", PrefixProbe::GetUniquePrefix(full));
    full["urn:more"] = "BAA";
    EXPECT_EQ("BAB", PrefixProbe::GetUniquePrefix(full));
}

TEST(XmlWriterContext, ChildSharesScopeUntilItChanges)
{
    CXmlWriter::NamespaceMap rootMap{{"urn:r", "r"}};
    auto* root = new CXmlWriter::CXmlWriterContext("root", "", "urn:d", rootMap, nullptr);
    auto* child = new CXmlWriter::CXmlWriterContext("child", "", root);
    auto* grandChild = new CXmlWriter::CXmlWriterContext("grand", "", child);
    EXPECT_EQ(0, root->m_depth);
    EXPECT_EQ(2, grandChild->m_depth);
    EXPECT_TRUE(grandChild->InheritsScope());
    EXPECT_EQ(&root->GetNamespaceMap(), &grandChild->GetNamespaceMap());
    EXPECT_EQ("urn:d", grandChild->GetDefaultNamespace());

    child->AddNamespace("urn:c", "c");
    EXPECT_FALSE(child->InheritsScope());
    EXPECT_EQ("urn:d", child->GetDefaultNamespace());
    EXPECT_EQ(2u, grandChild->GetNamespaceMap().size());
    EXPECT_EQ(1u, root->GetNamespaceMap().size());

    grandChild->SetDefaultNamespace("urn:g");
    EXPECT_EQ("urn:g", grandChild->GetDefaultNamespace());
    EXPECT_EQ("urn:d", child->GetDefaultNamespace());
    EXPECT_EQ("c", grandChild->GetNamespaceMap().at("urn:c"));
    EXPECT_EQ("r", grandChild->GetPrefix("urn:r"));
    // Deleting the innermost context deletes the whole chain.
    delete grandChild;
}

TEST(XmlWriterContext, DetachedParentSurvivesChild)
{
    auto* root = new CXmlWriter::CXmlWriterContext("root", "", "", {}, nullptr);
    auto* child = new CXmlWriter::CXmlWriterContext("child", "", root);
    EXPECT_EQ(root, child->DetachParent());
    delete child;
    EXPECT_EQ("root", root->m_localName);
    delete root;
}

TEST(XmlWriterScopes, SiblingsRedeclareUndeclaredNamespace)
{
    CXmlTextWriter writer;
    writer.SetFormatted(false);
    writer.WriteStartElement("root", "");
    writer.WriteStartElement("a", "urn:n");
    writer.WriteEndElement();
    writer.WriteStartElement("b", "urn:n");
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<root><AA:a xmlns:AA=\"urn:n\"/><AA:b xmlns:AA=\"urn:n\"/></root>", writer.GetString());
}

TEST(XmlWriterScopes, DeclarationPassesToDescendants)
{
    CXmlTextWriter writer;
    writer.SetFormatted(false);
    writer.WriteStartElement("root", "");
    writer.WriteStartElement("a", "urn:n");
    writer.WriteStartElement("b", "urn:n");
    writer.WriteAttribute("at", "urn:n", "1");
    writer.WriteStartElement("c", "urn:m");
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteStartElement("d", "urn:m");
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteEndDocument();
    EXPECT_EQ("<root><AA:a xmlns:AA=\"urn:n\"><AA:b AA:at=\"1\"><AB:c xmlns:AB=\"urn:m\"/></AA:b>"
              "<AB:d xmlns:AB=\"urn:m\"/></AA:a></root>",
              writer.GetString());
}

TEST(XmlWriterScopes, ScopeChangesGoToOpenElementOrRoot)
{
    PrefixProbe writer;
    writer.SetFormatted(false);
    writer.AddNamespace("r", "urn:r");
    writer.WriteStartElement("root", "urn:r");
    writer.WriteStartElement("a", "");
    writer.AddNamespace("q", "urn:q");
    writer.SetDefaultNamespace("urn:d");
    EXPECT_FALSE(writer.Current()->InheritsScope());
    writer.WriteStartElement("b", "urn:q");
    writer.WriteStartElement("c", "urn:d");
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteStartElement("e", "urn:q");
    writer.WriteEndElement();
    writer.WriteEndElement();
    // Declarations made through AddNamespace on an open element are not written by it.
    EXPECT_EQ("<r:root xmlns:r=\"urn:r\"><a><q:b><c/></q:b></a><AA:e xmlns:AA=\"urn:q\"/></r:root>",
              writer.GetString());
}

TEST(XmlWriterDocument, EndDocumentChecksOpenElements)
{
    CXmlTextWriter writer;
    writer.WriteEndDocument();
    writer.WriteStartElement("root", "");
    writer.WriteStartElement("child", "");
    EXPECT_EQ(2, writer.GetOpenElementCount());
    writer.WriteEndElement();
    EXPECT_THROW_MSG(writer.WriteEndDocument(), COrvexException, "An Element has not been closed.");
    writer.WriteEndElement();
    EXPECT_EQ(0, writer.GetOpenElementCount());
    writer.WriteEndDocument();
    writer.WriteEndDocument();
}

TEST(XmlWriterDocument, DestroyedInMidDocumentReleasesOpenElements)
{
    // The sanitizer build reports any context that is left behind.
    try {
        CXmlTextWriter writer;
        writer.AddNamespace("x", "urn:x");
        writer.WriteStartElement("root", "urn:x");
        for (int i = 0; i < 200; ++i) {
            writer.WriteStartElement("level", i % 2 ? "urn:y" : "urn:z");
            writer.AddNamespace("p" + std::to_string(i), "urn:p");
        }
        writer.WriteText("text");
        writer.WriteAttribute("late", "", "1");
        FAIL() << "attribute after text was accepted";
    } catch (const COrvexException& e) {
        EXPECT_EQ("Attributes must be added before elements", e.GetMessage());
    }
}

}  // namespace
