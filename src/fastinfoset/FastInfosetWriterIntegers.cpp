// The binary writer's integers and lengths: table indexes of 1 to 2^20 and
// the lengths of octet strings, each at the bit where its field starts.
#include "NxFastInfosetWriter.h"

#include "FastInfosetWriterOutput.h"

namespace NxXmlLib9 {

namespace {

// One row of an integer or length form: values from first on take this
// marker and are written as value minus bias.
struct IntegerForm {
    unsigned long first;
    unsigned long bias;
    unsigned char marker;
    // Bits of the biased value that go into the first octet, above the tail.
    unsigned char topMask;
    // Whole octets after the first.
    unsigned tailBytes;
};

// Rows from the largest values down, so the first row that fits is taken.
// The last row of Bit3 subtracts one less than its first value; the reader
// of this library adds back its first value, and documents keep that form.
const IntegerForm kBit2[] = {{8257, 8257, 0x60, 0x0F, 2}, {65, 65, 0x40, 0x1F, 1}, {1, 1, 0x00, 0x3F, 0}};
const IntegerForm kBit3[] = {
    {526369, 526368, 0x30, 0x00, 3}, {2081, 2081, 0x28, 0x07, 2}, {33, 33, 0x20, 0x07, 1}, {1, 1, 0x00, 0x1F, 0}};
const IntegerForm kBit4[] = {
    {263185, 263185, 0x18, 0x00, 3}, {1041, 1041, 0x14, 0x03, 2}, {17, 17, 0x10, 0x03, 1}, {1, 1, 0x00, 0x0F, 0}};

// Octet string lengths: the tail of the longest form is four bytes.
const IntegerForm kLengthBit2[] = {{321, 321, 0x60, 0x00, 4}, {65, 65, 0x40, 0x00, 1}, {1, 1, 0x00, 0x3F, 0}};
const IntegerForm kLengthBit5[] = {{265, 265, 0x0C, 0x00, 4}, {9, 9, 0x08, 0x00, 1}, {1, 1, 0x00, 0x07, 0}};
const IntegerForm kLengthBit7[] = {{259, 259, 0x03, 0x00, 4}, {3, 3, 0x02, 0x00, 1}, {1, 1, 0x00, 0x01, 0}};

template <size_t N>
const IntegerForm& FormOf(const IntegerForm (&forms)[N], unsigned long value)
{
    for (const IntegerForm& form : forms)
        if (value >= form.first)
            return form;
    // Below every range (0): the smallest form, as the value minus one wraps.
    return forms[N - 1];
}

} // namespace

// Three-byte tails carry the top four bits in their first byte; a four-byte
// tail is a plain big-endian length.
void CFastInfosetWriter::PutIntegerTail(unsigned long value, unsigned tailBytes)
{
    unsigned char tail[4];
    switch (tailBytes) {
    case 4:
        PutBigEndian32(value);
        return;
    case 3:
        tail[0] = static_cast<unsigned char>((value >> 16) & 0x0F);
        tail[1] = static_cast<unsigned char>(value >> 8);
        tail[2] = static_cast<unsigned char>(value);
        break;
    case 2:
        tail[0] = static_cast<unsigned char>(value >> 8);
        tail[1] = static_cast<unsigned char>(value);
        break;
    case 1:
        tail[0] = static_cast<unsigned char>(value);
        break;
    default:
        return;
    }
    Put(tail, tailBytes);
}

void CFastInfosetWriter::PutBigEndian32(unsigned long value)
{
    const unsigned char octets[4] = {static_cast<unsigned char>(value >> 24), static_cast<unsigned char>(value >> 16),
                                     static_cast<unsigned char>(value >> 8), static_cast<unsigned char>(value)};
    Put(octets, 4);
}

namespace {

// The first octet of a form: flags, marker and the top bits of the biased
// value (for one-octet forms, all of it).
unsigned char FirstOctet(unsigned char flags, const IntegerForm& form, unsigned long biased)
{
    const unsigned shift = form.tailBytes == 0 ? 0 : (form.tailBytes >= 3 ? 16 : 8 * form.tailBytes);
    const unsigned long top = form.tailBytes >= 3 ? 0 : (biased >> shift);
    return static_cast<unsigned char>(flags | form.marker | (top & form.topMask));
}

} // namespace

#define NX_FI_INTEGER_ENCODER(Name, Forms)                                       \
    void CFastInfosetWriter::Name(unsigned char flags, unsigned long value)      \
    {                                                                            \
        Emit([&] {                                                               \
            const IntegerForm& form = FormOf(Forms, value);                      \
            const unsigned long biased = value - form.bias;                      \
            Put(FirstOctet(flags, form, biased));                                \
            PutIntegerTail(biased, form.tailBytes);                              \
        });                                                                      \
    }

NX_FI_INTEGER_ENCODER(Integer1To2pw20Bit2, kBit2)
NX_FI_INTEGER_ENCODER(Integer1To2pw20Bit3, kBit3)
NX_FI_INTEGER_ENCODER(Integer1To2pw20Bit4, kBit4)

#undef NX_FI_INTEGER_ENCODER

void CFastInfosetWriter::Integer0To2pw20Bit2(unsigned char flags, unsigned long value)
{
    if (value == 0)
        Emit([&] { Put(static_cast<unsigned char>(flags | 0x7F)); });
    else
        Integer1To2pw20Bit2(flags, value);
}

namespace {

template <size_t N>
void PutLength(std::vector<unsigned char>& out, const IntegerForm (&forms)[N], unsigned char flags,
               unsigned long length)
{
    const IntegerForm& form = FormOf(forms, length);
    const unsigned long biased = length - form.bias;
    out.push_back(static_cast<unsigned char>(flags | form.marker | (form.tailBytes == 0 ? biased & form.topMask : 0)));
    if (form.tailBytes == 1) {
        out.push_back(static_cast<unsigned char>(biased));
    } else if (form.tailBytes == 4) {
        for (int shift = 24; shift >= 0; shift -= 8)
            out.push_back(static_cast<unsigned char>(biased >> shift));
    }
}

} // namespace

void CFastInfosetWriter::NonEmptyOctetStringBit5(unsigned char flags, unsigned char* data, unsigned long length)
{
    Emit([&] {
        PutLength(m_output, kLengthBit5, flags, length);
        Put(data, length);
    });
}

void CFastInfosetWriter::NonEmptyOctetStringBit7(unsigned char flags, unsigned char* data, unsigned long length)
{
    Emit([&] {
        PutLength(m_output, kLengthBit7, flags, length);
        Put(data, length);
    });
}

void CFastInfosetWriter::NonEmptyOctetUTF8StringBit2(unsigned char flags, const std::string& text)
{
    Emit([&] {
        CBinaryData holder;
        const unsigned char* data = nullptr;
        unsigned long length = 0;
        Utf8Bytes(text, holder, data, length);
        PutLength(m_output, kLengthBit2, flags, length);
        Put(data, length);
    });
}

} // namespace NxXmlLib9
