// CDateTime: construction, the whole-value setters, field access, zones and
// conversion between kinds.
#include "NxDateTime.h"

#include "NxException.h"
#include "NxFoundation.h"
#include "values/DateTimeKinds.h"

namespace NxXmlLib9 {

using namespace DateTimeKinds;

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

// ---- field access ----------------------------------------------------------

void CDateTime::RequireField(unsigned fields, const char* operation) const
{
    if (!Has(m_type, fields))
        throw CNxInvalidStateException(
            FormatString("Failed to %s. Invalid Date Type: %s.", operation, GetTypeAsString().c_str()));
}

short CDateTime::GetYear() const
{
    RequireField(FieldYear, "GetYear");
    return m_year;
}

unsigned char CDateTime::GetMonth() const
{
    RequireField(FieldMonth, "GetMonth");
    return m_month;
}

unsigned char CDateTime::GetDay() const
{
    RequireField(FieldDay, "GetDay");
    return m_day;
}

unsigned char CDateTime::GetHour() const
{
    RequireField(FieldTime, "GetHour");
    return m_hour;
}

unsigned char CDateTime::GetMinute() const
{
    RequireField(FieldTime, "GetMinute");
    return m_minute;
}

unsigned char CDateTime::GetSecond() const
{
    RequireField(FieldTime, "GetSecond");
    return m_second;
}

unsigned short CDateTime::GetMilliSecond() const
{
    RequireField(FieldTime, "GetMilliSecond");
    return m_milli;
}

unsigned short CDateTime::GetMicroSecond() const
{
    RequireField(FieldTime, "GetMicroSecond");
    return m_micro;
}

unsigned short CDateTime::GetNanoSecond() const
{
    RequireField(FieldTime, "GetNanoSecond");
    return m_nano;
}

double CDateTime::GetRealSecond() const
{
    RequireField(FieldTime, "GetRealSecond");
    return m_second + m_milli / 1000.0 + m_micro / 1e6 + m_nano / 1e9;
}

// The setters share their getter's message, "Get" included.
void CDateTime::SetYear(short value)
{
    RequireField(FieldYear, "GetYear");
    m_year = value;
}

void CDateTime::SetMonth(unsigned char value)
{
    RequireField(FieldMonth, "GetMonth");
    m_month = value;
}

void CDateTime::SetDay(unsigned char value)
{
    RequireField(FieldDay, "GetDay");
    m_day = value;
}

void CDateTime::SetHour(unsigned char value)
{
    RequireField(FieldTime, "GetHour");
    m_hour = value;
}

void CDateTime::SetMinute(unsigned char value)
{
    RequireField(FieldTime, "GetMinute");
    m_minute = value;
}

void CDateTime::SetSecond(unsigned char value)
{
    RequireField(FieldTime, "GetSecond");
    m_second = value;
}

void CDateTime::SetMilliSecond(unsigned short value)
{
    RequireField(FieldTime, "GetMilliSecond");
    m_milli = value;
}

void CDateTime::SetMicroSecond(unsigned short value)
{
    RequireField(FieldTime, "GetMicroSecond");
    m_micro = value;
}

void CDateTime::SetNanoSecond(unsigned short value)
{
    RequireField(FieldTime, "GetNanoSecond");
    m_nano = value;
}

int CDateTime::GetDayOfYear() const
{
    RequireField(FieldDate, "GetDayOfYear");
    // The unchecked setters can leave a month that indexes no table entry.
    if (m_month < 1 || m_month > 12)
        throw CNxInvalidValueException(FormatString("Invalid Month [%d] (1 <= month <= 12)", m_month));
    // The leap day is counted in January and February, not from March on.
    const int leapDay = IsLeapYear(m_year) && m_month <= 2 ? 1 : 0;
    return m_day + g_monthDayInYear[m_month - 1] + leapDay;
}

// ---- zone ------------------------------------------------------------------

short CDateTime::GetZoneHour() const
{
    if (!m_offsetPresent)
        throw CNxInvalidStateException("TimeZone is not been used");
    return m_zoneHour;
}

unsigned char CDateTime::GetZoneMinute() const
{
    if (!m_offsetPresent)
        throw CNxInvalidStateException("TimeZone is not been used");
    return m_zoneMinute;
}

void CDateTime::SetUTC()
{
    m_zonePresent = true;
    m_offsetPresent = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
}

void CDateTime::SetTimeZone(short hour, unsigned char minute)
{
    if (hour < -23 || hour > 23 || minute > 59)
        throw CNxInvalidValueException(FormatString("Invalid TimeZone [%d:%d]", hour, minute));
    m_zonePresent = true;
    m_offsetPresent = true;
    m_zoneHour = hour;
    m_zoneMinute = minute;
}

} // namespace NxXmlLib9
