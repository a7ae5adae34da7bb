// Helpers for the tests of the typed collections: construction with the
// usual arguments, access to the protected walks, a writer that records
// what it is asked to write, and a listener that records events.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NxXmlLib9.h"
#include "RegisterVersion.h"
#include "TestObjects.h"

namespace NxTest {

using namespace NxXmlLib9;

// A collection of items named "v" in no namespace, with the given facets.
struct Facets {
    int minOccurs = 0;
    int maxOccurs = -1;
    const char* pattern = nullptr;
    int minLength = -1;
    int maxLength = -1;
    const char* minInclusive = nullptr;
    const char* maxInclusive = nullptr;
    const char* minExclusive = nullptr;
    const char* maxExclusive = nullptr;
    int length = -1;
    CWhitespaceUtils::WhitespaceRule whitespace = CWhitespaceUtils::WhitespaceRuleCollapse;
    const char* format = nullptr;
};

template <class Col>
CSmartPtr<Col> Make(const Facets& f = Facets(), const char* name = "v", const char* namespaceUri = "")
{
    return new Col(name, namespaceUri, f.minOccurs, f.maxOccurs, f.pattern, f.minLength, f.maxLength,
                   f.minInclusive, f.maxInclusive, f.minExclusive, f.maxExclusive, f.length, f.whitespace,
                   f.format);
}

// The collection written inside a root element <r>, as unformatted text.
inline std::string WriteText(const CXmlObjectBase& collection,
                             const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext)
{
    CTextStream stream;
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.SetFormat(false);
    writer.WriteStartElement("r", "");
    Walks::Write(collection, writer, context);
    writer.WriteEndElement();
    return std::string(stream.GetText(), stream.GetLength());
}

// Reads every child of the root of xml into the collection and returns what
// the reading loop returned.
inline CXmlElement* ReadText(CXmlObjectBase& collection, CXmlDocument& document, const char* xml)
{
    document.LoadXml(xml);
    return Walks::Read(collection, document.GetDocumentElement()->GetFirstElement());
}

// Records every element a walk writes: its name, namespace, text and the
// item type the text was written with.
class RecordingWriter : public CXmlWriter {
public:
    struct Item {
        std::string name;
        std::string namespaceUri;
        std::string text;
        ItemType type;
    };
    std::vector<Item> items;

    void WriteComment(const std::string&) override {}
    void WritePI(const std::string&) override {}
    void WriteInlineSchema(const std::string&) override {}
    void WriteStartElement(const std::string& name, const std::string& namespaceUri) override
    {
        items.push_back({name, namespaceUri, "", ItemTypeNone});
    }
    void WriteString(const std::string& text, ItemType type) override
    {
        items.back().text = text;
        items.back().type = type;
    }
    void WriteEndElement() override {}
    void WriteAttributeString(const std::string&, const std::string&, const std::string&, ItemType) override {}
    void WriteAttributeType(const std::string&, const std::string&, ItemType) override {}
    void WriteAttributeNil() override {}
};

// Records each event with its source and the data decoded as T (for the add
// events) or as the index (for the remove events).
template <class T>
class EventLog : public IEventSink {
public:
    struct Event {
        MsgType type;
        T value{};       // add events
        int index = -7;  // remove events; -7 when the data is null
        CXmlObjectBase* source = nullptr;
        bool operator==(const Event& o) const
        {
            return type == o.type && value == o.value && index == o.index;
        }
    };
    std::vector<Event> events;

    void OnEvent(CXmlObjectBase* source, MsgType type, void* data) override
    {
        Event event;
        event.type = type;
        event.source = source;
        if ((type == MsgType_CollectionAdd || type == MsgType_CollectionAddComplete) && data)
            event.value = *static_cast<T*>(data);
        if ((type == MsgType_CollectionRemove || type == MsgType_CollectionRemoveComplete) && data)
            event.index = *static_cast<int*>(data);
        events.push_back(event);
    }
    CXmlObjectBase* GetBase() override { return nullptr; }

    static Event Add(T value) { return {MsgType_CollectionAdd, value}; }
    static Event AddComplete(T value) { return {MsgType_CollectionAddComplete, value}; }
    static Event Change() { return {MsgType_CollectionChange}; }
    static Event Remove(int index) { return {MsgType_CollectionRemove, T{}, index}; }
    static Event RemoveComplete(int index) { return {MsgType_CollectionRemoveComplete, T{}, index}; }
};

} // namespace NxTest
