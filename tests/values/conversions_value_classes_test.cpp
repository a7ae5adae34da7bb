#include <gtest/gtest.h>

#include <string>

#include "NxXmlLib9.h"
#include "ExpectFailure.h"

using namespace NxXmlLib9;
using C = CConversions;
using WS = CWhitespaceUtils;

namespace {

const WS::WhitespaceRule kNone = WS::WhitespaceRuleNone;
const WS::WhitespaceRule kReplace = WS::WhitespaceRuleReplace;
const WS::WhitespaceRule kCollapse = WS::WhitespaceRuleCollapse;

const char* const kDateForm = "expected CCYY-MM-DD[Z|[+|-]hh:mm]";

std::string Bytes(const CBinaryData& data)
{
    return data.GetData() ? std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength())
                          : std::string();
}

} // namespace

TEST(BinaryConversionsTest, RuleComesBeforeTheDecoders)
{
    const CBinaryData data = C::hexBinaryFromString(" ab01\n", kCollapse);
    EXPECT_EQ(std::string("\xAB\x01", 2), Bytes(data));
    EXPECT_EQ("AB01", C::hexBinaryToString(data));
    EXPECT_EQ("", C::hexBinaryToString(C::hexBinaryFromString("", kNone)));
    EXPECT_EQ("Man", Bytes(C::base64BinaryFromString("TW\tFu==", kReplace)));
    EXPECT_EQ(0u, C::base64BinaryFromString("T*Fu", kNone).GetLength());
    EXPECT_EQ("TWE=", C::base64BinaryToString(CBinaryData("Ma")));
}

TEST(DurationConversionsTest, RoundTripsAndReportsTheParserFailure)
{
    const CDateTimeSpan span = C::durationFromString("  P1Y2M3DT4H5M6.789S \n", kCollapse);
    EXPECT_EQ(2u, span.GetMonths());
    EXPECT_EQ("P1Y2M3DT4H5M6.789S", C::durationToString(span));
    EXPECT_EQ("-PT90S", C::durationToString(C::durationFromString("-PT90S", kNone)));
    // Without the rule the blank reaches the parser.
    ExpectFailure<CNxInvalidValueException>(
        [] { C::durationFromString(" P1D", kNone); },
        "Invalid XSD Duration [ P1D] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    ExpectFailure<CNxInvalidValueException>([] { C::durationFromString("", kNone); },
                                            "Invalid XSD Duration (Empty String)");
}

TEST(DateConversionsTest, DateReadersKeepTheKindOfTheText)
{
    const CDateTime yearMonth = C::dateFromString("2000-05", kNone);
    EXPECT_EQ(CDateTime::dt_gYearMonth, yearMonth.GetType());
    EXPECT_EQ("2000-05", C::dateToString(yearMonth));

    EXPECT_EQ(CDateTime::dt_date, C::yearMonthFromString("2000-05-06", kNone).GetType());
    const CDateTime day = C::monthDayFromString("---45", kNone);
    EXPECT_EQ(CDateTime::dt_gDay, day.GetType());
    EXPECT_EQ("---45", C::monthDayToString(day));
    EXPECT_EQ("--02-29", C::monthDayToString(C::monthDayFromString("--02-29", kNone)));
    EXPECT_EQ("-0005Z", C::yearMonthToString(C::yearMonthFromString("-0005Z", kNone)));
}

TEST(DateConversionsTest, RuleComesBeforeTheParser)
{
    EXPECT_EQ("2000-01-01", C::dateToString(C::dateFromString(" 2000-01-01\t", kCollapse)));
    ExpectFailure<CNxInvalidValueException>([] { C::dateFromString(" 2000-01-01", kNone); },
                                            std::string("Invalid XSD Date [ 2000-01-01] ") + kDateForm);
    ExpectFailure<CNxInvalidValueException>([] { C::dateFromString("", kCollapse); },
                                            "Invalid Date (Empty String)");
}

