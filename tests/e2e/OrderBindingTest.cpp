// The generator-shaped purchase order read and written through FromXml and ToXml:
// round trips, chains of failures from the root down, the root's extras.
#include <gtest/gtest.h>

#include "TestUtil.h"
#include "collections/CollectionTestTypes.h"
#include "examples/binding/Order.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

namespace {

const char* const kOrderXml =
    "<o:Order xmlns:o=\"urn:orvex:order\" xmlns:x=\"urn:x\" id=\"42\" status=\"held\" x:flag=\"1\">"
    "<o:Customer vip=\"true\"><o:Name>Ada</o:Name>"
    "<o:Address country=\"GB\"><o:Street>1 Way</o:Street><o:City>Leeds</o:City><o:Zip>7</o:Zip></o:Address>"
    "</o:Customer>"
    "<o:Line sku=\"A1\"><o:Quantity> 3 </o:Quantity>blue pens</o:Line>"
    "<o:Line sku=\"B2\">red<o:Quantity>1</o:Quantity> ink</o:Line>"
    "<o:Note>by noon</o:Note>"
    "</o:Order>";

const char* const kWritten =
    "<AA:Order xmlns:AA=\"urn:orvex:order\" id=\"42\" status=\"held\" xmlns:AB=\"urn:x\" AB:flag=\"1\">"
    "<AA:Customer vip=\"true\"><AA:Name>Ada</AA:Name><AA:Address country=\"GB\"><AA:Street>1 Way</AA:Street>"
    "<AA:City>Leeds</AA:City><AA:Zip>7</AA:Zip></AA:Address></AA:Customer>"
    "<AA:Line sku=\"A1\"><AA:Quantity>3</AA:Quantity>blue pens</AA:Line>"
    "<AA:Line sku=\"B2\"><AA:Quantity>1</AA:Quantity>red ink</AA:Line>"
    "<AA:Note>by noon</AA:Note></AA:Order>";

// Every level's message, outermost first, then the class of the innermost.
std::string Chain(const COrvexException& e)
{
    const std::string line = e.GetMessage();
    if (!e.GetInnerException()) return line + (typeid(e) == typeid(COrvexException) ? " (base)" : " (derived)");
    return line + " / " + Chain(*e.GetInnerException());
}

template <typename Fn>
std::string ChainOf(Fn&& fn)
{
    try {
        fn();
    } catch (const COrvexValidationException& e) {
        return Chain(e);
    }
    return "no failure";
}

}  // namespace

TEST(OrderBinding, ReadsEveryKindAndWritesTheSameDocumentBack)
{
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->FromXml(kOrderXml);
    EXPECT_EQ(OrderStatus_Held, order->GetStatus());
    EXPECT_EQ(3, order->GetLines()->Item(0)->GetQuantity());
    // The text property takes all of the element's direct text, around the child.
    EXPECT_EQ("red ink", order->GetLines()->Item(1)->GetDescription());

    // The exact text shows every other value read.
    const std::string written = order->ToXml(false, false);
    EXPECT_EQ(kWritten, written);
    CSmartPtr<COrder> again = COrder::CreateInstance();
    again->FromXml(written.c_str());
    EXPECT_EQ(written, again->ToXml(false, false));

    // A caller's own read of a string property holds a copy, which outlives the object.
    OrvexVariant street;
    {
        CSmartPtr<COrder> shortLived = COrder::CreateInstance();
        const std::string xml = OrvexTest::Replaced(kOrderXml, "1 Way", "a street name longer than the small buffer");
        shortLived->FromXml(xml.c_str());
        shortLived->GetCustomer()->GetAddress()->AccessProperty(1, true, street);
    }
    EXPECT_EQ("a street name longer than the small buffer", street.GetStringRef());

    // Reading again into the same object starts over.
    order->FromXml(OrvexTest::Replaced(kOrderXml, "<o:Note>by noon</o:Note>", "").c_str());
    EXPECT_FALSE(order->IsValidNote());
    EXPECT_EQ(2, order->GetLines()->GetCount());
}

// Missing members, attributes and counts along the chain are in the purchase order
// and library tests; here the class of the cause three levels down, and the
// wildcard attribute's namespace rule.
TEST(OrderBinding, FailuresThreeLevelsDownNameEveryElementOnTheWay)
{
    struct Case { const char* from; const char* to; const char* chain; } cases[] = {
        {"<o:Zip>7</o:Zip>", "<o:Zip>7a</o:Zip>",
         "Failed to process the element [Order] / Failed to process the element [Customer] / Failed to process the "
         "element [Address] / The value [7a] can not be converted to a i4 (derived)"},
        {"id=\"42\"", "id=\"42\" o:id=\"1\"",
         "Failed to process the element [Order] / Invalid namespace [urn:orvex:order]. The namespace must be one of "
         "[##other] where the target namespace is [urn:orvex:order] (derived)"},
    };
    for (const Case& c : cases) {
        CSmartPtr<COrder> order = COrder::CreateInstance();
        const std::string xml = OrvexTest::Replaced(kOrderXml, c.from, c.to);
        EXPECT_EQ(c.chain, ChainOf([&] { order->FromXml(xml.c_str()); })) << c.to;
    }
}

TEST(OrderBinding, RootExtrasComeOnlyOnTheRoot)
{
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->FromXml(kOrderXml);
    order->GetLines()->Remove(1);

    CXmlSerializationContext context;
    context.GetProcessingInstructions().push_back("<?app one?>");
    context.GetNamespaceAliases().Add("x", "urn:x");
    context.GetNamespaceAliases().Add("o", kOrderNamespace);
    context.GetAdditionalRootAttributes()->Add("root", "r");
    context.SetInLineSchema("s:schemaLocation=\"urn:orvex:order order.xsd\"");
    EXPECT_EQ(
        "<?app one?>\n\n<o:Order xmlns:o=\"urn:orvex:order\" xmlns:x=\"urn:x\" root=\"r\" id=\"42\" "
        "status=\"held\" x:flag=\"1\" \ns:schemaLocation=\"urn:orvex:order order.xsd\"\n>"
        "<o:Customer vip=\"true\"><o:Name>Ada</o:Name><o:Address country=\"GB\"><o:Street>1 Way</o:Street>"
        "<o:City>Leeds</o:City><o:Zip>7</o:Zip></o:Address></o:Customer>"
        "<o:Line sku=\"A1\"><o:Quantity>3</o:Quantity>blue pens</o:Line>"
        "<o:Note>by noon</o:Note></o:Order>",
        order->ToXml(false, false, EOL_LF, context));

    CXmlSerializationContext defaulted;
    defaulted.SetDefaultNamespaceURI(kOrderNamespace);
    const std::string written = order->ToXml(false, false, EOL_LF, defaulted);
    EXPECT_EQ(0u, written.find("<Order xmlns=\"urn:orvex:order\" id=\"42\""));
    EXPECT_NE(std::string::npos, written.find("<Customer vip=\"true\"><Name>Ada</Name>"));
}

TEST(OrderBinding, CollectionListenerHearsEveryLineRead)
{
    CSmartPtr<OrvexTest::CListener> watcher(new OrvexTest::CListener());
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->GetLines()->AddEventListener(watcher);
    order->GetLines()->Add()->SetSku("pre");
    order->FromXml(kOrderXml);  // Init clears one, the walk adds two
    EXPECT_EQ(4u, watcher->sources.size());
    std::string skus;
    for (CLine* line : *order->GetLines()) skus += line->GetSku();
    EXPECT_EQ("A1B2", skus);
    order->GetLines()->RemoveEventListener(watcher);
}
