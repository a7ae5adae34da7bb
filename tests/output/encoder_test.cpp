#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include "ScopedCType.h"

#include <clocale>
#include <cstring>
#include <stdexcept>
#include <string>

using namespace NxXmlLib9;

namespace {

#define REQUIRE_LOCALE(guard)                                   \
    if (!(guard).Ok())                                          \
    GTEST_SKIP() << "locale not available"

// Restores the process-wide 7-bit switch.
struct ScopedAsciiOnly {
    ScopedAsciiOnly() { ASCIIOnly(true); }
    ~ScopedAsciiOnly() { ASCIIOnly(false); }
};

std::string Bytes(const CBinaryData& data)
{
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

std::wstring Units(const CBinaryData& data)
{
    std::wstring text(data.GetLength() / sizeof(wchar_t), L'\0');
    std::memcpy(&text[0], data.GetData(), text.size() * sizeof(wchar_t));
    return text;
}

} // namespace

TEST(EncoderWideToUtf8, EncodesEveryLength)
{
    const CBinaryData utf8 = CEncoder::UnicodeToUtf8Binary(L"a\u00E9\u20AC\U0001F600");
    EXPECT_EQ(Bytes(utf8), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(Bytes(CEncoder::UnicodeToUtf8Binary(L"plain")), "plain");
}

TEST(EncoderWideToUtf8, SurrogateGivesEmptyOutput)
{
    const wchar_t text[] = {L'a', static_cast<wchar_t>(0xD800), L'b', 0};
    const CBinaryData utf8 = CEncoder::UnicodeToUtf8Binary(text);
    EXPECT_EQ(utf8.GetLength(), 0u);
    EXPECT_EQ(CEncoder::UnicodeToUtf8Binary(L"").GetData(), nullptr);
}

TEST(EncoderLocalToWide, ThreeAsciiLettersGiveTwelveBytes)
{
    const CBinaryData wide = CEncoder::LocalCodePageToUnicodeBinary("abc");
    EXPECT_EQ(wide.GetLength(), 12u);
    EXPECT_EQ(Units(wide), L"abc");
}

TEST(EncoderLocalToUtf8, DefaultLocaleTurnsHighBytesIntoQuestionMarks)
{
    ScopedCType locale("C");
    REQUIRE_LOCALE(locale);
    EXPECT_EQ(Bytes(CEncoder::LocalCodePageToUtf8Binary("a\xE9z")), "a?z");
    EXPECT_EQ(Units(CEncoder::LocalCodePageToUnicodeBinary("a\xE9z")), L"a?z");
}

TEST(EncoderLocalToUtf8, Utf8LocaleKeepsTextAndMarksInvalidBytes)
{
    ScopedCType locale("C.UTF-8");
    REQUIRE_LOCALE(locale);
    EXPECT_EQ(Bytes(CEncoder::LocalCodePageToUtf8Binary("h\xC3\xA9\xE2\x82\xAC")), "h\xC3\xA9\xE2\x82\xAC");
    // An invalid byte becomes '?' at its place and the walk goes on.
    EXPECT_EQ(Bytes(CEncoder::LocalCodePageToUtf8Binary("a\xFF" "b\xC3\xA9")), "a?b\xC3\xA9");
    EXPECT_EQ(Units(CEncoder::LocalCodePageToUnicodeBinary("a\xFF\xC3\xA9")), L"a?\u00E9");
}

TEST(EncoderLocalToUtf8, SequenceCutOffAtTheEndBecomesOneQuestionMark)
{
    ScopedCType locale("C.UTF-8");
    REQUIRE_LOCALE(locale);
    EXPECT_EQ(Bytes(CEncoder::LocalCodePageToUtf8Binary("ab\xE2\x82")), "ab?");
    EXPECT_EQ(Units(CEncoder::LocalCodePageToUnicodeBinary("ab\xF0\x9F\x98")), L"ab?");
}

TEST(EncoderAsciiOnly, SkipsTheConversions)
{
    ScopedCType locale("C");
    ScopedAsciiOnly asciiOnly;
    EXPECT_EQ(Bytes(CEncoder::LocalCodePageToUtf8Binary("a\xE9z")), "a\xE9z");
    unsigned char raw[] = {'x', 0, 0xC3, 0xA9};
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage(raw, 4), std::string("x\0\xC3\xA9", 4));
    // The wide form does not look at the switch.
    EXPECT_EQ(Units(CEncoder::LocalCodePageToUnicodeBinary("a\xE9z")), L"a?z");
}

TEST(EncoderUtf8ToLocal, Utf8LocaleRoundTrips)
{
    ScopedCType locale("C.UTF-8");
    REQUIRE_LOCALE(locale);
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage("gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80"), "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80");
}

