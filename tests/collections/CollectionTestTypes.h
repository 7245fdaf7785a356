// Small concrete classes for the collection tests: a counted item, a collection
// that opens the protected list operations, and a listener that counts events.
#pragma once

#include <string>
#include <vector>

#include "orvexxml/collections/OrvexIterator.h"
#include "orvexxml/collections/XmlCollection.h"
#include "orvexxml/xml/XmlWriter.h"

namespace OrvexTest {

using namespace OrvexXmlLib5;

class CItem : public CXmlObjectBase
{
public:
    explicit CItem(std::string tag) : m_tag(std::move(tag)) { ++s_live; }
    ~CItem() override { --s_live; }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }
    const std::string& Tag() const { return m_tag; }
    // References held by others, read without changing them.
    int Count()
    {
        const int count = AddRef();
        Release();
        return count - 1;
    }
    static int s_live;

protected:
    void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext&) const override
    {
        writer->WriteAttribute(m_tag, "", "1");
    }
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext&, bool) override
    {
        return firstChild;
    }

private:
    std::string m_tag;
};

class CItemCol : public CXmlCollection
{
public:
    CItemCol() = default;
    CItemCol(const char* name, int minOccurs, int maxOccurs) : CXmlCollection(name, "urn:c", minOccurs, maxOccurs) {}
    using CXmlCollection::AddAfterItem;
    using CXmlCollection::AddBeforeItem;
    using CXmlCollection::AddItemAt;
    using CXmlCollection::AppendItem;
    using CXmlCollection::AttributesToXml_Int;
    using CXmlCollection::GetNodeAtIndex;
    using CXmlCollection::GetNodeForItem;
    using CXmlCollection::PrependItem;
    using CXmlCollection::RemoveNode;

    COrvexIterator<CItem> begin() const { return COrvexIterator<CItem>(GetHead()); }
    COrvexIterator<CItem> end() const { return COrvexIterator<CItem>(); }
    // The tags of the items in list order, joined.
    std::string Tags() const
    {
        std::string tags;
        for (COrvexIterator<CItem> it = begin(); it != end(); ++it) tags += (*it)->Tag();
        return tags;
    }

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext&, bool) override
    {
        return firstChild;
    }
};

class CListener : public CXmlObjectBase
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }
    std::vector<CXmlObjectBase*> sources;

protected:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
    {
        if (type == MsgType_CollectionChange && data == nullptr) sources.push_back(source);
    }
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext&, bool) override
    {
        return firstChild;
    }
};

}  // namespace OrvexTest
