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
    CElementInfoAll(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfo(name, namespaceUri, propertyIndex)
    {
    }
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
    CElementInfoAllNonCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAll(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoAllAbsClsMnd : public CElementInfoAll
{
public:
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
    XmlElementType m_childType;
    ElementFactoryFn m_factory;
    int m_classId;
};

class ORVEXXML_API CElementInfoAllAbsClsOpt : public CElementInfoAll
{
public:
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
    XmlElementType m_childType;
    ElementFactoryFn m_factory;
};

class ORVEXXML_API CElementInfoAllAbsClsCol : public CElementInfoAllCol
{
public:
    CElementInfoAllAbsClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    XmlElementType m_childType;
};

class ORVEXXML_API CElementInfoAllClsMnd : public CElementInfoAll
{
public:
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
    XmlElementType m_childType;
    ClassFactoryFn m_factory;
    int m_classId;
    bool m_mustConsume;
};

class ORVEXXML_API CElementInfoAllClsOpt : public CElementInfoAll
{
public:
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
    XmlElementType m_childType;
    ClassFactoryFn m_factory;
    int m_classId;
};

class ORVEXXML_API CElementInfoAllClsCol : public CElementInfoAllCol
{
public:
    CElementInfoAllClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    XmlElementType m_childType;
};

class ORVEXXML_API CElementInfoAllEnumMnd : public CElementInfoAll
{
public:
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
    EnumToStringFn m_toString;
    EnumFromStringFn m_fromString;
};

class ORVEXXML_API CElementInfoAllEnumOpt : public CElementInfoAll
{
public:
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
    EnumToStringFn m_toString;
    EnumFromStringFn m_fromString;
};

class ORVEXXML_API CElementInfoAllEnumCol : public CElementInfoAll
{
public:
    CElementInfoAllEnumCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAll(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoAllPrimMnd : public CElementInfoAll
{
public:
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

class ORVEXXML_API CElementInfoAllPrimOpt : public CElementInfoAll
{
public:
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

class ORVEXXML_API CElementInfoAllPrimCol : public CElementInfoAllCol
{
public:
    CElementInfoAllPrimCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoAllUntpdMnd : public CElementInfoAll
{
public:
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
    std::string m_namespaceConstraint;
    std::string m_targetNamespace;
};

class ORVEXXML_API CElementInfoAllUntpdOpt : public CElementInfoAll
{
public:
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
    std::string m_namespaceConstraint;
    std::string m_targetNamespace;
};

class ORVEXXML_API CElementInfoAllUntpdCol : public CElementInfoAllCol
{
public:
    CElementInfoAllUntpdCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoAllCol(name, namespaceUri, propertyIndex)
    {
    }
};

}  // namespace OrvexXmlLib5Data
