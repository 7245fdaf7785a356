#include "orvexxml/values/DateTime.h"

#include <cstdlib>
#include <ctime>
#include <limits>
#include <random>
#include <string>

#include "TestUtil.h"
#include "orvexxml/platform/Clock.h"
#include "orvexxml/values/DateTimeSpan.h"

using namespace OrvexXmlLib5;
using DT = CDateTime;

namespace {

enum class Form { DateTime, Date, Time };

DT Parse(Form form, const char* text)
{
    DT v;
    (v.*(form == Form::DateTime ? &DT::ParseXSDDateTime
         : form == Form::Date   ? &DT::ParseXSDDate
                                : &DT::ParseXSDTime))(text);
    return v;
}

CDateTimeSpan Span(const char* text)
{
    CDateTimeSpan s;
    s.ParseXSDDuration(text);
    return s;
}

std::string BadDate(const std::string& t) { return "Invalid XSD Date [" + t + "] expected CCYY-MM-DD[Z|[+|-]hh:mm]"; }
std::string BadTime(const std::string& t) { return "Invalid XSD Time [" + t + "] expected hh:mm:ss[.ff]"; }

// Seconds since 1970 of a UTC wall time, by the C library.
std::time_t TimeGm(int year, int month, int day, int hour, int minute = 0, int second = 0)
{
    std::tm t{};
    t.tm_year = year - 1900, t.tm_mon = month - 1, t.tm_mday = day;
    t.tm_hour = hour, t.tm_min = minute, t.tm_sec = second;
    return Platform::TimeGm(t);
}

}  // namespace

