// The four loads of a document and the parse paths behind them.
#include "NxXmlDocument.h"

#include "NxException.h"
#include "NxExpatReader.h"
#include "NxFastInfosetReader.h"
#include "NxZip.h"
#include "foundation/TextArgument.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <new>

namespace NxXmlLib9 {

namespace {

bool g_asyncFromXmlFile = false;

// Closes the file on every way out of Load.
class CFileCloser {
public:
    explicit CFileCloser(FILE* file) : m_file(file) {}
    ~CFileCloser() { std::fclose(m_file); }
    CFileCloser(const CFileCloser&) = delete;
    CFileCloser& operator=(const CFileCloser&) = delete;

private:
    FILE* m_file;
};

} // namespace

void AsyncFromXmlFile(bool asyncFromXmlFile)
{
    g_asyncFromXmlFile = asyncFromXmlFile;
}

void CXmlDocument::Load(const char* path)
{
    Cleanup();
    const char* shownPath = OrEmpty(path);
    FILE* file = path ? std::fopen(path, "rt") : nullptr;
    if (!file)
        throw CNxException(FormatString("Failed to open the file [%s]", shownPath));
    {
        CFileCloser closer(file);
        const long length = _filelength(file);
        if (length == -1) {
            const int error = errno;
            throw CNxException(FormatString("Failed to get the size of the file [%s] Error [%d]", shownPath, error));
        }
        // The read count is taken as a signed 32-bit number, so nothing of
        // 2 gigabytes or more loads; such a file is refused before its
        // buffer is allocated rather than after it was read.
        if (length > INT_MAX)
            throw CNxException(
                FormatString("Failed to read the contents of the file [%s] Error [%d]", shownPath, EFBIG));
        const unsigned long size = static_cast<unsigned long>(length);
        AdoptInput(new unsigned char[size > 0 ? size : 1], size);
        errno = 0;
        const int read = static_cast<int>(std::fread(m_inputBuffer, 1, size, file));
        if (read == 0 || static_cast<unsigned long>(read) != size) {
            const int error = errno;
            throw CNxException(
                FormatString("Failed to read the contents of the file [%s] Error [%d]", shownPath, error));
        }
    }
    Parse();
}

void CXmlDocument::LoadXml(const char* text)
{
    Cleanup();
    const size_t length = text ? std::strlen(text) : 0;
    if (length == 0)
        throw CNxException("XML String is empty!");
    // The text is parsed where it stands: it stays the caller's and must
    // not be kept past this call, so the document lets go of it at the end.
    // Only a failed load copies it, to keep its input like any other load.
    m_inputBuffer = reinterpret_cast<unsigned char*>(const_cast<char*>(text));
    m_inputSize = length;
    m_ownsInput = false;
    try {
        ParseText();
    } catch (...) {
        KeepBorrowedInput();
        throw;
    }
    m_inputBuffer = nullptr;
    m_inputSize = 0;
    m_ownsInput = true;
}

void CXmlDocument::KeepBorrowedInput()
{
    if (m_ownsInput)
        return;
    unsigned char* copy = new (std::nothrow) unsigned char[m_inputSize];
    if (copy)
        std::memcpy(copy, m_inputBuffer, m_inputSize);
    // Without the memory for a copy the input is dropped rather than the
    // failure replaced.
    m_inputBuffer = copy;
    m_inputSize = copy ? m_inputSize : 0;
    m_ownsInput = true;
}

void CXmlDocument::LoadXml(const wchar_t* text)
{
    Cleanup();
    const size_t length = text ? std::wcslen(text) : 0;
    if (length == 0)
        throw CNxException("XML String is empty!");
    // UTF-16, little-endian, behind a byte order mark: the mark tells the
    // parser the encoding whatever the declaration says.
    const unsigned long size = 2 * length + 2;
    AdoptInput(new unsigned char[size], size);
    unsigned char* out = m_inputBuffer;
    *out++ = 0xFF;
    *out++ = 0xFE;
    for (size_t i = 0; i < length; ++i) {
        const unsigned long unit = static_cast<unsigned long>(text[i]);
        *out++ = static_cast<unsigned char>(unit & 0xFF);
        *out++ = static_cast<unsigned char>((unit >> 8) & 0xFF);
    }
    ParseText();
}

void CXmlDocument::LoadXmlStream(unsigned char* bytes, unsigned long size)
{
    Cleanup();
    if (!bytes || size == 0)
        throw CNxException("XML Stream is empty!");
    AdoptInput(new unsigned char[size], size);
    std::memcpy(m_inputBuffer, bytes, size);
    Parse();
}

void CXmlDocument::Parse()
{
    DecompressInput();
    if (ParseFastInfoset())
        return;
    ParseText();
}

void CXmlDocument::DecompressInput()
{
    // Files and byte streams may arrive gzip or zlib compressed with nothing
    // to say so: a complete stream replaces the input buffer, anything else
    // is left for the parsers as it came.
    CNxZip::Decompress(&m_inputBuffer, &m_inputSize);
}

bool CXmlDocument::ParseFastInfoset()
{
    // The reader answers false, having read nothing, when the input does
    // not start with the binary header; the text parser takes it then.
    CFastInfosetReader reader(m_context.GetFIContext(), *this);
    return reader.Parse();
}

void CXmlDocument::ParseText()
{
    CExpatReader reader(*this);
    reader.CreateParser();
    reader.Parse(true);
}

} // namespace NxXmlLib9
