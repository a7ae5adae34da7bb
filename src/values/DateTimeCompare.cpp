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

// A field as the walk sees it: its value, or -1 when the kind lacks it.
template <unsigned kField, auto kGet, class T = int>
T FieldOf(const CDateTime& v)
{
    return Has(v.GetType(), kField) ? static_cast<T>((v.*kGet)()) : T(-1);
}

} // namespace

int Compare(const CDateTime& a, const CDateTime& b)
{
    static int (*const steps[])(const CDateTime&) = {
        FieldOf<FieldYear, &CDateTime::GetYear>, FieldOf<FieldMonth, &CDateTime::GetMonth>,
        FieldOf<FieldDay, &CDateTime::GetDay>,   FieldOf<FieldTime, &CDateTime::GetHour>,
        FieldOf<FieldTime, &CDateTime::GetMinute>};
    int result = OrderEqual;
    for (auto step : steps) {
        if (CompareField(step(a), step(b), result))
            return result;
    }
    const auto secondOf = FieldOf<FieldTime, &CDateTime::GetRealSecond, double>;
    CompareField(secondOf(a), secondOf(b), result);
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
