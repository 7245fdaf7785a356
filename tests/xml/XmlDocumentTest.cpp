#include "orvexxml/xml/XmlDocument.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "TestUtil.h"

using namespace OrvexXmlLib5;

namespace {

// Local names of the element and its children, in order.
std::vector<std::string> Names(const CXmlElement* element)
{
    std::vector<std::string> names{element->GetLocalName()};
    for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
        names.push_back(child->GetLocalName());
    return names;
}

const unsigned short* Units(const std::u16string& text) { return reinterpret_cast<const unsigned short*>(text.c_str()); }

}  // namespace

TEST(XmlDocument, TextJoinsDirectCharacterDataWithoutCarriageReturns)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<a> x <b>in b</b> y </a>", " x  y "},
        {"<a>1&#13;2&#xD;3</a>", "123"},
        {"<a>\t1\n2\r\n3\r4</a>", "\t1\n2\n3\n4"},  // the parser turns line ends into LF
        {"<a>x&amp;y<![CDATA[<z>]]>&#x41;&lt;</a>", "x&y<z>A<"},
    };
    for (const auto& [xml, text] : cases) {
        CXmlDocument document;
        document.LoadXml(xml);
        EXPECT_EQ(document.GetDocumentElement()->GetText(), text) << xml;
    }
}

TEST(XmlDocument, NamesNamespacesAttributesAndTheLastWinsPrefixTable)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:d' xmlns:p='urn:one' p:x='1' y='' xmlns:xsi='http://www.w3.org/2001/"
                     "XMLSchema-instance' xsi:type='t' xsi:nil='1'><p:c/><c xmlns:p='urn:two' xmlns=''/></r>");
    const CXmlElement* r = document.GetDocumentElement();
    EXPECT_EQ(r->GetNamespaceURI(), "urn:d");
    EXPECT_EQ(r->GetFirstElement()->GetDocument(), &document);
    ASSERT_EQ(r->GetAttributes().size(), 4u);  // declarations are not attributes
    EXPECT_EQ(r->GetAttributes()[1]->GetNamespaceURI(), "");  // no default namespace for attributes
    EXPECT_EQ(r->GetAttribute("x", "urn:one"), "1");
    // Absent, in another namespace, and empty all read the same.
    EXPECT_EQ(r->GetAttribute("x", ""), "");
    EXPECT_EQ(r->GetAttribute("y", ""), "");
    // Found by name, an attribute tells an empty value from none at all.
    EXPECT_EQ(r->FindAttribute("x", "urn:one"), r->GetAttributes()[0]);
    EXPECT_EQ(r->FindAttribute("y", ""), r->GetAttributes()[1]);
    EXPECT_EQ(r->FindAttribute("x", ""), nullptr);
    EXPECT_EQ(r->FindAttribute("type", "http://www.w3.org/2001/XMLSchema-instance"), r->GetAttributes()[2]);
    EXPECT_TRUE(r->GetAttributes()[2]->IsNamespaceAttribute());
    EXPECT_FALSE(r->GetAttributes()[3]->IsNamespaceAttribute());
    // Elements keep the URI in scope; the table keeps the last declaration of a prefix.
    EXPECT_EQ(r->GetFirstElement()->GetNamespaceURI(), "urn:one");
    EXPECT_EQ(r->GetFirstElement()->GetNextSiblingElement()->GetNamespaceURI(), "");
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "urn:two");
    EXPECT_EQ(document.LookupNamespaceFromAlias(""), "");
    EXPECT_EQ(document.LookupNamespaceFromAlias("unknown"), "");
}

