// A hand-written pair of generated classes, Person and Address, written the
// way the code generator writes them: typed fields, one AccessProperty
// switch, lazily built static records and an Init that resets the object.
//
// Schema, in short:
//   Person (sequence): Name (string), Nick? (string), Address (AddressType),
//     Phone* (string), Colour? (enumeration), any one element (##any);
//     attributes id (int, required) and lang (string, optional, default en).
//   AddressType (sequence): Street (string), City (string).
//
// Their table entries are small stand-ins for the library's entry families,
// and the classes read themselves with a hand-written sequence walk
// (HandWalkedClass); both can give way to the library's own once it has
// them, leaving the classes as they are.
#pragma once

#include <atomic>
#include <cstring>
#include <string>
#include <vector>

#include "NxXmlLib9.h"

namespace NxTest {

using NxXmlLib9Data::CAttributeInfo;
using NxXmlLib9Data::CElementInfo;
using NxXmlLib9Data::CParentElementInfo;
using NxXmlLib9Data::XmlElementType;

inline const char* const kPersonNamespace = "urn:test:person";

// ---- Stand-in entries --------------------------------------------------

// What the stand-ins share: writing and validation are not exercised here.
class StandInEntry : public CElementInfo {
public:
    using CElementInfo::CElementInfo;
    bool ElementToXml(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass*,
                      NxXmlLib9::CXmlWriter*) const override
    {
        return false;
    }
    bool Validate(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass*, bool,
                  bool) const override
    {
        return true;
    }
};

// A primitive element, mandatory or optional.
class PrimEntry : public StandInEntry {
public:
    PrimEntry(const char* name, const char* ns, int index, NxXmlLib9::ItemType type, bool optional,
              const NxXmlLib9::CPrimitiveRestrictions& restrictions = NxXmlLib9::CPrimitiveRestrictions())
        : StandInEntry(name, ns, index, type, nullptr, NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse,
                       restrictions),
          m_optional(optional)
    {
    }
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement** cursor, const char*,
                        XmlElementType) override
    {
        if (!IsThisElement(context, *cursor))
            return m_optional;
        NxXmlLib9::NxVariant value;
        value.FromString((*cursor)->GetText(), m_itemType, m_whitespaceRule);
        AccessProperty(object, false, value);
        *cursor = (*cursor)->GetNextSiblingElement();
        return true;
    }

private:
    bool m_optional;
};

// An optional enumeration element.
class EnumEntry : public StandInEntry {
public:
    EnumEntry(const char* name, const char* ns, int index, int (*fromText)(const char*))
        : StandInEntry(name, ns, index), m_fromText(fromText)
    {
    }
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement** cursor, const char*,
                        XmlElementType) override
    {
        if (!IsThisElement(context, *cursor))
            return true;
        NxXmlLib9::NxVariant value;
        value.SetI4(m_fromText((*cursor)->GetText().c_str()));
        AccessProperty(object, false, value);
        *cursor = (*cursor)->GetNextSiblingElement();
        return true;
    }

private:
    int (*m_fromText)(const char*);
};

// A mandatory child object, which exists already and reads its own element.
class ChildEntry : public StandInEntry {
public:
    using StandInEntry::StandInEntry;
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement** cursor, const char*,
                        XmlElementType) override
    {
        if (!IsThisElement(context, *cursor))
            return false;
        NxXmlLib9::NxVariant value;
        ReadProperty(object, value);
        FromXml_Int(value.GetXmlObject(), *cursor, (*cursor)->GetFirstElement(), context, false);
        *cursor = (*cursor)->GetNextSiblingElement();
        return true;
    }
};

// A collection or an untyped element: the held object reads from the
// parent's cursor and says where it stopped.
class DelegateEntry : public StandInEntry {
public:
    DelegateEntry(const char* name, const char* ns, int index, bool collection)
        : StandInEntry(name, ns, index), m_collection(collection)
    {
    }
    bool ElementFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                        NxXmlLib9::CXmlElement* parent, NxXmlLib9::CXmlElement** cursor, const char*,
                        XmlElementType) override
    {
        if (!m_collection && !*cursor)
            return false;
        NxXmlLib9::NxVariant value;
        ReadProperty(object, value);
        NxXmlLib9::CXmlObjectBase* target =
            m_collection ? static_cast<NxXmlLib9::CXmlObjectBase*>(value.GetXmlCollection())
                         : static_cast<NxXmlLib9::CXmlObjectBase*>(value.GetXmlObject());
        *cursor = FromXml_Int(target, parent, *cursor, context, false);
        return true;
    }

