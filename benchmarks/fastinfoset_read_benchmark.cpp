// Reading N Person records from the binary form beside reading the same
// object from its XML text. Every rate is in bytes of the XML text per
// second, whatever the input, so that rates compare directly; each binary
// benchmark also reports its speedup over the text read of the same size,
// measured in the same run. The tree loads alone show the parsers without
// the walks.
#include "NxXmlLib9.h"
#include "PeopleClasses.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <string>

using namespace NxXmlLib9;
using NxTest::MakePeople;
using NxTest::People;

namespace {

using Clock = std::chrono::steady_clock;

// With a generated vocabulary the repeated names are known from the start,
// under the prefix the writer makes up for their namespace.
const CXmlSerializationContext& VocabularyContext()
{
    static const CXmlSerializationContext context = [] {
        CXmlSerializationContext c;
        CFastInfosetContext& fi = c.GetFIContext();
        fi.SetUseGeneratedVocabulary(true);
        for (const char* name : {"People", "Person", "Name", "Nick", "Address", "Street", "City", "Phone", "Colour"})
            fi.GetVocabulary().AddElement("AA", NxTest::kPersonNamespace, name);
        return c;
    }();
    return context;
}

struct Inputs {
    std::string xml;
    CBinaryData binary;
    CBinaryData binaryWithVocabulary;
};

// One set of inputs per size, made once.
const Inputs& InputsOf(long count)
{
    static std::map<long, Inputs> inputs;
    Inputs& made = inputs[count];
    if (made.xml.empty()) {
        const CSmartPtr<People> people = MakePeople(count);
        made.xml = people->ToXml(false, false);
        made.binary = people->ToFastInfosetStream();
        made.binaryWithVocabulary = people->ToFastInfosetStream(FInfoDeclNone, VocabularyContext());
    }
    return made;
}

double SecondsOf(const std::function<void()>& read)
{
    const Clock::time_point start = Clock::now();
    read();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void Report(benchmark::State& state, const Inputs& inputs, const CBinaryData* binary, double readSeconds,
            double textSeconds)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(inputs.xml.size()));
    state.counters["xml_bytes"] = static_cast<double>(inputs.xml.size());
    if (binary) {
        state.counters["fi_bytes"] = static_cast<double>(binary->GetLength());
        state.counters["speedup"] = textSeconds / readSeconds;
    }
}

void CheckCount(benchmark::State& state, const People& people)
{
    if (people.Persons->GetCount() != state.range(0))
        state.SkipWithError("records lost");
}

// The object read from text, or from one of the binary forms with its
// speedup over the text read: the best of up to three text reads against
// the mean binary read.
void ReadPeople(benchmark::State& state, const CBinaryData* (*pick)(const Inputs&),
                const CXmlSerializationContext& context)
{
    const Inputs& inputs = InputsOf(state.range(0));
    const CBinaryData* binary = pick(inputs);
    CSmartPtr<People> people(new People);
    double seconds = 0;
    for (auto _ : state) {
        seconds += SecondsOf([&] {
            if (binary)
                people->FromXmlStream(*binary, context);
            else
                people->FromXml(inputs.xml.c_str(), context);
        });
        CheckCount(state, *people);
    }
    double textSeconds = 0;
    // After the timed loop, so not counted in the binary read's time.
    if (binary) {
        for (int i = 0; i < 3; ++i) {
            const double once = SecondsOf([&] { people->FromXml(inputs.xml.c_str()); });
            textSeconds = i == 0 ? once : std::min(textSeconds, once);
        }
    }
    Report(state, inputs, binary, seconds / static_cast<double>(state.iterations()), textSeconds);
}

void PersonFromXmlText(benchmark::State& state)
{
    ReadPeople(state, [](const Inputs&) -> const CBinaryData* { return nullptr; },
               CXmlSerializationContext::m_defaultContext);
}

void PersonFromFastInfoset(benchmark::State& state)
{
    ReadPeople(state, [](const Inputs& inputs) { return &inputs.binary; }, CXmlSerializationContext::m_defaultContext);
}

void PersonFromFastInfosetWithVocabulary(benchmark::State& state)
{
    ReadPeople(state, [](const Inputs& inputs) { return &inputs.binaryWithVocabulary; }, VocabularyContext());
}

// The parsers alone: the tree of the text and of the binary form.
void TreeFromXmlText(benchmark::State& state)
{
    const Inputs& inputs = InputsOf(state.range(0));
    for (auto _ : state) {
        CXmlDocument document;
        document.LoadXml(inputs.xml.c_str());
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    Report(state, inputs, nullptr, 0, 0);
}

void TreeFromFastInfoset(benchmark::State& state)
{
    const Inputs& inputs = InputsOf(state.range(0));
    for (auto _ : state) {
        CXmlDocument document;
        document.LoadXmlStream(inputs.binary.GetData(), inputs.binary.GetLength());
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    Report(state, inputs, nullptr, 0, 0);
}

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

} // namespace

BENCHMARK(PersonFromXmlText)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(PersonFromFastInfoset)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(PersonFromFastInfosetWithVocabulary)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(TreeFromXmlText)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(TreeFromFastInfoset)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
