// Small generated-like classes and element records for testing the write
// and read walks on their own. A WalkObject keeps its properties in a map
// and takes its records from a WalkTables object that the test assembles;
// the element records are minimal stand-ins imitating the three families
// (sequence, all, choice) in what the walks observe: the results of
// ElementToXml, ElementFromXml and Validate, the cursor, and the choice
// member kind.
#pragma once

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "NxXmlLib9.h"

namespace NxWalkTest {

using NxXmlLib9Data::CAttributeInfo;
using NxXmlLib9Data::CElementInfo;
using NxXmlLib9Data::CParentElementInfo;
using NxXmlLib9Data::XmlElementGroupType;
using NxXmlLib9Data::XmlElementType;

// The group whose entries a stand-in imitates.
enum class Flavor { Seq, All, Choice };

// The records of one test class, owned here; the arrays end in null.
struct WalkTables {
    WalkTables(XmlElementGroupType group, XmlElementType type, const char* typeName, const char* typeNamespace,
               int textIndex = -1, bool rejectUnknown = true, bool mayWriteType = false)
        : info(new CParentElementInfo(group, type, typeName, typeNamespace, textIndex, rejectUnknown, mayWriteType))
    {
    }
    WalkTables& Element(CElementInfo* entry)
    {
        elementOwners.emplace_back(entry);
        elements.insert(elements.end() - 1, entry);
        return *this;
    }
    WalkTables& Attribute(CAttributeInfo* entry)
    {
        attributeOwners.emplace_back(entry);
        attributes.insert(attributes.end() - 1, entry);
        return *this;
    }

    std::unique_ptr<CParentElementInfo> info;
    std::vector<std::unique_ptr<CElementInfo>> elementOwners;
    std::vector<CElementInfo*> elements{nullptr};
    std::vector<std::unique_ptr<CAttributeInfo>> attributeOwners;
    std::vector<CAttributeInfo*> attributes{nullptr};
};

class WalkObject : public NxXmlLib9::CXmlGeneratedClass {
public:
    WalkObject(std::shared_ptr<WalkTables> tables, const char* name, const char* ns = "")
        : m_tables(std::move(tables)), m_namespace(ns)
    {
        SetElementName(name);
    }

    NxXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return m_namespace; }
    std::string GetNamespace() const override { return m_namespace; }