private:
    bool m_collection;
};

// A primitive attribute.
class AttrEntry : public CAttributeInfo {
public:
    AttrEntry(const char* name, int index, bool optional, NxXmlLib9::ItemType type, const char* defaultValue)
        : CAttributeInfo(name, "", index, optional, defaultValue), m_type(type)
    {
    }
    void AttributeToXml(const NxXmlLib9::CXmlSerializationContext&, const NxXmlLib9::CXmlGeneratedClass*,
                        NxXmlLib9::CXmlWriter*) const override
    {
    }
    bool AttributeFromXml(const NxXmlLib9::CXmlSerializationContext& context, NxXmlLib9::CXmlGeneratedClass* object,
                          NxXmlLib9::CXmlAttribute* attribute) override
    {
        if (!IsThisAttribute(context, attribute))
            return false;
        NxXmlLib9::NxVariant value;
        value.FromString(attribute->GetValue(), m_type, NxXmlLib9::CWhitespaceUtils::WhitespaceRuleCollapse);
        AccessProperty(object, false, value);
        return true;
    }
    void Validate(const NxXmlLib9::CXmlSerializationContext&, bool found) const override
    {
        if (!m_optional && !found)
            throw NxXmlLib9::CNxValidationException(
                NxXmlLib9::FormatString("Failed to find the required Attribute [%s]", m_name.c_str()));
    }

private:
    NxXmlLib9::ItemType m_type;
};

// ---- The hand-written read walk -----------------------------------------

// A sequence read over the records: attributes first, then each element
// entry in table order, then the text. Failures pass through unwrapped.
class HandWalkedClass : public NxXmlLib9::CXmlGeneratedClass {
protected:
    // Writing is not exercised through these classes.
    void ToXml_Int(NxXmlLib9::CXmlWriter*, bool, const char*, const NxXmlLib9::CXmlSerializationContext&,
                   bool) const override
    {
    }

    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement* element, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext& context, bool) override
    {
        using namespace NxXmlLib9;
        Init();
        CParentElementInfo* info = GetClassInfo();
        if (info->GetElementType() == NxXmlLib9Data::XmlElementType_Element)
            SetElementName(element->GetLocalName().c_str());

        CAttributeInfo** attributes = GetClassAttributeInfo();
        std::vector<char> found(GetCount(attributes), 0);
        for (CXmlAttribute* attribute : element->GetAttributes()) {
            if (attribute->IsNamespaceAttribute())
                continue;
            bool claimed = false;
            for (size_t i = 0; attributes[i] && !claimed; ++i)
                if (attributes[i]->AttributeFromXml(context, this, attribute)) {
                    found[i] = 1;
                    claimed = true;
                }
            if (!claimed && info->GetRejectUnknownAttributes() && !context.GetIgnoreUnknownAttributes())
                throw CNxValidationException(
                    FormatString("Unexpected Attribute [%s] found.", attribute->GetLocalName().c_str()));
        }
        for (size_t i = 0; attributes[i]; ++i)
            attributes[i]->Validate(context, found[i] != 0);

        const std::string classNamespace = GetNamespace();
        for (CElementInfo** entry = GetClassElementInfo(); *entry; ++entry)
            if (!(*entry)->ElementFromXml(context, this, element, &cursor, classNamespace.c_str(),
                                          info->GetElementType()))
                throw CNxValidationException(
                    FormatString("Failed to find the mandatory element [%s]", (*entry)->GetName().c_str()));
        if (cursor)
            throw CNxValidationException(
                FormatString("Unexpected element [%s]", cursor->GetLocalName().c_str()));

        if (info->GetTextPropertyIndex() != -1) {
            NxVariant text;
            text.SetString(element->GetText());
            AccessProperty(info->GetTextPropertyIndex(), false, text);
        }
        return cursor;
    }

private:
    template <class Record>
    static size_t GetCount(Record** table)
    {
        size_t count = 0;
        while (table[count])
            ++count;
        return count;
    }
};

