#include "orvexxml/xml/XmlWriter.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <vector>

#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

CXmlWriter::CXmlWriterContext::CXmlWriterContext(const std::string& localName, const std::string& namespaceUri,
                                                 CXmlWriterContext* parent)
    : CInstanceMonitor("CXmlWriterContext"),
      m_childCount(0),
      m_startTagOpen(true),
      m_depth(parent ? parent->m_depth + 1 : 0),
      m_namespaceUri(namespaceUri),
      m_localName(localName),
      m_parent(parent),
      m_hasAttributes(false),
      m_namespaces(parent ? &parent->GetNamespaceMap() : nullptr),
      m_inheritsScope(parent != nullptr),
      m_ownsMap(false)
{
    // A context without parent has nothing to inherit from: it gets an empty scope.
    if (!parent) {
        m_namespaces = new NamespaceMap();
        m_ownsMap = true;
    }
}

CXmlWriter::CXmlWriterContext::CXmlWriterContext(const std::string& localName, const std::string& namespaceUri,
                                                 const std::string& defaultNamespace,
                                                 const NamespaceMap& namespaces, CXmlWriterContext* parent)
    : CInstanceMonitor("CXmlWriterContext"),
      m_childCount(0),
      m_startTagOpen(true),
      m_depth(0),
      m_namespaceUri(namespaceUri),
      m_localName(localName),
      m_parent(nullptr),
      m_hasAttributes(false),
      m_defaultNamespace(defaultNamespace),
      m_namespaces(new NamespaceMap(namespaces)),
      m_inheritsScope(false),
      m_ownsMap(true)
{
    // Taken last, so that a failing copy of the map leaves the parent with its owner.
    m_parent = parent;
}

CXmlWriter::CXmlWriterContext::~CXmlWriterContext()
{
    if (m_ownsMap) delete m_namespaces;
    // The chain is deleted iteratively, so that a deep stack of open elements
    // cannot exhaust the call stack.
    CXmlWriterContext* parent = m_parent;
    while (parent) {
        CXmlWriterContext* next = parent->m_parent;
        parent->m_parent = nullptr;
        delete parent;
        parent = next;
    }
}

const CXmlWriter::CXmlWriterContext* CXmlWriter::CXmlWriterContext::Scope() const
{
    const CXmlWriterContext* scope = this;
    while (scope->m_inheritsScope) scope = scope->m_parent;
    return scope;
}

const std::string& CXmlWriter::CXmlWriterContext::GetDefaultNamespace() const
{
    return Scope()->m_defaultNamespace;
}

CXmlWriter::NamespaceMap& CXmlWriter::CXmlWriterContext::GetNamespaceMap()
{
    return *Scope()->m_namespaces;
}

const CXmlWriter::NamespaceMap& CXmlWriter::CXmlWriterContext::GetNamespaceMap() const
{
    return *Scope()->m_namespaces;
}

std::string& CXmlWriter::CXmlWriterContext::GetPrefix(const std::string& namespaceUri)
{
    return GetNamespaceMap()[namespaceUri];
}

void CXmlWriter::CXmlWriterContext::MakeScopePrivate()
{
    if (!m_inheritsScope) return;
    const CXmlWriterContext* scope = Scope();
    m_namespaces = new NamespaceMap(*scope->m_namespaces);
    m_ownsMap = true;
    m_inheritsScope = false;
    m_defaultNamespace = scope->m_defaultNamespace;
}

void CXmlWriter::CXmlWriterContext::AddNamespace(const std::string& namespaceUri, const std::string& prefix)
{
    MakeScopePrivate();
    // A prefix declared here hides the same prefix of an outer URI, which must then
    // get a prefix of its own when it is used below.
    for (auto it = m_namespaces->begin(); it != m_namespaces->end();)
        it = it->second == prefix && it->first != namespaceUri ? m_namespaces->erase(it) : std::next(it);
    (*m_namespaces)[namespaceUri] = prefix;
}

void CXmlWriter::CXmlWriterContext::SetDefaultNamespace(const std::string& namespaceUri)
{
    MakeScopePrivate();
    m_defaultNamespace = namespaceUri;
}

void CXmlWriter::CXmlWriterContext::Reuse(const std::string& localName, const std::string& namespaceUri,
                                          CXmlWriterContext* parent)
{
    m_namespaceUri = namespaceUri;
    m_localName = localName;
    if (m_ownsMap) delete m_namespaces;
    m_ownsMap = false;
    m_namespaces = &parent->GetNamespaceMap();
    m_inheritsScope = true;
    m_defaultNamespace.clear();
    m_childCount = 0;
    m_startTagOpen = true;
    m_depth = parent->m_depth + 1;
    m_parent = parent;
    m_hasAttributes = false;
}

CXmlWriter::CXmlWriterContext* CXmlWriter::CXmlWriterContext::DetachParent()
{
    CXmlWriterContext* parent = m_parent;
    m_parent = nullptr;
    return parent;
}

