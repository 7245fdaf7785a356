// The main demo: shows the library at work on the samples shipped in examples/.
#include "orvexxml/OrvexXmlLib5.h"

#include "examples/ExamplePaths.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "examples/library/Library.h"
#include "tools/common/TreeDump.h"

#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

namespace {

using namespace OrvexXmlLib5;

bool ReadFile(const std::string& path, std::string& bytes)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << "orvex-demo: cannot open " << path << "\n";
        return false;
    }
    std::ostringstream buffer;
    buffer << file.rdbuf();
    bytes = buffer.str();
    return true;
}

// Loads the document into the intermediate tree and prints it.
int ShowTree(const std::string& path)
{
    std::string bytes;
    if (!ReadFile(path, bytes)) return 1;
    CXmlDocument document;
    document.LoadXml(bytes.c_str());
    std::cout << "Document: " << path << "\n\nPrefixes:\n";
    OrvexTools::PrintPrefixes(document, std::cout);
    std::cout << "\nTree ({namespace}name, @attribute, text):\n";
    OrvexTools::PrintTree(document.GetDocumentElement(), std::cout);
    return 0;
}

// Reads any document into an untyped CElement, without a schema, and writes it
// back: compact when asked (so the text is exactly what was read), else formatted.
int Echo(const std::string& path, bool compact)
{
    std::string bytes;
    if (!ReadFile(path, bytes)) return 1;
    CSmartPtr<CElement> root(new CElement(""));
    root->FromXml(bytes.c_str());
    std::cout << root->ToXml(true, !compact, EOL_LF);
    return 0;
}

// Reads a purchase order into the generated classes, prints a summary with the
// exact total, adds an item and writes the order back, formatted.
int PurchaseOrder(const std::string& path)
{
    using namespace OrvexExamples;
    std::string bytes;
    if (!ReadFile(path, bytes)) return 1;
    CSmartPtr<CPurchaseOrder> order = CPurchaseOrder::CreateInstance();
    order->FromXml(bytes.c_str());

    std::cout << "Purchase order " << path << "\n";
    if (order->IsValidOrderDate()) std::cout << "  ordered " << order->GetOrderDate().ToString() << "\n";
    std::cout << "  ship to " << order->GetShipTo()->GetName() << ", " << order->GetShipTo()->GetCity() << " "
              << order->GetShipTo()->GetState() << "\n";
    std::cout << "  bill to " << order->GetBillTo()->GetName() << ", " << order->GetBillTo()->GetCity() << " "
              << order->GetBillTo()->GetState() << "\n";
    if (order->IsValidComment()) std::cout << "  comment \"" << order->GetComment() << "\"\n";
    const CSmartPtr<CItemCol> items = order->GetItems()->GetItem();
    std::cout << "  " << items->GetCount() << " item(s):\n";
    for (CItem* item : *items) {
        std::cout << "    " << item->GetPartNum() << "  " << std::left << std::setw(24) << item->GetProductName()
                  << std::right << std::setw(4) << item->GetQuantity().ToString() << " x " << std::setw(10)
                  << item->GetUSPrice().ToString(2);
        if (item->IsValidShipDate()) std::cout << "  ships " << item->GetShipDate().ToString();
        std::cout << "\n";
    }
    std::cout << "  total " << OrderTotal(*order).ToString(2) << "\n\n";

    CSmartPtr<CItem> added = items->Add();
    added->SetPartNum("455-BX");
    added->SetProductName("Garden hose");
    added->SetQuantity(2);
    added->SetUSPrice(CDecimal("24.99"));
    CDateTime shipDate;
    shipDate.SetDate(1999, 10, 27);
    added->SetShipDate(shipDate);
    std::cout << "Added " << added->GetQuantity().ToString() << " x " << added->GetProductName() << "; new total "
              << OrderTotal(*order).ToString(2) << "\n\n";
    std::cout << order->ToXml(true, true, EOL_LF);
    return 0;
}

// Reads the lending library into its generated classes, lowers the price of the
// first book through its typed property and writes the document back, formatted.
int LibraryDemo(const std::string& path)
{
    using namespace OrvexExamples;
    std::string bytes;
    if (!ReadFile(path, bytes)) return 1;
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    library->FromXml(bytes.c_str());
    std::cout << "Read \"" << library->GetName() << "\": " << library->GetBooks()->GetCount() << " books, "
              << library->GetMembers()->GetCount() << " members\n";
    for (CBook* book : *library->GetBooks()) {
        std::cout << "  " << book->GetTitle() << " by " << book->GetAuthor() << " (" << GenreToString(book->GetGenre());
        if (book->GetEdition()) std::cout << ", " << book->GetEdition()->GetSelectedElement();
        std::cout << ")\n";
    }
    CSmartPtr<CBook> first = library->GetBooks()->Item(0);
    std::cout << "Price of \"" << first->GetTitle() << "\": " << first->GetPrice();
    first->SetPrice(first->GetPrice() - 1.5);
    std::cout << " -> " << first->GetPrice() << "\n\nWritten back:\n" << library->ToXml(true, true, EOL_LF);
    return 0;
}

int Usage()
{
    std::cerr << "usage: orvex-demo [po|library|tree|echo] [file]\n"
                 "  po       read a purchase order, print a summary, add an item and write it back (default)\n"
                 "  library  read the lending library into its classes, change a price, write it back\n"
                 "  tree     load a document into the intermediate tree and print it\n"
                 "  echo     read any document into a schema-less CElement and write it back, formatted\n"
                 "  echo-compact  the same, unformatted\n";
    return 2;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string command = argc > 1 ? argv[1] : "po";
    const std::string sample = command == "po"        ? "purchase-order/po.xml"
                               : command == "library" ? "library/library.xml"
                                                      : "data/sample.xml";
    const std::string path = argc > 2 ? argv[2] : OrvexExamples::ExamplePath(sample);
    try {
        if (command == "po") return PurchaseOrder(path);
        if (command == "library") return LibraryDemo(path);
        if (command == "tree") return ShowTree(path);
        if (command == "echo") return Echo(path, false);
        if (command == "echo-compact") return Echo(path, true);
        return Usage();
    } catch (const COrvexException& e) {
        std::cerr << "orvex-demo: " << path;
        if (e.GetLocation().IsKnown()) std::cerr << " (" << e.GetLocation().ToString() << ")";
        std::cerr << ": " << e.GetFullMessage() << "\n";
        return 3;
    }
}
