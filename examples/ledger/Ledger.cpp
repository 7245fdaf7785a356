#include "examples/ledger/Ledger.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

const char* const kLedgerNamespace = "urn:orvex:ledger";

namespace {

const char* const NS = kLedgerNamespace;

CParentElementInfo* g_info = nullptr;
CElementInfo** g_elements = nullptr;
CAttributeInfo** g_attributes = nullptr;

// Built on first use and shared by every ledger. The collection members hold no
// facets: their collections do.
void BuildTables()
{
    static const bool built = [] {
        g_info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Ledger", NS, -1, true, false);
        g_elements = new CElementInfo* [5] {
            new CElementInfoSeqPrimCol("Amount", NS, 1), new CElementInfoSeqPrimCol("Due", NS, 2),
                new CElementInfoSeqPrimCol("Status", NS, 3), new CElementInfoSeqPrimCol("Flag", NS, 4), nullptr
        };
        g_attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("owner", "", 0, false, ItemType_string, nullptr, Rule::Preserve,
                                        CPrimitiveRestrictions("", 1, 60, "", "", "", "", -1)),
                nullptr
        };
        return true;
    }();
    (void)built;
}

// Releases the tables when the program ends.
struct CTablesCleaner
{
    ~CTablesCleaner() { CLedger::CleanMetaData(); }
} g_cleaner;

}  // namespace

CLedger::CLedger()
    : m_amounts(new CdecimalCol("Amount", NS, 1, 4, "", -1, -1, "0.01", "10000.00", "", "", -1, Rule::Collapse,
                                "2")),
      m_dueDates(new CdateCol("Due", NS, 0, 3, "", -1, -1, "2000-01-01", "", "", "2100-01-01", -1, Rule::Collapse,
                              nullptr)),
      m_statuses(new CstringCol("Status", NS, 1, 2, "open|settled|disputed", -1, -1, "", "", "", "", -1,
                                Rule::Collapse, nullptr)),
      m_flags(new CbooleanCol("Flag", NS, 0, 2, "", -1, -1, "", "", "", "", -1, Rule::Collapse, nullptr))
{
    SetElementName("Ledger");
    Init();
}

CSmartPtr<CLedger> CLedger::CreateInstance()
{
    return CSmartPtr<CLedger>(new CLedger());
}

void CLedger::Init()
{
    m_owner.clear();
    m_amounts->Clear();
    m_dueDates->Clear();
    m_statuses->Clear();
    m_flags->Clear();
}

void CLedger::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                LendString(value, m_owner);
            else
                SetOwner(value.GetString());
            break;
        case 1:
            if (read) value.SetXmlCollection(m_amounts);
            break;
        case 2:
            if (read) value.SetXmlCollection(m_dueDates);
            break;
        case 3:
            if (read) value.SetXmlCollection(m_statuses);
            break;
        case 4:
            if (read) value.SetXmlCollection(m_flags);
            break;
        default:
            throw COrvexInvalidParamException(FormatString("Invalid property index %d", propertyIndex));
    }
}

CParentElementInfo* CLedger::GetClassInfo() const
{
    BuildTables();
    return g_info;
}
CElementInfo** CLedger::GetClassElementInfo() const
{
    BuildTables();
    return g_elements;
}
CAttributeInfo** CLedger::GetClassAttributeInfo() const
{
    BuildTables();
    return g_attributes;
}
void CLedger::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_info, g_elements, g_attributes);
}

}  // namespace OrvexExamples
