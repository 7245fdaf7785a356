#include "orvexxml/xml/NamespaceAliasMap.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

namespace {
std::string Text(const char* s) { return s ? s : ""; }
}  // namespace

void CNamespaceAliasMap::Add(const char* alias, const char* namespaceUri)
{
    m_aliases[Text(namespaceUri)] = Text(alias);
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
    return m_aliases[Text(namespaceUri)];
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
