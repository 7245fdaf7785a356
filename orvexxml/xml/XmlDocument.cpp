#include "orvexxml/xml/XmlDocument.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/fastinfoset/FastInfosetReader.h"
#include "orvexxml/xml/ExpatReader.h"
#include "orvexxml/xml/FastXmlReader.h"
#include "orvexxml/xml/detail/InputInflater.h"

namespace OrvexXmlLib5 {

namespace {

const char kXsiNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";
const char kXmlnsNamespace[] = "http://www.w3.org/2000/xmlns/";

[[noreturn]] void ThrowFileFailure(const char* format, const char* fileName, int error)
{
    throw COrvexException(FormatString(format, fileName, static_cast<unsigned>(error)));
}

// Closes the descriptor on every way out of a load.
struct CFileCloser
{
    int fd;
    ~CFileCloser()
    {
        if (fd >= 0) ::close(fd);
    }
    void Close()
    {
        if (fd >= 0) ::close(fd);
        fd = -1;
    }
};

const std::string& SharedEmptyString()
{
    static const std::string empty;
    return empty;
}

// The names of an element not named yet.
const Detail::CQualifiedName* NoName()
{
    static const Detail::CQualifiedName none{&SharedEmptyString(), &SharedEmptyString()};
    return &none;
}


}  // namespace

// ---- CXmlAttribute ----

CXmlAttribute::CXmlAttribute(CXmlDocument* document, const Detail::CQualifiedName* name, const char* value)
    : CInstanceMonitor("CXmlAttribute"), m_document(document), m_name(name), m_value(value)
{
}

CXmlAttribute::~CXmlAttribute() = default;

const std::string& CXmlAttribute::GetValue() const
{
    return m_value ? m_document->ValueCopy(this) : SharedEmptyString();
}

bool CXmlAttribute::IsNamespaceAttribute() const
{
    const std::string& namespaceUri = GetNamespaceURI();
    const std::string& localName = GetLocalName();
    if (namespaceUri != kXsiNamespace && namespaceUri != kXmlnsNamespace) return false;
    return localName == "xmlns" || localName == "type" || localName == "schemaLocation" ||
           localName == "noNamespaceSchemaLocation";
}

// ---- CXmlElement ----

CXmlElement::CXmlElement(CXmlDocument* document)
    : CInstanceMonitor("CXmlElement"),
      m_document(document),
      m_nextSibling(nullptr),
      m_firstChild(nullptr),
      m_name(NoName()),
      m_text(nullptr),
      m_attributes(nullptr)
{
}

void CXmlElement::SetElementName(const std::string& localName)
{
    m_name = m_document->InternName(m_name->namespaceUri, m_document->Intern(localName));
}

void CXmlElement::SetNamespace(const std::string& namespaceUri)
{
    m_name = m_document->InternName(m_document->Intern(namespaceUri), m_name->localName);
}

// Children, attributes, text and attribute list all belong to the document's
// storage, which frees them by itself: an element owns nothing.
CXmlElement::~CXmlElement() = default;

const std::string& CXmlElement::GetText() const
{
    return m_text ? m_document->TextCopy(this) : SharedEmptyString();
}

const std::vector<CXmlAttribute*>& CXmlElement::GetAttributes() const
{
    static const std::vector<CXmlAttribute*> none;
    return m_attributes ? m_document->AttributesCopy(this) : none;
}

const std::string& CXmlElement::GetAttribute(const std::string& localName, const std::string& namespaceUri) const
{
    const CXmlAttribute* attribute = FindAttribute(localName, namespaceUri);
    return attribute ? attribute->GetValue() : SharedEmptyString();
}

const CXmlAttribute* CXmlElement::FindAttribute(std::string_view localName, std::string_view namespaceUri) const
{
    for (const CXmlAttribute* attribute : GetAttributeSpan())
        if (attribute->GetLocalName() == localName && attribute->GetNamespaceURI() == namespaceUri) return attribute;
    return nullptr;
}

void CXmlElement::AppendText(const char* text)
{
    if (text) AppendBytes(text, std::strlen(text));
}

void CXmlElement::AppendText(const char* text, int length)
{
    if (text && length > 0) AppendBytes(text, static_cast<std::size_t>(length));
}

void CXmlElement::AppendBytes(const char* text, std::size_t length)
{
    m_document->AppendElementText(this, std::string_view(text, length));
}

CXmlElement* CXmlElement::CreateNewChildElement()
{
    CXmlElement* child = m_document->NewElement();
    // An open element knows its last child; any other is walked to its end.
    CXmlElement* last = nullptr;
    bool open = false;
    for (std::size_t i = m_document->m_openDepth; i-- > 0 && !open;) {
        CXmlDocument::OpenElement& entry = m_document->m_openElements[i];
        if (entry.element == this) {
            open = true;
            last = entry.lastChild;
            entry.lastChild = child;
        }
    }
    if (!open)
        for (last = m_firstChild; last && last->m_nextSibling;) last = last->m_nextSibling;
    if (last)
        last->m_nextSibling = child;
    else
        m_firstChild = child;
    return child;
}

void CXmlElement::ReserveAttributes(std::size_t capacity)
{
    const std::size_t count = m_attributes ? AttributeCount() : 0;
    if (capacity <= AttributeCapacity()) return;
    if (capacity > (SIZE_MAX - 2 * sizeof(std::size_t)) / sizeof(CXmlAttribute*)) throw std::bad_alloc();
    auto* block = static_cast<std::size_t*>(m_document->m_arena.Allocate(
        2 * sizeof(std::size_t) + capacity * sizeof(CXmlAttribute*), alignof(std::size_t)));
    block[0] = count;
    block[1] = capacity;
    auto** list = reinterpret_cast<CXmlAttribute**>(block + 2);
    if (count) std::memcpy(list, m_attributes, count * sizeof(CXmlAttribute*));
    m_attributes = list;
}

CXmlAttribute* CXmlElement::AddAttribute(const std::string& localName, const std::string& value,
                                         const std::string& namespaceUri)
{
    return AddAttributeView(localName, value, namespaceUri);
}

CXmlAttribute* CXmlElement::AddAttributeView(std::string_view localName, std::string_view value,
                                             std::string_view namespaceUri)
{
    // The list grows by doubling; a reader that knows the count reserves it first.
    const std::size_t count = m_attributes ? AttributeCount() : 0;
    if (count == AttributeCapacity()) ReserveAttributes(count ? 2 * count : 4);
    CXmlAttribute* attribute = m_document->NewAttribute(localName, value, namespaceUri);
    m_attributes[count] = attribute;
    reinterpret_cast<std::size_t*>(m_attributes)[-2] = count + 1;
    // A list given out already follows, as the element's own list would.
    if (!m_document->m_attributeCopies.empty()) {
        auto copy = m_document->m_attributeCopies.find(this);
        if (copy != m_document->m_attributeCopies.end()) copy->second.push_back(attribute);
    }
    return attribute;
}

// ---- CXmlDocument ----

CXmlDocument::CXmlDocument(SchemaType schemaType)
    : CInstanceMonitor("CXmlDocument"),
      m_documentElement(nullptr),
      m_inputLength(0),
      m_maxInflatedSize(CXmlSerializationContext::DefaultMaxInflatedSize),
      m_schemaType(schemaType),
      m_allowTruncatedDocuments(false),
      m_allowManyEntityDeclarations(false)
{
}

CXmlDocument::CXmlDocument(const CXmlSerializationContext& context) : CXmlDocument(context.GetSchemaType())
{
    m_allowTruncatedDocuments = context.GetAllowTruncatedDocuments();
    m_allowManyEntityDeclarations = context.GetAllowManyEntityDeclarations();
    m_maxInflatedSize = context.GetMaxInflatedSize();
}

CXmlDocument::~CXmlDocument()
{
    CXmlDocument::Cleanup();
}

void CXmlDocument::Cleanup()
{
    ClearTree();
    FreeInput();
}

void CXmlDocument::ClearTree()
{
    m_documentElement = nullptr;
    m_openDepth = 0;
    m_openElements.clear();
    m_prefixTable.clear();
    m_textCopies.clear();
    m_attributeCopies.clear();
    m_valueCopies.clear();
    m_elements.Clear();
    m_attributes.Clear();
    m_arena.Clear();
    std::fill(std::begin(m_recentTexts), std::end(m_recentTexts), nullptr);
    m_qualifiedNames.Clear();
    m_farLocations.clear();
    m_names.Clear();
}

void CXmlDocument::LoadXml(const char* text)
{
    Cleanup();
    if (!text || !*text) throw COrvexException("XML String is empty!");
    BorrowInput(text, std::strlen(text));
    Parse(true);
}

void CXmlDocument::LoadXml(const unsigned short* text)
{
    Cleanup();
    std::size_t count = 0;
    if (text)
        while (text[count]) ++count;
    // The byte order mark FF FE tells the parser that the bytes are UTF-16 little-endian.
    unsigned char* bytes = AllocateInput(2 + 2 * count);
    bytes[0] = 0xFF;
    bytes[1] = 0xFE;
    for (std::size_t i = 0; i < count; ++i) {
        bytes[2 + 2 * i] = static_cast<unsigned char>(text[i] & 0xFF);
        bytes[3 + 2 * i] = static_cast<unsigned char>(text[i] >> 8);
    }
    Parse(true);
}

void CXmlDocument::Load(const char* fileName)
{
    Cleanup();
    if (!fileName) ThrowFileFailure("Failed to open the file [%s] Error [0x%08x]", fileName, EINVAL);
    CFileCloser file{::open(fileName, O_RDONLY | O_CLOEXEC)};
    if (file.fd < 0) ThrowFileFailure("Failed to open the file [%s] Error [0x%08x]", fileName, errno);
    struct stat info;
    if (::fstat(file.fd, &info) != 0)
        ThrowFileFailure("Failed to get the size of the file [%s] Error [0x%08x]", fileName, errno);
    ::posix_fadvise(file.fd, 0, 0, POSIX_FADV_SEQUENTIAL);

    // The whole size is kept, also beyond 4 GiB: a length cut to 32 bits would
    // parse the front of the file as if it were all of it.
    const auto size = static_cast<std::uint64_t>(info.st_size < 0 ? 0 : info.st_size);
    if (size > static_cast<std::uint64_t>(SIZE_MAX) - 1)
        ThrowFileFailure("Failed to read the contents of the file [%s] Error [0x%08x]", fileName, EFBIG);
    unsigned char* buffer = nullptr;
    try {
        buffer = AllocateInput(static_cast<std::size_t>(size));
    } catch (const std::bad_alloc&) {
        file.Close();
        ThrowFileFailure("Failed to read the contents of the file [%s] Error [0x%08x]", fileName, ENOMEM);
    }
    // One read call gives at most about 2 GiB here, so a large file takes several.
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = ::read(file.fd, buffer + done, static_cast<std::size_t>(size) - done);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) {
            // A file that shrank since its size was taken sets no error number.
            const int error = got < 0 ? errno : 0;
            file.Close();
            FreeInput();
            ThrowFileFailure("Failed to read the contents of the file [%s] Error [0x%08x]", fileName, error);
        }
        done += static_cast<std::size_t>(got);
    }
    file.Close();
    Parse(false);
}

