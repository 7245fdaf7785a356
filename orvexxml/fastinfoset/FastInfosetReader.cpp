#include "orvexxml/fastinfoset/FastInfosetReader.h"

#include <cstring>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/fastinfoset/detail/ReaderVocabulary.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/platform/CodePage.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5 {

using Detail::CReaderNameSurrogate;
using Detail::CReaderVocabulary;

namespace {

[[noreturn]] void Fail(const char* message)
{
    throw COrvexException(std::string("Failed to parse FastInfoset. ") + message);
}

const char kEndOfFile[] = "Unexpected End of File.";
const char kInvalidElement[] = "Invalid Encoding of Element type.";

bool IsAscii(const unsigned char* bytes, std::size_t length)
{
    unsigned char any = 0;
    for (std::size_t i = 0; i < length; ++i) any |= bytes[i];
    return any < 0x80;
}

// Octets every input holds right after an optional declaration.
bool StartsWithIdentification(const unsigned char* at, const unsigned char* end)
{
    // A fifth octet must follow: the identification alone is no document.
    return end - at > 4 && at[0] == 0xE0 && at[1] == 0x00 && at[2] == 0x00 && at[3] == 0x01;
}

}  // namespace

CFastInfosetReader::CFastInfosetReader(CXmlDocument* document)
    : CInstanceMonitor("CFastInfosetReader"),
      m_document(document),
      m_begin(nullptr),
      m_end(nullptr),
      m_position(nullptr),
      m_current(nullptr),
      m_lastIndex(0),
      m_addToTable(false),
      m_budget(0)
{
}

CFastInfosetReader::~CFastInfosetReader() = default;

// ---- byte source, integers and lengths ----

const unsigned char* CFastInfosetReader::ReadOctets(std::uint64_t count)
{
    // Compared against what is left, so a huge count read from a length field can't wrap.
    if (count > static_cast<std::uint64_t>(m_end - m_position)) Fail(kEndOfFile);
    m_current = m_position;
    m_position += count;
    return m_current;
}

std::uint32_t CFastInfosetReader::ReadIntegerOnSecondBit()
{
    const std::uint32_t v = Current() & 0x7F;
    if (v < 0x40) return v + 1;
    if ((v & 0x60) == 0x40) return ((v & 0x1F) << 8) + ReadOctet() + 65;
    const std::uint32_t o1 = ReadOctet();
    const std::uint32_t o2 = ReadOctet();
    return ((v & 0x0F) << 16) + (o1 << 8) + o2 + 8257;
}

std::uint32_t CFastInfosetReader::ReadIndexOnSecondBit()
{
    if ((Current() & 0x7F) == 0x7F) return 0;
    try {
        return ReadIntegerOnSecondBit();
    } catch (const COrvexException&) {
        Fail("Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.");
    }
}

std::uint32_t CFastInfosetReader::ReadIntegerOnThirdBit()
{
    const std::uint32_t v = Current() & 0x3F;
    if (v < 0x20) return v + 1;
    switch (v & 0x38) {
    case 0x20:
        return ((v & 7) << 8) + ReadOctet() + 33;
    case 0x28: {
        const std::uint32_t o1 = ReadOctet();
        return ((v & 7) << 16) + (o1 << 8) + ReadOctet() + 2081;
    }
    case 0x30: {
        const std::uint32_t o1 = ReadOctet();
        const std::uint32_t o2 = ReadOctet();
        return (o1 << 16) + (o2 << 8) + ReadOctet() + 526369;
    }
    default:
        Fail("Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet.");
    }
}

std::uint32_t CFastInfosetReader::ReadIntegerOnFourthBit()
{
    const std::uint32_t v = Current() & 0x1F;
    if (v < 0x10) return v + 1;
    switch (v & 0x1C) {
    case 0x10:
        return ((v & 3) << 8) + ReadOctet() + 17;
    case 0x14: {
        const std::uint32_t o1 = ReadOctet();
        return ((v & 3) << 16) + (o1 << 8) + ReadOctet() + 1041;
    }
    case 0x18: {
        const std::uint32_t o1 = ReadOctet();
        const std::uint32_t o2 = ReadOctet();
        return (o1 << 16) + (o2 << 8) + ReadOctet() + 263185;
    }
    default:
        Fail("Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet.");
    }
}

