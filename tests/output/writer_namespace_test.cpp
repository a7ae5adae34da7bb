#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "WriterScript.h"

using namespace NxXmlLib9;

namespace {

typedef CXmlWriter::CXmlWriterContext Scope;
typedef CXmlWriter::NamespaceMap NamespaceMap;

struct NamespaceWriter : ::testing::Test {
    NamespaceWriter() : writer(stream) { writer.SetFormat(false); }
    std::string Text() const { return stream.GetText(); }

    CTextStream stream;
    CXmlTextWriter writer;
};

} // namespace

TEST(PrefixGeneration, TwoCharactersSkippingPrefixesInUse)
{
    EXPECT_EQ("AA", CXmlWriter::NsIntToString(0));
    EXPECT_EQ("AZ", CXmlWriter::NsIntToString(25));
    EXPECT_EQ("BA", CXmlWriter::NsIntToString(26));
    EXPECT_EQ("ZZ", CXmlWriter::NsIntToString(675));
    EXPECT_EQ("[A", CXmlWriter::NsIntToString(676));

    NamespaceMap map;
    map["AB"] = "x";  // a URI, not a prefix: does not count
    map["urn:a"] = "AA";
    map["urn:c"] = "AC";
    EXPECT_EQ("AB", CXmlWriter::GetUniquePrefix(map));
    map["urn:b"] = "AB";
    EXPECT_EQ("AD", CXmlWriter::GetUniquePrefix(map));
    EXPECT_EQ(4u, map.size());
}

TEST(PrefixGeneration, WriterStartsWithTheXmlBinding)
{
    EXPECT_EQ("http://www.w3.org/XML/1998/namespace", CXmlWriter::XML_NAMESPACE);
    CTextStream stream;
    CXmlTextWriter writer(stream);
    EXPECT_EQ((NamespaceMap{{CXmlWriter::XML_NAMESPACE, "xml"}}), writer.GetNamespaceMap());
}

TEST(WriterScope, ChildrenShareTheRootSnapshotUntilTheyDeclare)
{
    NamespaceMap source{{"urn:a", "a"}};
    auto root = std::make_unique<Scope>("r", "", "urn:d", source, nullptr);
    source["urn:late"] = "late";
    EXPECT_EQ(1u, root->GetNamespaceMap().size()) << "the root holds a snapshot";

    std::vector<Scope*> chain{root.get()};
    for (int i = 0; i < 50; ++i)
        chain.push_back(new Scope("e", "", chain.back()));
    Scope* deepest = chain.back();
    EXPECT_EQ(50u, deepest->GetDepth());
    EXPECT_TRUE(deepest->InheritsNamespaces());
    EXPECT_FALSE(deepest->OwnsMap());
    EXPECT_EQ(&root->GetNamespaceMap(), &deepest->GetNamespaceMap());
    EXPECT_EQ("urn:d", deepest->GetDefaultNamespace());

    // A miss inserts an empty prefix into the effective map: the root's.
    EXPECT_EQ("", deepest->GetNamespaceMapValue("urn:missing"));
    EXPECT_EQ(1u, root->GetNamespaceMap().count("urn:missing"));

    // A declaration in the middle reaches its subtree, not its ancestors.
    Scope* middle = chain[20];
    middle->SetNamespaceMapValue("urn:m", "m");
    EXPECT_TRUE(middle->OwnsMap());
    EXPECT_EQ("urn:d", middle->GetDefaultNamespace()) << "the inherited default is copied";
    EXPECT_EQ(&middle->GetNamespaceMap(), &deepest->GetNamespaceMap());
    EXPECT_EQ("a", deepest->GetNamespaceMapValue("urn:a"));
    EXPECT_EQ(0u, root->GetNamespaceMap().count("urn:m"));
    EXPECT_EQ(&root->GetNamespaceMap(), &chain[19]->GetNamespaceMap());

    chain[30]->SetDefaultNamespace("urn:other");
    EXPECT_EQ("urn:other", deepest->GetDefaultNamespace());
    EXPECT_EQ("urn:d", chain[29]->GetDefaultNamespace());
    EXPECT_EQ("m", deepest->GetNamespaceMapValue("urn:m")) << "the map is copied on a default change";

    // Destroying the innermost scope takes the whole chain with it.
    root.release();
    delete deepest;
}

TEST_F(NamespaceWriter, RootDeclarationOrder)
{
    writer.AddNamespace("z", "http://a");
    writer.AddNamespace("y", "http://b");
    writer.AddNamespace("ext", CXmlWriter::XML_NAMESPACE + "/extension");
    writer.SetDefaultNamespace("http://d");
    Drive(writer, "<root{http://new}|>");
    EXPECT_EQ("<AA:root xmlns:AA=\"http://new\" xmlns=\"http://d\" xmlns:z=\"http://a\" xmlns:y=\"http://b\"/>",
              Text());
    EXPECT_EQ(0u, writer.GetNamespaceMap().count("http://new")) << "generated in the root scope only";
}

