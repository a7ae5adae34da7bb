// CDateTime::Validate: every field checked against its kind, in a fixed
// order, so that the first fault found is always the same one.
#include "NxDateTime.h"

#include "NxException.h"
#include "NxFoundation.h"
#include "values/DateTimeKinds.h"

namespace NxXmlLib9 {

using namespace DateTimeKinds;

void CDateTime::Validate() const
{
    if (m_type == dt_yearZero)
        throw CNxInvalidValueException("Invalid Year Zero");
    const unsigned fields = FieldsOf(m_type);
    const std::string typeName = GetTypeAsString();

    if (fields & FieldMonth) {
        if (m_month < 1 || m_month > 12)
            throw CNxInvalidValueException(FormatString("Invalid Month [%d] (1 <= month <= 12)", m_month));
    } else if (m_month != 0) {
        throw CNxInvalidValueException(FormatString("Invalid Month [%d] for type %s", m_month, typeName.c_str()));
    }

    if (fields & FieldYear) {
        if (m_year < MIN_YEAR || m_year > MAX_YEAR || m_year == 0)
            throw CNxInvalidValueException(FormatString("Invalid Year [%d] (%d <= year <= %d && year != 0)", m_year,
                                                        MIN_YEAR, MAX_YEAR));
    } else if (m_year != 0) {
        throw CNxInvalidValueException(FormatString("Invalid Year [%d] for type %s", m_year, typeName.c_str()));
    }

    if (m_type == dt_dateTime || m_type == dt_date) {
        const bool inMonth = m_day >= 1 && m_day <= g_monthMax[m_month - 1];
        if (!inMonth || (m_month == 2 && m_day == 29 && !IsLeapYear(m_year)))
            throw CNxInvalidValueException(FormatString("Invalid Day [%d] (1 <= day <= days in month", m_day));
    } else if (m_type == dt_gMonthDay) {
        // Without a year, 29 February is always possible.
        if (m_day < 1 || m_day > g_monthMax[m_month - 1])
            throw CNxInvalidValueException(FormatString("Invalid Day [%d] (1 <= day <= days in month)", m_day));
    } else if (m_type == dt_gDay) {
        // Only the lower bound is enforced for a lone day.
        if (m_day == 0)
            throw CNxInvalidValueException(FormatString("Invalid Day [%d] (1 <= day <= 31)", m_day));
    } else if (m_day != 0) {
        throw CNxInvalidValueException(FormatString("Invalid Day [%d] for type %s", m_day, typeName.c_str()));
    }

    if (fields & FieldTime) {
        if (m_hour > 23)
            throw CNxInvalidValueException(FormatString("Invalid Hour [%d] (0 <= hour <= 23)", m_hour));
        if (m_minute > 59)
            throw CNxInvalidValueException(FormatString("Invalid Minute [%d] (0 <= minute <= 59)", m_minute));
        if (m_second > 59)
            throw CNxInvalidValueException(FormatString("Invalid Second [%d] (0 <= second <= 59)", m_second));
        if (m_milli > 999)
            throw CNxInvalidValueException(FormatString("Invalid Milli-Second [%d] (0 <= milli <= 999)", m_milli));
        if (m_micro > 999)
            throw CNxInvalidValueException(FormatString("Invalid Micro-Second [%d] (0 <= micro <= 999)", m_micro));
        if (m_nano > 999)
            throw CNxInvalidValueException(FormatString("Invalid Nano-Second [%d] (0 <= nano <= 999)", m_nano));
    } else {
        const char* name = typeName.c_str();
        if (m_hour != 0)
            throw CNxInvalidValueException(FormatString("Invalid Hour [%d] for type %s", m_hour, name));
        if (m_minute != 0)
            throw CNxInvalidValueException(FormatString("Invalid Minute [%d] for type %s", m_minute, name));
        if (m_second != 0)
            throw CNxInvalidValueException(FormatString("Invalid Second [%d] for type %s", m_second, name));
        if (m_milli != 0)
            throw CNxInvalidValueException(FormatString("Invalid Milli-Second [%d] for type %s", m_milli, name));
        if (m_micro != 0)
            throw CNxInvalidValueException(FormatString("Invalid Micro-Second [%d] for type %s", m_micro, name));
        if (m_nano != 0)
            throw CNxInvalidValueException(FormatString("Invalid Nano-Second [%d] for type %s", m_nano, name));
    }
}

} // namespace NxXmlLib9