TEST(DateConversionsTest, TimeAndDateTime)
{
    const CDateTime time = C::timeFromString("12:00:00.5Z", kNone);
    EXPECT_EQ(CDateTime::dt_time, time.GetType());
    EXPECT_EQ("12:00:00.5Z", C::timeToString(time));
    const CDateTime instant = C::datetimeFromString("2000-01-01T00:00:00+24:00", kNone);
    EXPECT_EQ(CDateTime::dt_dateTime, instant.GetType());
    EXPECT_EQ("2000-01-01T00:00:00+00:00", C::datetimeToString(instant));
    ExpectFailure<CNxInvalidValueException>([] { C::datetimeFromString("2000-01-01", kNone); },
                                            "Invalid XSD DateTime [2000-01-01]");
    ExpectFailure<CNxInvalidValueException>([] { C::datetimeToString(CDateTime()); }, "Date Not Set");
}

TEST(DateConversionsTest, YearMonthAndDayComeOutOfAnyDateFormThatHasThem)
{
    EXPECT_EQ(2000, C::yearFromString("2000-05", kNone));
    EXPECT_EQ(1999, C::yearFromString(" 1999 ", kCollapse));
    EXPECT_EQ(5, C::monthFromString("--05", kNone));
    EXPECT_EQ(12, C::monthFromString("2000-12-06", kNone));
    EXPECT_EQ(17, C::dayFromString("---17", kNone));
    EXPECT_EQ(29, C::dayFromString("--02-29", kNone));
    // A year before the common era keeps its bit pattern.
    EXPECT_EQ(static_cast<unsigned short>(-5), C::yearFromString("-0005", kNone));

    ExpectFailure<CNxInvalidStateException>([] { C::yearFromString("--05", kNone); },
                                            "Failed to GetYear. Invalid Date Type: gMonth.");
    ExpectFailure<CNxInvalidStateException>([] { C::monthFromString("---05", kNone); },
                                            "Failed to GetMonth. Invalid Date Type: gDay.");
    ExpectFailure<CNxInvalidStateException>([] { C::dayFromString("2000-05", kNone); },
                                            "Failed to GetDay. Invalid Date Type: gYearMonth.");
    ExpectFailure<CNxInvalidValueException>([] { C::monthFromString("--13", kNone); },
                                            "Invalid Month [13] (1 <= month <= 12)");
}

TEST(DecimalConversionsTest, PrintsEveryDigitWithoutAFormat)
{
    EXPECT_EQ("1.5", C::decimalToString(C::decimalFromString(" 001.50 ", kCollapse), nullptr));
    EXPECT_EQ("0.333333333333333333333333333333",
              C::decimalToString(CDecimal(1) / CDecimal(3), nullptr));
}

TEST(DecimalConversionsTest, FormatIsTheNumberOfFractionalDigits)
{
    // Printing adds half a unit of the first place and cuts the fraction.
    const CDecimal value("1.25");
    EXPECT_EQ("1.75", C::decimalToString(value, "2"));
    EXPECT_EQ("1.7", C::decimalToString(value, "1"));
    EXPECT_EQ("1.", C::decimalToString(value, "0"));
    EXPECT_EQ("-1.7", C::decimalToString(CDecimal("-1.25"), "1"));
    for (const char* format : {"%.2f", "", "-1", "2 ", "99999999999"}) {
        ExpectFailure<CNxInvalidParamException>(
            [format] { C::decimalToString(CDecimal(1), format); },
            std::string("The format [") + format + "] can not be used to convert a decimal");
    }
}

TEST(IntegerConversionsTest, ParsesLenientlyAndPrintsEveryDigit)
{
    EXPECT_EQ("34", C::integerToString(C::integerFromString("12-34", kNone)));
    EXPECT_EQ("123456789012345678901234567890",
              C::integerToString(C::integerFromString("123456789012345678901234567890", kNone)));
    EXPECT_EQ("0", C::integerToString(C::integerFromString("\n", kCollapse)));
    ExpectFailure<CNxInvalidValueException>(
        [] { C::integerFromString("1.2.3", kNone); },
        "The string representing a Decimal, contained an invalid char at position 3 [1.2.3]");
}