std::uint64_t CFastInfosetReader::ReadBigEndian32()
{
    const unsigned char* b = ReadOctets(4);
    m_current = b + 3;
    return (std::uint64_t{b[0]} << 24) | (std::uint64_t{b[1]} << 16) | (std::uint64_t{b[2]} << 8) | b[3];
}

std::uint64_t CFastInfosetReader::ReadLengthOnSecondBit()
{
    const unsigned int v = Current() & 0x7F;
    if (v < 0x40) return v + 1;
    if (v == 0x40) return ReadOctet() + 65;
    if (v == 0x60) return ReadBigEndian32() + 321;
    Fail("Invalid NonEmptyOctetString type  on the second bit of an octet.");
}

std::uint64_t CFastInfosetReader::ReadLengthOnFifthBit()
{
    const unsigned int v = Current() & 0x0F;
    if (v < 8) return v + 1;
    if (v == 8) return ReadOctet() + 9;
    if (v == 0x0C) return ReadBigEndian32() + 265;
    Fail("Invalid NonEmptyOctetString type  on the fifth bit of an octet.");
}

std::uint64_t CFastInfosetReader::ReadLengthOnSeventhBit()
{
    const unsigned int v = Current() & 0x03;
    if (v < 2) return v + 1;
    if (v == 2) return ReadOctet() + 3;
    return ReadBigEndian32() + 259;
}

std::uint32_t CFastInfosetReader::ReadSequenceLength()
{
    const std::uint32_t b = ReadOctet();
    if (b < 0x80) return b + 1;
    const std::uint32_t o1 = ReadOctet();
    return ((b & 0x0F) << 16) + (o1 << 8) + ReadOctet() + 129;
}

// ---- strings ----

std::string_view CFastInfosetReader::Utf8ToLocal(const unsigned char* bytes, std::size_t length)
{
    // ASCII is the same in every local code page, so the input itself is the result.
    if (IsAscii(bytes, length)) return std::string_view(reinterpret_cast<const char*>(bytes), length);
    m_holder = Platform::Utf8ToLocal(reinterpret_cast<const char*>(bytes), length);
    return m_holder;
}

std::string_view CFastInfosetReader::ReadUtf8String(std::uint64_t length)
{
    return Utf8ToLocal(ReadOctets(length), static_cast<std::size_t>(length));
}

std::string_view CFastInfosetReader::ReadUtf16String(std::uint64_t length)
{
    const unsigned char* bytes = ReadOctets(length);
    // Two octets per unit, most significant first; an odd last octet has no partner
    // and is left out.
    const std::size_t units = static_cast<std::size_t>(length / 2);
    m_wide.resize(units);
    for (std::size_t i = 0; i < units; ++i)
        m_wide[i] = static_cast<char16_t>((bytes[2 * i] << 8) | bytes[2 * i + 1]);
    m_holder = Platform::Utf16ToLocal(m_wide.data(), units);
    return m_holder;
}

