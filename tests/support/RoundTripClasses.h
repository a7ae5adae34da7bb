// Classes written the way the code generator writes them, over the library's
// own element and attribute records and walks: typed fields, one
// AccessProperty switch, records built once per class under m_csInit, an Init
// that resets the object, and the collections and factories that generated
// code supplies. Together their tables use every concrete record class.
//
// Schema, in short (namespace empty unless said otherwise):
//   Geo (sequence): Lat (double, -90..90).
//   Address (sequence, nillable): Street, City?, Geo?; attribute kind?
//     (enumeration home|work, default home).
//   Shape (sequence, substitutable; type namespace urn:shapes): Label?.
//     Circle and Square extend it with Radius and Side.
//   Contact (pseudo sequence): Email, Fax?; attribute verified? (boolean).
//   Pay (pseudo choice): Card | Coin (colour).
//   Person (sequence): Name (at most 10 characters), Nick?, Address,
//     Billing?, Contact (pseudo), Pay? (pseudo), Shape (by xsi:type),
//     Spare? (by xsi:type), Colour, Shade?, Phone* (at most 3), Tag*
//     (colours), Item* (addresses), Figure* (shapes by xsi:type), Raw*
//     (untyped), Note? (untyped), any one element; attributes id (int,
//     required, at most 999) and level? (enumeration, default low).
//   Profile (all, namespace urn:rt): Age, Email?, Mood (colour), Shade?,
//     Home (address), Work?, Bio (untyped), Misc? (untyped); attributes
//     since? and any attribute from another namespace.
//   Memo (sequence with text content): Ref?.
//   Pick (choice): Memo | Shape (by xsi:type) | Code | Tone | Blob | Raw*.
//   Bunch (choice of collections, each at least one): Place+ | Form+ |
//     Word{1,3} | Hue+.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "GeneratedTestBase.h"

namespace NxRoundTrip {

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;

inline const char* const kRtNs = "urn:rt";
inline const char* const kShapesNs = "urn:shapes";

using NxGenerated::Access;
using NxGenerated::AccessCollection;
using NxGenerated::AccessNth;
using NxGenerated::AccessObject;
using NxGenerated::ResetAll;
using NxGenerated::Generated;
using NxGenerated::ObjectCol;

// ---- Enumerations --------------------------------------------------------

inline const char* const kColours[] = {"red", "green", "blue"};
inline const char* const kKinds[] = {"home", "work"};
inline const char* const kLevels[] = {"low", "high"};
inline const char* ColourToText(int value)
{
    return NxGenerated::EnumToText(kColours, value, "No colour has the number ");
}
inline int ColourFromText(const char* text)
{
    return NxGenerated::EnumFromText(kColours, text, "[", "] is not a colour");
}
inline const char* KindToText(int value) { return NxGenerated::EnumToText(kKinds, value, "No kind has the number "); }
inline int KindFromText(const char* text)
{
    return NxGenerated::EnumFromText(kKinds, text, "[", "] is not a kind of address");
}
inline const char* LevelToText(int value)
{
    return NxGenerated::EnumToText(kLevels, value, "No level has the number ");
}
inline int LevelFromText(const char* text) { return NxGenerated::EnumFromText(kLevels, text, "[", "] is not a level"); }

inline const CPrimitiveRestrictions kNoFacets;
inline const CWhitespaceUtils::WhitespaceRule kCollapse = CWhitespaceUtils::WhitespaceRuleCollapse;
inline const CWhitespaceUtils::WhitespaceRule kPreserve = CWhitespaceUtils::WhitespaceRulePreserve;

// Class numbers of the factory by number, and the factories.
enum ClassNumber { kAddressClass = 1, kGeoClass, kPayClass, kMemoClass };
CSmartPtr<CXmlObjectBase> MakeByNumber(int classNumber, const char* elementName);
CSmartPtr<CXmlObjectBase> MakeShape(CXmlElement* element);

// ---- Collections of generated code ------------------------------------------

// A repeated colour, held as numbers.
class ColourCol : public CXmlTypeCollection {
public:
    ColourCol(const char* name, int minOccurs, int maxOccurs)
        : CXmlTypeCollection(ItemTypeString, name, "", minOccurs, maxOccurs, nullptr, -1, -1, nullptr, nullptr,
                             nullptr, nullptr, -1, kCollapse, nullptr)
    {
    }
    int GetCount() const override { return static_cast<int>(items.size()); }
    void Clear() override { items.clear(); }
    void Remove(int index) override { items.erase(items.begin() + index); }
    void AddFromString(std::string text) override { items.push_back(ColourFromText(text.c_str())); }
    std::vector<int> items;

protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace, const CXmlSerializationContext&,
                   bool) const override
    {
        for (int item : items) {
            writer->WriteStartElement(GetElementName(), elementNamespace);
            writer->WriteString(ColourToText(item), ItemTypeString);
            writer->WriteEndElement();
        }
    }
};

