#include "examples/library/Library.h"

#include <cstring>

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

const char* const kLibraryNamespace = "urn:orvex:library";

namespace {

const char* const NS = kLibraryNamespace;

CPrimitiveRestrictions Facets(const char* pattern, int minLength, int maxLength, const char* minInclusive,
                              const char* maxInclusive, int length = -1)
{
    return CPrimitiveRestrictions(pattern, minLength, maxLength, minInclusive, maxInclusive, "", "", length);
}
CPrimitiveRestrictions NoFacets()
{
    return Facets("", -1, -1, "", "");
}

[[noreturn]] void BadIndex(int propertyIndex)
{
    throw COrvexInvalidParamException(FormatString("Invalid property index %d", propertyIndex));
}

// Values outside an enumeration never reach a property.
std::int32_t CheckedEnum(std::int32_t value, std::int32_t count, const char* type)
{
    if (value < 0 || value >= count)
        throw COrvexInvalidValueException(FormatString("The value [%d] is not a valid %s", value, type));
    return value;
}

int EnumFromText(const char* text, const char* const* names, int count, const char* type)
{
    for (int i = 0; i < count; ++i)
        if (std::strcmp(text, names[i]) == 0) return i;
    throw COrvexInvalidValueException(FormatString("The value [%s] is not a valid %s", text, type));
}

const char* const kGenres[] = {"fiction", "science", "history", "poetry"};
const char* const kConditions[] = {"new", "good", "worn"};
const char* const kBindings[] = {"hardcover", "paperback"};

// One set of tables per class, built on first use and shared by every object.
struct CTables
{
    CParentElementInfo* info = nullptr;
    CElementInfo** elements = nullptr;
    CAttributeInfo** attributes = nullptr;
};

CTables g_address, g_print, g_edition, g_book, g_adult, g_student, g_member, g_library;

const CTables& AddressTables()
{
    static const bool built = [] {
        g_address.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "PostalAddress", NS, -1, true, false);
        g_address.elements = new CElementInfo* [4] {
            new CElementInfoSeqPrimMnd("Street", NS, 1, ItemType_string, nullptr, Rule::Preserve,
                                       Facets("", 1, -1, "", "")),
                new CElementInfoSeqPrimMnd("City", NS, 2, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
                new CElementInfoSeqPrimOpt("Postcode", NS, 3, ItemType_string, nullptr, Rule::Collapse,
                                           Facets("", -1, 10, "", "")),
                nullptr
        };
        g_address.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("country", "", 0, true, ItemType_string, nullptr, Rule::Collapse,
                                        Facets("[A-Z]{2}", -1, -1, "", "")),
                nullptr
        };
        return true;
    }();
    (void)built;
    return g_address;
}

const CTables& PrintTables()
{
    static const bool built = [] {
        g_print.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Print", NS, -1, true, false);
        g_print.elements = new CElementInfo* [2] {
            new CElementInfoSeqEnumMnd("Binding", NS, 1, BindingToString, BindingFromString), nullptr
        };
        g_print.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("pages", "", 0, false, ItemType_i4, nullptr, Rule::Collapse,
                                        Facets("", -1, -1, "1", "5000")),
                nullptr
        };
        return true;
    }();
    (void)built;
    return g_print;
}

