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

// The base of the attribute descriptors: one attribute of a generated class, the
// property that holds it, and whether the schema lets it be absent.
class ORVEXXML_API CAttributeInfo
{
public:
    // Copies the name, namespace, property index and optional flag.
    CAttributeInfo(const CAttributeInfo& other) = default;
    // The same as the copy.
    CAttributeInfo& operator=(const CAttributeInfo& other) = default;
    virtual ~CAttributeInfo() = default;

    // Writes the attribute from the property of owner into the start tag that writer has open.
    virtual void AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                CXmlWriter* writer) const = 0;
    // True when this descriptor has taken the attribute.
    virtual bool AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                  CXmlAttribute* attribute) = 0;
    // Called once the element's attributes are done; seen tells that this one took one.
    virtual void Validate(const CXmlSerializationContext& context, bool seen) const = 0;

    // The attribute's local name.
    std::string GetAttributeName() const { return m_attributeName; }
    // The attribute's namespace; empty for none.
    std::string GetAttributeNamespace() const { return m_attributeNamespace; }
    // The attribute's local name without a copy.
    const std::string& AttributeNameRef() const { return m_attributeName; }
    // The attribute's namespace without a copy.
    const std::string& AttributeNamespaceRef() const { return m_attributeNamespace; }
    // The index of the property in the owner's AccessProperty.
    int GetPropertyIndex() const { return m_propertyIndex; }
    // True when the attribute may be absent (use="optional").
    bool GetOptional() const { return m_optional; }

protected:
    // name and namespaceUri name the attribute; propertyIndex is its property; optional
    // tells that it may be absent. Null texts count as empty.
    CAttributeInfo(const char* name, const char* namespaceUri, int propertyIndex, bool optional);

    // False for a null attribute; the local name must match, and the namespace too
    // unless the context ignores namespaces.
    bool IsThisAttribute(const CXmlSerializationContext& context, CXmlAttribute* attribute) const;
    // Reads (read true) or stores value through the owner's AccessProperty at this
    // descriptor's property index.
    void AccessProperty(CXmlGeneratedClass* owner, bool read, OrvexVariant& value) const;
    // Reads the property into value from a const owner.
    void ReadProperty(const CXmlGeneratedClass* owner, OrvexVariant& value) const;
    // Lets object write itself, as a child would (used for the CAttributeCol of a wildcard).
    static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                          const CXmlSerializationContext& context);
    // The target namespace of object's class.
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

// The descriptor of an attribute of a simple type: the text is converted by itemType
// and format after the whitespace rule, and tested against the facets.
class ORVEXXML_API CAttributeInfoPrimitive : public CAttributeInfo
{
public:
    // name, namespaceUri, propertyIndex and optional as for every attribute; itemType,
    // format and rule say how the text is converted; restrictions holds the facets.
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
    // CheckRestriction without the copy of value.
    void CheckValue(const OrvexVariant& value) const;

    CPrimitiveRestrictions m_restrictions;
    ItemType m_itemType;
    // Stored as given; generated code passes a literal.
    const char* m_format;
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
};

// The descriptor of an attribute of an enumerated type, converted by the generated
// text functions; the property holds the enumeration value as an i4.
class ORVEXXML_API CAttributeInfoEnum : public CAttributeInfo
{
public:
    // name, namespaceUri, propertyIndex and optional as for every attribute; toString and
    // fromString are the generated text functions of the enumeration.
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
    // name, namespaceUri, propertyIndex and optional as for every attribute;
    // namespaceConstraint is the wildcard's namespace list and targetNamespace the schema's.
    CAttributeInfoAny(const char* name, const char* namespaceUri, int propertyIndex, bool optional,
                      const char* namespaceConstraint, const char* targetNamespace);

    // Lets the CAttributeCol in the property write its attributes; nothing when it is null.
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
