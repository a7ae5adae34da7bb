#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <string>

#include "Outcome.h"

using namespace NxXmlLib9;

TEST(Base64Encode, PadsOneTwoAndThreeBytesAndEmptyGivesNothing)
{
    EXPECT_EQ(CBinaryData("M").GetAsBase64(), "TQ==");
    EXPECT_EQ(CBinaryData("Ma").GetAsBase64(), "TWE=");
    EXPECT_EQ(CBinaryData("Man").GetAsBase64(), "TWFu");
    EXPECT_EQ(CBinaryData("Many").GetAsBase64(), "TWFueQ==");
    unsigned char high[] = {0xFB, 0xFF, 0xBF};
    EXPECT_EQ(CBinaryData(high, 3).GetAsBase64(), "+/+/");
    EXPECT_EQ(CBinaryData().GetAsBase64(), "");
    EXPECT_EQ(CBinaryData("").GetAsBase64(), "");
    EXPECT_EQ(CBase64().Encode(nullptr, 5), "");
}

// Decoding skips white space, padding and the top bit of each character; a
// bad character gives an empty holder, silently.
TEST(Base64Decode, ReadsWhatItCanAndNothingElse)
{
    const ItemType B = ItemTypeBase64Binary;
    const char topBit[] = {'T', static_cast<char>('W' | 0x80), 'F', 'u', 0};
    ExpectReads({
        {B, "TWFu===", "TWFu"}, {B, " T\tW=F\r\nu ", "TWFu"}, {B, "TQ==", "TQ=="}, {B, "TQ", "TQ=="},
        {B, "TWE", "TWE="}, {B, topBit, "TWFu"}, {B, "TWFu-", ""}, {B, "", ""},
    });
    CBinaryData data("previous");
    data.SetAsBase64("T*Fu");
    EXPECT_NE(data.GetData(), nullptr);
    EXPECT_EQ(data.GetLength(), 0u);
    CBase64 coder;
    unsigned char out[4];
    EXPECT_EQ(coder.Decode(nullptr, out), 0);
    EXPECT_EQ(coder.Decode("TWFu", nullptr), 0);
    EXPECT_EQ(coder.Decode("TWFu", out), 3);
}

TEST(Base64RoundTrip, EveryByteValueAndLength)
{
    std::string all;
    for (int i = 0; i < 256; ++i)
        all += static_cast<char>(255 - i);
    for (size_t length = 0; length <= all.size(); length += 7) {
        CBinaryData source(reinterpret_cast<unsigned char*>(&all[0]), static_cast<unsigned long>(length));
        const std::string text = source.GetAsBase64();
        ASSERT_EQ(text.size(), (length + 2) / 3 * 4);
        CBinaryData back;
        back.SetAsBase64(text.c_str());
        ASSERT_EQ(back.GetAsHexString(), source.GetAsHexString());
    }
}
