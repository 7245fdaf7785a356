// A lending library, written the way the code generator emits classes: each class
// holds its properties, gives its static metadata tables, switches on the property
// index in AccessProperty, and checks its setters. The schema it stands for
// (namespace urn:orvex:library):
//
//   Library     @name (1..60 bytes, required)   Address, Book (1..n), Member (0..1000)
//   Address     @country ([A-Z]{2})   Street (>= 1 byte), City, Postcode? (<= 10 bytes)
//   Book        @isbn ([0-9]{13}, required) @lang (2 bytes)
//               Title (1..200 bytes), Author, Genre (fiction|science|history|poetry),
//               Year? (1450..2100), Price? (double, >= 0), Condition? (new|good|worn), Edition?
//   Edition     choice of Print, Ebook (epub|pdf|mobi), Audio (minutes, >= 1)
//   Print       @pages (1..5000, required)   Binding (hardcover|paperback)
//   Member      @id (M[0-9]{4}, required)   Name, Membership, Email? (a@b.c)
//   Membership  abstract: Since (1900..2100); by xsi:type either
//     AdultMembership    + Fee (double, >= 0)
//     StudentMembership  + School, Graduation? (1900..2100)
#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5;

extern const char* const kLibraryNamespace;

enum Genre
{
    Genre_Fiction = 0,
    Genre_Science = 1,
    Genre_History = 2,
    Genre_Poetry = 3
};
// Generated text functions; an unknown text fails with COrvexInvalidValueException.
const char* GenreToString(int value);
int GenreFromString(const char* text);

enum Condition
{
    Condition_New = 0,
    Condition_Good = 1,
    Condition_Worn = 2
};
const char* ConditionToString(int value);
int ConditionFromString(const char* text);

enum Binding
{
    Binding_Hardcover = 0,
    Binding_Paperback = 1
};
const char* BindingToString(int value);
int BindingFromString(const char* text);

class CPostalAddress : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CPostalAddress();
    static CSmartPtr<CPostalAddress> CreateInstance();

    std::string GetCountry() const { return m_country; }
    void SetCountry(const std::string& value)
    {
        m_country = value;
        m_hasCountry = true;
    }
    bool IsValidCountry() const { return m_hasCountry; }
    std::string GetStreet() const { return m_street; }
    void SetStreet(const std::string& value) { m_street = value; }
    std::string GetCity() const { return m_city; }
    void SetCity(const std::string& value) { m_city = value; }
    std::string GetPostcode() const { return m_postcode; }
    void SetPostcode(const std::string& value)
    {
        m_postcode = value;
        m_hasPostcode = true;
    }
    bool IsValidPostcode() const { return m_hasPostcode; }
    void ClearPostcode() { m_hasPostcode = false; }

private:
    std::string m_country;
    bool m_hasCountry;
    std::string m_street;
    std::string m_city;
    std::string m_postcode;
    bool m_hasPostcode;
};

class CPrint : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    // elementName is the name under which the object is read and written.
    explicit CPrint(const char* elementName = "Print");
    static CSmartPtr<CPrint> CreateInstance(const char* elementName = "Print");

    std::int32_t GetPages() const { return m_pages; }
    void SetPages(std::int32_t value) { m_pages = value; }
    Binding GetBinding() const { return m_binding; }
    void SetBinding(Binding value) { m_binding = value; }

private:
    std::int32_t m_pages;
    Binding m_binding;
};

// A choice: at most one of Print, Ebook and Audio is set at a time; setting a
// second one fails with COrvexInvalidStateException.
class CEdition : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    // elementName is the name under which the object is read and written.
    explicit CEdition(const char* elementName = "Edition");
    static CSmartPtr<CEdition> CreateInstance(const char* elementName = "Edition");

    // The name of the alternative that is set; empty when none is.
    std::string GetSelectedElement() const { return m_selected; }

    CSmartPtr<CPrint> GetPrint() const { return m_print; }
    // Null clears the alternative; an object named other than "Print" fails.
    void SetPrint(CPrint* value);
    std::string GetEbook() const { return m_ebook; }
    void SetEbook(const std::string& value);
    bool IsValidEbook() const { return m_hasEbook; }
    void ClearEbook();
    std::int32_t GetAudio() const { return m_audio; }
    void SetAudio(std::int32_t value);
    bool IsValidAudio() const { return m_hasAudio; }
    void ClearAudio();

private:
    std::string m_selected;
    CSmartPtr<CPrint> m_print;
    std::string m_ebook;
    bool m_hasEbook;
    std::int32_t m_audio;
    bool m_hasAudio;
};

class CBook : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CBook();
    static CSmartPtr<CBook> CreateInstance();

    std::string GetIsbn() const { return m_isbn; }
    void SetIsbn(const std::string& value) { m_isbn = value; }
    std::string GetLang() const { return m_lang; }
    void SetLang(const std::string& value)
    {
        m_lang = value;
        m_hasLang = true;
    }
    bool IsValidLang() const { return m_hasLang; }
    std::string GetTitle() const { return m_title; }
    void SetTitle(const std::string& value) { m_title = value; }
    std::string GetAuthor() const { return m_author; }
    void SetAuthor(const std::string& value) { m_author = value; }
    Genre GetGenre() const { return m_genre; }
    void SetGenre(Genre value) { m_genre = value; }
    std::int32_t GetYear() const { return m_year; }
    void SetYear(std::int32_t value)
    {
        m_year = value;
        m_hasYear = true;
    }
    bool IsValidYear() const { return m_hasYear; }
    double GetPrice() const { return m_price; }
    void SetPrice(double value)
    {
        m_price = value;
        m_hasPrice = true;
    }
    bool IsValidPrice() const { return m_hasPrice; }
    void ClearPrice() { m_hasPrice = false; }
    Condition GetCondition() const { return m_condition; }
    void SetCondition(Condition value)
    {
        m_condition = value;
        m_hasCondition = true;
    }
    bool IsValidCondition() const { return m_hasCondition; }
    CSmartPtr<CEdition> GetEdition() const { return m_edition; }
    // Null removes the edition; an object named other than "Edition" fails.
    void SetEdition(CEdition* value);

