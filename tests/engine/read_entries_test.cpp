#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "PersonClasses.h"

using namespace NxXmlLib9;
using NxTest::Person;

namespace {

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

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
class TempFile {
public:
    explicit TempFile(const std::string& content)
    {
        char path[] = "/tmp/nxxml_read_XXXXXX";
        const int fd = mkstemp(path);
        m_path = path;
        if (fd >= 0) {
            if (write(fd, content.data(), content.size()) != static_cast<ssize_t>(content.size()))
                ADD_FAILURE() << "short write to " << m_path;
            close(fd);
        }
    }
    ~TempFile() { std::remove(m_path.c_str()); }
    const char* Path() const { return m_path.c_str(); }

private:
    std::string m_path;
};

std::wstring Widen(const std::string& text) { return std::wstring(text.begin(), text.end()); }

using Read = std::function<void(Person&, const char* xml, const CXmlSerializationContext&)>;

// Every way into a read that starts from XML text, by name.
struct Entry {
    const char* name;
    Read read;
};

std::vector<Entry> AllEntries()
{
    return {
        {"text", [](Person& p, const char* xml, const CXmlSerializationContext& c) { p.FromXml(xml, c); }},
        {"wide text",
         [](Person& p, const char* xml, const CXmlSerializationContext& c) { p.FromXml(Widen(xml).c_str(), c); }},
        {"bytes",
         [](Person& p, const char* xml, const CXmlSerializationContext& c) {
             std::vector<unsigned char> bytes(xml, xml + std::char_traits<char>::length(xml));
             p.FromXmlStream(bytes.data(), bytes.size(), c);
         }},
        {"binary data", [](Person& p, const char* xml, const CXmlSerializationContext& c) {
             p.FromXmlStream(CBinaryData(xml), c);
         }},
        {"file",
         [](Person& p, const char* xml, const CXmlSerializationContext& c) {
             TempFile file(xml);
             p.FromXmlFile(file.Path(), c);
         }},
        {"element",
         [](Person& p, const char* xml, const CXmlSerializationContext& c) {
             CXmlDocument document;
             document.LoadXml(xml);
             p.FromXmlElement(document.GetDocumentElement(), c);
         }},
    };
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
        entry.read(*person, kPersonXml, CXmlSerializationContext::m_defaultContext);
        ExpectFullPerson(*person);
    }
}

TEST(ReadEntries, DefaultContextIsUsedWhenNoneIsGiven)
{
    const std::string xml = "<Person xmlns='urn:test:person' id='1' extra='x'><Name>A</Name>"
                            "<Address><Street/><City/></Address><Any/></Person>";
    std::vector<unsigned char> bytes(xml.begin(), xml.end());
    TempFile file(xml);
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    const std::vector<std::function<void(Person&)>> calls = {
        [&](Person& p) { p.FromXml(xml.c_str()); },
        [&](Person& p) { p.FromXml(Widen(xml).c_str()); },
        [&](Person& p) { p.FromXmlStream(bytes.data(), bytes.size()); },
        [&](Person& p) { p.FromXmlStream(CBinaryData(xml.c_str())); },
        [&](Person& p) { p.FromXmlFile(file.Path()); },
        [&](Person& p) { p.FromXmlElement(document.GetDocumentElement()); },
    };
    CSmartPtr<Person> person(new Person);
    CXmlSerializationContext::m_defaultContext.SetIgnoreUnknownAttributes(true);
    for (const auto& call : calls) {
        person->Id = 0;
        call(*person);
        EXPECT_EQ(person->Id, 1);
    }
    CXmlSerializationContext::m_defaultContext.SetIgnoreUnknownAttributes(false);
    for (const auto& call : calls)
        EXPECT_EQ(FailureOf([&] { call(*person); }), PersonReadFailure("Unexpected Attribute [extra] found."));
}

TEST(ReadEntries, TheGivenContextReachesTheWalk)
{
    const char xml[] = "<Person xmlns='urn:test:person' id='1' extra='x'><Name>A</Name>"
                       "<Address><Street/><City/></Address><Any/></Person>";
    CXmlSerializationContext lenient;
    lenient.SetIgnoreUnknownAttributes(true);
    for (const Entry& entry : AllEntries()) {
        SCOPED_TRACE(entry.name);
        CSmartPtr<Person> person(new Person);
        entry.read(*person, xml, lenient);
        EXPECT_EQ(person->Id, 1);
        EXPECT_EQ(FailureOf([&] { entry.read(*person, xml, CXmlSerializationContext::m_defaultContext); }),
                  PersonReadFailure("Unexpected Attribute [extra] found."));
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
        EXPECT_EQ(FailureOf([&] { entry.read(*person, noId, CXmlSerializationContext::m_defaultContext); }),
                  PersonReadFailure("Failed to find the required Attribute [id]"));
        EXPECT_EQ(FailureOf([&] { entry.read(*person, badColour, CXmlSerializationContext::m_defaultContext); }),
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
            FailureOf([&] { entry.read(*person, kPersonXml, CXmlSerializationContext::m_defaultContext); }));
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