void CXmlDocument::LoadXmlStream(unsigned char* const data, unsigned long length)
{
    Cleanup();
    if (length == 0 || !data) throw COrvexException("XML Stream is empty!");
    std::memcpy(AllocateInput(length), data, length);
    Parse(false);
}

void CXmlDocument::InflateInput()
{
    CBinaryData inflated;
    bool whole = Detail::InflateStream(m_input.get(), m_inputLength, m_maxInflatedSize, inflated);
    // A file written as UTF-16 and compressed carries the byte order mark in front
    // of the compressed bytes, not inside them. So that such a file reads back, a
    // stream behind FF FE is inflated as well; the mark is dropped with it, and the
    // parser finds UTF-16 from the inflated text itself.
    if (!whole && m_inputLength > 2 && m_input[0] == 0xFF && m_input[1] == 0xFE)
        whole = Detail::InflateStream(m_input.get() + 2, m_inputLength - 2, m_maxInflatedSize, inflated);
    if (!whole) return;
    const std::size_t length = inflated.GetLength();
    std::unique_ptr<unsigned char[]> bytes(inflated.ReleaseData());
    // An empty stream inflates to nothing and leaves no array; it still replaces the input.
    if (!bytes) bytes.reset(new unsigned char[1]);
    ReplaceInput(std::move(bytes), length);
}

