#include "examples/binding/Order.h"

#include <cstring>

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

const char* const kOrderNamespace = "urn:orvex:order";

namespace {

CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1); }

[[noreturn]] void BadIndex(int propertyIndex)
{
    throw COrvexInvalidParamException(FormatString("Invalid property index %d", propertyIndex));
}

// One set of tables per class, built on first use and shared by every object.
struct CTables
{
    CParentElementInfo* info = nullptr;
    CElementInfo** elements = nullptr;
    CAttributeInfo** attributes = nullptr;
};

CTables g_address, g_customer, g_line, g_order;

const CTables& AddressTables()
{
    static const bool built = [] {
        g_address.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Address",
                                                kOrderNamespace, -1, true, false);
        g_address.elements = new CElementInfo* [4] {
            new CElementInfoSeqPrimMnd("Street", kOrderNamespace, 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            new CElementInfoSeqPrimMnd("City", kOrderNamespace, 2, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            new CElementInfoSeqPrimOpt("Zip", kOrderNamespace, 3, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
            nullptr
        };
        g_address.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("country", "", 0, true, ItemType_string, nullptr, Rule::Collapse,
                                        CPrimitiveRestrictions("[A-Z]{2}", -1, -1, "", "", "", "", -1)),
            nullptr
        };
        return true;
    }();
    (void)built;
    return g_address;
}

const CTables& CustomerTables()
{
    static const bool built = [] {
        g_customer.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Customer",
                                                 kOrderNamespace, -1, true, false);
        g_customer.elements = new CElementInfo* [3] {
            new CElementInfoSeqPrimMnd("Name", kOrderNamespace, 1, ItemType_string, nullptr, Rule::Preserve,
                                  CPrimitiveRestrictions("", 1, -1, "", "", "", "", -1)),
            new CElementInfoSeqClsMnd("Address", kOrderNamespace, 2, ElementType_Element, nullptr, 0, true),
            nullptr
        };
        g_customer.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("vip", "", 0, true, ItemType_boolean, nullptr, Rule::Collapse, NoFacets()),
            nullptr
        };
        return true;
    }();
    (void)built;
    return g_customer;
}

const CTables& LineTables()
{
    static const bool built = [] {
        g_line.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Line", kOrderNamespace,
                                             2, true, false);
        g_line.elements = new CElementInfo* [2] {
            new CElementInfoSeqPrimMnd("Quantity", kOrderNamespace, 1, ItemType_i4, nullptr, Rule::Collapse,
                                  CPrimitiveRestrictions("", -1, -1, "1", "999", "", "", -1)),
            nullptr
        };
        g_line.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("sku", "", 0, false, ItemType_string, nullptr, Rule::Collapse, NoFacets()),
            nullptr
        };
        return true;
    }();
    (void)built;
    return g_line;
}

const CTables& OrderTables()
{
    static const bool built = [] {
        g_order.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Order", kOrderNamespace,
                                              -1, true, false);
        g_order.elements = new CElementInfo* [4] {
            new CElementInfoSeqClsMnd("Customer", kOrderNamespace, 3, ElementType_Element, nullptr, 0, true),
            new CElementInfoSeqClsCol("Line", kOrderNamespace, 4, ElementType_Element),
            new CElementInfoSeqPrimOpt("Note", kOrderNamespace, 5, ItemType_string, nullptr, Rule::Preserve,
                                  CPrimitiveRestrictions("", -1, 40, "", "", "", "", -1)),
            nullptr
        };
        g_order.attributes = new CAttributeInfo* [4] {
            new CAttributeInfoPrimitive("id", "", 0, false, ItemType_i4, nullptr, Rule::Collapse,
                                        CPrimitiveRestrictions("", -1, -1, "1", "", "", "", -1)),
            new CAttributeInfoEnum("status", "", 1, true, OrderStatusToString, OrderStatusFromString),
            new CAttributeInfoAny("AnyAttribute", "", 2, true, "##other", kOrderNamespace),
            nullptr
        };
        return true;
    }();
    (void)built;
    return g_order;
}