// Elements of the default namespace are bare; the last prefix bound to a
// URI is used on start and end tags; a generated prefix skips one already
// bound; attributes in a namespace always take a prefix.
TEST(NamespaceWriterShapes, PrefixesOfElementsAndAttributes)
{
    const struct {
        const char* defaultNamespace;
        std::vector<std::pair<const char*, const char*>> bindings;
        const char* script;
        const char* text;
    } cases[] = {
        {"urn:d", {}, "<r{urn:d}|<bare|>|>", "<r xmlns=\"urn:d\"><bare/></r>"},
        {"", {{"p", "urn:x"}, {"q", "urn:x"}}, "<r{urn:x}|<c{urn:x}|'v|>|>",
         "<q:r xmlns:q=\"urn:x\"><q:c>v</q:c></q:r>"},
        {"", {{"AA", "urn:other"}}, "<r{urn:n}|>", "<AB:r xmlns:AB=\"urn:n\" xmlns:AA=\"urn:other\"/>"},
        {"urn:d", {}, "<r{urn:d}|@a{urn:d}=1|@b{urn:d}=2|@lang{http://www.w3.org/XML/1998/namespace}=en|>",
         "<r xmlns=\"urn:d\" xmlns:AA=\"urn:d\" AA:a=\"1\" AA:b=\"2\" xml:lang=\"en\"/>"},
    };
    for (const auto& c : cases) {
        CTextStream stream;
        CXmlTextWriter writer(stream);
        writer.SetFormat(false);
        if (*c.defaultNamespace)
            writer.SetDefaultNamespace(c.defaultNamespace);
        for (const auto& binding : c.bindings)
            writer.AddNamespace(binding.first, binding.second);
        Drive(writer, c.script);
        EXPECT_STREQ(c.text, stream.GetText()) << c.script;
    }
}

// An end tag spells the prefix bound when it is written, whether the binding
// changed through AddNamespace or through the map a scope hands out; the
// enclosing element keeps its own.
TEST_F(NamespaceWriter, EndTagFollowsABindingChangedInsideTheElement)
{
    writer.AddNamespace("p", "urn:x");
    writer.WriteStartElement("r", "urn:x");
    writer.WriteStartElement("c", "urn:x");
    writer.WriteString("v", ItemTypeString);
    writer.AddNamespace("q", "urn:x");
    writer.WriteEndElement();
    writer.WriteStartElement("d", "urn:x");
    writer.WriteString("w", ItemTypeString);
    writer.GetCurrentContext()->GetNamespaceMap()["urn:x"] = "z";
    writer.WriteEndElement();
    writer.WriteStartElement("e", "urn:x");
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<p:r xmlns:p=\"urn:x\"><p:c>v</q:c><p:d>w</z:d><z:e/></z:r>", Text());
}

TEST_F(NamespaceWriter, SiblingsEachDeclareTheirNewNamespace)
{
    writer.SetFormat(true);
    Drive(writer, "<r|<a{urn:n}|<b{urn:n}|>|>|<a{urn:n}|'t|>|>");
    EXPECT_EQ("<r>\n"
              "\t<AA:a xmlns:AA=\"urn:n\">\n"
              "\t\t<AA:b/>\n"
              "\t</AA:a>\n"
              "\t<AA:a xmlns:AA=\"urn:n\">t</AA:a>\n"
              "</r>\n",
              Text());
}

TEST_F(NamespaceWriter, TypeAttributeDeclarationIsFollowedByTwoBlanks)
{
    writer.WriteStartElement("r", "");
    writer.WriteAttributeType("urn:t", "T", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<r xmlns:AA=\"urn:t\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:T\"/>",
              Text());
}

TEST_F(NamespaceWriter, TypeAndNilWithKnownOrDefaultNamespace)
{
    writer.AddNamespace("xsi", "http://www.w3.org/2001/XMLSchema-instance");
    writer.AddNamespace("t", "urn:t");
    writer.SetDefaultNamespace("urn:d");
    writer.WriteStartElement("r", "urn:d");
    writer.WriteAttributeType("urn:d", "D", ItemTypeString);
    writer.WriteStartElement("c", "urn:d");
    writer.WriteAttributeType("urn:t", "T", ItemTypeString);
    writer.WriteAttributeType("", "N", ItemTypeString);
    writer.WriteAttributeNil();
    Drive(writer, ">|>");
    EXPECT_EQ("<r xmlns=\"urn:d\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:t=\"urn:t\""
              " xsi:type=\"D\"><c xsi:type=\"t:T\" xsi:type=\"N\" xsi:nil=\"true\"/></r>",
              Text());
}

