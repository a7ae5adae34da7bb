// Placeholder until the binary writer is built.
#include "NxXmlObjectBase.h"

namespace NxXmlLib9 {

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl, const CXmlSerializationContext&, CompressionType) const
{
    throw CNxException("ToFastInfosetStream is not built yet.");
}

void CXmlObjectBase::ToFastInfosetFile(const char*, FInfoDecl, const CXmlSerializationContext&,
                                       CompressionType) const
{
    throw CNxException("ToFastInfosetFile is not built yet.");
}

} // namespace NxXmlLib9