const CTables& EditionTables()
{
    static const bool built = [] {
        g_edition.info =
            new CParentElementInfo(ElementGroup_Choice, ElementType_Element, "Edition", NS, -1, true, false);
        g_edition.elements = new CElementInfo* [4] {
            new CElementInfoChoiceClsOpt("Print", NS, 0, ElementType_Element, CLibraryFactory::CreateClass,
                                         CLibraryFactory::Class_Print),
                new CElementInfoChoicePrimOpt("Ebook", NS, 1, ItemType_string, nullptr, Rule::Collapse,
                                              Facets("epub|pdf|mobi", -1, -1, "", "")),
                new CElementInfoChoicePrimOpt("Audio", NS, 2, ItemType_i4, nullptr, Rule::Collapse,
                                              Facets("", -1, -1, "1", "")),
                nullptr
        };
        g_edition.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_edition;
}

const CTables& BookTables()
{
    static const bool built = [] {
        g_book.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Book", NS, -1, true, false);
        g_book.elements = new CElementInfo* [8] {
            new CElementInfoSeqPrimMnd("Title", NS, 2, ItemType_string, nullptr, Rule::Preserve,
                                       Facets("", 1, 200, "", "")),
                new CElementInfoSeqPrimMnd("Author", NS, 3, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
                new CElementInfoSeqEnumMnd("Genre", NS, 4, GenreToString, GenreFromString),
                new CElementInfoSeqPrimOpt("Year", NS, 5, ItemType_i4, nullptr, Rule::Collapse,
                                           Facets("", -1, -1, "1450", "2100")),
                new CElementInfoSeqPrimOpt("Price", NS, 6, ItemType_r8, "%.2f", Rule::Collapse,
                                           Facets("", -1, -1, "0", "")),
                new CElementInfoSeqEnumOpt("Condition", NS, 7, ConditionToString, ConditionFromString),
                new CElementInfoSeqClsOpt("Edition", NS, 8, ElementType_Element, CLibraryFactory::CreateClass,
                                          CLibraryFactory::Class_Edition),
                nullptr
        };
        g_book.attributes = new CAttributeInfo* [3] {
            new CAttributeInfoPrimitive("isbn", "", 0, false, ItemType_string, nullptr, Rule::Collapse,
                                        Facets("[0-9]{13}", -1, -1, "", "")),
                new CAttributeInfoPrimitive("lang", "", 1, true, ItemType_string, nullptr, Rule::Collapse,
                                            Facets("", -1, -1, "", "", 2)),
                nullptr
        };
        return true;
    }();
    (void)built;
    return g_book;
}

// The derived tables repeat the base's members first, as the extension does.
const CTables& AdultTables()
{
    static const bool built = [] {
        g_adult.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "AdultMembership", NS, -1, true, true);
        g_adult.elements = new CElementInfo* [3] {
            new CElementInfoSeqPrimMnd("Since", NS, 0, ItemType_i4, nullptr, Rule::Collapse,
                                       Facets("", -1, -1, "1900", "2100")),
                new CElementInfoSeqPrimMnd("Fee", NS, 1, ItemType_r8, "%.2f", Rule::Collapse,
                                           Facets("", -1, -1, "0", "")),
                nullptr
        };
        g_adult.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_adult;
}

const CTables& StudentTables()
{
    static const bool built = [] {
        g_student.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "StudentMembership", NS, -1, true, true);
        g_student.elements = new CElementInfo* [4] {
            new CElementInfoSeqPrimMnd("Since", NS, 0, ItemType_i4, nullptr, Rule::Collapse,
                                       Facets("", -1, -1, "1900", "2100")),
                new CElementInfoSeqPrimMnd("School", NS, 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
                new CElementInfoSeqPrimOpt("Graduation", NS, 2, ItemType_i4, nullptr, Rule::Collapse,
                                           Facets("", -1, -1, "1900", "2100")),
                nullptr
        };
        g_student.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_student;
}

const CTables& MemberTables()
{
    static const bool built = [] {
        g_member.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Member", NS, -1, true, false);
        g_member.elements = new CElementInfo* [4] {
            new CElementInfoSeqPrimMnd("Name", NS, 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
                new CElementInfoSeqAbsClsMnd("Membership", NS, 2, ElementType_Element,
                                             CLibraryFactory::CreateMembership),
                new CElementInfoSeqPrimOpt("Email", NS, 3, ItemType_string, nullptr, Rule::Collapse,
                                           Facets("[^@ ]+@[^@ ]+\\.[a-z]+", -1, -1, "", "")),
                nullptr
        };
        g_member.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("id", "", 0, false, ItemType_string, nullptr, Rule::Collapse,
                                        Facets("M[0-9]{4}", -1, -1, "", "")),
                nullptr
        };
        return true;
    }();
    (void)built;
    return g_member;
}

const CTables& LibraryTables()
{
    static const bool built = [] {
        g_library.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Library", NS, -1, true, false);
        g_library.elements = new CElementInfo* [4] {
            new CElementInfoSeqClsMnd("Address", NS, 1, ElementType_Element, nullptr, 0, true),
                new CElementInfoSeqClsCol("Book", NS, 2, ElementType_Element),
                new CElementInfoSeqClsCol("Member", NS, 3, ElementType_Element), nullptr
        };
        g_library.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("name", "", 0, false, ItemType_string, nullptr, Rule::Preserve,
                                        Facets("", 1, 60, "", "")),
                nullptr
        };
        return true;
    }();
    (void)built;
    return g_library;
}

// Releases the tables when the program ends.
struct CTablesCleaner
{
    ~CTablesCleaner()
    {
        CLibrary::CleanMetaData();
        CMember::CleanMetaData();
        CStudentMembership::CleanMetaData();
        CAdultMembership::CleanMetaData();
        CBook::CleanMetaData();
        CEdition::CleanMetaData();
        CPrint::CleanMetaData();
        CPostalAddress::CleanMetaData();
    }
} g_cleaner;

}  // namespace

const char* GenreToString(int value)
{
    return value >= 0 && value < 4 ? kGenres[value] : "";
}
int GenreFromString(const char* text)
{
    return EnumFromText(text, kGenres, 4, "Genre");
}
const char* ConditionToString(int value)
{
    return value >= 0 && value < 3 ? kConditions[value] : "";
}
int ConditionFromString(const char* text)
{
    return EnumFromText(text, kConditions, 3, "Condition");
}
const char* BindingToString(int value)
{
    return value >= 0 && value < 2 ? kBindings[value] : "";
}
int BindingFromString(const char* text)
{
    return EnumFromText(text, kBindings, 2, "Binding");
}

// --- CPostalAddress

CPostalAddress::CPostalAddress()
{
    SetElementName("Address");
    Init();
}

CSmartPtr<CPostalAddress> CPostalAddress::CreateInstance()
{
    return CSmartPtr<CPostalAddress>(new CPostalAddress());
}

void CPostalAddress::Init()
{
    m_country.clear();
    m_hasCountry = false;
    m_street.clear();
    m_city.clear();
    m_postcode.clear();
    m_hasPostcode = false;
}

void CPostalAddress::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (!read)
                SetCountry(value.GetString());
            else if (m_hasCountry)
                value.SetString(m_country);
            else
                value.SetInvalid();
            break;
        case 1:
            if (read)
                value.SetString(m_street);
            else
                SetStreet(value.GetString());
            break;
        case 2:
            if (read)
                value.SetString(m_city);
            else
                SetCity(value.GetString());
            break;
        case 3:
            if (!read)
                SetPostcode(value.GetString());
            else if (m_hasPostcode)
                value.SetString(m_postcode);
            else
                value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CPostalAddress::GetClassInfo() const
{
    return AddressTables().info;
}
CElementInfo** CPostalAddress::GetClassElementInfo() const
{
    return AddressTables().elements;
}
CAttributeInfo** CPostalAddress::GetClassAttributeInfo() const
{
    return AddressTables().attributes;
}
void CPostalAddress::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_address.info, g_address.elements, g_address.attributes);
}

