#include "orvexxml/collections/Element.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/detail/NestingGuard.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlWriter.h"

namespace OrvexXmlLib5 {

namespace {
const char* Text(const char* s) { return s ? s : ""; }

bool IsWildcardWord(const std::string& text)
{
    return text == "##any" || text == "##other" || text == "##local" || text == "##targetNamespace";
}
}  // namespace

// ---------------------------------------------------------------------------
// CElement

CElement::CElement(const char* name) : CInstanceMonitor("CElement")
{
    Init(name, "", "##any", "");
}

CElement::CElement(const char* name, const char* namespaceUri) : CInstanceMonitor("CElement")
{
    if (IsWildcardWord(Text(namespaceUri)))
        throw COrvexInvalidNamespaceException(FormatString("Invalid Namespace [%s]", namespaceUri));
    Init(name, Text(namespaceUri), Text(namespaceUri), "");
}

CElement::CElement(const char* name, const char* namespaceUri, const char* namespaceRestriction,
                   const char* targetNamespace)
    : CInstanceMonitor("CElement")
{
    Init(name, namespaceUri, namespaceRestriction, targetNamespace);
}

CElement::CElement(CXmlObjectBase* object) : CInstanceMonitor("CElement")
{
    Init("", "", "##any", "");
    if (!object) throw COrvexInvalidParamException("The object to copy may not be NULL");
    CXmlSerializationContext context;
    CBinaryData bytes = object->ToXmlStream(false, false, Encoding_UTF8, EOL_LF, context, Compression_None);
    CXmlDocument document(context.GetSchemaType());
    document.LoadXmlStream(bytes.GetData(), bytes.GetLength());
    CopyXmlElement(document.GetDocumentElement());
}

CElement::CElement(const CElement& other)
    : CXmlObjectBase(other),
      CInstanceMonitor("CElement"),
      m_name(other.m_name),
      m_text(other.m_text),
      m_namespace(other.m_namespace),
      m_namespaceRestriction(other.m_namespaceRestriction),
      m_targetNamespace(other.m_targetNamespace),
      m_attributes(other.m_attributes),
      m_children(other.m_children)
{
}

CElement& CElement::operator=(const CElement& other)
{
    if (this != &other) {
        CXmlObjectBase::operator=(other);
        m_name = other.m_name;
        m_text = other.m_text;
        m_namespace = other.m_namespace;
        m_namespaceRestriction = other.m_namespaceRestriction;
        m_targetNamespace = other.m_targetNamespace;
        m_attributes = other.m_attributes;
        m_children = other.m_children;
    }
    return *this;
}

CElement::~CElement()
{
    // Children first, then the attributes; the strings go with the object.
    m_children = CSmartPtr<CElementCol>();
    m_attributes = CSmartPtr<CAttributeCol>();
}

void CElement::Init(const char* name, const char* namespaceUri, const char* namespaceRestriction,
                    const char* targetNamespace)
{
    if (!name) throw COrvexInvalidNamespaceException("Element Name must have a value");
    if (!namespaceRestriction) throw COrvexInvalidNamespaceException("Namespace Restriction must have a value");
    if (!targetNamespace) throw COrvexInvalidNamespaceException("Target Namespace must have a value");
    // A null namespace is taken as none rather than read through.
    namespaceUri = Text(namespaceUri);
    TestNamespace(namespaceUri, namespaceRestriction, targetNamespace);
    m_name = name;
    m_namespace = namespaceUri;
    m_namespaceRestriction = namespaceRestriction;
    m_targetNamespace = targetNamespace;
    m_attributes = new CAttributeCol(namespaceUri, "##any", targetNamespace);
    m_children = new CElementCol(namespaceUri, "##any", targetNamespace, 0, -1);
}

void CElement::SetName(const char* name)
{
    FireOnChangeName(name);
    m_name = Text(name);
}

void CElement::SetText(const char* text)
{
    FireOnChangeText(text);
    m_text = Text(text);
}

void CElement::SetNamespace(const char* namespaceUri)
{
    FireOnChangeNamespace(namespaceUri);
    m_namespace = Text(namespaceUri);
}

void CElement::FireOnChangeName(const char*) {}
void CElement::FireOnChangeNamespace(const char*) {}
void CElement::FireOnChangeText(const char*) {}

void CElement::CopyXmlElement(CXmlElement* element)
{
    if (!element) return;
    const Detail::CNestingGuard guard;
    m_name = element->GetLocalName();
    m_namespace = element->GetNamespaceURI();
    m_text = element->GetTextView();
    m_attributes->Clear();
    m_children->Clear();
    for (const CXmlAttribute* attribute : element->GetAttributeSpan())
        m_attributes->Add(attribute->GetLocalName().c_str(), attribute->GetValueView().data(),
                          attribute->GetNamespaceURI().c_str());
    for (CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement()) {
        CSmartPtr<CElement> copy(new CElement(child->GetLocalName().c_str()));
        copy->CopyXmlElement(child);
        m_children->Add(copy.Get());
    }
}

void CElement::FromXml(const char* text)
{
    CXmlDocument document(SchemaType_Namespaced);
    document.LoadXml(text);
    CXmlElement* root = document.GetDocumentElement();
    FromXml_Int(root, root, CXmlSerializationContext::GetDefaultContext(), false);
}

void CElement::SetNamespaceRestrictions(const char* namespaceRestriction, const char* targetNamespace)
{
    try {
        TestNamespace(m_namespace.c_str(), namespaceRestriction, targetNamespace);
    } catch (const COrvexException& e) {
        throw COrvexInvalidNamespaceException(FormatString("The namespace %s in the class %s is invalid against restriction %s",
                                                           m_namespace.c_str(), m_name.c_str(), Text(namespaceRestriction)),
                                              e);
    }
    for (CAttribute* attribute : *m_attributes)
        TestNamespace(attribute->GetNamespace().c_str(), namespaceRestriction, targetNamespace);
    for (CElement* child : *m_children) child->SetNamespaceRestrictions(namespaceRestriction, targetNamespace);
}

void CElement::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext& context,
                         bool isOptional) const
{
    const Detail::CNestingGuard guard;
    writer->WriteStartElement(m_name, m_namespace);
    CXmlObjectBase::ToXml_Int(m_attributes.Get(), writer, false, namespaceUri, context, false);
    CXmlObjectBase::ToXml_Int(m_children.Get(), writer, false, namespaceUri, context, isOptional);
    writer->WriteText(m_text);
    writer->WriteEndElement();
}

