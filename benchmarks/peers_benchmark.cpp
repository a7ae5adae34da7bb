// Reading and writing measured against the peers, in one run: the same
// Person documents (1 000, 10 000 and 100 000 records) go through a bare
// Expat parse with namespaces on and empty handlers, a pugixml parse and
// save, CXmlDocument::LoadXml, FromXml, ToXml and the binary writer and
// reader. The operations take turns round after round, so that the load of
// a shared machine falls on all of them alike; each figure is the median of
// the rounds, and each ratio is the median of the ratios within a round.
//
// Every rate is in megabytes of the XML text of the records per second,
// also for the binary operations, so rates compare across rows. The peak
// memory of an operation is measured once per size in a child process: the
// rise of its resident set above what it held before the operation,
// as a multiple of the XML text's size.
//
// Usage: peers_benchmark [rounds]   (default 7)
//        peers_benchmark --only NAME RECORDS   one run of one operation, for
//        a profiler (NAME as printed, e.g. FromXml)
#include "NxXmlLib9.h"
#include "PeopleClasses.h"

#include <expat.h>
#include <malloc.h>
#include <pugixml.hpp>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

using namespace NxXmlLib9;
using NxTest::MakePeople;
using NxTest::People;

namespace {

struct Documents {
    long records = 0;
    CSmartPtr<People> people;
    std::string text;
    CBinaryData binary;
};

struct Operation {
    const char* name;
    std::function<void(const Documents&)> run;
};

[[noreturn]] void Fail(const char* what)
{
    std::fprintf(stderr, "peers_benchmark: %s\n", what);
    std::exit(2);
}

void XMLCALL StartElement(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL EndElement(void*, const XML_Char*) {}
void XMLCALL CharacterData(void*, const XML_Char*, int) {}
void XMLCALL StartNamespace(void*, const XML_Char*, const XML_Char*) {}
void XMLCALL EndNamespace(void*, const XML_Char*) {}

void ExpatParse(const Documents& docs)
{
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(parser, &StartElement, &EndElement);
    XML_SetNamespaceDeclHandler(parser, &StartNamespace, &EndNamespace);
    XML_SetCharacterDataHandler(parser, &CharacterData);
    if (XML_Parse(parser, docs.text.data(), static_cast<int>(docs.text.size()), 1) != XML_STATUS_OK)
        Fail("Expat: not well-formed");
    XML_ParserFree(parser);
}

void PugiParse(const Documents& docs)
{
    pugi::xml_document document;
    if (!document.load_buffer(docs.text.data(), docs.text.size()))
        Fail("pugixml: not well-formed");
    if (!document.first_child())
        Fail("pugixml: no root");
}

struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void* data, size_t size) override { text.append(static_cast<const char*>(data), size); }
};

// pugixml's tree of the document, parsed once per size, for the save.
pugi::xml_document& PugiTree(const Documents& docs)
{
    static std::vector<std::pair<long, pugi::xml_document*>> trees;
    for (auto& entry : trees)
        if (entry.first == docs.records)
            return *entry.second;
    auto* document = new pugi::xml_document;
    document->load_buffer(docs.text.data(), docs.text.size());
    trees.emplace_back(docs.records, document);
    return *document;
}

void PugiSave(const Documents& docs)
{
    StringWriter writer;
    PugiTree(docs).save(writer, "", pugi::format_raw | pugi::format_no_declaration);
    if (writer.text.size() < docs.text.size() / 2)
        Fail("pugixml: short output");
}

void LoadXml(const Documents& docs)
{
    CXmlDocument document;
    document.LoadXml(docs.text.c_str());
    if (!document.GetDocumentElement())
        Fail("LoadXml: no root");
}

void FromXml(const Documents& docs)
{
    CSmartPtr<People> people(new People);
    people->FromXml(docs.text.c_str());
    if (people->Persons->GetCount() != docs.records)
        Fail("FromXml: records lost");
}

void ToXml(const Documents& docs)
{
    const std::string text = docs.people->ToXml(false, false);
    if (text.size() != docs.text.size())
        Fail("ToXml: the text differs");
}

