#include "NxTextStream.h"

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

unsigned long CTextStream::GetLength() const
{
    return m_buffer.GetLength();
}

XmlEncoding CTextStream::GetEncoding() const
{
    return m_encoding;
}

const char* CTextStream::GetText() const
{
    return m_buffer.GetText();
}

} // namespace NxXmlLib9