inline CSmartPtr<CstringCol> NewStringCol(const char* name, int minOccurs, int maxOccurs)
{
    return new CstringCol(name, "", minOccurs, maxOccurs, nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1,
                          kPreserve, nullptr);
}

// ---- Readable dumps of the fields, for comparing objects ------------------

template <class T> std::string Show(const std::optional<T>& field)
{
    if (!field)
        return "-";
    if constexpr (std::is_same_v<T, std::string>)
        return "'" + *field + "'";
    else
        return std::to_string(*field);
}
std::string DumpElement(const CElement* element);
std::string DumpStrings(const CstringCol* col);

// ---- The classes --------------------------------------------------------

class Geo : public Generated<Geo> {
public:
    explicit Geo(const char* name = "Geo") { SetElementName(name); Init(); }
    void Init() override { lat.reset(); }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        if (index == 0)
            Access(lat, read, value);
    }
    std::string Dump() const { return GetElementName() + "{lat=" + Show(lat) + "}"; }

    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "GeoType", "", -1, true,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoSeqPrimMnd("Lat", "", 0, ItemTypeR8, nullptr, kCollapse,
                                           CPrimitiveRestrictions(nullptr, -1, -1, "-90", "90", nullptr, nullptr, -1))};
    }

    std::optional<double> lat;
};

class Address : public Generated<Address>, public INillable {
public:
    explicit Address(const char* name = "Address") { SetElementName(name); Init(); }
    void Init() override
    {
        nil = false;
        ResetAll(street, city, kind);
        geo = nullptr;
    }
    bool IsNil() const override { return nil; }
    void SetNil(bool value) override { nil = value; }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, street, city, geo, kind);
    }
    std::string Dump() const
    {
        return GetElementName() + "{nil=" + std::to_string(nil) + " street=" + Show(street) + " city=" + Show(city) +
               " geo=" + (geo ? geo->Dump() : "-") + " kind=" + Show(kind) + "}";
    }

    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "AddressType", "", -1,
                                      true, false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoSeqPrimMnd("Street", "", 0, ItemTypeString, nullptr, kCollapse, kNoFacets),
                new CElementInfoSeqPrimOpt("City", "", 1, ItemTypeString, nullptr, kPreserve, kNoFacets),
                new CElementInfoSeqClsOpt("Geo", "", 2, XmlElementType_Element, &MakeByNumber, kGeoClass)};
    }
    static std::vector<CAttributeInfo*> MakeAttributes()
    {
        return {new CAttributeInfoEnum("kind", "", 3, true, &KindToText, &KindFromText, "home")};
    }

    bool nil = false;
    std::optional<std::string> street, city;
    CSmartPtr<Geo> geo;
    std::optional<long> kind;
};

// The substitutable shapes: a base and two extensions of it, each of its own
// schema type, so that an element named otherwise carries xsi:type.
template <class Derived>
class ShapeOf : public Generated<Derived> {
public:
    void Init() override { ResetAll(label, size); }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, label, size);
    }
    std::string Dump() const
    {
        return this->GetElementName() + ":" + Derived::kType + "{label=" + Show(label) + " size=" + Show(size) + "}";
    }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, Derived::kType,
                                      kShapesNs, -1, true, true);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        std::vector<CElementInfo*> records {
            new CElementInfoSeqPrimOpt("Label", "", 0, ItemTypeString, nullptr, kPreserve, kNoFacets)};
        if (Derived::kSize)
            records.push_back(
                new CElementInfoSeqPrimMnd(Derived::kSize, "", 1, ItemTypeI4, nullptr, kCollapse, kNoFacets));
        return records;
    }

    std::optional<std::string> label;
    std::optional<long> size;
};

