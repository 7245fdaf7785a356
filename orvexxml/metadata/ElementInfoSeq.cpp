#include "orvexxml/metadata/ElementInfoSeq.h"

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5Data {

bool CElementInfoSeq::Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool, bool) const
{
    throw COrvexException("Not implemented, should never be called");
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

}  // namespace OrvexXmlLib5Data
