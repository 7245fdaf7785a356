// The descriptors of the alternatives of an xs:choice class, one class per kind
// and occurrence; there is no mandatory kind, the walk checks that one was taken.
// True from ElementFromXml means that this alternative was taken.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/metadata/ElementInfo.h"

namespace OrvexXmlLib5Data {

// Base of the descriptors of an xs:choice class. Validate is never called by the
// choice walk and fails when it is.
class ORVEXXML_API CElementInfoChoice : public CElementInfo
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoChoice(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfo(name, namespaceUri, propertyIndex)
    {
    }
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoChoice(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                       const char* format, CWhitespaceUtils::WhitespaceRule rule,
                       const CPrimitiveRestrictions& restrictions)
        : CElementInfo(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
    }
    // Fails with COrvexException "Not implemented, should never be called".
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
};

// Base of the repeating alternatives; an empty collection writes nothing and gives
// false, so the writing walk goes on to the next alternative.
class ORVEXXML_API CElementInfoChoiceCol : public CElementInfoChoice
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoChoiceCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoice(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// The descriptor of a child of an abstract type or of a type with derived types (chosen by
// xsi:type), that may be absent, in an xs:choice class.
class ORVEXXML_API CElementInfoChoiceAbsClsOpt : public CElementInfoChoice
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory makes the object for the element read, from its
    // xsi:type.
    CElementInfoChoiceAbsClsOpt(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                                ElementFactoryFn factory)
        : CElementInfoChoice(name, namespaceUri, propertyIndex), m_childType(childType), m_factory(factory)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
    // Makes the child object; may be null.
    ElementFactoryFn m_factory;
};

// The descriptor of a child of an abstract type or of a type with derived types (chosen by
// xsi:type), that repeats (its property holds a collection), in an xs:choice class.
class ORVEXXML_API CElementInfoChoiceAbsClsCol : public CElementInfoChoiceCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the item class is a real element.
    CElementInfoChoiceAbsClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
};

// The descriptor of a child of a complex type, that may be absent, in an xs:choice class.
class ORVEXXML_API CElementInfoChoiceClsOpt : public CElementInfoChoice
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory(classId, name) makes a new child object when one
    // is read, unless the property already holds one.
    CElementInfoChoiceClsOpt(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                             ClassFactoryFn factory, int classId)
        : CElementInfoChoice(name, namespaceUri, propertyIndex),
          m_childType(childType),
          m_factory(factory),
          m_classId(classId)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
    // Makes the child object; may be null.
    ClassFactoryFn m_factory;
    // The class number passed to m_factory.
    int m_classId;
};

// The descriptor of a child of a complex type, that repeats (its property holds a collection), in
// an xs:choice class.
class ORVEXXML_API CElementInfoChoiceClsCol : public CElementInfoChoiceCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the item class is a real element.
    CElementInfoChoiceClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
};

// The descriptor of a child of an enumerated simple type, read and written by the generated text
// functions, that may be absent, in an xs:choice class.
class ORVEXXML_API CElementInfoChoiceEnumOpt : public CElementInfoChoice
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. toString and
    // fromString are the generated text functions of the enumeration.
    CElementInfoChoiceEnumOpt(const char* name, const char* namespaceUri, int propertyIndex, EnumToStringFn toString,
                              EnumFromStringFn fromString)
        : CElementInfoChoice(name, namespaceUri, propertyIndex), m_toString(toString), m_fromString(fromString)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;

protected:
    // The generated function that gives the text of a value.
    EnumToStringFn m_toString;
    // The generated function that gives the value of a text.
    EnumFromStringFn m_fromString;
};

// The descriptor of a child of an enumerated simple type, read and written by the generated text
// functions, that repeats (its property holds a collection), in an xs:choice class.
class ORVEXXML_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoChoiceEnumCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child of a simple type, with its facets, that may be absent, in an xs:choice
// class.
class ORVEXXML_API CElementInfoChoicePrimOpt : public CElementInfoChoice
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoChoicePrimOpt(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                              const char* format, CWhitespaceUtils::WhitespaceRule rule,
                              const CPrimitiveRestrictions& restrictions)
        : CElementInfoChoice(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// The descriptor of a child of a simple type, with its facets, that repeats (its property holds a
// collection), in an xs:choice class.
class ORVEXXML_API CElementInfoChoicePrimCol : public CElementInfoChoiceCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoChoicePrimCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child matched by xs:any and held untyped, that may be absent, in an xs:choice
// class.
class ORVEXXML_API CElementInfoChoiceUntpdOpt : public CElementInfoChoice
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    // namespaceConstraint is the wildcard's namespace list and targetNamespace the schema's
    // namespace.
    CElementInfoChoiceUntpdOpt(const char* name, const char* namespaceUri, int propertyIndex,
                               const char* namespaceConstraint, const char* targetNamespace)
        : CElementInfoChoice(name, namespaceUri, propertyIndex),
          m_namespaceConstraint(namespaceConstraint ? namespaceConstraint : ""),
          m_targetNamespace(targetNamespace ? targetNamespace : "")
    {
    }
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;

protected:
    // The namespace list of the wildcard (`##any`, `##other`, URIs, ...).
    std::string m_namespaceConstraint;
    // The namespace of the schema, for `##targetNamespace` and `##other`.
    std::string m_targetNamespace;
};

// The descriptor of a child matched by xs:any and held untyped, that repeats (its property holds a
// collection), in an xs:choice class.
class ORVEXXML_API CElementInfoChoiceUntpdCol : public CElementInfoChoiceCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoChoiceUntpdCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

}  // namespace OrvexXmlLib5Data
