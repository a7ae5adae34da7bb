// CDateTime::ToString: the XSD lexical form of each kind, then the zone.
#include "NxDateTime.h"

#include <cstdlib>
#include <cstring>

#include "NxException.h"
#include "NxFoundation.h"

namespace NxXmlLib9 {

namespace {

std::string YearText(short year)
{
    const std::string digits = PadZero(std::abs(static_cast<int>(year)), 4);
    return year < 0 ? "-" + digits : digits;
}

std::string Two(int value)
{
    return PadZero(value, 2);
}

std::string TimeText(int hour, int minute, int second, unsigned short milli, unsigned short micro,
                     unsigned short nano)
{
    return Two(hour) + ":" + Two(minute) + ":" + Two(second) + ToFracString(milli, micro, nano);
}

} // namespace

bool CDateTime::IsUnset() const
{
    if (m_type == dt_yearZero)
        return true;
    // A time of midnight is a real value; for every other kind all-zero
    // fields mean nothing was ever stored.
    return m_type != dt_time && m_year == 0 && m_month == 0 && m_day == 0 && m_hour == 0 && m_minute == 0 &&
           m_second == 0 && m_milli == 0 && m_micro == 0 && m_nano == 0;
}

std::string CDateTime::ToString() const
{
    return ToString("s");
}

std::string CDateTime::ToString(const char* format) const
{
    if (IsUnset())
        throw CNxInvalidValueException("Date Not Set");
    if (format == nullptr || std::strcmp(format, "G") == 0)
        return std::string();
    if (std::strcmp(format, "s") != 0)
        return std::string("Unknown Format: ") + format;

    std::string text;
    switch (m_type) {
    case dt_date:
        text = YearText(m_year) + "-" + Two(m_month) + "-" + Two(m_day);
        break;
    case dt_dateTime:
        text = YearText(m_year) + "-" + Two(m_month) + "-" + Two(m_day) + "T" + TimeText(m_hour, m_minute, m_second, m_milli, m_micro, m_nano);
        break;
    case dt_gDay:
        text = "---" + Two(m_day);
        break;
    case dt_gMonth:
        text = "--" + Two(m_month);
        break;
    case dt_gMonthDay:
        text = "--" + Two(m_month) + "-" + Two(m_day);
        break;
    case dt_time:
        text = TimeText(m_hour, m_minute, m_second, m_milli, m_micro, m_nano);
        break;
    case dt_gYear:
        text = YearText(m_year);
        break;
    case dt_gYearMonth:
        text = YearText(m_year) + "-" + Two(m_month);
        break;
    default:
        break;
    }

    if (m_offsetPresent) {
        // The sign is the zone hour's, so "-00:30" prints as "+00:30".
        text += m_zoneHour < 0 ? "-" : "+";
        text += Two(std::abs(static_cast<int>(m_zoneHour))) + ":" + Two(m_zoneMinute);
    } else if (m_zonePresent) {
        text += "Z";
    }
    return text;
}

} // namespace NxXmlLib9
