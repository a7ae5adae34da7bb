// Throughput of the hex, base64 and UTF conversions over 1 KB, 1 MB and
// 16 MB: equal bytes per second across the sizes shows they are linear.
#include "NxXmlLib9.h"

#include <benchmark/benchmark.h>

#include <clocale>
#include <string>
#include <vector>

using namespace NxXmlLib9;

namespace {

const long kSizes[] = {1L << 10, 1L << 20, 16L << 20};

void Sizes(benchmark::internal::Benchmark* b)
{
    for (long size : kSizes)
        b->Arg(size);
    b->Unit(benchmark::kMicrosecond);
}

std::vector<unsigned char> RandomBytes(size_t size)
{
    std::vector<unsigned char> bytes(size);
    unsigned state = 12345;
    for (auto& byte : bytes) {
        state = state * 1103515245u + 12345u;
        byte = static_cast<unsigned char>(state >> 16);
    }
    return bytes;
}

// Mixed text: ASCII with two-, three- and four-byte characters, about one
// code point per two bytes of UTF-8.
std::wstring MixedWide(size_t utf8Bytes)
{
    const wchar_t pattern[] = {L'a', 0xE9, L'b', 0x20AC, L' ', 0x1F600, L'z', L'q'};
    std::wstring text;
    size_t bytes = 0;
    for (size_t i = 0; bytes < utf8Bytes; ++i) {
        const wchar_t c = pattern[i % 8];
        text += c;
        bytes += c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
    }
    return text;
}

// The conversions through the local code page run in a UTF-8 locale, set
// here because the library never sets one.
class ScopedUtf8Locale {
public:
    ScopedUtf8Locale() : m_previous(std::setlocale(LC_CTYPE, nullptr)) { std::setlocale(LC_CTYPE, "C.UTF-8"); }
    ~ScopedUtf8Locale() { std::setlocale(LC_CTYPE, m_previous.c_str()); }

private:
    std::string m_previous;
};

void BM_HexOut(benchmark::State& state)
{
    CBinaryData data(RandomBytes(state.range(0)).data(), state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(data.GetAsHexString());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_HexIn(benchmark::State& state)
{
    const std::string text = CBinaryData(RandomBytes(state.range(0)).data(), state.range(0)).GetAsHexString();
    CBinaryData data;
    for (auto _ : state) {
        data.SetAsHexString(text.c_str());
        benchmark::DoNotOptimize(data.GetData());
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_Base64Out(benchmark::State& state)
{
    CBinaryData data(RandomBytes(state.range(0)).data(), state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(data.GetAsBase64());
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_Base64In(benchmark::State& state)
{
    const std::string text = CBinaryData(RandomBytes(state.range(0)).data(), state.range(0)).GetAsBase64();
    CBinaryData data;
    for (auto _ : state) {
        data.SetAsBase64(text.c_str());
        benchmark::DoNotOptimize(data.GetData());
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_AppendBytes(benchmark::State& state)
{
    for (auto _ : state) {
        CBinaryData data;
        for (long i = 0; i < state.range(0); ++i)
            data.Append(static_cast<unsigned char>(i));
        benchmark::DoNotOptimize(data.GetData());
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_WideToUtf8(benchmark::State& state)
{
    const std::wstring text = MixedWide(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(CEncoder::UnicodeToUtf8Binary(text.c_str()));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_Utf8ToWide(benchmark::State& state)
{
    const std::wstring text = MixedWide(state.range(0));
    CBinaryData utf8 = CEncoder::UnicodeToUtf8Binary(text.c_str());
    std::vector<wchar_t> wide(utf8.GetLength() + 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(UTF8ToUnicode(utf8.GetData(), utf8.GetLength(), wide.data(), wide.size()));
    state.SetBytesProcessed(state.iterations() * utf8.GetLength());
}

void BM_WideToUtf16(benchmark::State& state)
{
    const std::wstring text = MixedWide(state.range(0));
    std::vector<unsigned char> utf16(text.size() * 4);
    for (auto _ : state)
        benchmark::DoNotOptimize(UnicodeToUTF16(text.data(), text.size(), utf16.data(), text.size() * 2));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_Utf8ToLocal(benchmark::State& state)
{
    ScopedUtf8Locale locale;
    const std::wstring text = MixedWide(state.range(0));
    CBinaryData utf8 = CEncoder::UnicodeToUtf8Binary(text.c_str());
    for (auto _ : state)
        benchmark::DoNotOptimize(CEncoder::Utf8ToLocalCodePage(utf8.GetData(), static_cast<int>(utf8.GetLength())));
    state.SetBytesProcessed(state.iterations() * utf8.GetLength());
}

void BM_LocalToUtf8(benchmark::State& state)
{
    ScopedUtf8Locale locale;
    const std::wstring wide = MixedWide(state.range(0));
    const std::string text = UnicodeToMultiByte(wide.c_str());
    for (auto _ : state)
        benchmark::DoNotOptimize(CEncoder::LocalCodePageToUtf8Binary(text.c_str()));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(BM_HexOut)->Apply(Sizes);
BENCHMARK(BM_HexIn)->Apply(Sizes);
BENCHMARK(BM_Base64Out)->Apply(Sizes);
BENCHMARK(BM_Base64In)->Apply(Sizes);
BENCHMARK(BM_AppendBytes)->Apply(Sizes);
BENCHMARK(BM_WideToUtf8)->Apply(Sizes);
BENCHMARK(BM_Utf8ToWide)->Apply(Sizes);
BENCHMARK(BM_WideToUtf16)->Apply(Sizes);
BENCHMARK(BM_Utf8ToLocal)->Apply(Sizes);
BENCHMARK(BM_LocalToUtf8)->Apply(Sizes);

BENCHMARK_MAIN();