void CXmlDocument::Parse(bool isText)
{
    struct InputRelease
    {
        CXmlDocument* document;
        ~InputRelease() { document->FreeInput(); }
    } release{this};

    // However the readers end, the text of elements left open is kept.
    try {
        // Text given as a string is always XML text; bytes from a stream or a file
        // may be compressed, and may be Fast Infoset.
        bool read = false;
        if (!isText) {
            InflateInput();
            CFastInfosetReader binaryReader(this);
            read = binaryReader.Parse();
        }
        // Most text is read by the fast reader; what it is not certain of, Expat reads.
        if (!read) {
            CFastXmlReader fastReader(this);
            read = fastReader.Parse();
        }
        if (!read) {
            CExpatReader reader(this);
            reader.Parse();
        }
    } catch (...) {
        StoreOpenText();
        throw;
    }
    StoreOpenText();
    if (!m_documentElement) {
        Cleanup();
        throw COrvexException("Invalid or empty XML document");
    }
}

std::string CXmlDocument::LookupNamespaceFromAlias(const char* prefix) const
{
    auto found = m_prefixTable.find(prefix ? prefix : "");
    return found == m_prefixTable.end() ? std::string() : found->second;
}

CXmlElement* CXmlDocument::AddDocElement(const char* namespaceUri, const char* localName)
{
    CXmlElement* element = NewElement();
    m_documentElement = element;
    element->m_name = InternName(Intern(namespaceUri ? namespaceUri : ""), Intern(localName ? localName : ""));
    PushOpen(element);
    return element;
}

