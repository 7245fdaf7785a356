#include "tools/orvex/DocumentStats.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace OrvexTool {

using namespace OrvexXmlLib5;

CDocumentStats CDocumentStats::Count(const CXmlElement* root)
{
    CDocumentStats stats;
    std::set<std::pair<std::string, std::string>> elementNames, attributeNames;
    std::set<std::string> namespaces, values;
    auto addValue = [&](std::string_view value, bool isText) {
        // The line breaks and indentation between elements are no values.
        if (value.empty() || (isText && value.find_first_not_of(" \t\n\r") == std::string_view::npos)) return;
        ++stats.values;
        stats.textBytes += value.size();
        values.emplace(value);
    };
    std::vector<std::pair<const CXmlElement*, std::uint64_t>> pending;
    if (root) pending.emplace_back(root, 1);
    while (!pending.empty()) {
        const auto [element, depth] = pending.back();
        pending.pop_back();
        ++stats.elements;
        if (depth > stats.depth) stats.depth = depth;
        elementNames.emplace(element->GetNamespaceURI(), element->GetLocalName());
        if (!element->GetNamespaceURI().empty()) namespaces.insert(element->GetNamespaceURI());
        for (const CXmlAttribute* attribute : element->GetAttributeSpan()) {
            ++stats.attributes;
            if (attribute->IsNamespaceAttribute()) ++stats.schemaAttributes;
            attributeNames.emplace(attribute->GetNamespaceURI(), attribute->GetLocalName());
            addValue(attribute->GetValueView(), false);
        }
        addValue(element->GetTextView(), true);
        for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            pending.emplace_back(child, depth + 1);
    }
    stats.elementNames = elementNames.size();
    stats.attributeNames = attributeNames.size();
    stats.namespaces = namespaces.size();
    stats.distinctValues = values.size();
    return stats;
}

}  // namespace OrvexTool
