#include "orvexxml/xml/XmlTextWriter.h"

#include <memory>
#include <regex>
#include <string>
#include <tuple>
#include <vector>

#include "TestUtil.h"
#include "examples/echo/EchoNode.h"
#include "WriterScript.h"
#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;
using OrvexTest::WriteScript;

namespace {

#define XSI "http://www.w3.org/2001/XMLSchema-instance"

TEST(XmlTextWriterLayout, FormattedUnformattedAndDeclaration)
{
    const std::tuple<const char*, bool, EOLType, const char*> cases[] = {  // script, formatted, eol, expected
        {"<root|<child|#text|>|>", true, EOL_LF, "<root>\n\t<child>text</child>\n</root>\n"},
        {"<root|<child|#text|>|>", true, EOL_CRLF, "<root>\r\n\t<child>text</child>\r\n</root>\r\n"},
        {"D0|<root|<child|#text|>|>", false, EOL_CRLF, "<?xml version=\"1.0\"?>\r\n<root><child>text</child></root>"},
        {"<a|<b|<c|>|#|<d|#x|>|>|<e|#|>|>", true, EOL_LF, "<a>\n\t<b>\n\t\t<c/>\n\t\t<d>x</d>\n\t</b>\n\t<e/>\n</a>\n"},
        // The declaration clears what was written before it.
        {"<stale|>|D1|<a|>", false, EOL_LF, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>"},
        {"D2|<a|>", false, EOL_LF, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a/>"},
        {"D3|<a|>", true, EOL_LF, "<?xml version=\"1.0\"?>\n<a/>\n"},
        {"?<?pi a&b?>|!x < y\n'z'|<root|$<xs:schema/>|@a=1|!in|>", false, EOL_CRLF,
         "<?pi a&b?>\r\n\r\n<!--x &lt; y\r\n'z'-->\r\n<root \r\n<xs:schema/>\r\n a=\"1\"><!--in-->\r\n</root>"},
        {"<a|@v=a<b&\"c\">'\t\r\nx|#a<b&\"c\">'|#1\r\n2\r3\n|#caf\xC3\xA9|>", false, EOL_CRLF,
         // Tab, carriage return and line feed of an attribute value as references, so a reader keeps them.
         "<a v=\"a&lt;b&amp;&quot;c&quot;&gt;'&#9;&#13;&#10;x\">a&lt;b&amp;&quot;c&quot;&gt;'1\r\n23\r\ncaf\xC3\xA9</a>"},
    };
    for (const auto& [script, formatted, eol, expected] : cases)
        EXPECT_EQ(expected, WriteScript(script, formatted, eol)) << script;
}

TEST(XmlTextWriterNamespaces, PrefixesAndDeclarations)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<root urn:x|>", "<AA:root xmlns:AA=\"urn:x\"/>"},
        {"=urn:x|<root urn:x|>", "<root xmlns=\"urn:x\"/>"},
        {"+x urn:x|<root urn:x|>", "<x:root xmlns:x=\"urn:x\"/>"},
        // The root's own declaration first, then the default, then the aliases by URI.
        {"=urn:d|+z urn:b|+a urn:c|<root urn:r|>",
         "<AA:root xmlns:AA=\"urn:r\" xmlns=\"urn:d\" xmlns:z=\"urn:b\" xmlns:a=\"urn:c\"/>"},
        {"+AA urn:a|<root urn:r|>", "<AB:root xmlns:AB=\"urn:r\" xmlns:AA=\"urn:a\"/>"},
        {"=urn:d|<root urn:d|<plain|#t|>|<same urn:d|#t|>|<other urn:o|#t|>|>",
         "<root xmlns=\"urn:d\"><plain>t</plain><same>t</same><AA:other xmlns:AA=\"urn:o\">t</AA:other></root>"},
        // An attribute in the default namespace still needs a prefix of its own.
        {"=urn:d|+k urn:k|<root urn:d|@a urn:d=1|@b urn:d=2|@c urn:k=3|@d=4|@e urn:n=5|>",
         "<root xmlns=\"urn:d\" xmlns:k=\"urn:k\" xmlns:AA=\"urn:d\" AA:a=\"1\" AA:b=\"2\" k:c=\"3\" d=\"4\" "
         "xmlns:AB=\"urn:n\" AB:e=\"5\"/>"},
        {"<r urn:r|^ T|>", "<AA:r xmlns:AA=\"urn:r\" xmlns:AB=\"" XSI "\" AB:type=\"T\"/>"},
        {"<r urn:r|^urn:r T|>", "<AA:r xmlns:AA=\"urn:r\" xmlns:AB=\"" XSI "\" AB:type=\"AA:T\"/>"},
        {"<r urn:r|^urn:t T|>",
         "<AA:r xmlns:AA=\"urn:r\" xmlns:AB=\"urn:t\"  xmlns:AC=\"" XSI "\" AC:type=\"AB:T\"/>"},
        {"+xsi " XSI "|<r urn:r|^urn:t T|>",
         "<AA:r xmlns:AA=\"urn:r\" xmlns:xsi=\"" XSI "\" xmlns:AB=\"urn:t\"  xsi:type=\"AB:T\"/>"},
        {"=urn:d|<r urn:d|^urn:d T|>", "<r xmlns=\"urn:d\" xmlns:AA=\"" XSI "\" AA:type=\"T\"/>"},
        // A declaration ends with its element: later siblings and their children declare again.
        {"<root|<a urn:o|>|<b urn:o|>|>", "<root><AA:a xmlns:AA=\"urn:o\"/><AA:b xmlns:AA=\"urn:o\"/></root>"},
        {"<root|<a urn:o|<c|>|>|<b|<d urn:o|>|<e urn:o|>|>|>",
         "<root><AA:a xmlns:AA=\"urn:o\"><c/></AA:a><b><AA:d xmlns:AA=\"urn:o\"/><AA:e xmlns:AA=\"urn:o\"/></b>"
         "</root>"},
        // Children in their parent's namespace take its prefix, in start and end tags,
        // also after the parent's attributes declared more.
        {"<r urn:r|<c urn:r|#t|>|<c urn:r|<g urn:r|>|>|>",
         "<AA:r xmlns:AA=\"urn:r\"><AA:c>t</AA:c><AA:c><AA:g/></AA:c></AA:r>"},
        {"<r urn:r|@a urn:k=1|<c urn:r|>|<d urn:k|<e urn:r|>|>|>",
         "<AA:r xmlns:AA=\"urn:r\" xmlns:AB=\"urn:k\" AB:a=\"1\"><AA:c/><AB:d><AA:e/></AB:d></AA:r>"},
        {"<r urn:r|=urn:r|<c urn:r|<g urn:r|>|>|>", "<AA:r xmlns:AA=\"urn:r\"><c xmlns=\"urn:r\"><g/></c></AA:r>"},
        {"<r urn:r|+p urn:r|<c urn:r|<g urn:r|>|>|>",
         "<AA:r xmlns:AA=\"urn:r\"><p:c xmlns:p=\"urn:r\"><p:g/></p:c></AA:r>"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.second, WriteScript(c.first)) << c.first;
}

TEST(XmlTextWriterMisuse, FailuresWithExactTexts)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<a|<b|>|@x=1", "Attributes must be added before elements"},
        {"<a|#t|@x urn:x=1", "Attributes must be added before elements"},
        {"<a|#t|^urn:t T", "Attributes must be added before elements"},
        {"@x=1", "Attributes must be added before elements"},
        {">", "There is no open Element to end."},
    };
    for (const auto& c : cases) EXPECT_THROW_MSG(WriteScript(c.first), COrvexException, c.second);

    CXmlTextWriter writer;
    writer.SetEOLType(EOL_CRLF);
    EXPECT_THROW_MSG(writer.SetEOLType(static_cast<EOLType>(2)), COrvexException, "Invalid EOL type.");
    writer.WriteStartDocument(Encoding_Unspecified);
    EXPECT_EQ("<?xml version=\"1.0\"?>\r\n", writer.GetString());
}

