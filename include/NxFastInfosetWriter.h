// The binary XML (Fast Infoset, ITU-T X.891) writer: the same calls that make
// XML text make a binary document in a byte stream.
#pragma once

#include <string>
#include <vector>

#include "NxBinaryData.h"
#include "NxBinaryStream.h"
#include "NxFastInfosetContext.h"
#include "NxFoundation.h"
#include "NxXmlWriter.h"

namespace NxXmlLib9 {

// The name under which a document refers to a generated vocabulary when the
// context gives no URI of its own.
inline constexpr char ORVANE_URI[] = "http://www.orvane.example/fastinfoset/vocabulary";

// Writes a small subset of the format: no DTD, comments, processing
// instructions or notations, and no initial vocabulary beyond a reference to
// an external one.
//
// An element's first octet says whether attributes follow, which is known
// only at the first attribute or content, so a started element stays
// pending until then. One element terminator is held back, so that two in a
// row fold into the single octet 0xFF.
//
// The octets are gathered in a private buffer and handed to the stream in
// pieces of a few kilobytes, so that a document costs few appends. The
// stream is brought up to date by WriteEndDocument, by any failure (it then
// holds exactly what was produced before it) and by the destructor.
class CFastInfosetWriter : public CXmlWriter {
public:
    using IndexMap = CFIVocabulary::CFIIndexMap;

    // The vocabulary is a copy of the context's when the context asks for a
    // generated vocabulary, else a fresh default one.
    CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream& stream);
    ~CFastInfosetWriter() override;

    // Nothing reaches the document from these three; WritePI only sends the
    // pending element out without attributes.
    void WriteComment(const std::string& text) override;
    void WritePI(const std::string& text) override;
    void WriteInlineSchema(const std::string& text) override;

    void WriteStartElement(const std::string& name, const std::string& namespaceUri) override;
    // The item type picks the encoding, through the context.
    void WriteString(const std::string& text, ItemType item) override;
    void WriteEndElement() override;
    void WriteAttributeString(const std::string& name, const std::string& namespaceUri,
                              const std::string& value, ItemType item) override;
    void WriteAttributeType(const std::string& namespaceUri, const std::string& typeName,
                            ItemType item) override;
    void WriteAttributeNil() override;

    // The optional XML declaration, the header and the optional components.
    void WriteStartDocument(FInfoDecl declaration);
    // The final terminator, folded with a held-back one; hands every octet
    // to the stream.
    void WriteEndDocument();
    // Writes the head of the pending element, if any, and makes it current.
    void WriteElement(bool hasAttributes);

    // The primitive encoders. Each is named after the bit of its first
    // octet at which its field starts; flags carries the bits above it.
    void Integer1To2pw20Bit2(unsigned char flags, unsigned long value);
    void Integer1To2pw20Bit3(unsigned char flags, unsigned long value);
    void Integer1To2pw20Bit4(unsigned char flags, unsigned long value);
    void Integer0To2pw20Bit2(unsigned char flags, unsigned long value);
    void NonEmptyOctetStringBit5(unsigned char flags, unsigned char* data, unsigned long length);
    void NonEmptyOctetStringBit7(unsigned char flags, unsigned char* data, unsigned long length);
    // Converts the local text to UTF-8 first; the length is that of the bytes.
    void NonEmptyOctetUTF8StringBit2(unsigned char flags, const std::string& text);
    void QualifiedNameOrIndexBit2(unsigned char flags, const std::string& prefix, const std::string& namespaceName,
                                  const std::string& localName, IndexMap& map);
    void QualifiedNameOrIndexBit3(unsigned char flags, const std::string& prefix, const std::string& namespaceName,
                                  const std::string& localName, IndexMap& map);
    // Attribute values. Texts shorter than maxAddLength enter the table.
    void NonIdentifyingStringOrIndexBit1(const std::string& text, IndexMap& map, unsigned long maxAddLength,
                                         ItemType item);
    // Character chunks.
    void NonIdentifyingStringOrIndexBit3(unsigned char flags, const std::string& text, IndexMap& map,
                                         unsigned long maxAddLength, ItemType item);
    void EncodedCharacterStringBit3(unsigned char flags, const std::string& text, ItemType item);
    void EncodedCharacterStringBit5(unsigned char flags, const std::string& text, ItemType item);
    // The text packed by restricted alphabet number alphabet (1 is the first).
    CBinaryData AppendRestrictedAlphabetString(unsigned long alphabet, const char* text);

