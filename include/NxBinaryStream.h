// The byte sink of the binary writer, the saving of a finished block of bytes
// to a file, and the text stream that drains into a file as it fills.
#pragma once

#include <string>

#include "NxBinaryData.h"
#include "NxFoundation.h"
#include "NxTextStream.h"

namespace NxXmlLib9 {

// Appends into one growing, reference-counted buffer; there is no flush, the
// whole output stays in memory until the caller takes it.
class CBinaryStream : public CInstanceMonitor {
public:
    CBinaryStream();
    // Shares the caller's storage until the first append separates them.
    explicit CBinaryStream(CBinaryData& data);
    virtual ~CBinaryStream();

    void Append(unsigned char value);
    void Append(const CBinaryData& data);
    void Append(unsigned char* data, unsigned long length);

    // A copy that shares the buffer: cheap.
    CBinaryData GetBinaryStream() const;

protected:
    explicit CBinaryStream(const char* monitorName);
    CBinaryStream(const char* monitorName, CBinaryData& data);

    CBinaryData m_data;
};

// Writes its bytes to a path in one go, behind a little-endian byte order
// mark for the two wide encodings.
class CFileBinaryStream : public CBinaryStream {
public:
    CFileBinaryStream(const char* path, XmlEncoding encoding);
    CFileBinaryStream(const char* path, XmlEncoding encoding, CBinaryData& data);

    // Opens, writes and closes; an empty buffer counts as a failed write.
    void ToFile();

private:
    std::string m_path;
    XmlEncoding m_encoding;
};

// A text stream over a file, opened by Open. It holds a buffer of encoded
// bytes that Flush writes out, but nothing ever converts the text into that
// buffer: the first Flush that finds text raises "Failed to write data to the
// file" and closes the file, which then holds at most the byte order mark.
// The writer flushes past 4095 characters and on Close, so every document
// written through this stream ends so. It serves only the asynchronous form
// of ToXmlFile.
class CFileTextStream : public CTextStream {
public:
    CFileTextStream(const char* path, XmlEncoding encoding);
    ~CFileTextStream() override;

    // Empties the text, creates the file and, for the two wide encodings,
    // writes the little-endian byte order mark.
    void Open() override;
    // Flushes, then closes the file.
    void Close() override;
    // Does nothing while the text is empty.
    void Flush() override;

private:
    std::string m_path;
    CBinaryData m_encoded;
    FILE* m_file;
};

} // namespace NxXmlLib9