using CNode = OrvexExamples::CEchoNode;

TEST(XmlObjectBaseToXml, ReadAndWrittenBackRoundTrips)
{
    CNode node;
    node.FromXml("<?xml version=\"1.0\"?>\n<o:order xmlns:o=\"urn:order\" xmlns:p=\"urn:people\" id=\"7\" "
                 "o:state=\"open &amp; paid\"><p:customer p:vip=\"yes\">Tom &amp; Jerry &lt;3 'x'</p:customer>"
                 "<o:line qty=\"2\">caf\xC3\xA9</o:line><note xmlns=\"urn:notes\">a&#10;b &quot;c&quot;</note>"
                 "<plain/></o:order>");
    const std::string written = node.ToXml(true, false, EOL_LF);
    EXPECT_EQ("<?xml version=\"1.0\"?>\n<AA:order xmlns:AA=\"urn:order\" id=\"7\" AA:state=\"open &amp; paid\">"
              "<AB:customer xmlns:AB=\"urn:people\" AB:vip=\"yes\">Tom &amp; Jerry &lt;3 'x'</AB:customer>"
              "<AA:line qty=\"2\">caf\xC3\xA9</AA:line><AB:note xmlns:AB=\"urn:notes\">a\nb &quot;c&quot;</AB:note>"
              "<plain/></AA:order>",
              written);

    CNode again;
    again.FromXml(written.c_str());
    ASSERT_EQ(4u, again.children.size());
    EXPECT_EQ("Tom & Jerry <3 'x'", again.children[0]->text);
    EXPECT_EQ("urn:people", again.children[0]->attributes.at(0).ns);
    EXPECT_EQ(written, again.ToXml(true, false, EOL_LF));
    // The defaults: declaration, tabs and CR LF.
    const std::string pretty = node.ToXml();
    EXPECT_EQ("<?xml version=\"1.0\"?>\r\n<AA:order xmlns:AA=\"urn:order\" id=\"7\" AA:state=\"open &amp; paid\">\r\n"
              "\t<AB:customer xmlns:AB=\"urn:people\" AB:vip=\"yes\">Tom &amp; Jerry &lt;3 'x'</AB:customer>\r\n"
              "\t<AA:line qty=\"2\">caf\xC3\xA9</AA:line>\r\n"
              "\t<AB:note xmlns:AB=\"urn:notes\">a\r\nb &quot;c&quot;</AB:note>\r\n\t<plain/>\r\n</AA:order>\r\n",
              pretty);
}

