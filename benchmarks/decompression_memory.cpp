// Peak memory of reading a compressed document against the same document
// uncompressed. Each measurement runs in a fresh process, so that its peak
// is its own:
//   decompression_memory [size-in-MB]      runs every case and prints a table
// Two figures per case, both over what the process held before the stage
// (the file's bytes read into memory): the peak of memory allocated with
// new (exact, taken by this program's own operator new), and the growth of
// the peak resident set (getrusage), which also sees the parser's malloc.
#include "NxXmlLib9.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace NxXmlLib9;

namespace {

std::atomic<size_t> g_current{0};
std::atomic<size_t> g_peak{0};

void* Track(void* block)
{
    if (!block)
        throw std::bad_alloc();
    const size_t now = g_current += malloc_usable_size(block);
    size_t peak = g_peak.load();
    while (now > peak && !g_peak.compare_exchange_weak(peak, now)) {
    }
    return block;
}

void Untrack(void* block)
{
    if (block) {
        g_current -= malloc_usable_size(block);
        std::free(block);
    }
}

} // namespace

void* operator new(size_t size) { return Track(std::malloc(size ? size : 1)); }
void* operator new[](size_t size) { return Track(std::malloc(size ? size : 1)); }
void operator delete(void* block) noexcept { Untrack(block); }
void operator delete[](void* block) noexcept { Untrack(block); }
void operator delete(void* block, size_t) noexcept { Untrack(block); }
void operator delete[](void* block, size_t) noexcept { Untrack(block); }

namespace {

const double kMB = 1024.0 * 1024.0;

long PeakResidentKB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

std::string Records(size_t size)
{
    std::string xml = "<catalog xmlns=\"urn:example:catalog\">\n";
    for (long i = 0; xml.size() < size; ++i) {
        const std::string number = std::to_string(i);
        xml += "<item id=\"" + number + "\" kind=\"standard\"><name>Item number " + number + "</name><price>" +
               std::to_string(i % 1000) +
               ".50</price><note>A short description of the item, long enough to need storage.</note></item>\n";
    }
    return xml + "</catalog>\n";
}

void WriteFile(const std::string& path, const unsigned char* data, size_t length)
{
    FILE* file = std::fopen(path.c_str(), "wb");
    std::fwrite(data, 1, length, file);
    std::fclose(file);
}

// Measures one stage on one file in this process and prints one line.
int Measure(const char* stage, const char* path)
{
    FILE* file = std::fopen(path, "rb");
    if (!file)
        return 1;
    const unsigned long size = static_cast<unsigned long>(_filelength(file));
    unsigned char* bytes = new unsigned char[size];
    if (std::fread(bytes, 1, size, file) != size)
        return 1;
    std::fclose(file);

    const long residentBefore = PeakResidentKB();
    const size_t heapBefore = g_current.load();
    g_peak = heapBefore;
    unsigned long result = 0;
    if (std::strcmp(stage, "inflate") == 0) {
        // What the document does: its own copy of the input, then inflation.
        unsigned long length = size;
        unsigned char* copy = new unsigned char[length];
        std::memcpy(copy, bytes, length);
        CNxZip::Decompress(&copy, &length);
        result = length;
        delete[] copy;
    } else {
        CXmlDocument document;
        document.LoadXmlStream(bytes, size);
        result = document.GetInputSize();
    }
    std::printf("%-8s %-28s input %7.1f MB  text %6.1f MB  heap peak +%6.1f MB  resident peak +%6.1f MB\n", stage,
                path, size / kMB, result / kMB, (g_peak.load() - heapBefore) / kMB,
                (PeakResidentKB() - residentBefore) / 1024.0);
    delete[] bytes;
    return 0;
}

int RunChild(const char* self, const char* stage, const std::string& path)
{
    const pid_t child = fork();
    if (child == 0) {
        execl(self, self, "--measure", stage, path.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && std::strcmp(argv[1], "--measure") == 0)
        return Measure(argv[2], argv[3]);

    const size_t megabytes = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 50;
    const std::string plainPath = "/tmp/nxxml_memory_plain.xml";
    const std::string gzipPath = "/tmp/nxxml_memory_packed.xml.gz";
    // zlib streams carry no size, so their buffer grows as it fills.
    const std::string zlibPath = "/tmp/nxxml_memory_packed.xml.zz";
    {
        const std::string xml = Records(megabytes * 1024 * 1024);
        CBinaryData packed(reinterpret_cast<unsigned char*>(const_cast<char*>(xml.data())),
                           static_cast<unsigned long>(xml.size()));
        WriteFile(plainPath, packed.GetData(), packed.GetLength());
        CBinaryData zlib(packed.GetData(), packed.GetLength());
        CNxZip::CompressData(packed, CompressionTypeGZip);
        WriteFile(gzipPath, packed.GetData(), packed.GetLength());
        CNxZip::CompressData(zlib, CompressionTypeZLib);
        WriteFile(zlibPath, zlib.GetData(), zlib.GetLength());
    }
    int failures = 0;
    failures += RunChild(argv[0], "inflate", gzipPath);
    failures += RunChild(argv[0], "inflate", zlibPath);
    failures += RunChild(argv[0], "load", plainPath);
    failures += RunChild(argv[0], "load", gzipPath);
    failures += RunChild(argv[0], "load", zlibPath);
    for (const std::string* path : {&plainPath, &gzipPath, &zlibPath})
        std::remove(path->c_str());
    return failures == 0 ? 0 : 1;
}
