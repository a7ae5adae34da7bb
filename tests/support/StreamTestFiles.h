// Test helpers for bytes and files: temporary paths, whole-file reads and
// writes, and stock command-line tools run on them.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "NxXmlLib9.h"

namespace NxTest {

// A fresh path in the temporary folder; the file is removed at the end.
class TempPath {
public:
    TempPath()
    {
        char path[] = "/tmp/nxxml_stream_XXXXXX";
        const int descriptor = mkstemp(path);
        if (descriptor >= 0)
            close(descriptor);
        m_path = path;
    }
    ~TempPath() { std::remove(m_path.c_str()); }
    TempPath(const TempPath&) = delete;
    TempPath& operator=(const TempPath&) = delete;
    const char* c_str() const { return m_path.c_str(); }
    const std::string& str() const { return m_path; }

private:
    std::string m_path;
};

inline std::string BytesOf(const NxXmlLib9::CBinaryData& data)
{
    return data.GetLength() ? std::string(reinterpret_cast<const char*>(data.GetData()), data.GetLength())
                            : std::string();
}

inline NxXmlLib9::CBinaryData DataOf(const std::string& bytes)
{
    return NxXmlLib9::CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                                  static_cast<unsigned long>(bytes.size()));
}

// Runs the library's inflation on a new[] copy of the bytes, as a document
// does; tells whether the buffer was replaced and gives back what it holds.
inline std::string InflatedBytes(const std::string& bytes, bool* replaced = nullptr)
{
    unsigned long length = static_cast<unsigned long>(bytes.size());
    unsigned char* buffer = new unsigned char[bytes.size() ? bytes.size() : 1];
    std::copy(bytes.begin(), bytes.end(), buffer);
    unsigned char* const original = buffer;
    NxXmlLib9::CNxZip::Decompress(&buffer, &length);
    if (replaced)
        *replaced = buffer != original;
    std::string result(reinterpret_cast<char*>(buffer), length);
    delete[] buffer;
    return result;
}

inline std::string ReadFileBytes(const std::string& path)
{
    std::string bytes;
    if (FILE* file = std::fopen(path.c_str(), "rb")) {
        char buffer[65536];
        size_t n;
        while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0)
            bytes.append(buffer, n);
        std::fclose(file);
    }
    return bytes;
}

inline void WriteFileBytes(const std::string& path, const std::string& bytes)
{
    if (FILE* file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
}

// The standard output of a shell command; false when it could not run or
// exited with an error.
inline bool RunCommand(const std::string& command, std::string& output)
{
    output.clear();
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return false;
    char buffer[65536];
    size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        output.append(buffer, n);
    return pclose(pipe) == 0;
}

inline bool HaveGzip()
{
    return std::system("gzip --version > /dev/null 2>&1") == 0;
}

} // namespace NxTest
