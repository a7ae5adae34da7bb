#include <gtest/gtest.h>

#include <string>
#include <unistd.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "StreamTestFiles.h"

using namespace NxXmlLib9;
using NxTest::BytesOf;
using NxTest::DataOf;
using NxTest::ReadFileBytes;
using NxTest::TempPath;

namespace {

const std::string kMark("\xFF\xFE", 2);
const char* const kUnwritable = "/nonexistent-folder/out.xml";

// "ab" as 4-byte little-endian wide units.
const std::string kWideAb("a\0\0\0b\0\0\0", 8);

std::string EncodedText(const char* text, XmlEncoding encoding)
{
    CTextStream stream(encoding);
    stream.Append(text);
    return BytesOf(stream.GetEncodedStream());
}

} // namespace

TEST(TextStreamEncoding, EachEncodingGivesItsBytesAndAnyOtherRaises)
{
    EXPECT_EQ(EncodedText("ab", XmlEncodingUTF8), "ab");
    EXPECT_EQ(EncodedText("ab", XmlEncodingUTF16), kWideAb);
    EXPECT_EQ(EncodedText("ab", XmlEncodingUnicode), kWideAb);
    for (int encoding : {0, 4, -1})
        ExpectFailure<CNxException>([&] { EncodedText("ab", static_cast<XmlEncoding>(encoding)); },
                                    "Unknown Encoding, select UTF-8 (contact support@orvane.example for support)");
}

TEST(FileBinaryStream, SavesTheBytesBehindAMarkForTheWideEncodingsOnly)
{
    const std::string bytes("<a>\0x</a>", 9);
    struct Case {
        XmlEncoding encoding;
        std::string prefix;
    };
    for (const Case& c : {Case{XmlEncodingNone, ""}, Case{XmlEncodingUTF8, ""}, Case{XmlEncodingUTF16, kMark},
                          Case{XmlEncodingUnicode, kMark}}) {
        SCOPED_TRACE(c.encoding);
        TempPath path;
        CBinaryData data = DataOf(bytes);
        CFileBinaryStream stream(path.c_str(), c.encoding, data);
        stream.ToFile();
        EXPECT_EQ(ReadFileBytes(path.str()), c.prefix + bytes);
        // Saving again replaces the file.
        stream.Append(reinterpret_cast<unsigned char*>(const_cast<char*>("!")), 1);
        stream.ToFile();
        EXPECT_EQ(ReadFileBytes(path.str()), c.prefix + bytes + "!");

        // Nothing to save is a failure, after the file was made.
        CFileBinaryStream empty(path.c_str(), c.encoding);
        ExpectFailure<CNxException>([&] { empty.ToFile(); },
                                    "Failed to write data to the file [" + path.str() + "]");
        EXPECT_EQ(ReadFileBytes(path.str()), c.prefix);
    }
    // A path that cannot be made, and a device that takes nothing.
    for (const char* target : {kUnwritable, "/dev/full"}) {
        CBinaryData data = DataOf(bytes);
        ExpectFailure<CNxException>([&] { CFileBinaryStream(target, XmlEncodingUTF8, data).ToFile(); },
                                    std::string("Failed to write data to the file [") + target + "]");
    }
}

TEST(BinaryStream, AppendsToASharedBufferWithoutChangingTheCallersCopy)
{
    CBinaryData original = DataOf("abc");
    CBinaryStream stream(original);
    EXPECT_EQ(stream.GetBinaryStream().GetData(), original.GetData()) << "shares storage until written";
    stream.Append(static_cast<unsigned char>('d'));
    stream.Append(DataOf("ef"));
    stream.Append(reinterpret_cast<unsigned char*>(const_cast<char*>("gh")), 2);
    EXPECT_EQ(BytesOf(stream.GetBinaryStream()), "abcdefgh");
    EXPECT_EQ(BytesOf(original), "abc");

    CBinaryStream fresh;
    EXPECT_EQ(fresh.GetBinaryStream().GetLength(), 0u);
}

TEST(FileTextStream, OpensWithTheMarkClosesEmptyAndFailsOnTheFirstFlushOfText)
{
    struct Case {
        XmlEncoding encoding;
        std::string prefix;
    };
    for (const Case& c : {Case{XmlEncodingUTF8, ""}, Case{XmlEncodingUTF16, kMark}, Case{XmlEncodingUnicode, kMark}}) {
        SCOPED_TRACE(c.encoding);
        TempPath path;
        NxTest::WriteFileBytes(path.str(), "old content");
        {
            CFileTextStream stream(path.c_str(), c.encoding);
            stream.Open();
            stream.Flush();
            stream.Close();
        }
        EXPECT_EQ(ReadFileBytes(path.str()), c.prefix);

        // The text never reaches the file: the flush writes the empty
        // encoded buffer, which counts as a failed write.
        CFileTextStream stream(path.c_str(), c.encoding);
        stream.Open();
        stream.Append("<a/>");
        ExpectFailure<CNxException>([&] { stream.Flush(); }, "Failed to write data to the file");
        EXPECT_EQ(ReadFileBytes(path.str()), c.prefix);
        EXPECT_EQ(stream.GetLength(), 4u);
    }
    CFileTextStream stream(kUnwritable, XmlEncodingUTF8);
    ExpectFailure<CNxException>([&] { stream.Open(); },
                                std::string("Failed to write data to the file [") + kUnwritable + "]");
    if (access("/dev/full", W_OK) == 0) {
        CFileTextStream full("/dev/full", XmlEncodingUTF16);
        full.Open();
        ExpectFailure<CNxException>([&] { full.Close(); }, "Failed to write data to the file [/dev/full]");
    }
}

TEST(FileTextStream, TheWriterFailsAtItsFirstFlushAndLeavesOnlyTheMark)
{
    for (unsigned long count : {1ul, 5000ul}) {
        SCOPED_TRACE(count);
        TempPath path;
        CFileTextStream stream(path.c_str(), XmlEncodingUTF16);
        CXmlTextWriter writer(stream);
        writer.Open();
        ExpectFailure<CNxException>(
            [&] {
                writer.WriteStartElement("root", "");
                for (unsigned long i = 0; i < count; ++i)
                    writer.WriteString("text ", ItemTypeString);
                writer.WriteEndElement();
                writer.Close();
            },
            "Failed to write data to the file");
        EXPECT_EQ(ReadFileBytes(path.str()), kMark);
    }
}
