#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace NxXmlLib9;

namespace {

std::string Utf8Of(const std::vector<UTF32>& points, size_t capacity = 64)
{
    std::vector<UTF8> out(capacity);
    const unsigned long n = ConvertUTF32toUTF8(points.data(), points.data() + points.size(), out.data(),
                                               out.data() + out.size());
    return std::string(out.begin(), out.begin() + static_cast<long>(n));
}

unsigned long MeasureUtf8Of(const std::vector<UTF32>& points)
{
    return ConvertUTF32toUTF8(points.data(), points.data() + points.size(), nullptr, nullptr);
}

std::vector<UTF32> PointsOf(const std::string& utf8, size_t capacity = 64)
{
    std::vector<UTF32> out(capacity);
    const UTF8* in = reinterpret_cast<const UTF8*>(utf8.data());
    const unsigned long n = ConvertUTF8toUTF32(in, in + utf8.size(), out.data(), out.data() + out.size());
    out.resize(n);
    return out;
}

unsigned long MeasurePointsOf(const std::string& utf8)
{
    const UTF8* in = reinterpret_cast<const UTF8*>(utf8.data());
    return ConvertUTF8toUTF32(in, in + utf8.size(), nullptr, nullptr);
}

} // namespace

// Each length is encoded and measured. Beyond Unicode becomes the
// replacement character; a surrogate stops the filling and zeroes the
// measure; the filling stops when the next character does not fit.
TEST(ConvertUtf, Utf32ToUtf8)
{
    const std::vector<UTF32> points = {0x41, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF};
    EXPECT_EQ(Utf8Of(points), "A\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    EXPECT_EQ(MeasureUtf8Of(points), 17u);
    EXPECT_EQ(MeasureUtf8Of({}), 0u);
    EXPECT_EQ(Utf8Of({0x41, 0x110000, 0x42}), "A\xEF\xBF\xBD" "B");
    EXPECT_EQ(MeasureUtf8Of({0x41, 0xFFFFFFFF}), 4u);
    EXPECT_EQ(Utf8Of({0x41, 0x42, 0xDC00, 0x43}), "AB");
    EXPECT_EQ(MeasureUtf8Of({0x41, 0x42, 0xD800, 0x43}), 0u);
    EXPECT_EQ(Utf8Of({0x41, 0x20AC, 0x42}, 3), "A");
    EXPECT_EQ(Utf8Of({0x41, 0x20AC, 0x42}, 4), "A\xE2\x82\xAC");
}

// Bad sequences (a stray trailing byte, an overlong form, an encoded
// surrogate, a value above 0x10FFFF, a lead beyond 0xF4, a sequence cut off
// by the end) stop the filling and zero the measure.
TEST(ConvertUtf, Utf8ToUtf32)
{
    const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_EQ(PointsOf(text), (std::vector<UTF32>{0x61, 0xE9, 0x20AC, 0x1F600}));
    EXPECT_EQ(MeasurePointsOf(text), 4u);
    EXPECT_EQ(MeasurePointsOf(""), 0u);
    EXPECT_EQ(PointsOf("abc", 2), (std::vector<UTF32>{0x61, 0x62}));
    for (const std::string bad : {"\x80", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
                                  "\xE2\x82"}) {
        EXPECT_EQ(PointsOf("ab" + bad + "c"), (std::vector<UTF32>{0x61, 0x62})) << bad.size();
        EXPECT_EQ(MeasurePointsOf("ab" + bad + "c"), 0u) << bad.size();
    }
}

TEST(ConvertUtf32ToUtf16, PairsAboveTheBasicPlane)
{
    const UTF32 points[] = {0x41, 0x1F600};
    UTF16 out[4] = {};
    EXPECT_EQ(ConvertUTF32toUTF16(points, points + 2, out, out + 4), 3u);
    EXPECT_EQ(out[1], 0xD83D);
    EXPECT_EQ(out[2], 0xDE00);
    EXPECT_EQ(ConvertUTF32toUTF16(points, points + 2, nullptr, nullptr), 3u);
    // Half a pair is never written.
    EXPECT_EQ(ConvertUTF32toUTF16(points, points + 2, out, out + 2), 1u);
}

TEST(ConvertUtf32ToUtf16, SurrogatesAndBeyondUnicodeAreBad)
{
    UTF16 out[4];
    const UTF32 beyond[] = {0x41, 0x110000};
    const UTF32 surrogate[] = {0x41, 0xDBFF};
    EXPECT_EQ(ConvertUTF32toUTF16(beyond, beyond + 2, out, out + 4), 1u);
    EXPECT_EQ(ConvertUTF32toUTF16(beyond, beyond + 2, nullptr, nullptr), 0u);
    EXPECT_EQ(ConvertUTF32toUTF16(surrogate, surrogate + 2, out, out + 4), 1u);
    EXPECT_EQ(ConvertUTF32toUTF16(surrogate, surrogate + 2, nullptr, nullptr), 0u);
}

TEST(ConvertUtf16ToUtf32, FillingReportsZeroButWritesTheUnits)
{
    const UTF16 units[] = {0x41, 0xD83D, 0xDE00};
    UTF32 out[4] = {};
    EXPECT_EQ(ConvertUTF16toUTF32(units, units + 3, out, out + 4), 0u);
    EXPECT_EQ(out[0], 0x41u);
    EXPECT_EQ(out[1], 0x1F600u);
    EXPECT_EQ(ConvertUTF16toUTF32(units, units + 3, nullptr, nullptr), 2u);
}

TEST(ConvertUtf16ToUtf32, UnpairedSurrogatesAreBad)
{
    const UTF16 loneLow[] = {0x41, 0xDC00};
    const UTF16 highThenLetter[] = {0x41, 0xD800, 0x42};
    const UTF16 highAtEnd[] = {0x41, 0xD800};
    EXPECT_EQ(ConvertUTF16toUTF32(loneLow, loneLow + 2, nullptr, nullptr), 0u);
    EXPECT_EQ(ConvertUTF16toUTF32(highThenLetter, highThenLetter + 3, nullptr, nullptr), 0u);
    EXPECT_EQ(ConvertUTF16toUTF32(highAtEnd, highAtEnd + 2, nullptr, nullptr), 0u);
    UTF8 out[8];
    EXPECT_EQ(ConvertUTF16toUTF8(highThenLetter, highThenLetter + 3, out, out + 8), 1u);
    EXPECT_EQ(ConvertUTF16toUTF8(loneLow, loneLow + 2, nullptr, nullptr), 0u);
}

TEST(ConvertUtf16AndUtf8, RoundTrip)
{
    const std::string text = "a\xC3\xA9\xF0\x9F\x98\x80";
    const UTF8* in = reinterpret_cast<const UTF8*>(text.data());
    UTF16 units[8];
    const unsigned long n = ConvertUTF8toUTF16(in, in + text.size(), units, units + 8);
    ASSERT_EQ(n, 4u);
    EXPECT_EQ(ConvertUTF8toUTF16(in, in + text.size(), nullptr, nullptr), 4u);
    UTF8 back[16];
    const unsigned long m = ConvertUTF16toUTF8(units, units + n, back, back + 16);
    EXPECT_EQ(std::string(back, back + m), text);
    const std::string bad = "ab\xF4\x90\x80\x80";
    const UTF8* badIn = reinterpret_cast<const UTF8*>(bad.data());
    EXPECT_EQ(ConvertUTF8toUTF16(badIn, badIn + bad.size(), units, units + 8), 2u);
}

// After 0xED and 0xF4 only the upper bound of the second byte is tested.
TEST(ConvertUtf, IsLegalUtf8Bounds)
{
    const struct {
        std::vector<unsigned char> bytes;
        bool legal;
    } cases[] = {
        {{0x41}, true}, {{0x80}, false}, {{0xC1, 0xBF}, false}, {{0xC2, 0x80}, true}, {{0xE0, 0x9F, 0x80}, false},
        {{0xE0, 0xA0, 0x80}, true}, {{0xED, 0xA0, 0x80}, false}, {{0xED, 0x9F, 0xBF}, true},
        {{0xF0, 0x8F, 0x80, 0x80}, false}, {{0xF4, 0x8F, 0xBF, 0xBF}, true}, {{0xF4, 0x90, 0x80, 0x80}, false},
        {{0xF5, 0x80, 0x80, 0x80}, false}, {{0xE2, 0x82, 0x7F}, false}, {{0xED, 0x41, 0x80}, true},
        {{0xF4, 0x00, 0x80, 0x80}, true}, {{0xF8, 0x88, 0x80, 0x80, 0x80}, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.legal, IsLegalUTF8(c.bytes.data(), static_cast<int>(c.bytes.size()))) << std::hex << +c.bytes[0];
    const unsigned char five[] = {0xF8, 0x88, 0x80, 0x80, 0x80};
    EXPECT_FALSE(IsLegalUTF8(five, 0));
}

TEST(ConvertUtf, IsLegalUtf8SequenceTakesTheLengthFromTheLead)
{
    const unsigned char euro[] = {0xE2, 0x82, 0xAC};
    EXPECT_TRUE(IsLegalUTF8Sequence(euro, euro + 3));
    EXPECT_FALSE(IsLegalUTF8Sequence(euro, euro + 2));
    EXPECT_FALSE(IsLegalUTF8Sequence(euro, euro));
}

TEST(ConvertUtf, WideHelpers)
{
    const wchar_t text[] = {L'a', 0x1F600, 0xD800};
    unsigned char utf8[8];
    EXPECT_EQ(UnicodeToUTF8(text, 2, nullptr, 0), 5u);
    EXPECT_EQ(UnicodeToUTF8(text, 3, nullptr, 0), 0u);
    EXPECT_EQ(UnicodeToUTF8(text, 3, utf8, 8), 5u);
    wchar_t back[4];
    EXPECT_EQ(UTF8ToUnicode(utf8, 5, back, 4), 2u);
    EXPECT_EQ(back[1], 0x1F600);

    // UTF-16 bytes in native order, at any alignment.
    unsigned char buffer[16];
    unsigned char* utf16 = buffer + 1;
    EXPECT_EQ(UnicodeToUTF16(text, 2, utf16, 3), 3u);
    UTF16 second;
    std::memcpy(&second, utf16 + 2, 2);
    EXPECT_EQ(second, 0xD83D);
    EXPECT_EQ(UTF16ToUnicode(utf16, 3, nullptr, 0), 2u);
    wchar_t wide[4] = {};
    EXPECT_EQ(UTF16ToUnicode(utf16, 3, wide, 4), 0u);
    EXPECT_EQ(wide[1], 0x1F600);
}

TEST(ConvertUtf, LargerThanOneByteTests)
{
    const wchar_t ascii[] = {L'a', 0x7F, static_cast<wchar_t>(-5)};
    const wchar_t latin[] = {L'a', 0x80};
    EXPECT_FALSE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(ascii, 3));
    EXPECT_TRUE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(latin, 2));
    EXPECT_FALSE(DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(latin, 1));
    unsigned char bytes[] = {'a', 0x7F, 0x80};
    EXPECT_FALSE(DoesUTF8StrContainAnyCharsLargerThanOneByte(bytes, 2));
    EXPECT_TRUE(DoesUTF8StrContainAnyCharsLargerThanOneByte(bytes, 3));
}