// Leaves its elements open, as a walk does when it stops halfway.
class CUnclosed : public CNode
{
protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext&,
                   bool) const override
    {
        writer->WriteStartElement("open", namespaceUri);
        writer->WriteStartElement("deeper", "urn:other");
    }
};

TEST(XmlObjectBaseToXml, OnlyTheHeaderedFormChecksClosing)
{
    CUnclosed unclosed;
    unclosed.ns = "urn:o";
    EXPECT_EQ("<AA:open xmlns:AA=\"urn:o\"><AB:deeper xmlns:AB=\"urn:other\"", unclosed.ToXml(false, false, EOL_LF));
    EXPECT_THROW_MSG(unclosed.ToXml(true, false, EOL_LF), COrvexException, "An Element has not been closed.");
    EXPECT_THROW_MSG(unclosed.ToXml(true, true, static_cast<EOLType>(5)), COrvexException, "Invalid EOL type.");
}

}  // namespace

#define XMLNS "http://www.w3.org/XML/1998/namespace"

TEST(XmlTextWriterNamespaces, XmlNamespaceKeepsItsOwnPrefixUndeclared)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<root|@lang " XMLNS "=en|@space " XMLNS "=preserve|>", "<root xml:lang=\"en\" xml:space=\"preserve\"/>"},
        // An alias asked for the namespace is not declared and not used.
        {"+x " XMLNS "|<root urn:r|@lang " XMLNS "=en|>", "<AA:root xmlns:AA=\"urn:r\" xml:lang=\"en\"/>"},
        {"<root|<text " XMLNS "|#t|>|>", "<root><xml:text>t</xml:text></root>"},
        {"<root|^" XMLNS " T|>", "<root xmlns:AA=\"" XSI "\" AA:type=\"xml:T\"/>"},
    };
    for (const auto& c : cases) {
        const std::string written = WriteScript(c.first);
        EXPECT_EQ(c.second, written) << c.first;
        // A namespace-aware parser reads it back, with the attributes in the XML namespace.
        CXmlDocument document;
        document.LoadXml(written.c_str());
        for (const CXmlAttribute* attribute : document.GetDocumentElement()->GetAttributes())
            if (attribute->GetLocalName() == "lang") {
                EXPECT_EQ(XMLNS, attribute->GetNamespaceURI());
            }
    }
}

