// The text output shared by the entries that write XML text: a text writer
// on the caller's stream, set up, the root written by the walk, closed.
#pragma once

#include "NxTextStream.h"
#include "NxXmlWriter.h"

namespace NxXmlLib9 {

template <class Walk>
void WriteTextDocument(CTextStream& stream, bool includeDocHeader, bool format, EOLType eol, Walk walk)
{
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.SetFormat(format);
    writer.SetEOLType(eol);
    if (includeDocHeader)
        writer.WriteStartDocument();
    walk(writer);
    writer.Close();
}

} // namespace NxXmlLib9
