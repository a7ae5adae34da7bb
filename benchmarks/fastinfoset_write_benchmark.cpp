// The binary writer beside the text writer: a document of N Person records
// written by ToXml and by ToFastInfosetStream, under a default context and
// under the suggested encodings. All report the XML text's bytes per
// second, so equal rates mean equal time per document; the binary runs add
// the binary size and its fraction of the text's size.
#include "NxXmlLib9.h"
#include "BenchmarkDocuments.h"
#include "PeopleClasses.h"

#include <benchmark/benchmark.h>

#include <string>

using namespace NxXmlLib9;
using NxTest::People;

using NxBench::Document;
using NxBench::DocumentText;
using NxBench::SetBytes;

namespace {

void PeopleToXml(benchmark::State& state)
{
    const CSmartPtr<People>& people = Document(state.range(0));
    const std::string& expected = DocumentText(state.range(0));
    for (auto _ : state) {
        std::string xml = people->ToXml(false, false);
        if (xml.size() != expected.size())
            state.SkipWithError("the text differs");
        benchmark::DoNotOptimize(xml.data());
    }
    SetBytes(state, expected);
}

void WriteFastInfoset(benchmark::State& state, const CXmlSerializationContext& context)
{
    const CSmartPtr<People>& people = Document(state.range(0));
    const std::string& xml = DocumentText(state.range(0));
    unsigned long size = 0;
    for (auto _ : state) {
        CBinaryData bytes = people->ToFastInfosetStream(FInfoDeclNone, context);
        size = bytes.GetLength();
        benchmark::DoNotOptimize(bytes.GetData());
    }
    SetBytes(state, xml);
    state.counters["fi_bytes"] = static_cast<double>(size);
    state.counters["fi_fraction"] = static_cast<double>(size) / static_cast<double>(xml.size());
}

void PeopleToFastInfoset(benchmark::State& state)
{
    WriteFastInfoset(state, CXmlSerializationContext::m_defaultContext);
}

void PeopleToFastInfosetSuggested(benchmark::State& state)
{
    CXmlSerializationContext context;
    context.GetFIContext().SetSuggestedValues();
    WriteFastInfoset(state, context);
}

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

} // namespace

BENCHMARK(PeopleToXml)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(PeopleToFastInfoset)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(PeopleToFastInfosetSuggested)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
