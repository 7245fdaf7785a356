#include "orvexxml/xml/XmlTextWriter.h"

#include <typeinfo>

#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

namespace {

const char* const XsiNamespace = "http://www.w3.org/2001/XMLSchema-instance";

}  // namespace

CXmlTextWriter::CXmlTextWriter()
    : CXmlWriter("CXmlTextWriter"),
      m_buffer(new CStringBuffer(0x10000)),
      m_lineEnd("\n"),
      m_eolType(EOL_LF),
      m_formatted(true),
      m_encoding(Encoding_Unspecified)
{
}

CXmlTextWriter::~CXmlTextWriter()
{
    delete m_buffer;
}

void CXmlTextWriter::SetEOLType(EOLType value)
{
    switch (value) {
        case EOL_CRLF:
            m_lineEnd = "\r\n";
            break;
        case EOL_LF:
            m_lineEnd = "\n";
            break;
        default:
            throw COrvexException("Invalid EOL type.");
    }
    m_eolType = value;
}

void CXmlTextWriter::WriteStartDocument(XmlEncoding encoding)
{
    m_encoding = encoding;
    m_buffer->Reset();
    m_buffer->Append("<?xml version=\"1.0\"", 19);
    if (encoding == Encoding_UTF8)
        m_buffer->Append(" encoding=\"UTF-8\"", 17);
    else if (encoding == Encoding_UTF16)
        m_buffer->Append(" encoding=\"UTF-16\"", 18);
    m_buffer->Append("?>", 2);
    AppendLineEnd();
}

std::string CXmlTextWriter::GetString()
{
    // One copy of the text, without joining the chunks first.
    return m_buffer->CopyString();
}

CBinaryData CXmlTextWriter::GetBytes(XmlEncoding encoding)
{
    switch (encoding) {
        case Encoding_UTF8:
            return LocalToUtf8Bytes(m_buffer->GetString());
        case Encoding_UTF16:
        case Encoding_UTF16_NoDeclaration:
            return LocalToUtf16Bytes(m_buffer->GetString());
        default:
            throw COrvexException("Unknown Encoding, select UTF-8");
    }
}

// A deliberate difference from the other namespaces: the XML namespace is never
// given a made-up prefix and a declaration (xmlns:AA="http://www.w3.org/XML/1998/namespace"
// is forbidden, so such output could not be read back by any namespace-aware parser).
bool CXmlTextWriter::AppendXmlPrefix(const std::string& namespaceUri)
{
    if (!IsXmlNamespace(namespaceUri)) return false;
    m_buffer->Append(XmlPrefix, sizeof XmlPrefix - 1);
    m_buffer->AppendChar(':');
    return true;
}

void CXmlTextWriter::AppendIndent(std::int32_t depth)
{
    static const char tabs[] = "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
    const std::int32_t batch = static_cast<std::int32_t>(sizeof(tabs) - 1);
    while (depth > batch) {
        m_buffer->Append(tabs, batch);
        depth -= batch;
    }
    if (depth > 0) m_buffer->Append(tabs, static_cast<std::size_t>(depth));
}

void CXmlTextWriter::CloseStartTag()
{
    if (m_currentContext && m_currentContext->m_startTagOpen) {
        m_currentContext->m_startTagOpen = false;
        m_buffer->AppendChar('>');
        if (m_formatted) AppendLineEnd();
    }
}

void CXmlTextWriter::CheckAttributeAllowed() const
{
    if (!m_currentContext || !m_currentContext->m_startTagOpen)
        throw COrvexException("Attributes must be added before elements");
}

void CXmlTextWriter::AppendDeclaration(const std::string& prefix, const std::string& namespaceUri)
{
    m_buffer->Append(" xmlns:", 7);
    m_buffer->Append(prefix);
    m_buffer->Append("=\"", 2);
    // A URI is attribute text: one read from "a&amp;b" must not come out as "a&b".
    m_buffer->AppendEscaped(namespaceUri.c_str(), m_eolType);
    m_buffer->AppendChar('"');
}

void CXmlTextWriter::AppendDefaultDeclaration(const std::string& namespaceUri)
{
    m_buffer->Append(" xmlns=\"", 8);
    m_buffer->AppendEscaped(namespaceUri.c_str(), m_eolType);
    m_buffer->AppendChar('"');
}

void CXmlTextWriter::WriteComment(const std::string& text)
{
    CloseStartTag();
    m_buffer->Append("<!--", 4);
    m_buffer->AppendEscaped(text.c_str(), m_eolType);
    m_buffer->Append("-->", 3);
    AppendLineEnd();
}

void CXmlTextWriter::WriteProcessingInstruction(const std::string& text)
{
    CloseStartTag();
    m_buffer->Append(text);
    AppendLineEnd();
    AppendLineEnd();
}

