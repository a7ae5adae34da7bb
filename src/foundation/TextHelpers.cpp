#include "NxFoundation.h"

#include <cctype>
#include <cstdio>

namespace NxXmlLib9 {

std::string TrimTrainingZeros(std::string text)
{
    size_t end = text.size();
    while (end > 1 && text[end - 1] == '0')
        --end;
    text.resize(end);
    return text;
}

std::string PadZero(int value, unsigned char width)
{
    char format[7];
    std::snprintf(format, sizeof format, "%%0%ud", static_cast<unsigned>(width));
    char buffer[256];
    const int length = std::snprintf(buffer, sizeof buffer, format, value);
    if (length < static_cast<int>(sizeof buffer))
        return std::string(buffer, length > 0 ? static_cast<size_t>(length) : 0);
    // A width near the limit plus a sign does not fit the fixed buffer.
    std::string text(static_cast<size_t>(length) + 1, '\0');
    std::snprintf(&text[0], text.size(), format, value);
    text.resize(static_cast<size_t>(length));
    return text;
}

std::string ToFracString(unsigned short milli, unsigned short micro, unsigned short nano)
{
    if (milli == 0 && micro == 0 && nano == 0)
        return std::string();
    std::string text = ".";
    if (micro == 0 && nano == 0)
        return text + TrimTrainingZeros(PadZero(milli, 3));
    text += PadZero(milli, 3);
    if (nano == 0)
        return text + TrimTrainingZeros(PadZero(micro, 3));
    text += PadZero(micro, 3);
    return text + TrimTrainingZeros(PadZero(nano, 3));
}

namespace {
template <class String>
String& FindReplaceImpl(String& text, const String& what, const String& with)
{
    // An empty search text would be found at the start for ever.
    if (what.empty())
        return text;
    for (size_t at = text.find(what); at != String::npos; at = text.find(what))
        text.replace(at, what.size(), with);
    return text;
}
} // namespace

std::string& FindReplace(std::string& text, const std::string& what, const std::string& with)
{
    return FindReplaceImpl(text, what, with);
}

std::wstring& FindReplace(std::wstring& text, const std::wstring& what, const std::wstring& with)
{
    return FindReplaceImpl(text, what, with);
}

char* strupr(char* text)
{
    for (char* p = text; *p; ++p)
        *p = static_cast<char>(std::toupper(static_cast<unsigned char>(*p)));
    return text;
}

long _filelength(FILE* file)
{
    const long position = std::ftell(file);
    if (position == -1 || std::fseek(file, 0, SEEK_END) != 0)
        return -1;
    const long length = std::ftell(file);
    if (std::fseek(file, position, SEEK_SET) != 0)
        return -1;
    return length;
}

} // namespace NxXmlLib9
