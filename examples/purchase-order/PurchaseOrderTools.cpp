#include "examples/purchase-order/PurchaseOrderTools.h"

#include <cstdio>
#include <fstream>
#include <sstream>

namespace OrvexExamples {

CDecimal OrderTotal(const CPurchaseOrderType& order)
{
    CDecimal total;
    const CSmartPtr<CItemCol> items = order.GetItems()->GetItem();
    for (CItem* item : *items) total += CDecimal(item->GetQuantity()) * item->GetUSPrice();
    return total;
}

namespace {

void FillAddress(CUSAddress& address, const char* name, const char* street, const char* city, const char* state,
                 const char* zip)
{
    address.SetName(name);
    address.SetStreet(street);
    address.SetCity(city);
    address.SetState(state);
    address.SetZip(CDecimal(zip));
}

}  // namespace

CSmartPtr<CPurchaseOrder> MakeLargeOrder(std::size_t itemCount)
{
    static const char* const kProducts[] = {"Lawnmower", "Baby Monitor", "Garden hose, 25 m", "Rake & shovel",
                                            "Sprinkler <oscillating>"};
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    order->SetOrderDate(CDateTime(1999, 10, 20));
    FillAddress(*order->GetShipTo(), "Alice Smith", "123 Maple Street", "Mill Valley", "CA", "90952");
    FillAddress(*order->GetBillTo(), "Robert Smith", "8 Oak Avenue", "Old Town", "PA", "95819");
    order->SetComment("Hurry, my lawn is going wild!");
    CSmartPtr<CItemCol> items = order->GetItems()->GetItem();
    char text[32];
    for (std::size_t i = 0; i < itemCount; ++i) {
        CSmartPtr<CItem> item = items->Add();
        std::snprintf(text, sizeof text, "%03u-%c%c", static_cast<unsigned>(i % 1000),
                      static_cast<char>('A' + i / 1000 % 26), static_cast<char>('A' + i / 26000 % 26));
        item->SetPartNum(text);
        item->SetProductName(kProducts[i % 5]);
        item->SetQuantity(static_cast<unsigned>(1 + i % 99));
        std::snprintf(text, sizeof text, "%u.%02u", static_cast<unsigned>(i % 500), static_cast<unsigned>(i % 100));
        item->SetUSPrice(CDecimal(text));
        if (i % 3 == 0) item->SetComment("Confirm this is electric");
        if (i % 5 == 0) item->SetShipDate(CDateTime(1999, static_cast<unsigned char>(1 + i % 12), 21));
    }
    return order;
}

std::string ReadTextFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw COrvexException(FormatString("Failed to read the file [%s]", path.c_str()));
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace OrvexExamples
