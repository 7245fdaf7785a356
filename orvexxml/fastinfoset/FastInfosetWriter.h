// The writer of Fast Infoset (ITU-T X.891): the same slots that the XML text
// writer fills, laid down as a binary document with indexed names and values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "orvexxml/Export.h"
#include "orvexxml/data/BinaryData.h"
#include "orvexxml/fastinfoset/FInfoDecl.h"
#include "orvexxml/fastinfoset/detail/WriterVocabulary.h"
#include "orvexxml/xml/XmlWriter.h"

namespace OrvexXmlLib5 {

// Writes elements, attributes, namespace attributes and character chunks, every
// string in UTF-8: no comments, processing instructions, restricted alphabets,
// encoding algorithms or initial vocabulary. Each distinct name is written once
// and then referred to by index; so are attribute values and text chunks shorter
// than 6 bytes.
class ORVEXXML_API CFastInfosetWriter : public CXmlWriter
{
public:
    CFastInfosetWriter();
    ~CFastInfosetWriter() override;

    // Starts a new document: clears the output and the tables, then writes the
    // declaration (nothing for FInfoDecl_None or an unknown number), the
    // identification and version, and a header without optional components.
    void WriteStartDocument(FInfoDecl declaration);
    // The document written so far.
    CBinaryData GetOutput() const;

    // Fails with "An Element has not been closed." while an element is open;
    // otherwise ends the document. Further calls add nothing.
    void WriteEndDocument() override;
    // Comments are not carried.
    void WriteComment(const std::string& text) override;
    // Not carried either; it closes an open start tag, as the text writer does.
    void WriteProcessingInstruction(const std::string& text) override;
    // Not carried.
    void WriteInlineSchema(const std::string& text) override;
    void WriteStartElement(const std::string& localName, const std::string& namespaceUri) override;
    // One character chunk per call. Empty text writes nothing but closes the start tag.
    void WriteText(const std::string& text) override;
    // Without an open element fails with "There is no open Element to end.".
    void WriteEndElement() override;
    // Without an open element, or once its start tag is closed, fails with
    // "Attributes must be added before elements".
    void WriteAttribute(const std::string& localName, const std::string& namespaceUri,
                        const std::string& value) override;
    // The same failure as WriteAttribute.
    void WriteXsiType(const std::string& namespaceUri, const std::string& typeName) override;

private:
    // Where a qualified name is indexed and how its first octet is laid out.
    enum NameForm
    {
        NameForm_Element,
        NameForm_Attribute
    };

    void CloseStartTag();
    void CheckAttributeAllowed() const;
    // The prefix under which namespaceUri is written in the current element,
    // making one up (and declaring it on that element) when the scope has none.
    std::string ResolvePrefix(const std::string& namespaceUri);
    void AppendDeclaration(const std::string& prefix, const std::string& namespaceUri);
    void WriteQualifiedName(std::string& out, unsigned char bits, NameForm form, const std::string& prefix,
                            const std::string& namespaceUri, const std::string& localName);
    void WriteNamePart(std::string& out, const std::string& part, Detail::CWriterVocabulary& table);
    void WriteAttributeValue(const std::string& value);
    void WriteCharacterChunk(const std::string& text);

    // The UTF-8 form of library text: text itself when it is ASCII, otherwise
    // a conversion held in a scratch string until the next call.
    const std::string& Utf8(const std::string& text);

    // The document; a std::string grows faster than CBinaryData one octet at a time.
    std::string m_output;
    // Where the first octet of the open start tag's qualified name stands. The
    // attributes bit and the namespace attributes in front of the name are only
    // known when the start tag closes.
    std::size_t m_nameOffset;
    // The namespace attribute items of the open start tag, without the header octet.
    std::string m_declarations;
    // One element has ended and its terminator is held back to share an octet
    // with the next one.
    bool m_terminatorPending;
    bool m_documentEnded;

    Detail::CWriterVocabulary m_attributeNames;
    Detail::CWriterVocabulary m_attributeValues;
    Detail::CWriterVocabulary m_characterChunks;
    Detail::CWriterVocabulary m_elementNames;
    Detail::CWriterVocabulary m_localNames;
    Detail::CWriterVocabulary m_namespaceNames;
    Detail::CWriterVocabulary m_prefixes;

    std::string m_key;
    std::string m_utf8;
};

}  // namespace OrvexXmlLib5