TEST(DateTimeLexical, EveryKindRoundTrips)
{
    // written: the canonical text when it differs from the input.
    struct Case { Form form; const char* text; DT::DTType kind; const char* written; };
    const Case cases[] = {
        {Form::DateTime, "2000-01-01T12:00:00", DT::dateTime, nullptr},
        {Form::DateTime, "2000-01-01T12:00:00.5", DT::dateTime, nullptr},
        {Form::DateTime, "-0044-03-15T01:02:03.123456789Z", DT::dateTime, nullptr},
        {Form::DateTime, "1999-12-31T23:59:59+05:30", DT::dateTime, nullptr},
        {Form::DateTime, "9999-12-31T23:59:59.999999999-23:59", DT::dateTime, nullptr},
        {Form::DateTime, "2000-01-01ZT12:00:00", DT::dateTime, "2000-01-01T12:00:00Z"},
        {Form::DateTime, "2000-01-01+05:00T12:00:00Z", DT::dateTime, "2000-01-01T12:00:00Z"},
        {Form::Date, "2000-02-29", DT::date, nullptr},          {Form::Date, "-0044-03-15", DT::date, nullptr},
        {Form::Date, "2000-01-01+05:00", DT::date, nullptr},    {Form::Date, "2000-01-01x05:00", DT::date, "2000-01-01"},
        {Form::Date, "2000-01-01-00:30", DT::date, "2000-01-01+00:30"},
        {Form::Date, "2000-12Z", DT::gYearMonth, nullptr},      {Form::Date, "-0044", DT::gYear, nullptr},
        {Form::Date, "9999", DT::gYear, nullptr},               {Form::Date, "---07", DT::gDay, nullptr},
        {Form::Date, "---31Z", DT::gDay, nullptr},              {Form::Date, "--05", DT::gMonth, nullptr},
        {Form::Date, "--05--", DT::gMonth, "--05"},             {Form::Date, "--05xy", DT::gMonth, "--05"},
        {Form::Date, "--02-29", DT::gMonthDay, nullptr},        {Form::Date, "--05-01Z", DT::gMonthDay, nullptr},
        {Form::Time, "12:00:00.000001", DT::time, nullptr},     {Form::Time, "23:59:59.0000001-01:00", DT::time, nullptr},
        {Form::Time, "12:00:00.", DT::time, "12:00:00"},        {Form::Time, "12:00:00abc", DT::time, "12:00:00"},
        {Form::Time, "12:00:00Zabc", DT::time, "12:00:00Z"},    {Form::Time, "12:00:00+24:00", DT::time, "12:00:00+00:00"},
        {Form::Time, "12:00:00+24:30", DT::time, "12:00:00+00:30"},
        {Form::Time, "12:00:00.100", DT::time, "12:00:00.1"},   {Form::Time, "12:00:00.000100", DT::time, "12:00:00.0001"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const std::string written = c.written ? c.written : c.text;
        const DT v = Parse(c.form, c.text);
        EXPECT_EQ(v.GetType(), c.kind);
        EXPECT_EQ(v.ToString(), written);
        EXPECT_EQ(Parse(c.form, written.c_str()).ToString(), written);
        EXPECT_EQ(Parse(c.form, written.c_str()).CompareTo(v), DT::Equal);
    }
    const DT fractions = Parse(Form::Time, "12:00:00.123456789");
    EXPECT_EQ(fractions.GetMilliSecond() * 1000000 + fractions.GetMicroSecond() * 1000 + fractions.GetNanoSecond(),
              123456789);
    EXPECT_DOUBLE_EQ(fractions.GetRealSecond(), 0.123456789);
    EXPECT_EQ(Parse(Form::Date, "-0044-03-15").GetYear(), -44);
    EXPECT_TRUE(DT::IsLeapYear(-44));
    EXPECT_FALSE(DT::IsLeapYear(-100));

    const DT v("2000-01-01T12:00:00");
    EXPECT_EQ(v.ToString("x"), "Unknown Format: x");
    EXPECT_EQ(v.ToString("G") + v.ToString("") + v.ToString(nullptr), "");
    EXPECT_EQ(DT().ToString(), "Invalid Year Zero");
    EXPECT_EQ(DT(2000, 1, 1, 12, 0, 0, 0, 0, 100).ToString(), "2000-01-01T12:00:00.0000001");
    EXPECT_EQ(DT(7, 1, 1).ToString(), "0007-01-01");
}

TEST(DateTimeLexical, FailuresNameTheirCause)
{
    struct Case { Form form; const char* text; std::string message; };
    const Case cases[] = {
        {Form::Date, nullptr, "Invalid Date (Null String)"}, {Form::Date, "", "Invalid Date (Empty String)"},
        {Form::Date, "2000-01-01T", "Invalid Date ('T' not allowed)"},
        {Form::Date, "2000-01-01+05:00Z", "Invalid Date (Bad Zone value)"},
        {Form::Date, "12345-01-01", BadDate("12345-01-01")},    {Form::Date, "200-01-01", BadDate("200-01-01")},
        {Form::Date, "2000-01-01+0500", BadDate("2000-01-01+0500")},
        {Form::Date, "2000/01/01", BadDate("2000/01/01")},      {Form::Date, "--5", BadDate("--5")},
        {Form::Date, "--0a", BadDate("--0a")},                  {Form::Date, "-x-07", BadDate("-x-07")},
        {Form::Date, "Z", BadDate("Z")},                        {Form::Date, ":", BadDate(":")},
        {Form::Date, "-", BadDate("-")}, {Form::Date, "0000", "Invalid Year [0] (-9999 <= year <= 9999 && year != 0)"},
        {Form::Date, "2000-02-30", "Invalid Day [30] (1 <= day <= days in month"},
        {Form::Date, "2000-13", "Invalid Month [13] (1 <= month <= 12)"},
        {Form::Date, "--02-30", "Invalid Day [30] (1 <= day <= days in month)"},
        {Form::Date, "---32", "Invalid Day [32] (1 <= day <= 31)"},
        {Form::Date, "--00", "Invalid Month [0] (1 <= month <= 12)"},
        {Form::Date, "2000-01-01+5:000", "Invalid XSD Time Zone [+5:000]"},
        {Form::Date, "2000-01-01+25:00", "Invalid TimeZone [25:0]"},
        {Form::Time, nullptr, "Invalid Time (Null String)"}, {Form::Time, "", "Invalid XSD Time (Empty String)"},
        {Form::Time, "24:00:00", BadTime("24:00:00")},          {Form::Time, "23:60:00", BadTime("23:60:00")},
        {Form::Time, "23:59:60", BadTime("23:59:60")},          {Form::Time, "12:00", BadTime("12:00")},
        {Form::Time, "12:00:0", BadTime("12:00:0")},            {Form::Time, "12-00-00", BadTime("12-00-00")},
        {Form::Time, "12:00:00.1234567890", "Invalid XSD Time [12:00:00.1234567890] Fraction part too long"},
        {Form::Time, "12:00:00+25:00", "Invalid TimeZone [25:0]"},
        {Form::Time, "12:00:00-25:00", "Invalid TimeZone [-25:0]"},
        {Form::Time, "12:00:00+05:60", "Invalid TimeZone [5:60]"},
        {Form::Time, "12:00:00+5:00", "Invalid XSD Time Zone [+5:00]"},
        {Form::Time, "12:00:00+05:00Z", "Invalid XSD Time Zone [+05:00Z]"},
        {Form::Time, "12:00:00-", "Invalid XSD Time Zone [-]"},
        {Form::DateTime, nullptr, "Invalid DateTime (Null String)"},
        {Form::DateTime, "2000-01-01", "Invalid XSD DateTime [2000-01-01]"},
        {Form::DateTime, "T12:00:00", "Invalid Date (Empty String)"},
        {Form::DateTime, "2000-01-01T", "Invalid XSD Time (Empty String)"},
        {Form::DateTime, "2000-01T12:00:00",
         "Invalid XSD DateTime [2000-01T12:00:00] expected CCYY-MM-DDThh:mm:ss[.ff]"},
        {Form::DateTime, "2000-02-30T12:00:00", "Invalid Day [30] (1 <= day <= days in month"},
        {Form::DateTime, "2000-01-01T24:00:00", BadTime("24:00:00")},
        {Form::DateTime, "10000-01-01T00:00:00", BadDate("10000-01-01")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text ? c.text : "(null)");
        EXPECT_THROW_MSG(Parse(c.form, c.text), COrvexInvalidValueException, c.message);
    }
    EXPECT_THROW_MSG(DT("2000-01-01"), COrvexInvalidValueException, "Invalid XSD DateTime [2000-01-01]");
}

TEST(DateTimeSetters, ValidateMessagesInOrder)
{
    struct Case { void (*set)(DT&); const char* message; };
    const Case cases[] = {
        {[](DT& v) { v.SetDate(1900, 2, 29); }, "Invalid Day [29] (1 <= day <= days in month"},
        {[](DT& v) { v.SetDate(2001, 4, 31); }, "Invalid Day [31] (1 <= day <= days in month"},
        {[](DT& v) { v.SetDate(0, 13, 40); }, "Invalid Month [13] (1 <= month <= 12)"},
        {[](DT& v) { v.SetDate(-10000, 1, 40); }, "Invalid Year [-10000] (-9999 <= year <= 9999 && year != 0)"},
        {[](DT& v) { v.SetGYear(0); }, "Invalid Year [0] (-9999 <= year <= 9999 && year != 0)"},
        {[](DT& v) { v.SetGYearMonth(2000, 0); }, "Invalid Month [0] (1 <= month <= 12)"},
        {[](DT& v) { v.SetGMonth(13); }, "Invalid Month [13] (1 <= month <= 12)"},
        {[](DT& v) { v.SetGMonthDay(4, 31); }, "Invalid Day [31] (1 <= day <= days in month)"},
        {[](DT& v) { v.SetGDay(0); }, "Invalid Day [0] (1 <= day <= 31)"},
        {[](DT& v) { v.SetTime(24, 0, 0); }, "Invalid Hour [24] (0 <= hour <= 23)"},
        {[](DT& v) { v.SetTime(23, 60, 0); }, "Invalid Minute [60] (0 <= minute <= 59)"},
        {[](DT& v) { v.SetTime(23, 59, 60); }, "Invalid Second [60] (0 <= second <= 59)"},
        {[](DT& v) { v.SetTime(0, 0, 0, 1000, 1000, 1000); }, "Invalid Milli-Second [1000] (0 <= milli <= 999)"},
        {[](DT& v) { v.SetFracTime(0, 1000, 1000); }, "Invalid Micro-Second [1000] (0 <= micro <= 999)"},
        {[](DT& v) { v.SetDateTime(2000, 1, 1, 0, 0, 0, 0, 0, 1000); }, "Invalid Nano-Second [1000] (0 <= nano <= 999)"},
        {[](DT& v) { v.Validate(); }, "Invalid Year Zero"},
    };
    for (const Case& c : cases) {
        DT v;
        EXPECT_THROW_MSG(c.set(v), COrvexInvalidValueException, c.message);
    }
    EXPECT_NO_THROW(DT().SetDate(2000, 2, 29));
    EXPECT_NO_THROW(DT().SetGMonthDay(2, 29));

    // Fields that a conversion left behind, unseen by the kind, fail Validate.
    const struct { const char* source; DT::DTType kind; const char* message; } hidden[] = {
        {"2000-03-15T00:00:00", DT::gDay, "Invalid Month [3] for type gDay"},
        {"2000-03-15T00:00:00", DT::gMonthDay, "Invalid Year [2000] for type gMonthDay"},
        {"2000-03-15T00:00:00", DT::gYear, "Invalid Month [3] for type gYear"},
        {"2000-03-15T00:00:06", DT::date, "Invalid Second [6] for type date"},
        {"2000-03-15T00:00:00.000000009", DT::date, "Invalid Nano-Second [9] for type date"},
    };
    for (const auto& h : hidden) {
        DT v;
        v.SetDateTime(DT(h.source), h.kind);
        EXPECT_THROW_MSG(v.Validate(), COrvexInvalidValueException, h.message);
    }
}

TEST(DateTimeSetters, KindCheckAndSilentConstructors)
{
    DT d;
    d.SetDate(2000, 1, 1);
    EXPECT_THROW_MSG(d.SetTime(1, 2, 3), COrvexInvalidStateException,
                     "Failed to copy CDateTime. Invalid Date Type: time, expected: date.");
    EXPECT_THROW_MSG(d = std::time_t(0), COrvexInvalidStateException,
                     "Failed to copy CDateTime. Invalid Date Type: dateTime, expected: date.");
    d.SetUTC();
    d.SetDate(2001, 3, 1);  // same kind: allowed, and the zone is cleared
    EXPECT_FALSE(d.IsUTC());

    EXPECT_EQ(DT(2001, 2, 30).GetType(), DT::yearZero);
    EXPECT_EQ(DT(2001, 2, 28, 24, 0, 0).GetType(), DT::yearZero);
    EXPECT_EQ(DT(2001, 2, 28, 23, 0, 0, 1000, 0, 0).GetType(), DT::yearZero);
    DT failed;
    EXPECT_THROW(failed.SetDate(2001, 2, 30), COrvexInvalidValueException);
    EXPECT_EQ(failed.GetType(), DT::date);  // what was stored stays
}

TEST(DateTimeGetters, KindDecidesWhichFieldsExist)
{
    // fields: bits for year, month, day, time of day, day of year and week.
    struct Case { const char* text; Form form; unsigned fields; };
    const Case cases[] = {
        {"2000-03-04T05:06:07.008", Form::DateTime, 31}, {"2000-03-04", Form::Date, 23}, {"2000-03", Form::Date, 3},
        {"2000", Form::Date, 1}, {"05:06:07.008", Form::Time, 8}, {"---04", Form::Date, 4}, {"--03", Form::Date, 2},
        {"--03-04", Form::Date, 6},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const DT v = Parse(c.form, c.text);
        const std::string kind = v.GetTypeAsString();
        const auto check = [&](unsigned bit, const char* op, double expected, double (*get)(const DT&)) {
            if (c.fields & bit)
                EXPECT_DOUBLE_EQ(get(v), expected) << op;
            else
                EXPECT_THROW_MSG(get(v), COrvexInvalidStateException,
                                 std::string("Failed to ") + op + ". Invalid Date Type: " + kind + ".");
        };
        check(1, "GetYear", 2000, [](const DT& x) -> double { return x.GetYear(); });
        check(2, "GetMonth", 3, [](const DT& x) -> double { return x.GetMonth(); });
        check(4, "GetDay", 4, [](const DT& x) -> double { return x.GetDay(); });
        check(8, "GetHour", 5, [](const DT& x) -> double { return x.GetHour(); });
        check(8, "GetMinute", 6, [](const DT& x) -> double { return x.GetMinute(); });
        check(8, "GetSecond", 7, [](const DT& x) -> double { return x.GetSecond(); });
        check(8, "GetRealSecond", 7.008, [](const DT& x) { return x.GetRealSecond(); });
        check(8, "GetMilliSecond", 8, [](const DT& x) -> double { return x.GetMilliSecond(); });
        check(8, "GetMicroSecond", 0, [](const DT& x) -> double { return x.GetMicroSecond(); });
        check(8, "GetNanoSecond", 0, [](const DT& x) -> double { return x.GetNanoSecond(); });
        check(16, "GetDayOfYear", 64, [](const DT& x) -> double { return x.GetDayOfYear(); });
        check(16, "GetDayOfWeek", 7, [](const DT& x) -> double { return x.GetDayOfWeek(); });  // a Saturday
        if (!(c.fields & 16)) {
            EXPECT_THROW_MSG(v.GetTime(), COrvexInvalidValueException,
                             "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: " + kind + ".");
        }
        if (c.fields != 31) {
            EXPECT_THROW_MSG(v.GetAsSystemTime(), COrvexInvalidValueException,
                             "Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: " + kind + ".");
        }
    }
    EXPECT_EQ(DT(-4, 12, 31).GetDayOfYear(), 366);  // before the range the C library is compared over
}

TEST(DateTimeZone, FlagsRangesAndNormalization)
{
    DT v("2000-01-01T12:00:00");
    EXPECT_FALSE(v.IsUTC() || v.HasTimeZone());
    EXPECT_THROW_MSG(v.GetZoneHour(), COrvexInvalidStateException, "TimeZone is not been used");
    v.SetUTC();
    EXPECT_TRUE(v.IsUTC() && !v.HasTimeZone());
    EXPECT_THROW_MSG(v.GetZoneMinute(), COrvexInvalidStateException, "TimeZone is not been used");
    v.SetTimeZone(-5, 30);
    EXPECT_TRUE(v.IsUTC() && v.HasTimeZone());
    EXPECT_EQ(v.GetZoneHour() * 100 + v.GetZoneMinute(), -470);
    for (const auto& z : {std::make_pair(24, 0), std::make_pair(-24, 0), std::make_pair(0, 60)})
        EXPECT_THROW_MSG(v.SetTimeZone(z.first, z.second), COrvexInvalidValueException,
                         "Invalid TimeZone [" + std::to_string(z.first) + ":" + std::to_string(z.second) + "]");
    EXPECT_EQ(v.ToString(), "2000-01-01T12:00:00-05:30");

    for (const auto& n : {std::make_pair("+05:00", "1999-12-31T19:30:00+00:00"),
                          std::make_pair("-05:30", "2000-01-01T06:00:00+00:00"),
                          std::make_pair("Z", "2000-01-01T00:30:00Z"), std::make_pair("", "2000-01-01T00:30:00")})
        EXPECT_EQ(DT((std::string("2000-01-01T00:30:00") + n.first).c_str()).GetNormalized().ToString(), n.second);
    EXPECT_EQ(Parse(Form::Time, "01:00:00+05:00").GetNormalized().ToString(), "20:00:00+00:00");
}

TEST(DateTimeConversion, KindTable)
{
    // Row: source kind; column: target kind; 1 where the conversion is allowed.
    const int allowed[9][9] = {
        {1, 0, 0, 0, 0, 0, 0, 0, 0}, {1, 1, 1, 1, 1, 1, 1, 1, 1}, {1, 0, 1, 1, 1, 0, 1, 1, 1},
        {1, 0, 0, 1, 1, 0, 0, 1, 0}, {1, 0, 0, 0, 1, 0, 0, 0, 0}, {1, 0, 0, 0, 0, 1, 0, 0, 0},
        {1, 0, 0, 0, 0, 0, 1, 0, 0}, {1, 0, 0, 0, 0, 0, 0, 1, 0}, {1, 0, 0, 0, 0, 0, 1, 1, 1},
    };
    const DT full("2000-03-04T05:06:07Z");
    const char* const written[9] = {"Invalid Year Zero", "2000-03-04T05:06:07Z", "2000-03-04Z", "2000-03Z", "2000Z",
                                    "05:06:07Z", "---04Z", "--03Z", "--03-04Z"};
    for (int s = 0; s < 9; ++s) {
        DT source;
        if (s != 0)
            source.SetDateTime(full, static_cast<DT::DTType>(s));
        for (int t = 0; t < 9; ++t) {
            const auto target = static_cast<DT::DTType>(t);
            DT v;
            if (allowed[s][t]) {
                EXPECT_NO_THROW(v.SetDateTime(source, target)) << s << "->" << t;
                EXPECT_EQ(v.ToString(), written[t]);
            } else {
                EXPECT_THROW_MSG(v.SetDateTime(source, target), COrvexInvalidValueException,
                                 "Attempting to set a CDateTime of type " + DT::TypeName(target) +
                                     " using an XmlDateTime of type " + DT::TypeName(source.GetType()) +
                                     ". The source CDateTime does not contian enough data to allow the conversion.");
            }
        }
    }
    EXPECT_THROW_MSG(DT().SetDateTime(DT(static_cast<DT::DTType>(42)), DT::date), COrvexInvalidValueException,
                     "Unknown date type 42.");
    EXPECT_EQ(DT(static_cast<DT::DTType>(42)).GetTypeAsString(), "");
}

TEST(DateTimeArithmetic, CarriesAcrossMonthsYearsAndLeapDays)
{
    struct Case { Form form; const char* start; const char* span; bool subtract; const char* result; };
    const Case cases[] = {
        {Form::DateTime, "2000-12-31T23:59:59", "PT1S", false, "2001-01-01T00:00:00"},
        {Form::DateTime, "2000-03-01T00:00:00", "PT1S", true, "2000-02-29T23:59:59"},
        {Form::DateTime, "2000-03-01T00:00:00", "-PT1S", false, "2000-02-29T23:59:59"},
        {Form::DateTime, "2000-03-01T00:00:00", "-PT1S", true, "2000-02-29T23:59:59"},  // minus stays minus
        {Form::DateTime, "2000-01-01T00:00:00", "PT0.000000001S", true, "1999-12-31T23:59:59.999999999"},
        {Form::DateTime, "2000-01-01T00:00:00", "P1Y2M3DT4H5M6.789S", false, "2001-03-04T04:05:06.789"},
        {Form::DateTime, "2000-01-01T00:00:00", "PT100000000S", false, "2003-03-03T09:46:40"},
        {Form::DateTime, "2000-01-31T00:00:00", "P400D", false, "2001-03-06T00:00:00"},
        {Form::DateTime, "2000-01-31T00:00:00", "P13M", true, "1998-12-31T00:00:00"},
        {Form::DateTime, "-0001-12-31T23:59:59", "PT1S", false, "0000-01-01T00:00:00"},
        // Day steps of dates are held against a month-by-month walk below.
        {Form::Date, "2001-01-31", "P1M", false, "2001-02-31"},    {Form::Date, "2000-02-29", "P1Y", false, "2001-02-29"},
        {Form::Date, "2000-02-29", "P4Y", true, "1996-02-29"},     {Form::Date, "2000-01-01", "PT1S", true, "1999-12-31"},
        {Form::Date, "2000", "P1Y", false, "2001"},                {Form::Date, "2000", "P1D", true, "1999"},
        {Form::Date, "2000-12", "P1M", false, "2001-01"},          {Form::Date, "--12", "P1M", false, "--01"},
        {Form::Date, "--02-28", "P1D", false, "--02-29"},          {Form::Date, "---31", "P1D", false, "---01"},
        {Form::Time, "23:00:00", "PT2H", false, "01:00:00"},       {Form::Time, "00:00:00", "PT1S", true, "23:59:59"},
        {Form::Time, "12:00:00+05:00", "PT1H", false, "13:00:00+05:00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.start) + (c.subtract ? " - " : " + ") + c.span);
        const DT start = Parse(c.form, c.start);
        const CDateTimeSpan span = Span(c.span);
        DT inPlace(start);
        EXPECT_EQ((c.subtract ? start - span : start + span).ToString(), c.result);
        EXPECT_EQ((c.subtract ? inPlace -= span : inPlace += span).ToString(), c.result);
    }
    // Going back inside the month keeps a day beyond its end.
    DT feb = DT("2001-01-31T00:00:00") + Span("P1M");
    EXPECT_EQ((feb - Span("P1D")).ToString(), "2001-02-30T00:00:00");
    EXPECT_EQ((feb + Span("P1D")).ToString(), "2001-03-04T00:00:00");
    EXPECT_EQ((feb - Span("P31D")).ToString(), "2001-01-31T00:00:00");
}

namespace {

// The day walk, one month at a time: the reference for the arithmetic.
void WalkDays(long long& year, int& month, int& day, long long d)
{
    const auto dim = [&]() {
        static const int days[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        return month == 2 && year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : days[month];
    };
    while (d > 0 && day + d > dim()) {
        d += day - dim() - 1;
        day = 1;
        month = month % 12 + 1;
        year += month == 1;
    }
    while (d < 0 && day - 1 < -d) {
        d += day;
        month = (month + 10) % 12 + 1;
        year -= month == 12;
        day = dim();
    }
    day += static_cast<int>(d);
}

}  // namespace

TEST(DateTimeArithmetic, DayStepsMatchTheMonthByMonthWalk)
{
    std::mt19937 random(20261122);
    const auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(random); };
    for (int i = 0; i < 20000; ++i) {
        // Days 28 to 31 moved by whole months may stand beyond the month's end.
        DT start(static_cast<short>(pick(-2000, 3000)), pick(1, 12), pick(1, 28) + i % 4);
        const int days = pick(0, 3000);
        const bool negative = (i & 1) != 0;
        if (start.GetType() == DT::yearZero)
            continue;
        start += CDateTimeSpan(0, pick(0, 30), 0, 0, 0, 0);
        long long y = start.GetYear();
        int m = start.GetMonth();
        int d = start.GetDay();
        WalkDays(y, m, d, negative ? -days : days);
        CDateTimeSpan span(0, 0, days, 0, 0, 0);
        if (negative)
            span.Negate();
        const DT moved = start + span;
        ASSERT_EQ(moved.GetYear() * 10000LL + moved.GetMonth() * 100 + moved.GetDay(), y * 10000 + m * 100 + d)
            << start.ToString() << " " << span.ToString();
    }
}

TEST(DateTimeArithmetic, DifferenceAddsBack)
{
    std::mt19937 random(7);
    const auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(random); };
    for (int i = 0; i < 2000; ++i) {
        const auto value = [&] {
            return DT(pick(1, 3000), pick(1, 12), pick(1, 28), pick(0, 23), pick(0, 59), pick(0, 59), pick(0, 999),
                      pick(0, 999), pick(0, 999));
        };
        const DT a = value(), b = value();
        const CDateTimeSpan diff = a - b;
        ASSERT_EQ((b + diff).ToString(), a.ToString()) << diff.ToString();
        ASSERT_EQ(diff.IsNegative(), a < b);
    }
    EXPECT_EQ((DT("2000-01-01T12:00:00+05:00") - DT("2000-01-01T12:00:00Z")).ToString(), "-PT5H");
    EXPECT_EQ((Parse(Form::Time, "01:00:00") - Parse(Form::Time, "23:00:00")).ToString(), "-PT22H");
    EXPECT_EQ((DT(2000, 3, 1) - DT(2000, 2, 1)).ToString(), "P29D");
    EXPECT_THROW_MSG(DT(2000, 3, 1) - DT("2000-01-01T00:00:00"), COrvexInvalidValueException,
                     "Failed to subtract a CDateTime of type dateTime from a CDateTime of type date.");
}

TEST(DateTimeArithmetic, HugeSpansStayInRange)
{
    CDateTimeSpan spans[] = {Span("PT4294967295H"), Span("P4294967295D"), Span("P65535Y4294967295M"),
                             Span("PT2147483648S"), Span("PT4294967295M"),
                             CDateTimeSpan(65535, ~0u, ~0u, ~0u, ~0ULL, ~0ULL, 65535, 65535, 65535)};
    for (const DT& start : {DT("9999-12-31T23:59:59.999999999+14:00"), DT("-9999-01-01T00:00:00")}) {
        for (CDateTimeSpan span : spans) {
            for (int sign = 0; sign < 2; ++sign, span.Negate()) {
                const DT r = start + span;
                EXPECT_TRUE(r.GetMonth() >= 1 && r.GetMonth() <= 12 && r.GetDay() >= 1 && r.GetDay() <= 31);
                EXPECT_TRUE(r.GetHour() <= 23 && r.GetMinute() <= 59 && r.GetSecond() <= 59 && r.GetNanoSecond() <= 999);
            }
        }
    }
    // The seconds of a span are signed 64-bit in the sum: 2^64 - 1 is one second back.
    CDateTimeSpan minusOne;
    minusOne.SetSeconds(~0ULL);
    EXPECT_EQ((DT("2000-01-01T00:00:00") + minusOne).ToString(), "1999-12-31T23:59:59");
}

TEST(DateTimeOrder, PartialOrderOfZones)
{
    struct Case { Form form; const char* a; const char* b; DT::DTCompareResult result; };
    const Case cases[] = {
        {Form::DateTime, "2000-01-01T12:00:00", "2000-01-01T12:00:00", DT::Equal},
        {Form::DateTime, "2000-01-01T12:00:00", "2000-01-01T12:00:00.000000001", DT::LessThan},
        {Form::DateTime, "2000-01-01T12:00:00Z", "2000-01-01T16:00:00+05:00", DT::GreaterThan},
        {Form::DateTime, "2000-01-01T12:00:00Z", "2000-01-01T17:00:00+05:00", DT::Equal},
        {Form::DateTime, "2000-01-01T12:00:00Z", "2000-01-01T17:00:01+05:00", DT::LessThan},
        {Form::DateTime, "2000-01-01T12:00:00+01:00", "2000-01-01T06:00:00-05:00", DT::Equal},
        // Without a zone a value may lie anywhere from -14:00 to +14:00.
        {Form::DateTime, "2000-01-01T12:00:00Z", "2000-01-01T12:00:00", DT::Indeterminate},
        {Form::DateTime, "2000-01-01T12:00:00Z", "2000-01-02T12:00:00", DT::LessThan},
        {Form::DateTime, "2000-01-01T12:00:00Z", "2000-01-02T02:00:01", DT::LessThan},
        {Form::DateTime, "2000-01-01T12:00:00Z", "2000-01-02T02:00:00", DT::Indeterminate},
        {Form::DateTime, "2000-01-01T12:00:00Z", "1999-12-31T22:00:00", DT::Indeterminate},
        {Form::DateTime, "2000-01-01T12:00:00Z", "1999-12-31T21:59:59", DT::GreaterThan},
        {Form::DateTime, "2000-01-01T12:00:00", "2000-01-01T12:00:00+14:00", DT::Indeterminate},
        {Form::DateTime, "2000-01-02T02:00:01", "2000-01-01T12:00:00+14:00", DT::GreaterThan},
        {Form::DateTime, "-0001-01-01T00:00:00", "0001-01-01T00:00:00", DT::Indeterminate},
        {Form::Date, "2000-01-01", "2000-01-02", DT::LessThan},   {Form::Date, "2000-01-01", "2000-01", DT::Indeterminate},
        {Form::Date, "2000-01", "2000-02", DT::LessThan},         {Form::Date, "2000", "1999", DT::GreaterThan},
        {Form::Date, "2000Z", "2000+05:00", DT::GreaterThan},     {Form::Date, "--02-29", "--03-01", DT::LessThan},
        {Form::Date, "---15", "---15", DT::Equal},                {Form::Date, "--05", "---05", DT::Indeterminate},
        {Form::Time, "23:00:00-02:00", "00:30:00Z", DT::GreaterThan}, {Form::Time, "12:00:00", "12:00:00.5", DT::LessThan},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.a) + " ? " + c.b);
        const DT a = Parse(c.form, c.a);
        const DT b = Parse(c.form, c.b);
        const DT::DTCompareResult r = a.CompareTo(b);
        EXPECT_EQ(r, c.result);
        EXPECT_EQ(b.CompareTo(a), r == DT::LessThan ? DT::GreaterThan : r == DT::GreaterThan ? DT::LessThan : r);
        EXPECT_EQ((a == b) + 2 * (a != b) + 4 * (a < b) + 8 * (a <= b) + 16 * (a > b) + 32 * (a >= b),
                  r == DT::Equal ? 1 + 8 + 32 : r == DT::LessThan ? 2 + 4 + 8 : r == DT::GreaterThan ? 2 + 16 + 32 : 2);
    }
    EXPECT_EQ(DT(2000, 1, 1).CompareTo(Parse(Form::Time, "12:00:00")), DT::Indeterminate);
}