void CXmlDocument::PushOpen(CXmlElement* element)
{
    if (m_openDepth == m_openElements.size()) m_openElements.emplace_back();
    OpenElement& entry = m_openElements[m_openDepth];
    entry.element = element;
    entry.lastChild = nullptr;
    ++m_openDepth;
}

CXmlElement* CXmlDocument::AddChildElement(const char* namespaceUri, const char* localName)
{
    return AddElement(namespaceUri ? namespaceUri : "", localName ? localName : "");
}

CXmlElement* CXmlDocument::AddElement(std::string_view namespaceUri, std::string_view localName)
{
    return AddElement(Intern(namespaceUri), localName);
}

CXmlElement* CXmlDocument::AddElement(const std::string* namespaceUri, std::string_view localName)
{
    return AddInternedElement(namespaceUri, Intern(localName));
}

CXmlElement* CXmlDocument::AddInternedElement(const std::string* namespaceUri, const std::string* localName)
{
    return AddNamedElement(InternName(namespaceUri, localName));
}

CXmlElement* CXmlDocument::AddNamedElement(const Detail::CQualifiedName* name)
{
    CXmlElement* element;
    if (!m_documentElement) {
        element = NewElement();
        m_documentElement = element;
    } else {
        // Only a reader that delivers a second root gets here with nothing open.
        if (m_openDepth == 0) throw COrvexException("Invalid or empty XML document");
        element = m_openElements[m_openDepth - 1].element->CreateNewChildElement();
    }
    element->m_name = name;
    PushOpen(element);
    return element;
}

void CXmlDocument::AddElementAttribute(CXmlElement* element, const std::string& localName, const std::string& value,
                                       const std::string& namespaceUri)
{
    element->AddAttributeView(localName, value, namespaceUri);
}

void CXmlDocument::AddElementAttributeView(CXmlElement* element, std::string_view localName,
                                           std::string_view value, std::string_view namespaceUri)
{
    element->AddAttributeView(localName, value, namespaceUri);
}

void CXmlDocument::ReserveAttributes(CXmlElement* element, std::size_t count)
{
    element->ReserveAttributes(count);
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const char* text, unsigned long length)
{
    if (!element || !text || length == 0) return;
    // Most text comes in short runs (the indentation between tags): one pass over the
    // bytes tells whether the run needs anything but appending.
    if (length <= 32) {
        bool plain = true;
        for (unsigned long i = 0; i < length; ++i)
            if (text[i] == '\0' || text[i] == '\r') plain = false;
        if (plain) {
            element->AppendBytes(text, length);
            return;
        }
    }
    if (const void* nul = std::memchr(text, 0, length))
        length = static_cast<unsigned long>(static_cast<const char*>(nul) - text);
    const char* end = text + length;
    while (text < end) {
        const char* cr = static_cast<const char*>(std::memchr(text, '\r', static_cast<std::size_t>(end - text)));
        const char* runEnd = cr ? cr : end;
        if (runEnd > text) element->AppendBytes(text, static_cast<std::size_t>(runEnd - text));
        text = cr ? cr + 1 : end;
    }
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const char* text)
{
    if (text) AppendTextExcludingCR(element, text, static_cast<unsigned long>(std::strlen(text)));
}

