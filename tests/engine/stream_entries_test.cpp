#include <gtest/gtest.h>

#include <string>
#include <sys/stat.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "PersonClasses.h"
#include "StreamTestFiles.h"

using namespace NxXmlLib9;
using NxTest::BytesOf;
using NxTest::DataOf;
using NxTest::InflatedBytes;
using NxTest::Person;
using NxTest::ReadFileBytes;
using NxTest::TempPath;
using NxTest::WriteFileBytes;

namespace {

const std::string kMark("\xFF\xFE", 2);
const char* const kParserFailure = "not well-formed (invalid token) at line 1";
const char* const kZlibRefused = "ZLIB Compression only available for To Stream methods.";

CSmartPtr<Person> SamplePerson()
{
    CSmartPtr<Person> person(new Person);
    person->Id = 7;
    person->Name = "Ann";
    person->AddressChild->Street = "Main";
    person->AddressChild->City = "Town";
    person->Phones->Add("1");
    person->Phones->Add("2");
    person->ColourValue = NxTest::ColourBlue;
    person->Any->SetName("Extra");
    person->Any->SetText("a < b");
    return person;
}

// A person whose walk fails half way, at its colour.
CSmartPtr<Person> BrokenPerson()
{
    CSmartPtr<Person> person = SamplePerson();
    person->ColourValue = 5;
    return person;
}

void ExpectSample(const Person& person)
{
    EXPECT_EQ(person.Id, 7);
    EXPECT_EQ(person.Name, "Ann");
    EXPECT_EQ(person.AddressChild->City, "Town");
    EXPECT_EQ(person.PhoneTexts(), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(person.ColourValue, NxTest::ColourBlue);
    EXPECT_EQ(person.Any->GetText(), "a < b");
}

std::string StreamOf(const CXmlObjectBase& object, XmlEncoding encoding,
                     CompressionType compression = CompressionTypeNone)
{
    return BytesOf(object.ToXmlStream(true, true, encoding, EOLTypeLF, CXmlSerializationContext::m_defaultContext,
                                      compression));
}

// The low bytes of 4-byte wide units, when all their other bytes are zero.
std::string NarrowOfWide(const std::string& wide)
{
    std::string narrow;
    for (size_t i = 0; i + 3 < wide.size(); i += 4) {
        if (wide[i + 1] || wide[i + 2] || wide[i + 3] || wide.size() % 4)
            return "not 4-byte units";
        narrow += wide[i];
    }
    return narrow;
}

// Sets the asynchronous file flag for one scope.
struct AsyncScope {
    explicit AsyncScope(bool on) { AsyncToXmlFile(on); }
    ~AsyncScope() { AsyncToXmlFile(false); }
};

} // namespace

TEST(StreamEntries, TextRoundTripsThroughEveryEncodingAndCompression)
{
    CSmartPtr<Person> person = SamplePerson();
    const std::string plain = StreamOf(*person, XmlEncodingUTF8);
    EXPECT_EQ(plain.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<AA:Person", 0), 0u) << plain;

    struct Case {
        XmlEncoding encoding;
        const char* declaration; // the start of the text; null when the entry fails
        bool readsBack;
    };
    const Case cases[] = {{XmlEncodingNone, nullptr, false},
                          {XmlEncodingUTF8, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>", true},
                          // 4-byte units without a mark, which the text parser does not take.
                          {XmlEncodingUTF16, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>", false},
                          {XmlEncodingUnicode, "<?xml version=\"1.0\"?>", false}};
    const unsigned char magic[][2] = {{0, 0}, {0x1F, 0x8B}, {0x78, 0x01}};
    for (const Case& c : cases) {
        for (CompressionType compression : {CompressionTypeNone, CompressionTypeGZip, CompressionTypeZLib}) {
            SCOPED_TRACE(testing::Message() << "encoding " << c.encoding << " compression " << compression);
            if (!c.declaration) {
                ExpectFailure<CNxException>(
                    [&] { StreamOf(*person, c.encoding, compression); },
                    "Unknown Encoding, select UTF-8 (contact support@orvane.example for support)");
                continue;
            }
            const std::string bytes = StreamOf(*person, c.encoding, compression);
            if (compression != CompressionTypeNone) {
                EXPECT_EQ(static_cast<unsigned char>(bytes[0]), magic[compression][0]);
                EXPECT_EQ(static_cast<unsigned char>(bytes[1]), magic[compression][1]);
                EXPECT_EQ(InflatedBytes(bytes), StreamOf(*person, c.encoding));
            }
            const std::string inflated = InflatedBytes(bytes);
            const std::string text = c.encoding == XmlEncodingUTF8 ? inflated : NarrowOfWide(inflated);
            EXPECT_EQ(text.rfind(c.declaration, 0), 0u) << text;
            EXPECT_EQ(text.substr(text.find("<AA:Person")), plain.substr(plain.find("<AA:Person")));

            CSmartPtr<Person> copy(new Person);
            if (c.readsBack) {
                copy->FromXmlStream(DataOf(bytes));
                ExpectSample(*copy);
            } else {
                ExpectFailure<CNxException>([&] { copy->FromXmlStream(DataOf(bytes)); }, kParserFailure);
            }
        }
    }
}

TEST(StreamEntries, FilesHoldTheStreamBytesBehindAMarkForTheWideEncodings)
{
    CSmartPtr<Person> person = SamplePerson();
    struct Case {
        XmlEncoding encoding;
        std::string mark;
    };
    for (const Case& c : {Case{XmlEncodingUTF8, ""}, Case{XmlEncodingUTF16, kMark}, Case{XmlEncodingUnicode, kMark}}) {
        for (CompressionType compression : {CompressionTypeNone, CompressionTypeGZip}) {
            for (bool async : {false, true}) {
                if (async && compression == CompressionTypeNone)
                    continue; // the file text stream path, below
                SCOPED_TRACE(testing::Message() << c.encoding << " " << compression << " " << async);
                AsyncScope scope(async);
                TempPath path;
                person->ToXmlFile(path.c_str(), true, true, c.encoding, EOLTypeLF,
                                  CXmlSerializationContext::m_defaultContext, compression);
                // A compressed wide file has its mark ahead of the gzip
                // magic, so only the UTF-8 ones load again.
                EXPECT_EQ(ReadFileBytes(path.str()), c.mark + StreamOf(*person, c.encoding, compression));
                CSmartPtr<Person> copy(new Person);
                if (c.encoding == XmlEncodingUTF8) {
                    copy->FromXmlFile(path.c_str());
                    ExpectSample(*copy);
                } else {
                    EXPECT_THROW(copy->FromXmlFile(path.c_str()), CNxException);
                }
            }
        }
    }
}

TEST(StreamEntries, FilesWithAndWithoutAByteOrderMarkLoad)
{
    const std::string text = StreamOf(*SamplePerson(), XmlEncodingUTF8);
    const std::string body = text.substr(text.find('\n') + 1);
    std::string utf16("\xFF\xFE", 2);
    for (char ch : "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n" + body)
        utf16 += std::string{ch, '\0'};
    const std::string files[] = {text, "\xEF\xBB\xBF" + text, utf16};
    for (const std::string& bytes : files) {
        SCOPED_TRACE(bytes.substr(0, 4));
        TempPath path;
        WriteFileBytes(path.str(), bytes);
        CSmartPtr<Person> copy(new Person);
        copy->FromXmlFile(path.c_str());
        ExpectSample(*copy);
    }
}

TEST(StreamEntries, ZlibFileOutputIsRefusedBeforeAnythingElse)
{
    CSmartPtr<Person> person = SamplePerson();
    TempPath path;
    std::remove(path.c_str());
    for (bool async : {false, true}) {
        AsyncScope scope(async);
        RegisterGeneratorVersion(8, 0);
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        ExpectFailure<CNxException>(
            [&] {
                person->ToXmlFile(path.c_str(), true, true, XmlEncodingUTF8, EOLTypeLF,
                                  CXmlSerializationContext::m_defaultContext, CompressionTypeZLib);
            },
            kZlibRefused);
        const std::string quietOut = testing::internal::GetCapturedStdout();
        const std::string quietErr = testing::internal::GetCapturedStderr();
        // Any other kind meets the version check first.
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        ExpectFailure<CNxException>(
            [&] {
                person->ToXmlFile(path.c_str(), true, true, XmlEncodingUTF8, EOLTypeLF,
                                  CXmlSerializationContext::m_defaultContext, CompressionTypeGZip);
            },
            "Wrong Version (Orvane Runtime: v9.0, Generator: v8.0)");
        const std::string reportOut = testing::internal::GetCapturedStdout();
        testing::internal::GetCapturedStderr();
        RegisterGeneratorVersion(9, 0);
        EXPECT_EQ(quietOut + quietErr, "");
        EXPECT_NE(reportOut.find("Version Mismatch"), std::string::npos);
        struct stat info;
        EXPECT_NE(stat(path.c_str(), &info), 0) << "no file is made";
    }
}

TEST(StreamEntries, AFailedWalkLeavesAnExistingFileAsItWas)
{
    const std::string previous("previous\0\xFF\x1F\x8B content\r\n", 22);
    CSmartPtr<Person> broken = BrokenPerson();
    struct Case {
        bool async;
        CompressionType compression;
        XmlEncoding encoding;
    };
    for (const Case& c : {Case{false, CompressionTypeNone, XmlEncodingUTF8},
                          Case{false, CompressionTypeGZip, XmlEncodingUTF16},
                          Case{true, CompressionTypeGZip, XmlEncodingUTF8}}) {
        SCOPED_TRACE(testing::Message() << c.async << " " << c.compression);
        AsyncScope scope(c.async);
        TempPath path;
        WriteFileBytes(path.str(), previous);
        EXPECT_THROW(broken->ToXmlFile(path.c_str(), true, true, c.encoding, EOLTypeLF,
                                       CXmlSerializationContext::m_defaultContext, c.compression),
                     CNxException);
        EXPECT_EQ(ReadFileBytes(path.str()), previous);
    }
}

TEST(StreamEntries, TheAsynchronousFileStreamFailsAtItsFirstFlushLeavingTheMark)
{
    AsyncScope scope(true);
    for (XmlEncoding encoding : {XmlEncodingUTF8, XmlEncodingUTF16}) {
        TempPath path;
        WriteFileBytes(path.str(), "previous content");
        ExpectFailure<CNxException>([&] { SamplePerson()->ToXmlFile(path.c_str(), true, true, encoding); },
                                    "Failed to write data to the file");
        EXPECT_EQ(ReadFileBytes(path.str()), encoding == XmlEncodingUTF8 ? "" : kMark);
    }
}

TEST(StreamEntries, CompressedFilesAgreeWithTheStockGzipTool)
{
    if (!NxTest::HaveGzip())
        GTEST_SKIP() << "gzip is not installed: the check against the stock tool is skipped";
    CSmartPtr<Person> person = SamplePerson();
    const std::string plain = StreamOf(*person, XmlEncodingUTF8);

    TempPath ours;
    person->ToXmlFile(ours.c_str(), true, true, XmlEncodingUTF8, EOLTypeLF,
                      CXmlSerializationContext::m_defaultContext, CompressionTypeGZip);
    std::string unpacked;
    ASSERT_TRUE(NxTest::RunCommand("gzip -dc < " + ours.str(), unpacked));
    EXPECT_EQ(unpacked, plain);

    TempPath theirs;
    WriteFileBytes(theirs.str(), plain);
    std::string packed;
    ASSERT_TRUE(NxTest::RunCommand("gzip -9 -c < " + theirs.str(), packed));
    WriteFileBytes(theirs.str(), packed);
    CSmartPtr<Person> copy(new Person);
    copy->FromXmlFile(theirs.c_str());
    ExpectSample(*copy);
}

TEST(ElementFromObject, HoldsTheObjectsTreeUnderItsDefaultNamespace)
{
    CSmartPtr<Person> person = SamplePerson();
    for (const char* defaultNamespace : {static_cast<const char*>(nullptr), "urn:default"}) {
        CSmartPtr<CElement> element(new CElement(person, defaultNamespace));
        EXPECT_EQ(element->GetName(), "Person");
        EXPECT_EQ(element->GetNamespace(), NxTest::kPersonNamespace);
        EXPECT_EQ(element->GetDefaultNamespace(), defaultNamespace ? defaultNamespace : "");
        EXPECT_EQ(element->GetAttributes()->Item(0)->GetValue(), "7");
        CSmartPtr<CElementCol> children = element->GetElements();
        ASSERT_EQ(children->GetCount(), 6);
        EXPECT_EQ(children->Item(0)->GetText(), "Ann");
        EXPECT_EQ(children->Item(1)->GetElements()->Item(1)->GetText(), "Town");
        EXPECT_EQ(children->Item(5)->GetText(), "a < b");

        // Written again, it gives the object's own text; with a default
        // namespace it stands apart under its own declaration.
        const std::string text = element->ToXml(false, false);
        if (!defaultNamespace)
            EXPECT_EQ(text, person->ToXml(false, false));
        else
            EXPECT_EQ(text.rfind("<AA:Person xmlns:AA=\"urn:test:person\" xmlns=\"urn:default\"><AA:Name>", 0), 0u)
                << text;
    }
    ExpectFailure<CNxInvalidParamException>([] { CElement(static_cast<CXmlObjectBase*>(nullptr), "urn:x"); },
                                            "The object to copy into an element may not be NULL");
}
