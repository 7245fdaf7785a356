// The descriptors of the children of an xs:all class, one class per kind and
// occurrence. ElementFromXml gives true when the descriptor has taken its element
// and is done; a missing element is found afterwards, by Validate. A cell without
// its own ElementFromXml cannot be constructed; an abstract child in an xs:all
// group is written but never read.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/metadata/ElementInfo.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5Data {

// Base of the descriptors of an xs:all class; all three group operations stay
// with the members.
class ORVEXXML_API CElementInfoAll : public CElementInfo
{
protected:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoAll(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfo(name, namespaceUri, propertyIndex)
    {
    }
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoAll(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                    const char* format, CWhitespaceUtils::WhitespaceRule rule,
                    const CPrimitiveRestrictions& restrictions)
        : CElementInfo(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
    }
    // Fails with COrvexValidationException "Failed to find the mandatory element [%s]".
    static COrvexValidationException MissingMandatory(const std::string& name);
};

// Base of the repeating members: the collection in the property writes its items
// and is tested for its count once the group has been read.
class ORVEXXML_API CElementInfoAllCol : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoAllCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAll(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    // Lets the collection take the run of its items at the position and gives
    // false, always: the collection gets a new chance at every position, so that
    // its items may stand apart from each other.
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    // A count out of bounds fails as COrvexException with the count's text when the
    // owner is a real element, and gives false otherwise.
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
};

// Open in all three group operations.
class ORVEXXML_API CElementInfoAllNonCol : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoAllNonCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAll(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child of an abstract type or of a type with derived types (chosen by
// xsi:type), that stands exactly once, in an xs:all class.
class ORVEXXML_API CElementInfoAllAbsClsMnd : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory makes the object for the element read, from its
    // xsi:type (classId is kept for it).
    CElementInfoAllAbsClsMnd(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                             ElementFactoryFn factory, int classId)
        : CElementInfoAll(name, namespaceUri, propertyIndex),
          m_childType(childType),
          m_factory(factory),
          m_classId(classId)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    // Fails: an abstract child of xs:all is written but never read.
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
    // Makes the child object; may be null.
    ElementFactoryFn m_factory;
    // The class number passed to m_factory.
    int m_classId;
};

// The descriptor of a child of an abstract type or of a type with derived types (chosen by
// xsi:type), that may be absent, in an xs:all class.
class ORVEXXML_API CElementInfoAllAbsClsOpt : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory makes the object for the element read, from its
    // xsi:type.
    CElementInfoAllAbsClsOpt(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                             ElementFactoryFn factory)
        : CElementInfoAll(name, namespaceUri, propertyIndex), m_childType(childType), m_factory(factory)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    // Fails: an abstract child of xs:all is written but never read.
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
    // Makes the child object; may be null.
    ElementFactoryFn m_factory;
};

// The descriptor of a child of an abstract type or of a type with derived types (chosen by
// xsi:type), that repeats (its property holds a collection), in an xs:all class.
class ORVEXXML_API CElementInfoAllAbsClsCol : public CElementInfoAllCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the item class is a real element.
    CElementInfoAllAbsClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
};

// The descriptor of a child of a complex type, that stands exactly once, in an xs:all class.
class ORVEXXML_API CElementInfoAllClsMnd : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory(classId, name) makes a new child object when one
    // is read, unless the property already holds one. mustConsume: the child has to take at least
    // one element.
    CElementInfoAllClsMnd(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                          ClassFactoryFn factory, int classId, bool mustConsume)
        : CElementInfoAll(name, namespaceUri, propertyIndex),
          m_childType(childType),
          m_factory(factory),
          m_classId(classId),
          m_mustConsume(mustConsume)
    {
        if (childType == ElementType_Element) SetMatchesOnlyItsOwnElement();
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
    // Makes the child object; may be null.
    ClassFactoryFn m_factory;
    // The class number passed to m_factory.
    int m_classId;
    // True when the child has to take at least one element.
    bool m_mustConsume;
};

// The descriptor of a child of a complex type, that may be absent, in an xs:all class.
class ORVEXXML_API CElementInfoAllClsOpt : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory(classId, name) makes a new child object when one
    // is read, unless the property already holds one.
    CElementInfoAllClsOpt(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                          ClassFactoryFn factory, int classId)
        : CElementInfoAll(name, namespaceUri, propertyIndex),
          m_childType(childType),
          m_factory(factory),
          m_classId(classId)
    {
        if (childType == ElementType_Element) SetMatchesOnlyItsOwnElement();
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
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
// an xs:all class.
class ORVEXXML_API CElementInfoAllClsCol : public CElementInfoAllCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the item class is a real element.
    CElementInfoAllClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
};

