// A document of N Person records for the benchmarks: the root People, a
// sequence of Person elements read by a collection that makes one Person per
// element, and the records themselves, about 400 bytes of XML text each with
// every entry kind filled.
#pragma once

#include "NxXmlLib9.h"
#include "PersonClasses.h"

#include <string>

namespace NxTest {

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;

// The repeating Person element of the root: makes one Person per element of
// that name and reads it whole.
class PersonCol : public CXmlCollection {
public:
    PersonCol() : CXmlCollection("Person", kPersonNamespace, 0, -1) {}

protected:
    void ToXml_Int(CXmlWriter* writer, bool, const char* elementNamespace, const CXmlSerializationContext& context,
                   bool) const override
    {
        for (CNode* node = begin(); node != end(); node = node->next)
            CXmlObjectBase::ToXml_Int(node->item, writer, false, elementNamespace, context, false);
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* cursor, const CXmlSerializationContext& context,
                             bool) override
    {
        for (; cursor && DoesElementNameMatch(context, cursor, "Person", kPersonNamespace);
             cursor = cursor->GetNextSiblingElement()) {
            CSmartPtr<Person> person(new Person(cursor->GetLocalName().c_str()));
            CXmlObjectBase::FromXml_Int(person, cursor, cursor->GetFirstElement(), context);
            AppendItem(person);
        }
        return cursor;
    }
};

// The document root: a sequence of Person elements.
class People : public CXmlGeneratedClass {
public:
    using Tables = NxTest::ClassTables<People>;

    People()
    {
        SetElementName("People");
        Init();
    }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kPersonNamespace; }
    std::string GetNamespace() const override { return kPersonNamespace; }
    void AccessProperty(int index, bool, NxVariant& value) override
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
        info = new CParentElementInfo(XmlElementGroupType_Sequence, XmlElementType_Element, "People", kPersonNamespace,
                                      -1, true, false);
        elements = new CElementInfo*[2];
        elements[0] = new CElementInfoSeqClsCol("Person", kPersonNamespace, 0, XmlElementType_Element);
        elements[1] = nullptr;
        attributes = new CAttributeInfo*[1];
        attributes[0] = nullptr;
    }

    CSmartPtr<PersonCol> Persons;
};

// N records of about 400 bytes each, every entry kind filled.
inline CSmartPtr<People> MakePeople(long count)
{
    CSmartPtr<People> people(new People);
    for (long i = 0; i < count; ++i) {
        CSmartPtr<Person> person(new Person);
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
