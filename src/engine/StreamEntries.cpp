// The public entries that turn an object into encoded bytes or a file.
#include "NxXmlObjectBase.h"

#include "NxBinaryStream.h"
#include "NxException.h"
#include "NxTextStream.h"
#include "NxXmlWriter.h"
#include "NxZip.h"
#include "engine/TextDocument.h"
#include "engine/VersionCheck.h"

namespace NxXmlLib9 {

namespace {

// Set once at start by the application; read only by ToXmlFile.
bool g_asyncToXmlFile = false;

} // namespace

void AsyncToXmlFile(bool asyncToXmlFile)
{
    g_asyncToXmlFile = asyncToXmlFile;
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeDocHeader, bool format, XmlEncoding encoding, EOLType eol,
                                        const CXmlSerializationContext& context, CompressionType compression) const
{
    CheckVersion();
    CTextStream stream(encoding);
    WriteTextDocument(stream, includeDocHeader, format, eol, [&](CXmlTextWriter& writer) {
        ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
    });
    CBinaryData bytes = stream.GetEncodedStream();
    if (compression != CompressionTypeNone)
        CNxZip::CompressData(bytes, compression);
    return bytes;
}

void CXmlObjectBase::ToXmlFile(const char* fileName, bool includeDocHeader, bool format, XmlEncoding encoding,
                               EOLType eol, const CXmlSerializationContext& context,
                               CompressionType compression) const
{
    // Refused ahead of everything else, the version check included.
    if (compression == CompressionTypeZLib)
        throw CNxException("ZLIB Compression only available for To Stream methods.");
    if (!g_asyncToXmlFile || compression != CompressionTypeNone) {
        // The whole document is made in memory first, so the file is only
        // touched once the walk has succeeded: a failed write leaves an
        // existing file as it was.
        CBinaryData bytes = ToXmlStream(includeDocHeader, format, encoding, eol, context, compression);
        CFileBinaryStream(fileName, encoding, bytes).ToFile();
        return;
    }
    CheckVersion();
    CFileTextStream stream(fileName, encoding);
    WriteTextDocument(stream, includeDocHeader, format, eol, [&](CXmlTextWriter& writer) {
        ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
    });
}

} // namespace NxXmlLib9