// Inside an element, bindings steer prefixes of its subtree and declare
// nothing; a second root starts again from the writer's own map.
TEST_F(NamespaceWriter, BindingsInsideAnElementStayInItsSubtree)
{
    Drive(writer, "<r|<a");
    writer.AddNamespace("p", "urn:p");
    writer.SetDefaultNamespace("urn:in");
    Drive(writer, "<c{urn:p}|>|<b{urn:in}|>|>|<c{urn:p}|>|>|<r{urn:p}|>");
    EXPECT_EQ("<r><a><p:c/><b/></a><AA:c xmlns:AA=\"urn:p\"/></r><AA:r xmlns:AA=\"urn:p\"/>", Text());
    EXPECT_EQ(1u, writer.GetNamespaceMap().size());
}

TEST(NamespaceWriterDepth, DeepNamespacedTree)
{
    CTextStream stream;
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    const int depth = 100000;
    for (int i = 0; i < depth; ++i)
        writer.WriteStartElement("e", "urn:deep");
    for (int i = 0; i < depth; ++i)
        writer.WriteEndElement();
    writer.Close();
    const std::string text = stream.GetText();
    EXPECT_EQ(0u, text.find("<AA:e xmlns:AA=\"urn:deep\"><AA:e><AA:e>"));
    // One declaration, then "><AA:e" per level, "/>" and "</AA:e>" per level.
    EXPECT_EQ(25u + 6u * (depth - 1) + 2u + 7u * (depth - 1), text.size());
    EXPECT_EQ(25u + 6u * (depth - 1), text.find("/></AA:e></AA:e>"));
}

// A recycled scope that made a prefix for its element takes it back for the
// next element of that namespace only while the bindings it came from, and
// the map it made, are still what they were.
TEST(NamespaceWriterReuse, MadeBindingsFollowEveryChange)
{
    struct Case {
        const char* name;
        const char* before;
        void (*change)(CXmlTextWriter&);
        const char* after;
        const char* expected;
    };
    const Case cases[] = {
        {"same namespace again", "<r|<a{urn:n}|>", nullptr, "<a{urn:n}|>|<a{urn:n}|>|>",
         "<r><AA:a xmlns:AA=\"urn:n\"/><AA:a xmlns:AA=\"urn:n\"/><AA:a xmlns:AA=\"urn:n\"/></r>"},
        {"another namespace", "<r|<a{urn:n}|>", nullptr, "<a{urn:m}|>|>",
         "<r><AA:a xmlns:AA=\"urn:n\"/><AA:a xmlns:AA=\"urn:m\"/></r>"},
        {"parent binds the namespace", "<r|<a{urn:n}|>",
         [](CXmlTextWriter& w) { w.AddNamespace("p", "urn:n"); }, "<a{urn:n}|>|>",
         "<r><AA:a xmlns:AA=\"urn:n\"/><p:a/></r>"},
        {"parent takes the generated prefix", "<r|<a{urn:n}|>",
         [](CXmlTextWriter& w) { w.AddNamespace("AA", "urn:o"); }, "<a{urn:n}|>|>",
         "<r><AA:a xmlns:AA=\"urn:n\"/><AB:a xmlns:AB=\"urn:n\"/></r>"},
        {"parent gives the generated prefix to a bound namespace", "<r|<a{urn:n}|>",
         [](CXmlTextWriter& w) { w.AddNamespace("AA", CXmlWriter::XML_NAMESPACE); }, "<a{urn:n}|>|>",
         "<r><AA:a xmlns:AA=\"urn:n\"/><AB:a xmlns:AB=\"urn:n\"/></r>"},
        {"parent makes it the default", "<r|<a{urn:n}|>",
         [](CXmlTextWriter& w) { w.SetDefaultNamespace("urn:n"); }, "<a{urn:n}|>|>",
         "<r><AA:a xmlns:AA=\"urn:n\"/><a/></r>"},
        {"element binds more inside", "<r|<a{urn:n}",
         [](CXmlTextWriter& w) { w.AddNamespace("q", "urn:q"); }, ">|<a{urn:n}|<b{urn:q}|>|>|>",
         "<r><AA:a xmlns:AA=\"urn:n\"/><AA:a xmlns:AA=\"urn:n\"><AB:b xmlns:AB=\"urn:q\"/></AA:a></r>"},
        {"under another parent", "<r|<p|<a{urn:n}|>|>",
         nullptr, "<p{urn:n}|<a{urn:n}|>|>|>",
         "<r><p><AA:a xmlns:AA=\"urn:n\"/></p><AA:p xmlns:AA=\"urn:n\"><AA:a/></AA:p></r>"},
    };
    for (const Case& c : cases) {
        CTextStream stream;
        CXmlTextWriter writer(stream);
        writer.SetFormat(false);
        Drive(writer, c.before);
        if (c.change)
            c.change(writer);
        Drive(writer, c.after);
        EXPECT_EQ(c.expected, std::string(stream.GetText())) << c.name;
    }
}