// Holds a class's records, built once under the library's lock on first
// use. Every query takes the lock, which is plain and always correct; the
// build count shows that the records are made only once.
template <class Owner>
struct ClassTables {
    inline static CParentElementInfo* info = nullptr;
    inline static CElementInfo** elements = nullptr;
    inline static CAttributeInfo** attributes = nullptr;
    inline static std::atomic<int> builds{0};

    static void Ensure()
    {
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Enter();
        try {
            if (!info) {
                ++builds;
                Owner::BuildTables(info, elements, attributes);
            }
        } catch (...) {
            NxXmlLib9::CXmlGeneratedClass::m_csInit.Leave();
            throw;
        }
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Leave();
    }
    static void Clean() { NxXmlLib9::CXmlGeneratedClass::CleanMetaData(info, elements, attributes); }
};

// ---- Untyped content and the phone list ---------------------------------

// Stands for the untyped element of the wildcard: keeps the name, namespace
// and text of one element of any kind.
class AnyContent : public NxXmlLib9::CXmlObjectBase {
public:
    explicit AnyContent(const std::string& defaultNamespace) : m_namespace(defaultNamespace) {}
    NxXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return m_namespace; }
    std::string GetNamespace() const override { return m_namespace; }
    std::string GetText() const { return m_text; }

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter*, bool, const char*, const NxXmlLib9::CXmlSerializationContext&,
                   bool) const override
    {
    }
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext&, bool) override
    {
        SetElementName(cursor->GetLocalName().c_str());
        m_namespace = cursor->GetNamespaceURI();
        m_text = cursor->GetText();
        return cursor->GetNextSiblingElement();
    }

private:
    std::string m_namespace;
    std::string m_text;
};

// The repeating Phone element: takes the run of Phone elements at the
// cursor and stops at the first other one.
class PhoneList : public NxXmlLib9::CXmlCollectionBase {
public:
    PhoneList() : CXmlCollectionBase("Phone", kPersonNamespace, 0, -1) {}
    int GetCount() const override { return static_cast<int>(m_items.size()); }
    void Clear() override { m_items.clear(); }
    void Remove(int index) override { m_items.erase(m_items.begin() + index); }
    std::vector<std::string> m_items;

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter*, bool, const char*, const NxXmlLib9::CXmlSerializationContext&,
                   bool) const override
    {
    }
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext&, bool) override
    {
        for (; cursor && cursor->GetLocalName() == "Phone"; cursor = cursor->GetNextSiblingElement())
            m_items.push_back(cursor->GetText());
        return cursor;
    }
};

// ---- The generated classes ----------------------------------------------

class Address : public HandWalkedClass {
public:
    using Tables = ClassTables<Address>;

    Address()
    {
        SetElementName("Address");
        Init();
    }
    NxXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kPersonNamespace; }
    std::string GetNamespace() const override { return kPersonNamespace; }

    void AccessProperty(int index, bool read, NxXmlLib9::NxVariant& value) override
    {
        std::string& field = index == 0 ? Street : City;
        if (read)
            value.SetString(field);
        else
            field = value.GetString();
    }
    CParentElementInfo* GetClassInfo() const override { return Tables::Ensure(), Tables::info; }
    CElementInfo** GetClassElementInfo() const override { return Tables::Ensure(), Tables::elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables::Ensure(), Tables::attributes; }
    void Init() override { Street.clear(), City.clear(); }

    static void BuildTables(CParentElementInfo*& info, CElementInfo**& elements, CAttributeInfo**& attributes)
    {
        info = new CParentElementInfo(NxXmlLib9Data::XmlElementGroupType_Sequence,
                                      NxXmlLib9Data::XmlElementType_Element, "AddressType", kPersonNamespace, -1,
                                      true, false);
        elements = new CElementInfo*[3];
        elements[0] = new PrimEntry("Street", kPersonNamespace, 0, NxXmlLib9::ItemTypeString, false);
        elements[1] = new PrimEntry("City", kPersonNamespace, 1, NxXmlLib9::ItemTypeString, false);
        elements[2] = nullptr;
        attributes = new CAttributeInfo*[1];
        attributes[0] = nullptr;
    }

    std::string Street;
    std::string City;
};

enum Colour { ColourRed = 0, ColourGreen = 1, ColourBlue = 2 };

