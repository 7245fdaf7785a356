// The attribute descriptors of a generated class: a primitive attribute with its
// facets, an enumerated attribute, and xs:anyAttribute held in a CAttributeCol.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/metadata/ElementInfo.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"
#include "orvexxml/metadata/XmlElementEnums.h"
#include "orvexxml/values/WhitespaceUtils.h"

namespace OrvexXmlLib5 {
class CXmlAttribute;
}  // namespace OrvexXmlLib5

namespace OrvexXmlLib5Data {

class ORVEXXML_API CAttributeInfo
{
public:
    CAttributeInfo(const CAttributeInfo& other) = default;
    CAttributeInfo& operator=(const CAttributeInfo& other) = default;
    virtual ~CAttributeInfo() = default;

    virtual void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                CXmlWriter* writer) const = 0;
    // True when this descriptor has taken the attribute.
    virtual bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                  CXmlAttribute* attribute) = 0;
    // Called once the element's attributes are done; seen tells that this one took one.
    virtual void Validate(const CXmlSerializationContext& context, bool seen) const = 0;

    std::string GetAttributeName() const { return m_attributeName; }
    std::string GetAttributeNamespace() const { return m_attributeNamespace; }
    int GetPropertyIndex() const { return m_propertyIndex; }
    bool GetOptional() const { return m_optional; }

protected:
    CAttributeInfo(const char* name, const char* namespaceUri, int propertyIndex, bool optional);

    // False for a null attribute; the local name must match, and the namespace too
    // unless the context ignores namespaces.
    bool IsThisAttribute(const CXmlSerializationContext& context, CXmlAttribute* attribute) const;
    void AccessProperty(CXmlGeneratedClass* owner, bool read, OrvexVariant& value) const;
    void ReadProperty(const CXmlGeneratedClass* owner, OrvexVariant& value) const;
    static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                          const CXmlSerializationContext& context);
    static std::string GetTargetNamespace(const CXmlObjectBase* object);
    // Fails with COrvexInvalidNamespaceException when candidate is outside allowed.
    static void TestNamespace(const std::string& candidate, const std::string& allowed,
                              const std::string& targetNamespace);
    // Fails with COrvexValidationException "Failed to find the required Attribute [%s]"
    // when the attribute is mandatory and was not seen.
    void ValidateMandatory(bool seen) const;

private:
    std::string m_attributeName;
    std::string m_attributeNamespace;
    int m_propertyIndex;
    bool m_optional;
};

class ORVEXXML_API CAttributeInfoPrimitive : public CAttributeInfo
{
public:
    CAttributeInfoPrimitive(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                            ItemType itemType, const char* format, CWhitespaceUtils::WhitespaceRule rule,
                            const CPrimitiveRestrictions& restrictions);

    // An optional attribute with an invalid value writes nothing; a value outside its
    // facets fails before anything of the attribute is written.
    void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                        CXmlWriter* writer) const override;
    // Name and namespace must match exactly, whatever the context says about
    // namespaces. Text that is not of the type fails as the conversion does.
    bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    void Validate(const CXmlSerializationContext& context, bool seen) const override;

    // Tests value against the facets; fails as the facet check does.
    void CheckRestriction(OrvexVariant value) const;

private:
    CPrimitiveRestrictions m_restrictions;
    ItemType m_itemType;
    // Stored as given; generated code passes a literal.
    const char* m_format;
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

class ORVEXXML_API CAttributeInfoEnum : public CAttributeInfo
{
public:
    CAttributeInfoEnum(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                       EnumToStringFn toString, EnumFromStringFn fromString);

    // An optional attribute with an invalid value writes nothing.
    void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                        CXmlWriter* writer) const override;
    // The raw text goes to the generated function; no whitespace rule.
    bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    void Validate(const CXmlSerializationContext& context, bool seen) const override;

private:
    EnumFromStringFn m_fromString;
    EnumToStringFn m_toString;
};

// Takes every attribute that reaches it, so it stands last in the table. Its
// property holds a CAttributeCol.
class ORVEXXML_API CAttributeInfoAny : public CAttributeInfo
{
public:
    CAttributeInfoAny(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                      const char* namespaceConstraint, const char* targetNamespace);

    void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                        CXmlWriter* writer) const override;
    // An attribute outside the namespace constraint fails with
    // COrvexInvalidNamespaceException whatever the context says; a property that
    // holds no CAttributeCol fails with COrvexException.
    bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    // Never fails.
    void Validate(const CXmlSerializationContext& context, bool seen) const override;

private:
    std::string m_namespaceConstraint;
    std::string m_targetNamespace;
};

}  // namespace OrvexXmlLib5Data
