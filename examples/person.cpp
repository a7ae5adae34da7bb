// A Person record bound to XML, written by hand exactly as the code generator
// writes a class for this schema:
//
//   <xs:complexType name="Person">
//     <xs:sequence>
//       <xs:element name="Name" type="xs:string"/>
//       <xs:element name="Nick" type="xs:string" minOccurs="0"/>
//       <xs:element name="Address" type="AddressType"/>
//       <xs:element name="Phone" type="xs:string" minOccurs="0" maxOccurs="unbounded"/>
//       <xs:element name="Colour" type="Colour" minOccurs="0"/>
//       <xs:any namespace="##any" processContents="lax"/>
//     </xs:sequence>
//     <xs:attribute name="id" type="xs:int" use="required"/>
//     <xs:attribute name="lang" type="xs:string" default="en"/>
//   </xs:complexType>
//   <xs:complexType name="AddressType">
//     <xs:sequence>
//       <xs:element name="Street" type="xs:string"/>
//       <xs:element name="City" type="xs:string"/>
//     </xs:sequence>
//   </xs:complexType>
//   <xs:simpleType name="Colour"> red | green | blue </xs:simpleType>
//
// A bound class holds typed fields and no serialization code: it says what
// its element, attribute and class records are and how property number N is
// read or written, and the library's walks do the rest. The program builds a
// Person, writes it as XML, reads that text into a new object and shows that
// both are the same.
#include <NxXmlLib9.h>

#include <atomic>
#include <cstring>
#include <iostream>
#include <string>

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;

namespace PersonSchema {

const char* const kTargetNamespace = "http://www.example.com/person";

// ---- Class numbers and the factory ------------------------------------------

// The child records make objects through the factory, by class number.
enum ClassNumber { ClassNumber_AddressType = 1, ClassNumber_Person = 2 };

CSmartPtr<CXmlObjectBase> CreateObject(int classNumber, const char* elementName);

// ---- The enumeration -------------------------------------------------------

enum Colour { Colour_red = 0, Colour_green = 1, Colour_blue = 2 };

const char* const kColourNames[] = {"red", "green", "blue"};

const char* ColourToText(int value)
{
    if (value < Colour_red || value > Colour_blue)
        throw CNxInvalidValueException(FormatString("The value %d is not a member of the enumeration Colour", value));
    return kColourNames[value];
}

int ColourFromText(const char* text)
{
    for (int value = Colour_red; value <= Colour_blue; ++value)
        if (std::strcmp(text, kColourNames[value]) == 0)
            return value;
    throw CNxInvalidValueException(FormatString("The text [%s] is not a member of the enumeration Colour", text));
}

// ---- The lazily built records of one class ----------------------------------

// Each class builds its records on first use, under the library's lock, and
// keeps them until CleanMetaData. The flag lets every later query go without
// the lock; it is set only once all three tables are complete.
template <class Class>
class MetaData {
public:
    static CParentElementInfo* Info() { return Ensure(), s_info; }
    static CElementInfo** Elements() { return Ensure(), s_elements; }
    static CAttributeInfo** Attributes() { return Ensure(), s_attributes; }

    // Called once at shutdown, when no object is walked any more.
    static void Clean()
    {
        CXmlGeneratedClass::m_csInit.Enter();
        s_built.store(false, std::memory_order_relaxed);
        CXmlGeneratedClass::CleanMetaData(s_info, s_elements, s_attributes);
        CXmlGeneratedClass::m_csInit.Leave();
    }

private:
    static void Ensure()
    {
        if (s_built.load(std::memory_order_acquire))
            return;
        CXmlGeneratedClass::m_csInit.Enter();
        try {
            if (!s_built.load(std::memory_order_relaxed)) {
                Class::BuildMetaData(s_info, s_elements, s_attributes);
                s_built.store(true, std::memory_order_release);
            }
        } catch (...) {
            CXmlGeneratedClass::m_csInit.Leave();
            throw;
        }
        CXmlGeneratedClass::m_csInit.Leave();
    }

