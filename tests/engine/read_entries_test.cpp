#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "PersonClasses.h"
#include "StreamTestFiles.h"

using namespace NxXmlLib9;
using NxTest::Person;

namespace {

const char kPersonXml[] = "<Person xmlns='urn:test:person' id='7' lang='de'>"
                          "<Name> Ann </Name>"
                          "<Address><Street>Main</Street><City>Town</City></Address>"
                          "<Phone>1</Phone><Phone>2</Phone>"
                          "<Colour>green</Colour>"
                          "<x:Extra xmlns:x='urn:other'>more</x:Extra>"
                          "</Person>";

void ExpectFullPerson(const Person& person)
{
    EXPECT_EQ(person.GetElementName(), "Person");
    EXPECT_EQ(person.Name, "Ann");
    EXPECT_FALSE(person.HasNick);
    EXPECT_EQ(person.AddressChild->Street, "Main");
    EXPECT_EQ(person.AddressChild->City, "Town");
    EXPECT_EQ(person.PhoneTexts(), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(person.ColourValue, NxTest::ColourGreen);
    EXPECT_EQ(person.Any->GetName(), "Extra");
    EXPECT_EQ(person.Any->GetNamespace(), "urn:other");
    EXPECT_EQ(person.Any->GetText(), "more");
    EXPECT_EQ(person.Id, 7);
    EXPECT_EQ(person.Lang, "de");
}

// A file that lives as long as the test.
struct TempFile : NxTest::TempPath {
    explicit TempFile(const std::string& content) { NxTest::WriteFileBytes(str(), content); }
    const char* Path() const { return c_str(); }
};

std::wstring Widen(const std::string& text) { return std::wstring(text.begin(), text.end()); }

// Every way into a read that starts from XML text, by name; a null context
// takes the form without one.
struct Entry {
    const char* name;
    std::function<void(Person&, const char* xml, const CXmlSerializationContext* context)> read;
};

std::vector<Entry> AllEntries()
{
    using Context = const CXmlSerializationContext*;
    return {
        {"text", [](Person& p, const char* xml, Context c) { c ? p.FromXml(xml, *c) : p.FromXml(xml); }},
        {"wide text",
         [](Person& p, const char* xml, Context c) {
             c ? p.FromXml(Widen(xml).c_str(), *c) : p.FromXml(Widen(xml).c_str());
         }},
        {"bytes",
         [](Person& p, const char* xml, Context c) {
             std::vector<unsigned char> bytes(xml, xml + std::char_traits<char>::length(xml));
             c ? p.FromXmlStream(bytes.data(), bytes.size(), *c) : p.FromXmlStream(bytes.data(), bytes.size());
         }},
        {"binary data",
         [](Person& p, const char* xml, Context c) {
             c ? p.FromXmlStream(CBinaryData(xml), *c) : p.FromXmlStream(CBinaryData(xml));
         }},
        {"file",
         [](Person& p, const char* xml, Context c) {
             TempFile file(xml);
             c ? p.FromXmlFile(file.Path(), *c) : p.FromXmlFile(file.Path());
         }},
        {"element",
         [](Person& p, const char* xml, Context c) {
             CXmlDocument document;
             document.LoadXml(xml);
             c ? p.FromXmlElement(document.GetDocumentElement(), *c)
               : p.FromXmlElement(document.GetDocumentElement());
         }},
    };
}

const CXmlSerializationContext* const kDefault = &CXmlSerializationContext::m_defaultContext;

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

// The exact class and message chain of whatever the call throws.
std::string FailureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const CNxException& e) {
        return std::string(typeid(e).name()) + ": " + e.GetFullMessage();
    }
    return "no failure";
}

// The chain of a failure of the read walk of a Person root.
std::string PersonReadFailure(const std::string& cause)
{
    return std::string(typeid(CNxValidationException).name()) + ": Failed to process the element [Person]\n" + cause;
}

} // namespace

TEST(ReadEntries, EveryEntryReadsTheWholeObjectFromItsRoot)
{
    for (const Entry& entry : AllEntries()) {
        SCOPED_TRACE(entry.name);
        CSmartPtr<Person> person(new Person);
        entry.read(*person, kPersonXml, kDefault);
        ExpectFullPerson(*person);
    }
}

