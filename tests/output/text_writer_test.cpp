#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "WriterScript.h"

using namespace NxXmlLib9;

namespace {

// Records what the writer asks of its stream; optionally drains on flush
// the way a file-backed stream does.
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

    int closes = 0;
    std::vector<unsigned long> flushLengths;
    std::string drained;

private:
    bool m_drain;
};

std::string MessageOf(void (*action)(CXmlTextWriter&), CXmlTextWriter& writer)
{
    try {
        action(writer);
    } catch (const CNxException& e) {
        return e.GetMessage();
    }
    return "(no failure)";
}

struct SampleWriter {
    SampleWriter() : stream(XmlEncodingUTF8), writer(stream) { writer.Open(); }
    std::string Text() const { return stream.GetText(); }

    // Root with an attribute, a text child, an attribute-only child and a
    // child holding another element.
    std::string WriteSampleTree()
    {
        writer.WriteStartDocument();
        Drive(writer, "<root|@id=1|<a|'text|>|<b|@x=y|>|<c|<d|>|>|>");
        writer.Close();
        return Text();
    }

    CTextStream stream;
    CXmlTextWriter writer;
};

struct TextWriter : ::testing::Test, SampleWriter {
};

const char kSampleFormatted[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<root id=\"1\">\n"
    "\t<a>text</a>\n"
    "\t<b x=\"y\"/>\n"
    "\t<c>\n"
    "\t\t<d/>\n"
    "\t</c>\n"
    "</root>\n";

} // namespace

// Formatted with LF by default; unformatted, only the declaration ends its
// line; CR LF ends every line.
TEST(TextWriterLayout, FormatAndLineEnds)
{
    std::string crlf;
    for (const char* p = kSampleFormatted; *p; ++p)
        crlf += *p == '\n' ? std::string("\r\n") : std::string(1, *p);
    const struct {
        bool format;
        EOLType eol;
        std::string text;
    } cases[] = {
        {true, EOLTypeLF, kSampleFormatted},
        {false, EOLTypeLF, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<root id=\"1\"><a>text</a><b x=\"y\"/><c><d/></c></root>"},
        {true, EOLTypeCRLF, crlf},
    };
    for (const auto& c : cases) {
        SampleWriter sample;
        EXPECT_TRUE(sample.writer.GetFormat());
        EXPECT_EQ(EOLTypeLF, sample.writer.GetEOLType());
        sample.writer.SetFormat(c.format);
        sample.writer.SetEOLType(c.eol);
        EXPECT_EQ(c.text, sample.WriteSampleTree());
    }
}

TEST_F(TextWriter, InvalidLineEndTypeIsRefusedAndChangesNothing)
{
    writer.SetEOLType(EOLTypeCRLF);
    EXPECT_EQ("Invalid EOL type.",
              MessageOf([](CXmlTextWriter& w) { w.SetEOLType(static_cast<EOLType>(2)); }, writer));
    EXPECT_EQ(EOLTypeCRLF, writer.GetEOLType());
    writer.WritePI("<?p?>");
    EXPECT_EQ("<?p?>\r\n\r\n", Text());
}

TEST(TextWriterDeclaration, EncodingPseudoAttributeFollowsTheStream)
{
    const char* expected[] = {"<?xml version=\"1.0\"?>\r\n", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n",
                              "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n", "<?xml version=\"1.0\"?>\r\n"};
    for (int encoding = 0; encoding < 4; ++encoding) {
        CTextStream stream(static_cast<XmlEncoding>(encoding));
        CXmlTextWriter writer(stream);
        writer.SetFormat(false);
        writer.SetEOLType(EOLTypeCRLF);
        writer.WriteStartDocument();
        EXPECT_STREQ(expected[encoding], stream.GetText());
    }
}

TEST_F(TextWriter, EscapingInTextAndInAttributes)
{
    const std::string value = "a<b>&\"c'\r\nd\te\xC3\xA9";
    writer.SetFormat(false);
    writer.WriteStartElement("e", "");
    writer.WriteAttributeString("v", "", value, ItemTypeString);
    writer.WriteString(value, ItemTypeString);
    writer.SetEOLType(EOLTypeCRLF);
    writer.WriteString(value, ItemTypeString);
    writer.WriteEndElement();
    EXPECT_EQ("<e v=\"a&lt;b&gt;&amp;&quot;c'&#xA;d\te\xC3\xA9\">"
              "a&lt;b&gt;&amp;&quot;c'\nd\te\xC3\xA9"
              "a&lt;b&gt;&amp;&quot;c'\r\nd\te\xC3\xA9</e>",
              Text());
}

TEST_F(TextWriter, CDataPassesWholeAndEmptyTextLeavesElementSelfClosing)
{
    writer.SetFormat(false);
    Drive(writer, "<e|'<![CDATA[a<b]]> & more <|>|<f|'<![CDATA|>|<g|'|@late=ok|>");
    EXPECT_EQ("<e><![CDATA[a<b]]> & more <</e><f>&lt;![CDATA</f><g late=\"ok\"/>", Text());
}