CXmlElement* CElement::FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext& context,
                                   bool)
{
    // Callers test the position first; a null one has nothing to give.
    if (!firstChild) return nullptr;
    if (!IsNamespaceValid(firstChild->GetNamespaceURI().c_str(), m_namespaceRestriction.c_str(),
                          m_targetNamespace.c_str()))
        return firstChild;
    const Detail::CNestingGuard guard;
    CXmlObjectBase::FromXml_Int(m_attributes.Get(), firstChild, nullptr, context);
    CXmlElement* left = CXmlObjectBase::FromXml_Int(m_children.Get(), firstChild, firstChild->GetFirstElement(), context);
    if (left)
        throw COrvexValidationException(FormatString("Invalid Element [%s] found in element [%s]",
                                                     firstChild->GetLocalName().c_str(), m_name.c_str()));
    m_text = firstChild->GetTextView();
    m_name = firstChild->GetLocalName();
    m_namespace = firstChild->GetNamespaceURI();
    return firstChild->GetNextSiblingElement();
}

// ---------------------------------------------------------------------------
// CElementCol

CElementCol::CElementCol(const char* defaultNamespace, const char* namespaceRestriction, const char* targetNamespace,
                         int, int)
    : CXmlCollection(), CInstanceMonitor("CElementCol")
{
    const std::string restriction = Text(namespaceRestriction);
    TestNamespace(Text(defaultNamespace), restriction.c_str(), Text(targetNamespace));
    const bool wordAsDefault = Text(defaultNamespace)[0] == '\0' && restriction.compare(0, 2, "##") == 0;
    m_defaultNamespace = wordAsDefault ? restriction : std::string(Text(defaultNamespace));
    m_namespaceRestriction = "##any";
    m_targetNamespace = Text(targetNamespace);
}

CSmartPtr<CElement> CElementCol::Add(const char* name, const char* namespaceUri)
{
    TestNamespace(Text(namespaceUri), m_namespaceRestriction.c_str(), m_targetNamespace.c_str());
    CSmartPtr<CElement> element(
        new CElement(name, namespaceUri, m_namespaceRestriction.c_str(), m_targetNamespace.c_str()));
    AppendItem(element.Get());
    FireOnCollectionChange();
    return element;
}

CSmartPtr<CElement> CElementCol::Add(const char* name)
{
    if (m_defaultNamespace.empty())
        throw COrvexInvalidStateException("A Namespace has not been set for this Collection");
    return Add(name, m_defaultNamespace.c_str());
}

CSmartPtr<CElement> CElementCol::Add(CElement* element)
{
    if (!element) throw COrvexInvalidParamException("The element to add may not be NULL");
    TestNamespace(element->m_namespace.c_str(), m_namespaceRestriction.c_str(), m_targetNamespace.c_str());
    AppendItem(element);
    FireOnCollectionChange();
    return CSmartPtr<CElement>(element);
}

void CElementCol::AddAfter(const CElement* existing, CElement* item)
{
    AddAfterItem(existing, item);
}

void CElementCol::AddBefore(const CElement* existing, CElement* item)
{
    AddBeforeItem(existing, item);
}

CSmartPtr<CElement> CElementCol::Item(int index) const
{
    return CSmartPtr<CElement>(dynamic_cast<CElement*>(GetNodeAtIndex(index)->GetItem()));
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri,
                            const CXmlSerializationContext& context, bool) const
{
    ValidateCount(context);
    for (CNode* node = GetHead(); node; node = node->GetNext())
        CXmlObjectBase::ToXml_Int(node->GetItem(), writer, false, namespaceUri, context, false);
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                      const CXmlSerializationContext& context, bool)
{
    CXmlElement* current = firstChild;
    while (current) {
        if (!IsNamespaceValid(current->GetNamespaceURI().c_str(), m_namespaceRestriction.c_str(),
                              m_targetNamespace.c_str()))
            return current;
        CSmartPtr<CElement> item(new CElement(current->GetLocalName().c_str(), current->GetNamespaceURI().c_str(),
                                              m_namespaceRestriction.c_str(), m_targetNamespace.c_str()));
        CXmlElement* next = CXmlObjectBase::FromXml_Int(item.Get(), element, current, context);
        if (next == current) return current;
        Add(item.Get());
        current = next;
    }
    return nullptr;
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(std::string name, std::string namespaceUri, CXmlElement* element,
                                                     CXmlElement* firstChild, const CXmlSerializationContext& context)
{
    CXmlElement* current = firstChild;
    while (current && current->GetLocalName() == name && current->GetNamespaceURI() == namespaceUri) {
        CSmartPtr<CElement> item(new CElement(current->GetLocalName().c_str(), current->GetNamespaceURI().c_str(),
                                              "##any", m_targetNamespace.c_str()));
        CXmlElement* next = CXmlObjectBase::FromXml_Int(item.Get(), element, current, context);
        if (next == current) break;
        Add(item.Get());
        current = next;
    }
    return current;
}

}  // namespace OrvexXmlLib5