// Releases the tables when the program ends.
struct CTablesCleaner
{
    ~CTablesCleaner()
    {
        COrder::CleanMetaData();
        CLine::CleanMetaData();
        CCustomer::CleanMetaData();
        CAddress::CleanMetaData();
    }
} g_cleaner;

}  // namespace

const char* OrderStatusToString(int value)
{
    switch (value) {
        case OrderStatus_Open: return "open";
        case OrderStatus_Closed: return "closed";
        case OrderStatus_Held: return "held";
        default: return "";
    }
}

int OrderStatusFromString(const char* text)
{
    if (std::strcmp(text, "open") == 0) return OrderStatus_Open;
    if (std::strcmp(text, "closed") == 0) return OrderStatus_Closed;
    if (std::strcmp(text, "held") == 0) return OrderStatus_Held;
    return -1;
}

// --- CAddress

CAddress::CAddress()
{
    SetElementName("Address");
    Init();
}

CSmartPtr<CAddress> CAddress::CreateInstance() { return CSmartPtr<CAddress>(new CAddress()); }

void CAddress::Init()
{
    m_country.clear();
    m_hasCountry = false;
    m_street.clear();
    m_city.clear();
    m_zip = 0;
    m_hasZip = false;
}

void CAddress::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (!read) SetCountry(value.GetString());
            else if (m_hasCountry) LendString(value, m_country);
            else value.SetInvalid();
            break;
        case 1:
            if (read) LendString(value, m_street);
            else SetStreet(value.GetString());
            break;
        case 2:
            if (read) LendString(value, m_city);
            else SetCity(value.GetString());
            break;
        case 3:
            if (!read) SetZip(value.GetI4());
            else if (m_hasZip) value.SetI4(m_zip);
            else value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CAddress::GetClassInfo() const { return AddressTables().info; }
CElementInfo** CAddress::GetClassElementInfo() const { return AddressTables().elements; }
CAttributeInfo** CAddress::GetClassAttributeInfo() const { return AddressTables().attributes; }
void CAddress::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_address.info, g_address.elements, g_address.attributes);
}

// --- CCustomer

CCustomer::CCustomer() : m_address(CAddress::CreateInstance())
{
    SetElementName("Customer");
    Init();
}

CSmartPtr<CCustomer> CCustomer::CreateInstance() { return CSmartPtr<CCustomer>(new CCustomer()); }

void CCustomer::Init()
{
    m_vip = false;
    m_hasVip = false;
    m_name.clear();
    m_address->Init();
}

void CCustomer::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (!read) SetVip(value.GetBoolean());
            else if (m_hasVip) value.SetBoolean(m_vip);
            else value.SetInvalid();
            break;
        case 1:
            if (read) LendString(value, m_name);
            else SetName(value.GetString());
            break;
        case 2:
            if (read) value.SetXmlObject(m_address);
            else m_address = dynamic_cast<CAddress*>(value.GetXmlObject().Get());
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CCustomer::GetClassInfo() const { return CustomerTables().info; }
CElementInfo** CCustomer::GetClassElementInfo() const { return CustomerTables().elements; }
CAttributeInfo** CCustomer::GetClassAttributeInfo() const { return CustomerTables().attributes; }
void CCustomer::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_customer.info, g_customer.elements, g_customer.attributes);
}

// --- CLine

CLine::CLine()
{
    SetElementName("Line");
    Init();
}

CSmartPtr<CLine> CLine::CreateInstance() { return CSmartPtr<CLine>(new CLine()); }

void CLine::Init()
{
    m_sku.clear();
    m_quantity = 1;
    m_description.clear();
}

