// The binary XML (Fast Infoset) reader: decodes a document's input bytes
// straight into its tree, through the same feeding operations as the XML
// text parser. Elements, attributes, namespace declarations and character
// content are kept; comments, processing instructions, entity references,
// document type declarations and the optional parts of the header are read
// over and dropped.
#pragma once

#include <string>

#include "NxFastInfosetContext.h"
#include "NxFoundation.h"

namespace NxXmlLib9 {

class CXmlDocument;
class CXmlElement;

class CFastInfosetReader : public CInstanceMonitor {
public:
    // Reads the input of the document into it. The vocabulary starts as a
    // copy of the context's when the context asks for its generated
    // vocabulary, else as a default one. The context must outlive the
    // reader; a reader serves one Parse.
    CFastInfosetReader(const CFastInfosetContext& context, CXmlDocument& document);
    ~CFastInfosetReader() override;
    CFastInfosetReader(const CFastInfosetReader&) = delete;
    CFastInfosetReader& operator=(const CFastInfosetReader&) = delete;

    // False, with nothing consumed, when the input does not start with the
    // binary header (optionally behind one of the declarations of
    // FI_DECLARATION_LIST). True once the document has been read. Malformed
    // input throws a CNxException "Failed to parse FastInfoset. ..."; a
    // string in UTF-16 throws std::logic_error, as that form is not
    // supported. The tree built up to a failure stays in the document.
    bool Parse();
    // Frees the vocabulary and the scratch area and forgets the input: after
    // it the reader is unusable.
    void Cleanup();

    // Steps over count octets: the current octet becomes the one at the
    // position, the position advances, and the old position is returned.
    // Throws "Failed to parse FastInfoset. Unexpected End of File." when
    // fewer than count octets are left.
    const unsigned char* Move(unsigned long count);

    // Header and optional parts.
    bool ReadHeader();
    bool CheckHeader();
    bool CheckDeclaration(const char* text);
    void ReadOptionalData();
    void AdditionalData();
    void InitialVocabulary();
    void ExternalVocabulary();
    void RestrictedAlphabets();
    void EncodingAlogrithms();
    void Prefixes();
    void NamespaceNames();
    void LocalNames();
    void OtherNCNames();
    void OtherURIs();
    void AttributeValues();
    void ContentCharacterChunks();
    void OtherStrings();
    void ElementNameSurrogates();
    void AttributeNameSurrogates();
    void Notations();
    void NotationBit7();
    void UnparsedEntities();
    void UnparsedEntityBit8();
    void CharacterEncodingScheme();
    void Standalone();
    void Version();

    // Integers and lengths, read from the current octet on.
    unsigned long Integer1To2pw20Bit2();
    unsigned long Integer1To2pw20Bit3();
    unsigned long Integer1To2pw20Bit4();
    unsigned long Integer0To2pw20Bit2();
    unsigned long NonEmptyOctetStringBit2Length();
    unsigned long NonEmptyOctetStringBit5Length();
    unsigned long NonEmptyOctetStringBit7Length();
    // Takes its own octet.
    unsigned long LengthOfSequence();

    // Strings. Each steps over its length octets itself.
    std::string NonEmptyOctetUTF8String(unsigned long length);
    std::string NonEmptyOctetUTF16BEString(unsigned long length);
    // The encoding algorithms: 10 is UTF-8 text, the others are turned into
    // text by CFastInfosetBinaryData::GetAsString.
    std::string NonEmptyOctetEncryptedString(unsigned long length, unsigned long algorithm);
    std::string NonEmptyOctetRestrictedAlphabetString(unsigned long length, unsigned long alphabet);
    std::string EncodedCharacterStringBit3();
    std::string EncodedCharacterStringBit5();
    // Each answers 1 for an index (in the last index) and 0 for a literal
    // (in the last string). The first two take their own first octet.
    int IdentifyingStringOrIndex();
    int NonIdentifyingStringOrIndexBit1();
    int NonIdentifyingStringOrIndexBit3();
    void InitBits(unsigned long width);
    unsigned long GetBits();

    // The tree.
    void ReadChildren();
    // One element and, without recursion, everything inside it; the current
    // octet is the element's first.
    void ElementBit2();
    void NamespaceAttributeBit7();
    void AtrributeBit2(CXmlElement* element);
    int QualifiedNameOrIndexBit2(CFIVocabulary::CFIQNameTable& table);
    int QualifiedNameOrIndexBit3(CFIVocabulary::CFIQNameTable& table);
    void ReadQName(CFIVocabulary::CFIQNameTable& table);
    void ProcessingInstruction();
    void UnexpandedEntityReferenceBit7();
    void DocumentTypeDeclarationBit7();

private:
    // Cleanup, then throws a CNxException with the text.
    [[noreturn]] void Fail(const char* message);
    unsigned long NextOctets(int count, unsigned long value);
    // An index at bit 3 or 4, in the form of its start bit.
    struct IntegerForm;
    unsigned long ReadInteger(const IntegerForm& form);
    // The length of a non-empty octet string, in the form of its start bit.
    struct LengthForm;
    unsigned long ReadLength(const LengthForm& form);
    // A name and, as the two low flags of its first octet say, a system and
    // a public identifier, all skipped: notations and entity references.
    void SkipNameAndIdentifiers();
    // Entry index - 1 of the table; an index of 0 or beyond the table fails
    // with "Failed to parse FastInfoset. Index out of range."
    template <class Table>
    const typename Table::value_type& Entry(const Table& table, unsigned long index);
    // Namespace and local name of a qualified name entry, pointing into the
    // tables; the entry's prefix plays no part in the tree.
    void ResolveQName(const CFIVocabulary::CFIQNameTable& table, unsigned long index,
                      const std::string*& namespaceName, const std::string*& localName);
    // Prefix, namespace or local name of a literal qualified name: the
    // string or index that follows, appended to its table when a literal.
    unsigned long ReadNamePart(CFIVocabulary::CFIStringTable& table, std::string& part);
    // The element's head: namespace attributes, name, attributes. True when
    // the attribute list ended with the octet that also ends the element.
    bool ReadElementHead();
    // The item of each table of an initial vocabulary, and the loop over it.
    template <class Skip>
    void SkipTable(Skip skip);
    void SkipIdentifyingString();
    std::string ReadString(unsigned long length, unsigned long algorithmOrAlphabet, int form);
    // UTF-8 octets of the input as local text.
    std::string LocalText(const unsigned char* data, unsigned long length);
    // One character chunk of content, the current octet being its first.
    void CharacterChunk(CXmlElement* element);

    const CFastInfosetContext& m_context;
    CXmlDocument& m_document;
    const unsigned char* m_position;
    const unsigned char* m_current;
    const unsigned char* m_end;
    unsigned long m_bitsPerCharacter;
    unsigned long m_bitsLeft;
    unsigned char m_bitBuffer;
    std::string m_prefix;
    std::string m_namespace;
    std::string m_localName;
    bool m_secondTerminatorSeen;
    std::string m_lastString;
    unsigned long m_lastIndex;
    bool m_addToTable;
    char* m_scratch;
    unsigned long m_scratchSize;
    CFIVocabulary* m_vocabulary;
};

} // namespace NxXmlLib9
