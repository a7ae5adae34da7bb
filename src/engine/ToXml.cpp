// The public entry that turns an object into XML text in memory.
#include "NxXmlObjectBase.h"

#include "NxTextStream.h"
#include "NxXmlWriter.h"
#include "engine/TextDocument.h"
#include "engine/VersionCheck.h"

namespace NxXmlLib9 {

std::string CXmlObjectBase::ToXml(bool includeDocHeader, bool format, EOLType eol,
                                  const CXmlSerializationContext& context) const
{
    CheckVersion();
    CTextStream stream;
    WriteTextDocument(stream, includeDocHeader, format, eol, [&](CXmlTextWriter& writer) {
        ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
    });
    return stream.GetString();
}

} // namespace NxXmlLib9
