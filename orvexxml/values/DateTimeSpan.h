// CDateTimeSpan: the xs:duration value. Components are kept as written, with no
// normalisation ("PT90M" stays 90 minutes), and one flag holds the sign.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <string>

#include "orvexxml/values/DateTime.h"

namespace OrvexXmlLib5 {

// An xs:duration: a sign and counts of years, months, days, hours, minutes, seconds and
// the fractions of a second. The counts are kept as given, never carried into each other.
class ORVEXXML_API CDateTimeSpan
{
public:
    // The zero span, positive.
    CDateTimeSpan();
    // Copies every field.
    CDateTimeSpan(const CDateTimeSpan& other) = default;
    // A positive span of hours, minutes and seconds.
    CDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    // A positive span of years to seconds.
    CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  std::uint64_t minutes, std::uint64_t seconds);
    // A positive span of years to nanoseconds.
    CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  std::uint64_t minutes, std::uint64_t seconds, unsigned short milli,
                  unsigned short micro, unsigned short nano);
    // Copies every field.
    CDateTimeSpan& operator=(const CDateTimeSpan& other) = default;

    // Replace every field; those not given become 0 and the span becomes positive.
    void SetDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    // The same from years to seconds.
    void SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                         std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    // The same from years to nanoseconds.
    void SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                         std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                         unsigned short milli, unsigned short micro, unsigned short nano);

    // Number of years.
    unsigned short GetYears() const { return m_years; }
    // Number of months.
    std::uint32_t GetMonths() const { return m_months; }
    // Number of days.
    std::uint32_t GetDays() const { return m_days; }
    // Number of hours.
    std::uint32_t GetHours() const { return m_hours; }
    // Number of minutes.
    std::uint64_t GetMinutes() const { return m_minutes; }
    // Number of whole seconds.
    std::uint64_t GetSeconds() const { return m_seconds; }
    // Number of milliseconds.
    unsigned short GetMilliSeconds() const { return m_milli; }
    // Number of microseconds.
    unsigned short GetMicroSeconds() const { return m_micro; }
    // Number of nanoseconds.
    unsigned short GetNanoSeconds() const { return m_nano; }

    // Setters store without a range check: 5000 milliseconds stay 5000.
    void SetYears(unsigned short years) { m_years = years; }
    // Sets the months.
    void SetMonths(std::uint32_t months) { m_months = months; }
    // Sets the days.
    void SetDays(std::uint32_t days) { m_days = days; }
    // Sets the hours.
    void SetHours(std::uint32_t hours) { m_hours = hours; }
    // Sets the minutes.
    void SetMinutes(std::uint64_t minutes) { m_minutes = minutes; }
    // Sets the whole seconds.
    void SetSeconds(std::uint64_t seconds) { m_seconds = seconds; }
    // Sets the milliseconds.
    void SetMilliSeconds(unsigned short milli) { m_milli = milli; }
    // Sets the microseconds.
    void SetMicroSeconds(unsigned short micro) { m_micro = micro; }
    // Sets the nanoseconds.
    void SetNanoSeconds(unsigned short nano) { m_nano = nano; }

    // True when the span is flagged negative.
    bool IsNegative() const { return m_negative; }
    // Flips the sign.
    void Negate() { m_negative = !m_negative; }
    // A copy flagged negative whatever this span's sign is.
    CDateTimeSpan GetAsNegative() const;

    // Throws COrvexInvalidValueException on a malformed text, leaving what was stored.
    void ParseXSDDuration(const char* text);
    // The zero span is written "PT0S" (or "-PT0S"), which parses back to itself.
    std::string ToString() const;

    // The partial order of durations: compared as added to four reference dates.
    CDateTime::DTCompareResult CompareTo(const CDateTimeSpan& other) const;
    // True when CompareTo gives Equal.
    bool operator==(const CDateTimeSpan& other) const { return CompareTo(other) == CDateTime::Equal; }
    // True unless CompareTo gives Equal (Indeterminate included).
    bool operator!=(const CDateTimeSpan& other) const { return CompareTo(other) != CDateTime::Equal; }
    // True when CompareTo gives LessThan.
    bool operator<(const CDateTimeSpan& other) const { return CompareTo(other) == CDateTime::LessThan; }
    // True when CompareTo gives GreaterThan.
    bool operator>(const CDateTimeSpan& other) const { return CompareTo(other) == CDateTime::GreaterThan; }

private:
    void Clear();

    unsigned short m_years;
    std::uint32_t m_months;
    std::uint32_t m_days;
    std::uint32_t m_hours;
    std::uint64_t m_minutes;
    std::uint64_t m_seconds;
    unsigned short m_milli;
    unsigned short m_micro;
    unsigned short m_nano;
    bool m_negative;
};

}  // namespace OrvexXmlLib5