    inline static std::atomic<bool> s_built{false};
    inline static CParentElementInfo* s_info = nullptr;
    inline static CElementInfo** s_elements = nullptr;
    inline static CAttributeInfo** s_attributes = nullptr;
};

// ---- AddressType -------------------------------------------------------------

class AddressType : public CXmlGeneratedClass {
public:
    explicit AddressType(const char* elementName = "Address")
    {
        SetElementName(elementName);
        Init();
    }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kTargetNamespace; }
    std::string GetNamespace() const override { return kTargetNamespace; }

    CParentElementInfo* GetClassInfo() const override { return MetaData<AddressType>::Info(); }
    CElementInfo** GetClassElementInfo() const override { return MetaData<AddressType>::Elements(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return MetaData<AddressType>::Attributes(); }

    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        switch (index) {
        case Property_Street:
            read ? value.SetString(m_street) : void(m_street = value.GetString());
            break;
        case Property_City:
            read ? value.SetString(m_city) : void(m_city = value.GetString());
            break;
        default:
            break;
        }
    }

    void Init() override
    {
        m_street.clear();
        m_city.clear();
    }

    const std::string& GetStreet() const { return m_street; }
    void SetStreet(const std::string& street) { m_street = street; }
    const std::string& GetCity() const { return m_city; }
    void SetCity(const std::string& city) { m_city = city; }

    static void BuildMetaData(CParentElementInfo*& info, CElementInfo**& elements, CAttributeInfo**& attributes)
    {
        info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "AddressType",
                                      kTargetNamespace, -1, true, false);
        elements = new CElementInfo*[3];
        elements[0] = new CElementInfoSeqPrimMnd("Street", kTargetNamespace, Property_Street, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRulePreserve, CPrimitiveRestrictions());
        elements[1] = new CElementInfoSeqPrimMnd("City", kTargetNamespace, Property_City, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRulePreserve, CPrimitiveRestrictions());
        elements[2] = nullptr;
        attributes = new CAttributeInfo*[1];
        attributes[0] = nullptr;
    }

private:
    enum Property { Property_Street = 0, Property_City = 1 };

    std::string m_street;
    std::string m_city;
};

// ---- Person -------------------------------------------------------------------

