#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TestObjects.h"

using namespace NxXmlLib9;
using NxTest::CountedObject;

namespace {

// Records every event as a short text: "add:<name>", "complete:<name>",
// "change", "remove:null" or "remove:<index>", "removed:...".
class EventLog : public IEventSink {
public:
    void OnEvent(CXmlObjectBase*, MsgType type, void* data) override
    {
        auto name = [data] {
            return data ? static_cast<CXmlObjectBase*>(data)->GetElementName() : std::string("null");
        };
        auto index = [data] { return data ? std::to_string(*static_cast<int*>(data)) : std::string("null"); };
        switch (type) {
        case MsgType_CollectionAdd: events.push_back("add:" + name()); break;
        case MsgType_CollectionAddComplete: events.push_back("complete:" + name()); break;
        case MsgType_CollectionChange: events.push_back("change"); break;
        case MsgType_CollectionRemove: events.push_back("remove:" + index()); break;
        case MsgType_CollectionRemoveComplete: events.push_back("removed:" + index()); break;
        }
    }
    CXmlObjectBase* GetBase() override { return nullptr; }
    std::vector<std::string> events;
};

// A concrete object collection; the walks are not needed here.
class ObjectCollection : public CXmlCollection {
public:
    using CXmlCollection::CXmlCollection;

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* cursor, const CXmlSerializationContext&, bool) override
    {
        return cursor;
    }
};

// The names of the items from head to tail, checked against the walk from
// tail to head.
std::string Names(const CXmlCollection& collection)
{
    std::string forward, backward;
    CNode* last = nullptr;
    for (CNode* node = collection.begin(); node != collection.end(); node = node->next) {
        forward += node->item ? node->item->GetElementName() : "-";
        last = node;
    }
    for (CNode* node = last; node; node = node->previous)
        backward.insert(0, node->item ? node->item->GetElementName() : "-");
    EXPECT_EQ(forward, backward) << "the previous links disagree with the next links";
    return forward;
}

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

} // namespace

TEST(XmlCollection, AddFiresAddLinkCompleteChangeInThatOrder)
{
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    // The listener sees the count of the collection at each event, so a
    // link made before the add event or after the completion shows up.
    struct CountingLog : EventLog {
        void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
        {
            EventLog::OnEvent(source, type, data);
            events.back() += "@" + std::to_string(static_cast<CXmlCollection*>(source)->GetCount());
        }
    } log;
    collection->AddEventListener(&log);
    CSmartPtr<CountedObject> a(new CountedObject(nullptr, "a"));
    collection->AppendItem(a);
    collection->Remove(0);
    EXPECT_EQ(log.events, (std::vector<std::string>{"add:a@0", "complete:a@1", "change@1", "remove:null@1",
                                                     "removed:null@0", "change@0"}));
    collection->RemoveEventListener(&log);
}

TEST(XmlCollection, InsertionPlaces)
{
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    CSmartPtr<CountedObject> a(new CountedObject(nullptr, "a")), b(new CountedObject(nullptr, "b")),
        c(new CountedObject(nullptr, "c")), d(new CountedObject(nullptr, "d")), e(new CountedObject(nullptr, "e"));
    collection->AppendItem(b);
    collection->PrependItem(a);
    collection->AddAfterItem(b, d);
    collection->AddBeforeItem(d, c);
    EXPECT_EQ(Names(*collection), "abcd");
    // Before nothing means at the end, after nothing at the start.
    collection->AddBeforeItem(nullptr, e);
    collection->AddAfterItem(nullptr, e);
    EXPECT_EQ(Names(*collection), "eabcde");
    collection->AddItemAt(6, a);
    collection->AddItemAt(1, c);
    EXPECT_EQ(Names(*collection), "ecabcdea");
    EXPECT_EQ(collection->GetCount(), 8);
    // One object added twice has two nodes; the search finds the first.
    EXPECT_EQ(collection->GetNodeForItem(a), collection->GetNodeAtIndex(2));
    EXPECT_EQ(collection->GetNodeAtIndex(7)->item, static_cast<CXmlObjectBase*>(a));
    collection->AddItemAt(0, nullptr);
    EXPECT_EQ(Names(*collection), "-ecabcdea");
}

TEST(XmlCollection, AddItemAtOutOfRangeFailsBeforeAnyEvent)
{
    EventLog log; // outlives the collection, which tells it of its last removals
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    collection->AddEventListener(&log);
    CSmartPtr<CountedObject> a(new CountedObject(nullptr, "a"));
    collection->AddItemAt(0, a);
    EXPECT_EQ(collection->GetCount(), 1);
    log.events.clear();
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddItemAt(2, a); }, "Index out of range");
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddItemAt(-1, a); }, "Index out of range");
    EXPECT_TRUE(log.events.empty());
    EXPECT_EQ(collection->GetCount(), 1);
}

TEST(XmlCollection, FailedSearchHasAlreadyToldTheListenersOfTheAdd)
{
    EventLog log; // outlives the collection, which tells it of its last removals
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    collection->AddEventListener(&log);
    CSmartPtr<CountedObject> member(new CountedObject(nullptr, "m")), stranger(new CountedObject(nullptr, "s")),
        item(new CountedObject(nullptr, "i"));
    collection->AppendItem(member);
    log.events.clear();
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddBeforeItem(stranger, item); },
                                            "The object was not found in the collection");
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddAfterItem(stranger, item); },
                                            "The object was not found in the collection");
    EXPECT_EQ(log.events, (std::vector<std::string>{"add:i", "add:i"}));
    EXPECT_EQ(Names(*collection), "m");
}

