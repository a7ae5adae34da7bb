#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "NxXmlLib9.h"
#include "ExpectFailure.h"

using namespace NxXmlLib9;
using C = CConversions;
using WS = CWhitespaceUtils;

namespace {

const WS::WhitespaceRule kNone = WS::WhitespaceRuleNone;
const WS::WhitespaceRule kCollapse = WS::WhitespaceRuleCollapse;

} // namespace

TEST(IntegerToStringTest, PrintsEveryKind)
{
    EXPECT_EQ("-128", C::i1ToString(static_cast<char>(-128)));
    EXPECT_EQ("127", C::i1ToString(127));
    EXPECT_EQ("-32768", C::i2ToString(-32768));
    EXPECT_EQ("-2147483648", C::i4ToString(-2147483647L - 1));
    EXPECT_EQ("-9223372036854775808", C::i8ToString(std::numeric_limits<long long>::min()));
    EXPECT_EQ("255", C::ui1ToString(255));
    EXPECT_EQ("65535", C::ui2ToString(65535));
    EXPECT_EQ("4294967295", C::ui4ToString(4294967295UL));
    EXPECT_EQ("18446744073709551615", C::ui8ToString(std::numeric_limits<unsigned long long>::max()));
}

TEST(IntegerToStringTest, FourByteKindsShowTheLow32BitsOfALong)
{
    if (sizeof(long) <= 4)
        GTEST_SKIP() << "long has 32 bits here";
    EXPECT_EQ("-1294967296", C::i4ToString(3000000000L));
    EXPECT_EQ("1", C::ui4ToString(static_cast<unsigned long>(0x100000001ULL)));
}

TEST(IntegerToStringTest, YearMonthAndDayForms)
{
    EXPECT_EQ("7", C::yearToString(7));
    EXPECT_EQ("2024", C::yearToString(2024));
    EXPECT_EQ("--05", C::monthToString(5));
    EXPECT_EQ("--12", C::monthToString(12));
    EXPECT_EQ("---09", C::dayToString(9));
    EXPECT_EQ("---31", C::dayToString(31));
    EXPECT_EQ("---123", C::dayToString(123));
}

TEST(IntegerFromStringTest, ParsesWithWhatTheCParserAccepts)
{
    EXPECT_EQ(0L, C::i4FromString("", kNone));
    EXPECT_EQ(-42L, C::i4FromString("  -42", kNone));
    EXPECT_EQ(42L, C::i4FromString("+42", kNone));
    EXPECT_EQ(42L, C::i4FromString(" \r42\n ", kCollapse));
    EXPECT_EQ(-5LL, C::i8FromString("-5", kNone));
    EXPECT_EQ(9223372036854775807LL, C::i8FromString("9223372036854775807", kNone));
    EXPECT_EQ(18446744073709551615ULL, C::ui8FromString("18446744073709551615", kNone));
    EXPECT_EQ(static_cast<char>(-128), C::i1FromString("-128", kNone));
    EXPECT_EQ(127, C::i1FromString("127", kNone));
    EXPECT_EQ(-32768, C::i2FromString("-32768", kNone));
    EXPECT_EQ(255, C::ui1FromString("255", kNone));
    EXPECT_EQ(65535, C::ui2FromString("65535", kNone));
    EXPECT_EQ(4294967295UL, C::ui4FromString("4294967295", kNone));
    // Bytes after a zero byte are not looked at.
    EXPECT_EQ(12L, C::i4FromString(std::string("12\0x", 4), kNone));
}

TEST(IntegerFromStringTest, FourByteKindsTakeThePlatformLong)
{
    if (sizeof(long) <= 4)
        GTEST_SKIP() << "long has 32 bits here";
    EXPECT_EQ(3000000000L, C::i4FromString("3000000000", kNone));
    EXPECT_EQ(5000000000UL, C::ui4FromString("5000000000", kNone));
}

