#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "NxXmlLib9.h"
#include "ExpectFailure.h"
#include "Outcome.h"

using namespace NxXmlLib9;

namespace {

std::string Rescaled(const char* text, int divider)
{
    CDecimal value(text);
    value.ChangeFractionalDivider(divider);
    return value.ToString();
}

std::string BadChar(const std::string& text, int position)
{
    return "! InvalidValue: The string representing a Decimal, contained an invalid char at position " +
           std::to_string(position) + " [" + text + "]";
}

const std::string kThirty = "123456789012345678901234567891";

} // namespace

// The shortest form is printed. Signs and blanks before the point are
// skipped; white space ends the exponent, after which only digits may
// follow, and do not count. Thirty fractional digits are kept, rounded
// half down; trailing zeros go before the cap, not after it.
TEST(DecimalTest, ReadAndPrint)
{
    const ItemType D = ItemTypeDecimal;
    ExpectReads({
        {D, "1.50", "1.5"}, {D, "1.00", "1"}, {D, ".5", "0.5"}, {D, "-.5", "-0.5"}, {D, "", "0"},
        {D, "0.001", "0.001"}, {D, "-12.034", "-12.034"},
        {D, std::string(200, '4') + ".25", std::string(200, '4') + ".25"},
        {D, "1-2", "-12"}, {D, "1 2", "12"}, {D, "-+12", "12"}, {D, " 3.2 5\n", "3.25"}, {D, "1e3", "1000"},
        {D, "1.5E-1", "0.15"}, {D, "-1.25e +3", "-1250"}, {D, "1e", "1"}, {D, "1e3 4", "1000"},
        {D, "1e-30", "0.000000000000000000000000000001"}, {D, "1e-31", "0"},
        {D, "1e100001", "! InvalidValue: The string representing a Decimal, has an exponent out of range [1e100001]"},
        {D, "abc", BadChar("abc", 0)}, {D, "1.2.3", BadChar("1.2.3", 3)}, {D, "1.-5", BadChar("1.-5", 2)},
        {D, "1e3 x", BadChar("1e3 x", 4)}, {D, "1e3 4 ", BadChar("1e3 4 ", 5)}, {D, "1e.5", BadChar("1e.5", 2)},
        {D, "0." + kThirty + "5000000000", "0." + kThirty}, {D, "-0." + kThirty + "5000000000", "-0." + kThirty},
        {D, "0." + kThirty + "5000000001", "0.123456789012345678901234567892"},
        {D, "0.1234567890123456789012345678901234567890", "0.123456789012345678901234567890"},
    });
    EXPECT_EQ("0", CDecimal(nullptr).ToString());
}

