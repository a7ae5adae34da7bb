#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>

#include "NxXmlLib9.h"
#include "ExpectFailure.h"
#include "Outcome.h"

using namespace NxXmlLib9;
using Digits = CBigInteger::Digits;

namespace {

// 10^n - 1: n nines.
CBigInteger Nines(size_t n)
{
    return CBigInteger(std::string(n, '9').c_str());
}

} // namespace

// Plain text keeps a leading minus and the trailing digits; only blanks are
// trimmed, so a trailing line feed ends the digit run at once. Other text
// is read as a decimal and rounded.
TEST(BigIntegerTest, ReadAndPrint)
{
    const ItemType I = ItemTypeInteger;
    const std::string longText = "-" + std::string(500, '8');
    ExpectReads({
        {I, "  -0012  ", "-12"}, {I, "", "0"}, {I, "   ", "0"}, {I, "+5", "5"}, {I, "12-34", "34"}, {I, "1 2", "2"},
        {I, "--5", "-5"}, {I, "-", "0"}, {I, "5\n", "0"}, {I, "\t5", "5"}, {I, longText, longText},
        {I, "1.5", "1"}, {I, "3.999", "4"}, {I, "2.51", "3"}, {I, "-2.5", "-2"}, {I, "1e3", "1000"},
        {I, "abc", "! InvalidValue: The string representing a Decimal, contained an invalid char at position 0 [abc]"},
    });
    EXPECT_EQ("0", CBigInteger(static_cast<const char*>(nullptr)).ToString());
}

TEST(BigIntegerTest, ConstructionFromNumbers)
{
    EXPECT_EQ("-2147483648", CBigInteger(INT_MIN).ToString());
    EXPECT_EQ("0", CBigInteger().ToString());
    EXPECT_EQ(CBigInteger(0), CBigInteger() + CBigInteger(0));
    // Doubles round to nearest with an exact half toward zero.
    EXPECT_EQ("2", CBigInteger(2.5).ToString());
    EXPECT_EQ("3", CBigInteger(2.6).ToString());
    EXPECT_EQ("-2", CBigInteger(-2.5).ToString());
    EXPECT_EQ(CBigInteger(0), CBigInteger(0.3));
    EXPECT_EQ("1000000000000000", CBigInteger(1e15).ToString());
    ExpectFailure<CNxInvalidValueException>([] { CBigInteger(std::numeric_limits<double>::infinity()); },
                                            "ERROR: Value out of bound of BigInteger.");
    EXPECT_EQ("12", CBigInteger(CDecimal("12.4")).ToString());
}

TEST(BigIntegerTest, ConstantsHoldTheirBounds)
{
    EXPECT_EQ("2147483647", CBigInteger::MAX_LONG.ToString());
    EXPECT_EQ("-2147483648", CBigInteger::MIN_LONG.ToString());
    EXPECT_EQ("9223372036854775807", CBigInteger::MAX_LONGLONG.ToString());
    EXPECT_EQ("-9223372036854775808", CBigInteger::MIN_LONGLONG.ToString());
    EXPECT_EQ("17" + std::string(307, '0'), CBigInteger::MAX_DOUBLE.ToString());
    EXPECT_EQ("-17" + std::string(307, '0'), CBigInteger::MIN_DOUBLE.ToString());
}

