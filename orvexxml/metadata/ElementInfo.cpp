#include "orvexxml/metadata/ElementInfo.h"

#include <cstring>

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/data/detail/VariantAccess.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/XmlGeneratedClass.h"
#include "orvexxml/frame/detail/ObjectAccess.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlWriter.h"
#include "orvexxml/xml/detail/TextLease.h"
#include "orvexxml/xml/detail/WriterAccess.h"

namespace OrvexXmlLib5Data {

namespace {
const char* Text(const char* s) { return s ? s : ""; }
}  // namespace

CElementInfo::CElementInfo(const char* name, const char* namespaceUri, int propertyIndex)
    : m_elementName(Text(name)),
      m_elementNamespace(Text(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_itemType(ItemType_Invalid),
      m_format(nullptr),
      m_whitespaceRule(CWhitespaceUtils::WhitespaceRule::Preserve),
      m_hasRestrictions(false)
{
}

CElementInfo::CElementInfo(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                           const char* format, CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
    : m_elementName(Text(name)),
      m_elementNamespace(Text(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_restrictions(restrictions),
      m_itemType(itemType),
      m_format(format),
      m_whitespaceRule(rule),
      m_hasRestrictions(true)
{
}

void CElementInfo::PseudoChildAttributeToXml(const CXmlSerializationContext&, const CXmlGeneratedClass*,
                                             CXmlWriter*) const
{
}

void CElementInfo::CheckRestriction(const OrvexVariant& value) const
{
    if (!m_hasRestrictions) throw COrvexException("Cannot CheckRestriction for type: " + value.GetType());
    CheckPrimitiveRestriction(m_elementName.c_str(), value, m_itemType, m_restrictions);
}

bool CElementInfo::IsThisElement(const CXmlSerializationContext& context, const CXmlElement* element) const
{
    if (!element) return false;
    if (element->GetLocalName() != m_elementName) return false;
    return context.GetIgnoreNamespaces() || element->GetNamespaceURI() == m_elementNamespace;
}

void CElementInfo::AccessProperty(CXmlGeneratedClass* owner, bool read, OrvexVariant& value) const
{
    owner->AccessProperty(m_propertyIndex, read, value);
}

void CElementInfo::ReadProperty(const CXmlGeneratedClass* owner, OrvexVariant& value) const
{
    owner->ReadProperty(m_propertyIndex, value);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                       const CXmlSerializationContext& context, bool isOptional)
{
    return Detail::CObjectAccess::FromXml(object, element, firstChild, context, isOptional);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                       const CXmlSerializationContext& context) const
{
    Detail::CObjectAccess::AttributesToXml(object, writer, context);
}

bool CElementInfo::ElementToXmlCls(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer, bool isOptional) const
{
    OrvexVariant value;
    ReadProperty(owner, value);
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    if (object.IsNull()) return false;
    Detail::CObjectAccess::ToXml(object, writer, false, m_elementNamespace.c_str(), context, isOptional);
    return true;
}

bool CElementInfo::ElementToXmlCol(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const
{
    OrvexVariant value;
    ReadProperty(owner, value);
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (collection.IsNull() || collection->GetCount() <= 0) return false;
    Detail::CObjectAccess::ToXml(collection->GetBase(), writer, false, m_elementNamespace.c_str(), context, false);
    return true;
}

void CElementInfo::ElementFromXmlPrim(CXmlGeneratedClass* owner, const CXmlElement* element) const
{
    // The variant borrows the leased text, which outlives it.
    OrvexXmlLib5::Detail::CTextLease text;
    OrvexVariant value;
    OrvexXmlLib5::Detail::CVariantAccess::FromTextLent(value, text.Hold(element->GetTextView()), GetItemType(),
                                                       GetWhitespaceRule());
    AccessProperty(owner, false, value);
}

void CElementInfo::ElementFromXmlEnum(CXmlGeneratedClass* owner, const CXmlElement* element,
                                      EnumFromStringFn fromString) const
{
    OrvexVariant value;
    // The tree's text is followed by a NUL.
    value.SetI4(fromString ? fromString(element->GetTextView().data()) : 0);
    AccessProperty(owner, false, value);
}

bool CElementInfo::ElementToXmlPrim(const CXmlSerializationContext&, const CXmlGeneratedClass* owner,
                                    CXmlWriter* writer) const
{
    OrvexVariant value;
    OrvexXmlLib5::Detail::CVariantAccess::AllowLending(value);
    ReadProperty(owner, value);
    if (!value.IsValid()) return false;
    CheckRestriction(value);
    std::string made;
    const std::string& text = OrvexXmlLib5::Detail::CVariantAccess::Text(value, m_format, made);
    OrvexXmlLib5::Detail::CWriterAccess::WriteSimpleElement(writer, m_elementName, m_elementNamespace, text);
    return true;
}

bool CElementInfo::ElementToXmlPrimOpt(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                       CXmlWriter* writer) const
{
    return ElementToXmlPrim(context, owner, writer);
}

bool CElementInfo::ElementToXmlEnum(const CXmlSerializationContext&, const CXmlGeneratedClass* owner,
                                    CXmlWriter* writer, EnumToStringFn toString) const
{
    OrvexVariant value;
    ReadProperty(owner, value);
    if (!value.IsValid()) return false;
    const std::string text = Text(toString ? toString(value.GetI4()) : nullptr);
    OrvexXmlLib5::Detail::CWriterAccess::WriteSimpleElement(writer, m_elementName, m_elementNamespace, text);
    return true;
}

bool CElementInfo::ElementToXmlEnumOpt(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                       CXmlWriter* writer, EnumToStringFn toString) const
{
    return ElementToXmlEnum(context, owner, writer, toString);
}

void CElementInfo::PseudoChildObjectAttributesToXml(const CXmlSerializationContext& context,
                                                    const CXmlGeneratedClass* owner, CXmlWriter* writer,
                                                    XmlElementType childType) const
{
    if (childType != ElementType_Pseudo) return;
    OrvexVariant value;
    ReadProperty(owner, value);
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    if (!object.IsNull()) AttributesToXml_Int(object, writer, context);
}

void CElementInfo::PseudoChildCollectionAttributesToXml(const CXmlSerializationContext& context,
                                                        const CXmlGeneratedClass* owner, CXmlWriter* writer,
                                                        XmlElementType childType) const
{
    if (childType != ElementType_Pseudo) return;
    OrvexVariant value;
    ReadProperty(owner, value);
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (!collection.IsNull()) AttributesToXml_Int(collection->GetBase(), writer, context);
}

std::string CElementInfo::GetAnyDefaultNamespace(const char* constraint, const char* defaultNamespace,
                                                 const char* targetNamespace)
{
    const std::string text = Text(constraint);
    if (text == "##any") return Text(defaultNamespace);
    if (text == "##other") return *Text(defaultNamespace) ? std::string() : std::string("DefaultNamespace");
    if (text == "##local") return std::string();
    if (text == "##targetNamespace") return Text(targetNamespace);
    const std::size_t blank = text.find(' ');
    if (blank != std::string::npos && text.size() >= 3 && text.compare(0, 2, "##") == 0)
        return GetAnyDefaultNamespace(text.substr(0, blank).c_str(), defaultNamespace, targetNamespace);
    return std::string();
}

}  // namespace OrvexXmlLib5Data
