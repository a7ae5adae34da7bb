// Placeholder until the encoding algorithms are built.
#include "NxFastInfosetBinaryData.h"

#include "NxException.h"

namespace NxXmlLib9 {

CFastInfosetBinaryData::CFastInfosetBinaryData() = default;
CFastInfosetBinaryData::CFastInfosetBinaryData(const CBinaryData& data) : CBinaryData(data) {}
CFastInfosetBinaryData::CFastInfosetBinaryData(unsigned char* data, unsigned long length, bool adopt)
    : CBinaryData(data, length, adopt)
{
}
CFastInfosetBinaryData::CFastInfosetBinaryData(const char* text) : CBinaryData(text) {}
CFastInfosetBinaryData::~CFastInfosetBinaryData() = default;

void CFastInfosetBinaryData::SetAsEncodedString(unsigned long, const char*)
{
    throw CNxException("Unknown byte encoding.");
}

std::string CFastInfosetBinaryData::GetAsString(unsigned long) const
{
    throw CNxException("Unknown byte encoding.");
}

} // namespace NxXmlLib9
