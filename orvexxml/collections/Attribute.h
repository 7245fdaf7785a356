// Attributes held as plain data: CAttribute is one name, value and namespace;
// CAttributeCol holds xs:anyAttribute content, the attributes of an untyped element
// and the additional root attributes of a context.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/collections/OrvexIterator.h"
#include "orvexxml/collections/XmlCollection.h"
#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/frame/SmartPtr.h"

namespace OrvexXmlLib5 {

class CAttributeCol;

// One attribute held by a CAttributeCol (xs:anyAttribute): a name, a namespace and a
// text value.
class ORVEXXML_API CAttribute : public CXmlObjectBase, public CInstanceMonitor
{
public:
    // Copies name, value and namespace; the copy starts with no references of its own.
    CAttribute(const CAttribute& other);
    // Copies name, value and namespace; the reference count stays with the object.
    CAttribute& operator=(const CAttribute& other);
    ~CAttribute() override = default;

    CXmlObjectBase* GetBase() override { return this; }
    // Both give the attribute's namespace; empty for none.
    std::string GetTargetNamespace() const override { return m_namespace; }
    std::string GetNamespace() const override { return m_namespace; }

    // The local name.
    std::string GetName() const { return m_name; }
    // The value as text.
    std::string GetValue() const { return m_value; }
    // Nothing is tested, and no collection that holds the attribute is told.
    void SetName(const char* name);
    // Replaces the namespace; empty for none.
    void SetNamespace(const char* namespaceUri);
    // Replaces the value.
    void SetValue(const char* value);

protected:
    friend class CAttributeCol;
    // Made by CAttributeCol::Add; null texts count as empty.
    CAttribute(const char* name, const char* value, const char* namespaceUri);

    // Hooks called with the new value before it is stored; they do nothing here.
    virtual void FireOnChangeName(const char* name);
    // Called with the new namespace.
    virtual void FireOnChangeNamespace(const char* namespaceUri);

    // Writes the one attribute; the other arguments are not looked at.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    // Always fails with COrvexException "This should be done by the collection".
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;

private:
    std::string m_name;
    std::string m_value;
    std::string m_namespace;
};

// The attributes of an xs:anyAttribute wildcard, in order, each admitted by the
// namespace restriction.
class ORVEXXML_API CAttributeCol : public CXmlCollection, public CInstanceMonitor
{
public:
    // defaultNamespace empty and a restriction whose first token is a URI (two bytes
    // or more, no '#' in its first two) makes that URI the default. Nothing is tested.
    CAttributeCol(const char* defaultNamespace, const char* namespaceRestriction, const char* targetNamespace);
    // Shares the attribute objects with other.
    CAttributeCol(const CAttributeCol& other) = default;
    // Shares the attribute objects of other, releasing its own.
    CAttributeCol& operator=(const CAttributeCol& other) = default;
    ~CAttributeCol() override = default;

    // Both give the default namespace of the collection.
    std::string GetTargetNamespace() const override { return GetNamespace(); }

    // Fails with COrvexInvalidNamespaceException when namespaceUri is outside the
    // restriction; nothing is added then.
    CSmartPtr<CAttribute> Add(const char* name, const char* value, const char* namespaceUri);
    // In the default namespace, tested like the above.
    CSmartPtr<CAttribute> Add(const char* name, const char* value);
    // With an empty value, in the default namespace.
    CSmartPtr<CAttribute> Add(const char* name);
    // No namespace test. A null attribute fails with COrvexInvalidParamException.
    CSmartPtr<CAttribute> Add(CAttribute* attribute);
    // Inserts item after existing; a null existing adds at the front, an existing that
    // is not here fails with COrvexInvalidParamException. No namespace test.
    void AddAfter(const CAttribute* existing, CAttribute* item);
    // Inserts item before existing; a null existing adds at the end, otherwise as AddAfter.
    void AddBefore(const CAttribute* existing, CAttribute* item);
    // Fails with COrvexInvalidParamException "Index %d is out of range, use 0 - %d".
    CSmartPtr<CAttribute> Item(int index) const;

    // An iterator at the first attribute.
    COrvexIterator<CAttribute> begin() const { return COrvexIterator<CAttribute>(GetHead()); }
    // The iterator past the last attribute.
    COrvexIterator<CAttribute> end() const { return COrvexIterator<CAttribute>(nullptr); }

    // The namespace restriction: URIs and the words `##any`, `##other`, `##local` and
    // `##targetNamespace`, separated by blanks.
    std::string GetNamespaceRestriction() const { return m_namespaceRestriction; }
    // The target namespace that `##targetNamespace` and `##other` refer to.
    std::string GetRestrictionTargetNamespace() const { return m_targetNamespace; }

protected:
    // Writes every attribute in order; the count is not tested.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    // Adds every attribute of element, the XML Schema instance ones included, to
    // those already here; one outside the restriction fails with
    // COrvexInvalidNamespaceException and the ones in front of it stay. Gives back firstChild.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;

private:
    std::string m_namespaceRestriction;
    std::string m_targetNamespace;
};

}  // namespace OrvexXmlLib5
