#include "orvexxml/frame/ClassFactoryBase.h"

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexXmlLib5 {

namespace {

const char* const kSchemaInstance = "http://www.w3.org/2001/XMLSchema-instance";

}  // namespace

std::string CClassfactoryBase::GetElementType(CXmlElement* element)
{
    if (!element) return std::string();
    const std::string& type = element->GetAttribute("type", kSchemaInstance);
    const std::size_t colon = type.find(':');
    return colon == std::string::npos ? type : type.substr(colon + 1);
}

std::string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element)
{
    if (!element) return std::string();
    const std::string& type = element->GetAttribute("type", kSchemaInstance);
    const std::size_t colon = type.find(':');
    if (colon == std::string::npos) return element->GetNamespaceURI();
    const CXmlDocument* document = element->GetDocument();
    // The prefix table of a document is flat: the last declaration of a prefix decides.
    std::string uri = document ? document->LookupNamespaceFromAlias(type.substr(0, colon).c_str()) : std::string();
    return uri.empty() ? element->GetNamespaceURI() : uri;
}

}  // namespace OrvexXmlLib5
