#include "orvexxml/values/DateTimeSpan.h"

#include <string>

#include "TestUtil.h"

using namespace OrvexXmlLib5;
using DT = CDateTime;

namespace {

CDateTimeSpan Span(const char* text)
{
    CDateTimeSpan s;
    s.ParseXSDDuration(text);
    return s;
}

}  // namespace

TEST(DateTimeSpanLexical, ParseAndWrite)
{
    struct Case { const char* text; const char* written; };
    const Case cases[] = {
        {"P1Y2M3DT4H5M6.789S", "P1Y2M3DT4H5M6.789S"}, {"-P1D", "-P1D"}, {"P1M", "P1M"}, {"PT1M", "PT1M"},
        {"PT90M", "PT90M"}, {"PT36H", "PT36H"}, {"PT0.000000001S", "PT0.000000001S"},
        {"P1DT0.000001S", "P1DT0.000001S"}, {"PT1.120S", "PT1.12S"}, {"PT.5S", "PT0.5S"}, {"PT1.S", "PT1S"},
        {"PT1.", "PT1S"}, {"PT0S", "PT0S"}, {"PY", "PT0S"}, {"-P0D", "-PT0S"}, {"P0Y0M0DT0H0M0S", "PT0S"},
        {"P1Y0DT0S", "P1Y"}, {"P10M0DT0H", "P10M"}, {"PT5H0S", "PT5H"}, {"P4294967295D", "P4294967295D"},
        {"P65537Y", "P1Y"}, {"PT4294967296H", "PT0S"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const CDateTimeSpan s = Span(c.text);
        EXPECT_EQ(s.ToString(), c.written);
        EXPECT_EQ(Span(s.ToString().c_str()).ToString(), c.written);
    }
    const CDateTimeSpan s = Span("-P1Y2M3DT4H5M6.789012345S");
    EXPECT_TRUE(s.IsNegative());
    EXPECT_EQ(s.GetYears(), 1);
    EXPECT_EQ(s.GetMonths(), 2u);
    EXPECT_EQ(s.GetDays(), 3u);
    EXPECT_EQ(s.GetHours(), 4u);
    EXPECT_EQ(s.GetMinutes(), 5u);
    EXPECT_EQ(s.GetSeconds(), 6u);
    EXPECT_EQ(s.GetMilliSeconds(), 789);
    EXPECT_EQ(s.GetMicroSeconds(), 12);
    EXPECT_EQ(s.GetNanoSeconds(), 345);
    // Minutes and seconds pass through a signed 32-bit number.
    EXPECT_EQ(Span("PT2147483647S").GetSeconds(), 2147483647u);
    EXPECT_EQ(Span("PT2147483648S").GetSeconds(), 0xFFFFFFFF80000000ULL);
    EXPECT_EQ(Span("PT4294967295M").GetMinutes(), ~0ULL);
}

TEST(DateTimeSpanLexical, FailuresNameTheText)
{
    const char* const malformed[] = {"P",    "PT",    "-P",    "P1YT",  "P1S",    "P1D1Y", "P-1D", "PT1.5",
                                     "1Y",   "-",     "--P1D", "P1H",   "PT1D",   "PT1H1H", "PT1S1S", "PT1.5S2S",
                                     "P1",   "PT1",   "P1Y ",  " P1Y",  "P1M1M",  "PT1M1H", "PT.x", "PT1.5SX",
                                     "P1DT1S1M", "PTT", "P1Y1Y", "pT1S"};
    for (const char* text : malformed) {
        SCOPED_TRACE(text);
        EXPECT_THROW_MSG(Span(text), COrvexInvalidValueException,
                         std::string("Invalid XSD Duration [") + text +
                             "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    }
    EXPECT_THROW_MSG(Span(nullptr), COrvexInvalidValueException, "Invalid XSD Duration (Null String)");
    EXPECT_THROW_MSG(Span(""), COrvexInvalidValueException, "Invalid XSD Duration (Empty String)");
    EXPECT_THROW_MSG(Span("PT1.1234567890S"), COrvexInvalidValueException,
                     "Invalid XSD Duration [PT1.1234567890S] Fraction part too long");
    // A failed parse keeps what it had stored.
    CDateTimeSpan partial;
    EXPECT_THROW(partial.ParseXSDDuration("P2Y3MX"), COrvexInvalidValueException);
    EXPECT_EQ(partial.GetYears(), 2);
    EXPECT_EQ(partial.GetMonths(), 3u);
}

TEST(DateTimeSpanFields, SettersAndSign)
{
    CDateTimeSpan s(1, 2, 3);
    s.SetMicroSeconds(10);
    s.Negate();
    EXPECT_EQ(s.ToString(), "-PT1H2M3.00001S");
    s.Negate();
    // GetAsNegative leaves the object alone and gives a negative span whatever the sign.
    EXPECT_TRUE(s.GetAsNegative().GetAsNegative().IsNegative());
    EXPECT_FALSE(s.IsNegative());
    s.Negate();
    s.SetDateTimeSpan(1, 2, 3, 4, 5, 6);  // clears the sign
    EXPECT_EQ(s.ToString(), "P1Y2M3DT4H5M6S");
    s.SetDateTimeSpan(4, 5, 6);
    EXPECT_EQ(s.ToString(), "PT4H5M6S");
    s.SetDateTimeSpan(0, 0, 0, 0, 0, 0, 1, 2, 3);
    EXPECT_EQ(s.ToString(), "PT0.001002003S");
}

TEST(DateTimeSpanOrder, FourReferencePoints)
{
    struct Case { const char* a; const char* b; DT::DTCompareResult result; };
    const Case cases[] = {
        {"P1M", "P30D", DT::Indeterminate},  {"P1M", "P27D", DT::GreaterThan},     {"P1M", "P32D", DT::LessThan},
        {"P1Y", "P365D", DT::Indeterminate}, {"P1Y", "P364D", DT::GreaterThan},    {"P1Y", "P367D", DT::LessThan},
        {"PT1H", "PT2H", DT::LessThan},      {"PT24H", "P1D", DT::Equal},          {"PT90M", "PT1H30M", DT::Equal},
        {"PT60S", "PT1M", DT::Equal},        {"PT0.001S", "PT0.000999S", DT::GreaterThan},
        {"P1Y", "P12M", DT::Equal},          {"-P1D", "PT0S", DT::LessThan},       {"-P1D", "-PT24H", DT::Equal},
        {"-P1M", "-P30D", DT::Indeterminate}, {"P400Y", "P146097D", DT::Equal},
        {"P9000Y", "P1D", DT::GreaterThan}, {"-P1000Y", "-P1D", DT::LessThan},
        {"P4294967295D", "PT1S", DT::GreaterThan},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.a) + " ? " + c.b);
        const CDateTimeSpan a = Span(c.a);
        const CDateTimeSpan b = Span(c.b);
        const DT::DTCompareResult r = a.CompareTo(b);
        EXPECT_EQ(r, c.result);
        EXPECT_EQ((a == b) + 2 * (a != b) + 4 * (a < b) + 8 * (a > b),
                  r == DT::Equal ? 1 : r == DT::LessThan ? 6 : r == DT::GreaterThan ? 10 : 2);
        EXPECT_EQ(b.CompareTo(a), r == DT::LessThan ? DT::GreaterThan : r == DT::GreaterThan ? DT::LessThan : r);
    }
}
