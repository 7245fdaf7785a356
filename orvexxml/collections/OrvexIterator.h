// Forward iterator over the items of a CXmlCollection, typed to the item class.
#pragma once

#include "orvexxml/collections/XmlCollection.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

// A forward iterator over the items of a CXmlCollection, giving each as T*.
template <typename T>
class COrvexIterator
{
public:
    // An iterator at node; null is the end.
    explicit COrvexIterator(CNode* node = nullptr) : m_node(node) {}

    // Moving past the end fails with COrvexException "No More Elements in the Collection".
    COrvexIterator& operator++()
    {
        if (!m_node) throw COrvexException("No More Elements in the Collection");
        m_node = m_node->GetNext();
        return *this;
    }
    // Moves on and gives the iterator as it was; fails at the end as ++ does.
    COrvexIterator operator++(int)
    {
        COrvexIterator old(*this);
        ++*this;
        return old;
    }

    // The item as T*, null when it is of another class; at the end it fails as ++ does.
    T* operator*() const
    {
        if (!m_node) throw COrvexException("No More Elements in the Collection");
        return dynamic_cast<T*>(m_node->GetItem());
    }
    // The item as T*, as operator* gives it.
    T* operator->() const { return **this; }

    // Equal when both hold the same node, or both hold nodes with the same item; a
    // null node equals only a null node.
    bool operator==(const COrvexIterator& other) const
    {
        if (m_node == other.m_node) return true;
        if (!m_node || !other.m_node) return false;
        return m_node->GetItem() == other.m_node->GetItem();
    }
    // The negation of operator==.
    bool operator!=(const COrvexIterator& other) const { return !(*this == other); }

    // The node the iterator stands on; null at the end.
    CNode* GetNode() const { return m_node; }

private:
    CNode* m_node;
};

}  // namespace OrvexXmlLib5
