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
    CElementInfoChoice(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfo(name, namespaceUri, propertyIndex)
    {
    }
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
    CElementInfoChoiceCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoice(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

class ORVEXXML_API CElementInfoChoiceAbsClsOpt : public CElementInfoChoice
{
public:
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
    XmlElementType m_childType;
    ElementFactoryFn m_factory;
};

class ORVEXXML_API CElementInfoChoiceAbsClsCol : public CElementInfoChoiceCol
{
public:
    CElementInfoChoiceAbsClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    XmlElementType m_childType;
};

class ORVEXXML_API CElementInfoChoiceClsOpt : public CElementInfoChoice
{
public:
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
    XmlElementType m_childType;
    ClassFactoryFn m_factory;
    int m_classId;
};

class ORVEXXML_API CElementInfoChoiceClsCol : public CElementInfoChoiceCol
{
public:
    CElementInfoChoiceClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    XmlElementType m_childType;
};

class ORVEXXML_API CElementInfoChoiceEnumOpt : public CElementInfoChoice
{
public:
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
    EnumToStringFn m_toString;
    EnumFromStringFn m_fromString;
};

class ORVEXXML_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol
{
public:
    CElementInfoChoiceEnumCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoChoicePrimOpt : public CElementInfoChoice
{
public:
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

class ORVEXXML_API CElementInfoChoicePrimCol : public CElementInfoChoiceCol
{
public:
    CElementInfoChoicePrimCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoChoiceUntpdOpt : public CElementInfoChoice
{
public:
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
    std::string m_namespaceConstraint;
    std::string m_targetNamespace;
};

class ORVEXXML_API CElementInfoChoiceUntpdCol : public CElementInfoChoiceCol
{
public:
    CElementInfoChoiceUntpdCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoChoiceCol(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

}  // namespace OrvexXmlLib5Data
