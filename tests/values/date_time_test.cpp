#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "DateBuilders.h"
#include "ExpectFailure.h"
#include "Outcome.h"

using namespace NxXmlLib9;

namespace {

template <class Call>
void ExpectInvalid(Call call, const std::string& message)
{
    ExpectFailure<CNxInvalidValueException>(call, message);
}

} // namespace

TEST(DateTimeParseTest, DateFormsAreRecognisedByLength)
{
    const struct {
        const char* text;
        CDateTime::DTType type;
        const char* printed;
    } cases[] = {
        {"2000-02-29", CDateTime::dt_date, "2000-02-29"}, {"2024-05", CDateTime::dt_gYearMonth, "2024-05"},
        {"2024", CDateTime::dt_gYear, "2024"}, {"--05", CDateTime::dt_gMonth, "--05"},
        {"--05--", CDateTime::dt_gMonth, "--05"}, {"--05xy", CDateTime::dt_gMonth, "--05"},
        {"---07", CDateTime::dt_gDay, "---07"}, {"--02-29", CDateTime::dt_gMonthDay, "--02-29"},
        {"---45", CDateTime::dt_gDay, "---45"}, {"-0005-03-04", CDateTime::dt_date, "-0005-03-04"},
        {"2000-01-01Z", CDateTime::dt_date, "2000-01-01Z"},
        {"--12-25+01:30", CDateTime::dt_gMonthDay, "--12-25+01:30"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const CDateTime value = Date(c.text);
        EXPECT_EQ(c.type, value.GetType());
        EXPECT_EQ(c.printed, value.ToString());
    }
    EXPECT_EQ(-5, Date("-0005").GetYear());
    EXPECT_EQ("gMonthDay", Date("--02-29").GetTypeAsString());
}

// Failures come in a fixed order: the month is checked before the year.
// Only 'Z', '+' or '-' start a zone, other trailing text is ignored; a zone
// of 24 hours wraps to zero, and a negative zero hour loses its sign.
TEST(DateTimeParseTest, ReadAndPrint)
{
    const std::string badDate = "] expected CCYY-MM-DD[Z|[+|-]hh:mm]", badTime = "] expected hh:mm:ss[.ff]";
    const std::string inMonth = "] (1 <= day <= days in month", badZone = "! InvalidValue: Invalid XSD Time Zone [";
    const ItemType D = ItemTypeDate, T = ItemTypeTime, DT = ItemTypeDateTime;
    ExpectReads({
        {D, "", "! InvalidValue: Invalid Date (Empty String)"},
        {D, "2000-01-01T00", "! InvalidValue: Invalid Date ('T' not allowed)"},
        {D, "2000-01-01+01:00Z", "! InvalidValue: Invalid Date (Bad Zone value)"},
        {D, "1900-02-29", "! InvalidValue: Invalid Day [29" + inMonth},
        {D, "2001-04-31", "! InvalidValue: Invalid Day [31" + inMonth},
        {D, "--04-31", "! InvalidValue: Invalid Day [31" + inMonth + ")"},
        {D, "---00", "! InvalidValue: Invalid Day [0] (1 <= day <= 31)"},
        {D, "0000-01-01", "! InvalidValue: Invalid Year [0] (-9999 <= year <= 9999 && year != 0)"},
        {D, "0000-13", "! InvalidValue: Invalid Month [13] (1 <= month <= 12)"},
        {D, "--00", "! InvalidValue: Invalid Month [0] (1 <= month <= 12)"},
        {T, "12:00:00.5", "12:00:00.5"}, {T, "00:00:00", "00:00:00"}, {T, "12:00:00.", "12:00:00"},
        {T, "23:59:59.123456789", "23:59:59.123456789"}, {T, "10:00:00.00002", "10:00:00.00002"},
        {T, "12:00:00Zoo", "12:00:00Z"}, {T, "12:00:00abc", "12:00:00"},
        {T, "12:00:00-00:30", "12:00:00+00:30"}, {T, "12:00:00-05:45", "12:00:00-05:45"},
        {T, "", "! InvalidValue: Invalid XSD Time (Empty String)"},
        {T, "12:00:00.1234567890", "! InvalidValue: Invalid XSD Time [12:00:00.1234567890] Fraction part too long"},
        {T, "12:00:00+05:3x", badZone + "+05:3x]"}, {T, "12:00:00+05:300", badZone + "+05:300]"},
        {T, "12:00:00+23:60", "! InvalidValue: Invalid TimeZone [23:60]"},
        {T, "12:00:00-25:00", "! InvalidValue: Invalid TimeZone [-25:0]"},
        {DT, "2000-01-01T00:00:00+24:00", "2000-01-01T00:00:00+00:00"},
        {DT, "2000-01-01T12:34:56.789-05:00", "2000-01-01T12:34:56.789-05:00"},
        {DT, "-0005-03-04T01:02:03Z", "-0005-03-04T01:02:03Z"},
        {DT, "2000-01-01", "! InvalidValue: Invalid XSD DateTime [2000-01-01]"},
        {DT, "2000-01T12:00:00",
         "! InvalidValue: Invalid XSD DateTime [2000-01T12:00:00] expected CCYY-MM-DDThh:mm:ss[.ff]"},
        {DT, "2000-02-30T12:00:00", "! InvalidValue: Invalid Day [30" + inMonth},
        {DT, "2000-01-01T24:00:00", "! InvalidValue: Invalid XSD Time [24:00:00" + badTime},
    });
    for (const char* text : {"20000-01-01", "2000-1-01", "2000/01/01", "2000-0a-01", "200a", "-", "--5", "----07",
                             "--05/07", "2000-01-01+1:00", "2000-01-01X"})
        EXPECT_EQ("! InvalidValue: Invalid XSD Date [" + std::string(text) + badDate, ReadAs(D, text));
    for (const char* text : {"24:00:00", "12:60:00", "12:00:60", "12:00", "12-00-00", "1a:00:00"})
        EXPECT_EQ("! InvalidValue: Invalid XSD Time [" + std::string(text) + badTime, ReadAs(T, text));
    ExpectInvalid([] { Date(nullptr); }, "Invalid Date (Null String)");
    ExpectInvalid([] { Time(nullptr); }, "Invalid Time (Null String)");
    ExpectInvalid([] { CDateTime(static_cast<const char*>(nullptr)); }, "Invalid DateTime (Null String)");

    CDateTime value(CDateTime::dt_date);
    EXPECT_THROW(value.SetXSDDate("1999-07-xx"), CNxInvalidValueException);
    EXPECT_EQ(1999, value.GetYear()) << "the fields are written as the text is read";
    EXPECT_EQ(7, value.GetMonth());
    const CDateTime fine = Time("23:59:59.123456789");
    EXPECT_EQ(123, fine.GetMilliSecond());
    EXPECT_EQ(456, fine.GetMicroSecond());
    EXPECT_EQ(789, fine.GetNanoSecond());
    const CDateTime utc = Time("12:00:00Zoo");
    EXPECT_TRUE(utc.IsUTC());
    EXPECT_FALSE(utc.HasTimeZone());
    EXPECT_FALSE(Time("12:00:00abc").IsUTC());
    EXPECT_TRUE(CDateTime("2000-01-01T00:00:00+24:00").HasTimeZone());
    const CDateTime half = Time("12:00:00-00:30");
    EXPECT_EQ(0, half.GetZoneHour());
    EXPECT_EQ(30, half.GetZoneMinute());
    const CDateTime instant("2000-01-01T12:34:56.789-05:00");
    EXPECT_EQ(CDateTime::dt_dateTime, instant.GetType());
    EXPECT_EQ(-5, instant.GetZoneHour());
    EXPECT_DOUBLE_EQ(56.789, instant.GetRealSecond());
    ExpectFailure<CNxInvalidStateException>([] { Date("2000-01-01Z").GetZoneHour(); }, "TimeZone is not been used");
    ExpectFailure<CNxInvalidStateException>([] { Date("2000-01-01").GetZoneMinute(); }, "TimeZone is not been used");
}

TEST(DateTimeParseTest, ParsersTakeTheKindFromTheText)
{
    CDateTime value(CDateTime::dt_date);
    value.ParseXSDDate("2000-05");
    EXPECT_EQ(CDateTime::dt_gYearMonth, value.GetType());
    value.ParseXSDTime("01:02:03");
    EXPECT_EQ(CDateTime::dt_time, value.GetType());
    EXPECT_FALSE(value.IsUTC());
}

TEST(DateTimeSetterTest, ValidationTextsInOrder)
{
    ExpectInvalid([] { CDateTime().Validate(); }, "Invalid Year Zero");
    ExpectInvalid([] { CDateTime(2000, 13, 1); }, "Invalid Month [13] (1 <= month <= 12)");
    ExpectInvalid([] { CDateTime(10000, 1, 1); }, "Invalid Year [10000] (-9999 <= year <= 9999 && year != 0)");
    ExpectInvalid([] { CDateTime(2000, 1, 1, 24, 0, 0); }, "Invalid Hour [24] (0 <= hour <= 23)");
    ExpectInvalid([] { CDateTime(2000, 1, 1, 0, 60, 0); }, "Invalid Minute [60] (0 <= minute <= 59)");
    ExpectInvalid([] { CDateTime(2000, 1, 1, 0, 0, 60); }, "Invalid Second [60] (0 <= second <= 59)");
    ExpectInvalid([] { CDateTime(2000, 1, 1, 0, 0, 0, 1000, 0, 0); }, "Invalid Milli-Second [1000] (0 <= milli <= 999)");
    ExpectInvalid([] { CDateTime(2000, 1, 1, 0, 0, 0, 0, 1000, 0); }, "Invalid Micro-Second [1000] (0 <= micro <= 999)");
    ExpectInvalid([] { CDateTime(2000, 1, 1, 0, 0, 0, 0, 0, 1000); }, "Invalid Nano-Second [1000] (0 <= nano <= 999)");
    ExpectInvalid([] { CDateTime().SetGDay(0); }, "Invalid Day [0] (1 <= day <= 31)");
    CDateTime day;
    day.SetGDay(45); // the upper bound of a lone day is not checked
    EXPECT_EQ("---45", day.ToString());
}

TEST(DateTimeSetterTest, FieldsTheKindLacksMustBeZero)
{
    const CDateTime full(2000, 5, 6, 7, 8, 9, 1, 2, 3);
    const struct {
        CDateTime::DTType type;
        const char* message;
    } cases[] = {
        {CDateTime::dt_gYear, "Invalid Month [5] for type gYear"},
        {CDateTime::dt_gMonth, "Invalid Year [2000] for type gMonth"},
        {CDateTime::dt_gYearMonth, "Invalid Day [6] for type gYearMonth"},
        {CDateTime::dt_date, "Invalid Hour [7] for type date"},
    };
    for (const auto& c : cases) {
        CDateTime value;
        value.SetDateTime(full, c.type);
        ExpectInvalid([&] { value.Validate(); }, c.message);
    }
    CDateTime date(CDateTime::dt_date);
    date.SetDateTime(CDateTime(2000, 5, 6, 0, 0, 0, 0, 0, 9), CDateTime::dt_date);
    ExpectInvalid([&] { date.Validate(); }, "Invalid Nano-Second [9] for type date");
}

TEST(DateTimeSetterTest, AValueKeepsItsKind)
{
    CDateTime value(2000, 1, 1);
    ExpectFailure<CNxInvalidStateException>([&] { value.SetTime(1, 2, 3); },
                                            "Failed to copy CDateTime. Invalid Date Type: date, expected: time.");
    value.SetTimeZone(2, 0);
    value.SetDate(2001, 2, 3); // same kind: allowed, and the zone is dropped
    EXPECT_EQ("2001-02-03", value.ToString());
    CDateTime time;
    time.SetTime(1, 2, 3);
    time.SetFracTime(4, 5, 0);
    EXPECT_EQ("01:02:03.004005", time.ToString());
}

TEST(DateTimeAccessTest, FieldsOutsideTheKindAreRefused)
{
    CDateTime day;
    day.SetGDay(5);
    ExpectFailure<CNxInvalidStateException>([&] { day.GetYear(); }, "Failed to GetYear. Invalid Date Type: gDay.");
    ExpectFailure<CNxInvalidStateException>([&] { day.GetMonth(); }, "Failed to GetMonth. Invalid Date Type: gDay.");
    ExpectFailure<CNxInvalidStateException>([&] { day.GetRealSecond(); },
                                            "Failed to GetRealSecond. Invalid Date Type: gDay.");
    CDateTime date(2000, 1, 1);
    ExpectFailure<CNxInvalidStateException>([&] { date.SetHour(1); }, "Failed to GetHour. Invalid Date Type: date.");
    ExpectFailure<CNxInvalidStateException>([&] { date.SetNanoSecond(1); },
                                            "Failed to GetNanoSecond. Invalid Date Type: date.");
    CDateTime time;
    time.SetTime(1, 2, 3);
    ExpectFailure<CNxInvalidStateException>([&] { time.GetDay(); }, "Failed to GetDay. Invalid Date Type: time.");
    ExpectFailure<CNxInvalidStateException>([&] { time.GetDayOfYear(); },
                                            "Failed to GetDayOfYear. Invalid Date Type: time.");
    ExpectFailure<CNxInvalidStateException>([&] { Date("2000-05").GetDayOfWeek(); },
                                            "Failed to GetDayOfWeek. Invalid Date Type: gYearMonth.");
    // Setters store without checking the range.
    date.SetDay(40);
    EXPECT_EQ(40, date.GetDay());
}

TEST(DateTimeAccessTest, DayOfYearCountsTheLeapDayEarly)
{
    EXPECT_EQ(33, CDateTime(2000, 2, 1).GetDayOfYear());
    EXPECT_EQ(32, CDateTime(2001, 2, 1).GetDayOfYear());
    EXPECT_EQ(60, CDateTime(2000, 3, 1).GetDayOfYear());
    EXPECT_EQ(60, CDateTime(2001, 3, 1).GetDayOfYear());
    EXPECT_EQ(365, CDateTime(2000, 12, 31).GetDayOfYear());
}

TEST(DateTimePrintTest, FormatsAndUnsetValues)
{
    ExpectInvalid([] { CDateTime().ToString(); }, "Date Not Set");
    ExpectInvalid([] { CDateTime(CDateTime::dt_date).ToString("G"); }, "Date Not Set");
    const CDateTime date(2000, 1, 2);
    EXPECT_EQ("", date.ToString("G"));
    EXPECT_EQ("", date.ToString(nullptr));
    EXPECT_EQ("Unknown Format: yyyy", date.ToString("yyyy"));
    EXPECT_EQ("2000-01-02T03:04:05.06", CDateTime(2000, 1, 2, 3, 4, 5, 60, 0, 0).ToString());
}

TEST(DateTimeConversionTest, KindConversionsAndTheirRefusal)
{
    CDateTime yearMonth;
    yearMonth.SetDateTime(CDateTime(2000, 5, 6), CDateTime::dt_gYearMonth);
    EXPECT_EQ("2000-05", yearMonth.ToString());
    CDateTime monthDay;
    monthDay.SetDateTime(CDateTime("2000-05-06T01:02:03Z"), CDateTime::dt_gMonthDay);
    EXPECT_EQ("--05-06Z", monthDay.ToString());

    const CDateTime probe;
    EXPECT_TRUE(probe.CheckConversion(CDateTime::dt_gDay, CDateTime::dt_yearZero));
    EXPECT_TRUE(probe.CheckConversion(CDateTime::dt_gMonthDay, CDateTime::dt_gMonth));
    EXPECT_FALSE(probe.CheckConversion(CDateTime::dt_gMonthDay, CDateTime::dt_gYear));
    EXPECT_FALSE(probe.CheckConversion(CDateTime::dt_date, CDateTime::dt_dateTime));
    EXPECT_FALSE(probe.CheckConversion(CDateTime::dt_time, CDateTime::dt_dateTime));
    ExpectInvalid([&] { probe.CheckConversion(static_cast<CDateTime::DTType>(99), CDateTime::dt_date); },
                  "Unknown date type 99.");
    ExpectInvalid(
        [] { CDateTime().SetDateTime(Date("2000"), CDateTime::dt_date); },
        "Attempting to set a CDateTime of type gYear using an XmlDateTime of type date. The source CDateTime "
        "does not contian enough data to allow the conversion.");
    EXPECT_EQ("", CDateTime::GetTypeAsString(static_cast<CDateTime::DTType>(9)));
}
