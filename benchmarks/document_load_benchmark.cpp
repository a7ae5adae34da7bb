// Loading documents into the tree. Equal pieces or bytes per second across
// the sizes shows that loading is linear in the input: one text made of
// many tiny pieces (character references, each delivered on its own) and
// a document of many small records. Files of 50 MB in three shapes report
// their peak memory beside their time.
#include "NxXmlLib9.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <sys/resource.h>

using namespace NxXmlLib9;

namespace {

std::string CharacterReferences(long pieces)
{
    std::string xml = "<r>";
    xml.reserve(static_cast<size_t>(pieces) * 5 + 8);
    for (long i = 0; i < pieces; ++i)
        xml += (i % 2) ? "&#66;" : "&#65;";
    xml += "</r>";
    return xml;
}

// One record of about 200 bytes: attributes, short and long text.
void AppendRecord(std::string& xml, long index)
{
    const std::string number = std::to_string(index);
    xml += "<item id=\"";
    xml += number;
    xml += "\" kind=\"standard\"><name>Item number ";
    xml += number;
    xml += "</name><price>";
    xml += std::to_string(index % 1000);
    xml += ".50</price><note>A short description of the item, long enough to need storage of its own "
           "beyond the string's inline buffer.</note></item>\n";
}

std::string Records(long count)
{
    std::string xml = "<catalog xmlns=\"urn:example:catalog\">\n";
    for (long i = 0; i < count; ++i)
        AppendRecord(xml, i);
    xml += "</catalog>\n";
    return xml;
}

void LoadCharacterReferences(benchmark::State& state)
{
    const std::string xml = CharacterReferences(state.range(0));
    for (auto _ : state) {
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        benchmark::DoNotOptimize(document.GetDocumentElement()->GetText().data());
        if (document.GetDocumentElement()->GetText().size() != static_cast<size_t>(state.range(0)))
            state.SkipWithError("text lost");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(xml.size()));
}
BENCHMARK(LoadCharacterReferences)->Arg(250000)->Arg(1000000)->Arg(4000000)->Unit(benchmark::kMillisecond);

void LoadRecords(benchmark::State& state)
{
    std::string xml = Records(state.range(0));
    for (auto _ : state) {
        CXmlDocument document;
        document.LoadXmlStream(reinterpret_cast<unsigned char*>(&xml[0]), xml.size());
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(xml.size()));
}
BENCHMARK(LoadRecords)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// The three shapes of the 50 MB file.
enum FileShape { Paragraphs = 0, OneText = 1, RecordsFile = 2 };

// About 1 KB of text in one element, as in a document of prose.
void AppendParagraph(std::string& xml, long index)
{
    xml += "<p n=\"";
    xml += std::to_string(index);
    xml += "\">";
    for (int i = 0; i < 12; ++i)
        xml += "The quick brown fox jumps over the lazy dog, and the dog lets it pass. ";
    xml += "&amp; so on.</p>\n";
}

// One line of text; a whole file of them in one element makes one text of
// 50 MB that grows piece by piece.
void AppendLine(std::string& xml, long index)
{
    xml += "Line ";
    xml += std::to_string(index);
    xml += " of a single long text, delivered by the parser one line at a time.\n";
}

// Writes about 50 MB straight to a file, never holding the document in
// memory, so that the process's peak is the load's.
std::string WriteFile(FileShape shape, long& bytes)
{
    const std::string path = "/tmp/nxxml_document_load_benchmark.xml";
    FILE* file = std::fopen(path.c_str(), "wb");
    bytes = 0;
    if (!file)
        return std::string();
    std::string chunk = shape == OneText ? "<text>" : "<catalog xmlns=\"urn:example:catalog\">\n";
    for (long i = 0; bytes + static_cast<long>(chunk.size()) < 50L * 1000 * 1000; ++i) {
        if (shape == Paragraphs)
            AppendParagraph(chunk, i);
        else if (shape == OneText)
            AppendLine(chunk, i);
        else
            AppendRecord(chunk, i);
        if (chunk.size() > 65536) {
            bytes += static_cast<long>(std::fwrite(chunk.data(), 1, chunk.size(), file));
            chunk.clear();
        }
    }
    chunk += shape == OneText ? "</text>\n" : "</catalog>\n";
    bytes += static_cast<long>(std::fwrite(chunk.data(), 1, chunk.size(), file));
    std::fclose(file);
    return path;
}

long PeakResidentKilobytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Argument: the file's shape. Run one shape alone for peak_RSS_MB to be
// its own, e.g. --benchmark_filter=LoadFile/0.
void LoadFile(benchmark::State& state)
{
    long bytes = 0;
    const std::string path = WriteFile(static_cast<FileShape>(state.range(0)), bytes);
    if (path.empty()) {
        state.SkipWithError("cannot write the input file");
        return;
    }
    const long before = PeakResidentKilobytes();
    for (auto _ : state) {
        CXmlDocument document;
        document.Load(path.c_str());
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
    std::remove(path.c_str());
    state.counters["file_MB"] = bytes / 1e6;
    state.counters["peak_RSS_MB"] = PeakResidentKilobytes() * 1024 / 1e6;
    state.counters["baseline_RSS_MB"] = before * 1024 / 1e6;
    state.SetBytesProcessed(state.iterations() * bytes);
}
BENCHMARK(LoadFile)->Arg(Paragraphs)->Arg(OneText)->Arg(RecordsFile)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

BENCHMARK_MAIN();
