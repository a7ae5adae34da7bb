// Hand-made binary documents and the trees, or the failures, they read into:
// element shapes and terminators, attributes and their indexes, namespaces,
// the items that are dropped, and every failure text.
#include <gtest/gtest.h>

#include <stdexcept>

#include "fi_reader_support.h"

using namespace NxXmlLib9;
using fi_reader_test::Bytes;
using fi_reader_test::kHead;
using fi_reader_test::Load;
using fi_reader_test::Read;

namespace {

struct Case {
    const char* name;
    std::string body;  // after the header
    std::string tree;  // or "!" and the failure's message
};

void ExpectCases(const std::vector<Case>& cases)
{
    for (const Case& c : cases)
        EXPECT_EQ(Read(kHead + c.body), c.tree) << c.name;
}

const std::string kFail = "!Failed to parse FastInfoset. ";

} // namespace

TEST(FastInfosetReaderTree, ElementsTextAndTerminators)
{
    ExpectCases({
        {"empty root ended by F0", "3C 00 'a' F0", "a"},
        {"empty root ended by FF", "3C 00 'a' FF", "a"},
        {"a literal chunk", "3C 00 'a' 90 'x' FF", "a\"x\""},
        {"chunks concatenate, carriage returns dropped", "3C 00 'a' 81 'x' 0D 80 'y' F0", "a\"xy\""},
        {"a chunk by index", "3C 00 'a' 90 'x' 3C 00 'b' A0 FF", "a\"x\"(b\"x\")"},
        {"one FF closes two elements", "3C 00 'a' 3C 00 'b' 3C 00 'c' 3C 00 'd' FF FF", "a(b(c(d)))"},
        {"after a folded pair the grandparent goes on", "3C 00 'a' 3C 00 'b' 3C 00 'c' FF 3C 00 'e' FF",
         "a(b(c) e)"},
        {"a child ending in F0 leaves its parent going", "3C 00 'a' 3C 00 'b' F0 3C 00 'c' F0 F0", "a(b c)"},
        {"an element name by index", "3C 00 'a' 3C 00 'b' F0 01 F0 00 F0 F0", "a(b b a)"},
        {"mixed content keeps one text", "3C 00 'a' 80 'x' 3C 00 'b' F0 80 'y' F0", "a\"xy\"(b)"},
        {"trailing bytes after the root are not read", "3C 00 'a' FF 'garbage'", "a"},
    });
}

TEST(FastInfosetReaderTree, AttributesAndTheirIndexes)
{
    ExpectCases({
        {"attributes end by F0 before content", "7C 00 'a' 78 00 'x' 40 '1' F0 90 't' FF", "a[x=1]\"t\""},
        // The FF after the attributes ends the element alone: the parent's
        // content goes on.
        {"attributes and element end by one FF", "3C 00 'a' 7C 00 'b' 78 00 'x' 40 '1' FF 3C 00 'c' F0 F0",
         "a(b[x=1] c)"},
        {"value and name by index; index 0 is the empty value",
         "7C 00 'a' 78 00 'x' 40 'v' 78 00 'y' 80 00 FF F0 F0", "a[x=v y=v x=]"},
        {"a value without the table bit is not indexed", "7C 00 'a' 78 00 'x' 00 'v' 78 00 'y' 80 F0 F0",
         "!Failed to parse FastInfoset. Index out of range."},
        {"a namespace by index, the XML namespace being entry 1", "7C 00 'a' 79 80 00 'x' 40 '1' F0 F0",
         "a[{http://www.w3.org/XML/1998/namespace}x=1]"},
        {"prefixed attribute", "7C 00 'a' 7B 00 'p' 02 'urn' 00 'x' 40 '1' F0 F0", "a[{urn}x=1]"},
        {"a restricted-alphabet value", "7C 00 'a' 78 00 'x' 20 01 1C 5F F0 F0", "a[x=1.5]"},
        {"an int value", "7C 00 'a' 78 00 'x' 30 33 FF FF FF FF F0 F0", "a[x=-1]"},
    });
}

