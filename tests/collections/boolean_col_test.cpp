// CbooleanCol keeps one bit per value in 64-bit words; inserting and
// erasing move the bits above across word boundaries.
#include "TypedCollectionSupport.h"

#include "ExpectFailure.h"

using namespace NxTest;

namespace {

std::vector<bool> ItemsOf(const CbooleanCol& col)
{
    std::vector<bool> items;
    for (int i = 0; i < col.GetCount(); ++i)
        items.push_back(col.Item(i));
    return items;
}

} // namespace

TEST(BooleanCol, RemovingTheFirstOf65ShiftsAcrossTheWordBoundary)
{
    CSmartPtr<CbooleanCol> col = Make<CbooleanCol>();
    std::vector<bool> expected;
    for (int i = 0; i < 65; ++i) {
        const bool value = i % 3 == 0 || i == 64;
        col->Add(value);
        expected.push_back(value);
    }
    EXPECT_EQ(ItemsOf(*col), expected);
    col->Remove(0);
    expected.erase(expected.begin());
    EXPECT_EQ(col->GetCount(), 64);
    EXPECT_TRUE(col->Item(63));  // what was item 64
    EXPECT_EQ(ItemsOf(*col), expected);
    ExpectFailure<CNxInvalidParamException>([&] { col->Item(64); }, "Index 64 is out of range, use 0 - 64");
}

TEST(BooleanCol, InsertingAtTheFrontCarriesTheTopBitOfEachWordIntoTheNext)
{
    CSmartPtr<CbooleanCol> col = Make<CbooleanCol>();
    std::vector<bool> expected;
    // Set bits at 7, 31 and 63: the last positions of a byte, a 32-bit and a
    // 64-bit word.
    for (int i = 0; i < 64; ++i) {
        const bool value = i == 7 || i == 31 || i == 63;
        col->Add(value);
        expected.push_back(value);
    }
    col->AddAt(0, true);
    expected.insert(expected.begin(), true);
    ASSERT_EQ(col->GetCount(), 65);
    EXPECT_TRUE(col->Item(8));
    EXPECT_TRUE(col->Item(32));
    EXPECT_TRUE(col->Item(64));
    EXPECT_FALSE(col->Item(63));
    EXPECT_EQ(ItemsOf(*col), expected);
}

// Inserts and removes at pseudo-random places over several words and
// compares with a plain vector after every step.
TEST(BooleanCol, AgreesWithAPlainVectorThroughManyInsertsAndRemovals)
{
    CSmartPtr<CbooleanCol> col = Make<CbooleanCol>();
    std::vector<bool> model;
    unsigned state = 12345;
    auto next = [&state] {
        state = state * 1103515245u + 12345u;
        return (state >> 8) & 0xffff;
    };
    for (int step = 0; step < 1500; ++step) {
        const bool grow = model.size() < 10 || next() % 3 != 0;
        if (grow) {
            const int index = static_cast<int>(next() % (model.size() + 1));
            const bool value = next() % 2 == 0;
            col->AddAt(index, value);
            model.insert(model.begin() + index, value);
        } else {
            const int index = static_cast<int>(next() % model.size());
            col->Remove(index);
            model.erase(model.begin() + index);
        }
        ASSERT_EQ(col->GetCount(), static_cast<int>(model.size()));
    }
    ASSERT_GT(model.size(), 200u);
    EXPECT_EQ(ItemsOf(*col), model);
}

TEST(BooleanCol, EmptiesAndRefillsCleanly)
{
    CSmartPtr<CbooleanCol> col = Make<CbooleanCol>();
    for (int i = 0; i < 130; ++i)
        col->Add(true);
    col->Clear();
    EXPECT_EQ(col->GetCount(), 0);
    // Bits left over from the old values must not show through.
    col->Add(false);
    col->AddAt(0, false);
    for (int i = 0; i < 70; ++i)
        col->Add(false);
    for (int i = 0; i < col->GetCount(); ++i)
        ASSERT_FALSE(col->Item(i)) << i;
}

