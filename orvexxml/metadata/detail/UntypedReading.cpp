#include "orvexxml/metadata/detail/UntypedReading.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/detail/ObjectAccess.h"
#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5Data {
namespace Detail {

namespace {
const char* const kWildcard = "AnyElement";
}

bool UntypedNameMatches(const std::string& name, const CXmlElement* element)
{
    return element && (name == kWildcard || element->GetLocalName() == name);
}

CSmartPtr<CElement> ReadOptionalUntyped(const std::string& name, const std::string& defaultNamespace,
                                        const std::string& namespaceConstraint, const std::string& targetNamespace,
                                        CXmlElement* parent, CXmlElement* current,
                                        const CXmlSerializationContext& context, CXmlElement*& next)
{
    CSmartPtr<CElement> element(new CElement(name.c_str(), defaultNamespace.c_str(), namespaceConstraint.c_str(),
                                             targetNamespace.c_str()));
    next = current;
    if (UntypedNameMatches(name, current))
        next = OrvexXmlLib5::Detail::CObjectAccess::FromXml(element.Get(), parent, current, context, false);
    return element;
}

CXmlElement* ReadUntypedRun(const std::string& name, CXmlCollectionBase* collection, CXmlElement* parent,
                            CXmlElement* current, const CXmlSerializationContext& context)
{
    if (name == kWildcard)
        return OrvexXmlLib5::Detail::CObjectAccess::FromXml(collection->GetBase(), parent, current, context, false);
    // The namespace comes from the element at the position; at the end of the
    // children there is none, and nothing is read.
    if (!current) return current;
    CElementCol* elements = dynamic_cast<CElementCol*>(collection);
    if (!elements)
        throw COrvexException(FormatString(
            "Serialization Data Error : The property for the element [%s] holds no element collection", name.c_str()));
    return OrvexXmlLib5::Detail::CObjectAccess::FromXmlLockElementName(elements, name, current->GetNamespaceURI(),
                                                                     parent, current, context);
}

}  // namespace Detail
}  // namespace OrvexXmlLib5Data
