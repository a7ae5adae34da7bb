// Adding durations to date and time values, and the operations built on
// it: normalising a zone offset away, the operators, and the time_t view.
#include "NxDateTime.h"

#include <cstdlib>
#include <type_traits>

#include "NxException.h"
#include "NxFoundation.h"
#include "values/DateTimeKinds.h"

namespace NxXmlLib9 {

using namespace DateTimeKinds;

namespace {

// Sums wrap in 64 bits instead of overflowing: span fields are unsigned and
// may hold more than a signed sum can.
long long Plus(long long a, long long b)
{
    return static_cast<long long>(static_cast<unsigned long long>(a) + static_cast<unsigned long long>(b));
}

long long Signed(int sign, unsigned long long value)
{
    return static_cast<long long>(sign < 0 ? 0ULL - value : value);
}

// Month 0 (a kind without a month) and any stray value count 31 days.
int MonthLength(int month, short year)
{
    if (month == 2)
        return IsLeapYear(year) ? 29 : 28;
    if (month < 1 || month > 12)
        return g_monthMax[0];
    return g_monthMax[month - 1];
}

// Days in one full turn of the 16-bit year field. Stepping month by month
// from the first (or last) day of a month through a whole turn comes back to
// the same day, so a day count this long can be skipped at once instead of
// walking it.
long long YearFieldCycleDays()
{
    static const long long days = [] {
        long long total = 0;
        for (int year = -32768; year <= 32767; ++year)
            total += IsLeapYear(year) ? 366 : 365;
        return total;
    }();
    return days;
}

} // namespace

void CDateTime::AddDateTimeSpan(const CDateTimeSpan& span)
{
    const int sign = span.IsNegative() ? -1 : 1;

    // Months and years first, so that the day is added within the new month.
    const long long months = Plus(Plus(m_month, Signed(sign, span.GetMonths())), -1);
    m_month = static_cast<unsigned char>(GetModulo(months, 12) + 1);
    m_year = static_cast<short>(static_cast<long long>(m_year) + GetQuotient(months, 12) +
                                sign * static_cast<long long>(span.GetYears()));

    // Then from the smallest unit up, each carrying into the next.
    long long carry = 0;
    const auto addUnit = [&](auto& field, unsigned long long amount, int base) {
        const long long total = Plus(Plus(field, Signed(sign, amount)), carry);
        field = static_cast<std::remove_reference_t<decltype(field)>>(GetModulo(total, base));
        carry = GetQuotient(total, base);
    };
    addUnit(m_nano, span.GetNanoSeconds(), 1000);
    addUnit(m_micro, span.GetMicroSeconds(), 1000);
    addUnit(m_milli, span.GetMilliSeconds(), 1000);
    addUnit(m_second, span.GetSeconds(), 60);
    addUnit(m_minute, span.GetMinutes(), 60);
    addUnit(m_hour, span.GetHours(), 24);

    // Finally whole days, a month at a time.
    long long days = Plus(carry, Signed(sign, span.GetDays()));
    const long long cycle = YearFieldCycleDays();
    while (days != 0) {
        const bool realMonth = m_month >= 1 && m_month <= 12;
        if (days > 0) {
            if (realMonth && m_day == 1 && days >= cycle) {
                days %= cycle;
                if (days == 0)
                    break;
            }
            const int length = MonthLength(m_month, m_year);
            if (days > length - m_day) {
                days = Plus(days, m_day - length - 1);
                m_day = 1;
                ++m_month;
            } else {
                m_day = static_cast<unsigned char>(m_day + days);
                days = 0;
            }
        } else {
            if (realMonth && m_day == MonthLength(m_month, m_year) && days <= -cycle) {
                days %= cycle;
                if (days == 0)
                    break;
            }
            if (days < 1 - m_day) {
                days += m_day;
                --m_month;
                m_day = static_cast<unsigned char>(MonthLength(m_month, m_year));
            } else {
                m_day = static_cast<unsigned char>(m_day + days);
                days = 0;
            }
        }
        if (m_month == 13) {
            m_month = 1;
            m_year = static_cast<short>(m_year + 1);
        } else if (m_month == 0) {
            m_month = 12;
            m_year = static_cast<short>(m_year - 1);
        }
    }
}

CDateTime& CDateTime::operator+=(const CDateTimeSpan& span)
{
    AddDateTimeSpan(span);
    return *this;
}

CDateTime& CDateTime::operator-=(const CDateTimeSpan& span)
{
    AddDateTimeSpan(span.GetAsNegative());
    return *this;
}

CDateTime CDateTime::operator+(const CDateTimeSpan& span) const
{
    CDateTime result(*this);
    result += span;
    return result;
}

CDateTime CDateTime::operator-(const CDateTimeSpan& span) const
{
    CDateTime result(*this);
    result -= span;
    return result;
}

CDateTimeSpan CDateTime::operator-(const CDateTime&) const
{
    return CDateTimeSpan();
}

CDateTime CDateTime::GetNormalized() const
{
    CDateTime result(*this);
    if (!m_offsetPresent)
        return result;
    // The span's direction comes from the zone hour alone: +00:30 and
    // -00:30 (stored as 0 hours, 30 minutes) both subtract.
    const CDateTimeSpan offset(static_cast<unsigned long>(std::abs(static_cast<int>(m_zoneHour))),
                               static_cast<unsigned long long>(m_zoneMinute), 0ULL);
    if (m_zoneHour < 0)
        result += offset;
    else
        result -= offset;
    result.SetTimeZone(0, 0);
    return result;
}

time_t CDateTime::GetTime() const
{
    if (m_type != dt_dateTime && m_type != dt_date)
        throw CNxInvalidValueException(
            FormatString("Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: %s.",
                         GetTypeAsString().c_str()));
    const CDateTime value = GetNormalized();
    // Read as local standard time (no daylight saving) ...
    struct tm fields = {};
    fields.tm_year = value.m_year - 1900;
    fields.tm_mon = value.m_month - 1;
    fields.tm_mday = value.m_day;
    if (m_type == dt_dateTime) {
        fields.tm_hour = value.m_hour;
        fields.tm_min = value.m_minute;
        fields.tm_sec = value.m_second;
    }
    const time_t local = std::mktime(&fields);
    // ... then shifted by the zone's standard offset, which gives the
    // instant at which a UTC clock shows these fields.
    struct tm asLocal = {};
    struct tm asUtc = {};
    if (localtime_r(&local, &asLocal) == nullptr || gmtime_r(&local, &asUtc) == nullptr)
        return local;
    return local + (std::mktime(&asLocal) - std::mktime(&asUtc));
}

int CDateTime::GetDayOfWeek() const
{
    RequireField(FieldDate, "GetDayOfWeek");
    const time_t instant = GetTime();
    struct tm fields = {};
    localtime_r(&instant, &fields);
    return fields.tm_wday + 1;
}

} // namespace NxXmlLib9