// "*name uri=text" steps turned into the three calls they stand for.
std::string ExpandSimpleElements(const std::string& script)
{
    return std::regex_replace(script, std::regex(R"((^|\|)\*([^=|]*)=([^|]*))"), "$1<$2|#$3|>");
}

// A writer that sees each call, as a user's subclass would.
class CCountingWriter : public CXmlTextWriter
{
public:
    void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override
    {
        ++m_starts;
        CXmlTextWriter::WriteStartElement(localName, namespaceUri);
    }
    int m_starts = 0;
};

TEST(XmlTextWriterSimpleElement, OneCallWritesWhatTheThreeCallsWrite)
{
    const char* const scripts[] = {
        "<r|*a=t|*b=|*c=x<y&z|>",
        "<r urn:r|*a urn:r=t|*b=t|*c urn:o=t|*d urn:r=|>",
        "=urn:d|<r urn:d|*a urn:d=t|*b=t|*c urn:o=t|>",
        "+p urn:p|<r|*a urn:p=t|<b urn:p|*c urn:p=t|*d=t|>|>",
        "<r|*t " XMLNS "=t|*u " XMLNS "=|>",
        // Declarations pending from the open element, and ones its attributes made.
        "<r urn:r|+q urn:q|*a urn:q=t|*b urn:q=t|>",
        "<r urn:r|=urn:d|*a urn:d=t|*b urn:d=t|*c urn:r=t|>",
        "<r urn:r|@x urn:k=1|*a urn:k=t|*b urn:r=t|>",
        "<r urn:r|=urn:r|<c urn:r|*g urn:r=t|*h=t|>|*i urn:r=t|>",
        // Deep enough for more than one batch of tabs, after text and a comment.
        "<a|<b|<c|<d|<e|<f|<g|<h|<i|<j|<k|<l|<m|<n|<o|<p|<q|#x|!y|*s=1\r\n2|>|>|>|>|>|>|>|>|>|>|>|>|>|>|>|>|>",
        "<r|@x=1|*a=t|$s|>",
    };
    for (const char* script : scripts)
        for (bool formatted : {false, true}) {
            ASSERT_EQ(ExpandSimpleElements(script).find('*'), std::string::npos) << script;
            for (EOLType eol : {EOL_LF, EOL_CRLF})
                EXPECT_EQ(WriteScript(ExpandSimpleElements(script), formatted, eol), WriteScript(script, formatted, eol))
                    << script << (formatted ? " formatted" : "") << (eol == EOL_CRLF ? " CRLF" : "");
        }

    // Without an open element it is the root, with its declaration.
    CXmlTextWriter alone;
    alone.SetFormatted(false);
    OrvexXmlLib5::Detail::CWriterAccess::WriteSimpleElement(&alone, "a", "urn:a", "t");
    EXPECT_EQ("<AA:a xmlns:AA=\"urn:a\">t</AA:a>", alone.GetString());

    // A derived writer sees the three calls.
    CCountingWriter counting;
    OrvexTest::RunWriterScript(counting, "<r|*a=t|*b urn:b=t|>");
    EXPECT_EQ(3, counting.m_starts);
}

TEST(XmlTextWriterBytes, EncodingsGiveUtf8OrUtf16WithoutMark)
{
    CXmlTextWriter writer;
    writer.SetFormatted(false);
    OrvexTest::RunWriterScript(writer, "D2|<caf\xC3\xA9|#\xF0\x9F\x98\x80|>");
    const std::string text = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<caf\xC3\xA9>\xF0\x9F\x98\x80</caf\xC3\xA9>";
    std::string utf16;
    for (char16_t unit : std::u16string(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<caf\u00E9>\U0001F600</caf\u00E9>"))
        utf16 += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    // The declaration names UTF-16 but bytes follow the argument alone.
    EXPECT_EQ(text, writer.GetBytes(Encoding_UTF8).GetString());
    EXPECT_EQ(utf16, writer.GetBytes(Encoding_UTF16).GetString());
    EXPECT_EQ(utf16, writer.GetBytes(Encoding_UTF16_NoDeclaration).GetString());
    for (int bad : {0, 4, -1})
        EXPECT_THROW_MSG(writer.GetBytes(static_cast<XmlEncoding>(bad)), COrvexException,
                         "Unknown Encoding, select UTF-8");
    EXPECT_EQ(text, writer.GetString());
}
