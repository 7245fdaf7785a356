// What the demo, the end-to-end tests and the benchmark do with purchase orders
// beyond the generated classes: totals, large generated orders, file text.
#pragma once

#include <cstddef>
#include <string>

#include "examples/purchase-order/PurchaseOrder.h"

namespace OrvexExamples {

// The sum over the items of quantity x USPrice, exact; 0 for an order without items.
CDecimal OrderTotal(const CPurchaseOrderType& order);

// The Primer's addresses and comment with itemCount generated items: part numbers
// cycle through the SKU space, quantities through 1 to 99, prices have two places,
// and every third item has a comment and every fifth a ship date.
CSmartPtr<CPurchaseOrder> MakeLargeOrder(std::size_t itemCount);

// The whole content of a file; fails with COrvexException "Failed to read the file [%s]".
std::string ReadTextFile(const std::string& path);

}  // namespace OrvexExamples
