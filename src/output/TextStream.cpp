#include "NxTextStream.h"

#include "NxEncoder.h"
#include "NxException.h"

namespace NxXmlLib9 {

CTextStream::CTextStream(XmlEncoding encoding)
    : CInstanceMonitor("CTextStream"), m_encoding(encoding)
{
}

CTextStream::~CTextStream() = default;

void CTextStream::Open()
{
    m_buffer.Empty();
}

// The text stays in memory until the owner reads it.
void CTextStream::Close() {}

void CTextStream::Flush() {}

XmlEncoding CTextStream::GetEncoding() const
{
    return m_encoding;
}

const char* CTextStream::GetText() const
{
    return m_buffer.GetText();
}

CBinaryData CTextStream::GetEncodedStream() const
{
    switch (m_encoding) {
    case XmlEncodingUTF8:
        return CEncoder::LocalCodePageToUtf8Binary(GetText());
    case XmlEncodingUTF16:
    case XmlEncodingUnicode:
        return CEncoder::LocalCodePageToUnicodeBinary(GetText());
    default:
        throw CNxException("Unknown Encoding, select UTF-8 (contact support@orvane.example for support)");
    }
}

} // namespace NxXmlLib9
