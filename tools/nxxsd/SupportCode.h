// The helpers every generated header carries once: the lazily built record
// tables and the collections of objects and of enumeration values.
#pragma once

namespace nxxsd {

extern const char* const kSupportCode;

} // namespace nxxsd