void CXmlTextWriter::WriteInlineSchema(const std::string& text)
{
    m_buffer->AppendChar(' ');
    AppendLineEnd();
    m_buffer->Append(text);
    AppendLineEnd();
}

void CXmlTextWriter::WriteStartElement(const std::string& localName, const std::string& namespaceUri)
{
    if (m_currentContext) {
        ++m_currentContext->m_childCount;
        CloseStartTag();
    }
    CXmlWriterContext* context = NewContext(localName, namespaceUri);
    // Made current at once, so that the writer owns it whatever fails below.
    PushContext(context);
    bool hasPendingDefault = false;
    std::string pendingDefault;
    NamespaceMap pending;
    const bool hasPending = TakePendingDeclarations(context, hasPendingDefault, pendingDefault, pending);

    if (m_formatted) AppendIndent(context->m_depth);
    m_buffer->AppendChar('<');
    std::string& tagPrefix = context->m_tagPrefix;
    bool declare = false;
    const CXmlWriterContext* parent = context->m_parent;
    if (namespaceUri.empty()) {
        tagPrefix.clear();
    } else if (parent && context->InheritsScope() && parent->m_namespaceUri == namespaceUri) {
        // A child in its parent's namespace and scope takes the parent's prefix: the
        // scope has not changed since the parent's start tag (declarations made by
        // attributes take fresh prefixes), so the look-up would give the same.
        tagPrefix = parent->m_tagPrefix;
    } else if (IsXmlNamespace(namespaceUri)) {
        tagPrefix.assign(XmlPrefix, sizeof XmlPrefix - 1);
    } else if (namespaceUri != context->GetDefaultNamespace()) {
        const NamespaceMap& namespaces = context->GetNamespaceMap();
        NamespaceMap::const_iterator found = namespaces.find(namespaceUri);
        if (found != namespaces.end()) {
            tagPrefix = found->second;
        } else {
            tagPrefix = GetUniquePrefix(namespaces);
            context->AddNamespace(namespaceUri, tagPrefix);
            declare = true;
        }
    } else {
        tagPrefix.clear();
    }
    if (!tagPrefix.empty()) {
        m_buffer->Append(tagPrefix);
        m_buffer->AppendChar(':');
    }
    m_buffer->Append(localName);
    if (declare) AppendDeclaration(tagPrefix, namespaceUri);

    if (context->m_depth == 0) {
        if (!m_defaultNamespace.empty()) AppendDefaultDeclaration(m_defaultNamespace);
        for (const auto& entry : m_namespaces)
            if (!IsXmlNamespace(entry.first)) AppendDeclaration(entry.second, entry.first);
    }
    if (hasPending) {
        if (hasPendingDefault) AppendDefaultDeclaration(pendingDefault);
        for (const auto& entry : pending) AppendDeclaration(entry.second, entry.first);
    }
}

void CXmlTextWriter::WriteSimpleElement(const std::string& localName, const std::string& namespaceUri,
                                        const std::string& text)
{
    CXmlWriterContext* parent = m_currentContext;
    // A derived writer may watch the three calls; the root and elements that
    // declare something go through them too.
    if (!parent || m_hasPendingDefault || !m_pendingNamespaces.empty() || typeid(*this) != typeid(CXmlTextWriter))
        return CXmlWriter::WriteSimpleElement(localName, namespaceUri, text);
    // The prefix WriteStartElement would choose for a child that shares its
    // parent's scope; a namespace not yet in scope needs its declaration written.
    const char* prefix = nullptr;
    std::size_t prefixLength = 0;
    if (namespaceUri.empty()) {
    } else if (parent->m_namespaceUri == namespaceUri) {
        prefix = parent->m_tagPrefix.data();
        prefixLength = parent->m_tagPrefix.size();
    } else if (IsXmlNamespace(namespaceUri)) {
        prefix = XmlPrefix;
        prefixLength = sizeof XmlPrefix - 1;
    } else if (namespaceUri != parent->GetDefaultNamespace()) {
        const NamespaceMap& namespaces = parent->GetNamespaceMap();
        NamespaceMap::const_iterator found = namespaces.find(namespaceUri);
        if (found == namespaces.end()) return CXmlWriter::WriteSimpleElement(localName, namespaceUri, text);
        prefix = found->second.data();
        prefixLength = found->second.size();
    }

    ++parent->m_childCount;
    CloseStartTag();
    if (m_formatted) AppendIndent(parent->m_depth + 1);
    m_buffer->AppendChar('<');
    if (prefixLength) {
        m_buffer->Append(prefix, prefixLength);
        m_buffer->AppendChar(':');
    }
    m_buffer->Append(localName);
    if (text.empty()) {
        m_buffer->Append("/>", 2);
    } else {
        m_buffer->AppendChar('>');
        m_buffer->AppendEscaped(text.c_str(), m_eolType);
        m_buffer->Append("</", 2);
        if (prefixLength) {
            m_buffer->Append(prefix, prefixLength);
            m_buffer->AppendChar(':');
        }
        m_buffer->Append(localName);
        m_buffer->AppendChar('>');
    }
    if (m_formatted) AppendLineEnd();
}