void CXmlDocument::EndElement()
{
    if (m_openDepth == 0) return;
    StoreGatheredText(m_openElements[--m_openDepth]);
}

void CXmlDocument::StoreGatheredText(OpenElement& entry)
{
    if (entry.text.empty()) return;
    CXmlElement* element = entry.element;
    element->m_text =
        element->m_text ? m_arena.StoreText(element->GetTextView(), entry.text) : StoreElementText(entry.text);
    entry.text.clear();
    // A buffer that took a long text does not keep its size for the next element.
    if (entry.text.capacity() > 64 * 1024) std::string().swap(entry.text);
}

const char* CXmlDocument::StoreElementText(std::string_view text)
{
    // Indentation, numbers, codes and names repeat throughout most documents.
    constexpr std::size_t shared = 64;
    const std::size_t length = text.size();
    if (length == 0 || length > shared) return m_arena.StoreText(text);
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    const std::size_t slot = (length * 31 + bytes[0] * 7 + bytes[length / 2] * 5 + bytes[length - 1] * 3) & 255;
    const char*& recent = m_recentTexts[slot];
    if (recent && Detail::CTreeArena::TextLength(recent) == length && std::memcmp(recent, bytes, length) == 0)
        return recent;
    recent = m_arena.StoreText(text);
    return recent;
}

void CXmlDocument::StoreOpenText()
{
    for (std::size_t i = 0; i < m_openDepth; ++i) StoreGatheredText(m_openElements[i]);
}

void CXmlDocument::AppendElementText(CXmlElement* element, std::string_view text)
{
    if (text.empty()) return;
    for (std::size_t i = m_openDepth; i-- > 0;) {
        if (m_openElements[i].element == element) {
            m_openElements[i].text.append(text.data(), text.size());
            return;
        }
    }
    element->m_text = m_arena.StoreText(element->GetTextView(), text);
    // A copy given out already follows, as the element's own string would.
    if (!m_textCopies.empty()) {
        auto copy = m_textCopies.find(element);
        if (copy != m_textCopies.end()) copy->second.append(text.data(), text.size());
    }
}

const std::string& CXmlDocument::TextCopy(const CXmlElement* element) const
{
    std::lock_guard<std::mutex> lock(m_copiesMutex);
    auto found = m_textCopies.find(element);
    if (found == m_textCopies.end()) found = m_textCopies.emplace(element, std::string(element->GetTextView())).first;
    return found->second;
}

const std::string& CXmlDocument::ValueCopy(const CXmlAttribute* attribute) const
{
    std::lock_guard<std::mutex> lock(m_copiesMutex);
    auto found = m_valueCopies.find(attribute);
    if (found == m_valueCopies.end())
        found = m_valueCopies.emplace(attribute, std::string(attribute->GetValueView())).first;
    return found->second;
}

const std::vector<CXmlAttribute*>& CXmlDocument::AttributesCopy(const CXmlElement* element) const
{
    std::lock_guard<std::mutex> lock(m_copiesMutex);
    auto found = m_attributeCopies.find(element);
    if (found == m_attributeCopies.end()) {
        const CXmlElement::AttributeSpan span = element->GetAttributeSpan();
        found = m_attributeCopies.emplace(element, std::vector<CXmlAttribute*>(span.begin(), span.end())).first;
    }
    return found->second;
}

void CXmlDocument::SetNamespaceAlias(std::string_view prefix, std::string_view namespaceUri)
{
    auto found = m_prefixTable.find(std::string(prefix));
    if (found == m_prefixTable.end())
        m_prefixTable.emplace(std::string(prefix), std::string(namespaceUri));
    else
        found->second.assign(namespaceUri.data(), namespaceUri.size());
}

