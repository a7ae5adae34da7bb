#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;

namespace {
std::string FormatThrough(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = FormatV(format, args);
    va_end(args);
    return text;
}
} // namespace

// The C library's directives, through both entries; a null string and a
// wide one print as the C library prints them.
TEST(FormatString, PrintsWhatTheCLibraryPrints)
{
    EXPECT_EQ(FormatString("Index %d is out of range, use 0 - %d", 7, 3), "Index 7 is out of range, use 0 - 3");
    EXPECT_EQ(FormatString("%lld|%llu", LLONG_MIN, ULLONG_MAX), "-9223372036854775808|18446744073709551615");
    EXPECT_EQ(FormatString("%*s|%-4s|%.3s", -4, "ab", "c", "abcdef"), "ab  |c   |abc");
    EXPECT_EQ(FormatThrough("%s-%d", "via", 5), "via-5");
    // Hidden from the compiler's format check, which rightly warns about a
    // null argument it can see: the library's own answer is what is tested.
    const char* volatile nothing = nullptr;
    EXPECT_EQ(FormatString("%s", nothing), "(null)");
    EXPECT_EQ(FormatString("%ls", L"wide"), "wide");
    EXPECT_EQ(FormatString("plain"), "plain");
}

TEST(FormatString, LongValuesAreNeverCut)
{
    const std::string longText(5000, 'q');
    EXPECT_EQ(FormatString("<%s>", longText.c_str()), "<" + longText + ">");
    // Fixed notation of the largest double has over three hundred digits.
    EXPECT_EQ(FormatString("%f", 1e308).size(), 309u + 7u);
    EXPECT_EQ(FormatString("%.2f", 3.14159), "3.14");
    EXPECT_EQ(FormatString("%40.3f|", 1.0), std::string(35, ' ') + "1.000|");
    EXPECT_EQ(FormatString("%.60e", 1.0).size(), 66u);
    EXPECT_EQ(FormatString("%#x", 255), "0xff");
    EXPECT_EQ(FormatString("%50d|", 1), std::string(49, ' ') + "1|");
}

TEST(FormatString, CountDirectiveConsumesItsArgumentOnly)
{
    int written = 0;
    EXPECT_EQ(FormatString("abc%n%d", &written, 9), "abc9");
    EXPECT_EQ(written, 3);
}

TEST(FormatStringDeathTest, CharacterDirectiveEndsTheProcess)
{
    EXPECT_DEATH(FormatString("Invalid char in hex string [%c]", 'z'), "");
}
