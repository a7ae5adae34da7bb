// The agreement between generated code and this runtime on their version.
#pragma once

namespace NxXmlLib9 {

constexpr int RUNTIME_VERSION_MAJOR = 9;
constexpr int RUNTIME_VERSION_MINOR = 0;

// Prints the mismatch report to standard output and standard error when the
// registered generator version is not the runtime's; true on a mismatch.
bool ReportVersionMismatch();

// The check of every public entry: reports and throws on a mismatch.
void CheckVersion();

} // namespace NxXmlLib9
