#include "DocumentTestSupport.h"

#include <cstring>

using namespace NxXmlLib9;
using NxTest::ChildNames;
using NxTest::FailureOf;

namespace {

const char* const NAMESPACED =
    "<p:root xmlns:p='urn:p' xmlns='urn:d'><child a='1' p:b='2' c='3'/><p:other/></p:root>";

void ExpectNamespacedTree(const CXmlDocument& document)
{
    const CXmlElement* root = document.GetDocumentElement();
    ASSERT_NE(nullptr, root);
    EXPECT_EQ("root", root->GetLocalName());
    EXPECT_EQ("urn:p", root->GetNamespaceURI());
    EXPECT_TRUE(root->GetAttributes().empty());
    EXPECT_EQ("child,other", ChildNames(root));

    const CXmlElement* child = root->GetFirstElement();
    EXPECT_EQ("urn:d", child->GetNamespaceURI());
    EXPECT_EQ(&document, child->GetDocument());
    const std::vector<CXmlAttribute*>& attributes = child->GetAttributes();
    ASSERT_EQ(3u, attributes.size());
    EXPECT_EQ("a", attributes[0]->GetLocalName());
    EXPECT_EQ("", attributes[0]->GetNamespaceURI());
    EXPECT_EQ("b", attributes[1]->GetLocalName());
    EXPECT_EQ("urn:p", attributes[1]->GetNamespaceURI());
    EXPECT_EQ("2", attributes[1]->GetValue());
    EXPECT_EQ("c", attributes[2]->GetLocalName());
    EXPECT_EQ("urn:p", child->GetNextSiblingElement()->GetNamespaceURI());

    EXPECT_EQ("urn:p", document.LookupNamespaceFromAlias("p"));
    EXPECT_EQ("urn:d", document.LookupNamespaceFromAlias(""));
    EXPECT_EQ("", document.LookupNamespaceFromAlias("q"));
}

} // namespace

TEST(XmlDocumentLoad, EveryInputKindGivesTheSameTree)
{
    CXmlDocument document;
    document.LoadXml(NAMESPACED);
    ExpectNamespacedTree(document);

    const std::wstring wide(NAMESPACED, NAMESPACED + std::strlen(NAMESPACED));
    document.LoadXml(wide.c_str());
    ExpectNamespacedTree(document);
    // UTF-16 little-endian behind a byte order mark.
    ASSERT_EQ(2 * wide.size() + 2, document.GetInputSize());
    EXPECT_EQ(0, std::memcmp("\xFF\xFE<\0p\0", document.GetInputBuffer(), 6));

    std::string bytes = NAMESPACED;
    document.LoadXmlStream(reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size());
    ExpectNamespacedTree(document);

    NxTest::TempFile file(NAMESPACED);
    document.Load(file.Path().c_str());
    ExpectNamespacedTree(document);

    document.Cleanup();
    EXPECT_EQ(nullptr, document.GetDocumentElement());
    EXPECT_EQ(nullptr, document.GetInputBuffer());
    EXPECT_EQ("", document.LookupNamespaceFromAlias("p"));
}

TEST(XmlDocumentLoad, WideTextIsCutToSixteenBitUnits)
{
    REQUIRE_UTF8_LOCALE(locale);
    CXmlDocument document;
    // U+1F600 reaches the parser as the single unit 0xF600.
    document.LoadXml(L"<a>\U0001F600\u00e9</a>");
    EXPECT_EQ("\xEF\x98\x80\xC3\xA9", document.GetDocumentElement()->GetText());
    // The byte order mark decides; a declaration naming UTF-8 contradicts it.
    EXPECT_EQ("encoding specified in XML declaration is incorrect at line 1",
              FailureOf([&] { document.LoadXml(L"<?xml version='1.0' encoding='UTF-8'?><b/>"); }));
}

TEST(XmlDocumentLoad, EachLoadFailsWithItsOwnMessage)
{
    CXmlDocument document;
    EXPECT_EQ("XML String is empty!", FailureOf([&] { document.LoadXml(""); }));
    EXPECT_EQ("XML String is empty!", FailureOf([&] { document.LoadXml(static_cast<const char*>(nullptr)); }));
    EXPECT_EQ("XML String is empty!", FailureOf([&] { document.LoadXml(L""); }));
    unsigned char byte = '<';
    EXPECT_EQ("XML Stream is empty!", FailureOf([&] { document.LoadXmlStream(&byte, 0); }));
    EXPECT_EQ("XML Stream is empty!", FailureOf([&] { document.LoadXmlStream(nullptr, 4); }));

    const std::string missing = "/tmp/nxxml_no_such_dir/none.xml";
    EXPECT_EQ("Failed to open the file [" + missing + "]", FailureOf([&] { document.Load(missing.c_str()); }));
    // An empty file fails on its read, not as an empty input.
    NxTest::TempFile empty("");
    EXPECT_EQ("Failed to read the contents of the file [" + empty.Path() + "] Error [0]",
              FailureOf([&] { document.Load(empty.Path().c_str()); }));
    EXPECT_EQ(0u, FailureOf([&] { document.Load("/tmp"); }).find("Failed to read the contents of the file [/tmp] Error ["));
}

TEST(XmlDocumentLoad, AFailedLoadKeepsThePartialTreeUntilTheNextLoad)
{
    CXmlDocument document;
    EXPECT_EQ("mismatched tag at line 2", FailureOf([&] { document.LoadXml("<a><b/><c>\n</a>"); }));
    ASSERT_NE(nullptr, document.GetDocumentElement());
    EXPECT_EQ("b,c", ChildNames(document.GetDocumentElement()));
    document.LoadXml("<z>text</z>");
    EXPECT_EQ("", ChildNames(document.GetDocumentElement()));
    EXPECT_EQ("text", document.GetDocumentElement()->GetText());
}

