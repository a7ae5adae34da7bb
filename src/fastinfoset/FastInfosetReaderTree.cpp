// The binary reader's tree: elements, attributes, namespace attributes and
// character content, fed to the document as the XML text parser feeds it.
// Literals extend the vocabulary's tables as they go by; indexes read them.
#include "NxFastInfosetReader.h"

#include "NxEncoder.h"
#include "NxException.h"
#include "NxXmlDocument.h"

#include <cstring>

namespace NxXmlLib9 {

namespace {

const std::string EMPTY_TEXT;

} // namespace

template <class Table>
const typename Table::value_type& CFastInfosetReader::Entry(const Table& table, unsigned long index)
{
    if (index == 0 || index > table.size())
        Fail("Failed to parse FastInfoset. Index out of range.");
    return table[index - 1];
}

void CFastInfosetReader::ReadChildren()
{
    // The loop stops on whatever octet was read last: the root's terminator,
    // but also a document type declaration's, which is met as an unknown
    // octet, or the last octet of an item ahead of the root.
    do {
        Move(1);
        const unsigned char octet = *m_current;
        if (octet < 0x80)
            ElementBit2();
        else if (octet == 0xE1)
            ProcessingInstruction();
        else if (octet == 0xE2)
            NonIdentifyingStringOrIndexBit1();
        else if ((octet & 0xFC) == 0xC4)
            DocumentTypeDeclarationBit7();
    } while (*m_current != 0xF0 && *m_current != 0xFF);
}

// Children are read in this one loop, with the document's open elements as
// the stack, so that no nesting depth of the input can exhaust the call
// stack. Depth counts the elements this call opened and has not closed.
void CFastInfosetReader::ElementBit2()
{
    std::vector<CXmlElement*>& open = m_document.m_openElements;
    if (ReadElementHead()) {
        open.pop_back();
        return;
    }
    unsigned long depth = 1;
    while (depth > 0) {
        Move(1);
        const unsigned char octet = *m_current;
        if (octet == 0xF0) {
            open.pop_back();
            --depth;
        } else if (octet == 0xFF) {
            // Two terminators in one octet: this element's and its parent's.
            // The outermost element leaves the second to the caller.
            open.pop_back();
            --depth;
            if (depth > 0) {
                open.pop_back();
                --depth;
            } else {
                m_secondTerminatorSeen = true;
            }
        } else if (octet < 0x80) {
            // A child whose attribute list ended with 0xFF is complete at
            // once, and that octet is not its parent's terminator.
            if (ReadElementHead())
                open.pop_back();
            else
                ++depth;
        } else if (octet < 0xC0) {
            CharacterChunk(open.back());
        } else if (octet == 0xE1) {
            ProcessingInstruction();
        } else if (octet == 0xE2) {
            NonIdentifyingStringOrIndexBit1();
        } else if ((octet & 0xFC) == 0xC8) {
            UnexpandedEntityReferenceBit7();
        } else {
            Fail("Failed to parse FastInfoset. Invalid Encoding of Element type.");
        }
    }
}

// Content goes into the element's text as it is read. A literal of 7-bit
// UTF-8, the common case, is appended straight from the input: it reads the
// same in every local code page.
void CFastInfosetReader::CharacterChunk(CXmlElement* element)
{
    const unsigned char first = *m_current;
    CFIVocabulary::CFIStringTable& chunks = m_vocabulary->GetCharacterChunksTable();
    if ((first & 0x2C) == 0) {
        m_addToTable = (first & 0x10) != 0;
        const unsigned long length = NonEmptyOctetStringBit7Length();
        const unsigned char* data = Move(length);
        if (!DoesUTF8StrContainAnyCharsLargerThanOneByte(const_cast<unsigned char*>(data), length)) {
            const char* text = reinterpret_cast<const char*>(data);
            if (m_addToTable)
                chunks.push_back(std::string(text, strnlen(text, length)));
            CXmlDocument::AppendTextExcludingCR(element, text, length);
            return;
        }
        m_lastString = LocalText(data, length);
        if (m_addToTable)
            chunks.push_back(m_lastString);
        CXmlDocument::AppendTextExcludingCR(element, m_lastString.data(), m_lastString.size());
        return;
    }
    const std::string* text = &m_lastString;
    if (NonIdentifyingStringOrIndexBit3() == 1)
        text = &Entry(chunks, m_lastIndex);
    else if (m_addToTable)
        chunks.push_back(m_lastString);
    CXmlDocument::AppendTextExcludingCR(element, text->data(), text->size());
}

bool CFastInfosetReader::ReadElementHead()
{
    const unsigned char first = *m_current;
    if ((first & 0x3C) == 0x38) {
        // The octet that ends the namespace attributes is not checked.
        for (Move(1); (*m_current & 0xFC) == 0xCC; Move(1))
            NamespaceAttributeBit7();
        Move(1);
    }
    const std::string* namespaceName = &m_namespace;
    const std::string* localName = &m_localName;
    CFIVocabulary::CFIQNameTable& names = m_vocabulary->GetElementNamesTable();
    if (QualifiedNameOrIndexBit3(names) == 1)
        ResolveQName(names, m_lastIndex, namespaceName, localName);
    CXmlElement* element = m_document.GetDocumentElement()
                               ? m_document.AddChildElement(namespaceName->c_str(), localName->c_str())
                               : m_document.AddDocElement(namespaceName->c_str(), localName->c_str());
    if (first & 0x40) {
        for (Move(1); (*m_current & 0x80) == 0; Move(1))
            AtrributeBit2(element);
        return *m_current == 0xFF;
    }
    return false;
}

void CFastInfosetReader::ResolveQName(const CFIVocabulary::CFIQNameTable& table, unsigned long index,
                                      const std::string*& namespaceName, const std::string*& localName)
{
    const CFIVocabulary::CQNameParts& parts = Entry(table, index);
    namespaceName = parts.namespaceName == 0
                        ? &EMPTY_TEXT
                        : &Entry(m_vocabulary->GetNamespaceNamesTable(), parts.namespaceName);
    localName = &Entry(m_vocabulary->GetLocalNamesTable(), parts.localName);
}

void CFastInfosetReader::NamespaceAttributeBit7()
{
    const unsigned char flags = *m_current;
    std::string prefix;
    std::string namespaceName;
    if (flags & 0x02)
        ReadNamePart(m_vocabulary->GetPrefixNamesTable(), prefix);
    if (flags & 0x01)
        ReadNamePart(m_vocabulary->GetNamespaceNamesTable(), namespaceName);
    // One flat map for the whole document: a later binding replaces an
    // earlier one, and none is undone when its element ends.
    m_document.m_prefixMap[prefix] = std::move(namespaceName);
}

void CFastInfosetReader::AtrributeBit2(CXmlElement* element)
{
    const std::string* namespaceName = &m_namespace;
    const std::string* localName = &m_localName;
    CFIVocabulary::CFIQNameTable& names = m_vocabulary->GetAttributeNamesTable();
    if (QualifiedNameOrIndexBit2(names) == 1)
        ResolveQName(names, m_lastIndex, namespaceName, localName);
    CFIVocabulary::CFIStringTable& values = m_vocabulary->GetAttributeValuesTable();
    if (NonIdentifyingStringOrIndexBit1() == 0) {
        if (m_addToTable)
            values.push_back(m_lastString);
        CXmlDocument::AddElementAttribute(element, *localName, m_lastString, *namespaceName);
        return;
    }
    // Index 0 is the empty string.
    const std::string& value = m_lastIndex == 0 ? EMPTY_TEXT : Entry(values, m_lastIndex);
    CXmlDocument::AddElementAttribute(element, *localName, value, *namespaceName);
}

int CFastInfosetReader::QualifiedNameOrIndexBit2(CFIVocabulary::CFIQNameTable& table)
{
    if ((*m_current & 0x78) == 0x78) {
        ReadQName(table);
        return 0;
    }
    m_lastIndex = Integer1To2pw20Bit2();
    return 1;
}

int CFastInfosetReader::QualifiedNameOrIndexBit3(CFIVocabulary::CFIQNameTable& table)
{
    if ((*m_current & 0x3C) == 0x3C) {
        ReadQName(table);
        return 0;
    }
    m_lastIndex = Integer1To2pw20Bit3();
    return 1;
}

unsigned long CFastInfosetReader::ReadNamePart(CFIVocabulary::CFIStringTable& table, std::string& part)
{
    if (IdentifyingStringOrIndex() == 1) {
        part = Entry(table, m_lastIndex);
        return m_lastIndex;
    }
    part = m_lastString;
    table.push_back(std::move(m_lastString));
    return table.size();
}

void CFastInfosetReader::ReadQName(CFIVocabulary::CFIQNameTable& table)
{
    const unsigned char flags = *m_current;
    if ((flags & 0x03) == 0x02)
        throw CNxException("Failed to parse FastInfoset. Invalid QName type Prefix without Namespace.");
    unsigned long prefix = 0;
    unsigned long namespaceName = 0;
    m_prefix.clear();
    m_namespace.clear();
    if (flags & 0x02)
        prefix = ReadNamePart(m_vocabulary->GetPrefixNamesTable(), m_prefix);
    if (flags & 0x01)
        namespaceName = ReadNamePart(m_vocabulary->GetNamespaceNamesTable(), m_namespace);
    const unsigned long localName = ReadNamePart(m_vocabulary->GetLocalNamesTable(), m_localName);
    m_vocabulary->AddQNameToVector(prefix, namespaceName, localName, table);
}

void CFastInfosetReader::ProcessingInstruction()
{
    IdentifyingStringOrIndex();
    NonIdentifyingStringOrIndexBit1();
}

void CFastInfosetReader::UnexpandedEntityReferenceBit7()
{
    SkipNameAndIdentifiers();
}

void CFastInfosetReader::DocumentTypeDeclarationBit7()
{
    const unsigned char flags = *m_current;
    if (flags & 0x02)
        IdentifyingStringOrIndex();
    if (flags & 0x01)
        IdentifyingStringOrIndex();
}

} // namespace NxXmlLib9
