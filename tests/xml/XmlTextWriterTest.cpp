#include "orvexxml/xml/XmlTextWriter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "TestUtil.h"
#include "orvexxml/frame/XmlObjectBase.h"

using namespace OrvexXmlLib5;

namespace {

const char* const Xsi = "http://www.w3.org/2001/XMLSchema-instance";

std::string Write(bool formatted, EOLType eol, const std::function<void(CXmlTextWriter&)>& calls)
{
    CXmlTextWriter writer;
    writer.SetFormatted(formatted);
    writer.SetEOLType(eol);
    calls(writer);
    return writer.GetString();
}

void RootChildText(CXmlTextWriter& w)
{
    w.WriteStartElement("root", "");
    w.WriteStartElement("child", "");
    w.WriteText("text");
    w.WriteEndElement();
    w.WriteEndElement();
}

TEST(XmlTextWriterLayout, FormattedAndUnformatted)
{
    struct Case
    {
        bool formatted;
        EOLType eol;
        bool declaration;
        const char* expected;
    };
    const Case cases[] = {
        {true, EOL_LF, false, "<root>\n\t<child>text</child>\n</root>\n"},
        {true, EOL_CRLF, false, "<root>\r\n\t<child>text</child>\r\n</root>\r\n"},
        {false, EOL_LF, false, "<root><child>text</child></root>"},
        {false, EOL_CRLF, true, "<?xml version=\"1.0\"?>\r\n<root><child>text</child></root>"},
        {true, EOL_LF, true, "<?xml version=\"1.0\"?>\n<root>\n\t<child>text</child>\n</root>\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, Write(c.formatted, c.eol, [&](CXmlTextWriter& w) {
                      if (c.declaration) w.WriteStartDocument(Encoding_Unspecified);
                      RootChildText(w);
                  }));
    }
}

TEST(XmlTextWriterLayout, NestingIndentsByDepth)
{
    const std::string out = Write(true, EOL_LF, [](CXmlTextWriter& w) {
        w.WriteStartElement("a", "");
        w.WriteStartElement("b", "");
        w.WriteStartElement("c", "");
        w.WriteEndElement();
        w.WriteText("");
        w.WriteStartElement("d", "");
        w.WriteText("x");
        w.WriteEndElement();
        w.WriteEndElement();
        w.WriteStartElement("e", "");
        w.WriteText("");
        w.WriteEndElement();
        w.WriteEndElement();
    });
    EXPECT_EQ("<a>\n\t<b>\n\t\t<c/>\n\t\t<d>x</d>\n\t</b>\n\t<e/>\n</a>\n", out);
}

