// Generated classes written as Fast Infoset through the entry points: the bytes
// of the Java library for the Primer's order, the declaration, compression, files.
#include <gtest/gtest.h>

#include <string>

#include "TestUtil.h"
#include "examples/ExamplePaths.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "fastinfoset/FastInfosetTestSupport.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;
using namespace OrvexTest;

namespace {

CSmartPtr<CPurchaseOrder> Primer()
{
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    order->FromXml(ReadTextFile(ExamplePath("purchase-order/po.xml")).c_str());
    return order;
}

TEST(FastInfosetWrite, PrimerOrderIsTheJavaLibrarysDocument)
{
    const std::string expected = ReadBinaryFile(VectorPath("purchase-order.finf"));
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(Hex(Primer()->ToFastInfosetStream().GetString()), Hex(expected));
    // The declaration goes in front of the same document.
    EXPECT_EQ(Primer()->ToFastInfosetStream(FInfoDecl_V10_StandaloneYes).GetString(),
              "<?xml version='1.0' encoding='finf' standalone='yes'?>" + expected);
}

// A facet broken on the way fails the write as it fails the XML text.
TEST(FastInfosetWrite, FailuresOfTheWalkComeThrough)
{
    CSmartPtr<CPurchaseOrder> order = Primer();
    std::string textFailure, binaryFailure;
    order->GetItems()->GetItem()->Item(0)->SetQuantity(CBigInteger("100"));
    try {
        order->ToXml();
    } catch (const COrvexException& e) {
        textFailure = e.GetMessage();
    }
    try {
        order->ToFastInfosetStream();
    } catch (const COrvexException& e) {
        binaryFailure = e.GetMessage();
    }
    EXPECT_FALSE(textFailure.empty());
    EXPECT_EQ(binaryFailure, textFailure);
}

}  // namespace
