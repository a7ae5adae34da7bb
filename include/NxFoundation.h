// Small shared pieces: the item types, the lock, the empty monitor base and
// the free helpers that build messages and number texts.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <string>
#include <pthread.h>

namespace NxXmlLib9 {

// The primitive kinds. The numbers are the contract with generated code.
enum ItemType : int {
    ItemTypeNone = 0,
    ItemTypeHexBinary = 1,
    ItemTypeBase64Binary = 2,
    ItemTypeI1 = 3,
    ItemTypeI2 = 4,
    ItemTypeI4 = 5,
    ItemTypeI8 = 6,
    ItemTypeUI1 = 7,
    ItemTypeUI2 = 8,
    ItemTypeUI4 = 9,
    ItemTypeUI8 = 10,
    ItemTypeR4 = 11,
    ItemTypeR8 = 12,
    ItemTypeDuration = 13,
    ItemTypeYearMonth = 14,
    ItemTypeMonthDay = 15,
    ItemTypeYear = 16,
    ItemTypeMonth = 17,
    ItemTypeDay = 18,
    ItemTypeDate = 19,
    ItemTypeDateTime = 20,
    ItemTypeTime = 21,
    ItemTypeChar = 22,
    ItemTypeString = 23,
    ItemTypeBoolean = 24,
    ItemTypeDecimal = 25,
    ItemTypeInteger = 26,
    ItemTypeXmlObject = 27,
    ItemTypeXmlCollection = 28
};

// Empty base kept in the class tree; the name it is given is ignored.
class CInstanceMonitor {
public:
    explicit CInstanceMonitor(const char* className = nullptr) { (void)className; }
    virtual ~CInstanceMonitor() = default;
};

// The library's only lock: a plain, non-recursive POSIX mutex. Entering it
// twice from one thread deadlocks, so callers must never nest it.
class CNXCriticalSection {
public:
    CNXCriticalSection();
    virtual ~CNXCriticalSection();
    CNXCriticalSection(const CNXCriticalSection&) = delete;
    CNXCriticalSection& operator=(const CNXCriticalSection&) = delete;

    int Enter();
    int Leave();

private:
    pthread_mutex_t m_mutex;
};

// printf-like formatting into a string. The result is sized by a first pass
// over the format and printed by the C library in a second. A %c directive
// is not supported and ends the process.
std::string FormatString(const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;
std::string FormatV(const char* format, va_list args);

// Drops '0' from the end of the text, never its first character.
std::string TrimTrainingZeros(std::string text);
// Decimal text of value, zero padded to at least width characters.
std::string PadZero(int value, unsigned char width);
// ".ddd..." fraction of a second up to the last non-zero group; empty for 0.
std::string ToFracString(unsigned short milli, unsigned short micro, unsigned short nano);
// Replaces every occurrence, searching again from the start after each one:
// a replacement that contains the searched text never ends.
std::string& FindReplace(std::string& text, const std::string& what, const std::string& with);
std::wstring& FindReplace(std::wstring& text, const std::wstring& what, const std::wstring& with);
// Upper-cases in place and returns its argument.
char* strupr(char* text);
// Length of an open file; the position is left as it was. -1 on failure.
long _filelength(FILE* file);

} // namespace NxXmlLib9
