// A collection of reference-counted objects in a doubly linked list; the base of
// CElementCol, CAttributeCol and the generated object collections.
#pragma once

#include "orvexxml/Export.h"

#include "orvexxml/collections/XmlCollectionBase.h"

namespace OrvexXmlLib5 {

class CXmlCollection;

// One item of a CXmlCollection; holds one reference on the item.
class ORVEXXML_API CNode
{
public:
    // The item; never null.
    CXmlObjectBase* GetItem() const { return m_item; }
    // The next node; null for the last.
    CNode* GetNext() const { return m_next; }
    // The previous node; null for the first.
    CNode* GetPrevious() const { return m_previous; }

private:
    friend class CXmlCollection;
    explicit CNode(CXmlObjectBase* item);
    ~CNode();
    CNode(const CNode&) = delete;
    CNode& operator=(const CNode&) = delete;

    CXmlObjectBase* m_item;
    CNode* m_next;
    CNode* m_previous;
};

// The base of the collections of objects (CElementCol, CAttributeCol and the
// collections of generated classes): a doubly linked list holding one reference
// on each item.
class ORVEXXML_API CXmlCollection : public CXmlCollectionBase
{
public:
    // The copy has a list of its own with one more reference on each item.
    CXmlCollection(const CXmlCollection& other);
    // Releases the old items without change events, then copies as above.
    CXmlCollection& operator=(const CXmlCollection& other);
    // Removes item by item, so listeners hear one event each.
    ~CXmlCollection() override;

    // Number of items.
    int GetCount() const override { return m_count; }
    // Removes item by item through the virtual Remove: one event per item.
    void Clear() override;
    // Fails with COrvexInvalidParamException "Index %d is out of range, use 0 - %d".
    void Remove(int index) override;

protected:
    CXmlCollection();
    // name and namespaceUri are the item elements'; minOccurs and maxOccurs the
    // bounds of the count, -1 for unbounded.
    CXmlCollection(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs);

    // Carries the attributes of pseudo items up to the enclosing start tag.
    void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const override;

    // Each adding operation takes one reference on item and sends one change event.
    void AppendItem(CXmlObjectBase* item);
    // Adds item at the front.
    void PrependItem(CXmlObjectBase* item);
    // A null existing adds at the front; an existing that is not here fails with
    // COrvexInvalidParamException "The object was not found in the collection".
    void AddAfterItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
    // A null existing adds at the end; an unknown existing fails as above.
    void AddBeforeItem(const CXmlObjectBase* existing, CXmlObjectBase* item);
    // index from 0 to the count; outside fails with COrvexInvalidParamException "Index out of range".
    void AddItemAt(int index, CXmlObjectBase* item);
    // Fails with COrvexInvalidParamException "Index %d is out of range, use 0 - %d".
    CNode* GetNodeAtIndex(int index) const;
    // Compares object identity (GetBase()); fails with COrvexInvalidParamException
    // "The object was not found in the collection".
    CNode* GetNodeForItem(const CXmlObjectBase* item) const;
    // Unlinks and frees the node and releases its item; sends no event.
    void RemoveNode(CNode* node);

    // The first node; null when empty.
    CNode* GetHead() const { return m_head; }
    // The last node; null when empty.
    CNode* GetTail() const { return m_tail; }

private:
    // A block of nodes; the nodes follow the header.
    struct NodeChunk
    {
        NodeChunk* next;
        unsigned capacity;
        unsigned used;
    };

    void LinkBefore(CNode* next, CXmlObjectBase* item);
    void CopyNodesFrom(const CXmlCollection& other);
    // A node for item, from the freed nodes or the newest chunk.
    CNode* NewNode(CXmlObjectBase* item);
    // Destroys node (releasing its item) and keeps its room for the next node.
    void FreeNode(CNode* node);
    // Frees every chunk; no node may be in use.
    void FreeChunks();

    CNode* m_head;
    CNode* m_tail;
    int m_count;
    // The nodes live in chunks that the collection owns, which double from one node
    // up to 1024: a large collection costs a few blocks instead of one per item, and
    // its nodes lie side by side. Freed nodes are chained through their next field.
    NodeChunk* m_chunks = nullptr;
    CNode* m_freeNodes = nullptr;
};

}  // namespace OrvexXmlLib5
