// Calendar, zone and order of CDateTime. The value keeps broken-down fields only;
// day numbers are computed on demand for the walk over days, the epoch and the
// day of the week.
#include "orvexxml/values/DateTime.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/platform/Clock.h"
#include "orvexxml/values/DateTimeSpan.h"
#include "orvexxml/values/detail/Calendar.h"
#include "orvexxml/values/detail/DateTimeText.h"

#include <cstring>

namespace OrvexXmlLib5 {

namespace {

// Days of each month with 29 for February, as the gMonthDay rule wants it.
const unsigned char kDaysInMonth[13] = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

bool KindHasYear(CDateTime::DTType t)
{
    return t == CDateTime::dateTime || t == CDateTime::date || t == CDateTime::gYearMonth ||
           t == CDateTime::gYear;
}

bool KindHasMonth(CDateTime::DTType t)
{
    return t == CDateTime::dateTime || t == CDateTime::date || t == CDateTime::gYearMonth ||
           t == CDateTime::gMonthDay || t == CDateTime::gMonth;
}

bool KindHasDay(CDateTime::DTType t)
{
    return t == CDateTime::dateTime || t == CDateTime::date || t == CDateTime::gDay ||
           t == CDateTime::gMonthDay;
}

bool KindHasTime(CDateTime::DTType t)
{
    return t == CDateTime::dateTime || t == CDateTime::time;
}

[[noreturn]] void ThrowValue(const std::string& message)
{
    throw COrvexInvalidValueException(message);
}

// Day number of a date whose month and day may lie outside their ranges: both
// extend linearly, so month 13 is January of the next year and day 0 the last
// day of the month before.
std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day)
{
    const std::int64_t carry = detail::FloorDiv(month - 1, 12);
    return detail::DaysFromCivil(year + carry, static_cast<unsigned>(month - 12 * carry)) + day - 1;
}

// A field in the field comparison: -1 stands for a field the kind lacks.
template <typename T>
int CompareField(T a, T b)
{
    if ((a < 0 && b > 0) || (a > 0 && b < 0))
        return CDateTime::Indeterminate;
    if (a < b)
        return CDateTime::LessThan;
    if (a > b)
        return CDateTime::GreaterThan;
    return CDateTime::Equal;
}

void ValidateFields(CDateTime::DTType type, std::int64_t year, unsigned month, unsigned day,
                    unsigned hour, unsigned minute, unsigned second, unsigned milli, unsigned micro,
                    unsigned nano)
{
    const std::string typeName = CDateTime::TypeName(type);
    const char* name = typeName.c_str();
    if (type == CDateTime::yearZero)
        ThrowValue("Invalid Year Zero");

    if (KindHasMonth(type)) {
        if (month < 1 || month > 12)
            ThrowValue(FormatString("Invalid Month [%u] (1 <= month <= 12)", month));
    } else if (month != 0) {
        ThrowValue(FormatString("Invalid Month [%u] for type %s", month, name));
    }

    if (KindHasYear(type)) {
        if (year == 0 || year < CDateTime::MinYear || year > CDateTime::MaxYear)
            ThrowValue(FormatString("Invalid Year [%lld] (%d <= year <= %d && year != 0)",
                                    static_cast<long long>(year), int(CDateTime::MinYear),
                                    int(CDateTime::MaxYear)));
    } else if (year != 0) {
        ThrowValue(FormatString("Invalid Year [%lld] for type %s", static_cast<long long>(year), name));
    }

    if (type == CDateTime::date || type == CDateTime::dateTime) {
        if (day < 1 || day > detail::DaysInMonth(year, month))
            ThrowValue(FormatString("Invalid Day [%u] (1 <= day <= days in month", day));
    } else if (type == CDateTime::gMonthDay) {
        if (day < 1 || day > kDaysInMonth[month])
            ThrowValue(FormatString("Invalid Day [%u] (1 <= day <= days in month)", day));
    } else if (type == CDateTime::gDay) {
        if (day < 1 || day > 31)
            ThrowValue(FormatString("Invalid Day [%u] (1 <= day <= 31)", day));
    } else if (day != 0) {
        ThrowValue(FormatString("Invalid Day [%u] for type %s", day, name));
    }

    if (KindHasTime(type)) {
        if (hour > 23)
            ThrowValue(FormatString("Invalid Hour [%u] (0 <= hour <= 23)", hour));
        if (minute > 59)
            ThrowValue(FormatString("Invalid Minute [%u] (0 <= minute <= 59)", minute));
        if (second > 59)
            ThrowValue(FormatString("Invalid Second [%u] (0 <= second <= 59)", second));
        if (milli > 999)
            ThrowValue(FormatString("Invalid Milli-Second [%u] (0 <= milli <= 999)", milli));
        if (micro > 999)
            ThrowValue(FormatString("Invalid Micro-Second [%u] (0 <= micro <= 999)", micro));
        if (nano > 999)
            ThrowValue(FormatString("Invalid Nano-Second [%u] (0 <= nano <= 999)", nano));
    } else {
        if (hour != 0)
            ThrowValue(FormatString("Invalid Hour [%u] for type %s", hour, name));
        if (minute != 0)
            ThrowValue(FormatString("Invalid Minute [%u] for type %s", minute, name));
        if (second != 0)
            ThrowValue(FormatString("Invalid Second [%u] for type %s", second, name));
        if (milli != 0)
            ThrowValue(FormatString("Invalid Milli-Second [%u] for type %s", milli, name));
        if (micro != 0)
            ThrowValue(FormatString("Invalid Micro-Second [%u] for type %s", micro, name));
        if (nano != 0)
            ThrowValue(FormatString("Invalid Nano-Second [%u] for type %s", nano, name));
    }
}

}  // namespace

