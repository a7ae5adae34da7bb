#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/ScopedCType.h"
#include "../values/Outcome.h"
#include "fi_writer_support.h"

using namespace NxXmlLib9;
using fi_writer_test::SpacedHex;
using fi_writer_test::Written;
using fi_writer_test::WrittenBeforeFailure;

namespace {

using Encoding = CFastInfosetContext::EncodedCharacterString;
using Kind = CFastInfosetContext::EncodingKind;

void (CFastInfosetWriter::*const kIntegers[])(unsigned char, unsigned long) = {
    &CFastInfosetWriter::Integer1To2pw20Bit2, &CFastInfosetWriter::Integer1To2pw20Bit3,
    &CFastInfosetWriter::Integer1To2pw20Bit4, &CFastInfosetWriter::Integer0To2pw20Bit2};
enum { Bit2, Bit3, Bit4, ZeroBit2 };

void (CFastInfosetWriter::*const kOctetStrings[])(unsigned char, unsigned char*, unsigned long) = {
    &CFastInfosetWriter::NonEmptyOctetStringBit5, &CFastInfosetWriter::NonEmptyOctetStringBit7};
enum { Octets5, Octets7, Utf8Bit2 };

CFastInfosetContext ContextWith(ItemType item, Kind kind, unsigned long index)
{
    CFastInfosetContext context;
    context.SetEncoding(item, Encoding{kind, index});
    return context;
}

// The bytes of one attribute value (encoded string at bit 3) and one
// character chunk (at bit 5) after a root head of "38 F0 3C 00 61".
std::string AttributeValue(const CFastInfosetContext& context, const std::string& text, ItemType item)
{
    return Written(context, [&](CFastInfosetWriter& w) {
        w.WriteStartElement("a", "");
        w.WriteAttributeString("b", "", text, item);
    }).substr(std::string("78 F0 3C 00 61 78 00 62 ").size());
}

std::string Chunk(const CFastInfosetContext& context, const std::string& text, ItemType item)
{
    return Written(context, [&](CFastInfosetWriter& w) {
        w.WriteStartElement("a", "");
        w.WriteString(text, item);
    }).substr(std::string("38 F0 3C 00 61 ").size());
}

} // namespace

