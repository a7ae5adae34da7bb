// Runs in a fresh process for the version tests: registers the version given
// on the command line (none when the first argument is "none"), makes two
// objects, marks the point, then calls a checked entry.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "NxXmlLib9.h"
#include "TestObjects.h"

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "none") != 0)
        NxXmlLib9::RegisterGeneratorVersion(std::atoi(argv[1]), std::atoi(argv[2]));
    NxXmlLib9::CSmartPtr<NxTest::CountedObject> first(new NxTest::CountedObject(nullptr, "probe"));
    NxXmlLib9::CSmartPtr<NxTest::CountedObject> second(new NxTest::CountedObject(nullptr, "probe"));
    std::fputs("MARK\n", stdout);
    std::fputs("MARK\n", stderr);
    try {
        const std::string xml = first->ToXml(false, false);
        std::printf("WROTE:%s\n", xml.c_str());
    } catch (const NxXmlLib9::CNxException& e) {
        std::printf("THROWN:%s\n", e.GetMessage().c_str());
    }
    return 0;
}
