// Parsing, writing and ordering of xs:duration values.
#include "orvexxml/values/DateTimeSpan.h"

#include <cstring>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/values/detail/DateTimeText.h"

namespace OrvexXmlLib5 {

CDateTimeSpan::CDateTimeSpan()
{
    Clear();
}

CDateTimeSpan::CDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds)
{
    SetDateTimeSpan(hours, minutes, seconds);
}

CDateTimeSpan::CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                             std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds)
{
    SetDateTimeSpan(years, months, days, hours, minutes, seconds);
}

CDateTimeSpan::CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                             std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                             unsigned short milli, unsigned short micro, unsigned short nano)
{
    SetDateTimeSpan(years, months, days, hours, minutes, seconds, milli, micro, nano);
}

void CDateTimeSpan::Clear()
{
    SetDateTimeSpan(0, 0, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTimeSpan::SetDateTimeSpan(std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds)
{
    SetDateTimeSpan(0, 0, 0, hours, minutes, seconds, 0, 0, 0);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                                    std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds)
{
    SetDateTimeSpan(years, months, days, hours, minutes, seconds, 0, 0, 0);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                                    std::uint32_t hours, std::uint64_t minutes, std::uint64_t seconds,
                                    unsigned short milli, unsigned short micro, unsigned short nano)
{
    m_years = years;
    m_months = months;
    m_days = days;
    m_hours = hours;
    m_minutes = minutes;
    m_seconds = seconds;
    m_milli = milli;
    m_micro = micro;
    m_nano = nano;
    m_negative = false;
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const
{
    CDateTimeSpan result(*this);
    result.m_negative = true;
    return result;
}

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Minutes and seconds are read as 32-bit numbers and widened with their sign, so
// a count from 2^31 on comes out negative in the 64-bit field.
std::uint64_t SignExtend(std::uint32_t value)
{
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(static_cast<std::int32_t>(value)));
}

}  // namespace

// Each round reads a number and a designator; the state is the last designator
// read, so designators can only come in their written order, and "M" stands for
// months before "T" and for minutes after it.
void CDateTimeSpan::ParseXSDDuration(const char* text)
{
    Clear();
    if (text == nullptr)
        throw COrvexInvalidValueException("Invalid XSD Duration (Null String)");
    if (*text == '\0')
        throw COrvexInvalidValueException("Invalid XSD Duration (Empty String)");
    const auto fail = [text]() {
        throw COrvexInvalidValueException(FormatString(
            "Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", text));
    };

    const char* p = text;
    if (*p == '-') {
        m_negative = true;
        ++p;
    }
    if (*p != 'P')
        fail();
    ++p;

    int state = 0;
    while (*p != '\0') {
        std::uint32_t number = 0;
        for (; IsDigit(*p); ++p)
            number = number * 10u + static_cast<std::uint32_t>(*p - '0');
        const char designator = *p;
        if (designator == '\0')
            fail();
        ++p;
        switch (designator) {
        case 'Y':
            if (state != 0)
                fail();
            m_years = static_cast<unsigned short>(number);
            state = 1;
            break;
        case 'M':
            if (state <= 1) {
                m_months = number;
                state = 2;
            } else if (state == 4 || state == 5) {
                m_minutes = SignExtend(number);
                state = 6;
            } else {
                fail();
            }
            break;
        case 'D':
            if (state > 2)
                fail();
            m_days = number;
            state = 3;
            break;
        case 'T':
            if (state > 3)
                fail();
            state = 4;
            break;
        case 'H':
            if (state != 4)
                fail();
            m_hours = number;
            state = 5;
            break;
        case 'S':
            if (state < 4 || state > 6)
                fail();
            m_seconds = SignExtend(number);
            state = 7;
            break;
        case '.':
            if (state < 4 || state > 6)
                fail();
            m_seconds = SignExtend(number);
            state = 8;
            // A point at the very end is accepted as a fraction without digits;
            // otherwise the fraction must be closed by "S".
            if (*p != '\0') {
                static const unsigned weights[3] = {100, 10, 1};
                unsigned short* const groups[3] = {&m_milli, &m_micro, &m_nano};
                for (int count = 0; IsDigit(*p); ++count, ++p) {
                    if (count == 9)
                        throw COrvexInvalidValueException(
                            FormatString("Invalid XSD Duration [%s] Fraction part too long", text));
                    *groups[count / 3] =
                        static_cast<unsigned short>(*groups[count / 3] + (*p - '0') * weights[count % 3]);
                }
                if (*p != 'S')
                    fail();
                ++p;
            }
            break;
        default:
            fail();
        }
    }
    if (state == 0 || state == 4)
        fail();
}

std::string CDateTimeSpan::ToString() const
{
    std::string out = m_negative ? "-P" : "P";
    if (m_years != 0)
        out += std::to_string(m_years) + 'Y';
    if (m_months != 0)
        out += std::to_string(m_months) + 'M';
    if (m_days != 0)
        out += std::to_string(m_days) + 'D';
    const bool hasFraction = m_milli != 0 || m_micro != 0 || m_nano != 0;
    if (m_hours == 0 && m_minutes == 0 && m_seconds == 0 && !hasFraction) {
        // "P" alone is not a duration; the zero span is written with zero seconds.
        if (m_years == 0 && m_months == 0 && m_days == 0)
            out += "T0S";
        return out;
    }
    out += 'T';
    if (m_hours != 0)
        out += std::to_string(m_hours) + 'H';
    if (m_minutes != 0)
        out += std::to_string(m_minutes) + 'M';
    if (m_seconds == 0 && !hasFraction)
        return out;
    out += std::to_string(m_seconds);
    detail::AppendFraction(out, m_milli, m_micro, m_nano);
    out += 'S';
    return out;
}

// Durations are ordered where adding them to each of four reference dates orders
// the results alike; the dates are chosen so that month lengths of 28 to 31 days
// and leap years all come into play.
CDateTime::DTCompareResult CDateTimeSpan::CompareTo(const CDateTimeSpan& other) const
{
    static const short years[4] = {1696, 1697, 1903, 1903};
    static const unsigned char months[4] = {9, 2, 3, 7};
    try {
        CDateTime::DTCompareResult first = CDateTime::Equal;
        for (int i = 0; i < 4; ++i) {
            CDateTime reference(years[i], months[i], 1, 0, 0, 0);
            reference.SetUTC();
            const CDateTime::DTCompareResult r = (reference + *this).CompareTo(reference + other);
            if (r == CDateTime::Indeterminate || (i > 0 && r != first))
                return CDateTime::Indeterminate;
            first = r;
        }
        return first;
    } catch (const COrvexInvalidValueException&) {
        return CDateTime::Indeterminate;
    }
}

}  // namespace OrvexXmlLib5
