// How a generated class itself stands in a document: the first of its three
// static metadata tables.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/metadata/XmlElementEnums.h"

namespace OrvexXmlLib5Data {

class ORVEXXML_API CParentElementInfo
{
public:
    // textPropertyIndex -1: the class has no text property.
    CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType, const char* elementName,
                       const char* elementNamespace, int textPropertyIndex, bool failIfAttributeUnknown,
                       bool hasBaseClasses)
        : m_groupType(groupType),
          m_elementType(elementType),
          m_elementName(elementName ? elementName : ""),
          m_elementNamespace(elementNamespace ? elementNamespace : ""),
          m_textPropertyIndex(textPropertyIndex),
          m_failIfAttributeUnknown(failIfAttributeUnknown),
          m_hasBaseClasses(hasBaseClasses)
    {
    }
    CParentElementInfo(const CParentElementInfo& other) = default;
    CParentElementInfo& operator=(const CParentElementInfo& other) = default;

    XmlElementGroupType GetElementGroupType() const { return m_groupType; }
    XmlElementType GetElementType() const { return m_elementType; }
    // The schema name of the class and its namespace.
    std::string GetElementName() const { return m_elementName; }
    std::string GetElementNamespace() const { return m_elementNamespace; }
    int GetElementTextPropertyIndex() const { return m_textPropertyIndex; }
    bool GetFromXmlFailIfAttributeUnknown() const { return m_failIfAttributeUnknown; }
    // The class stands in a type hierarchy, so xsi:type may have to be written.
    bool GetHasBaseClasses() const { return m_hasBaseClasses; }

private:
    XmlElementGroupType m_groupType;
    XmlElementType m_elementType;
    std::string m_elementName;
    std::string m_elementNamespace;
    int m_textPropertyIndex;
    bool m_failIfAttributeUnknown;
    bool m_hasBaseClasses;
};

}  // namespace OrvexXmlLib5Data
