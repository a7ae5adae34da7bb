#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "NxXmlLib9.h"
#include "DateBuilders.h"
#include "ExpectFailure.h"

using namespace NxXmlLib9;

namespace {

// Sets the process time zone for one test and puts the old one back.
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone)
    {
        const char* old = std::getenv("TZ");
        m_hadZone = old != nullptr;
        if (m_hadZone)
            m_oldZone = old;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ScopedTimeZone()
    {
        if (m_hadZone)
            setenv("TZ", m_oldZone.c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

private:
    bool m_hadZone = false;
    std::string m_oldZone;
};

} // namespace

TEST(DateHelpersTest, LeapYearsAndSinglePrecisionDivision)
{
    EXPECT_TRUE(IsLeapYear(2000));
    EXPECT_FALSE(IsLeapYear(1900));
    EXPECT_TRUE(IsLeapYear(-4));
    EXPECT_FALSE(IsLeapYear(-100));
    EXPECT_EQ(-4, GetQuotient(-7, 2));
    EXPECT_EQ(1, GetModulo(-7, 2));
    EXPECT_EQ(-1, GetQuotient(-1, 60));
    EXPECT_EQ(59, GetModulo(-1, 60));
    // 2^24 + 1 has no float: the quotient is off by one and the modulo shows it.
    EXPECT_EQ(16777216, GetQuotient(16777217LL, 1));
    EXPECT_EQ(1, GetModulo(16777217LL, 1));
    EXPECT_EQ(2147483647, GetQuotient(1LL << 40, 1));
}

TEST(DateTimeCompareTest, FieldWalkWithAbsentFields)
{
    EXPECT_EQ(0, Compare(Date("2000-01-01"), Date("2000-01-01")));
    EXPECT_EQ(1, Compare(Date("2000-01-01"), Date("2000-01-02")));
    EXPECT_EQ(2, Compare(Time("12:00:00.5"), Time("12:00:00.25")));
    // Years of opposite sign have no order.
    EXPECT_EQ(3, Compare(Date("-0005"), Date("2000")));
    // An absent field against a positive one leaves the order open ...
    EXPECT_EQ(3, Compare(Date("2000"), Date("2000-05-01")));
    // ... but against a zero the absent side comes first.
    EXPECT_EQ(2, Compare(CDateTime("2000-01-01T00:00:00"), Date("2000-01-01")));
    EXPECT_EQ(1, Compare(Date("2000-01-01"), CDateTime("2000-01-01T00:00:00")));
}

TEST(DateTimeCompareTest, ZonesAreNormalisedBeforeComparing)
{
    EXPECT_EQ(0, Date("2000-01-01Z").CompareTo(Date("2000-01-01+00:00")));
    EXPECT_TRUE(Date("2000-01-01Z") == Date("2000-01-01+00:00"));
    EXPECT_EQ(0, CDateTime("2000-01-01T12:00:00+01:00").CompareTo(CDateTime("2000-01-01T11:00:00Z")));
    EXPECT_EQ(0, CDateTime("2000-01-01T00:30:00-00:30").CompareTo(CDateTime("2000-01-01T00:00:00Z")));
    EXPECT_EQ(1, CDateTime("2000-01-01T12:00:00+01:00").CompareTo(CDateTime("2000-01-01T12:00:00Z")));
    EXPECT_EQ(0, CDateTime("2000-01-01T00:00:00").CompareTo(CDateTime("2000-01-01T00:00:00")));
}

TEST(DateTimeCompareTest, OneSidedZoneUsesTheFourteenHourWindow)
{
    const CDateTime zoned("2000-01-01T12:00:00Z");
    EXPECT_EQ(3, zoned.CompareTo(CDateTime("2000-01-01T12:00:00")));
    EXPECT_EQ(3, CDateTime("2000-01-01T12:00:00").CompareTo(zoned));
    EXPECT_EQ(1, zoned.CompareTo(CDateTime("2000-01-02T02:00:01")));
    EXPECT_EQ(2, CDateTime("2000-01-02T02:00:01").CompareTo(zoned));
    EXPECT_EQ(1, CDateTime("1999-12-31T21:00:00").CompareTo(zoned));
    // The second probe starts from what the first left, so it compares
    // against the unzoned wall clock itself.
    EXPECT_EQ(2, zoned.CompareTo(CDateTime("2000-01-01T11:00:00")));
}

TEST(DateTimeCompareTest, OperatorsOnAnIndeterminatePair)
{
    const CDateTime zoned("2000-01-01T12:00:00Z");
    const CDateTime plain("2000-01-01T12:00:00");
    EXPECT_FALSE(zoned == plain);
    EXPECT_TRUE(zoned != plain);
    EXPECT_FALSE(zoned < plain);
    EXPECT_FALSE(zoned <= plain);
    EXPECT_FALSE(zoned > plain);
    EXPECT_FALSE(zoned >= plain);
    EXPECT_TRUE(Date("2000-01-01") <= Date("2000-01-01"));
    EXPECT_TRUE(Date("2000-01-02") >= Date("2000-01-01"));
    EXPECT_TRUE(Date("2000-01-01") < Date("2000-01-02"));
}

TEST(DateTimeArithmeticTest, CarriesThroughEveryField)
{
    EXPECT_EQ("2001-01-01T00:00:00", (CDateTime("2000-12-31T23:59:59") + Span("PT1S")).ToString());
    EXPECT_EQ("00:00:01", (Time("00:00:00.999") + Span("PT0.001S")).ToString());
    EXPECT_EQ("2001-02-15", (Date("2000-11-15") + Span("P3M")).ToString());
    EXPECT_EQ("1999-12-15", (Date("2000-01-15") - Span("P1M")).ToString());
    EXPECT_EQ("2000-02-29", (Date("2000-03-01") - Span("P1D")).ToString());
    EXPECT_EQ("2001-02-28", (Date("2001-03-01") - Span("P1D")).ToString());
    EXPECT_EQ("1999-12-31", (Date("2000-01-01") - Span("P1D")).ToString());
    EXPECT_EQ("2000-03-01", (Date("2000-02-28") + Span("P2D")).ToString());
    EXPECT_EQ("2002-01-02T00:00:00Z", (CDateTime("2000-12-31T00:00:00Z") + Span("P1Y1DT24H")).ToString());
    EXPECT_EQ("2000-01-01T10:30:00+02:00", (CDateTime("2000-01-01T12:00:00+02:00") - Span("PT90M")).ToString());
}

TEST(DateTimeArithmeticTest, QuirksOfTheDayWalk)
{
    // The day is not pinned to the new month, and nothing is validated.
    EXPECT_EQ("2000-02-31", (Date("2000-01-31") + Span("P1M")).ToString());
    // Year zero is not skipped.
    EXPECT_EQ("0000-01-01", (Date("-0001-12-31") + Span("P1D")).ToString());
    // Subtracting a negative span still subtracts.
    CDateTime value = Date("2000-01-10");
    value -= Span("-P1D");
    EXPECT_EQ("2000-01-09", value.ToString());
    // Kinds without a month carry a hidden one; it never shows.
    EXPECT_EQ("---06", (Date("---05") + Span("P1D")).ToString());
    EXPECT_EQ("P", (Date("2000-01-10") - Date("1999-01-10")).ToString());
}

TEST(DateTimeArithmeticTest, HugeDayCountsFinishAndStayExact)
{
    long long cycle = 0;
    for (int year = -32768; year <= 32767; ++year)
        cycle += IsLeapYear(year) ? 366 : 365;
    const CDateTimeSpan plain(0, 0, 10, 0, 0, 0);
    const CDateTimeSpan wrapped(0, 0, static_cast<unsigned long>(cycle * 3 + 10), 0, 0, 0);
    EXPECT_EQ((Date("2000-01-01") + plain).ToString(), (Date("2000-01-01") + wrapped).ToString());
    EXPECT_EQ((Date("2000-01-31") - plain).ToString(), (Date("2000-01-31") - wrapped).ToString());
    const CDateTimeSpan endless(0, 0, 4000000000000000000UL, 0, 0, 0);
    EXPECT_NO_THROW(Date("2000-01-01") + endless);
}

TEST(DateTimeInstantTest, BreaksDownAndRebuildsTimeInUtc)
{
    ScopedTimeZone zone("UTC");
    EXPECT_EQ("1970-01-01T00:00:00", CDateTime(0L).ToString());
    EXPECT_EQ("2000-02-29T12:34:56", CDateTime(951827696L).ToString());
    EXPECT_EQ(951827696, CDateTime("2000-02-29T12:34:56").GetTime());
    EXPECT_EQ(951827696 - 7200, CDateTime("2000-02-29T12:34:56+02:00").GetTime());
    EXPECT_EQ(951782400, Date("2000-02-29").GetTime());
    EXPECT_EQ(7, Date("2000-01-01").GetDayOfWeek()); // a Saturday
    EXPECT_EQ(1, Date("2000-01-02").GetDayOfWeek());
    ExpectFailure<CNxInvalidValueException>(
        [] { Time("12:00:00").GetTime(); },
        "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: time.");

    CDateTime value = Date("2000-01-01");
    value = 86400L;
    EXPECT_EQ(CDateTime::dt_dateTime, value.GetType());
    EXPECT_EQ("1970-01-02T00:00:00", value.ToString());
    EXPECT_EQ(CDateTime::dt_dateTime, CDateTime::GetCurrentTime().GetType());
}

TEST(DateTimeInstantTest, GetTimeReadsTheFieldsAsUtcInAnyLocalZone)
{
    // A zone with daylight saving, given by rule so no zone database is needed.
    ScopedTimeZone zone("EST5EDT,M3.2.0,M11.1.0");
    EXPECT_EQ(962409600, Date("2000-07-01").GetTime());
    EXPECT_EQ(946684800, Date("2000-01-01").GetTime());
}
