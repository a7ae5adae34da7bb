// The compiler itself: its names, its refusals of what it cannot map, and
// the stability of its output.
#include "Naming.h"
#include "SchemaTestSupport.h"

using namespace NxXsdTest;

namespace {

CommandResult Compile(const std::string& dir, const std::string& arguments)
{
    return Run(std::string(NXXSD_PROGRAM) + " --output-dir " + Quoted(dir) + " " + arguments);
}

const char* const kHead = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:t' "
                          "xmlns='urn:t'>";

} // namespace

TEST(Compiler, IdentifiersFromXmlNames)
{
    const struct {
        const char* xml;
        const char* cpp;
    } cases[] = {
        {"Name", "Name"},       {"class", "class_"},   {"my-element", "my_element"}, {"a.b", "a_b"},
        {"_private", "N_private"}, {"2nd", "N2nd"},    {"a__b", "a_b"},              {"", "N"},
        {"Gr\xc3\xb6\xc3\x9f" "e", "Gr_e"},            {"value", "value_"},          {"std", "std_"},
        {"NULL", "NULL_"},      {"x--y", "x_y"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(nxxsd::MakeIdentifier(c.xml), c.cpp) << c.xml;

    nxxsd::NameScope scope({"Reserved"});
    EXPECT_EQ(scope.Claim("Item"), "Item");
    EXPECT_EQ(scope.Claim("Item"), "Item_2");
    EXPECT_EQ(scope.Claim("Item"), "Item_3");
    EXPECT_EQ(scope.Claim("Reserved"), "Reserved_2");
    EXPECT_EQ(scope.Claim("class_"), "class_");
    EXPECT_EQ(scope.Claim("class_"), "class_2");
}

TEST(Compiler, RefusesWhatItCannotMap)
{
    const std::string dir = ScratchDir("errors");
    const struct {
        const char* file;
        std::string text;
        const char* message;
    } cases[] = {
        {"redefine.xsd", std::string(kHead) + "<xs:redefine schemaLocation='other.xsd'/></xs:schema>",
         "redefine.xsd: redefine: xs:redefine is not supported"},
        {"repeated-head.xsd",
         std::string(kHead) + "<xs:element name='H' type='xs:int'/><xs:element name='M' substitutionGroup='H'/>"
                              "<xs:complexType name='T'><xs:sequence><xs:element ref='H' maxOccurs='2'/>"
                              "</xs:sequence></xs:complexType></xs:schema>",
         "repeated-head.xsd: element ref='H': a repeated reference to the head of a substitution group is not "
         "supported"},
        {"unknown-type.xsd", std::string(kHead) + "<xs:element name='e' type='Missing'/></xs:schema>",
         "unknown-type.xsd: element 'e': unknown simple type {urn:t}Missing"},
        {"remote.xsd",
         std::string(kHead) + "<xs:import namespace='urn:x' schemaLocation='http://example.com/x.xsd'/></xs:schema>",
         "remote.xsd: import: only local schema files can be read, not 'http://example.com/x.xsd'"},
        {"missing-include.xsd", std::string(kHead) + "<xs:include schemaLocation='absent.xsd'/></xs:schema>",
         "missing-include.xsd: cannot open the schema file"},
        {"not-a-schema.xsd", "<schema/>", "not-a-schema.xsd: schema: the document element is not xs:schema"},
        {"broken.xsd", "<xs:schema", "broken.xsd: not a readable XML document"},
        {"prefix.xsd", std::string(kHead) + "<xs:element name='e' type='q:T'/></xs:schema>",
         "prefix.xsd: element 'e': undeclared prefix 'q' in type='q:T'"},
        {"facet.xsd",
         std::string(kHead) + "<xs:simpleType name='S'><xs:restriction base='xs:int'><xs:assertion test='1'/>"
                              "</xs:restriction></xs:simpleType></xs:schema>",
         "facet.xsd: assertion: unknown facet"},
        {"extend-mixed.xsd",
         std::string(kHead) + "<xs:complexType name='B' mixed='true'><xs:sequence><xs:element name='a' "
                              "type='xs:int'/></xs:sequence></xs:complexType><xs:complexType name='D'>"
                              "<xs:complexContent><xs:extension base='B'><xs:sequence><xs:element name='b' "
                              "type='xs:int'/></xs:sequence></xs:extension></xs:complexContent></xs:complexType>"
                              "</xs:schema>",
         "extend-mixed.xsd: extension base='B': derivation from a mixed type is not supported"},
        {"wildcard-list.xsd",
         std::string(kHead) + "<xs:complexType name='T'><xs:sequence><xs:any namespace='urn:a urn:b'/>"
                              "</xs:sequence></xs:complexType></xs:schema>",
         "wildcard-list.xsd: any: a wildcard with a list of namespaces is not supported"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const std::string path = dir + "/" + c.file;
        WriteFileBytes(path, c.text);
        const CommandResult result = Compile(dir, Quoted(path));
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.output.find(c.message), std::string::npos) << result.output;
        // Nothing is written for a schema that fails.
        const std::string stem = path.substr(0, path.size() - 4);
        EXPECT_EQ(ReadFileBytes(stem + ".h"), "");
        EXPECT_EQ(ReadFileBytes(stem + ".cpp"), "");
    }

    // The command line itself.
    EXPECT_EQ(NxXsdTest::Run(NXXSD_PROGRAM).status, 1);
    EXPECT_EQ(Compile(dir, "--bogus x.xsd").status, 1);
    const CommandResult badNamespace = Compile(dir, "--cpp-namespace 'a-b' " + Quoted(SchemaPath("basics.xsd")));
    EXPECT_EQ(badNamespace.status, 1);
    EXPECT_NE(badNamespace.output.find("is not a C++ namespace name"), std::string::npos);
}

TEST(Compiler, WarnsOfWhatItDoesNotCheck)
{
    const std::string dir = ScratchDir("warnings");
    const std::string path = dir + "/unchecked.xsd";
    WriteFileBytes(path, std::string(kHead) +
                        "<xs:simpleType name='Price'><xs:restriction base='xs:decimal'><xs:totalDigits value='5'/>"
                        "</xs:restriction></xs:simpleType><xs:element name='List'><xs:complexType><xs:sequence>"
                        "<xs:element name='Item' type='xs:string' default='x' maxOccurs='9'/></xs:sequence>"
                        "</xs:complexType><xs:unique name='U'><xs:selector xpath='Item'/><xs:field xpath='.'/>"
                        "</xs:unique></xs:element></xs:schema>");
    const CommandResult result = Compile(dir, Quoted(path));
    EXPECT_EQ(result.status, 0);
    for (const char* warning : {": totalDigits: the facet totalDigits is not checked",
                                ": element 'Item': the default or fixed value of an element is not applied",
                                ": unique 'U': identity constraints are not checked"})
        EXPECT_NE(result.output.find("warning: " + path + warning), std::string::npos) << result.output;
}

TEST(Compiler, SameSchemasGiveTheSameText)
{
    const std::string arguments = Quoted(SchemaPath("basics.xsd")) + " " + Quoted(SchemaPath("structure.xsd")) +
                                  " " + Quoted(SchemaPath("orders/orders.xsd"));
    const std::string first = ScratchDir("stable-1"), second = ScratchDir("stable-2");
    ASSERT_EQ(Compile(first, arguments).status, 0);
    ASSERT_EQ(Compile(second, arguments).status, 0);
    for (const char* file : {"basics.h", "basics.cpp", "structure.h", "structure.cpp", "orders.h", "orders.cpp"}) {
        SCOPED_TRACE(file);
        const std::string text = ReadFileBytes(first + "/" + file);
        EXPECT_GT(text.size(), 1000u);
        EXPECT_EQ(text, ReadFileBytes(second + "/" + file));
    }
    // One namespace for all files: the entry function is defined once.
    const std::string shared = ScratchDir("shared");
    ASSERT_EQ(Compile(shared, "--cpp-namespace app::model " + arguments).status, 0);
    int definitions = 0;
    for (const char* file : {"basics.cpp", "structure.cpp", "orders.cpp"}) {
        const std::string text = ReadFileBytes(shared + "/" + file);
        EXPECT_NE(text.find("namespace app::model {"), std::string::npos);
        definitions += text.find("CreateDocumentElement(const char* localName, const char* namespaceUri)\n{") !=
                       std::string::npos;
    }
    EXPECT_EQ(definitions, 1);
}

TEST(Compiler, DependencyFileListsEverySchemaRead)
{
    const std::string dir = ScratchDir("depfile");
    ASSERT_EQ(Compile(dir, "--depfile " + Quoted(dir + "/deps.d") + " " +
                               Quoted(SchemaPath("invoice/invoice.xsd")))
                  .status,
              0);
    const std::string rule = ReadFileBytes(dir + "/deps.d");
    EXPECT_EQ(rule.find(dir + "/invoice.h " + dir + "/invoice.cpp :"), 0u) << rule;
    for (const char* schema : {"/invoice/invoice.xsd", "/invoice/tax.xsd", "/orders/common.xsd"})
        EXPECT_NE(rule.find(schema), std::string::npos) << rule;
    EXPECT_EQ(rule.find("orders.xsd"), std::string::npos) << rule;
}