unsigned char* CXmlDocument::AllocateInput(std::size_t length)
{
    // Never zero bytes, so that an empty input still has an address to hand over.
    m_input.reset(new unsigned char[length ? length : 1]);
    m_inputData = m_input.get();
    m_inputLength = length;
    return m_input.get();
}

void CXmlDocument::ReplaceInput(std::unique_ptr<unsigned char[]> data, std::size_t length)
{
    m_input = std::move(data);
    m_inputData = m_input.get();
    m_inputLength = m_input ? length : 0;
}

void CXmlDocument::BorrowInput(const char* text, std::size_t length)
{
    m_input.reset();
    m_inputData = reinterpret_cast<const unsigned char*>(text);
    m_inputLength = length;
}

void CXmlDocument::FreeInput()
{
    m_input.reset();
    m_inputData = nullptr;
    m_inputLength = 0;
}

CSourceLocation CXmlElement::GetLocation() const
{
    const std::uint64_t value = m_location & ~CXmlElement::LocationKind;
    switch (m_location & CXmlElement::LocationKind) {
        case CXmlElement::LocationText:
            return CSourceLocation::InText(value >> 31, value & CXmlElement::LocationField);
        case CXmlElement::LocationFar: {
            const auto& wide = m_document->m_farLocations[static_cast<std::size_t>(value)];
            return CSourceLocation::InText(wide.first, wide.second);
        }
        case CXmlElement::LocationBinary:
            return CSourceLocation::InBinary(value);
        default:
            return CSourceLocation();
    }
}

void CXmlDocument::SetElementFarLocation(CXmlElement* element, std::uint64_t line, std::uint64_t column)
{
    // A column is kept up to 2^32 - 1; beyond, it stays there.
    if (column > UINT32_MAX) column = UINT32_MAX;
    CXmlDocument* document = element->m_document;
    document->m_farLocations.emplace_back(line, column);
    element->m_location = CXmlElement::LocationFar | (document->m_farLocations.size() - 1);
}

void CXmlDocument::SetElementBinaryLocation(CXmlElement* element, std::uint64_t octetOffset)
{
    // An offset beyond 2^62 is beyond any input that fits in memory.
    element->m_location = CXmlElement::LocationBinary | (octetOffset & ~CXmlElement::LocationKind);
}

CXmlElement* CXmlDocument::NewElement()
{
    return m_elements.Create(this);
}

CXmlAttribute* CXmlDocument::NewAttribute(std::string_view localName, std::string_view value,
                                          std::string_view namespaceUri)
{
    const Detail::CQualifiedName* name = InternName(Intern(namespaceUri), Intern(localName));
    return m_attributes.Create(this, name, value.empty() ? nullptr : StoreElementText(value));
}

const std::string* CXmlDocument::Intern(std::string_view text)
{
    // A document has few names, used again and again: most are found in the small
    // table without hashing the whole text.
    const std::size_t slot =
        text.empty() ? 0
                     : (text.size() * 7 + static_cast<unsigned char>(text.front()) * 3 +
                        static_cast<unsigned char>(text.back())) % m_names.RecentSlots;
    return m_names.Intern(text, slot, text);
}

const Detail::CQualifiedName* CXmlDocument::InternName(const std::string* namespaceUri, const std::string* localName)
{
    const auto address = reinterpret_cast<std::uintptr_t>(namespaceUri) ^ reinterpret_cast<std::uintptr_t>(localName);
    const std::size_t slot = (address >> 3 ^ address >> 9) % m_qualifiedNames.RecentSlots;
    return m_qualifiedNames.Intern(NamePair(namespaceUri, localName), slot,
                                   Detail::CQualifiedName{namespaceUri, localName});
}

bool Detail::LoadTextWith(CXmlDocument& document, std::string_view text, TextReader reader)
{
    document.Cleanup();
    document.BorrowInput(text.data(), text.size());
    struct InputRelease
    {
        CXmlDocument& document;
        ~InputRelease() { document.FreeInput(); }
    } release{document};
    bool read = true;
    try {
        if (reader == TextReader::Fast) {
            CFastXmlReader fastReader(&document);
            read = fastReader.Parse();
        } else {
            CExpatReader expatReader(&document);
            expatReader.Parse();
        }
    } catch (...) {
        document.StoreOpenText();
        throw;
    }
    document.StoreOpenText();
    return read;
}

}  // namespace OrvexXmlLib5
