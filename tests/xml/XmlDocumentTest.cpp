#include "orvexxml/xml/XmlDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestUtil.h"

using namespace OrvexXmlLib5;

namespace {

std::vector<const CXmlElement*> Children(const CXmlElement* parent)
{
    std::vector<const CXmlElement*> children;
    for (const CXmlElement* child = parent->GetFirstElement(); child; child = child->GetNextSiblingElement())
        children.push_back(child);
    return children;
}

std::u16string Wide(const std::string& ascii) { return std::u16string(ascii.begin(), ascii.end()); }

const unsigned short* Units(const std::u16string& text) { return reinterpret_cast<const unsigned short*>(text.c_str()); }

}  // namespace

TEST(XmlDocument, TextJoinsPiecesAroundChildElementsWithAllBlanks)
{
    CXmlDocument document;
    document.LoadXml("<a> x <b/> y </a>");
    const CXmlElement* a = document.GetDocumentElement();
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->GetLocalName(), "a");
    EXPECT_EQ(a->GetText(), " x  y ");
    ASSERT_EQ(Children(a).size(), 1u);
    EXPECT_EQ(a->GetFirstElement()->GetLocalName(), "b");
    EXPECT_EQ(a->GetFirstElement()->GetText(), "");
    EXPECT_EQ(a->GetFirstElement()->GetDocument(), &document);
    EXPECT_EQ(a->GetNextSiblingElement(), nullptr);
}

TEST(XmlDocument, TextDropsEveryCarriageReturnAndKeepsTabsAndLineFeeds)
{
    struct Case
    {
        const char* xml;
        const char* text;
    } cases[] = {
        {"<a>1&#13;2&#xD;3</a>", "123"},
        {"<a>\t1\n2\r\n3\r4</a>", "\t1\n2\n3\n4"},  // the parser itself turns line ends into LF
        {"<a>x&amp;y<![CDATA[<z>\r\n]]>&#x41;&lt;</a>", "x&y<z>\nA<"},
        {"<a>&#13;</a>", ""},
    };
    for (const Case& c : cases) {
        CXmlDocument document;
        document.LoadXml(c.xml);
        EXPECT_EQ(document.GetDocumentElement()->GetText(), c.text) << c.xml;
    }
}

TEST(XmlDocument, LongTextInManyChunksArrivesWhole)
{
    std::string expected;
    std::string xml = "<a>";
    for (int i = 0; i < 20000; ++i) {
        xml += "line&amp;" + std::to_string(i) + "\n";
        expected += "line&" + std::to_string(i) + "\n";
    }
    xml += "</a>";
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    EXPECT_EQ(document.GetDocumentElement()->GetText(), expected);
}

TEST(XmlDocument, NamesNamespacesAndAttributesInDocumentOrder)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:d' xmlns:p='urn:p' p:x='1' y='2' z=''><p:c/><c xmlns=''/></r>");
    const CXmlElement* r = document.GetDocumentElement();
    EXPECT_EQ(r->GetNamespaceURI(), "urn:d");
    ASSERT_EQ(r->GetAttributes().size(), 3u);  // the declarations are not attributes
    EXPECT_EQ(r->GetAttributes()[0]->GetLocalName(), "x");
    EXPECT_EQ(r->GetAttributes()[0]->GetNamespaceURI(), "urn:p");
    EXPECT_EQ(r->GetAttributes()[1]->GetLocalName(), "y");
    EXPECT_EQ(r->GetAttributes()[1]->GetNamespaceURI(), "");  // no default namespace for attributes
    EXPECT_EQ(r->GetAttribute("x", "urn:p"), "1");
    EXPECT_EQ(r->GetAttribute("x", ""), "");
    EXPECT_EQ(r->GetAttribute("y", ""), "2");
    // Absent and empty read the same.
    EXPECT_EQ(r->GetAttribute("z", ""), "");
    EXPECT_EQ(r->GetAttribute("missing", ""), "");
    auto children = Children(r);
    ASSERT_EQ(children.size(), 2u);
    EXPECT_EQ(children[0]->GetNamespaceURI(), "urn:p");
    EXPECT_EQ(children[0]->GetLocalName(), "c");
    EXPECT_EQ(children[1]->GetNamespaceURI(), "");
}

TEST(XmlDocument, PrefixTableKeepsTheLastDeclarationForTheWholeDocument)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:d' xmlns:p='urn:one'><p:x/><y xmlns:p='urn:two' xmlns=''/></r>");
    // The element itself keeps the URI that was in scope; the table does not scope.
    EXPECT_EQ(document.GetDocumentElement()->GetFirstElement()->GetNamespaceURI(), "urn:one");
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "urn:two");
    EXPECT_EQ(document.LookupNamespaceFromAlias(""), "");  // undeclared by the later xmlns=''
    EXPECT_EQ(document.LookupNamespaceFromAlias(nullptr), "");
    EXPECT_EQ(document.LookupNamespaceFromAlias("unknown"), "");
    EXPECT_EQ(document.GetPrefixTable().size(), 2u);
}

