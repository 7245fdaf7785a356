// The clock and the C library's calendar conversions, behind thread-safe wrappers.
// Nothing here throws; failures are reported by the return value.
#pragma once

#include "orvexxml/Export.h"

#include <ctime>

#include "orvexxml/platform/SystemTime.h"

namespace OrvexXmlLib5 {
namespace Platform {

// UTC broken-down time of t; false when the year does not fit a tm.
ORVEXXML_API bool GmTime(std::time_t t, std::tm& out);
// Local broken-down time of t in the process's current time zone (TZ is read
// again on each call); false on failure.
ORVEXXML_API bool LocalTime(std::time_t t, std::tm& out);
// Epoch seconds of the fields read as UTC; normalises fields out of range like
// mktime and gives -1 when the result does not fit.
ORVEXXML_API std::time_t TimeGm(std::tm& fields);

// The current local time with milliseconds; wDayOfWeek is filled.
ORVEXXML_API SYSTEMTIME GetLocalTime();
// False when the count is beyond the signed 64-bit range, as on Windows.
ORVEXXML_API bool FileTimeToSystemTime(const FILETIME& fileTime, SYSTEMTIME& out);

}  // namespace Platform
}  // namespace OrvexXmlLib5