namespace {

// Sets TZ for the life of the object and restores what was there.
struct ScopedTimeZone
{
    const char* const had = std::getenv("TZ");
    const std::string old = had ? had : "";
    explicit ScopedTimeZone(const char* zone) { setenv("TZ", zone, 1), tzset(); }
    ~ScopedTimeZone() { had ? setenv("TZ", old.c_str(), 1) : unsetenv("TZ"), tzset(); }
};

}  // namespace

TEST(DateTimeSystem, CalendarMatchesTheCLibraryFrom1900To2100)
{
    const std::time_t end = TimeGm(2100, 12, 31, 0);
    for (std::time_t t = TimeGm(1900, 1, 1, 13); t < end; t += 86400) {
        std::tm fields{};
        ASSERT_TRUE(Platform::GmTime(t, fields));
        const DT v(t);
        ASSERT_EQ(v.GetYear() * 10000 + v.GetMonth() * 100 + v.GetDay(),
                  (fields.tm_year + 1900) * 10000 + (fields.tm_mon + 1) * 100 + fields.tm_mday);
        ASSERT_EQ(v.GetDayOfWeek(), fields.tm_wday + 1) << v.ToString();
        ASSERT_EQ(v.GetDayOfYear(), fields.tm_yday + 1) << v.ToString();
        ASSERT_EQ(v.GetTime(), t) << v.ToString();
        ASSERT_EQ(DT(v.GetYear(), v.GetMonth(), v.GetDay()).GetTime(), t - 13 * 3600);
        ASSERT_EQ(v.GetAsSystemTime().wDayOfWeek, fields.tm_wday);
    }
}

