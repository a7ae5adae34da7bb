#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "RegisterVersion.h"
#include "TestObjects.h"

using namespace NxXmlLib9;
using NxTest::CountedObject;

TEST(ReferenceCount, StartsAtZeroAndTheLastReleaseDestroys)
{
    int destroyed = 0;
    CountedObject* object = new CountedObject(&destroyed);
    EXPECT_EQ(object->AddRef(), 1);
    EXPECT_EQ(object->AddRef(), 2);
    EXPECT_EQ(object->Release(), 1);
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(object->Release(), 0);
    EXPECT_EQ(destroyed, 1);
}

TEST(ReferenceCount, ConcurrentAddRefAndReleaseKeepTheCountExact)
{
    int destroyed = 0;
    CSmartPtr<CountedObject> holder(new CountedObject(&destroyed));
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < 10000; ++i) {
                CSmartPtr<CountedObject> copy(holder);
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(holder->AddRef(), 2);
    holder->Release();
    holder = nullptr;
    EXPECT_EQ(destroyed, 1);
}

TEST(SmartPtr, CopiesAssignmentsConversionsAndReassignmentCountCorrectly)
{
    int destroyed = 0;
    {
        CSmartPtr<CountedObject> first(new CountedObject(&destroyed));
        CSmartPtr<CXmlObjectBase> base(first);
        CSmartPtr<CXmlObjectBase> other;
        EXPECT_EQ(static_cast<CXmlObjectBase*>(other), nullptr);
        other = first;
        // Self-assignment and assignment of the held pointer keep the object.
        other = other;
        other = static_cast<CXmlObjectBase*>(first);
        CSmartPtr<CountedObject> moved(std::move(first));
        EXPECT_EQ(static_cast<CountedObject*>(first), nullptr);
        EXPECT_EQ(moved->AddRef(), 4);
        moved->Release();
        EXPECT_EQ((*moved).GetElementName(), "leaf");
    }
    EXPECT_EQ(destroyed, 1);
    CSmartPtr<CountedObject> pointer(new CountedObject(&destroyed));
    pointer = new CountedObject(&destroyed);
    EXPECT_EQ(destroyed, 2);
    pointer = CSmartPtr<CountedObject>();
    EXPECT_EQ(destroyed, 3);
}

TEST(ArgumentGuards, NullMandatoryPropertyAndADifferentElementNameAreRejected)
{
    ExpectFailure<CNxInvalidParamException>([] { CXmlObjectBase::Throw_IfPropertyIsNull(nullptr, "Address"); },
                                            "The Property [Address] is mandatory, it may node be NULL");
    CSmartPtr<CountedObject> object(new CountedObject(nullptr, "Phone"));
    CXmlObjectBase::Throw_IfPropertyIsNull(object, "Address");
    CXmlObjectBase::Throw_IfElementNameDiffers(object, "Phone");
    CXmlObjectBase::Throw_IfElementNameDiffers(nullptr, "Phone");
    ExpectFailure<CNxInvalidParamException>(
        [&] { CXmlObjectBase::Throw_IfElementNameDiffers(object, "Address"); },
        "This property requrires an element with the name Address the element being set has the element name Phone");
}