class Shape : public ShapeOf<Shape> {
public:
    static constexpr const char* kType = "Shape";
    static constexpr const char* kSize = nullptr;
    explicit Shape(const char* name = "Shape") { SetElementName(name); Init(); }
};
class Circle : public ShapeOf<Circle> {
public:
    static constexpr const char* kType = "Circle";
    static constexpr const char* kSize = "Radius";
    explicit Circle(const char* name = "Circle") { SetElementName(name); Init(); }
};
class Square : public ShapeOf<Square> {
public:
    static constexpr const char* kType = "Square";
    static constexpr const char* kSize = "Side";
    explicit Square(const char* name = "Square") { SetElementName(name); Init(); }
};

inline std::string DumpShape(const CXmlObjectBase* shape)
{
    if (auto* circle = dynamic_cast<const Circle*>(shape))
        return circle->Dump();
    if (auto* square = dynamic_cast<const Square*>(shape))
        return square->Dump();
    if (auto* plain = dynamic_cast<const Shape*>(shape))
        return plain->Dump();
    return "-";
}

// A nested sequence without an element of its own.
class Contact : public Generated<Contact> {
public:
    Contact() { SetElementName("Contact"); Init(); }
    void Init() override { ResetAll(email, fax, verified); }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, email, fax, verified);
    }
    std::string Dump() const
    {
        return "Contact{email=" + Show(email) + " fax=" + Show(fax) + " verified=" + Show(verified) + "}";
    }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Pseudo, "ContactType", "", -1,
                                      false, false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoSeqPrimMnd("Email", "", 0, ItemTypeString, nullptr, kCollapse, kNoFacets),
                new CElementInfoSeqPrimOpt("Fax", "", 1, ItemTypeString, nullptr, kCollapse, kNoFacets)};
    }
    static std::vector<CAttributeInfo*> MakeAttributes()
    {
        return {new CAttributeInfoPrimitive("verified", "", 2, true, ItemTypeBoolean, nullptr, kCollapse, kNoFacets,
                                            nullptr)};
    }

    std::optional<std::string> email, fax;
    std::optional<bool> verified;
};

// A nested choice without an element of its own.
class Pay : public Generated<Pay> {
public:
    explicit Pay(const char* name = "Pay") { SetElementName(name); Init(); }
    void Init() override { ResetAll(card, coin); }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, card, coin);
    }
    std::string Dump() const { return "Pay{card=" + Show(card) + " coin=" + Show(coin) + "}"; }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Pseudo, "PayType", "", -1, false,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoChoicePrimOpt("Card", "", 0, ItemTypeString, nullptr, kCollapse, kNoFacets),
                new CElementInfoChoiceEnumOpt("Coin", "", 1, &ColourToText, &ColourFromText)};
    }

    std::optional<std::string> card;
    std::optional<long> coin;
};