TEST(FastInfosetWriterEncoders, IntegerBoundaries)
{
    struct Case {
        int encoder;
        unsigned char flags;
        unsigned long value;
        const char* bytes;
    };
    const Case cases[] = {
        {Bit2, 0, 1, "00"}, {Bit2, 0x80, 64, "BF"}, {Bit2, 0, 65, "40 00"}, {Bit2, 0, 8256, "5F FF"},
        {Bit2, 0x80, 8257, "E0 00 00"}, {Bit2, 0, 1048576, "6F DF BF"},
        {Bit3, 0, 1, "00"}, {Bit3, 0x40, 32, "5F"}, {Bit3, 0, 33, "20 00"}, {Bit3, 0, 2080, "27 FF"},
        {Bit3, 0, 2081, "28 00 00"}, {Bit3, 0, 526368, "2F FF FF"},
        // The last form subtracts one less than its first value.
        {Bit3, 0, 526369, "30 00 00 01"}, {Bit3, 0x40, 1048576, "70 07 F7 E0"},
        {Bit4, 0xA0, 1, "A0"}, {Bit4, 0, 16, "0F"}, {Bit4, 0, 17, "10 00"}, {Bit4, 0, 1040, "13 FF"},
        {Bit4, 0, 1041, "14 00 00"}, {Bit4, 0, 263184, "17 FF FF"}, {Bit4, 0xA0, 263185, "B8 00 00 00"},
        {Bit4, 0, 1048576, "18 0B FB EF"},
        {ZeroBit2, 0x80, 0, "FF"}, {ZeroBit2, 0x80, 1, "80"}, {ZeroBit2, 0, 65, "40 00"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.bytes, Written([&](CFastInfosetWriter& w) { (w.*kIntegers[c.encoder])(c.flags, c.value); }))
            << c.encoder << " " << c.value;
}

TEST(FastInfosetWriterEncoders, LengthBoundaries)
{
    struct Case {
        int encoder;
        unsigned char flags;
        unsigned long length;
        const char* head;
    };
    const Case cases[] = {
        {Octets5, 0x40, 1, "40"}, {Octets5, 0, 8, "07"}, {Octets5, 0, 9, "08 00"}, {Octets5, 0x30, 264, "38 FF"},
        {Octets5, 0, 265, "0C 00 00 00 00"}, {Octets5, 0, 70000, "0C 00 01 10 67"},
        {Octets7, 0x90, 1, "90"}, {Octets7, 0, 2, "01"}, {Octets7, 0, 3, "02 00"}, {Octets7, 0, 258, "02 FF"},
        {Octets7, 0x9C, 259, "9F 00 00 00 00"},
        {Utf8Bit2, 0, 1, "00"}, {Utf8Bit2, 0, 64, "3F"}, {Utf8Bit2, 0, 65, "40 00"}, {Utf8Bit2, 0, 320, "40 FF"},
        {Utf8Bit2, 0x80, 321, "E0 00 00 00 00"},
    };
    for (const Case& c : cases) {
        std::string text(c.length, 'z');
        const std::string bytes = Written([&](CFastInfosetWriter& w) {
            if (c.encoder == Utf8Bit2)
                w.NonEmptyOctetUTF8StringBit2(c.flags, text);
            else
                (w.*kOctetStrings[c.encoder])(c.flags, reinterpret_cast<unsigned char*>(&text[0]), c.length);
        });
        const std::string head = std::string(c.head) + " ";
        EXPECT_EQ(head, bytes.substr(0, head.size())) << c.encoder << " " << c.length;
        EXPECT_EQ(head.size() + 3 * c.length - 1, bytes.size()) << c.encoder << " " << c.length;
        EXPECT_EQ("7A", bytes.substr(bytes.size() - 2)) << c.encoder << " " << c.length;
    }
}

// Local text goes out as UTF-8, and its length is that of the bytes.
TEST(FastInfosetWriterEncoders, LocalTextIsConverted)
{
    REQUIRE_UTF8_LOCALE(utf8);
    EXPECT_EQ("01 C3 A9",
              Written([](CFastInfosetWriter& w) { w.NonEmptyOctetUTF8StringBit2(0, std::string("\xC3\xA9")); }));
    EXPECT_EQ("91 C3 A9", Written([](CFastInfosetWriter& w) { w.EncodedCharacterStringBit5(0x90, "\xC3\xA9", ItemTypeString); }));
}

TEST(FastInfosetWriterEncoders, TableLimitsOfValuesAndChunks)
{
    const CFastInfosetContext context;
    const ItemType S = ItemTypeString;
    auto repeated = [&](bool attribute, const std::string& text) {
        return Written(context, [&](CFastInfosetWriter& w) {
            for (int i = 0; i < 2; ++i) {
                if (attribute)
                    w.NonIdentifyingStringOrIndexBit1(text, w.GetVocabulary().GetAttributeValuesMap(), 6, S);
                else
                    w.NonIdentifyingStringOrIndexBit3(0x80, text, w.GetVocabulary().GetCharacterChunksMap(), 6, S);
            }
        });
    };
    EXPECT_EQ("44 61 62 63 64 65 80", repeated(true, "abcde"));
    EXPECT_EQ("05 61 62 63 64 65 66 05 61 62 63 64 65 66", repeated(true, "abcdef"));
    EXPECT_EQ("FF FF", repeated(true, ""));
    EXPECT_EQ("92 02 61 62 63 64 65 A0", repeated(false, "abcde"));
    EXPECT_EQ("82 03 61 62 63 64 65 66 82 03 61 62 63 64 65 66", repeated(false, "abcdef"));

    // The table keys on the text, whatever the item type.
    CFastInfosetContext typed = ContextWith(ItemTypeI4, CFastInfosetContext::EncodingAlgorithm, 4);
    EXPECT_EQ("90 37 A0", Written(typed, [](CFastInfosetWriter& w) {
                  auto& map = w.GetVocabulary().GetCharacterChunksMap();
                  w.NonIdentifyingStringOrIndexBit3(0x80, "7", map, 6, ItemTypeString);
                  w.NonIdentifyingStringOrIndexBit3(0x80, "7", map, 6, ItemTypeI4);
              }));
}

TEST(FastInfosetWriterEncoders, EncodingsOfItemTypes)
{
    using K = CFastInfosetContext;
    struct Case {
        ItemType item;
        Kind kind;
        unsigned long index;
        const char* text;
        const char* attribute;
        const char* chunk;
    };
    const Case cases[] = {
        {ItemTypeString, K::EncodingDefault, 0, "abc", "42 61 62 63", "92 00 61 62 63"},
        {ItemTypeDecimal, K::EncodingRestrictedAlphabet, 1, "1.5", "60 01 1C 5F", "98 01 1C 5F"},
        {ItemTypeDate, K::EncodingRestrictedAlphabet, 2, "2024-01-02", "20 14 20 24 A0 1A 02",
         "88 06 02 20 24 A0 1A 02"},
        {ItemTypeI4, K::EncodingAlgorithm, 4, "42", "70 33 00 00 00 2A", "9C 0E 01 00 00 00 2A"},
        {ItemTypeI2, K::EncodingAlgorithm, 3, "-2", "70 21 FF FE", "9C 09 FF FE"},
        {ItemTypeBoolean, K::EncodingAlgorithm, 6, "true", "70 50 38", "9C 14 38"},
        {ItemTypeR8, K::EncodingAlgorithm, 8, "1.5", "70 77 3F F8 00 00 00 00 00 00",
         "9C 1E 05 3F F8 00 00 00 00 00 00"},
        // The cdata algorithm: the octets of the default, with a longer head.
        {ItemTypeString, K::EncodingAlgorithm, 10, "abc", "70 92 61 62 63", "9C 26 00 61 62 63"},
    };
    for (const Case& c : cases) {
        const CFastInfosetContext context = ContextWith(c.item, c.kind, c.index);
        EXPECT_EQ(c.attribute, AttributeValue(context, c.text, c.item)) << c.text;
        EXPECT_EQ(c.chunk, Chunk(context, c.text, c.item)) << c.text;
    }

    CFastInfosetContext suggested;
    suggested.SetSuggestedValues();
    EXPECT_EQ("70 33 00 00 00 2A", AttributeValue(suggested, "42", ItemTypeI4));
    EXPECT_EQ("20 14 20 24 A0 1A 02", AttributeValue(suggested, "2024-01-02", ItemTypeDate));
    EXPECT_EQ("60 01 1C 5F", AttributeValue(suggested, "1.5", ItemTypeDecimal));
    EXPECT_EQ("42 31 2E 35", AttributeValue(suggested, "1.5", ItemTypeString));
}

TEST(FastInfosetWriterEncoders, RestrictedAlphabetPacking)
{
    struct Case {
        unsigned long alphabet;
        const char* text;
        const char* packed;
    };
    const Case cases[] = {
        {1, "1.5", "1C 5F"}, {1, "7", "7F"}, {1, "-12", "A1 2F"}, {1, "1e 3", "1D E3"}, {1, "", ""},
        {2, "12:30Z", "12 B3 0D"}, {2, "T", "CF"},
    };
    CBinaryStream stream;
    CFastInfosetContext context;
    CFastInfosetWriter writer(context, stream);
    for (const Case& c : cases)
        EXPECT_EQ(c.packed, SpacedHex(writer.AppendRestrictedAlphabetString(c.alphabet, c.text))) << c.text;
    EXPECT_EQ(0u, stream.GetBinaryStream().GetLength());

    for (const char* text : {"1x", "+"})
        EXPECT_EQ("Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.",
                  Outcome([&] { writer.AppendRestrictedAlphabetString(text[0] == '+' ? 2 : 1, text); }));
    for (unsigned long alphabet : {0ul, 3ul})
        EXPECT_EQ("Failed to write FastInfoset. Invalid Restricted Alphabet. Alphabet must contain between 2 "
                  "and 2^20 characters.",
                  Outcome([&] { writer.AppendRestrictedAlphabetString(alphabet, "1"); }));
}

// A failure leaves what was written before it: for alphabets and algorithms
// the octet with the table number goes out before the value is encoded.
TEST(FastInfosetWriterEncoders, FailuresKeepTheOctetsBeforeThem)
{
    using K = CFastInfosetContext;
    const std::string prefix = "Failed to write FastInfoset. ";
    struct Case {
        Kind kind;
        unsigned long index;
        const char* text;
        std::string message;
        const char* bit3Left;
        const char* bit5Left;
    };
    const Case cases[] = {
        {K::EncodingRestrictedAlphabet, 3, "1", prefix + "Invalid Restricted Alphabet value [3]", "", ""},
        {K::EncodingRestrictedAlphabet, 0, "1", prefix + "Invalid Restricted Alphabet value [0]", "", ""},
        {K::EncodingAlgorithm, 11, "1", prefix + "Invalid Encoding Algorithm value [11]", "", ""},
        {K::EncodingAlgorithm, 0, "1", prefix + "Invalid Encoding Algorithm value [0]", "", ""},
        {static_cast<Kind>(3), 1, "1", "", "", ""},
        {K::EncodingRestrictedAlphabet, 1, "1x",
         prefix + "Invalid character not found for Restricted Alphabet.", "60", "18"},
        {K::EncodingRestrictedAlphabet, 2, "P1D",
         prefix + "Invalid character not found for Restricted Alphabet.", "60", "18"},
        {K::EncodingAlgorithm, 6, "maybe", "", "70", "1C"},
    };
    for (const Case& c : cases) {
        const CFastInfosetContext context = ContextWith(ItemTypeDecimal, c.kind, c.index);
        const bool unknownKind = c.kind == 3;
        for (bool atBit5 : {false, true}) {
            std::string message = c.message;
            if (unknownKind)
                message = prefix + (atBit5 ? "Unknown encoding in EncodedCharacterStringBit7."
                                           : "Unknown encoding in EncodedCharacterStringBit5.");
            CBinaryStream stream;
            CFastInfosetWriter writer(context, stream);
            const std::string outcome = Outcome([&] {
                if (atBit5)
                    writer.NonIdentifyingStringOrIndexBit3(0, c.text, writer.GetVocabulary().GetCharacterChunksMap(),
                                                           6, ItemTypeDecimal);
                else
                    writer.NonIdentifyingStringOrIndexBit1(c.text, writer.GetVocabulary().GetAttributeValuesMap(),
                                                           6, ItemTypeDecimal);
            });
            EXPECT_NE("", outcome) << c.text;
            if (!message.empty()) {
                EXPECT_EQ(message, outcome);
            }
            const char* left = atBit5 ? c.bit5Left : c.bit3Left;
            EXPECT_EQ(left, SpacedHex(stream.GetBinaryStream())) << c.text << " " << atBit5;
            EXPECT_TRUE(writer.GetVocabulary().GetAttributeValuesMap().empty());
            EXPECT_TRUE(writer.GetVocabulary().GetCharacterChunksMap().empty());
        }
    }
}
