#include "orvexxml/metadata/ElementInfoSeq.h"

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/detail/ElementReading.h"
#include "orvexxml/metadata/detail/UntypedReading.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5Data {

bool CElementInfoSeq::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    throw COrvexException("Not implemented, should never be called");
}

void CElementInfoSeq::ThrowMissing() const
{
    throw COrvexValidationException(FormatString("Failed to find a required element [%s]", ElementNameRef().c_str()));
}

bool CElementInfoSeq::RecoverMandatory(const CXmlSerializationContext& context, CXmlElement** current) const
{
    // Ignoring missing elements wins over skipping unknown ones, and costs nothing:
    // not even the foreign element at the position is consumed.
    if (context.GetIgnoreMissingMandatoryElements()) return false;
    for (;;) {
        if (!context.GetIgnoreUnknownElements() || !*current) ThrowMissing();
        *current = (*current)->GetNextSiblingElement();
        if (IsThisElement(context, *current)) return true;
    }
}

bool CElementInfoSeqCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                        CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlCollectionBase> collection = Detail::RequireCollection(value, ElementNameRef());
    *current = FromXml_Int(collection->GetBase(), parent, *current, context, false);
    if (!context.GetIgnoreInvalidCollectionCounts()) collection->ValidateCount(context);
    return true;
}

bool CElementInfoSeqAbsClsMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                              CXmlElement*, CXmlElement** current, const char*,
                                              XmlElementType parentType)
{
    OrvexVariant value;
    if (IsThisElement(context, *current) && m_factory) value.SetXmlObject(m_factory(*current));
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    if (object.IsNull()) {
        if (parentType != ElementType_Element) return false;
        throw COrvexValidationException(
            FormatString("Failed to find a suitable substitution element for [%s]", ElementNameRef().c_str()));
    }
    FromXml_Int(object, *current, (*current)->GetFirstElement(), context, false);
    AccessProperty(owner, false, value);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoSeqAbsClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                              CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current) || !m_factory) return true;
    OrvexVariant value;
    value.SetXmlObject(m_factory(*current));
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    // No class suits the element: it stays for the next descriptor.
    if (object.IsNull()) return true;
    FromXml_Int(object, *current, (*current)->GetFirstElement(), context, false);
    AccessProperty(owner, false, value);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoSeqClsMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                           CXmlElement* parent, CXmlElement** current, const char*,
                                           XmlElementType parentType)
{
    const bool realParent = parentType == ElementType_Element;
    OrvexVariant value;
    if (m_childType == ElementType_Element) {
        if (!IsThisElement(context, *current)) {
            if (!realParent) return false;
            if (!RecoverMandatory(context, current)) return true;
        }
        AccessProperty(owner, true, value);
        FromXml_Int(Detail::RequireObject(value, ElementNameRef()), *current, (*current)->GetFirstElement(), context,
                    false);
        *current = (*current)->GetNextSiblingElement();
        return true;
    }

    if (m_mustConsume && !*current) {
        if (realParent) ThrowMissing();
        return false;
    }
    AccessProperty(owner, true, value);
    CXmlElement* next = FromXml_Int(Detail::RequireObject(value, ElementNameRef()), parent, *current, context, false);
    if (m_mustConsume && next == *current) {
        if (realParent) ThrowMissing();
        return false;
    }
    // A pseudo child that took nothing here lets the walk skip the unknown element
    // and offer it the next one.
    if (!m_mustConsume && next && next == *current && context.GetIgnoreUnknownElements() && realParent) return false;
    *current = next;
    return true;
}

bool CElementInfoSeqClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                           CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    if (m_childType == ElementType_Element) {
        if (!IsThisElement(context, *current)) return true;
        if (m_factory) value.SetXmlObject(m_factory(m_classId, ElementNameRef().c_str()));
        FromXml_Int(Detail::RequireObject(value, ElementNameRef()), *current, (*current)->GetFirstElement(), context,
                    false);
        *current = (*current)->GetNextSiblingElement();
        AccessProperty(owner, false, value);
        return true;
    }

    if (!*current) return true;
    if (m_factory) value.SetXmlObject(m_factory(m_classId, ElementNameRef().c_str()));
    CXmlElement* next = FromXml_Int(Detail::RequireObject(value, ElementNameRef()), parent, *current, context, false);
    // A pseudo child that consumed nothing is dropped; the property keeps what it had.
    if (next != *current) AccessProperty(owner, false, value);
    *current = next;
    return true;
}

bool CElementInfoSeqEnumMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType parentType)
{
    if (!IsThisElement(context, *current)) {
        if (parentType != ElementType_Element) return false;
        if (!RecoverMandatory(context, current)) return true;
    }
    ElementFromXmlEnum(owner, *current, m_fromString);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoSeqEnumOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return true;
    ElementFromXmlEnum(owner, *current, m_fromString);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoSeqPrimMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType parentType)
{
    if (!IsThisElement(context, *current)) {
        if (parentType == ElementType_Element) {
            if (!RecoverMandatory(context, current)) return true;
        } else {
            // Under a pseudo owner unknown elements are skipped up to a match; the
            // position stays where the skipping ended.
            bool found = false;
            while (!found && context.GetIgnoreUnknownElements() && *current) {
                *current = (*current)->GetNextSiblingElement();
                found = IsThisElement(context, *current);
            }
            if (!found) return false;
        }
    }
    ElementFromXmlPrim(owner, *current);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoSeqPrimOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                            CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return true;
    ElementFromXmlPrim(owner, *current);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoSeqCol::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                      CXmlWriter* writer) const
{
    return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoSeqAbsClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

void CElementInfoSeqAbsClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoSeqAbsClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

void CElementInfoSeqAbsClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

void CElementInfoSeqAbsClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildCollectionAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoSeqClsMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

void CElementInfoSeqClsMnd::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoSeqClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

void CElementInfoSeqClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

void CElementInfoSeqClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                      const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildCollectionAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoSeqEnumMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnum(context, owner, writer, m_toString);
}

bool CElementInfoSeqEnumOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlEnumOpt(context, owner, writer, m_toString);
}

bool CElementInfoSeqPrimMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrim(context, owner, writer);
}

bool CElementInfoSeqPrimOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer) const
{
    return ElementToXmlPrimOpt(context, owner, writer);
}

bool CElementInfoSeqUntpdMnd::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoSeqUntpdOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                           CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoSeqUntpdMnd::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                             CXmlElement* parent, CXmlElement** current, const char*,
                                             XmlElementType parentType)
{
    if (!*current)
        throw COrvexValidationException(
            FormatString("Failed to find a required element [%s]", ElementNameRef().c_str()));
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlObjectBase> object = Detail::RequireObject(value, ElementNameRef());
    // The name is tested on its own: the element tests its namespace itself.
    CXmlElement* next = *current;
    if (Detail::UntypedNameMatches(ElementNameRef(), *current))
        next = FromXml_Int(object, parent, *current, context, false);
    if (next == *current) {
        if (parentType != ElementType_Element) return false;
        throw COrvexValidationException(
            FormatString("Failed to find the required element from namespace [%s]", ElementNamespaceRef().c_str()));
    }
    *current = next;
    return true;
}

bool CElementInfoSeqUntpdOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                             CXmlElement* parent, CXmlElement** current, const char* parentNamespace,
                                             XmlElementType)
{
    if (!*current) return true;
    CXmlElement* next = nullptr;
    CSmartPtr<CElement> element = Detail::ReadOptionalUntyped(
        ElementNameRef(),
        GetAnyDefaultNamespace(m_namespaceConstraint.c_str(), parentNamespace ? parentNamespace : "",
                               m_targetNamespace.c_str()),
        m_namespaceConstraint, m_targetNamespace, parent, *current, context, next);
    if (next != *current) {
        OrvexVariant value;
        value.SetXmlObject(element.Get());
        AccessProperty(owner, false, value);
        *current = next;
    }
    return true;
}

bool CElementInfoSeqUntpdCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                             CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlCollectionBase> collection = Detail::RequireCollection(value, ElementNameRef());
    *current = Detail::ReadUntypedRun(ElementNameRef(), collection.Get(), parent, *current, context);
    if (!context.GetIgnoreInvalidCollectionCounts()) collection->ValidateCount(context);
    return true;
}

}  // namespace OrvexXmlLib5Data