// --- CPrint

CPrint::CPrint(const char* elementName)
{
    SetElementName(elementName);
    Init();
}

CSmartPtr<CPrint> CPrint::CreateInstance(const char* elementName)
{
    return CSmartPtr<CPrint>(new CPrint(elementName));
}

void CPrint::Init()
{
    m_pages = 1;
    m_binding = Binding_Paperback;
}

void CPrint::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetI4(m_pages);
            else
                SetPages(value.GetI4());
            break;
        case 1:
            if (read)
                value.SetI4(m_binding);
            else
                SetBinding(static_cast<Binding>(CheckedEnum(value.GetI4(), 2, "Binding")));
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CPrint::GetClassInfo() const
{
    return PrintTables().info;
}
CElementInfo** CPrint::GetClassElementInfo() const
{
    return PrintTables().elements;
}
CAttributeInfo** CPrint::GetClassAttributeInfo() const
{
    return PrintTables().attributes;
}
void CPrint::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_print.info, g_print.elements, g_print.attributes);
}

// --- CEdition

CEdition::CEdition(const char* elementName)
{
    SetElementName(elementName);
    Init();
}

CSmartPtr<CEdition> CEdition::CreateInstance(const char* elementName)
{
    return CSmartPtr<CEdition>(new CEdition(elementName));
}

void CEdition::Init()
{
    m_selected.clear();
    m_print = nullptr;
    m_ebook.clear();
    m_hasEbook = false;
    m_audio = 0;
    m_hasAudio = false;
}

void CEdition::SetPrint(CPrint* value)
{
    Throw_IfElementNameDiffers(value, "Print");
    Choice_SelectElement("Print", value, m_selected);
    m_print = value;
}

void CEdition::SetEbook(const std::string& value)
{
    Choice_SetElementValid(true, "Ebook", m_selected);
    m_ebook = value;
    m_hasEbook = true;
}

