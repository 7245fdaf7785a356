// The tree of a loaded document as indented text: one line per element with its
// name in {namespace}local form, one per attribute, and the element's text. Shared
// by the command-line programs.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "orvexxml/OrvexXmlLib5.h"

namespace OrvexTools {

// Text with its leading and trailing blanks removed, inner line breaks shown as \n.
std::string ShownText(std::string_view text);

// localName, or {namespaceUri}localName when the name is in a namespace.
std::string QualifiedName(const std::string& namespaceUri, const std::string& localName);

// The prefixes the document declares, one "  prefix = uri" line each.
void PrintPrefixes(const OrvexXmlLib5::CXmlDocument& document, std::ostream& out);

// Depth-first with an explicit stack, so that any depth of nesting prints.
void PrintTree(const OrvexXmlLib5::CXmlElement* root, std::ostream& out);

}  // namespace OrvexTools