std::string_view CFastInfosetReader::ReadRestrictedAlphabetString(std::uint64_t length, std::uint32_t alphabetIndex)
{
    const Detail::CReaderAlphabet* alphabet = m_vocabulary->Alphabet(alphabetIndex);
    if (!alphabet) Fail("Index out of range of its table.");
    const std::size_t n = alphabet->size();
    if (n < 2 || n > (1u << 20))
        Fail("Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and 2^20 characters.");
    unsigned int width = 2;
    while ((std::size_t{1} << width) <= n) ++width;

    const unsigned char* bytes = ReadOctets(length);
    const std::size_t count = static_cast<std::size_t>(length);
    m_decoded.clear();
    auto append = [&](std::size_t field) {
        // The format gives such a value no meaning.
        if (field >= n) Fail("Invalid Encoding of Restricted Alphabet. Character out of the alphabet.");
        m_decoded += (*alphabet)[field];
    };
    if (width == 8) {
        for (std::size_t i = 0; i < count; ++i) append(bytes[i]);
    } else if (width == 4) {
        // High half first; a low half of all ones pads an odd count of characters.
        for (std::size_t i = 0; i < count; ++i) {
            append(bytes[i] >> 4);
            if ((bytes[i] & 0x0F) == 0x0F) break;
            append(bytes[i] & 0x0F);
        }
    } else {
        // One stream of fields across octet boundaries, ended early by an all-ones field.
        const std::uint32_t terminator = (1u << width) - 1;
        const std::uint64_t fields = (length * 8) / width;
        std::uint64_t bitPosition = 0;
        for (std::uint64_t f = 0; f < fields; ++f) {
            std::uint32_t field = 0;
            for (unsigned int b = 0; b < width; ++b, ++bitPosition)
                field = (field << 1) | ((bytes[bitPosition >> 3] >> (7 - (bitPosition & 7))) & 1);
            if (field == terminator) break;
            append(field);
        }
    }
    return Utf8ToLocal(reinterpret_cast<const unsigned char*>(m_decoded.data()), m_decoded.size());
}

std::string_view CFastInfosetReader::ReadAlgorithmString(std::uint64_t length, std::uint32_t algorithmIndex)
{
    if (algorithmIndex == 10) return ReadUtf8String(length);  // cdata: the text of a CDATA section
    if (algorithmIndex < 1 || algorithmIndex > 9) Fail("Invalid NonEmptyOctetEncryptedString.");
    const unsigned char* bytes = ReadOctets(length);
    try {
        const CBinaryData data(const_cast<unsigned char*>(bytes), static_cast<unsigned long>(length), false);
        switch (algorithmIndex) {
        case 1:
            m_holder = data.GetAsHexString();
            break;
        case 2:
            m_holder = data.GetAsBase64();
            break;
        default:
            m_holder = data.GetAsString(static_cast<ByteEncoding>(algorithmIndex));
            break;
        }
    } catch (const COrvexException& e) {
        // A length that is no multiple of the item size is damage to the document, so
        // the failure carries the reader's prefix with the value's own reason inside.
        throw COrvexException("Failed to parse FastInfoset. Invalid NonEmptyOctetEncryptedString.", e);
    }
    return m_holder;
}

std::string_view CFastInfosetReader::ReadEncodedCharacterStringOnThirdBit()
{
    const unsigned int old = Current();
    switch ((old & 0x3F) >> 4) {
    case 0:
        return ReadUtf8String(ReadLengthOnFifthBit());
    case 1:
        return ReadUtf16String(ReadLengthOnFifthBit());
    case 2: {
        // The table index minus one, in the low half of this octet and the high half of the next.
        const std::uint32_t field = ((old & 0x0F) << 4) + (ReadOctet() >> 4);
        return ReadRestrictedAlphabetString(ReadLengthOnFifthBit(), field + 1);
    }
    default: {
        const std::uint32_t field = ((old & 0x0F) << 4) + (ReadOctet() >> 4);
        return ReadAlgorithmString(ReadLengthOnFifthBit(), field + 1);
    }
    }
}

std::string_view CFastInfosetReader::ReadEncodedCharacterStringOnFifthBit()
{
    const unsigned int old = Current();
    switch ((old & 0x0F) >> 2) {
    case 0:
        return ReadUtf8String(ReadLengthOnSeventhBit());
    case 1:
        return ReadUtf16String(ReadLengthOnSeventhBit());
    case 2: {
        const std::uint32_t field = ((old & 0x03) << 6) + (ReadOctet() >> 2);
        return ReadRestrictedAlphabetString(ReadLengthOnSeventhBit(), field + 1);
    }
    default: {
        const std::uint32_t field = ((old & 0x03) << 6) + (ReadOctet() >> 2);
        return ReadAlgorithmString(ReadLengthOnSeventhBit(), field + 1);
    }
    }
}