TEST_F(TextWriter, TextThenChildIndentsChildDirectlyAfterText)
{
    Drive(writer, "<p|'t|<c|>|'u|>");
    EXPECT_EQ("<p>t\t<c/>\nu</p>\n", Text());
}

TEST_F(TextWriter, DirectivesInstructionsAndCommentsAlwaysEndTheLine)
{
    writer.SetFormat(false);
    writer.WriteHeaderDirective("<!DOCTYPE r>");
    writer.WritePI("<?pi x?>");
    writer.WriteComment(" a<b>-- ");
    writer.WriteStartElement("r", "");
    writer.WriteComment("c");  // neither closes the start tag nor counts
    writer.WriteAttributeString("a", "", "1", ItemTypeString);
    writer.WriteInlineSchema("s=\"<x>\"");
    Drive(writer, "'v|>");
    EXPECT_EQ("<!DOCTYPE r>\n<?pi x?>\n\n<!-- a&lt;b&gt;-- -->\n"
              "<r<!--c-->\n a=\"1\" \ns=\"<x>\"\n>v</r>",
              Text());
}

TEST_F(TextWriter, RawElementAfterCloseParentElm)
{
    writer.CloseParentElm();  // nothing open: no effect
    writer.WriteStartElement("r", "");
    writer.CloseParentElm();
    writer.WriteRawElement("<x a='1'>&amp;</x>");
    writer.WriteEndElement();
    writer.SetFormat(false);
    writer.WriteStartElement("r", "");
    writer.CloseParentElm();
    writer.WriteRawElement("<x/>");
    writer.WriteEndElement();
    EXPECT_EQ("<r>\n<x a='1'>&amp;</x>\n</r>\n<r><x/></r>", Text());
}

TEST_F(TextWriter, MisplacedDirectivesAndAttributesFail)
{
    const std::string attributesFirst = "Attributes must be added before elements";
    writer.WriteStartElement("r", "");
    EXPECT_EQ("Headed directives must appear before an Element has been added.",
              MessageOf([](CXmlTextWriter& w) { w.WriteHeaderDirective("<!DOCTYPE r>"); }, writer));
    writer.WriteString("x", ItemTypeString);
    EXPECT_EQ(attributesFirst,
              MessageOf([](CXmlTextWriter& w) { w.WriteAttributeString("a", "", "1", ItemTypeString); }, writer));
    EXPECT_EQ(attributesFirst,
              MessageOf([](CXmlTextWriter& w) { w.WriteAttributeType("urn:t", "T", ItemTypeString); }, writer));
    Drive(writer, "<c|>");
    EXPECT_EQ(attributesFirst, MessageOf([](CXmlTextWriter& w) { w.WriteAttributeNil(); }, writer));
    writer.WriteEndElement();
    EXPECT_THROW(writer.WriteEndElement(), CNxException);
    EXPECT_EQ("<r>x\t<c/>\n</r>\n", Text());
}

TEST(TextWriterClose, CloseClosesTheStreamBeforeReportingAnOpenElement)
{
    RecordingStream stream;
    stream.Append("stale");
    CXmlTextWriter writer(stream);
    writer.Open();
    writer.WriteStartElement("r", "");
    EXPECT_EQ("An Element has not been closed.", MessageOf([](CXmlTextWriter& w) { w.Close(); }, writer));
    EXPECT_EQ(1, stream.closes);
    writer.WriteEndElement();
    writer.Close();
    EXPECT_EQ(2, stream.closes);
    EXPECT_STREQ("<r/>\n", stream.GetText());
}

TEST(TextWriterFlush, FlushIsAskedForOnlyPast4095Characters)
{
    RecordingStream stream;
    CXmlTextWriter writer(stream);
    writer.SetFormat(false);
    writer.WriteStartElement("r", "");                           // "<r": 2
    writer.WriteString(std::string(4092, 'x'), ItemTypeString);  // 4095
    EXPECT_TRUE(stream.flushLengths.empty());
    writer.WriteString("y", ItemTypeString);
    EXPECT_EQ(std::vector<unsigned long>{4096}, stream.flushLengths);
    writer.WriteRawElement("<z/>");  // never checks
    EXPECT_EQ(1u, stream.flushLengths.size());

    // Every other operation checks.
    writer.WriteComment("c");
    writer.WritePI("<?p?>");
    writer.WriteStartElement("s", "");
    writer.WriteAttributeString("a", "", "1", ItemTypeString);
    writer.WriteAttributeNil();
    writer.WriteInlineSchema("i");
    writer.WriteEndElement();
    writer.WriteEndElement();
    EXPECT_EQ(9u, stream.flushLengths.size());
}

TEST(TextWriterFlush, DrainingStreamReceivesTheWholeDocument)
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
    EXPECT_EQ(std::string(memory.GetText()), draining.drained + draining.GetText());
}

TEST(TextWriterDepth, DeepTreeLeftOpenIsReleased)
{
    CTextStream stream;
    {
        CXmlTextWriter writer(stream);
        writer.SetFormat(false);
        for (int i = 0; i < 200000; ++i)
            writer.WriteStartElement("e", "");
    }
    EXPECT_EQ(2ul + 3ul * 199999ul, stream.GetLength());
}
