// Reads a binary (Fast Infoset) document from a CXmlDocument's input buffer into its
// tree, delivering the same elements, attributes, text and namespace bindings that
// the XML text reader delivers for the same document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orvexxml/Export.h"
#include "orvexxml/frame/InstanceMonitor.h"

namespace OrvexXmlLib5 {

class CXmlDocument;
class CXmlElement;

namespace Detail {
class CReaderVocabulary;
class CReaderStringTable;
struct CReaderNameSurrogate;
}  // namespace Detail

// Reads a Fast Infoset document into a CXmlDocument. CXmlDocument runs it when its
// input is binary; user code has no need to.
class ORVEXXML_API CFastInfosetReader : public CInstanceMonitor
{
public:
    // The document is filled, not owned; it must outlive the reader.
    explicit CFastInfosetReader(CXmlDocument* document);
    CFastInfosetReader(const CFastInfosetReader&) = delete;
    CFastInfosetReader& operator=(const CFastInfosetReader&) = delete;
    virtual ~CFastInfosetReader();

    // False, with the document untouched, when the input buffer does not start like
    // a binary document; true once one was read. A damaged document fails with a
    // COrvexException whose message starts "Failed to parse FastInfoset.". A document
    // without a document element answers true and leaves the tree empty.
    bool Parse();

private:
    // Byte source. Each read makes its first octet the current one; reading past the
    // end of the input fails.
    const unsigned char* ReadOctets(std::uint64_t count);
    unsigned int ReadOctet() { return *ReadOctets(1); }
    unsigned int Current() const { return *m_current; }

    // Integers and lengths, starting inside the current octet.
    std::uint32_t ReadIntegerOnSecondBit();
    std::uint32_t ReadIntegerOnThirdBit();
    std::uint32_t ReadIntegerOnFourthBit();
    std::uint32_t ReadIndexOnSecondBit();
    std::uint64_t ReadLengthOnSecondBit();
    std::uint64_t ReadLengthOnFifthBit();
    std::uint64_t ReadLengthOnSeventhBit();
    std::uint32_t ReadSequenceLength();
    std::uint64_t ReadBigEndian32();

    // Strings in the local character encoding. A result stays valid until the next
    // string is read: it views either the input or a scratch buffer of the reader.
    std::string_view ReadUtf8String(std::uint64_t length);
    std::string_view ReadUtf16String(std::uint64_t length);
    std::string_view ReadRestrictedAlphabetString(std::uint64_t length, std::uint32_t alphabetIndex);
    std::string_view ReadAlgorithmString(std::uint64_t length, std::uint32_t algorithmIndex);
    std::string_view ReadEncodedCharacterStringOnThirdBit();
    std::string_view ReadEncodedCharacterStringOnFifthBit();
    std::string_view Utf8ToLocal(const unsigned char* bytes, std::size_t length);
    // Each sets m_lastLiteral (result 0) or m_lastIndex (result 1).
    int ReadIdentifyingStringOrIndex();
    int ReadNonIdentifyingStringOrIndexOnFirstBit();
    int ReadNonIdentifyingStringOrIndexOnThirdBit();
    void SkipOctetStringOnSecondBit();

    // Document structure.
    bool Recognise();
    void ReadOptionalComponents();
    void ReadInitialVocabulary();
    void ReadDocumentChildren();
    bool ReadElementTree();
    bool ReadElementHead();
    void ReadAttribute(std::size_t slot);
    void ReadNamespaceAttribute(unsigned int octet);
    void ReadCharacterChunk();
    void ReadProcessingInstruction();
    void ReadDocumentTypeDeclaration(unsigned int octet);
    void ReadEntityReference(unsigned int octet);
    // Literal name: parts read (literals added to their tables), triple appended to table.
    Detail::CReaderNameSurrogate ReadQualifiedName(bool forElement);
    std::uint32_t ReadIdentifier(Detail::CReaderStringTable& table);
    // Copies of table entries into the tree are counted against a budget that grows
    // with the input, so a small input can't make the reader build a huge tree.
    void Charge(std::size_t bytes);

    CXmlDocument* m_document;
    const unsigned char* m_begin;
    const unsigned char* m_end;
    const unsigned char* m_position;
    const unsigned char* m_current;
    std::string_view m_lastLiteral;
    std::uint32_t m_lastIndex;
    bool m_addToTable;
    std::uint64_t m_budget;
    std::unique_ptr<Detail::CReaderVocabulary> m_vocabulary;
    // Scratch space of strings that need a conversion; reused from one string to the next.
    std::string m_holder;
    std::string m_decoded;
    std::u16string m_wide;
    // Attributes of the element being read: name surrogate index and value.
    std::vector<std::uint32_t> m_pendingNames;
    std::vector<std::string> m_pendingValues;
};

}  // namespace OrvexXmlLib5
