// A hand-written pair of generated classes, Person and Address, in the
// namespace urn:test:person. The library's walks do all the reading and
// writing.
//
// Schema, in short:
//   Person (sequence): Name (string), Nick? (string), Address (AddressType),
//     Phone* (string), Colour? (enumeration), any one element (##any);
//     attributes id (int, required) and lang (string, optional, default en).
//   AddressType (sequence): Street (string), City (string).
//
// Person counts the reads it starts, so that tests can see what the library
// did before any work.
#pragma once

#include <string>
#include <vector>

#include "GeneratedTestBase.h"

namespace NxTest {

using NxGenerated::Generated;
using NxXmlLib9Data::CAttributeInfo;
using NxXmlLib9Data::CElementInfo;
using NxXmlLib9Data::CParentElementInfo;

inline constexpr const char* kPersonNamespace = "urn:test:person";

enum PersonClassNumber { ClassNumberAddress = 1, ClassNumberPerson = 2 };

// The factory of the child records.
inline NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> CreatePersonObject(int classNumber, const char* elementName);

class Address : public Generated<Address> {
public:
    static constexpr const char* kNamespace = kPersonNamespace;
    explicit Address(const char* elementName = "Address") { SetElementName(elementName); Init(); }
    void AccessProperty(int index, bool read, NxXmlLib9::NxVariant& value) override
    {
        std::string& field = index == 0 ? Street : City;
        read ? value.SetString(field) : void(field = value.GetString());
    }
    void Init() override { Street.clear(), City.clear(); }

    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(NxXmlLib9Data::XmlElementGroupType_Sequence,
                                      NxXmlLib9Data::XmlElementType_Element, "AddressType", kPersonNamespace, -1,
                                      true, false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        using namespace NxXmlLib9;
        using namespace NxXmlLib9Data;
        const auto preserve = CWhitespaceUtils::WhitespaceRulePreserve;
        return {new CElementInfoSeqPrimMnd("Street", kPersonNamespace, 0, ItemTypeString, nullptr, preserve,
                                           CPrimitiveRestrictions()),
                new CElementInfoSeqPrimMnd("City", kPersonNamespace, 1, ItemTypeString, nullptr, preserve,
                                           CPrimitiveRestrictions())};
    }

    std::string Street;
    std::string City;
};

enum Colour { ColourRed = 0, ColourGreen = 1, ColourBlue = 2 };

inline const char* const kColourNames[] = {"red", "green", "blue"};
inline const char* ColourToText(int value) { return NxGenerated::EnumToText(kColourNames, value, "Unknown Colour "); }
inline int ColourFromText(const char* text)
{
    return NxGenerated::EnumFromText(kColourNames, text, "Unknown Colour [", "]");
}

class Person : public Generated<Person> {
public:
    static constexpr const char* kNamespace = kPersonNamespace;
    enum Property { PName, PNick, PAddress, PPhone, PColour, PAny, PId, PLang };

    explicit Person(const char* elementName = "Person") { SetElementName(elementName); Init(); }
    void AccessProperty(int index, bool read, NxXmlLib9::NxVariant& value) override
    {
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

    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(NxXmlLib9Data::XmlElementGroupType_Sequence,
                                      NxXmlLib9Data::XmlElementType_Element, "Person", kPersonNamespace, -1, true,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        using namespace NxXmlLib9;
        using namespace NxXmlLib9Data;
        const auto collapse = CWhitespaceUtils::WhitespaceRuleCollapse;
        const char* const ns = kPersonNamespace;
        return {new CElementInfoSeqPrimMnd("Name", ns, PName, ItemTypeString, nullptr, collapse,
                                           CPrimitiveRestrictions()),
                new CElementInfoSeqPrimOpt("Nick", ns, PNick, ItemTypeString, nullptr, collapse,
                                           CPrimitiveRestrictions()),
                new CElementInfoSeqClsMnd("Address", ns, PAddress, XmlElementType_Element, &CreatePersonObject,
                                          ClassNumberAddress, true),
                new CElementInfoSeqPrimCol("Phone", ns, PPhone),
                new CElementInfoSeqEnumOpt("Colour", ns, PColour, &ColourToText, &ColourFromText),
                new CElementInfoSeqUntpdMnd("AnyElement", "", PAny, "##any", ns)};
    }
    static std::vector<CAttributeInfo*> MakeAttributes()
    {
        using namespace NxXmlLib9;
        using namespace NxXmlLib9Data;
        const auto collapse = CWhitespaceUtils::WhitespaceRuleCollapse;
        return {new CAttributeInfoPrimitive("id", "", PId, false, ItemTypeI4, nullptr, collapse,
                                            CPrimitiveRestrictions(), nullptr),
                new CAttributeInfoPrimitive("lang", "", PLang, true, ItemTypeString, nullptr, collapse,
                                            CPrimitiveRestrictions(), "en")};
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
    int inits = 0; // how often a read started

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
    case ClassNumberAddress: return new Address(elementName);
    case ClassNumberPerson: return new Person(elementName);
    default:
        throw NxXmlLib9::CNxInvalidParamException(NxXmlLib9::FormatString("Unknown class number %d", classNumber));
    }
}

} // namespace NxTest