CXmlWriter::CXmlWriter(const char* className)
    : CInstanceMonitor(className), m_currentContext(nullptr)
{
}

CXmlWriter::~CXmlWriter()
{
    delete m_currentContext;
    for (CXmlWriterContext* spare : m_spareContexts) delete spare;
}

// Changing the open element's scope would let later names use a prefix that no
// start tag declares; the declaration goes on the next element started instead.
void CXmlWriter::SetDefaultNamespace(const std::string& namespaceUri)
{
    if (m_currentContext) {
        m_pendingDefaultNamespace = namespaceUri;
        m_hasPendingDefault = true;
    } else {
        m_defaultNamespace = namespaceUri;
    }
}

void CXmlWriter::AddNamespace(const std::string& alias, const std::string& namespaceUri)
{
    if (m_currentContext)
        m_pendingNamespaces[namespaceUri] = alias;
    else
        m_namespaces[namespaceUri] = alias;
}

bool CXmlWriter::TakePendingDeclarations(CXmlWriterContext* context, bool& hasDefault, std::string& defaultNamespace,
                                         NamespaceMap& namespaces)
{
    hasDefault = m_hasPendingDefault;
    if (!hasDefault && m_pendingNamespaces.empty()) return false;
    defaultNamespace.swap(m_pendingDefaultNamespace);
    namespaces.swap(m_pendingNamespaces);
    m_pendingDefaultNamespace.clear();
    m_pendingNamespaces.clear();
    m_hasPendingDefault = false;
    if (hasDefault) context->SetDefaultNamespace(defaultNamespace);
    for (const auto& entry : namespaces) context->AddNamespace(entry.first, entry.second);
    return true;
}

void CXmlWriter::WriteSimpleElement(const std::string& localName, const std::string& namespaceUri,
                                    const std::string& text)
{
    WriteStartElement(localName, namespaceUri);
    WriteText(text);
    WriteEndElement();
}

void CXmlWriter::WriteEndDocument()
{
    if (m_currentContext) throw COrvexException("An Element has not been closed.");
}

std::int32_t CXmlWriter::GetOpenElementCount() const
{
    return m_currentContext ? m_currentContext->m_depth + 1 : 0;
}

std::string CXmlWriter::NsIntToString(int number)
{
    unsigned int value = static_cast<unsigned int>(number);
    if (value < 26u * 26u) {
        const char letters[2] = {static_cast<char>('A' + value / 26), static_cast<char>('A' + value % 26)};
        return std::string(letters, 2);
    }
    // Base 26 with at least three letters: distinct from every two-letter form.
    std::string reversed;
    while (value > 0) {
        reversed.push_back(static_cast<char>('A' + value % 26));
        value /= 26;
    }
    return std::string(reversed.rbegin(), reversed.rend());
}

std::string CXmlWriter::GetUniquePrefix(const NamespaceMap& namespaces)
{
    // Two-letter candidates are checked against a table of the ones in use; a
    // scope with every one of them taken goes on to the longer forms.
    bool taken[26 * 26] = {};
    std::vector<std::string> others;
    for (const auto& entry : namespaces) {
        const std::string& prefix = entry.second;
        if (prefix.size() == 2 && prefix[0] >= 'A' && prefix[0] <= 'Z' && prefix[1] >= 'A' && prefix[1] <= 'Z')
            taken[(prefix[0] - 'A') * 26 + (prefix[1] - 'A')] = true;
        else if (prefix.size() > 2)
            others.push_back(prefix);
    }
    for (int number = 0; number < 26 * 26; ++number)
        if (!taken[number]) return NsIntToString(number);
    std::sort(others.begin(), others.end());
    for (int number = 26 * 26;; ++number) {
        std::string candidate = NsIntToString(number);
        if (!std::binary_search(others.begin(), others.end(), candidate)) return candidate;
    }
}

CXmlWriter::CXmlWriterContext* CXmlWriter::NewContext(const std::string& localName, const std::string& namespaceUri)
{
    if (!m_currentContext)
        return new CXmlWriterContext(localName, namespaceUri, m_defaultNamespace, m_namespaces, nullptr);
    if (m_spareContexts.empty()) return new CXmlWriterContext(localName, namespaceUri, m_currentContext);
    CXmlWriterContext* context = m_spareContexts.back();
    // Taken off the list only once renamed: a failing copy of a name leaves it there.
    context->Reuse(localName, namespaceUri, m_currentContext);
    m_spareContexts.pop_back();
    return context;
}

void CXmlWriter::PopContext()
{
    CXmlWriterContext* old = m_currentContext;
    if (!old) return;
    m_currentContext = old->DetachParent();
    // A child is kept for the next element; the root, made otherwise, is not.
    if (m_currentContext) {
        try {
            m_spareContexts.push_back(old);
            return;
        } catch (const std::bad_alloc&) {
            // No room to keep it: it goes as before.
        }
    }
    delete old;
}

}  // namespace OrvexXmlLib5
