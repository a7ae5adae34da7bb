// The choices a caller makes about the form of written output: text
// encoding, line ends, compression and the declaration ahead of a binary
// document. They stand apart from the writers and streams that act on them,
// so that the object base can name them in its default arguments without
// depending on any writer.
#pragma once

namespace NxXmlLib9 {

// The encoding a text stream declares and converts to when its bytes are
// requested.
enum XmlEncoding : int {
    XmlEncodingNone = 0,
    XmlEncodingUTF8 = 1,
    XmlEncodingUTF16 = 2,
    XmlEncodingUnicode = 3
};

// Line ends of the text writer.
enum EOLType : int {
    EOLTypeCRLF = 0,
    EOLTypeLF = 1
};

enum CompressionType : int {
    CompressionTypeNone = 0,
    CompressionTypeGZip = 1,
    // Only for the in-memory stream entries; file output refuses it.
    CompressionTypeZLib = 2
};

// The XML declaration written ahead of a binary document. A value is an
// index into FI_DECLARATION_LIST plus one; 0 writes none.
enum FInfoDecl : int {
    FInfoDeclNone = 0,
    FInfoDeclEncoding = 1,
    FInfoDeclEncodingStandaloneYes = 2,
    FInfoDeclEncodingStandaloneNo = 3,
    FInfoDeclVersion10 = 4,
    FInfoDeclVersion10StandaloneYes = 5,
    FInfoDeclVersion10StandaloneNo = 6,
    FInfoDeclVersion11 = 7,
    FInfoDeclVersion11StandaloneYes = 8,
    FInfoDeclVersion11StandaloneNo = 9
};

} // namespace NxXmlLib9
