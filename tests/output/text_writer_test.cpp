#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace NxXmlLib9;

namespace {

// Records what the writer asks of its stream.
class RecordingStream : public CTextStream {
public:
    explicit RecordingStream(bool drain = false) : m_drain(drain) {}
    void Close() override { ++closes; }
    void Flush() override
    {
        flushLengths.push_back(GetLength());
        if (m_drain) {
            drained += GetText();
            m_buffer.Empty();
        }
    }
    std::string All() const { return drained + GetText(); }

    int closes = 0;
    std::vector<unsigned long> flushLengths;
    std::string drained;

private:
    bool m_drain;
};

struct WriterFixture : ::testing::Test {
    WriterFixture() : stream(XmlEncodingUTF8), writer(stream) { writer.Open(); }
    std::string Text() const { return stream.GetText(); }

    // Root with an attribute, a text child, an attribute-only child and a
    // child holding another element.
    void WriteSampleTree()
    {
        writer.WriteStartDocument();
        writer.WriteStartElement("root", "");
        writer.WriteAttributeString("id", "", "1", ItemTypeString);
        writer.WriteStartElement("a", "");
        writer.WriteString("text", ItemTypeString);
        writer.WriteEndElement();
        writer.WriteStartElement("b", "");
        writer.WriteAttributeString("x", "", "y", ItemTypeString);
        writer.WriteEndElement();
        writer.WriteStartElement("c", "");
        writer.WriteStartElement("d", "");
        writer.WriteEndElement();
        writer.WriteEndElement();
        writer.WriteEndElement();
        writer.Close();
    }

    void ExpectFailure(const std::string& message, void (*action)(CXmlTextWriter&))
    {
        try {
            action(writer);
            ADD_FAILURE() << "expected: " << message;
        } catch (const CNxException& e) {
            EXPECT_EQ(message, e.GetMessage());
        }
    }

    CTextStream stream;
    CXmlTextWriter writer;
};

const char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";

} // namespace

TEST_F(WriterFixture, DefaultsAreFormattedWithLineFeeds)
{
    EXPECT_TRUE(writer.GetFormat());
    EXPECT_EQ(EOLTypeLF, writer.GetEOLType());
}

TEST_F(WriterFixture, FormattedTree)
{
    WriteSampleTree();
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<root id=\"1\">\n"
              "\t<a>text</a>\n"
              "\t<b x=\"y\"/>\n"
              "\t<c>\n"
              "\t\t<d/>\n"
              "\t</c>\n"
              "</root>\n",
              Text());
}

TEST_F(WriterFixture, UnformattedTreeHasOnlyTheDeclarationLineEnd)
{
    writer.SetFormat(false);
    WriteSampleTree();
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<root id=\"1\"><a>text</a><b x=\"y\"/><c><d/></c></root>",
              Text());
}

TEST_F(WriterFixture, FormattedTreeWithCarriageReturns)
{
    writer.SetEOLType(EOLTypeCRLF);
    EXPECT_EQ(EOLTypeCRLF, writer.GetEOLType());
    WriteSampleTree();
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
              "<root id=\"1\">\r\n"
              "\t<a>text</a>\r\n"
              "\t<b x=\"y\"/>\r\n"
              "\t<c>\r\n"
              "\t\t<d/>\r\n"
              "\t</c>\r\n"
              "</root>\r\n",
              Text());
}

TEST_F(WriterFixture, InvalidLineEndTypeIsRefusedAndChangesNothing)
{
    writer.SetEOLType(EOLTypeCRLF);
    ExpectFailure("Invalid EOL type.", [](CXmlTextWriter& w) { w.SetEOLType(static_cast<EOLType>(2)); });
    EXPECT_EQ(EOLTypeCRLF, writer.GetEOLType());
    writer.WritePI("<?p?>");
    EXPECT_EQ("<?p?>\r\n\r\n", Text());
}

