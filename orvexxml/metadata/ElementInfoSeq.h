// The descriptors of the children of an xs:sequence class, one class per kind and
// occurrence. Each takes what belongs to it from the front of the remaining children.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/metadata/ElementInfo.h"

namespace OrvexXmlLib5Data {

// Base of the descriptors of an xs:sequence class. Validate is never called by
// the sequence walk and fails when it is.
class ORVEXXML_API CElementInfoSeq : public CElementInfo
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoSeq(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfo(name, namespaceUri, propertyIndex)
    {
    }
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoSeq(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                    const char* format, CWhitespaceUtils::WhitespaceRule rule,
                    const CPrimitiveRestrictions& restrictions)
        : CElementInfo(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
    }
    // Fails with COrvexException "Not implemented, should never be called".
    bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                  bool parentIsElement) const override;

protected:
    // The recovery of a mandatory member whose element is not at *current under a
    // real parent: gives false when the missing element is to be ignored (nothing
    // read, position kept), true once an element of this descriptor is current
    // after skipping unknown ones. Fails with COrvexValidationException "Failed to
    // find a required element [%s]" when neither option saves it.
    bool RecoverMandatory(const CXmlSerializationContext& context, CXmlElement** current) const;
    // Fails with COrvexValidationException "Failed to find a required element [%s]".
    [[noreturn]] void ThrowMissing() const;
};

// Base of the repeating members: the collection in the property writes its items.
class ORVEXXML_API CElementInfoSeqCol : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoSeqCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeq(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// A non-repeating member whose writing and reading the generated code supplies.
class ORVEXXML_API CElementInfoSeqNonCol : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoSeqNonCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeq(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child of an abstract type or of a type with derived types (chosen by
// xsi:type), that stands exactly once, in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqAbsClsMnd : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory makes the object for the element read, from its
    // xsi:type.
    CElementInfoSeqAbsClsMnd(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                             ElementFactoryFn factory)
        : CElementInfoSeq(name, namespaceUri, propertyIndex), m_childType(childType), m_factory(factory)
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
// xsi:type), that may be absent, in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqAbsClsOpt : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory makes the object for the element read, from its
    // xsi:type.
    CElementInfoSeqAbsClsOpt(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                             ElementFactoryFn factory)
        : CElementInfoSeq(name, namespaceUri, propertyIndex), m_childType(childType), m_factory(factory)
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
// xsi:type), that repeats (its property holds a collection), in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqAbsClsCol : public CElementInfoSeqCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the item class is a real element.
    CElementInfoSeqAbsClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
};

// The descriptor of a child of a complex type, that stands exactly once, in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqClsMnd : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory(classId, name) makes a new child object when one
    // is read, unless the property already holds one. mustConsume: the child has to take at least
    // one element.
    CElementInfoSeqClsMnd(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                          ClassFactoryFn factory, int classId, bool mustConsume)
        : CElementInfoSeq(name, namespaceUri, propertyIndex),
          m_childType(childType),
          m_factory(factory),
          m_classId(classId),
          m_mustConsume(mustConsume)
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
    // True when the child has to take at least one element.
    bool m_mustConsume;
};

// The descriptor of a child of a complex type, that may be absent, in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqClsOpt : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the child is a real element; factory(classId, name) makes a new child object when one
    // is read, unless the property already holds one.
    CElementInfoSeqClsOpt(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType,
                          ClassFactoryFn factory, int classId)
        : CElementInfoSeq(name, namespaceUri, propertyIndex),
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
// an xs:sequence class.
class ORVEXXML_API CElementInfoSeqClsCol : public CElementInfoSeqCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. childType tells
    // whether the item class is a real element.
    CElementInfoSeqClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    // ElementType_Pseudo when the child is a group whose elements stand among the owner's.
    XmlElementType m_childType;
};

// The descriptor of a child of an enumerated simple type, read and written by the generated text
// functions, that stands exactly once, in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqEnumMnd : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. toString and
    // fromString are the generated text functions of the enumeration.
    CElementInfoSeqEnumMnd(const char* name, const char* namespaceUri, int propertyIndex, EnumToStringFn toString,
                           EnumFromStringFn fromString)
        : CElementInfoSeq(name, namespaceUri, propertyIndex), m_toString(toString), m_fromString(fromString)
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
// functions, that may be absent, in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqEnumOpt : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. toString and
    // fromString are the generated text functions of the enumeration.
    CElementInfoSeqEnumOpt(const char* name, const char* namespaceUri, int propertyIndex, EnumToStringFn toString,
                           EnumFromStringFn fromString)
        : CElementInfoSeq(name, namespaceUri, propertyIndex), m_toString(toString), m_fromString(fromString)
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
// functions, that repeats (its property holds a collection), in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqEnumCol : public CElementInfoSeqCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoSeqEnumCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child of a simple type, with its facets, that stands exactly once, in an
// xs:sequence class.
class ORVEXXML_API CElementInfoSeqPrimMnd : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoSeqPrimMnd(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                           const char* format, CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
        : CElementInfoSeq(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// The descriptor of a child of a simple type, with its facets, that may be absent, in an
// xs:sequence class.
class ORVEXXML_API CElementInfoSeqPrimOpt : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property. itemType, format
    // and rule say how the text is converted; restrictions holds the facets.
    CElementInfoSeqPrimOpt(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                           const char* format, CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
        : CElementInfoSeq(name, namespaceUri, propertyIndex, itemType, format, rule, restrictions)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// The descriptor of a child of a simple type, with its facets, that repeats (its property holds a
// collection), in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqPrimCol : public CElementInfoSeqCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoSeqPrimCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex)
    {
    }
};

// The descriptor of a child matched by xs:any and held untyped, that stands exactly once, in an
// xs:sequence class.
class ORVEXXML_API CElementInfoSeqUntpdMnd : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    // namespaceConstraint is the wildcard's namespace list and targetNamespace the schema's
    // namespace.
    CElementInfoSeqUntpdMnd(const char* name, const char* namespaceUri, int propertyIndex,
                            const char* namespaceConstraint, const char* targetNamespace)
        : CElementInfoSeq(name, namespaceUri, propertyIndex),
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

// The descriptor of a child matched by xs:any and held untyped, that may be absent, in an
// xs:sequence class.
class ORVEXXML_API CElementInfoSeqUntpdOpt : public CElementInfoSeq
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    // namespaceConstraint is the wildcard's namespace list and targetNamespace the schema's
    // namespace.
    CElementInfoSeqUntpdOpt(const char* name, const char* namespaceUri, int propertyIndex,
                            const char* namespaceConstraint, const char* targetNamespace)
        : CElementInfoSeq(name, namespaceUri, propertyIndex),
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
// collection), in an xs:sequence class.
class ORVEXXML_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol
{
public:
    // name and namespaceUri name the child element; propertyIndex is its property.
    CElementInfoSeqUntpdCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

}  // namespace OrvexXmlLib5Data