TEST(ReadEntries, TheGivenContextOrElseTheDefaultOneReachesTheWalk)
{
    const char xml[] = "<Person xmlns='urn:test:person' id='1' extra='x'><Name>A</Name>"
                       "<Address><Street/><City/></Address><Any/></Person>";
    CXmlSerializationContext lenient;
    lenient.SetIgnoreUnknownAttributes(true);
    const std::string refused = PersonReadFailure("Unexpected Attribute [extra] found.");
    for (const Entry& entry : AllEntries()) {
        SCOPED_TRACE(entry.name);
        CSmartPtr<Person> person(new Person);
        entry.read(*person, xml, &lenient);
        EXPECT_EQ(person->Id, 1);
        EXPECT_EQ(FailureOf([&] { entry.read(*person, xml, kDefault); }), refused);
        EXPECT_EQ(FailureOf([&] { entry.read(*person, xml, nullptr); }), refused);
        CXmlSerializationContext::m_defaultContext.SetIgnoreUnknownAttributes(true);
        person->Id = 0;
        entry.read(*person, xml, nullptr);
        CXmlSerializationContext::m_defaultContext.SetIgnoreUnknownAttributes(false);
        EXPECT_EQ(person->Id, 1);
    }
}

TEST(ReadEntries, AnyRootIsReadAndTheRootNameIsTakenOver)
{
    CSmartPtr<Person> person(new Person);
    person->FromXml("<Someone xmlns='urn:test:person' id='3'><Name>B</Name>"
                    "<Address><Street/><City/></Address><Any/></Someone>");
    EXPECT_EQ(person->GetElementName(), "Someone");
    EXPECT_EQ(person->Id, 3);
}

TEST(ReadEntries, FromXmlElementReadsAnElementOfTheCallersDocument)
{
    CXmlDocument document;
    document.LoadXml("<list xmlns='urn:test:person'><Person id='1'><Name>First</Name><Address><Street/><City/>"
                     "</Address><Any/></Person><Person id='2'><Name>Second</Name><Address><Street>S</Street>"
                     "<City>C</City></Address><Phone>9</Phone><Any/></Person></list>");
    CXmlElement* second = document.GetDocumentElement()->GetFirstElement()->GetNextSiblingElement();
    CSmartPtr<Person> person(new Person);
    person->FromXmlElement(second);
    EXPECT_EQ(person->Name, "Second");
    EXPECT_EQ(person->Id, 2);
    EXPECT_EQ(person->PhoneTexts(), std::vector<std::string>{"9"});
    // The tree is only read: it stays whole for further reads.
    EXPECT_EQ(second->GetFirstElement()->GetLocalName(), "Name");
    person->FromXmlElement(document.GetDocumentElement()->GetFirstElement());
    EXPECT_EQ(person->Name, "First");
    EXPECT_TRUE(person->PhoneTexts().empty());

    ExpectFailure<CNxInvalidParamException>([&] { person->FromXmlElement(static_cast<const CXmlElement*>(nullptr)); },
                                            "The element to read from may not be NULL");
}

TEST(ReadEntries, TheBinaryDataFormGoesThroughThePointerForm)
{
    struct StreamCounting : Person {
        using Person::FromXmlStream;
        void FromXmlStream(unsigned char* data, unsigned long length,
                           const CXmlSerializationContext& context) override
        {
            ++pointerCalls;
            Person::FromXmlStream(data, length, context);
        }
        int pointerCalls = 0;
    };
    CSmartPtr<StreamCounting> person(new StreamCounting);
    person->FromXmlStream(CBinaryData(kPersonXml));
    EXPECT_EQ(person->pointerCalls, 1);
    ExpectFullPerson(*person);
}

TEST(ReadEntries, LoadFailuresPassThroughUnchanged)
{
    CSmartPtr<Person> person(new Person);
    const char broken[] = "<Person><Name>A</Person>";
    CXmlDocument document;

    // The same failure as the document's own load: same class, same text,
    // no wrapping.
    const std::string textFailure = FailureOf([&] { document.LoadXml(broken); });
    ASSERT_NE(textFailure, "no failure");
    EXPECT_EQ(FailureOf([&] { person->FromXml(broken); }), textFailure);
    EXPECT_EQ(FailureOf([&] { person->FromXml(Widen(broken).c_str()); }),
              FailureOf([&] { document.LoadXml(Widen(broken).c_str()); }));
    std::vector<unsigned char> bytes(broken, broken + sizeof broken - 1);
    const std::string streamFailure = FailureOf([&] { document.LoadXmlStream(bytes.data(), bytes.size()); });
    EXPECT_EQ(FailureOf([&] { person->FromXmlStream(bytes.data(), bytes.size()); }), streamFailure);
    EXPECT_EQ(FailureOf([&] { person->FromXmlStream(CBinaryData(broken)); }), streamFailure);
    TempFile file(broken);
    EXPECT_EQ(FailureOf([&] { person->FromXmlFile(file.Path()); }),
              FailureOf([&] { document.Load(file.Path()); }));

    ExpectFailure<CNxException>([&] { person->FromXml(""); }, "XML String is empty!");
    ExpectFailure<CNxException>([&] { person->FromXml(static_cast<const char*>(nullptr)); },
                                "XML String is empty!");
    ExpectFailure<CNxException>([&] { person->FromXml(L""); }, "XML String is empty!");
    ExpectFailure<CNxException>([&] { person->FromXmlStream(nullptr, 0); }, "XML Stream is empty!");
    ExpectFailure<CNxException>([&] { person->FromXmlStream(CBinaryData()); }, "XML Stream is empty!");
    ExpectFailure<CNxException>([&] { person->FromXmlFile("/nonexistent/dir/person.xml"); },
                                "Failed to open the file [/nonexistent/dir/person.xml]");
}

