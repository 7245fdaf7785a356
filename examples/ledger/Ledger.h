// A ledger of a lending library's charges, written the way the code generator emits
// a class whose members are repeating elements of primitive types. The schema it
// stands for (namespace urn:orvex:ledger):
//
//   Ledger   @owner (1..60 bytes, required)
//            Amount (decimal, 0.01..10000.00, two places)  1..4
//            Due    (date, from 2000-01-01, before 2100-01-01)  0..3
//            Status (string enumeration open|settled|disputed)  1..2
//            Flag   (boolean)  0..2
//
// Each repeating member is a typed collection that carries its own facets and
// bounds. An enumeration of a repeating string is generated as the pattern of its
// alternatives, so the items stay text.
#pragma once

#include <string>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5;

extern const char* const kLedgerNamespace;

class CLedger : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kLedgerNamespace; }
    std::string GetNamespace() const override { return kLedgerNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CLedger();
    static CSmartPtr<CLedger> CreateInstance();

    std::string GetOwner() const { return m_owner; }
    void SetOwner(const std::string& value) { m_owner = value; }
    CSmartPtr<CdecimalCol> GetAmounts() const { return m_amounts; }
    CSmartPtr<CdateCol> GetDueDates() const { return m_dueDates; }
    CSmartPtr<CstringCol> GetStatuses() const { return m_statuses; }
    CSmartPtr<CbooleanCol> GetFlags() const { return m_flags; }

private:
    std::string m_owner;
    CSmartPtr<CdecimalCol> m_amounts;
    CSmartPtr<CdateCol> m_dueDates;
    CSmartPtr<CstringCol> m_statuses;
    CSmartPtr<CbooleanCol> m_flags;
};

}  // namespace OrvexExamples
