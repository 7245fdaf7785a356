#include "orvexxml/metadata/ElementInfoChoice.h"

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5Data {

bool CElementInfoChoice::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    throw COrvexException("Not implemented, should never be called");
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

}  // namespace OrvexXmlLib5Data
