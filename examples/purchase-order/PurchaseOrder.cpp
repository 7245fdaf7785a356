#include "examples/purchase-order/PurchaseOrder.h"

#include <algorithm>
#include <initializer_list>

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

namespace {

// The schema has no target namespace.
const char* const kNoNamespace = "";

CPrimitiveRestrictions NoFacets()
{
    return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1);
}
// SKU: a restriction of xs:string.
CPrimitiveRestrictions SkuFacets()
{
    return CPrimitiveRestrictions("\\d{3}-[A-Z]{2}", -1, -1, "", "", "", "", -1);
}
// quantity: xs:positiveInteger (from 1) restricted to below 100.
CPrimitiveRestrictions QuantityFacets()
{
    return CPrimitiveRestrictions("", -1, -1, "1", "", "", "100", -1);
}
// country: xs:NMTOKEN with the fixed value US.
CPrimitiveRestrictions CountryFacets()
{
    return CPrimitiveRestrictions("US", -1, -1, "", "", "", "", -1);
}

// A table as the walks expect it: a new array of the entries and a null terminator,
// released by CleanMetaData.
template <typename T>
T** NullTerminated(std::initializer_list<T*> entries)
{
    T** table = new T*[entries.size() + 1];
    std::copy(entries.begin(), entries.end(), table);
    table[entries.size()] = nullptr;
    return table;
}

[[noreturn]] void BadIndex(int propertyIndex)
{
    throw COrvexInvalidParamException(FormatString("Invalid property index %d", propertyIndex));
}

void RequireDate(const CDateTime& value, const char* propertyName)
{
    if (value.GetType() != CDateTime::date)
        throw COrvexInvalidParamException(FormatString("Dates assigned to [%s] must be of type dt_date", propertyName));
}

// One set of tables per class, built on first use and shared by every object.
struct CTables
{
    CParentElementInfo* info = nullptr;
    CElementInfo** elements = nullptr;
    CAttributeInfo** attributes = nullptr;
};

CTables g_usAddress, g_item, g_items, g_purchaseOrderType;

