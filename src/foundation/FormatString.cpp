// Two-pass formatting: a scan of the format adds up an upper estimate of the
// printed length, then the C library prints once into a buffer of that size.
#include "NxFoundation.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <vector>

namespace NxXmlLib9 {

namespace {

enum SizePrefix { SizeNone, SizeShort, SizeLong, SizeLongLong, SizeSizeT };

int ReadDecimal(const char*& p)
{
    int value = 0;
    while (std::isdigit(static_cast<unsigned char>(*p))) {
        value = value * 10 + (*p - '0');
        ++p;
    }
    return value;
}

size_t StringEstimate(size_t length, bool isNull, int width, int precision)
{
    size_t estimate = isNull ? 6 : std::max<size_t>(length, 1);
    if (precision != 0)
        estimate = std::min<size_t>(estimate, static_cast<size_t>(precision));
    return std::max<size_t>(estimate, static_cast<size_t>(width));
}

// Estimate of one directive; 'p' points just past the '%' and is left on the
// conversion character (or the terminating zero).
size_t EstimateDirective(const char*& p, va_list& args)
{
    size_t estimate = 0;
    int width = 0;
    int precision = 0;
    bool widthGiven = false;

    for (;; ++p) {
        if (*p == '#') {
            estimate += 2;
        } else if (*p == '*') {
            // A negative width means left adjustment of the same width.
            width = std::abs(va_arg(args, int));
            widthGiven = true;
        } else if (*p != '-' && *p != '+' && *p != '0' && *p != ' ') {
            break;
        }
    }
    if (!widthGiven)
        width = ReadDecimal(p);
    if (*p == '.') {
        ++p;
        if (*p == '*') {
            // A negative precision counts as none.
            precision = std::max(va_arg(args, int), 0);
            ++p;
        } else {
            precision = ReadDecimal(p);
        }
    }

    SizePrefix size = SizeNone;
    if (std::strncmp(p, "I64", 3) == 0) {
        size = SizeLongLong;
        p += 3;
    } else if (p[0] == 'l' && p[1] == 'l') {
        size = SizeLongLong;
        p += 2;
    } else if (*p == 'h') {
        size = SizeShort;
        ++p;
    } else if (*p == 'l') {
        size = SizeLong;
        ++p;
    } else if (*p == 'z' || *p == 'j' || *p == 't') {
        size = SizeSizeT;
        ++p;
    } else if (*p == 'F' || *p == 'L' || *p == 'N') {
        ++p;
    }

    const size_t numberFloor = static_cast<size_t>(width) + static_cast<size_t>(precision);
    switch (*p) {
    case 'c':
    case 'C':
        // Characters are not supported by the estimate: the process ends.
        std::abort();
    case 's':
    case 'S': {
        const bool wide = (*p == 'S') ? size != SizeShort : size == SizeLong;
        if (wide) {
            const wchar_t* text = va_arg(args, const wchar_t*);
            estimate += StringEstimate(text ? std::wcslen(text) : 0, text == nullptr, width, precision);
        } else {
            const char* text = va_arg(args, const char*);
            estimate += StringEstimate(text ? std::strlen(text) : 0, text == nullptr, width, precision);
        }
        break;
    }
    case 'd':
    case 'i':
    case 'o':
    case 'u':
    case 'x':
    case 'X':
    case 'p':
        if (*p == 'p')
            (void)va_arg(args, void*);
        else if (size == SizeLongLong)
            (void)va_arg(args, long long);
        else if (size == SizeLong)
            (void)va_arg(args, long);
        else if (size == SizeSizeT)
            (void)va_arg(args, size_t);
        else
            (void)va_arg(args, int);
        estimate += std::max<size_t>(numberFloor, 32);
        break;
    case 'e':
    case 'g':
    case 'G':
        (void)va_arg(args, double);
        estimate += std::max<size_t>(numberFloor, 128);
        break;
    case 'f': {
        // Fixed notation can be very long; print it for real to measure it.
        const double value = va_arg(args, double);
        std::vector<char> scratch(std::max<size_t>(width, static_cast<size_t>(precision) + 318) + 1);
        const int printed = std::snprintf(scratch.data(), scratch.size(), "%*.*f", width, precision + 6, value);
        estimate += printed > 0 ? static_cast<size_t>(printed) : 0;
        break;
    }
    case 'n':
        (void)va_arg(args, int*);
        break;
    default:
        break;
    }
    return estimate;
}

} // namespace

std::string FormatString(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = FormatV(format, args);
    va_end(args);
    return text;
}

std::string FormatV(const char* format, va_list args)
{
    va_list scan;
    va_copy(scan, args);
    size_t estimate = 0;
    for (const char* p = format; *p; ++p) {
        if (*p != '%') {
            ++estimate;
            continue;
        }
        ++p;
        if (*p == '%') {
            ++estimate;
            continue;
        }
        estimate += EstimateDirective(p, scan);
        if (*p == '\0')
            break;
    }
    va_end(scan);

    std::string text(estimate + 1, 'X');
    std::vsnprintf(&text[0], estimate + 1, format, args);
    text.resize(std::strlen(text.c_str()));
    return text;
}

} // namespace NxXmlLib9
