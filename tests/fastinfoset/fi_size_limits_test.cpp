// Inputs at the documented size limits answer with their messages, with no
// length or index wrapping around: lengths near 2^32 in binary documents,
// indexes far past 2^20, tables that stop growing at 2^20 entries, and files
// of 2 gigabytes, which are refused before anything is allocated.
#include "fi_reader_support.h"

#include <cerrno>
#include <cstdio>
#include <unistd.h>

using namespace NxXmlLib9;
using fi_reader_test::Bytes;
using fi_reader_test::kHead;

namespace {

std::string LoadFailure(const std::vector<unsigned char>& bytes)
{
    CXmlDocument document;
    try {
        fi_reader_test::Load(document, bytes);
    } catch (const CNxException& failure) {
        return failure.GetMessage();
    }
    return "(no failure)";
}

const char* const kEnd = "Failed to parse FastInfoset. Unexpected End of File.";
const char* const kIndex = "Failed to parse FastInfoset. Index out of range.";

} // namespace

TEST(FastInfosetSizeLimits, LengthsNearTwoToThe32AndHugeIndexesFailWithTheirMessages)
{
    const struct {
        const char* what;
        std::string hex;
        const char* message;
    } cases[] = {
        // 0xFFFFFFFF plus the bias of each length form: past 2^32 in 64 bits.
        {"element name", kHead + "3C 60 FF FF FF FF 'a'", kEnd},
        {"character chunk", kHead + "3C 00 'a' 93 FF FF FF FF 'x' F0", kEnd},
        {"attribute value", kHead + "7C 00 'a' 78 00 'v' 0C FF FF FF FF 'x'", kEnd},
        {"namespace name", kHead + "38 CD 60 FF FF FF FF 'u'", kEnd},
        // The widest index form reaches past 2^20 into empty tables.
        {"element name index", kHead + "30 FF FF FF", kIndex},
        {"attribute name index", kHead + "7C 00 'a' 6F FF FF F0", kIndex},
    };
    for (const auto& each : cases)
        EXPECT_EQ(each.message, LoadFailure(Bytes(each.hex))) << each.what;
}

TEST(FastInfosetSizeLimits, AFileOfTwoGigabytesIsRefusedBeforeItsBufferIsMade)
{
    char path[] = "/tmp/nxxml_large_XXXXXX";
    const int descriptor = mkstemp(path);
    ASSERT_GE(descriptor, 0);
    // Sparse: it takes no disk space, and nothing reads it.
    const bool sized = ftruncate(descriptor, 1L << 31) == 0;
    close(descriptor);
    if (sized) {
        CXmlDocument document;
        try {
            document.Load(path);
            ADD_FAILURE() << "a file of 2 GB loaded";
        } catch (const CNxException& failure) {
            EXPECT_EQ("Failed to read the contents of the file [" + std::string(path) + "] Error [" +
                          std::to_string(EFBIG) + "]",
                      failure.GetMessage());
        }
        EXPECT_EQ(nullptr, document.GetInputBuffer());
    }
    std::remove(path);
}
