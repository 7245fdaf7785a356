#include "orvexxml/metadata/AttributeInfo.h"

#include "orvexxml/collections/Attribute.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/data/detail/VariantAccess.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/XmlGeneratedClass.h"
#include "orvexxml/frame/detail/ObjectAccess.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlWriter.h"
#include "orvexxml/xml/detail/TextLease.h"

namespace OrvexXmlLib5Data {

namespace {
const char* Text(const char* s) { return s ? s : ""; }

// The namespace test of the object base, for a class that has no object of its own.
class CNamespaceTester : public CXmlObjectBase
{
public:
    static void Test(const std::string& candidate, const std::string& allowed, const std::string& targetNamespace)
    {
        CNamespaceTester tester;
        tester.TestNamespace(candidate.c_str(), allowed.c_str(), targetNamespace.c_str());
    }

private:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return std::string(); }
    std::string GetNamespace() const override { return std::string(); }
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext&, bool) override
    {
        return firstChild;
    }
};
}  // namespace

CAttributeInfo::CAttributeInfo(const char* name, const char* namespaceUri, int propertyIndex, bool optional)
    : m_attributeName(Text(name)),
      m_attributeNamespace(Text(namespaceUri)),
      m_propertyIndex(propertyIndex),
      m_optional(optional)
{
}

bool CAttributeInfo::IsThisAttribute(const CXmlSerializationContext& context, CXmlAttribute* attribute) const
{
    if (!attribute) return false;
    if (attribute->GetLocalName() != m_attributeName) return false;
    return context.GetIgnoreNamespaces() || attribute->GetNamespaceURI() == m_attributeNamespace;
}

void CAttributeInfo::AccessProperty(CXmlGeneratedClass* owner, bool read, OrvexVariant& value) const
{
    owner->AccessProperty(m_propertyIndex, read, value);
}

void CAttributeInfo::ReadProperty(const CXmlGeneratedClass* owner, OrvexVariant& value) const
{
    owner->ReadProperty(m_propertyIndex, value);
}

void CAttributeInfo::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const char* namespaceUri, const CXmlSerializationContext& context)
{
    Detail::CObjectAccess::ToXml(object, writer, isRoot, namespaceUri, context, false);
}

std::string CAttributeInfo::GetTargetNamespace(const CXmlObjectBase* object) { return object->GetTargetNamespace(); }

void CAttributeInfo::TestNamespace(const std::string& candidate, const std::string& allowed,
                                   const std::string& targetNamespace)
{
    CNamespaceTester::Test(candidate, allowed, targetNamespace);
}

void CAttributeInfo::ValidateMandatory(bool seen) const
{
    if (!m_optional && !seen)
        throw COrvexValidationException(
            FormatString("Failed to find the required Attribute [%s]", m_attributeName.c_str()));
}

CAttributeInfoPrimitive::CAttributeInfoPrimitive(const char* name, const char* namespaceUri, int propertyIndex,
                                                 bool optional, ItemType itemType, const char* format,
                                                 CWhitespaceUtils::WhitespaceRule rule,
                                                 const CPrimitiveRestrictions& restrictions)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional),
      m_restrictions(restrictions),
      m_itemType(itemType),
      m_format(format),
      m_whitespaceRule(rule)
{
}

void CAttributeInfoPrimitive::AttributeToXml(const CXmlSerializationContext&, const CXmlGeneratedClass* owner,
                                             CXmlWriter* writer) const
{
    OrvexVariant value;
    OrvexXmlLib5::Detail::CVariantAccess::AllowLending(value);
    ReadProperty(owner, value);
    if (GetOptional() && !value.IsValid()) return;
    CheckValue(value);
    std::string made;
    writer->WriteAttribute(AttributeNameRef(), AttributeNamespaceRef(),
                           OrvexXmlLib5::Detail::CVariantAccess::Text(value, m_format, made));
}

bool CAttributeInfoPrimitive::AttributeFromXml(const CXmlSerializationContext&, CXmlGeneratedClass* owner,
                                               CXmlAttribute* attribute)
{
    if (!attribute || attribute->GetLocalName() != AttributeNameRef() ||
        attribute->GetNamespaceURI() != AttributeNamespaceRef())
        return false;
    // The variant borrows the leased value, which outlives it.
    OrvexXmlLib5::Detail::CTextLease text;
    OrvexVariant value;
    OrvexXmlLib5::Detail::CVariantAccess::FromTextLent(value, text.Hold(attribute->GetValueView()), m_itemType,
                                                       m_whitespaceRule);
    AccessProperty(owner, false, value);
    return true;
}

void CAttributeInfoPrimitive::Validate(const CXmlSerializationContext&, bool seen) const { ValidateMandatory(seen); }

void CAttributeInfoPrimitive::CheckRestriction(OrvexVariant value) const
{
    CheckValue(value);
}

void CAttributeInfoPrimitive::CheckValue(const OrvexVariant& value) const
{
    CheckPrimitiveRestriction(AttributeNameRef().c_str(), value, m_itemType, m_restrictions);
}

CAttributeInfoEnum::CAttributeInfoEnum(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                                       EnumToStringFn toString, EnumFromStringFn fromString)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional), m_fromString(fromString), m_toString(toString)
{
}

void CAttributeInfoEnum::AttributeToXml(const CXmlSerializationContext&, const CXmlGeneratedClass* owner,
                                        CXmlWriter* writer) const
{
    OrvexVariant value;
    ReadProperty(owner, value);
    if (GetOptional() && !value.IsValid()) return;
    writer->WriteAttribute(AttributeNameRef(), AttributeNamespaceRef(),
                           Text(m_toString ? m_toString(value.GetI4()) : nullptr));
}

bool CAttributeInfoEnum::AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                          CXmlAttribute* attribute)
{
    if (!IsThisAttribute(context, attribute)) return false;
    OrvexVariant value;
    // The tree's value is followed by a NUL.
    value.SetI4(m_fromString(attribute->GetValueView().data()));
    AccessProperty(owner, false, value);
    return true;
}

void CAttributeInfoEnum::Validate(const CXmlSerializationContext&, bool seen) const { ValidateMandatory(seen); }

CAttributeInfoAny::CAttributeInfoAny(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                                     const char* namespaceConstraint, const char* targetNamespace)
    : CAttributeInfo(name, namespaceUri, propertyIndex, optional),
      m_namespaceConstraint(Text(namespaceConstraint)),
      m_targetNamespace(Text(targetNamespace))
{
}

void CAttributeInfoAny::AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                       CXmlWriter* writer) const
{
    OrvexVariant value;
    ReadProperty(owner, value);
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (collection.IsNull()) return;
    ToXml_Int(collection->GetBase(), writer, false, GetTargetNamespace(owner).c_str(), context);
}

bool CAttributeInfoAny::AttributeFromXml(const CXmlSerializationContext&, CXmlGeneratedClass* owner,
                                         CXmlAttribute* attribute)
{
    if (!attribute) return false;
    TestNamespace(attribute->GetNamespaceURI(), m_namespaceConstraint, m_targetNamespace);
    OrvexVariant value;
    ReadProperty(owner, value);
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    CAttributeCol* attributes = dynamic_cast<CAttributeCol*>(collection.Get());
    if (!attributes)
        throw COrvexException("Serialization Data Error : The collection should be a CAttributeCol, it was not!");
    attributes->Add(attribute->GetLocalName().c_str(), attribute->GetValueView().data(),
                    attribute->GetNamespaceURI().c_str());
    return true;
}

void CAttributeInfoAny::Validate(const CXmlSerializationContext&, bool) const {}

}  // namespace OrvexXmlLib5Data
