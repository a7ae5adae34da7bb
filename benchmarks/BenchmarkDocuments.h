// The People documents the Google Benchmark programs share: one object and
// one XML text per record count, made on first use, and the byte counter
// that lets every rate read as bytes of XML text per second.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

#include "NxXmlLib9.h"
#include "PeopleClasses.h"

namespace NxBench {

inline const NxXmlLib9::CSmartPtr<NxTest::People>& Document(long count)
{
    static std::map<long, NxXmlLib9::CSmartPtr<NxTest::People>> documents;
    NxXmlLib9::CSmartPtr<NxTest::People>& people = documents[count];
    if (!people)
        people = NxTest::MakePeople(count);
    return people;
}

inline const std::string& DocumentText(long count)
{
    static std::map<long, std::string> texts;
    std::string& text = texts[count];
    if (text.empty())
        text = Document(count)->ToXml(false, false);
    return text;
}

inline void SetBytes(benchmark::State& state, const std::string& xml)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(xml.size()));
    state.counters["xml_bytes"] = static_cast<double>(xml.size());
}

} // namespace NxBench
