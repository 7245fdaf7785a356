// The broken-down and the tick-count time records of the date-time interface,
// laid out with the field names and widths that Windows code expects.
#pragma once

#include <cstdint>

namespace OrvexXmlLib5 {

// A calendar time: every field is 16 bits; wDayOfWeek counts from 0 for Sunday.
struct SYSTEMTIME
{
    std::uint16_t wYear;
    std::uint16_t wMonth;
    std::uint16_t wDayOfWeek;
    std::uint16_t wDay;
    std::uint16_t wHour;
    std::uint16_t wMinute;
    std::uint16_t wSecond;
    std::uint16_t wMilliseconds;
};

// Intervals of 100 nanoseconds since 1601-01-01T00:00:00 UTC, split in two halves.
struct FILETIME
{
    std::uint32_t dwLowDateTime;
    std::uint32_t dwHighDateTime;
};

}  // namespace OrvexXmlLib5
