// Test classes for the child element records: a generated class whose table
// is given at construction and whose properties are plain variants, walked
// by hand the way the library's group walkers walk (sequence, all, choice),
// with failures wrapped level by level; collections of texts and of such
// objects; factories by class number and by xsi:type.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "NxXmlLib9.h"

namespace NxElementTest {

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;

inline const char* const kNs = ""; // no namespace keeps the expected texts short

// The records of one test class, owned here and handed out as the
// null-terminated arrays a generated class returns.
class Table {
public:
    Table(XmlElementGroupType group, XmlElementType type, const char* typeName, bool mayWriteType = false)
        : m_info(new CParentElementInfo(group, type, typeName, kNs, -1, false, mayWriteType))
    {
        m_entries.push_back(nullptr);
    }
    template <class Entry, class... Args> Entry* Add(Args&&... args)
    {
        Entry* entry = new Entry(std::forward<Args>(args)...);
        m_owned.emplace_back(entry);
        m_entries.insert(m_entries.end() - 1, entry);
        return entry;
    }
    CParentElementInfo* Info() const { return m_info.get(); }
    CElementInfo** Entries() const { return const_cast<CElementInfo**>(m_entries.data()); }
    CAttributeInfo** Attributes() const { return const_cast<CAttributeInfo**>(m_noAttributes); }

private:
    std::unique_ptr<CParentElementInfo> m_info;
    std::vector<std::unique_ptr<CElementInfo>> m_owned;
    std::vector<CElementInfo*> m_entries;
    CAttributeInfo* m_noAttributes[1] = {nullptr};
};

// A generated class over a given table. Property i is a variant; Init
// clears them and runs the init hook, which puts mandatory children and
// collections in place. The attribute "code" stands for the class's own
// attributes, so that pseudo children can show theirs.
class Bag : public CXmlGeneratedClass {
public:
    using InitHook = std::function<void(Bag&)>;

    Bag(const Table& table, const char* name, InitHook init = {}) : m_table(&table), m_init(std::move(init))
    {
        SetElementName(name);
        Init();
    }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kNs; }
    std::string GetNamespace() const override { return kNs; }
    CParentElementInfo* GetClassInfo() const override { return m_table->Info(); }
    CElementInfo** GetClassElementInfo() const override { return m_table->Entries(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_table->Attributes(); }

    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        log.emplace_back(index, read);
        if (!read) {
            writes.emplace_back(index, value.GetItemType() == ItemTypeXmlObject && !value.GetXmlObject());
            props[index] = value;
            return;
        }
        auto found = props.find(index);
        if (found != props.end())
            value = found->second;
    }
    void Init() override
    {
        ++inits;
        props.clear();
        code.clear();
        if (m_init)
            m_init(*this);
    }

    // Test access to the properties.
    void Set(int index, const NxVariant& value) { props[index] = value; }
    void SetText(int index, const char* text) { props[index].SetString(text); }
    void SetNumber(int index, long number) { props[index].SetI4(number); }
    void SetObject(int index, CXmlObjectBase* object) { props[index].SetXmlObject(object); }
    bool Has(int index) const { return props.count(index) != 0 && props.at(index).IsValid(); }
    std::string Text(int index) const { return Has(index) ? props.at(index).GetString() : "(unset)"; }
    long Number(int index) const { return props.at(index).GetI4(); }
    Bag* Child(int index) const;
    template <class T> T* As(int index) const
    {
        if (!props.count(index))
            return nullptr;
        CSmartPtr<CXmlObjectBase> object = props.at(index).GetXmlObject();
        if (object)
            return dynamic_cast<T*>(static_cast<CXmlObjectBase*>(object));
        return dynamic_cast<T*>(static_cast<CXmlCollectionBase*>(props.at(index).GetXmlCollection()));
    }

