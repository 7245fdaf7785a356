// Facets of the value classes and the date parts: ordered kinds with their partial
// order, decimals, big integers, date parts as numbers, and binary lengths.
#include "orvexxml/metadata/PrimitiveRestrictions.h"

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"

using namespace OrvexXmlLib5;
using Rule = CWhitespaceUtils::WhitespaceRule;

namespace {

CPrimitiveRestrictions Bounds(const char* minInc, const char* maxInc, const char* minExc, const char* maxExc)
{
    return CPrimitiveRestrictions(nullptr, -1, -1, minInc, maxInc, minExc, maxExc, -1);
}

// One bound set, the other three empty: 0 min inclusive, 1 max inclusive,
// 2 min exclusive, 3 max exclusive.
CPrimitiveRestrictions Bound(int which, const char* text)
{
    const char* b[4] = {"", "", "", ""};
    b[which] = text;
    return Bounds(b[0], b[1], b[2], b[3]);
}

enum Which { MinInc, MaxInc, MinExc, MaxExc };

struct FacetCase
{
    ItemType type;
    const char* value;  // read by the variant under Collapse
    CPrimitiveRestrictions facets;
    const char* message;  // null: the value passes
};

void RunCases(const FacetCase* begin, const FacetCase* end)
{
    for (const FacetCase* c = begin; c != end; ++c) {
        OrvexVariant v;
        v.FromString(c->value, c->type, Rule::Collapse);
        if (c->message)
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", v, c->type, c->facets), COrvexException, c->message)
                << "type " << c->type << " value " << c->value;
        else
            EXPECT_NO_THROW(CheckPrimitiveRestriction("n", v, c->type, c->facets))
                << "type " << c->type << " value " << c->value;
    }
}

template <std::size_t N>
void RunCases(const FacetCase (&cases)[N])
{
    RunCases(cases, cases + N);
}

}  // namespace

TEST(ValueFacetsOrdered, BoundsAtAndBeyondTheLimitForEachKind)
{
    const FacetCase cases[] = {
        {ItemType_duration, "P1D", Bound(MinInc, "P1D"), nullptr},
        {ItemType_duration, "P1D", Bound(MinExc, "P1D"), "Invalid Value for n [P1D]"},
        {ItemType_duration, "PT24H", Bound(MaxInc, "P1D"), nullptr},
        {ItemType_duration, "PT24H", Bound(MaxExc, "P1D"), "Invalid Value for n [PT24H]"},
        {ItemType_duration, "PT1441M", Bound(MaxInc, "P1D"), "Invalid Value for n [PT1441M]"},
        {ItemType_duration, "-P1D", Bound(MinInc, "PT0S"), "Invalid Value for n [-P1D]"},
        {ItemType_yearMonth, "2000-05", Bounds("2000-05", "2000-05", "", ""), nullptr},
        {ItemType_yearMonth, "2000-05", Bound(MinExc, "2000-05"), "Invalid Value for n [2000-05]"},
        {ItemType_yearMonth, "2000-05", Bound(MaxInc, " 2000-04 "), "Invalid Value for n [2000-05]"},
        {ItemType_yearMonth, "2000-05", Bound(MaxExc, "2000-06"), nullptr},
        {ItemType_monthDay, "--02-29", Bound(MaxInc, "--02-28"), "Invalid Value for n [--02-29]"},
        {ItemType_monthDay, "--03-01", Bound(MinExc, "--02-29"), nullptr},
        {ItemType_date, "2000-01-01Z", Bounds("2000-01-01Z", "2000-01-01Z", "1999-12-31Z", "2000-01-02Z"), nullptr},
        {ItemType_date, "2000-01-01Z", Bound(MaxExc, "2000-01-01Z"), "Invalid Value for n [2000-01-01Z]"},
        {ItemType_date, "-0002-12-31", Bound(MinExc, "-0001-01-01"), "Invalid Value for n [-0002-12-31]"},
        {ItemType_datetime, "2000-01-01T12:00:00Z", Bound(MinExc, "2000-01-01T13:00:00+01:00"),
         "Invalid Value for n [2000-01-01T12:00:00Z]"},
        {ItemType_datetime, "2000-01-01T12:00:00.000000001", Bound(MinExc, "2000-01-01T12:00:00"), nullptr},
        {ItemType_datetime, "2000-01-01T12:00:00", Bound(MaxExc, "2000-01-01T12:00:00"),
         "Invalid Value for n [2000-01-01T12:00:00]"},
        {ItemType_time, "12:00:00", Bound(MaxExc, "12:00:00"), "Invalid Value for n [12:00:00]"},
        {ItemType_time, "11:59:59.999", Bound(MaxExc, "12:00:00"), nullptr},
        {ItemType_time, "12:00:00.5", Bound(MaxInc, "12:00:00"), "Invalid Value for n [12:00:00.5]"},
    };
    RunCases(cases);
}

