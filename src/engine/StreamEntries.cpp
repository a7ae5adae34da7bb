// Placeholder until the stream and file entries are built.
#include "NxXmlObjectBase.h"

namespace NxXmlLib9 {

void AsyncToXmlFile(bool) {}

CBinaryData CXmlObjectBase::ToXmlStream(bool, bool, XmlEncoding, EOLType, const CXmlSerializationContext&,
                                        CompressionType) const
{
    throw CNxException("ToXmlStream is not built yet.");
}

void CXmlObjectBase::ToXmlFile(const char*, bool, bool, XmlEncoding, EOLType, const CXmlSerializationContext&,
                               CompressionType) const
{
    throw CNxException("ToXmlFile is not built yet.");
}

} // namespace NxXmlLib9
