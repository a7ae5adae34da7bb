// A document of many Person records: the root People holds a repeating
// Person element. Shared by the binary writer's reference test and its
// benchmark.
#pragma once

#include <string>

#include "NxXmlLib9.h"
#include "PersonClasses.h"

namespace NxTest {

// The root People holds a repeating Person element.
class People : public Generated<People> {
public:
    static constexpr const char* kNamespace = kPersonNamespace;
    People() { SetElementName("People"); Init(); }
    void AccessProperty(int index, bool, NxXmlLib9::NxVariant& value) override
    {
        if (index == 0)
            value.SetXmlCollection(Persons);
    }
    void Init() override { Persons = new NxGenerated::ObjectCol("Person", kPersonNamespace, 0, -1, &MakePerson); }

    static NxXmlLib9::CSmartPtr<NxXmlLib9::CXmlObjectBase> MakePerson(NxXmlLib9::CXmlElement* element)
    {
        return new Person(element->GetLocalName().c_str());
    }
    static CParentElementInfo* MakeInfo()
    {
        return new CParentElementInfo(NxXmlLib9Data::XmlElementGroupType_Sequence,
                                      NxXmlLib9Data::XmlElementType_Element, "People", kPersonNamespace, -1, true,
                                      false);
    }
    static std::vector<CElementInfo*> MakeElements()
    {
        return {new NxXmlLib9Data::CElementInfoSeqClsCol("Person", kPersonNamespace, 0,
                                                         NxXmlLib9Data::XmlElementType_Element)};
    }

    NxXmlLib9::CSmartPtr<NxGenerated::ObjectCol> Persons;
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
