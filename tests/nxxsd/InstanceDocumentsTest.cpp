// Hand-written instance documents under tests/schemas/instances: those named
// "-ok" are read by the compiled classes and written again as a valid
// document; those named "-bad" break a facet or the structure of their
// schema and are refused by our reader, as by the independent validator.
#include <dirent.h>

#include <algorithm>
#include <vector>

#include "SchemaTestSupport.h"

using namespace NxXmlLib9;
using namespace NxXsdTest;

namespace {

std::vector<std::string> InstanceNames()
{
    std::vector<std::string> names;
    if (DIR* dir = opendir(SchemaPath("instances").c_str())) {
        while (dirent* entry = readdir(dir)) {
            const std::string name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".xml") == 0)
                names.push_back(name);
        }
        closedir(dir);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string SchemaOf(const std::string& name)
{
    if (name.rfind("library", 0) == 0)
        return SchemaPath("basics.xsd");
    if (name.rfind("order", 0) == 0)
        return SchemaPath("orders/orders.xsd");
    if (name.rfind("invoice", 0) == 0)
        return SchemaPath("invoice/invoice.xsd");
    return SchemaPath("structure.xsd");
}

} // namespace

TEST(InstanceDocuments, ValidAreReadInvalidAreRefused)
{
    const std::vector<std::string> names = InstanceNames();
    ASSERT_GE(names.size(), 36u);
    const std::string scratch = ScratchDir("instances");
    int refused = 0;
    bool validated = false;
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const bool valid = name.find("-ok") != std::string::npos;
        const std::string path = SchemaPath("instances/" + name);
        const std::string xml = ReadFile(path);

        // The test documents say of themselves what the validator says.
        const Verdict verdict = Validate(SchemaOf(name), path);
        if (verdict != Verdict::NoValidator) {
            validated = true;
            EXPECT_EQ(verdict, valid ? Verdict::Valid : Verdict::Invalid);
        }

        CSmartPtr<CXmlGeneratedClass> object = ObjectForDocument(xml);
        ASSERT_TRUE(object);
        std::string failure;
        try {
            object->FromXml(xml.c_str());
        } catch (const CNxException& error) {
            failure = error.GetFullMessage();
        }
        if (!valid) {
            EXPECT_NE(failure, "") << "read without complaint";
            refused += !failure.empty();
            continue;
        }
        ASSERT_EQ(failure, "");
        // What was read is written as a valid document that reads the same.
        const std::string written = object->ToXml(true, false, EOLTypeLF, Aliased());
        EXPECT_EQ(ReadAndWrite(written), written);
        const std::string rewritten = scratch + "/" + name;
        WriteFile(rewritten, written);
        if (verdict != Verdict::NoValidator) {
            EXPECT_EQ(Validate(SchemaOf(name), rewritten), Verdict::Valid) << written;
        }
    }
    EXPECT_GE(refused, 30);
    if (!validated)
        GTEST_SKIP() << "instance documents not validated: python3-xmlschema is not installed";
}
