#include "examples/extension/Note.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

const char* const kNoteNamespace = "urn:orvex:note";

namespace {

const char* const NS = kNoteNamespace;

CParentElementInfo* g_info = nullptr;
CElementInfo** g_elements = nullptr;
CAttributeInfo** g_attributes = nullptr;

void BuildTables()
{
    static const bool built = [] {
        const CPrimitiveRestrictions none("", -1, -1, "", "", "", "", -1);
        g_info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Note", NS, -1, true, false);
        g_elements = new CElementInfo* [4] {
            new CElementInfoSeqPrimMnd("Title", NS, 2, ItemType_string, nullptr, Rule::Preserve, none),
                new CElementInfoSeqPrimMnd("Body", NS, 3, ItemType_string, nullptr, Rule::Preserve, none),
                new CElementInfoSeqUntpdCol("AnyElement", "##other", 4), nullptr
        };
        g_attributes = new CAttributeInfo* [3] {
            new CAttributeInfoPrimitive("id", "", 0, false, ItemType_string, nullptr, Rule::Collapse, none),
                new CAttributeInfoAny("AnyAttribute", "", 1, true, "##other", NS), nullptr
        };
        return true;
    }();
    (void)built;
}

struct CTablesCleaner
{
    ~CTablesCleaner() { CNote::CleanMetaData(); }
} g_cleaner;

}  // namespace

CNote::CNote(const char* elementName)
{
    SetElementName(elementName);
    Init();
}

CSmartPtr<CNote> CNote::CreateInstance(const char* elementName)
{
    return CSmartPtr<CNote>(new CNote(elementName));
}

void CNote::Init()
{
    m_id.clear();
    m_anyAttributes = new CAttributeCol("", "##other", NS);
    m_title.clear();
    m_body.clear();
    m_extensions = new CElementCol("", "##any", NS, 0, -1);
}

void CNote::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                LendString(value, m_id);
            else
                SetId(value.GetString());
            break;
        case 1:
            if (read) value.SetXmlCollection(m_anyAttributes.Get());
            break;
        case 2:
            if (read)
                LendString(value, m_title);
            else
                SetTitle(value.GetString());
            break;
        case 3:
            if (read)
                LendString(value, m_body);
            else
                SetBody(value.GetString());
            break;
        case 4:
            if (read) value.SetXmlCollection(m_extensions.Get());
            break;
        default:
            throw COrvexInvalidParamException(FormatString("Invalid property index %d", propertyIndex));
    }
}

CParentElementInfo* CNote::GetClassInfo() const
{
    BuildTables();
    return g_info;
}
CElementInfo** CNote::GetClassElementInfo() const
{
    BuildTables();
    return g_elements;
}
CAttributeInfo** CNote::GetClassAttributeInfo() const
{
    BuildTables();
    return g_attributes;
}
void CNote::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_info, g_elements, g_attributes);
}

}  // namespace OrvexExamples