TEST(XmlDocument, FailuresAndCutShortDocumentsGiveTheLibraryOrParserText)
{
    // Further parser texts are checked against the fast reader in FastXmlReaderTest.
    const std::pair<const char*, const char*> cases[] = {
        {nullptr, "XML String is empty!"},
        {"", "XML String is empty!"},
        {"   \n ", "Invalid or empty XML document"},
        {"<?xml version='1.0'?><!-- c -->", "Invalid or empty XML document"},
        // With no element read, the message of a cut stays the library's own.
        {"<a", "Invalid or empty XML document"},
        {"<?xml version='1.0'?><!-- c", "Invalid or empty XML document"},
        {"<a>\n<b>\n</c>", "mismatched tag at line 3"},
        {"<?xml version='1.0' encoding='KOI8-R'?><a/>", "unknown encoding at line 1"},
        {"<a>\n\n<1/></a>", "not well-formed (invalid token) at line 3"},
        {"<a>\n<b>\n", "no element found at line 3"},
        {"<a>\n<b/>\n<c x='1", "unclosed token at line 3"},
        {"<a/><!-- unfinished", "unclosed token at line 1"},
        {"<a>\xC3", "partial character at line 1"},
    };
    for (const auto& c : cases) {
        CXmlDocument document;
        EXPECT_THROW_MSG(document.LoadXml(c.first), COrvexException, c.second) << (c.first ? c.first : "(null)");
    }
    CXmlDocument wide;
    EXPECT_THROW_MSG(wide.LoadXml(Units(u"<a>\n<b/>")), COrvexException, "no element found at line 2");

    // Allowed, a document cut short loads the part before the cut.
    CXmlDocument document;
    document.SetAllowTruncatedDocuments(true);
    document.LoadXml("<a xmlns:p='urn:p'><b></b><c x='1'/><d>te");
    EXPECT_EQ(Names(document.GetDocumentElement()), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_THROW_MSG(document.LoadXml("<a"), COrvexException, "Invalid or empty XML document");
    document.LoadXml("<e/>");
    EXPECT_EQ(Names(document.GetDocumentElement()), std::vector<std::string>{"e"});
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "");
    // A parser failure keeps what was delivered before it.
    EXPECT_THROW_MSG(document.LoadXml("<a><b/></c>"), COrvexException, "mismatched tag at line 1");
    EXPECT_EQ(Names(document.GetDocumentElement()), (std::vector<std::string>{"a", "b"}));
    document.SetAllowTruncatedDocuments(false);
    EXPECT_THROW_MSG(document.LoadXml("<a><b/>"), COrvexException, "no element found at line 1");
    EXPECT_EQ(Names(document.GetDocumentElement()), (std::vector<std::string>{"a", "b"}));

    // The context's option reaches the document made from it.
    CXmlSerializationContext context;
    context.SetAllowTruncatedDocuments(true);
    CXmlDocument fromContext(context);
    fromContext.LoadXml("<a><b/>");
    EXPECT_EQ(Names(fromContext.GetDocumentElement()), (std::vector<std::string>{"a", "b"}));
}

namespace {

// A document type declaration of count internal entities, one a line, each one
// referring to the one before; the root's text refers to the last.
std::string EntityChain(int count, bool parameterEntities = false)
{
    std::string text = "<!DOCTYPE r [\n";
    for (int i = 0; i < count; ++i) {
        const std::string name = (parameterEntities ? "% p" : "e") + std::to_string(i);
        text += "<!ENTITY " + name + (i ? " '&e" + std::to_string(i - 1) + ";'>\n" : " 'x'>\n");
    }
    return text + "]>\n<r>&e" + std::to_string(parameterEntities ? 0 : count - 1) + ";</r>";
}

}  // namespace

