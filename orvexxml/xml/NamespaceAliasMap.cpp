#include "orvexxml/xml/NamespaceAliasMap.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

namespace {
std::string Text(const char* s) { return s ? s : ""; }
}  // namespace

void CNamespaceAliasMap::Add(const char* alias, const char* namespaceUri)
{
    // The root declares every entry as xmlns:alias, so an empty alias would write
    // "xmlns:" and an alias held by two URIs would be declared twice on one element:
    // neither is XML. Both are refused here, where the caller can see which entry.
    const std::string wanted = Text(alias);
    const std::string uri = Text(namespaceUri);
    if (wanted.empty())
        throw COrvexInvalidParamException(
            FormatString("The namespace alias for [%s] must not be empty", uri.c_str()));
    for (const auto& entry : m_aliases)
        if (entry.second == wanted && entry.first != uri)
            throw COrvexInvalidParamException(FormatString(
                "The namespace alias [%s] is already used for [%s]", wanted.c_str(), entry.first.c_str()));
    m_aliases[uri] = wanted;
}

void CNamespaceAliasMap::RemoveNamespace(const char* namespaceUri) { m_aliases.erase(Text(namespaceUri)); }

bool CNamespaceAliasMap::DoesNamespaceExist(const char* namespaceUri) const
{
    return m_aliases.find(Text(namespaceUri)) != m_aliases.end();
}

bool CNamespaceAliasMap::DoesAliasExist(const char* alias) const
{
    const std::string wanted = Text(alias);
    for (const auto& entry : m_aliases)
        if (entry.second == wanted) return true;
    return false;
}

std::string CNamespaceAliasMap::GetAliasFromNamespace(const char* namespaceUri) const
{
    // A known URI is only read, so that a map shared by threads is never written.
    const std::string uri = Text(namespaceUri);
    auto found = m_aliases.find(uri);
    if (found != m_aliases.end()) return found->second;
    return m_aliases[uri];
}

std::string CNamespaceAliasMap::GetNamespaceFromAlias(const char* alias) const
{
    const std::string wanted = Text(alias);
    for (const auto& entry : m_aliases)
        if (entry.second == wanted) return entry.first;
    throw COrvexException(FormatString("Namespace alias [%s] not found", wanted.c_str()));
}

std::string CNamespaceAliasMap::GetNamespaceAt(int index) const
{
    auto it = m_aliases.begin();
    for (int i = 0; i < index && it != m_aliases.end(); ++i) ++it;
    return it == m_aliases.end() ? std::string() : it->first;
}

}  // namespace OrvexXmlLib5