void FastInfosetWrite(const Documents& docs)
{
    const CBinaryData binary = docs.people->ToFastInfosetStream();
    if (binary.GetLength() != docs.binary.GetLength())
        Fail("ToFastInfosetStream: the bytes differ");
}

void FastInfosetRead(const Documents& docs)
{
    CSmartPtr<People> people(new People);
    people->FromXmlStream(docs.binary);
    if (people->Persons->GetCount() != docs.records)
        Fail("FromXmlStream: records lost");
}

const std::vector<Operation>& Operations()
{
    static const std::vector<Operation> operations = {
        {"Expat parse", ExpatParse},
        {"pugixml parse", PugiParse},
        {"pugixml save", PugiSave},
        {"LoadXml", LoadXml},
        {"FromXml", FromXml},
        {"ToXml", ToXml},
        {"FI write", FastInfosetWrite},
        {"FI read", FastInfosetRead},
    };
    return operations;
}

enum OperationIndex { kExpat, kPugiParse, kPugiSave, kLoadXml, kFromXml, kToXml, kFiWrite, kFiRead, kCount };

double Seconds(const std::function<void(const Documents&)>& run, const Documents& docs, int repeats)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < repeats; ++i)
        run(docs);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / repeats;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

long StatusKilobytes(const char* field)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    const size_t length = std::strlen(field);
    while (std::getline(status, line))
        if (line.compare(0, length, field) == 0)
            return std::atol(line.c_str() + length + 1);
    return -1;
}

Documents MakeDocuments(long records)
{
    Documents docs;
    docs.records = records;
    docs.people = MakePeople(records);
    docs.text = docs.people->ToXml(false, false);
    docs.binary = docs.people->ToFastInfosetStream();
    return docs;
}