TEST(FastInfosetReaderTree, NamesInNamespacesAndThePrefixMap)
{
    ExpectCases({
        {"prefix and namespace, then the namespace by index", "3F 00 'p' 02 'urn' 00 'a' 3D 81 00 'b' F0 F0",
         "{urn}a({urn}b)"},
        // The prefix an index entry was written with plays no part.
        {"the same name under another prefix", "3F 00 'p' 02 'urn' 00 'a' 3F 00 'q' 81 80 F0 F0",
         "{urn}a({urn}a)"},
        {"namespace attributes on an element with attributes",
         "78 CF 00 'p' 02 'urn' F0 3C 00 'a' 78 00 'x' 40 '1' F0 F0", "a[x=1]"},
    });

    CXmlDocument document;
    Load(document, Bytes(kHead + "38 CF 00 'p' 02 'urn' CD 02 'def' F0 3D 81 00 'a' 3C 00 'b' 38 CF 81 82 CF 00 'q' 82 F0 "
                                 "3C 80 F0 FF"));
    EXPECT_EQ(fi_reader_test::Dump(document.GetDocumentElement()), "{urn}a(b(a))");
    // One flat map: a later binding replaces the earlier one for the whole
    // document.
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "def");
    EXPECT_EQ(document.LookupNamespaceFromAlias("q"), "def");
    EXPECT_EQ(document.LookupNamespaceFromAlias(""), "def");
    EXPECT_EQ(document.LookupNamespaceFromAlias("r"), "");
}

TEST(FastInfosetReaderTree, CommentsInstructionsEntitiesAndDeclarationsAreDropped)
{
    ExpectCases({
        {"inside an element", "3C 00 'a' 90 'x' E2 40 'c' E1 01 'pi' 40 'd' C8 00 'e' CB 00 'f' 00 'g' 00 'h' 80 'y' F0",
         "a\"xy\""},
        {"a comment ahead of the root", "E2 40 'c' 3C 00 'a' FF", "a"},
        {"an instruction ahead of the root", "E1 01 'pi' 40 'd' 3C 00 'a' F0", "a"},
        // The read stops on the octet read last: an empty comment's index 0
        // is FF, and a document type declaration's terminator is F0.
        {"an empty comment ahead of the root ends the read", "E2 FF 3C 00 'a' FF", "-"},
        {"a document type declaration reads as empty", "C4 F0 3C 00 'a' FF", "-"},
        {"with both identifiers", "C7 00 's' 00 't' F0 3C 00 'a' FF", "-"},
    });
}

TEST(FastInfosetReaderTree, EncodedContent)
{
    ExpectCases({
        {"numeric alphabet with filler", "3C 00 'a' 88 01 1C 5F F0", "a\"1.5\""},
        {"date and time alphabet", "3C 00 'a' 88 06 00 10 B3 0D F0", "a\"10:30Z\""},
        {"the int algorithm", "3C 00 'a' 8C 0E 01 00 00 00 2A F0", "a\"42\""},
        {"the cdata algorithm is UTF-8 text", "3C 00 'a' 8C 24 'x' F0", "a\"x\""},
        {"an alphabet number beyond the table", "3C 00 'a' 88 08 12 F0", kFail + "Index out of range."},
        {"a position beyond the alphabet", "3C 00 'a' 88 00 F0 F0", kFail + "Index out of range."},
        {"an unknown algorithm", "3C 00 'a' 8C 7C 00 F0", "!Unknown byte encoding."},
    });
}

