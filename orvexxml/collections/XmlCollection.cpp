#include "orvexxml/collections/XmlCollection.h"

#include <new>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

CNode::CNode(CXmlObjectBase* item) : m_item(item), m_next(nullptr), m_previous(nullptr)
{
    if (m_item) m_item->AddRef();
}

CNode::~CNode()
{
    if (m_item) m_item->Release();
}

CXmlCollection::CXmlCollection() : m_head(nullptr), m_tail(nullptr), m_count(0) {}

CXmlCollection::CXmlCollection(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs)
    : CXmlCollectionBase(name, namespaceUri, minOccurs, maxOccurs), m_head(nullptr), m_tail(nullptr), m_count(0)
{
}

CXmlCollection::CXmlCollection(const CXmlCollection& other)
    : CXmlCollectionBase(other), m_head(nullptr), m_tail(nullptr), m_count(0)
{
    CopyNodesFrom(other);
}

CXmlCollection& CXmlCollection::operator=(const CXmlCollection& other)
{
    if (this == &other) return *this;
    // The old nodes go only after the new ones hold their references, so that an
    // item held by both lists never drops to a count of zero in between.
    CNode* oldHead = m_head;
    m_head = m_tail = nullptr;
    m_count = 0;
    CopyNodesFrom(other);
    while (oldHead) {
        CNode* next = oldHead->m_next;
        FreeNode(oldHead);
        oldHead = next;
    }
    CXmlCollectionBase::operator=(other);
    return *this;
}

CXmlCollection::~CXmlCollection()
{
    while (m_count > 0) CXmlCollection::Remove(0);
    FreeChunks();
}

CNode* CXmlCollection::NewNode(CXmlObjectBase* item)
{
    void* room;
    if (m_freeNodes) {
        room = m_freeNodes;
        m_freeNodes = m_freeNodes->m_next;
    } else {
        if (!m_chunks || m_chunks->used == m_chunks->capacity) {
            const unsigned capacity = m_chunks ? (m_chunks->capacity < 1024 ? 2 * m_chunks->capacity : 1024) : 1;
            auto* chunk = static_cast<NodeChunk*>(::operator new(sizeof(NodeChunk) + capacity * sizeof(CNode)));
            *chunk = NodeChunk{m_chunks, capacity, 0};
            m_chunks = chunk;
        }
        room = reinterpret_cast<unsigned char*>(m_chunks + 1) + m_chunks->used++ * sizeof(CNode);
    }
    return new (room) CNode(item);
}

void CXmlCollection::FreeNode(CNode* node)
{
    node->~CNode();
    // The room is reused as an empty node that links the free ones.
    CNode* freed = new (node) CNode(nullptr);
    freed->m_next = m_freeNodes;
    m_freeNodes = freed;
}

void CXmlCollection::FreeChunks()
{
    while (m_chunks) {
        NodeChunk* next = m_chunks->next;
        ::operator delete(m_chunks);
        m_chunks = next;
    }
    m_freeNodes = nullptr;
}

void CXmlCollection::CopyNodesFrom(const CXmlCollection& other)
{
    for (CNode* node = other.m_head; node; node = node->m_next) LinkBefore(nullptr, node->m_item);
}

void CXmlCollection::Clear()
{
    while (GetCount() > 0) Remove(0);
}

void CXmlCollection::Remove(int index)
{
    RemoveNode(GetNodeAtIndex(index));
    FireOnCollectionChange();
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const
{
    for (CNode* node = m_head; node; node = node->m_next)
        CXmlObjectBase::AttributesToXml_Int(node->m_item->GetBase(), writer, context);
}

void CXmlCollection::LinkBefore(CNode* next, CXmlObjectBase* item)
{
    // Every walk over the items reaches through them, so a hole is refused here.
    if (!item) throw COrvexInvalidParamException("A null item can not be added to the collection");
    CNode* node = NewNode(item);
    node->m_next = next;
    node->m_previous = next ? next->m_previous : m_tail;
    if (node->m_previous)
        node->m_previous->m_next = node;
    else
        m_head = node;
    if (next)
        next->m_previous = node;
    else
        m_tail = node;
    ++m_count;
}

void CXmlCollection::AppendItem(CXmlObjectBase* item)
{
    LinkBefore(nullptr, item);
    FireOnCollectionChange();
}

void CXmlCollection::PrependItem(CXmlObjectBase* item)
{
    LinkBefore(m_head, item);
    FireOnCollectionChange();
}

void CXmlCollection::AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item)
{
    if (!existing) {
        PrependItem(item);
        return;
    }
    LinkBefore(GetNodeForItem(existing)->m_next, item);
    FireOnCollectionChange();
}

void CXmlCollection::AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item)
{
    if (!existing) {
        AppendItem(item);
        return;
    }
    LinkBefore(GetNodeForItem(existing), item);
    FireOnCollectionChange();
}

void CXmlCollection::AddItemAt(int index, CXmlObjectBase* item)
{
    if (index < 0 || index > m_count) throw COrvexInvalidParamException("Index out of range");
    if (index == m_count) {
        AppendItem(item);
        return;
    }
    LinkBefore(GetNodeAtIndex(index), item);
    FireOnCollectionChange();
}

CNode* CXmlCollection::GetNodeAtIndex(int index) const
{
    if (index < 0 || index >= m_count)
        throw COrvexInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", index, m_count - 1));
    CNode* node = m_head;
    for (int i = 0; i < index; ++i) node = node->m_next;
    return node;
}

CNode* CXmlCollection::GetNodeForItem(const CXmlObjectBase* item) const
{
    const CXmlObjectBase* wanted = item ? item->GetBase() : nullptr;
    for (CNode* node = m_head; node; node = node->m_next) {
        const CXmlObjectBase* held = node->m_item ? node->m_item->GetBase() : nullptr;
        if (held == wanted) return node;
    }
    throw COrvexInvalidParamException("The object was not found in the collection");
}

void CXmlCollection::RemoveNode(CNode* node)
{
    if (node->m_previous)
        node->m_previous->m_next = node->m_next;
    else
        m_head = node->m_next;
    if (node->m_next)
        node->m_next->m_previous = node->m_previous;
    else
        m_tail = node->m_previous;
    --m_count;
    FreeNode(node);
}

}  // namespace OrvexXmlLib5
