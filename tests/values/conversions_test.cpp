#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "NxXmlLib9.h"
#include "ExpectFailure.h"
#include "Outcome.h"

using namespace NxXmlLib9;
using C = CConversions;
using WS = CWhitespaceUtils;

namespace {

const WS::WhitespaceRule kNone = WS::WhitespaceRuleNone;
const WS::WhitespaceRule kCollapse = WS::WhitespaceRuleCollapse;
} // namespace

// Integers read with what the C parser accepts and print every kind; the
// narrow kinds fail inside their wide kind, which names itself, and show
// the text after the rule, while their range failures show the input as it
// came. Bytes after a zero byte are not looked at.
TEST(ConversionsTest, IntegersReadAndPrint)
{
    ExpectReads({
        {ItemTypeI4, "", "0"}, {ItemTypeI4, "  -42", "-42"}, {ItemTypeI4, "+42", "42"},
        {ItemTypeI4, " \r42\n ", "42", kCollapse}, {ItemTypeI4, std::string("12\0x", 4), "12"},
        {ItemTypeI8, "-5", "-5"},
        {ItemTypeI8, "-9223372036854775808", "-9223372036854775808"},
        {ItemTypeI8, "9223372036854775807", "9223372036854775807"},
        {ItemTypeUI8, "18446744073709551615", "18446744073709551615"},
        {ItemTypeI1, "-128", "-128"}, {ItemTypeI1, "127", "127"}, {ItemTypeI2, "-32768", "-32768"},
        {ItemTypeUI1, "255", "255"}, {ItemTypeUI2, "65535", "65535"}, {ItemTypeUI4, "4294967295", "4294967295"},
        {ItemTypeI4, "12abc", "! InvalidValue: The value [12abc] can not be converted to a i4"},
        {ItemTypeI8, "1.5", "! InvalidValue: The value [1.5] can not be converted to a i8"},
        {ItemTypeUI4, "x", "! InvalidValue: The value [x] can not be converted to a ui4"},
        {ItemTypeUI8, "7 ", "! InvalidValue: The value [7 ] can not be converted to a ui8"},
        {ItemTypeI1, "1x", "! InvalidValue: The value [1x] can not be converted to a i4"},
        {ItemTypeUI2, "1x", "! InvalidValue: The value [1x] can not be converted to a ui4"},
        {ItemTypeI4, "  1\r2 x ", "! InvalidValue: The value [12 x] can not be converted to a i4", kCollapse},
        {ItemTypeI1, "128", "! InvalidValue: The value [128] is to large to fit in a i1"},
        {ItemTypeI1, "-129", "! InvalidValue: The value [-129] is to large to fit in a i1"},
        {ItemTypeI2, "70000", "! InvalidValue: The value [70000] is to large to fit in a i2"},
        {ItemTypeUI1, "256", "! InvalidValue: The value [256] is to large to fit in a ui1"},
        {ItemTypeUI2, "65536", "! InvalidValue: The value [65536] is to large to fit in a ui2"},
        {ItemTypeI4, "99999999999999999999",
         "! InvalidValue: The value [99999999999999999999] is to large to fit in a i4"},
        {ItemTypeI8, "99999999999999999999",
         "! InvalidValue: The value [99999999999999999999] is to large to fit in a i8"},
        {ItemTypeUI8, "18446744073709551616",
         "! InvalidValue: The value [18446744073709551616] is to large to fit in a ui8"},
        {ItemTypeI1, " 300\r ", "! InvalidValue: The value [ 300\r ] is to large to fit in a i1", kCollapse},
    });
    EXPECT_EQ("7", C::yearToString(7));
    EXPECT_EQ("--05", C::monthToString(5));
    EXPECT_EQ("---09", C::dayToString(9));
    EXPECT_EQ("---123", C::dayToString(123));
    EXPECT_EQ("Unknown WhitespaceRule",
              Outcome([] { C::i4FromString("1", static_cast<WS::WhitespaceRule>(9)); }));
}

TEST(ConversionsTest, FourByteKindsTakeThePlatformLong)
{
    if (sizeof(long) <= 4)
        GTEST_SKIP() << "long has 32 bits here";
    EXPECT_EQ("-1294967296", C::i4ToString(3000000000L));
    EXPECT_EQ("1", C::ui4ToString(static_cast<unsigned long>(0x100000001ULL)));
    EXPECT_EQ(3000000000L, C::i4FromString("3000000000", kNone));
    EXPECT_EQ(5000000000UL, C::ui4FromString("5000000000", kNone));
}

