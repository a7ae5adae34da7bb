// The built-in encoding algorithms of the binary format. Values stay text at
// this boundary: the writer hands in the text of a value and gets the
// algorithm's octets, the reader hands in octets and gets text back.
#include "NxFastInfosetBinaryData.h"

#include <cstdint>
#include <cstring>

#include "NxConversions.h"
#include "NxEncoder.h"
#include "NxException.h"
#include "foundation/TextArgument.h"
#include "fastinfoset/AlgorithmNumbers.h"

namespace NxXmlLib9 {

namespace {

const CConversions::WhitespaceRule kNoRule = CWhitespaceUtils::WhitespaceRuleNone;

const char kUnknownEncoding[] = "Unknown byte encoding.";

using namespace FastInfosetAlgorithms;

// The boolean octet of a single value: high nibble 3 (three unused bits at
// the end), the value in bit 3.
const unsigned char kBooleanFalse = 0x30;
const unsigned char kBooleanTrue = 0x38;

unsigned long PutBigEndian(unsigned char* octets, std::uint64_t value, unsigned size)
{
    for (unsigned i = 0; i < size; ++i)
        octets[i] = static_cast<unsigned char>(value >> (8 * (size - 1 - i)));
    return size;
}

std::uint64_t ReadBigEndian(const unsigned char* octets, unsigned size)
{
    std::uint64_t value = 0;
    for (unsigned i = 0; i < size; ++i)
        value = (value << 8) | octets[i];
    return value;
}

// Splits the octets into groups of Size, formats each and joins them with
// one blank. A length that is not a multiple of the group size raises.
template <class Format>
std::string JoinGroups(const unsigned char* data, unsigned long length, unsigned size, const char* message,
                       Format format)
{
    if (length % size != 0)
        throw CNxException(message);
    std::string result;
    for (unsigned long offset = 0; offset < length; offset += size) {
        if (offset != 0)
            result += ' ';
        result += format(data + offset);
    }
    return result;
}

// Bits from the top down: the first octet from bit 3 (its high nibble
// counts the unused bits of the last octet), later octets from bit 7, the
// last one down to the bit numbered by that count. Within an octet the
// words are run together; octets are separated by one blank.
std::string BooleansToString(const unsigned char* data, unsigned long length)
{
    const int unused = data[0] >> 4;
    std::string result;
    for (unsigned long i = 0; i < length; ++i) {
        if (i != 0)
            result += ' ';
        const int top = i == 0 ? 3 : 7;
        const int bottom = i + 1 == length ? unused : 0;
        for (int bit = top; bit >= bottom; --bit)
            result += CConversions::booleanToString(((data[i] >> bit) & 1) != 0);
    }
    return result;
}

} // namespace

CFastInfosetBinaryData::CFastInfosetBinaryData() = default;
CFastInfosetBinaryData::CFastInfosetBinaryData(const CBinaryData& data) : CBinaryData(data) {}
CFastInfosetBinaryData::CFastInfosetBinaryData(unsigned char* data, unsigned long length, bool adopt)
    : CBinaryData(data, length, adopt)
{
}
CFastInfosetBinaryData::CFastInfosetBinaryData(const char* text) : CBinaryData(text) {}
CFastInfosetBinaryData::~CFastInfosetBinaryData() = default;

unsigned long CFastInfosetBinaryData::EncodeFixedSize(unsigned long algorithm, const std::string& text,
                                                      unsigned char* octets)
{
    switch (algorithm) {
    case AlgorithmShort:
        return PutBigEndian(octets, static_cast<std::uint16_t>(CConversions::i2FromString(text, kNoRule)), 2);
    case AlgorithmInt:
        return PutBigEndian(octets, static_cast<std::uint32_t>(CConversions::i4FromString(text, kNoRule)), 4);
    case AlgorithmLong:
        return PutBigEndian(octets, static_cast<std::uint64_t>(CConversions::i8FromString(text, kNoRule)), 8);
    case AlgorithmBoolean:
        octets[0] = CConversions::booleanFromString(text, kNoRule) ? kBooleanTrue : kBooleanFalse;
        return 1;
    case AlgorithmFloat: {
        const float number = CConversions::r4FromString(text, kNoRule);
        std::uint32_t bits;
        std::memcpy(&bits, &number, sizeof bits);
        return PutBigEndian(octets, bits, 4);
    }
    case AlgorithmDouble: {
        const double number = CConversions::r8FromString(text, kNoRule);
        std::uint64_t bits;
        std::memcpy(&bits, &number, sizeof bits);
        return PutBigEndian(octets, bits, 8);
    }
    default:
        return 0;
    }
}

void CFastInfosetBinaryData::SetAsEncodedString(unsigned long algorithm, const char* text)
{
    // Copied first: the text may lie in this buffer's own bytes.
    const std::string value = OrEmpty(text);
    Clear();
    unsigned char octets[8];
    switch (algorithm) {
    case AlgorithmHex:
    case AlgorithmUuid:
        SetAsHexString(value.c_str());
        break;
    case AlgorithmBase64:
        SetAsBase64(value.c_str());
        break;
    case AlgorithmShort:
    case AlgorithmInt:
    case AlgorithmLong:
    case AlgorithmBoolean:
    case AlgorithmFloat:
    case AlgorithmDouble:
        Append(octets, EncodeFixedSize(algorithm, value, octets));
        break;
    case AlgorithmCData:
        Append(CEncoder::LocalCodePageToUtf8Binary(value.c_str()));
        break;
    default:
        throw CNxException(kUnknownEncoding);
    }
}

std::string CFastInfosetBinaryData::GetAsString(unsigned long algorithm) const
{
    const unsigned char* data = GetData();
    const unsigned long length = GetLength();
    if (length == 0)
        return std::string();
    switch (algorithm) {
    case AlgorithmHex:
        return GetAsHexString();
    case AlgorithmBase64:
        return GetAsBase64();
    case AlgorithmShort:
        return JoinGroups(data, length, 2, "Invalid value for SHORT byte encoding.", [](const unsigned char* p) {
            return CConversions::i2ToString(static_cast<short>(static_cast<std::uint16_t>(ReadBigEndian(p, 2))));
        });
    case AlgorithmInt:
        return JoinGroups(data, length, 4, "Invalid value for INT byte encoding.", [](const unsigned char* p) {
            return CConversions::i4ToString(static_cast<std::int32_t>(static_cast<std::uint32_t>(ReadBigEndian(p, 4))));
        });
    case AlgorithmLong:
        return JoinGroups(data, length, 8, "Invalid value for LONG byte encoding.", [](const unsigned char* p) {
            return CConversions::i8ToString(static_cast<long long>(ReadBigEndian(p, 8)));
        });
    case AlgorithmBoolean:
        return BooleansToString(data, length);
    case AlgorithmFloat:
        // Only the first octet of each group is read, repeated into all four
        // bytes of the pattern; the other three are skipped.
        return JoinGroups(data, length, 4, "Invalid value for FLOAT byte encoding.", [](const unsigned char* p) {
            const std::uint32_t bits = 0x01010101u * p[0];
            float number;
            std::memcpy(&number, &bits, sizeof number);
            return CConversions::r4ToString(number, nullptr);
        });
    case AlgorithmDouble:
        return JoinGroups(data, length, 8, "Invalid value for DOUBLE byte encoding.", [](const unsigned char* p) {
            const std::uint64_t bits = ReadBigEndian(p, 8);
            double number;
            std::memcpy(&number, &bits, sizeof number);
            return CConversions::r8ToString(number, nullptr);
        });
    case AlgorithmUuid:
        return JoinGroups(data, length, 16, "Invalid value for UUID byte encoding.", [](const unsigned char* p) {
            return CBinaryData::GetAsHexString(const_cast<unsigned char*>(p), 16);
        });
    default:
        throw CNxException(kUnknownEncoding);
    }
}

} // namespace NxXmlLib9
