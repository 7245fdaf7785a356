#include "orvexxml/metadata/ElementInfoAll.h"

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/detail/ElementReading.h"
#include "orvexxml/metadata/detail/UntypedReading.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5Data {

COrvexValidationException CElementInfoAll::MissingMandatory(const std::string& name)
{
    return COrvexValidationException(FormatString("Failed to find the mandatory element [%s]", name.c_str()));
}

bool CElementInfoAllCol::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                      CXmlWriter* writer) const
{
    return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoAllCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                        CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlCollectionBase> collection = Detail::RequireCollection(value, ElementNameRef());
    *current = FromXml_Int(collection->GetBase(), parent, *current, context, false);
    // Never finished: the walk sees any progress by the position.
    return false;
}

bool CElementInfoAllCol::Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool,
                                  bool parentIsElement) const
{
    OrvexVariant value;
    ReadProperty(owner, value);
    if (context.GetIgnoreInvalidCollectionCounts()) return true;
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (collection.IsNull()) return true;
    try {
        collection->ValidateCount(context);
    } catch (const COrvexException& e) {
        // The count's own class is dropped: the all group reports it as the base class.
        if (parentIsElement) throw COrvexException(e.GetMessage());
        return false;
    }
    return true;
}

bool CElementInfoAllAbsClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoAllAbsClsMnd::ElementFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*, CXmlElement*,
                                              CXmlElement**, const char*, XmlElementType)
{
    throw COrvexException("AllAbsClsMndElm.ProcessXml, has not been implemented fully");
}

bool CElementInfoAllAbsClsMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool seen,
                                        bool parentIsElement) const
{
    if (seen || !parentIsElement) return seen;
    throw MissingMandatory(ElementNameRef());
}

void CElementInfoAllAbsClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoAllAbsClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoAllAbsClsOpt::ElementFromXml(const CXmlSerializationContext&, CXmlGeneratedClass*, CXmlElement*,
                                              CXmlElement**, const char*, XmlElementType)
{
    throw COrvexException("AllAbsClsMndElm.ProcessXml, has not been implemented fully");
}

bool CElementInfoAllAbsClsOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

void CElementInfoAllAbsClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

void CElementInfoAllAbsClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildCollectionAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoAllClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoAllClsMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                           CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    if (m_childType == ElementType_Element) {
        if (!IsThisElement(context, *current)) return false;
        AccessProperty(owner, true, value);
        FromXml_Int(Detail::RequireObject(value, ElementNameRef()), *current, (*current)->GetFirstElement(), context,
                    false);
        *current = (*current)->GetNextSiblingElement();
        return true;
    }
    AccessProperty(owner, true, value);
    CXmlElement* next = FromXml_Int(Detail::RequireObject(value, ElementNameRef()), parent, *current, context, false);
    const bool taken = next != *current;
    *current = next;
    return taken;
}

bool CElementInfoAllClsMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool seen,
                                     bool parentIsElement) const
{
    if (seen || !parentIsElement) return seen;
    if (m_childType != ElementType_Pseudo && !m_mustConsume) return true;
    throw MissingMandatory(ElementNameRef());
}

void CElementInfoAllClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoAllClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoAllClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                           CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    if (m_childType == ElementType_Element) {
        if (!IsThisElement(context, *current)) return false;
        if (m_factory) value.SetXmlObject(m_factory(m_classId, ElementNameRef().c_str()));
        FromXml_Int(Detail::RequireObject(value, ElementNameRef()), *current, (*current)->GetFirstElement(), context,
                    false);
        *current = (*current)->GetNextSiblingElement();
        AccessProperty(owner, false, value);
        return true;
    }
    if (!*current) return false;
    if (m_factory) value.SetXmlObject(m_factory(m_classId, ElementNameRef().c_str()));
    CXmlElement* next = FromXml_Int(Detail::RequireObject(value, ElementNameRef()), parent, *current, context, false);
    // A pseudo child that consumed nothing is dropped; the property keeps what it had.
    const bool taken = next != *current;
    if (taken) AccessProperty(owner, false, value);
    *current = next;
    return taken;
}

bool CElementInfoAllClsOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

void CElementInfoAllClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

void CElementInfoAllClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildCollectionAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoAllEnumMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnum(context, owner, writer, m_toString);
}

bool CElementInfoAllEnumMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return false;
    ElementFromXmlEnum(owner, *current, m_fromString);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoAllEnumMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool seen,
                                      bool parentIsElement) const
{
    if (seen || !parentIsElement) return seen;
    throw MissingMandatory(ElementNameRef());
}

bool CElementInfoAllEnumOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnumOpt(context, owner, writer, m_toString);
}

bool CElementInfoAllEnumOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return false;
    ElementFromXmlEnum(owner, *current, m_fromString);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoAllEnumOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

bool CElementInfoAllPrimMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrim(context, owner, writer);
}

bool CElementInfoAllPrimMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return false;
    ElementFromXmlPrim(owner, *current);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoAllPrimMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool seen,
                                      bool parentIsElement) const
{
    if (seen || !parentIsElement) return seen;
    throw MissingMandatory(ElementNameRef());
}

bool CElementInfoAllPrimOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrimOpt(context, owner, writer);
}

bool CElementInfoAllPrimOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return false;
    ElementFromXmlPrim(owner, *current);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoAllPrimOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

bool CElementInfoAllUntpdMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoAllUntpdMnd::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool seen,
                                       bool parentIsElement) const
{
    if (seen || !parentIsElement) return seen;
    throw MissingMandatory(ElementNameRef());
}

bool CElementInfoAllUntpdOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoAllUntpdOpt::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    return true;
}

bool CElementInfoAllUntpdMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                             CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    if (!*current) return false;
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlObjectBase> object = Detail::RequireObject(value, ElementNameRef());
    CXmlElement* next = *current;
    if (Detail::UntypedNameMatches(ElementNameRef(), *current))
        next = FromXml_Int(object, parent, *current, context, false);
    if (next == *current) return false;
    *current = next;
    return true;
}

bool CElementInfoAllUntpdOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                             CXmlElement* parent, CXmlElement** current, const char* parentNamespace,
                                             XmlElementType)
{
    if (!*current) return false;
    CXmlElement* next = nullptr;
    CSmartPtr<CElement> element = Detail::ReadOptionalUntyped(
        ElementNameRef(),
        GetAnyDefaultNamespace(m_namespaceConstraint.c_str(), parentNamespace ? parentNamespace : "",
                               m_targetNamespace.c_str()),
        m_namespaceConstraint, m_targetNamespace, parent, *current, context, next);
    // Unlike the choice, an element not taken leaves the property as it was.
    if (next == *current) return false;
    OrvexVariant value;
    value.SetXmlObject(element.Get());
    AccessProperty(owner, false, value);
    *current = next;
    return true;
}

}  // namespace OrvexXmlLib5Data
