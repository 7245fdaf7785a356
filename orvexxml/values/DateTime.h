// CDateTime: one value class for every XSD date and time kind (dateTime, date,
// time, gYear, gYearMonth, gMonth, gMonthDay, gDay) with zone, calendar arithmetic,
// the XSD order relation and the conversions to and from the system time types.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <ctime>
#include <string>

#include "orvexxml/platform/SystemTime.h"

namespace OrvexXmlLib5 {

class CDateTimeSpan;

// A value of any XSD date or time kind (dateTime, date, time, gYear, gYearMonth,
// gMonth, gMonthDay, gDay) with an optional zone, down to the nanosecond; the
// years run from MinYear to MaxYear.
class ORVEXXML_API CDateTime
{
public:
    // The kind of a value; the numbers are stored by generated code. Any 32-bit
    // number is a legal value of the type, so an unknown kind can be reported.
    enum DTType : std::int32_t
    {
        yearZero = 0,
        dateTime = 1,
        date = 2,
        gYearMonth = 3,
        gYear = 4,
        time = 5,
        gDay = 6,
        gMonth = 7,
        gMonthDay = 8
    };

    // The outcome of CompareTo.
    enum DTCompareResult : std::int32_t
    {
        Equal = 0,
        LessThan = 1,
        GreaterThan = 2,
        Indeterminate = 3
    };

    // The least year a value may hold.
    static const short MinYear = -9999;
    // The greatest year a value may hold.
    static const short MaxYear = 9999;

