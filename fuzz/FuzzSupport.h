// What every fuzz target shares: failures of the library's own family are
// the expected answer to bad input, and so is the standard logic error of
// the UTF-16 strings of binary documents, which are recognised but not
// supported. Anything else escapes and is a finding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "NxXmlLib9.h"

namespace NxFuzz {

template <class Call> void Expecting(Call call)
{
    try {
        call();
    } catch (const NxXmlLib9::CNxException&) {
    } catch (const std::logic_error&) {
    }
}

inline std::string Text(const uint8_t* data, size_t size)
{
    return std::string(reinterpret_cast<const char*>(data), size);
}

} // namespace NxFuzz
