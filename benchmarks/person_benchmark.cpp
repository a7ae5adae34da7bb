// The cost of binding: a document of N Person records written by ToXml and
// read by FromXml, beside a bare Expat parse of the same text with empty
// handlers and a load of the same text into the parsed tree alone. All four
// report bytes of XML text per second, so their ratios show what the tree
// and the walks add to parsing. Equal rates across the sizes show linear
// growth.
#include "NxXmlLib9.h"
#include "BenchmarkDocuments.h"
#include "PeopleClasses.h"

#include <benchmark/benchmark.h>
#include <expat.h>

#include <string>

using namespace NxXmlLib9;
using NxTest::MakePeople;
using NxTest::People;

using NxBench::Document;
using NxBench::DocumentText;
using NxBench::SetBytes;

namespace {

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