TEST(XmlTextWriterLayout, DeclarationByEncoding)
{
    const std::pair<XmlEncoding, const char*> cases[] = {
        {Encoding_Unspecified, "<?xml version=\"1.0\"?>\n<a/>"},
        {Encoding_UTF8, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>"},
        {Encoding_UTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a/>"},
        {Encoding_UTF16_NoDeclaration, "<?xml version=\"1.0\"?>\n<a/>"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.second, Write(false, EOL_LF, [&](CXmlTextWriter& w) {
                      w.WriteStartElement("stale", "");
                      w.WriteEndElement();
                      // The declaration clears what was written before it.
                      w.WriteStartDocument(c.first);
                      w.WriteStartElement("a", "");
                      w.WriteEndElement();
                  }));
    }
}

TEST(XmlTextWriterLayout, CommentsInstructionsAndInlineSchema)
{
    const std::string out = Write(false, EOL_CRLF, [](CXmlTextWriter& w) {
        w.WriteStartDocument(Encoding_UTF8);
        w.WriteProcessingInstruction("<?xml-stylesheet href=\"a&b\"?>");
        w.WriteComment("x < y\n'z'");
        w.WriteStartElement("root", "");
        w.WriteInlineSchema("<xs:schema/>");
        w.WriteAttribute("a", "", "1");
        w.WriteComment("inner");
        w.WriteEndElement();
    });
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
              "<?xml-stylesheet href=\"a&b\"?>\r\n\r\n"
              "<!--x &lt; y\r\n'z'-->\r\n"
              "<root \r\n<xs:schema/>\r\n a=\"1\"><!--inner-->\r\n</root>",
              out);
}

TEST(XmlTextWriterEscaping, TextAndAttributeValues)
{
    const std::string out = Write(false, EOL_CRLF, [](CXmlTextWriter& w) {
        w.WriteStartElement("a", "");
        w.WriteAttribute("v", "", "a<b&\"c\">'\t\r\nx");
        w.WriteText("a<b&\"c\">'");
        w.WriteText("1\r\n2\r3\n");
        w.WriteText("caf\xC3\xA9");
        w.WriteEndElement();
    });
    EXPECT_EQ("<a v=\"a&lt;b&amp;&quot;c&quot;&gt;'\t\r\nx\">a&lt;b&amp;&quot;c&quot;&gt;'1\r\n23\r\ncaf\xC3\xA9</a>",
              out);
}

TEST(XmlTextWriterNamespaces, RootNameAndDeclarations)
{
    struct Case
    {
        const char* defaultNamespace;
        std::vector<std::pair<std::string, std::string>> aliases;  // alias, URI
        const char* rootUri;
        const char* expected;
    };
    const Case cases[] = {
        {"", {}, "urn:x", "<AA:root xmlns:AA=\"urn:x\"/>"},
        {"urn:x", {}, "urn:x", "<root xmlns=\"urn:x\"/>"},
        {"", {{"x", "urn:x"}}, "urn:x", "<x:root xmlns:x=\"urn:x\"/>"},
        {"urn:d", {{"x", "urn:x"}}, "", "<root xmlns=\"urn:d\" xmlns:x=\"urn:x\"/>"},
        // Aliases are declared in the order of their URIs, after the root's own declaration.
        {"urn:d", {{"z", "urn:b"}, {"a", "urn:c"}}, "urn:r",
         "<AA:root xmlns:AA=\"urn:r\" xmlns=\"urn:d\" xmlns:z=\"urn:b\" xmlns:a=\"urn:c\"/>"},
        {"", {{"AA", "urn:a"}}, "urn:r", "<AB:root xmlns:AB=\"urn:r\" xmlns:AA=\"urn:a\"/>"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, Write(false, EOL_LF, [&](CXmlTextWriter& w) {
                      w.SetDefaultNamespace(c.defaultNamespace);
                      for (const auto& alias : c.aliases) w.AddNamespace(alias.first, alias.second);
                      w.WriteStartElement("root", c.rootUri);
                      w.WriteEndElement();
                  }));
    }
}

TEST(XmlTextWriterNamespaces, ElementsUnderDefaultNamespace)
{
    const std::string out = Write(false, EOL_LF, [](CXmlTextWriter& w) {
        w.SetDefaultNamespace("urn:d");
        w.WriteStartElement("root", "urn:d");
        w.WriteStartElement("plain", "");
        w.WriteText("t");
        w.WriteEndElement();
        w.WriteStartElement("same", "urn:d");
        w.WriteText("t");
        w.WriteEndElement();
        w.WriteStartElement("other", "urn:o");
        w.WriteText("t");
        w.WriteEndElement();
        w.WriteEndElement();
    });
    EXPECT_EQ("<root xmlns=\"urn:d\"><plain>t</plain><same>t</same><AA:other xmlns:AA=\"urn:o\">t</AA:other></root>",
              out);
}

TEST(XmlTextWriterNamespaces, AttributesInNamespaces)
{
    const std::string out = Write(false, EOL_LF, [](CXmlTextWriter& w) {
        w.SetDefaultNamespace("urn:d");
        w.AddNamespace("k", "urn:k");
        w.WriteStartElement("root", "urn:d");
        w.WriteAttribute("a", "urn:d", "1");
        w.WriteAttribute("b", "urn:d", "2");
        w.WriteAttribute("c", "urn:k", "3");
        w.WriteAttribute("d", "", "4");
        w.WriteAttribute("e", "urn:n", "5");
        w.WriteEndElement();
    });
    EXPECT_EQ("<root xmlns=\"urn:d\" xmlns:k=\"urn:k\" xmlns:AA=\"urn:d\" AA:a=\"1\" AA:b=\"2\" k:c=\"3\" d=\"4\""
              " xmlns:AB=\"urn:n\" AB:e=\"5\"/>",
              out);
}

TEST(XmlTextWriterNamespaces, XsiType)
{
    struct Case
    {
        const char* typeNamespace;
        bool aliasXsi;
        const char* expected;
    };
    const Case cases[] = {
        {"", false, "<AA:r xmlns:AA=\"urn:r\" xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"T\"/>"},
        {"urn:r", false,
         "<AA:r xmlns:AA=\"urn:r\" xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:T\"/>"},
        {"urn:t", false,
         "<AA:r xmlns:AA=\"urn:r\" xmlns:AB=\"urn:t\"  xmlns:AC=\"http://www.w3.org/2001/XMLSchema-instance\" "
         "AC:type=\"AB:T\"/>"},
        {"urn:t", true, "<AA:r xmlns:AA=\"urn:r\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
                        " xmlns:AB=\"urn:t\"  xsi:type=\"AB:T\"/>"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, Write(false, EOL_LF, [&](CXmlTextWriter& w) {
                      if (c.aliasXsi) w.AddNamespace("xsi", Xsi);
                      w.WriteStartElement("r", "urn:r");
                      w.WriteXsiType(c.typeNamespace, "T");
                      w.WriteEndElement();
                  }));
    }
    // A type in the default namespace is written without prefix.
    EXPECT_EQ("<r xmlns=\"urn:d\" xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:type=\"T\"/>",
              Write(false, EOL_LF, [](CXmlTextWriter& w) {
                  w.SetDefaultNamespace("urn:d");
                  w.WriteStartElement("r", "urn:d");
                  w.WriteXsiType("urn:d", "T");
                  w.WriteEndElement();
              }));
}

TEST(XmlTextWriterMisuse, FailuresWithExactTexts)
{
    const std::vector<std::pair<std::function<void(CXmlTextWriter&)>, const char*>> cases = {
        {[](CXmlTextWriter& w) {
             w.WriteStartElement("a", "");
             w.WriteStartElement("b", "");
             w.WriteEndElement();
             w.WriteAttribute("x", "", "1");
         },
         "Attributes must be added before elements"},
        {[](CXmlTextWriter& w) {
             w.WriteStartElement("a", "");
             w.WriteText("t");
             w.WriteAttribute("x", "urn:x", "1");
         },
         "Attributes must be added before elements"},
        {[](CXmlTextWriter& w) {
             w.WriteStartElement("a", "");
             w.WriteText("t");
             w.WriteXsiType("urn:t", "T");
         },
         "Attributes must be added before elements"},
        {[](CXmlTextWriter& w) { w.WriteAttribute("x", "", "1"); }, "Attributes must be added before elements"},
        {[](CXmlTextWriter& w) { w.SetEOLType(static_cast<EOLType>(2)); }, "Invalid EOL type."},
        {[](CXmlTextWriter& w) {
             w.WriteStartElement("a", "");
             w.WriteEndDocument();
         },
         "An Element has not been closed."},
        {[](CXmlTextWriter& w) { w.WriteEndElement(); }, "There is no open Element to end."},
    };
    for (const auto& c : cases) {
        CXmlTextWriter writer;
        EXPECT_THROW_MSG(c.first(writer), COrvexException, c.second);
    }
}

TEST(XmlTextWriterMisuse, InvalidEolKeepsPreviousLineEnd)
{
    CXmlTextWriter writer;
    writer.SetEOLType(EOL_CRLF);
    EXPECT_THROW(writer.SetEOLType(static_cast<EOLType>(7)), COrvexException);
    EXPECT_EQ(EOL_CRLF, writer.GetEOLType());
    writer.WriteStartDocument(Encoding_Unspecified);
    EXPECT_EQ("<?xml version=\"1.0\"?>\r\n", writer.GetString());
}

TEST(XmlTextWriterBuffer, OutputAcrossChunksStaysInOrder)
{
    // A text that ends exactly at the first chunk's capacity, then a second element.
    const std::string prefix = "<a>";
    const std::string text(65535 - prefix.size(), 'x');
    const std::string out = Write(false, EOL_LF, [&](CXmlTextWriter& w) {
        w.WriteStartElement("a", "");
        w.WriteText(text);
        w.WriteText("\xE2\x82\xAC\n");
        w.WriteEndElement();
    });
    EXPECT_EQ(prefix + text + "\xE2\x82\xAC\n</a>", out);
}

// A hand-written serialisable class: a purchase order with a customer in its own
// namespace, attributes and escaped text, and an optional typed note.
class COrder : public CXmlObjectBase
{
public:
    std::string id = "7";
    std::string customer = "Tom & Jerry";
    std::vector<std::string> lines{"a<b", "it's"};
    bool typedNote = true;

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:order"; }
    std::string GetNamespace() const override { return "urn:order"; }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool) const override
    {
        if (isRoot) {
            for (const std::string& pi : context.GetProcessingInstructions()) writer->WriteProcessingInstruction(pi);
            if (!context.GetDefaultNamespaceURI().empty()) writer->SetDefaultNamespace(context.GetDefaultNamespaceURI());
        }
        writer->WriteStartElement("order", namespaceUri);
        writer->WriteAttribute("id", "", id);
        writer->WriteStartElement("customer", "urn:people");
        writer->WriteAttribute("vip", "urn:people", "yes");
        writer->WriteText(customer);
        writer->WriteEndElement();
        for (const std::string& line : lines) {
            writer->WriteStartElement("line", namespaceUri);
            writer->WriteText(line);
            writer->WriteEndElement();
        }
        if (typedNote) {
            writer->WriteStartElement("note", "");
            writer->WriteXsiType("urn:order", "NoteType");
            writer->WriteText("multi\nline");
            writer->WriteEndElement();
        }
        writer->WriteEndElement();
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, const CXmlSerializationContext&, bool) override
    {
        return nullptr;
    }
};

