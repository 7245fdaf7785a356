#include "orvexxml/xml/ExpatReader.h"

#include <climits>
#include <cstring>
#include <new>

#include <expat.h>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/platform/CodePage.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5 {

namespace {

// Expat joins a namespace URI and a local name with this byte, and refuses a
// namespace URI that holds it. XML allows this control character nowhere, not even
// as a reference, so no document is refused for its URIs, and the last one in a
// joined name is the boundary.
constexpr char kNamespaceSeparator = '\x01';

// The bytes handed to the parser per call.
constexpr std::size_t kPieceSize = std::size_t(4) << 20;

struct SplitName
{
    std::string_view namespaceUri;
    std::string_view localName;
};

SplitName Split(const char* name)
{
    const std::size_t length = std::strlen(name);
    for (std::size_t i = length; i > 0; --i)
        if (name[i - 1] == kNamespaceSeparator)
            return SplitName{std::string_view(name, i - 1), std::string_view(name + i, length - i)};
    return SplitName{std::string_view(name, 0), std::string_view(name, length)};
}

bool IsAscii(const char* text, std::size_t length)
{
    unsigned char any = 0;
    for (std::size_t i = 0; i < length; ++i) any |= static_cast<unsigned char>(text[i]);
    return any < 0x80;
}

// Expat reads Latin-1 and UTF-16 input through a byte table that takes U+00AA,
// U+00B5 and U+00BA as name characters, while its UTF-8 reading (and XML itself)
// does not. A name holding one would be written as UTF-8 that no reader takes back,
// so such a name is refused whatever the input encoding, as UTF-8 input refuses it.
bool HasLatin1OnlyNameChar(std::string_view name)
{
    for (std::size_t i = 0; i + 1 < name.size(); ++i)
        if (name[i] == '\xC2' && (name[i + 1] == '\xAA' || name[i + 1] == '\xB5' || name[i + 1] == '\xBA'))
            return true;
    return false;
}

}  // namespace

// Expat calls plain C functions. Each one forwards to the reader and keeps every
// exception inside: the first is recorded, the parser is stopped, and no further
// callback does anything.
struct CExpatReader::Callbacks
{
    template <typename Fn>
    static void Guard(void* userData, Fn&& fn)
    {
        auto* reader = static_cast<CExpatReader*>(userData);
        if (reader->m_failure) return;
        try {
            fn(reader);
        } catch (...) {
            reader->m_failure = std::current_exception();
            XML_StopParser(reader->m_parser, XML_FALSE);
        }
    }

    static void XMLCALL OnStartElement(void* userData, const XML_Char* name, const XML_Char** attributes)
    {
        Guard(userData, [&](CExpatReader* reader) { reader->StartElement(name, attributes); });
    }

    static void XMLCALL OnEndElement(void* userData, const XML_Char*)
    {
        Guard(userData, [&](CExpatReader* reader) { reader->EndElement(); });
    }

    static void XMLCALL OnCharacterData(void* userData, const XML_Char* text, int length)
    {
        Guard(userData, [&](CExpatReader* reader) { reader->CharacterData(text, length); });
    }

    static void XMLCALL OnStartNamespace(void* userData, const XML_Char* prefix, const XML_Char* uri)
    {
        Guard(userData, [&](CExpatReader* reader) { reader->NamespaceDecl(prefix, uri); });
    }

    static void XMLCALL OnEndNamespace(void*, const XML_Char*) {}

    static void XMLCALL OnEntityDecl(void* userData, const XML_Char*, int, const XML_Char* value, int,
                                     const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*)
    {
        // Only internal entities (those with replacement text) are expanded here;
        // external ones are never fetched.
        if (value) Guard(userData, [&](CExpatReader* reader) { reader->EntityDecl(); });
    }
};