TEST(TextWriterDeclarationTest, EncodingPseudoAttributeFollowsTheStream)
{
    const struct {
        XmlEncoding encoding;
        const char* expected;
    } cases[] = {
        {XmlEncodingNone, "<?xml version=\"1.0\"?>\n"},
        {XmlEncodingUTF8, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"},
        {XmlEncodingUTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"},
        {XmlEncodingUnicode, "<?xml version=\"1.0\"?>\n"},
    };
    for (const auto& c : cases) {
        CTextStream stream(c.encoding);
        CXmlTextWriter writer(stream);
        writer.Open();
        writer.SetFormat(false);
        writer.WriteStartDocument();
        EXPECT_STREQ(c.expected, stream.GetText());
    }
}

TEST_F(WriterFixture, TextEscapesMarkupQuotesAndDropsCarriageReturns)
{
    writer.WriteStartElement("e", "");
    writer.WriteString("a<b>&\"c'\r\nd\te\xC3\xA9", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<e>a&lt;b&gt;&amp;&quot;c'\nd\te\xC3\xA9</e>\n", Text());
}

TEST_F(WriterFixture, TextLineFeedBecomesCrLfUnderCrLf)
{
    writer.SetFormat(false);
    writer.SetEOLType(EOLTypeCRLF);
    writer.WriteStartElement("e", "");
    writer.WriteString("1\r\n2\n3", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<e>1\r\n2\r\n3</e>", Text());
}

TEST_F(WriterFixture, AttributeValueEscapesLineFeedAsReference)
{
    writer.SetEOLType(EOLTypeCRLF);
    writer.WriteStartElement("e", "");
    writer.WriteAttributeString("v", "", "a<b>&\"c'\r\nd\te", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<e v=\"a&lt;b&gt;&amp;&quot;c'&#xA;d\te\"/>\r\n", Text());
}

TEST_F(WriterFixture, CDataStringPassesThroughWhole)
{
    writer.SetFormat(false);
    writer.WriteStartElement("e", "");
    writer.WriteString("<![CDATA[a<b]]> & more <", ItemTypeString);
    writer.WriteEndElement();
    writer.WriteStartElement("f", "");
    writer.WriteString("<![CDATA", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<e><![CDATA[a<b]]> & more <</e><f>&lt;![CDATA</f>", Text());
}

TEST_F(WriterFixture, EmptyStringLeavesElementSelfClosing)
{
    writer.WriteStartElement("e", "");
    writer.WriteString("", ItemTypeString);
    writer.WriteAttributeString("late", "", "ok", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<e late=\"ok\"/>\n", Text());
}

TEST_F(WriterFixture, TextThenChildIndentsChildDirectlyAfterText)
{
    writer.WriteStartElement("p", "");
    writer.WriteString("t", ItemTypeString);
    writer.WriteStartElement("c", "");
    writer.WriteEndElement();
    writer.WriteString("u", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<p>t\t<c/>\nu</p>\n", Text());
}

TEST_F(WriterFixture, CommentsAndInstructionsAlwaysEndTheLine)
{
    writer.SetFormat(false);
    writer.WriteHeaderDirective("<!DOCTYPE r>");
    writer.WritePI("<?pi x?>");
    writer.WriteComment(" a<b>-- ");
    writer.WriteStartElement("r", "");
    writer.WriteString("x", ItemTypeString);
    writer.WriteComment("c");
    writer.WriteEndElement();
    EXPECT_EQ("<!DOCTYPE r>\n<?pi x?>\n\n<!-- a&lt;b&gt;-- -->\n<r>x<!--c-->\n</r>", Text());
}

TEST_F(WriterFixture, CommentNeitherClosesStartTagNorCountsAsChild)
{
    writer.WriteStartElement("r", "");
    writer.WriteComment("c");
    writer.WriteEndElement();
    EXPECT_EQ("<r<!--c-->\n/>\n", Text());
}

TEST_F(WriterFixture, InlineSchemaLandsInsideTheOpenStartTag)
{
    writer.WriteStartElement("r", "");
    writer.WriteAttributeString("a", "", "1", ItemTypeString);
    writer.WriteInlineSchema("s=\"<x>\"");
    writer.WriteString("v", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<r a=\"1\" \ns=\"<x>\"\n>v</r>\n", Text());
}

TEST_F(WriterFixture, RawElementAfterCloseParentElm)
{
    writer.WriteStartElement("r", "");
    writer.CloseParentElm();
    writer.WriteRawElement("<x a='1'>&amp;</x>");
    writer.WriteEndElement();
    EXPECT_EQ("<r>\n<x a='1'>&amp;</x>\n</r>\n", Text());

    CTextStream flat;
    CXmlTextWriter unformatted(flat);
    unformatted.Open();
    unformatted.SetFormat(false);
    unformatted.CloseParentElm();  // nothing open: no effect
    unformatted.WriteStartElement("r", "");
    unformatted.CloseParentElm();
    unformatted.WriteRawElement("<x/>");
    unformatted.WriteEndElement();
    EXPECT_STREQ("<r><x/></r>", flat.GetText());
}

TEST_F(WriterFixture, HeaderDirectiveAfterRootStartFails)
{
    writer.WriteStartElement("r", "");
    ExpectFailure("Headed directives must appear before an Element has been added.",
                  [](CXmlTextWriter& w) { w.WriteHeaderDirective("<!DOCTYPE r>"); });
    EXPECT_EQ("<r", Text());
}

TEST_F(WriterFixture, AttributesAfterContentFail)
{
    const std::string message = "Attributes must be added before elements";
    writer.WriteStartElement("r", "");
    writer.WriteString("x", ItemTypeString);
    ExpectFailure(message, [](CXmlTextWriter& w) { w.WriteAttributeString("a", "", "1", ItemTypeString); });
    ExpectFailure(message, [](CXmlTextWriter& w) { w.WriteAttributeType("urn:t", "T", ItemTypeString); });
    ExpectFailure(message, [](CXmlTextWriter& w) { w.WriteAttributeNil(); });
    writer.WriteStartElement("c", "");
    writer.WriteEndElement();
    ExpectFailure(message, [](CXmlTextWriter& w) { w.WriteAttributeString("a", "", "1", ItemTypeString); });
    writer.WriteEndElement();
    ExpectFailure(message, [](CXmlTextWriter& w) { w.WriteAttributeNil(); });
    EXPECT_EQ("<r>x\t<c/>\n</r>\n", Text());
}

TEST(TextWriterCloseTest, CloseClosesTheStreamBeforeReportingAnOpenElement)
{
    RecordingStream stream;
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.WriteStartElement("r", "");
    try {
        writer.Close();
        ADD_FAILURE() << "Close must fail with an open element";
    } catch (const CNxException& e) {
        EXPECT_EQ("An Element has not been closed.", e.GetMessage());
    }
    EXPECT_EQ(1, stream.closes);

    writer.WriteEndElement();
    writer.Close();
    EXPECT_EQ(2, stream.closes);
    EXPECT_STREQ("<r/>\n", stream.GetText());
}

TEST(TextWriterCloseTest, OpenEmptiesAReusedStream)
{
    CTextStream stream;
    stream.Append("stale");
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.WriteStartElement("r", "");
    writer.WriteEndElement();
    EXPECT_STREQ("<r/>\n", stream.GetText());
}

TEST(TextWriterFlushTest, FlushIsAskedForOnlyPast4095Characters)
{
    RecordingStream stream;
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.SetFormat(false);
    writer.WriteStartElement("r", "");            // "<r": 2
    writer.WriteString(std::string(4092, 'x'), ItemTypeString);  // ">" + 4092: 4095
    EXPECT_TRUE(stream.flushLengths.empty());
    writer.WriteString("y", ItemTypeString);       // 4096
    ASSERT_EQ(1u, stream.flushLengths.size());
    EXPECT_EQ(4096ul, stream.flushLengths[0]);

    // Raw markup never asks for a flush; the next checked operation does.
    writer.WriteRawElement("<z/>");
    EXPECT_EQ(1u, stream.flushLengths.size());
    writer.WriteEndElement();
    EXPECT_EQ(2u, stream.flushLengths.size());
}

TEST(TextWriterFlushTest, EveryCheckedOperationFlushesAStreamThatStaysFull)
{
    RecordingStream stream;
    CXmlTextWriter writer(stream);
    writer.Open();
    stream.Append(std::string(5000, ' '));
    writer.WriteStartDocument();
    writer.WriteHeaderDirective("<!DOCTYPE r>");
    writer.WritePI("<?p?>");
    writer.WriteComment("c");
    writer.WriteStartElement("r", "");
    writer.WriteAttributeString("a", "", "1", ItemTypeString);
    writer.WriteAttributeNil();
    writer.WriteInlineSchema("s");
    writer.WriteString("t", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ(10u, stream.flushLengths.size());
}

// A stream that drains on every flush ends with the same text as one that
// keeps it all.
TEST(TextWriterFlushTest, DrainingStreamReceivesTheWholeDocument)
{
    CTextStream memory;
    RecordingStream draining(true);
    CXmlTextWriter whole(memory);
    CXmlTextWriter drained(draining);
    for (CXmlTextWriter* w : {&whole, &drained}) {
        w->Open();
        w->WriteStartDocument();
        w->WriteStartElement("list", "urn:list");
        for (int i = 0; i < 2000; ++i) {
            w->WriteStartElement("item", "urn:list");
            w->WriteAttributeString("n", "", std::to_string(i), ItemTypeI4);
            w->WriteString("value & <" + std::to_string(i) + ">", ItemTypeString);
            w->WriteEndElement();
        }
        w->WriteEndElement();
        w->Close();
    }
    EXPECT_GT(draining.flushLengths.size(), 10u);
    for (unsigned long length : draining.flushLengths)
        EXPECT_GT(length, 4095ul);
    EXPECT_EQ(std::string(memory.GetText()), draining.All());
    EXPECT_LT(draining.GetLength(), 4096ul);
}

TEST_F(WriterFixture, NilAttributeUsesTheInstanceNamespace)
{
    writer.AddNamespace("xsi", kXsi);
    writer.WriteStartElement("r", "");
    writer.WriteAttributeNil();
    writer.WriteEndElement();
    EXPECT_EQ("<r xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:nil=\"true\"/>\n", Text());
}

TEST_F(WriterFixture, SecondRootDeclaresAgain)
{
    writer.SetFormat(false);
    writer.AddNamespace("p", "urn:p");
    writer.WriteStartElement("r", "");
    writer.WriteEndElement();
    writer.WriteStartElement("r", "urn:p");
    writer.WriteString("x", ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<r xmlns:p=\"urn:p\"/><p:r xmlns:p=\"urn:p\">x</p:r>", Text());
}

TEST(TextWriterDepthTest, DeepTreeLeftOpenIsReleased)
{
    CTextStream stream;
    {
        CXmlTextWriter writer(stream);
        writer.Open();
        writer.SetFormat(false);
        for (int i = 0; i < 200000; ++i)
            writer.WriteStartElement("e", "");
    }
    EXPECT_EQ(2ul + 3ul * 199999ul, stream.GetLength());
}

TEST(TextWriterDepthTest, EndWithoutOpenElementIsRefused)
{
    CTextStream stream;
    CXmlTextWriter writer(stream);
    writer.Open();
    EXPECT_THROW(writer.WriteEndElement(), CNxException);
    EXPECT_STREQ("", stream.GetText());
}
