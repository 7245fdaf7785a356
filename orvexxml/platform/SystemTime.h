// The broken-down and the tick-count time records of the date-time interface,
// laid out with the field names and widths that Windows code expects.
#pragma once

#include <cstdint>

namespace OrvexXmlLib5 {

// A calendar time: every field is 16 bits; wDayOfWeek counts from 0 for Sunday.
struct SYSTEMTIME
{
    // The full year, e.g. 2024.
    std::uint16_t wYear;
    // The month, 1 to 12.
    std::uint16_t wMonth;
    // The day of the week, 0 (Sunday) to 6.
    std::uint16_t wDayOfWeek;
    // The day of the month, from 1.
    std::uint16_t wDay;
    // The hour, 0 to 23.
    std::uint16_t wHour;
    // The minute, 0 to 59.
    std::uint16_t wMinute;
    // The second, 0 to 59.
    std::uint16_t wSecond;
    // The millisecond, 0 to 999.
    std::uint16_t wMilliseconds;
};

// Intervals of 100 nanoseconds since 1601-01-01T00:00:00 UTC, split in two halves.
struct FILETIME
{
    // The low 32 bits of the count.
    std::uint32_t dwLowDateTime;
    // The high 32 bits of the count.
    std::uint32_t dwHighDateTime;
};

}  // namespace OrvexXmlLib5