TEST(XmlDocument, EntityDeclarationsBeyondTheLimitAreRefusedBeforeExpansion)
{
    const int limit = CXmlDocument::MaxEntityDeclarations;
    const std::string refused = "The document declares more than 64 entities at line 66; the serialization context "
                                "can allow more";
    ASSERT_EQ(limit, 64);
    CXmlDocument document;
    document.LoadXml(EntityChain(limit).c_str());
    EXPECT_EQ(document.GetDocumentElement()->GetText(), "x");
    EXPECT_THROW_MSG(document.LoadXml(EntityChain(limit + 1).c_str()), COrvexException, refused);
    // Parameter entities count too; here the first one has the value 'x' and the rest
    // refer to general entities that are never declared.
    EXPECT_THROW_MSG(document.LoadXml(EntityChain(limit + 1, true).c_str()), COrvexException, refused);
    // External entities are never fetched, so they are not counted.
    std::string external = "<!DOCTYPE r [\n";
    for (int i = 0; i < 2 * limit; ++i) external += "<!ENTITY x" + std::to_string(i) + " SYSTEM 'x.xml'>\n";
    document.LoadXml((external + "]><r/>").c_str());

    // A chain long enough to exhaust the parser's stack in some versions is refused
    // after a few dozen lines, under every build.
    const std::string hostile = EntityChain(30000);
    ASSERT_GT(hostile.size(), 600000u);
    EXPECT_THROW_MSG(document.LoadXml(hostile.c_str()), COrvexException, refused);
    std::u16string wide(hostile.begin(), hostile.end());
    EXPECT_THROW_MSG(document.LoadXml(Units(wide)), COrvexException, refused);

    // Allowed, a longer chain loads.
    CXmlSerializationContext context;
    context.SetAllowManyEntityDeclarations(true);
    CXmlDocument allowed(context);
    allowed.LoadXml(EntityChain(4 * limit).c_str());
    EXPECT_EQ(allowed.GetDocumentElement()->GetText(), "x");
}

TEST(XmlDocument, Utf16TextAndDeclaredEncodings)
{
    const std::pair<std::u16string, const char*> cases[] = {
        {u"<a>\u00E9\u20AC\U0001F600</a>", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {u"<?xml version='1.0' encoding='UTF-16'?><a>x</a>", "x"},
        {u"<?xml version='1.0' encoding='UTF-8'?><a/>", "encoding specified in XML declaration is incorrect at line 1"},
        {u"", "Invalid or empty XML document"},
        {u"<a>\n</b>", "mismatched tag at line 2"},
    };
    for (const auto& c : cases) {
        CXmlDocument document;
        try {
            document.LoadXml(Units(c.first));
            EXPECT_EQ(document.GetDocumentElement()->GetText(), c.second);
        } catch (const COrvexException& e) {
            EXPECT_EQ(e.GetMessage(), c.second);
        }
    }
    CXmlDocument document;
    document.LoadXml("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>");
    EXPECT_EQ(document.GetDocumentElement()->GetText(), "\xC3\xA9");
    document.LoadXml("\xEF\xBB\xBF<a/>");
    EXPECT_THROW_MSG(document.LoadXml(static_cast<const unsigned short*>(nullptr)), COrvexException,
                     "Invalid or empty XML document");
}

TEST(XmlDocument, LongNamesDeepNestingAndManySiblingsLoadAndRelease)
{
    const std::string name(300, 'n'), uri = "urn:" + std::string(300, 'u');
    CXmlDocument document;
    document.LoadXml(("<" + name + " xmlns='" + uri + "' " + name + "='v'/>").c_str());
    EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), name);
    EXPECT_EQ(document.GetDocumentElement()->GetNamespaceURI(), uri);
    EXPECT_EQ(document.GetDocumentElement()->GetAttribute(name, ""), "v");

    const int count = 100000;
    std::string deep, wide = "<r>";
    for (int i = 0; i < count; ++i) deep += "<e>";
    deep += "deep";
    for (int i = 0; i < count; ++i) deep += "</e>";
    for (int i = 0; i < count; ++i) wide += "<s i='" + std::to_string(i) + "'/>";
    document.LoadXml(deep.c_str());
    const CXmlElement* element = document.GetDocumentElement();
    int levels = 1;
    for (; element->GetFirstElement(); element = element->GetFirstElement()) ++levels;
    EXPECT_EQ(levels, count);
    EXPECT_EQ(element->GetText(), "deep");
    EXPECT_THROW_MSG(document.LoadXml(deep.substr(0, count * 3).c_str()), COrvexException,
                     "no element found at line 1");  // cut short at full depth
    document.LoadXml((wide + "</r>").c_str());
    int seen = 0;
    for (element = document.GetDocumentElement()->GetFirstElement(); element;
         element = element->GetNextSiblingElement(), ++seen)
        if (element->GetAttribute("i", "") != std::to_string(seen)) break;
    EXPECT_EQ(seen, count);
}