// ---- construction -------------------------------------------------------------

CDateTime::CDateTime()
{
    Clear();
}

CDateTime::CDateTime(DTType type)
{
    Clear();
    m_type = type;
}

CDateTime::CDateTime(const char* xsdDateTime)
{
    Clear();
    ParseXSDDateTime(xsdDateTime);
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day)
{
    Clear();
    try {
        SetDate(year, month, day);
    } catch (const COrvexInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second)
    : CDateTime(year, month, day, hour, minute, second, 0, 0, 0)
{
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, unsigned short milli,
                     unsigned short micro, unsigned short nano)
{
    Clear();
    try {
        SetDateTime(year, month, day, hour, minute, second, milli, micro, nano);
    } catch (const COrvexInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(const std::time_t& t)
{
    Clear();
    try {
        *this = t;
    } catch (const COrvexInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(const SYSTEMTIME& st)
{
    Clear();
    try {
        SetFromSystemTime(st);
    } catch (const COrvexInvalidValueException&) {
        Clear();
    }
}

CDateTime::CDateTime(const FILETIME& ft)
{
    Clear();
    try {
        *this = ft;
    } catch (const COrvexInvalidValueException&) {
        Clear();
    }
}

CDateTime& CDateTime::operator=(const std::time_t& t)
{
    std::tm fields{};
    if (!Platform::GmTime(t, fields))
        ThrowValue(FormatString("Failed to convert time_t [%lld] to a UTC time", static_cast<long long>(t)));
    SetDateTime(dateTime, static_cast<std::int64_t>(fields.tm_year) + 1900,
                static_cast<unsigned>(fields.tm_mon + 1), static_cast<unsigned>(fields.tm_mday),
                static_cast<unsigned>(fields.tm_hour), static_cast<unsigned>(fields.tm_min),
                static_cast<unsigned>(fields.tm_sec), 0, 0, 0);
    return *this;
}

CDateTime& CDateTime::operator=(const SYSTEMTIME& st)
{
    SetFromSystemTime(st);
    return *this;
}

CDateTime& CDateTime::operator=(const FILETIME& ft)
{
    SYSTEMTIME st;
    if (!Platform::FileTimeToSystemTime(ft, st))
        ThrowValue("Failed to convert FILETIME to SYSTEMTIME");
    SetFromSystemTime(st);
    return *this;
}

void CDateTime::SetFromSystemTime(const SYSTEMTIME& st)
{
    SetDateTime(dateTime, st.wYear, st.wMonth, st.wDay, st.wHour, st.wMinute, st.wSecond,
                st.wMilliseconds, 0, 0);
}

CDateTime CDateTime::GetTickCount()
{
    CDateTime now;
    now.SetFromSystemTime(Platform::GetLocalTime());
    return now;
}

bool CDateTime::IsLeapYear(short year)
{
    return detail::IsLeapYear(year);
}

void CDateTime::Clear()
{
    m_type = yearZero;
    m_year = 0;
    m_month = m_day = m_hour = m_minute = m_second = 0;
    m_milli = m_micro = m_nano = 0;
    m_hasZone = m_hasOffset = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

// ---- setters ------------------------------------------------------------------

// Fields arrive wide so that a system time beyond the narrow fields is reported
// with its true value instead of a wrapped one.
void CDateTime::SetDateTime(DTType type, std::int64_t year, unsigned month, unsigned day,
                            unsigned hour, unsigned minute, unsigned second, unsigned milli,
                            unsigned micro, unsigned nano)
{
    if (m_type != yearZero && m_type != type)
        throw COrvexInvalidStateException(
            FormatString("Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
                         TypeName(type).c_str(), GetTypeAsString().c_str()));
    m_type = type;
    m_year = static_cast<short>(year);
    m_month = static_cast<unsigned char>(month);
    m_day = static_cast<unsigned char>(day);
    m_hour = static_cast<unsigned char>(hour);
    m_minute = static_cast<unsigned char>(minute);
    m_second = static_cast<unsigned char>(second);
    m_milli = static_cast<unsigned short>(milli);
    m_micro = static_cast<unsigned short>(micro);
    m_nano = static_cast<unsigned short>(nano);
    m_hasZone = m_hasOffset = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
    ValidateFields(type, year, month, day, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second)
{
    SetDateTime(dateTime, year, month, day, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second, unsigned short milli,
                            unsigned short micro, unsigned short nano)
{
    SetDateTime(dateTime, year, month, day, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetDate(short year, unsigned char month, unsigned char day)
{
    SetDateTime(date, year, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second)
{
    SetDateTime(time, 0, 0, 0, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second,
                        unsigned short milli, unsigned short micro, unsigned short nano)
{
    SetDateTime(time, 0, 0, 0, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetFracTime(unsigned short milli, unsigned short micro, unsigned short nano)
{
    SetDateTime(time, 0, 0, 0, 0, 0, 0, milli, micro, nano);
}

void CDateTime::SetGYear(short year)
{
    SetDateTime(gYear, year, 0, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGYearMonth(short year, unsigned char month)
{
    SetDateTime(gYearMonth, year, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonth(unsigned char month)
{
    SetDateTime(gMonth, 0, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonthDay(unsigned char month, unsigned char day)
{
    SetDateTime(gMonthDay, 0, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGDay(unsigned char day)
{
    SetDateTime(gDay, 0, 0, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::CheckConversion(DTType source, DTType target)
{
    if (source == target || target == yearZero)
        return;
    bool allowed = false;
    switch (source) {
    case dateTime:
        allowed = target > yearZero && target <= gMonthDay;
        break;
    case date:
        allowed = target == gYearMonth || target == gYear || target == gMonthDay || target == gMonth ||
                  target == gDay;
        break;
    case gYearMonth:
        allowed = target == gYear || target == gMonth;
        break;
    case gMonthDay:
        allowed = target == gMonth || target == gDay;
        break;
    case yearZero:
    case gYear:
    case time:
    case gDay:
    case gMonth:
        break;
    default:
        ThrowValue(FormatString("Unknown date type %d.", static_cast<int>(source)));
    }
    if (!allowed)
        ThrowValue(FormatString("Attempting to set a CDateTime of type %s using an XmlDateTime of type "
                                "%s. The source CDateTime does not contian enough data to allow the "
                                "conversion.",
                                TypeName(target).c_str(), TypeName(source).c_str()));
}

void CDateTime::SetDateTime(const CDateTime& source, DTType target)
{
    CheckConversion(source.m_type, target);
    *this = source;
    m_type = target;
}

void CDateTime::SetTimeZone(short hour, unsigned char minute)
{
    if (hour < -23 || hour > 23 || minute > 59)
        ThrowValue(FormatString("Invalid TimeZone [%d:%d]", int(hour), int(minute)));
    m_hasZone = m_hasOffset = true;
    m_zoneHour = hour;
    m_zoneMinute = minute;
}

void CDateTime::SetUTC()
{
    m_hasZone = true;
    m_hasOffset = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

std::string CDateTime::TypeName(DTType type)
{
    static const char* const names[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                        "time",     "gDay",     "gMonth", "gMonthDay"};
    const int index = static_cast<int>(type);
    return index >= 0 && index <= 8 ? names[index] : "";
}

void CDateTime::Validate() const
{
    ValidateFields(m_type, m_year, m_month, m_day, m_hour, m_minute, m_second, m_milli, m_micro,
                   m_nano);
}

// ---- getters ------------------------------------------------------------------

namespace {

[[noreturn]] void ThrowGetter(const char* what, const CDateTime& value)
{
    throw COrvexInvalidStateException(
        FormatString("Failed to %s. Invalid Date Type: %s.", what, value.GetTypeAsString().c_str()));
}

}  // namespace

short CDateTime::GetYear() const
{
    if (!KindHasYear(m_type))
        ThrowGetter("GetYear", *this);
    return m_year;
}

unsigned char CDateTime::GetMonth() const
{
    if (!KindHasMonth(m_type))
        ThrowGetter("GetMonth", *this);
    return m_month;
}

unsigned char CDateTime::GetDay() const
{
    if (!KindHasDay(m_type))
        ThrowGetter("GetDay", *this);
    return m_day;
}

unsigned char CDateTime::GetHour() const
{
    if (!KindHasTime(m_type))
        ThrowGetter("GetHour", *this);
    return m_hour;
}

unsigned char CDateTime::GetMinute() const
{
    if (!KindHasTime(m_type))
        ThrowGetter("GetMinute", *this);
    return m_minute;
}

unsigned char CDateTime::GetSecond() const
{
    if (!KindHasTime(m_type))
        ThrowGetter("GetSecond", *this);
    return m_second;
}

double CDateTime::GetRealSecond() const
{
    if (!KindHasTime(m_type))
        ThrowGetter("GetRealSecond", *this);
    return m_second + m_milli * 0.001 + m_micro * 1e-6 + m_nano * 1e-9;
}

unsigned short CDateTime::GetMilliSecond() const
{
    if (!KindHasTime(m_type))
        ThrowGetter("GetMilliSecond", *this);
    return m_milli;
}

unsigned short CDateTime::GetMicroSecond() const
{
    if (!KindHasTime(m_type))
        ThrowGetter("GetMicroSecond", *this);
    return m_micro;
}

unsigned short CDateTime::GetNanoSecond() const
{
    if (!KindHasTime(m_type))
        ThrowGetter("GetNanoSecond", *this);
    return m_nano;
}

unsigned short CDateTime::GetDayOfYear() const
{
    if (m_type != dateTime && m_type != date)
        ThrowGetter("GetDayOfYear", *this);
    return static_cast<unsigned short>(DayNumber(m_year, m_month, m_day) - detail::DaysFromCivil(m_year, 1) + 1);
}

unsigned char CDateTime::GetDayOfWeek() const
{
    if (m_type != dateTime && m_type != date)
        ThrowGetter("GetDayOfWeek", *this);
    // 1970-01-01 was a Thursday, the fifth day counted from Sunday.
    const std::int64_t days = DayNumber(m_year, m_month, m_day);
    return static_cast<unsigned char>(days - 7 * detail::FloorDiv(days + 4, 7) + 4 + 1);
}

short CDateTime::GetZoneHour() const
{
    if (!m_hasOffset)
        throw COrvexInvalidStateException("TimeZone is not been used");
    return m_zoneHour;
}

unsigned char CDateTime::GetZoneMinute() const
{
    if (!m_hasOffset)
        throw COrvexInvalidStateException("TimeZone is not been used");
    return m_zoneMinute;
}

// ---- arithmetic ---------------------------------------------------------------

CDateTime CDateTime::operator+(const CDateTimeSpan& span) const
{
    CDateTime result(*this);
    result.AddDateTimeSpan(span);
    return result;
}

CDateTime& CDateTime::operator+=(const CDateTimeSpan& span)
{
    AddDateTimeSpan(span);
    return *this;
}

CDateTime CDateTime::operator-(const CDateTimeSpan& span) const
{
    CDateTime result(*this);
    result.AddDateTimeSpan(span.GetAsNegative());
    return result;
}

CDateTime& CDateTime::operator-=(const CDateTimeSpan& span)
{
    AddDateTimeSpan(span.GetAsNegative());
    return *this;
}

// Each field takes the signed span field and the carry of the field below, and
// floor division keeps it in range also when the sum is negative. Seconds and
// minutes of a span are 64 bits wide: their sums are formed modulo 2^64, the
// signed 64-bit arithmetic the fields are defined with, without overflow traps.
// The day walk over months is done in one step on day numbers, which is what
// walking month by month gives, so that huge spans cost no time.
void CDateTime::AddDateTimeSpan(const CDateTimeSpan& span)
{
    const std::int64_t s = span.IsNegative() ? -1 : 1;
    const auto wide = [&span](std::uint64_t v) { return span.IsNegative() ? 0 - v : v; };

    // A kind without month or day stands at the first of them.
    std::int64_t month = m_month == 0 ? 1 : m_month;
    std::int64_t day = m_day == 0 ? 1 : m_day;

    std::int64_t m = month + s * static_cast<std::int64_t>(span.GetMonths());
    std::int64_t carry = detail::FloorDiv(m - 1, 12);
    month = m - 12 * carry;
    std::int64_t year = m_year + s * static_cast<std::int64_t>(span.GetYears()) + carry;

    std::int64_t n = m_nano + s * span.GetNanoSeconds();
    carry = detail::FloorDiv(n, 1000);
    m_nano = static_cast<unsigned short>(n - 1000 * carry);
    n = m_micro + s * span.GetMicroSeconds() + carry;
    carry = detail::FloorDiv(n, 1000);
    m_micro = static_cast<unsigned short>(n - 1000 * carry);
    n = m_milli + s * span.GetMilliSeconds() + carry;
    carry = detail::FloorDiv(n, 1000);
    m_milli = static_cast<unsigned short>(n - 1000 * carry);

    n = static_cast<std::int64_t>(m_second + wide(span.GetSeconds()) + static_cast<std::uint64_t>(carry));
    carry = detail::FloorDiv(n, 60);
    m_second = static_cast<unsigned char>(n - 60 * carry);
    n = static_cast<std::int64_t>(m_minute + wide(span.GetMinutes()) + static_cast<std::uint64_t>(carry));
    carry = detail::FloorDiv(n, 60);
    m_minute = static_cast<unsigned char>(n - 60 * carry);
    n = m_hour + s * static_cast<std::int64_t>(span.GetHours()) + carry;
    carry = detail::FloorDiv(n, 24);
    m_hour = static_cast<unsigned char>(n - 24 * carry);

    const std::int64_t d = s * static_cast<std::int64_t>(span.GetDays()) + carry;
    // Going back within the month keeps a day beyond the month's end as it is
    // (31 February minus one day is 30 February); every other move lands on a
    // real date.
    if (d < 0 && day + d >= 1) {
        day += d;
    } else if (d != 0) {
        unsigned newMonth = 0;
        unsigned newDay = 0;
        detail::CivilFromDays(DayNumber(year, month, day) + d, year, newMonth, newDay);
        month = newMonth;
        day = newDay;
    }
    // The year is not validated; beyond the 16-bit field it wraps.
    m_year = static_cast<short>(static_cast<std::uint16_t>(year));
    m_month = static_cast<unsigned char>(month);
    m_day = static_cast<unsigned char>(day);
}

CDateTimeSpan CDateTime::operator-(const CDateTime& other) const
{
    if (m_type != other.m_type || (m_type != dateTime && m_type != date && m_type != time))
        ThrowValue(FormatString("Failed to subtract a CDateTime of type %s from a CDateTime of type %s.",
                                other.GetTypeAsString().c_str(), GetTypeAsString().c_str()));
    const CDateTime a = GetNormalized();
    const CDateTime b = other.GetNormalized();
    std::int64_t days = 0;
    if (m_type != time)
        days = DayNumber(a.m_year, a.m_month, a.m_day) - DayNumber(b.m_year, b.m_month, b.m_day);
    const std::int64_t nanosPerDay = 86400LL * 1000000000LL;
    std::int64_t within = 0;
    if (m_type != date) {
        const auto nanos = [](const CDateTime& v) {
            return ((v.m_hour * 60LL + v.m_minute) * 60 + v.m_second) * 1000000000LL +
                   v.m_milli * 1000000LL + v.m_micro * 1000LL + v.m_nano;
        };
        within = nanos(a) - nanos(b);
    }
    if (days > 0 && within < 0) {
        --days;
        within += nanosPerDay;
    } else if (days < 0 && within > 0) {
        ++days;
        within -= nanosPerDay;
    }
    const bool negative = days < 0 || within < 0;
    if (negative) {
        days = -days;
        within = -within;
    }
    CDateTimeSpan span(0, 0, static_cast<std::uint32_t>(days),
                       static_cast<std::uint32_t>(within / 3600000000000LL),
                       static_cast<std::uint64_t>(within / 60000000000LL % 60),
                       static_cast<std::uint64_t>(within / 1000000000LL % 60),
                       static_cast<unsigned short>(within / 1000000 % 1000),
                       static_cast<unsigned short>(within / 1000 % 1000),
                       static_cast<unsigned short>(within % 1000));
    if (negative)
        span.Negate();
    return span;
}

// ---- order --------------------------------------------------------------------

CDateTime CDateTime::GetNormalized() const
{
    if (!m_hasOffset)
        return *this;
    const CDateTimeSpan offset(static_cast<std::uint32_t>(m_zoneHour < 0 ? -m_zoneHour : m_zoneHour),
                               m_zoneMinute, 0);
    CDateTime result(*this);
    result.AddDateTimeSpan(m_zoneHour < 0 ? offset : offset.GetAsNegative());
    result.m_hasZone = result.m_hasOffset = true;
    result.m_zoneHour = 0;
    result.m_zoneMinute = 0;
    return result;
}

// Compares the fields both kinds show; a field only one kind shows makes the
// values incomparable.
CDateTime::DTCompareResult CDateTime::CompareFields(const CDateTime& other) const
{
    const auto year = [](const CDateTime& v) { return KindHasYear(v.m_type) ? int(v.m_year) : -1; };
    const auto month = [](const CDateTime& v) { return KindHasMonth(v.m_type) ? int(v.m_month) : -1; };
    const auto day = [](const CDateTime& v) { return KindHasDay(v.m_type) ? int(v.m_day) : -1; };
    const auto hour = [](const CDateTime& v) { return KindHasTime(v.m_type) ? int(v.m_hour) : -1; };
    const auto minute = [](const CDateTime& v) { return KindHasTime(v.m_type) ? int(v.m_minute) : -1; };
    const auto second = [](const CDateTime& v) { return KindHasTime(v.m_type) ? v.GetRealSecond() : -1.0; };

    int r = CompareField(year(*this), year(other));
    if (r == Equal)
        r = CompareField(month(*this), month(other));
    if (r == Equal)
        r = CompareField(day(*this), day(other));
    if (r == Equal)
        r = CompareField(hour(*this), hour(other));
    if (r == Equal)
        r = CompareField(minute(*this), minute(other));
    if (r == Equal)
        r = CompareField(second(*this), second(other));
    return static_cast<DTCompareResult>(r);
}

// A value without zone stands for a stretch of 28 hours of instants: it is only
// ordered against a zoned value when it lies entirely on one side of it.
CDateTime::DTCompareResult CDateTime::CompareTo(const CDateTime& other) const
{
    const CDateTime a = GetNormalized();
    const CDateTime b = other.GetNormalized();
    if (a.m_hasZone == b.m_hasZone)
        return a.CompareFields(b);
    try {
        if (a.m_hasZone) {
            CDateTime bound(b);
            bound.SetTimeZone(14, 0);
            if (a.CompareFields(bound.GetNormalized()) == LessThan)
                return LessThan;
            bound = b;
            bound.SetTimeZone(-14, 0);
            if (a.CompareFields(bound.GetNormalized()) == GreaterThan)
                return GreaterThan;
        } else {
            CDateTime bound(a);
            bound.SetTimeZone(14, 0);
            if (bound.GetNormalized().CompareFields(b) == GreaterThan)
                return GreaterThan;
            bound = a;
            bound.SetTimeZone(-14, 0);
            if (bound.GetNormalized().CompareFields(b) == LessThan)
                return LessThan;
        }
    } catch (const COrvexInvalidValueException&) {
    }
    return Indeterminate;
}

bool CDateTime::operator<=(const CDateTime& other) const
{
    const DTCompareResult r = CompareTo(other);
    return r == LessThan || r == Equal;
}

bool CDateTime::operator>=(const CDateTime& other) const
{
    const DTCompareResult r = CompareTo(other);
    return r == GreaterThan || r == Equal;
}

// ---- system types -------------------------------------------------------------

std::time_t CDateTime::GetTime() const
{
    if (m_type != dateTime && m_type != date)
        ThrowValue(FormatString("Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: %s.",
                                GetTypeAsString().c_str()));
    // Computed from the calendar rather than through mktime, so that neither the
    // process's time zone nor its daylight saving rules can shift the result.
    const CDateTime n = GetNormalized();
    std::int64_t seconds = DayNumber(n.m_year, n.m_month, n.m_day) * 86400;
    if (m_type == dateTime)
        seconds += (n.m_hour * 60 + n.m_minute) * 60 + n.m_second;
    return static_cast<std::time_t>(seconds);
}

SYSTEMTIME CDateTime::GetAsSystemTime() const
{
    if (m_type != dateTime)
        ThrowValue(FormatString("Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: %s.",
                                GetTypeAsString().c_str()));
    SYSTEMTIME st;
    st.wYear = static_cast<std::uint16_t>(m_year);
    st.wMonth = m_month;
    st.wDayOfWeek = static_cast<std::uint16_t>(GetDayOfWeek() - 1);
    st.wDay = m_day;
    st.wHour = m_hour;
    st.wMinute = m_minute;
    st.wSecond = m_second;
    st.wMilliseconds = m_milli;
    return st;
}

// ---- lexical forms ------------------------------------------------------------
// The parsers read zero-terminated text by position. A shape is only tested within
// the length already measured, so no read goes past the terminator.

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool ReadNumber(const char* p, int digits, unsigned& value)
{
    value = 0;
    for (int i = 0; i < digits; ++i) {
        if (!IsDigit(p[i]))
            return false;
        value = value * 10 + static_cast<unsigned>(p[i] - '0');
    }
    return true;
}

}  // namespace

void CDateTime::SetXSDDate(const char* text)
{
    if (text == nullptr)
        ThrowValue("Invalid Date (Null String)");
    if (*text == '\0')
        ThrowValue("Invalid Date (Empty String)");
    if (std::strchr(text, 'T') != nullptr)
        ThrowValue("Invalid Date ('T' not allowed)");

    std::ptrdiff_t n = static_cast<std::ptrdiff_t>(std::strlen(text));
    const bool zulu = text[n - 1] == 'Z';
    const bool offset = std::strchr(text, ':') != nullptr;
    if (zulu && offset)
        ThrowValue("Invalid Date (Bad Zone value)");
    if (zulu)
        n -= 1;
    else if (offset)
        n -= 6;

    const char* p = text;
    DTType kind = yearZero;
    unsigned year = 0;
    unsigned month = 0;
    unsigned day = 0;
    bool negative = false;
    if (p[0] == '-' && p[1] == '-') {
        switch (n) {
        case 4:
            if (ReadNumber(p + 2, 2, month))
                kind = gMonth;
            break;
        case 5:
            if (p[2] == '-' && ReadNumber(p + 3, 2, day))
                kind = gDay;
            break;
        case 6:  // "--MM--", an older form of gMonth
            if (ReadNumber(p + 2, 2, month))
                kind = gMonth;
            break;
        case 7:
            if (ReadNumber(p + 2, 2, month) && p[4] == '-' && ReadNumber(p + 5, 2, day))
                kind = gMonthDay;
            break;
        default:
            break;
        }
    } else {
        if (p[0] == '-') {
            negative = true;
            ++p;
            --n;
        }
        switch (n) {
        case 4:
            if (ReadNumber(p, 4, year))
                kind = gYear;
            break;
        case 7:
            if (ReadNumber(p, 4, year) && p[4] == '-' && ReadNumber(p + 5, 2, month))
                kind = gYearMonth;
            break;
        case 10:
            if (ReadNumber(p, 4, year) && p[4] == '-' && ReadNumber(p + 5, 2, month) && p[7] == '-' &&
                ReadNumber(p + 8, 2, day))
                kind = date;
            break;
        default:
            break;
        }
    }
    if (kind == yearZero)
        ThrowValue(FormatString("Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text));

    m_year = static_cast<short>(negative ? -static_cast<int>(year) : static_cast<int>(year));
    m_month = static_cast<unsigned char>(month);
    m_day = static_cast<unsigned char>(day);
    m_type = kind;
    if (zulu || offset)
        SetZone(p + n);
}

void CDateTime::SetXSDTime(const char* text)
{
    if (text == nullptr)
        ThrowValue("Invalid Time (Null String)");
    if (*text == '\0')
        ThrowValue("Invalid XSD Time (Empty String)");
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
    // Hour 24 is refused even as 24:00:00: the next day's midnight is written so.
    if (!ReadNumber(text, 2, hour) || text[2] != ':' || !ReadNumber(text + 3, 2, minute) || text[5] != ':' ||
        !ReadNumber(text + 6, 2, second) || hour > 23 || minute > 59 || second > 59)
        ThrowValue(FormatString("Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text));
    m_hour = static_cast<unsigned char>(hour);
    m_minute = static_cast<unsigned char>(minute);
    m_second = static_cast<unsigned char>(second);

    const char* p = text + 8;
    if (*p == '.') {
        ++p;
        static const unsigned weights[3] = {100, 10, 1};
        unsigned short* const groups[3] = {&m_milli, &m_micro, &m_nano};
        for (int count = 0; IsDigit(*p); ++count, ++p) {
            if (count == 9)
                ThrowValue(FormatString("Invalid XSD Time [%s] Fraction part too long", text));
            *groups[count / 3] = static_cast<unsigned short>(*groups[count / 3] + (*p - '0') * weights[count % 3]);
        }
    }
    if (*p != '\0')
        SetZone(p);
    m_type = time;
}

// A zone that starts with neither "Z" nor a sign is ignored, as is anything after "Z".
void CDateTime::SetZone(const char* text)
{
    if (*text == 'Z') {
        SetUTC();
        return;
    }
    if (*text != '+' && *text != '-')
        return;
    unsigned hour = 0;
    unsigned minute = 0;
    if (std::strlen(text) != 6 || !ReadNumber(text + 1, 2, hour) || text[3] != ':' ||
        !ReadNumber(text + 4, 2, minute))
        ThrowValue(FormatString("Invalid XSD Time Zone [%s]", text));
    if (hour == 24)
        hour = 0;
    const int signedHour = *text == '-' ? -static_cast<int>(hour) : static_cast<int>(hour);
    SetTimeZone(static_cast<short>(signedHour), static_cast<unsigned char>(minute));
}

void CDateTime::ParseXSDDateTime(const char* text)
{
    if (text == nullptr)
        ThrowValue("Invalid DateTime (Null String)");
    const char* separator = std::strchr(text, 'T');
    if (separator == nullptr)
        ThrowValue(FormatString("Invalid XSD DateTime [%s]", text));
    Clear();
    SetXSDDate(std::string(text, separator).c_str());
    if (m_type != date)
        ThrowValue(FormatString("Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", text));
    SetXSDTime(separator + 1);
    m_type = dateTime;
    Validate();
}

void CDateTime::ParseXSDDate(const char* text)
{
    Clear();
    SetXSDDate(text);
    Validate();
}

void CDateTime::ParseXSDTime(const char* text)
{
    Clear();
    SetXSDTime(text);
    Validate();
}

std::string CDateTime::ToString(const char* format) const
{
    if (m_type == yearZero)
        return "Invalid Year Zero";
    if (format == nullptr || *format == '\0' || std::strcmp(format, "G") == 0)
        return std::string();
    if (std::strcmp(format, "s") != 0)
        return std::string("Unknown Format: ") + format;

    std::string out;
    out.reserve(40);
    const auto appendYear = [&] {
        if (m_year < 0)
            out += '-';
        detail::AppendPadded(out, m_year < 0 ? -static_cast<int>(m_year) : m_year, 4);
    };
    const auto appendClock = [&] {
        detail::AppendPadded(out, m_hour, 2);
        out += ':';
        detail::AppendPadded(out, m_minute, 2);
        out += ':';
        detail::AppendPadded(out, m_second, 2);
        detail::AppendFraction(out, m_milli, m_micro, m_nano);
    };
    switch (m_type) {
    case dateTime:
    case date:
        appendYear();
        out += '-';
        detail::AppendPadded(out, m_month, 2);
        out += '-';
        detail::AppendPadded(out, m_day, 2);
        if (m_type == dateTime) {
            out += 'T';
            appendClock();
        }
        break;
    case gYearMonth:
        appendYear();
        out += '-';
        detail::AppendPadded(out, m_month, 2);
        break;
    case gYear:
        appendYear();
        break;
    case time:
        appendClock();
        break;
    case gDay:
        out += "---";
        detail::AppendPadded(out, m_day, 2);
        break;
    case gMonth:
        out += "--";
        detail::AppendPadded(out, m_month, 2);
        break;
    case gMonthDay:
        out += "--";
        detail::AppendPadded(out, m_month, 2);
        out += '-';
        detail::AppendPadded(out, m_day, 2);
        break;
    default:
        break;
    }

    if (m_hasZone) {
        if (!m_hasOffset) {
            out += 'Z';
        } else {
            out += m_zoneHour < 0 ? '-' : '+';
            detail::AppendPadded(out, m_zoneHour < 0 ? -m_zoneHour : m_zoneHour, 2);
            out += ':';
            detail::AppendPadded(out, m_zoneMinute, 2);
        }
    }
    return out;
}

}  // namespace OrvexXmlLib5
