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

// Each field has a getter and a setter, both refused unless the kind has
// the field; the setter shares its getter's message, "Get" included.
#define NXXML_DATE_TIME_FIELD(Name, Type, member, fields) \
    Type CDateTime::Get##Name() const                    \
    {                                                    \
        RequireField(fields, "Get" #Name);               \
        return member;                                   \
    }                                                    \
    void CDateTime::Set##Name(Type value)                \
    {                                                    \
        RequireField(fields, "Get" #Name);               \
        member = value;                                  \
    }
NXXML_DATE_TIME_FIELD(Year, short, m_year, FieldYear)
NXXML_DATE_TIME_FIELD(Month, unsigned char, m_month, FieldMonth)
NXXML_DATE_TIME_FIELD(Day, unsigned char, m_day, FieldDay)
NXXML_DATE_TIME_FIELD(Hour, unsigned char, m_hour, FieldTime)
NXXML_DATE_TIME_FIELD(Minute, unsigned char, m_minute, FieldTime)
NXXML_DATE_TIME_FIELD(Second, unsigned char, m_second, FieldTime)
NXXML_DATE_TIME_FIELD(MilliSecond, unsigned short, m_milli, FieldTime)
NXXML_DATE_TIME_FIELD(MicroSecond, unsigned short, m_micro, FieldTime)
NXXML_DATE_TIME_FIELD(NanoSecond, unsigned short, m_nano, FieldTime)
#undef NXXML_DATE_TIME_FIELD

double CDateTime::GetRealSecond() const
{
    RequireField(FieldTime, "GetRealSecond");
    return m_second + m_milli / 1000.0 + m_micro / 1e6 + m_nano / 1e9;
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
