// The Primer's purchase order through the generated classes: the sample instance
// read and written back as text and as the Java library's Fast Infoset, every facet
// of the schema broken on writing, reading failures with their chains, and values
// that must survive a round trip exactly.
#include <gtest/gtest.h>

#include <typeinfo>

#include "TestUtil.h"
#include "examples/ExamplePaths.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "fastinfoset/FastInfosetTestSupport.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;
using OrvexTest::Replaced;

namespace {

// The Primer's instance as the writer gives it back, unformatted.
const char* const kWrittenPrimer =
    "<purchaseOrder orderDate=\"1999-10-20\">"
    "<shipTo country=\"US\"><name>Alice Smith</name><street>123 Maple Street</street><city>Mill Valley</city>"
    "<state>CA</state><zip>90952</zip></shipTo>"
    "<billTo country=\"US\"><name>Robert Smith</name><street>8 Oak Avenue</street><city>Old Town</city>"
    "<state>PA</state><zip>95819</zip></billTo>"
    "<comment>Hurry, my lawn is going wild!</comment>"
    "<items>"
    "<item partNum=\"872-AA\"><productName>Lawnmower</productName><quantity>1</quantity><USPrice>148.95</USPrice>"
    "<comment>Confirm this is electric</comment></item>"
    "<item partNum=\"926-AA\"><productName>Baby Monitor</productName><quantity>1</quantity><USPrice>39.98</USPrice>"
    "<shipDate>1999-05-21</shipDate></item>"
    "</items></purchaseOrder>";

std::string PrimerText()
{
    return ReadTextFile(ExamplePath("purchase-order/po.xml"));
}

CSmartPtr<CPurchaseOrder> ReadOrder(const std::string& xml)
{
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    order->FromXml(xml.c_str());
    return order;
}

// The full message, the class of the outermost exception and that of the cause.
struct Failure
{
    std::string full;
    bool outerIsValidation = false;
    std::string causeClass;
};

template <typename Fn>
Failure FailureOf(Fn&& fn)
{
    try {
        fn();
    } catch (const COrvexException& e) {
        const COrvexException* cause = &e;
        while (cause->GetInnerException()) cause = cause->GetInnerException();
        const std::pair<const std::type_info*, const char*> names[] = {
            {&typeid(COrvexException), "COrvexException"}, {&typeid(COrvexValidationException), "Validation"},
            {&typeid(COrvexInvalidValueException), "InvalidValue"},
            {&typeid(COrvexInvalidParamException), "InvalidParam"}};
        std::string name = "other";
        for (const auto& n : names) name = *n.first == typeid(*cause) ? n.second : name;
        return {e.GetFullMessage(), typeid(e) == typeid(COrvexValidationException), name};
    }
    return {"no failure", false, ""};
}

}  // namespace

TEST(PurchaseOrder, PrimerInstanceReadsAndWritesBackUnchanged)
{
    // The exact text shows every value read; the total reads them as typed values.
    CSmartPtr<CPurchaseOrder> order = ReadOrder(PrimerText());
    EXPECT_EQ(CDateTime::date, order->GetOrderDate().GetType());
    EXPECT_EQ("188.93", OrderTotal(*order).ToString());
    const std::string written = order->ToXml(false, false);
    EXPECT_EQ(kWrittenPrimer, written);
    EXPECT_EQ(written, ReadOrder(written)->ToXml(false, false));

    // The formatted form with its declaration reads back to the same values too.
    const std::string formatted = order->ToXml(true, true, EOL_LF);
    EXPECT_EQ(0u, formatted.find("<?xml version=\"1.0\"?>\n<purchaseOrder orderDate=\"1999-10-20\">\n\t<shipTo"));
    EXPECT_EQ(written, ReadOrder(formatted)->ToXml(false, false));

    // As Fast Infoset: the Java library's bytes, the declaration in front of them.
    const std::string expected = OrvexTest::ReadBinaryFile(OrvexTest::VectorPath("purchase-order.finf"));
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(OrvexTest::Hex(expected), OrvexTest::Hex(order->ToFastInfosetStream().GetString()));
    EXPECT_EQ("<?xml version='1.0' encoding='finf' standalone='yes'?>" + expected,
              order->ToFastInfosetStream(FInfoDecl_V10_StandaloneYes).GetString());
}