// The descriptor of a child of an enumerated simple type, read and written by the generated text
// functions, that stands exactly once, in an xs:all class.
class ORVEXXML_API CElementInfoAllEnumMnd : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. toString and
    // fromString are the generated text functions of the enumeration.
    CElementInfoAllEnumMnd(const char* name, const char* namespaceUri, int propertyIndex, EnumToStringFn toString,
                           EnumFromStringFn fromString)
        : CElementInfoAll(name, namespaceUri, propertyIndex), m_toString(toString), m_fromString(fromString)
    {
        SetMatchesOnlyItsOwnElement();
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;

protected:
    // The generated function that gives the text of a value.
    EnumToStringFn m_toString;
    // The generated function that gives the value of a text.
    EnumFromStringFn m_fromString;
};

// The descriptor of a child of an enumerated simple type, read and written by the generated text
// functions, that may be absent, in an xs:all class.
class ORVEXXML_API CElementInfoAllEnumOpt : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. toString and
    // fromString are the generated text functions of the enumeration.
    CElementInfoAllEnumOpt(const char* name, const char* namespaceUri, int propertyIndex, EnumToStringFn toString,
                           EnumFromStringFn fromString)
        : CElementInfoAll(name, namespaceUri, propertyIndex), m_toString(toString), m_fromString(fromString)
    {
        SetMatchesOnlyItsOwnElement();
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;

protected:
    // The generated function that gives the text of a value.
    EnumToStringFn m_toString;
    // The generated function that gives the value of a text.
    EnumFromStringFn m_fromString;
};

// The descriptor of a child of an enumerated simple type, read and written by the generated text
// functions, that repeats (its property holds a collection), in an xs:all class.
class ORVEXXML_API CElementInfoAllEnumCol : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoAllEnumCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAll(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child of a simple type, with its facets, that stands exactly once, in an
// xs:all class.
class ORVEXXML_API CElementInfoAllPrimMnd : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoAllPrimMnd(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                           const char* format, CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
        : CElementInfoAll(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
        SetMatchesOnlyItsOwnElement();
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
};

// The descriptor of a child of a simple type, with its facets, that may be absent, in an xs:all
// class.
class ORVEXXML_API CElementInfoAllPrimOpt : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoAllPrimOpt(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                           const char* format, CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
        : CElementInfoAll(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
        SetMatchesOnlyItsOwnElement();
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;
};

// The descriptor of a child of a simple type, with its facets, that repeats (its property holds a
// collection), in an xs:all class.
class ORVEXXML_API CElementInfoAllPrimCol : public CElementInfoAllCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoAllPrimCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child matched by xs:any and held untyped, that stands exactly once, in an
// xs:all class.
class ORVEXXML_API CElementInfoAllUntpdMnd : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    // namespaceConstraint is the wildcard's namespace list and targetNamespace the schema's
    // namespace.
    CElementInfoAllUntpdMnd(const char* name, const char* namespaceUri, int propertyIndex,
                            const char* namespaceConstraint, const char* targetNamespace)
        : CElementInfoAll(name, namespaceUri, propertyIndex),
          m_namespaceConstraint(namespaceConstraint ? namespaceConstraint : ""),
          m_targetNamespace(targetNamespace ? targetNamespace : "")
    {
    }
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;

protected:
    // The namespace list of the wildcard (`##any`, `##other`, URIs, ...).
    std::string m_namespaceConstraint;
    // The namespace of the schema, for `##targetNamespace` and `##other`.
    std::string m_targetNamespace;
};

// The descriptor of a child matched by xs:any and held untyped, that may be absent, in an xs:all
// class.
class ORVEXXML_API CElementInfoAllUntpdOpt : public CElementInfoAll
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    // namespaceConstraint is the wildcard's namespace list and targetNamespace the schema's
    // namespace.
    CElementInfoAllUntpdOpt(const char* name, const char* namespaceUri, int propertyIndex,
                            const char* namespaceConstraint, const char* targetNamespace)
        : CElementInfoAll(name, namespaceUri, propertyIndex),
          m_namespaceConstraint(namespaceConstraint ? namespaceConstraint : ""),
          m_targetNamespace(targetNamespace ? targetNamespace : "")
    {
    }
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;

protected:
    // The namespace list of the wildcard (`##any`, `##other`, URIs, ...).
    std::string m_namespaceConstraint;
    // The namespace of the schema, for `##targetNamespace` and `##other`.
    std::string m_targetNamespace;
};

// The descriptor of a child matched by xs:any and held untyped, that repeats (its property holds a
// collection), in an xs:all class.
class ORVEXXML_API CElementInfoAllUntpdCol : public CElementInfoAllCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoAllUntpdCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex)
    {
    }
};

}  // namespace OrvexXmlLib5Data
