// How a generated class itself stands in a document: the first of its three
// static metadata tables.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/metadata/XmlElementEnums.h"

namespace OrvexXmlLib5Data {

// How a generated class itself stands in a document: its content model, whether it
// is a real element or a group, its element name and namespace, its text property,
// and how unknown attributes are treated.
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
    // Copies every field.
    CParentElementInfo(const CParentElementInfo& other) = default;
    // The same as the copy.
    CParentElementInfo& operator=(const CParentElementInfo& other) = default;

    // The content model: sequence, choice or all.
    XmlElementGroupType GetElementGroupType() const { return m_groupType; }
    // ElementType_Element for a class that is an element, ElementType_Pseudo for a group.
    XmlElementType GetElementType() const { return m_elementType; }
    // The schema name of the class and its namespace.
    std::string GetElementName() const { return m_elementName; }
    // Empty for no namespace.
    std::string GetElementNamespace() const { return m_elementNamespace; }
    // The index of the property that holds the element's text; -1 for none.
    int GetElementTextPropertyIndex() const { return m_textPropertyIndex; }
    // True when an attribute that no descriptor takes fails the read (unless the context
    // ignores unknown attributes).
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
