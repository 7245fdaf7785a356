// Hostile and damaged documents through the generated classes: a purchase order cut
// after its first item, caller options at the edge of what the writer takes, and
// names that only the parser's Latin-1 and UTF-16 reading would let through, which
// are refused on every input as UTF-8 input refuses them, so that what is read
// writes what reads back. Documents nested past the depth limit are in
// DeepNestingTest.cpp.
#include <gtest/gtest.h>

#include <string>

#include "TestUtil.h"
#include "examples/ExamplePaths.h"
#include "examples/binding/Order.h"
#include "examples/echo/EchoNode.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

TEST(HostileInput, AnOrderCutAfterItsFirstItemFailsUnlessTheContextAllowsIt)
{
    const std::string whole = ReadTextFile(ExamplePath("purchase-order/po.xml"));
    const std::string cut = whole.substr(0, whole.find("</item>") + 7);
    const std::u16string wideCut(cut.begin(), cut.end());
    const auto* wide = reinterpret_cast<const unsigned short*>(wideCut.c_str());

    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    EXPECT_THROW_MSG(order->FromXml(cut.c_str()), COrvexException, "no element found at line 24");
    EXPECT_THROW_MSG(order->FromXml(wide), COrvexException, "no element found at line 24");

    // The lenient reading loads the part before the cut: the missing items element
    // end is no error to it, and one item comes back.
    CXmlSerializationContext lenient;
    lenient.SetAllowTruncatedDocuments(true);
    order->FromXml(cut.c_str(), lenient);
    ASSERT_FALSE(order->GetItems().IsNull());
    EXPECT_EQ(order->GetItems()->GetItem()->GetCount(), 1);
    order->FromXml(wide, lenient);
    EXPECT_EQ(order->GetItems()->GetItem()->GetCount(), 1);
}

TEST(HostileInput, AnEmptyProcessingInstructionWritesAndReadsBack)
{
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    order->FromXml(ReadTextFile(ExamplePath("purchase-order/po.xml")).c_str());
    CXmlSerializationContext context;
    context.GetProcessingInstructions().push_back("");
    const std::string written = order->ToXml(false, false, EOL_LF, context);
    EXPECT_EQ(written.substr(0, 17), "\n\n<purchaseOrder ");
    CSmartPtr<CPurchaseOrder> again = CPurchaseOrder::CreateInstance();
    again->FromXml(written.c_str());
    EXPECT_EQ(again->ToXml(false, false, EOL_LF), order->ToXml(false, false, EOL_LF));
}

TEST(HostileInput, NamespaceUrisNeedingEscapesAndTheXmlNamespaceWriteAndReadBack)
{
    const std::string xml =
        "<o:Order xmlns:o='urn:orvex:order' xmlns:x='urn:a&amp;b&lt;&quot;' id='42' status='held' x:flag='1' "
        "xml:lang='en'><o:Customer><o:Name>Ada</o:Name><o:Address><o:Street>1 Way</o:Street><o:City>Leeds</o:City>"
        "</o:Address></o:Customer><o:Line sku='A1'><o:Quantity>3</o:Quantity></o:Line></o:Order>";
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->FromXml(xml.c_str());
    const std::string written = order->ToXml(false, false, EOL_LF);
    EXPECT_NE(std::string::npos, written.find(" xmlns:AB=\"urn:a&amp;b&lt;&quot;\" AB:flag=\"1\"")) << written;
    EXPECT_NE(std::string::npos, written.find(" xml:lang=\"en\"")) << written;
    EXPECT_EQ(std::string::npos, written.find("XML/1998")) << written;
    CSmartPtr<COrder> again = COrder::CreateInstance();
    again->FromXml(written.c_str());
    EXPECT_EQ(again->ToXml(false, false, EOL_LF), written);

    // An element of the XML namespace keeps its reserved prefix too.
    CEchoNode echo;
    echo.FromXml("<r xmlns:p='urn:p&amp;q'><xml:note p:a='1'>t</xml:note></r>");
    const std::string echoed = echo.ToXml(false, false, EOL_LF);
    EXPECT_EQ(echoed, "<r><xml:note xmlns:AA=\"urn:p&amp;q\" AA:a=\"1\">t</xml:note></r>");
    CEchoNode echoAgain;
    echoAgain.FromXml(echoed.c_str());
    EXPECT_EQ(echoAgain.ToXml(false, false, EOL_LF), echoed);
}

