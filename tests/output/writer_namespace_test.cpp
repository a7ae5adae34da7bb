#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace NxXmlLib9;

namespace {

typedef CXmlWriter::CXmlWriterContext Scope;
typedef CXmlWriter::NamespaceMap NamespaceMap;

const char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";

struct NamespaceWriter : ::testing::Test {
    NamespaceWriter() : writer(stream) { writer.Open(); }
    std::string Text() const { return stream.GetText(); }

    CTextStream stream;
    CXmlTextWriter writer;
};

} // namespace

TEST(PrefixGenerationTest, TwoCharactersCountingFromAA)
{
    EXPECT_EQ("AA", CXmlWriter::NsIntToString(0));
    EXPECT_EQ("AB", CXmlWriter::NsIntToString(1));
    EXPECT_EQ("AZ", CXmlWriter::NsIntToString(25));
    EXPECT_EQ("BA", CXmlWriter::NsIntToString(26));
    EXPECT_EQ("ZZ", CXmlWriter::NsIntToString(675));
    EXPECT_EQ("[A", CXmlWriter::NsIntToString(676));
}

TEST(PrefixGenerationTest, UniquePrefixSkipsPrefixValuesNotUris)
{
    NamespaceMap map;
    EXPECT_EQ("AA", CXmlWriter::GetUniquePrefix(map));
    map["AB"] = "x";
    map["urn:a"] = "AA";
    EXPECT_EQ("AB", CXmlWriter::GetUniquePrefix(map));
    map["urn:b"] = "AB";
    map["urn:c"] = "AD";
    EXPECT_EQ("AC", CXmlWriter::GetUniquePrefix(map));
    EXPECT_EQ(4u, map.size()) << "nothing is added";
}

TEST(PrefixGenerationTest, XmlNamespaceConstant)
{
    EXPECT_EQ("http://www.w3.org/XML/1998/namespace", CXmlWriter::XML_NAMESPACE);
    CTextStream stream;
    CXmlTextWriter writer(stream);
    ASSERT_EQ(1u, writer.GetNamespaceMap().size());
    EXPECT_EQ("xml", writer.GetNamespaceMap().at(CXmlWriter::XML_NAMESPACE));
}

TEST(WriterScopeTest, RootScopeSnapshotsTheGivenMap)
{
    NamespaceMap source;
    source["urn:a"] = "a";
    Scope root("r", "", "urn:d", source, nullptr);
    source["urn:b"] = "b";
    EXPECT_EQ(1u, root.GetNamespaceMap().size());
    EXPECT_EQ("urn:d", root.GetDefaultNamespace());
    EXPECT_EQ(0u, root.GetDepth());
    EXPECT_FALSE(root.InheritsNamespaces());
    EXPECT_TRUE(root.OwnsMap());
    EXPECT_TRUE(root.IsStartTagOpen());
}

TEST(WriterScopeTest, ChildrenShareTheMapUntilTheyDeclare)
{
    NamespaceMap source;
    source["urn:a"] = "a";
    auto root = std::make_unique<Scope>("r", "", "urn:d", source, nullptr);
    std::vector<Scope*> chain{root.get()};
    for (int i = 0; i < 50; ++i)
        chain.push_back(new Scope("e", "", chain.back()));
    Scope* deepest = chain.back();
    EXPECT_EQ(50u, deepest->GetDepth());
    EXPECT_TRUE(deepest->InheritsNamespaces());
    EXPECT_FALSE(deepest->OwnsMap());
    EXPECT_EQ(&root->GetNamespaceMap(), &deepest->GetNamespaceMap());
    EXPECT_EQ("urn:d", deepest->GetDefaultNamespace());

    // A declaration in the middle reaches its subtree, not its ancestors.
    Scope* middle = chain[20];
    middle->SetNamespaceMapValue("urn:m", "m");
    EXPECT_TRUE(middle->OwnsMap());
    EXPECT_FALSE(middle->InheritsNamespaces());
    EXPECT_EQ("urn:d", middle->GetDefaultNamespace()) << "inherited default is copied";
    EXPECT_EQ(&middle->GetNamespaceMap(), &deepest->GetNamespaceMap());
    EXPECT_EQ("m", deepest->GetNamespaceMap().at("urn:m"));
    EXPECT_EQ("a", deepest->GetNamespaceMap().at("urn:a"));
    EXPECT_EQ(0u, root->GetNamespaceMap().count("urn:m"));
    EXPECT_EQ(&root->GetNamespaceMap(), &chain[19]->GetNamespaceMap());

    chain[30]->SetDefaultNamespace("urn:other");
    EXPECT_EQ("urn:other", deepest->GetDefaultNamespace());
    EXPECT_EQ("urn:d", chain[29]->GetDefaultNamespace());
    EXPECT_EQ("m", deepest->GetNamespaceMap().at("urn:m")) << "map copied on a default change";

    // Destroying the innermost scope takes the whole chain with it.
    root.release();
    delete deepest;
}

