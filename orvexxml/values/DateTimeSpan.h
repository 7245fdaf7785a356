// CDateTimeSpan: the xs:duration value. Components are kept as written, with no
// normalisation ("PT90M" stays 90 minutes), and one flag holds the sign.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <string>

#include "orvexxml/values/DateTime.h"

namespace OrvexXmlLib5 {

class ORVEXXML_API CDateTimeSpan
{
public:
    CDateTimeSpan();
    CDateTimeSpan(const CDateTimeSpan& other) = default;
    CDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  std::uint64_t minutes, std::uint64_t seconds);
    CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  std::uint64_t minutes, std::uint64_t seconds, unsigned short milli,
                  unsigned short micro, unsigned short nano);
    CDateTimeSpan& operator=(const CDateTimeSpan& other) = default;

    // Replace every field; those not given become 0 and the span becomes positive.
    void SetDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    void SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                         std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds);
    void SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                         std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                         unsigned short milli, unsigned short micro, unsigned short nano);

    unsigned short GetYears() const { return m_years; }
    std::uint32_t GetMonths() const { return m_months; }
    std::uint32_t GetDays() const { return m_days; }
    std::uint32_t GetHours() const { return m_hours; }
    std::uint64_t GetMinutes() const { return m_minutes; }
    std::uint64_t GetSeconds() const { return m_seconds; }
    unsigned short GetMilliSeconds() const { return m_milli; }
    unsigned short GetMicroSeconds() const { return m_micro; }
    unsigned short GetNanoSeconds() const { return m_nano; }

    // Setters store without a range check: 5000 milliseconds stay 5000.
    void SetYears(unsigned short years) { m_years = years; }
    void SetMonths(std::uint32_t months) { m_months = months; }
    void SetDays(std::uint32_t days) { m_days = days; }
    void SetHours(std::uint32_t hours) { m_hours = hours; }
    void SetMinutes(std::uint64_t minutes) { m_minutes = minutes; }
    void SetSeconds(std::uint64_t seconds) { m_seconds = seconds; }
    void SetMilliSeconds(unsigned short milli) { m_milli = milli; }
    void SetMicroSeconds(unsigned short micro) { m_micro = micro; }
    void SetNanoSeconds(unsigned short nano) { m_nano = nano; }

    bool IsNegative() const { return m_negative; }
    void Negate() { m_negative = !m_negative; }
    // A copy flagged negative whatever this span's sign is.
    CDateTimeSpan GetAsNegative() const;

    // Throws COrvexInvalidValueException on a malformed text, leaving what was stored.
    void ParseXSDDuration(const char* text);
    // The zero span is written "PT0S" (or "-PT0S"), which parses back to itself.
    std::string ToString() const;

    // The partial order of durations: compared as added to four reference dates.
    CDateTime::DTCompareResult CompareTo(const CDateTimeSpan& other) const;
    bool operator==(const CDateTimeSpan& other) const { return CompareTo(other) == CDateTime::Equal; }
    bool operator!=(const CDateTimeSpan& other) const { return CompareTo(other) != CDateTime::Equal; }
    bool operator<(const CDateTimeSpan& other) const { return CompareTo(other) == CDateTime::LessThan; }
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