    std::map<int, NxVariant> props;
    std::vector<std::pair<int, bool>> log; // every AccessProperty: index, read
    std::vector<std::pair<int, bool>> writes; // every write: index, whether it cleared the property
    std::string code; // the attribute "code"
    int inits = 0;
    mutable int readsAsOptionalChoice = 0;
    mutable int writesAsOptionalChoice = 0;

protected:
    void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const override
    {
        if (!code.empty())
            writer->WriteAttributeString("code", "", code, ItemTypeString);
        for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry)
            (*entry)->PseudoChildAttributeToXml(context, this, writer);
    }

    void ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace, const CXmlSerializationContext& context,
                   bool isOptionalChoice) const override
    {
        writesAsOptionalChoice += isOptionalChoice;
        const bool ownElement = GetClassInfo()->GetElementType() == XmlElementType_Element;
        try {
            if (ownElement) {
                writer->WriteStartElement(GetElementName(), elementNamespace);
                AttributesToXml_Int(writer, context);
            }
            CElementInfo** entries = GetClassElementInfo();
            if (GetClassInfo()->GetGroupType() == XmlElementGroupType_Choice) {
                for (CElementInfo** entry = entries; *entry; ++entry)
                    if ((*entry)->ElementToXml(context, this, writer))
                        break;
            } else {
                for (CElementInfo** entry = entries; *entry; ++entry)
                    (*entry)->ElementToXml(context, this, writer);
            }
            if (ownElement)
                writer->WriteEndElement();
        } catch (const CNxException& e) {
            throw CNxValidationException(
                FormatString("Failed to convert the element [%s] to XML", GetElementName().c_str()), e);
        }
    }

    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool isOptionalChoice) override
    {
        readsAsOptionalChoice += isOptionalChoice;
        try {
            Init();
            const XmlElementType type = GetClassInfo()->GetElementType();
            if (type == XmlElementType_Element)
                SetElementName(element->GetLocalName().c_str());
            for (CXmlAttribute* attribute : element->GetAttributes())
                if (attribute->GetLocalName() == "code")
                    code = attribute->GetValue();
            switch (GetClassInfo()->GetGroupType()) {
            case XmlElementGroupType_Sequence: return ReadSequence(context, element, cursor, type);
            case XmlElementGroupType_All: return ReadAll(context, element, cursor, type);
            default: return ReadChoice(context, element, cursor, type);
            }
        } catch (const CNxException& e) {
            throw CNxValidationException(
                FormatString("Failed to process the element [%s]", element->GetLocalName().c_str()), e);
        }
    }

private:
    static void ThrowLeftover(CXmlElement* element, CXmlElement* cursor)
    {
        throw CNxValidationException(FormatString("Failed read all the elements held within the element [%s]. The "
                                                  "unexpected element [%s] remains un processed",
                                                  element->GetLocalName().c_str(), cursor->GetLocalName().c_str()));
    }

    CXmlElement* ReadSequence(const CXmlSerializationContext& context, CXmlElement* element, CXmlElement* cursor,
                              XmlElementType type)
    {
        CXmlElement* const start = cursor;
        const std::string ns = GetNamespace();
        CElementInfo** entries = GetClassElementInfo();
        for (int i = 0; entries[i];) {
            if (entries[i]->ElementFromXml(context, this, element, &cursor, ns.c_str(), type)) {
                ++i;
                continue;
            }
            if (!context.GetIgnoreUnknownElements() || !cursor)
                return start;
            cursor = cursor->GetNextSiblingElement();
        }
        if (type == XmlElementType_Element && cursor && !context.GetIgnoreUnknownElements())
            ThrowLeftover(element, cursor);
        return cursor;
    }

    CXmlElement* ReadAll(const CXmlSerializationContext& context, CXmlElement* element, CXmlElement* cursor,
                         XmlElementType type)
    {
        CXmlElement* const start = cursor;
        const std::string ns = GetNamespace();
        CElementInfo** entries = GetClassElementInfo();
        std::vector<char> found(GetClassElementInfoCount(), 0);
        while (cursor) {
            CXmlElement* const before = cursor;
            for (size_t i = 0; i < found.size(); ++i)
                if (!found[i])
                    found[i] = entries[i]->ElementFromXml(context, this, element, &cursor, ns.c_str(), type);
            if (cursor == before)
                break;
        }
        for (size_t i = 0; i < found.size(); ++i)
            if (!dynamic_cast<CElementInfoAll*>(entries[i])
                     ->Validate(context, this, found[i] != 0, type == XmlElementType_Element))
                return start;
        if (type == XmlElementType_Element && cursor && !context.GetIgnoreUnknownElements())
            ThrowLeftover(element, cursor);
        return cursor;
    }

    // Enough of the choice walk for its members: the first that takes the
    // element wins; what is left over at a real level fails.
    CXmlElement* ReadChoice(const CXmlSerializationContext& context, CXmlElement* element, CXmlElement* cursor,
                            XmlElementType type)
    {
        const std::string ns = GetNamespace();
        for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry)
            if ((*entry)->ElementFromXml(context, this, element, &cursor, ns.c_str(), type))
                break;
        if (type == XmlElementType_Element && cursor && !context.GetIgnoreUnknownElements())
            ThrowLeftover(element, cursor);
        return cursor;
    }

    const Table* m_table;
    InitHook m_init;
};

inline Bag* Bag::Child(int index) const
{
    return As<Bag>(index);
}

// Tables that the factories know, by class number and by type name.
inline std::map<int, const Table*>& TablesByNumber()
{
    static std::map<int, const Table*> tables;
    return tables;
}
inline std::map<std::string, const Table*>& TablesByType()
{
    static std::map<std::string, const Table*> tables;
    return tables;
}