TEST(ValueFacetsOrdered, IndeterminateComparisonPassesEveryBound)
{
    const FacetCase cases[] = {
        // A month is 28 to 31 days: against 30 days there is no order.
        {ItemType_duration, "P1M", Bounds("P30D", "P30D", "P30D", "P30D"), nullptr},
        {ItemType_duration, "P1Y", Bounds("P365D", "P365D", "P365D", "P365D"), nullptr},
        // Beyond the widest month the order holds again.
        {ItemType_duration, "P1M", Bound(MinInc, "P32D"), "Invalid Value for n [P1M]"},
        {ItemType_duration, "P1Y", Bound(MaxExc, "P364D"), "Invalid Value for n [P1Y]"},
        // Across an unknown time zone, within fourteen hours: no order.
        {ItemType_date, "2000-01-01", Bounds("2000-01-01Z", "2000-01-01Z", "2000-01-01Z", "2000-01-01Z"), nullptr},
        {ItemType_datetime, "2000-01-01T12:00:00",
         Bounds("2000-01-01T12:00:00Z", "2000-01-01T12:00:00Z", "2000-01-01T12:00:00Z", "2000-01-01T12:00:00Z"),
         nullptr},
        {ItemType_datetime, "2000-01-01T12:00:00Z",
         Bounds("2000-01-01T20:00:00", "2000-01-01T04:00:00", "2000-01-01T20:00:00", "2000-01-01T04:00:00"), nullptr},
        // Years of opposite signs have no order either.
        {ItemType_date, "-0001-12-31", Bounds("0001-01-01", "0001-01-01", "0001-01-01", "0001-01-01"), nullptr},
        // Farther apart than any zone can move them, the order is known.
        {ItemType_date, "2000-01-03", Bound(MaxInc, "2000-01-01Z"), "Invalid Value for n [2000-01-03]"},
        {ItemType_datetime, "2000-01-01T12:00:00", Bound(MinExc, "2000-01-02T03:00:00Z"),
         "Invalid Value for n [2000-01-01T12:00:00]"},
    };
    RunCases(cases);
}

TEST(ValueFacetsNumbers, DecimalIntegerAndDateParts)
{
    const FacetCase cases[] = {
        {ItemType_decimal, "1.5", Bounds("1.5", "1.50", "", ""), nullptr},
        {ItemType_decimal, "1.5", Bound(MinExc, "1.5"), "Invalid Value for n [1.5]"},
        {ItemType_decimal, "1.5", Bound(MaxInc, "1.49999999999999999999"), "Invalid Value for n [1.5]"},
        {ItemType_decimal, "1.5", Bound(MaxExc, "1.50000000000000000001"), nullptr},
        {ItemType_decimal, "-0.001", Bound(MinInc, " 0 "), "Invalid Value for n [-0.001]"},
        {ItemType_decimal, "1E2", Bound(MaxExc, "100.0"), "Invalid Value for n [100]"},
        {ItemType_integer, "99999999999999999999", Bound(MaxInc, "99999999999999999999"), nullptr},
        {ItemType_integer, "99999999999999999999", Bound(MaxExc, "99999999999999999999"),
         "Invalid Value for n [99999999999999999999]"},
        {ItemType_integer, "99999999999999999999", Bound(MinInc, "100000000000000000000"),
         "Invalid Value for n [99999999999999999999]"},
        {ItemType_integer, "-5", Bound(MinExc, "-1E1"), nullptr},
        {ItemType_integer, "-5", Bound(MinExc, "-5"), "Invalid Value for n [-5]"},
        // The date parts compare as numbers; a bound may be any form that has the part.
        {ItemType_year, "2000", Bound(MinInc, "2000"), nullptr},
        {ItemType_year, "2000", Bound(MinExc, "2000-12-31"), "Invalid Value for n [2000]"},
        {ItemType_year, "2000-06", Bound(MinExc, "1999-12-31"), nullptr},
        {ItemType_year, "2000", Bound(MaxInc, "1999"), "Invalid Value for n [2000]"},
        // Unsigned: a negative year lies above every positive one.
        {ItemType_year, "-0044", Bound(MaxInc, "9999"), "Invalid Value for n [65492]"},
        {ItemType_year, "-0044", Bound(MinExc, "9999"), nullptr},
        {ItemType_month, "--05", Bound(MaxInc, "--04"), "Invalid Value for n [5]"},
        {ItemType_month, "--05", Bounds("2000-05", "--05-31", "--04", "--06"), nullptr},
        {ItemType_month, "--05", Bound(MaxExc, "--05-01"), "Invalid Value for n [5]"},
        {ItemType_day, "---31", Bound(MaxInc, "---30"), "Invalid Value for n [31]"},
        {ItemType_day, "---01", Bounds("---01", "2000-02-29", "", ""), nullptr},
    };
    RunCases(cases);
}

