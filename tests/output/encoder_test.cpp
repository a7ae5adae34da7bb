#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include "ScopedCType.h"

#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>

using namespace NxXmlLib9;

namespace {

// Restores the process-wide 7-bit switch.
struct ScopedAsciiOnly {
    ScopedAsciiOnly() { ASCIIOnly(true); }
    ~ScopedAsciiOnly() { ASCIIOnly(false); }
};

std::string Bytes(const CBinaryData& data)
{
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

// Wide units as UTF-8, so that a table can show them.
std::string Units(const CBinaryData& data)
{
    return Bytes(CEncoder::UnicodeToUtf8Binary(
        std::wstring(reinterpret_cast<const wchar_t*>(data.GetData()), data.GetLength() / sizeof(wchar_t)).c_str()));
}

std::string ToUtf8(const std::string& text) { return Bytes(CEncoder::LocalCodePageToUtf8Binary(text.c_str())); }
std::string ToWide(const std::string& text) { return Units(CEncoder::LocalCodePageToUnicodeBinary(text.c_str())); }
std::string ToLocal(const std::string& text) { return CEncoder::Utf8ToLocalCodePage(text.c_str()); }

struct EncoderCase {
    const char* locale;
    std::function<std::string(const std::string&)> convert;
    std::string input;
    std::string expected;
};

} // namespace

// What the local code page cannot show becomes '?': in the default locale
// every high byte; in UTF-8 an invalid byte at its place, the walk going
// on, or a sequence cut off at the end as one mark. From UTF-8 to local
// text, a bad sequence ends the text.
TEST(Encoder, ConversionsFollowTheLocale)
{
    const EncoderCase cases[] = {
        {"C", ToUtf8, "a\xE9z", "a?z"}, {"C", ToWide, "a\xE9z", "a?z"}, {"C", ToWide, "abc", "abc"},
        {"C", ToLocal, "a\xC3\xA9z\xE2\x82\xAC", "a?z?"},
        {"C.UTF-8", ToUtf8, "h\xC3\xA9\xE2\x82\xAC", "h\xC3\xA9\xE2\x82\xAC"},
        {"C.UTF-8", ToUtf8, "a\xFF" "b\xC3\xA9", "a?b\xC3\xA9"}, {"C.UTF-8", ToWide, "a\xFF\xC3\xA9", "a?\xC3\xA9"},
        {"C.UTF-8", ToUtf8, "ab\xE2\x82", "ab?"}, {"C.UTF-8", ToWide, "ab\xF0\x9F\x98", "ab?"},
        {"C.UTF-8", ToLocal, "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80", "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80"},
        {"C.UTF-8", ToLocal, "ab\xC3\xA9" "c\xFF" "def", "ab\xC3\xA9" "c"},
        {"C.UTF-8", ToLocal, "ab\xE2\x82", "ab"},
    };
    for (const EncoderCase& c : cases) {
        ScopedCType locale(c.locale);
        if (!locale.Ok())
            continue;
        EXPECT_EQ(c.expected, c.convert(c.input)) << c.locale << " [" << c.input << "]";
    }
    EXPECT_EQ(12u, CEncoder::LocalCodePageToUnicodeBinary("abc").GetLength());
}

TEST(Encoder, WideToUtf8)
{
    EXPECT_EQ(Bytes(CEncoder::UnicodeToUtf8Binary(L"a\u00E9\u20AC\U0001F600")),
              "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    // A surrogate gives empty output; so does empty input, with no buffer.
    const wchar_t text[] = {L'a', static_cast<wchar_t>(0xD800), L'b', 0};
    EXPECT_EQ(CEncoder::UnicodeToUtf8Binary(text).GetLength(), 0u);
    EXPECT_EQ(CEncoder::UnicodeToUtf8Binary(L"").GetData(), nullptr);
}

TEST(Encoder, AsciiOnlySkipsTheConversions)
{
    ScopedCType locale("C");
    ScopedAsciiOnly asciiOnly;
    EXPECT_EQ(ToUtf8("a\xE9z"), "a\xE9z");
    unsigned char raw[] = {'x', 0, 0xC3, 0xA9};
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage(raw, 4), std::string("x\0\xC3\xA9", 4));
    // The wide form does not look at the switch.
    EXPECT_EQ(ToWide("a\xE9z"), "a?z");
}

TEST(Encoder, Utf8ToLocalStopsAtAZeroUnitAndTakesScratchOfAnySize)
{
    unsigned char raw[] = {'a', 'b', 0, 'c'};
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage(raw, 4), "ab");
    EXPECT_EQ(CEncoder::Utf8ToLocalCodePage(raw, 0), "");
    REQUIRE_UTF8_LOCALE(locale);
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

TEST(Encoder, Utf16ToLocalAlwaysFailsWithALogicError)
{
    unsigned char raw[] = {'a', 0};
    EXPECT_THROW(CEncoder::Utf16ToLocalCodePage(raw, 2), std::logic_error);
}

// A unit the locale refuses (here a surrogate) becomes '?', and the text
// goes on after it.
TEST(Encoder, WideToLocalFollowsTheLocale)
{
    const wchar_t bad[] = {L'x', static_cast<wchar_t>(0xD800), L'y', 0};
    {
        ScopedCType locale("C");
        EXPECT_EQ(UnicodeToMultiByte(L"a\u00E9b"), "a?b");
    }
    {
        REQUIRE_UTF8_LOCALE(locale);
        EXPECT_EQ(UnicodeToMultiByte(L"a\u00E9\U0001F600"), "a\xC3\xA9\xF0\x9F\x98\x80");
        EXPECT_EQ(UnicodeToMultiByte(bad), "x?y");
    }
    EXPECT_EQ(UnicodeToMultiByte(L""), "");
    EXPECT_EQ(UnicodeToMultiByte(nullptr), "");
}
