#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NxXmlLib9.h"
#include "PersonClasses.h"

using namespace NxXmlLib9;
using NxTest::Person;

namespace {

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

CSmartPtr<Person> FullPerson()
{
    CSmartPtr<Person> person(new Person);
    person->Id = 7;
    person->HasLang = true;
    person->Lang = "de";
    person->Name = "Ann";
    person->HasNick = true;
    person->Nick = "Annie";
    person->AddressChild->Street = "Main";
    person->AddressChild->City = "Town";
    person->Phones->Add("1");
    person->Phones->Add("2");
    person->ColourValue = NxTest::ColourBlue;
    person->Any->SetName("Extra");
    person->Any->SetNamespace("urn:other");
    person->Any->SetText("a < b");
    return person;
}

} // namespace

TEST(PersonRoundTrip, WritesEveryEntryInTableOrderAndReadsBackAnEqualObject)
{
    const std::string xml = FullPerson()->ToXml(false, false);
    EXPECT_EQ(xml, "<AA:Person xmlns:AA=\"urn:test:person\" id=\"7\" lang=\"de\"><AA:Name>Ann</AA:Name>"
                   "<AA:Nick>Annie</AA:Nick><AA:Address><AA:Street>Main</AA:Street><AA:City>Town</AA:City>"
                   "</AA:Address><AA:Phone>1</AA:Phone><AA:Phone>2</AA:Phone><AA:Colour>blue</AA:Colour>"
                   "<AB:Extra xmlns:AB=\"urn:other\">a &lt; b</AB:Extra></AA:Person>");

    CSmartPtr<Person> copy(new Person);
    copy->FromXml(xml.c_str());
    EXPECT_EQ(copy->Id, 7);
    EXPECT_EQ(copy->Lang, "de");
    EXPECT_EQ(copy->Name, "Ann");
    EXPECT_EQ(copy->Nick, "Annie");
    EXPECT_EQ(copy->AddressChild->Street, "Main");
    EXPECT_EQ(copy->AddressChild->City, "Town");
    EXPECT_EQ(copy->PhoneTexts(), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(copy->ColourValue, NxTest::ColourBlue);
    EXPECT_EQ(copy->Any->GetName(), "Extra");
    EXPECT_EQ(copy->Any->GetNamespace(), "urn:other");
    EXPECT_EQ(copy->Any->GetText(), "a < b");
    EXPECT_EQ(copy->ToXml(false, false), xml);
}

TEST(PersonRoundTrip, UnsetOptionalsAreLeftOutAndStayUnsetOnReading)
{
    CSmartPtr<Person> person(new Person);
    person->Id = 3;
    person->Name = "Bo";
    person->Any->SetName("Extra");
    const std::string xml = person->ToXml(false, false);
    EXPECT_EQ(xml, "<AA:Person xmlns:AA=\"urn:test:person\" id=\"3\"><AA:Name>Bo</AA:Name><AA:Address><AA:Street/>"
                   "<AA:City/></AA:Address><AA:Extra/></AA:Person>");

    // Reading starts from Init, so what the full object had is gone.
    CSmartPtr<Person> copy = FullPerson();
    copy->FromXml(xml.c_str());
    EXPECT_EQ(copy->ToXml(false, false), xml);
}
