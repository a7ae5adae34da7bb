#include "engine/VersionCheck.h"

#include <cstdio>

#include "NxException.h"
#include "NxFoundation.h"
#include "NxXmlObjectBase.h"

namespace NxXmlLib9 {

namespace {
// Set once by generated code before its first object exists.
int g_generatorMajor = 0;
int g_generatorMinor = 0;

bool VersionMatches()
{
    return g_generatorMajor == RUNTIME_VERSION_MAJOR && g_generatorMinor == RUNTIME_VERSION_MINOR;
}

void PrintMismatch(FILE* stream, const std::string& details)
{
    std::fputs("\n-----------------Version Mismatch-----------------\n", stream);
    std::fputs("Orvane Systems XML 2011 - Version Mismatch Error\n", stream);
    std::fputs(details.c_str(), stream);
    std::fflush(stream);
}
} // namespace

void RegisterGeneratorVersion(int major, int minor)
{
    g_generatorMajor = major;
    g_generatorMinor = minor;
}

bool ReportVersionMismatch()
{
    if (VersionMatches())
        return false;
    const std::string details = FormatString(
        "Please ensure your generated code is the same version as this library (Orvane Runtime: v%d.%d, "
        "Generator: v%d.%d).\n",
        RUNTIME_VERSION_MAJOR, RUNTIME_VERSION_MINOR, g_generatorMajor, g_generatorMinor);
    PrintMismatch(stdout, details);
    PrintMismatch(stderr, details);
    return true;
}

void CheckVersion()
{
    if (ReportVersionMismatch())
        throw CNxException(FormatString("Wrong Version (Orvane Runtime: v%d.%d, Generator: v%d.%d)",
                                        RUNTIME_VERSION_MAJOR, RUNTIME_VERSION_MINOR, g_generatorMajor,
                                        g_generatorMinor));
}

} // namespace NxXmlLib9
