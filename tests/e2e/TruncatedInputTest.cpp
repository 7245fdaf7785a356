// Hostile and damaged documents through the generated classes: a purchase order cut
// after its first item, entity declarations that would make the parser recurse, and
// caller options at the edge of what the writer takes.
#include <gtest/gtest.h>

#include <string>

#include "TestUtil.h"
#include "examples/ExamplePaths.h"
#include "examples/purchase-order/PurchaseOrderTools.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

TEST(TruncatedInput, AnOrderCutAfterItsFirstItemFailsUnlessTheContextAllowsIt)
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

TEST(TruncatedInput, EntityChainsAreRefusedUnlessTheContextAllowsThem)
{
    std::string chain = "<!DOCTYPE purchaseOrder [\n";
    for (int i = 0; i < 20000; ++i)
        chain += "<!ENTITY e" + std::to_string(i) + (i ? " '&e" + std::to_string(i - 1) + ";'>\n" : " 'x'>\n");
    const std::string declarations = chain;
    chain += "]>\n<purchaseOrder><comment>&e19999;</comment></purchaseOrder>";

    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    EXPECT_THROW_MSG(order->FromXml(chain.c_str()), COrvexException,
                     "The document declares more than 64 entities at line 66; the serialization context can allow "
                     "more");

    // Allowed, a short chain expands into the value.
    std::string shortChain = declarations.substr(0, declarations.find("<!ENTITY e100 "));
    shortChain += "]>\n<purchaseOrder orderDate='1999-10-20'><comment>&e99;</comment></purchaseOrder>";
    CXmlSerializationContext trusting;
    trusting.SetAllowManyEntityDeclarations(true);
    trusting.SetIgnoreMissingMandatoryElements(true);
    order->FromXml(shortChain.c_str(), trusting);
    EXPECT_EQ(order->GetComment(), "x");
}

TEST(TruncatedInput, AnEmptyProcessingInstructionWritesAndReadsBack)
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