TEST(WriterScopeTest, LookupMissInsertsAnEmptyPrefixIntoTheEffectiveMap)
{
    NamespaceMap source;
    Scope root("r", "", "", source, nullptr);
    Scope attached("c", "", &root);
    EXPECT_EQ("", attached.GetNamespaceMapValue("urn:missing"));
    EXPECT_EQ(1u, root.GetNamespaceMap().count("urn:missing"));
    EXPECT_TRUE(attached.InheritsNamespaces());
    EXPECT_EQ("", attached.GetNamespaceMapValue(static_cast<const char*>(nullptr)));
    // The root lives on the stack here: keep the child from destroying it.
    attached.DetachParent();
}

TEST_F(NamespaceWriter, RootDeclarationOrder)
{
    writer.AddNamespace("z", "http://a");
    writer.AddNamespace("y", "http://b");
    writer.AddNamespace("ext", CXmlWriter::XML_NAMESPACE + "/extension");
    writer.SetDefaultNamespace("http://d");
    writer.WriteStartElement("root", "http://new");
    writer.WriteEndElement();
    EXPECT_EQ("<AA:root xmlns:AA=\"http://new\" xmlns=\"http://d\" xmlns:z=\"http://a\" "
              "xmlns:y=\"http://b\"/>\n",
              Text());
    EXPECT_EQ(0u, writer.GetNamespaceMap().count("http://new")) << "generated in the root scope only";
}

TEST_F(NamespaceWriter, RootInTheDefaultNamespaceIsUnprefixed)
{
    writer.SetDefaultNamespace("urn:d");
    writer.WriteStartElement("r", "urn:d");
    writer.WriteStartElement("bare", "");
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<r xmlns=\"urn:d\">\n\t<bare/>\n</r>\n", Text());
}

TEST_F(NamespaceWriter, KnownPrefixIsUsedOnStartAndEndTags)
{
    writer.AddNamespace("p", "urn:x");
    writer.WriteStartElement("r", "urn:x");
    writer.WriteStartElement("c", "urn:x");
    writer.WriteString("v", ItemTypeString);
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<p:r xmlns:p=\"urn:x\">\n\t<p:c>v</p:c>\n</p:r>\n", Text());
}

TEST_F(NamespaceWriter, SecondPrefixForAUriReplacesTheFirst)
{
    writer.AddNamespace("p", "urn:x");
    writer.AddNamespace("q", "urn:x");
    writer.WriteStartElement("r", "urn:x");
    writer.WriteEndElement();
    EXPECT_EQ("<q:r xmlns:q=\"urn:x\"/>\n", Text());
}

TEST_F(NamespaceWriter, GeneratedPrefixSkipsOneAlreadyBound)
{
    writer.AddNamespace("AA", "urn:other");
    writer.WriteStartElement("r", "urn:n");
    writer.WriteEndElement();
    EXPECT_EQ("<AB:r xmlns:AB=\"urn:n\" xmlns:AA=\"urn:other\"/>\n", Text());
}