const CTables& USAddressTables()
{
    static const bool built = [] {
        g_usAddress.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "USAddress", kNoNamespace,
                                                  -1, true, false);
        g_usAddress.elements = NullTerminated<CElementInfo>(
            {new CElementInfoSeqPrimMnd("name", kNoNamespace, 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoSeqPrimMnd("street", kNoNamespace, 2, ItemType_string, nullptr, Rule::Preserve,
                                        NoFacets()),
             new CElementInfoSeqPrimMnd("city", kNoNamespace, 3, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoSeqPrimMnd("state", kNoNamespace, 4, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoSeqPrimMnd("zip", kNoNamespace, 5, ItemType_decimal, nullptr, Rule::Collapse,
                                        NoFacets())});
        g_usAddress.attributes = NullTerminated<CAttributeInfo>({new CAttributeInfoPrimitive(
            "country", kNoNamespace, 0, true, ItemType_string, nullptr, Rule::Collapse, CountryFacets())});
        return true;
    }();
    (void)built;
    return g_usAddress;
}

const CTables& ItemTables()
{
    static const bool built = [] {
        g_item.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "item", kNoNamespace, -1, true, false);
        g_item.elements =
            NullTerminated<CElementInfo>({new CElementInfoSeqPrimMnd("productName", kNoNamespace, 1, ItemType_string,
                                                                     nullptr, Rule::Preserve, NoFacets()),
                                          new CElementInfoSeqPrimMnd("quantity", kNoNamespace, 2, ItemType_integer,
                                                                     nullptr, Rule::Collapse, QuantityFacets()),
                                          new CElementInfoSeqPrimMnd("USPrice", kNoNamespace, 3, ItemType_decimal,
                                                                     nullptr, Rule::Collapse, NoFacets()),
                                          new CElementInfoSeqPrimOpt("comment", kNoNamespace, 4, ItemType_string,
                                                                     nullptr, Rule::Preserve, NoFacets()),
                                          new CElementInfoSeqPrimOpt("shipDate", kNoNamespace, 5, ItemType_date,
                                                                     nullptr, Rule::Collapse, NoFacets())});
        g_item.attributes = NullTerminated<CAttributeInfo>({new CAttributeInfoPrimitive(
            "partNum", kNoNamespace, 0, false, ItemType_string, nullptr, Rule::Preserve, SkuFacets())});
        return true;
    }();
    (void)built;
    return g_item;
}

const CTables& ItemsTables()
{
    static const bool built = [] {
        g_items.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Items", kNoNamespace, -1, true, false);
        g_items.elements =
            NullTerminated<CElementInfo>({new CElementInfoSeqClsCol("item", kNoNamespace, 0, ElementType_Element)});
        g_items.attributes = NullTerminated<CAttributeInfo>({});
        return true;
    }();
    (void)built;
    return g_items;
}

const CTables& PurchaseOrderTypeTables()
{
    static const bool built = [] {
        g_purchaseOrderType.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element,
                                                          "PurchaseOrderType", kNoNamespace, -1, true, false);
        g_purchaseOrderType.elements = NullTerminated<CElementInfo>(
            {new CElementInfoSeqClsMnd("shipTo", kNoNamespace, 1, ElementType_Element, nullptr, 0, true),
             new CElementInfoSeqClsMnd("billTo", kNoNamespace, 2, ElementType_Element, nullptr, 0, true),
             new CElementInfoSeqPrimOpt("comment", kNoNamespace, 3, ItemType_string, nullptr, Rule::Preserve,
                                        NoFacets()),
             new CElementInfoSeqClsMnd("items", kNoNamespace, 4, ElementType_Element, nullptr, 0, true)});
        g_purchaseOrderType.attributes = NullTerminated<CAttributeInfo>({new CAttributeInfoPrimitive(
            "orderDate", kNoNamespace, 0, true, ItemType_date, nullptr, Rule::Collapse, NoFacets())});
        return true;
    }();
    (void)built;
    return g_purchaseOrderType;
}

// Releases the tables when the program ends.
struct CTablesCleaner
{
    ~CTablesCleaner()
    {
        CPurchaseOrderType::CleanMetaData();
        CItems::CleanMetaData();
        CItem::CleanMetaData();
        CUSAddress::CleanMetaData();
    }
} g_cleaner;

}  // namespace

// --- CUSAddress

CUSAddress::CUSAddress()
{
    SetElementName("USAddress");
    Init();
}

CSmartPtr<CUSAddress> CUSAddress::CreateInstance()
{
    return CSmartPtr<CUSAddress>(new CUSAddress());
}

void CUSAddress::Init()
{
    m_country = "US";
    m_name.clear();
    m_street.clear();
    m_city.clear();
    m_state.clear();
    m_zip = CDecimal();
}

void CUSAddress::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetString(m_country);
            else
                SetCountry(value.GetStringRef());
            break;
        case 1:
            if (read)
                value.SetString(m_name);
            else
                SetName(value.GetStringRef());
            break;
        case 2:
            if (read)
                value.SetString(m_street);
            else
                SetStreet(value.GetStringRef());
            break;
        case 3:
            if (read)
                value.SetString(m_city);
            else
                SetCity(value.GetStringRef());
            break;
        case 4:
            if (read)
                value.SetString(m_state);
            else
                SetState(value.GetStringRef());
            break;
        case 5:
            if (read)
                value.SetDecimal(m_zip);
            else
                SetZip(value.GetDecimal());
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CUSAddress::GetClassInfo() const
{
    return USAddressTables().info;
}
CElementInfo** CUSAddress::GetClassElementInfo() const
{
    return USAddressTables().elements;
}
CAttributeInfo** CUSAddress::GetClassAttributeInfo() const
{
    return USAddressTables().attributes;
}
void CUSAddress::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_usAddress.info, g_usAddress.elements, g_usAddress.attributes);
}