// Leaves its element open, as a walk would when it fails halfway.
class CUnclosed : public COrder
{
protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext&,
                   bool) const override
    {
        writer->WriteStartElement("open", namespaceUri);
        writer->WriteStartElement("deeper", "urn:other");
    }
};

TEST(XmlObjectBaseToXml, FormattedWithDeclaration)
{
    COrder order;
    EXPECT_EQ("<?xml version=\"1.0\"?>\r\n"
              "<AA:order xmlns:AA=\"urn:order\" id=\"7\">\r\n"
              "\t<AB:customer xmlns:AB=\"urn:people\" AB:vip=\"yes\">Tom &amp; Jerry</AB:customer>\r\n"
              "\t<AA:line>a&lt;b</AA:line>\r\n"
              "\t<AA:line>it's</AA:line>\r\n"
              "\t<note xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:NoteType\">"
              "multi\r\nline</note>\r\n"
              "</AA:order>\r\n",
              order.ToXml());
}

TEST(XmlObjectBaseToXml, ContextAliasesAndDefaultNamespace)
{
    COrder order;
    order.lines.clear();
    order.typedNote = false;
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI("urn:order");
    context.GetProcessingInstructions().push_back("<?pi data?>");
    EXPECT_EQ("<?pi data?>\n\n<order xmlns=\"urn:order\" id=\"7\"><AA:customer xmlns:AA=\"urn:people\" "
              "AA:vip=\"yes\">Tom &amp; Jerry</AA:customer></order>",
              order.ToXml(false, false, EOL_LF, context));
}

TEST(XmlObjectBaseToXml, HeaderlessSkipsCloseCheckAndHeaderChecksIt)
{
    CUnclosed unclosed;
    EXPECT_EQ("<AA:open xmlns:AA=\"urn:order\"><AB:deeper xmlns:AB=\"urn:other\"",
              unclosed.ToXml(false, false, EOL_LF));
    EXPECT_THROW_MSG(unclosed.ToXml(true, false, EOL_LF), COrvexException, "An Element has not been closed.");
    EXPECT_THROW_MSG(unclosed.ToXml(true, true, static_cast<EOLType>(5)), COrvexException, "Invalid EOL type.");
}

}  // namespace