TEST(XmlDocument, NamespaceUrisMayHoldAnyCharacterAndWithoutProcessingPrefixesStayInNames)
{
    CXmlDocument document;
    document.LoadXml("<a xmlns='urn:a|b' xmlns:p='x|y&#9;&#x7F;' p:q='1'><p:c/></a>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ(root->GetNamespaceURI() + " " + root->GetLocalName(), "urn:a|b a");
    EXPECT_EQ(root->GetAttribute("q", "x|y\t\x7F"), "1");
    EXPECT_EQ(root->GetFirstElement()->GetNamespaceURI() + " " + root->GetFirstElement()->GetLocalName(),
              "x|y\t\x7F c");
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "x|y\t\x7F");

    CXmlDocument plain(SchemaType_NoNamespaces);
    plain.LoadXml("<a:b xmlns:a='u' q:x='1'/>");
    root = plain.GetDocumentElement();
    EXPECT_EQ(root->GetNamespaceURI() + " " + root->GetLocalName(), " a:b");
    EXPECT_EQ(root->GetAttribute("xmlns:a", ""), "u");
    EXPECT_EQ(root->GetAttribute("q:x", ""), "1");  // an undeclared prefix is no error
    EXPECT_EQ(plain.LookupNamespaceFromAlias("a"), "");
}

TEST(XmlDocument, DocumentsLongerThanOneParserPieceReadAsOne)
{
    // The parser takes the input in pieces of 4 MiB. Text, a multi-byte character,
    // a name, a value and an error that straddle the boundary come out as from one
    // piece, from the caller's text and from a copied stream alike.
    const std::size_t piece = std::size_t(4) << 20;
    for (std::size_t shift = 0; shift < 6; ++shift) {
        std::string head = "<r>\n<t>";
        head.append(piece - head.size() - shift, 'x');
        const std::string xml = head + "\xE2\x82\xAC<element attribute='\xC3\xA9'>tail</element></t>\n</r>";
        for (bool stream : {false, true}) {
            CXmlDocument document;
            if (stream)
                document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(xml.data())),
                                       static_cast<unsigned long>(xml.size()));
            else
                document.LoadXml(xml.c_str());
            const CXmlElement* t = document.GetDocumentElement()->GetFirstElement();
            ASSERT_NE(t, nullptr);
            EXPECT_EQ(t->GetText(), std::string(piece - 7 - shift, 'x') + "\xE2\x82\xAC") << shift;
            const CXmlElement* element = t->GetFirstElement();
            ASSERT_NE(element, nullptr);
            EXPECT_EQ(element->GetLocalName(), "element");
            EXPECT_EQ(element->GetAttribute("attribute", ""), "\xC3\xA9");
            EXPECT_EQ(element->GetText(), "tail");
        }
        CXmlDocument document;
        EXPECT_THROW_MSG(document.LoadXml((head + "</t>\n\n<1/></r>").c_str()), COrvexException,
                         "not well-formed (invalid token) at line 4");
        EXPECT_THROW_MSG(document.LoadXml((head + "</t><e a='1").c_str()), COrvexException,
                         "unclosed token at line 2");
        EXPECT_THROW_MSG(document.LoadXml((head + "\xE2\x82").c_str()), COrvexException,
                         "partial character at line 2");
    }
}

