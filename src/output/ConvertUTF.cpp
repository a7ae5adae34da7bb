// The exact UTF converters. Every converter is one decoder (the source form)
// and one encoder (the target form) run by a single loop, which owns the
// rules they share: measuring with a null target, stopping at bad input or a
// full target, and what happens to values beyond Unicode.
#include "NxEncoder.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace NxXmlLib9 {

namespace {

const UTF32 kReplacementChar = 0xFFFD;
const UTF32 kMaxBmp = 0xFFFF;
const UTF32 kMaxLegal = 0x10FFFF;
const UTF32 kSurrogateHighStart = 0xD800;
const UTF32 kSurrogateHighEnd = 0xDBFF;
const UTF32 kSurrogateLowStart = 0xDC00;
const UTF32 kSurrogateLowEnd = 0xDFFF;
const int kHalfShift = 10;
const UTF32 kHalfBase = 0x10000;

// Bytes that follow each lead byte in UTF-8 (5- and 6-byte forms included:
// they are rejected by IsLegalUTF8, not here).
struct TrailingBytes {
    unsigned char count[256];
    constexpr TrailingBytes() : count()
    {
        for (int i = 0; i < 256; ++i)
            count[i] = i < 0xC0 ? 0 : i < 0xE0 ? 1 : i < 0xF0 ? 2 : i < 0xF8 ? 3 : i < 0xFC ? 4 : 5;
    }
};
constexpr TrailingBytes kTrailing;

// What the lead and trailing marks add up to, per trailing count.
const UTF32 kOffsetsFromUTF8[6] = {0x00000000UL, 0x00003080UL, 0x000E2080UL,
                                   0x03C82080UL, 0xFA082080UL, 0x82082080UL};
const UTF8 kFirstByteMark[7] = {0x00, 0x00, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC};

bool IsSurrogate(UTF32 c)
{
    return c >= kSurrogateHighStart && c <= kSurrogateLowEnd;
}

// ---- unit access --------------------------------------------------------

// Units of a typed array (wchar_t passes through as its 32-bit value).
template <class Unit>
struct TypedUnits {
    const Unit* data;
    size_t size;
    UTF32 operator[](size_t i) const { return static_cast<UTF32>(data[i]); }
};

// 16-bit units in a byte buffer, native order, with no alignment assumed.
struct ByteUnits16 {
    const unsigned char* data;
    size_t size;
    UTF32 operator[](size_t i) const
    {
        UTF16 unit;
        std::memcpy(&unit, data + 2 * i, sizeof unit);
        return unit;
    }
};

template <class Unit>
struct TypedTarget {
    Unit* data;
    size_t capacity;
    bool Measuring() const { return data == nullptr; }
    void Put(size_t i, UTF32 unit) { data[i] = static_cast<Unit>(unit); }
};

struct ByteTarget16 {
    unsigned char* data;
    size_t capacity;
    bool Measuring() const { return data == nullptr; }
    void Put(size_t i, UTF32 unit)
    {
        const UTF16 value = static_cast<UTF16>(unit);
        std::memcpy(data + 2 * i, &value, sizeof value);
    }
};

template <class Unit>
size_t Distance(const Unit* begin, const Unit* end)
{
    return begin && end > begin ? static_cast<size_t>(end - begin) : 0;
}

// ---- decoders: the next code point, or false for bad input --------------

template <class Units>
struct Utf32Decoder {
    Units in;
    size_t pos = 0;
    bool AtEnd() const { return pos >= in.size; }
    bool Next(UTF32& c)
    {
        c = in[pos++];
        return true;
    }
};

template <class Units>
struct Utf16Decoder {
    Units in;
    size_t pos = 0;
    bool AtEnd() const { return pos >= in.size; }
    bool Next(UTF32& c)
    {
        c = in[pos++];
        if (c >= kSurrogateHighStart && c <= kSurrogateHighEnd) {
            // A high surrogate needs a low one right after it.
            if (pos >= in.size)
                return false;
            const UTF32 low = in[pos];
            if (low < kSurrogateLowStart || low > kSurrogateLowEnd)
                return false;
            ++pos;
            c = ((c - kSurrogateHighStart) << kHalfShift) + (low - kSurrogateLowStart) + kHalfBase;
            return true;
        }
        return c < kSurrogateLowStart || c > kSurrogateLowEnd;
    }
};

struct Utf8Decoder {
    const UTF8* in;
    size_t size;
    size_t pos = 0;
    bool AtEnd() const { return pos >= size; }
    bool Next(UTF32& c)
    {
        const unsigned extra = kTrailing.count[in[pos]];
        if (extra >= size - pos)
            return false; // cut off by the end of the input
        const UTF8* p = in + pos;
        if (!IsLegalUTF8(p, static_cast<int>(extra) + 1))
            return false;
        c = 0;
        for (unsigned i = 0; i < extra; ++i)
            c = (c + p[i]) << 6;
        c += p[extra];
        c -= kOffsetsFromUTF8[extra];
        pos += extra + 1;
        return true;
    }
};

// ---- encoders ------------------------------------------------------------

struct Utf8Encoder {
    static size_t UnitsFor(UTF32 c) { return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4; }
    template <class Target>
    static void Put(Target& out, size_t at, UTF32 c, size_t units)
    {
        for (size_t i = units - 1; i > 0; --i) {
            out.Put(at + i, (c | 0x80) & 0xBF);
            c >>= 6;
        }
        out.Put(at, c | kFirstByteMark[units]);
    }
};

struct Utf16Encoder {
    static size_t UnitsFor(UTF32 c) { return c > kMaxBmp ? 2 : 1; }
    template <class Target>
    static void Put(Target& out, size_t at, UTF32 c, size_t units)
    {
        if (units == 1) {
            out.Put(at, c);
            return;
        }
        c -= kHalfBase;
        out.Put(at, (c >> kHalfShift) + kSurrogateHighStart);
        out.Put(at + 1, (c & 0x3FF) + kSurrogateLowStart);
    }
};

struct Utf32Encoder {
    static size_t UnitsFor(UTF32) { return 1; }
    template <class Target>
    static void Put(Target& out, size_t at, UTF32 c, size_t)
    {
        out.Put(at, c);
    }
};

// What a converter does with a value above 0x10FFFF.
enum BeyondUnicode {
    BeyondIsBad,            // stop, as for any bad input
    BeyondIsReplaced,       // U+FFFD
    BeyondIsReplacedUncounted // U+FFFD when filling, nothing when measuring
};

template <class Encoder, class Decoder, class Target>
unsigned long Convert(Decoder in, Target out, BeyondUnicode beyond)
{
    const bool measuring = out.Measuring();
    size_t written = 0;
    while (!in.AtEnd()) {
        UTF32 c;
        if (!in.Next(c) || IsSurrogate(c))
            return measuring ? 0 : written;
        if (c > kMaxLegal) {
            if (beyond == BeyondIsBad)
                return measuring ? 0 : written;
            if (beyond == BeyondIsReplacedUncounted && measuring)
                continue;
            c = kReplacementChar;
        }
        const size_t units = Encoder::UnitsFor(c);
        if (!measuring) {
            if (units > out.capacity - written)
                return written;
            Encoder::Put(out, written, c, units);
        }
        written += units;
    }
    return written;
}

template <class Unit>
Utf32Decoder<TypedUnits<Unit>> FromUtf32(const Unit* source, size_t count)
{
    return {{source, source ? count : 0}};
}

template <class Units>
Utf16Decoder<Units> FromUtf16(Units units)
{
    if (!units.data)
        units.size = 0;
    return {units};
}

Utf8Decoder FromUtf8(const UTF8* source, size_t count)
{
    return {source, source ? count : 0};
}

template <class Unit>
TypedTarget<Unit> Into(Unit* begin, size_t capacity)
{
    return {begin, capacity};
}

} // namespace

