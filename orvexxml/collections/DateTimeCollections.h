// The shared base of the collections of the five XSD kinds that CDateTime holds
// (gYearMonth, gMonthDay, date, dateTime, time), and the one implementation of the
// kind test behind them; the classes themselves are declared in TypedCollections.h.
#pragma once

#include <string>
#include <vector>

#include "orvexxml/collections/XmlTypeCollection.h"
#include "orvexxml/collections/detail/TypedCollection.h"
#include "orvexxml/values/Conversions.h"
#include "orvexxml/values/DateTime.h"

namespace OrvexXmlLib5 {

// The base of the collections of the five CDateTime kinds (CyearMonthCol,
// CmonthDayCol, CdateCol, CdatetimeCol, CtimeCol): each accepts values of its one kind.
class ORVEXXML_API CdatetimeBaseCol : public CXmlTypeCollection
{
public:
    // The container of the items.
    using Items = std::vector<CDateTime>;
    // Iterates the items.
    using iterator = Items::iterator;
    // Iterates the items of a const collection.
    using const_iterator = Items::const_iterator;

    // Copies the items and every base field.
    CdatetimeBaseCol(const CdatetimeBaseCol& other) = default;
    // The same as the copy.
    CdatetimeBaseCol& operator=(const CdatetimeBaseCol& other) = default;
    ~CdatetimeBaseCol() override;

    // Goes through the virtual AddAt, so the kind and the facets are tested.
    virtual void Add(const CDateTime& value);
    // A value of another kind fails first, whatever the index; then the facets,
    // then the index. A failure leaves the collection and its listeners untouched.
    virtual void AddAt(int index, const CDateTime& value) = 0;
    // A copy of the item at index; outside 0 to the count less one fails with
    // COrvexInvalidParamException "Index %d is out of range, use 0 - %d".
    virtual CDateTime Item(int index) const;

    // Removes the item at index and sends one change event; a bad index fails as Item does.
    void Remove(int index) override;
    // Sends no change event.
    void Clear() override;
    // Number of items.
    int GetCount() const override;

    // The first item.
    iterator begin() { return m_items.begin(); }
    // Past the last item.
    iterator end() { return m_items.end(); }
    // The first item of a const collection.
    const_iterator begin() const { return m_items.begin(); }
    // Past the last item of a const collection.
    const_iterator end() const { return m_items.end(); }

protected:
    // itemType is the collection's kind; the rest are the arguments of every typed
    // collection, in order.
    CdatetimeBaseCol(ItemType itemType, ORVEXXML_TYPED_COL_PARAMETERS);

    // The text of one item, as its kind writes it.
    virtual std::string ItemToString(const CDateTime& value) const = 0;

    // Inserts without testing the value; the index must be from 0 to the count.
    void BaseAddAt(int index, const CDateTime& value);
    // The first two steps of AddAt: value must be of kind, then within the facets.
    void CheckItem(const CDateTime& value, CDateTime::DTType kind) const;
    // The count is tested before anything is written.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;

private:
    Items m_items;
};

namespace Detail {

// Kind is the one CDateTime kind the collection takes; FromText its conversion.
template <ItemType Type, CDateTime::DTType Kind, auto FromText>
class TDateCol : public CdatetimeBaseCol
{
public:
    void AddAt(int index, const CDateTime& value) override
    {
        CheckItem(value, Kind);
        BaseAddAt(index, value);
    }

protected:
    explicit TDateCol(ORVEXXML_TYPED_COL_PARAMETERS) : CdatetimeBaseCol(Type, ORVEXXML_TYPED_COL_ARGUMENTS) {}
    TDateCol(const TDateCol& other) = default;
    TDateCol& operator=(const TDateCol& other) = default;

    // The five date forms are one conversion: the kind held by the value decides.
    std::string ItemToString(const CDateTime& value) const override { return CConversions::dateToString(value); }
    void AddFromString(std::string text) override { Add(FromText(text, GetWhitespaceRule())); }
};

}  // namespace Detail

}  // namespace OrvexXmlLib5
