#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <functional>
#include <string>
#include <thread>

#include "StreamTestFiles.h"

using namespace NxXmlLib9;

namespace {

std::string Bytes(const CBinaryData& data)
{
    return std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength());
}

std::string MessageOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const CNxException& e) {
        return e.GetMessage();
    }
    return "<no failure>";
}

} // namespace

TEST(BinaryDataSharing, CopiesShareBytesUntilAWrite)
{
    CBinaryData original("abc");
    CBinaryData copy(original);
    CBinaryData assigned;
    assigned = original;
    EXPECT_EQ(copy.GetData(), original.GetData());
    EXPECT_EQ(assigned.GetData(), original.GetData());

    copy[0] = 'X';
    EXPECT_NE(copy.GetData(), original.GetData());
    EXPECT_EQ(Bytes(copy), "Xbc");
    EXPECT_EQ(Bytes(original), "abc");
    EXPECT_EQ(Bytes(assigned), "abc");
    EXPECT_EQ(assigned.GetData(), original.GetData());

    assigned.Append("de");
    EXPECT_EQ(Bytes(assigned), "abcde");
    EXPECT_EQ(Bytes(original), "abc");
}

TEST(BinaryDataSharing, WriteToUnsharedBufferStaysInPlace)
{
    CBinaryData data("abc");
    unsigned char* before = data.GetData();
    data[1] = 'B';
    data.Append('d');
    EXPECT_EQ(data.GetData(), before);
    EXPECT_EQ(Bytes(data), "aBcd");
}

TEST(BinaryDataSharing, SelfAssignmentAndSelfAppendKeepTheBytes)
{
    CBinaryData data("xy");
    CBinaryData& alias = data;
    data = alias;
    EXPECT_EQ(Bytes(data), "xy");
    data.Append(alias);
    EXPECT_EQ(Bytes(data), "xyxy");
    data.SetBuffer(data.GetData() + 1, 2);
    EXPECT_EQ(Bytes(data), "yx");
}

TEST(BinaryDataSharing, MovedFromBufferIsEmpty)
{
    CBinaryData source("abc");
    unsigned char* bytes = source.GetData();
    CBinaryData target(std::move(source));
    EXPECT_EQ(target.GetData(), bytes);
    EXPECT_EQ(source.GetData(), nullptr);
    CBinaryData other("z");
    other = std::move(target);
    EXPECT_EQ(Bytes(other), "abc");
}

TEST(BinaryDataSharing, CopiesWrittenFromTwoThreadsStaySeparate)
{
    for (int round = 0; round < 300; ++round) {
        CBinaryData original("shared bytes");
        CBinaryData first(original);
        CBinaryData second(original);
        std::atomic<int> ready{0};
        auto writer = [&ready](CBinaryData& mine, char mark) {
            ready.fetch_add(1);
            while (ready.load() < 2) {
            }
            mine[0] = static_cast<unsigned char>(mark);
            mine.Append(mark);
            CBinaryData local(mine);
            local[1] = '#';
        };
        std::thread a(writer, std::ref(first), 'A');
        std::thread b(writer, std::ref(second), 'B');
        a.join();
        b.join();
        ASSERT_EQ(Bytes(original), "shared bytes");
        ASSERT_EQ(Bytes(first), "Ahared bytesA");
        ASSERT_EQ(Bytes(second), "Bhared bytesB");
    }
}

TEST(BinaryDataHolder, AppendToASharedHolderFails)
{
    unsigned char bytes[] = {1, 2};
    CBinaryData::CDataHolder* holder = new CBinaryData::CDataHolder(bytes, 2, false);
    EXPECT_EQ(holder->AddRef(), 2);
    EXPECT_EQ(MessageOf([&] { holder->Append(bytes, 2); }), "Failed to append. [RefCount=2]");
    EXPECT_EQ(holder->GetLength(), 2u);
    EXPECT_EQ(holder->Release(false), 1);
    holder->Append(bytes, 2);
    EXPECT_EQ(holder->GetLength(), 4u);
    EXPECT_EQ(holder->Release(false), 0);
}

TEST(BinaryDataHolder, AppendReservesAtLeast8192AndGrowsGeometrically)
{
    CBinaryData data;
    data.Append('a');
    unsigned char* first = data.GetData();
    for (int i = 1; i < 8192; ++i)
        data.Append('b');
    EXPECT_EQ(data.GetData(), first) << "the first holder has room for 8192 bytes";
    data.Append('c');
    unsigned char* grown = data.GetData();
    EXPECT_NE(grown, first);
    // The new capacity is twice the new length, not just the new length.
    for (int i = 8193; i < 2 * 8193; ++i)
        data.Append('d');
    EXPECT_EQ(data.GetData(), grown);
    EXPECT_EQ(data.GetLength(), 2u * 8193);
    EXPECT_EQ(data[8191], 'b');
    EXPECT_EQ(data[8192], 'c');
}

