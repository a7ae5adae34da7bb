#include <gtest/gtest.h>

#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "RegisterVersion.h"
#include "TestObjects.h"

using namespace NxXmlLib9;
using NxTest::EmptyCollection;

namespace {
struct Received {
    CXmlObjectBase* source;
    IEventSink::MsgType type;
    void* data;
    int index;
};

class RecordingSink : public IEventSink {
public:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
    {
        const bool carriesIndex = type == MsgType_CollectionRemove || type == MsgType_CollectionRemoveComplete;
        received.push_back({source, type, data, carriesIndex && data ? *static_cast<int*>(data) : 0});
    }
    CXmlObjectBase* GetBase() override { return nullptr; }
    std::vector<Received> received;
};

} // namespace

TEST(CollectionBase, TheTargetNamespaceIsATrap)
{
    CSmartPtr<EmptyCollection> named(new EmptyCollection("Phone", "urn:p", 1, 3));
    ExpectFailure<CNxException>(
        [&] { named->GetTargetNamespace(); },
        "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program logic error)");
}

TEST(CollectionEvents, EachFireDeliversItsTypeAndDataToEveryListenerInOrder)
{
    CSmartPtr<EmptyCollection> collection(new EmptyCollection);
    RecordingSink first, second;
    collection->AddEventListener(&first);
    collection->AddEventListener(&second);
    int item = 5;
    collection->FireOnCollectionAdd(&item);
    collection->FireOnCollectionAddComplete(&item);
    collection->FireOnCollectionChange();
    collection->FireOnCollectionRemove(3);
    collection->FireOnCollectionRemoveComplete(-1);

    ASSERT_EQ(first.received.size(), 5u);
    ASSERT_EQ(second.received.size(), 5u);
    const IEventSink::MsgType expected[] = {IEventSink::MsgType_CollectionAdd,
                                            IEventSink::MsgType_CollectionAddComplete,
                                            IEventSink::MsgType_CollectionChange, IEventSink::MsgType_CollectionRemove,
                                            IEventSink::MsgType_CollectionRemoveComplete};
    for (size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(first.received[i].type, expected[i]);
        EXPECT_EQ(first.received[i].source, static_cast<CXmlObjectBase*>(collection));
    }
    EXPECT_EQ(first.received[0].data, &item);
    EXPECT_EQ(first.received[2].data, nullptr);
    // The index travels as a pointer to a copy; -1 travels as null.
    EXPECT_NE(first.received[3].data, nullptr);
    EXPECT_EQ(first.received[3].index, 3);
    EXPECT_EQ(first.received[4].data, nullptr);
}

TEST(CollectionEvents, RemovingAListenerAddedTwiceRemovesBoth)
{
    CSmartPtr<EmptyCollection> collection(new EmptyCollection);
    RecordingSink twice, once;
    collection->AddEventListener(&twice);
    collection->AddEventListener(&once);
    collection->AddEventListener(&twice);
    collection->FireOnCollectionChange();
    EXPECT_EQ(twice.received.size(), 2u);
    collection->RemoveEventListener(&twice);
    RecordingSink unknown;
    collection->RemoveEventListener(&unknown);
    collection->FireOnCollectionChange();
    EXPECT_EQ(twice.received.size(), 2u);
    EXPECT_EQ(once.received.size(), 2u);
}