void CEdition::ClearEbook()
{
    if (m_hasEbook) Choice_SetElementValid(false, "Ebook", m_selected);
    m_hasEbook = false;
}

void CEdition::SetAudio(std::int32_t value)
{
    Choice_SetElementValid(true, "Audio", m_selected);
    m_audio = value;
    m_hasAudio = true;
}

void CEdition::ClearAudio()
{
    if (m_hasAudio) Choice_SetElementValid(false, "Audio", m_selected);
    m_hasAudio = false;
}

void CEdition::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetXmlObject(m_print);
            else
                SetPrint(dynamic_cast<CPrint*>(value.GetXmlObject().Get()));
            break;
        case 1:
            if (!read)
                SetEbook(value.GetString());
            else if (m_hasEbook)
                value.SetString(m_ebook);
            else
                value.SetInvalid();
            break;
        case 2:
            if (!read)
                SetAudio(value.GetI4());
            else if (m_hasAudio)
                value.SetI4(m_audio);
            else
                value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CEdition::GetClassInfo() const
{
    return EditionTables().info;
}
CElementInfo** CEdition::GetClassElementInfo() const
{
    return EditionTables().elements;
}
CAttributeInfo** CEdition::GetClassAttributeInfo() const
{
    return EditionTables().attributes;
}
void CEdition::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_edition.info, g_edition.elements, g_edition.attributes);
}

// --- CBook

CBook::CBook()
{
    SetElementName("Book");
    Init();
}

CSmartPtr<CBook> CBook::CreateInstance()
{
    return CSmartPtr<CBook>(new CBook());
}

void CBook::Init()
{
    m_isbn.clear();
    m_lang.clear();
    m_hasLang = false;
    m_title.clear();
    m_author.clear();
    m_genre = Genre_Fiction;
    m_year = 0;
    m_hasYear = false;
    m_price = 0;
    m_hasPrice = false;
    m_condition = Condition_New;
    m_hasCondition = false;
    m_edition = nullptr;
}

void CBook::SetEdition(CEdition* value)
{
    Throw_IfElementNameDiffers(value, "Edition");
    m_edition = value;
}

void CBook::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetString(m_isbn);
            else
                SetIsbn(value.GetString());
            break;
        case 1:
            if (!read)
                SetLang(value.GetString());
            else if (m_hasLang)
                value.SetString(m_lang);
            else
                value.SetInvalid();
            break;
        case 2:
            if (read)
                value.SetString(m_title);
            else
                SetTitle(value.GetString());
            break;
        case 3:
            if (read)
                value.SetString(m_author);
            else
                SetAuthor(value.GetString());
            break;
        case 4:
            if (read)
                value.SetI4(m_genre);
            else
                SetGenre(static_cast<Genre>(CheckedEnum(value.GetI4(), 4, "Genre")));
            break;
        case 5:
            if (!read)
                SetYear(value.GetI4());
            else if (m_hasYear)
                value.SetI4(m_year);
            else
                value.SetInvalid();
            break;
        case 6:
            if (!read)
                SetPrice(value.GetR8());
            else if (m_hasPrice)
                value.SetR8(m_price);
            else
                value.SetInvalid();
            break;
        case 7:
            if (!read)
                SetCondition(static_cast<Condition>(CheckedEnum(value.GetI4(), 3, "Condition")));
            else if (m_hasCondition)
                value.SetI4(m_condition);
            else
                value.SetInvalid();
            break;
        case 8:
            if (read)
                value.SetXmlObject(m_edition);
            else
                SetEdition(dynamic_cast<CEdition*>(value.GetXmlObject().Get()));
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CBook::GetClassInfo() const
{
    return BookTables().info;
}
CElementInfo** CBook::GetClassElementInfo() const
{
    return BookTables().elements;
}
CAttributeInfo** CBook::GetClassAttributeInfo() const
{
    return BookTables().attributes;
}
void CBook::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_book.info, g_book.elements, g_book.attributes);
}

// --- CMembership and its two derived classes

CMembership::CMembership()
{
    SetElementName("Membership");
    CMembership::Init();
}

void CMembership::Init()
{
    m_since = 1900;
}

void CMembership::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetI4(m_since);
            else
                SetSince(value.GetI4());
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CAdultMembership::CAdultMembership()
{
    CAdultMembership::Init();
}

CSmartPtr<CAdultMembership> CAdultMembership::CreateInstance()
{
    return CSmartPtr<CAdultMembership>(new CAdultMembership());
}

