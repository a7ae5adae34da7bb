// A hand-written pair of generated classes, Person and Address, written the
// way the code generator writes them: typed fields, one AccessProperty
// switch, lazily built static records of the library's own entry classes and
// an Init that resets the object. The library's walks do all the reading and
// writing.
//
// Schema, in short:
//   Person (sequence): Name (string), Nick? (string), Address (AddressType),
//     Phone* (string), Colour? (enumeration), any one element (##any);
//     attributes id (int, required) and lang (string, optional, default en).
//   AddressType (sequence): Street (string), City (string).
//
// Beyond generated code, the classes count the builds of their records and
// the reads they start, and Person remembers the last property it was asked
// for, so that tests can see what the library did.
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

inline const char* const kPersonNamespace = "urn:test:person";

enum PersonClassNumber { ClassNumberAddress = 1, ClassNumberPerson = 2 };

// The factory of the child records.
inline NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> CreatePersonObject(int classNumber, const char* elementName);

// Holds a class's records, built once under the library's lock on first use.
// Later queries see the flag and skip the lock; the build count shows that
// the records are made only once.
template <class Owner>
struct ClassTables {
    inline static CParentElementInfo* info = nullptr;
    inline static CElementInfo** elements = nullptr;
    inline static CAttributeInfo** attributes = nullptr;
    inline static std::atomic<int> builds{0};
    inline static std::atomic<bool> built{false};

    static void Ensure()
    {
        if (built.load(std::memory_order_acquire))
            return;
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Enter();
        try {
            if (!built.load(std::memory_order_relaxed)) {
                ++builds;
                Owner::BuildTables(info, elements, attributes);
                built.store(true, std::memory_order_release);
            }
        } catch (...) {
            NxXmlLib9::CXmlGeneratedClass::m_csInit.Leave();
            throw;
        }
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Leave();
    }
    // Only while no object of the class is being walked.
    static void Clean()
    {
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Enter();
        built.store(false, std::memory_order_relaxed);
        NxXmlLib9::CXmlGeneratedClass::CleanMetaData(info, elements, attributes);
        NxXmlLib9::CXmlGeneratedClass::m_csInit.Leave();
    }
};

// ---- Address -------------------------------------------------------------

class Address : public NxXmlLib9::CXmlGeneratedClass {
public:
    using Tables = ClassTables<Address>;

    explicit Address(const char* elementName = "Address")
    {
        SetElementName(elementName);
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
        using namespace NxXmlLib9;
        using namespace NxXmlLib9Data;
        info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "AddressType",
                                      kPersonNamespace, -1, true, false);
        elements = new CElementInfo*[3];
        elements[0] = new CElementInfoSeqPrimMnd("Street", kPersonNamespace, 0, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRulePreserve, CPrimitiveRestrictions());
        elements[1] = new CElementInfoSeqPrimMnd("City", kPersonNamespace, 1, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRulePreserve, CPrimitiveRestrictions());
        elements[2] = nullptr;
        attributes = new CAttributeInfo*[1];
        attributes[0] = nullptr;
    }

    std::string Street;
    std::string City;
};

// ---- Colour --------------------------------------------------------------

enum Colour { ColourRed = 0, ColourGreen = 1, ColourBlue = 2 };

inline const char* const kColourNames[] = {"red", "green", "blue"};

inline const char* ColourToText(int value)
{
    if (value < ColourRed || value > ColourBlue)
        throw NxXmlLib9::CNxInvalidValueException(NxXmlLib9::FormatString("Unknown Colour %d", value));
    return kColourNames[value];
}

inline int ColourFromText(const char* text)
{
    for (int i = ColourRed; i <= ColourBlue; ++i)
        if (std::strcmp(text, kColourNames[i]) == 0)
            return i;
    throw NxXmlLib9::CNxInvalidValueException(NxXmlLib9::FormatString("Unknown Colour [%s]", text));
}

// ---- Person --------------------------------------------------------------

class Person : public NxXmlLib9::CXmlGeneratedClass {
public:
    using Tables = ClassTables<Person>;

    enum Property { PName, PNick, PAddress, PPhone, PColour, PAny, PId, PLang };

    explicit Person(const char* elementName = "Person")
    {
        SetElementName(elementName);
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
        using namespace NxXmlLib9;
        ++inits;
        Name.clear();
        HasNick = false;
        Nick.clear();
        AddressChild = new Address("Address");
        Phones = new CstringCol("Phone", kPersonNamespace, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr,
                                -1, CWhitespaceUtils::WhitespaceRulePreserve, nullptr);
        ColourValue = -1;
        Any = new CElement("AnyElement",
                           CElementInfo::GetAnyDefaultNamespace("##any", kPersonNamespace, kPersonNamespace).c_str(),
                           "##any", kPersonNamespace);
        Id = 0;
        HasLang = false;
        Lang.clear();
    }

    static void BuildTables(CParentElementInfo*& info, CElementInfo**& elements, CAttributeInfo**& attributes)
    {
        using namespace NxXmlLib9;
        using namespace NxXmlLib9Data;
        info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Person", kPersonNamespace,
                                      -1, true, false);
        elements = new CElementInfo*[7];
        elements[0] = new CElementInfoSeqPrimMnd("Name", kPersonNamespace, PName, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRuleCollapse, CPrimitiveRestrictions());
        elements[1] = new CElementInfoSeqPrimOpt("Nick", kPersonNamespace, PNick, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRuleCollapse, CPrimitiveRestrictions());
        elements[2] = new CElementInfoSeqClsMnd("Address", kPersonNamespace, PAddress, XmlElementType_Element,
                                                &CreatePersonObject, ClassNumberAddress, true);
        elements[3] = new CElementInfoSeqPrimCol("Phone", kPersonNamespace, PPhone);
        elements[4] = new CElementInfoSeqEnumOpt("Colour", kPersonNamespace, PColour, &ColourToText, &ColourFromText);
        elements[5] = new CElementInfoSeqUntpdMnd("AnyElement", "", PAny, "##any", kPersonNamespace);
        elements[6] = nullptr;
        attributes = new CAttributeInfo*[3];
        attributes[0] = new CAttributeInfoPrimitive("id", "", PId, false, ItemTypeI4, nullptr,
                                                    CWhitespaceUtils::WhitespaceRuleCollapse, CPrimitiveRestrictions(),
                                                    nullptr);
        attributes[1] = new CAttributeInfoPrimitive("lang", "", PLang, true, ItemTypeString, nullptr,
                                                    CWhitespaceUtils::WhitespaceRuleCollapse, CPrimitiveRestrictions(),
                                                    "en");
        attributes[2] = nullptr;
    }

    // The phone numbers, in order.
    std::vector<std::string> PhoneTexts() const
    {
        std::vector<std::string> texts;
        for (int i = 0; i < Phones->GetCount(); ++i)
            texts.push_back(Phones->Item(i));
        return texts;
    }

    std::string Name;
    bool HasNick = false;
    std::string Nick;
    NxXmlLib9::CSmartPtr<Address> AddressChild;
    NxXmlLib9::CSmartPtr<NxXmlLib9::CstringCol> Phones;
    int ColourValue = -1;
    NxXmlLib9::CSmartPtr<NxXmlLib9::CElement> Any;
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

inline NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> CreatePersonObject(int classNumber, const char* elementName)
{
    switch (classNumber) {
    case ClassNumberAddress: return NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase>(new Address(elementName));
    case ClassNumberPerson: return NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase>(new Person(elementName));
    default:
        throw NxXmlLib9::CNxInvalidParamException(NxXmlLib9::FormatString("Unknown class number %d", classNumber));
    }
}

} // namespace NxTest