class Person : public Generated<Person> {
public:
    enum {
        PName, PNick, PAddress, PBilling, PContact, PPay, PShape, PSpare, PColour, PShade, PPhone, PTag, PItem,
        PFigure, PRaw, PNote, PAny, PId, PLevel
    };
    Person() { SetElementName("Person"); Init(); }
    void Init() override
    {
        ResetAll(name, nick, colour, shade, id, level);
        address = new Address("Address");
        contact = new Contact();
        billing = nullptr, pay = nullptr, shape = nullptr, spare = nullptr, note = nullptr;
        phone = NewStringCol("Phone", 0, 3);
        tag = new ColourCol("Tag", 0, -1);
        item = new ObjectCol("Item", "", 0, -1, &MakeAddress);
        figure = new ObjectCol("Figure", "", 0, -1, &MakeShape);
        raw = new CElementCol("", "##any", "", 0, -1);
        any = new CElement("any", "", "##any", "");
    }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, name, nick, address, billing, contact, pay, shape, spare, colour, shade, phone,
                  tag, item, figure, raw, note, any, id, level);
    }
    std::string Dump() const
    {
        std::string text = GetElementName() + "{name=" + Show(name) + " nick=" + Show(nick) + " address=" +
                           address->Dump() + " billing=" + (billing ? billing->Dump() : "-") + " " + contact->Dump() +
                           " pay=" + (pay ? pay->Dump() : "-") + " shape=" + DumpShape(shape) +
                           " spare=" + DumpShape(spare) + " colour=" + Show(colour) + " shade=" + Show(shade) +
                           " phone=" + DumpStrings(phone) + " tag=[";
        for (int t : tag->items)
            text += std::to_string(t) + ";";
        text += "] item=[";
        for (int i = 0; i < item->GetCount(); ++i)
            text += item->At<Address>(i)->Dump() + ";";
        text += "] figure=[";
        for (int i = 0; i < figure->GetCount(); ++i)
            text += DumpShape(figure->At<CXmlObjectBase>(i)) + ";";
        text += "] raw=[";
        for (int i = 0; i < raw->GetCount(); ++i)
            text += DumpElement(raw->Item(i)) + ";";
        return text + "] note=" + DumpElement(note) + " any=" + DumpElement(any) + " id=" + Show(id) +
               " level=" + Show(level) + "}";
    }

    static CSmartPtr<CXmlObjectBase> MakeAddress(CXmlElement* element)
    {
        return new Address(element->GetLocalName().c_str());
    }
    static CParentElementInfo* MakeInfo()
    {
        // Pseudo children share the element's attributes, so unknown ones
        // cannot be refused here.
        return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "PersonType", "", -1,
                                      false, false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {
            new CElementInfoSeqPrimMnd("Name", "", PName, ItemTypeString, nullptr, kCollapse,
                                       CPrimitiveRestrictions(nullptr, -1, 10, nullptr, nullptr, nullptr, nullptr, -1)),
            new CElementInfoSeqPrimOpt("Nick", "", PNick, ItemTypeString, nullptr, kPreserve, kNoFacets),
            new CElementInfoSeqClsMnd("Address", "", PAddress, XmlElementType_Element, &MakeByNumber, kAddressClass,
                                      true),
            new CElementInfoSeqClsOpt("Billing", "", PBilling, XmlElementType_Element, &MakeByNumber, kAddressClass),
            new CElementInfoSeqClsMnd("Contact", "", PContact, XmlElementType_Pseudo, &MakeByNumber, 0, true),
            new CElementInfoSeqClsOpt("Pay", "", PPay, XmlElementType_Pseudo, &MakeByNumber, kPayClass),
            new CElementInfoSeqAbsClsMnd("Shape", "", PShape, XmlElementType_Element, &MakeShape),
            new CElementInfoSeqAbsClsOpt("Spare", "", PSpare, XmlElementType_Element, &MakeShape),
            new CElementInfoSeqEnumMnd("Colour", "", PColour, &ColourToText, &ColourFromText),
            new CElementInfoSeqEnumOpt("Shade", "", PShade, &ColourToText, &ColourFromText),
            new CElementInfoSeqPrimCol("Phone", "", PPhone),
            new CElementInfoSeqEnumCol("Tag", "", PTag),
            new CElementInfoSeqClsCol("Item", "", PItem, XmlElementType_Element),
            new CElementInfoSeqAbsClsCol("Figure", "", PFigure, XmlElementType_Element),
            new CElementInfoSeqUntpdCol("Raw", "", PRaw),
            new CElementInfoSeqUntpdOpt("Note", "", PNote, "##any", ""),
            new CElementInfoSeqUntpdMnd("AnyElement", "", PAny, "##any", ""),
        };
    }
    static std::vector<CAttributeInfo*> MakeAttributes()
    {
        return {new CAttributeInfoPrimitive("id", "", PId, false, ItemTypeI4, nullptr, kCollapse,
                                            CPrimitiveRestrictions(nullptr, -1, -1, nullptr, "999", nullptr, nullptr,
                                                                   -1),
                                            nullptr),
                new CAttributeInfoEnum("level", "", PLevel, true, &LevelToText, &LevelFromText, "low")};
    }

    std::optional<std::string> name, nick;
    CSmartPtr<Address> address, billing;
    CSmartPtr<Contact> contact;
    CSmartPtr<Pay> pay;
    CSmartPtr<CXmlGeneratedClass> shape, spare;
    std::optional<long> colour, shade;
    CSmartPtr<CstringCol> phone;
    CSmartPtr<ColourCol> tag;
    CSmartPtr<ObjectCol> item, figure;
    CSmartPtr<CElementCol> raw;
    CSmartPtr<CElement> note, any;
    std::optional<long> id, level;
};

