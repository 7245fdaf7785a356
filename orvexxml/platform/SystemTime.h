// The broken-down and the tick-count time records of the date-time interface,
// laid out with the field names and widths that Windows code expects.
#pragma once

#include <cstdint>

namespace OrvexXmlLib5 {

// A calendar time: every field is 16 bits; wDayOfWeek counts from 0 for Sunday.
struct SYSTEMTIME
{
    std::uint16_t wYear;          // the full year, e.g. 2024
    std::uint16_t wMonth;         // 1 to 12
    std::uint16_t wDayOfWeek;     // 0 (Sunday) to 6
    std::uint16_t wDay;           // day of the month, from 1
    std::uint16_t wHour;          // 0 to 23
    std::uint16_t wMinute;        // 0 to 59
    std::uint16_t wSecond;        // 0 to 59
    std::uint16_t wMilliseconds;  // 0 to 999
};

// Intervals of 100 nanoseconds since 1601-01-01T00:00:00 UTC, split in two halves.
struct FILETIME
{
    std::uint32_t dwLowDateTime;   // the low 32 bits of the count
    std::uint32_t dwHighDateTime;  // the high 32 bits of the count
};

}  // namespace OrvexXmlLib5
