// Text arguments of the option classes arrive as C strings; a null one is
// read as the empty text rather than crashing the copy.
#pragma once

#include <string>

namespace NxXmlLib9 {

inline std::string TextArgument(const char* text)
{
    return text ? std::string(text) : std::string();
}

} // namespace NxXmlLib9
