// The base of generated class factories: what the xsi:type attribute of an element
// names, so that a factory can pick the derived class to create.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/Export.h"

namespace OrvexXmlLib5 {

class CXmlElement;

// The base of the factories that generated code writes for abstract types and types with
// derived types: it reads the xsi:type of an element so that the factory can pick the class.
class ORVEXXML_API CClassfactoryBase
{
public:
    CClassfactoryBase() = default;
    // Copies nothing: the base holds no state.
    CClassfactoryBase(const CClassfactoryBase&) = default;
    // Assigns nothing: the base holds no state.
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
