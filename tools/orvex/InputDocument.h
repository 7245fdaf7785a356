// The document a command reads: from a file or standard input, in any form the
// library reads (XML text in UTF-8 or UTF-16, Fast Infoset, gzip or zlib of either),
// loaded into the library's tree.
#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/OrvexXmlLib5.h"

namespace OrvexTool {

class CProgressLine;

// The outer form of input bytes, as their first octets show it.
enum InputForm
{
    InputForm_Xml,
    InputForm_XmlUtf16,
    InputForm_FastInfoset,
    InputForm_Gzip,
    InputForm_Zlib
};

InputForm DetectInputForm(const unsigned char* bytes, std::size_t length);
// "XML text", "Fast Infoset", "gzip" and so on.
const char* DescribeInputForm(InputForm form);

class CInputDocument
{
public:
    // Reads path, or standard input for "-". A compressed input may inflate to at
    // most maxInflatedSize bytes (0: no limit). Failures of the library come as they
    // are; a failed read of standard input as COrvexException.
    CInputDocument(const std::string& path, std::uint64_t maxInflatedSize, CProgressLine* progress);
    CInputDocument(const CInputDocument&) = delete;
    CInputDocument& operator=(const CInputDocument&) = delete;

    // Size of the input before the library saw it.
    static std::uint64_t InputSize(const std::string& path);

    const OrvexXmlLib5::CXmlDocument& GetDocument() const { return m_document; }
    const OrvexXmlLib5::CXmlElement* GetRoot() const { return m_document.GetDocumentElement(); }
    InputForm GetForm() const { return m_form; }
    std::uint64_t GetSize() const { return m_size; }

    // Deepest nesting ToElement takes: the untyped element copies, writes and frees
    // its tree by recursion, one stack frame or more per level.
    static constexpr int MaxElementDepth = 1000;

    // The whole tree as an untyped element, the document element itself at its top.
    // A tree deeper than MaxElementDepth fails with COrvexException "Elements are
    // nested deeper than 1000 levels".
    // Unless keepBlank, an element with child elements loses text that is white space
    // alone: that is the layout between its children, which the element would
    // otherwise write after them, since it keeps its text as one string.
    OrvexXmlLib5::CSmartPtr<OrvexXmlLib5::CElement> ToElement(bool keepBlank) const;

private:
    OrvexXmlLib5::CXmlDocument m_document;
    InputForm m_form = InputForm_Xml;
    std::uint64_t m_size = 0;
};

}  // namespace OrvexTool