// Half is rounded toward zero, and rounding up to a whole unit is not
// carried into the whole part.
TEST(DecimalTest, ChangeFractionalDividerAndRationalise)
{
    const struct {
        const char* text;
        int divider;
        const char* rescaled;
    } cases[] = {
        {"0.15", 1, "0.1"}, {"-0.15", 1, "-0.1"}, {"0.151", 1, "0.2"}, {"-0.151", 1, "-0.2"}, {"2.5", 0, "2"},
        {"2.51", 0, "3"},   {"-0.6", 0, "-1"},    {"1.5", 3, "1.500"}, {"0.96", 1, "0.10"},   {"-1.96", 1, "-1.10"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.rescaled, Rescaled(c.text, c.divider)) << c.text << " to " << c.divider;
    CDecimal value("0.96");
    value.ChangeFractionalDivider(1);
    EXPECT_EQ("10", value.GetFraction().ToString());
    EXPECT_EQ(1, value.GetDivider());
    ExpectFailure<CNxInvalidParamException>([&] { value.ChangeFractionalDivider(-1); },
                                            "ERROR: Negative fractional divider.");

    // Rationalise drops trailing zeros down to one digit.
    CDecimal half(CBigInteger(1), CBigInteger(500), 3);
    half.Rationalise();
    EXPECT_EQ(1, half.GetDivider());
    EXPECT_EQ("1.5", half.ToString());
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

TEST(DecimalTest, Arithmetic)
{
    const struct {
        CDecimal result;
        std::string expected;
    } cases[] = {
        // Sums mend the signs.
        {CDecimal("1.5") + CDecimal("-1.5"), "0"}, {CDecimal("-0.25") + CDecimal("0.5"), "0.25"},
        {CDecimal("0.25") - CDecimal("0.5"), "-0.25"}, {CDecimal("0.7") + CDecimal("0.6"), "1.3"},
        {CDecimal("-0.7") - CDecimal("0.6"), "-1.3"}, {CDecimal("2.1") - CDecimal("1.2"), "0.9"},
        {CDecimal("-2.1") + CDecimal("1.2"), "-0.9"},
        {CDecimal(("0." + std::string(30, '9')).c_str()) + CDecimal("1e-30"), "1"},
        {CDecimal(("1" + std::string(200, '0') + ".5").c_str()) - CDecimal("0.75"), std::string(200, '9') + ".75"},
        {CDecimal(1) / CDecimal(3), "0." + std::string(30, '3')},
        {CDecimal(2) / CDecimal(3), "0." + std::string(29, '6') + "7"},
        {CDecimal(22) / CDecimal(7), "3.142857142857142857142857142857"},
        {CDecimal(-1) / CDecimal(8), "-0.125"}, {CDecimal("10") / CDecimal("4"), "2.5"},
        {CDecimal("1.5") * CDecimal("1.5"), "2.25"}, {CDecimal("-1.5") * CDecimal(2), "-3"},
        {CDecimal("-0.5") * CDecimal("0.5"), "-0.25"},
        {CDecimal("0.123456789012345") * CDecimal("0.123456789012345"), "0.015241578753238669120562399025"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, c.result.ToString());
    // Long operands: the product is exact up to the thirty kept digits.
    const CDecimal a("1234567891234567891234567891234567891234567.89123456789123456789");
    const CDecimal b("987654321987654321987654321987.654321987654321");
    EXPECT_EQ("1219326313565005315910684318256363320602042321728395011728395010509068698."
              "163389695817710693472031691126",
              (a * b).ToString());
    EXPECT_EQ(a, a * b / b);
    // A zero divisor fails in the integer division.
    EXPECT_EQ("InvalidValue: ERROR: Overflow in operator/.", Outcome([] { CDecimal(1) / CDecimal("0.0"); }));
    EXPECT_EQ("InvalidValue: ERROR: Overflow in operator/.", Outcome([] { CDecimal(1) /= CDecimal(); }));

    CDecimal value("0.5");
    EXPECT_EQ("0.5", (value++).ToString());
    EXPECT_EQ("1.5", value.ToString());
    EXPECT_EQ("2.5", (++value).ToString());
    EXPECT_EQ("2.5", (value--).ToString());
    EXPECT_EQ("0.5", (--value).ToString());
    EXPECT_EQ("-0.5", (--value).ToString());
}

TEST(DecimalTest, ComparesAcrossDividers)
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

// ToString with digits adds a half unit, then cuts; the native types round
// differently from each other.
TEST(DecimalTest, Conversions)
{
    EXPECT_EQ("1.73", CDecimal("1.234").ToString(2));
    EXPECT_EQ("-0.8", CDecimal("-0.3").ToString(2));
    EXPECT_EQ("1.", CDecimal("0.5").ToString(0));
    EXPECT_EQ("1.5", CDecimal(1).ToString(3));
    EXPECT_EQ("0.501", CDecimal("0.001").ToString(5));
    EXPECT_EQ("-2.2", CDecimal("-1.7").ToString(1));

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

    const std::string tooLarge = "OverFlow: The Decimal value if to large to fit into a ";
    EXPECT_EQ(tooLarge + "LONGLONG", Outcome([] { CDecimal("9223372036854775808").ToLongLong(); }));
    EXPECT_EQ(tooLarge + "LONGLONG", Outcome([] { CDecimal("-9223372036854775809").ToLongLong(); }));
    EXPECT_EQ(tooLarge + "LONG", Outcome([] { CDecimal("2147483647.6").ToLong(); }));
    EXPECT_EQ(tooLarge + "Double", Outcome([] { CDecimal("1.8e308").ToDouble(); }));

    // A double keeps thirteen digits.
    EXPECT_EQ("0.1", CDecimal(0.1).ToString());
    EXPECT_EQ("0.3333333333333", CDecimal(1.0 / 3.0).ToString());
    EXPECT_EQ("-2.5", CDecimal(-2.5).ToString());
    EXPECT_EQ("100000000000000000000", CDecimal(1e20).ToString());
    EXPECT_EQ("InvalidValue: The string representing a Decimal, contained an invalid char at position 0 [nan\n]",
              Outcome([] { CDecimal(std::numeric_limits<double>::quiet_NaN()); }));
}
