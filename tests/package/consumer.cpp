// A program built against the installed package only: the classes generated from
// the library example's schema (installed under share/) read a document and write
// it back, so every symbol such code needs must be exported; the version query and
// the exception classes must cross the library boundary.
#include <orvexxml/OrvexXmlLib5.h>
#include <orvexxml/Version.h>

#include "examples/library/Library.h"
#ifdef ORVEX_CONSUMER_GENERATED
#include "generated/PurchaseOrder.h"
#endif

#include <fstream>
#include <iostream>
#include <sstream>

int main(int argc, char** argv)
{
    using namespace OrvexXmlLib5;
    using OrvexExamples::CLibrary;
    if (argc != 2) {
        std::cerr << "usage: consumer LIBRARY_XML\n";
        return 2;
    }
    if (!LibraryVersionIsCompatible() || std::string(GetLibraryVersionString()) != ORVEXXML_VERSION_STRING) {
        std::cerr << "version mismatch: " << GetLibraryVersionString() << "\n";
        return 1;
    }
    std::ifstream in(argv[1], std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();

    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    library->FromXml(bytes.str().c_str());
    std::string written = library->ToXml(true, true, EOL_LF);
    CSmartPtr<CLibrary> again = CLibrary::CreateInstance();
    again->FromXml(written.c_str());
    if (again->ToXml(true, true, EOL_LF) != written) {
        std::cerr << "round trip changed the document\n";
        return 1;
    }
#ifdef ORVEX_CONSUMER_GENERATED
    // Classes that orvex_generate wrote at build time.
    CSmartPtr<Consumer::CPurchaseOrder> order = Consumer::CPurchaseOrder::CreateInstance();
    order->GetShipTo()->SetName("Alice");
    CSmartPtr<Consumer::CItem> item = order->GetItems()->GetItem()->Add();
    item->SetPartNum("872-AA");
    item->SetProductName("Lawnmower");
    CSmartPtr<Consumer::CPurchaseOrder> copy = Consumer::CPurchaseOrder::CreateInstance();
    copy->FromXml(order->ToXml().c_str());
    if (copy->GetItems()->GetItem()->Item(0)->GetPartNum() != "872-AA") {
        std::cerr << "generated classes lost a value\n";
        return 1;
    }
#endif
    try {
        library->FromXml("<library");
        std::cerr << "a broken document was accepted\n";
        return 1;
    } catch (const COrvexException& e) {
        std::cout << "package " << GetLibraryVersionString() << " works: " << e.GetMessage() << "\n";
    }
    return 0;
}
