// Root of all collections: the item element name and namespace, the occurrence
// bounds, and the listeners told of each change.
#pragma once

#include "orvexxml/Export.h"

#include <string>
#include <vector>

#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/frame/XmlSerializationContext.h"

namespace OrvexXmlLib5 {

// The root of all collections: the name and namespace of the item elements, the
// bounds of the count, and the listeners told of each change.
class ORVEXXML_API CXmlCollectionBase : public CXmlObjectBase
{
public:
    // Copies name, namespace, bounds and listeners.
    CXmlCollectionBase(const CXmlCollectionBase& other) = default;
    // Copies name, namespace, bounds and listeners; the items are the derived class's.
    CXmlCollectionBase& operator=(const CXmlCollectionBase& other) = default;
    ~CXmlCollectionBase() override = default;

    CXmlObjectBase* GetBase() override { return this; }
    // Always fails: a collection has no element of its own to be a root.
    std::string GetTargetNamespace() const override;
    // The namespace of the item elements.
    std::string GetNamespace() const override { return m_namespace; }

    // Number of items.
    virtual int GetCount() const = 0;
    // Removes every item.
    virtual void Clear() = 0;
    // Removes the item at index.
    virtual void Remove(int index) = 0;
    // Fails with COrvexValidationException when the count is above max occurs
    // (tested first) or below min occurs, unless the context ignores collection counts.
    virtual void ValidateCount(const CXmlSerializationContext& context) const;

    // The least count.
    int GetMinOccurs() const { return m_minOccurs; }
    // -1 means no limit.
    int GetMaxOccurs() const { return m_maxOccurs; }

    // No reference is held; a listener added twice hears each change twice.
    void AddEventListener(CXmlObjectBase* listener);
    // Removes every occurrence of listener; an unknown one changes nothing.
    void RemoveEventListener(CXmlObjectBase* listener);

protected:
    CXmlCollectionBase();
    // name and namespaceUri are the item elements'; minOccurs and maxOccurs the
    // bounds of the count, -1 for unbounded.
    CXmlCollectionBase(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs);

    // Tells every listener, in the order they were added.
    void FireOnCollectionChange();

private:
    std::string m_namespace;
    std::vector<CXmlObjectBase*> m_listeners;
    int m_minOccurs;
    int m_maxOccurs;
};

}  // namespace OrvexXmlLib5