void CAdultMembership::Init()
{
    CMembership::Init();
    m_fee = 0;
}

void CAdultMembership::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 1:
            if (read)
                value.SetR8(m_fee);
            else
                SetFee(value.GetR8());
            break;
        default:
            CMembership::AccessProperty(propertyIndex, read, value);
    }
}

CParentElementInfo* CAdultMembership::GetClassInfo() const
{
    return AdultTables().info;
}
CElementInfo** CAdultMembership::GetClassElementInfo() const
{
    return AdultTables().elements;
}
CAttributeInfo** CAdultMembership::GetClassAttributeInfo() const
{
    return AdultTables().attributes;
}
void CAdultMembership::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_adult.info, g_adult.elements, g_adult.attributes);
}

CStudentMembership::CStudentMembership()
{
    CStudentMembership::Init();
}

CSmartPtr<CStudentMembership> CStudentMembership::CreateInstance()
{
    return CSmartPtr<CStudentMembership>(new CStudentMembership());
}

void CStudentMembership::Init()
{
    CMembership::Init();
    m_school.clear();
    m_graduation = 0;
    m_hasGraduation = false;
}

void CStudentMembership::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 1:
            if (read)
                value.SetString(m_school);
            else
                SetSchool(value.GetString());
            break;
        case 2:
            if (!read)
                SetGraduation(value.GetI4());
            else if (m_hasGraduation)
                value.SetI4(m_graduation);
            else
                value.SetInvalid();
            break;
        default:
            CMembership::AccessProperty(propertyIndex, read, value);
    }
}

CParentElementInfo* CStudentMembership::GetClassInfo() const
{
    return StudentTables().info;
}
CElementInfo** CStudentMembership::GetClassElementInfo() const
{
    return StudentTables().elements;
}
CAttributeInfo** CStudentMembership::GetClassAttributeInfo() const
{
    return StudentTables().attributes;
}
void CStudentMembership::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_student.info, g_student.elements, g_student.attributes);
}

// --- CMember

CMember::CMember()
{
    SetElementName("Member");
    Init();
}

CSmartPtr<CMember> CMember::CreateInstance()
{
    return CSmartPtr<CMember>(new CMember());
}

void CMember::Init()
{
    m_id.clear();
    m_name.clear();
    // An abstract child has no default object: the factory makes one on reading.
    m_membership = nullptr;
    m_email.clear();
    m_hasEmail = false;
}

void CMember::SetMembership(CMembership* value)
{
    Throw_IfPropertyIsNull(value, "Membership");
    Throw_IfElementNameDiffers(value, "Membership");
    m_membership = value;
}

void CMember::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetString(m_id);
            else
                SetId(value.GetString());
            break;
        case 1:
            if (read)
                value.SetString(m_name);
            else
                SetName(value.GetString());
            break;
        case 2:
            if (read)
                value.SetXmlObject(m_membership);
            else
                SetMembership(dynamic_cast<CMembership*>(value.GetXmlObject().Get()));
            break;
        case 3:
            if (!read)
                SetEmail(value.GetString());
            else if (m_hasEmail)
                value.SetString(m_email);
            else
                value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CMember::GetClassInfo() const
{
    return MemberTables().info;
}
CElementInfo** CMember::GetClassElementInfo() const
{
    return MemberTables().elements;
}
CAttributeInfo** CMember::GetClassAttributeInfo() const
{
    return MemberTables().attributes;
}
void CMember::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_member.info, g_member.elements, g_member.attributes);
}

// --- CBookCol and CMemberCol

CSmartPtr<CBook> CBookCol::Add()
{
    CSmartPtr<CBook> book = CBook::CreateInstance();
    SetElementName(book.Get(), GetElementName().c_str());
    AppendItem(book);
    return book;
}

CSmartPtr<CBook> CBookCol::Item(int index) const
{
    return CSmartPtr<CBook>(static_cast<CBook*>(GetNodeAtIndex(index)->GetItem()));
}

void CBookCol::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext& context,
                         bool) const
{
    ValidateCount(context);
    for (CNode* node = GetHead(); node; node = node->GetNext())
        CXmlObjectBase::ToXml_Int(node->GetItem(), writer, false, namespaceUri, context, false);
}