TEST(XmlDocument, NamesAreStoredOncePerDocument)
{
    // Every element and attribute of one name holds the document's one copy of it,
    // the namespace URIs likewise; a reload starts from the new document's names.
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:a-namespace-uri-longer-than-sixteen'><item n='1'/><item n='2'>"
                     "<sub xmlns=''/></item><other n='3'/></r>");
    const CXmlElement* root = document.GetDocumentElement();
    const CXmlElement* first = root->GetFirstElement();
    const CXmlElement* second = first->GetNextSiblingElement();
    const CXmlElement* other = second->GetNextSiblingElement();
    EXPECT_EQ(&first->GetLocalName(), &second->GetLocalName());
    EXPECT_EQ(&root->GetNamespaceURI(), &other->GetNamespaceURI());
    EXPECT_EQ(&first->GetAttributes()[0]->GetLocalName(), &other->GetAttributes()[0]->GetLocalName());
    EXPECT_EQ(other->GetNamespaceURI(), "urn:a-namespace-uri-longer-than-sixteen");
    EXPECT_EQ(second->GetFirstElement()->GetNamespaceURI(), "");
    EXPECT_EQ(&second->GetFirstElement()->GetNamespaceURI(), &first->GetAttributes()[0]->GetNamespaceURI());
    EXPECT_EQ(other->GetAttribute("n", ""), "3");

    // Past the first few names the document keeps an index; both find the same copies.
    std::string many = "<r>";
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 70; ++i) many += "<e" + std::to_string(i) + " a" + std::to_string(i % 7) + "='v'/>";
    CXmlDocument large;
    large.LoadXml((many + "</r>").c_str());
    std::vector<const CXmlElement*> elements;
    for (const CXmlElement* e = large.GetDocumentElement()->GetFirstElement(); e; e = e->GetNextSiblingElement())
        elements.push_back(e);
    ASSERT_EQ(elements.size(), 140u);
    for (std::size_t i = 0; i < 70; ++i) {
        EXPECT_EQ(elements[i]->GetLocalName(), "e" + std::to_string(i));
        EXPECT_EQ(&elements[i]->GetLocalName(), &elements[i + 70]->GetLocalName()) << i;
        EXPECT_EQ(&elements[i]->GetAttributes()[0]->GetLocalName(), &elements[i % 7]->GetAttributes()[0]->GetLocalName());
    }

    document.LoadXml("<item xmlns='urn:b'><n/></item>");
    EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), "item");
    EXPECT_EQ(document.GetDocumentElement()->GetNamespaceURI(), "urn:b");
    EXPECT_EQ(document.GetDocumentElement()->GetFirstElement()->GetLocalName(), "n");
}

