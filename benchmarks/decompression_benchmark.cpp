// Inflating gzip documents of 0.3, 3 and 30 MB. Equal megabytes per second
// (of inflated text) across the sizes shows that decompression, with its
// 64 KB chunks appended to a geometrically growing buffer, is linear.
#include "NxXmlLib9.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

using namespace NxXmlLib9;

namespace {

// Records of about 200 bytes until the text reaches the size asked for.
std::string Records(size_t size)
{
    std::string xml = "<catalog xmlns=\"urn:example:catalog\">\n";
    xml.reserve(size + 256);
    for (long i = 0; xml.size() < size; ++i) {
        const std::string number = std::to_string(i);
        xml += "<item id=\"" + number + "\" kind=\"standard\"><name>Item number " + number + "</name><price>" +
               std::to_string(i % 1000) +
               ".50</price><note>A short description of the item, long enough to need storage.</note></item>\n";
    }
    return xml + "</catalog>\n";
}

void InflateGzip(benchmark::State& state)
{
    const std::string xml = Records(static_cast<size_t>(state.range(0)) * 100000);
    CBinaryData packed(reinterpret_cast<unsigned char*>(const_cast<char*>(xml.data())),
                       static_cast<unsigned long>(xml.size()));
    CNxZip::CompressData(packed, CompressionTypeGZip);
    for (auto _ : state) {
        // The document hands Decompress a new[] buffer of its own.
        unsigned long length = packed.GetLength();
        unsigned char* buffer = new unsigned char[length];
        std::memcpy(buffer, packed.GetData(), length);
        CNxZip::Decompress(&buffer, &length);
        if (length != xml.size())
            state.SkipWithError("inflated size differs");
        benchmark::DoNotOptimize(buffer);
        delete[] buffer;
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(xml.size()));
    state.counters["ratio"] = static_cast<double>(xml.size()) / packed.GetLength();
}

} // namespace

// Sizes in units of 100 KB: 0.3, 3 and 30 MB.
BENCHMARK(InflateGzip)->Arg(3)->Arg(30)->Arg(300)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
