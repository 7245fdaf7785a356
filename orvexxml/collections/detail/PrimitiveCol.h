// The one implementation behind every collection of plain values: a vector of the
// value type that FromText gives, tested against the facets on the way in and
// written with ToText on the way out.
#pragma once

#include <string>
#include <vector>

#include "orvexxml/collections/XmlTypeCollection.h"
#include "orvexxml/collections/detail/TypedCollection.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"

namespace OrvexXmlLib5 {
namespace Detail {

// Type is the item's ItemType; FromText and ToText are the CConversions pair of the
// type; Setter is the OrvexVariant setter through which an item reaches the facet test.
template <ItemType Type, auto FromText, auto ToText, auto Setter>
class TPrimitiveCol : public CXmlTypeCollection
{
public:
    using Value = decltype(FromText(std::string(), CWhitespaceUtils::WhitespaceRule()));
    using Argument = TypedColArgument<Value>;
    using Items = std::vector<Value>;
    using iterator = typename Items::iterator;
    using const_iterator = typename Items::const_iterator;

    // Max occurs is not looked at: the count is tested when the collection is written.
    void Add(Argument value) { AddAt(GetCount(), value); }
    // A value outside the facets, or an index outside 0 to the count, fails and
    // leaves the collection and its listeners untouched.
    void AddAt(int index, Argument value)
    {
        CheckInsertIndex(index, GetCount());
        // Every boolean passes the facets, whatever they say.
        if (Type != ItemType_boolean) {
            OrvexVariant variant;
            (variant.*Setter)(value);
            CheckPrimitiveRestriction(GetElementName().c_str(), variant, Type, GetRestrictions());
        }
        m_items.insert(m_items.begin() + index, value);
        FireOnCollectionChange();
    }
    Value Item(int index) const
    {
        CheckItemIndex(index, GetCount());
        return m_items[static_cast<std::size_t>(index)];
    }
    void Remove(int index) override
    {
        CheckItemIndex(index, GetCount());
        m_items.erase(m_items.begin() + index);
        FireOnCollectionChange();
    }
    // Sends no change event.
    void Clear() override { m_items.clear(); }
    int GetCount() const override { return static_cast<int>(m_items.size()); }

    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }

protected:
    explicit TPrimitiveCol(ORVEXXML_TYPED_COL_PARAMETERS)
        : CXmlTypeCollection(Type, ORVEXXML_TYPED_COL_ARGUMENTS)
    {
    }
    TPrimitiveCol(const TPrimitiveCol& other) = default;
    TPrimitiveCol& operator=(const TPrimitiveCol& other) = default;

    void ToXml_Int(CXmlWriter* writer, bool, const char*, const CXmlSerializationContext& context,
                   bool) const override
    {
        // The count is tested before anything is written.
        ValidateCount(context);
        const char* format = GetFormat();
        WriteTypedItems(writer, GetElementName(), GetNamespace(), m_items,
                        [format](const Value& item) { return ItemText(ToText, item, format, 0); });
    }
    void AddFromString(std::string text) override { Add(FromText(text, GetWhitespaceRule())); }

private:
    Items m_items;
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