TEST(PurchaseOrder, EveryFacetBrokenOnWritingNamesThePathDownToIt)
{
    const std::string toItem =
        "Failed to convert the element [purchaseOrder] to XML\n"
        "Failed to convert the element [items] to XML\n"
        "Failed to convert the element [item] to XML\n";
    const std::string attributes = "Failed to convert attributes to XML\n";
    const std::string toBillTo = "Failed to convert the element [purchaseOrder] to XML\n"
                                 "Failed to convert the element [billTo] to XML\n" + attributes;
    const std::pair<const char*, const char*> cases[] = {
        // SKU: \d{3}-[A-Z]{2}, matched against the whole value.
        {"partNum", "872-AAB"}, {"partNum", "872-aa"},
        // quantity: a positiveInteger below 100.
        {"quantity", "100"}, {"quantity", "0"}, {"quantity", "100000000000000000000000"},
        // country: fixed to US.
        {"country", "CA"},
    };
    for (const auto& [field, value] : cases) {
        CSmartPtr<CPurchaseOrder> order = ReadOrder(PrimerText());
        const CSmartPtr<CItem> item = order->GetItems()->GetItem()->Item(0);
        const std::string name = field;
        const std::string full = (name == "partNum" ? toItem + attributes : name == "quantity" ? toItem : toBillTo) +
                                 "Invalid Value for " + name + " [" + value + "]";
        if (name == "partNum")
            item->SetPartNum(value);
        else if (name == "quantity")
            item->SetQuantity(CBigInteger(value));
        else
            order->GetBillTo()->SetCountry(value);
        const Failure failure = FailureOf([&] { order->ToXml(); });
        EXPECT_EQ(full, failure.full);
        EXPECT_TRUE(failure.outerIsValidation) << full;
        EXPECT_EQ("COrvexException", failure.causeClass) << full;
        // The Fast Infoset writer takes the same walk and fails the same way.
        EXPECT_EQ(full, FailureOf([&] { order->ToFastInfosetStream(); }).full);
    }

    // The boundaries that pass: 1 and 99.
    CSmartPtr<CPurchaseOrder> order = ReadOrder(PrimerText());
    order->GetItems()->GetItem()->Item(0)->SetQuantity(99);
    order->GetItems()->GetItem()->Item(1)->SetQuantity(1);
    EXPECT_NE(std::string::npos, order->ToXml(false, false).find("<quantity>99</quantity>"));
}

TEST(PurchaseOrder, ReadingFailuresNameTheElementsOnTheWay)
{
    const std::string toItem =
        "Failed to process the element [purchaseOrder]\n"
        "Failed to process the element [items]\n"
        "Failed to process the element [item]\n";
    struct Case { const char* from; const char* to; std::string full; const char* causeClass; } cases[] = {
        {"<quantity>1</quantity>", "<quantity>one</quantity>",
         toItem + "The string representing a Decimal, contained an invalid char at position 0 [one]", "InvalidValue"},
        {"<USPrice>39.98</USPrice>", "<USPrice>39,98</USPrice>",
         toItem + "The string representing a Decimal, contained an invalid char at position 2 [39,98]", "InvalidValue"},
        {"<shipDate>1999-05-21</shipDate>", "<shipDate>1999-05</shipDate>",
         toItem + "Dates assigned to [shipDate] must be of type dt_date", "InvalidParam"},
        {"orderDate=\"1999-10-20\"", "orderDate=\"1999-13-20\"",
         "Failed to process the element [purchaseOrder]\nInvalid Month [13] (1 <= month <= 12)", "InvalidValue"},
        {"<item partNum=\"926-AA\">", "<item>", toItem + "Failed to find the required Attribute [partNum]",
         "Validation"},
        {"<productName>Lawnmower</productName>", "", toItem + "Failed to find a required element [productName]",
         "Validation"},
        {"<billTo country=\"US\">", "<billTo country=\"US\" zone=\"east\">",
         "Failed to process the element [purchaseOrder]\nFailed to process the element [billTo]\n"
         "Unexpected Attribute [zone] found.",
         "Validation"},
        {"<comment>Hurry", "<note/><comment>Hurry",
         "Failed to process the element [purchaseOrder]\nFailed to find a required element [items]", "Validation"},
    };
    for (const Case& c : cases) {
        const std::string xml = Replaced(PrimerText(), c.from, c.to);
        CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
        const Failure failure = FailureOf([&] { order->FromXml(xml.c_str()); });
        EXPECT_EQ(c.full, failure.full);
        EXPECT_TRUE(failure.outerIsValidation) << c.to;
        EXPECT_EQ(c.causeClass, failure.causeClass) << c.to;
    }

    // The context's options let the same documents through where the schema allows a recovery.
    CXmlSerializationContext lenient;
    lenient.SetIgnoreUnknownElements(true);
    lenient.SetIgnoreUnknownAttributes(true);
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    std::string xml = Replaced(PrimerText(), "<comment>Hurry", "<note/><comment>Hurry");
    order->FromXml(Replaced(xml, "<billTo country=\"US\">", "<billTo country=\"US\" zone=\"east\">").c_str(), lenient);
    EXPECT_FALSE(order->IsValidComment());  // skipped on the way to the mandatory items
    EXPECT_EQ("188.93", OrderTotal(*order).ToString());
}

