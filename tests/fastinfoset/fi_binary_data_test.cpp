#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/ExpectFailure.h"
#include "NxXmlLib9.h"

using namespace NxXmlLib9;

namespace {

std::string Hex(const CBinaryData& data)
{
    return data.GetAsHexString();
}

CFastInfosetBinaryData FromHex(const char* hex)
{
    CFastInfosetBinaryData data;
    data.SetAsHexString(hex);
    return data;
}

} // namespace

TEST(FastInfosetBinaryData, EncodesEachAlgorithm)
{
    struct Case {
        unsigned long algorithm;
        const char* text;
        const char* octets;
    };
    const Case cases[] = {
        {1, "00ff7A", "00FF7A"}, {2, "AQID", "010203"}, {3, "-2", "FFFE"}, {3, "258", "0102"},
        {4, "-1", "FFFFFFFF"}, {4, "42", "0000002A"}, {5, "-2", "FFFFFFFFFFFFFFFE"},
        {5, "4294967296", "0000000100000000"}, {6, "true", "38"}, {6, "false", "30"}, {6, "1", "38"},
        {7, "1.5", "3FC00000"}, {7, "-2", "C0000000"}, {8, "1.5", "3FF8000000000000"},
        {9, "00112233445566778899AABBCCDDEEFF", "00112233445566778899AABBCCDDEEFF"},
        {10, "a<b", "613C62"},
    };
    for (const Case& c : cases) {
        CFastInfosetBinaryData data("stale");
        data.SetAsEncodedString(c.algorithm, c.text);
        EXPECT_EQ(c.octets, Hex(data)) << c.algorithm << " " << c.text;
    }
}

TEST(FastInfosetBinaryData, EncodingFailures)
{
    for (unsigned long algorithm : {0ul, 11ul, 100ul}) {
        CFastInfosetBinaryData data("stale");
        ExpectFailure<CNxException>([&] { data.SetAsEncodedString(algorithm, "1"); }, "Unknown byte encoding.");
        EXPECT_EQ(0u, data.GetLength()) << "cleared before the algorithm is chosen";
    }
    CFastInfosetBinaryData data;
    EXPECT_THROW(data.SetAsEncodedString(3, "40000"), CNxException);
    EXPECT_THROW(data.SetAsEncodedString(4, "12x"), CNxException);
    EXPECT_THROW(data.SetAsEncodedString(6, "yes"), CNxException);
}

TEST(FastInfosetBinaryData, DecodesEachAlgorithm)
{
    struct Case {
        unsigned long algorithm;
        const char* octets;
        const char* text;
    };
    const Case cases[] = {
        {1, "00FF7A", "00FF7A"}, {2, "010203", "AQID"}, {3, "FFFE0102", "-2 258"}, {4, "FFFFFFFF0000002A", "-1 42"},
        {5, "FFFFFFFFFFFFFFFE0000000100000000", "-2 4294967296"}, {6, "38", "true"}, {6, "30", "false"},
        // Two bits in one octet run together; octets are separated.
        {6, "2A", "truefalse"}, {6, "6AC0", "truefalsetruefalse truetrue"},
        {6, "5F80", "truetruetruetrue truefalsefalse"},
        // Only the first octet of a float group counts, in all four bytes.
        {7, "3FC00000", "0.7470588"}, {7, "3F3F3F3F00000000", "0.7470588 0"},
        {8, "3FF8000000000000C000000000000000", "1.5 -2"},
        {9, "00112233445566778899AABBCCDDEEFFFFEEDDCCBBAA99887766554433221100",
         "00112233445566778899AABBCCDDEEFF FFEEDDCCBBAA99887766554433221100"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.text, FromHex(c.octets).GetAsString(c.algorithm)) << c.algorithm << " " << c.octets;
}

TEST(FastInfosetBinaryData, DecodingFailures)
{
    struct Case {
        unsigned long algorithm;
        const char* octets;
        const char* message;
    };
    const Case cases[] = {
        {3, "010203", "Invalid value for SHORT byte encoding."},
        {4, "010203", "Invalid value for INT byte encoding."},
        {5, "01020304", "Invalid value for LONG byte encoding."},
        {7, "010203", "Invalid value for FLOAT byte encoding."},
        {8, "01020304", "Invalid value for DOUBLE byte encoding."},
        {9, "0102030405060708", "Invalid value for UUID byte encoding."},
        {0, "01", "Unknown byte encoding."}, {10, "61", "Unknown byte encoding."},
        {11, "01", "Unknown byte encoding."},
    };
    for (const Case& c : cases)
        ExpectFailure<CNxException>([&] { FromHex(c.octets).GetAsString(c.algorithm); }, c.message);

    // No content reads as empty under any number, known or not.
    for (unsigned long algorithm : {0ul, 3ul, 7ul, 10ul, 99ul})
        EXPECT_EQ("", CFastInfosetBinaryData().GetAsString(algorithm)) << algorithm;
}

TEST(FastInfosetBinaryData, DoubleRoundTripsButFloatDoesNot)
{
    CFastInfosetBinaryData data;
    data.SetAsEncodedString(8, "3.25");
    EXPECT_EQ("3.25", data.GetAsString(8));
    data.SetAsEncodedString(7, "3.25");
    // A float is rebuilt from its first octet alone: 40 40 40 40.
    EXPECT_EQ("3.003922", data.GetAsString(7));
    data.SetAsEncodedString(3, "-32768");
    EXPECT_EQ("-32768", data.GetAsString(3));
}