private:
    std::string m_isbn;
    std::string m_lang;
    bool m_hasLang;
    std::string m_title;
    std::string m_author;
    Genre m_genre;
    std::int32_t m_year;
    bool m_hasYear;
    double m_price;
    bool m_hasPrice;
    Condition m_condition;
    bool m_hasCondition;
    CSmartPtr<CEdition> m_edition;
};

// The abstract base of the two memberships; the factory picks the derived class
// from xsi:type.
class CMembership : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    void Init() override;

    std::int32_t GetSince() const { return m_since; }
    void SetSince(std::int32_t value) { m_since = value; }

protected:
    CMembership();

private:
    std::int32_t m_since;
};

class CAdultMembership : public CMembership
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CAdultMembership();
    static CSmartPtr<CAdultMembership> CreateInstance();

    double GetFee() const { return m_fee; }
    void SetFee(double value) { m_fee = value; }

private:
    double m_fee;
};

class CStudentMembership : public CMembership
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CStudentMembership();
    static CSmartPtr<CStudentMembership> CreateInstance();

    std::string GetSchool() const { return m_school; }
    void SetSchool(const std::string& value) { m_school = value; }
    std::int32_t GetGraduation() const { return m_graduation; }
    void SetGraduation(std::int32_t value)
    {
        m_graduation = value;
        m_hasGraduation = true;
    }
    bool IsValidGraduation() const { return m_hasGraduation; }

private:
    std::string m_school;
    std::int32_t m_graduation;
    bool m_hasGraduation;
};

class CMember : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CMember();
    static CSmartPtr<CMember> CreateInstance();

    std::string GetId() const { return m_id; }
    void SetId(const std::string& value) { m_id = value; }
    std::string GetName() const { return m_name; }
    void SetName(const std::string& value) { m_name = value; }
    CSmartPtr<CMembership> GetMembership() const { return m_membership; }
    // Mandatory: null fails with COrvexInvalidParamException, as does an object
    // named other than "Membership".
    void SetMembership(CMembership* value);
    std::string GetEmail() const { return m_email; }
    void SetEmail(const std::string& value)
    {
        m_email = value;
        m_hasEmail = true;
    }
    bool IsValidEmail() const { return m_hasEmail; }

private:
    std::string m_id;
    std::string m_name;
    CSmartPtr<CMembership> m_membership;
    std::string m_email;
    bool m_hasEmail;
};

// The generated collection of Book elements.
class CBookCol : public CXmlCollection
{
public:
    CBookCol(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs)
        : CXmlCollection(name, namespaceUri, minOccurs, maxOccurs)
    {
    }

    // A new book named after the collection, appended.
    CSmartPtr<CBook> Add();
    void Add(CBook* book) { AppendItem(book); }
    void AddAt(int index, CBook* book) { AddItemAt(index, book); }
    // Fails with COrvexInvalidParamException outside 0 to GetCount() - 1.
    CSmartPtr<CBook> Item(int index) const;
    COrvexIterator<CBook> begin() const { return COrvexIterator<CBook>(GetHead()); }
    COrvexIterator<CBook> end() const { return COrvexIterator<CBook>(); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;
};

// The generated collection of Member elements.
class CMemberCol : public CXmlCollection
{
public:
    CMemberCol(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs)
        : CXmlCollection(name, namespaceUri, minOccurs, maxOccurs)
    {
    }

    CSmartPtr<CMember> Add();
    void Add(CMember* member) { AppendItem(member); }
    CSmartPtr<CMember> Item(int index) const;
    COrvexIterator<CMember> begin() const { return COrvexIterator<CMember>(GetHead()); }
    COrvexIterator<CMember> end() const { return COrvexIterator<CMember>(); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;
};

class CLibrary : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLibraryNamespace; }
    std::string GetNamespace() const override { return kLibraryNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CLibrary();
    static CSmartPtr<CLibrary> CreateInstance();

    std::string GetName() const { return m_name; }
    void SetName(const std::string& value) { m_name = value; }
    CSmartPtr<CPostalAddress> GetAddress() const { return m_address; }
    // Mandatory: null fails with COrvexInvalidParamException, as does an object
    // named other than "Address".
    void SetAddress(CPostalAddress* value);
    CSmartPtr<CBookCol> GetBooks() const { return m_books; }
    CSmartPtr<CMemberCol> GetMembers() const { return m_members; }

private:
    std::string m_name;
    CSmartPtr<CPostalAddress> m_address;
    CSmartPtr<CBookCol> m_books;
    CSmartPtr<CMemberCol> m_members;
};

// The generated factory of this schema: class ids for the optional children and
// the choice of a membership by xsi:type.
class CLibraryFactory : public CClassfactoryBase
{
public:
    enum ClassId
    {
        Class_Edition = 1,
        Class_Print = 2
    };
    // The object numbered classId, named elementName; an unknown id fails with
    // COrvexInvalidParamException.
    static CSmartPtr<CXmlObjectBase> CreateClass(int classId, const char* elementName);
    // AdultMembership or StudentMembership of this namespace; null for any other type.
    static CSmartPtr<CXmlObjectBase> CreateMembership(CXmlElement* element);
};

}  // namespace OrvexExamples
