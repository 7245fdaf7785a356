// The base of generated class factories: what the xsi:type attribute of an element
// names, so that a factory can pick the derived class to create.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/Export.h"

namespace OrvexXmlLib5 {

class CXmlElement;

class ORVEXXML_API CClassfactoryBase
{
public:
    CClassfactoryBase() = default;
    CClassfactoryBase(const CClassfactoryBase&) = default;
    CClassfactoryBase& operator=(const CClassfactoryBase&) = default;
    virtual ~CClassfactoryBase() = default;

protected:
    // The local part of the element's xsi:type (behind the first colon); empty when
    // the attribute is absent or element is null.
    static std::string GetElementType(CXmlElement* element);
    // The namespace of that type: the URI of its prefix, or the element's own
    // namespace when the value has no prefix or the document does not know it.
    static std::string GetElementTypeNamespaceUri(CXmlElement* element);
};

}  // namespace OrvexXmlLib5
