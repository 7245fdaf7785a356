#include "orvexxml/collections/XmlTypeCollection.h"

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5 {

namespace {
const char* Text(const char* s) { return s ? s : ""; }
}  // namespace

CXmlTypeCollection::CXmlTypeCollection(ItemType itemType, const char* name, const char* namespaceUri, int minOccurs,
                                       int maxOccurs, const char* pattern, int minLength, int maxLength,
                                       const char* minInclusive, const char* maxInclusive, const char* minExclusive,
                                       const char* maxExclusive, int length, CWhitespaceUtils::WhitespaceRule rule,
                                       const char* format)
    : CXmlCollectionBase(name, namespaceUri, minOccurs, maxOccurs),
      m_restrictions(Text(pattern), minLength, maxLength, Text(minInclusive), Text(maxInclusive), Text(minExclusive),
                     Text(maxExclusive), length),
      m_itemType(itemType),
      m_format(format),
      m_whitespaceRule(rule)
{
}

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* firstChild,
                                             const CXmlSerializationContext& context, bool)
{
    const std::string name = GetElementName();
    const std::string namespaceUri = GetNamespace();
    CXmlElement* current = firstChild;
    while (current && DoesElementNameMatch(context, current, name.c_str(), namespaceUri.c_str())) {
        AddFromString(std::string(current->GetTextView()));
        current = current->GetNextSiblingElement();
    }
    return current;
}

}  // namespace OrvexXmlLib5