CExpatReader::CExpatReader(CXmlDocument* document)
    : CInstanceMonitor("CExpatReader"),
      m_document(document),
      m_parser(nullptr),
      m_localIsUtf8(true),
      m_entityDeclarations(0),
      m_localKeepsAscii(true)
{
}

CExpatReader::~CExpatReader()
{
    if (m_parser) XML_ParserFree(m_parser);
}

void CExpatReader::Parse()
{
    if (m_parser) {
        XML_ParserFree(m_parser);
        m_parser = nullptr;
    }
    m_failure = nullptr;
    m_entityDeclarations = 0;
    m_localIsUtf8 = Platform::LocalIsUtf8();
    m_localKeepsAscii = Platform::LocalKeepsAscii();

    // Without namespace processing, xmlns declarations arrive as plain attributes and
    // qualified names keep their prefix.
    m_parser = m_document->GetSchemaType() == SchemaType_NoNamespaces
                   ? XML_ParserCreate(nullptr)
                   : XML_ParserCreateNS(nullptr, kNamespaceSeparator);
    if (!m_parser) throw std::bad_alloc();
    struct ParserRelease
    {
        XML_ParserStruct*& parser;
        ~ParserRelease()
        {
            XML_ParserFree(parser);
            parser = nullptr;
        }
    } release{m_parser};

    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, &Callbacks::OnStartElement, &Callbacks::OnEndElement);
    XML_SetNamespaceDeclHandler(m_parser, &Callbacks::OnStartNamespace, &Callbacks::OnEndNamespace);
    XML_SetCharacterDataHandler(m_parser, &Callbacks::OnCharacterData);
    if (!m_document->GetAllowManyEntityDeclarations())
        XML_SetEntityDeclHandler(m_parser, &Callbacks::OnEntityDecl);

    // The parser copies what it is given into a buffer of its own, so the input goes
    // in pieces of a few MiB: a whole document at once would double the memory it
    // takes, and one beyond about 1 GiB would not fit the parser's buffer at all.
    // A token the parser could not finish is scanned again from its start with each
    // later piece, so while one is pending the next piece is at least as long as what
    // the parser holds: a token of many pieces then costs a few passes, not one per piece.
    const char* data = reinterpret_cast<const char*>(m_document->GetInput());
    std::size_t left = m_document->GetInputLength();
    std::size_t fed = 0;
    XML_Status status;
    do {
        const XML_Index done = XML_GetCurrentByteIndex(m_parser);
        const std::size_t pending =
            done > 0 && static_cast<std::size_t>(done) <= fed ? fed - static_cast<std::size_t>(done) : fed;
        std::size_t size = pending > kPieceSize ? pending : kPieceSize;
        if (size > static_cast<std::size_t>(INT_MAX)) size = static_cast<std::size_t>(INT_MAX);
        const int piece = left > size ? static_cast<int>(size) : static_cast<int>(left);
        status = XML_Parse(m_parser, data, piece, 0);
        fed += static_cast<std::size_t>(piece);
        data += piece;
        left -= static_cast<std::size_t>(piece);
    } while (status == XML_STATUS_OK && left > 0);

    // The older reading never told the parser that the input ends, so a document cut
    // short loaded the part before the cut without error and data went missing
    // unnoticed. This reader says so in a last, empty call, unless the document allows
    // truncation: errors that only show at the end (an unclosed element, an unfinished
    // token) then fail the load. When no element was read at all, the document's own
    // "Invalid or empty XML document" stays the message, as it was.
    if (status == XML_STATUS_OK && !m_failure && !m_document->GetAllowTruncatedDocuments()) {
        status = XML_Parse(m_parser, data, 0, 1);
        if (status == XML_STATUS_ERROR && !m_failure && !m_document->GetDocumentElement()) return;
    }

    if (m_failure) std::rethrow_exception(m_failure);
    if (status == XML_STATUS_ERROR) {
        COrvexException e(FormatString("%s at line %d", XML_ErrorString(XML_GetErrorCode(m_parser)),
                                       static_cast<int>(XML_GetCurrentLineNumber(m_parser))));
        e.SetLocation(CSourceLocation::InText(XML_GetCurrentLineNumber(m_parser),
                                              XML_GetCurrentColumnNumber(m_parser) + 1));
        throw e;
    }
}