TEST(XmlDocument, NamespaceAttributesAreTheSchemaInstanceOnes)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:o='urn:o' xsi:type='t' "
                     "xsi:schemaLocation='a b' xsi:noNamespaceSchemaLocation='c' xsi:nil='true' type='u' o:type='v'/>");
    std::vector<bool> flags;
    for (const CXmlAttribute* attribute : document.GetDocumentElement()->GetAttributes())
        flags.push_back(attribute->IsNamespaceAttribute());
    EXPECT_EQ(flags, (std::vector<bool>{true, true, true, false, false, false}));
}

TEST(XmlDocument, FailuresGiveTheLibraryOrParserText)
{
    struct Case
    {
        const char* xml;
        const char* message;
    } cases[] = {
        {nullptr, "XML String is empty!"},
        {"", "XML String is empty!"},
        {"   \n ", "Invalid or empty XML document"},
        {"<?xml version='1.0'?>", "Invalid or empty XML document"},
        {"<!-- only a comment -->", "Invalid or empty XML document"},
        {"<a></b>", "mismatched tag at line 1"},
        {"<a>\n<b>\n</c>", "mismatched tag at line 3"},
        {"<p:a/>", "unbound prefix at line 1"},
        {"<a p:x='1'/>", "unbound prefix at line 1"},
        {"<?xml version='1.0' encoding='KOI8-R'?><a/>", "unknown encoding at line 1"},
        {"<a>&foo;</a>", "undefined entity at line 1"},
        {"<a/><b/>", "junk after document element at line 1"},
        {"<a x='1' x='2'/>", "duplicate attribute at line 1"},
        {"<a>\n\n<1/></a>", "not well-formed (invalid token) at line 3"},
        {"\xFF\xFE<\0a\0/\0>\0", "Invalid or empty XML document"},  // narrow text ends at its first NUL
    };
    for (const Case& c : cases) {
        CXmlDocument document;
        EXPECT_THROW_MSG(document.LoadXml(c.xml), COrvexException, c.message) << (c.xml ? c.xml : "(null)");
    }
}

TEST(XmlDocument, CutShortDocumentsLoadWhatWasRead)
{
    struct Case
    {
        const char* xml;
        std::vector<std::string> names;  // document element, then its children
    } cases[] = {
        {"<a><b>", {"a", "b"}},
        {"<a><b></b><c x='1'/><d>te", {"a", "b", "c", "d"}},
        {"<a><b/><c", {"a", "b"}},
        {"<a", {}},
    };
    for (const Case& c : cases) {
        CXmlDocument document;
        if (c.names.empty()) {
            EXPECT_THROW_MSG(document.LoadXml(c.xml), COrvexException, "Invalid or empty XML document");
            continue;
        }
        document.LoadXml(c.xml);
        std::vector<std::string> names{document.GetDocumentElement()->GetLocalName()};
        for (const CXmlElement* child : Children(document.GetDocumentElement())) names.push_back(child->GetLocalName());
        EXPECT_EQ(names, c.names) << c.xml;
    }
}

TEST(XmlDocument, ReloadStartsFromEmpty)
{
    CXmlDocument document;
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
    document.LoadXml("<a xmlns:p='urn:p'><b/></a>");
    document.LoadXml("<c/>");
    EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), "c");
    EXPECT_EQ(document.GetDocumentElement()->GetFirstElement(), nullptr);
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "");
    EXPECT_THROW_MSG(document.LoadXml(""), COrvexException, "XML String is empty!");
    EXPECT_EQ(document.GetDocumentElement(), nullptr);
    // A parser failure keeps what was delivered before it.
    EXPECT_THROW_MSG(document.LoadXml("<a><b/></c>"), COrvexException, "mismatched tag at line 1");
    ASSERT_NE(document.GetDocumentElement(), nullptr);
    EXPECT_EQ(document.GetDocumentElement()->GetFirstElement()->GetLocalName(), "b");
}