TEST(DateTimeSystem, GetTimeIgnoresTheProcessTimeZone)
{
    const char* const texts[] = {"2021-03-14T02:30:00", "2021-11-07T01:30:00", "1970-01-01T00:00:00",
                                 "2038-01-19T03:14:08", "1901-12-13T20:45:52", "2000-06-30T23:59:59-04:00",
                                 "2024-02-29T12:00:00+05:30", "9999-12-31T23:59:59"};
    for (const char* zone : {"UTC", "America/New_York", "Asia/Kolkata", "Australia/Lord_Howe"}) {
        ScopedTimeZone scoped(zone);
        for (const char* text : texts) {
            SCOPED_TRACE(std::string(zone) + " " + text);
            const DT v = DT(text).GetNormalized();
            EXPECT_EQ(DT(text).GetTime(),
                      TimeGm(v.GetYear(), v.GetMonth(), v.GetDay(), v.GetHour(), v.GetMinute(), v.GetSecond()));
            EXPECT_EQ(DT(DT(text).GetTime()).ToString(), v.ToString().substr(0, 19));
        }
    }
    EXPECT_EQ(DT("2000-06-30T23:59:59-04:00").GetTime(), 962423999);
    EXPECT_EQ(DT("-0001-01-01T00:00:00").GetTime(), -62198755200LL);
}