TEST(IntegerFromStringTest, FailuresNameTheirKind)
{
    const std::string notConverted = "] can not be converted to a ", tooLarge = "] is to large to fit in a ";
    const struct {
        std::function<void()> call;
        std::string message;
    } cases[] = {
        {[] { C::i4FromString("12abc", kNone); }, "The value [12abc" + notConverted + "i4"},
        {[] { C::i8FromString("1.5", kNone); }, "The value [1.5" + notConverted + "i8"},
        {[] { C::ui4FromString("x", kNone); }, "The value [x" + notConverted + "ui4"},
        {[] { C::ui8FromString("7 ", kNone); }, "The value [7 " + notConverted + "ui8"},
        // The narrow kinds fail inside their wide kind, which names itself.
        {[] { C::i1FromString("1x", kNone); }, "The value [1x" + notConverted + "i4"},
        {[] { C::ui2FromString("1x", kNone); }, "The value [1x" + notConverted + "ui4"},
        // The wide kind's messages show the text after the rule ...
        {[] { C::i4FromString("  1\r2 x ", kCollapse); }, "The value [12 x" + notConverted + "i4"},
        {[] { C::i1FromString("128", kNone); }, "The value [128" + tooLarge + "i1"},
        {[] { C::i1FromString("-129", kNone); }, "The value [-129" + tooLarge + "i1"},
        {[] { C::i2FromString("70000", kNone); }, "The value [70000" + tooLarge + "i2"},
        {[] { C::ui1FromString("256", kNone); }, "The value [256" + tooLarge + "ui1"},
        {[] { C::ui2FromString("65536", kNone); }, "The value [65536" + tooLarge + "ui2"},
        {[] { C::i4FromString("99999999999999999999", kNone); }, "The value [99999999999999999999" + tooLarge + "i4"},
        {[] { C::i8FromString("99999999999999999999", kNone); }, "The value [99999999999999999999" + tooLarge + "i8"},
        {[] { C::ui8FromString("18446744073709551616", kNone); }, "The value [18446744073709551616" + tooLarge + "ui8"},
        // ... the narrow kinds' range messages the input as it came.
        {[] { C::i1FromString(" 300\r ", kCollapse); }, "The value [ 300\r " + tooLarge + "i1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        ExpectFailure<CNxInvalidValueException>(c.call, c.message);
    }
}

TEST(RealToStringTest, DefaultFormatsAndSpecialValues)
{
    EXPECT_EQ("1.5", C::r4ToString(1.5f, nullptr));
    EXPECT_EQ("0.1", C::r4ToString(0.1f, nullptr));
    EXPECT_EQ("0.1", C::r8ToString(0.1, nullptr));
    EXPECT_EQ("0.3333333333333333", C::r8ToString(1.0 / 3.0, nullptr));
    EXPECT_EQ("1e+300", C::r8ToString(1e300, nullptr));
    EXPECT_EQ("NaN", C::r4ToString(std::numeric_limits<float>::quiet_NaN(), nullptr));
    EXPECT_EQ("NaN", C::r8ToString(-std::numeric_limits<double>::quiet_NaN(), "%f"));
    EXPECT_EQ("INF", C::r4ToString(std::numeric_limits<float>::infinity(), nullptr));
    EXPECT_EQ("-INF", C::r4ToString(-std::numeric_limits<float>::infinity(), nullptr));
    EXPECT_EQ("INF", C::r8ToString(std::numeric_limits<double>::infinity(), "%.2f"));
    EXPECT_EQ("-INF", C::r8ToString(-std::numeric_limits<double>::infinity(), nullptr));
    EXPECT_EQ("3.402823e+38", C::r4ToString(std::numeric_limits<float>::max(), nullptr));
}

TEST(RealToStringTest, CallerFormatIsUsedWhateverTheLength)
{
    EXPECT_EQ("1.50", C::r4ToString(1.5f, "%.2f"));
    EXPECT_EQ("value 2.250%", C::r8ToString(2.25, "value %.3f%%"));
    EXPECT_EQ("fixed", C::r8ToString(2.25, "fixed"));
    // Longer than the fixed buffers: printed in full.
    const std::string wide = C::r4ToString(3.0f, "%100.1f");
    EXPECT_EQ(100u, wide.size());
    EXPECT_EQ(" 3.0", wide.substr(96));
    const std::string huge = C::r8ToString(1e300, "%f");
    EXPECT_EQ(308u, huge.size());
    EXPECT_EQ("10000000000000000525", huge.substr(0, 20));
    EXPECT_EQ(".000000", huge.substr(301));
}

TEST(RealToStringTest, FormatsThatWouldReadMissingArgumentsAreRejected)
{
    for (const char* format : {"%d", "%s", "%f %f", "%*f", "%Lf", "%n", "%", "%1$f"}) {
        ExpectFailure<CNxInvalidParamException>(
            [format] { C::r8ToString(1.0, format); },
            std::string("The format [") + format + "] can not be used to convert a r8");
    }
    ExpectFailure<CNxInvalidParamException>([] { C::r4ToString(1.0f, "%x"); },
                                            "The format [%x] can not be used to convert a r4");
    EXPECT_EQ("+1.0E+00", C::r8ToString(1.0, "%+#.1E"));
    EXPECT_EQ("0x1p+0", C::r8ToString(1.0, "%la"));
}

TEST(RealFromStringTest, SpecialTextsAreExactAndCaseSensitive)
{
    EXPECT_TRUE(std::isnan(C::r8FromString("", kNone)));
    EXPECT_TRUE(std::isnan(C::r4FromString(" \r ", kCollapse)));
    EXPECT_TRUE(std::isnan(C::r8FromString("NaN", kNone)));
    EXPECT_TRUE(std::isnan(C::r8FromString("1.#QNAN", kNone)));
    EXPECT_TRUE(std::isnan(C::r4FromString("-NAN", kNone)));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(), C::r8FromString("-INF", kNone));
    EXPECT_EQ(std::numeric_limits<float>::infinity(), C::r4FromString("INF", kNone));
    ExpectFailure<CNxInvalidValueException>([] { C::r8FromString("1.#QNANx", kNone); },
                                            "The value [1.#QNANx] can not be converted to a r8");
}

