// Runs the Expat parser over a document's input buffer and turns its callbacks into
// tree nodes, with every name and text converted to the local character encoding.
#pragma once

#include "orvexxml/Export.h"

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>

#include "orvexxml/frame/InstanceMonitor.h"

struct XML_ParserStruct;

namespace OrvexXmlLib5 {

class CXmlDocument;

// Reads XML text into a CXmlDocument with the Expat parser. CXmlDocument runs it;
// user code has no need to.
class ORVEXXML_API CExpatReader : public CInstanceMonitor
{
public:
    // The document is filled, not owned; it must outlive the reader.
    explicit CExpatReader(CXmlDocument* document);
    CExpatReader(const CExpatReader&) = delete;
    CExpatReader& operator=(const CExpatReader&) = delete;
    virtual ~CExpatReader();

    // Parses the whole input buffer and then tells the parser that the input ends,
    // unless the document allows truncated documents (then a document cut short loads
    // what was read). A parser error fails with COrvexException "<parser text> at line
    // <n>", except an end-of-input error with no element read, which returns and leaves
    // the empty document to fail; an entity declaration beyond the document's limit
    // fails with COrvexException; a failure while building the tree leaves as it was
    // raised. The parser is released on every way out.
    void Parse();

private:
    struct Callbacks;
    friend struct Callbacks;

    // Fails as UTF-8 input would for a name that only Latin-1 and UTF-16 input let through.
    void CheckName(std::string_view name) const;
    void StartElement(const char* name, const char** attributes);
    void EndElement();
    void CharacterData(const char* text, int length);
    void NamespaceDecl(const char* prefix, const char* uri);
    void EntityDecl();

    // Parser text (UTF-8) as library text. The result views either the parser's own
    // bytes (UTF-8 local encoding, or pure ASCII) or holder, which keeps a conversion.
    std::string_view ToLocal(const char* text, std::size_t length, std::string& holder) const;

    CXmlDocument* m_document;
    XML_ParserStruct* m_parser;
    // First failure of a callback; carried past the parser's C frames and raised
    // once XML_Parse has returned.
    std::exception_ptr m_failure;
    bool m_localIsUtf8;
    // Internal entities declared so far in this parse.
    int m_entityDeclarations;
    bool m_localKeepsAscii;
    // Conversion holders for the local code pages other than UTF-8, reused so that
    // their capacity carries from one callback to the next.
    std::string m_namespaceHolder;
    std::string m_nameHolder;
    std::string m_valueHolder;
};

}  // namespace OrvexXmlLib5
