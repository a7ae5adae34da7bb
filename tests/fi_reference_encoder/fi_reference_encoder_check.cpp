// Reads what the reference codec encoded: every document gives from its
// binary form the tree that its XML text gives, through the SAX and the
// StAX serializer alike, and a bound class reads the same object from
// either. Where this library's reader differs from the standard by design,
// the difference is pinned. Usage: fi_reference_encoder_check DIRECTORY.
#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "PersonClasses.h"

#include <clocale>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace NxXmlLib9;

namespace {

std::string g_directory;

std::string ReadFile(const std::string& name)
{
    std::ifstream file(g_directory + "/" + name, std::ios::binary);
    if (!file)
        throw std::runtime_error("missing " + name);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::vector<std::string> Manifest()
{
    std::vector<std::string> names;
    std::istringstream lines(ReadFile("manifest.txt"));
    for (std::string line; std::getline(lines, line);)
        if (!line.empty())
            names.push_back(line);
    return names;
}

void LoadBytes(CXmlDocument& document, const std::string& bytes)
{
    document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                           static_cast<unsigned long>(bytes.size()));
}

// Compares two trees without recursion (one document nests thousands deep).
void ExpectSameTree(const CXmlElement* expected, const CXmlElement* actual)
{
    std::vector<std::pair<const CXmlElement*, const CXmlElement*>> pending{{expected, actual}};
    while (!pending.empty()) {
        auto [left, right] = pending.back();
        pending.pop_back();
        ASSERT_EQ(left == nullptr, right == nullptr);
        if (!left)
            continue;
        SCOPED_TRACE("element " + left->GetLocalName());
        EXPECT_EQ(left->GetLocalName(), right->GetLocalName());
        EXPECT_EQ(left->GetNamespaceURI(), right->GetNamespaceURI());
        EXPECT_EQ(left->GetText(), right->GetText());
        ASSERT_EQ(left->GetAttributes().size(), right->GetAttributes().size());
        for (size_t i = 0; i < left->GetAttributes().size(); ++i) {
            const CXmlAttribute& a = *left->GetAttributes()[i];
            const CXmlAttribute& b = *right->GetAttributes()[i];
            EXPECT_EQ(a.GetLocalName() + "|" + a.GetNamespaceURI() + "=" + a.GetValue(),
                      b.GetLocalName() + "|" + b.GetNamespaceURI() + "=" + b.GetValue());
        }
        const CXmlElement* l = left->GetFirstElement();
        const CXmlElement* r = right->GetFirstElement();
        for (; l && r; l = l->GetNextSiblingElement(), r = r->GetNextSiblingElement())
            pending.emplace_back(l, r);
        EXPECT_EQ(l == nullptr, r == nullptr) << "children differ in number";
    }
}

// Every alias the text declares, and the default namespace.
std::set<std::string> DeclaredAliases(const std::string& xml)
{
    std::set<std::string> aliases{""};
    const std::regex declaration("xmlns:([A-Za-z_][A-Za-z0-9_.-]*)");
    for (std::sregex_iterator it(xml.begin(), xml.end(), declaration), end; it != end; ++it)
        aliases.insert((*it)[1]);
    return aliases;
}

} // namespace

TEST(FastInfosetReference, EveryEncodedDocumentGivesTheTreeOfItsText)
{
    const std::vector<std::string> names = Manifest();
    ASSERT_GE(names.size(), 6u);
    for (const std::string& name : names) {
        const std::string xml = ReadFile(name + ".xml");
        CXmlDocument text;
        text.LoadXml(xml.c_str());
        for (const char* serializer : {"sax", "stax"}) {
            SCOPED_TRACE(name + " by " + serializer);
            const std::string bytes = ReadFile(name + "." + serializer + ".fi");
            CXmlDocument binary;
            LoadBytes(binary, bytes);
            // Known limit: a document type declaration ends the read before
            // the root, with no failure. Only the SAX serializer writes one.
            if (name == "doctype" && std::string(serializer) == "sax") {
                EXPECT_EQ(binary.GetDocumentElement(), nullptr);
                continue;
            }
            ASSERT_NE(binary.GetDocumentElement(), nullptr);
            ExpectSameTree(text.GetDocumentElement(), binary.GetDocumentElement());
            for (const std::string& alias : DeclaredAliases(xml))
                EXPECT_EQ(text.LookupNamespaceFromAlias(alias.c_str()), binary.LookupNamespaceFromAlias(alias.c_str()))
                    << "alias " << alias;
        }
    }
}

TEST(FastInfosetReference, APersonReadsTheSameFromTextAndFromEitherEncoding)
{
    const std::string xml = ReadFile("person.xml");
    NxXmlLib9::CSmartPtr<NxTest::Person> fromText(new NxTest::Person());
    fromText->FromXml(xml.c_str());
    ASSERT_EQ(fromText->Name, "Ann Lee");
    ASSERT_EQ(fromText->PhoneTexts().size(), 3u);
    const std::string expected = fromText->ToXml(false, false);
    for (const char* serializer : {"sax", "stax"}) {
        SCOPED_TRACE(serializer);
        const std::string file = g_directory + "/person." + serializer + ".fi";
        const std::string bytes = ReadFile(std::string("person.") + serializer + ".fi");
        NxXmlLib9::CSmartPtr<NxTest::Person> fromStream(new NxTest::Person());
        fromStream->FromXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                                  static_cast<unsigned long>(bytes.size()));
        EXPECT_EQ(fromStream->ToXml(false, false), expected);
        NxXmlLib9::CSmartPtr<NxTest::Person> fromFile(new NxTest::Person());
        fromFile->FromXmlFile(file.c_str());
        EXPECT_EQ(fromFile->ToXml(false, false), expected);
    }
}

// Known limit: strings in UTF-16 are recognised but not read.
TEST(FastInfosetReference, Utf16StringsAreRefusedWithTheStandardLogicError)
{
    CXmlDocument document;
    EXPECT_THROW(LoadBytes(document, ReadFile("limit_utf16.fi")), std::logic_error);
}

// Integers, doubles and the numeric alphabet read back as their text; a
// float does not (known limit): its value is rebuilt from its first octet.
TEST(FastInfosetReference, TypedContentReadsBackExceptFloats)
{
    CXmlDocument document;
    LoadBytes(document, ReadFile("limit_typed.fi"));
    std::vector<std::string> texts;
    for (const CXmlElement* e = document.GetDocumentElement()->GetFirstElement(); e; e = e->GetNextSiblingElement())
        texts.push_back(e->GetLocalName() + "=" + e->GetText());
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0], "i=42 -1");
    EXPECT_EQ(texts[1], "d=1.5");
    EXPECT_EQ(texts[2], "n=-12.5 7");
    // 1.5f is 3F C0 00 00; its first octet repeated, 3F 3F 3F 3F, is about 0.747.
    EXPECT_EQ(texts[3].substr(0, 6), "f=0.74");
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: fi_reference_encoder_check DIRECTORY\n");
        return 2;
    }
    g_directory = argv[1];
    RegisterGeneratorVersion(9, 0);
    // Non-ASCII text compares as itself rather than as '?' on both sides.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return RUN_ALL_TESTS();
}
