#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <string>

using namespace NxXmlLib9;

namespace {

std::string Pattern(size_t length)
{
    std::string text;
    text.reserve(length);
    for (size_t i = 0; i < length; ++i)
        text += static_cast<char>('a' + i % 26);
    return text;
}

} // namespace

TEST(StringBufferTest, NeverWrittenGivesEmptyText)
{
    CStringBuffer buffer;
    EXPECT_EQ(0ul, buffer.GetLength());
    EXPECT_STREQ("", buffer.GetText());
    buffer.Append("x");
    EXPECT_STREQ("x", buffer.GetText());
}

// With one block the text is read in place, so its address stays put while
// the block fills; a second block forces a join into new storage.
TEST(StringBufferTest, DefaultBlockHoldsExactly4095Characters)
{
    CStringBuffer buffer;
    const std::string text = Pattern(4095);
    buffer.Append(text.substr(0, 4094));
    const char* single = buffer.GetText();
    buffer.Append(text[4094]);
    EXPECT_EQ(single, buffer.GetText()) << "4095 characters must fit one block";
    EXPECT_EQ(text, buffer.GetText());

    buffer.Append('!');
    EXPECT_EQ(4096ul, buffer.GetLength());
    const char* joined = buffer.GetText();
    EXPECT_NE(single, joined);
    EXPECT_EQ(text + "!", joined);
}

TEST(StringBufferTest, SizedConstructorUsesOneLessThanGiven)
{
    CStringBuffer buffer(5);
    buffer.Append("abcd");
    const char* single = buffer.GetText();
    buffer.Append("e");
    EXPECT_NE(single, buffer.GetText());
    EXPECT_STREQ("abcde", buffer.GetText());
}

TEST(StringBufferTest, DegenerateBlockSizesStillHoldText)
{
    for (unsigned long size : {0ul, 1ul, 2ul}) {
        CStringBuffer buffer(size);
        buffer.Append("hello");
        buffer.Append('!');
        EXPECT_STREQ("hello!", buffer.GetText()) << size;
    }
}

TEST(StringBufferTest, LongAppendsSpanBlocksAndJoinInOrder)
{
    CStringBuffer buffer(7);
    std::string expected;
    for (int i = 0; i < 200; ++i) {
        const std::string piece = Pattern(static_cast<size_t>(i % 17));
        buffer.Append(piece.c_str());
        buffer.Append(static_cast<char>('0' + i % 10));
        expected += piece;
        expected += static_cast<char>('0' + i % 10);
        if (i % 50 == 0) {
            EXPECT_EQ(expected, buffer.GetText());
        }
    }
    EXPECT_EQ(expected.size(), buffer.GetLength());
    EXPECT_EQ(expected, buffer.GetText());
    // Joined once; reading again neither changes nor moves it.
    const char* joined = buffer.GetText();
    EXPECT_EQ(joined, buffer.GetText());
}

TEST(StringBufferTest, StringFormStopsAtZeroByteButLengthFormDoesNot)
{
    CStringBuffer buffer;
    buffer.Append(std::string("ab\0cd", 5));
    EXPECT_EQ(2ul, buffer.GetLength());
    buffer.Append(static_cast<const char*>(nullptr));
    EXPECT_EQ(2ul, buffer.GetLength());
    buffer.Append("x\0y", 3);
    EXPECT_EQ(5ul, buffer.GetLength());
    EXPECT_EQ(std::string("abx\0y", 5), std::string(buffer.GetText(), buffer.GetLength()));
}

TEST(StringBufferTest, EmptyKeepsASingleBlockZeroed)
{
    CStringBuffer buffer;
    buffer.Append("hello world");
    const char* block = buffer.GetText();
    buffer.Empty();
    EXPECT_EQ(0ul, buffer.GetLength());
    EXPECT_EQ(block, buffer.GetText());
    EXPECT_STREQ("", buffer.GetText());
    buffer.Append("hi");
    EXPECT_EQ(block, buffer.GetText());
    EXPECT_STREQ("hi", buffer.GetText()) << "old text must not show through";
}

TEST(StringBufferTest, EmptyAfterJoinReusesTheJoinedBlock)
{
    CStringBuffer buffer(4);
    buffer.Append("abcdefgh");
    const char* joined = buffer.GetText();
    buffer.Empty();
    buffer.Append("xyz");
    EXPECT_EQ(joined, buffer.GetText());
    EXPECT_STREQ("xyz", buffer.GetText());
    // Past the joined block's room the next block has the normal size again.
    buffer.Append("0123456789");
    EXPECT_STREQ("xyz0123456789", buffer.GetText());
}

TEST(StringBufferTest, EmptyWithSeveralBlocksFreesThem)
{
    CStringBuffer buffer(3);
    buffer.Append("abcdef");
    buffer.Empty();
    EXPECT_EQ(0ul, buffer.GetLength());
    EXPECT_STREQ("", buffer.GetText());
    buffer.Append("q");
    EXPECT_STREQ("q", buffer.GetText());
}

TEST(StringBufferTest, AppendAfterJoinContinuesTheText)
{
    CStringBuffer buffer;
    const std::string first = Pattern(5000);
    buffer.Append(first);
    ASSERT_EQ(first, buffer.GetText());
    buffer.Append("tail");
    EXPECT_EQ(first + "tail", buffer.GetText());
    EXPECT_EQ(5004ul, buffer.GetLength());
}

TEST(StringBufferTest, BlockLeftEarlyKeepsOnlyItsText)
{
    CStringBuffer buffer;
    buffer.Append("ab");
    buffer.AddNewBlock();
    buffer.Append("cd");
    EXPECT_EQ(4ul, buffer.GetLength());
    EXPECT_STREQ("abcd", buffer.GetText());
}

TEST(StringBufferTest, SetTextClearAndCopies)
{
    CStringBuffer buffer(4);
    buffer.Append("something long");
    buffer.SetText("new");
    EXPECT_STREQ("new", buffer.GetText());
    buffer.Append(" text beyond a block");

    CStringBuffer copy(buffer);
    EXPECT_STREQ("new text beyond a block", copy.GetText());
    CStringBuffer assigned;
    assigned.Append("old");
    assigned = buffer;
    buffer.Clear();
    EXPECT_EQ(0ul, buffer.GetLength());
    EXPECT_STREQ("", buffer.GetText());
    EXPECT_STREQ("new text beyond a block", assigned.GetText());
    EXPECT_EQ(23ul, assigned.GetLength());
}

TEST(TextStreamTest, AppendFormsEncodingAndReopen)
{
    CTextStream stream(XmlEncodingUTF16);
    EXPECT_EQ(XmlEncodingUTF16, stream.GetEncoding());
    EXPECT_EQ(XmlEncodingNone, CTextStream().GetEncoding());
    stream.Open();
    stream.Append('<');
    stream.Append("a");
    stream.Append(std::string("/>"));
    stream.Append("--", 1);
    EXPECT_EQ(5ul, stream.GetLength());
    EXPECT_STREQ("<a/>-", stream.GetText());
    stream.Flush();
    stream.Close();
    EXPECT_STREQ("<a/>-", stream.GetText());
    stream.Open();
    EXPECT_EQ(0ul, stream.GetLength());
    EXPECT_STREQ("", stream.GetText());
}
