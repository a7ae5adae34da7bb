#include "DocumentTestSupport.h"

#include <cstring>
#include <stdexcept>
#include <vector>

using namespace NxXmlLib9;
using NxTest::ChildNames;
using NxTest::FailureOf;
using NxTest::ParseFailure;

namespace {

const char* const XML_NAMESPACE = "http://www.w3.org/XML/1998/namespace";

CXmlSerializationContext NoNamespaces()
{
    CXmlSerializationContext context;
    context.SetSchemaType(SchemaTypeNoNamespaces);
    return context;
}

CXmlSerializationContext KeepCDATA()
{
    CXmlSerializationContext context;
    context.SetStripCDATA(false);
    return context;
}

// Records what the filter is shown, and drops the elements named "drop".
std::vector<std::string> g_shown;

bool DropNamedDrop(CXmlElement* element)
{
    g_shown.push_back(element->GetLocalName() + "=" + element->GetText() + "/" + ChildNames(element));
    return element->GetLocalName() == "drop";
}

bool DropAll(CXmlElement*)
{
    return true;
}

bool ThrowAtBad(CXmlElement* element)
{
    if (element->GetLocalName() == "bad")
        throw CNxInvalidValueException("bad element " + element->GetText());
    return false;
}

bool ThrowStandard(CXmlElement*)
{
    throw std::runtime_error("filter failed");
}

} // namespace

