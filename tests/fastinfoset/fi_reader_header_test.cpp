// Recognition of binary input, the optional parts ahead of the children, and
// the length and index forms of the primitive decoders.
#include <gtest/gtest.h>

#include <cstring>

#include "fi_reader_support.h"

using namespace NxXmlLib9;
using fi_reader_test::Bytes;
using fi_reader_test::kHead;
using fi_reader_test::Read;
using fi_reader_test::ReadBytes;

namespace {

const std::string kRoot = "3C 00 'a' FF";

bool IsTextParserFailure(const std::string& result)
{
    return result.find(" at line ") != std::string::npos && result.find("FastInfoset") == std::string::npos;
}

// The text's bytes, then those of the hexadecimal.
std::vector<unsigned char> After(const std::string& text, const std::string& hex)
{
    std::vector<unsigned char> bytes(text.begin(), text.end());
    const std::vector<unsigned char> rest = Bytes(hex);
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

} // namespace

TEST(FastInfosetReaderHeader, OnlyTheHeaderOfVersionOneIsTakenForBinary)
{
    // Four bytes are never enough, even the header itself: the text parser
    // gets them and fails.
    EXPECT_TRUE(IsTextParserFailure(Read("E0 00 00 01")));
    // Five are: the document then ends too early.
    EXPECT_EQ(Read("E0 00 00 01 00"), "!Failed to parse FastInfoset. Unexpected End of File.");
    EXPECT_TRUE(IsTextParserFailure(Read("E0 00 00 02 00 " + kRoot)));
    EXPECT_TRUE(IsTextParserFailure(Read("E0 01 00 01 00 " + kRoot)));
    EXPECT_EQ(Read("'<a>x</a>'"), "a\"x\"");
}

TEST(FastInfosetReaderHeader, EveryDeclarationOfTheListAheadOfTheHeader)
{
    for (const char* declaration : FI_DECLARATION_LIST) {
        SCOPED_TRACE(declaration);
        EXPECT_EQ(ReadBytes(After(declaration, kHead + kRoot)), "a");
        // The same declaration ahead of anything else is text.
        EXPECT_TRUE(IsTextParserFailure(ReadBytes(After(declaration, "'<a/>'"))));
    }
    // Matched to the byte: other quotes make it text.
    EXPECT_TRUE(IsTextParserFailure(ReadBytes(After("<?xml encoding=\"finf\"?>", kHead + kRoot))));
}

TEST(FastInfosetReaderHeader, OptionalPartsAreReadOver)
{
    const struct {
        const char* name;
        std::string parts;
        std::string tree;
    } cases[] = {
        {"standalone and version", "03 01 02 '1.0' ", "a"},
        {"character encoding scheme", "04 04 'UTF-8' ", "a"},
        {"notations", "10 C0 00 'n' C3 00 'm' 00 's' 00 'p' F0 ", "a"},
        {"unparsed entities", "08 D0 00 'e' 00 's' 00 'n' D1 00 'e' 00 's' 00 'p' 00 'n' F0 ", "a"},
        // The external vocabulary is what this library's writer puts there.
        {"an external vocabulary", "20 10 00 0A 'urn:x:vocab' ", "a"},
        // The bound of a table is read again after each item: one entry
        // reads right when an octet below 0x80 follows it, since that octet
        // is consumed as a second bound...
        {"a table of one entry", "20 02 00 00 00 'p' 00 ", "a"},
        // ...else the next item is taken for that bound,
        {"a table of one entry and nothing after it", "20 02 00 00 00 'p' ",
         "!Failed to parse FastInfoset. Unexpected End of File."},
        // and a populated table is misread: its second entry becomes a
        // document item.
        {"a table of two entries", "20 02 00 01 00 'p' 00 'q' 00 ",
         "!Failed to parse FastInfoset. Index out of range."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Read("E0 00 00 01 " + c.parts + kRoot), c.tree) << c.name;
}

// Names, attribute values and content of every length form: one length
// octet, one more octet, four more octets.
TEST(FastInfosetReaderHeader, EveryLengthForm)
{
    for (unsigned long length : {1UL, 2UL, 3UL, 8UL, 9UL, 64UL, 65UL, 258UL, 259UL, 264UL, 265UL, 320UL, 321UL,
                                 70000UL}) {
        SCOPED_TRACE(length);
        const std::string text(length, 'n');
        auto withLength = [](std::vector<unsigned char> head, unsigned long extra, int octets) {
            for (int i = octets - 1; i >= 0; --i)
                head.push_back(static_cast<unsigned char>(extra >> (8 * i)));
            return head;
        };
        // Bit 2 (names), bit 5 (attribute values), bit 7 (content).
        std::vector<unsigned char> name = length <= 64    ? withLength({static_cast<unsigned char>(length - 1)}, 0, 0)
                                          : length <= 320 ? withLength({0x40}, length - 65, 1)
                                                          : withLength({0x60}, length - 321, 4);
        std::vector<unsigned char> value = length <= 8     ? withLength({static_cast<unsigned char>(length - 1)}, 0, 0)
                                           : length <= 264 ? withLength({0x08}, length - 9, 1)
                                                           : withLength({0x0C}, length - 265, 4);
        std::vector<unsigned char> chunk = length <= 2     ? withLength({static_cast<unsigned char>(0x80 + length - 1)}, 0, 0)
                                           : length <= 258 ? withLength({0x82}, length - 3, 1)
                                                           : withLength({0x83}, length - 259, 4);
        std::vector<unsigned char> bytes = Bytes(kHead + "7C");
        bytes.insert(bytes.end(), name.begin(), name.end());
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.insert(bytes.end(), {0x78, 0x00, 'x'});
        bytes.insert(bytes.end(), value.begin(), value.end());
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.push_back(0xF0);
        bytes.insert(bytes.end(), chunk.begin(), chunk.end());
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.push_back(0xFF);
        CXmlDocument document;
        fi_reader_test::Load(document, bytes);
        const CXmlElement* root = document.GetDocumentElement();
        ASSERT_NE(root, nullptr);
        EXPECT_EQ(root->GetLocalName(), text);
        EXPECT_EQ(root->GetAttribute("x", ""), text);
        EXPECT_EQ(root->GetText(), text);
    }
}

// Indexes of every form into a generated vocabulary: element names (bit 3),
// attribute values (bit 2) and content (bit 4).
TEST(FastInfosetReaderHeader, EveryIndexFormIntoAGeneratedVocabulary)
{
    const struct {
        unsigned long index;
        std::string bytes;
    } elements[] = {{1, "00"},           {32, "1F"},          {33, "20 00"},       {2080, "27 FF"},
                    {2081, "28 00 00"}, {526368, "2F FF FF"}, {526369, "30 00 00 00"}},
      values[] = {{1, "80"}, {64, "BF"}, {65, "C0 00"}, {8256, "DF FF"}, {8257, "E0 00 00"}, {10000, "E0 06 CF"}},
      chunks[] = {{1, "A0"},          {16, "AF"},          {17, "B0 00"},       {1040, "B3 FF"},
                  {1041, "B4 00 00"}, {263184, "B7 FF FF"}, {263185, "B8 00 00 00"}};

    CXmlSerializationContext context;
    CFastInfosetContext& fi = context.GetFIContext();
    fi.SetUseGeneratedVocabulary(true);
    CFIVocabulary& vocabulary = fi.GetVocabulary();
    // Every element name is "filler" but those the table indexes, which are
    // named after their index; likewise the values and chunks.
    vocabulary.GetLocalNamesTable().push_back("filler");
    for (unsigned long i = 1; i <= 526370; ++i) {
        bool named = false;
        for (const auto& e : elements)
            named = named || e.index == i;
        if (named)
            vocabulary.GetLocalNamesTable().push_back("e" + std::to_string(i));
        vocabulary.GetElementNamesTable().push_back({0, 0, named ? vocabulary.GetLocalNamesTable().size() : 1});
        if (i <= 10001)
            vocabulary.GetAttributeValuesTable().push_back("v" + std::to_string(i));
        if (i <= 263186)
            vocabulary.GetCharacterChunksTable().push_back("c" + std::to_string(i));
    }
    vocabulary.GetAttributeNamesTable().push_back({0, 0, 1});

    for (const auto& e : elements)
        EXPECT_EQ(Read(kHead + e.bytes + " FF", context), "e" + std::to_string(e.index)) << e.bytes;
    for (const auto& v : values)
        EXPECT_EQ(Read(kHead + "7C 00 'a' 00 " + v.bytes + " FF", context), "a[filler=v" + std::to_string(v.index) + "]")
            << v.bytes;
    for (const auto& c : chunks)
        EXPECT_EQ(Read(kHead + "3C 00 'a' " + c.bytes + " FF", context), "a\"c" + std::to_string(c.index) + "\"")
            << c.bytes;
    // Without the generated vocabulary the same indexes are out of range.
    EXPECT_EQ(Read(kHead + "00 FF"), "!Failed to parse FastInfoset. Index out of range.");
}