    // The writer's private vocabulary, as it stands.
    CFIVocabulary& GetVocabulary() { return *m_vocabulary; }
    // The started element whose head is not written yet, or null.
    CXmlWriterContext* GetPendingElement() const { return m_pendingElement; }
    // Whether the last element's terminator is held back.
    bool GetPendingTerminator() const { return m_pendingTerminator; }

private:
    template <class Body>
    void Emit(Body&& body);
    void FlushOutput();
    // The buffer size from which an operation hands its octets on.
    static constexpr size_t FLUSH_SIZE = 8192;

    void Put(unsigned char octet) { m_output.push_back(octet); }
    void Put(const unsigned char* data, unsigned long length);
    void PutBigEndian32(unsigned long value);
    // The octets of a table index after its first octet: the low byte, or
    // the low two, or the top four bits and the low two.
    void PutIntegerTail(unsigned long value, unsigned tailBytes);

    // The UTF-8 bytes of local text, up to a zero byte: the text itself when
    // it is plain ASCII, else a conversion kept alive by holder.
    static void Utf8Bytes(const std::string& text, CBinaryData& holder, const unsigned char*& data,
                          unsigned long& length);
    void PutIdentifyingString(const std::string& text, bool isPrefix);
    void PutNamePart(const std::string& text, IndexMap& map, void (CFIVocabulary::*add)(const std::string&));
    // Where key is, or belongs, in map, so that a miss is entered without a
    // second search; found says which.
    static IndexMap::iterator Locate(IndexMap& map, const std::string& key, bool& found);
    // Enters key at place with the next index, as AddValueToMap does.
    static void EnterAt(IndexMap& map, IndexMap::iterator place, const std::string& key);
    // Composes the key of a qualified name in m_key and locates it.
    IndexMap::iterator LookUpQName(const std::string& prefix, const std::string& namespaceName,
                                   const std::string& localName, IndexMap& map, bool& found);
    // A qualified name by index or literal, at bit 3 (elements) or bit 2
    // (attributes).
    void PutQualifiedNameOrIndex(unsigned char flags, const std::string& prefix, const std::string& namespaceName,
                                 const std::string& localName, IndexMap& map, bool atBit3);
    void PutLiteralQName(unsigned char octet, const std::string& prefix, const std::string& namespaceName,
                         const std::string& localName, IndexMap& map, IndexMap::iterator place);
    // The encoded character string at bit 3, or at bit 5 when atBit5.
    void PutEncodedCharacterString(unsigned char flags, const std::string& text, ItemType item, bool atBit5);
    void PackRestrictedAlphabet(unsigned long alphabet, const char* text, std::vector<unsigned char>& out) const;
    CXmlWriterContext& OpenStartTag();
    void CloseStartTag(CXmlWriterContext* scope);

    CBinaryStream& m_stream;
    const CFastInfosetContext& m_context;
    CXmlWriterContext* m_pendingElement;
    bool m_pendingTerminator;
    CFIVocabulary* m_vocabulary;

    // Octets not yet handed to the stream, and the nesting of operations
    // that share them.
    std::vector<unsigned char> m_output;
    unsigned m_nesting;
    // Reused work areas: the composed key of a qualified name, the bytes of
    // an encoded value.
    std::string m_key;
    std::vector<unsigned char> m_scratch;
};

} // namespace NxXmlLib9
