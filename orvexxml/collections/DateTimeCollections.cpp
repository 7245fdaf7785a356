#include "orvexxml/collections/DateTimeCollections.h"

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"

namespace OrvexXmlLib5 {

CdatetimeBaseCol::CdatetimeBaseCol(ItemType itemType, ORVEXXML_TYPED_COL_PARAMETERS)
    : CXmlTypeCollection(itemType, ORVEXXML_TYPED_COL_ARGUMENTS)
{
}

CdatetimeBaseCol::~CdatetimeBaseCol() = default;

void CdatetimeBaseCol::Add(const CDateTime& value)
{
    AddAt(GetCount(), value);
}

CDateTime CdatetimeBaseCol::Item(int index) const
{
    Detail::CheckItemIndex(index, GetCount());
    return m_items[static_cast<std::size_t>(index)];
}

void CdatetimeBaseCol::Remove(int index)
{
    Detail::CheckItemIndex(index, GetCount());
    m_items.erase(m_items.begin() + index);
    FireOnCollectionChange();
}

void CdatetimeBaseCol::Clear()
{
    m_items.clear();
}

int CdatetimeBaseCol::GetCount() const
{
    return static_cast<int>(m_items.size());
}

void CdatetimeBaseCol::BaseAddAt(int index, const CDateTime& value)
{
    Detail::CheckInsertIndex(index, GetCount());
    m_items.insert(m_items.begin() + index, value);
    FireOnCollectionChange();
}

void CdatetimeBaseCol::CheckItem(const CDateTime& value, CDateTime::DTType kind) const
{
    // No conversion to the collection's kind, although CDateTime has one: a value
    // of another kind is refused.
    if (value.GetType() != kind)
        throw COrvexInvalidParamException("Dates added to this collection must be of type dt_" +
                                          CDateTime::TypeName(kind));
    // The facet test reads the value as the collection's type, not by the variant's tag.
    OrvexVariant variant;
    variant.SetDateTime(value);
    CheckPrimitiveRestriction(GetElementName().c_str(), variant, GetItemType(), GetRestrictions());
}

void CdatetimeBaseCol::ToXml_Int(CXmlWriter* writer, bool, const char*, const CXmlSerializationContext& context,
                                 bool) const
{
    ValidateCount(context);
    Detail::WriteTypedItems(writer, GetElementName(), GetNamespace(), m_items, [this](const CDateTime& item) { return ItemToString(item); });
}

}  // namespace OrvexXmlLib5