class Person : public CXmlGeneratedClass {
public:
    explicit Person(const char* elementName = "Person")
    {
        SetElementName(elementName);
        Init();
    }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kTargetNamespace; }
    std::string GetNamespace() const override { return kTargetNamespace; }

    CParentElementInfo* GetClassInfo() const override { return MetaData<Person>::Info(); }
    CElementInfo** GetClassElementInfo() const override { return MetaData<Person>::Elements(); }
    CAttributeInfo** GetClassAttributeInfo() const override { return MetaData<Person>::Attributes(); }

    // With read true the field goes into value; an unset optional leaves it
    // invalid. With read false value goes into the field. Mandatory children
    // and collections are only ever read: the object owns them.
    void AccessProperty(int index, bool read, NxVariant& value) override
    {
        switch (index) {
        case Property_Name:
            read ? value.SetString(m_name) : void(m_name = value.GetString());
            break;
        case Property_Nick:
            if (read) {
                if (m_hasNick)
                    value.SetString(m_nick);
            } else {
                m_hasNick = value.IsValid();
                m_nick = value.GetString();
            }
            break;
        case Property_Address:
            value.SetXmlObject(m_address);
            break;
        case Property_Phone:
            value.SetXmlCollection(m_phones);
            break;
        case Property_Colour:
            if (read) {
                if (m_hasColour)
                    value.SetI4(m_colour);
            } else {
                m_hasColour = true;
                m_colour = static_cast<Colour>(value.GetI4());
            }
            break;
        case Property_Any:
            value.SetXmlObject(m_any);
            break;
        case Property_Id:
            read ? value.SetI4(m_id) : void(m_id = static_cast<int>(value.GetI4()));
            break;
        case Property_Lang:
            if (read) {
                if (m_hasLang)
                    value.SetString(m_lang);
            } else {
                m_hasLang = value.IsValid();
                m_lang = value.GetString();
            }
            break;
        default:
            break;
        }
    }

    // Back to the state of a new object: every read starts here.
    void Init() override
    {
        m_name.clear();
        m_hasNick = false;
        m_nick.clear();
        m_address = new AddressType("Address");
        m_phones = new CstringCol("Phone", kTargetNamespace, 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr,
                                  nullptr, -1, CWhitespaceUtils::WhitespaceRulePreserve, nullptr);
        m_hasColour = false;
        m_colour = Colour_red;
        m_any = new CElement("AnyElement",
                             CElementInfo::GetAnyDefaultNamespace("##any", kTargetNamespace, kTargetNamespace).c_str(),
                             "##any", kTargetNamespace);
        m_id = 0;
        m_hasLang = false;
        m_lang.clear();
    }

    const std::string& GetName() const { return m_name; }
    void SetName(const std::string& name) { m_name = name; }

    bool IsValidNick() const { return m_hasNick; }
    void SetValidNick(bool valid) { m_hasNick = valid; }
    const std::string& GetNick() const { return m_nick; }
    void SetNick(const std::string& nick)
    {
        m_hasNick = true;
        m_nick = nick;
    }

    CSmartPtr<AddressType> GetAddress() const { return m_address; }
    void SetAddress(AddressType* address)
    {
        Throw_IfPropertyIsNull(address, "Address");
        Throw_IfElementNameDiffers(address, "Address");
        m_address = address;
    }

    CSmartPtr<CstringCol> GetPhone() const { return m_phones; }

    bool IsValidColour() const { return m_hasColour; }
    void SetValidColour(bool valid) { m_hasColour = valid; }
    Colour GetColour() const { return m_colour; }
    void SetColour(Colour colour)
    {
        m_hasColour = true;
        m_colour = colour;
    }

    CSmartPtr<CElement> GetAny() const { return m_any; }

    int GetId() const { return m_id; }
    void SetId(int id) { m_id = id; }

    bool IsValidLang() const { return m_hasLang; }
    void SetValidLang(bool valid) { m_hasLang = valid; }
    // An absent lang means the schema's default.
    std::string GetLang() const { return m_hasLang ? m_lang : "en"; }
    void SetLang(const std::string& lang)
    {
        m_hasLang = true;
        m_lang = lang;
    }

    static void BuildMetaData(CParentElementInfo*& info, CElementInfo**& elements, CAttributeInfo**& attributes)
    {
        info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "Person", kTargetNamespace,
                                      -1, true, false);
        elements = new CElementInfo*[7];
        elements[0] = new CElementInfoSeqPrimMnd("Name", kTargetNamespace, Property_Name, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRulePreserve, CPrimitiveRestrictions());
        elements[1] = new CElementInfoSeqPrimOpt("Nick", kTargetNamespace, Property_Nick, ItemTypeString, nullptr,
                                                 CWhitespaceUtils::WhitespaceRulePreserve, CPrimitiveRestrictions());
        elements[2] = new CElementInfoSeqClsMnd("Address", kTargetNamespace, Property_Address, XmlElementType_Element,
                                                &CreateObject, ClassNumber_AddressType, true);
        elements[3] = new CElementInfoSeqPrimCol("Phone", kTargetNamespace, Property_Phone);
        elements[4] = new CElementInfoSeqEnumOpt("Colour", kTargetNamespace, Property_Colour, &ColourToText,
                                                 &ColourFromText);
        elements[5] = new CElementInfoSeqUntpdMnd("AnyElement", "", Property_Any, "##any", kTargetNamespace);
        elements[6] = nullptr;
        attributes = new CAttributeInfo*[3];
        attributes[0] = new CAttributeInfoPrimitive("id", "", Property_Id, false, ItemTypeI4, nullptr,
                                                    CWhitespaceUtils::WhitespaceRuleCollapse, CPrimitiveRestrictions(),
                                                    nullptr);
        attributes[1] = new CAttributeInfoPrimitive("lang", "", Property_Lang, true, ItemTypeString, nullptr,
                                                    CWhitespaceUtils::WhitespaceRulePreserve, CPrimitiveRestrictions(),
                                                    "en");
        attributes[2] = nullptr;
    }