    void AccessProperty(int index, bool read, NxXmlLib9::NxVariant& value) override
    {
        if (!read) {
            props[index] = value;
            return;
        }
        auto found = props.find(index);
        if (found != props.end())
            value = found->second;
    }
    CParentElementInfo* GetClassInfo() const override { return m_tables->info.get(); }
    CElementInfo** GetClassElementInfo() const override { return m_tables->elements.data(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return m_tables->attributes.data(); }
    void Init() override
    {
        ++inits;
        props = initial;
        if (onInit)
            onInit(*this);
    }

    // The child's own walk, for the stand-in entries that write a child.
    void WriteAsChild(NxXmlLib9::CXmlWriter* writer, const std::string& ns,
                      const NxXmlLib9::CXmlSerializationContext& context, bool isOptionalChoice) const
    {
        ToXml_Int(writer, false, ns.c_str(), context, isOptionalChoice);
    }
    // The read walk, entered directly with a chosen cursor and flag.
    NxXmlLib9::CXmlElement* Read(NxXmlLib9::CXmlElement* element, NxXmlLib9::CXmlElement* cursor,
                                 const NxXmlLib9::CXmlSerializationContext& context, bool isOptionalChoice)
    {
        return FromXml_Int(element, cursor, context, isOptionalChoice);
    }

    // The property as text, "-" when unset.
    std::string Text(int index) const
    {
        auto found = props.find(index);
        return found == props.end() || !found->second.IsValid() ? "-" : found->second.ToString();
    }
    template <class T = WalkObject>
    T* Child(int index) const
    {
        auto found = props.find(index);
        return found == props.end() ? nullptr
                                    : dynamic_cast<T*>(static_cast<NxXmlLib9::CXmlObjectBase*>(
                                          found->second.GetXmlObject()));
    }

    std::map<int, NxXmlLib9::NxVariant> props;
    std::map<int, NxXmlLib9::NxVariant> initial;
    std::function<void(WalkObject&)> onInit;
    int inits = 0;

private:
    std::shared_ptr<WalkTables> m_tables;
    std::string m_namespace;
};

class NillableObject : public WalkObject, public NxXmlLib9::INillable {
public:
    using WalkObject::WalkObject;
    bool IsNil() const override { return nil; }
    void SetNil(bool value) override { nil = value; }
    void Init() override
    {
        nil = false;
        WalkObject::Init();
    }
    bool nil = false;
};

// Factories of optional children, by class number; tests register makers.
inline std::map<int, std::function<NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase>(const char*)>>& Makers()
{
    static std::map<int, std::function<NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase>(const char*)>> makers;
    return makers;
}
inline NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> MakeByNumber(int classNumber, const char* name)
{
    return Makers().at(classNumber)(name);
}

// A primitive element. On reading, a mismatch satisfies an optional entry of
// a sequence and refuses otherwise; Validate acts as in an all group.
class TextEntry : public CElementInfo {
public:
    TextEntry(const char* name, const char* ns, int index, NxXmlLib9::ItemType type, Flavor flavor, bool optional,
              const NxXmlLib9::CPrimitiveRestrictions& restrictions = NxXmlLib9::CPrimitiveRestrictions())
        : CElementInfo(name, ns, index, type, nullptr, NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse,
                       restrictions),
          m_flavor(flavor),
          m_optional(optional)
    {
    }
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override
    {
        NxXmlLib9::NxVariant value;
        ReadProperty(object, value);
        if (!value.IsValid())
            return false;
        CheckRestriction(value);
        writer->WriteStartElement(m_name, m_namespace);
        writer->WriteString(value.ToString(m_format), value.GetItemType());
        writer->WriteEndElement();
        return true;
    }
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement** cursor, const char*,
                        XmlElementType) override
    {
        ++offers;
        if (!IsThisElement(context, *cursor))
            return m_flavor == Flavor::Seq && m_optional;
        NxXmlLib9::NxVariant value;
        value.FromString((*cursor)->GetText(), m_itemType, m_whitespaceRule);
        AccessProperty(object, false, value);
        *cursor = (*cursor)->GetNextSiblingElement();
        return true;
    }
    bool Validate(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass*, bool found,
                  bool mustThrow) const override
    {
        if (m_optional)
            return true;
        if (!found && mustThrow)
            throw NxXmlLib9::CNxValidationException(
                NxXmlLib9::FormatString("Failed to find the mandatory element [%s]", m_name.c_str()));
        return found;
    }
    ChoiceMemberKind GetChoiceMemberKind() const override
    {
        return m_flavor == Flavor::Choice ? ChoiceMemberOptional : ChoiceMemberNone;
    }
    int offers = 0;

private:
    Flavor m_flavor;
    bool m_optional;
};

// A child object with an element of its own or a pseudo child. A mandatory
// child exists already; an optional one is made by the class number's
// maker and stored after reading.
class ChildEntry : public CElementInfo {
public:
    ChildEntry(const char* name, const char* ns, int index, XmlElementType childType, Flavor flavor, bool optional,
               int classNumber = 0)
        : CElementInfo(name, ns, index),
          m_childType(childType),
          m_flavor(flavor),
          m_optional(optional),
          m_classNumber(classNumber)
    {
    }
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext& context, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override
    {
        const WalkObject* child = ReadChild(object);
        if (!child)
            return false;
        child->WriteAsChild(writer, m_namespace, context, m_flavor == Flavor::Choice);
        return true;
    }
    void PseudoChildAttributeToXml(const NxXmlLib9::CXmlSerializationContext& context,
                                   const NxXmlLib9::CXmlGeneratedClass* object,
                                   NxXmlLib9::CXmlWriter* writer) const override
    {
        if (m_childType != NxXmlLib9Data::XmlElementType_Pseudo)
            return;
        if (const WalkObject* child = ReadChild(object))
            AttributesToXml_Int(child, writer, context);
    }
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char*,
                        XmlElementType) override
    {
        const bool satisfiedWithout = m_flavor == Flavor::Seq && m_optional;
        if (m_childType == NxXmlLib9Data::XmlElementType_Element) {
            if (!IsThisElement(context, *cursor))
                return satisfiedWithout;
            NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> child = Obtain(object);
            FromXml_Int(child, *cursor, (*cursor)->GetFirstElement(), context, m_flavor == Flavor::Choice);
            *cursor = (*cursor)->GetNextSiblingElement();
            Store(object, child);
            return true;
        }
        if (!*cursor)
            return satisfiedWithout;
        NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> child = Obtain(object);
        NxXmlLib9::CXmlElement* next = FromXml_Int(child, parent, *cursor, context, false);
        if (next == *cursor)
            return satisfiedWithout;
        *cursor = next;
        Store(object, child);
        return true;
    }
    bool Validate(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass*, bool found,
                  bool mustThrow) const override
    {
        if (!found && !m_optional && mustThrow)
            throw NxXmlLib9::CNxValidationException(
                NxXmlLib9::FormatString("Failed to find the mandatory element [%s]", m_name.c_str()));
        return found || m_optional;
    }
    ChoiceMemberKind GetChoiceMemberKind() const override
    {
        return m_flavor == Flavor::Choice ? ChoiceMemberOptional : ChoiceMemberNone;
    }