TEST(RealFromStringTest, ParsesNumbersWithoutARangeTest)
{
    EXPECT_DOUBLE_EQ(1.25, C::r8FromString("1.25", kNone));
    EXPECT_DOUBLE_EQ(-1e-3, C::r8FromString("\t-1E-3\r\n", kCollapse));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), C::r8FromString("1e999", kNone));
    EXPECT_EQ(std::numeric_limits<float>::infinity(), C::r4FromString("1e39", kNone));
    EXPECT_EQ(-std::numeric_limits<float>::infinity(), C::r4FromString("-1e39", kNone));
    EXPECT_EQ(0.1f, C::r4FromString("0.1", kNone));
    // Just above the greatest float still rounds to it.
    EXPECT_EQ(std::numeric_limits<float>::max(), C::r4FromString("3.4028235e38", kNone));
}

TEST(RealFromStringTest, TrailingBytesFail)
{
    ExpectFailure<CNxInvalidValueException>([] { C::r8FromString("1.5x", kNone); },
                                            "The value [1.5x] can not be converted to a r8");
    ExpectFailure<CNxInvalidValueException>([] { C::r4FromString("abc", kNone); },
                                            "The value [abc] can not be converted to a r4");
    // What strtod takes by itself passes, lower-case infinity included.
    EXPECT_EQ(std::numeric_limits<float>::infinity(), C::r4FromString("inf", kNone));
}

TEST(TextConversionTest, CharNeedsExactlyOneByte)
{
    EXPECT_EQ("x", C::charToString('x'));
    EXPECT_EQ(std::string(1, '\0'), C::charToString('\0'));
    EXPECT_EQ('x', C::charFromString("x", kNone));
    EXPECT_EQ('x', C::charFromString(" x\r", kCollapse));
    for (const char* text : {"ab", ""}) {
        ExpectFailure<CNxInvalidValueException>(
            [text] { C::charFromString(text, kNone); },
            std::string("The value [") + text +
                "] can not be a char as it is either empty of greater than 1 char long");
    }
}

TEST(TextConversionTest, StringAppliesTheRule)
{
    EXPECT_EQ(" a \r", C::stringToString(" a \r"));
    EXPECT_EQ(" a \r", C::stringFromString(" a \r", kNone));
    EXPECT_EQ("a b", C::stringFromString(" a \r\n b", kCollapse));
    EXPECT_EQ(" a  ", C::stringFromString(" a\r\n\t", WS::WhitespaceRuleReplace));
}

TEST(TextConversionTest, BooleanTakesFourWordsInAnyCase)
{
    EXPECT_EQ("true", C::booleanToString(true));
    EXPECT_EQ("false", C::booleanToString(false));
    EXPECT_TRUE(C::booleanFromString("True", kNone));
    EXPECT_TRUE(C::booleanFromString("TRUE", kNone));
    EXPECT_TRUE(C::booleanFromString("1", kNone));
    EXPECT_FALSE(C::booleanFromString("fAlSe", kNone));
    EXPECT_FALSE(C::booleanFromString("\r 0 \n", kCollapse));
    ExpectFailure<CNxInvalidValueException>(
        [] { C::booleanFromString("yes", kNone); },
        "A Boolean Value read from an XML document was invalid [yes]. Valid values are "
        "'true', 'false', '1', or '0'");
    // The message shows the input before the rule was applied.
    ExpectFailure<CNxInvalidValueException>(
        [] { C::booleanFromString(" 2\r", kCollapse); },
        "A Boolean Value read from an XML document was invalid [ 2\r]. Valid values are "
        "'true', 'false', '1', or '0'");
}

TEST(TextConversionTest, UnknownRuleFailsBeforeParsing)
{
    ExpectFailure<CNxException>(
        [] { C::i4FromString("1", static_cast<WS::WhitespaceRule>(9)); },
        "Unknown WhitespaceRule");
}
