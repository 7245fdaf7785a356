// Feeds arbitrary bytes to CXmlDocument::LoadXml under both schema types, as narrow
// text and as UTF-16, and walks every tree that loads.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/xml/XmlDocument.h"

namespace {

using namespace OrvexXmlLib5;

// Touches every node without recursion, however deep the tree.
std::size_t Walk(const CXmlElement* root)
{
    std::size_t total = 0;
    std::vector<const CXmlElement*> pending{root};
    while (!pending.empty()) {
        const CXmlElement* element = pending.back();
        pending.pop_back();
        total += element->GetLocalName().size() + element->GetNamespaceURI().size() + element->GetText().size();
        for (const CXmlAttribute* attribute : element->GetAttributes())
            total += attribute->GetValue().size() + attribute->IsNamespaceAttribute() +
                     element->GetAttribute(attribute->GetLocalName(), attribute->GetNamespaceURI()).size();
        for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            pending.push_back(child);
    }
    return total;
}

void Load(CXmlDocument& document, const char* text)
{
    try {
        document.LoadXml(text);
    } catch (const COrvexException&) {
    }
    if (document.GetDocumentElement()) Walk(document.GetDocumentElement());
    document.LookupNamespaceFromAlias("");
}

void Load(CXmlDocument& document, const unsigned short* text)
{
    try {
        document.LoadXml(text);
    } catch (const COrvexException&) {
    }
    if (document.GetDocumentElement()) Walk(document.GetDocumentElement());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::vector<unsigned short> wide(size / 2 + 1, 0);
    for (std::size_t i = 0; i + 1 < size; i += 2) wide[i / 2] = static_cast<unsigned short>(data[i] | (data[i + 1] << 8));

    CXmlDocument namespaced(SchemaType_Namespaced);
    Load(namespaced, text.c_str());
    CXmlDocument plain(SchemaType_NoNamespaces);
    Load(plain, text.c_str());
    Load(namespaced, wide.data());
    return 0;
}
