// Every typed value collection, driven from one table: reading a run of items,
// writing them, the facets, the occurrence bounds, the index rules, the change
// events, copies, and the kind test of the date collections.
#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <vector>

#include "CollectionTestTypes.h"
#include "TestUtil.h"
#include "orvexxml/collections/TypedCollections.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexXmlLib5;
using OrvexTest::CListener;
using Rule = CWhitespaceUtils::WhitespaceRule;

namespace {

// A collection of the family with its reading and writing opened.
template <typename C>
class TProbe : public C
{
public:
    explicit TProbe(const char* pattern, int minLength, int maxLength, const char* minInclusive,
                    const char* maxInclusive, const char* minExclusive, const char* maxExclusive, Rule rule,
                    const char* format)
        : C("v", "", 1, 3, pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive,
              maxExclusive, -1, rule, format)
    {
    }
    CXmlElement* Read(CXmlElement* first)
    {
        return this->FromXml_Int(nullptr, first, CXmlSerializationContext(), false);
    }
    // The items inside <r>, written without formatting.
    std::string Write(const CXmlSerializationContext& context) const
    {
        CXmlTextWriter writer;
        writer.SetFormatted(false);
        writer.WriteStartElement("r", "");
        this->ToXml_Int(&writer, false, "", context, false);
        writer.WriteEndElement();
        return writer.GetString();
    }
};

struct Row
{
    const char* className;
    ItemType type;
    std::function<void(const Row&)> run;  // Exercise with the class and its facets
    const char* first;
    const char* second;
    const char* written;     // both items as the collection writes them
    const char* breaking;    // parses, but breaks a facet (null: nothing can)
    const char* brokenText;  // the value as the facet failure shows it
    const char* unparsable;  // refused by the conversion (null: nothing is)
    const char* kindText;    // the date collections' refusal of another kind
};

const char* const kDates = "Dates added to this collection must be of type dt_";

// Every check on one class of the family, its facets set by Make.
template <typename C>
void Exercise(const Row& row, TProbe<C>* probe)
{
    CSmartPtr<CXmlTypeCollection> held(probe);
    CXmlTypeCollection& col = *probe;
    EXPECT_EQ(row.type, col.GetItemType());

    // The variant and so the collection descriptors take every kind.
    OrvexVariant variant;
    variant.SetXmlCollection(&col);
    EXPECT_EQ(&col, variant.GetXmlCollection().Get());

    EXPECT_THROW_MSG(probe->Item(0), COrvexInvalidParamException, "Index 0 is out of range, use 0 - -1");

    CXmlDocument doc;
    const std::string input = std::string("<r><v>") + row.first + "</v><v>" + row.second +
                              "</v><x/><v>" + row.first + "</v></r>";
    doc.LoadXml(input.c_str());
    CXmlElement* next = probe->Read(doc.GetDocumentElement()->GetFirstElement());
    ASSERT_NE(nullptr, next);
    EXPECT_EQ("x", next->GetLocalName());
    ASSERT_EQ(2, col.GetCount());
    EXPECT_EQ(2, std::distance(probe->begin(), probe->end()));
    const std::string written = probe->Write(CXmlSerializationContext());
    EXPECT_NE(std::string::npos, written.find(row.written)) << written;
    EXPECT_EQ(written, CSmartPtr<TProbe<C>>(new TProbe<C>(*probe))->Write(CXmlSerializationContext()));

    // Index rules, and the events of what changes.
    CSmartPtr<CListener> listener(new CListener());
    col.AddEventListener(listener);
    EXPECT_THROW_MSG(probe->AddAt(3, probe->Item(0)), COrvexInvalidParamException, "Index out of range");
    EXPECT_THROW_MSG(probe->AddAt(-1, probe->Item(0)), COrvexInvalidParamException, "Index out of range");
    EXPECT_THROW_MSG(probe->Item(2), COrvexInvalidParamException, "Index 2 is out of range, use 0 - 1");
    EXPECT_THROW_MSG(col.Remove(-1), COrvexInvalidParamException, "Index -1 is out of range, use 0 - 1");
    EXPECT_EQ(0u, listener->sources.size());
    probe->AddAt(2, probe->Item(0));
    probe->AddAt(0, probe->Item(0));
    EXPECT_EQ(2u, listener->sources.size());

    // Adding never looks at max occurs; writing does, before anything is out.
    ASSERT_EQ(4, col.GetCount());
    EXPECT_THROW_MSG(probe->Write(CXmlSerializationContext()), COrvexValidationException,
                     "The Maximum number of [v] elements allowed in this collection is 3");
    CXmlSerializationContext lenient;
    lenient.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_NE(std::string::npos, probe->Write(lenient).find(row.written));
    col.Remove(0);
    EXPECT_EQ(3u, listener->sources.size());
    EXPECT_NE(std::string::npos, probe->Write(CXmlSerializationContext()).find(row.written));

    // A value outside the facets, or not of the type, leaves the collection as it was.
    if (row.breaking) {
        EXPECT_THROW_MSG(col.AddFromString(row.breaking), COrvexException,
                         std::string("Invalid Value for v [") + row.brokenText + "]");
    }
    if (row.unparsable) {
        EXPECT_THROW(col.AddFromString(row.unparsable), COrvexException) << row.unparsable;
    }
    if constexpr (std::is_base_of<CdatetimeBaseCol, C>::value) {
        // A value of another kind; the kind is tested before the index.
        const bool isTime = probe->GetItemType() == ItemType_time;
        EXPECT_THROW_MSG(probe->AddAt(-1, isTime ? CConversions::dateFromString("2000-01-01", Rule::Collapse)
                                                 : CConversions::timeFromString("10:00:00", Rule::Collapse)),
                         COrvexInvalidParamException, std::string(kDates) + row.kindText);
    }
    EXPECT_EQ(3, col.GetCount());
    EXPECT_EQ(3u, listener->sources.size());

    col.Clear();
    EXPECT_EQ(3u, listener->sources.size());
    EXPECT_THROW_MSG(probe->Write(CXmlSerializationContext()), COrvexValidationException,
                     "The Minimum number of [v] elements allowed in this collection is 1");
    EXPECT_EQ("<r/>", probe->Write(lenient));
    col.RemoveEventListener(listener);
}

template <typename Col>
std::function<void(const Row&)> Make(const char* pattern, int minLength, int maxLength, const char* minInclusive,
                                     const char* maxInclusive, const char* minExclusive = "",
                                     const char* maxExclusive = "", const char* format = nullptr,
                                     Rule rule = Rule::Collapse)
{
    return [=](const Row& row) {
        Exercise(row, new TProbe<Col>(pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                                      maxExclusive, rule, format));
    };
}

std::vector<Row> Family()
{
    return {
        {"ChexBinaryCol", ItemType_hexBinary, Make<ChexBinaryCol>("", -1, 2, "", ""), " 0a1B ", "ff",
         "<v>0A1B</v><v>FF</v>", "010203", "010203", "0G", nullptr},
        {"Cbase64BinaryCol", ItemType_base64Binary, Make<Cbase64BinaryCol>("", 1, -1, "", ""), "AQI=", "/w==",
         "<v>AQI=</v><v>/w==</v>", "", "", "A", nullptr},
        {"Ci1Col", ItemType_i1, Make<Ci1Col>("", -1, -1, "-5", "100"), "-5", " 100", "<v>-5</v><v>100</v>", "101",
         "101", "x", nullptr},
        {"Ci2Col", ItemType_i2, Make<Ci2Col>("", -1, -1, "", "", "", "1000"), "999", "-32768",
         "<v>999</v><v>-32768</v>", "1000", "1000", "40000", nullptr},
        {"Ci4Col", ItemType_i4, Make<Ci4Col>("", -1, -1, "", "", "0"), "1", "2147483647",
         "<v>1</v><v>2147483647</v>", "0", "0", "1.5", nullptr},
        {"Ci8Col", ItemType_i8, Make<Ci8Col>("", -1, -1, "", "9000000000"), "9000000000", "-1",
         "<v>9000000000</v><v>-1</v>", "9000000001", "9000000001", nullptr, nullptr},
        {"Cui1Col", ItemType_ui1, Make<Cui1Col>("", -1, -1, "", "200"), "0", "200", "<v>0</v><v>200</v>", "201",
         "201", "256", nullptr},
        {"Cui2Col", ItemType_ui2, Make<Cui2Col>("", -1, -1, "10", ""), "10", "65535", "<v>10</v><v>65535</v>", "9",
         "9", "65536", nullptr},
        // Shown through a signed conversion, as the facet test prints small numbers.
        {"Cui4Col", ItemType_ui4, Make<Cui4Col>("", -1, -1, "", "4000000000"), "4000000000", "7",
         "<v>4000000000</v><v>7</v>", "4000000001", "-294967295", "4294967296", nullptr},
        {"Cui8Col", ItemType_ui8, Make<Cui8Col>("", -1, -1, "5", ""), "5", "18446744073709551615",
         "<v>5</v><v>18446744073709551615</v>", "4", "4", nullptr, nullptr},
        {"Cr4Col", ItemType_r4, Make<Cr4Col>("", -1, -1, "", "10", "", "", "%.1f"), "2.5", "-1",
         "<v>2.5</v><v>-1.0</v>", "10.5", "10.500000", "abc", nullptr},
        // A null format writes by the conversion's own default.
        {"Cr8Col", ItemType_r8, Make<Cr8Col>("", -1, -1, "", "", "0"), "0.1", "1e300", "<v>0.1</v><v>1e+300</v>",
         "0", "0.000000", "1x", nullptr},
        {"CdurationCol", ItemType_duration, Make<CdurationCol>("", -1, -1, "", "P1D"), "PT1H", "P1D",
         "<v>PT1H</v><v>P1D</v>", "P2D", "P2D", "1H", nullptr},
        {"CyearCol", ItemType_year, Make<CyearCol>("", -1, -1, "2000", ""), "2001", "2000-05-06",
         "<v>2001</v><v>2000</v>", "1999", "1999", "99", nullptr},
        {"CmonthCol", ItemType_month, Make<CmonthCol>("", -1, -1, "", "--06"), "--05", "2001-06",
         "<v>--05</v><v>--06</v>", "--07", "7", "2001", nullptr},
        {"CdayCol", ItemType_day, Make<CdayCol>("", -1, -1, "", "---15"), "---01", "2001-02-15",
         "<v>---01</v><v>---15</v>", "---16", "16", "2001-02", nullptr},
        {"CstringCol", ItemType_string, Make<CstringCol>("[a-z]+", -1, 5, "", "", "", "", nullptr, Rule::Preserve),
         "abc", "hello", "<v>abc</v><v>hello</v>", "Hello", "Hello", nullptr, nullptr},
        // Every boolean passes, whatever facets the collection holds.
        {"CbooleanCol", ItemType_boolean, Make<CbooleanCol>("x", -1, 0, "", ""), " TRUE ", "0",
         "<v>true</v><v>false</v>", nullptr, nullptr, "yes", nullptr},
        {"CdecimalCol", ItemType_decimal, Make<CdecimalCol>("", -1, -1, "", "99.99", "", "", "2"), "1.5", "99.99",
         "<v>1.50</v><v>99.99</v>", "100", "100", "1.2.3", nullptr},
        {"CintegerCol", ItemType_integer, Make<CintegerCol>("", -1, -1, "-100000000000000000000", ""),
         "123456789012345678901234567890", "-100000000000000000000",
         "<v>123456789012345678901234567890</v><v>-100000000000000000000</v>", "-100000000000000000001",
         "-100000000000000000001", "12a", nullptr},
        {"CyearMonthCol", ItemType_yearMonth, Make<CyearMonthCol>("", -1, -1, "", "2020-12"), "2020-12", "1999-01Z",
         "<v>2020-12</v><v>1999-01Z</v>", "2021-01", "2021-01", "2020-13", "gYearMonth"},
        {"CmonthDayCol", ItemType_monthDay, Make<CmonthDayCol>("", -1, -1, "--03-01", ""), "--03-01", "--12-31",
         "<v>--03-01</v><v>--12-31</v>", "--02-28", "--02-28", "--02-30", "gMonthDay"},
        {"CdateCol", ItemType_date, Make<CdateCol>("", -1, -1, "", "", "", "2030-01-01"), "2029-12-31",
         "2000-02-29+02:00", "<v>2029-12-31</v><v>2000-02-29+02:00</v>", "2030-01-01", "2030-01-01", "2001-02-29",
         "date"},
        // A value without a zone, hours from the bound, compares as indeterminate and passes.
        {"CdatetimeCol", ItemType_datetime, Make<CdatetimeCol>("", -1, -1, "2000-01-01T00:00:00Z", ""),
         "2010-06-15T12:30:00-05:00", "2000-01-01T05:00:00",
         "<v>2010-06-15T12:30:00-05:00</v><v>2000-01-01T05:00:00</v>", "1999-12-31T23:59:59Z",
         "1999-12-31T23:59:59Z", "2000-01-01", "dateTime"},
        {"CtimeCol", ItemType_time, Make<CtimeCol>("", -1, -1, "", "18:00:00"), "08:30:00", "18:00:00",
         "<v>08:30:00</v><v>18:00:00</v>", "18:00:01", "18:00:01", "25:00:00", "time"},
    };
}

}  // namespace


TEST(TypedCollections, EveryClassOfTheFamily)
{
    for (const Row& row : Family()) {
        SCOPED_TRACE(row.className);
        row.run(row);
    }
}