TEST(EncoderUtf8ToLocal, DefaultLocaleShowsQuestionMarks)
{
    ScopedCType locale("C");
    REQUIRE_LOCALE(locale);
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage("a\xC3\xA9z\xE2\x82\xAC"), "a?z?");
}

TEST(EncoderUtf8ToLocal, BadSequenceInTheMiddleKeepsTheTextBeforeIt)
{
    ScopedCType locale("C.UTF-8");
    REQUIRE_LOCALE(locale);
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage("ab\xC3\xA9" "c\xFF" "def"), "ab\xC3\xA9" "c");
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage("ab\xE2\x82"), "ab");
}

TEST(EncoderUtf8ToLocal, StopsAtAZeroUnit)
{
    unsigned char raw[] = {'a', 'b', 0, 'c'};
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage(raw, 4), "ab");
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage(raw, 0), "");
}

TEST(EncoderUtf8ToLocal, ScratchBuffersOfAnySizeGiveTheSameText)
{
    ScopedCType locale("C.UTF-8");
    REQUIRE_LOCALE(locale);
    const char* text = "caf\xC3\xA9 \xE2\x82\xAC 12";
    const std::string expected = CEncoder::Utf8ToLocalCodePage(text);
    wchar_t wide[64];
    char narrow[64];
    for (unsigned long wideSize : {0ul, 4ul, 64ul}) {
        for (unsigned long narrowSize : {0ul, 5ul, 15ul, 16ul, 64ul}) {
            std::memset(narrow, 'Z', sizeof narrow);
            EXPECT_EQ(CEncoder::Utf8ToLocalCodePage(text, wide, wideSize, narrow, narrowSize), expected)
                << wideSize << " " << narrowSize;
            // Nothing is written past the scratch the caller declared.
            if (narrowSize < sizeof narrow) {
                EXPECT_EQ(narrow[narrowSize], 'Z');
            }
        }
    }
}

TEST(EncoderUtf16ToLocal, AlwaysFailsWithALogicError)
{
    unsigned char raw[] = {'a', 0};
    EXPECT_THROW(CEncoder::Utf16ToLocalCodePage(raw, 2), std::logic_error);
}

TEST(EncoderWideToLocal, FollowsTheLocale)
{
    {
        ScopedCType locale("C");
        REQUIRE_LOCALE(locale);
        EXPECT_EQ(UnicodeToMultiByte(L"a\u00E9b"), "a?b");
    }
    {
        ScopedCType locale("C.UTF-8");
        REQUIRE_LOCALE(locale);
        EXPECT_EQ(UnicodeToMultiByte(L"a\u00E9\U0001F600"), "a\xC3\xA9\xF0\x9F\x98\x80");
        // A unit the locale refuses (here a surrogate) becomes '?', and the
        // text goes on after it.
        const wchar_t bad[] = {L'x', static_cast<wchar_t>(0xD800), L'y', 0};
        EXPECT_EQ(UnicodeToMultiByte(bad), "x?y");
    }
    EXPECT_EQ(UnicodeToMultiByte(L""), "");
    EXPECT_EQ(UnicodeToMultiByte(nullptr), "");
}
