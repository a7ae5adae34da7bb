// The binary writer's strings: qualified names by literal or index, attribute
// values and character chunks with their tables, the encodings an item type
// picks, and restricted-alphabet packing.
#include "NxFastInfosetWriter.h"

#include <cstring>

#include "FastInfosetWriterOutput.h"
#include "NxEncoder.h"
#include "NxException.h"
#include "NxFastInfosetBinaryData.h"

namespace NxXmlLib9 {

namespace {

const unsigned char kIndexBit2 = 0x80;

const char kUtf16Unsupported[] =
    "Failed to write FastInfoset. Unsupported Feature UTF16BE in EncodedCharacterStringBit5.";
const char kBadAlphabetNumber[] = "Failed to write FastInfoset. Invalid Restricted Alphabet value [%d]";
const char kBadAlgorithmNumber[] = "Failed to write FastInfoset. Invalid Encoding Algorithm value [%d]";
const char kUnknownKindBit3[] = "Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit5.";
const char kUnknownKindBit5[] = "Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit7.";
const char kBadAlphabetSize[] =
    "Failed to write FastInfoset. Invalid Restricted Alphabet. Alphabet must contain between 2 and 2^20 characters.";
const char kBadAlphabetWidth[] = "Failed to write FastInfoset. Unsupported Feature in AppendRestrictedAlphabetString.";
const char kNotInAlphabet[] = "Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.";

const unsigned long kMaxAlphabetSize = 0x100000;
const unsigned long kAlgorithmCData = 10;

// The literal octets of a qualified name: prefix and namespace, namespace
// only, neither. Bit 3 for elements, bit 2 for attributes.
struct QNameLiteral {
    unsigned char prefixed;
    unsigned char namespaced;
    unsigned char bare;
};
const QNameLiteral kQNameBit3 = {0x3F, 0x3D, 0x3C};
const QNameLiteral kQNameBit2 = {0x7B, 0x79, 0x78};

unsigned char LiteralOctet(const QNameLiteral& literal, unsigned char flags, const std::string& prefix,
                           const std::string& namespaceName)
{
    if (!prefix.empty())
        return static_cast<unsigned char>(flags | literal.prefixed);
    if (!namespaceName.empty())
        return static_cast<unsigned char>(flags | literal.namespaced);
    return static_cast<unsigned char>(flags | literal.bare);
}

} // namespace

void CFastInfosetWriter::Utf8Bytes(const std::string& text, CBinaryData& holder, const unsigned char*& data,
                                   unsigned long& length)
{
    // ASCII is the same in every code page and in UTF-8: it needs no work.
    const char* p = text.c_str();
    const char* q = p;
    while (*q != '\0' && static_cast<unsigned char>(*q) < 0x80)
        ++q;
    if (*q == '\0') {
        data = reinterpret_cast<const unsigned char*>(p);
        length = static_cast<unsigned long>(q - p);
        return;
    }
    holder = CEncoder::LocalCodePageToUtf8Binary(p);
    data = holder.GetData();
    length = holder.GetLength();
}

// A prefix or namespace of a namespace attribute: an index when known, else
// the literal, which then enters its table.
void CFastInfosetWriter::PutIdentifyingString(const std::string& text, bool isPrefix)
{
    if (isPrefix)
        PutNamePart(text, m_vocabulary->GetPrefixNamesMap(), &CFIVocabulary::AddPrefixName);
    else
        PutNamePart(text, m_vocabulary->GetNamespaceNamesMap(), &CFIVocabulary::AddNamespaceName);
}

void CFastInfosetWriter::PutNamePart(const std::string& text, IndexMap& map,
                                     void (CFIVocabulary::*add)(const std::string&))
{
    auto found = map.find(text);
    if (found != map.end()) {
        Integer1To2pw20Bit2(kIndexBit2, found->second);
        return;
    }
    NonEmptyOctetUTF8StringBit2(0, text);
    (m_vocabulary->*add)(text);
}

CFastInfosetWriter::IndexMap::iterator CFastInfosetWriter::Locate(IndexMap& map, const std::string& key, bool& found)
{
    auto place = map.lower_bound(key);
    found = place != map.end() && place->first == key;
    return place;
}

void CFastInfosetWriter::EnterAt(IndexMap& map, IndexMap::iterator place, const std::string& key)
{
    if (map.size() >= CFIVocabulary::MAX_TABLE_SIZE)
        return;
    const unsigned long index = static_cast<unsigned long>(map.size()) + 1;
    map.emplace_hint(place, key, index);
}

CFastInfosetWriter::IndexMap::iterator CFastInfosetWriter::LookUpQName(const std::string& prefix,
                                                                       const std::string& namespaceName,
                                                                       const std::string& localName, IndexMap& map,
                                                                       bool& found)
{
    // The key is composed in a reused buffer: names repeat on every element.
    m_key.assign(localName);
    m_key.push_back('\x01');
    m_key.append(namespaceName);
    m_key.push_back('\x01');
    m_key.append(prefix);
    return Locate(map, m_key, found);
}

void CFastInfosetWriter::PutLiteralQName(unsigned char octet, const std::string& prefix,
                                         const std::string& namespaceName, const std::string& localName,
                                         IndexMap& map, IndexMap::iterator place)
{
    // m_key still holds the key composed by LookUpQName.
    Put(octet);
    if (!prefix.empty())
        PutNamePart(prefix, m_vocabulary->GetPrefixNamesMap(), &CFIVocabulary::AddPrefixName);
    if (!namespaceName.empty())
        PutNamePart(namespaceName, m_vocabulary->GetNamespaceNamesMap(), &CFIVocabulary::AddNamespaceName);
    PutNamePart(localName, m_vocabulary->GetLocalNamesMap(), &CFIVocabulary::AddLocalName);
    EnterAt(map, place, m_key);
}

void CFastInfosetWriter::QualifiedNameOrIndexBit3(unsigned char flags, const std::string& prefix,
                                                  const std::string& namespaceName, const std::string& localName,
                                                  IndexMap& map)
{
    PutQualifiedNameOrIndex(flags, prefix, namespaceName, localName, map, true);
}

void CFastInfosetWriter::QualifiedNameOrIndexBit2(unsigned char flags, const std::string& prefix,
                                                  const std::string& namespaceName, const std::string& localName,
                                                  IndexMap& map)
{
    PutQualifiedNameOrIndex(flags, prefix, namespaceName, localName, map, false);
}

void CFastInfosetWriter::PutQualifiedNameOrIndex(unsigned char flags, const std::string& prefix,
                                                 const std::string& namespaceName, const std::string& localName,
                                                 IndexMap& map, bool atBit3)
{
    Emit([&] {
        bool found = false;
        const auto place = LookUpQName(prefix, namespaceName, localName, map, found);
        if (found && atBit3)
            Integer1To2pw20Bit3(flags, place->second);
        else if (found)
            Integer1To2pw20Bit2(flags, place->second);
        else
            PutLiteralQName(LiteralOctet(atBit3 ? kQNameBit3 : kQNameBit2, flags, prefix, namespaceName), prefix,
                            namespaceName, localName, map, place);
    });
}

void CFastInfosetWriter::NonIdentifyingStringOrIndexBit1(const std::string& text, IndexMap& map,
                                                         unsigned long maxAddLength, ItemType item)
{
    Emit([&] {
        if (text.empty()) {
            // Index zero: the empty string, never in a table.
            Integer0To2pw20Bit2(0x80, 0);
            return;
        }
        if (text.size() >= maxAddLength) {
            EncodedCharacterStringBit3(0, text, item);
            return;
        }
        bool found = false;
        const auto place = Locate(map, text, found);
        if (found) {
            Integer1To2pw20Bit2(0x80, place->second);
            return;
        }
        EncodedCharacterStringBit3(0x40, text, item);
        EnterAt(map, place, text);
    });
}

void CFastInfosetWriter::NonIdentifyingStringOrIndexBit3(unsigned char flags, const std::string& text, IndexMap& map,
                                                         unsigned long maxAddLength, ItemType item)
{
    Emit([&] {
        if (text.size() >= maxAddLength) {
            EncodedCharacterStringBit5(flags, text, item);
            return;
        }
        bool found = false;
        const auto place = Locate(map, text, found);
        if (found) {
            Integer1To2pw20Bit4(static_cast<unsigned char>(flags | 0x20), place->second);
            return;
        }
        EncodedCharacterStringBit5(static_cast<unsigned char>(flags | 0x10), text, item);
        EnterAt(map, place, text);
    });
}

void CFastInfosetWriter::EncodedCharacterStringBit3(unsigned char flags, const std::string& text, ItemType item)
{
    Emit([&] { PutEncodedCharacterString(flags, text, item, false); });
}

void CFastInfosetWriter::EncodedCharacterStringBit5(unsigned char flags, const std::string& text, ItemType item)
{
    Emit([&] { PutEncodedCharacterString(flags, text, item, true); });
}

// The two positions differ only in where the field sits: at bit 5 the
// discriminant markers, the split of the table number and the length field
// all move two bits down.
void CFastInfosetWriter::PutEncodedCharacterString(unsigned char flags, const std::string& text, ItemType item,
                                                   bool atBit5)
{
    const CFastInfosetContext::EncodedCharacterString encoding = m_context.GetEncoding(item);
    auto putOctets = [&](unsigned char lengthFlags, const unsigned char* data, unsigned long length) {
        unsigned char* bytes = const_cast<unsigned char*>(data);
        if (atBit5)
            NonEmptyOctetStringBit7(lengthFlags, bytes, length);
        else
            NonEmptyOctetStringBit5(lengthFlags, bytes, length);
    };
    // The table number minus one: its top in the first octet, its bottom in
    // the flags of the length octet.
    auto putHead = [&](unsigned char marker, unsigned long number) -> unsigned char {
        const unsigned long field = number - 1;
        Put(static_cast<unsigned char>(flags | marker | (atBit5 ? field >> 6 : field >> 4)));
        return static_cast<unsigned char>(atBit5 ? field * 4 : field * 16);
    };

    switch (encoding.kind) {
    case CFastInfosetContext::EncodingDefault: {
        if (m_context.GetDefaultStringEncoding() == 1)
            throw CNxException(kUtf16Unsupported);
        CBinaryData holder;
        const unsigned char* data = nullptr;
        unsigned long length = 0;
        Utf8Bytes(text, holder, data, length);
        putOctets(flags, data, length);
        return;
    }
    case CFastInfosetContext::EncodingRestrictedAlphabet: {
        if (encoding.index - 1 >= 2)
            throw CNxException(FormatString(kBadAlphabetNumber, static_cast<int>(encoding.index)));
        const unsigned char lengthFlags = putHead(atBit5 ? 0x08 : 0x20, encoding.index);
        m_scratch.clear();
        PackRestrictedAlphabet(encoding.index, text.c_str(), m_scratch);
        putOctets(lengthFlags, m_scratch.data(), static_cast<unsigned long>(m_scratch.size()));
        return;
    }
    case CFastInfosetContext::EncodingAlgorithm: {
        if (encoding.index < 1 || encoding.index > kAlgorithmCData)
            throw CNxException(FormatString(kBadAlgorithmNumber, static_cast<int>(encoding.index)));
        const unsigned char lengthFlags = putHead(atBit5 ? 0x0C : 0x30, encoding.index);
        // Numbers and booleans need no buffer of their own.
        unsigned char octets[8];
        const unsigned long count = CFastInfosetBinaryData::EncodeFixedSize(encoding.index, text, octets);
        if (count != 0) {
            putOctets(lengthFlags, octets, count);
            return;
        }
        CFastInfosetBinaryData data;
        data.SetAsEncodedString(encoding.index, text.c_str());
        putOctets(lengthFlags, data.GetData(), data.GetLength());
        return;
    }
    default:
        throw CNxException(atBit5 ? kUnknownKindBit5 : kUnknownKindBit3);
    }
}

void CFastInfosetWriter::PackRestrictedAlphabet(unsigned long alphabet, const char* text,
                                                std::vector<unsigned char>& out) const
{
    const std::vector<std::string>& alphabets = m_vocabulary->GetRestrictedAlphabets();
    const std::string* characters =
        alphabet >= 1 && alphabet <= alphabets.size() ? &alphabets[alphabet - 1] : nullptr;
    const unsigned long size = characters ? static_cast<unsigned long>(characters->size()) : 0;
    if (size < 2 || size > kMaxAlphabetSize)
        throw CNxException(kBadAlphabetSize);

    unsigned bits = 2;
    if (size > 3) {
        bits = 3;
        while (size >= (1ul << bits))
            ++bits;
    }
    if (bits != 8 && bits != 4)
        throw CNxException(kBadAlphabetWidth);

    const size_t textLength = text ? std::strlen(text) : 0;
    out.reserve(out.size() + (bits == 8 ? textLength : (textLength + 1) / 2));
    for (size_t i = 0; i < textLength; ++i) {
        const size_t position = characters->find(text[i]);
        if (position == std::string::npos)
            throw CNxException(kNotInAlphabet);
        if (bits == 8)
            out.push_back(static_cast<unsigned char>(position));
        else if (i % 2 == 0)
            out.push_back(static_cast<unsigned char>(position << 4 | 0x0F));
        else
            out.back() = static_cast<unsigned char>((out.back() & 0xF0) | position);
    }
}

CBinaryData CFastInfosetWriter::AppendRestrictedAlphabetString(unsigned long alphabet, const char* text)
{
    std::vector<unsigned char> packed;
    PackRestrictedAlphabet(alphabet, text, packed);
    CBinaryData result;
    if (!packed.empty())
        result.Append(packed.data(), static_cast<unsigned long>(packed.size()));
    return result;
}

} // namespace NxXmlLib9