// An all group in a namespace of its own.
class Profile : public Generated<Profile> {
public:
    static constexpr const char* kNamespace = "urn:rt";
    enum { PAge, PEmail, PMood, PShade, PHome, PWork, PBio, PMisc, PSince, PAnyAttributes };
    Profile() { SetElementName("Profile"); Init(); }
    void Init() override
    {
        ResetAll(age, email, mood, shade, since);
        home = new Address("Home");
        bio = new CElement("Bio", kRtNs, "##any", kRtNs);
        work = nullptr, misc = nullptr;
        anyAttributes = new CAttributeCol("", "##other", kRtNs);
    }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, age, email, mood, shade, home, work, bio, misc, since, anyAttributes);
    }
    std::string Dump() const
    {
        std::string attributes;
        for (int i = 0; i < anyAttributes->GetCount(); ++i) {
            CSmartPtr<CAttribute> a = anyAttributes->Item(i);
            attributes += a->GetNamespace() + "|" + a->GetName() + "=" + a->GetValue() + ";";
        }
        return GetElementName() + "{age=" + Show(age) + " email=" + Show(email) + " mood=" + Show(mood) +
               " shade=" + Show(shade) + " home=" + home->Dump() + " work=" + (work ? work->Dump() : "-") +
               " bio=" + DumpElement(bio) + " misc=" + DumpElement(misc) + " since=" + Show(since) + " any=[" +
               attributes + "]}";
    }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_All, XmlElementType_Element, "ProfileType", kRtNs, -1,
                                      true, false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoAllPrimMnd("Age", kRtNs, PAge, ItemTypeI4, nullptr, kCollapse, kNoFacets),
                new CElementInfoAllPrimOpt("Email", kRtNs, PEmail, ItemTypeString, nullptr, kCollapse, kNoFacets),
                new CElementInfoAllEnumMnd("Mood", kRtNs, PMood, &ColourToText, &ColourFromText),
                new CElementInfoAllEnumOpt("Shade", kRtNs, PShade, &ColourToText, &ColourFromText),
                new CElementInfoAllClsMnd("Home", kRtNs, PHome, XmlElementType_Element, &MakeByNumber, kAddressClass,
                                          true),
                new CElementInfoAllClsOpt("Work", kRtNs, PWork, XmlElementType_Element, &MakeByNumber,
                                          kAddressClass),
                new CElementInfoAllUntpdMnd("Bio", kRtNs, PBio, "##any", kRtNs),
                new CElementInfoAllUntpdOpt("Misc", kRtNs, PMisc, "##any", kRtNs)};
    }
    static std::vector<CAttributeInfo*> MakeAttributes()
    {
        return {new CAttributeInfoPrimitive("since", "", PSince, true, ItemTypeString, nullptr, kCollapse, kNoFacets,
                                            nullptr),
                new CAttributeInfoAny("AnyAttribute", "", PAnyAttributes, true, "##other", kRtNs, nullptr)};
    }

    std::optional<long> age, mood, shade;
    std::optional<std::string> email, since;
    CSmartPtr<Address> home, work;
    CSmartPtr<CElement> bio, misc;
    CSmartPtr<CAttributeCol> anyAttributes;
};

