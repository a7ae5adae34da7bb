// Which fields each date and time kind carries. Shared by the parts of
// CDateTime that check, compare and print by kind.
#pragma once

#include "NxDateTime.h"

namespace NxXmlLib9 {
namespace DateTimeKinds {

enum Field : unsigned {
    FieldYear = 1,
    FieldMonth = 2,
    FieldDay = 4,
    FieldTime = 8, // hour, minute, second and the fraction
    FieldDate = FieldYear | FieldMonth | FieldDay
};

inline unsigned FieldsOf(CDateTime::DTType type)
{
    switch (type) {
    case CDateTime::dt_dateTime: return FieldDate | FieldTime;
    case CDateTime::dt_date: return FieldDate;
    case CDateTime::dt_gYearMonth: return FieldYear | FieldMonth;
    case CDateTime::dt_gYear: return FieldYear;
    case CDateTime::dt_time: return FieldTime;
    case CDateTime::dt_gDay: return FieldDay;
    case CDateTime::dt_gMonth: return FieldMonth;
    case CDateTime::dt_gMonthDay: return FieldMonth | FieldDay;
    default: return 0;
    }
}

// True when the kind carries every field in fields.
inline bool Has(CDateTime::DTType type, unsigned fields)
{
    return (FieldsOf(type) & fields) == fields;
}

} // namespace DateTimeKinds
} // namespace NxXmlLib9
