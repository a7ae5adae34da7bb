#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "../output/WriterScript.h"
#include "fi_writer_support.h"

using namespace NxXmlLib9;
using fi_writer_test::SpacedHex;
using fi_writer_test::Written;
using fi_writer_test::WrittenBeforeFailure;

namespace {

const ItemType S = ItemTypeString;
const char kHead[] = "E0 00 00 01 00 ";
// The root's namespace attribute list, empty but for its terminator.
const char kRootNs[] = "38 F0 ";

std::string Doc(const std::string& body)
{
    return kHead + body;
}

} // namespace

TEST(FastInfosetWriterDocument, ElementShapes)
{
    struct Case {
        const char* name;
        std::string script; // see Drive
        std::function<void(CFastInfosetWriter&)> more;
        std::string bytes;
    };
    const Case cases[] = {
        {"text in the root", "<a|'x|>", nullptr, Doc("38 F0 3C 00 61 90 78 FF")},
        {"empty root", "<a|>", nullptr, Doc("38 F0 3C 00 61 FF")},
        {"root attributes: the bit rides on the namespace octet", "<a|@b=c|>", nullptr,
         Doc("78 F0 3C 00 61 78 00 62 40 63 F0 FF")},
        {"child attributes then text", "<a|<b|@c=d|'t|>|>", nullptr,
         Doc("38 F0 3C 00 61 7C 00 62 78 00 63 40 64 F0 90 74 FF F0")},
        {"siblings of one name: literal, then index", "<a|<b|>|<b|>|>", nullptr,
         Doc("38 F0 3C 00 61 3C 00 62 F0 01 FF F0")},
        {"repeated attribute name and short value go by index", "<a|<b|@c=v|>|<b|@c=v|>|>", nullptr,
         Doc("38 F0 3C 00 61 7C 00 62 78 00 63 40 76 F0 F0 41 00 80 F0 FF F0")},
        {"text after a child lands inside it", "<a|<b|>|'x|>", nullptr, Doc("38 F0 3C 00 61 3C 00 62 90 78 FF F0")},
        {"comments and inline schema write nothing", "<a",
         [](CFastInfosetWriter& w) {
             w.WriteComment("c");
             w.WriteInlineSchema("<s/>");
             w.WriteEndElement();
         },
         Doc("38 F0 3C 00 61 FF")},
        {"an instruction flushes the head without the attribute bit", "<a",
         [](CFastInfosetWriter& w) {
             w.WritePI("<?p?>");
             Drive(w, "@b=c|>");
         },
         Doc("38 F0 3C 00 61 78 00 62 40 63 FF")},
    };
    for (const Case& c : cases) {
        const std::string bytes = Written([&](CFastInfosetWriter& w) {
            w.WriteStartDocument(FInfoDeclNone);
            Drive(w, c.script);
            if (c.more)
                c.more(w);
            w.WriteEndDocument();
            w.Close();
        });
        EXPECT_EQ(c.bytes, bytes) << c.name;
    }
}

// A chain of closing elements alternates between holding its terminator
// back and folding two into FF; the document's own terminator joins last.
TEST(FastInfosetWriterDocument, TerminatorsFoldOverDeepChains)
{
    for (int depth = 1; depth <= 6; ++depth) {
        std::string expected = Doc(kRootNs);
        for (int i = 0; i < depth; ++i)
            expected += "3C 00 " + SpacedHex(std::string(1, static_cast<char>('a' + i))) + " ";
        const int terminators = depth + 1;
        for (int i = 0; i < terminators / 2; ++i)
            expected += "FF ";
        if (terminators % 2 == 1)
            expected += "F0 ";
        expected.pop_back();

        const std::string bytes = Written([&](CFastInfosetWriter& w) {
            w.WriteStartDocument(FInfoDeclNone);
            for (int i = 0; i < depth; ++i)
                w.WriteStartElement(std::string(1, static_cast<char>('a' + i)), "");
            for (int i = 0; i < depth; ++i)
                w.WriteEndElement();
            w.WriteEndDocument();
        });
        EXPECT_EQ(expected, bytes) << depth;
    }
}

TEST(FastInfosetWriterDocument, NamespacesOnTheRootAndGeneratedPrefixes)
{
    const std::string bytes = Written([](CFastInfosetWriter& w) {
        w.WriteStartDocument(FInfoDeclNone);
        w.SetDefaultNamespace("urn:d");
        w.AddNamespace("p", "urn:p");
        Drive(w, "<a{urn:d}|<b{urn:p}|>|<c{urn:x}|>|>");
        w.WriteEndDocument();
    });
    EXPECT_EQ(Doc("38 CD 04 75 72 6E 3A 64 CF 00 70 04 75 72 6E 3A 70 F0 "  // xmlns, xmlns:p
                  "3D 81 00 61 "                                             // a in the default namespace
                  "3F 81 82 00 62 "                                          // p:b by part indexes
                  "F0 3F 01 41 41 04 75 72 6E 3A 78 00 63 "                  // AA:c, never declared
                  "FF F0"),
              bytes);
}

