// The way in for the metadata classes to the protected walks of any object; the
// descriptors are not derived from CXmlObjectBase and so cannot reach them otherwise.
#pragma once

#include "orvexxml/collections/Element.h"
#include "orvexxml/frame/XmlObjectBase.h"

namespace OrvexXmlLib5 {
namespace Detail {

class CObjectAccess
{
public:
    static void AttributesToXml(const CXmlObjectBase* object, CXmlWriter* writer,
                                const CXmlSerializationContext& context)
    {
        object->AttributesToXml_Int(writer, context);
    }
    static void ToXml(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                      const CXmlSerializationContext& context, bool isOptional)
    {
        object->ToXml_Int(writer, isRoot, namespaceUri, context, isOptional);
    }
    static CXmlElement* FromXml(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                const CXmlSerializationContext& context, bool isOptional)
    {
        return object->FromXml_Int(element, firstChild, context, isOptional);
    }
    static CXmlElement* FromXmlLockElementName(CElementCol* collection, const std::string& name,
                                               const std::string& namespaceUri, CXmlElement* element,
                                               CXmlElement* firstChild, const CXmlSerializationContext& context)
    {
        return collection->FromXmlLockElementName_Int(name, namespaceUri, element, firstChild, context);
    }
    static std::string ElementName(const CXmlObjectBase* object) { return object->GetElementName(); }
    static void SetElementName(CXmlObjectBase* object, const char* name) { object->SetElementName(name); }
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