TEST(FastInfosetReaderTree, EveryFailureText)
{
    ExpectCases({
        {"end inside a string", "3C 00 'a' 93 'x'", kFail + "Unexpected End of File."},
        {"end inside an element", "3C 00 'a'", kFail + "Unexpected End of File."},
        {"a length beyond the input", "3C 60 FF FF FF FF 'a'", kFail + "Unexpected End of File."},
        {"an octet that starts no content", "3C 00 'a' C0", kFail + "Invalid Encoding of Element type."},
        {"prefix without namespace", "3E 00 'p' 00 'a' FF", kFail + "Invalid QName type Prefix without Namespace."},
        {"integer on the third bit", "38 F0 38 F0",
         kFail + "Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet."},
        {"integer on the fourth bit", "3C 00 'a' BC F0",
         kFail + "Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet."},
        // The failure inside the index form is replaced, truncation included.
        {"integer from 0, cut short", "7C 00 'a' 78 00 'x' C0",
         kFail + "Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet."},
        {"length on the second bit", "3C 41 'a' FF",
         kFail + "Invalid NonEmptyOctetString type  on the second bit of an octet."},
        {"length on the fifth bit", "7C 00 'a' 78 00 'x' 09 'v' F0 F0",
         kFail + "Invalid NonEmptyOctetString type  on the fifth bit of an octet."},
        {"element name index", "3C 00 'a' 04 F0 F0", kFail + "Index out of range."},
        {"attribute name index", "7C 00 'a' 00 FF 80 F0 F0", kFail + "Index out of range."},
        {"attribute value index", "7C 00 'a' 78 00 'x' 80 F0 F0", kFail + "Index out of range."},
        {"chunk index", "3C 00 'a' A0 F0", kFail + "Index out of range."},
        {"prefix index", "3F 82 81 00 'a' F0", kFail + "Index out of range."},
        {"namespace index", "3D 85 00 'a' F0", kFail + "Index out of range."},
        {"local name index", "3C 85 F0", kFail + "Index out of range."},
        {"namespace attribute index", "38 CD 85 F0 3C 00 'a' F0", kFail + "Index out of range."},
    });
}

TEST(FastInfosetReaderTree, Utf16StringsRaiseTheStandardLogicError)
{
    CXmlDocument document;
    EXPECT_THROW(Load(document, Bytes(kHead + "3C 00 'a' 85 00 'x' F0")), std::logic_error);
}

// The tree and the stack of open elements grow on the heap only: a nesting
// far deeper than any call stack could take reads, and is freed, whole.
TEST(FastInfosetReaderTree, DeepNestingReadsWithoutRecursion)
{
    const int depth = 200000;
    std::vector<unsigned char> bytes = Bytes(kHead + "3C 00 'a'");
    for (int i = 1; i < depth; ++i)
        bytes.push_back(0x00);  // index 1: the name a again
    bytes.insert(bytes.end(), depth / 2, 0xFF);
    CXmlSerializationContext unlimited;
    unlimited.SetMaximumDepth(0);
    CXmlDocument document(unlimited);
    Load(document, bytes);
    int levels = 0;
    for (const CXmlElement* e = document.GetDocumentElement(); e; e = e->GetFirstElement())
        ++levels;
    EXPECT_EQ(levels, depth);
}

// Binary input never reaches the filter: it serves the text parser only.
TEST(FastInfosetReaderTree, TheFilterIsNotCalled)
{
    CXmlDocument document([](CXmlElement*) { return true; });
    Load(document, Bytes(kHead + "3C 00 'a' 3C 00 'b' F0 F0"));
    EXPECT_EQ(fi_reader_test::Dump(document.GetDocumentElement()), "a(b)");
}

TEST(FastInfosetReaderTree, TheTreeBuiltUpToAFailureStays)
{
    CXmlDocument document;
    EXPECT_THROW(Load(document, Bytes(kHead + "3C 00 'a' 90 'x' 3C 00 'b' C0")), CNxException);
    EXPECT_EQ(fi_reader_test::Dump(document.GetDocumentElement()), "a\"x\"(b)");
    // A new load starts afresh.
    Load(document, Bytes(kHead + "3C 00 'c' F0"));
    EXPECT_EQ(fi_reader_test::Dump(document.GetDocumentElement()), "c");
}