namespace {

const char16_t kBody[] = u" xmlns:o=\"urn:orvex:order\" id=\"7\" status=\"held\"><o:Customer vip=\"true\"><o:Name>Ada"
                         u"</o:Name><o:Address country=\"GB\"><o:Street>1 Way</o:Street><o:City>Leeds</o:City>"
                         u"<o:Zip>7</o:Zip></o:Address></o:Customer><o:Line sku=\"A1\"><o:Quantity>3</o:Quantity>pens</o:Line>"
                         u"<o:Note>noon</o:Note>";

const unsigned short* Units(const std::u16string& text) { return reinterpret_cast<const unsigned short*>(text.c_str()); }

std::string Utf8(char16_t c)
{
    return c < 0x80 ? std::string(1, static_cast<char>(c))
                    : std::string{static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
}

bool Utf8TakesName(const std::string& name)
{
    try {
        CXmlDocument document;
        document.LoadXml(("<" + name + "/>").c_str());
        return true;
    } catch (const COrvexException&) {
        return false;
    }
}

const char* const kInvalidToken = "not well-formed (invalid token) at line 1";

}  // namespace

// Each character of the Latin-1 range as part of a root name read from UTF-16 and
// from declared Latin-1 text: either both refuse it as UTF-8 does, or the object
// writes a name that reads back the same.
TEST(ReadBack, RootNamesFromUtf16AndLatin1WriteWhatReadsBack)
{
    int refused = 0;
    for (char16_t c = 0x80; c <= 0xFF; ++c) {
        const std::u16string names[] = {u"O" + std::u16string(1, c), std::u16string(1, c)};
        for (const std::u16string& name : names) {
            const std::u16string xml = u"<" + name + kBody + u"</" + name + u">";
            std::string latin1 = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
            for (char16_t unit : xml) latin1 += static_cast<char>(unit);
            std::string utf8Name;
            for (char16_t unit : name) utf8Name += Utf8(unit);
            const bool valid = Utf8TakesName(utf8Name);

            CSmartPtr<COrder> fromWide = COrder::CreateInstance();
            CSmartPtr<COrder> fromLatin1 = COrder::CreateInstance();
            if (!valid) {
                ++refused;
                EXPECT_THROW_MSG(fromWide->FromXml(Units(xml)), COrvexException, kInvalidToken) << int(c);
                EXPECT_THROW_MSG(fromLatin1->FromXml(latin1.c_str()), COrvexException, kInvalidToken) << int(c);
                continue;
            }
            fromWide->FromXml(Units(xml));
            fromLatin1->FromXml(latin1.c_str());
            const std::string written = fromWide->ToXml(false, false, EOL_LF);
            EXPECT_EQ(written, fromLatin1->ToXml(false, false, EOL_LF)) << int(c);
            CSmartPtr<COrder> back = COrder::CreateInstance();
            back->FromXml(written.c_str());
            EXPECT_EQ(written, back->ToXml(false, false, EOL_LF)) << int(c);
            EXPECT_EQ(0u, written.find("<AA:" + utf8Name + " ")) << int(c);
        }
    }
    // U+0080 to U+00BF, the times and the division sign are refused in both places,
    // except the middle dot after the first character.
    EXPECT_EQ(2 * 0x40 + 2 * 2 - 1, refused);
}

// Attribute names and namespace prefixes go by the same rule.
TEST(ReadBack, AttributeNamesAndPrefixesFromUtf16)
{
    const std::u16string cases[] = {
        u"<o:Order xmlns:o=\"urn:orvex:order\" x\u00B5=\"1\"/>",
        u"<o:Order xmlns:o=\"urn:orvex:order\" xmlns:\u00BA=\"urn:x\" \u00BA:x=\"1\"/>",
        u"<\u00AA:Order xmlns:\u00AA=\"urn:orvex:order\"/>",
    };
    for (const std::u16string& xml : cases) {
        CSmartPtr<COrder> order = COrder::CreateInstance();
        EXPECT_THROW_MSG(order->FromXml(Units(xml)), COrvexException, kInvalidToken);
    }
}
