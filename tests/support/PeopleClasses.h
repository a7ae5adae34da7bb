// A document of many Person records: the root People holds a repeating
// Person element. Shared by the binary writer's reference test and its
// benchmark.
#pragma once

#include <string>

#include "NxXmlLib9.h"
#include "PersonClasses.h"

namespace NxTest {

// The repeating Person element of the root: writes each record, and makes
// one Person per element of that name when reading.
class PersonCol : public NxXmlLib9::CXmlCollection {
public:
    PersonCol() : CXmlCollection("Person", kPersonNamespace, 0, -1) {}

protected:
    void ToXml_Int(NxXmlLib9::CXmlWriter* writer, bool, const char* elementNamespace,
                   const NxXmlLib9::CXmlSerializationContext& context, bool) const override
    {
        for (NxXmlLib9::CNode* node = begin(); node != end(); node = node->next)
            CXmlObjectBase::ToXml_Int(node->item, writer, false, elementNamespace, context, false);
    }
    NxXmlLib9::CXmlElement* FromXml_Int(NxXmlLib9::CXmlElement*, NxXmlLib9::CXmlElement* cursor,
                                        const NxXmlLib9::CXmlSerializationContext& context, bool) override
    {
        for (; cursor && DoesElementNameMatch(context, cursor, "Person", kPersonNamespace);
             cursor = cursor->GetNextSiblingElement()) {
            NxXmlLib9::CSmartPtr<Person> person(new Person(cursor->GetLocalName().c_str()));
            CXmlObjectBase::FromXml_Int(person, cursor, cursor->GetFirstElement(), context);
            AppendItem(person);
        }
        return cursor;
    }
};

class People : public NxXmlLib9::CXmlGeneratedClass {
public:
    using Tables = ClassTables<People>;

    People()
    {
        SetElementName("People");
        Init();
    }
    NxXmlLib9::CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kPersonNamespace; }
    std::string GetNamespace() const override { return kPersonNamespace; }
    void AccessProperty(int index, bool, NxXmlLib9::NxVariant& value) override
    {
        if (index == 0)
            value.SetXmlCollection(Persons);
    }
    CParentElementInfo* GetClassInfo() const override { return Tables::Ensure(), Tables::info; }
    CElementInfo** GetClassElementInfo() const override { return Tables::Ensure(), Tables::elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables::Ensure(), Tables::attributes; }
    void Init() override { Persons = new PersonCol; }

    static void BuildTables(CParentElementInfo*& info, CElementInfo**& elements, CAttributeInfo**& attributes)
    {
        using namespace NxXmlLib9Data;
        info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "People", kPersonNamespace,
                                      -1, true, false);
        elements = new CElementInfo*[2];
        elements[0] = new CElementInfoSeqClsCol("Person", kPersonNamespace, 0, XmlElementType_Element);
        elements[1] = nullptr;
        attributes = new CAttributeInfo*[1];
        attributes[0] = nullptr;
    }

    NxXmlLib9::CSmartPtr<PersonCol> Persons;
};

// count records of about 400 bytes of XML text each, every entry kind filled.
inline NxXmlLib9::CSmartPtr<People> MakePeople(long count)
{
    NxXmlLib9::CSmartPtr<People> people(new People);
    for (long i = 0; i < count; ++i) {
        NxXmlLib9::CSmartPtr<Person> person(new Person);
        const std::string number = std::to_string(i);
        person->Id = i;
        if (i % 3 == 0) {
            person->HasLang = true;
            person->Lang = "de";
        }
        person->Name = "Person number " + number;
        if (i % 2 == 0) {
            person->HasNick = true;
            person->Nick = "P" + number;
        }
        person->AddressChild->Street = number + " Long Street Name";
        person->AddressChild->City = "Some Town";
        person->Phones->Add("+44 20 7946 " + number);
        person->Phones->Add("+44 20 7946 0000");
        person->ColourValue = static_cast<int>(i % 3);
        person->Any->SetName("Note");
        person->Any->SetNamespace("urn:example:notes");
        person->Any->SetText("A short note about this person, with an & in it.");
        people->Persons->AppendItem(person);
    }
    return people;
}

} // namespace NxTest
