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
    // Index 0 and the last index each shift every word above them.
    col->AddAt(0, true);
    model.insert(model.begin(), true);
    col->Remove(col->GetCount() - 1);
    model.pop_back();
    col->Remove(0);
    model.erase(model.begin());
    EXPECT_EQ(ItemsOf(*col), model);
    const std::string count = std::to_string(model.size());
    ExpectFailure<CNxInvalidParamException>([&] { col->Item(col->GetCount()); },
                                            "Index " + count + " is out of range, use 0 - " + count);
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

