#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <thread>
#include <vector>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;

TEST(TextHelpers, TrimTrainingZerosKeepsTheFirstCharacter)
{
    EXPECT_EQ(TrimTrainingZeros(""), "");
    EXPECT_EQ(TrimTrainingZeros("0"), "0");
    EXPECT_EQ(TrimTrainingZeros("000"), "0");
    EXPECT_EQ(TrimTrainingZeros("120"), "12");
    EXPECT_EQ(TrimTrainingZeros("100"), "1");
    EXPECT_EQ(TrimTrainingZeros("1010"), "101");
}

TEST(TextHelpers, PadZeroPadsToTheWidthAndNeverCuts)
{
    EXPECT_EQ(PadZero(5, 3), "005");
    EXPECT_EQ(PadZero(-5, 3), "-05");
    EXPECT_EQ(PadZero(12345, 3), "12345");
    EXPECT_EQ(PadZero(7, 0), "7");
    EXPECT_EQ(PadZero(-1, 255).size(), 255u);
    EXPECT_EQ(PadZero(1, 255), std::string(254, '0') + "1");
}

TEST(TextHelpers, ToFracStringStopsAtTheLastNonZeroGroup)
{
    EXPECT_EQ(ToFracString(0, 0, 0), "");
    EXPECT_EQ(ToFracString(5, 0, 0), ".005");
    EXPECT_EQ(ToFracString(500, 0, 0), ".5");
    EXPECT_EQ(ToFracString(120, 300, 0), ".1203");
    EXPECT_EQ(ToFracString(0, 0, 7), ".000000007");
    EXPECT_EQ(ToFracString(0, 10, 0), ".00001");
    EXPECT_EQ(ToFracString(1, 0, 100), ".0010001");
}

TEST(TextHelpers, FindReplaceReplacesEveryOccurrence)
{
    std::string text = "a-b-c";
    FindReplace(text, "-", "+");
    EXPECT_EQ(text, "a+b+c");
    // Restarting at the start lets a replacement complete a new match.
    std::string joined = "aab";
    FindReplace(joined, "ab", "b");
    EXPECT_EQ(joined, "b");
    std::wstring wide = L"x<y<z";
    FindReplace(wide, L"<", L"&lt;");
    EXPECT_EQ(wide, L"x&lt;y&lt;z");
    std::string unchanged = "abc";
    FindReplace(unchanged, "", "x");
    EXPECT_EQ(unchanged, "abc");
}

TEST(TextHelpers, StruprUpperCasesInPlace)
{
    char text[] = "abc-Def9";
    EXPECT_EQ(strupr(text), text);
    EXPECT_STREQ(text, "ABC-DEF9");
    char empty[] = "";
    EXPECT_EQ(strupr(empty), empty);
    EXPECT_STREQ(empty, "");
}

TEST(TextHelpers, FileLengthLeavesThePositionAlone)
{
    FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    std::fputs("0123456789", file);
    std::fseek(file, 4, SEEK_SET);
    EXPECT_EQ(_filelength(file), 10);
    EXPECT_EQ(std::ftell(file), 4);
    std::fclose(file);
}

TEST(CriticalSection, GuardsASharedCounter)
{
    CNXCriticalSection lock;
    long counter = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 20000; ++i) {
                EXPECT_EQ(lock.Enter(), 0);
                ++counter;
                lock.Leave();
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 80000);
}