CXmlElement* CBookCol::FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext& context, bool)
{
    const std::string& name = ElementNameRef();
    const std::string namespaceUri = GetNamespace();
    CXmlElement* current = firstChild;
    while (current && DoesElementNameMatch(context, current, name.c_str(), namespaceUri.c_str())) {
        CSmartPtr<CBook> book = CBook::CreateInstance();
        CXmlObjectBase::FromXml_Int(book.Get(), current, current->GetFirstElement(), context);
        AppendItem(book);
        current = current->GetNextSiblingElement();
    }
    return current;
}

CSmartPtr<CMember> CMemberCol::Add()
{
    CSmartPtr<CMember> member = CMember::CreateInstance();
    SetElementName(member.Get(), GetElementName().c_str());
    AppendItem(member);
    return member;
}

CSmartPtr<CMember> CMemberCol::Item(int index) const
{
    return CSmartPtr<CMember>(static_cast<CMember*>(GetNodeAtIndex(index)->GetItem()));
}

void CMemberCol::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri, const CXmlSerializationContext& context,
                           bool) const
{
    ValidateCount(context);
    for (CNode* node = GetHead(); node; node = node->GetNext())
        CXmlObjectBase::ToXml_Int(node->GetItem(), writer, false, namespaceUri, context, false);
}

CXmlElement* CMemberCol::FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext& context,
                                     bool)
{
    const std::string& name = ElementNameRef();
    const std::string namespaceUri = GetNamespace();
    CXmlElement* current = firstChild;
    while (current && DoesElementNameMatch(context, current, name.c_str(), namespaceUri.c_str())) {
        CSmartPtr<CMember> member = CMember::CreateInstance();
        CXmlObjectBase::FromXml_Int(member.Get(), current, current->GetFirstElement(), context);
        AppendItem(member);
        current = current->GetNextSiblingElement();
    }
    return current;
}

// --- CLibrary

CLibrary::CLibrary()
    : m_address(CPostalAddress::CreateInstance()),
      m_books(new CBookCol("Book", NS, 1, -1)),
      m_members(new CMemberCol("Member", NS, 0, 1000))
{
    SetElementName("Library");
    Init();
}

CSmartPtr<CLibrary> CLibrary::CreateInstance()
{
    return CSmartPtr<CLibrary>(new CLibrary());
}

void CLibrary::Init()
{
    m_name.clear();
    m_address->Init();
    m_books->Clear();
    m_members->Clear();
}

void CLibrary::SetAddress(CPostalAddress* value)
{
    Throw_IfPropertyIsNull(value, "Address");
    Throw_IfElementNameDiffers(value, "Address");
    m_address = value;
}

void CLibrary::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetString(m_name);
            else
                SetName(value.GetString());
            break;
        case 1:
            if (read)
                value.SetXmlObject(m_address);
            else
                SetAddress(dynamic_cast<CPostalAddress*>(value.GetXmlObject().Get()));
            break;
        case 2:
            if (read) value.SetXmlCollection(m_books);
            break;
        case 3:
            if (read) value.SetXmlCollection(m_members);
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CLibrary::GetClassInfo() const
{
    return LibraryTables().info;
}
CElementInfo** CLibrary::GetClassElementInfo() const
{
    return LibraryTables().elements;
}
CAttributeInfo** CLibrary::GetClassAttributeInfo() const
{
    return LibraryTables().attributes;
}
void CLibrary::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_library.info, g_library.elements, g_library.attributes);
}

// --- CLibraryFactory

CSmartPtr<CXmlObjectBase> CLibraryFactory::CreateClass(int classId, const char* elementName)
{
    switch (classId) {
        case Class_Edition:
            return CSmartPtr<CXmlObjectBase>(CEdition::CreateInstance(elementName).Get());
        case Class_Print:
            return CSmartPtr<CXmlObjectBase>(CPrint::CreateInstance(elementName).Get());
        default:
            throw COrvexInvalidParamException(FormatString("Unknown class id %d", classId));
    }
}

CSmartPtr<CXmlObjectBase> CLibraryFactory::CreateMembership(CXmlElement* element)
{
    if (GetElementTypeNamespaceUri(element) != kLibraryNamespace) return CSmartPtr<CXmlObjectBase>();
    const std::string type = GetElementType(element);
    if (type == "AdultMembership") return CSmartPtr<CXmlObjectBase>(CAdultMembership::CreateInstance().Get());
    if (type == "StudentMembership") return CSmartPtr<CXmlObjectBase>(CStudentMembership::CreateInstance().Get());
    return CSmartPtr<CXmlObjectBase>();
}

}  // namespace OrvexExamples
