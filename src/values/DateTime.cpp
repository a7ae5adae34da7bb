// CDateTime: construction, the whole-value setters and conversion between
// kinds.
#include "NxDateTime.h"

#include "NxException.h"
#include "NxFoundation.h"

namespace NxXmlLib9 {

CDateTime::CDateTime()
{
    Clear();
}

CDateTime::CDateTime(DTType type)
{
    Clear();
    m_type = type;
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day)
{
    Clear();
    try {
        SetDate(year, month, day);
    } catch (...) {
        Clear();
        throw;
    }
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second)
{
    Clear();
    try {
        SetDateTime(year, month, day, hour, minute, second);
    } catch (...) {
        Clear();
        throw;
    }
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
                     unsigned char second, unsigned short milli, unsigned short micro, unsigned short nano)
{
    Clear();
    try {
        SetDateTime(year, month, day, hour, minute, second, milli, micro, nano);
    } catch (...) {
        Clear();
        throw;
    }
}

CDateTime::CDateTime(const char* text)
{
    Clear();
    try {
        ParseXSDDateTime(text);
    } catch (...) {
        Clear();
        throw;
    }
}

CDateTime::CDateTime(const long& time)
{
    Clear();
    const time_t instant = static_cast<time_t>(time);
    struct tm fields;
    if (gmtime_r(&instant, &fields) == nullptr)
        throw CNxInvalidValueException(FormatString("Invalid time [%ld]", time));
    try {
        SetDateTime(static_cast<short>(fields.tm_year + 1900), static_cast<unsigned char>(fields.tm_mon + 1),
                    static_cast<unsigned char>(fields.tm_mday), static_cast<unsigned char>(fields.tm_hour),
                    static_cast<unsigned char>(fields.tm_min), static_cast<unsigned char>(fields.tm_sec));
    } catch (...) {
        Clear();
        throw;
    }
}

CDateTime::~CDateTime() = default;

CDateTime& CDateTime::operator=(const long& time)
{
    // Built apart so that the present kind does not refuse the dateTime.
    *this = CDateTime(time);
    return *this;
}

CDateTime CDateTime::GetCurrentTime()
{
    const long now = static_cast<long>(std::time(nullptr));
    return CDateTime(now);
}

void CDateTime::Clear()
{
    m_type = dt_yearZero;
    m_reserved = 0;
    m_year = 0;
    m_month = 0;
    m_day = 0;
    m_hour = 0;
    m_minute = 0;
    m_second = 0;
    m_milli = 0;
    m_micro = 0;
    m_nano = 0;
    m_zonePresent = false;
    m_offsetPresent = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

void CDateTime::SetDateTime(DTType type, short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second, unsigned short milli, unsigned short micro,
                            unsigned short nano)
{
    if (m_type != dt_yearZero && m_type != type)
        throw CNxInvalidStateException(FormatString("Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.",
                                                    GetTypeAsString(m_type).c_str(), GetTypeAsString(type).c_str()));
    Clear();
    m_type = type;
    m_year = year;
    m_month = month;
    m_day = day;
    m_hour = hour;
    m_minute = minute;
    m_second = second;
    m_milli = milli;
    m_micro = micro;
    m_nano = nano;
    Validate();
}

void CDateTime::SetDate(short year, unsigned char month, unsigned char day)
{
    SetDateTime(dt_date, year, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second)
{
    SetDateTime(dt_time, 0, 0, 0, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second, unsigned short milli,
                        unsigned short micro, unsigned short nano)
{
    SetDateTime(dt_time, 0, 0, 0, hour, minute, second, milli, micro, nano);
}

void CDateTime::SetFracTime(unsigned short milli, unsigned short micro, unsigned short nano)
{
    SetDateTime(m_type, m_year, m_month, m_day, m_hour, m_minute, m_second, milli, micro, nano);
}

void CDateTime::SetGDay(unsigned char day)
{
    SetDateTime(dt_gDay, 0, 0, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonthDay(unsigned char month, unsigned char day)
{
    SetDateTime(dt_gMonthDay, 0, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonth(unsigned char month)
{
    SetDateTime(dt_gMonth, 0, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGYearMonth(short year, unsigned char month)
{
    SetDateTime(dt_gYearMonth, year, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGYear(short year)
{
    SetDateTime(dt_gYear, year, 0, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second)
{
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second, unsigned short milli, unsigned short micro,
                            unsigned short nano)
{
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second, milli, micro, nano);
}

bool CDateTime::CheckConversion(DTType from, DTType to) const
{
    if (from == to || to == dt_yearZero)
        return true;
    switch (from) {
    case dt_dateTime:
        return true;
    case dt_date:
        return to == dt_gYear || to == dt_gDay || to == dt_gMonth || to == dt_gMonthDay || to == dt_gYearMonth;
    case dt_gYearMonth:
        return to == dt_gMonth || to == dt_gYear;
    case dt_gMonthDay:
        return to == dt_gDay || to == dt_gMonth;
    case dt_yearZero:
    case dt_gYear:
    case dt_time:
    case dt_gDay:
    case dt_gMonth:
        return false;
    }
    throw CNxInvalidValueException(FormatString("Unknown date type %d.", static_cast<int>(from)));
}

void CDateTime::SetDateTime(const CDateTime& source, DTType type)
{
    if (!CheckConversion(source.m_type, type))
        throw CNxInvalidValueException(
            FormatString("Attempting to set a CDateTime of type %s using an XmlDateTime of type %s. The source "
                         "CDateTime does not contian enough data to allow the conversion.",
                         GetTypeAsString(source.m_type).c_str(), GetTypeAsString(type).c_str()));
    // Fields the new kind lacks stay behind, unseen through that kind.
    *this = source;
    m_type = type;
}

std::string CDateTime::GetTypeAsString() const
{
    return GetTypeAsString(m_type);
}

std::string CDateTime::GetTypeAsString(DTType type)
{
    static const char* const names[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                        "time",     "gDay",     "gMonth", "gMonthDay"};
    if (type < dt_yearZero || type > dt_gMonthDay)
        return std::string();
    return names[type];
}

} // namespace NxXmlLib9