int CFastInfosetReader::ReadIdentifyingStringOrIndex()
{
    if (ReadOctet() < 0x80) {
        m_lastLiteral = ReadUtf8String(ReadLengthOnSecondBit());
        return 0;
    }
    m_lastIndex = ReadIntegerOnSecondBit();
    return 1;
}

int CFastInfosetReader::ReadNonIdentifyingStringOrIndexOnFirstBit()
{
    const unsigned int octet = ReadOctet();
    if (octet < 0x80) {
        m_addToTable = (octet >> 6) & 1;
        m_lastLiteral = ReadEncodedCharacterStringOnThirdBit();
        return 0;
    }
    m_lastIndex = ReadIndexOnSecondBit();
    return 1;
}

int CFastInfosetReader::ReadNonIdentifyingStringOrIndexOnThirdBit()
{
    const unsigned int octet = Current();
    if (octet & 0x20) {
        m_lastIndex = ReadIntegerOnFourthBit();
        return 1;
    }
    m_addToTable = (octet >> 4) & 1;
    m_lastLiteral = ReadEncodedCharacterStringOnFifthBit();
    return 0;
}

void CFastInfosetReader::SkipOctetStringOnSecondBit()
{
    ReadOctet();
    ReadOctets(ReadLengthOnSecondBit());
}

// ---- document ----

bool CFastInfosetReader::Parse()
{
    m_begin = m_document->GetInput();
    m_end = m_begin + m_document->GetInputLength();
    m_position = m_begin;
    m_current = m_begin;
    if (!m_begin || !Recognise()) return false;

    m_vocabulary = std::make_unique<CReaderVocabulary>();
    // Generous for any real document, whose tree is a small multiple of its binary
    // form, yet bounded: names and values sent as indexes are copied for every use.
    m_budget = (std::uint64_t{16} << 20) + 256 * static_cast<std::uint64_t>(m_end - m_begin);
    ReadOptionalComponents();
    ReadDocumentChildren();
    return true;
}

bool CFastInfosetReader::Recognise()
{
    if (StartsWithIdentification(m_position, m_end)) {
        m_position += 4;
        return true;
    }
    const std::size_t available = static_cast<std::size_t>(m_end - m_position);
    for (const char* declaration : Detail::kReaderDeclarations) {
        // The declarations are ASCII, so their UTF-8 form is the string itself.
        const std::size_t length = std::strlen(declaration);
        if (length < available && std::memcmp(m_position, declaration, length) == 0) {
            if (!StartsWithIdentification(m_position + length, m_end)) return false;
            m_position += length + 4;
            return true;
        }
    }
    return false;
}

void CFastInfosetReader::ReadOptionalComponents()
{
    const unsigned int flags = ReadOctet();
    if (flags & 0x40) {  // additional data: pairs of id and data
        for (std::uint32_t n = ReadSequenceLength(); n > 0; --n) {
            SkipOctetStringOnSecondBit();
            SkipOctetStringOnSecondBit();
        }
    }
    if (flags & 0x20) ReadInitialVocabulary();
    if (flags & 0x10) {  // notations
        for (unsigned int octet = ReadOctet(); (octet & 0xFC) == 0xC0; octet = ReadOctet()) {
            ReadIdentifyingStringOrIndex();
            if (octet & 0x02) ReadIdentifyingStringOrIndex();
            if (octet & 0x01) ReadIdentifyingStringOrIndex();
        }
    }
    if (flags & 0x08) {  // unparsed entities
        for (unsigned int octet = ReadOctet(); (octet & 0xFE) == 0xD0; octet = ReadOctet()) {
            ReadIdentifyingStringOrIndex();
            ReadIdentifyingStringOrIndex();
            if (octet & 0x01) ReadIdentifyingStringOrIndex();
            ReadIdentifyingStringOrIndex();
        }
    }
    if (flags & 0x04) SkipOctetStringOnSecondBit();  // character encoding scheme: each string says its own
    if (flags & 0x02) ReadOctet();                   // standalone
    if (flags & 0x01) ReadNonIdentifyingStringOrIndexOnFirstBit();  // version
}