    // All fields zero: kind yearZero, the unset value.
    CDateTime();
    // All fields zero, of kind type; the setters of that kind then apply.
    explicit CDateTime(DTType type);
    // Parses the dateTime form; a malformed text throws COrvexInvalidValueException.
    CDateTime(const char* xsdDateTime);
    // The constructors from numbers and system times never throw: a value that does
    // not validate leaves the object as the unset value (kind yearZero).
    CDateTime(short year, unsigned char month, unsigned char day);
    // The same with a time of day.
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
              unsigned char minute, unsigned char second);
    // The same with the fractions of the second.
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
              unsigned char minute, unsigned char second, unsigned short milli,
              unsigned short micro, unsigned short nano);
    // UTC fields of an epoch time, as a dateTime without zone.
    CDateTime(const std::time_t& t);
    // The fields of st as a dateTime without zone; fields out of range give the unset value.
    CDateTime(const SYSTEMTIME& st);
    // The UTC time of ft as a dateTime without zone; a time beyond MaxYear gives the unset value.
    CDateTime(const FILETIME& ft);
    // Copies every field.
    CDateTime(const CDateTime& other) = default;

    // Copies every field.
    CDateTime& operator=(const CDateTime& other) = default;
    // These go through the dateTime setter: they throw what it throws, including its
    // kind check when this object already holds a kind other than dateTime.
    CDateTime& operator=(const std::time_t& t);
    // The fields of st as a dateTime without zone; see above.
    CDateTime& operator=(const SYSTEMTIME& st);
    // The UTC time of ft as a dateTime without zone; see above.
    CDateTime& operator=(const FILETIME& ft);

    // The current local time as a dateTime without zone, to the millisecond.
    static CDateTime GetTickCount();

    // True for a leap year of the proleptic Gregorian calendar.
    static bool IsLeapYear(short year);

    // Setters. Each fails with COrvexInvalidStateException when the object already
    // holds a different kind (other than yearZero), and with
    // COrvexInvalidValueException when a field is out of range; the fields stay stored
    // in that case. Every setter clears the zone.
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second);
    // The same with the fractions of the second.
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, unsigned short milli,
                     unsigned short micro, unsigned short nano);
    // Makes the value a date.
    void SetDate(short year, unsigned char month, unsigned char day);
    // Makes the value a time.
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second);
    // The same with the fractions of the second.
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second,
                 unsigned short milli, unsigned short micro, unsigned short nano);
    // A time of day made of fractions alone: hour, minute and second become 0.
    void SetFracTime(unsigned short milli, unsigned short micro, unsigned short nano);
    // Makes the value a gYear.
    void SetGYear(short year);
    // Makes the value a gYearMonth.
    void SetGYearMonth(short year, unsigned char month);
    // Makes the value a gMonth.
    void SetGMonth(unsigned char month);
    // Makes the value a gMonthDay.
    void SetGMonthDay(unsigned char month, unsigned char day);
    // Makes the value a gDay.
    void SetGDay(unsigned char day);

    // Copies source into this value as kind target. Throws COrvexInvalidValueException
    // when the source kind lacks fields that target shows. Fields that target does
    // not show are kept, unseen.
    void SetDateTime(const CDateTime& source, DTType target);

    // Numeric zone; throws COrvexInvalidValueException outside -23..23 and 0..59.
    // The sign of the whole offset is the sign of hour, so -00:30 can not be stated.
    void SetTimeZone(short hour, unsigned char minute);
    // The zone "Z".
    void SetUTC();
    // True for any stated zone, "Z" or numeric.
    bool IsUTC() const { return m_hasZone; }
    // True for a numeric zone only.
    bool HasTimeZone() const { return m_hasOffset; }
    // The kind of the value.
    DTType GetType() const { return m_type; }
    // Empty for a kind outside the enumeration.
    std::string GetTypeAsString() const { return TypeName(m_type); }
    // The name of type ("dateTime", "gYear", ...); empty outside the enumeration.
    static std::string TypeName(DTType type);

    // Getters throw COrvexInvalidStateException when the kind lacks the field.
    short GetYear() const;
    // The month, 1 to 12.
    unsigned char GetMonth() const;
    // The day of the month, from 1.
    unsigned char GetDay() const;
    // The hour, 0 to 23.
    unsigned char GetHour() const;
    // The minute, 0 to 59.
    unsigned char GetMinute() const;
    // The whole second, 0 to 59.
    unsigned char GetSecond() const;
    // Second with its fractions, in double precision.
    double GetRealSecond() const;
    // The millisecond, 0 to 999.
    unsigned short GetMilliSecond() const;
    // The microsecond within the millisecond, 0 to 999.
    unsigned short GetMicroSecond() const;
    // The nanosecond within the microsecond, 0 to 999.
    unsigned short GetNanoSecond() const;
    // 1 January is day 1 (dateTime and date only).
    unsigned short GetDayOfYear() const;
    // 1 for Sunday to 7 for Saturday (dateTime and date only).
    unsigned char GetDayOfWeek() const;
    // Throw COrvexInvalidStateException unless the zone is numeric.
    short GetZoneHour() const;
    // The minutes of the numeric zone, 0 to 59.
    unsigned char GetZoneMinute() const;

    // Throws COrvexInvalidValueException naming the first field out of range for
    // the kind; the unset value fails with "Invalid Year Zero".
    void Validate() const;

    // Arithmetic on the fields with carries; the result is not validated and the
    // zone is kept. Fields the kind lacks count as their minimum (month and day 1).
    CDateTime operator+(const CDateTimeSpan& span) const;
    // Adds span in place; see operator+.
    CDateTime& operator+=(const CDateTimeSpan& span);
    // Subtracts span; see operator+.
    CDateTime operator-(const CDateTimeSpan& span) const;
    // Subtracts span in place; see operator+.
    CDateTime& operator-=(const CDateTimeSpan& span);
    // Elapsed time from other to this value in days, hours, minutes, seconds and
    // fractions, negative when other is later; values with a numeric zone are taken
    // in UTC. Both must be of the same kind among dateTime, date and time, else
    // COrvexInvalidValueException.
    CDateTimeSpan operator-(const CDateTime& other) const;

    // The order of XSD date-time values; Indeterminate where no order holds.
    DTCompareResult CompareTo(const CDateTime& other) const;
    // True when CompareTo gives Equal.
    bool operator==(const CDateTime& other) const { return CompareTo(other) == Equal; }
    // True unless CompareTo gives Equal (Indeterminate included).
    bool operator!=(const CDateTime& other) const { return CompareTo(other) != Equal; }
    // True when CompareTo gives LessThan.
    bool operator<(const CDateTime& other) const { return CompareTo(other) == LessThan; }
    // True when CompareTo gives LessThan or Equal.
    bool operator<=(const CDateTime& other) const;
    // True when CompareTo gives GreaterThan.
    bool operator>(const CDateTime& other) const { return CompareTo(other) == GreaterThan; }
    // True when CompareTo gives GreaterThan or Equal.
    bool operator>=(const CDateTime& other) const;

    // A numeric zone moved into the fields: the result is at +00:00. A value with "Z"
    // or without zone comes back unchanged.
    CDateTime GetNormalized() const;
    // Epoch seconds of the value in UTC (dateTime and date; fractions dropped). A value
    // without zone is read as UTC. Does not depend on the process's time zone.
    std::time_t GetTime() const;
    // dateTime only; the zone is ignored.
    SYSTEMTIME GetAsSystemTime() const;

    // Lexical forms. All throw COrvexInvalidValueException on a malformed or out of
    // range text, leaving what was stored so far.
    void ParseXSDDateTime(const char* text);
    // Any form without a time: date, gYearMonth, gYear, gMonthDay, gMonth, gDay.
    void ParseXSDDate(const char* text);
    // The time form: hh:mm:ss with fractions and zone.
    void ParseXSDTime(const char* text);
    // Format "s" gives the XSD form of the kind; null, "" and "G" give an empty
    // string; any other format gives "Unknown Format: " and the format. The unset
    // value gives "Invalid Year Zero".
    std::string ToString(const char* format) const;
    // The XSD form of the kind, as ToString("s").
    std::string ToString() const { return ToString("s"); }

private:
    void Clear();
    void SetDateTime(DTType type, std::int64_t year, unsigned month, unsigned day, unsigned hour,
                     unsigned minute, unsigned second, unsigned milli, unsigned micro,
                     unsigned nano);
    void SetFromSystemTime(const SYSTEMTIME& st);
    static void CheckConversion(DTType source, DTType target);
    void AddDateTimeSpan(const CDateTimeSpan& span);
    DTCompareResult CompareFields(const CDateTime& other) const;
    void SetXSDDate(const char* text);
    void SetXSDTime(const char* text);
    void SetZone(const char* text);

    DTType m_type;
    short m_year;
    unsigned char m_month;
    unsigned char m_day;
    unsigned char m_hour;
    unsigned char m_minute;
    unsigned char m_second;
    unsigned short m_milli;
    unsigned short m_micro;
    unsigned short m_nano;
    bool m_hasZone;
    bool m_hasOffset;
    short m_zoneHour;
    unsigned char m_zoneMinute;
};

}  // namespace OrvexXmlLib5

#include "orvexxml/values/DateTimeSpan.h"
