#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "DateBuilders.h"
#include "ExpectFailure.h"
#include "Outcome.h"

using namespace NxXmlLib9;

TEST(DateTimeSpanParseTest, FullFormRoundTripsWithEveryField)
{
    const CDateTimeSpan span = Span("P1Y2M3DT4H5M6.789S");
    EXPECT_EQ(1u, span.GetYears());
    EXPECT_EQ(2u, span.GetMonths());
    EXPECT_EQ(3u, span.GetDays());
    EXPECT_EQ(4u, span.GetHours());
    EXPECT_EQ(5u, span.GetMinutes());
    EXPECT_EQ(6u, span.GetSeconds());
    EXPECT_EQ(789u, span.GetMilliSeconds());
    EXPECT_FALSE(span.IsNegative());
    EXPECT_EQ("P1Y2M3DT4H5M6.789S", span.ToString());
}

// Malformed texts are refused with the full text; fields are never folded,
// and a point that ends the text stands for the 'S'.
TEST(DateTimeSpanParseTest, ReadAndPrint)
{
    const std::string form = "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]";
    ExpectReads({
        {ItemTypeDuration, "-P1D", "-P1D"}, {ItemTypeDuration, "PT90S", "PT90S"},
        {ItemTypeDuration, "PT0.5S", "PT0.5S"}, {ItemTypeDuration, "PT1.", "PT1S"},
        {ItemTypeDuration, "", "! InvalidValue: Invalid XSD Duration (Empty String)"},
        {ItemTypeDuration, "PT1.1234567890S",
         "! InvalidValue: Invalid XSD Duration [PT1.1234567890S] Fraction part too long"},
    });
    for (const char* text : {"P", "PT", "-P", "-", "P1", "1Y", "P-1Y", "PT1M1H", "P1D1M", "PT1H1D", "P1S", "PT1S1S",
                             "PT1.5", "PT1.5X", "P1Y2Y3X", "P1DT"})
        EXPECT_EQ("! InvalidValue: Invalid XSD Duration [" + std::string(text) + form, ReadAs(ItemTypeDuration, text));
    ExpectFailure<CNxInvalidValueException>([] { Span(nullptr); }, "Invalid XSD Duration (Null String)");
}

TEST(DateTimeSpanParseTest, OrderRulesLetYearsStandAnywhere)
{
    EXPECT_EQ(1u, Span("P1M1D").GetDays());
    const CDateTimeSpan late = Span("PT1H2Y");
    EXPECT_EQ(2u, late.GetYears());
    EXPECT_EQ(1u, late.GetHours());
    EXPECT_EQ(7u, Span("PT7M").GetMinutes());
    EXPECT_EQ(7u, Span("P7M").GetMonths());
}

TEST(DateTimeSpanParseTest, FractionGroupsAndTheUnweightedNanoDigits)
{
    EXPECT_EQ(500u, Span("PT0.5S").GetMilliSeconds());

    const CDateTimeSpan nine = Span("PT.123456789S");
    EXPECT_EQ(0u, nine.GetSeconds());
    EXPECT_EQ(123u, nine.GetMilliSeconds());
    EXPECT_EQ(456u, nine.GetMicroSeconds());
    EXPECT_EQ(9u, nine.GetNanoSeconds()); // the last digit alone, no weight
    EXPECT_EQ(7u, Span("PT1.1234567S").GetNanoSeconds());
}

TEST(DateTimeSpanParseTest, ClearsFirstAndKeepsWhatWasReadOnFailure)
{
    CDateTimeSpan span = Span("-P5D");
    EXPECT_THROW(span.ParseXSDDuration("P1Y2X"), CNxInvalidValueException);
    EXPECT_EQ(1u, span.GetYears());
    EXPECT_EQ(0u, span.GetDays());
    EXPECT_FALSE(span.IsNegative());
}

TEST(DateTimeSpanPrintTest, FieldsAreNeverFoldedAndZeroPrintsP)
{
    EXPECT_EQ("P", CDateTimeSpan().ToString());
    EXPECT_EQ("PT0.000001S", CDateTimeSpan(0, 0, 0, 0, 0, 0, 0, 1, 0).ToString());
    EXPECT_EQ("P1YT2H", CDateTimeSpan(1, 0, 0, 2, 0, 0).ToString());
    EXPECT_EQ("PT25H61M", CDateTimeSpan(25, 61, 0).ToString());
}

TEST(DateTimeSpanSignTest, NegateFlipsAndGetAsNegativeOnlySets)
{
    CDateTimeSpan span(1, 0, 0);
    span.Negate();
    EXPECT_TRUE(span.IsNegative());
    span.Negate();
    EXPECT_FALSE(span.IsNegative());
    EXPECT_TRUE(span.GetAsNegative().GetAsNegative().IsNegative());
    span.Negate();
    span.SetDateTimeSpan(2, 0, 0);
    EXPECT_FALSE(span.IsNegative());
}

TEST(DateTimeSpanCompareTest, UsesTheFourReferenceDates)
{
    EXPECT_EQ(3, Span("P1M").CompareTo(Span("P31D")));
    EXPECT_EQ(3, Span("P1M").CompareTo(Span("P30D")));
    EXPECT_EQ(0, Span("P1Y").CompareTo(Span("P12M")));
    EXPECT_EQ(0, Span("PT1H").CompareTo(Span("PT60M")));
    EXPECT_EQ(0, Span("P1D").CompareTo(Span("PT24H")));
    EXPECT_EQ(1, Span("P1D").CompareTo(Span("P2D")));
    EXPECT_EQ(2, Span("P1M").CompareTo(Span("P27D")));
    EXPECT_EQ(2, Span("P1D").CompareTo(Span("-P1D")));
    // The reference points are dates: below a day, durations look alike.
    EXPECT_EQ(0, Span("PT1H").CompareTo(Span("PT2H")));
}

TEST(DateTimeSpanCompareTest, OperatorsOnAnIndeterminatePair)
{
    const CDateTimeSpan month = Span("P1M");
    const CDateTimeSpan days = Span("P30D");
    EXPECT_FALSE(month == days);
    EXPECT_TRUE(month != days);
    EXPECT_FALSE(month < days);
    EXPECT_FALSE(month > days);
    EXPECT_TRUE(Span("P1D") < Span("P2D"));
    EXPECT_TRUE(Span("P2D") > Span("P1D"));
}