std::string_view CExpatReader::ToLocal(const char* text, std::size_t length, std::string& holder) const
{
    // The parser gives valid UTF-8, so for a UTF-8 local encoding the bytes are the
    // result, and ASCII is the same in the code pages that keep it (not in EBCDIC).
    if (m_localIsUtf8 || (m_localKeepsAscii && IsAscii(text, length))) return std::string_view(text, length);
    holder = Platform::Utf8ToLocal(text, length);
    return holder;
}

void CExpatReader::CheckName(std::string_view name) const
{
    if (HasLatin1OnlyNameChar(name))
        throw COrvexException(FormatString("%s at line %d", XML_ErrorString(XML_ERROR_INVALID_TOKEN),
                                           static_cast<int>(XML_GetCurrentLineNumber(m_parser))));
}

void CExpatReader::StartElement(const char* name, const char** attributes)
{
    SplitName split = Split(name);
    CheckName(split.localName);
    CXmlElement* element = m_document->AddElement(
        ToLocal(split.namespaceUri.data(), split.namespaceUri.size(), m_namespaceHolder),
        ToLocal(split.localName.data(), split.localName.size(), m_nameHolder));
    // Expat counts columns from 0; people count them from 1.
    CXmlDocument::SetElementTextLocation(element, XML_GetCurrentLineNumber(m_parser),
                                         XML_GetCurrentColumnNumber(m_parser) + 1);
    if (!attributes || !attributes[0]) return;

    std::size_t count = 0;
    while (attributes[2 * count]) ++count;
    CXmlDocument::ReserveAttributes(element, count);
    for (std::size_t i = 0; i < count; ++i) {
        SplitName attributeName = Split(attributes[2 * i]);
        CheckName(attributeName.localName);
        const char* value = attributes[2 * i + 1];
        CXmlDocument::AddElementAttributeView(
            element, ToLocal(attributeName.localName.data(), attributeName.localName.size(), m_nameHolder),
            ToLocal(value, std::strlen(value), m_valueHolder),
            ToLocal(attributeName.namespaceUri.data(), attributeName.namespaceUri.size(), m_namespaceHolder));
    }
}

void CExpatReader::EndElement()
{
    m_document->EndElement();
}

void CExpatReader::CharacterData(const char* text, int length)
{
    if (length <= 0) return;
    CXmlElement* element = m_document->GetOpenElement();
    if (!element) return;
    std::string_view local = ToLocal(text, static_cast<std::size_t>(length), m_valueHolder);
    CXmlDocument::AppendTextExcludingCR(element, local.data(), static_cast<unsigned long>(local.size()));
}

void CExpatReader::EntityDecl()
{
    // Refused before any reference to the entity can be expanded, so the parser never
    // nests deeper than the limit.
    if (++m_entityDeclarations > CXmlDocument::MaxEntityDeclarations)
        throw COrvexException(FormatString(
            "The document declares more than %d entities at line %d; the serialization context can allow more",
            CXmlDocument::MaxEntityDeclarations, static_cast<int>(XML_GetCurrentLineNumber(m_parser))));
}

void CExpatReader::NamespaceDecl(const char* prefix, const char* uri)
{
    // A null prefix is the default namespace; a null URI undeclares the prefix.
    if (!prefix) prefix = "";
    if (!uri) uri = "";
    CheckName(prefix);
    std::string_view localPrefix = ToLocal(prefix, std::strlen(prefix), m_nameHolder);
    std::string_view localUri = ToLocal(uri, std::strlen(uri), m_namespaceHolder);
    m_document->SetNamespaceAlias(localPrefix, localUri);
}

}  // namespace OrvexXmlLib5