void CLine::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read) LendString(value, m_sku);
            else SetSku(value.GetString());
            break;
        case 1:
            if (read) value.SetI4(m_quantity);
            else SetQuantity(value.GetI4());
            break;
        case 2:
            if (read) LendString(value, m_description);
            else SetDescription(value.GetString());
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CLine::GetClassInfo() const { return LineTables().info; }
CElementInfo** CLine::GetClassElementInfo() const { return LineTables().elements; }
CAttributeInfo** CLine::GetClassAttributeInfo() const { return LineTables().attributes; }
void CLine::CleanMetaData() { CXmlGeneratedClass::CleanMetaData(g_line.info, g_line.elements, g_line.attributes); }

// --- CLineCol

CSmartPtr<CLine> CLineCol::Add()
{
    CSmartPtr<CLine> line = CLine::CreateInstance();
    SetElementName(line.Get(), GetElementName().c_str());
    AppendItem(line);
    return line;
}

CSmartPtr<CLine> CLineCol::Item(int index) const
{
    return CSmartPtr<CLine>(dynamic_cast<CLine*>(GetNodeAtIndex(index)->GetItem()));
}

void CLineCol::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext& context,
                         bool) const
{
    ValidateCount(context);
    for (CNode* node = GetHead(); node; node = node->GetNext())
        CXmlObjectBase::ToXml_Int(node->GetItem(), writer, false, namespaceUri, context, false);
}

CXmlElement* CLineCol::FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext& context,
                                   bool)
{
    const std::string name = GetElementName();
    const std::string namespaceUri = GetNamespace();
    CXmlElement* current = firstChild;
    while (current && DoesElementNameMatch(context, current, name.c_str(), namespaceUri.c_str())) {
        CSmartPtr<CLine> line = CLine::CreateInstance();
        CXmlObjectBase::FromXml_Int(line.Get(), current, current->GetFirstElement(), context);
        AppendItem(line);
        current = current->GetNextSiblingElement();
    }
    return current;
}

// --- COrder

COrder::COrder()
    : m_anyAttributes(new CAttributeCol("", "##other", kOrderNamespace)),
      m_customer(CCustomer::CreateInstance()),
      m_lines(new CLineCol("Line", kOrderNamespace, 1, 5))
{
    SetElementName("Order");
    Init();
}

CSmartPtr<COrder> COrder::CreateInstance() { return CSmartPtr<COrder>(new COrder()); }

void COrder::Init()
{
    m_id = 0;
    m_hasId = false;
    m_status = OrderStatus_Open;
    m_hasStatus = false;
    m_anyAttributes->Clear();
    m_customer->Init();
    m_lines->Clear();
    m_note.clear();
    m_hasNote = false;
}

void COrder::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (!read) SetId(value.GetI4());
            else if (m_hasId) value.SetI4(m_id);
            else value.SetInvalid();
            break;
        case 1:
            if (read) {
                if (m_hasStatus) value.SetI4(m_status);
                else value.SetInvalid();
            } else {
                const std::int32_t status = value.GetI4();
                if (status < OrderStatus_Open || status > OrderStatus_Held)
                    throw COrvexInvalidValueException(FormatString("Invalid value [%d] for the status", status));
                SetStatus(static_cast<OrderStatus>(status));
            }
            break;
        case 2:
            if (read) value.SetXmlCollection(m_anyAttributes);
            break;
        case 3:
            if (read) value.SetXmlObject(m_customer);
            else m_customer = dynamic_cast<CCustomer*>(value.GetXmlObject().Get());
            break;
        case 4:
            if (read) value.SetXmlCollection(m_lines);
            break;
        case 5:
            if (!read) SetNote(value.GetString());
            else if (m_hasNote) LendString(value, m_note);
            else value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* COrder::GetClassInfo() const { return OrderTables().info; }
CElementInfo** COrder::GetClassElementInfo() const { return OrderTables().elements; }
CAttributeInfo** COrder::GetClassAttributeInfo() const { return OrderTables().attributes; }
void COrder::CleanMetaData() { CXmlGeneratedClass::CleanMetaData(g_order.info, g_order.elements, g_order.attributes); }

}  // namespace OrvexExamples