private:
    const WalkObject* ReadChild(const NxXmlLib9::CXmlGeneratedClass* object) const
    {
        NxXmlLib9::NxVariant value;
        ReadProperty(object, value);
        return value.IsValid()
                   ? dynamic_cast<const WalkObject*>(static_cast<NxXmlLib9::CXmlObjectBase*>(value.GetXmlObject()))
                   : nullptr;
    }
    NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> Obtain(NxXmlLib9::CXmlGeneratedClass* object) const
    {
        if (m_optional)
            return MakeByNumber(m_classNumber, m_name.c_str());
        NxXmlLib9::NxVariant value;
        ReadProperty(object, value);
        return value.GetXmlObject();
    }
    void Store(NxXmlLib9::CXmlGeneratedClass* object, NxXmlLib9::CXmlObjectBase* child) const
    {
        if (!m_optional)
            return;
        NxXmlLib9::NxVariant value;
        value.SetXmlObject(child);
        AccessProperty(object, false, value);
    }

    XmlElementType m_childType;
    Flavor m_flavor;
    bool m_optional;
    int m_classNumber;
};

// A list of strings, one element each, with bounds.
class TextList : public NxXmlLib9::CXmlTypeCollection {
public:
    TextList(const char* name, const char* ns, int minOccurs, int maxOccurs)
        : CXmlTypeCollection(NxXmlLib9::ItemTypeString, name, ns, minOccurs, maxOccurs, nullptr, -1, -1, nullptr,
                             nullptr, nullptr, nullptr, -1, NxXmlLib9::CWhitespaceUtils::WhitespaceRuleNone, nullptr),
          m_namespace(ns)
    {
    }
    int GetCount() const override { return static_cast<int>(items.size()); }
    void Clear() override { items.clear(); }
    void Remove(int index) override { items.erase(items.begin() + index); }
    void AddFromString(std::string text) override { items.push_back(std::move(text)); }
    void Write(NxXmlLib9::CXmlWriter* writer) const
    {
        for (const std::string& item : items) {
            writer->WriteStartElement(GetElementName(), m_namespace);
            writer->WriteString(item, NxXmlLib9::ItemTypeString);
            writer->WriteEndElement();
        }
    }
    std::vector<std::string> items;

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter* writer, bool, const char*, const NxXmlLib9::CXmlSerializationContext&,
                   bool) const override
    {
        Write(writer);
    }

private:
    std::string m_namespace;
};

// A collection member of a group: reads the run at the cursor; a choice
// member is selected only when the run is not empty.
class ListEntry : public CElementInfo {
public:
    ListEntry(const char* name, const char* ns, int index, Flavor flavor)
        : CElementInfo(name, ns, index), m_flavor(flavor)
    {
    }
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass* object,
                      NxXmlLib9::CXmlWriter* writer) const override
    {
        TextList* list = ReadList(object);
        if (!list || list->GetCount() == 0)
            return false;
        list->Write(writer);
        return true;
    }
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char*,
                        XmlElementType parentType) override
    {
        TextList* list = ReadList(object);
        NxXmlLib9::CXmlElement* next = FromXml_Int(list, parent, *cursor, context, false);
        if (next == *cursor && m_flavor == Flavor::Choice)
            return false;
        *cursor = next;
        if (parentType == NxXmlLib9Data::XmlElementType_Element)
            list->ValidateCount(context);
        return true;
    }
    bool Validate(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass*, bool,
                  bool) const override
    {
        return true;
    }
    ChoiceMemberKind GetChoiceMemberKind() const override
    {
        return m_flavor == Flavor::Choice ? ChoiceMemberCollection : ChoiceMemberNone;
    }

