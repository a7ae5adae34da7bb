// An assignment whose copy of the message fails must leave nothing behind:
// the inner failure cloned for it is freed. Allocation failure is staged by
// this program's own operator new, which fails once on a chosen size; a
// memory checker's allocator would contradict it, so this program stands
// apart from the test_* programs that also run under one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;

namespace {

size_t g_failingSize = 0;

class CountedFailure : public CNxException {
public:
    static int live;
    explicit CountedFailure(std::string message) : CNxException(std::move(message)) { ++live; }
    CountedFailure(const CountedFailure& other) : CNxException(other) { ++live; }
    ~CountedFailure() override { --live; }
    CNxException* Clone() const override { return new CountedFailure(*this); }
};
int CountedFailure::live = 0;

} // namespace

void* operator new(size_t size)
{
    if (size != 0 && size == g_failingSize) {
        g_failingSize = 0;
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, size_t) noexcept { std::free(memory); }

TEST(ExceptionAssignment, AFailedMessageCopyFreesTheClonedInnerFailureAndKeepsTheTarget)
{
    {
        const std::string longMessage(1000, 'm');
        const CNxException source(longMessage, CountedFailure("inner"));
        CNxException target("old");
        ASSERT_EQ(CountedFailure::live, 1);
        g_failingSize = longMessage.size() + 1;
        EXPECT_THROW(target = source, std::bad_alloc);
        g_failingSize = 0;
        EXPECT_EQ(CountedFailure::live, 1);
        EXPECT_EQ(target.GetFullMessage(), "old");
    }
    EXPECT_EQ(CountedFailure::live, 0);
}
