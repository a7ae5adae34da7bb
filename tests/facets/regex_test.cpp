#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "ScopedCType.h"

using namespace NxXmlLib9;

namespace {

struct RegExCase {
    const char* pattern;
    std::string value;
    bool matches;
};

void ExpectMatches(std::initializer_list<RegExCase> cases)
{
    for (const RegExCase& c : cases)
        EXPECT_EQ(c.matches, TestRegEx(c.pattern, c.value)) << "/" << c.pattern << "/ on [" << c.value << "]";
}

} // namespace

TEST(RegExMatch, XsdPatternsAgainstValues)
{
    ExpectMatches({
        {"\\d+", "123", true}, {"\\d+", "123a", false}, {"[A-Z]{2}-\\d{3}", "AB-123", true},
        // \i: a letter, underscore or colon, never a digit or a dot; \I:
        // exactly the non-word characters and the digits.
        {"\\i\\c*", "a1", true}, {"\\i\\c*", "1a", false}, {"\\i", ":", true}, {"\\i", "_", true},
        {"\\i", ".", false}, {"\\I", "7", true}, {"\\I", " ", true}, {"\\I", "x", false},
        // \c: word characters plus '.', '-' and ':'; \C: anything but those.
        {"\\c+", "a.b-c:d_9", true}, {"\\c", " ", false}, {"\\C", " ", true}, {"\\C", "-", false},
        {"\\C", ":", false},
        // [\c] becomes [(\w|\.|-|:)]: a class that also holds the
        // parentheses and the bar of the replacement.
        {"[\\c]", "(", true}, {"[\\c]", "|", true}, {"[\\c]", "a", true},
        // An escaped backslash is kept: a\\b is not a\ and \b, and \\i is
        // a backslash and the letter i.
        {"a\\\\b", "a\\b", true}, {"a\\\\b", "ab", false}, {"\\\\i", "\\i", true}, {"\\\\i", "a", false},
        {"\\\\\\i", "\\x", true},
        // Byte 1 in a pattern becomes an escaped backslash.
        {"a\x01", "a\\", true}, {"a\x01", "a\x01", false},
        // The whole value must match from the start, and the first
        // alternative that matches a prefix wins.
        {"a|ab", "ab", false}, {"ab|a", "ab", true}, {"a|ab", "a", true}, {"a", "ab", false}, {"b", "ab", false},
        {"\\d", "x1", false}, {"", "", true}, {"", "a", false}, {"a*", "", true},
        // The subject ends at its first zero byte.
        {"a", std::string("a\0b", 3), true}, {"a.b", std::string("a\0b", 3), false},
        {"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)(l)", "abcdefghijkl", true},
        {"((a)|(b))+", "abba", true},
    });
}

TEST(RegExMatch, NonAsciiByCodePoint)
{
    REQUIRE_UTF8_LOCALE(locale);
    ExpectMatches({
        {"\\p{IsBasicLatin}*", "abc\x7f", true},
        {"\\p{IsBasicLatin}", "\xC3\xA9", false},        // U+00E9
        {"\\p{IsLatin-1Supplement}", "\xC3\xA9", true},  // U+00E9
        {"\\p{IsLatin-1Supplement}", "e", false},
        {"\\p{IsLatinExtended-A}", "\xC4\x80", true},    // U+0100
        {"\\p{IsLatinExtended-A}", "\xC5\xBF", true},    // U+017F
        {"\\p{IsLatinExtended-A}", "\xC6\x80", false},   // U+0180
        {".", "\xC3\xA9", true}, {"..", "\xC3\xA9", false}, {"caf\xC3\xA9", "caf\xC3\xA9", true},
    });
}

using RegExDeathTest = ::testing::Test;

TEST_F(RegExDeathTest, RejectedPatternEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(TestRegEx("(", "x"), ::testing::KilledBySignal(SIGABRT), "");
    // Only the Latin blocks are translated; other block names reach the
    // engine as they are, and it does not know them.
    EXPECT_EXIT(TestRegEx("\\p{IsGreek}", "x"), ::testing::KilledBySignal(SIGABRT), "");
    // The engine reads at most three octal digits, so the upper end of the
    // IsLatinExtended-B range reads as \111 then '7': the range is out of
    // order and the pattern is refused.
    EXPECT_EXIT(TestRegEx("\\p{IsLatinExtended-B}", "x"), ::testing::KilledBySignal(SIGABRT), "");
}