TEST(XmlDocument, OneTokenOverManyParserPiecesReadsInLinearTime)
{
    // A comment of 256 MiB is a single token across dozens of parser pieces. Were each
    // piece to scan the token again from its start, the load would take several times
    // as long as that of the same bytes in comments of 1 MiB, which fit in a piece.
    const std::size_t size = std::size_t(256) << 20;
    const auto seconds = [](const std::string& xml) {
        const auto start = std::chrono::steady_clock::now();
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        const CXmlElement* e = document.GetDocumentElement()->GetFirstElement();
        EXPECT_TRUE(e && e->GetAttribute("a", "") == "1");
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    std::string xml = "<r>";
    for (std::size_t done = 0; done < size; done += std::size_t(1) << 20)
        xml.append("<!--").append((std::size_t(1) << 20) - 7, 'x').append("-->");
    xml += "<e a='1'/></r>";
    const double many = seconds(xml);
    xml = "<r><!--";
    xml.append(size, 'x');
    xml += "--><e a='1'/></r>";
    const double one = seconds(xml);
    EXPECT_LT(one, 3 * many + 0.5) << one << " s for one token, " << many << " s for many";
}

namespace {

// The text of every element and the values of its attributes, in document order,
// read through the accessors that copy and through those that don't, which must agree.
std::string Contents(const CXmlElement* element)
{
    std::string out;
    for (; element; element = element->GetNextSiblingElement()) {
        EXPECT_EQ(element->GetText(), element->GetTextView());
        EXPECT_EQ(element->GetTextView().data()[element->GetTextView().size()], '\0');
        const CXmlElement::AttributeSpan span = element->GetAttributeSpan();
        EXPECT_EQ(element->GetAttributes(), std::vector<CXmlAttribute*>(span.begin(), span.end()));
        out += "<" + element->GetLocalName();
        for (const CXmlAttribute* attribute : span) {
            EXPECT_EQ(attribute->GetValue(), attribute->GetValueView());
            EXPECT_EQ(attribute->GetValueView().data()[attribute->GetValueView().size()], '\0');
            out += " " + attribute->GetValue();
        }
        out += ">" + element->GetText() + Contents(element->GetFirstElement());
    }
    return out;
}

}  // namespace

TEST(XmlDocument, TextAndAttributesOfAnySizeComeBackAsRead)
{
    // Texts around the sizes where the tree's storage changes blocks, split around
    // children, and attribute lists longer than the room first made for them; read by
    // the fast reader and, behind a document type declaration, by Expat.
    std::string expected, xml = "<r>";
    for (std::size_t size : {0, 1, 15, 16, 511, 512, 513, 16383, 16384, 65537, 300000}) {
        const std::string text(size, static_cast<char>('a' + size % 26));
        xml += "<t>" + text + "<c/>" + text + "</t>";
        expected += "<t>" + text + text + "<c>";
    }
    for (int count : {1, 4, 5, 9, 40}) {
        xml += "<a";
        expected += "<a";
        for (int i = 0; i < count; ++i) {
            xml += " n" + std::to_string(i) + "='" + std::to_string(i) + "'";
            expected += " " + std::to_string(i);
        }
        xml += ">tail</a>";
        expected += ">tail";
    }
    xml += "</r>";
    for (const std::string& prefix : {std::string(), std::string("<!DOCTYPE r>")}) {
        CXmlDocument document;
        document.LoadXml((prefix + xml).c_str());
        EXPECT_EQ(Contents(document.GetDocumentElement()), "<r>" + expected) << prefix;
    }
}

TEST(XmlDocument, EqualShortTextsShareOneCopy)
{
    // Each element still reads its own text; the tree keeps one copy of a short text
    // that another element just had, and never lets a longer text or a changed one share.
    const std::string longText(65, 'l');
    CXmlDocument document;
    document.LoadXml(("<r><a>12</a><b>12</b><c>1<x/>2</c><d>" + longText + "</d><e>" + longText + "</e><f>13</f></r>")
                         .c_str());
    std::vector<const CXmlElement*> e;
    for (const CXmlElement* child = document.GetDocumentElement()->GetFirstElement(); child;
         child = child->GetNextSiblingElement())
        e.push_back(child);
    ASSERT_EQ(e.size(), 6u);
    EXPECT_EQ(e[0]->GetTextView().data(), e[1]->GetTextView().data());
    EXPECT_EQ(e[0]->GetTextView().data(), e[2]->GetTextView().data());  // joined around a child
    EXPECT_NE(e[3]->GetTextView().data(), e[4]->GetTextView().data());
    EXPECT_EQ(e[4]->GetText(), longText);
    EXPECT_EQ(e[5]->GetText(), "13");
    EXPECT_EQ(e[1]->GetText(), "12");
    EXPECT_NE(&e[0]->GetText(), &e[1]->GetText());  // the copies given out stay the element's own
}

TEST(XmlDocument, CopiedTextAndAttributeListsStayWhileTheDocumentLives)
{
    CXmlDocument document;
    document.LoadXml("<r a='1' b='2'>some text longer than a short string<e/>, and more</r>");
    const CXmlElement* root = document.GetDocumentElement();
    const std::string& text = root->GetText();
    const std::vector<CXmlAttribute*>& attributes = root->GetAttributes();
    EXPECT_EQ(&root->GetText(), &text);
    EXPECT_EQ(&root->GetAttributes(), &attributes);
    EXPECT_EQ(text, "some text longer than a short string, and more");
    ASSERT_EQ(attributes.size(), 2u);
    EXPECT_EQ(attributes[1]->GetValue(), "2");
    EXPECT_EQ(&attributes[1]->GetValue(), &root->GetAttribute("b", ""));
    // An element without text or attributes gives them empty.
    const CXmlElement* e = root->GetFirstElement();
    EXPECT_TRUE(e->GetText().empty());
    EXPECT_TRUE(e->GetAttributes().empty());
    EXPECT_TRUE(e->GetAttributeSpan().empty());

    // Cut short, or failing, a load keeps the text of the elements it left open.
    document.SetAllowTruncatedDocuments(true);
    for (const char* xml : {"<a>one<b x='1'>two<c>three", "<a>one<b x='1'>two<c>three</d>"}) {
        try {
            document.LoadXml(xml);
        } catch (const COrvexException&) {
        }
        EXPECT_EQ(Contents(document.GetDocumentElement()), "<a>one<b 1>two<c>three") << xml;
    }
}
