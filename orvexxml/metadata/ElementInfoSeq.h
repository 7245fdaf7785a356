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
    CElementInfoSeq(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfo(name, namespaceUri, propertyIndex)
    {
    }
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
    [[noreturn]] void ThrowMissing() const;
};

// Base of the repeating members: the collection in the property writes its items.
class ORVEXXML_API CElementInfoSeqCol : public CElementInfoSeq
{
public:
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
    CElementInfoSeqNonCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeq(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoSeqAbsClsMnd : public CElementInfoSeq
{
public:
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
    XmlElementType m_childType;
    ElementFactoryFn m_factory;
};

class ORVEXXML_API CElementInfoSeqAbsClsOpt : public CElementInfoSeq
{
public:
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
    XmlElementType m_childType;
    ElementFactoryFn m_factory;
};

class ORVEXXML_API CElementInfoSeqAbsClsCol : public CElementInfoSeqCol
{
public:
    CElementInfoSeqAbsClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    XmlElementType m_childType;
};

class ORVEXXML_API CElementInfoSeqClsMnd : public CElementInfoSeq
{
public:
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
    XmlElementType m_childType;
    ClassFactoryFn m_factory;
    int m_classId;
    bool m_mustConsume;
};

class ORVEXXML_API CElementInfoSeqClsOpt : public CElementInfoSeq
{
public:
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
    XmlElementType m_childType;
    ClassFactoryFn m_factory;
    int m_classId;
};

class ORVEXXML_API CElementInfoSeqClsCol : public CElementInfoSeqCol
{
public:
    CElementInfoSeqClsCol(const char* name, const char* namespaceUri, int propertyIndex, XmlElementType childType)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex), m_childType(childType)
    {
    }
    void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                   CXmlWriter* writer) const override;

protected:
    XmlElementType m_childType;
};

class ORVEXXML_API CElementInfoSeqEnumMnd : public CElementInfoSeq
{
public:
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
    EnumToStringFn m_toString;
    EnumFromStringFn m_fromString;
};

class ORVEXXML_API CElementInfoSeqEnumOpt : public CElementInfoSeq
{
public:
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
    EnumToStringFn m_toString;
    EnumFromStringFn m_fromString;
};

class ORVEXXML_API CElementInfoSeqEnumCol : public CElementInfoSeqCol
{
public:
    CElementInfoSeqEnumCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoSeqPrimMnd : public CElementInfoSeq
{
public:
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

class ORVEXXML_API CElementInfoSeqPrimOpt : public CElementInfoSeq
{
public:
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

class ORVEXXML_API CElementInfoSeqPrimCol : public CElementInfoSeqCol
{
public:
    CElementInfoSeqPrimCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex)
    {
    }
};

class ORVEXXML_API CElementInfoSeqUntpdMnd : public CElementInfoSeq
{
public:
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
    std::string m_namespaceConstraint;
    std::string m_targetNamespace;
};

class ORVEXXML_API CElementInfoSeqUntpdOpt : public CElementInfoSeq
{
public:
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
    std::string m_namespaceConstraint;
    std::string m_targetNamespace;
};

class ORVEXXML_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol
{
public:
    CElementInfoSeqUntpdCol(const char* name, const char* namespaceUri, int propertyIndex)
        : CElementInfoSeqCol(name, namespaceUri, propertyIndex)
    {
    }
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

}  // namespace OrvexXmlLib5Data
