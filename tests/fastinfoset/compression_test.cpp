#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "StreamTestFiles.h"

using namespace NxXmlLib9;
using NxTest::BytesOf;
using NxTest::DataOf;
using NxTest::InflatedBytes;

namespace {

// Text that deflate shrinks well, larger than one 64 KB inflation chunk.
std::string RepetitiveXml(size_t records)
{
    std::string xml = "<?xml version=\"1.0\"?>\n<list>";
    for (size_t i = 0; i < records; ++i)
        xml += "<item n=\"" + std::to_string(i) + "\">value " + std::to_string(i * 7) + "</item>\n";
    return xml + "</list>";
}

// Compresses through the in-place form and returns the bytes.
std::string Compressed(const std::string& text, CompressionType type)
{
    CBinaryData data = DataOf(text);
    CNxZip::CompressData(data, type);
    return BytesOf(data);
}

} // namespace

TEST(NxZip, CompressedOutputCarriesTheHeaderOfItsFormatAndInflatesBack)
{
    struct Case {
        CompressionType type;
        unsigned char first, second;
    };
    // gzip magic and deflate method; zlib header of a 32 KB window at level 1.
    const Case cases[] = {{CompressionTypeGZip, 0x1F, 0x8B}, {CompressionTypeZLib, 0x78, 0x01}};
    const std::string text = RepetitiveXml(8000);
    ASSERT_GT(text.size(), 0x10000u * 3);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        const std::string packed = Compressed(text, c.type);
        ASSERT_GT(packed.size(), 2u);
        EXPECT_LT(packed.size(), text.size() / 4);
        EXPECT_EQ(static_cast<unsigned char>(packed[0]), c.first);
        EXPECT_EQ(static_cast<unsigned char>(packed[1]), c.second);
        if (c.type == CompressionTypeGZip) {
            EXPECT_EQ(packed[2], 8) << "deflate method";
        }
        bool replaced = false;
        EXPECT_EQ(InflatedBytes(packed, &replaced), text);
        EXPECT_TRUE(replaced);
    }
}

TEST(NxZip, OutputThatDoesNotShrinkRaisesAndKeepsTheInput)
{
    std::mt19937 random(7);
    std::string noise(100000, '\0');
    for (char& c : noise)
        c = static_cast<char>(random());
    struct Case {
        std::string input;
        int gzipCode, zlibCode;
    };
    // The output usually fills inside the finishing call, which then answers
    // 0. Below the 10 bytes of the gzip header it fills in the first call
    // already, and finishing without room answers -5.
    const Case cases[] = {{"<a/>", -5, 0}, {"<root>short</root>", 0, 0}, {noise, 0, 0}};
    for (CompressionType type : {CompressionTypeGZip, CompressionTypeZLib}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.input.size());
            const int code = type == CompressionTypeGZip ? c.gzipCode : c.zlibCode;
            unsigned long length = static_cast<unsigned long>(c.input.size());
            unsigned char* buffer = new unsigned char[length];
            std::memcpy(buffer, c.input.data(), length);
            unsigned char* const original = buffer;
            ExpectFailure<CNxException>([&] { CNxZip::Compress(&buffer, &length, type); },
                                        FormatString("Failed to compress data. [Error Code: %d]", code));
            EXPECT_EQ(buffer, original);
            EXPECT_EQ(std::string(reinterpret_cast<char*>(buffer), length), c.input);
            delete[] buffer;

            // The in-place form has given its bytes away by then.
            CBinaryData data = DataOf(c.input);
            EXPECT_THROW(CNxZip::CompressData(data, type), CNxException);
            EXPECT_EQ(data.GetLength(), 0u);
        }
    }
}

TEST(NxZip, NoneUnknownKindsAndEmptyDataAreLeftAlone)
{
    const std::string text = RepetitiveXml(100);
    for (int type : {0, 3, -1}) {
        CBinaryData data = DataOf(text);
        CNxZip::CompressData(data, static_cast<CompressionType>(type));
        EXPECT_EQ(BytesOf(data), text);
    }
    CBinaryData empty;
    EXPECT_NO_THROW(CNxZip::CompressData(empty, CompressionTypeGZip));
    EXPECT_EQ(empty.GetLength(), 0u);
}

TEST(NxZip, PlainCutAndDamagedInputIsHandedOnAsItCame)
{
    const std::string gzip = Compressed(RepetitiveXml(3000), CompressionTypeGZip);
    std::string damaged = gzip;
    damaged[damaged.size() / 2] ^= 0x5A;
    std::string badChecksum = gzip;
    badChecksum[badChecksum.size() - 6] ^= 1;
    const std::string inputs[] = {RepetitiveXml(3),
                                  gzip.substr(0, gzip.size() / 2),
                                  gzip.substr(0, gzip.size() - 1),
                                  gzip.substr(0, 2),
                                  damaged,
                                  badChecksum,
                                  std::string("\x1F\x8B", 2) + "not a deflate stream"};
    for (const std::string& input : inputs) {
        SCOPED_TRACE(input.size());
        bool replaced = true;
        EXPECT_EQ(InflatedBytes(input, &replaced), input);
        EXPECT_FALSE(replaced);
    }
}

TEST(NxZip, EmptyCompressedDocumentGivesAnEmptyButValidBuffer)
{
    // The stock tools' empty gzip file: header, empty block, trailer.
    const std::string emptyGzip("\x1F\x8B\x08\x00\x00\x00\x00\x00\x00\x03\x03\x00\x00\x00\x00\x00\x00\x00\x00\x00",
                                20);
    unsigned long length = static_cast<unsigned long>(emptyGzip.size());
    unsigned char* buffer = new unsigned char[length];
    std::memcpy(buffer, emptyGzip.data(), length);
    CNxZip::Decompress(&buffer, &length);
    EXPECT_EQ(length, 0u);
    EXPECT_NE(buffer, nullptr);
    delete[] buffer;

    // The parser then meets an empty document.
    CXmlDocument document;
    ExpectFailure<CNxException>(
        [&] {
            document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(emptyGzip.data())),
                                   static_cast<unsigned long>(emptyGzip.size()));
        },
        "no element found at line 1");
    EXPECT_EQ(document.GetInputSize(), 0u);
}

TEST(NxZip, DocumentsInflateFileAndStreamInputButHandDamagedInputToTheTextParser)
{
    const std::string xml = RepetitiveXml(2000);
    for (CompressionType type : {CompressionTypeGZip, CompressionTypeZLib}) {
        const std::string packed = Compressed(xml, type);
        CXmlDocument document;
        document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(packed.data())),
                               static_cast<unsigned long>(packed.size()));
        EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), "list");
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(document.GetInputBuffer()), document.GetInputSize()),
                  xml);

        NxTest::TempPath path;
        NxTest::WriteFileBytes(path.str(), packed);
        document.Load(path.c_str());
        EXPECT_EQ(document.GetDocumentElement()->GetFirstElement()->GetText(), "value 0");
    }

    // A cut stream reaches the text parser as it is, fails there with the
    // parser's own message, and stays whole in the document's input.
    const std::string cut = Compressed(xml, CompressionTypeGZip).substr(0, 200);
    CXmlDocument document;
    ExpectFailure<CNxException>(
        [&] {
            document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(cut.data())),
                                   static_cast<unsigned long>(cut.size()));
        },
        "not well-formed (invalid token) at line 1");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(document.GetInputBuffer()), document.GetInputSize()), cut);
}
