#include "examples/echo/EchoNode.h"

using namespace OrvexXmlLib5;

namespace OrvexExamples {

void CEchoNode::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext& context,
                          bool) const
{
    writer->WriteStartElement(Name(), namespaceUri);
    for (const Attribute& a : attributes) writer->WriteAttribute(a.name, a.ns, a.value);
    for (const auto& child : children) child->ToXml_Int(writer, false, child->ns.c_str(), context, false);
    writer->WriteText(text);
    writer->WriteEndElement();
}

CXmlElement* CEchoNode::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                    const CXmlSerializationContext& context, bool)
{
    SetElementName(element->GetLocalName().c_str());
    ns = element->GetNamespaceURI();
    // Indentation between child elements is layout, not content.
    text = element->GetText();
    if (text.find_first_not_of(" \t\r\n") == std::string::npos) text.clear();
    attributes.clear();
    for (const CXmlAttribute* a : element->GetAttributes())
        if (!a->IsNamespaceAttribute()) attributes.push_back({a->GetLocalName(), a->GetNamespaceURI(), a->GetValue()});
    children.clear();
    for (CXmlElement* child = firstChild; child; child = child->GetNextSiblingElement()) {
        children.push_back(std::make_unique<CEchoNode>());
        children.back()->FromXml_Int(child, child->GetFirstElement(), context, false);
    }
    return element->GetNextSiblingElement();
}

}  // namespace OrvexExamples
