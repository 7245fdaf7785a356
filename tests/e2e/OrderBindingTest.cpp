// Reading and writing the generator-shaped purchase order through FromXml and ToXml.
#include <gtest/gtest.h>

#include "TestUtil.h"
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

}  // namespace

TEST(OrderBinding, Probe)
{
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->FromXml(kOrderXml);
    std::cout << order->ToXml() << std::endl;
    std::cout << order->ToXml(false, false) << std::endl;
}
