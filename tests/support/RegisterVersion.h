// Generated code registers the version of its generator before any object is
// made; a test program of the library's classes does the same, once.
#pragma once

#include "NxXmlLib9.h"

namespace NxTest {

struct RegisterVersionOnce {
    RegisterVersionOnce() { NxXmlLib9::RegisterGeneratorVersion(9, 0); }
};
inline RegisterVersionOnce registerVersionOnce;

} // namespace NxTest