void CXmlTextWriter::WriteAttribute(const std::string& localName, const std::string& namespaceUri,
                                    const std::string& value)
{
    CheckAttributeAllowed();
    m_buffer->AppendChar(' ');
    if (!namespaceUri.empty() && !AppendXmlPrefix(namespaceUri)) {
        const NamespaceMap& namespaces = m_currentContext->GetNamespaceMap();
        NamespaceMap::const_iterator found = namespaces.find(namespaceUri);
        if (found != namespaces.end()) {
            m_buffer->Append(found->second);
        } else {
            const std::string prefix = GetUniquePrefix(namespaces);
            m_currentContext->AddNamespace(namespaceUri, prefix);
            m_buffer->Append("xmlns:", 6);
            m_buffer->Append(prefix);
            m_buffer->Append("=\"", 2);
            m_buffer->AppendEscaped(namespaceUri.c_str(), m_eolType);
            m_buffer->Append("\" ", 2);
            m_buffer->Append(prefix);
        }
        m_buffer->AppendChar(':');
    }
    m_buffer->Append(localName);
    m_buffer->Append("=\"", 2);
    AppendAttributeValue(value);
    m_buffer->AppendChar('"');
}

void CXmlTextWriter::AppendAttributeValue(const std::string& value)
{
    // A reader turns a raw tab, line feed or carriage return in an attribute value
    // into a blank, so a value read from "&#10;" would not come back. Those three are
    // written as character references; everything else takes the one escaping rule.
    std::size_t at = value.find_first_of("\t\n\r");
    if (at == std::string::npos) {
        m_buffer->AppendEscaped(value.c_str(), m_eolType);
        return;
    }
    std::size_t start = 0;
    for (;;) {
        const std::string run = value.substr(start, at == std::string::npos ? std::string::npos : at - start);
        m_buffer->AppendEscaped(run.c_str(), m_eolType);
        if (at == std::string::npos) return;
        m_buffer->Append(value[at] == '\t' ? "&#9;" : value[at] == '\n' ? "&#10;" : "&#13;");
        start = at + 1;
        at = value.find_first_of("\t\n\r", start);
    }
}

void CXmlTextWriter::WriteXsiType(const std::string& namespaceUri, const std::string& typeName)
{
    CheckAttributeAllowed();
    std::string value;
    if (IsXmlNamespace(namespaceUri)) {
        value = std::string(XmlPrefix) + ':' + typeName;
    } else if (!namespaceUri.empty() && namespaceUri != m_currentContext->GetDefaultNamespace()) {
        const NamespaceMap& namespaces = m_currentContext->GetNamespaceMap();
        NamespaceMap::const_iterator found = namespaces.find(namespaceUri);
        if (found != namespaces.end()) {
            value = found->second;
        } else {
            value = GetUniquePrefix(namespaces);
            m_currentContext->AddNamespace(namespaceUri, value);
            AppendDeclaration(value, namespaceUri);
            m_buffer->AppendChar(' ');
        }
        value += ':';
        value += typeName;
    } else {
        value = typeName;
    }
    WriteAttribute("type", XsiNamespace, value);
}

void CXmlTextWriter::WriteText(const std::string& text)
{
    if (text.empty()) return;
    if (m_currentContext && m_currentContext->m_startTagOpen) {
        m_currentContext->m_startTagOpen = false;
        m_buffer->AppendChar('>');
    }
    m_buffer->AppendEscaped(text.c_str(), m_eolType);
}

void CXmlTextWriter::WriteEndElement()
{
    CXmlWriterContext* context = m_currentContext;
    if (!context) throw COrvexException("There is no open Element to end.");
    if (context->m_startTagOpen) {
        m_buffer->Append("/>", 2);
    } else {
        if (m_formatted && context->m_childCount > 0) AppendIndent(context->m_depth);
        m_buffer->Append("</", 2);
        // The start tag's prefix: declarations made since (by attributes) take prefixes
        // of their own and leave the element's as it was.
        if (!context->m_tagPrefix.empty()) {
            m_buffer->Append(context->m_tagPrefix);
            m_buffer->AppendChar(':');
        }
        m_buffer->Append(context->m_localName);
        m_buffer->AppendChar('>');
    }
    if (m_formatted) AppendLineEnd();
    PopContext();
}

}  // namespace OrvexXmlLib5