TEST(XmlCollection, IndexMessagesNameTheCountAsUpperBound)
{
    EventLog log;
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    ExpectFailure<CNxInvalidParamException>([&] { collection->GetNodeAtIndex(0); },
                                            "Index 0 is out of range, use 0 - 0");
    CSmartPtr<CountedObject> a(new CountedObject(nullptr, "a"));
    collection->AppendItem(a);
    collection->AppendItem(a);
    collection->AddEventListener(&log);
    ExpectFailure<CNxInvalidParamException>([&] { collection->Remove(2); }, "Index 2 is out of range, use 0 - 2");
    ExpectFailure<CNxInvalidParamException>([&] { collection->GetNodeAtIndex(-1); },
                                            "Index -1 is out of range, use 0 - 2");
    EXPECT_TRUE(log.events.empty());
}

TEST(XmlCollection, RemovalsKeepTheLinksAndReleaseTheItems)
{
    int destroyed = 0;
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    for (const char* name : {"a", "b", "c", "d"})
        collection->AppendItem(new CountedObject(&destroyed, name));
    collection->Remove(1);
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(Names(*collection), "acd");
    collection->RemoveNode(collection->GetNodeAtIndex(2));
    collection->Remove(0);
    EXPECT_EQ(Names(*collection), "c");
    collection->Remove(0);
    EXPECT_EQ(collection->begin(), nullptr);
    EXPECT_EQ(collection->GetCount(), 0);
    EXPECT_EQ(destroyed, 4);
    // The list still works after it was emptied.
    collection->AppendItem(new CountedObject(&destroyed, "e"));
    collection->PrependItem(new CountedObject(&destroyed, "f"));
    EXPECT_EQ(Names(*collection), "fe");
}

TEST(XmlCollection, ClearAndDestructionTellTheListenersOfEachRemoval)
{
    int destroyed = 0;
    EventLog log;
    {
        CSmartPtr<ObjectCollection> collection(new ObjectCollection);
        collection->AppendItem(new CountedObject(&destroyed, "a"));
        collection->AppendItem(new CountedObject(&destroyed, "b"));
        collection->AddEventListener(&log);
        collection->Clear();
        EXPECT_EQ(log.events.size(), 6u);
        EXPECT_EQ(destroyed, 2);
        collection->AppendItem(new CountedObject(&destroyed, "c"));
        log.events.clear();
    }
    EXPECT_EQ(log.events, (std::vector<std::string>{"remove:null", "removed:null", "change"}));
    EXPECT_EQ(destroyed, 3);
}

TEST(XmlCollection, AttributesOfEveryItemAreWrittenInOrder)
{
    // An item whose attributes are one attribute named after it.
    class Tagged : public CountedObject {
    public:
        using CountedObject::CountedObject;

    protected:
        void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext&) const override
        {
            writer->WriteAttributeString(GetElementName(), "", "1", ItemTypeString);
        }
    };
    class Root : public CountedObject {
    public:
        Root() : CountedObject(nullptr, "root"), items(new ObjectCollection) {}
        CSmartPtr<ObjectCollection> items;

    protected:
        void ToXml_Int(CXmlWriter* writer, bool, const char*, const CXmlSerializationContext& context,
                       bool) const override
        {
            writer->WriteStartElement("root", "");
            CXmlObjectBase::AttributesToXml_Int(items, writer, context);
            writer->WriteEndElement();
        }
    };
    CSmartPtr<Root> root(new Root);
    root->items->AppendItem(new Tagged(nullptr, "b"));
    root->items->AppendItem(nullptr);
    root->items->PrependItem(new Tagged(nullptr, "a"));
    EXPECT_EQ(root->ToXml(false, false), "<root a=\"1\" b=\"1\"/>");
}

TEST(CollectionCount, BoundsWithTheMaximumReportedFirst)
{
    CXmlSerializationContext context;
    CSmartPtr<ObjectCollection> unbounded(new ObjectCollection);
    for (int i = 0; i < 5; ++i)
        unbounded->AppendItem(nullptr);
    EXPECT_TRUE(unbounded->IsValidCount(context));
    EXPECT_NO_THROW(unbounded->ValidateCount(context));

    CSmartPtr<ObjectCollection> phones(new ObjectCollection("Phone", "", 2, 3));
    phones->AppendItem(nullptr);
    EXPECT_FALSE(phones->IsValidCount(context));
    ExpectFailure<CNxValidationException>([&] { phones->ValidateCount(context); },
                                          "The Minimum number of [Phone] elements allowed in this collection is 2");
    phones->AppendItem(nullptr);
    phones->AppendItem(nullptr);
    EXPECT_TRUE(phones->IsValidCount(context));
    EXPECT_NO_THROW(phones->ValidateCount(context));
    phones->AppendItem(nullptr);
    EXPECT_FALSE(phones->IsValidCount(context));
    ExpectFailure<CNxValidationException>([&] { phones->ValidateCount(context); },
                                          "The Maximum number of [Phone] elements allowed in this collection is 3");

    // A minimum above the maximum: too many is what gets reported.
    CSmartPtr<ObjectCollection> impossible(new ObjectCollection("X", "", 5, 1));
    impossible->AppendItem(nullptr);
    impossible->AppendItem(nullptr);
    ExpectFailure<CNxValidationException>([&] { impossible->ValidateCount(context); },
                                          "The Maximum number of [X] elements allowed in this collection is 1");

    context.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_TRUE(impossible->IsValidCount(context));
    EXPECT_NO_THROW(impossible->ValidateCount(context));
}
