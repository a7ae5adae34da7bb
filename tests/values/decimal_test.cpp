#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "NxXmlLib9.h"
#include "ExpectFailure.h"

using namespace NxXmlLib9;

namespace {

std::string Text(const char* text)
{
    return CDecimal(text).ToString();
}

std::string Rescaled(const char* text, int divider)
{
    CDecimal value(text);
    value.ChangeFractionalDivider(divider);
    return value.ToString();
}

void ExpectInvalidChar(const char* text, int position)
{
    ExpectFailure<CNxInvalidValueException>(
        [&] { CDecimal value(text); },
        "The string representing a Decimal, contained an invalid char at position " + std::to_string(position) +
            " [" + text + "]");
}

const std::string kThirty = "123456789012345678901234567891";

} // namespace

TEST(DecimalParseTest, PrintsTheShortestForm)
{
    EXPECT_EQ("1.5", Text("1.50"));
    EXPECT_EQ("1", Text("1.00"));
    EXPECT_EQ("0.5", Text(".5"));
    EXPECT_EQ("-0.5", Text("-.5"));
    EXPECT_EQ("0", Text(""));
    EXPECT_EQ("0", Text(nullptr));
    EXPECT_EQ("0.001", Text("0.001"));
    EXPECT_EQ("-12.034", Text("-12.034"));
    EXPECT_EQ(std::string(200, '4') + ".25", Text((std::string(200, '4') + ".25").c_str()));
}

TEST(DecimalParseTest, SignsAndBlanksBeforeThePoint)
{
    EXPECT_EQ("-12", Text("1-2"));
    EXPECT_EQ("12", Text("1 2"));
    EXPECT_EQ("12", Text("-+12"));
    EXPECT_EQ("3.25", Text(" 3.2 5\n"));
}

TEST(DecimalParseTest, Exponents)
{
    EXPECT_EQ("1000", Text("1e3"));
    EXPECT_EQ("0.15", Text("1.5E-1"));
    EXPECT_EQ("-1250", Text("-1.25e +3"));
    EXPECT_EQ("1", Text("1e"));
    // White space ends the exponent; only digits may follow, and do not count.
    EXPECT_EQ("1000", Text("1e3 4"));
    EXPECT_EQ("0.000000000000000000000000000001", Text("1e-30"));
    EXPECT_EQ("0", Text("1e-31"));
    ExpectFailure<CNxInvalidValueException>(
        [] { CDecimal("1e100001"); },
        "The string representing a Decimal, has an exponent out of range [1e100001]");
}

TEST(DecimalParseTest, InvalidCharactersNameTheirPosition)
{
    ExpectInvalidChar("abc", 0);
    ExpectInvalidChar("1.2.3", 3);
    ExpectInvalidChar("1.-5", 2);
    ExpectInvalidChar("1e3 x", 4);
    ExpectInvalidChar("1e3 4 ", 5);
    ExpectInvalidChar("1e.5", 2);
}

TEST(DecimalParseTest, KeepsThirtyFractionalDigitsRoundedHalfDown)
{
    // Forty digits: the dropped part is an exact half, which stays down.
    EXPECT_EQ("0." + kThirty, Text(("0." + kThirty + "5000000000").c_str()));
    EXPECT_EQ("-0." + kThirty, Text(("-0." + kThirty + "5000000000").c_str()));
    EXPECT_EQ("0.123456789012345678901234567892", Text(("0." + kThirty + "5000000001").c_str()));
    // Trailing zeros go before the cap, not after it.
    EXPECT_EQ("0.123456789012345678901234567890",
              Text("0.1234567890123456789012345678901234567890"));
}

TEST(DecimalTest, ChangeFractionalDividerRounding)
{
    EXPECT_EQ("0.1", Rescaled("0.15", 1));
    EXPECT_EQ("-0.1", Rescaled("-0.15", 1));
    EXPECT_EQ("0.2", Rescaled("0.151", 1));
    EXPECT_EQ("-0.2", Rescaled("-0.151", 1));
    EXPECT_EQ("2", Rescaled("2.5", 0));
    EXPECT_EQ("3", Rescaled("2.51", 0));
    EXPECT_EQ("-1", Rescaled("-0.6", 0));
    EXPECT_EQ("1.500", Rescaled("1.5", 3));
    // Rounding up to a whole unit is not carried into the whole part.
    EXPECT_EQ("0.10", Rescaled("0.96", 1));
    EXPECT_EQ("-1.10", Rescaled("-1.96", 1));
    CDecimal value("0.96");
    value.ChangeFractionalDivider(1);
    EXPECT_EQ("10", value.GetFraction().ToString());
    EXPECT_EQ(1, value.GetDivider());
    ExpectFailure<CNxInvalidParamException>([&] { value.ChangeFractionalDivider(-1); },
                                            "ERROR: Negative fractional divider.");
}