// --- CItem

CItem::CItem()
{
    SetElementName("item");
    Init();
}

CSmartPtr<CItem> CItem::CreateInstance()
{
    return CSmartPtr<CItem>(new CItem());
}

void CItem::Init()
{
    m_partNum.clear();
    m_productName.clear();
    m_quantity = 1;
    m_usPrice = CDecimal();
    m_comment.clear();
    m_hasComment = false;
    m_shipDate = CDateTime();
    m_hasShipDate = false;
}

void CItem::SetShipDate(const CDateTime& value)
{
    RequireDate(value, "shipDate");
    m_shipDate = value;
    m_hasShipDate = true;
}

void CItem::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetString(m_partNum);
            else
                SetPartNum(value.GetStringRef());
            break;
        case 1:
            if (read)
                value.SetString(m_productName);
            else
                SetProductName(value.GetStringRef());
            break;
        case 2:
            if (read)
                value.SetInteger(m_quantity);
            else
                SetQuantity(value.GetInteger());
            break;
        case 3:
            if (read)
                value.SetDecimal(m_usPrice);
            else
                SetUSPrice(value.GetDecimal());
            break;
        case 4:
            if (!read)
                SetComment(value.GetStringRef());
            else if (m_hasComment)
                value.SetString(m_comment);
            else
                value.SetInvalid();
            break;
        case 5:
            if (!read)
                SetShipDate(value.GetDate());
            else if (m_hasShipDate)
                value.SetDate(m_shipDate);
            else
                value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CItem::GetClassInfo() const
{
    return ItemTables().info;
}
CElementInfo** CItem::GetClassElementInfo() const
{
    return ItemTables().elements;
}
CAttributeInfo** CItem::GetClassAttributeInfo() const
{
    return ItemTables().attributes;
}
void CItem::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_item.info, g_item.elements, g_item.attributes);
}

// --- CItemCol

CSmartPtr<CItem> CItemCol::Add()
{
    CSmartPtr<CItem> item = CItem::CreateInstance();
    Add(item.Get());
    return item;
}

void CItemCol::Add(CItem* item)
{
    SetElementName(item, GetElementName().c_str());
    AppendItem(item);
}

void CItemCol::AddAt(int index, CItem* item)
{
    SetElementName(item, GetElementName().c_str());
    AddItemAt(index, item);
}

CSmartPtr<CItem> CItemCol::Item(int index) const
{
    return CSmartPtr<CItem>(static_cast<CItem*>(GetNodeAtIndex(index)->GetItem()));
}

void CItemCol::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext& context,
                         bool) const
{
    ValidateCount(context);
    for (CNode* node = GetHead(); node; node = node->GetNext())
        CXmlObjectBase::ToXml_Int(node->GetItem(), writer, false, namespaceUri, context, false);
}

CXmlElement* CItemCol::FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext& context, bool)
{
    const std::string& name = ElementNameRef();
    const std::string namespaceUri = GetNamespace();
    CXmlElement* current = firstChild;
    while (current && DoesElementNameMatch(context, current, name.c_str(), namespaceUri.c_str())) {
        CSmartPtr<CItem> item = CItem::CreateInstance();
        CXmlObjectBase::FromXml_Int(item.Get(), current, current->GetFirstElement(), context);
        AppendItem(item.Get());
        current = current->GetNextSiblingElement();
    }
    return current;
}

// --- CItems

CItems::CItems() : m_item(new CItemCol("item", kNoNamespace, 0, -1))
{
    SetElementName("Items");
    Init();
}

CSmartPtr<CItems> CItems::CreateInstance()
{
    return CSmartPtr<CItems>(new CItems());
}

void CItems::Init()
{
    m_item->Clear();
}