// Factory by class number: a Bag of the registered table, under the name.
inline CSmartPtr<CXmlObjectBase> MakeByNumber(int classNumber, const char* elementName)
{
    auto found = TablesByNumber().find(classNumber);
    if (found == TablesByNumber().end())
        return CSmartPtr<CXmlObjectBase>();
    return CSmartPtr<CXmlObjectBase>(new Bag(*found->second, elementName));
}

// Factory by element: the table registered for its xsi:type, or for the
// element's own name when it has none; null for an unknown type.
inline CSmartPtr<CXmlObjectBase> MakeByType(CXmlElement* element)
{
    std::string type = CClassfactoryBase::GetElementType(element);
    if (type.empty())
        type = element->GetLocalName();
    auto found = TablesByType().find(type);
    if (found == TablesByType().end())
        return CSmartPtr<CXmlObjectBase>();
    return CSmartPtr<CXmlObjectBase>(new Bag(*found->second, element->GetLocalName().c_str()));
}

// A repeating element of text values: reads the run of its elements and
// writes one element per value.
class TextList : public CXmlCollectionBase {
public:
    TextList(const char* name, int minOccurs, int maxOccurs) : CXmlCollectionBase(name, kNs, minOccurs, maxOccurs) { }
    int GetCount() const override { return static_cast<int>(items.size()); }
    void Clear() override { items.clear(); }
    void Remove(int index) override { items.erase(items.begin() + index); }
    std::vector<std::string> items;

protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace, const CXmlSerializationContext&,
                   bool) const override
    {
        for (const std::string& item : items) {
            writer->WriteStartElement(GetElementName(), elementNamespace);
            writer->WriteString(item, ItemTypeString);
            writer->WriteEndElement();
        }
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* cursor, const CXmlSerializationContext&, bool) override
    {
        for (; cursor && cursor->GetLocalName() == GetElementName(); cursor = cursor->GetNextSiblingElement())
            items.push_back(cursor->GetText());
        return cursor;
    }
};

// A repeating child object. Items of element type 0 are made per element
// (by xsi:type when substitutable); a pseudo item reads from the shared
// cursor for as long as it consumes.
class BagList : public CXmlCollection {
public:
    BagList(const char* name, const Table& items, int minOccurs, int maxOccurs, bool substitutable = false)
        : CXmlCollection(name, kNs, minOccurs, maxOccurs), m_items(&items), m_substitutable(substitutable)
    {
    }
    Bag* Item(int index) const { return dynamic_cast<Bag*>(static_cast<CXmlObjectBase*>(GetNodeAtIndex(index)->item)); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace, const CXmlSerializationContext& context,
                   bool) const override
    {
        for (CNode* node = begin(); node != end(); node = node->next)
            CXmlObjectBase::ToXml_Int(node->item, writer, false, elementNamespace, context, false);
    }
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool) override
    {
        if (m_items->Info()->GetElementType() == XmlElementType_Pseudo) {
            while (cursor) {
                CSmartPtr<Bag> item(new Bag(*m_items, ""));
                CXmlElement* next = CXmlObjectBase::FromXml_Int(item, element, cursor, context);
                if (next == cursor)
                    break;
                AppendItem(item);
                cursor = next;
            }
            return cursor;
        }
        for (; cursor && cursor->GetLocalName() == GetElementName(); cursor = cursor->GetNextSiblingElement()) {
            CSmartPtr<CXmlObjectBase> item
                = m_substitutable ? MakeByType(cursor) : CSmartPtr<CXmlObjectBase>(new Bag(*m_items, ""));
            if (!item)
                break;
            CXmlObjectBase::FromXml_Int(item, cursor, cursor->GetFirstElement(), context);
            AppendItem(item);
        }
        return cursor;
    }

private:
    const Table* m_items;
    bool m_substitutable;
};

// Runs the public entries on a root Bag.
inline std::string Write(const Bag& root, bool format = false,
                         const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext)
{
    return static_cast<const CXmlObjectBase&>(root).ToXml(false, format, EOLTypeLF, context);
}

// The message chain of the failure a call raises, or "(no failure)".
template <class Call> std::string FailureOf(Call call)
{
    try {
        call();
    } catch (const CNxException& e) {
        return e.GetFullMessage();
    }
    return "(no failure)";
}

// Colours for the enumeration records.
inline const char* ColourToText(int value)
{
    static const char* const names[] = {"red", "green", "blue"};
    return value >= 0 && value < 3 ? names[value] : "";
}
inline int ColourFromText(const char* text)
{
    for (int i = 0; i < 3; ++i)
        if (std::string(text) == ColourToText(i))
            return i;
    throw CNxInvalidValueException(FormatString("Unknown colour [%s]", text));
}

// Registers the generator version once for the test program.
struct RegisterVersion {
    RegisterVersion() { RegisterGeneratorVersion(9, 0); }
};
inline RegisterVersion registerVersionOnce;

} // namespace NxElementTest
