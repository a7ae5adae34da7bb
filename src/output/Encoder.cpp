// Conversions between the local code page (the process's character-type
// locale, read and never set), wide text and UTF-8.
#include "NxEncoder.h"

#include <atomic>
#include <climits>
#include <cstring>
#include <cwchar>
#include <memory>
#include <stdexcept>

namespace NxXmlLib9 {

namespace {

// Set once by the application before other threads run; atomic only so
// that reading it is never a data race.
std::atomic<bool> g_asciiOnly{false};

bool AsciiOnly()
{
    return g_asciiOnly.load(std::memory_order_relaxed);
}

// Walks local text with mbrtowc and hands each wide unit to put(index,
// unit); returns the unit count. An invalid byte becomes '?' and the walk
// goes on after it; a sequence cut off by the end of the text becomes one
// '?' and ends the walk.
template <class Put>
size_t WalkLocalText(const char* text, size_t length, Put put)
{
    std::mbstate_t state{};
    size_t count = 0;
    size_t position = 0;
    while (position < length) {
        wchar_t unit = 0;
        const size_t used = std::mbrtowc(&unit, text + position, length - position, &state);
        if (used == static_cast<size_t>(-2)) {
            put(count++, L'?');
            break;
        }
        if (used == static_cast<size_t>(-1)) {
            put(count++, L'?');
            ++position;
            // The state is unspecified after an invalid sequence.
            state = std::mbstate_t{};
        } else if (used == 0) {
            put(count++, L'\0');
            ++position;
        } else {
            put(count++, unit);
            position += used;
        }
    }
    return count;
}

// Local bytes of one wide unit into buffer (MB_LEN_MAX bytes); a unit the
// locale cannot show gives one '?'.
size_t LocalBytesOf(wchar_t unit, char* buffer, std::mbstate_t& state)
{
    const size_t size = std::wcrtomb(buffer, unit, &state);
    if (size == static_cast<size_t>(-1)) {
        state = std::mbstate_t{};
        buffer[0] = '?';
        return 1;
    }
    return size;
}

// Size of the local text of the wide text up to its first zero unit. Each
// unit is measured into a local buffer: wcrtomb with a null buffer does
// not measure.
size_t MeasureLocal(const wchar_t* wide)
{
    std::mbstate_t state{};
    char buffer[MB_LEN_MAX];
    size_t size = 0;
    for (; *wide; ++wide)
        size += LocalBytesOf(*wide, buffer, state);
    return size;
}

// Writes the local text of the wide text into out, at most capacity bytes
// (a locale changed by another thread between the passes cannot overrun
// it); returns the bytes written.
size_t WriteLocal(const wchar_t* wide, char* out, size_t capacity)
{
    std::mbstate_t state{};
    char buffer[MB_LEN_MAX];
    size_t written = 0;
    for (; *wide; ++wide) {
        const size_t size = LocalBytesOf(*wide, buffer, state);
        if (size > capacity - written)
            break;
        std::memcpy(out + written, buffer, size);
        written += size;
    }
    return written;
}

// The two passes: measure, then write into the caller's scratch when it is
// large enough, else straight into the result.
std::string WideToLocal(const wchar_t* wide, char* scratch, unsigned long scratchLength)
{
    const size_t size = MeasureLocal(wide);
    if (scratch && scratchLength > size)
        return std::string(scratch, WriteLocal(wide, scratch, size));
    std::string text(size, '\0');
    text.resize(WriteLocal(wide, &text[0], size));
    return text;
}

bool AnyWideUnitAbove127(const wchar_t* wide, size_t count)
{
    for (size_t i = count; i > 0; --i) {
        if (static_cast<long>(wide[i - 1]) >= 128)
            return true;
    }
    return false;
}

CBinaryData Utf8OfWide(const wchar_t* wide, size_t length)
{
    if (length == 0)
        return CBinaryData();
    // Pure 7-bit text needs no measuring pass: one byte per unit.
    size_t size = length;
    if (AnyWideUnitAbove127(wide, length))
        size = UnicodeToUTF8(wide, length, nullptr, 0);
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[size]);
    const unsigned long written = UnicodeToUTF8(wide, length, bytes.get(), size);
    return CBinaryData(bytes.release(), written, true);
}

} // namespace

