// Base of the collections of plain values: the facets, item type, number format
// and whitespace rule of one item, and the reading of a run of item elements.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"
#include "orvexxml/values/WhitespaceUtils.h"

namespace OrvexXmlLib5 {

// The base of the collections of simple-type values: the item type, the facets every
// item is tested against, the whitespace rule and the number format.
class ORVEXXML_API CXmlTypeCollection : public CXmlCollectionBase
{
public:
    // Copies the base fields, the facets and the type.
    CXmlTypeCollection(const CXmlTypeCollection& other) = default;
    // The same as the copy.
    CXmlTypeCollection& operator=(const CXmlTypeCollection& other) = default;
    ~CXmlTypeCollection() override = default;

    // Parses text as one item and appends it; a text that does not parse or breaks
    // the facets fails, and the collection is left as it was.
    virtual void AddFromString(std::string text) = 0;

    // The type of the items.
    ItemType GetItemType() const { return m_itemType; }
    // The facets each item is tested against when it is added.
    const CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions; }
    // May be null.
    const char* GetFormat() const { return m_format; }
    // The whitespace rule applied to item text before it is parsed.
    CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }

protected:
    // The seven arguments from pattern to length build the facets; format is kept
    // as a pointer and must outlive the collection.
    CXmlTypeCollection(ItemType itemType, const char* name, const char* namespaceUri, int minOccurs, int maxOccurs,
                       const char* pattern, int minLength, int maxLength, const char* minInclusive,
                       const char* maxInclusive, const char* minExclusive, const char* maxExclusive, int length,
                       CWhitespaceUtils::WhitespaceRule rule, const char* format);

    // Reads the run of sibling elements from firstChild on that carry the item name
    // and namespace, and gives back the first one that does not (or null). element
    // is not used. Items read before a failing one stay; counts are not tested.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;

private:
    CPrimitiveRestrictions m_restrictions;
    ItemType m_itemType;
    const char* m_format;
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

}  // namespace OrvexXmlLib5
