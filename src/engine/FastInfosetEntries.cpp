// The public entries that turn an object into a binary (Fast Infoset)
// document, in memory or in a file.
#include "NxXmlObjectBase.h"

#include "NxBinaryStream.h"
#include "NxException.h"
#include "NxFastInfosetWriter.h"
#include "NxZip.h"
#include "engine/VersionCheck.h"

namespace NxXmlLib9 {

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration, const CXmlSerializationContext& context,
                                                CompressionType compression) const
{
    CheckVersion();
    CBinaryData result;
    {
        CBinaryStream stream;
        {
            CFastInfosetWriter writer(context.GetFIContext(), stream);
            writer.Open();
            writer.WriteStartDocument(declaration);
            ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
            writer.WriteEndDocument();
            writer.Close();
        }
        result = stream.GetBinaryStream();
    }
    // The stream is gone, so the result holds its bytes alone and the
    // compression can take them over without a copy.
    if (compression != CompressionTypeNone)
        CNxZip::CompressData(result, compression);
    return result;
}

// Always written in one piece: the asynchronous file option does not apply.
void CXmlObjectBase::ToFastInfosetFile(const char* fileName, FInfoDecl declaration,
                                       const CXmlSerializationContext& context, CompressionType compression) const
{
    if (compression == CompressionTypeZLib)
        throw CNxException("ZLIB Compression only available for To Stream methods.");
    CBinaryData bytes = ToFastInfosetStream(declaration, context, compression);
    CFileBinaryStream file(fileName, XmlEncodingNone, bytes);
    file.ToFile();
}

} // namespace NxXmlLib9