void ASCIIOnly(bool asciiOnly)
{
    g_asciiOnly.store(asciiOnly, std::memory_order_relaxed);
}

std::string UnicodeToMultiByte(const wchar_t* text)
{
    if (!text || *text == L'\0')
        return std::string();
    return WideToLocal(text, nullptr, 0);
}

CBinaryData CEncoder::UnicodeToUtf8Binary(const wchar_t* text)
{
    return Utf8OfWide(text, text ? std::wcslen(text) : 0);
}

CBinaryData CEncoder::LocalCodePageToUtf8Binary(const char* text)
{
    if (AsciiOnly())
        return CBinaryData(text);
    const size_t length = text ? std::strlen(text) : 0;
    std::unique_ptr<wchar_t[]> wide(new wchar_t[length + 1]);
    const size_t count = WalkLocalText(text, length, [&wide](size_t i, wchar_t unit) { wide[i] = unit; });
    wide[count] = L'\0';
    // The text itself has no zero byte, so every unit counts.
    return Utf8OfWide(wide.get(), count);
}

CBinaryData CEncoder::LocalCodePageToUnicodeBinary(const char* text)
{
    const size_t length = text ? std::strlen(text) : 0;
    // Units go straight into the byte array that the result adopts.
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[length * sizeof(wchar_t)]);
    unsigned char* out = bytes.get();
    const size_t count = WalkLocalText(text, length, [out](size_t i, wchar_t unit) {
        std::memcpy(out + i * sizeof unit, &unit, sizeof unit);
    });
    return CBinaryData(bytes.release(), static_cast<unsigned long>(count * sizeof(wchar_t)), true);
}

std::string CEncoder::Utf16ToLocalCodePage(unsigned char* data, int length)
{
    (void)data;
    (void)length;
    // This conversion was never made: it builds its string from a null
    // pointer, which the standard library refuses with a logic error.
    throw std::logic_error("basic_string: construction from null is not valid");
}

std::string CEncoder::Utf8ToLocalCodePage(unsigned char* data, int length)
{
    return Utf8ToLocalCodePage(data, length, nullptr, 0, nullptr, 0);
}

std::string CEncoder::Utf8ToLocalCodePage(const char* text)
{
    return Utf8ToLocalCodePage(text, nullptr, 0, nullptr, 0);
}

std::string CEncoder::Utf8ToLocalCodePage(const char* text, wchar_t* wideScratch, unsigned long wideScratchLength,
                                          char* scratch, unsigned long scratchLength)
{
    const size_t length = text ? std::strlen(text) : 0;
    if (length > INT_MAX)
        throw std::length_error("Utf8ToLocalCodePage: text too long");
    return Utf8ToLocalCodePage(reinterpret_cast<unsigned char*>(const_cast<char*>(text)), static_cast<int>(length),
                               wideScratch, wideScratchLength, scratch, scratchLength);
}

std::string CEncoder::Utf8ToLocalCodePage(unsigned char* data, int length, wchar_t* wideScratch,
                                          unsigned long wideScratchLength, char* scratch, unsigned long scratchLength)
{
    if (!data || length <= 0)
        return std::string();
    if (AsciiOnly())
        return std::string(reinterpret_cast<const char*>(data), static_cast<size_t>(length));

    // 7-bit text reads the same in UTF-8 and in every local code page, and
    // most markup is 7-bit: it needs no conversion, up to a zero byte as the
    // wide walk would stop there.
    if (!DoesUTF8StrContainAnyCharsLargerThanOneByte(data, static_cast<unsigned long>(length))) {
        const char* bytes = reinterpret_cast<const char*>(data);
        return std::string(bytes, strnlen(bytes, static_cast<size_t>(length)));
    }

    const size_t units = static_cast<size_t>(length) + 1;
    std::unique_ptr<wchar_t[]> ownWide;
    wchar_t* wide = wideScratch;
    if (!wide || wideScratchLength < units) {
        ownWide.reset(new wchar_t[units]);
        wide = ownWide.get();
    }
    const unsigned long count = UTF8ToUnicode(data, static_cast<unsigned long>(length), wide, units);
    wide[count] = L'\0';
    return WideToLocal(wide, scratch, scratchLength);
}

} // namespace NxXmlLib9
