// The byte sink of the binary writer and its file form.
#include "NxBinaryStream.h"

#include "NxException.h"
#include "foundation/TextArgument.h"

#include <cstdio>

namespace NxXmlLib9 {

CBinaryStream::CBinaryStream() : CInstanceMonitor("CBinaryStream") {}

CBinaryStream::CBinaryStream(CBinaryData& data) : CInstanceMonitor("CBinaryStream"), m_data(data) {}

CBinaryStream::CBinaryStream(const char* monitorName) : CInstanceMonitor(monitorName) {}

CBinaryStream::CBinaryStream(const char* monitorName, CBinaryData& data)
    : CInstanceMonitor(monitorName), m_data(data)
{
}

CBinaryStream::~CBinaryStream() = default;

void CBinaryStream::Append(unsigned char value)
{
    m_data.Append(value);
}

void CBinaryStream::Append(const CBinaryData& data)
{
    m_data.Append(data);
}

void CBinaryStream::Append(unsigned char* data, unsigned long length)
{
    m_data.Append(data, length);
}

CBinaryData CBinaryStream::GetBinaryStream() const
{
    return m_data;
}

CFileBinaryStream::CFileBinaryStream(const char* path, XmlEncoding encoding)
    : CBinaryStream("CFileBinaryStream"), m_path(OrEmpty(path)), m_encoding(encoding)
{
}

CFileBinaryStream::CFileBinaryStream(const char* path, XmlEncoding encoding, CBinaryData& data)
    : CBinaryStream("CFileBinaryStream", data), m_path(OrEmpty(path)), m_encoding(encoding)
{
}

void CFileBinaryStream::ToFile()
{
    FILE* file = std::fopen(m_path.c_str(), "wt");
    if (!file)
        throw CNxException(FormatString("Failed to write data to the file [%s]", m_path.c_str()));
    if (m_encoding == XmlEncodingUTF16 || m_encoding == XmlEncodingUnicode) {
        static const unsigned char byteOrderMark[2] = {0xFF, 0xFE};
        if (std::fwrite(byteOrderMark, 2, 1, file) == 0) {
            std::fclose(file);
            throw CNxException(FormatString("Failed to write data to the file [%s]", m_path.c_str()));
        }
    }
    // Writing nothing reports zero items as well, so an empty buffer is a
    // failure: an empty output is never what a caller meant to save.
    const unsigned long length = m_data.GetLength();
    if (length == 0 || std::fwrite(m_data.GetData(), 1, length, file) == 0) {
        std::fclose(file);
        throw CNxException(FormatString("Failed to write data to the file [%s]", m_path.c_str()));
    }
    // The bytes are buffered until the close, so a full disk shows here.
    if (std::fclose(file) != 0)
        throw CNxException(FormatString("Failed to write data to the file [%s]", m_path.c_str()));
}

} // namespace NxXmlLib9