// ---- the converters --------------------------------------------------------

unsigned long ConvertUTF32toUTF8(const UTF32* sourceStart, const UTF32* sourceEnd, UTF8* targetStart, UTF8* targetEnd)
{
    return Convert<Utf8Encoder>(FromUtf32(sourceStart, Distance(sourceStart, sourceEnd)),
                                Into(targetStart, Distance(targetStart, targetEnd)), BeyondIsReplaced);
}

unsigned long ConvertUTF8toUTF32(const UTF8* sourceStart, const UTF8* sourceEnd, UTF32* targetStart, UTF32* targetEnd)
{
    return Convert<Utf32Encoder>(FromUtf8(sourceStart, Distance(sourceStart, sourceEnd)),
                                 Into(targetStart, Distance(targetStart, targetEnd)), BeyondIsReplacedUncounted);
}

unsigned long ConvertUTF32toUTF16(const UTF32* sourceStart, const UTF32* sourceEnd, UTF16* targetStart, UTF16* targetEnd)
{
    return Convert<Utf16Encoder>(FromUtf32(sourceStart, Distance(sourceStart, sourceEnd)),
                                 Into(targetStart, Distance(targetStart, targetEnd)), BeyondIsBad);
}

unsigned long ConvertUTF16toUTF32(const UTF16* sourceStart, const UTF16* sourceEnd, UTF32* targetStart, UTF32* targetEnd)
{
    const unsigned long count =
        Convert<Utf32Encoder>(FromUtf16(TypedUnits<UTF16>{sourceStart, Distance(sourceStart, sourceEnd)}),
                              Into(targetStart, Distance(targetStart, targetEnd)), BeyondIsBad);
    // Only the measuring pass reports a count.
    return targetStart ? 0 : count;
}

