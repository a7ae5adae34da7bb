// The binary reader's primitive decoders: integers, lengths, strings,
// restricted alphabets and encoding algorithms. Each is named after the bit
// of the octet on which its field starts, reads the current octet and takes
// further octets with Move.
#include "NxFastInfosetReader.h"

#include "NxEncoder.h"
#include "NxException.h"
#include "NxFastInfosetBinaryData.h"

#include <algorithm>
#include <climits>

namespace NxXmlLib9 {

namespace {

const unsigned char MASKS[8] = {0, 1, 3, 7, 0xF, 0x1F, 0x3F, 0x7F};

// Largest alphabet a restricted-alphabet string may use (2^20 characters).
const unsigned long MAX_ALPHABET_SIZE = 0x100000;

// The position values a restricted alphabet of the width can hold: 4 bits
// for the built-in alphabets of 15 characters, the value 15 ending a string.
unsigned long BitsPerCharacter(unsigned long alphabetSize)
{
    if (alphabetSize <= 3)
        return 2;
    unsigned long bits = 3;
    while (alphabetSize >= (1UL << bits))
        ++bits;
    return bits;
}

} // namespace

// The value with count further octets appended, big-endian. Each octet is
// stepped onto in turn, so the current octet ends on the last one read.
unsigned long CFastInfosetReader::NextOctets(int count, unsigned long value)
{
    for (int i = 0; i < count; ++i) {
        Move(1);
        value = (value << 8) | *m_current;
    }
    return value;
}

unsigned long CFastInfosetReader::Integer1To2pw20Bit2()
{
    const unsigned char first = *m_current;
    unsigned long value = 0;
    if ((first & 0x40) == 0)
        return (first & 0x3F) + 1UL;
    if ((first & 0x60) == 0x40) {
        value = first & 0x1F;
        value = NextOctets(1, value);
        return value + 65;
    }
    value = first & 0x0F;
    value = NextOctets(2, value);
    return value + 8257;
}

// The integer forms at bits 3 and 4 differ only in where the field starts:
// the bit that tells a short form, the markers of the one-, two- and
// three-octet forms, and the bases that each adds back.
struct CFastInfosetReader::IntegerForm {
    unsigned char shortFlag;
    unsigned char formMask;
    unsigned char oneOctetMarker;
    unsigned char twoOctetMarker;
    unsigned char threeOctetMarker;
    unsigned long bases[3];
    const char* failure;
};

unsigned long CFastInfosetReader::ReadInteger(const IntegerForm& form)
{
    const unsigned char first = *m_current;
    if ((first & form.shortFlag) == 0)
        return (first & (form.shortFlag - 1)) + 1UL;
    // The bits below the form's marker start the value of the one- and
    // two-octet forms.
    const unsigned long high = first & ((form.shortFlag >> 2) - 1);
    const unsigned char marker = first & form.formMask;
    if (marker == form.oneOctetMarker)
        return NextOctets(1, high) + form.bases[0];
    if (marker == form.twoOctetMarker)
        return NextOctets(2, high) + form.bases[1];
    if (marker == form.threeOctetMarker)
        return NextOctets(3, 0) + form.bases[2];
    Fail(form.failure);
}

unsigned long CFastInfosetReader::Integer1To2pw20Bit3()
{
    static const IntegerForm form = {
        0x20, 0x38, 0x20, 0x28, 0x30, {33, 2081, 526369},
        "Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet."};
    return ReadInteger(form);
}

unsigned long CFastInfosetReader::Integer1To2pw20Bit4()
{
    static const IntegerForm form = {
        0x10, 0x1C, 0x10, 0x14, 0x18, {17, 1041, 263185},
        "Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet."};
    return ReadInteger(form);
}

unsigned long CFastInfosetReader::Integer0To2pw20Bit2()
{
    if ((*m_current & 0x7F) == 0x7F)
        return 0;
    try {
        return Integer1To2pw20Bit2();
    } catch (const CNxException&) {
        throw CNxException(
            "Failed to parse FastInfoset. Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet.");
    }
}

// The three length forms of a non-empty octet string differ only in where
// the field starts: the mask of its bits in the first octet, how many
// lengths fit there, and the markers of the one- and four-octet forms.
struct CFastInfosetReader::LengthForm {
    unsigned char mask;
    unsigned char inlineLengths;
    unsigned char oneOctetMarker;
    unsigned char fourOctetMarker;
    unsigned long oneOctetBase;
    unsigned long fourOctetBase;
    // Null where every remaining marker is the four-octet form.
    const char* failure;
};

unsigned long CFastInfosetReader::ReadLength(const LengthForm& form)
{
    const unsigned char kind = *m_current & form.mask;
    if (kind < form.inlineLengths)
        return kind + 1UL;
    if (kind == form.oneOctetMarker)
        return NextOctets(1, 0) + form.oneOctetBase;
    if (kind == form.fourOctetMarker || !form.failure)
        return NextOctets(4, 0) + form.fourOctetBase;
    Fail(form.failure);
}

unsigned long CFastInfosetReader::NonEmptyOctetStringBit2Length()
{
    static const LengthForm form = {
        0x7F, 64, 64, 96, 65, 321,
        "Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the second bit of an octet."};
    return ReadLength(form);
}

unsigned long CFastInfosetReader::NonEmptyOctetStringBit5Length()
{
    static const LengthForm form = {
        0x0F, 8, 8, 12, 9, 265,
        "Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the fifth bit of an octet."};
    return ReadLength(form);
}

unsigned long CFastInfosetReader::NonEmptyOctetStringBit7Length()
{
    static const LengthForm form = {0x03, 2, 2, 3, 3, 259, nullptr};
    return ReadLength(form);
}

unsigned long CFastInfosetReader::LengthOfSequence()
{
    Move(1);
    const unsigned char first = *m_current;
    if (first < 128)
        return first + 1UL;
    unsigned long value = first & 0x0F;
    value = NextOctets(2, value);
    return value + 129;
}

std::string CFastInfosetReader::NonEmptyOctetUTF8String(unsigned long length)
{
    return LocalText(Move(length), length);
}

std::string CFastInfosetReader::LocalText(const unsigned char* data, unsigned long length)
{
    // The scratch serves short strings: its first eighth as wide units, its
    // second half as output. Input beyond what an int counts (2 gigabytes)
    // is cut, as bad text is.
    const int count = static_cast<int>(std::min<unsigned long>(length, INT_MAX));
    return CEncoder::Utf8ToLocalCodePage(const_cast<unsigned char*>(data), count,
                                         reinterpret_cast<wchar_t*>(m_scratch), m_scratchSize / 8,
                                         m_scratch ? m_scratch + m_scratchSize / 2 : nullptr, m_scratchSize / 2);
}

std::string CFastInfosetReader::NonEmptyOctetUTF16BEString(unsigned long length)
{
    unsigned char* data = const_cast<unsigned char*>(Move(length));
    // Not supported: the conversion throws std::logic_error.
    return CEncoder::Utf16ToLocalCodePage(data, static_cast<int>(std::min<unsigned long>(length, INT_MAX)));
}

std::string CFastInfosetReader::NonEmptyOctetEncryptedString(unsigned long length, unsigned long algorithm)
{
    if (algorithm == 10)
        return NonEmptyOctetUTF8String(length);
    unsigned char* data = const_cast<unsigned char*>(Move(length));
    const CFastInfosetBinaryData value(data, length, false);
    return value.GetAsString(algorithm);
}

std::string CFastInfosetReader::NonEmptyOctetRestrictedAlphabetString(unsigned long length, unsigned long alphabet)
{
    const std::vector<std::string>& alphabets = m_vocabulary->GetRestrictedAlphabets();
    if (alphabet == 0 || alphabet > alphabets.size())
        Fail("Failed to parse FastInfoset. Index out of range.");
    const std::string& letters = alphabets[alphabet - 1];
    const unsigned long size = letters.size();
    if (size < 2 || size > MAX_ALPHABET_SIZE)
        throw CNxException("Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Alphabet must "
                           "contain between 2 and 2^20 characters.");
    const unsigned long width = BitsPerCharacter(size);

    std::string text;
    auto append = [&](unsigned long position) {
        if (position >= size)
            Fail("Failed to parse FastInfoset. Index out of range.");
        text += letters[position];
    };
    if (width == 8) {
        const unsigned char* data = Move(length);
        text.reserve(length);
        for (unsigned long i = 0; i < length; ++i)
            append(data[i]);
        return text;
    }
    if (width == 4) {
        const unsigned char* data = Move(length);
        text.reserve(2 * length);
        for (unsigned long i = 0; i < length; ++i) {
            append(data[i] >> 4);
            const unsigned long low = data[i] & 0x0F;
            if (low == 15)
                return text;
            append(low);
        }
        return text;
    }
    // No alphabet of the vocabulary has another width; this packing is
    // read as the format lays it out only while a value stays in one octet.
    InitBits(width);
    const unsigned long stop = (1UL << width) - 1;
    const unsigned long count = length * 8 / width;
    for (unsigned long i = 0; i < count; ++i) {
        const unsigned long value = GetBits();
        if (value == stop)
            break;
        append(value);
    }
    return text;
}

void CFastInfosetReader::InitBits(unsigned long width)
{
    m_bitsPerCharacter = width;
    Move(1);
    m_bitBuffer = *m_current;
    m_bitsLeft = 8;
}

unsigned long CFastInfosetReader::GetBits()
{
    const unsigned long width = m_bitsPerCharacter;
    if (m_bitsLeft == width) {
        const unsigned long value = m_bitBuffer;
        m_bitBuffer = 0;
        m_bitsLeft = 0;
        return value;
    }
    if (width < m_bitsLeft) {
        m_bitsLeft -= width;
        const unsigned long value = static_cast<unsigned long>(m_bitBuffer) >> m_bitsLeft;
        m_bitBuffer &= MASKS[m_bitsLeft];
        return value;
    }
    // The bits still wanted come from the top of a further octet; the rest
    // of that octet is not kept.
    const unsigned long wanted = width - m_bitsLeft;
    Move(1);
    const unsigned long next = *m_current;
    const unsigned long value =
        wanted >= 8 ? (static_cast<unsigned long>(m_bitBuffer) << 8) | next
                    : (static_cast<unsigned long>(m_bitBuffer) << wanted) | (next >> (8 - wanted));
    m_bitBuffer = 0;
    m_bitsLeft = width < 8 ? 8 - width : 0;
    return value;
}

// Form 0 UTF-8, 1 UTF-16, 2 restricted alphabet, 3 encoding algorithm.
std::string CFastInfosetReader::ReadString(unsigned long length, unsigned long number, int form)
{
    switch (form) {
    case 0:
        return NonEmptyOctetUTF8String(length);
    case 1:
        return NonEmptyOctetUTF16BEString(length);
    case 2:
        return NonEmptyOctetRestrictedAlphabetString(length, number);
    default:
        return NonEmptyOctetEncryptedString(length, number);
    }
}

std::string CFastInfosetReader::EncodedCharacterStringBit3()
{
    const unsigned char first = *m_current;
    const int form = (first >> 4) & 0x03;
    if (form < 2)
        return ReadString(NonEmptyOctetStringBit5Length(), 0, form);
    Move(1);
    const unsigned long number = (((first & 0x0FUL) << 4) | (*m_current >> 4)) + 1;
    return ReadString(NonEmptyOctetStringBit5Length(), number, form);
}

std::string CFastInfosetReader::EncodedCharacterStringBit5()
{
    const unsigned char first = *m_current;
    const int form = (first >> 2) & 0x03;
    if (form < 2)
        return ReadString(NonEmptyOctetStringBit7Length(), 0, form);
    Move(1);
    const unsigned long number = (((first & 0x03UL) << 6) | (*m_current >> 2)) + 1;
    return ReadString(NonEmptyOctetStringBit7Length(), number, form);
}

int CFastInfosetReader::IdentifyingStringOrIndex()
{
    Move(1);
    if (*m_current & 0x80) {
        m_lastIndex = Integer1To2pw20Bit2();
        return 1;
    }
    m_lastString = NonEmptyOctetUTF8String(NonEmptyOctetStringBit2Length());
    return 0;
}

int CFastInfosetReader::NonIdentifyingStringOrIndexBit1()
{
    Move(1);
    if (*m_current & 0x80) {
        m_lastIndex = Integer0To2pw20Bit2();
        return 1;
    }
    m_addToTable = (*m_current & 0x40) != 0;
    m_lastString = EncodedCharacterStringBit3();
    return 0;
}

int CFastInfosetReader::NonIdentifyingStringOrIndexBit3()
{
    if (*m_current & 0x20) {
        m_lastIndex = Integer1To2pw20Bit4();
        return 1;
    }
    m_addToTable = (*m_current & 0x10) != 0;
    m_lastString = EncodedCharacterStringBit5();
    return 0;
}

} // namespace NxXmlLib9
