#include <gtest/gtest.h>

#include <string>

#include "NxXmlLib9.h"
#include "Outcome.h"

using namespace NxXmlLib9;
using C = CConversions;
using WS = CWhitespaceUtils;

// The rule comes before the decoders and parsers; date readers keep the
// kind of the text, and year, month and day come out of any date form that
// has them (a year before the common era keeps its bit pattern).
TEST(ConversionsTest, ValueClassesReadAndPrint)
{
    const WS::WhitespaceRule kCollapse = WS::WhitespaceRuleCollapse;
    const std::string badDuration = "! InvalidValue: Invalid XSD Duration [ P1D] expected [-]P[nY][nM][nD][T[nH][nM]";
    ExpectReads({
        {ItemTypeHexBinary, " ab01\n", "AB01", kCollapse}, {ItemTypeHexBinary, "", ""},
        {ItemTypeBase64Binary, "TW\tFu==", "TWFu", WS::WhitespaceRuleReplace},
        {ItemTypeBase64Binary, "T*Fu", ""},
        {ItemTypeDuration, "  P1Y2M3DT4H5M6.789S \n", "P1Y2M3DT4H5M6.789S", kCollapse},
        {ItemTypeDuration, "-PT90S", "-PT90S"}, {ItemTypeDuration, " P1D", badDuration + "[nS.ff]]"},
        {ItemTypeDuration, "", "! InvalidValue: Invalid XSD Duration (Empty String)"},
        {ItemTypeDate, "2000-05", "2000-05"}, {ItemTypeDate, " 2000-01-01\t", "2000-01-01", kCollapse},
        {ItemTypeDate, " 2000-01-01",
         "! InvalidValue: Invalid XSD Date [ 2000-01-01] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
        {ItemTypeDate, "", "! InvalidValue: Invalid Date (Empty String)", kCollapse},
        {ItemTypeYearMonth, "-0005Z", "-0005Z"}, {ItemTypeMonthDay, "---45", "---45"},
        {ItemTypeMonthDay, "--02-29", "--02-29"}, {ItemTypeTime, "12:00:00.5Z", "12:00:00.5Z"},
        {ItemTypeDateTime, "2000-01-01T00:00:00+24:00", "2000-01-01T00:00:00+00:00"},
        {ItemTypeDateTime, "2000-01-01", "! InvalidValue: Invalid XSD DateTime [2000-01-01]"},
        {ItemTypeYear, "2000-05", "2000"}, {ItemTypeYear, " 1999 ", "1999", kCollapse},
        {ItemTypeMonth, "--05", "--05"}, {ItemTypeMonth, "2000-12-06", "--12"}, {ItemTypeDay, "---17", "---17"},
        {ItemTypeDay, "--02-29", "---29"},
        {ItemTypeYear, "--05", "! InvalidState: Failed to GetYear. Invalid Date Type: gMonth."},
        {ItemTypeMonth, "---05", "! InvalidState: Failed to GetMonth. Invalid Date Type: gDay."},
        {ItemTypeDay, "2000-05", "! InvalidState: Failed to GetDay. Invalid Date Type: gYearMonth."},
        {ItemTypeMonth, "--13", "! InvalidValue: Invalid Month [13] (1 <= month <= 12)"},
        {ItemTypeDecimal, " 001.50 ", "1.5", kCollapse}, {ItemTypeInteger, "12-34", "34"},
        {ItemTypeInteger, "123456789012345678901234567890", "123456789012345678901234567890"},
        {ItemTypeInteger, "\n", "0", kCollapse},
        {ItemTypeInteger, "1.2.3",
         "! InvalidValue: The string representing a Decimal, contained an invalid char at position 3 [1.2.3]"},
    });
    EXPECT_EQ(CDateTime::dt_gYearMonth, C::dateFromString("2000-05", WS::WhitespaceRuleNone).GetType());
    EXPECT_EQ(CDateTime::dt_date, C::yearMonthFromString("2000-05-06", WS::WhitespaceRuleNone).GetType());
    EXPECT_EQ(static_cast<unsigned short>(-5), C::yearFromString("-0005", WS::WhitespaceRuleNone));
    EXPECT_EQ("InvalidValue: Date Not Set", Outcome([] { C::datetimeToString(CDateTime()); }));
}

// Without a format every digit is printed; a format is the number of
// fractional digits, and printing adds half a unit of the first place,
// then cuts the fraction.
TEST(ConversionsTest, DecimalFormats)
{
    EXPECT_EQ("0.333333333333333333333333333333", C::decimalToString(CDecimal(1) / CDecimal(3), nullptr));
    const CDecimal value("1.25");
    EXPECT_EQ("1.75", C::decimalToString(value, "2"));
    EXPECT_EQ("1.7", C::decimalToString(value, "1"));
    EXPECT_EQ("1.", C::decimalToString(value, "0"));
    EXPECT_EQ("-1.7", C::decimalToString(CDecimal("-1.25"), "1"));
    for (const char* format : {"%.2f", "", "-1", "2 ", "99999999999"})
        EXPECT_EQ(std::string("InvalidParam: The format [") + format + "] can not be used to convert a decimal",
                  Outcome([format] { C::decimalToString(CDecimal(1), format); }));
}