// Sums mend the signs; division truncates toward zero.
TEST(BigIntegerTest, Arithmetic)
{
    using B = CBigInteger;
    const struct {
        CBigInteger result;
        const char* expected;
    } cases[] = {
        {B(99) + B(1), "100"}, {B(5) + B(-8), "-3"},  {B(-5) + B(8), "3"},   {B(-5) - B(8), "-13"},
        {B(3) - B(5), "-2"},   {B(-7) / B(2), "-3"},  {B(-7) % B(2), "-1"},  {B(7) % B(-2), "1"},
        {B(7) / B(-2), "-3"},  {B(-7) / B(-2), "3"},  {B(3) / B(7), "0"},    {B(3) % B(7), "3"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, c.result.ToString());
    const CBigInteger cancelled = CBigInteger(-5) - CBigInteger(-5);
    EXPECT_EQ("0", cancelled.ToString());
    EXPECT_EQ(1, cancelled.GetSign());
    CBigInteger self(21);
    self += self;
    EXPECT_EQ("42", self.ToString());
    self -= self;
    EXPECT_EQ("0", self.ToString());
    CBigInteger value(100);
    value /= CBigInteger(7);
    EXPECT_EQ("14", value.ToString());
    value %= CBigInteger(5);
    EXPECT_EQ("4", value.ToString());
}

TEST(BigIntegerArithmeticTest, ZeroDivisorFailsWithTheOperatorsText)
{
    const CBigInteger five(5);
    const CBigInteger zero(0);
    ExpectFailure<CNxInvalidValueException>([&] { five / zero; }, "ERROR: Overflow in operator/.");
    ExpectFailure<CNxInvalidValueException>([&] { five % zero; }, "ERROR: Overflow in operator%.");
    ExpectFailure<CNxInvalidValueException>([&] { CBigInteger(five) /= CBigInteger(); },
                                            "ERROR: Overflow in operator /=.");
    ExpectFailure<CNxInvalidValueException>([&] { CBigInteger(five) %= -zero; },
                                            "ERROR: Overflow in operator%=.");
}

TEST(BigIntegerArithmeticTest, ZeroProductsAreOneDigitWithTheSignsProduct)
{
    const CBigInteger product = CBigInteger(0) * CBigInteger(-5);
    EXPECT_EQ(Digits{0}, product.GetDigits());
    EXPECT_EQ(-1, product.GetSign());
    EXPECT_EQ(CBigInteger(0), product);
    EXPECT_EQ("0", product.ToString());
    EXPECT_EQ(Digits{0}, (Nines(50) * CBigInteger(0)).GetDigits());
}

TEST(BigIntegerArithmeticTest, LongOperandsAreExact)
{
    // (10^n - 1) + 1 carries through every digit.
    EXPECT_EQ("1" + std::string(300, '0'), (Nines(300) + CBigInteger(1)).ToString());
    EXPECT_EQ(std::string(300, '9'), (CBigInteger::Pow10(300) - CBigInteger(1)).ToString());
    // (10^n - 1)^2 = 10^2n - 2 * 10^n + 1.
    EXPECT_EQ(std::string(249, '9') + "8" + std::string(249, '0') + "1", (Nines(250) * Nines(250)).ToString());
    EXPECT_EQ(Nines(250).ToString(), (Nines(250) * Nines(250) / Nines(250)).ToString());

    const std::string sevens(400, '7');
    const CBigInteger a(sevens.c_str());
    const CBigInteger b("123456789123456789");
    EXPECT_EQ("40787433040795210", (a % b).ToString());
    EXPECT_EQ("85452600747618729803", ((a / b) % CBigInteger::Pow10(20)).ToString());

    // quotient * divisor + remainder rebuilds the dividend, for every sign.
    const CBigInteger divisor = Nines(170) + CBigInteger(12345);
    for (const int dividendSign : {1, -1}) {
        for (const int divisorSign : {1, -1}) {
            const CBigInteger x = dividendSign == 1 ? a : -a;
            const CBigInteger y = divisorSign == 1 ? divisor : -divisor;
            const CBigInteger q = x / y;
            const CBigInteger r = x % y;
            EXPECT_EQ(x, q * y + r);
            EXPECT_LT(r.GetAbs(), y.GetAbs());
            EXPECT_EQ(dividendSign, r.GetSign());
            EXPECT_EQ(dividendSign * divisorSign, q.GetSign());
        }
    }
}

TEST(BigIntegerComparisonTest, OrderAndEquality)
{
    EXPECT_TRUE(CBigInteger(-5) < CBigInteger(-3));
    EXPECT_TRUE(CBigInteger(-3) > CBigInteger(-5));
    EXPECT_TRUE(CBigInteger(5) > CBigInteger(-7));
    EXPECT_TRUE(CBigInteger(-7) < CBigInteger(5));
    EXPECT_TRUE(CBigInteger(5) <= CBigInteger(5));
    EXPECT_TRUE(CBigInteger(5) >= CBigInteger(5));
    EXPECT_FALSE(CBigInteger(5) < CBigInteger(5));
    EXPECT_TRUE(Nines(100) < CBigInteger::Pow10(100));
    EXPECT_TRUE(CBigInteger(-5) != CBigInteger(5));
    // A zero with sign -1 equals zero but orders by its sign field.
    const CBigInteger negativeZero("-0");
    EXPECT_EQ(-1, negativeZero.GetSign());
    EXPECT_TRUE(negativeZero == CBigInteger(0));
    EXPECT_TRUE(negativeZero < CBigInteger(0));
    EXPECT_EQ("0", negativeZero.ToString());
}

TEST(BigIntegerTest, ConversionToInt)
{
    EXPECT_EQ(INT_MIN, static_cast<int>(CBigInteger("-2147483648")));
    EXPECT_EQ(INT_MAX, static_cast<int>(CBigInteger("2147483647")));
    EXPECT_EQ(-12, static_cast<int>(CBigInteger("-0012")));
    ExpectFailure<CNxInvalidValueException>([] { (void)static_cast<int>(CBigInteger("2147483648")); },
                                            "ERROR: Value out of bound of int.");
    ExpectFailure<CNxInvalidValueException>([] { (void)static_cast<int>(CBigInteger("-2147483649")); },
                                            "ERROR: Value out of bound of int.");
}

TEST(BigIntegerTest, SquareRootRoundsDown)
{
    EXPECT_EQ("1000", CBigInteger(1000000).SquareRoot().ToString());
    EXPECT_EQ("9", CBigInteger(99).SquareRoot().ToString());
    EXPECT_EQ("1", CBigInteger(3).SquareRoot().ToString());
    EXPECT_EQ("0", CBigInteger(0).SquareRoot().ToString());
    EXPECT_EQ(CBigInteger::Pow10(100), CBigInteger::Pow10(200).SquareRoot());
    EXPECT_EQ(Nines(100), (CBigInteger::Pow10(200) - CBigInteger(1)).SquareRoot());
    ExpectFailure<CNxInvalidValueException>([] { CBigInteger(-4).SquareRoot(); },
                                            "ERROR: Negative Number in function SquareRoot().");
}

TEST(BigIntegerTest, SignOperations)
{
    CBigInteger value(-8);
    EXPECT_EQ("8", value.GetAbs().ToString());
    EXPECT_EQ("8", value.GetNegative().ToString());
    EXPECT_EQ("8", (-value).ToString());
    EXPECT_EQ("-8", value.ToString());
    value.Abs();
    EXPECT_EQ("8", value.ToString());
    value.Negate();
    EXPECT_EQ("-8", value.ToString());
}

TEST(BigIntegerDigitsTest, HelpersOnMagnitudes)
{
    Digits digits;
    CBigInteger::Build(std::string("ab0120"), digits);
    EXPECT_EQ((Digits{0, 2, 1}), digits);
    CBigInteger::Build(std::string("x"), digits);
    EXPECT_EQ(Digits{0}, digits);
    CBigInteger::Build(0u, digits);
    EXPECT_EQ(Digits{0}, digits);
    CBigInteger::BuildDWORDLONG(18446744073709551615ULL, digits);
    EXPECT_EQ(20u, CBigInteger::Position(digits));
    EXPECT_EQ(1u, CBigInteger::Position(Digits{}));

    Digits dirty{5, 0, 0};
    CBigInteger::Clean(dirty);
    EXPECT_EQ(Digits{5}, dirty);
    Digits empty;
    CBigInteger::Clean(empty);
    EXPECT_EQ(Digits{0}, empty);

    EXPECT_EQ(-1, CBigInteger::Compare(Digits{9}, Digits{0, 1}));
    EXPECT_EQ(1, CBigInteger::Compare(Digits{1, 2}, Digits{9, 1}));
    EXPECT_EQ(0, CBigInteger::Compare(Digits{}, Digits{0}));

    Digits shifted{0};
    CBigInteger::ShiftLeft(shifted, 3);
    EXPECT_EQ(Digits{0}, shifted);
    Digits power;
    CBigInteger::Pow10(2, power);
    EXPECT_EQ((Digits{0, 0, 1}), power);

    Digits result;
    CBigInteger::Multiply(Digits{9, 9}, 0, result);
    EXPECT_EQ(Digits{0}, result);
    CBigInteger::Multiply(Digits{9, 9}, 9, result);
    EXPECT_EQ((Digits{1, 9, 8}), result);
    ExpectFailure<CNxInvalidParamException>(
        [&] { CBigInteger::Subtract(Digits{1}, Digits{2}, result); },
        "ERROR: Subtrahend larger than minuend in function Subtract().");
}
