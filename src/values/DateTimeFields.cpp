// CDateTime: access to single fields, refused for fields the kind lacks, and
// the zone.
#include "NxDateTime.h"

#include "NxException.h"
#include "NxFoundation.h"
#include "values/DateTimeKinds.h"

namespace NxXmlLib9 {

using namespace DateTimeKinds;

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

// The zone. "Z" is a zone without an offset; an offset of +00:00 is kept
// apart from it and prints as such.

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
