#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <string>

using namespace NxXmlLib9;

namespace {

std::string Pattern(size_t length)
{
    std::string text;
    for (size_t i = 0; i < length; ++i)
        text += static_cast<char>('a' + i % 26);
    return text;
}

} // namespace

// With one block the text is read in place, so its address stays put while
// the block fills; a second block forces a join into new storage.
TEST(StringBufferTest, DefaultBlockHoldsExactly4095Characters)
{
    CStringBuffer buffer;
    EXPECT_STREQ("", buffer.GetText());
    EXPECT_EQ(0ul, buffer.GetLength());
    const std::string text = Pattern(4095);
    buffer.Append(text.substr(0, 4094));
    const char* single = buffer.GetText();
    buffer.Append(text[4094]);
    EXPECT_EQ(single, buffer.GetText()) << "4095 characters must fit one block";

    buffer.Append('!');
    EXPECT_EQ(4096ul, buffer.GetLength());
    const char* joined = buffer.GetText();
    EXPECT_NE(single, joined);
    EXPECT_EQ(text + "!", joined);
    EXPECT_EQ(joined, buffer.GetText()) << "joined once";
    buffer.Append("tail");
    EXPECT_EQ(text + "!tail", buffer.GetText());
}

TEST(StringBufferTest, SizedBlocksSpanAndJoinInOrder)
{
    CStringBuffer buffer(5);
    buffer.Append("abcd");
    const char* single = buffer.GetText();
    buffer.Append("e");
    EXPECT_NE(single, buffer.GetText()) << "a size of 5 holds 4 characters";

    for (unsigned long size : {0ul, 1ul, 2ul, 7ul}) {
        CStringBuffer sized(size);
        std::string expected;
        for (int i = 0; i < 100; ++i) {
            const std::string piece = Pattern(static_cast<size_t>(i % 17));
            sized.Append(piece.c_str());
            sized.Append(static_cast<char>('0' + i % 10));
            expected += piece + static_cast<char>('0' + i % 10);
        }
        EXPECT_EQ(expected.size(), sized.GetLength());
        EXPECT_EQ(expected, sized.GetText()) << size;
    }
}

TEST(StringBufferTest, StringFormStopsAtZeroByteButLengthFormDoesNot)
{
    CStringBuffer buffer;
    buffer.Append(std::string("ab\0cd", 5));
    buffer.Append(static_cast<const char*>(nullptr));
    EXPECT_EQ(2ul, buffer.GetLength());
    buffer.Append("x\0y", 3);
    EXPECT_EQ(std::string("abx\0y", 5), std::string(buffer.GetText(), buffer.GetLength()));
}

TEST(StringBufferTest, EmptyKeepsASingleBlockZeroedAndFreesSeveral)
{
    CStringBuffer buffer;
    buffer.Append("hello world");
    const char* block = buffer.GetText();
    buffer.Empty();
    EXPECT_EQ(0ul, buffer.GetLength());
    EXPECT_EQ(block, buffer.GetText());
    buffer.Append("hi");
    EXPECT_EQ(block, buffer.GetText());
    EXPECT_STREQ("hi", buffer.GetText()) << "old text must not show through";

    CStringBuffer several(3);
    several.Append("abcdef");
    several.Empty();
    EXPECT_EQ(0ul, several.GetLength());
    EXPECT_STREQ("", several.GetText());
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
    buffer.Append(" text beyond a block");
    CStringBuffer copy(buffer);
    CStringBuffer assigned;
    assigned.Append("old");
    assigned = buffer;
    buffer.Clear();
    EXPECT_STREQ("", buffer.GetText());
    EXPECT_STREQ("new text beyond a block", copy.GetText());
    EXPECT_STREQ("new text beyond a block", assigned.GetText());
}

TEST(TextStreamTest, AppendFormsEncodingAndReopen)
{
    CTextStream stream(XmlEncodingUTF16);
    EXPECT_EQ(XmlEncodingUTF16, stream.GetEncoding());
    EXPECT_EQ(XmlEncodingNone, CTextStream().GetEncoding());
    stream.Append('<');
    stream.Append("a");
    stream.Append(std::string("/>"));
    stream.Append("--", 1);
    stream.Flush();
    stream.Close();
    EXPECT_EQ(5ul, stream.GetLength());
    EXPECT_STREQ("<a/>-", stream.GetText());
    stream.Open();
    EXPECT_STREQ("", stream.GetText());
}