private:
    enum Property {
        Property_Name = 0,
        Property_Nick = 1,
        Property_Address = 2,
        Property_Phone = 3,
        Property_Colour = 4,
        Property_Any = 5,
        Property_Id = 6,
        Property_Lang = 7
    };

    std::string m_name;
    bool m_hasNick = false;
    std::string m_nick;
    CSmartPtr<AddressType> m_address;
    CSmartPtr<CstringCol> m_phones;
    bool m_hasColour = false;
    Colour m_colour = Colour_red;
    CSmartPtr<CElement> m_any;
    int m_id = 0;
    bool m_hasLang = false;
    std::string m_lang;
};

CSmartPtr<CXmlObjectBase> CreateObject(int classNumber, const char* elementName)
{
    switch (classNumber) {
    case ClassNumber_AddressType:
        return CSmartPtr<CXmlObjectBase>(new AddressType(elementName));
    case ClassNumber_Person:
        return CSmartPtr<CXmlObjectBase>(new Person(elementName));
    default:
        throw CNxInvalidParamException(FormatString("Unknown class number %d", classNumber));
    }
}

// Generated code takes its records down at shutdown.
void CleanMetaData()
{
    MetaData<Person>::Clean();
    MetaData<AddressType>::Clean();
}

} // namespace PersonSchema

namespace {

void Print(const PersonSchema::Person& person)
{
    std::cout << "  id      " << person.GetId() << '\n'
              << "  lang    " << person.GetLang() << (person.IsValidLang() ? "" : " (default)") << '\n'
              << "  Name    " << person.GetName() << '\n'
              << "  Nick    " << (person.IsValidNick() ? person.GetNick() : "(none)") << '\n'
              << "  Address " << person.GetAddress()->GetStreet() << ", " << person.GetAddress()->GetCity() << '\n';
    for (int i = 0; i < person.GetPhone()->GetCount(); ++i)
        std::cout << "  Phone   " << person.GetPhone()->Item(i) << '\n';
    std::cout << "  Colour  " << (person.IsValidColour() ? PersonSchema::ColourToText(person.GetColour()) : "(none)")
              << '\n';
    const CSmartPtr<CElement> any = person.GetAny();
    std::cout << "  any     {" << any->GetNamespace() << "}" << any->GetName() << " = " << any->GetText() << '\n';
}

int Run()
{
    using namespace PersonSchema;

    CSmartPtr<Person> person(new Person);
    person->SetId(42);
    person->SetLang("en-GB");
    person->SetName("Ada Example");
    person->GetAddress()->SetStreet("1 Analytical Row");
    person->GetAddress()->SetCity("London");
    person->GetPhone()->Add("+44 20 7946 0000");
    person->GetPhone()->Add("+44 20 7946 0001");
    person->SetColour(Colour_green);
    // The wildcard takes any one element; here a note from another schema.
    person->GetAny()->SetName("Note");
    person->GetAny()->SetNamespace("urn:example:notes");
    person->GetAny()->SetText("Prefers \"email\" & <post>");

    const std::string xml = person->ToXml();
    std::cout << "Written:\n" << xml << "\n";

    CSmartPtr<Person> copy(new Person);
    copy->FromXml(xml.c_str());
    std::cout << "Read back:\n";
    Print(*copy);

    const std::string again = copy->ToXml();
    std::cout << "\nThe copy, written again, is "
              << (again == xml ? "the same text." : "a different text:\n" + again) << '\n';
    return again == xml ? 0 : 1;
}

} // namespace

int main()
{
    // Generated code registers the generator version before its first object.
    RegisterGeneratorVersion(9, 0);
    int status = 1;
    try {
        status = Run();
    } catch (const CNxException& e) {
        std::cerr << "Failed:\n" << e.GetFullMessage() << '\n';
    }
    PersonSchema::CleanMetaData();
    return status;
}
