#include "orvexxml/xml/FastXmlReader.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/detail/TextReaderChoice.h"
#include "xml/TreeSignature.h"

using namespace OrvexXmlLib5;

namespace {

// The fast reader's tree for text, or "left" when it leaves the text to Expat.
std::string FastTree(const std::string& text, SchemaType schemaType)
{
    CXmlDocument document(schemaType);
    if (!Detail::LoadTextWith(document, text, Detail::TextReader::Fast)) {
        EXPECT_EQ(document.GetDocumentElement(), nullptr);
        EXPECT_TRUE(document.GetPrefixTable().empty());
        return "left";
    }
    return OrvexTest::TreeSignature(document);
}

std::string ExpatTree(const std::string& text, SchemaType schemaType)
{
    CXmlDocument document(schemaType);
    Detail::LoadTextWith(document, text, Detail::TextReader::Expat);
    return OrvexTest::TreeSignature(document);
}

}  // namespace

// The documents of every day: the fast reader takes them, and builds Expat's tree
// to the last place, prefix and carriage return.
TEST(FastXmlReader, TakesCommonDocumentsWithExpatsTree)
{
    const char* documents[] = {
        "<a/>",
        "<a></a >",
        "\xEF\xBB\xBF<a>bom</a>",
        "<?xml version=\"1.0\"?><a/>",
        "<?xml version='1.0' encoding='UTF-8' standalone='no' ?>\n<a/>\n",
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<!-- c - d -->\r\n<?pi  x ?><a>1</a><!--e--><?q?>\n",
        "<a>\t1\n2\r\n3\r4&#13;5&#xD;</a>",
        "<a b=\"x\ty\r\nz\rw\nv\" c='&#9;&#10;&#13;&quot;&apos;' d=\"'\" e='\"'/>",
        "<a>x&amp;y&lt;&gt;&#65;&#x10FFFF;&#0000000066;<![CDATA[<z>]]]]><![CDATA[>\r\n]]>]] ]></a>",
        "<a>caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 \xEF\xBF\xBD</a>",
        "<a>\xC3\xA9\xC3\xA9<b>\xE2\x82\xAC</b>\n\xF0\x9F\x98\x80<c/></a>",
        "<r xmlns=\"urn:d\" xmlns:p=\"urn:p\"><p:c p:x=\"1\" y=\"2\" xml:lang=\"fr\"/><c xmlns=\"\"/><p:d xmlns:p=\"urn:q\"/></r>",
        "<p:r xmlns:p=\"u\" xmlns:q=\"u\"><p:s p:a=\"1\" q:b=\"2\"/></p:r>",
        "<a xmlns:p=\"u&amp;v\" xmlns=\" sp \"><b/></a>",
        "<a><b><c><d>deep</d></c></b><b2/>tail</a>",
        "<x:a xmlns:x=\"u\"><y:b xmlns:y=\"v\">1</y:b><y:b xmlns:y=\"w\">2</y:b></x:a>",
        // One name written alike resolves anew as declarations come and go.
        "<p:a xmlns:p=\"u1\"><p:b/><p:b xmlns:p=\"u2\"><p:b/></p:b><p:b/><c/><x xmlns=\"d\"><c/></x><c/>"
        "<y xmlns=\"\"><c/></y></p:a>",
    };
    for (const char* text : documents) {
        for (SchemaType schemaType : {SchemaType_Namespaced, SchemaType_NoNamespaces}) {
            SCOPED_TRACE(std::string(text) + (schemaType == SchemaType_Namespaced ? " (namespaced)" : " (plain)"));
            const std::string fast = FastTree(text, schemaType);
            EXPECT_NE(fast, "left");
            EXPECT_EQ(fast, ExpatTree(text, schemaType));
        }
    }
}