private:
    TextList* ReadList(const NxXmlLib9::CXmlGeneratedClass* object) const
    {
        NxXmlLib9::NxVariant value;
        ReadProperty(object, value);
        return dynamic_cast<TextList*>(static_cast<NxXmlLib9::CXmlCollectionBase*>(value.GetXmlCollection()));
    }

    Flavor m_flavor;
};


// ---- A record class used by the walk tests ------------------------------
//
// rec: a (string), b? (int), kid (a child with v, a string of at most three
// characters); attributes id (int, at most 99) and colour? (enumeration,
// default red). kid may be a pseudo child, which then has the optional
// attribute pa.

inline const char* ColourText(int value)
{
    static const char* const names[] = {"red", "green", "blue"};
    return value >= 0 && value < 3 ? names[value] : nullptr;
}
inline int ColourNumber(const char* text)
{
    for (int i = 0; i < 3; ++i)
        if (std::string(text) == ColourText(i))
            return i;
    throw NxXmlLib9::CNxInvalidValueException(NxXmlLib9::FormatString("Unknown colour [%s]", text));
}

enum { PA, PB, PKid, PV, PId, PColour, PText };

inline std::shared_ptr<WalkTables> KidTables(XmlElementType type = NxXmlLib9Data::XmlElementType_Element)
{
    using namespace NxXmlLib9;
    using namespace NxXmlLib9Data;
    auto tables = std::make_shared<WalkTables>(NxXmlLib9Data::XmlElementGroupType_Sequence, type, "KidType", "", -1, false);
    CPrimitiveRestrictions shortText;
    shortText.MaxLength = 3;
    tables->Element(new TextEntry("v", "", PV, ItemTypeString, Flavor::Seq, false, shortText));
    if (type == XmlElementType_Pseudo)
        tables->Attribute(new CAttributeInfoPrimitive("pa", "", PId, true, ItemTypeString, nullptr,
                                                      CWhitespaceUtils::WhitespaceRuleNone, CPrimitiveRestrictions(),
                                                      nullptr));
    return tables;
}

// rec: a (string), b? (int), kid (real child with v); attributes id (int,
// at most 99) and colour? (enumeration, default red).
inline std::shared_ptr<WalkTables> RecTables(XmlElementGroupType group = NxXmlLib9Data::XmlElementGroupType_Sequence,
                                      XmlElementType kidType = NxXmlLib9Data::XmlElementType_Element, int textIndex = -1,
                                      bool mayWriteType = false)
{
    using namespace NxXmlLib9;
    using namespace NxXmlLib9Data;
    auto tables = std::make_shared<WalkTables>(group, XmlElementType_Element, "RecType", "urn:types", textIndex,
                                               true, mayWriteType);
    const Flavor flavor = group == XmlElementGroupType_All ? Flavor::All : Flavor::Seq;
    tables->Element(new TextEntry("a", "", PA, ItemTypeString, flavor, false))
        .Element(new TextEntry("b", "", PB, ItemTypeI4, flavor, true))
        .Element(new ChildEntry("kid", "", PKid, kidType, flavor, false));
    CPrimitiveRestrictions small;
    small.MaxInclusive = "99";
    tables->Attribute(new CAttributeInfoPrimitive("id", "", PId, false, ItemTypeI4, nullptr,
                                                  CWhitespaceUtils::WhitespaceRuleCollapse, small, nullptr))
        .Attribute(new CAttributeInfoEnum("colour", "", PColour, true, &ColourText, &ColourNumber, "red"));
    return tables;
}

template <class T = WalkObject>
NxXmlLib9::CSmartPtr<T> MakeRec(std::shared_ptr<WalkTables> tables, XmlElementType kidType = NxXmlLib9Data::XmlElementType_Element)
{
    NxXmlLib9::CSmartPtr<T> rec(new T(std::move(tables), "rec"));
    auto kidTables = KidTables(kidType);
    rec->onInit = [kidTables](WalkObject& self) {
        self.props[PKid].SetXmlObject(new WalkObject(kidTables, "kid"));
    };
    rec->Init();
    rec->props[PA].SetString("x");
    rec->props[PB].SetI4(3);
    rec->props[PId].SetI4(7);
    rec->props[PColour].SetI4(1);
    rec->Child(PKid)->props[PV].SetString("y");
    return rec;
}

inline std::string FailureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const NxXmlLib9::CNxValidationException& failure) {
        return failure.GetFullMessage();
    } catch (const NxXmlLib9::CNxException& failure) {
        return "(not a validation failure) " + failure.GetFullMessage();
    }
    return "(no failure)";
}

} // namespace NxWalkTest
