// The partial order of date and time values: field by field without zones
// (Compare), and with zones brought to UTC (CompareTo).
#include "NxDateTime.h"

#include "values/DateTimeKinds.h"

namespace NxXmlLib9 {

using namespace DateTimeKinds;

namespace {

enum Order { OrderEqual = 0, OrderBefore = 1, OrderAfter = 2, OrderIndeterminate = 3 };

// One step of the field walk. An absent field counts as -1: against a
// positive value the order is open, against zero the absent side is first.
template <class T>
bool CompareField(T a, T b, int& result)
{
    if (a * b < 0) {
        result = OrderIndeterminate;
        return true;
    }
    if (a != b) {
        result = a < b ? OrderBefore : OrderAfter;
        return true;
    }
    return false;
}

// Each field as the walk sees it: its value, or -1 when the kind lacks it.
int YearOf(const CDateTime& v)
{
    return Has(v.GetType(), FieldYear) ? v.GetYear() : -1;
}

int MonthOf(const CDateTime& v)
{
    return Has(v.GetType(), FieldMonth) ? v.GetMonth() : -1;
}

int DayOf(const CDateTime& v)
{
    return Has(v.GetType(), FieldDay) ? v.GetDay() : -1;
}

int HourOf(const CDateTime& v)
{
    return Has(v.GetType(), FieldTime) ? v.GetHour() : -1;
}

int MinuteOf(const CDateTime& v)
{
    return Has(v.GetType(), FieldTime) ? v.GetMinute() : -1;
}

double SecondOf(const CDateTime& v)
{
    return Has(v.GetType(), FieldTime) ? v.GetRealSecond() : -1.0;
}

} // namespace

int Compare(const CDateTime& a, const CDateTime& b)
{
    static int (*const steps[])(const CDateTime&) = {YearOf, MonthOf, DayOf, HourOf, MinuteOf};
    int result = OrderEqual;
    for (auto step : steps) {
        if (CompareField(step(a), step(b), result))
            return result;
    }
    CompareField(SecondOf(a), SecondOf(b), result);
    return result;
}

int CDateTime::CompareTo(const CDateTime& other) const
{
    CDateTime self = HasTimeZone() ? GetNormalized() : *this;
    CDateTime that = other.HasTimeZone() ? other.GetNormalized() : other;
    if (self.IsUTC() == that.IsUTC())
        return Compare(self, that);

    // Only one side is anchored: the other may lie anywhere within 14 hours
    // of its own wall clock. The second probe starts from the copy the first
    // one left behind.
    if (self.IsUTC()) {
        that.SetTimeZone(14, 0);
        that = that.GetNormalized();
        if (Compare(self, that) == OrderBefore)
            return OrderBefore;
        that.SetTimeZone(-14, 0);
        that = that.GetNormalized();
        if (Compare(self, that) == OrderAfter)
            return OrderAfter;
        return OrderIndeterminate;
    }
    self.SetTimeZone(14, 0);
    self = self.GetNormalized();
    if (Compare(self, that) == OrderAfter)
        return OrderAfter;
    self.SetTimeZone(-14, 0);
    self = self.GetNormalized();
    if (Compare(self, that) == OrderBefore)
        return OrderBefore;
    return OrderIndeterminate;
}

bool CDateTime::operator<=(const CDateTime& other) const
{
    const int result = CompareTo(other);
    return result == OrderEqual || result == OrderBefore;
}

bool CDateTime::operator>=(const CDateTime& other) const
{
    const int result = CompareTo(other);
    return result == OrderEqual || result == OrderAfter;
}

} // namespace NxXmlLib9