// What the fast reader is not certain of goes to Expat whole, so the load's result,
// message and place stay Expat's.
TEST(FastXmlReader, LeavesToExpatWhatItIsNotCertainOf)
{
    struct Case
    {
        const char* text;
        const char* message;  // of a real load; empty when the load succeeds
    } cases[] = {
        {"<!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;</a>", ""},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>", ""},
        {"<?xml version=\"1.1\"?><a/>", ""},
        {"<\xC3\xA9l\xC3\xA9ment/>", ""},
        {"<a>&unknown;</a>", "undefined entity at line 1"},
        {"<a>", "no element found at line 1"},
        {"<a></b>", "mismatched tag at line 1"},
        {"<a>x]]>y</a>", "not well-formed (invalid token) at line 1"},
        {"<a>\x01</a>", "not well-formed (invalid token) at line 1"},
        {"<a>\xC0\x80</a>", "not well-formed (invalid token) at line 1"},
        {"<a>\xED\xA0\x80</a>", "not well-formed (invalid token) at line 1"},
        {"<a>\xEF\xBF\xBE</a>", "not well-formed (invalid token) at line 1"},
        {"<a>&#0;</a>", "reference to invalid character number at line 1"},
        {"<a>&#xD800;</a>", "reference to invalid character number at line 1"},
        {"<a b='1' b='2'/>", "duplicate attribute at line 1"},
        {"<a xmlns:p='u' xmlns:q='u' p:b='1' q:b='2'/>", "duplicate attribute at line 1"},
        {"<p:a/>", "unbound prefix at line 1"},
        {"<a xmlns:p=''/>", "must not undeclare prefix at line 1"},
        {"<a/><b/>", "junk after document element at line 1"},
        {"<a><!-- x -- y --></a>", "not well-formed (invalid token) at line 1"},
        {"<a><?xml version='1.0'?></a>", "XML or text declaration not at start of entity at line 1"},
        {"<a b=\"<\"/>", "not well-formed (invalid token) at line 1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(FastTree(c.text, SchemaType_Namespaced), "left");
        CXmlDocument document;
        std::string message;
        try {
            document.LoadXml(c.text);
        } catch (const COrvexException& e) {
            message = e.GetMessageA();
        }
        EXPECT_EQ(message, c.message);
    }
}

// Beyond its limit of attributes an element goes to Expat, which finds doubled names
// without comparing every pair. Prefixes are looked up by walking the declarations in
// scope, so a document that keeps more of them than the limit goes to Expat and its
// hash tables. Up to each limit the fast reader takes the document.
TEST(FastXmlReader, LeavesManyAttributesOrDeclarationsInScopeToExpat)
{
    const auto attributes = [](std::size_t count) {
        std::string text = "<a";
        for (std::size_t i = 0; i < count; ++i) text += " n" + std::to_string(i) + "='" + std::to_string(i) + "'";
        return text + "/>";
    };
    const auto declarations = [](std::size_t count) {
        std::string text, close;
        for (std::size_t i = 0; i < count; i += 4, close += "</e>") {
            text += "<e";
            for (std::size_t j = i; j < i + 4 && j < count; ++j) text += " xmlns:p" + std::to_string(j) + "='u'";
            text += ">";
        }
        return text + close;
    };
    const std::pair<std::function<std::string(std::size_t)>, std::size_t> cases[] = {
        {attributes, CFastXmlReader::MaxAttributes}, {declarations, CFastXmlReader::MaxBindings}};
    for (const auto& c : cases)
        for (std::size_t count : {c.second, c.second + 1}) {
            const std::string text = c.first(count);
            EXPECT_EQ(FastTree(text, SchemaType_Namespaced),
                      count > c.second ? "left" : ExpatTree(text, SchemaType_Namespaced))
                << count;
        }
}

// A tree the fast reader gave up on halfway is emptied before Expat reads: a failed
// load leaves what Expat delivered up to its failure, and nothing of the first attempt.
TEST(FastXmlReader, GivingUpLateLeavesOnlyExpatsTree)
{
    const std::string text = "<r xmlns:p='urn:p'><p:a>1</p:a><p:b>2</p:b><c xmlns:q='urn:q'>&#xD800;</c></r>";
    CXmlDocument loaded;
    EXPECT_THROW(loaded.LoadXml(text.c_str()), COrvexException);
    CXmlDocument expat;
    EXPECT_THROW(Detail::LoadTextWith(expat, text, Detail::TextReader::Expat), COrvexException);
    ASSERT_NE(loaded.GetDocumentElement(), nullptr);
    EXPECT_EQ(OrvexTest::TreeSignature(loaded), OrvexTest::TreeSignature(expat));
}
