#include <gtest/gtest.h>

#include <string>

#include "NxXmlLib9.h"
#include "StreamTestFiles.h"

using namespace NxXmlLib9;
using NxTest::BytesOf;
using NxTest::DataOf;

TEST(BinaryDataReserve, AppendsUpToTheReservedSizeMoveNothing)
{
    const std::string piece(1000, 'x');
    for (const char* start : {"", "abc"}) {
        CBinaryData data = DataOf(start);
        CBinaryData shared = data;
        data.Reserve(100000);
        data.Append(reinterpret_cast<unsigned char*>(const_cast<char*>("!")), 1);
        const unsigned char* array = data.GetData();
        for (int i = 0; i < 99; ++i)
            data.Append(piece);
        EXPECT_EQ(data.GetData(), array) << "no reallocation inside the reserved room";
        EXPECT_EQ(data.GetLength(), std::string(start).size() + 1 + 99000);
        EXPECT_EQ(BytesOf(data).substr(0, std::string(start).size() + 2), std::string(start) + "!x");
        EXPECT_EQ(BytesOf(shared), start) << "a shared buffer is separated first";

        // A smaller reservation keeps what is there.
        data.Reserve(10);
        EXPECT_EQ(data.GetData(), array);
    }
}
