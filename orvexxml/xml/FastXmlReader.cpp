#include "orvexxml/xml/FastXmlReader.h"

#include <cstring>

#include "orvexxml/platform/CodePage.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5 {

namespace {

constexpr char kXmlNamespaceUri[] = "http://www.w3.org/XML/1998/namespace";
constexpr char kXmlnsNamespaceUri[] = "http://www.w3.org/2000/xmlns/";

// One flag per byte value, so that the plain runs of a document cost one lookup a byte.
struct ByteTables
{
    // Bytes that end a plain run of character data: markup, references, the ']' that
    // may start "]]>", every byte below a space (line ends, tabs, control characters)
    // and every byte of a UTF-8 sequence.
    bool textStop[256];
    // The same for attribute values, where the quotes stop the run and ']' does not.
    bool valueStop[256];
    // The same for comments, processing instructions and CDATA sections.
    bool commentStop[256];
    // Names are read in ASCII only; a name with any other byte is left to Expat.
    bool nameStart[256];
    bool nameChar[256];
};

constexpr ByteTables MakeTables()
{
    ByteTables tables{};
    for (int c = 0; c < 256; ++c) {
        const bool outside = c < 0x20 || c >= 0x80;
        tables.textStop[c] = outside || c == '<' || c == '&' || c == ']';
        tables.valueStop[c] = outside || c == '<' || c == '&' || c == '"' || c == '\'';
        tables.commentStop[c] = outside || c == '-' || c == '?' || c == ']';
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
        tables.nameStart[c] = letter;
        tables.nameChar[c] = letter || (c >= '0' && c <= '9') || c == '-' || c == '.';
    }
    return tables;
}

constexpr ByteTables kTables = MakeTables();

// Equality of short byte runs (names, mostly) without a call to memcmp.
bool SameBytes(const unsigned char* a, const char* b, std::size_t length)
{
    if (length > 32) return std::memcmp(a, b, length) == 0;
    for (; length >= 8; a += 8, b += 8, length -= 8) {
        std::uint64_t x, y;
        std::memcpy(&x, a, 8);
        std::memcpy(&y, b, 8);
        if (x != y) return false;
    }
    for (std::size_t i = 0; i < length; ++i)
        if (a[i] != static_cast<unsigned char>(b[i])) return false;
    return true;
}

bool StartsWith(const unsigned char* p, const unsigned char* end, const char* literal)
{
    const std::size_t length = std::strlen(literal);
    return static_cast<std::size_t>(end - p) >= length && std::memcmp(p, literal, length) == 0;
}

bool EqualsIgnoringCase(std::string_view text, const char* lower)
{
    const std::size_t length = std::strlen(lower);
    if (text.size() != length) return false;
    for (std::size_t i = 0; i < length; ++i) {
        char c = text[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != lower[i]) return false;
    }
    return true;
}

bool IsXmlChar(std::uint32_t code)
{
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

}  // namespace

CFastXmlReader::CFastXmlReader(CXmlDocument* document)
    : CInstanceMonitor("CFastXmlReader"),
      m_document(document),
      m_namespaced(true),
      m_p(nullptr),
      m_end(nullptr),
      m_line(1),
      m_lineStart(nullptr),
      m_wide(0),
      m_open(nullptr),
      m_decodedUsed(0),
      m_emptyUri(nullptr)
{
    // Views into the decoded values are taken while a tag is read: the vector never
    // grows past its first size, so they stay valid.
    m_decoded.resize(MaxAttributes);
}

CFastXmlReader::~CFastXmlReader() = default;

void CFastXmlReader::GiveUp()
{
    throw Uncertain();
}

bool CFastXmlReader::Parse()
{
    // Names and text go into the tree as they are read, so the local encoding must be UTF-8.
    if (!Platform::LocalIsUtf8() || !m_document->GetInput()) return false;
    m_namespaced = m_document->GetSchemaType() != SchemaType_NoNamespaces;
    m_p = m_document->GetInput();
    m_end = m_p + m_document->GetInputLength();
    m_line = 1;
    m_lineStart = m_p;
    m_wide = 0;
    m_open = nullptr;
    m_stack.clear();
    m_bindings.clear();
    // Generation 0 marks the cache's entries as empty.
    m_scopeGeneration = 1;
    for (ResolvedName& entry : m_names) entry = ResolvedName{};
    try {
        m_emptyUri = m_document->Intern(std::string_view());
        Run();
        return true;
    } catch (const Uncertain&) {
        m_document->ClearTree();
        return false;
    }
}

void CFastXmlReader::Run()
{
    // A byte order mark is one character of the first line.
    if (StartsWith(m_p, m_end, "\xEF\xBB\xBF")) {
        m_p += 3;
        m_wide += 2;
    }
    if (StartsWith(m_p, m_end, "<?xml") && m_end - m_p > 5 &&
        (m_p[5] == ' ' || m_p[5] == '\t' || m_p[5] == '\n' || m_p[5] == '\r'))
        Declaration();
    Misc();
    if (m_p >= m_end || *m_p != '<') GiveUp();
    StartTag();
    Content();
    Misc();
    if (m_p != m_end) GiveUp();
}

void CFastXmlReader::Declaration()
{
    m_p += 5;
    // One pseudo-attribute: name, equals sign, and a value that must be one of the choices.
    auto pseudo = [this](const char* name, std::initializer_list<const char*> choices) {
        m_p += std::strlen(name);
        SkipSpace();
        if (m_p >= m_end || *m_p != '=') GiveUp();
        ++m_p;
        SkipSpace();
        if (m_p >= m_end || (*m_p != '"' && *m_p != '\'')) GiveUp();
        const unsigned char quote = *m_p++;
        const unsigned char* start = m_p;
        while (m_p < m_end && *m_p != quote && m_p - start < 16) ++m_p;
        if (m_p >= m_end || *m_p != quote) GiveUp();
        const std::string_view value(reinterpret_cast<const char*>(start), static_cast<std::size_t>(m_p - start));
        ++m_p;
        for (const char* choice : choices)
            if (EqualsIgnoringCase(value, choice) && (value == choice || std::strcmp(choice, "utf-8") == 0)) return;
        GiveUp();
    };
    SkipSpace();
    if (!StartsWith(m_p, m_end, "version")) GiveUp();
    pseudo("version", {"1.0"});
    bool spaced = SkipSpace();
    if (spaced && StartsWith(m_p, m_end, "encoding")) {
        pseudo("encoding", {"utf-8"});
        spaced = SkipSpace();
    }
    if (spaced && StartsWith(m_p, m_end, "standalone")) {
        pseudo("standalone", {"yes", "no"});
        SkipSpace();
    }
    if (!StartsWith(m_p, m_end, "?>")) GiveUp();
    m_p += 2;
}

void CFastXmlReader::Misc()
{
    for (;;) {
        SkipSpace();
        if (m_end - m_p < 2 || *m_p != '<') return;
        if (m_p[1] == '?')
            ProcessingInstruction();
        else if (StartsWith(m_p, m_end, "<!--"))
            Comment();
        else
            return;
    }
}

bool CFastXmlReader::SkipSpace()
{
    const unsigned char* start = m_p;
    while (m_p < m_end) {
        const unsigned char c = *m_p;
        if (c == ' ' || c == '\t') {
            ++m_p;
        } else if (c == '\n' || c == '\r') {
            LineEnd();
        } else {
            break;
        }
    }
    return m_p != start;
}

void CFastXmlReader::LineEnd()
{
    if (*m_p++ == '\r' && m_p < m_end && *m_p == '\n') ++m_p;
    NewLine(m_p);
}

void CFastXmlReader::NewLine(const unsigned char* next)
{
    ++m_line;
    m_lineStart = next;
    m_wide = 0;
}

std::uint64_t CFastXmlReader::Column(const unsigned char* at) const
{
    return static_cast<std::uint64_t>(at - m_lineStart) - m_wide + 1;
}

std::string_view CFastXmlReader::Name()
{
    const unsigned char* start = m_p;
    if (m_p >= m_end || !kTables.nameStart[*m_p]) GiveUp();
    ++m_p;
    while (m_p < m_end && kTables.nameChar[*m_p]) ++m_p;
    if (m_p < m_end && *m_p >= 0x80) GiveUp();
    return std::string_view(reinterpret_cast<const char*>(start), static_cast<std::size_t>(m_p - start));
}

void CFastXmlReader::MultiByte()
{
    // Strict UTF-8 of XML characters: no overlong form, no surrogate, nothing beyond
    // U+10FFFF, and neither U+FFFE nor U+FFFF.
    const unsigned char* s = m_p;
    const unsigned char lead = s[0];
    std::size_t length;
    if (lead >= 0xC2 && lead <= 0xDF)
        length = 2;
    else if (lead >= 0xE0 && lead <= 0xEF)
        length = 3;
    else if (lead >= 0xF0 && lead <= 0xF4)
        length = 4;
    else
        GiveUp();
    if (static_cast<std::size_t>(m_end - s) < length) GiveUp();
    for (std::size_t i = 1; i < length; ++i)
        if ((s[i] & 0xC0) != 0x80) GiveUp();
    if (length == 3) {
        if ((lead == 0xE0 && s[1] < 0xA0) || (lead == 0xED && s[1] > 0x9F) ||
            (lead == 0xEF && s[1] == 0xBF && s[2] > 0xBD))
            GiveUp();
    } else if (length == 4) {
        if ((lead == 0xF0 && s[1] < 0x90) || (lead == 0xF4 && s[1] > 0x8F)) GiveUp();
    }
    m_p += length;
    m_wide += length - 1;
}

void CFastXmlReader::OtherChar()
{
    const unsigned char c = *m_p;
    if (c >= 0x80) {
        MultiByte();
    } else if (c == '\t') {
        ++m_p;
    } else if (c == '\n' || c == '\r') {
        LineEnd();
    } else {
        GiveUp();
    }
}

void CFastXmlReader::Reference(std::string& out, bool keepCR)
{
    const unsigned char* s = m_p + 1;
    if (s < m_end && *s == '#') {
        ++s;
        const bool hex = s < m_end && *s == 'x';
        if (hex) ++s;
        std::uint32_t code = 0;
        std::size_t digits = 0;
        for (; s < m_end && *s != ';'; ++s, ++digits) {
            std::uint32_t value;
            const unsigned char lower = static_cast<unsigned char>(*s | 0x20);
            if (*s >= '0' && *s <= '9')
                value = static_cast<std::uint32_t>(*s - '0');
            else if (hex && lower >= 'a' && lower <= 'f')
                value = static_cast<std::uint32_t>(lower - 'a' + 10);
            else
                GiveUp();
            code = code * (hex ? 16 : 10) + value;
            if (code > 0x10FFFF) GiveUp();
        }
        if (s >= m_end || digits == 0 || !IsXmlChar(code)) GiveUp();
        m_p = s + 1;
        if (code != '\r' || keepCR) Platform::AppendUtf8(out, code);
        return;
    }
    const unsigned char* name = s;
    while (s < m_end && s - name < 5 && *s != ';') ++s;
    if (s >= m_end || *s != ';') GiveUp();
    const std::string_view entity(reinterpret_cast<const char*>(name), static_cast<std::size_t>(s - name));
    char replacement;
    if (entity == "lt")
        replacement = '<';
    else if (entity == "gt")
        replacement = '>';
    else if (entity == "amp")
        replacement = '&';
    else if (entity == "quot")
        replacement = '"';
    else if (entity == "apos")
        replacement = '\'';
    else
        GiveUp();
    out.push_back(replacement);
    m_p = s + 1;
}

void CFastXmlReader::AppendText(const unsigned char* from, const unsigned char* to)
{
    if (to > from) m_document->AppendOpenText(reinterpret_cast<const char*>(from), static_cast<std::size_t>(to - from));
}

void CFastXmlReader::AppendText(std::string_view text)
{
    if (!text.empty()) m_document->AppendOpenText(text.data(), text.size());
}

void CFastXmlReader::Content()
{
    const unsigned char* segment = m_p;
    while (!m_stack.empty()) {
        while (m_p < m_end && !kTables.textStop[*m_p]) ++m_p;
        if (m_p >= m_end) GiveUp();
        const unsigned char c = *m_p;
        // Line ends, tabs, ']' and UTF-8 sequences stay in the run as they are.
        if (c == '\n') {
            LineEnd();
            continue;
        }
        if (c >= 0x80) {
            MultiByte();
            continue;
        }
        if (c == '\t') {
            ++m_p;
            continue;
        }
        if (c == ']') {
            if (StartsWith(m_p, m_end, "]]>")) GiveUp();
            ++m_p;
            continue;
        }
        AppendText(segment, m_p);
        if (c == '\r') {
            // A line end is one line feed, however it is written.
            LineEnd();
            AppendText("\n");
        } else if (c == '&') {
            m_scratch.clear();
            Reference(m_scratch, false);
            AppendText(m_scratch);
        } else if (c == '<') {
            Markup();
        } else {
            GiveUp();
        }
        segment = m_p;
    }
}

void CFastXmlReader::Markup()
{
    if (m_end - m_p < 2) GiveUp();
    switch (m_p[1]) {
        case '/':
            EndTag();
            break;
        case '?':
            ProcessingInstruction();
            break;
        case '!':
            if (StartsWith(m_p, m_end, "<!--"))
                Comment();
            else if (StartsWith(m_p, m_end, "<![CDATA["))
                CData();
            else
                GiveUp();
            break;
        default:
            StartTag();
            break;
    }
}

void CFastXmlReader::EndTag()
{
    m_p += 2;
    // The name can only be the open element's: compared in place rather than scanned.
    const std::string_view name = m_stack.back().name;
    const std::size_t length = name.size();
    if (static_cast<std::size_t>(m_end - m_p) < length || !SameBytes(m_p, name.data(), length)) GiveUp();
    m_p += length;
    if (m_p < m_end && kTables.nameChar[*m_p]) GiveUp();
    SkipSpace();
    if (m_p >= m_end || *m_p != '>') GiveUp();
    ++m_p;
    Close();
}

template <typename Ends>
void CFastXmlReader::SkipMarkupText(Ends ends)
{
    for (;;) {
        while (m_p < m_end && !kTables.commentStop[*m_p]) ++m_p;
        if (m_p >= m_end) GiveUp();
        const unsigned char c = *m_p;
        if (c == '-' || c == '?' || c == ']') {
            if (ends(c)) return;
            ++m_p;
        } else {
            OtherChar();
        }
    }
}

void CFastXmlReader::Comment()
{
    m_p += 4;
    // "--" may only close the comment.
    SkipMarkupText([this](unsigned char c) {
        if (c != '-' || m_end - m_p < 2 || m_p[1] != '-') return false;
        if (m_end - m_p < 3 || m_p[2] != '>') GiveUp();
        m_p += 3;
        return true;
    });
}

void CFastXmlReader::ProcessingInstruction()
{
    m_p += 2;
    const std::string_view target = Name();
    // "xml" in any case is reserved; a target with a colon is not a name in namespaces.
    if (EqualsIgnoringCase(target, "xml") || (m_namespaced && target.find(':') != std::string_view::npos))
        GiveUp();
    if (StartsWith(m_p, m_end, "?>")) {
        m_p += 2;
        return;
    }
    if (!SkipSpace()) GiveUp();
    SkipMarkupText([this](unsigned char c) {
        if (c != '?' || m_end - m_p < 2 || m_p[1] != '>') return false;
        m_p += 2;
        return true;
    });
}

void CFastXmlReader::CData()
{
    m_p += 9;
    const unsigned char* segment = m_p;
    for (;;) {
        while (m_p < m_end && !kTables.commentStop[*m_p]) ++m_p;
        if (m_p >= m_end) GiveUp();
        const unsigned char c = *m_p;
        if (c == ']' && StartsWith(m_p, m_end, "]]>")) {
            AppendText(segment, m_p);
            m_p += 3;
            return;
        }
        if (c == '\r') {
            AppendText(segment, m_p);
            AppendText("\n");
            OtherChar();
            segment = m_p;
        } else if (c == '-' || c == '?' || c == ']') {
            ++m_p;
        } else {
            OtherChar();
        }
    }
}

std::string_view CFastXmlReader::AttributeValue()
{
    if (m_p >= m_end || (*m_p != '"' && *m_p != '\'')) GiveUp();
    const unsigned char quote = *m_p++;
    const unsigned char* segment = m_p;
    std::string* decoded = nullptr;
    for (;;) {
        while (m_p < m_end && !kTables.valueStop[*m_p]) ++m_p;
        if (m_p >= m_end) GiveUp();
        const unsigned char c = *m_p;
        if (c == quote) break;
        if (c == '"' || c == '\'') {
            ++m_p;
            continue;
        }
        if (c >= 0x80) {
            MultiByte();
            continue;
        }
        if (c == '<') GiveUp();
        // A reference or a white-space character changes the value: from here on it
        // is built apart from the input.
        if (!decoded) {
            decoded = &m_decoded[m_decodedUsed++];
            decoded->clear();
        }
        decoded->append(reinterpret_cast<const char*>(segment), static_cast<std::size_t>(m_p - segment));
        if (c == '&') {
            Reference(*decoded, true);
        } else if (c == '\t' || c == '\n' || c == '\r') {
            decoded->push_back(' ');
            OtherChar();
        } else {
            GiveUp();
        }
        segment = m_p;
    }
    std::string_view value;
    if (decoded) {
        decoded->append(reinterpret_cast<const char*>(segment), static_cast<std::size_t>(m_p - segment));
        value = *decoded;
    } else {
        value = std::string_view(reinterpret_cast<const char*>(segment), static_cast<std::size_t>(m_p - segment));
    }
    ++m_p;
    return value;
}

void CFastXmlReader::StartTag()
{
    const std::uint64_t line = m_line;
    const std::uint64_t column = Column(m_p);
    ++m_p;
    const std::string_view name = Name();
    m_attributes.clear();
    m_decodedUsed = 0;
    bool empty = false;
    for (;;) {
        const bool spaced = SkipSpace();
        if (m_p >= m_end) GiveUp();
        if (*m_p == '>') {
            ++m_p;
            break;
        }
        if (*m_p == '/') {
            if (m_end - m_p < 2 || m_p[1] != '>') GiveUp();
            m_p += 2;
            empty = true;
            break;
        }
        if (!spaced || m_attributes.size() == MaxAttributes) GiveUp();
        const std::string_view attributeName = Name();
        SkipSpace();
        if (m_p >= m_end || *m_p != '=') GiveUp();
        ++m_p;
        SkipSpace();
        const std::string_view value = AttributeValue();
        for (const Attribute& earlier : m_attributes)
            if (earlier.name == attributeName) GiveUp();
        m_attributes.push_back(Attribute{attributeName, value, false});
    }
    if (m_namespaced)
        OpenNamespaced(name, line, column);
    else
        OpenPlain(name, line, column);
    if (empty) Close();
}

CFastXmlReader::QName CFastXmlReader::Split(std::string_view name)
{
    const std::size_t colon = name.find(':');
    if (colon == std::string_view::npos) return QName{std::string_view(), name};
    if (colon == 0 || colon + 1 == name.size() || name.find(':', colon + 1) != std::string_view::npos ||
        !kTables.nameStart[static_cast<unsigned char>(name[colon + 1])])
        GiveUp();
    return QName{name.substr(0, colon), name.substr(colon + 1)};
}

const std::string* CFastXmlReader::Lookup(std::string_view prefix)
{
    if (prefix == "xml") return m_document->Intern(kXmlNamespaceUri);
    for (std::size_t i = m_bindings.size(); i > 0; --i)
        if (m_bindings[i - 1].prefix == prefix) return m_bindings[i - 1].uri;
    return prefix.empty() ? m_emptyUri : nullptr;
}

void CFastXmlReader::OpenNamespaced(std::string_view name, std::uint64_t line, std::uint64_t column)
{
    const std::size_t mark = m_bindings.size();
    // The declarations come first, in document order, and bind for the element itself.
    std::size_t plain = 0;
    for (Attribute& attribute : m_attributes) {
        std::string_view prefix;
        if (attribute.name.size() >= 6 && attribute.name.compare(0, 6, "xmlns:") == 0) {
            prefix = attribute.name.substr(6);
            if (prefix.empty() || prefix.find(':') != std::string_view::npos ||
                !kTables.nameStart[static_cast<unsigned char>(prefix[0])] || prefix == "xml" || prefix == "xmlns" ||
                attribute.value.empty())
                GiveUp();
        } else if (attribute.name != "xmlns") {
            ++plain;
            continue;
        }
        if (attribute.value == kXmlNamespaceUri || attribute.value == kXmlnsNamespaceUri) GiveUp();
        attribute.declaration = true;
        if (m_bindings.size() == MaxBindings) GiveUp();
        m_bindings.push_back(Binding{prefix, m_document->Intern(attribute.value)});
        ++m_scopeGeneration;
        m_document->SetNamespaceAlias(prefix, attribute.value);
    }

    // The names of a document repeat, and so, while no declaration comes or goes,
    // does what they resolve to: most elements find theirs in the cache.
    const unsigned char first = static_cast<unsigned char>(name.front());
    const unsigned char last = static_cast<unsigned char>(name.back());
    ResolvedName& cached = m_names[(name.size() * 7 + first * 3 + last) & (NameCacheSize - 1)];
    if (cached.generation != m_scopeGeneration || cached.raw.size() != name.size() ||
        !SameBytes(reinterpret_cast<const unsigned char*>(name.data()), cached.raw.data(), name.size())) {
        const QName element = Split(name);
        if (element.prefix == "xmlns") GiveUp();
        const std::string* uri = Lookup(element.prefix);
        if (!uri) GiveUp();
        cached = ResolvedName{name, m_scopeGeneration, m_document->InternName(uri, m_document->Intern(element.local))};
    }
    m_open = m_document->AddNamedElement(cached.name);
    CXmlDocument::SetElementTextLocation(m_open, line, column);
    m_stack.push_back(OpenElement{name, mark});
    if (plain == 0) return;

    m_open->ReserveAttributes(plain);
    m_resolved.clear();
    for (const Attribute& attribute : m_attributes) {
        if (attribute.declaration) continue;
        const QName qualified = Split(attribute.name);
        const std::string* attributeUri = m_emptyUri;
        if (!qualified.prefix.empty()) {
            attributeUri = Lookup(qualified.prefix);
            if (!attributeUri) GiveUp();
            // Two prefixes bound to one URI may not name the same attribute.
            for (const Resolved& earlier : m_resolved)
                if (earlier.uri == attributeUri && earlier.local == qualified.local) GiveUp();
            m_resolved.push_back(Resolved{attributeUri, qualified.local});
        }
        m_open->AddAttributeView(qualified.local, attribute.value, *attributeUri);
    }
}

void CFastXmlReader::OpenPlain(std::string_view name, std::uint64_t line, std::uint64_t column)
{
    m_open = m_document->AddElement(m_emptyUri, name);
    CXmlDocument::SetElementTextLocation(m_open, line, column);
    m_stack.push_back(OpenElement{name, 0});
    if (m_attributes.empty()) return;
    m_open->ReserveAttributes(m_attributes.size());
    for (const Attribute& attribute : m_attributes)
        m_open->AddAttributeView(attribute.name, attribute.value, std::string_view());
}

void CFastXmlReader::Close()
{
    if (m_bindings.size() != m_stack.back().bindings) {
        m_bindings.resize(m_stack.back().bindings);
        ++m_scopeGeneration;
    }
    m_stack.pop_back();
    m_document->EndElement();
    m_open = m_document->GetOpenElement();
}

}  // namespace OrvexXmlLib5
