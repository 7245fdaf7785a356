// Feeds arbitrary bytes to CXmlDocument::LoadXmlStream, where they may be inflated,
// taken for Fast Infoset or parsed as XML text, under a small inflated-size limit,
// and touches every node of each tree that loads.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/xml/XmlDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace OrvexXmlLib5;
    std::vector<unsigned char> bytes(data, data + size);
    CXmlDocument document;
    document.SetMaxInflatedSize(1 << 20);
    try {
        document.LoadXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()));
    } catch (const COrvexException&) {
    }
    std::size_t total = 0;
    std::vector<const CXmlElement*> pending;
    if (document.GetDocumentElement()) pending.push_back(document.GetDocumentElement());
    while (!pending.empty()) {
        const CXmlElement* element = pending.back();
        pending.pop_back();
        total += element->GetLocalName().size() + element->GetText().size() + element->GetAttributes().size();
        for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            pending.push_back(child);
    }
    volatile std::size_t sink = total;
    static_cast<void>(sink);
    return 0;
}