TEST(ValueFacetsBounds, BoundThatDoesNotParseFailsAsItsConversion)
{
    const struct
    {
        ItemType type;
        const char* value;
        const char* bound;
        const char* message;
    } invalid[] = {
        {ItemType_decimal, "1", "abc", "The string representing a Decimal, contained an invalid char at position 0 [abc]"},
        {ItemType_integer, "1", "1.5.", "The string representing a Decimal, contained an invalid char at position 3 [1.5.]"},
        {ItemType_duration, "P1D", "P1D1Y", "Invalid XSD Duration [P1D1Y] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"},
        {ItemType_duration, "P1D", "   ", "Invalid XSD Duration (Empty String)"},
        {ItemType_yearMonth, "2000-05", "2000-5", "Invalid XSD Date [2000-5] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {ItemType_monthDay, "--05-01", "--13-01", "Invalid Month [13] (1 <= month <= 12)"},
        {ItemType_date, "2000-01-01", "2000-13-01", "Invalid Month [13] (1 <= month <= 12)"},
        {ItemType_datetime, "2000-01-01T00:00:00", "2000-01-01", "Invalid XSD DateTime [2000-01-01]"},
        {ItemType_time, "12:00:00", "noon", "Invalid XSD Time [noon] expected hh:mm:ss[.ff]"},
        {ItemType_year, "2000", "99", "Invalid XSD Date [99] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {ItemType_day, "---01", "---32", "Invalid Day [32] (1 <= day <= 31)"},
    };
    for (const auto& c : invalid) {
        OrvexVariant v;
        v.FromString(c.value, c.type, Rule::Collapse);
        EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", v, c.type, Bound(MaxExc, c.bound)), COrvexInvalidValueException,
                         c.message);
    }
    // A bound of a form without the part fails in the part's getter.
    OrvexVariant month;
    month.SetMonth(5);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", month, ItemType_month, Bound(MinInc, "2000")),
                     COrvexInvalidStateException, "Failed to GetMonth. Invalid Date Type: gYear.");
    OrvexVariant day;
    day.SetDay(5);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", day, ItemType_day, Bound(MaxInc, "2000-05")),
                     COrvexInvalidStateException, "Failed to GetDay. Invalid Date Type: gYearMonth.");

    // The first failing bound ends the check before a later bound is parsed; a
    // passing one lets the bad bound be reached.
    OrvexVariant date;
    date.FromString("2000-01-01", ItemType_date, Rule::Collapse);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("d", date, ItemType_date, Bounds("2001-01-01", "", "", "bad")),
                     COrvexException, "Invalid Value for d [2000-01-01]");
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("d", date, ItemType_date, Bounds("1999-01-01", "", "", "bad")),
                     COrvexInvalidValueException, "Invalid XSD Date [bad] expected CCYY-MM-DD[Z|[+|-]hh:mm]");
    OrvexVariant decimal;
    decimal.SetDecimal(CDecimal("5"));
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("x", decimal, ItemType_decimal, Bounds("", "4", "?", "")),
                     COrvexException, "Invalid Value for x [5]");
    // Lengths and patterns do not apply to these kinds.
    EXPECT_NO_THROW(CheckPrimitiveRestriction(
        "x", decimal, ItemType_decimal, CPrimitiveRestrictions("[a-z]+", 9, 0, nullptr, nullptr, nullptr, nullptr, 3)));
    EXPECT_NO_THROW(CheckPrimitiveRestriction(
        "d", date, ItemType_date, CPrimitiveRestrictions("(", 99, 0, nullptr, nullptr, nullptr, nullptr, 0)));
}
