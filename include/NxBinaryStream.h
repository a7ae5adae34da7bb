// The byte sink of the binary writer, and the saving of a finished block of
// bytes to a file.
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

} // namespace NxXmlLib9
