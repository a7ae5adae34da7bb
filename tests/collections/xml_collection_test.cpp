#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "RegisterVersion.h"
#include "TestObjects.h"

using namespace NxXmlLib9;
using NxTest::CountedObject;

namespace {

// Records each event as "add:<item name>@<count>", "complete:...", "change@..",
// "remove:null@..", "removed:null@..", the count being the collection's at
// the time of the event.
class EventLog : public IEventSink {
public:
    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
    {
        const char* names[] = {"change", "add:", "complete:", "remove:", "removed:"};
        std::string text = names[type];
        if (type == MsgType_CollectionAdd || type == MsgType_CollectionAddComplete)
            text += data ? static_cast<CXmlObjectBase*>(data)->GetElementName() : "null";
        else if (type != MsgType_CollectionChange)
            text += data ? std::to_string(*static_cast<int*>(data)) : "null";
        events.push_back(text + "@" + std::to_string(static_cast<CXmlCollection*>(source)->GetCount()));
    }
    CXmlObjectBase* GetBase() override { return nullptr; }
    std::vector<std::string> events;
};

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

// Item names from head to tail, checked against the walk back from the tail.
std::string Names(const CXmlCollection& collection)
{
    std::string forward, backward;
    CNode* last = nullptr;
    for (CNode* node = collection.begin(); node != collection.end(); last = node, node = node->next)
        forward += node->item ? node->item->GetElementName() : "-";
    for (CNode* node = last; node; node = node->previous)
        backward.insert(0, node->item ? node->item->GetElementName() : "-");
    EXPECT_EQ(forward, backward) << "previous links disagree with next links";
    return forward;
}

CountedObject* Named(const char* name, int* destroyed = nullptr) { return new CountedObject(destroyed, name); }

} // namespace

TEST(XmlCollection, EventOrderOfAddAndRemove)
{
    EventLog log;
    int destroyed = 0;
    {
        CSmartPtr<ObjectCollection> collection(new ObjectCollection);
        collection->AddEventListener(&log);
        collection->AppendItem(Named("a", &destroyed));
        collection->Remove(0);
        EXPECT_EQ(destroyed, 1);
        collection->AppendItem(Named("b", &destroyed));
    }
    EXPECT_EQ(destroyed, 2);
    EXPECT_EQ(log.events, (std::vector<std::string>{"add:a@0", "complete:a@1", "change@1", "remove:null@1",
                                                     "removed:null@0", "change@0", "add:b@0", "complete:b@1",
                                                     "change@1"}));
}

// Destruction frees the items and tells no listener, so a listener that
// throws cannot end the process from a destructor.
TEST(XmlCollection, DestructionFiresNothing)
{
    struct Throwing : IEventSink {
        void OnEvent(CXmlObjectBase*, MsgType, void*) override { throw CNxException("listener"); }
        CXmlObjectBase* GetBase() override { return nullptr; }
    } throwing;
    int destroyed = 0;
    {
        CSmartPtr<ObjectCollection> collection(new ObjectCollection);
        collection->AppendItem(Named("a", &destroyed));
        collection->AppendItem(Named("b", &destroyed));
        collection->AddEventListener(&throwing);
    }
    EXPECT_EQ(destroyed, 2);
}

TEST(XmlCollection, InsertionPlacesAndTheNullNeighbours)
{
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    CSmartPtr<CountedObject> a(Named("a")), b(Named("b")), c(Named("c")), d(Named("d")), e(Named("e"));
    collection->AddItemAt(0, b);
    collection->PrependItem(a);
    collection->AddAfterItem(b, d);
    collection->AddBeforeItem(d, c);
    EXPECT_EQ(Names(*collection), "abcd");
    // Before nothing means at the end, after nothing at the start.
    collection->AddBeforeItem(nullptr, e);
    collection->AddAfterItem(nullptr, e);
    collection->AddItemAt(6, a);
    collection->AddItemAt(1, nullptr);
    EXPECT_EQ(Names(*collection), "e-abcdea");
    // One object added twice has two nodes; the search finds the first.
    EXPECT_EQ(collection->GetNodeForItem(a), collection->GetNodeAtIndex(2));
    collection->RemoveNode(collection->GetNodeAtIndex(7));
    collection->Remove(0);
    collection->Remove(5);
    EXPECT_EQ(Names(*collection), "-abcd");
    collection->Clear();
    EXPECT_EQ(collection->begin(), nullptr);
    collection->AppendItem(e);
    EXPECT_EQ(Names(*collection), "e");
}

