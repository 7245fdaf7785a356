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

class ORVEXXML_API CdatetimeBaseCol : public CXmlTypeCollection
{
public:
    using Items = std::vector<CDateTime>;
    using iterator = Items::iterator;
    using const_iterator = Items::const_iterator;

    CdatetimeBaseCol(const CdatetimeBaseCol& other) = default;
    CdatetimeBaseCol& operator=(const CdatetimeBaseCol& other) = default;
    ~CdatetimeBaseCol() override;

    // Goes through the virtual AddAt, so the kind and the facets are tested.
    virtual void Add(const CDateTime& value);
    // A value of another kind fails first, whatever the index; then the facets,
    // then the index. A failure leaves the collection and its listeners untouched.
    virtual void AddAt(int index, const CDateTime& value) = 0;
    virtual CDateTime Item(int index) const;

    void Remove(int index) override;
    // Sends no change event.
    void Clear() override;
    int GetCount() const override;

    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }

protected:
    CdatetimeBaseCol(ItemType itemType, ORVEXXML_TYPED_COL_PARAMETERS);

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
