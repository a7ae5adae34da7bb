// C string arguments of the public operations may be null; the library reads
// a null one as the empty text rather than failing on it.
#pragma once

namespace NxXmlLib9 {

inline const char* OrEmpty(const char* text)
{
    return text ? text : "";
}

} // namespace NxXmlLib9