// Text content beside a child element.
class Memo : public Generated<Memo> {
public:
    explicit Memo(const char* name = "Memo") { SetElementName(name); Init(); }
    void Init() override { ResetAll(ref, text); }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, ref, text);
    }
    std::string Dump() const { return GetElementName() + "{ref=" + Show(ref) + " text=" + Show(text) + "}"; }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "MemoType", "", 1, true,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoSeqPrimOpt("Ref", "", 0, ItemTypeI4, nullptr, kCollapse, kNoFacets)};
    }

    std::optional<long> ref;
    std::optional<std::string> text;
};

// A choice of single members and one untyped collection.
class Pick : public Generated<Pick> {
public:
    enum { PMemo, PShape, PCode, PTone, PBlob, PRaw };
    Pick() { SetElementName("Pick"); Init(); }
    void Init() override
    {
        ResetAll(code, tone);
        memo = nullptr, shape = nullptr, blob = nullptr;
        raw = new CElementCol("", "##any", "", 0, -1);
    }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, memo, shape, code, tone, blob, raw);
    }
    std::string Dump() const
    {
        std::string text = "Pick{memo=" + (memo ? memo->Dump() : std::string("-")) + " shape=" + DumpShape(shape) +
                           " code=" + Show(code) + " tone=" + Show(tone) + " blob=" + DumpElement(blob) + " raw=[";
        for (int i = 0; i < raw->GetCount(); ++i)
            text += DumpElement(raw->Item(i)) + ";";
        return text + "]}";
    }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "PickType", "", -1, true,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoChoiceClsOpt("Memo", "", PMemo, XmlElementType_Element, &MakeByNumber, kMemoClass),
                new CElementInfoChoiceAbsClsOpt("Shape", "", PShape, XmlElementType_Element, &MakeShape),
                new CElementInfoChoicePrimOpt("Code", "", PCode, ItemTypeI4, nullptr, kCollapse, kNoFacets),
                new CElementInfoChoiceEnumOpt("Tone", "", PTone, &ColourToText, &ColourFromText),
                new CElementInfoChoiceUntpdOpt("Blob", "", PBlob, "##any", ""),
                new CElementInfoChoiceUntpdCol("Raw", "", PRaw)};
    }

    CSmartPtr<Memo> memo;
    CSmartPtr<CXmlGeneratedClass> shape;
    std::optional<long> code, tone;
    CSmartPtr<CElement> blob;
    CSmartPtr<CElementCol> raw;
};

// A choice of collections that must each hold at least one item, so that an
// empty choice is a failure.
class Bunch : public Generated<Bunch> {
public:
    enum { PPlace, PForm, PWord, PHue };
    Bunch() { SetElementName("Bunch"); Init(); }
    void Init() override
    {
        place = new ObjectCol("Place", "", 1, -1, &Person::MakeAddress);
        form = new ObjectCol("Form", "", 1, -1, &MakeShape);
        word = NewStringCol("Word", 1, 3);
        hue = new ColourCol("Hue", 1, -1);
    }
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        AccessNth(index, read, value, place, form, word, hue);
    }
    std::string Dump() const
    {
        std::string text = "Bunch{place=[";
        for (int i = 0; i < place->GetCount(); ++i)
            text += place->At<Address>(i)->Dump() + ";";
        text += "] form=[";
        for (int i = 0; i < form->GetCount(); ++i)
            text += DumpShape(form->At<CXmlObjectBase>(i)) + ";";
        text += "] word=" + DumpStrings(word) + " hue=[";
        for (int h : hue->items)
            text += std::to_string(h) + ";";
        return text + "]}";
    }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(XmlElementGroupType_Choice, XmlElementType_Element, "BunchType", "", -1, true,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new CElementInfoChoiceClsCol("Place", "", PPlace, XmlElementType_Element),
                new CElementInfoChoiceAbsClsCol("Form", "", PForm, XmlElementType_Element),
                new CElementInfoChoicePrimCol("Word", "", PWord),
                new CElementInfoChoiceEnumCol("Hue", "", PHue)};
    }

    CSmartPtr<ObjectCol> place, form;
    CSmartPtr<CstringCol> word;
    CSmartPtr<ColourCol> hue;
};

// ---- Factories ------------------------------------------------------------

