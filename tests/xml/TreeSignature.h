// Everything a loaded tree holds, as one string: two readers built the same tree
// exactly when their signatures are equal. Shared by the reader tests and the
// differential fuzz target; without places, trees from text and binary documents compare.
#pragma once

#include <string>
#include <vector>

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexTest {

inline std::string TreeSignature(const OrvexXmlLib5::CXmlDocument& document, bool withPlaces = true)
{
    using namespace OrvexXmlLib5;
    std::string out;
    auto field = [&out](const std::string& text) { out += std::to_string(text.size()) + ':' + text + ' '; };
    for (const auto& binding : document.GetPrefixTable()) {
        out += "prefix ";
        field(binding.first);
        field(binding.second);
        out += '\n';
    }
    // Depth-first with an explicit stack: any depth of nesting.
    std::vector<std::pair<const CXmlElement*, std::size_t>> pending;
    if (document.GetDocumentElement()) pending.emplace_back(document.GetDocumentElement(), 0);
    while (!pending.empty()) {
        const CXmlElement* element = pending.back().first;
        const std::size_t depth = pending.back().second;
        pending.pop_back();
        out += "element " + std::to_string(depth) + " ";
        if (withPlaces) out += "at " + element->GetLocation().ToString() + " ";
        field(element->GetNamespaceURI());
        field(element->GetLocalName());
        field(element->GetText());
        out += '\n';
        for (const CXmlAttribute* attribute : element->GetAttributes()) {
            out += "  attribute ";
            field(attribute->GetNamespaceURI());
            field(attribute->GetLocalName());
            field(attribute->GetValue());
            out += '\n';
        }
        std::vector<const CXmlElement*> children;
        for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            children.push_back(child);
        for (auto child = children.rbegin(); child != children.rend(); ++child) pending.emplace_back(*child, depth + 1);
    }
    return out;
}

}  // namespace OrvexTest
