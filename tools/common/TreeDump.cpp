#include "tools/common/TreeDump.h"

#include <utility>
#include <vector>

namespace OrvexTools {

using namespace OrvexXmlLib5;

std::string ShownText(std::string_view text)
{
    const char* blanks = " \t\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return std::string();
    const std::size_t last = text.find_last_not_of(blanks);
    std::string shown;
    for (char c : text.substr(first, last - first + 1)) shown += c == '\n' ? std::string("\\n") : std::string(1, c);
    return shown;
}

std::string QualifiedName(const std::string& namespaceUri, const std::string& localName)
{
    return namespaceUri.empty() ? localName : "{" + namespaceUri + "}" + localName;
}

void PrintPrefixes(const CXmlDocument& document, std::ostream& out)
{
    for (const auto& [prefix, uri] : document.GetPrefixTable())
        out << "  " << (prefix.empty() ? "(default)" : prefix) << " = " << (uri.empty() ? "(none)" : uri) << "\n";
}

void PrintTree(const CXmlElement* root, std::ostream& out)
{
    std::vector<std::pair<const CXmlElement*, std::size_t>> pending{{root, 0}};
    while (!pending.empty()) {
        auto [element, depth] = pending.back();
        pending.pop_back();
        const std::string indent(2 * depth, ' ');
        out << indent << QualifiedName(element->GetNamespaceURI(), element->GetLocalName()) << "\n";
        for (const CXmlAttribute* attribute : element->GetAttributeSpan())
            out << indent << "  @" << QualifiedName(attribute->GetNamespaceURI(), attribute->GetLocalName())
                << " = \"" << attribute->GetValueView() << "\""
                << (attribute->IsNamespaceAttribute() ? "  (schema attribute)" : "") << "\n";
        const std::string text = ShownText(element->GetTextView());
        if (!text.empty()) out << indent << "  text: \"" << text << "\"\n";
        // Children go on the stack last first, so they print in document order.
        std::vector<const CXmlElement*> children;
        for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            children.push_back(child);
        for (auto it = children.rbegin(); it != children.rend(); ++it) pending.emplace_back(*it, depth + 1);
    }
}

}  // namespace OrvexTools
