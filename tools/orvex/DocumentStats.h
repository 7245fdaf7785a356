// Counts over a loaded document, for `orvex stats`.
#pragma once

#include <cstdint>

#include "orvexxml/OrvexXmlLib5.h"

namespace OrvexTool {

struct CDocumentStats
{
    std::uint64_t elements = 0;
    // Every attribute, and among them namespace declarations and xsi: attributes.
    std::uint64_t attributes = 0;
    std::uint64_t schemaAttributes = 0;
    // Names as {namespace}local; element and attribute names are counted apart.
    std::uint64_t elementNames = 0;
    std::uint64_t attributeNames = 0;
    std::uint64_t namespaces = 0;
    // Distinct attribute values and element texts together (texts of white space alone
    // left out),
    // and how many of those values and texts there are in all.
    std::uint64_t distinctValues = 0;
    std::uint64_t values = 0;
    // Bytes of those values and texts.
    std::uint64_t textBytes = 0;
    // The document element is at depth 1.
    std::uint64_t depth = 0;

    // Walks the tree from root with an explicit stack, so any depth counts.
    static CDocumentStats Count(const OrvexXmlLib5::CXmlElement* root);
};

}  // namespace OrvexTool
