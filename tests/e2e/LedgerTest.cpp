// The ledger read and written through FromXml and ToXml: lists of decimals, dates,
// enumerated strings and booleans, each facet broken once and each occurrence
// bound passed, checked by exact text along the chain from the root.
#include <gtest/gtest.h>

#include <vector>

#include "TestUtil.h"
#include "e2e/EndToEndSupport.h"
#include "examples/ExamplePaths.h"
#include "examples/ledger/Ledger.h"
#include "examples/purchase-order/PurchaseOrderTools.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;
using namespace OrvexTest;

namespace {

using Texts = std::vector<std::string>;

std::string Items(const char* name, const Texts& texts)
{
    std::string xml;
    for (const std::string& text : texts) xml += std::string("<g:") + name + ">" + text + "</g:" + name + ">";
    return xml;
}

std::string Ledger(const Texts& amounts, const Texts& dues, const Texts& statuses, const Texts& flags)
{
    return "<g:Ledger xmlns:g=\"urn:orvex:ledger\" owner=\"Ely\">" + Items("Amount", amounts) + Items("Due", dues) +
           Items("Status", statuses) + Items("Flag", flags) + "</g:Ledger>";
}

std::string InLedger(const std::string& cause)
{
    return "Failed to process the element [Ledger]\n" + cause;
}

}  // namespace

TEST(Ledger, SampleReadsIntoTypedListsAndWritesBackTheSame)
{
    CSmartPtr<CLedger> ledger = CLedger::CreateInstance();
    ledger->FromXml(ReadTextFile(ExamplePath("ledger/ledger.xml")).c_str());
    // The value is held as read; the written text below has the schema's two places.
    EXPECT_EQ("12.5", ledger->GetAmounts()->Item(0).ToString());
    EXPECT_TRUE(ledger->GetDueDates()->Item(1).HasTimeZone());

    const std::string written = ledger->ToXml(false, false, EOL_LF);
    EXPECT_NE(std::string::npos,
              written.find("<AA:Amount>12.50</AA:Amount><AA:Amount>0.01</AA:Amount><AA:Amount>10000.00</AA:Amount>"
                           "<AA:Due>2026-12-01</AA:Due><AA:Due>2027-01-15+01:00</AA:Due>"
                           "<AA:Status>open</AA:Status><AA:Status>disputed</AA:Status>"
                           "<AA:Flag>true</AA:Flag><AA:Flag>false</AA:Flag>"))
        << written;
    CSmartPtr<CLedger> again = CLedger::CreateInstance();
    again->FromXml(written.c_str());
    EXPECT_EQ(written, again->ToXml(false, false, EOL_LF));
}

TEST(Ledger, EachFacetBrokenOnceFailsTheReadAndTheSetter)
{
    // One broken facet per kind of list.
    const Texts amount{"1"}, status{"open"};
    struct Case { std::string xml; const char* cause; } cases[] = {
        {Ledger({"1", "10000.001"}, {}, status, {}), "Invalid Value for Amount [10000.001]"},
        {Ledger(amount, {"1999-12-31"}, status, {}), "Invalid Value for Due [1999-12-31]"},
        {Ledger(amount, {}, {"closed"}, {}), "Invalid Value for Status [closed]"},
        // A boolean has no facet to break: only its text can be wrong.
        {Ledger(amount, {}, status, {"maybe"}), "A Boolean Value read from an XML document was invalid [maybe]. Valid values are 'true', "
                                                "'false', '1', or '0'"},
    };
    CSmartPtr<CLedger> ledger = CLedger::CreateInstance();
    for (const Case& c : cases) EXPECT_EQ(InLedger(c.cause), ReadChain(ledger, c.xml)) << c.xml;

    // The typed setters of the generated lists test the same facets; the collections'
    // own tests show that a refused value leaves the list as it was.
    EXPECT_THROW_MSG(ledger->GetAmounts()->Add(CDecimal("10000.01")), COrvexException,
                     "Invalid Value for Amount [10000.01]");
    EXPECT_THROW_MSG(ledger->GetStatuses()->Add("Open"), COrvexException, "Invalid Value for Status [Open]");
}

// The four lists share one descriptor class, and each typed list's own bounds on
// writing are tested with the collections: one maximum and one minimum here.
TEST(Ledger, OccurrenceBoundsAreTestedOnReadAndWrite)
{
    const Texts one{"1"}, open{"open"};
    const char* const maximum = "The Maximum number of [%s] elements allowed in this collection is %d";
    const char* const minimum = "The Minimum number of [%s] elements allowed in this collection is %d";
    struct Case { std::string xml; const char* bound; const char* name; int count; } cases[] = {
        {Ledger({"1", "2", "3", "4", "5"}, {}, open, {}), maximum, "Amount", 4},
        {Ledger(one, {}, {}, {}), minimum, "Status", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.xml);
        const std::string cause = FormatString(c.bound, c.name, c.count);
        CSmartPtr<CLedger> ledger = CLedger::CreateInstance();
        EXPECT_EQ(InLedger(cause), ReadChain(ledger, c.xml));
        // Read past the bounds, the ledger is refused again when it is written; but an
        // empty list writes nothing, so its minimum is not looked at then.
        EXPECT_EQ("read", ReadChain(ledger, c.xml, "counts"));
        if (c.bound == maximum)
            EXPECT_EQ("Failed to convert the element [Ledger] to XML\n" + cause, WriteChain(ledger));
        else
            EXPECT_EQ(WriteChain(ledger), WriteChain(ledger, "counts"));
        EXPECT_EQ(0u, WriteChain(ledger, "counts").find("<AA:Ledger")) << WriteChain(ledger, "counts");
    }
}
