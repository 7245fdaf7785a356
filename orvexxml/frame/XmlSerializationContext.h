// The options of one read or write. The library never writes to a context it was
// handed; the caller keeps it alive and unchanged during an entry point.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <string>
#include <vector>

#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/xml/NamespaceAliasMap.h"

namespace OrvexXmlLib5 {

class CAttributeCol;

// How names in the documents are matched.
enum SchemaType
{
    SchemaType_Namespaced = 0,
    // The parser runs without namespace processing, and names match on the local name alone.
    SchemaType_NoNamespaces = 2
};

// The options of one read or write: what a read may pass over, the namespaces and
// prefixes, what is written around the root element, and the input limits.
class ORVEXXML_API CXmlSerializationContext
{
public:
    CXmlSerializationContext();
    // A copy shares the additional root attributes with its source.
    CXmlSerializationContext(const CXmlSerializationContext& other);
    // Copies every option; the additional root attributes are shared, not copied.
    CXmlSerializationContext& operator=(const CXmlSerializationContext& other);
    ~CXmlSerializationContext();

    // The one process-wide context, built at library load. Changes to it apply to
    // every later use of the default.
    static CXmlSerializationContext& GetDefaultContext();

    // True when attributes that no descriptor takes are passed over instead of failing the read.
    bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
    // Sets GetIgnoreUnknownAttributes; false by default.
    void SetIgnoreUnknownAttributes(bool value) { m_ignoreUnknownAttributes = value; }
    // True when elements that no descriptor takes are passed over instead of failing the read.
    bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
    // Fails with COrvexInvalidStateException while missing mandatory elements are ignored.
    void SetIgnoreUnknownElements(bool value);
    // True when a mandatory element that is absent does not fail the read.
    bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
    // Fails with COrvexInvalidStateException while unknown elements are ignored.
    void SetIgnoreMissingMandatoryElements(bool value);
    // True when a choice with no alternative present does not fail the read or the write.
    bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
    // Sets GetIgnoreMissingChoice; false by default.
    void SetIgnoreMissingChoice(bool value) { m_ignoreMissingChoice = value; }
    // True when collection counts outside minOccurs and maxOccurs do not fail the read
    // or the write.
    bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
    // Sets GetIgnoreInvalidCollectionCounts; false by default.
    void SetIgnoreInvalidCollectionCounts(bool value) { m_ignoreInvalidCollectionCounts = value; }
    // True when the flag is set or the schema type is SchemaType_NoNamespaces.
    bool GetIgnoreNamespaces() const
    {
        return m_ignoreNamespaces || m_schemaType == SchemaType_NoNamespaces;
    }
    // Sets the flag of GetIgnoreNamespaces; false by default.
    void SetIgnoreNamespaces(bool value) { m_ignoreNamespaces = value; }

    // How names are matched; SchemaType_Namespaced by default.
    SchemaType GetSchemaType() const { return m_schemaType; }
    // Sets GetSchemaType.
    void SetSchemaType(SchemaType value) { m_schemaType = value; }

    // Reading a compressed stream or file fails with COrvexException once the
    // inflated bytes would pass this many; 0 lifts the limit. The default,
    // DefaultMaxInflatedSize (256 MiB), keeps a few hundred bytes of hostile gzip
    // from taking gigabytes of memory while leaving room for any data document
    // of a sensible size. Input that is not compressed is not limited here.
    static constexpr std::uint64_t DefaultMaxInflatedSize = std::uint64_t(256) << 20;
    // The inflated-size limit in bytes; 0 for none.
    std::uint64_t GetMaxInflatedSize() const { return m_maxInflatedSize; }
    // Sets GetMaxInflatedSize.
    void SetMaxInflatedSize(std::uint64_t value) { m_maxInflatedSize = value; }

    // The namespace written as the default namespace of the root element; empty for none.
    std::string GetDefaultNamespaceURI() const { return m_defaultNamespaceUri; }
    // Sets GetDefaultNamespaceURI; null gives empty.
    void SetDefaultNamespaceURI(const char* value) { m_defaultNamespaceUri = value ? value : ""; }

    // Complete text lines written in front of the root element, unescaped.
    std::vector<std::string>& GetProcessingInstructions() { return m_processingInstructions; }
    // The const form of GetProcessingInstructions.
    const std::vector<std::string>& GetProcessingInstructions() const { return m_processingInstructions; }

    // Attribute text written unescaped inside the root start tag, behind its attributes.
    std::string GetInLineSchema() const { return m_inLineSchema; }
    // Sets GetInLineSchema; null gives empty.
    void SetInLineSchema(const char* value) { m_inLineSchema = value ? value : ""; }

    // Namespaces that the root element declares, with the prefixes wanted for them.
    CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }
    // The const form of GetNamespaceAliases.
    const CNamespaceAliasMap& GetNamespaceAliases() const { return m_namespaceAliases; }

    // Attributes written on the root element in front of its own. The collection is
    // made on the first call (default namespace "", restriction "##any") and the same
    // one comes back from then on; a context used on two threads must have it made first.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;
    // The same collection without making it and without taking a reference: null
    // until GetAdditionalRootAttributes made it. Writing reads it through here, so
    // threads that share an unchanged context write nothing to it.
    const CAttributeCol* PeekAdditionalRootAttributes() const { return m_additionalRootAttributes.Get(); }

    // Reading XML text, the parser is told where the input ends, so a document cut
    // short fails with the parser's message and line instead of loading the part
    // before the cut. True brings back the older reading, which loads that part
    // without error.
    bool GetAllowTruncatedDocuments() const { return m_allowTruncatedDocuments; }
    // Sets GetAllowTruncatedDocuments; false by default.
    void SetAllowTruncatedDocuments(bool value) { m_allowTruncatedDocuments = value; }
    // A document type declaration may declare at most CXmlDocument::MaxEntityDeclarations
    // entities; one more fails the read with COrvexException. Chains of entities that
    // refer to each other make some parser versions recurse once per link, so a
    // document of a few hundred kilobytes can exhaust the stack. True lifts the limit,
    // for trusted input only.
    bool GetAllowManyEntityDeclarations() const { return m_allowManyEntityDeclarations; }
    // Sets GetAllowManyEntityDeclarations; false by default.
    void SetAllowManyEntityDeclarations(bool value) { m_allowManyEntityDeclarations = value; }

private:
    std::string m_defaultNamespaceUri;
    CNamespaceAliasMap m_namespaceAliases;
    mutable CSmartPtr<CAttributeCol> m_additionalRootAttributes;
    std::vector<std::string> m_processingInstructions;
    std::string m_inLineSchema;
    std::uint64_t m_maxInflatedSize;
    bool m_ignoreInvalidCollectionCounts;
    bool m_ignoreMissingChoice;
    bool m_ignoreMissingMandatoryElements;
    bool m_ignoreUnknownElements;
    bool m_ignoreUnknownAttributes;
    bool m_ignoreNamespaces;
    SchemaType m_schemaType;
    bool m_allowTruncatedDocuments;
    bool m_allowManyEntityDeclarations;
};

}  // namespace OrvexXmlLib5