inline int ColourFromText(const char* text)
{
    static const char* const names[] = {"red", "green", "blue"};
    for (int i = 0; i < 3; ++i)
        if (std::strcmp(text, names[i]) == 0)
            return i;
    throw NxXmlLib9::CNxInvalidValueException(NxXmlLib9::FormatString("Unknown Colour [%s]", text));
}

class Person : public HandWalkedClass {
public:
    using Tables = ClassTables<Person>;

    enum Property { PName, PNick, PAddress, PPhone, PColour, PAny, PId, PLang };

    Person()
    {
        SetElementName("Person");
        Init();
    }
    NxXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kPersonNamespace; }
    std::string GetNamespace() const override { return kPersonNamespace; }

    void AccessProperty(int index, bool read, NxXmlLib9::NxVariant& value) override
    {
        lastIndex = index;
        lastRead = read;
        switch (index) {
        case PName: read ? value.SetString(Name) : void(Name = value.GetString()); break;
        case PNick: AccessOptional(read, value, HasNick, Nick); break;
        case PAddress: value.SetXmlObject(AddressChild); break;
        case PPhone: value.SetXmlCollection(Phones); break;
        case PColour:
            if (!read)
                ColourValue = static_cast<int>(value.GetI4());
            else if (ColourValue >= 0)
                value.SetI4(ColourValue);
            break;
        case PAny: value.SetXmlObject(Any); break;
        case PId: read ? value.SetI4(Id) : void(Id = value.GetI4()); break;
        case PLang: AccessOptional(read, value, HasLang, Lang); break;
        default: break;
        }
    }
    CParentElementInfo* GetClassInfo() const override { return Tables::Ensure(), Tables::info; }
    CElementInfo** GetClassElementInfo() const override { return Tables::Ensure(), Tables::elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables::Ensure(), Tables::attributes; }

    void Init() override
    {
        ++inits;
        Name.clear();
        HasNick = false;
        Nick.clear();
        AddressChild = new Address;
        Phones = new PhoneList;
        ColourValue = -1;
        Any = new AnyContent(CElementInfo::GetAnyDefaultNamespace("##any", kPersonNamespace, kPersonNamespace));
        Id = 0;
        HasLang = false;
        Lang.clear();
    }

    static void BuildTables(CParentElementInfo*& info, CElementInfo**& elements, CAttributeInfo**& attributes)
    {
        using namespace NxXmlLib9;
        info = new CParentElementInfo(NxXmlLib9Data::XmlElementGroupType_Sequence,
                                      NxXmlLib9Data::XmlElementType_Element, "Person", kPersonNamespace, -1, true,
                                      false);
        elements = new CElementInfo*[7];
        elements[0] = new PrimEntry("Name", kPersonNamespace, PName, ItemTypeString, false);
        elements[1] = new PrimEntry("Nick", kPersonNamespace, PNick, ItemTypeString, true);
        elements[2] = new ChildEntry("Address", kPersonNamespace, PAddress);
        elements[3] = new DelegateEntry("Phone", kPersonNamespace, PPhone, true);
        elements[4] = new EnumEntry("Colour", kPersonNamespace, PColour, &ColourFromText);
        elements[5] = new DelegateEntry("AnyElement", "", PAny, false);
        elements[6] = nullptr;
        attributes = new CAttributeInfo*[3];
        attributes[0] = new AttrEntry("id", PId, false, ItemTypeI4, nullptr);
        attributes[1] = new AttrEntry("lang", PLang, true, ItemTypeString, "en");
        attributes[2] = nullptr;
    }

    std::string Name;
    bool HasNick = false;
    std::string Nick;
    NxXmlLib9::CSmartPtr<Address> AddressChild;
    NxXmlLib9::CSmartPtr<PhoneList> Phones;
    int ColourValue = -1;
    NxXmlLib9::CSmartPtr<AnyContent> Any;
    long Id = 0;
    bool HasLang = false;
    std::string Lang;

    // What the library asked for last, and how often a read started.
    int lastIndex = -1;
    bool lastRead = false;
    int inits = 0;

private:
    static void AccessOptional(bool read, NxXmlLib9::NxVariant& value, bool& isSet, std::string& field)
    {
        if (read) {
            if (isSet)
                value.SetString(field);
        } else {
            isSet = value.IsValid();
            field = value.GetString();
        }
    }
};

} // namespace NxTest