TEST(ReadEntries, WalkFailuresPassThroughTheEntriesUnchangedAndKeepWhatWasRead)
{
    const char noId[] = "<Person xmlns='urn:test:person'><Name>A</Name>"
                        "<Address><Street/><City/></Address><Any/></Person>";
    const char badColour[] = "<Person xmlns='urn:test:person' id='4'><Name>Kept</Name>"
                             "<Address><Street/><City/></Address><Colour>mauve</Colour><Any/></Person>";
    for (const Entry& entry : AllEntries()) {
        SCOPED_TRACE(entry.name);
        CSmartPtr<Person> person(new Person);
        EXPECT_EQ(FailureOf([&] { entry.read(*person, noId, kDefault); }),
                  PersonReadFailure("Failed to find the required Attribute [id]"));
        EXPECT_EQ(FailureOf([&] { entry.read(*person, badColour, kDefault); }),
                  PersonReadFailure("Unknown Colour [mauve]"));
        EXPECT_EQ(person->Name, "Kept");
        EXPECT_EQ(person->Id, 4);
    }
}

TEST(ReadEntries, EachEntryChecksTheVersionBeforeAnyWork)
{
    CXmlDocument document;
    document.LoadXml(kPersonXml);
    CSmartPtr<Person> person(new Person);
    const int initsBefore = person->inits;
    const std::string expected = "Wrong Version (Orvane Runtime: v9.0, Generator: v8.0)";

    RegisterGeneratorVersion(8, 0);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    std::vector<std::string> messages;
    for (const Entry& entry : AllEntries())
        messages.push_back(
            FailureOf([&] { entry.read(*person, kPersonXml, kDefault); }));
    // The version is checked ahead of the argument.
    messages.push_back(FailureOf([&] { person->FromXmlElement(static_cast<const CXmlElement*>(nullptr)); }));
    const std::string out = testing::internal::GetCapturedStdout();
    const std::string err = testing::internal::GetCapturedStderr();
    RegisterGeneratorVersion(9, 0);

    for (const std::string& message : messages)
        EXPECT_EQ(message, std::string(typeid(CNxException).name()) + ": " + expected);
    EXPECT_EQ(person->inits, initsBefore);
    // One report per entry; the binary data form reports through the
    // pointer form, once.
    size_t reports = 0;
    for (size_t at = out.find("Version Mismatch Error"); at != std::string::npos;
         at = out.find("Version Mismatch Error", at + 1))
        ++reports;
    EXPECT_EQ(reports, messages.size());
    EXPECT_NE(err.find("Generator: v8.0"), std::string::npos);
}

TEST(ReadEntries, TheAsyncFileFlagChangesNothing)
{
    TempFile file(kPersonXml);
    AsyncFromXmlFile(true);
    CSmartPtr<Person> person(new Person);
    person->FromXmlFile(file.Path());
    AsyncFromXmlFile(false);
    ExpectFullPerson(*person);
}

TEST(ReadEntries, AnUntypedTwinIsReadThroughItsText)
{
    CSmartPtr<CElement> twin(new CElement("Unnamed"));
    twin->FromXml(kPersonXml);
    CSmartPtr<Person> person(new Person);
    person->FromXmlElement(static_cast<const CElement*>(twin));
    ExpectFullPerson(*person);
}

TEST(PersonRoundTrip, WritesEveryEntryInTableOrderAndReadsBackAnEqualObject)
{
    const std::string xml = FullPerson()->ToXml(false, false);
    EXPECT_EQ(xml, "<AA:Person xmlns:AA=\"urn:test:person\" id=\"7\" lang=\"de\"><AA:Name>Ann</AA:Name>"
                   "<AA:Nick>Annie</AA:Nick><AA:Address><AA:Street>Main</AA:Street><AA:City>Town</AA:City>"
                   "</AA:Address><AA:Phone>1</AA:Phone><AA:Phone>2</AA:Phone><AA:Colour>blue</AA:Colour>"
                   "<AB:Extra xmlns:AB=\"urn:other\">a &lt; b</AB:Extra></AA:Person>");

    CSmartPtr<Person> copy(new Person);
    copy->FromXml(xml.c_str());
    // The written text is pinned above, so an equal second text means equal fields.
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
