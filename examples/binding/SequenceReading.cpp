#include "examples/binding/SequenceReading.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexExamples {

namespace {
bool Missing(const std::string& name, XmlElementType parentType)
{
    if (parentType != ElementType_Element) return false;
    throw COrvexValidationException(FormatString("Failed to find a required element [%s]", name.c_str()));
}
}  // namespace

bool CSeqPrimMndReader::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                       CXmlElement*, CXmlElement** current, const char*, XmlElementType parentType)
{
    if (!IsThisElement(context, *current)) return Missing(GetElementName(), parentType);
    OrvexVariant value;
    value.FromString((*current)->GetText(), GetItemType(), GetWhitespaceRule());
    AccessProperty(owner, false, value);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CSeqPrimOptReader::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                       CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return true;
    OrvexVariant value;
    value.FromString((*current)->GetText(), GetItemType(), GetWhitespaceRule());
    AccessProperty(owner, false, value);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CSeqClsMndReader::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                      CXmlElement* parent, CXmlElement** current, const char*,
                                      XmlElementType parentType)
{
    OrvexVariant value;
    if (m_childType != ElementType_Element) {
        AccessProperty(owner, true, value);
        CXmlElement* next = FromXml_Int(value.GetXmlObject(), parent, *current, context, false);
        if (m_mustConsume && next == *current) return Missing(GetElementName(), parentType);
        *current = next;
        return true;
    }
    if (!IsThisElement(context, *current)) return Missing(GetElementName(), parentType);
    AccessProperty(owner, true, value);
    FromXml_Int(value.GetXmlObject(), *current, (*current)->GetFirstElement(), context, false);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CSeqColReader::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                   CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    *current = FromXml_Int(collection->GetBase(), parent, *current, context, false);
    if (!context.GetIgnoreInvalidCollectionCounts()) collection->ValidateCount(context);
    return true;
}

}  // namespace OrvexExamples
