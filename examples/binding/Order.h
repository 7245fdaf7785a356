// A purchase order, written the way the code generator emits classes: each class
// holds its properties, gives its static metadata tables, and switches on the
// property index in AccessProperty. The schema it stands for:
//
//   Order  @id (int, >= 1, required) @status (open|closed|held) @##other
//          Customer, Line (1..5), Note? (string, <= 40 bytes)
//   Customer  @vip (boolean)   Name (string, >= 1 byte), Address
//   Address   @country ([A-Z]{2})   Street, City, Zip? (int)
//   Line      @sku (required)   Quantity (int, 1..999), text
#pragma once

#include <string>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5;

extern const char* const kOrderNamespace;

enum OrderStatus
{
    OrderStatus_Open = 0,
    OrderStatus_Closed = 1,
    OrderStatus_Held = 2
};
// Generated text functions of the enumeration; an unknown text gives -1.
const char* OrderStatusToString(int value);
int OrderStatusFromString(const char* text);

class CAddress : public CXmlGeneratedClass
{
public:
    CAddress();
    static CSmartPtr<CAddress> CreateInstance();

    std::string GetCountry() const { return m_country; }
    void SetCountry(const std::string& value) { m_country = value; m_hasCountry = true; }
    bool IsValidCountry() const { return m_hasCountry; }
    std::string GetStreet() const { return m_street; }
    void SetStreet(const std::string& value) { m_street = value; }
    std::string GetCity() const { return m_city; }
    void SetCity(const std::string& value) { m_city = value; }
    std::int32_t GetZip() const { return m_zip; }
    void SetZip(std::int32_t value) { m_zip = value; m_hasZip = true; }
    bool IsValidZip() const { return m_hasZip; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kOrderNamespace; }
    std::string GetNamespace() const override { return kOrderNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    std::string m_country;
    bool m_hasCountry;
    std::string m_street;
    std::string m_city;
    std::int32_t m_zip;
    bool m_hasZip;
};

class CCustomer : public CXmlGeneratedClass
{
public:
    CCustomer();
    static CSmartPtr<CCustomer> CreateInstance();

    bool GetVip() const { return m_vip; }
    void SetVip(bool value) { m_vip = value; m_hasVip = true; }
    bool IsValidVip() const { return m_hasVip; }
    std::string GetName() const { return m_name; }
    void SetName(const std::string& value) { m_name = value; }
    CSmartPtr<CAddress> GetAddress() const { return m_address; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kOrderNamespace; }
    std::string GetNamespace() const override { return kOrderNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    bool m_vip;
    bool m_hasVip;
    std::string m_name;
    CSmartPtr<CAddress> m_address;
};

class CLine : public CXmlGeneratedClass
{
public:
    CLine();
    static CSmartPtr<CLine> CreateInstance();

    std::string GetSku() const { return m_sku; }
    void SetSku(const std::string& value) { m_sku = value; }
    std::int32_t GetQuantity() const { return m_quantity; }
    void SetQuantity(std::int32_t value) { m_quantity = value; }
    // The element's own text, written behind the Quantity child.
    std::string GetDescription() const { return m_description; }
    void SetDescription(const std::string& value) { m_description = value; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kOrderNamespace; }
    std::string GetNamespace() const override { return kOrderNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    std::string m_sku;
    std::int32_t m_quantity;
    std::string m_description;
};

// The generated collection of Line elements.
class CLineCol : public CXmlCollection
{
public:
    CLineCol(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs)
        : CXmlCollection(name, namespaceUri, minOccurs, maxOccurs)
    {
    }

    // A new line named after the collection, appended.
    CSmartPtr<CLine> Add();
    void Add(CLine* line) { AppendItem(line); }
    void AddAt(int index, CLine* line) { AddItemAt(index, line); }
    CSmartPtr<CLine> Item(int index) const;
    COrvexIterator<CLine> begin() const { return COrvexIterator<CLine>(GetHead()); }
    COrvexIterator<CLine> end() const { return COrvexIterator<CLine>(); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;
};

class COrder : public CXmlGeneratedClass
{
public:
    COrder();
    static CSmartPtr<COrder> CreateInstance();

    std::int32_t GetId() const { return m_id; }
    void SetId(std::int32_t value) { m_id = value; m_hasId = true; }
    OrderStatus GetStatus() const { return m_status; }
    void SetStatus(OrderStatus value) { m_status = value; m_hasStatus = true; }
    bool IsValidStatus() const { return m_hasStatus; }
    CSmartPtr<CAttributeCol> GetAnyAttributes() const { return m_anyAttributes; }
    CSmartPtr<CCustomer> GetCustomer() const { return m_customer; }
    CSmartPtr<CLineCol> GetLines() const { return m_lines; }
    std::string GetNote() const { return m_note; }
    void SetNote(const std::string& value) { m_note = value; m_hasNote = true; }
    bool IsValidNote() const { return m_hasNote; }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kOrderNamespace; }
    std::string GetNamespace() const override { return kOrderNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;

    static void CleanMetaData();

private:
    std::int32_t m_id;
    bool m_hasId;
    OrderStatus m_status;
    bool m_hasStatus;
    CSmartPtr<CAttributeCol> m_anyAttributes;
    CSmartPtr<CCustomer> m_customer;
    CSmartPtr<CLineCol> m_lines;
    std::string m_note;
    bool m_hasNote;
};

}  // namespace OrvexExamples
