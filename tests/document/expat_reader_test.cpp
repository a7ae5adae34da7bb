#include "DocumentTestSupport.h"

#include <set>
#include <stdexcept>

using namespace NxXmlLib9;
using NxTest::ChildNames;
using NxTest::FailureOf;
using NxTest::ParseFailure;

namespace {

const char* const XML_NAMESPACE = "http://www.w3.org/XML/1998/namespace";

CXmlSerializationContext WithSchemaType(SchemaType type)
{
    CXmlSerializationContext context;
    context.SetSchemaType(type);
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

// Drops the elements named "r", remembering where each one lived.
std::set<const CXmlElement*> g_dropped;

bool DropRecords(CXmlElement* element)
{
    if (element->GetLocalName() != "r")
        return false;
    g_dropped.insert(element);
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

TEST(ExpatReaderNamespaces, DeclarationsFeedAFlatMapAndNeverShowAsAttributes)
{
    CXmlDocument document;
    document.LoadXml("<a xmlns:p='urn:1' xmlns='urn:d' x='1' xml:lang='en'>"
                     "<b xmlns:p='urn:2' xmlns:deep='urn:deep'/><c xmlns=''/><p:d/></a>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ("urn:d", root->GetNamespaceURI());
    ASSERT_EQ(2u, root->GetAttributes().size());
    EXPECT_EQ("", root->GetAttributes()[0]->GetNamespaceURI());
    // xml:lang comes with the XML namespace, which nothing declares.
    EXPECT_EQ("en", root->GetAttribute("lang", XML_NAMESPACE));
    EXPECT_EQ("", document.LookupNamespaceFromAlias("xml"));
    // The elements follow the scopes; the map keeps the last declaration
    // of each alias for the whole document, and an undeclared default
    // stands as an empty URI.
    EXPECT_EQ("urn:d", root->GetFirstElement()->GetNamespaceURI());
    EXPECT_EQ("", root->GetFirstElement()->GetNextSiblingElement()->GetNamespaceURI());
    EXPECT_EQ("urn:1", root->GetFirstElement()->GetNextSiblingElement()->GetNextSiblingElement()->GetNamespaceURI());
    EXPECT_EQ("urn:2", document.LookupNamespaceFromAlias("p"));
    EXPECT_EQ("urn:deep", document.LookupNamespaceFromAlias("deep"));
    EXPECT_EQ("", document.LookupNamespaceFromAlias(""));
}

TEST(ExpatReaderNamespaces, NamespaceFreeModeIsSampledWhenTheDocumentIsMade)
{
    CXmlSerializationContext context = WithSchemaType(SchemaTypeNoNamespaces);
    CXmlDocument document(context);
    context.SetSchemaType(SchemaTypeDefault);
    CXmlDocument namespaced(context);
    context.SetSchemaType(SchemaTypeNoNamespaces);

    const char* const xml = "<p:a xmlns:p='urn:p' xmlns='urn:d' p:x='1'><q:b/></p:a>";
    document.LoadXml(xml);
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ("p:a", root->GetLocalName());
    EXPECT_EQ("", root->GetNamespaceURI());
    ASSERT_EQ(3u, root->GetAttributes().size());
    EXPECT_EQ("xmlns:p", root->GetAttributes()[0]->GetLocalName());
    EXPECT_EQ("urn:p", root->GetAttributes()[0]->GetValue());
    EXPECT_EQ("xmlns", root->GetAttributes()[1]->GetLocalName());
    EXPECT_EQ("p:x", root->GetAttributes()[2]->GetLocalName());
    // The undeclared prefix q is no error here, and the map stays empty.
    EXPECT_EQ("q:b", root->GetFirstElement()->GetLocalName());
    EXPECT_EQ("", document.LookupNamespaceFromAlias("p"));

    EXPECT_EQ("unbound prefix at line 1", FailureOf([&] { namespaced.LoadXml(xml); }));
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

    // Without a context of its own, a document reads the default one when
    // it parses.
    CXmlDocument byDefault;
    CXmlSerializationContext::m_defaultContext.SetStripCDATA(false);
    byDefault.LoadXml("<a><![CDATA[x]]></a>");
    CXmlSerializationContext::m_defaultContext.SetStripCDATA(true);
    EXPECT_EQ("<![CDATA[x]]>", byDefault.GetDocumentElement()->GetText());
}

TEST(ExpatReaderText, NamesAndTextArriveInTheLocalCodePage)
{
    const std::string long_text(600, 'n');
    const std::string xml = "<\xC3\xA9l\xC3\xA9ment attr\xC3\xA9='\xE2\x82\xAC'>caf\xC3\xA9 \xF0\x9F\x98\x80" +
                            long_text + "\xC3\xA9</\xC3\xA9l\xC3\xA9ment>";
    {
        ScopedCType locale("C");
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        const CXmlElement* root = document.GetDocumentElement();
        EXPECT_EQ("?l?ment", root->GetLocalName());
        EXPECT_EQ("caf? ?" + long_text + "?", root->GetText());
        EXPECT_EQ("?", root->GetAttribute("attr?", ""));
    }
    {
        REQUIRE_UTF8_LOCALE(locale);
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        const CXmlElement* root = document.GetDocumentElement();
        EXPECT_EQ("\xC3\xA9l\xC3\xA9ment", root->GetLocalName());
        EXPECT_EQ("caf\xC3\xA9 \xF0\x9F\x98\x80" + long_text + "\xC3\xA9", root->GetText());
        EXPECT_EQ("\xE2\x82\xAC", root->GetAttribute("attr\xC3\xA9", ""));
    }
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

    // Dropping everything keeps the root, which has no parent, and its text.
    const CXmlSerializationContext context = KeepCDATA();
    CXmlDocument emptied(DropAll, context);
    emptied.LoadXml("<r>1<a><b/></a>2<c/><![CDATA[3]]></r>");
    EXPECT_EQ(nullptr, emptied.GetDocumentElement()->GetFirstElement());
    EXPECT_EQ("12<![CDATA[3]]>", emptied.GetDocumentElement()->GetText());
}

TEST(ExpatReaderFilter, WhatTheFilterDropsMakesRoomForWhatFollows)
{
    // A document consumed record by record keeps its memory small: each
    // dropped record, children and attributes included, makes room for the
    // next, so the records come and go in the same few places.
    std::string xml = "<all>";
    for (int i = 0; i < 1000; ++i)
        xml += "<r a='1'><f>the text of one record</f></r>";
    g_dropped.clear();
    CXmlDocument document(DropRecords);
    document.LoadXml((xml + "</all>").c_str());
    EXPECT_EQ(nullptr, document.GetDocumentElement()->GetFirstElement());
    EXPECT_LE(g_dropped.size(), 2u);
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

    // The root ends last, with nothing left for the parser to stop.
    EXPECT_THROW(document.LoadXml("<bad>root</bad>"), CNxInvalidValueException);

    CXmlDocument other(ThrowStandard);
    EXPECT_THROW(other.LoadXml("<r><a/></r>"), std::runtime_error);
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
}

TEST(ExpatReaderFailures, DamagedInputOfAnyKindFailsCleanly)
{
    const std::string xml =
        "<?xml version='1.0'?><p:r xmlns:p='urn:p' a='1'><!-- c --><b>t&amp;&#65;</b><![CDATA[x]]><c/></p:r>";
    const CXmlSerializationContext context = KeepCDATA();
    for (size_t length = 1; length < xml.size(); ++length) {
        CXmlDocument document(context);
        const std::string cut = xml.substr(0, length);
        EXPECT_NE("", FailureOf([&] { document.LoadXml(cut.c_str()); })) << cut;
    }
    // Bytes changed at random: whatever the parser makes of them, the
    // result is a tree or a CNxException.
    unsigned state = 7;
    for (int round = 0; round < 2000; ++round) {
        std::string damaged = xml;
        for (int change = 0; change < 3; ++change) {
            state = state * 1103515245u + 12345u;
            damaged[(state >> 8) % damaged.size()] = static_cast<char>(state >> 24);
        }
        CXmlDocument document(context);
        try {
            document.LoadXmlStream(reinterpret_cast<unsigned char*>(&damaged[0]), damaged.size());
        } catch (const CNxException&) {
        }
    }
}

TEST(ExpatReaderFailures, InputLongerThanOneSliceParsesAsAWhole)
{
    // The input reaches the parser in slices; text, elements and the line
    // of an error must come out whole across them.
    const int lines = 100000;
    std::string xml = "<r>";
    for (int i = 0; i < lines; ++i)
        xml += "<l>0123456789012345678901234567890123456789</l>\n";
    CXmlDocument document;
    document.LoadXml((xml + "</r>").c_str());
    int count = 0;
    for (const CXmlElement* line = document.GetDocumentElement()->GetFirstElement(); line;
         line = line->GetNextSiblingElement())
        ++count;
    EXPECT_EQ(lines, count);
    EXPECT_EQ(static_cast<size_t>(lines), document.GetDocumentElement()->GetText().size());
    EXPECT_EQ("mismatched tag at line 100001", ParseFailure((xml + "</x>").c_str()));
    // The slices before the tail and the tail itself both count lines: an
    // error early, in the middle, and late in the input names its own line.
    const size_t lineLength = xml.size() / lines;
    for (int line : {2, 50000, 70000, 99000}) {
        std::string broken = xml + "</r>";
        broken.replace(3 + (line - 1) * lineLength + 1, 1, "x");
        EXPECT_EQ(FormatString("mismatched tag at line %d", line), ParseFailure(broken.c_str())) << line;
    }
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
    {
        CExpatReader reader(document);
        reader.CreateParser();
        reader.CreateParser();
        // Not final: the parser waits for more and stays alive; the final
        // parse takes the whole input again.
        reader.Parse(false);
        EXPECT_EQ("no element found at line 3", FailureOf([&] { reader.Parse(true); }));
        EXPECT_THROW(reader.Parse(true), CNxInvalidStateException);
    }
    {
        CExpatReader reader(document);
        reader.CreateParser();
        reader.Parse(false);
        // The destructor frees the parser left alive.
    }
    // A narrow string is parsed in place and not kept after a load that
    // succeeded; a byte stream is.
    document.LoadXml("<a>1</a>");
    EXPECT_EQ(nullptr, document.GetInputBuffer());
    std::string bytes = "<a>1</a>";
    document.LoadXmlStream(reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size());
    // Feeding a document that already has a root fails inside a callback;
    // the failure comes out of Parse.
    CExpatReader reader(document);
    reader.CreateParser();
    EXPECT_THROW(reader.Parse(true), CNxInvalidStateException);
    EXPECT_EQ("1", document.GetDocumentElement()->GetText());
}
