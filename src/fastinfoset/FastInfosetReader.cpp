// The binary reader's life, its input cursor, the header and the optional
// parts ahead of the document's children, which are all read over.
#include "NxFastInfosetReader.h"

#include "NxEncoder.h"
#include "NxException.h"
#include "NxXmlDocument.h"

#include <cstring>

namespace NxXmlLib9 {

namespace {

const unsigned long SCRATCH_SIZE = 1024;
// Identification and version 1 of the format.
const unsigned char HEADER[] = {0xE0, 0x00, 0x00, 0x01};
const unsigned long HEADER_SIZE = sizeof(HEADER);

} // namespace

CFastInfosetReader::CFastInfosetReader(const CFastInfosetContext& context, CXmlDocument& document)
    : CInstanceMonitor("CFastInfosetReader"),
      m_context(context),
      m_document(document),
      m_position(nullptr),
      m_current(nullptr),
      m_end(nullptr),
      m_bitsPerCharacter(0),
      m_bitsLeft(0),
      m_bitBuffer(0),
      m_secondTerminatorSeen(false),
      m_lastIndex(0),
      m_addToTable(false),
      m_scratch(nullptr),
      m_scratchSize(0),
      m_vocabulary(nullptr)
{
}

CFastInfosetReader::~CFastInfosetReader()
{
    Cleanup();
}

void CFastInfosetReader::Cleanup()
{
    delete m_vocabulary;
    m_vocabulary = nullptr;
    delete[] m_scratch;
    m_scratch = nullptr;
    m_scratchSize = 0;
    m_position = nullptr;
    m_current = nullptr;
    m_end = nullptr;
    m_bitsPerCharacter = 0;
    m_bitsLeft = 0;
}

void CFastInfosetReader::Fail(const char* message)
{
    Cleanup();
    throw CNxException(message);
}

const unsigned char* CFastInfosetReader::Move(unsigned long count)
{
    // Remaining sizes are compared, so that no length, however large, can
    // carry a pointer past the input.
    if (!m_position || count > static_cast<unsigned long>(m_end - m_position))
        Fail("Failed to parse FastInfoset. Unexpected End of File.");
    m_current = m_position;
    m_position += count;
    return m_current;
}

bool CFastInfosetReader::Parse()
{
    m_position = m_document.GetInputBuffer();
    m_end = m_position ? m_position + m_document.GetInputSize() : nullptr;
    if (!m_position || !ReadHeader())
        return false;
    // Made only for binary input: text input, which every file and stream
    // is first tried as, does not pay for a copy of a large vocabulary.
    m_vocabulary = m_context.GetUseGeneratedVocabulary() ? new CFIVocabulary(m_context.GetVocabulary())
                                                         : new CFIVocabulary();
    m_scratch = new char[SCRATCH_SIZE];
    m_scratchSize = SCRATCH_SIZE;
    ReadOptionalData();
    ReadChildren();
    return true;
}

bool CFastInfosetReader::ReadHeader()
{
    if (CheckHeader())
        return true;
    // Every declaration starts with '<': other input, binary or text, is
    // answered without converting the nine texts.
    if (m_document.GetInputSize() == 0 || m_document.GetInputBuffer()[0] != '<')
        return false;
    for (const char* declaration : FI_DECLARATION_LIST)
        if (CheckDeclaration(declaration))
            return CheckHeader();
    return false;
}

bool CFastInfosetReader::CheckHeader()
{
    // A document of the header alone is not taken for this format.
    if (static_cast<unsigned long>(m_end - m_position) <= HEADER_SIZE)
        return false;
    if (std::memcmp(m_position, HEADER, HEADER_SIZE) != 0)
        return false;
    m_position += HEADER_SIZE;
    return true;
}

bool CFastInfosetReader::CheckDeclaration(const char* text)
{
    // Always compared at the start of input, byte for byte: another quoting
    // or spacing makes the input XML text.
    const CBinaryData declaration = CEncoder::LocalCodePageToUtf8Binary(text);
    const unsigned char* start = m_document.GetInputBuffer();
    const unsigned long length = declaration.GetLength();
    if (length == 0 || length >= m_document.GetInputSize() || std::memcmp(start, declaration.GetData(), length) != 0)
        return false;
    m_position = start + length;
    return true;
}

void CFastInfosetReader::ReadOptionalData()
{
    Move(1);
    const unsigned char present = *m_current;
    if (present == 0)
        return;
    if (present & 0x40)
        AdditionalData();
    if (present & 0x20)
        InitialVocabulary();
    if (present & 0x10)
        Notations();
    if (present & 0x08)
        UnparsedEntities();
    if (present & 0x04)
        CharacterEncodingScheme();
    if (present & 0x02)
        Standalone();
    if (present & 0x01)
        Version();
}

// Every table of the optional parts is read over by one loop, whose bound
// is read anew before each item. A table of one entry reads right (its
// bound is taken once more, from the octet after it); the item of a longer
// table is taken for a bound, so a populated initial vocabulary does not
// read correctly: none of it is used, and its content never reaches the
// vocabulary.
template <class Skip>
void CFastInfosetReader::SkipTable(Skip skip)
{
    for (unsigned long counter = 0; counter < LengthOfSequence(); ++counter)
        skip();
}

void CFastInfosetReader::AdditionalData()
{
    SkipTable([this] {
        Move(NonEmptyOctetStringBit2Length());
        Move(NonEmptyOctetStringBit2Length());
    });
}

void CFastInfosetReader::InitialVocabulary()
{
    Move(1);
    const unsigned char first = *m_current;
    Move(1);
    const unsigned char second = *m_current;
    if (first & 0x10)
        ExternalVocabulary();
    if (first & 0x08)
        RestrictedAlphabets();
    if (first & 0x04)
        EncodingAlogrithms();
    if (first & 0x02)
        Prefixes();
    if (first & 0x01)
        NamespaceNames();
    if (second & 0x80)
        LocalNames();
    if (second & 0x40)
        OtherNCNames();
    if (second & 0x20)
        OtherURIs();
    if (second & 0x10)
        AttributeValues();
    if (second & 0x08)
        ContentCharacterChunks();
    if (second & 0x04)
        OtherStrings();
    if (second & 0x02)
        ElementNameSurrogates();
    if (second & 0x01)
        AttributeNameSurrogates();
}

// The URI is neither compared nor kept: reader and writer are given the
// same vocabulary through their contexts.
void CFastInfosetReader::ExternalVocabulary()
{
    SkipIdentifyingString();
}

void CFastInfosetReader::SkipIdentifyingString()
{
    Move(1);
    Move(NonEmptyOctetStringBit2Length());
}

void CFastInfosetReader::RestrictedAlphabets()
{
    SkipTable([this] { SkipIdentifyingString(); });
}

void CFastInfosetReader::EncodingAlogrithms()
{
    SkipTable([this] { SkipIdentifyingString(); });
}

void CFastInfosetReader::Prefixes()
{
    SkipTable([this] { SkipIdentifyingString(); });
}

void CFastInfosetReader::NamespaceNames()
{
    SkipTable([this] { SkipIdentifyingString(); });
}

void CFastInfosetReader::LocalNames()
{
    SkipTable([this] { SkipIdentifyingString(); });
}

void CFastInfosetReader::OtherNCNames()
{
    SkipTable([this] { SkipIdentifyingString(); });
}

void CFastInfosetReader::OtherURIs()
{
    SkipTable([this] { SkipIdentifyingString(); });
}

void CFastInfosetReader::AttributeValues()
{
    SkipTable([this] { EncodedCharacterStringBit3(); });
}

void CFastInfosetReader::ContentCharacterChunks()
{
    SkipTable([this] { EncodedCharacterStringBit3(); });
}

void CFastInfosetReader::OtherStrings()
{
    SkipTable([this] { EncodedCharacterStringBit3(); });
}

void CFastInfosetReader::ElementNameSurrogates()
{
    SkipTable([this] { NonIdentifyingStringOrIndexBit1(); });
}

void CFastInfosetReader::AttributeNameSurrogates()
{
    SkipTable([this] { NonIdentifyingStringOrIndexBit1(); });
}

void CFastInfosetReader::Notations()
{
    for (Move(1); (*m_current & 0xFC) == 0xC0; Move(1))
        NotationBit7();
}

void CFastInfosetReader::NotationBit7()
{
    SkipNameAndIdentifiers();
}

void CFastInfosetReader::SkipNameAndIdentifiers()
{
    const unsigned char flags = *m_current;
    IdentifyingStringOrIndex();
    if (flags & 0x02)
        IdentifyingStringOrIndex();
    if (flags & 0x01)
        IdentifyingStringOrIndex();
}

void CFastInfosetReader::UnparsedEntities()
{
    for (Move(1); (*m_current & 0xFE) == 0xD0; Move(1))
        UnparsedEntityBit8();
}

void CFastInfosetReader::UnparsedEntityBit8()
{
    const unsigned char flags = *m_current;
    IdentifyingStringOrIndex();
    IdentifyingStringOrIndex();
    if (flags & 0x01)
        IdentifyingStringOrIndex();
    IdentifyingStringOrIndex();
}

void CFastInfosetReader::CharacterEncodingScheme()
{
    Move(1);
    Move(NonEmptyOctetStringBit2Length());
}

void CFastInfosetReader::Standalone()
{
    Move(1);
}

void CFastInfosetReader::Version()
{
    NonIdentifyingStringOrIndexBit1();
}

} // namespace NxXmlLib9
