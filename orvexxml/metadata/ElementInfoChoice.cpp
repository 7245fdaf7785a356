#include "orvexxml/metadata/ElementInfoChoice.h"

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/detail/ElementReading.h"
#include "orvexxml/metadata/detail/UntypedReading.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5Data {

bool CElementInfoChoice::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    throw COrvexException("Not implemented, should never be called");
}

bool CElementInfoChoiceCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                           CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlCollectionBase> collection = Detail::RequireCollection(value, ElementNameRef());
    CXmlElement* next = FromXml_Int(collection->GetBase(), parent, *current, context, false);
    // An absent alternative is not held to its min occurs.
    if (next == *current) return false;
    *current = next;
    if (!context.GetIgnoreInvalidCollectionCounts()) collection->ValidateCount(context);
    return true;
}

bool CElementInfoChoiceAbsClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                                 CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return false;
    OrvexVariant value;
    value.SetXmlObject(m_factory ? m_factory(*current) : CSmartPtr<CXmlObjectBase>());
    // Stored even when no class suits, so that the setter hears of the attempt.
    AccessProperty(owner, false, value);
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    if (object.IsNull()) return false;
    FromXml_Int(object, *current, (*current)->GetFirstElement(), context, false);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoChoiceClsOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                              CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
{
    OrvexVariant value;
    if (m_childType == ElementType_Element) {
        if (!IsThisElement(context, *current)) return false;
        if (m_factory) value.SetXmlObject(m_factory(m_classId, ElementNameRef().c_str()));
        CSmartPtr<CXmlObjectBase> object = Detail::RequireObject(value, ElementNameRef());
        // Stored before reading, so that the setter selects the alternative first.
        AccessProperty(owner, false, value);
        // An element that is there and empty is a valid alternative, even when the
        // child is itself a choice with nothing filled.
        FromXml_Int(object, *current, (*current)->GetFirstElement(), context, true);
        *current = (*current)->GetNextSiblingElement();
        return true;
    }

    if (!*current) return false;
    if (m_factory) value.SetXmlObject(m_factory(m_classId, ElementNameRef().c_str()));
    CSmartPtr<CXmlObjectBase> object = Detail::RequireObject(value, ElementNameRef());
    AccessProperty(owner, false, value);
    CXmlElement* next = FromXml_Int(object, parent, *current, context, false);
    if (next != *current) {
        *current = next;
        return true;
    }
    // The pseudo alternative took nothing: the property is emptied again.
    value.SetXmlObject(nullptr);
    AccessProperty(owner, false, value);
    return false;
}

bool CElementInfoChoiceEnumOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                               CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return false;
    ElementFromXmlEnum(owner, *current, m_fromString);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoChoicePrimOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                               CXmlElement*, CXmlElement** current, const char*, XmlElementType)
{
    if (!IsThisElement(context, *current)) return false;
    ElementFromXmlPrim(owner, *current);
    *current = (*current)->GetNextSiblingElement();
    return true;
}

bool CElementInfoChoiceCol::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                         CXmlWriter* writer) const
{
    return ElementToXmlCol(context, owner, writer);
}

bool CElementInfoChoiceAbsClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                               CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

void CElementInfoChoiceAbsClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                            const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

void CElementInfoChoiceAbsClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                            const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildCollectionAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoChoiceClsOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                            CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, true);
}

void CElementInfoChoiceClsOpt::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildObjectAttributesToXml(context, owner, writer, m_childType);
}

void CElementInfoChoiceClsCol::PseudoChildAttributeToXml(const CXmlSerializationContext& context,
                                                         const CXmlGeneratedClass* owner, CXmlWriter* writer) const
{
    PseudoChildCollectionAttributesToXml(context, owner, writer, m_childType);
}

bool CElementInfoChoiceEnumOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                             CXmlWriter* writer) const
{
    return ElementToXmlEnumOpt(context, owner, writer, m_toString);
}

bool CElementInfoChoicePrimOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                             CXmlWriter* writer) const
{
    return ElementToXmlPrimOpt(context, owner, writer);
}

bool CElementInfoChoiceUntpdOpt::ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                              CXmlWriter* writer) const
{
    return ElementToXmlCls(context, owner, writer, false);
}

bool CElementInfoChoiceUntpdOpt::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                                CXmlElement* parent, CXmlElement** current,
                                                const char* parentNamespace, XmlElementType)
{
    if (!*current) return false;
    CXmlElement* next = nullptr;
    CSmartPtr<CElement> element = Detail::ReadOptionalUntyped(
        ElementNameRef(),
        GetAnyDefaultNamespace(m_namespaceConstraint.c_str(), parentNamespace ? parentNamespace : "",
                               m_targetNamespace.c_str()),
        m_namespaceConstraint, m_targetNamespace, parent, *current, context, next);
    // An alternative not taken is cleared, so that the choice holds at most one.
    const bool taken = next != *current;
    OrvexVariant value;
    value.SetXmlObject(taken ? element.Get() : nullptr);
    AccessProperty(owner, false, value);
    if (taken) *current = next;
    return taken;
}

bool CElementInfoChoiceUntpdCol::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                                CXmlElement* parent, CXmlElement** current, const char*,
                                                XmlElementType)
{
    OrvexVariant value;
    AccessProperty(owner, true, value);
    CSmartPtr<CXmlCollectionBase> collection = Detail::RequireCollection(value, ElementNameRef());
    CXmlElement* next = Detail::ReadUntypedRun(ElementNameRef(), collection.Get(), parent, *current, context);
    if (next == *current) return false;
    *current = next;
    if (!context.GetIgnoreInvalidCollectionCounts()) collection->ValidateCount(context);
    return true;
}

}  // namespace OrvexXmlLib5Data