unsigned long ConvertUTF16toUTF8(const UTF16* sourceStart, const UTF16* sourceEnd, UTF8* targetStart, UTF8* targetEnd)
{
    return Convert<Utf8Encoder>(FromUtf16(TypedUnits<UTF16>{sourceStart, Distance(sourceStart, sourceEnd)}),
                                Into(targetStart, Distance(targetStart, targetEnd)), BeyondIsBad);
}

unsigned long ConvertUTF8toUTF16(const UTF8* sourceStart, const UTF8* sourceEnd, UTF16* targetStart, UTF16* targetEnd)
{
    return Convert<Utf16Encoder>(FromUtf8(sourceStart, Distance(sourceStart, sourceEnd)),
                                 Into(targetStart, Distance(targetStart, targetEnd)), BeyondIsBad);
}

bool IsLegalUTF8(const unsigned char* source, int length)
{
    if (!source || length < 1 || length > 4)
        return false;
    // From the last byte back to the lead; each length checks its own byte
    // and then those of the shorter lengths.
    switch (length) {
    case 4:
        if (source[3] < 0x80 || source[3] > 0xBF)
            return false;
        [[fallthrough]];
    case 3:
        if (source[2] < 0x80 || source[2] > 0xBF)
            return false;
        [[fallthrough]];
    case 2: {
        const unsigned char a = source[1];
        if (a > 0xBF)
            return false;
        switch (source[0]) {
        case 0xE0:
            if (a < 0xA0)
                return false;
            break;
        case 0xED:
            if (a > 0x9F)
                return false;
            break;
        case 0xF0:
            if (a < 0x90)
                return false;
            break;
        case 0xF4:
            if (a > 0x8F)
                return false;
            break;
        default:
            if (a < 0x80)
                return false;
        }
        [[fallthrough]];
    }
    case 1:
        if (source[0] >= 0x80 && source[0] < 0xC2)
            return false;
    }
    return source[0] <= 0xF4;
}

bool IsLegalUTF8Sequence(const unsigned char* begin, const unsigned char* end)
{
    if (!begin || end <= begin)
        return false;
    const int length = kTrailing.count[*begin] + 1;
    if (length > end - begin)
        return false;
    return IsLegalUTF8(begin, length);
}

// ---- wide text -------------------------------------------------------------

unsigned long UnicodeToUTF8(const wchar_t* source, unsigned long count, unsigned char* target, unsigned long targetLength)
{
    return Convert<Utf8Encoder>(FromUtf32(source, count), Into(target, targetLength), BeyondIsReplaced);
}

unsigned long UTF8ToUnicode(unsigned char* source, unsigned long count, wchar_t* target, unsigned long targetLength)
{
    return Convert<Utf32Encoder>(FromUtf8(source, count), Into(target, targetLength), BeyondIsReplacedUncounted);
}

unsigned long UnicodeToUTF16(const wchar_t* source, unsigned long count, unsigned char* target, unsigned long targetLength)
{
    return Convert<Utf16Encoder>(FromUtf32(source, count), ByteTarget16{target, targetLength}, BeyondIsBad);
}

unsigned long UTF16ToUnicode(unsigned char* source, unsigned long count, wchar_t* target, unsigned long targetLength)
{
    const unsigned long units =
        Convert<Utf32Encoder>(FromUtf16(ByteUnits16{source, count}), Into(target, targetLength), BeyondIsBad);
    return target ? 0 : units;
}

bool DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(const wchar_t* text, int count)
{
    if (!text)
        return false;
    for (int i = count - 1; i >= 0; --i) {
        if (static_cast<long>(text[i]) >= 128)
            return true;
    }
    return false;
}

bool DoesUTF8StrContainAnyCharsLargerThanOneByte(unsigned char* data, unsigned long length)
{
    if (!data)
        return false;
    // Eight bytes at a time: any byte with its top bit set ends the test.
    const uint64_t highBits = 0x8080808080808080ULL;
    unsigned long i = 0;
    for (; i + 8 <= length; i += 8) {
        uint64_t word;
        std::memcpy(&word, data + i, sizeof word);
        if (word & highBits)
            return true;
    }
    for (; i < length; ++i) {
        if (data[i] > 127)
            return true;
    }
    return false;
}

} // namespace NxXmlLib9
