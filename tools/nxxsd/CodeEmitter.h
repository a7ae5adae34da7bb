// Writes the C++ header and source of each output file from the model.
#pragma once

#include <string>

#include "SchemaModel.h"

namespace nxxsd {

// The text of NAME.h and NAME.cpp of output file number file.
std::string EmitHeader(const Model& model, int file);
std::string EmitSource(const Model& model, int file);

} // namespace nxxsd
