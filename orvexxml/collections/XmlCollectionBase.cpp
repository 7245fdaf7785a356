#include "orvexxml/collections/XmlCollectionBase.h"

#include <algorithm>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

void CXmlObjectBase::FireOnCollectionChangeEvent(CXmlObjectBase* listener, CXmlCollectionBase* collection)
{
    listener->OnEvent(collection->GetBase(), MsgType_CollectionChange, nullptr);
}

CXmlCollectionBase::CXmlCollectionBase() : m_minOccurs(0), m_maxOccurs(-1) {}

CXmlCollectionBase::CXmlCollectionBase(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs)
    : m_namespace(namespaceUri ? namespaceUri : ""), m_minOccurs(minOccurs), m_maxOccurs(maxOccurs)
{
    SetElementName(name);
}

std::string CXmlCollectionBase::GetTargetNamespace() const
{
    throw COrvexException(
        "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program logic error)");
}

void CXmlCollectionBase::ValidateCount(const CXmlSerializationContext& context) const
{
    if (context.GetIgnoreInvalidCollectionCounts()) return;
    const int count = GetCount();
    if (m_maxOccurs != -1 && count > m_maxOccurs)
        throw COrvexValidationException(FormatString("The Maximum number of [%s] elements allowed in this collection is %d",
                                                     ElementNameRef().c_str(), m_maxOccurs));
    if (count < m_minOccurs)
        throw COrvexValidationException(FormatString("The Minimum number of [%s] elements allowed in this collection is %d",
                                                     ElementNameRef().c_str(), m_minOccurs));
}

void CXmlCollectionBase::AddEventListener(CXmlObjectBase* listener) { m_listeners.push_back(listener); }

void CXmlCollectionBase::RemoveEventListener(CXmlObjectBase* listener)
{
    m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), listener), m_listeners.end());
}

void CXmlCollectionBase::FireOnCollectionChange()
{
    // Indexed, so that a listener that adds another listener while being told does
    // not invalidate the walk.
    for (std::size_t i = 0; i < m_listeners.size(); ++i) FireOnCollectionChangeEvent(m_listeners[i], this);
}

}  // namespace OrvexXmlLib5

// The collection kind of the variant lives with the collections, which it needs
// complete. The collection is held through its object part, as an object is.
namespace OrvexXmlLib5 {

void OrvexVariant::SetXmlCollection(CXmlCollectionBase* collection)
{
    // The reference is taken first: setting the collection the variant already
    // holds must not destroy it on the way.
    CXmlObjectBase* object = collection ? collection->GetBase() : nullptr;
    if (object) object->AddRef();
    Clear();
    m_type = ItemType_XmlCollection;
    m_value.object = object;
}

CSmartPtr<CXmlCollectionBase> OrvexVariant::GetXmlCollection() const
{
    // A variant of a plain kind holds no pointer to look through.
    if (m_type != ItemType_XmlCollection && m_type != ItemType_XmlObject) return CSmartPtr<CXmlCollectionBase>();
    return CSmartPtr<CXmlCollectionBase>(dynamic_cast<CXmlCollectionBase*>(m_value.object));
}

}  // namespace OrvexXmlLib5