void CItems::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read) value.SetXmlCollection(m_item.Get());
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CItems::GetClassInfo() const
{
    return ItemsTables().info;
}
CElementInfo** CItems::GetClassElementInfo() const
{
    return ItemsTables().elements;
}
CAttributeInfo** CItems::GetClassAttributeInfo() const
{
    return ItemsTables().attributes;
}
void CItems::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_items.info, g_items.elements, g_items.attributes);
}

// --- CPurchaseOrderType

CPurchaseOrderType::CPurchaseOrderType()
    : m_shipTo(CUSAddress::CreateInstance()), m_billTo(CUSAddress::CreateInstance()), m_items(CItems::CreateInstance())
{
    SetElementName("PurchaseOrderType");
    SetElementName(m_shipTo.Get(), "shipTo");
    SetElementName(m_billTo.Get(), "billTo");
    SetElementName(m_items.Get(), "items");
    Init();
}

CSmartPtr<CPurchaseOrderType> CPurchaseOrderType::CreateInstance()
{
    return CSmartPtr<CPurchaseOrderType>(new CPurchaseOrderType());
}

void CPurchaseOrderType::Init()
{
    m_orderDate = CDateTime();
    m_hasOrderDate = false;
    m_shipTo->Init();
    m_billTo->Init();
    m_comment.clear();
    m_hasComment = false;
    m_items->Init();
}

void CPurchaseOrderType::SetOrderDate(const CDateTime& value)
{
    RequireDate(value, "orderDate");
    m_orderDate = value;
    m_hasOrderDate = true;
}

void CPurchaseOrderType::SetShipTo(CUSAddress* value)
{
    Throw_IfPropertyIsNull(value, "shipTo");
    SetElementName(value, "shipTo");
    m_shipTo = value;
}

void CPurchaseOrderType::SetBillTo(CUSAddress* value)
{
    Throw_IfPropertyIsNull(value, "billTo");
    SetElementName(value, "billTo");
    m_billTo = value;
}

void CPurchaseOrderType::SetItems(CItems* value)
{
    Throw_IfPropertyIsNull(value, "items");
    SetElementName(value, "items");
    m_items = value;
}

void CPurchaseOrderType::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (!read)
                SetOrderDate(value.GetDate());
            else if (m_hasOrderDate)
                value.SetDate(m_orderDate);
            else
                value.SetInvalid();
            break;
        case 1:
            if (read)
                value.SetXmlObject(m_shipTo.Get());
            else
                SetShipTo(dynamic_cast<CUSAddress*>(value.GetXmlObject().Get()));
            break;
        case 2:
            if (read)
                value.SetXmlObject(m_billTo.Get());
            else
                SetBillTo(dynamic_cast<CUSAddress*>(value.GetXmlObject().Get()));
            break;
        case 3:
            if (!read)
                SetComment(value.GetStringRef());
            else if (m_hasComment)
                value.SetString(m_comment);
            else
                value.SetInvalid();
            break;
        case 4:
            if (read)
                value.SetXmlObject(m_items.Get());
            else
                SetItems(dynamic_cast<CItems*>(value.GetXmlObject().Get()));
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CPurchaseOrderType::GetClassInfo() const
{
    return PurchaseOrderTypeTables().info;
}
CElementInfo** CPurchaseOrderType::GetClassElementInfo() const
{
    return PurchaseOrderTypeTables().elements;
}
CAttributeInfo** CPurchaseOrderType::GetClassAttributeInfo() const
{
    return PurchaseOrderTypeTables().attributes;
}
void CPurchaseOrderType::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_purchaseOrderType.info, g_purchaseOrderType.elements,
                                      g_purchaseOrderType.attributes);
}

// --- CPurchaseOrder

CPurchaseOrder::CPurchaseOrder()
{
    SetElementName("purchaseOrder");
}

CSmartPtr<CPurchaseOrder> CPurchaseOrder::CreateInstance()
{
    return CSmartPtr<CPurchaseOrder>(new CPurchaseOrder());
}

}  // namespace OrvexExamples
