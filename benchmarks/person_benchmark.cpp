// The cost of binding: a document of N Person records written by ToXml and
// read by FromXml, beside a bare Expat parse of the same text with empty
// handlers and a load of the same text into the parsed tree alone. All four
// report bytes of XML text per second, so their ratios show what the tree
// and the walks add to parsing. Equal rates across the sizes show linear
// growth.
#include "NxXmlLib9.h"
#include "PersonClasses.h"

#include <benchmark/benchmark.h>
#include <expat.h>

#include <map>
#include <string>

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;
using NxTest::kPersonNamespace;
using NxTest::Person;

namespace {

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
CSmartPtr<People> MakePeople(long count)
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

// One document per size, made once.
const std::string& DocumentText(long count)
{
    static std::map<long, std::string> texts;
    std::string& text = texts[count];
    if (text.empty())
        text = MakePeople(count)->ToXml(false, false);
    return text;
}

void SetBytes(benchmark::State& state, const std::string& xml)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(xml.size()));
    state.counters["bytes"] = static_cast<double>(xml.size());
}

void PersonToXml(benchmark::State& state)
{
    const CSmartPtr<People> people = MakePeople(state.range(0));
    const std::string& expected = DocumentText(state.range(0));
    for (auto _ : state) {
        std::string xml = people->ToXml(false, false);
        if (xml.size() != expected.size())
            state.SkipWithError("the text differs");
        benchmark::DoNotOptimize(xml.data());
    }
    SetBytes(state, expected);
}

void PersonFromXml(benchmark::State& state)
{
    const std::string& xml = DocumentText(state.range(0));
    CSmartPtr<People> people(new People);
    for (auto _ : state) {
        people->FromXml(xml.c_str());
        if (people->Persons->GetCount() != state.range(0))
            state.SkipWithError("records lost");
    }
    SetBytes(state, xml);
}

void DocumentLoad(benchmark::State& state)
{
    const std::string& xml = DocumentText(state.range(0));
    for (auto _ : state) {
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    SetBytes(state, xml);
}

void XMLCALL StartElement(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL EndElement(void*, const XML_Char*) {}
void XMLCALL CharacterData(void*, const XML_Char*, int) {}

void ExpatParse(benchmark::State& state)
{
    const std::string& xml = DocumentText(state.range(0));
    for (auto _ : state) {
        XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
        XML_SetElementHandler(parser, &StartElement, &EndElement);
        XML_SetCharacterDataHandler(parser, &CharacterData);
        if (XML_Parse(parser, xml.data(), static_cast<int>(xml.size()), 1) != XML_STATUS_OK)
            state.SkipWithError("not well-formed");
        XML_ParserFree(parser);
    }
    SetBytes(state, xml);
}

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

} // namespace

BENCHMARK(ExpatParse)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(DocumentLoad)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(PersonFromXml)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(PersonToXml)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