// The array is handed over only from an unshared buffer; a failed hand-over
// keeps its reference, and the buffer is unshared after.
TEST(BinaryDataReserve, AppendsUpToTheReservedSizeMoveNothing)
{
    const std::string piece(1000, 'x');
    for (const char* start : {"", "abc"}) {
        CBinaryData data = NxTest::DataOf(start);
        CBinaryData shared = data;
        data.Reserve(100000);
        data.Append(reinterpret_cast<unsigned char*>(const_cast<char*>("!")), 1);
        const unsigned char* array = data.GetData();
        for (int i = 0; i < 99; ++i)
            data.Append(piece);
        EXPECT_EQ(data.GetData(), array) << "no reallocation inside the reserved room";
        EXPECT_EQ(data.GetLength(), std::string(start).size() + 1 + 99000);
        EXPECT_EQ(Bytes(data).substr(0, std::string(start).size() + 2), std::string(start) + "!x");
        EXPECT_EQ(Bytes(shared), start) << "a shared buffer is separated first";

        // A smaller reservation keeps what is there.
        data.Reserve(10);
        EXPECT_EQ(data.GetData(), array);
    }
}

TEST(BinaryDataRelease, HandsTheArrayOverUnlessShared)
{
    CBinaryData data("abc");
    {
        CBinaryData copy(data);
        EXPECT_EQ(MessageOf([&] { data.ReleaseData(); }), "Failed to release data. [RefCount=1]");
        EXPECT_EQ(Bytes(data), "abc");
        EXPECT_EQ(Bytes(copy), "abc");
    }
    unsigned char* bytes = data.ReleaseData();
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(std::memcmp(bytes, "abc", 3), 0);
    EXPECT_EQ(data.GetData(), nullptr);
    EXPECT_EQ(data.GetLength(), 0u);
    delete[] bytes;
    EXPECT_EQ(CBinaryData().ReleaseData(), nullptr);
}

TEST(BinaryDataIndex, BoundIsTheLengthItself)
{
    CBinaryData data("abcd");
    const CBinaryData& constant = data;
    EXPECT_EQ(constant[3], 'd');
    EXPECT_EQ(&constant[4], constant.GetData() + 4);
    EXPECT_EQ(&data[4], data.GetData() + 4);
    EXPECT_EQ(MessageOf([&] { (void)constant[5]; }), "Index Out of range [5]");
    EXPECT_EQ(MessageOf([&] { data[5] = 0; }), "Index Out of range [5]");
    CBinaryData empty;
    EXPECT_EQ(MessageOf([&] { (void)empty[0]; }), "Index Out of range [0]");

    // An adopted array of exact size has no byte past its end: the index
    // equal to the length still passes, but reaches a byte of the holder.
    CBinaryData adopted(new unsigned char[2]{'x', 'y'}, 2, true);
    const CBinaryData& adoptedConstant = adopted;
    const unsigned char* end = adopted.GetData() + 2;
    EXPECT_NE(&adoptedConstant[2], end);
    adopted[2] = 'z';
    EXPECT_EQ(adoptedConstant[2], 'z');
    EXPECT_EQ(adopted.GetLength(), 2u);
    EXPECT_EQ(adoptedConstant[1], 'y');
}

TEST(BinaryDataCompare, EmptinessMeansNoHolder)
{
    CBinaryData none;
    CBinaryData alsoNone;
    CBinaryData zeroLength;
    zeroLength.SetAsHexString("");
    EXPECT_TRUE(none == alsoNone);
    EXPECT_FALSE(none == zeroLength);
    EXPECT_TRUE(none != zeroLength);

    CBinaryData a("abc");
    CBinaryData b;
    b.SetAsHexString("616263");
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a == CBinaryData("abd"));
    EXPECT_FALSE(a == CBinaryData("ab"));
}

// Upper case out, either case in; an empty text gives an empty holder.
TEST(BinaryDataHex, Conversions)
{
    unsigned char bytes[] = {0xAB, 0x01, 0x00, 0xF0};
    EXPECT_EQ(CBinaryData(bytes, 4).GetAsHexString(), "AB0100F0");
    EXPECT_EQ(CBinaryData::GetAsHexString(nullptr, 3), "");
    EXPECT_EQ(CBinaryData().GetAsHexString(), "");
    CBinaryData data("old");
    data.SetAsHexString("FfeE09");
    EXPECT_EQ(Bytes(data), "\xFF\xEE\x09");
    data.SetAsHexString("");
    EXPECT_NE(data.GetData(), nullptr);
    EXPECT_EQ(data.GetLength(), 0u);
}

TEST(BinaryDataHexDeathTest, BadCharacterEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    CBinaryData data;
    EXPECT_DEATH(data.SetAsHexString("0G"), "");
    EXPECT_DEATH(data.SetAsHexString("ABC"), "");
    unsigned char* bytes = nullptr;
    EXPECT_DEATH(CBinaryData::ConvertToHexData("zz", &bytes), "");
}