TEST(FastInfosetWriterDocument, TypeAndNilAttributes)
{
    const std::string instance = SpacedHex(std::string("http://www.w3.org/2001/XMLSchema-instance"));
    const std::string bytes = Written([](CFastInfosetWriter& w) {
        w.AddNamespace("t", "urn:t");
        w.WriteStartElement("a", "");
        w.WriteAttributeType("urn:t", "myType", S);  // known: "type" under the type's prefix
        w.WriteAttributeType("urn:u", "T", S);       // unknown: the type's own name
        w.WriteAttributeNil();
        w.WriteEndElement();
    });
    EXPECT_EQ("78 CF 00 74 04 75 72 6E 3A 74 F0 3C 00 61 "
              "7B 81 28 " + instance + " 03 74 79 70 65 07 74 3A 6D 79 54 79 70 65 "
              "7B 01 41 41 04 75 72 6E 3A 75 00 54 43 41 41 3A 54 "
              "7B 01 41 42 82 02 6E 69 6C 43 74 72 75 65 F0",
              bytes);
}

TEST(FastInfosetWriterDocument, Declarations)
{
    for (int declaration = 1; declaration <= 9; ++declaration) {
        const std::string bytes =
            Written([&](CFastInfosetWriter& w) { w.WriteStartDocument(static_cast<FInfoDecl>(declaration)); });
        EXPECT_EQ(SpacedHex(std::string(FI_DECLARATION_LIST[declaration - 1])) + " E0 00 00 01 00", bytes);
    }
    WrittenBeforeFailure(CFastInfosetContext(), "Invalid Fast Infoset declaration [10]",
                         [](CFastInfosetWriter& w) { w.WriteStartDocument(static_cast<FInfoDecl>(10)); });
}

TEST(FastInfosetWriterDocument, GeneratedVocabularyHead)
{
    CFastInfosetContext context;
    context.SetUseGeneratedVocabulary(true);
    context.GetVocabulary().AddElement("", "", "a");
    const std::string fallback = Written(context, [](CFastInfosetWriter& w) {
        w.WriteStartDocument(FInfoDeclNone);
        Drive(w, "<a|>");
        w.WriteEndDocument();
    });
    const std::string uri = ORVANE_URI;
    EXPECT_EQ("E0 00 00 01 20 10 00 " + SpacedHex(std::string(1, static_cast<char>(uri.size() - 1)) + uri) +
                  " 38 F0 00 FF",
              fallback)
        << "the vocabulary's name is known by index from the first element on";

    context.SetExternalVocabularyURI("urn:v");
    EXPECT_EQ("E0 00 00 01 20 10 00 04 75 72 6E 3A 76",
              Written(context, [](CFastInfosetWriter& w) { w.WriteStartDocument(FInfoDeclNone); }));

    // Without the flag the context's vocabulary is ignored.
    context.SetUseGeneratedVocabulary(false);
    EXPECT_EQ(Doc("38 F0 3C 00 61"), Written(context, [](CFastInfosetWriter& w) {
                  w.WriteStartDocument(FInfoDeclNone);
                  Drive(w, "<a|'");
              }));
}

TEST(FastInfosetWriterDocument, PendingStateAndFailures)
{
    CBinaryStream stream;
    CFastInfosetContext context;
    CFastInfosetWriter writer(context, stream);
    writer.WriteStartElement("a", "");
    writer.WriteComment("c");
    EXPECT_EQ(0u, stream.GetBinaryStream().GetLength());
    ASSERT_NE(nullptr, writer.GetPendingElement());
    EXPECT_EQ(nullptr, writer.GetCurrentContext());
    writer.WriteString("x", S);
    EXPECT_EQ(nullptr, writer.GetPendingElement());
    EXPECT_FALSE(writer.GetPendingTerminator());

    const std::string kept = WrittenBeforeFailure(context, "Attributes must be added before elements",
                                                  [](CFastInfosetWriter& w) { Drive(w, "<a|'x|@b=c"); });
    EXPECT_EQ("38 F0 3C 00 61 90 78", kept) << "the stream keeps what went out";
    WrittenBeforeFailure(context, "Attributes must be added before elements", [](CFastInfosetWriter& w) {
        Drive(w, "<a|<b|>");
        w.WriteAttributeNil();
    });
    WrittenBeforeFailure(context, "An Element has not been closed.", [](CFastInfosetWriter& w) {
        Drive(w, "<a|'x");
        w.Close();
    });
}