inline CSmartPtr<CXmlObjectBase> MakeByNumber(int classNumber, const char* elementName)
{
    switch (classNumber) {
    case kAddressClass: return new Address(elementName);
    case kGeoClass: return new Geo(elementName);
    case kPayClass: return new Pay(elementName);
    case kMemoClass: return new Memo(elementName);
    }
    return CSmartPtr<CXmlObjectBase>();
}

// By the element's xsi:type, with or without a prefix; no type gives the
// base shape; an unknown type gives nothing.
inline CSmartPtr<CXmlObjectBase> MakeShape(CXmlElement* element)
{
    const std::string type = CClassfactoryBase::GetElementType(element);
    const char* name = element->GetLocalName().c_str();
    if (type.empty() || type == "Shape")
        return new Shape(name);
    if (type == "Circle")
        return new Circle(name);
    if (type == "Square")
        return new Square(name);
    return CSmartPtr<CXmlObjectBase>();
}

// ---- Dumps ----------------------------------------------------------------

inline std::string DumpElement(const CElement* element)
{
    if (!element)
        return "-";
    std::string text = "<" + element->GetNamespace() + "|" + element->GetName();
    CSmartPtr<CAttributeCol> attributes = element->GetAttributes();
    for (int i = 0; i < attributes->GetCount(); ++i)
        text += " " + attributes->Item(i)->GetName() + "=" + attributes->Item(i)->GetValue();
    text += ">" + element->GetText();
    CSmartPtr<CElementCol> children = element->GetElements();
    for (int i = 0; i < children->GetCount(); ++i)
        text += DumpElement(children->Item(i));
    return text + "</>";
}

inline std::string DumpStrings(const CstringCol* col)
{
    std::string text = "[";
    for (int i = 0; i < col->GetCount(); ++i)
        text += "'" + col->Item(i) + "';";
    return text + "]";
}


// ---- Filled objects -------------------------------------------------------

inline CSmartPtr<Person> FullPerson()
{
    CSmartPtr<Person> p(new Person());
    p->name = "Ann";
    p->nick = " An ";
    p->address->street = "Main";
    p->address->city = "Oslo";
    p->address->geo = new Geo();
    p->address->geo->lat = 59.5;
    p->address->kind = 1;
    p->billing = new Address("Billing");
    p->billing->street = "Dock";
    p->contact->email = "a@b";
    p->contact->verified = true;
    p->pay = new Pay();
    p->pay->coin = 2;
    CSmartPtr<Circle> circle(new Circle("Shape"));
    circle->size = 4;
    p->shape = circle;
    CSmartPtr<Shape> spare(new Shape("Spare"));
    spare->label = "plain";
    p->spare = spare;
    p->colour = 2;
    p->shade = 0;
    p->phone->Add("1");
    p->phone->Add("2");
    p->tag->items = {1, 0};
    CSmartPtr<Address> item(new Address("Item"));
    item->street = "I";
    p->item->AppendItem(item);
    CSmartPtr<Square> square(new Square("Figure"));
    square->size = 3;
    square->label = "sq";
    p->figure->AppendItem(square);
    CSmartPtr<Circle> round(new Circle("Figure"));
    round->size = 1;
    p->figure->AppendItem(round);
    CSmartPtr<CElement> raw = p->raw->Add("Raw", "");
    raw->SetText("r");
    raw->GetAttributes()->Add("q", "1");
    p->note = new CElement("Note");
    p->note->SetText("n");
    p->any->SetName("free");
    p->any->SetText("f");
    p->id = 7;
    p->level = 1;
    return p;
}

inline CSmartPtr<Profile> FullProfile()
{
    CSmartPtr<Profile> p(new Profile());
    p->age = 41;
    p->email = "p@q";
    p->mood = 1;
    p->shade = 2;
    p->home->street = "Elm";
    p->work = new Address("Work");
    p->work->street = "Mill";
    p->bio->SetText("bio");
    p->misc = new CElement("Misc", kRtNs);
    p->misc->SetText("m");
    p->since = "2001";
    p->anyAttributes->Add("extra", "x", "");
    p->anyAttributes->Add("mark", "y", "urn:other");
    return p;
}

} // namespace NxRoundTrip
