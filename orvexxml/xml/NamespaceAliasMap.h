// The caller's table of namespace URIs and the prefixes wanted for them in the
// output; the root element declares every entry.
#pragma once

#include "orvexxml/Export.h"

#include <map>
#include <string>

namespace OrvexXmlLib5 {

// A map from namespace URI to prefix; Add keeps each prefix to one URI. The root
// element of every document written with the map declares each entry with a prefix.
class ORVEXXML_API CNamespaceAliasMap
{
public:
    CNamespaceAliasMap() = default;
    // Copies every entry.
    CNamespaceAliasMap(const CNamespaceAliasMap& other) = default;
    // Replaces every entry by those of other.
    CNamespaceAliasMap& operator=(const CNamespaceAliasMap& other) = default;
    ~CNamespaceAliasMap() = default;

    // Sets the alias of namespaceUri, replacing an existing one. Alias first. An
    // empty alias, or one that another URI holds, fails with COrvexInvalidParamException.
    void Add(const char* alias, const char* namespaceUri);
    // An unknown URI changes nothing.
    void RemoveNamespace(const char* namespaceUri);
    // True when namespaceUri has an entry (one with an empty alias included).
    bool DoesNamespaceExist(const char* namespaceUri) const;
    // True when some URI holds alias.
    bool DoesAliasExist(const char* alias) const;
    // An unknown URI gives an empty alias and leaves an entry with that empty alias
    // behind, so the count grows by one.
    std::string GetAliasFromNamespace(const char* namespaceUri) const;
    // The first URI in URI order that holds the alias; an unknown alias fails with
    // COrvexException "Namespace alias [%s] not found".
    std::string GetNamespaceFromAlias(const char* alias) const;
    // Number of entries.
    int GetNamespaceCount() const { return static_cast<int>(m_aliases.size()); }
    // The URI at index in URI order; 0 or below gives the first. The caller stays
    // below GetNamespaceCount(); beyond it an empty string comes back.
    std::string GetNamespaceAt(int index) const;

private:
    // Filled by GetAliasFromNamespace, which the interface offers as const.
    mutable std::map<std::string, std::string> m_aliases;
};

}  // namespace OrvexXmlLib5