TEST(XmlCollection, FailuresAndWhatTheListenersHeardOfThem)
{
    EventLog log;
    CSmartPtr<ObjectCollection> collection(new ObjectCollection);
    CSmartPtr<CountedObject> member(Named("m")), stranger(Named("s")), item(Named("i"));
    collection->AppendItem(member);
    collection->AddEventListener(&log);
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddItemAt(2, item); }, "Index out of range");
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddItemAt(-1, item); }, "Index out of range");
    ExpectFailure<CNxInvalidParamException>([&] { collection->Remove(1); }, "Index 1 is out of range, use 0 - 1");
    EXPECT_TRUE(log.events.empty());
    // The search comes after the add event.
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddBeforeItem(stranger, item); },
                                            "The object was not found in the collection");
    ExpectFailure<CNxInvalidParamException>([&] { collection->AddAfterItem(stranger, item); },
                                            "The object was not found in the collection");
    EXPECT_EQ(log.events, (std::vector<std::string>{"add:i@1", "add:i@1"}));
    EXPECT_EQ(Names(*collection), "m");
    collection->Clear();
    ExpectFailure<CNxInvalidParamException>([&] { collection->GetNodeAtIndex(0); },
                                            "Index 0 is out of range, use 0 - 0");
}

TEST(XmlCollection, AttributesOfEveryItemAreWrittenInOrder)
{
    // An item whose attributes are one attribute named after it, in a root
    // that writes the collection's attributes.
    class Tagged : public CountedObject {
        using CountedObject::CountedObject;
        void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext&) const override
        {
            writer->WriteAttributeString(GetElementName(), "", "1", ItemTypeString);
        }
    };
    class Root : public CountedObject {
    public:
        CSmartPtr<ObjectCollection> items = new ObjectCollection;

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
    CSmartPtr<ObjectCollection> phones(new ObjectCollection("Phone", "", 2, 3));
    const char* expected[] = {"Minimum", "Minimum", nullptr, nullptr, "Maximum"};
    for (int count = 0; count < 5; phones->AppendItem(nullptr), ++count) {
        EXPECT_EQ(phones->IsValidCount(context), expected[count] == nullptr) << count;
        if (expected[count])
            ExpectFailure<CNxValidationException>(
                [&] { phones->ValidateCount(context); },
                std::string("The ") + expected[count] + " number of [Phone] elements allowed in this collection is " +
                    (count < 2 ? "2" : "3"));
    }
    // Below the minimum and above the maximum at once: the maximum wins.
    CSmartPtr<ObjectCollection> impossible(new ObjectCollection("X", "", 5, 1));
    impossible->AppendItem(nullptr);
    impossible->AppendItem(nullptr);
    ExpectFailure<CNxValidationException>([&] { impossible->ValidateCount(context); },
                                          "The Maximum number of [X] elements allowed in this collection is 1");
    context.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_TRUE(impossible->IsValidCount(context));
    EXPECT_NO_THROW(impossible->ValidateCount(context));
    // No maximum: no count is too many.
    CSmartPtr<ObjectCollection> unbounded(new ObjectCollection);
    for (int i = 0; i < 3; ++i)
        unbounded->AppendItem(nullptr);
    EXPECT_TRUE(unbounded->IsValidCount(CXmlSerializationContext()));
}
