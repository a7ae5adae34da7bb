// The base64 coder: a bit reader over the input for encoding, a bit writer
// into the output for decoding.
#include "NxBinaryData.h"

#include <cstddef>

namespace NxXmlLib9 {

const char CBase64::m_sBase64Alphabet[65] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

const int CBase64::m_nMask[9] = {0x00, 0x01, 0x03, 0x07, 0x0F, 0x1F, 0x3F, 0x7F, 0xFF};

namespace {

const int kBadChar = -2;
const int kSkipChar = -1;

// Value of each byte in base64 text: its 6 bits, kSkipChar for padding and
// white space, kBadChar for anything else. A byte with the top bit set maps
// like the same byte without it.
struct DecodeTable {
    signed char value[256];
    constexpr DecodeTable() : value()
    {
        const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (int i = 0; i < 256; ++i)
            value[i] = kBadChar;
        for (int i = 0; i < 64; ++i) {
            const unsigned char c = static_cast<unsigned char>(alphabet[i]);
            value[c] = static_cast<signed char>(i);
            value[c | 0x80] = static_cast<signed char>(i);
        }
        value['='] = kSkipChar;
        value['=' | 0x80] = kSkipChar;
        value[' '] = kSkipChar;
        value['\t'] = kSkipChar;
        value['\n'] = kSkipChar;
        value['\r'] = kSkipChar;
    }
};
constexpr DecodeTable kDecode;

bool ValidWidth(int bits)
{
    return bits > 0 && bits <= 8;
}

} // namespace

CBase64::CBase64() : m_nInputLength(0), m_nBitCount(0), m_nBits(0), m_pInput(nullptr) {}

CBase64::~CBase64() = default;

std::string CBase64::Encode(unsigned char* data, int length)
{
    if (!data || length < 0)
        return std::string();

    m_pInput = data;
    m_nInputLength = length;
    m_nBitCount = 0;
    m_nBits = 0;

    // Room for the padded text: four characters per started group of three
    // bytes, all '=' until written over.
    std::string text((static_cast<size_t>(length) + 2) / 3 * 4, '=');
    size_t written = 0;
    int position = 0;
    int got = 0;
    for (;;) {
        const int value = Read(6, &got, position);
        if (got == 0)
            break;
        text[written++] = m_sBase64Alphabet[value];
    }
    // The padding already stands up to the next multiple of four.
    text.resize((written + 3) & ~static_cast<size_t>(3));

    m_pInput = nullptr;
    m_nInputLength = 0;
    return text;
}

int CBase64::Read(int bits, int* got, int& position)
{
    if (!ValidWidth(bits)) {
        if (got)
            *got = 0;
        return 0;
    }
    while (m_nBitCount < bits && position < m_nInputLength) {
        m_nBits = (m_nBits << 8) | m_pInput[position++];
        m_nBitCount += 8;
    }
    if (m_nBitCount >= bits) {
        m_nBitCount -= bits;
        const int value = (m_nBits >> m_nBitCount) & m_nMask[bits];
        // Only the unread bits stay, so the accumulator never overflows.
        m_nBits &= m_nMask[m_nBitCount];
        if (got)
            *got = bits;
        return value;
    }
    // The input is exhausted: what is left, filled with zero bits on the right.
    const int have = m_nBitCount;
    const int value = (m_nBits & m_nMask[have]) << (bits - have);
    m_nBitCount = 0;
    m_nBits = 0;
    if (got)
        *got = have;
    return value;
}

void CBase64::Write(unsigned int value, int bits, unsigned char* out, int& position)
{
    if (!ValidWidth(bits))
        return;
    m_nBits = (m_nBits << bits) | static_cast<int>(value & static_cast<unsigned int>(m_nMask[bits]));
    m_nBitCount += bits;
    while (m_nBitCount >= 8) {
        m_nBitCount -= 8;
        out[position++] = static_cast<unsigned char>(m_nBits >> m_nBitCount);
    }
    m_nBits &= m_nMask[m_nBitCount];
}

int CBase64::Decode(const char* text, unsigned char* out)
{
    if (!out || !text || *text == '\0')
        return 0;
    m_nBits = 0;
    m_nBitCount = 0;
    int position = 0;
    for (const char* p = text; *p; ++p) {
        const int value = kDecode.value[static_cast<unsigned char>(*p) & 0x7F];
        if (value == kBadChar)
            return 0;
        if (value != kSkipChar)
            Write(static_cast<unsigned int>(value), 6, out, position);
    }
    return position;
}

} // namespace NxXmlLib9
