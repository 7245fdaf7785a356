#include "orvexxml/frame/XmlSerializationContext.h"

#include "orvexxml/collections/Attribute.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

CXmlSerializationContext::CXmlSerializationContext()
    : m_maxInflatedSize(DefaultMaxInflatedSize),
      m_ignoreInvalidCollectionCounts(false),
      m_ignoreMissingChoice(false),
      m_ignoreMissingMandatoryElements(false),
      m_ignoreUnknownElements(false),
      m_ignoreUnknownAttributes(false),
      m_ignoreNamespaces(false),
      m_schemaType(SchemaType_Namespaced),
      m_allowTruncatedDocuments(false),
      m_allowManyEntityDeclarations(false)
{
}

CXmlSerializationContext::CXmlSerializationContext(const CXmlSerializationContext& other) = default;
CXmlSerializationContext& CXmlSerializationContext::operator=(const CXmlSerializationContext& other) = default;
CXmlSerializationContext::~CXmlSerializationContext() = default;

CSmartPtr<CAttributeCol> CXmlSerializationContext::GetAdditionalRootAttributes() const
{
    if (m_additionalRootAttributes.IsNull()) m_additionalRootAttributes = new CAttributeCol("", "##any", "");
    return m_additionalRootAttributes;
}

CXmlSerializationContext& CXmlSerializationContext::GetDefaultContext()
{
    // Built on first use, which is before any entry point can run, and so never
    // subject to the order of static initialisation across translation units.
    static CXmlSerializationContext m_defaultContext;
    return m_defaultContext;
}

void CXmlSerializationContext::SetIgnoreUnknownElements(bool value)
{
    if (value && m_ignoreMissingMandatoryElements)
        throw COrvexInvalidStateException(
            "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, "
            "you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting "
            "IgnoreUnknownElements to true");
    m_ignoreUnknownElements = value;
}

void CXmlSerializationContext::SetIgnoreMissingMandatoryElements(bool value)
{
    if (value && m_ignoreUnknownElements)
        throw COrvexInvalidStateException(
            "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, "
            "you can not ignore both\nSet IgnoreUnknownElements to false before setting "
            "IgnoreMissingMandatoryElements to true");
    m_ignoreMissingMandatoryElements = value;
}

}  // namespace OrvexXmlLib5