// Peak rise of the resident set, in bytes, of one run of the operation in a
// child process. The child first runs the operation once on a small
// document, so the code pages it faults in after the fork are not counted
// as the operation's data; then it gives back the free memory it holds and
// resets its high-water mark, so the mark afterwards is the operation's own.
double PeakBytes(const Operation& operation, const Documents& docs)
{
    static const Documents warmUp = MakeDocuments(20);
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0)
        Fail("pipe");
    const pid_t child = fork();
    if (child == 0) {
        close(pipeEnds[0]);
        operation.run(warmUp);
        malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << "5";
        const long before = StatusKilobytes("VmRSS:");
        operation.run(docs);
        const long peak = StatusKilobytes("VmHWM:");
        const double bytes = (peak - before) * 1024.0;
        if (write(pipeEnds[1], &bytes, sizeof bytes) != sizeof bytes)
            _exit(1);
        _exit(0);
    }
    close(pipeEnds[1]);
    double bytes = -1;
    if (read(pipeEnds[0], &bytes, sizeof bytes) != sizeof bytes)
        bytes = -1;
    close(pipeEnds[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return bytes;
}

struct SizeResult {
    long records = 0;
    double megabytes = 0;
    double rate[kCount] = {};
    double ratioFromXml = 0, ratioLoadXml = 0, ratioToXml = 0;
    double memory[kCount] = {};
};

SizeResult Measure(long records, int rounds)
{
    const Documents docs = MakeDocuments(records);
    const auto& operations = Operations();
    PugiTree(docs);

    SizeResult result;
    result.records = records;
    result.megabytes = docs.text.size() / 1e6;
    // Enough repeats that one sample of the smallest size lasts a few
    // milliseconds at least.
    const int repeats = std::max(1, static_cast<int>(3000000 / docs.text.size()));
    for (const auto& operation : operations)
        operation.run(docs); // warm-up

    std::vector<double> seconds[kCount], fromXml, loadXml, toXml;
    for (int round = 0; round < rounds; ++round) {
        double sample[kCount];
        for (int i = 0; i < kCount; ++i) {
            sample[i] = Seconds(operations[i].run, docs, repeats);
            seconds[i].push_back(sample[i]);
        }
        fromXml.push_back(sample[kExpat] / sample[kFromXml]);
        loadXml.push_back(sample[kExpat] / sample[kLoadXml]);
        toXml.push_back(sample[kPugiSave] / sample[kToXml]);
    }
    for (int i = 0; i < kCount; ++i)
        result.rate[i] = result.megabytes / Median(seconds[i]);
    result.ratioFromXml = Median(fromXml);
    result.ratioLoadXml = Median(loadXml);
    result.ratioToXml = Median(toXml);
    for (int i = 0; i < kCount; ++i)
        result.memory[i] = PeakBytes(operations[i], docs) / docs.text.size();
    std::printf("  measured %ld records: %.1f MB of XML text, %.1f MB binary\n", records, result.megabytes,
                docs.binary.GetLength() / 1e6);
    std::fflush(stdout);
    return result;
}

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && std::strcmp(argv[1], "--only") == 0) {
        const Documents docs = MakeDocuments(std::atol(argv[3]));
        for (const auto& operation : Operations())
            if (operation.name == std::string(argv[2])) {
                operation.run(docs);
                return 0;
            }
        Fail("no such operation");
    }
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 7;
    const long sizes[] = {1000, 10000, 100000};
    std::vector<SizeResult> results;
    std::printf("peers_benchmark: %d interleaved rounds per size\n", rounds);
    for (long records : sizes)
        results.push_back(Measure(records, rounds));

    const auto& operations = Operations();
    std::printf("\nThroughput, MB of XML text per second (median of rounds)\n");
    std::printf("%-16s", "operation");
    for (const auto& r : results)
        std::printf(" %10ld", r.records);
    std::printf(" %12s\n", "linearity");
    for (int i = 0; i < kCount; ++i) {
        std::printf("%-16s", operations[i].name);
        for (const auto& r : results)
            std::printf(" %10.1f", r.rate[i]);
        std::printf(" %12.2f\n", results.back().rate[i] / results.front().rate[i]);
    }

    std::printf("\nPeak resident memory of one operation, multiple of the XML text's size\n");
    std::printf("%-16s", "operation");
    for (const auto& r : results)
        std::printf(" %10ld", r.records);
    std::printf("\n");
    for (int i = 0; i < kCount; ++i) {
        std::printf("%-16s", operations[i].name);
        for (const auto& r : results)
            std::printf(" %10.2f", r.memory[i]);
        std::printf("\n");
    }

    std::printf("\nRatios against the peers (median of the ratios within a round)\n");
    struct Target {
        const char* what;
        double SizeResult::*ratio;
        double goal;
    } ratioTargets[] = {
        {"FromXml / Expat", &SizeResult::ratioFromXml, 0.5},
        {"LoadXml / Expat", &SizeResult::ratioLoadXml, 0.8},
        {"ToXml / pugixml save", &SizeResult::ratioToXml, 0.5},
    };
    bool allHold = true;
    for (const auto& target : ratioTargets) {
        std::printf("%-24s", target.what);
        bool holds = true;
        for (const auto& r : results) {
            std::printf(" %8.2f", r.*target.ratio);
            holds = holds && r.*target.ratio >= target.goal;
        }
        std::printf("   target >= %.1f: %s\n", target.goal, holds ? "holds" : "MISSED");
        allHold = allHold && holds;
    }
    struct MemoryTarget {
        const char* what;
        int operation;
        double limit;
    } memoryTargets[] = {{"LoadXml peak memory", kLoadXml, 3.0}, {"FromXml peak memory", kFromXml, 6.0}};
    for (const auto& target : memoryTargets) {
        std::printf("%-24s", target.what);
        bool holds = true;
        for (const auto& r : results) {
            std::printf(" %8.2f", r.memory[target.operation]);
            holds = holds && r.memory[target.operation] <= target.limit;
        }
        std::printf("   target <= %.1f x: %s\n", target.limit, holds ? "holds" : "MISSED");
        allHold = allHold && holds;
    }
    std::printf("%-24s", "linearity (largest/smallest)");
    bool linear = true;
    for (int i : {kLoadXml, kFromXml, kToXml, kFiWrite, kFiRead}) {
        const double ratio = results.back().rate[i] / results.front().rate[i];
        std::printf(" %s %.2f", operations[i].name, ratio);
        linear = linear && ratio >= 0.8;
    }
    std::printf("   target >= 0.8: %s\n", linear ? "holds" : "MISSED");
    return 0;
}
