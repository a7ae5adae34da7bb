// Character conversions between the local code page, wide text (one 32-bit
// code point per wchar_t), UTF-8 and UTF-16, and the exact UTF converters
// beneath them. Nothing here raises a library failure: characters a target
// cannot show become '?', and bad UTF input truncates silently.
#pragma once

#include "NxBinaryData.h"

#include <string>

namespace NxXmlLib9 {

typedef unsigned char UTF8;
typedef unsigned short UTF16;
typedef unsigned int UTF32;

// The UTF converters. Each takes its input as [sourceStart, sourceEnd) and
// its output as [targetStart, targetEnd), and returns the number of output
// units. A null targetStart makes a measuring pass: it writes nothing and
// returns the size the output needs, or 0 when the input is bad anywhere.
// A filling pass stops at the first bad input, or at the first character
// that does not fit, and returns what it wrote so far.
unsigned long ConvertUTF32toUTF8(const UTF32* sourceStart, const UTF32* sourceEnd, UTF8* targetStart, UTF8* targetEnd);
// A decoded value of 0x110000 or more becomes U+FFFD when filling, and is
// not counted when measuring.
unsigned long ConvertUTF8toUTF32(const UTF8* sourceStart, const UTF8* sourceEnd, UTF32* targetStart, UTF32* targetEnd);
unsigned long ConvertUTF32toUTF16(const UTF32* sourceStart, const UTF32* sourceEnd, UTF16* targetStart, UTF16* targetEnd);
// The filling pass always returns 0: the units it wrote stand in the
// target, but the count is not reported.
unsigned long ConvertUTF16toUTF32(const UTF16* sourceStart, const UTF16* sourceEnd, UTF32* targetStart, UTF32* targetEnd);
unsigned long ConvertUTF16toUTF8(const UTF16* sourceStart, const UTF16* sourceEnd, UTF8* targetStart, UTF8* targetEnd);
unsigned long ConvertUTF8toUTF16(const UTF8* sourceStart, const UTF8* sourceEnd, UTF16* targetStart, UTF16* targetEnd);

// One UTF-8 sequence of 1 to 4 bytes.
bool IsLegalUTF8(const unsigned char* source, int length);
// The sequence at begin, with its length from its lead byte, within end.
bool IsLegalUTF8Sequence(const unsigned char* begin, const unsigned char* end);

// The converters on wide text: a count of input units and an output
// capacity in output units. UTF-16 bytes lie in native order, two per unit.
unsigned long UnicodeToUTF8(const wchar_t* source, unsigned long count, unsigned char* target, unsigned long targetLength);
unsigned long UTF8ToUnicode(unsigned char* source, unsigned long count, wchar_t* target, unsigned long targetLength);
unsigned long UnicodeToUTF16(const wchar_t* source, unsigned long count, unsigned char* target, unsigned long targetLength);
// Like ConvertUTF16toUTF32, the filling form returns 0.
unsigned long UTF16ToUnicode(unsigned char* source, unsigned long count, wchar_t* target, unsigned long targetLength);

// True when any of the count units, taken as signed, is 128 or more.
bool DoesUnicodeStrContainAnyUTF8CharsLargerThanOneByte(const wchar_t* text, int count);
bool DoesUTF8StrContainAnyCharsLargerThanOneByte(unsigned char* data, unsigned long length);

// Wide text in the local code page of the current character-type locale;
// a unit the locale cannot show becomes '?'.
std::string UnicodeToMultiByte(const wchar_t* text);

// Declares all text 7-bit, so that the local code page conversions skip
// their work. Set it once, before other threads use the library.
void ASCIIOnly(bool asciiOnly);

// The conversions at the edges of the library. Local text follows the
// process's character-type locale, which the library never sets.
class CEncoder {
public:
    CEncoder() = delete;

    // UTF-8 bytes, without a terminator.
    static CBinaryData UnicodeToUtf8Binary(const wchar_t* text);
    static CBinaryData LocalCodePageToUtf8Binary(const char* text);
    // Wide units, 4 bytes each in native order, without a terminator.
    static CBinaryData LocalCodePageToUnicodeBinary(const char* text);

    // There is no UTF-16 to local conversion: always throws std::logic_error.
    static std::string Utf16ToLocalCodePage(unsigned char* data, int length);

    static std::string Utf8ToLocalCodePage(unsigned char* data, int length);
    static std::string Utf8ToLocalCodePage(const char* text);
    // With caller's scratch buffers, used when they are large enough, so
    // that short texts convert without allocating work areas.
    static std::string Utf8ToLocalCodePage(unsigned char* data, int length, wchar_t* wideScratch,
                                           unsigned long wideScratchLength, char* scratch,
                                           unsigned long scratchLength);
    static std::string Utf8ToLocalCodePage(const char* text, wchar_t* wideScratch,
                                           unsigned long wideScratchLength, char* scratch,
                                           unsigned long scratchLength);
};

} // namespace NxXmlLib9