TEST(ExpatReaderNamespaces, DefaultNamespaceAppliesToElementsAndNotToAttributes)
{
    CXmlDocument document;
    document.LoadXml("<a xmlns='urn:d' x='1' xml:lang='en'><b/></a>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ("urn:d", root->GetNamespaceURI());
    EXPECT_EQ("urn:d", root->GetFirstElement()->GetNamespaceURI());
    // Declarations are not attributes; xml:lang comes with the XML
    // namespace, which no declaration or map entry supplies.
    ASSERT_EQ(2u, root->GetAttributes().size());
    EXPECT_EQ("", root->GetAttributes()[0]->GetNamespaceURI());
    EXPECT_EQ("lang", root->GetAttributes()[1]->GetLocalName());
    EXPECT_EQ(XML_NAMESPACE, root->GetAttributes()[1]->GetNamespaceURI());
    EXPECT_EQ("en", root->GetAttribute("lang", XML_NAMESPACE));
    EXPECT_EQ("", document.LookupNamespaceFromAlias("xml"));
}

TEST(ExpatReaderNamespaces, ThePrefixMapIsFlatAndKeepsTheLastDeclaration)
{
    CXmlDocument document;
    document.LoadXml("<a xmlns:p='urn:1' xmlns='urn:d'>"
                     "<b xmlns:p='urn:2' xmlns:deep='urn:deep'/>"
                     "<c xmlns=''/>"
                     "<p:d/>"
                     "</a>");
    // Later declarations win for the whole document, out of their scope
    // too, and an undeclared default stands as an empty URI.
    EXPECT_EQ("urn:2", document.LookupNamespaceFromAlias("p"));
    EXPECT_EQ("urn:deep", document.LookupNamespaceFromAlias("deep"));
    EXPECT_EQ("", document.LookupNamespaceFromAlias(""));
    EXPECT_EQ("", document.LookupNamespaceFromAlias(nullptr));
    // The elements themselves follow the scoping of the parser.
    const CXmlElement* b = document.GetDocumentElement()->GetFirstElement();
    EXPECT_EQ("urn:d", b->GetNamespaceURI());
    EXPECT_EQ("", b->GetNextSiblingElement()->GetNamespaceURI());
    EXPECT_EQ("urn:1", b->GetNextSiblingElement()->GetNextSiblingElement()->GetNamespaceURI());
}

TEST(ExpatReaderNamespaces, NamespaceFreeModeKeepsNamesWholeAndDeclarationsAsAttributes)
{
    const CXmlSerializationContext context = NoNamespaces();
    CXmlDocument document(context);
    document.LoadXml("<p:a xmlns:p='urn:p' xmlns='urn:d' p:x='1'><q:b/></p:a>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ("p:a", root->GetLocalName());
    EXPECT_EQ("", root->GetNamespaceURI());
    ASSERT_EQ(3u, root->GetAttributes().size());
    EXPECT_EQ("xmlns:p", root->GetAttributes()[0]->GetLocalName());
    EXPECT_EQ("urn:p", root->GetAttributes()[0]->GetValue());
    EXPECT_EQ("xmlns", root->GetAttributes()[1]->GetLocalName());
    EXPECT_EQ("p:x", root->GetAttributes()[2]->GetLocalName());
    EXPECT_EQ("", root->GetAttributes()[2]->GetNamespaceURI());
    // The undeclared prefix q is no error here, and the map stays empty.
    EXPECT_EQ("q:b", root->GetFirstElement()->GetLocalName());
    EXPECT_EQ("", document.LookupNamespaceFromAlias("p"));

    EXPECT_EQ("unbound prefix at line 2", ParseFailure("<a>\n<q:b/></a>"));
}

TEST(ExpatReaderNamespaces, TheSchemaTypeIsSampledWhenTheDocumentIsMade)
{
    CXmlSerializationContext context = NoNamespaces();
    CXmlDocument namespaceFree(context);
    context.SetSchemaType(SchemaTypeDefault);
    CXmlDocument namespaced(context);
    context.SetSchemaType(SchemaTypeNoNamespaces);

    namespaceFree.LoadXml("<p:a xmlns:p='urn:p'/>");
    EXPECT_EQ("p:a", namespaceFree.GetDocumentElement()->GetLocalName());
    namespaced.LoadXml("<p:a xmlns:p='urn:p'/>");
    EXPECT_EQ("a", namespaced.GetDocumentElement()->GetLocalName());
    EXPECT_EQ("urn:p", namespaced.GetDocumentElement()->GetNamespaceURI());
}

TEST(ExpatReaderText, CDATAIsPlainTextUnlessStrippingIsOff)
{
    const char* const xml = "<a>x<![CDATA[<y> & \r\nz]]>w<![CDATA[]]></a>";
    CXmlDocument stripped;
    stripped.LoadXml(xml);
    EXPECT_EQ("x<y> & \nzw", stripped.GetDocumentElement()->GetText());

    const CXmlSerializationContext context = KeepCDATA();
    CXmlDocument kept(context);
    kept.LoadXml(xml);
    EXPECT_EQ("x<![CDATA[<y> & \nz]]>w<![CDATA[]]>", kept.GetDocumentElement()->GetText());
    kept.LoadXml("<a><![CDATA[x]]></a>");
    EXPECT_EQ("<![CDATA[x]]>", kept.GetDocumentElement()->GetText());
}

TEST(ExpatReaderText, DocumentsMadeWithoutAContextReadTheDefaultOneAtParseTime)
{
    CXmlDocument document;
    CXmlSerializationContext::m_defaultContext.SetStripCDATA(false);
    document.LoadXml("<a><![CDATA[x]]></a>");
    CXmlSerializationContext::m_defaultContext.SetStripCDATA(true);
    EXPECT_EQ("<![CDATA[x]]>", document.GetDocumentElement()->GetText());
    document.LoadXml("<a><![CDATA[x]]></a>");
    EXPECT_EQ("x", document.GetDocumentElement()->GetText());
}

TEST(ExpatReaderText, NamesAndTextArriveInTheLocalCodePage)
{
    const char* const xml = "<\xC3\xA9l\xC3\xA9ment attr\xC3\xA9='\xE2\x82\xAC'>caf\xC3\xA9 \xF0\x9F\x98\x80</\xC3\xA9l\xC3\xA9ment>";
    {
        NxTest::ScopedLocale locale("C");
        CXmlDocument document;
        document.LoadXml(xml);
        const CXmlElement* root = document.GetDocumentElement();
        EXPECT_EQ("?l?ment", root->GetLocalName());
        EXPECT_EQ("caf? ?", root->GetText());
        EXPECT_EQ("?", root->GetAttribute("attr?", ""));
    }
    {
        NxTest::ScopedLocale locale("C.UTF-8");
        ASSERT_TRUE(locale.Active());
        CXmlDocument document;
        document.LoadXml(xml);
        const CXmlElement* root = document.GetDocumentElement();
        EXPECT_EQ("\xC3\xA9l\xC3\xA9ment", root->GetLocalName());
        EXPECT_EQ("caf\xC3\xA9 \xF0\x9F\x98\x80", root->GetText());
        EXPECT_EQ("\xE2\x82\xAC", root->GetAttribute("attr\xC3\xA9", ""));
    }
}

TEST(ExpatReaderText, LongNamesAndTextOutgrowTheScratchBuffer)
{
    NxTest::ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.Active());
    std::string name(700, 'n');
    name += "\xC3\xA9";
    std::string text;
    for (int i = 0; i < 400; ++i)
        text += "\xE2\x82\xAC";
    const std::string xml = "<" + name + " xmlns='urn:" + name + "'>" + text + "</" + name + ">";
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    EXPECT_EQ(name, document.GetDocumentElement()->GetLocalName());
    EXPECT_EQ("urn:" + name, document.GetDocumentElement()->GetNamespaceURI());
    EXPECT_EQ(text, document.GetDocumentElement()->GetText());
}

TEST(ExpatReaderFilter, TheFilterSeesFinishedElementsChildrenFirstAndDropsThem)
{
    g_shown.clear();
    CXmlDocument document(DropNamedDrop);
    document.LoadXml("<r>a<drop>x<k/></drop>b<keep t='1'>y</keep><drop/>c</r>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ("keep", ChildNames(root));
    EXPECT_EQ("abc", root->GetText());
    EXPECT_EQ("1", root->GetFirstElement()->GetAttribute("t", ""));
    const std::vector<std::string> expected = {"k=/", "drop=x/k", "keep=y/", "drop=/", "r=abc/keep"};
    EXPECT_EQ(expected, g_shown);
}

TEST(ExpatReaderFilter, DroppingEverythingKeepsTheRootAndItsText)
{
    const CXmlSerializationContext context = KeepCDATA();
    CXmlDocument document(DropAll, context);
    document.LoadXml("<r>1<a><b/></a>2<c/><![CDATA[3]]></r>");
    EXPECT_EQ(nullptr, document.GetDocumentElement()->GetFirstElement());
    EXPECT_EQ("12<![CDATA[3]]>", document.GetDocumentElement()->GetText());
}

TEST(ExpatReaderFilter, AFailureInsideTheParsePassesOutUnchanged)
{
    CXmlDocument document(ThrowAtBad);
    try {
        document.LoadXml("<r><ok/><bad>why</bad><never/></r>");
        FAIL() << "nothing thrown";
    } catch (const CNxInvalidValueException& failure) {
        EXPECT_EQ("bad element why", failure.GetMessage());
    }
    // The parse stopped at the failure.
    EXPECT_EQ("ok,bad", ChildNames(document.GetDocumentElement()));

    CXmlDocument other(ThrowStandard);
    EXPECT_THROW(other.LoadXml("<r><a/></r>"), std::runtime_error);
    document.LoadXml("<r><ok/></r>");
    EXPECT_EQ("ok", ChildNames(document.GetDocumentElement()));
}

TEST(ExpatReaderFailures, MalformedInputGivesTheParsersTextAndLine)
{
    EXPECT_EQ("mismatched tag at line 3", ParseFailure("<a>\n<b>\n</a>"));
    EXPECT_EQ("no element found at line 1", ParseFailure("<a>"));
    EXPECT_EQ("not well-formed (invalid token) at line 2", ParseFailure("<a>\n&</a>"));
    EXPECT_EQ("syntax error at line 1", ParseFailure("just text"));
    EXPECT_EQ("duplicate attribute at line 1", ParseFailure("<a x='1' x='2'/>"));
    EXPECT_EQ("junk after document element at line 1", ParseFailure("<a/><b/>"));
    EXPECT_EQ("undefined entity at line 1", ParseFailure("<a>&nope;</a>"));
    EXPECT_EQ("reference to invalid character number at line 1", ParseFailure("<a>&#0;</a>"));

    CXmlDocument document;
    unsigned char binary[] = {0x1F, 0x8B, 0x08, 0x00, 0x00};
    EXPECT_EQ("not well-formed (invalid token) at line 1",
              FailureOf([&] { document.LoadXmlStream(binary, sizeof binary); }));
}

TEST(ExpatReaderFailures, EveryTruncationOfADocumentFailsCleanly)
{
    const std::string xml =
        "<?xml version='1.0'?><p:r xmlns:p='urn:p' a='1'><!-- c --><b>t&amp;&#65;</b><![CDATA[x]]><c/></p:r>";
    const CXmlSerializationContext context = KeepCDATA();
    for (size_t length = 1; length < xml.size(); ++length) {
        CXmlDocument document(context);
        const std::string cut = xml.substr(0, length);
        EXPECT_NE("", FailureOf([&] { document.LoadXml(cut.c_str()); })) << cut;
    }
}

TEST(ExpatReaderFailures, InputLongerThanOneSliceParsesAsAWhole)
{
    // Ten megabytes of lines cross the slices in which the input reaches
    // the parser; text, element count and error line must come out whole.
    const int lines = 200000;
    std::string xml = "<r>";
    for (int i = 0; i < lines; ++i)
        xml += "<l>0123456789012345678901234567890123456789</l>\n";
    std::string text;
    CXmlDocument document;
    document.LoadXml((xml + "</r>").c_str());
    int count = 0;
    for (const CXmlElement* line = document.GetDocumentElement()->GetFirstElement(); line;
         line = line->GetNextSiblingElement())
        ++count;
    EXPECT_EQ(lines, count);
    EXPECT_EQ(static_cast<size_t>(lines), document.GetDocumentElement()->GetText().size());
    EXPECT_EQ("mismatched tag at line 200001", ParseFailure((xml + "</x>").c_str()));
}

TEST(ExpatReaderDirect, AReaderServesOneParse)
{
    CXmlDocument document;
    {
        CExpatReader reader(document);
        EXPECT_THROW(reader.Parse(true), CNxInvalidStateException);
    }

    // A prolog alone is a failed load that keeps its input and has no root.
    EXPECT_EQ("no element found at line 2", FailureOf([&] { document.LoadXml("<!-- c -->\n"); }));
    ASSERT_EQ(nullptr, document.GetDocumentElement());
    {
        CExpatReader reader(document);
        reader.CreateParser();
        // Not final: the parser waits for more, and stays alive.
        reader.Parse(false);
        // The whole input goes in again.
        EXPECT_EQ("no element found at line 3", FailureOf([&] { reader.Parse(true); }));
        EXPECT_THROW(reader.Parse(true), CNxInvalidStateException);
    }
    {
        CExpatReader reader(document);
        reader.CreateParser();
        reader.CreateParser();
        reader.Parse(false);
        // The destructor frees the parser left alive.
    }

    // Feeding a document that already has a root fails inside a callback;
    // the failure comes out of Parse once the parser is freed.
    document.LoadXml("<a>1</a>");
    CExpatReader reader(document);
    reader.CreateParser();
    EXPECT_THROW(reader.Parse(true), CNxInvalidStateException);
    EXPECT_THROW(reader.Parse(true), CNxInvalidStateException);
    EXPECT_EQ("1", document.GetDocumentElement()->GetText());
}
