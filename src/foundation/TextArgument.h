// C string arguments of the public operations may be null; the library reads
// a null one as the empty text rather than failing on it.
#pragma once

#include <string>

namespace NxXmlLib9 {

inline const char* OrEmpty(const char* text)
{
    return text ? text : "";
}

inline std::string TextArgument(const char* text)
{
    return OrEmpty(text);
}

} // namespace NxXmlLib9