// Zoned dates in an attribute and an element, and a price past any double, keep
// their text; the boundaries of each value type are the value tests' own.
TEST(PurchaseOrder, ZonedDatesAndLongPricesSurviveTheRoundTrip)
{
    const char* const price = "1234567890123456789012345.678901234567891";
    std::string xml = Replaced(PrimerText(), "1999-10-20", "1999-10-20-05:00");
    xml = Replaced(Replaced(xml, "1999-05-21", "1999-05-21Z"), "39.98", price);
    CSmartPtr<CPurchaseOrder> order = ReadOrder(xml);
    EXPECT_TRUE(order->GetOrderDate().IsUTC());  // a zone is stated
    const std::string written = order->ToXml(false, false);
    for (const std::string& part : std::initializer_list<std::string>{"orderDate=\"1999-10-20-05:00\"",
                                                                      "<shipDate>1999-05-21Z</shipDate>",
                                                                      "<USPrice>" + std::string(price) + "<"})
        EXPECT_NE(std::string::npos, written.find(part)) << part;
    CSmartPtr<CPurchaseOrder> again = ReadOrder(written);
    EXPECT_EQ(written, again->ToXml(false, false));
    EXPECT_EQ(CDecimal("148.95") + CDecimal(price), OrderTotal(*again));
}

TEST(PurchaseOrder, SettersKeepTheObjectLegal)
{
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    CDateTime month;
    month.SetGYearMonth(1999, 10);
    EXPECT_THROW_MSG(order->SetOrderDate(month), COrvexInvalidParamException,
                     "Dates assigned to [orderDate] must be of type dt_date");
    EXPECT_FALSE(order->IsValidOrderDate());
    EXPECT_THROW_MSG(order->SetShipTo(nullptr), COrvexInvalidParamException,
                     "The Property [shipTo] is mandatory, it may node be NULL");

    // An address made on its own takes the element name of the property it goes into;
    // a new item's quantity starts at 1, a legal positiveInteger.
    CSmartPtr<CUSAddress> address = CUSAddress::CreateInstance();
    address->SetName("Carol");
    order->SetBillTo(address);
    order->GetItems()->GetItem()->Add()->SetPartNum("123-AB");
    EXPECT_EQ(
        "<purchaseOrder><shipTo country=\"US\"><name/><street/><city/><state/><zip>0</zip></shipTo>"
        "<billTo country=\"US\"><name>Carol</name><street/><city/><state/><zip>0</zip></billTo>"
        "<items><item partNum=\"123-AB\"><productName/><quantity>1</quantity>"
        "<USPrice>0</USPrice></item></items></purchaseOrder>",
        order->ToXml(false, false));
}
