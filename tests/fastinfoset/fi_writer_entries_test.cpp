#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "../support/ExpectFailure.h"
#include "PeopleClasses.h"
#include "PersonClasses.h"
#include "fi_writer_support.h"

using namespace NxXmlLib9;
using fi_writer_test::SpacedHex;

namespace {

struct RegisterVersion {
    RegisterVersion() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

CSmartPtr<NxTest::Person> SmallPerson()
{
    CSmartPtr<NxTest::Person> person(new NxTest::Person());
    person->Id = 7;
    person->Name = "Ann";
    person->AddressChild->Street = "S";
    person->AddressChild->City = "C";
    return person;
}

} // namespace

TEST(FastInfosetWriterEntries, StreamHoldsTheWholeDocument)
{
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add("p", NxTest::kPersonNamespace);
    const CBinaryData bytes = SmallPerson()->ToFastInfosetStream(FInfoDeclVersion10, context);
    const std::string hex = SpacedHex(bytes);
    const std::string head = SpacedHex(std::string(FI_DECLARATION_LIST[FInfoDeclVersion10 - 1])) +
                             " E0 00 00 01 00 78 CF 00 70 " +
                             SpacedHex(std::string(1, static_cast<char>(std::strlen(NxTest::kPersonNamespace) - 1)) +
                                       NxTest::kPersonNamespace) +
                             " F0 3F 81 81 05 50 65 72 73 6F 6E";  // p:Person by its declared prefix
    EXPECT_EQ(head, hex.substr(0, head.size()));
    // AnyElement and Person end in one octet, the document in another.
    EXPECT_EQ("FF F0", hex.substr(hex.size() - 5));
}

TEST(FastInfosetWriterEntries, FileHoldsTheStreamBytes)
{
    const std::string path = testing::TempDir() + "fi_writer_entries.fi";
    const CSmartPtr<NxTest::Person> person = SmallPerson();
    person->ToFastInfosetFile(path.c_str());
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    EXPECT_EQ(SpacedHex(person->ToFastInfosetStream()), SpacedHex(text.str()));
    std::remove(path.c_str());

    ExpectFailure<CNxException>(
        [&] {
            person->ToFastInfosetFile(path.c_str(), FInfoDeclNone, CXmlSerializationContext::m_defaultContext,
                                      CompressionTypeZLib);
        },
        "ZLIB Compression only available for To Stream methods.");
    EXPECT_FALSE(std::ifstream(path).good()) << "refused before anything is written";
}

// Compressed binary documents read back through the stream and file entries
// with nothing said about either the compression or the format.
TEST(FastInfosetWriterEntries, CompressedDocumentsReadBackUnasked)
{
    const CSmartPtr<NxTest::People> people = NxTest::MakePeople(40);
    const std::string expected = people->ToXml();
    const std::string path = testing::TempDir() + "fi_writer_entries_compressed.fi";
    struct Case {
        CompressionType compression;
        unsigned char first;
        unsigned char second;
    };
    for (const Case& c : {Case{CompressionTypeGZip, 0x1F, 0x8B}, Case{CompressionTypeZLib, 0x78, 0x01}}) {
        SCOPED_TRACE(c.compression);
        const CBinaryData bytes =
            people->ToFastInfosetStream(FInfoDeclNone, CXmlSerializationContext::m_defaultContext, c.compression);
        ASSERT_GT(bytes.GetLength(), 2u);
        EXPECT_EQ(c.first, bytes[0]);
        EXPECT_EQ(c.second, bytes[1]);
        CSmartPtr<NxTest::People> read(new NxTest::People);
        read->FromXmlStream(bytes);
        EXPECT_EQ(expected, read->ToXml());
    }
    people->ToFastInfosetFile(path.c_str(), FInfoDeclNone, CXmlSerializationContext::m_defaultContext,
                              CompressionTypeGZip);
    CSmartPtr<NxTest::People> read(new NxTest::People);
    read->FromXmlFile(path.c_str());
    EXPECT_EQ(expected, read->ToXml());
    std::remove(path.c_str());
}
