// Hostile and damaged documents through the generated classes: a purchase order cut
// after its first item, elements nested past the depth limit, and caller options at
// the edge of what the writer takes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestUtil.h"
#include "orvexxml/collections/Element.h"
#include "orvexxml/xml/XmlDocument.h"
#include "examples/ExamplePaths.h"
#include "examples/binding/Order.h"
#include "examples/echo/EchoNode.h"
#include "examples/purchase-order/PurchaseOrderTools.h"

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
    EXPECT_THROW_MSG(order->FromXml("<?xml version='1.0'?>\n<purchaseOrder"), COrvexException,
                     "Invalid or empty XML document");

    // The lenient reading loads the part before the cut: the missing items element
    // end is no error to it, and one item comes back.
    CXmlSerializationContext lenient;
    lenient.SetAllowTruncatedDocuments(true);
    order->FromXml(cut.c_str(), lenient);
    ASSERT_FALSE(order->GetItems().IsNull());
    EXPECT_EQ(order->GetItems()->GetItem()->GetCount(), 1);
    order->FromXml(wide, lenient);
    EXPECT_EQ(order->GetItems()->GetItem()->GetCount(), 1);

    order->FromXml(whole.c_str());
    EXPECT_EQ(order->GetItems()->GetItem()->GetCount(), 2);
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
std::string Nested(int depth)
{
    std::string text;
    for (int i = 0; i < depth; ++i) text += "<a>";
    for (int i = 0; i < depth; ++i) text += "</a>";
    return text;
}
// As an untyped element writes it: the innermost element is empty.
std::string Written(int depth)
{
    std::string text;
    for (int i = 1; i < depth; ++i) text += "<a>";
    text += "<a/>";
    for (int i = 1; i < depth; ++i) text += "</a>";
    return text;
}
}  // namespace

TEST(HostileInput, UntypedElementsNestedPastTheDepthLimitFailInsteadOfOverflowingTheStack)
{
    const std::string refusal = "Elements are nested deeper than 1000 levels";
    // At the limit an untyped element reads, writes, copies and frees the whole depth.
    CElement atLimit("a");
    atLimit.FromXml(Nested(1000).c_str());
    EXPECT_EQ(atLimit.ToXml(false, false, EOL_LF), Written(1000));
    const CElement fromObject(&atLimit);
    EXPECT_EQ(fromObject.ToXml(false, false, EOL_LF), Written(1000));

    // Hundreds of thousands of levels fail as the first level past the limit does,
    // from text and from the binary form.
    CXmlSerializationContext context;
    for (int depth : {1001, 300000}) {
        CElement tooDeep("a");
        EXPECT_THROW_MSG(tooDeep.FromXml(Nested(depth).c_str()), COrvexException, refusal) << depth;
        // The tree alone holds any depth: only the recursive walks are capped.
        CXmlDocument document(context);
        document.LoadXml(Nested(depth).c_str());
        CXmlObjectBase& asBase = tooDeep;
        const std::string wrapped = "<w>" + Nested(depth) + "</w>";
        CBinaryData bytes(reinterpret_cast<unsigned char*>(const_cast<char*>(wrapped.data())),
                          static_cast<unsigned long>(wrapped.size()), false);
        EXPECT_THROW_MSG(asBase.FromXmlStream(bytes, context), COrvexException, refusal) << depth;
    }

    // A tree built in code past the limit fails to write rather than recursing on.
    CElement top("a");
    CElement* last = &top;
    std::vector<CSmartPtr<CElement>> chain;
    for (int i = 1; i < 1001; ++i) {
        chain.push_back(new CElement("a"));
        last->GetChildElements()->Add(chain.back().Get());
        last = chain.back().Get();
    }
    EXPECT_THROW_MSG(top.ToXml(false, false, EOL_LF), COrvexException, refusal);
    EXPECT_THROW_MSG(top.ToFastInfosetStream(), COrvexException, refusal);
    chain[997]->GetChildElements()->Clear();
    EXPECT_EQ(top.ToXml(false, false, EOL_LF), Written(999));
}
