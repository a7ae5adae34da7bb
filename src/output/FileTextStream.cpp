// The text stream that drains into a file.
#include "NxBinaryStream.h"

#include "NxException.h"
#include "foundation/TextArgument.h"

#include <cstdio>

namespace NxXmlLib9 {

CFileTextStream::CFileTextStream(const char* path, XmlEncoding encoding)
    : CTextStream(encoding), m_path(OrEmpty(path)), m_file(nullptr)
{
}

CFileTextStream::~CFileTextStream()
{
    if (m_file)
        std::fclose(m_file);
}

void CFileTextStream::Open()
{
    CTextStream::Open();
    if (m_file) {
        // Opening again starts the file afresh; the earlier handle is not
        // leaked.
        std::fclose(m_file);
        m_file = nullptr;
    }
    m_file = std::fopen(m_path.c_str(), "wt");
    if (!m_file)
        throw CNxException(FormatString("Failed to write data to the file [%s]", m_path.c_str()));
    if (m_encoding == XmlEncodingUTF16 || m_encoding == XmlEncodingUnicode) {
        static const unsigned char byteOrderMark[2] = {0xFF, 0xFE};
        if (std::fwrite(byteOrderMark, 2, 1, m_file) == 0) {
            std::fclose(m_file);
            m_file = nullptr;
            throw CNxException(FormatString("Failed to write data to the file [%s]", m_path.c_str()));
        }
    }
}

void CFileTextStream::Close()
{
    Flush();
    // A failed flush has closed the file already. The mark is buffered until
    // the close, so a full disk shows here.
    if (m_file) {
        const int closed = std::fclose(m_file);
        m_file = nullptr;
        if (closed != 0)
            throw CNxException(FormatString("Failed to write data to the file [%s]", m_path.c_str()));
    }
    CTextStream::Close();
}

void CFileTextStream::Flush()
{
    if (GetLength() == 0)
        return;
    // Only the encoded buffer is written, and nothing fills it, so any text
    // makes this a write of zero bytes, which counts as a failure.
    const unsigned long length = m_encoded.GetLength();
    const size_t written = (m_file && length != 0) ? std::fwrite(m_encoded.GetData(), 1, length, m_file) : 0;
    if (written == 0) {
        if (m_file)
            std::fclose(m_file);
        m_file = nullptr;
        throw CNxException("Failed to write data to the file");
    }
    m_buffer.Empty();
}

} // namespace NxXmlLib9