TEST(XmlDocumentText, TextAroundChildrenConcatenatesWithoutCarriageReturns)
{
    CXmlDocument document;
    document.LoadXml("<?pi?><!-- c --><a>x<b>inner</b>y\r\n <c/> z&#13;&#13;!<!-- c --><?pi?>&#10;</a>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ("xy\n  z!\n", root->GetText());
    EXPECT_EQ("inner", root->GetFirstElement()->GetText());
    EXPECT_EQ("", root->GetFirstElement()->GetNextSiblingElement()->GetText());
    // Attribute values are not filtered.
    document.LoadXml("<a v='1&#13;2'/>");
    EXPECT_EQ("1\r2", document.GetDocumentElement()->GetAttribute("v", ""));
}

TEST(XmlDocumentText, AppendTextExcludingCRStopsAtLengthOrTerminator)
{
    CXmlElement element(nullptr);
    CXmlDocument::AppendTextExcludingCR(&element, "\rab\r\rcd\ref", 6);
    CXmlDocument::AppendTextExcludingCR(&element, "g\rh\0ij", 6);
    CXmlDocument::AppendTextExcludingCR(&element, "k\r");
    CXmlDocument::AppendTextExcludingCR(&element, "zzz", 0);
    EXPECT_EQ("abcghk", element.GetText());
}

TEST(XmlDocumentText, TextGrowsGeometricallyAndGivesBackItsSpareCapacity)
{
    CXmlElement element(nullptr);
    int reallocations = 0;
    size_t capacity = 0;
    for (int i = 0; i < 1000000; ++i) {
        element.AppendText("yz", i % 2 + 1);
        if (element.GetText().capacity() != capacity) {
            capacity = element.GetText().capacity();
            ++reallocations;
        }
    }
    EXPECT_EQ(1500000u, element.GetText().size());
    EXPECT_LT(reallocations, 25);

    // Each line arrives as a piece of its own; once the element has ended,
    // its text keeps little spare room.
    std::string lines;
    for (int i = 0; i < 40; ++i)
        lines += std::string(100, 'a') + "\n";
    CXmlDocument document;
    document.LoadXml(("<r><p>" + lines + "</p></r>").c_str());
    const std::string& text = document.GetDocumentElement()->GetFirstElement()->GetText();
    EXPECT_EQ(lines, text);
    EXPECT_LT(text.capacity(), text.size() + text.size() / 4 + 64);
}

TEST(XmlElement, ChildListAndAttributes)
{
    CXmlElement parent(nullptr);
    EXPECT_EQ(nullptr, parent.RemoveLastChildElement());
    for (const char* name : {"first", "second", "third"})
        parent.CreateNewChildElement()->SetElementName(name);
    delete parent.RemoveLastChildElement();
    // The new last child takes the next append.
    parent.CreateNewChildElement()->SetElementName("fourth");
    EXPECT_EQ("first,second,fourth", ChildNames(&parent));
    for (int i = 0; i < 3; ++i)
        delete parent.RemoveLastChildElement();
    parent.CreateNewChildElement()->SetElementName("again");
    EXPECT_EQ("again", ChildNames(&parent));

    parent.AddAttribute("n", "one", "u");
    parent.AddAttribute("n", "two", "u");
    parent.AddAttribute("n", "three", "");
    EXPECT_EQ("one", parent.GetAttribute("n", "u"));
    EXPECT_EQ("three", parent.GetAttribute("n", ""));
    EXPECT_EQ("", parent.GetAttribute("m", "u"));
}

TEST(XmlAttribute, NamespaceAndNilAttributesAreTestedOnTheNameAndNamespacePair)
{
    const char* const instance = "http://www.w3.org/2001/XMLSchema-instance";
    const char* const xmlns = "http://www.w3.org/2000/xmlns/";
    for (const char* name : {"xmlns", "type", "schemaLocation", "noNamespaceSchemaLocation"}) {
        EXPECT_TRUE(CXmlAttribute(name, "v", instance).IsNamespaceAttribute()) << name;
        EXPECT_TRUE(CXmlAttribute(name, "v", xmlns).IsNamespaceAttribute()) << name;
        EXPECT_FALSE(CXmlAttribute(name, "v", "").IsNamespaceAttribute()) << name;
        EXPECT_FALSE(CXmlAttribute(name, "v", instance).IsNilAttribute()) << name;
    }
    EXPECT_FALSE(CXmlAttribute("nil", "true", instance).IsNamespaceAttribute());
    EXPECT_TRUE(CXmlAttribute("nil", "true", instance).IsNilAttribute());
    EXPECT_TRUE(CXmlAttribute("nil", "true", xmlns).IsNilAttribute());
    EXPECT_FALSE(CXmlAttribute("nil", "true", "urn:other").IsNilAttribute());
}

TEST(XmlDocumentFeeding, MisuseOfTheOpenElementStackIsRefused)
{
    CXmlDocument document;
    EXPECT_THROW(document.AddChildElement("", "a"), CNxInvalidStateException);
    EXPECT_THROW(document.EndElement(), CNxInvalidStateException);
    CXmlElement* root = document.AddDocElement("u", "root");
    document.AddChildElement("", "child");
    document.EndElement();
    document.EndElement();
    EXPECT_EQ("child", ChildNames(root));
    EXPECT_THROW(document.AddChildElement("", "late"), CNxInvalidStateException);
}