TEST(DateTimeSystem, SystemTimeAndFileTime)
{
    const DT v(SYSTEMTIME{2024, 2, 0, 29, 13, 14, 15, 678});
    EXPECT_EQ(v.ToString(), "2024-02-29T13:14:15.678");
    const SYSTEMTIME back = v.GetAsSystemTime();
    EXPECT_EQ(back.wYear * 10000 + back.wMonth * 100 + back.wDay, 20240229);
    EXPECT_EQ(back.wMilliseconds, 678);

    EXPECT_EQ(DT(FILETIME{0, 0}).ToString(), "1601-01-01T00:00:00");
    const std::uint64_t epoch = 116444736000000000ULL + 12345678;
    EXPECT_EQ(DT(FILETIME{std::uint32_t(epoch), std::uint32_t(epoch >> 32)}).ToString(), "1970-01-01T00:00:01.234");
    DT target;
    EXPECT_EQ(DT(FILETIME{0, 0x80000000u}).GetType(), DT::yearZero);
    EXPECT_THROW_MSG(target = (FILETIME{0, 0x80000000u}), COrvexInvalidValueException,
                     "Failed to convert FILETIME to SYSTEMTIME");
    EXPECT_EQ(DT(FILETIME{~0u, 0x7FFFFFFFu}).GetType(), DT::yearZero);
    EXPECT_THROW_MSG(target = (FILETIME{~0u, 0x7FFFFFFFu}), COrvexInvalidValueException,
                     "Invalid Year [30828] (-9999 <= year <= 9999 && year != 0)");

    // Wide fields are reported as they are, not wrapped into the narrow ones.
    EXPECT_EQ(DT(SYSTEMTIME{65535, 1, 0, 1, 0, 0, 0, 0}).GetType(), DT::yearZero);
    EXPECT_THROW_MSG(target = (SYSTEMTIME{65535, 1, 0, 1, 0, 0, 0, 0}), COrvexInvalidValueException,
                     "Invalid Year [65535] (-9999 <= year <= 9999 && year != 0)");
    EXPECT_THROW_MSG(target = (SYSTEMTIME{2000, 257, 0, 1, 0, 0, 0, 0}), COrvexInvalidValueException,
                     "Invalid Month [257] (1 <= month <= 12)");

    EXPECT_EQ(DT(std::time_t(-1)).ToString(), "1969-12-31T23:59:59");
    EXPECT_EQ(DT(std::time_t(253402300800LL)).GetType(), DT::yearZero);  // year 10000
    EXPECT_EQ(DT(std::numeric_limits<std::time_t>::max()).GetType(), DT::yearZero);
    EXPECT_THROW(target = std::numeric_limits<std::time_t>::max(), COrvexInvalidValueException);
}

