#include "orvexxml/frame/ClassFactoryBase.h"

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5 {

namespace {

const char kSchemaInstance[] = "http://www.w3.org/2001/XMLSchema-instance";

// The value of the element's first xsi:type attribute; empty when it has none.
std::string_view TypeAttribute(const CXmlElement* element)
{
    const CXmlAttribute* type = element->FindAttribute("type", kSchemaInstance);
    return type ? type->GetValueView() : std::string_view();
}

}  // namespace

std::string CClassfactoryBase::GetElementType(CXmlElement* element)
{
    if (!element) return std::string();
    const std::string_view type = TypeAttribute(element);
    const std::size_t colon = type.find(':');
    return std::string(colon == std::string_view::npos ? type : type.substr(colon + 1));
}

std::string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element)
{
    if (!element) return std::string();
    const std::string_view type = TypeAttribute(element);
    const std::size_t colon = type.find(':');
    if (colon == std::string_view::npos) return element->GetNamespaceURI();
    const CXmlDocument* document = element->GetDocument();
    // The prefix table of a document is flat: the last declaration of a prefix decides.
    std::string uri =
        document ? document->LookupNamespaceFromAlias(std::string(type.substr(0, colon)).c_str()) : std::string();
    return uri.empty() ? element->GetNamespaceURI() : uri;
}

}  // namespace OrvexXmlLib5