TEST(DecimalTest, RationaliseDropsTrailingZerosDownToOneDigit)
{
    CDecimal value(CBigInteger(1), CBigInteger(500), 3);
    value.Rationalise();
    EXPECT_EQ(1, value.GetDivider());
    EXPECT_EQ("1.5", value.ToString());
    CDecimal zero(CBigInteger(7), CBigInteger(0), 4);
    zero.Rationalise();
    EXPECT_EQ(1, zero.GetDivider());
    EXPECT_EQ("7", zero.ToString());
    // A zero whole part of a negative number keeps the sign in its own field.
    const CDecimal negative("-0.5");
    EXPECT_EQ(-1, negative.GetWhole().GetSign());
    EXPECT_EQ("-5", negative.GetFraction().ToString());
    ExpectFailure<CNxInvalidParamException>([] { CDecimal(CBigInteger(1), CBigInteger(1), -2); },
                                            "ERROR: Negative fractional divider.");
}

TEST(DecimalArithmeticTest, SumsMendTheSigns)
{
    EXPECT_EQ("0", (CDecimal("1.5") + CDecimal("-1.5")).ToString());
    EXPECT_EQ("0.25", (CDecimal("-0.25") + CDecimal("0.5")).ToString());
    EXPECT_EQ("-0.25", (CDecimal("0.25") - CDecimal("0.5")).ToString());
    EXPECT_EQ("1.3", (CDecimal("0.7") + CDecimal("0.6")).ToString());
    EXPECT_EQ("-1.3", (CDecimal("-0.7") - CDecimal("0.6")).ToString());
    EXPECT_EQ("0.9", (CDecimal("2.1") - CDecimal("1.2")).ToString());
    EXPECT_EQ("-0.9", (CDecimal("-2.1") + CDecimal("1.2")).ToString());
    EXPECT_EQ("1", (CDecimal(("0." + std::string(30, '9')).c_str()) + CDecimal("1e-30")).ToString());
    EXPECT_EQ(std::string(200, '9') + ".75",
              (CDecimal(("1" + std::string(200, '0') + ".5").c_str()) - CDecimal("0.75")).ToString());
}

TEST(DecimalArithmeticTest, ProductsAndQuotients)
{
    EXPECT_EQ("0." + std::string(30, '3'), (CDecimal(1) / CDecimal(3)).ToString());
    EXPECT_EQ("0." + std::string(29, '6') + "7", (CDecimal(2) / CDecimal(3)).ToString());
    EXPECT_EQ("3.142857142857142857142857142857", (CDecimal(22) / CDecimal(7)).ToString());
    EXPECT_EQ("-0.125", (CDecimal(-1) / CDecimal(8)).ToString());
    EXPECT_EQ("2.5", (CDecimal("10") / CDecimal("4")).ToString());
    EXPECT_EQ("2.25", (CDecimal("1.5") * CDecimal("1.5")).ToString());
    EXPECT_EQ("-3", (CDecimal("-1.5") * CDecimal(2)).ToString());
    EXPECT_EQ("-0.25", (CDecimal("-0.5") * CDecimal("0.5")).ToString());
    EXPECT_EQ("0.015241578753238669120562399025",
              (CDecimal("0.123456789012345") * CDecimal("0.123456789012345")).ToString());
    // Long operands: the product is exact up to the thirty kept digits.
    const CDecimal a("1234567891234567891234567891234567891234567.89123456789123456789");
    const CDecimal b("987654321987654321987654321987.654321987654321");
    EXPECT_EQ("1219326313565005315910684318256363320602042321728395011728395010509068698."
              "163389695817710693472031691126",
              (a * b).ToString());
    EXPECT_EQ(a, a * b / b);
}

TEST(DecimalArithmeticTest, ZeroDivisorFailsInTheIntegerDivision)
{
    ExpectFailure<CNxInvalidValueException>([] { CDecimal(1) / CDecimal("0.0"); },
                                            "ERROR: Overflow in operator/.");
    ExpectFailure<CNxInvalidValueException>([] { CDecimal(1) /= CDecimal(); }, "ERROR: Overflow in operator/.");
}

