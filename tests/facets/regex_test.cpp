#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "ScopedCType.h"

using namespace NxXmlLib9;

TEST(RegExMatch, PerlEscapesPassThrough)
{
    EXPECT_TRUE(TestRegEx("\\d+", "123"));
    EXPECT_FALSE(TestRegEx("\\d+", "123a"));
    EXPECT_TRUE(TestRegEx("[A-Z]{2}-\\d{3}", "AB-123"));
}

TEST(RegExMatch, NameStartAndNameCharEscapes)
{
    EXPECT_TRUE(TestRegEx("\\i\\c*", "a1"));
    EXPECT_FALSE(TestRegEx("\\i\\c*", "1a"));
    // \i: a letter, underscore or colon, never a digit or a dot.
    EXPECT_TRUE(TestRegEx("\\i", ":"));
    EXPECT_TRUE(TestRegEx("\\i", "_"));
    EXPECT_FALSE(TestRegEx("\\i", "."));
    // \I: exactly the non-word characters and the digits.
    EXPECT_TRUE(TestRegEx("\\I", "7"));
    EXPECT_TRUE(TestRegEx("\\I", " "));
    EXPECT_FALSE(TestRegEx("\\I", "x"));
    // \c: word characters plus '.', '-' and ':'.
    EXPECT_TRUE(TestRegEx("\\c+", "a.b-c:d_9"));
    EXPECT_FALSE(TestRegEx("\\c", " "));
    // \C: anything but those.
    EXPECT_TRUE(TestRegEx("\\C", " "));
    EXPECT_FALSE(TestRegEx("\\C", "-"));
    EXPECT_FALSE(TestRegEx("\\C", ":"));
}

TEST(RegExMatch, RewritesArePlainTextEvenInsideAClass)
{
    // [\c] becomes [(\w|\.|-|:)]: a class that also holds the parentheses
    // and the bar of the replacement.
    EXPECT_TRUE(TestRegEx("[\\c]", "("));
    EXPECT_TRUE(TestRegEx("[\\c]", "|"));
    EXPECT_TRUE(TestRegEx("[\\c]", "a"));
}

TEST(RegExMatch, EscapedBackslashIsKept)
{
    // a\\b: an escaped backslash between two letters, not a\ and \b.
    EXPECT_TRUE(TestRegEx("a\\\\b", "a\\b"));
    EXPECT_FALSE(TestRegEx("a\\\\b", "ab"));
    // \\i stays a backslash and the letter i; it is not a name-start escape.
    EXPECT_TRUE(TestRegEx("\\\\i", "\\i"));
    EXPECT_FALSE(TestRegEx("\\\\i", "a"));
    EXPECT_TRUE(TestRegEx("\\\\\\i", "\\x"));
}

TEST(RegExMatch, ByteOneInAPatternBecomesAnEscapedBackslash)
{
    EXPECT_TRUE(TestRegEx("a\x01", "a\\"));
    EXPECT_FALSE(TestRegEx("a\x01", "a\x01"));
}

TEST(RegExMatch, LatinBlocksByCodePoint)
{
    REQUIRE_UTF8_LOCALE(locale);
    EXPECT_TRUE(TestRegEx("\\p{IsBasicLatin}*", "abc\x7f"));
    EXPECT_FALSE(TestRegEx("\\p{IsBasicLatin}", "\xC3\xA9"));                  // U+00E9
    EXPECT_TRUE(TestRegEx("\\p{IsLatin-1Supplement}", "\xC3\xA9"));            // U+00E9
    EXPECT_FALSE(TestRegEx("\\p{IsLatin-1Supplement}", "e"));
    EXPECT_TRUE(TestRegEx("\\p{IsLatinExtended-A}", "\xC4\x80"));              // U+0100
    EXPECT_TRUE(TestRegEx("\\p{IsLatinExtended-A}", "\xC5\xBF"));              // U+017F
    EXPECT_FALSE(TestRegEx("\\p{IsLatinExtended-A}", "\xC6\x80"));             // U+0180
}

TEST(RegExMatch, NonAsciiValueMatchesByCodePoint)
{
    REQUIRE_UTF8_LOCALE(locale);
    EXPECT_TRUE(TestRegEx(".", "\xC3\xA9"));
    EXPECT_FALSE(TestRegEx("..", "\xC3\xA9"));
    EXPECT_TRUE(TestRegEx("caf\xC3\xA9", "caf\xC3\xA9"));
}

TEST(RegExAnchoring, FirstAlternativeThatMatchesAPrefixWins)
{
    EXPECT_FALSE(TestRegEx("a|ab", "ab"));
    EXPECT_TRUE(TestRegEx("ab|a", "ab"));
    EXPECT_TRUE(TestRegEx("a|ab", "a"));
}

TEST(RegExAnchoring, WholeValueMustMatchFromTheStart)
{
    EXPECT_FALSE(TestRegEx("a", "ab"));
    EXPECT_FALSE(TestRegEx("b", "ab"));
    EXPECT_FALSE(TestRegEx("\\d", "x1"));
    EXPECT_TRUE(TestRegEx("", ""));
    EXPECT_FALSE(TestRegEx("", "a"));
    EXPECT_TRUE(TestRegEx("a*", ""));
}

TEST(RegExAnchoring, SubjectEndsAtTheFirstZeroByte)
{
    EXPECT_TRUE(TestRegEx("a", std::string("a\0b", 3)));
    EXPECT_FALSE(TestRegEx("a.b", std::string("a\0b", 3)));
}

TEST(RegExMatch, ManyCapturingGroups)
{
    EXPECT_TRUE(TestRegEx("(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)(k)(l)", "abcdefghijkl"));
    EXPECT_TRUE(TestRegEx("((a)|(b))+", "abba"));
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
