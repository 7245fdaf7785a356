// Proleptic Gregorian calendar arithmetic on day numbers, shared by the date-time
// classes. Years are signed and numbered astronomically: the leap rule applies to
// negative years and to year 0 alike, and no year is skipped.
#pragma once

#include <cstdint>

namespace OrvexXmlLib5 {
namespace detail {

// Division rounding towards minus infinity; b must be positive.
inline std::int64_t FloorDiv(std::int64_t a, std::int64_t b)
{
    std::int64_t q = a / b;
    if (a % b != 0 && a < 0)
        --q;
    return q;
}

inline bool IsLeapYear(std::int64_t year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

inline unsigned DaysInMonth(std::int64_t year, unsigned month)
{
    static const unsigned char days[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29u : days[month];
}

// Days from 1970-01-01 to the first of the given month (1 to 12). Years far beyond
// any calendar use are fine as long as year * 366 fits 64 bits.
inline std::int64_t DaysFromCivil(std::int64_t year, unsigned month)
{
    const std::int64_t y = month <= 2 ? year - 1 : year;
    const std::int64_t era = FloorDiv(y, 400);
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

// Inverse of DaysFromCivil with the day of the month added.
inline void CivilFromDays(std::int64_t days, std::int64_t& year, unsigned& month, unsigned& day)
{
    const std::int64_t z = days + 719468;
    const std::int64_t era = FloorDiv(z, 146097);
    const std::int64_t dayOfEra = z - era * 146097;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t mp = (5 * dayOfYear + 2) / 153;
    day = static_cast<unsigned>(dayOfYear - (153 * mp + 2) / 5 + 1);
    month = static_cast<unsigned>(mp < 10 ? mp + 3 : mp - 9);
    year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
}

}  // namespace detail
}  // namespace OrvexXmlLib5
