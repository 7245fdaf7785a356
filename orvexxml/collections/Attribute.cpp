#include "orvexxml/collections/Attribute.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlWriter.h"

namespace OrvexXmlLib5 {

namespace {
const char* Text(const char* s) { return s ? s : ""; }
}  // namespace

CAttribute::CAttribute(const char* name, const char* value, const char* namespaceUri)
    : CInstanceMonitor("CAttribute"), m_name(Text(name)), m_value(Text(value)), m_namespace(Text(namespaceUri))
{
}

CAttribute::CAttribute(const CAttribute& other)
    : CXmlObjectBase(other),
      CInstanceMonitor("CAttribute"),
      m_name(other.m_name),
      m_value(other.m_value),
      m_namespace(other.m_namespace)
{
}

CAttribute& CAttribute::operator=(const CAttribute& other)
{
    CXmlObjectBase::operator=(other);
    m_name = other.m_name;
    m_value = other.m_value;
    m_namespace = other.m_namespace;
    return *this;
}

void CAttribute::SetName(const char* name)
{
    FireOnChangeName(name);
    m_name = Text(name);
}

void CAttribute::SetNamespace(const char* namespaceUri)
{
    FireOnChangeNamespace(namespaceUri);
    m_namespace = Text(namespaceUri);
}

void CAttribute::SetValue(const char* value) { m_value = Text(value); }

void CAttribute::FireOnChangeName(const char*) {}
void CAttribute::FireOnChangeNamespace(const char*) {}

void CAttribute::ToXml_Int(CXmlWriter* writer, bool, const char*, const CXmlSerializationContext&, bool) const
{
    writer->WriteAttribute(m_name, m_namespace, m_value);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, const CXmlSerializationContext&, bool)
{
    throw COrvexException("This should be done by the collection");
}

namespace {
std::string DefaultNamespaceFor(const char* defaultNamespace, const char* namespaceRestriction)
{
    const std::string given = Text(defaultNamespace);
    if (!given.empty()) return given;
    const std::string restriction = Text(namespaceRestriction);
    const std::string token = restriction.substr(0, restriction.find(' '));
    if (token.size() >= 2 && token[0] != '#' && token[1] != '#') return token;
    return given;
}
}  // namespace

CAttributeCol::CAttributeCol(const char* defaultNamespace, const char* namespaceRestriction,
                             const char* targetNamespace)
    : CXmlCollection(nullptr, DefaultNamespaceFor(defaultNamespace, namespaceRestriction).c_str(), 0, -1),
      CInstanceMonitor("CAttributeCol"),
      m_namespaceRestriction(Text(namespaceRestriction)),
      m_targetNamespace(Text(targetNamespace))
{
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char* name, const char* value, const char* namespaceUri)
{
    TestNamespace(Text(namespaceUri), m_namespaceRestriction.c_str(), m_targetNamespace.c_str());
    CSmartPtr<CAttribute> attribute(new CAttribute(name, value, namespaceUri));
    AppendItem(attribute);
    return attribute;
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char* name, const char* value)
{
    return Add(name, value, GetNamespace().c_str());
}

CSmartPtr<CAttribute> CAttributeCol::Add(const char* name) { return Add(name, ""); }

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* attribute)
{
    CSmartPtr<CAttribute> held(attribute);
    AppendItem(attribute);
    return held;
}

void CAttributeCol::AddAfter(const CAttribute* existing, CAttribute* item) { AddAfterItem(existing, item); }

void CAttributeCol::AddBefore(const CAttribute* existing, CAttribute* item) { AddBeforeItem(existing, item); }

CSmartPtr<CAttribute> CAttributeCol::Item(int index) const
{
    return CSmartPtr<CAttribute>(dynamic_cast<CAttribute*>(GetNodeAtIndex(index)->GetItem()));
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri,
                              const CXmlSerializationContext& context, bool) const
{
    for (CNode* node = GetHead(); node; node = node->GetNext())
        CXmlObjectBase::ToXml_Int(node->GetItem(), writer, false, namespaceUri, context, false);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                        const CXmlSerializationContext&, bool)
{
    if (!element) return firstChild;
    for (const CXmlAttribute* attribute : element->GetAttributeSpan()) {
        if (!IsNamespaceValid(attribute->GetNamespaceURI().c_str(), m_namespaceRestriction.c_str(),
                              m_targetNamespace.c_str()))
            throw COrvexInvalidNamespaceException(
                FormatString("Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                             attribute->GetLocalName().c_str()));
        Add(attribute->GetLocalName().c_str(), attribute->GetValueView().data(), attribute->GetNamespaceURI().c_str());
    }
    return firstChild;
}

}  // namespace OrvexXmlLib5