TEST(XmlDocument, Utf16TextWithAndWithoutDeclaration)
{
    struct Case
    {
        std::u16string xml;
        const char* message;  // null when the load succeeds
    } cases[] = {
        {u"<a>\u00E9\u20AC\U0001F600</a>", nullptr},
        {Wide("<?xml version='1.0'?><a>x</a>"), nullptr},
        {Wide("<?xml version='1.0' encoding='UTF-16'?><a>x</a>"), nullptr},
        {Wide("<?xml version='1.0' encoding='UTF-8'?><a>x</a>"),
         "encoding specified in XML declaration is incorrect at line 1"},
        {Wide("<?xml version='1.0' encoding='ISO-8859-1'?><a>x</a>"),
         "encoding specified in XML declaration is incorrect at line 1"},
        {u"", "Invalid or empty XML document"},
        {Wide("<a>\n</b>"), "mismatched tag at line 2"},
    };
    for (const Case& c : cases) {
        CXmlDocument document;
        if (c.message) {
            EXPECT_THROW_MSG(document.LoadXml(Units(c.xml)), COrvexException, c.message);
            continue;
        }
        document.LoadXml(Units(c.xml));
        EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), "a");
    }
    CXmlDocument document;
    document.LoadXml(Units(u"<a>\u00E9\u20AC\U0001F600</a>"));
    EXPECT_EQ(document.GetDocumentElement()->GetText(), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_THROW_MSG(document.LoadXml(static_cast<const unsigned short*>(nullptr)), COrvexException,
                     "Invalid or empty XML document");
}

TEST(XmlDocument, ByteOrderMarksAndDeclaredEncodings)
{
    CXmlDocument document;
    document.LoadXml("\xEF\xBB\xBF<a>\xC3\xA9</a>");
    EXPECT_EQ(document.GetDocumentElement()->GetText(), "\xC3\xA9");
    document.LoadXml("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>");
    EXPECT_EQ(document.GetDocumentElement()->GetText(), "\xC3\xA9");
}

TEST(XmlDocument, ThreeHundredCharacterNamesLikeShortOnes)
{
    const std::string name(300, 'n');
    const std::string uri = "urn:" + std::string(300, 'u');
    const std::string xml = "<" + name + " xmlns='" + uri + "' " + name + "='" + std::string(300, 'v') + "'>" +
                            std::string(300, 't') + "</" + name + ">";
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ(root->GetLocalName(), name);
    EXPECT_EQ(root->GetNamespaceURI(), uri);
    EXPECT_EQ(root->GetAttribute(name, ""), std::string(300, 'v'));
    EXPECT_EQ(root->GetText(), std::string(300, 't'));
}

TEST(XmlDocument, HundredThousandLevelsOfNestingLoadAndRelease)
{
    const int depth = 100000;
    std::string xml;
    xml.reserve(depth * 8);
    for (int i = 0; i < depth; ++i) xml += "<e>";
    xml += "deep";
    for (int i = 0; i < depth; ++i) xml += "</e>";
    {
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        const CXmlElement* element = document.GetDocumentElement();
        int levels = 1;
        while (element->GetFirstElement()) {
            element = element->GetFirstElement();
            ++levels;
        }
        EXPECT_EQ(levels, depth);
        EXPECT_EQ(element->GetText(), "deep");
    }
    // Cut short at full depth: the open elements are released as well.
    CXmlDocument document;
    document.LoadXml(xml.substr(0, depth * 3).c_str());
    EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), "e");
}

TEST(XmlDocument, HundredThousandSiblingsLoadAndRelease)
{
    const int count = 100000;
    std::string xml = "<r>";
    for (int i = 0; i < count; ++i) xml += "<s i='" + std::to_string(i) + "'/>";
    xml += "</r>";
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    int seen = 0;
    for (const CXmlElement* child = document.GetDocumentElement()->GetFirstElement(); child;
         child = child->GetNextSiblingElement(), ++seen)
        if (child->GetAttribute("i", "") != std::to_string(seen)) break;
    EXPECT_EQ(seen, count);
}

TEST(XmlDocument, WithoutNamespaceProcessingPrefixesStayInNames)
{
    CXmlDocument document(SchemaType_NoNamespaces);
    document.LoadXml("<a:b xmlns:a='u'/>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ(root->GetLocalName(), "a:b");
    EXPECT_EQ(root->GetNamespaceURI(), "");
    ASSERT_EQ(root->GetAttributes().size(), 1u);
    EXPECT_EQ(root->GetAttributes()[0]->GetLocalName(), "xmlns:a");
    EXPECT_EQ(root->GetAttributes()[0]->GetValue(), "u");
    EXPECT_EQ(root->GetAttributes()[0]->GetNamespaceURI(), "");
    EXPECT_EQ(document.LookupNamespaceFromAlias("a"), "");
    // An undeclared prefix is no error without namespace processing.
    document.LoadXml("<p:a q:x='1'/>");
    EXPECT_EQ(document.GetDocumentElement()->GetAttribute("q:x", ""), "1");
}
