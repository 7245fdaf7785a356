// Clock and calendar wrappers over the POSIX re-entrant time functions.
#include "orvexxml/platform/Clock.h"

#include <cstdint>
#include <time.h>

namespace OrvexXmlLib5 {
namespace Platform {

namespace {

SYSTEMTIME FromTm(const std::tm& fields, unsigned milliseconds)
{
    SYSTEMTIME st;
    st.wYear = static_cast<std::uint16_t>(fields.tm_year + 1900);
    st.wMonth = static_cast<std::uint16_t>(fields.tm_mon + 1);
    st.wDayOfWeek = static_cast<std::uint16_t>(fields.tm_wday);
    st.wDay = static_cast<std::uint16_t>(fields.tm_mday);
    st.wHour = static_cast<std::uint16_t>(fields.tm_hour);
    st.wMinute = static_cast<std::uint16_t>(fields.tm_min);
    st.wSecond = static_cast<std::uint16_t>(fields.tm_sec);
    st.wMilliseconds = static_cast<std::uint16_t>(milliseconds);
    return st;
}

}  // namespace

bool GmTime(std::time_t t, std::tm& out)
{
    return gmtime_r(&t, &out) != nullptr;
}

bool LocalTime(std::time_t t, std::tm& out)
{
    // localtime_r need not look at TZ again; localtime does, and so do we.
    tzset();
    return localtime_r(&t, &out) != nullptr;
}

std::time_t TimeGm(std::tm& fields)
{
    return timegm(&fields);
}

SYSTEMTIME GetLocalTime()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    std::tm fields{};
    if (!LocalTime(now.tv_sec, fields))
        GmTime(now.tv_sec, fields);
    return FromTm(fields, static_cast<unsigned>(now.tv_nsec / 1000000));
}

bool FileTimeToSystemTime(const FILETIME& fileTime, SYSTEMTIME& out)
{
    const std::uint64_t ticks =
        (static_cast<std::uint64_t>(fileTime.dwHighDateTime) << 32) | fileTime.dwLowDateTime;
    if (ticks > static_cast<std::uint64_t>(INT64_MAX))
        return false;
    // Seconds between 1601-01-01 and 1970-01-01. The whole range of FILETIME, up to the
    // year 30828, fits a 64-bit time_t.
    const std::int64_t epochShift = 11644473600LL;
    const std::int64_t seconds = static_cast<std::int64_t>(ticks / 10000000u) - epochShift;
    const unsigned milliseconds = static_cast<unsigned>((ticks % 10000000u) / 10000u);
    std::tm fields{};
    if (!GmTime(static_cast<std::time_t>(seconds), fields))
        return false;
    out = FromTm(fields, milliseconds);
    return true;
}

}  // namespace Platform
}  // namespace OrvexXmlLib5
