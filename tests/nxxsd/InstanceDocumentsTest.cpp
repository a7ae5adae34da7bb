// The documents under tests/schemas/instances are valid: the compiled classes
// read them and write them again as valid documents. Each of them, broken in
// one place (a facet or the structure of its schema), is refused by our
// reader as by the independent validator.
#include <vector>

#include "SchemaTestSupport.h"

using namespace NxXmlLib9;
using namespace NxXsdTest;

namespace {

struct Instance {
    const char* name;
    const char* schema;
};

const Instance kInstances[] = {
    {"contact", "structure.xsd"}, {"drawing", "structure.xsd"},      {"invoice", "invoice/invoice.xsd"},
    {"library", "basics.xsd"},    {"order", "orders/orders.xsd"}, {"palette", "structure.xsd"},
};

// One break of a valid document: its first `from` becomes `to`.
struct Break {
    const char* instance;
    const char* what;
    const char* from;
    const char* to;
};

const Break kBreaks[] = {
    {"contact", "no choice", "<Email>a@b</Email>", ""},
    {"contact", "two choices", "</Email>", "</Email><Phone>1</Phone>"},
    {"drawing", "caption without lang", "<Caption lang=\"nb\">", "<Caption>"},
    {"drawing", "cross without x", "<Cross x=\"3\"/>", "<Cross/>"},
    {"drawing", "missing main", "<Main xsi:type=\"Square\" id=\"1\" rounded=\"false\"><Width>2</Width>"
                                "<Height>2</Height></Main>", ""},
    {"drawing", "unknown type", "xsi:type=\"Square\"", "xsi:type=\"Triangle\""},
    {"invoice", "category", "category=\"E\"", "category=\"X\""},
    {"invoice", "id pattern", "INV-2023-00001", "INV-23-1"},
    {"invoice", "line type", "t:TaxedLine", "t:Untaxed"},
    {"invoice", "rate", "<t:Rate>0<", "<t:Rate>101<"},
    {"library", "enumeration", "novel", "cookery"},
    {"library", "fixed version", "version=\"1.00\"", "version=\"2.0\""},
    {"library", "isbn pattern", "978-0000000001", "978-00001"},
    {"library", "missing attributes", " created=\"2024-05-01\" version=\"1.00\"", ""},
    {"library", "missing contact", "<Contact><Email>none</Email></Contact>", ""},
    {"library", "pages range", "<Pages> 120 </Pages>", "<Pages>10000</Pages>"},
    {"library", "title length", "Reading Room", "A title that is far longer than forty characters in all"},
    {"library", "two choices", "</Always>", "</Always><Hours>9</Hours>"},
    {"order", "country length", "GB<", "GBR<"},
    {"order", "currency", "c:currency=\"NOK\">205", "c:currency=\"SEK\">205"},
    {"order", "fixed version", "version=\"2.1\"", "version=\"2.2\""},
    {"order", "missing number", "<o:Line number=\"2\">", "<o:Line>"},
    {"order", "negative quantity", ">2</o:Quantity>", ">-2</o:Quantity>"},
    {"order", "negative total", ">205.00<", ">-205.00<"},
    {"order", "sku pattern", "XYZ-0001", "xyz-1"},
    {"order", "total not a number", ">205.00<", ">a lot<"},
    {"order", "unknown element", "<o:Total", "<o:Surprise>1</o:Surprise><o:Total"},
    {"palette", "four pairs", "<End>", "<Key>d</Key><End>"},
    {"palette", "no colour", "<Blue>ice</Blue>\n  <Red>7</Red>\n  <Blue>sea</Blue>", ""},
    {"palette", "red range", "<Red>7</Red>", "<Red>700</Red>"},
};

// The message of reading xml into the object of its root; empty on success.
std::string ReadFailure(CXmlGeneratedClass& object, const std::string& xml)
{
    try {
        object.FromXml(xml.c_str());
    } catch (const CNxException& error) {
        return error.GetFullMessage();
    }
    return "";
}

} // namespace

TEST(InstanceDocuments, ValidAreReadInvalidAreRefused)
{
    const std::string scratch = ScratchDir("instances");
    bool validated = false;
    for (const Instance& instance : kInstances) {
        SCOPED_TRACE(instance.name);
        const std::string schema = SchemaPath(instance.schema);
        const std::string path = SchemaPath(std::string("instances/") + instance.name + "-ok.xml");
        const std::string xml = ReadFileBytes(path);
        ASSERT_NE(xml, "");
        const Verdict verdict = Validate(schema, path);
        validated = verdict != Verdict::NoValidator;
        if (validated) {
            EXPECT_EQ(verdict, Verdict::Valid);
        }

        CSmartPtr<CXmlGeneratedClass> object = ObjectForDocument(xml);
        ASSERT_TRUE(object);
        ASSERT_EQ(ReadFailure(*object, xml), "");
        // What was read is written as a valid document that reads the same.
        const std::string written = object->ToXml(true, false, EOLTypeLF, Aliased());
        EXPECT_EQ(ReadAndWrite(written), written);
        const std::string rewritten = scratch + "/" + instance.name + ".xml";
        WriteFileBytes(rewritten, written);
        if (validated) {
            EXPECT_EQ(Validate(schema, rewritten), Verdict::Valid) << written;
        }

        for (const Break& broken : kBreaks) {
            if (std::string(broken.instance) != instance.name)
                continue;
            SCOPED_TRACE(broken.what);
            std::string bad = xml;
            const size_t at = bad.find(broken.from);
            ASSERT_NE(at, std::string::npos);
            bad.replace(at, std::string(broken.from).size(), broken.to);
            const std::string badPath = scratch + "/bad.xml";
            WriteFileBytes(badPath, bad);
            if (validated) {
                EXPECT_EQ(Validate(schema, badPath), Verdict::Invalid);
            }
            CSmartPtr<CXmlGeneratedClass> badObject = ObjectForDocument(bad);
            ASSERT_TRUE(badObject);
            EXPECT_NE(ReadFailure(*badObject, bad), "") << "read without complaint";
        }
    }
    if (!validated)
        GTEST_SKIP() << "instance documents not validated: python3-xmlschema is not installed";
}