// Special texts are exact and case sensitive, numbers have no range test,
// trailing bytes fail, and what strtod takes by itself passes.
TEST(ConversionsTest, RealsReadAndPrint)
{
    ExpectReads({
        {ItemTypeR4, "1.5", "1.5"}, {ItemTypeR4, "0.1", "0.1"}, {ItemTypeR8, "0.1", "0.1"},
        {ItemTypeR8, "1.25", "1.25"}, {ItemTypeR8, "1e300", "1e+300"},
        {ItemTypeR8, "\t-1E-3\r\n", "-0.001", kCollapse}, {ItemTypeR8, "", "NaN"},
        {ItemTypeR4, " \r ", "NaN", kCollapse}, {ItemTypeR8, "NaN", "NaN"}, {ItemTypeR8, "1.#QNAN", "NaN"},
        {ItemTypeR4, "-NAN", "NaN"}, {ItemTypeR8, "-INF", "-INF"}, {ItemTypeR4, "INF", "INF"},
        {ItemTypeR4, "inf", "INF"}, {ItemTypeR8, "1e999", "INF"}, {ItemTypeR4, "1e39", "INF"},
        {ItemTypeR4, "-1e39", "-INF"},
        // Just above the greatest float still rounds to it.
        {ItemTypeR4, "3.4028235e38", "3.402823e+38"},
        {ItemTypeR8, "1.#QNANx", "! InvalidValue: The value [1.#QNANx] can not be converted to a r8"},
        {ItemTypeR8, "1.5x", "! InvalidValue: The value [1.5x] can not be converted to a r8"},
        {ItemTypeR4, "abc", "! InvalidValue: The value [abc] can not be converted to a r4"},
    });
    EXPECT_EQ(0.1f, C::r4FromString("0.1", kNone));
    EXPECT_EQ("NaN", C::r8ToString(-std::numeric_limits<double>::quiet_NaN(), "%f"));
    EXPECT_EQ("INF", C::r8ToString(std::numeric_limits<double>::infinity(), "%.2f"));
    EXPECT_EQ("0.3333333333333333", C::r8ToString(1.0 / 3.0, nullptr));
}

TEST(ConversionsTest, CallerFormatOfReals)
{
    EXPECT_EQ("1.50", C::r4ToString(1.5f, "%.2f"));
    EXPECT_EQ("value 2.250%", C::r8ToString(2.25, "value %.3f%%"));
    EXPECT_EQ("fixed", C::r8ToString(2.25, "fixed"));
    EXPECT_EQ("+1.0E+00", C::r8ToString(1.0, "%+#.1E"));
    EXPECT_EQ("0x1p+0", C::r8ToString(1.0, "%la"));
    // Longer than the fixed buffers: printed in full.
    EXPECT_EQ(std::string(96, ' ') + " 3.0", C::r4ToString(3.0f, "%100.1f"));
    const std::string huge = C::r8ToString(1e300, "%f");
    EXPECT_EQ(308u, huge.size());
    EXPECT_EQ("10000000000000000525", huge.substr(0, 20));
    EXPECT_EQ(".000000", huge.substr(301));
    // Formats that would read missing arguments are refused.
    for (const char* format : {"%d", "%s", "%f %f", "%*f", "%Lf", "%n", "%", "%1$f"})
        EXPECT_EQ(std::string("InvalidParam: The format [") + format + "] can not be used to convert a r8",
                  Outcome([format] { C::r8ToString(1.0, format); }));
    EXPECT_EQ("InvalidParam: The format [%x] can not be used to convert a r4",
              Outcome([] { C::r4ToString(1.0f, "%x"); }));
}

// A char needs exactly one byte; a string applies the rule; a boolean takes
// four words in any case, and its failure shows the input before the rule.
TEST(ConversionsTest, CharStringAndBoolean)
{
    const std::string badChar = "] can not be a char as it is either empty of greater than 1 char long";
    const std::string badBoolean = "]. Valid values are 'true', 'false', '1', or '0'";
    ExpectReads({
        {ItemTypeChar, "x", "x"}, {ItemTypeChar, " x\r", "x", kCollapse},
        {ItemTypeChar, "ab", "! InvalidValue: The value [ab" + badChar},
        {ItemTypeChar, "", "! InvalidValue: The value [" + badChar}, {ItemTypeString, " a \r", " a \r"},
        {ItemTypeString, " a \r\n b", "a b", kCollapse},
        {ItemTypeString, " a\r\n\t", " a  ", WS::WhitespaceRuleReplace},
        {ItemTypeBoolean, "True", "true"}, {ItemTypeBoolean, "TRUE", "true"}, {ItemTypeBoolean, "1", "true"},
        {ItemTypeBoolean, "fAlSe", "false"}, {ItemTypeBoolean, "\r 0 \n", "false", kCollapse},
        {ItemTypeBoolean, "yes",
         "! InvalidValue: A Boolean Value read from an XML document was invalid [yes" + badBoolean},
        {ItemTypeBoolean, " 2\r",
         "! InvalidValue: A Boolean Value read from an XML document was invalid [ 2\r" + badBoolean,
         kCollapse},
    });
    EXPECT_EQ(std::string(1, '\0'), C::charToString('\0'));
}
