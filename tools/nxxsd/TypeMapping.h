// The built-in simple types of XML Schema and what the library reads them as.
#pragma once

#include <string>

#include "SchemaModel.h"

namespace nxxsd {

extern const char* const kXsdNamespace;

// The built-in type of that local name in the XML Schema namespace: its
// primitive, whitespace rule and implied facets. False for a name that is no
// built-in simple type (anyType included).
bool LookupBuiltin(const std::string& localName, SimpleModel& result);

} // namespace nxxsd