TEST(DecimalArithmeticTest, IncrementAndDecrement)
{
    CDecimal value("0.5");
    EXPECT_EQ("0.5", (value++).ToString());
    EXPECT_EQ("1.5", value.ToString());
    EXPECT_EQ("2.5", (++value).ToString());
    EXPECT_EQ("2.5", (value--).ToString());
    EXPECT_EQ("0.5", (--value).ToString());
    EXPECT_EQ("-0.5", (--value).ToString());
}

TEST(DecimalComparisonTest, ComparesAcrossDividers)
{
    EXPECT_TRUE(CDecimal("1.10") == CDecimal("1.1"));
    EXPECT_TRUE(CDecimal("1.5") > CDecimal("1.25"));
    EXPECT_TRUE(CDecimal("-1.5") < CDecimal("-1.25"));
    EXPECT_TRUE(CDecimal("-0.5") < CDecimal("0.3"));
    EXPECT_TRUE(CDecimal("0.3") > CDecimal("-0.5"));
    EXPECT_TRUE(CDecimal("-0.5") < CDecimal("-0.3"));
    EXPECT_TRUE(CDecimal("2") >= CDecimal("2.000"));
    EXPECT_TRUE(CDecimal("2") <= CDecimal("2.000"));
    EXPECT_FALSE(CDecimal("2") < CDecimal("2.000"));
    EXPECT_TRUE(CDecimal("2.0001") != CDecimal("2"));
}

TEST(DecimalTest, ToStringWithDigitsAddsAHalfUnitThenCuts)
{
    EXPECT_EQ("1.73", CDecimal("1.234").ToString(2));
    EXPECT_EQ("-0.8", CDecimal("-0.3").ToString(2));
    EXPECT_EQ("1.", CDecimal("0.5").ToString(0));
    EXPECT_EQ("1.5", CDecimal(1).ToString(3));
    EXPECT_EQ("0.501", CDecimal("0.001").ToString(5));
    EXPECT_EQ("-2.2", CDecimal("-1.7").ToString(1));
}

TEST(DecimalConversionTest, NativeTypesRoundDifferently)
{
    EXPECT_EQ(1LL, CDecimal("1.96").ToLongLong());
    EXPECT_EQ(2L, CDecimal("1.96").ToLong());
    EXPECT_EQ(1LL, CDecimal("1.51").ToLongLong());
    EXPECT_EQ(2L, CDecimal("1.51").ToLong());
    EXPECT_EQ(1LL, CDecimal("1.5").ToLongLong());
    EXPECT_EQ(1L, CDecimal("1.5").ToLong());
    EXPECT_EQ(-2L, CDecimal("-1.96").ToLong());
    EXPECT_EQ(9223372036854775807LL, CDecimal("9223372036854775807").ToLongLong());
    EXPECT_EQ(-2147483647L - 1, CDecimal("-2147483648").ToLong());
    EXPECT_DOUBLE_EQ(-1.25, CDecimal("-1.25").ToDouble());
    EXPECT_DOUBLE_EQ(1.7e308, CDecimal("1.7e308").ToDouble());
    EXPECT_EQ("2", CDecimal("2.5").ToBigInteger().ToString());
    EXPECT_EQ("-3", CDecimal("-2.51").ToBigInteger().ToString());
}

TEST(DecimalConversionTest, OutOfRangeFailsWithOverflow)
{
    ExpectFailure<CNxOverFlowException>([] { CDecimal("9223372036854775808").ToLongLong(); },
                                        "The Decimal value if to large to fit into a LONGLONG");
    ExpectFailure<CNxOverFlowException>([] { CDecimal("-9223372036854775809").ToLongLong(); },
                                        "The Decimal value if to large to fit into a LONGLONG");
    ExpectFailure<CNxOverFlowException>([] { CDecimal("2147483647.6").ToLong(); },
                                        "The Decimal value if to large to fit into a LONG");
    ExpectFailure<CNxOverFlowException>([] { CDecimal("1.8e308").ToDouble(); },
                                        "The Decimal value if to large to fit into a Double");
}

TEST(DecimalTest, ConstructionFromDoubleKeepsThirteenDigits)
{
    EXPECT_EQ("0.1", CDecimal(0.1).ToString());
    EXPECT_EQ("0.3333333333333", CDecimal(1.0 / 3.0).ToString());
    EXPECT_EQ("-2.5", CDecimal(-2.5).ToString());
    EXPECT_EQ("100000000000000000000", CDecimal(1e20).ToString());
    ExpectFailure<CNxInvalidValueException>(
        [] { CDecimal(std::numeric_limits<double>::quiet_NaN()); },
        "The string representing a Decimal, contained an invalid char at position 0 [nan\n]");
}
