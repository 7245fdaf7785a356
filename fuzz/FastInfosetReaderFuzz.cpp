// Feeds arbitrary bytes to CXmlDocument::LoadXmlStream, with the binary header put in
// front when the input lacks it so that nearly every run reaches the binary reader.
// A failure must be a COrvexException; a failure of the binary reader must say so.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/xml/XmlDocument.h"

namespace {

using namespace OrvexXmlLib5;

std::size_t Walk(const CXmlElement* root)
{
    std::size_t total = 0;
    std::vector<const CXmlElement*> pending{root};
    while (!pending.empty()) {
        const CXmlElement* element = pending.back();
        pending.pop_back();
        total += element->GetLocalName().size() + element->GetNamespaceURI().size() + element->GetText().size();
        for (const CXmlAttribute* attribute : element->GetAttributes()) total += attribute->GetValue().size();
        for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            pending.push_back(child);
    }
    return total;
}

void Load(const std::vector<unsigned char>& bytes)
{
    CXmlDocument document;
    try {
        document.LoadXmlStream(const_cast<unsigned char*>(bytes.data()), static_cast<unsigned long>(bytes.size()));
    } catch (const COrvexException& e) {
        const std::string& message = e.GetMessage();
        // Input that carries the header is the binary reader's: it may only fail as itself,
        // or find no document element.
        if (bytes.size() > 4 && bytes[0] == 0xE0 && bytes[1] == 0 && bytes[2] == 0 && bytes[3] == 1 &&
            message.rfind("Failed to parse FastInfoset.", 0) != 0 && message != "Invalid or empty XML document")
            std::abort();
        return;
    }
    if (document.GetDocumentElement()) Walk(document.GetDocumentElement());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) return 0;
    static const unsigned char header[] = {0xE0, 0x00, 0x00, 0x01};
    std::vector<unsigned char> bytes;
    if (size < 4 || std::memcmp(data, header, 4) != 0) bytes.assign(header, header + 4);
    bytes.insert(bytes.end(), data, data + size);
    Load(bytes);
    return 0;
}
