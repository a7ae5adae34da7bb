// CDateTimeSpan: construction, printing and the order found through
// reference dates.
#include "NxDateTimeSpan.h"

#include <charconv>

#include "NxDateTime.h"
#include "NxFoundation.h"

namespace NxXmlLib9 {

CDateTimeSpan::CDateTimeSpan()
{
    Clear();
}

CDateTimeSpan::CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                             unsigned long long minutes, unsigned long long seconds)
{
    SetDateTimeSpan(years, months, days, hours, minutes, seconds);
}

CDateTimeSpan::CDateTimeSpan(unsigned short years, unsigned long months, unsigned long days, unsigned long hours,
                             unsigned long long minutes, unsigned long long seconds, unsigned short milli,
                             unsigned short micro, unsigned short nano)
{
    SetDateTimeSpan(years, months, days, hours, minutes, seconds, milli, micro, nano);
}

CDateTimeSpan::CDateTimeSpan(unsigned long hours, unsigned long long minutes, unsigned long long seconds)
{
    SetDateTimeSpan(hours, minutes, seconds);
}

CDateTimeSpan::~CDateTimeSpan() = default;

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                                    unsigned long hours, unsigned long long minutes, unsigned long long seconds)
{
    SetDateTimeSpan(years, months, days, hours, minutes, seconds, 0, 0, 0);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, unsigned long months, unsigned long days,
                                    unsigned long hours, unsigned long long minutes, unsigned long long seconds,
                                    unsigned short milli, unsigned short micro, unsigned short nano)
{
    Clear();
    m_years = years;
    m_months = months;
    m_days = days;
    m_hours = hours;
    m_minutes = minutes;
    m_seconds = seconds;
    m_milli = milli;
    m_micro = micro;
    m_nano = nano;
}

void CDateTimeSpan::SetDateTimeSpan(unsigned long hours, unsigned long long minutes, unsigned long long seconds)
{
    SetDateTimeSpan(0, 0, 0, hours, minutes, seconds, 0, 0, 0);
}

void CDateTimeSpan::Clear()
{
    m_years = 0;
    m_months = 0;
    m_days = 0;
    m_hours = 0;
    m_minutes = 0;
    m_seconds = 0;
    m_milli = 0;
    m_micro = 0;
    m_nano = 0;
    m_negative = false;
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const
{
    CDateTimeSpan copy(*this);
    copy.m_negative = true;
    return copy;
}

namespace {

void AppendNumber(std::string& text, unsigned long long value)
{
    char digits[24];
    const std::to_chars_result result = std::to_chars(digits, digits + sizeof digits, value);
    text.append(digits, result.ptr);
}

void AppendField(std::string& text, unsigned long long value, char designator)
{
    AppendNumber(text, value);
    text += designator;
}

} // namespace

std::string CDateTimeSpan::ToString() const
{
    std::string text = m_negative ? "-P" : "P";
    if (m_years != 0)
        AppendField(text, m_years, 'Y');
    if (m_months != 0)
        AppendField(text, m_months, 'M');
    if (m_days != 0)
        AppendField(text, m_days, 'D');
    const bool noFraction = m_milli == 0 && m_micro == 0 && m_nano == 0;
    if (m_hours == 0 && m_minutes == 0 && m_seconds == 0 && noFraction)
        return text;
    text += 'T';
    if (m_hours != 0)
        AppendField(text, m_hours, 'H');
    if (m_minutes != 0)
        AppendField(text, m_minutes, 'M');
    if (m_seconds == 0 && noFraction)
        return text;
    // The seconds print even when zero if a fraction follows them.
    AppendNumber(text, m_seconds);
    text += ToFracString(m_milli, m_micro, m_nano);
    text += 'S';
    return text;
}

int CDateTimeSpan::CompareTo(const CDateTimeSpan& other) const
{
    // The reference dates of XSD: between them they meet every month length
    // and leap-year case that can tell two durations apart.
    static const short references[4][3] = {{1696, 9, 1}, {1697, 2, 1}, {1903, 3, 1}, {1903, 7, 1}};
    int first = 0;
    for (int i = 0; i < 4; ++i) {
        CDateTime reference(references[i][0], static_cast<unsigned char>(references[i][1]),
                            static_cast<unsigned char>(references[i][2]));
        reference.SetUTC();
        const int result = (reference + *this).CompareTo(reference + other);
        if (result == 3)
            return 3;
        if (i == 0)
            first = result;
        else if (result != first)
            return 3;
    }
    return first;
}

} // namespace NxXmlLib9
