// The writer of XML text: turns the writer slots into markup in a chunked
// memory buffer, with optional line breaks and tab indentation.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/xml/StringBuffer.h"
#include "orvexxml/xml/XmlEnums.h"
#include "orvexxml/xml/XmlWriter.h"

namespace OrvexXmlLib5 {

// Names in the XML namespace (xml:lang, xml:space) are written with the prefix xml
// and no declaration, which differs from every other namespace: those get a
// prefix made up by the writer and a declaration.
class ORVEXXML_API CXmlTextWriter : public CXmlWriter
{
public:
    CXmlTextWriter();
    ~CXmlTextWriter() override;

    // Line breaks and indentation for elements; true after construction.
    void SetFormatted(bool value) { m_formatted = value; }
    // True when elements are written with line breaks and indentation.
    bool GetFormatted() const { return m_formatted; }
    // Anything but EOL_CRLF or EOL_LF fails with "Invalid EOL type." and changes nothing.
    void SetEOLType(EOLType value);
    // The line end written; EOL_LF after construction.
    EOLType GetEOLType() const { return m_eolType; }
    // Clears the buffer and writes the XML declaration and one line end. Only
    // Encoding_UTF8 and Encoding_UTF16 name an encoding in it.
    void WriteStartDocument(XmlEncoding encoding);
    // The encoding given to WriteStartDocument; Encoding_Unspecified before.
    XmlEncoding GetEncoding() const { return m_encoding; }
    // All text written so far, in the local character encoding.
    std::string GetString();
    // All text written so far as UTF-8 (Encoding_UTF8) or as UTF-16 little-endian
    // without byte order mark (Encoding_UTF16, Encoding_UTF16_NoDeclaration); any
    // other value fails with "Unknown Encoding, select UTF-8". Independent of the
    // encoding named in the declaration.
    CBinaryData GetBytes(XmlEncoding encoding);

    // Comments and processing instructions close a start tag that is open, so that
    // they never land among its attributes.
    void WriteComment(const std::string& text) override;
    // Writes text as it is, then two line ends.
    void WriteProcessingInstruction(const std::string& text) override;
    // Written among the root's attributes: one blank, a line end, the text, a line end.
    void WriteInlineSchema(const std::string& text) override;
    // The start tag is left open for attributes; the declarations of the element's
    // namespaces and the ones pending from AddNamespace go into it.
    void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override;
    // Empty text writes nothing and leaves the start tag open.
    void WriteText(const std::string& text) override;
    // Without an open element fails with "There is no open Element to end.".
    void WriteEndElement() override;
    // Without an open element, or once its start tag is closed, fails with
    // "Attributes must be added before elements".
    void WriteAttribute(const std::string& localName, const std::string& namespaceUri,
                        const std::string& value) override;
    void WriteXsiType(const std::string& namespaceUri, const std::string& typeName) override;

protected:
    // Writes the element straight into the buffer when it is a child of an open
    // element, nothing is pending and its prefix is already in scope; otherwise, and
    // always for a class derived from this one, as the three calls.
    void WriteSimpleElement(const std::string& localName, const std::string& namespaceUri,
                            const std::string& text) override;

private:
    void AppendLineEnd() { m_buffer->Append(m_lineEnd); }
    void AppendIndent(std::int32_t depth);
    void CloseStartTag();
    void CheckAttributeAllowed() const;
    void AppendDeclaration(const std::string& prefix, const std::string& namespaceUri);
    // Writes "xml:" for the XML namespace and gives true; nothing otherwise.
    bool AppendXmlPrefix(const std::string& namespaceUri);
    void AppendDefaultDeclaration(const std::string& namespaceUri);
    void AppendAttributeValue(const std::string& value);

    CStringBuffer* m_buffer;
    std::string m_lineEnd;
    EOLType m_eolType;
    bool m_formatted;
    XmlEncoding m_encoding;
};

}  // namespace OrvexXmlLib5