TEST_F(NamespaceWriter, SiblingsEachDeclareTheirNewNamespace)
{
    writer.WriteStartElement("r", "");
    writer.WriteStartElement("a", "urn:n");
    writer.WriteStartElement("b", "urn:n");
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteStartElement("a", "urn:n");
    writer.WriteString("t", ItemTypeString);
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<r>\n"
              "\t<AA:a xmlns:AA=\"urn:n\">\n"
              "\t\t<AA:b/>\n"
              "\t</AA:a>\n"
              "\t<AA:a xmlns:AA=\"urn:n\">t</AA:a>\n"
              "</r>\n",
              Text());
}

TEST_F(NamespaceWriter, AttributeInTheDefaultNamespaceStillTakesAPrefix)
{
    writer.SetFormat(false);
    writer.SetDefaultNamespace("urn:d");
    writer.WriteStartElement("r", "urn:d");
    writer.WriteAttributeString("a", "urn:d", "1", ItemTypeString);
    writer.WriteAttributeString("b", "urn:d", "2", ItemTypeString);
    writer.WriteAttributeString("lang", CXmlWriter::XML_NAMESPACE, "en", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<r xmlns=\"urn:d\" xmlns:AA=\"urn:d\" AA:a=\"1\" AA:b=\"2\" xml:lang=\"en\"/>", Text());
}

TEST_F(NamespaceWriter, TypeAttributeDeclarationIsFollowedByTwoBlanks)
{
    writer.SetFormat(false);
    writer.WriteStartElement("r", "");
    writer.WriteAttributeType("urn:t", "T", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<r xmlns:AA=\"urn:t\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "AB:type=\"AA:T\"/>",
              Text());
}

TEST_F(NamespaceWriter, TypeAttributeWithKnownOrDefaultNamespace)
{
    writer.SetFormat(false);
    writer.AddNamespace("xsi", kXsi);
    writer.AddNamespace("t", "urn:t");
    writer.SetDefaultNamespace("urn:d");
    writer.WriteStartElement("r", "urn:d");
    writer.WriteAttributeType("urn:d", "D", ItemTypeString);
    writer.WriteStartElement("c", "urn:d");
    writer.WriteAttributeType("urn:t", "T", ItemTypeString);
    writer.WriteAttributeType("", "N", ItemTypeString);
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<r xmlns=\"urn:d\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:t=\"urn:t\""
              " xsi:type=\"D\"><c xsi:type=\"t:T\" xsi:type=\"N\"/></r>",
              Text());
}

TEST_F(NamespaceWriter, ScopeDeclarationsAfterTheRootStartSteerPrefixesOnly)
{
    writer.SetFormat(false);
    writer.WriteStartElement("r", "");
    writer.AddNamespace("p", "urn:p");
    writer.WriteStartElement("c", "urn:p");
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteStartElement("r", "urn:p");
    writer.WriteEndElement();
    EXPECT_EQ("<r><p:c/></r><AA:r xmlns:AA=\"urn:p\"/>", Text());
    EXPECT_EQ(1u, writer.GetNamespaceMap().size());
}

TEST_F(NamespaceWriter, DefaultNamespaceSetInsideAnElementAppliesToItsSubtree)
{
    writer.SetFormat(false);
    writer.WriteStartElement("r", "");
    writer.WriteStartElement("a", "");
    writer.SetDefaultNamespace("urn:in");
    writer.WriteStartElement("b", "urn:in");
    writer.WriteEndElement();
    writer.WriteEndElement();
    writer.WriteStartElement("b", "urn:in");
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ("<r><a><b/></a><AA:b xmlns:AA=\"urn:in\"/></r>", Text());
}

TEST(NamespaceWriterDepthTest, DeepNamespacedTreeStaysLinear)
{
    CTextStream stream;
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.SetFormat(false);
    const int depth = 100000;
    for (int i = 0; i < depth; ++i)
        writer.WriteStartElement("e", "urn:deep");
    for (int i = 0; i < depth; ++i)
        writer.WriteEndElement();
    writer.Close();
    const std::string text = stream.GetText();
    EXPECT_EQ(0u, text.find("<AA:e xmlns:AA=\"urn:deep\"><AA:e><AA:e>"));
    EXPECT_EQ(text.size() - 7, text.rfind("</AA:e>"));
}