// The entries a document declares up front take the places after the built-in ones,
// just as if they had come as literals, so later indexes find them. Lists of kinds
// this reader never looks up are only stepped over; an external vocabulary is not
// loaded, and a document that leans on one fails at the first index it lacks.
void CFastInfosetReader::ReadInitialVocabulary()
{
    const unsigned int first = ReadOctet();
    const unsigned int second = ReadOctet();
    auto strings = [this](Detail::CReaderStringTable* table) {
        for (std::uint32_t n = ReadSequenceLength(); n > 0; --n) {
            ReadOctet();
            const std::uint64_t length = ReadLengthOnSecondBit();
            const std::string_view text = ReadUtf8String(length);
            if (table) table->Add(text);
        }
    };
    auto encodedStrings = [this](Detail::CReaderStringTable* table) {
        for (std::uint32_t n = ReadSequenceLength(); n > 0; --n) {
            ReadOctet();
            const std::string_view text = ReadEncodedCharacterStringOnThirdBit();
            if (table) table->Add(text);
        }
    };
    auto surrogates = [this](std::vector<CReaderNameSurrogate>& table) {
        for (std::uint32_t n = ReadSequenceLength(); n > 0; --n) {
            const unsigned int flags = ReadOctet();
            CReaderNameSurrogate name{0, 0, 0};
            if (flags & 0x02) {
                ReadOctet();
                name.prefix = ReadIntegerOnSecondBit();
            }
            if (flags & 0x01) {
                ReadOctet();
                name.namespaceName = ReadIntegerOnSecondBit();
            }
            ReadOctet();
            name.localName = ReadIntegerOnSecondBit();
            table.push_back(name);
        }
    };
    CReaderVocabulary& v = *m_vocabulary;
    if (first & 0x10) SkipOctetStringOnSecondBit();
    if (first & 0x08) {
        for (std::uint32_t n = ReadSequenceLength(); n > 0; --n) {
            ReadOctet();
            const std::uint64_t length = ReadLengthOnSecondBit();
            const unsigned char* bytes = ReadOctets(length);
            v.AddAlphabet(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
        }
    }
    if (first & 0x04) strings(nullptr);  // encoding algorithms: none beyond the built-in ones is known
    if (first & 0x02) strings(&v.prefixes);
    if (first & 0x01) strings(&v.namespaceNames);
    if (second & 0x80) strings(&v.localNames);
    if (second & 0x40) strings(nullptr);
    if (second & 0x20) strings(nullptr);
    if (second & 0x10) encodedStrings(&v.attributeValues);
    if (second & 0x08) encodedStrings(&v.contentChunks);
    if (second & 0x04) encodedStrings(nullptr);
    if (second & 0x02) surrogates(v.elementNames);
    if (second & 0x01) surrogates(v.attributeNames);
}

// The document's children are read as the binary format defines them: any number of
// comments, processing instructions and a document type declaration around the one
// document element, up to the document's terminator. Reading only the first child
// would turn away the many documents whose writers put a comment or a type
// declaration before the root.
void CFastInfosetReader::ReadDocumentChildren()
{
    for (;;) {
        const unsigned int octet = ReadOctet();
        if (octet < 0x80) {
            if (m_document->GetDocumentElement()) Fail(kInvalidElement);  // a second root
            if (ReadElementTree()) return;
        } else if (octet == 0xF0) {
            return;
        } else if (octet == 0xE1) {
            ReadProcessingInstruction();
        } else if (octet == 0xE2) {
            ReadNonIdentifyingStringOrIndexOnFirstBit();  // comment, dropped
        } else if ((octet & 0xFC) == 0xC4) {
            ReadDocumentTypeDeclaration(octet);
        } else {
            Fail(kInvalidElement);
        }
    }
}

// Reads the element whose first octet is current and everything inside it, without
// recursion, so that nesting depth costs heap and not stack. True when the element's
// content ended in a double terminator, which then also ends the document.
bool CFastInfosetReader::ReadElementTree()
{
    std::size_t depth = 0;  // elements of this tree that are still open
    if (ReadElementHead())
        ++depth;
    else
        m_document->EndElement();
    while (depth > 0) {
        const unsigned int octet = ReadOctet();
        if (octet < 0x80) {
            if (ReadElementHead())
                ++depth;
            else
                m_document->EndElement();
        } else if (octet < 0xC0) {
            ReadCharacterChunk();
        } else if (octet == 0xF0) {
            m_document->EndElement();
            --depth;
        } else if (octet == 0xFF) {
            // Ends this element and its parent; for the document element the parent
            // is the document itself.
            m_document->EndElement();
            if (--depth == 0) return true;
            m_document->EndElement();
            --depth;
        } else if (octet == 0xE1) {
            ReadProcessingInstruction();
        } else if (octet == 0xE2) {
            ReadNonIdentifyingStringOrIndexOnFirstBit();  // comment, dropped
        } else if ((octet & 0xFC) == 0xC8) {
            ReadEntityReference(octet);
        } else {
            Fail(kInvalidElement);
        }
    }
    return false;
}

// Namespace attributes, name and attributes of an element; the element is then open.
// False when the attributes ended in a double terminator: the element has no
// children and is already over.
bool CFastInfosetReader::ReadElementHead()
{
    const unsigned int first = Current();
    if ((first & 0x3C) == 0x38) {
        unsigned int octet = ReadOctet();
        while ((octet & 0xFC) == 0xCC) {
            ReadNamespaceAttribute(octet);
            octet = ReadOctet();
        }
        ReadOctet();  // the list's terminator stood in the octet before; the name starts here
    }
    CReaderNameSurrogate name;
    if ((Current() & 0x3C) == 0x3C) {
        name = ReadQualifiedName(true);
    } else {
        name = CReaderVocabulary::At(m_vocabulary->elementNames, ReadIntegerOnThirdBit());
    }
    const std::string_view localName = m_vocabulary->localNames.At(name.localName);
    std::string_view namespaceName;
    if (name.namespaceName) namespaceName = m_vocabulary->namespaceNames.At(name.namespaceName);
    Charge(localName.size() + namespaceName.size());
    CXmlElement* element = m_document->AddElement(namespaceName, localName);
    if (first & 0x40) {
        // Attributes are gathered first so that the element's list is sized once.
        std::size_t count = 0;
        unsigned int octet = ReadOctet();
        while (octet < 0x80) {
            ReadAttribute(count++);
            octet = ReadOctet();
        }
        CXmlDocument::ReserveAttributes(element, count);
        for (std::size_t i = 0; i < count; ++i) {
            const CReaderNameSurrogate& attribute = CReaderVocabulary::At(m_vocabulary->attributeNames, m_pendingNames[i]);
            const std::string_view attributeLocal = m_vocabulary->localNames.At(attribute.localName);
            std::string_view attributeNamespace;
            if (attribute.namespaceName)
                attributeNamespace = m_vocabulary->namespaceNames.At(attribute.namespaceName);
            const std::string& value = m_pendingValues[i];
            Charge(attributeLocal.size() + attributeNamespace.size() + value.size());
            CXmlDocument::AddElementAttributeView(element, attributeLocal, value, attributeNamespace);
        }
        if (octet == 0xFF) return false;
    }
    return true;
}

// Reads attribute number slot of the element being read into the pending lists.
void CFastInfosetReader::ReadAttribute(std::size_t slot)
{
    std::uint32_t name;
    if ((Current() & 0x78) == 0x78) {
        ReadQualifiedName(false);
        name = static_cast<std::uint32_t>(m_vocabulary->attributeNames.size());
    } else {
        name = ReadIntegerOnSecondBit();
        CReaderVocabulary::At(m_vocabulary->attributeNames, name);  // fails for one that does not exist
    }
    if (slot == m_pendingNames.size()) {
        m_pendingNames.emplace_back();
        m_pendingValues.emplace_back();
    }
    m_pendingNames[slot] = name;
    std::string& value = m_pendingValues[slot];
    if (ReadNonIdentifyingStringOrIndexOnFirstBit()) {
        if (m_lastIndex > 0)
            value.assign(m_vocabulary->attributeValues.At(m_lastIndex));
        else
            value.clear();
    } else {
        if (m_addToTable) m_vocabulary->attributeValues.Add(m_lastLiteral);
        value.assign(m_lastLiteral.data(), m_lastLiteral.size());
    }
}

void CFastInfosetReader::ReadNamespaceAttribute(unsigned int octet)
{
    const std::uint32_t prefix = (octet & 0x02) ? ReadIdentifier(m_vocabulary->prefixes) : 0;
    const std::uint32_t namespaceName = (octet & 0x01) ? ReadIdentifier(m_vocabulary->namespaceNames) : 0;
    std::string_view prefixText;
    std::string_view namespaceText;
    if (prefix) prefixText = m_vocabulary->prefixes.At(prefix);
    if (namespaceName) namespaceText = m_vocabulary->namespaceNames.At(namespaceName);
    Charge(prefixText.size() + namespaceText.size());
    m_document->SetNamespaceAlias(prefixText, namespaceText);
}

void CFastInfosetReader::ReadCharacterChunk()
{
    std::string_view text;
    if (ReadNonIdentifyingStringOrIndexOnThirdBit()) {
        text = m_vocabulary->contentChunks.At(m_lastIndex);
        Charge(text.size());
    } else {
        if (m_addToTable) m_vocabulary->contentChunks.Add(m_lastLiteral);
        text = m_lastLiteral;
    }
    CXmlDocument::AppendTextExcludingCR(m_document->GetOpenElement(), text.data(),
                                        static_cast<unsigned long>(text.size()));
}

void CFastInfosetReader::ReadProcessingInstruction()
{
    ReadIdentifyingStringOrIndex();               // target
    ReadNonIdentifyingStringOrIndexOnFirstBit();  // content
}

void CFastInfosetReader::ReadDocumentTypeDeclaration(unsigned int octet)
{
    if (octet & 0x02) ReadIdentifyingStringOrIndex();  // system identifier
    if (octet & 0x01) ReadIdentifyingStringOrIndex();  // public identifier
    // Its children are processing instructions, up to a terminator of their own.
    for (unsigned int child = ReadOctet(); child != 0xF0; child = ReadOctet()) {
        if (child != 0xE1) Fail(kInvalidElement);
        ReadProcessingInstruction();
    }
}

void CFastInfosetReader::ReadEntityReference(unsigned int octet)
{
    ReadIdentifyingStringOrIndex();                    // name
    if (octet & 0x02) ReadIdentifyingStringOrIndex();  // system identifier
    if (octet & 0x01) ReadIdentifyingStringOrIndex();  // public identifier
}

CReaderNameSurrogate CFastInfosetReader::ReadQualifiedName(bool forElement)
{
    const unsigned int flags = Current();
    if ((flags & 0x03) == 0x02) Fail("Invalid QName type Prefix without Namespace.");
    CReaderNameSurrogate name{0, 0, 0};
    if (flags & 0x02) name.prefix = ReadIdentifier(m_vocabulary->prefixes);
    if (flags & 0x01) name.namespaceName = ReadIdentifier(m_vocabulary->namespaceNames);
    name.localName = ReadIdentifier(m_vocabulary->localNames);
    (forElement ? m_vocabulary->elementNames : m_vocabulary->attributeNames).push_back(name);
    return name;
}

std::uint32_t CFastInfosetReader::ReadIdentifier(Detail::CReaderStringTable& table)
{
    if (ReadIdentifyingStringOrIndex()) {
        table.At(m_lastIndex);  // fails for an entry that does not exist
        return m_lastIndex;
    }
    table.Add(m_lastLiteral);
    return table.Size();
}

void CFastInfosetReader::Charge(std::size_t bytes)
{
    if (bytes > m_budget) Fail("The document expands far beyond its own size.");
    m_budget -= bytes;
}

}  // namespace OrvexXmlLib5
