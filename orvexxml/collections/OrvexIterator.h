// Forward iterator over the items of a CXmlCollection, typed to the item class.
#pragma once

#include "orvexxml/collections/XmlCollection.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

template <typename T>
class COrvexIterator
{
public:
    explicit COrvexIterator(CNode* node = nullptr) : m_node(node) {}

    // Moving past the end fails with COrvexException "No More Elements in the Collection".
    COrvexIterator& operator++()
    {
        if (!m_node) throw COrvexException("No More Elements in the Collection");
        m_node = m_node->GetNext();
        return *this;
    }
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
    T* operator->() const { return **this; }

    // Equal when both hold the same node, or both hold nodes with the same item; a
    // null node equals only a null node.
    bool operator==(const COrvexIterator& other) const
    {
        if (m_node == other.m_node) return true;
        if (!m_node || !other.m_node) return false;
        return m_node->GetItem() == other.m_node->GetItem();
    }
    bool operator!=(const COrvexIterator& other) const { return !(*this == other); }

    CNode* GetNode() const { return m_node; }

private:
    CNode* m_node;
};

}  // namespace OrvexXmlLib5
