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

CPrimitiveRestrictions All(const char* bound)
{
    return Bounds(bound, bound, bound, bound);
}

OrvexVariant Parsed(const char* text, ItemType type)
{
    OrvexVariant v;
    v.FromString(text, type, Rule::Collapse);
    return v;
}

}  // namespace

TEST(ValueFacets, BoundsAtAndBeyondTheLimitOfEachGroup)
{
    // shown: the value in the failure text; null: the value passes.
    const struct { ItemType type; const char* value; CPrimitiveRestrictions facets; const char* shown; } cases[] = {
        {ItemType_duration, "PT24H", Bounds("P1D", "P1D", "", ""), nullptr},
        {ItemType_duration, "PT24H", Bounds("", "", "", "P1D"), "PT24H"},
        {ItemType_duration, "P1M", Bounds("P32D", "", "", ""), "P1M"},
        {ItemType_yearMonth, "2000-05", Bounds("", " 2000-04 ", "", ""), "2000-05"},
        {ItemType_monthDay, "--03-01", Bounds("", "", "--02-29", "--03-02"), nullptr},
        {ItemType_date, "2000-01-03", Bounds("", "2000-01-01Z", "", ""), "2000-01-03"},
        {ItemType_date, "-0002-12-31", Bounds("", "", "-0001-01-01", ""), "-0002-12-31"},
        {ItemType_datetime, "2000-01-01T12:00:00Z", Bounds("", "", "2000-01-01T13:00:00+01:00", ""),
         "2000-01-01T12:00:00Z"},
        {ItemType_time, "11:59:59.999", Bounds("", "", "", "12:00:00"), nullptr},
        {ItemType_time, "12:00:00", Bounds("", "", "", "12:00:00"), "12:00:00"},
        // Indeterminate comparisons pass every bound: a month against 30 days, a
        // value without zone near a zoned one, years of opposite signs.
        {ItemType_duration, "P1M", All("P30D"), nullptr},
        {ItemType_date, "2000-01-01", All("2000-01-01Z"), nullptr},
        {ItemType_datetime, "2000-01-01T12:00:00Z", All("2000-01-01T20:00:00"), nullptr},
        {ItemType_date, "-0001-12-31", All("0001-01-01"), nullptr},
        {ItemType_decimal, "1.5", Bounds("1.50", "1.5", "", "1.50000000000000000001"), nullptr},
        {ItemType_decimal, "1.5", Bounds("", "1.49999999999999999999", "", ""), "1.5"},
        {ItemType_decimal, "1E2", Bounds("", "", "100.0", ""), "100"},
        {ItemType_integer, "99999999999999999999", Bounds("", "99999999999999999999", "-1E1", ""), nullptr},
        {ItemType_integer, "99999999999999999999", Bounds("", "", "", "99999999999999999999"), "99999999999999999999"},
        // Date parts are unsigned numbers; a bound is any form that has the part.
        {ItemType_year, "2000", Bounds("2000", "", "1999-12-31", ""), nullptr},
        {ItemType_year, "2000", Bounds("", "", "2000-12", ""), "2000"},
        {ItemType_year, "-0044", Bounds("", "9999", "", ""), "65492"},
        {ItemType_month, "--05", Bounds("2000-05", "--05-31", "--04", "--06"), nullptr},
        {ItemType_month, "--05", Bounds("", "", "", "--05-01"), "5"},
        {ItemType_day, "---31", Bounds("", "---30", "", ""), "31"},
    };
    for (const auto& c : cases) {
        OrvexVariant v = Parsed(c.value, c.type);
        if (c.shown)
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", v, c.type, c.facets), COrvexException,
                             std::string("Invalid Value for n [") + c.shown + "]");
        else
            EXPECT_NO_THROW(CheckPrimitiveRestriction("n", v, c.type, c.facets)) << c.value;
    }
}

TEST(ValueFacets, BoundThatDoesNotParseFailsAsItsConversion)
{
    const struct { ItemType type; const char* value; const char* bound; const char* message; } cases[] = {
        {ItemType_decimal, "1", "abc",
         "The string representing a Decimal, contained an invalid char at position 0 [abc]"},
        {ItemType_integer, "1", "1.5.",
         "The string representing a Decimal, contained an invalid char at position 3 [1.5.]"},
        {ItemType_duration, "P1D", "   ", "Invalid XSD Duration (Empty String)"},
        {ItemType_monthDay, "--05-01", "--13-01", "Invalid Month [13] (1 <= month <= 12)"},
        {ItemType_datetime, "2000-01-01T00:00:00", "2000-01-01", "Invalid XSD DateTime [2000-01-01]"},
        {ItemType_time, "12:00:00", "noon", "Invalid XSD Time [noon] expected hh:mm:ss[.ff]"},
        {ItemType_year, "2000", "99", "Invalid XSD Date [99] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    };
    for (const auto& c : cases)
        EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", Parsed(c.value, c.type), c.type, Bounds("", "", "", c.bound)),
                         COrvexInvalidValueException, c.message);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("n", Parsed("--05", ItemType_month), ItemType_month, All("2000")),
                     COrvexInvalidStateException, "Failed to GetMonth. Invalid Date Type: gYear.");
    // The first failing bound ends the check before a later one is parsed.
    const OrvexVariant date = Parsed("2000-01-01", ItemType_date);
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("d", date, ItemType_date, Bounds("2001-01-01", "", "", "bad")),
                     COrvexException, "Invalid Value for d [2000-01-01]");
    EXPECT_THROW_MSG(CheckPrimitiveRestriction("d", date, ItemType_date, Bounds("1999-01-01", "", "", "bad")),
                     COrvexInvalidValueException, "Invalid XSD Date [bad] expected CCYY-MM-DD[Z|[+|-]hh:mm]");
    // Lengths and patterns do not apply to these kinds.
    EXPECT_NO_THROW(CheckPrimitiveRestriction(
        "d", date, ItemType_date, CPrimitiveRestrictions("(", 99, 0, nullptr, nullptr, nullptr, nullptr, 0)));
}

TEST(ValueFacets, BinaryLengthsInBytesShownInHex)
{
    const struct { ItemType type; const char* value; int minLength, maxLength, length; bool passes; } cases[] = {
        {ItemType_hexBinary, "0AFF", 2, 2, 2, true},       {ItemType_hexBinary, "0AFF", 3, -1, -1, false},
        {ItemType_hexBinary, "0AFF", -1, 1, -1, false},    {ItemType_hexBinary, "0AFF", -1, -1, 0, false},
        {ItemType_hexBinary, "", 0, 0, 0, true},           {ItemType_base64Binary, "Cv8=", -1, -1, 2, true},
        {ItemType_base64Binary, "Cv8=", -1, 1, -1, false}, {ItemType_base64Binary, "Cv8=", -1, -1, 3, false},
    };
    for (const auto& c : cases) {
        // Bounds and patterns do not apply to binary values.
        const CPrimitiveRestrictions facets("(", c.minLength, c.maxLength, "zz", "zz", "zz", "zz", c.length);
        if (c.passes)
            EXPECT_NO_THROW(CheckPrimitiveRestriction("b", Parsed(c.value, c.type), c.type, facets));
        else
            EXPECT_THROW_MSG(CheckPrimitiveRestriction("b", Parsed(c.value, c.type), c.type, facets), COrvexException,
                             "Invalid Value for b [0AFF]");
    }
}