TEST(DateTimeSystem, TickCountIsTheLocalClock)
{
    const DT now = DT::GetTickCount();
    EXPECT_EQ(now.GetType(), DT::dateTime);
    EXPECT_FALSE(now.IsUTC());
    std::tm local{};
    ASSERT_TRUE(Platform::LocalTime(std::time(nullptr), local));
    EXPECT_LE(std::llabs(static_cast<long long>(now.GetTime()) - Platform::TimeGm(local)), 5);
    ScopedTimeZone india("Asia/Kolkata");
    const long long ahead = static_cast<long long>(DT::GetTickCount().GetTime()) - std::time(nullptr);
    EXPECT_LE(std::llabs(ahead - 19800), 5);
}

TEST(DateTimeLexical, HostileTextFailsCleanly)
{
    // Texts made of the characters the parsers look at: each either parses and
    // writes a text that parses to the same, or fails with the value exception.
    const char alphabet[] = "0123-:.TZ+9";
    std::mt19937 random(99);
    for (int i = 0; i < 30000; ++i) {
        std::string text(std::uniform_int_distribution<int>(0, 32)(random), ' ');
        for (char& c : text)
            c = alphabet[random() % (sizeof alphabet - 1)];
        for (Form form : {Form::DateTime, Form::Date, Form::Time}) {
            try {
                const DT v = Parse(form, text.c_str());
                ASSERT_EQ(Parse(form, v.ToString().c_str()).ToString(), v.ToString()) << text;
            } catch (const COrvexInvalidValueException&) {
            }
        }
        try {
            const CDateTimeSpan s = Span(("P" + text).c_str());
            ASSERT_EQ(Span(s.ToString().c_str()).ToString(), s.ToString()) << text;
        } catch (const COrvexInvalidValueException&) {
        }
    }
}
