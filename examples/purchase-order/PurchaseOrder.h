// The classes of po.xsd (the purchase order of the XML Schema Primer), written the
// way the code generator emits them: properties, static metadata tables built once
// and shared by all objects, AccessProperty switching on the property index, Init
// bringing the properties back to their starting state, typed getters and setters.
// The schema has no target namespace, so every element and attribute is unqualified.
//
//   purchaseOrder : PurchaseOrderType  @orderDate (date, optional)
//                   shipTo, billTo (USAddress), comment?, items (Items)
//   USAddress  @country (NMTOKEN, fixed US)  name, street, city, state, zip (decimal)
//   Items      item (0..unbounded)
//   item       @partNum (SKU: \d{3}-[A-Z]{2}, required)
//              productName, quantity (positiveInteger < 100), USPrice (decimal),
//              comment?, shipDate? (date)
//
// Setters store what they are given; facets are tested when the object is written.
// The date setters refuse a CDateTime of another kind than xs:date, as the date
// collections do, because the written form would follow the value's kind.
#pragma once

#include <string>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5;

class CUSAddress : public CXmlGeneratedClass
{
public:
    CUSAddress();
    static CSmartPtr<CUSAddress> CreateInstance();

    // Fixed to "US" by the schema: Init sets it, and another value fails its facet on writing.
    std::string GetCountry() const { return m_country; }
    void SetCountry(const std::string& value) { m_country = value; }
    std::string GetName() const { return m_name; }
    void SetName(const std::string& value) { m_name = value; }
    std::string GetStreet() const { return m_street; }
    void SetStreet(const std::string& value) { m_street = value; }
    std::string GetCity() const { return m_city; }
    void SetCity(const std::string& value) { m_city = value; }
    std::string GetState() const { return m_state; }
    void SetState(const std::string& value) { m_state = value; }
    CDecimal GetZip() const { return m_zip; }
    void SetZip(const CDecimal& value) { m_zip = value; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return std::string(); }
    std::string GetNamespace() const override { return std::string(); }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    std::string m_country;
    std::string m_name;
    std::string m_street;
    std::string m_city;
    std::string m_state;
    CDecimal m_zip;
};

// The anonymous type of the element item inside Items.
class CItem : public CXmlGeneratedClass
{
public:
    CItem();
    static CSmartPtr<CItem> CreateInstance();

    std::string GetPartNum() const { return m_partNum; }
    void SetPartNum(const std::string& value) { m_partNum = value; }
    std::string GetProductName() const { return m_productName; }
    void SetProductName(const std::string& value) { m_productName = value; }
    // xs:positiveInteger has no upper bound of its own, so it is held as a big integer.
    CBigInteger GetQuantity() const { return m_quantity; }
    void SetQuantity(const CBigInteger& value) { m_quantity = value; }
    CDecimal GetUSPrice() const { return m_usPrice; }
    void SetUSPrice(const CDecimal& value) { m_usPrice = value; }
    std::string GetComment() const { return m_comment; }
    void SetComment(const std::string& value)
    {
        m_comment = value;
        m_hasComment = true;
    }
    bool IsValidComment() const { return m_hasComment; }
    void SetValidComment(bool valid)
    {
        m_hasComment = valid;
        if (!valid) m_comment.clear();
    }
    CDateTime GetShipDate() const { return m_shipDate; }
    // Fails with COrvexInvalidParamException when value is not of kind date.
    void SetShipDate(const CDateTime& value);
    bool IsValidShipDate() const { return m_hasShipDate; }
    void SetValidShipDate(bool valid)
    {
        m_hasShipDate = valid;
        if (!valid) m_shipDate = CDateTime();
    }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return std::string(); }
    std::string GetNamespace() const override { return std::string(); }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    std::string m_partNum;
    std::string m_productName;
    CBigInteger m_quantity;
    CDecimal m_usPrice;
    std::string m_comment;
    bool m_hasComment;
    CDateTime m_shipDate;
    bool m_hasShipDate;
};

// The generated collection of item elements.
class CItemCol : public CXmlCollection, public CInstanceMonitor
{
public:
    CItemCol(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs)
        : CXmlCollection(name, namespaceUri, minOccurs, maxOccurs), CInstanceMonitor("CItemCol")
    {
    }

    // A new item named after the collection, appended.
    CSmartPtr<CItem> Add();
    // Appends item, which takes the collection's element name.
    void Add(CItem* item);
    // index from 0 to the count; outside fails with COrvexInvalidParamException "Index out of range".
    void AddAt(int index, CItem* item);
    // Fails with COrvexInvalidParamException "Index %d is out of range, use 0 - %d".
    CSmartPtr<CItem> Item(int index) const;
    COrvexIterator<CItem> begin() const { return COrvexIterator<CItem>(GetHead()); }
    COrvexIterator<CItem> end() const { return COrvexIterator<CItem>(); }

protected:
    // Tests the count first, then writes one element per item in order.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    // Takes the run of item elements from firstChild on and gives the first element behind it.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;
};

class CItems : public CXmlGeneratedClass
{
public:
    CItems();
    static CSmartPtr<CItems> CreateInstance();

    CSmartPtr<CItemCol> GetItem() const { return m_item; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return std::string(); }
    std::string GetNamespace() const override { return std::string(); }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    CSmartPtr<CItemCol> m_item;
};

class CPurchaseOrderType : public CXmlGeneratedClass
{
public:
    CPurchaseOrderType();
    static CSmartPtr<CPurchaseOrderType> CreateInstance();

    CDateTime GetOrderDate() const { return m_orderDate; }
    // Fails with COrvexInvalidParamException when value is not of kind date.
    void SetOrderDate(const CDateTime& value);
    bool IsValidOrderDate() const { return m_hasOrderDate; }
    void SetValidOrderDate(bool valid)
    {
        m_hasOrderDate = valid;
        if (!valid) m_orderDate = CDateTime();
    }
    CSmartPtr<CUSAddress> GetShipTo() const { return m_shipTo; }
    // Fails with COrvexInvalidParamException for null; the object takes the element name shipTo.
    void SetShipTo(CUSAddress* value);
    CSmartPtr<CUSAddress> GetBillTo() const { return m_billTo; }
    // Fails with COrvexInvalidParamException for null; the object takes the element name billTo.
    void SetBillTo(CUSAddress* value);
    std::string GetComment() const { return m_comment; }
    void SetComment(const std::string& value)
    {
        m_comment = value;
        m_hasComment = true;
    }
    bool IsValidComment() const { return m_hasComment; }
    void SetValidComment(bool valid)
    {
        m_hasComment = valid;
        if (!valid) m_comment.clear();
    }
    CSmartPtr<CItems> GetItems() const { return m_items; }
    // Fails with COrvexInvalidParamException for null; the object takes the element name items.
    void SetItems(CItems* value);

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return std::string(); }
    std::string GetNamespace() const override { return std::string(); }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    CDateTime m_orderDate;
    bool m_hasOrderDate;
    CSmartPtr<CUSAddress> m_shipTo;
    CSmartPtr<CUSAddress> m_billTo;
    std::string m_comment;
    bool m_hasComment;
    CSmartPtr<CItems> m_items;
};

// The global element purchaseOrder; it adds only its element name to its type.
class CPurchaseOrder : public CPurchaseOrderType
{
public:
    CPurchaseOrder();
    static CSmartPtr<CPurchaseOrder> CreateInstance();
};

}  // namespace OrvexExamples
