// Reading for the plain sequence cells that the binding example uses: a class or
// primitive child that has an element of its own, matched at the current position.
// The recovery options of the context are not looked at here.
#pragma once

#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5Data;

// A mandatory primitive: a foreign element or the end of the children fails under
// a real element and gives false under a pseudo one.
class CSeqPrimMndReader : public CElementInfoSeqPrimMnd
{
public:
    using CElementInfoSeqPrimMnd::CElementInfoSeqPrimMnd;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// An optional primitive: a foreign element leaves the position for the next descriptor.
class CSeqPrimOptReader : public CElementInfoSeqPrimOpt
{
public:
    using CElementInfoSeqPrimOpt::CElementInfoSeqPrimOpt;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// A mandatory class child that the owner already holds; a pseudo child reads the
// enclosing element's children from the current position.
class CSeqClsMndReader : public CElementInfoSeqClsMnd
{
public:
    using CElementInfoSeqClsMnd::CElementInfoSeqClsMnd;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

// A repeating child held in a collection of the owner: the collection takes the
// run of elements that belong to it.
class CSeqColReader : public CElementInfoSeqCol
{
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char* parentNamespace, XmlElementType parentType) override;
};

}  // namespace OrvexExamples
