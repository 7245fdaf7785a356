// Elements held as plain data, for content no generated class describes: what an
// xs:any wildcard admits, or any document read or built without a schema.
// CElement is one element with its name, namespace, text, attributes and child
// elements; CElementCol is a run of them.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/collections/Attribute.h"
#include "orvexxml/collections/OrvexIterator.h"
#include "orvexxml/collections/XmlCollection.h"
#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/frame/XmlObjectBase.h"

namespace OrvexXmlLib5 {

class CElementCol;

// One element. Its namespace must be admitted by its namespace restriction (a
// blank-separated list of URIs and the words `##any`, `##other`, `##local`,
// `##targetNamespace`); a read skips an element outside it. Children are written
// before the text, since the text of an element is kept as one string.
class ORVEXXML_API CElement : public CXmlObjectBase, public CInstanceMonitor
{
public:
    // No namespace, any namespace admitted.
    explicit CElement(const char* name);
    // namespaceUri is the namespace and the only one admitted; a wildcard word there
    // fails with COrvexInvalidNamespaceException "Invalid Namespace [%s]".
    CElement(const char* name, const char* namespaceUri);
    // A null name, restriction or target namespace fails with COrvexInvalidNamespaceException;
    // a namespace outside the restriction fails as TestNamespace says.
    CElement(const char* name, const char* namespaceUri, const char* namespaceRestriction,
             const char* targetNamespace);
    // An untyped copy of what object writes as XML.
    explicit CElement(CXmlObjectBase* object);
    // Copies the strings; the attributes and child elements are shared with other.
    CElement(const CElement& other);
    // Copies the strings and shares the attributes and child elements of other.
    CElement& operator=(const CElement& other);
    ~CElement() override;

    CXmlObjectBase* GetBase() override { return this; }
    // Both give the element's namespace.
    std::string GetTargetNamespace() const override { return m_namespace; }
    std::string GetNamespace() const override { return m_namespace; }

    // The local name.
    std::string GetName() const { return m_name; }
    // The element's own text.
    std::string GetText() const { return m_text; }
    // The setters store what they are given, with no test.
    void SetName(const char* name);
    // Replaces the text.
    void SetText(const char* text);
    // Replaces the namespace.
    void SetNamespace(const char* namespaceUri);
    // The attributes; never null for an element that was built.
    CSmartPtr<CAttributeCol> GetAttributes() const { return m_attributes; }
    // The child elements; never null for an element that was built.
    CSmartPtr<CElementCol> GetChildElements() const { return m_children; }

    // Parses text and makes its document element this element; a document element
    // outside the restriction leaves the element as it was.
    // It hides the inherited overloads, which would take the document element's first
    // child as this element; they stay reachable through CXmlObjectBase.
    void FromXml(const char* text);
    // Tests the whole tree against another restriction, depth first, and stores
    // nothing. The first namespace outside it fails with COrvexInvalidNamespaceException.
    void SetNamespaceRestrictions(const char* namespaceRestriction, const char* targetNamespace);

protected:
    // Sets the names and makes empty attribute and child collections. A null name,
    // restriction or target namespace fails with COrvexInvalidNamespaceException; a
    // namespace outside the restriction fails as TestNamespace says.
    void Init(const char* name, const char* namespaceUri, const char* namespaceRestriction,
              const char* targetNamespace);
    // Makes this element a copy of element and everything below it.
    void CopyXmlElement(CXmlElement* element);
    // Hooks called with the new value before a setter stores it; they do nothing here.
    virtual void FireOnChangeName(const char* name);
    // Called with the new namespace.
    virtual void FireOnChangeNamespace(const char* namespaceUri);
    // Called with the new text.
    virtual void FireOnChangeText(const char* text);

    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    // firstChild is the element to take as this one; it must not be null.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;

private:
    friend class CElementCol;

    std::string m_name;
    std::string m_text;
    std::string m_namespace;
    std::string m_namespaceRestriction;
    std::string m_targetNamespace;
    CSmartPtr<CAttributeCol> m_attributes;
    CSmartPtr<CElementCol> m_children;
};

// A run of untyped elements. It admits every namespace ("##any") whatever its
// constructor was given, which serves only to find the default namespace.
class ORVEXXML_API CElementCol : public CXmlCollection, public CInstanceMonitor
{
public:
    // The two integers are accepted for the generated code's sake; the bounds stay 0 and unbounded.
    CElementCol(const char* defaultNamespace, const char* namespaceRestriction, const char* targetNamespace, int,
                int);
    // Shares the element objects with other.
    CElementCol(const CElementCol& other) = default;
    // Shares the element objects of other, releasing its own.
    CElementCol& operator=(const CElementCol& other) = default;
    ~CElementCol() override = default;

    std::string GetNamespace() const override { return m_targetNamespace; }
    std::string GetTargetNamespace() const override { return m_targetNamespace; }

    // A new element appended; listeners hear two change events for it.
    CSmartPtr<CElement> Add(const char* name, const char* namespaceUri);
    // In the default namespace; with none set fails with COrvexInvalidStateException.
    CSmartPtr<CElement> Add(const char* name);
    // Appends element, which must not be null.
    CSmartPtr<CElement> Add(CElement* element);
    // No namespace test; a null existing adds at the front (AddAfter) or the end (AddBefore).
    void AddAfter(const CElement* existing, CElement* item);
    // Inserts item before existing; see AddAfter.
    void AddBefore(const CElement* existing, CElement* item);
    // Fails with COrvexInvalidParamException "Index %d is out of range, use 0 - %d".
    CSmartPtr<CElement> Item(int index) const;
    // An iterator at the first element.
    COrvexIterator<CElement> begin() const { return COrvexIterator<CElement>(GetHead()); }
    // The iterator past the last element.
    COrvexIterator<CElement> end() const { return COrvexIterator<CElement>(); }

protected:
    // Tests the count, then writes each element.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    // Reads the run of siblings from firstChild on, whatever their names; gives the first one not taken.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;
    // Reads the run of siblings named name in namespaceUri from firstChild on; gives the first one not taken.
    virtual CXmlElement* FromXmlLockElementName_Int(std::string name, std::string namespaceUri, CXmlElement* element,
                                                    CXmlElement* firstChild, const CXmlSerializationContext& context);

private:
    friend class CElement;
    friend class Detail::CObjectAccess;

    std::string m_namespaceRestriction;
    std::string m_defaultNamespace;
    std::string m_targetNamespace;
};

}  // namespace OrvexXmlLib5
