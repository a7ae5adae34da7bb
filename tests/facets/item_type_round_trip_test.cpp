// Every item type, from text through the variant and back, and through the
// facet check of its kind.
#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <string>

#include "ExpectFailure.h"

using namespace NxXmlLib9;

namespace {

struct ItemTypeCase {
    ItemType type;
    const char* input;     // read with the collapse rule
    const char* printed;   // what the variant prints
    const char* bound;     // an order bound equal to the value, or null
    int length;            // the value's length, for the length facets, or -1
    const char* failure;   // the facet failure for item "v", or null when none can fail
};

// With an order bound b equal to the value, MinInclusive and MaxInclusive b
// pass and MinExclusive b fails; with a length n, Length n passes and n + 1
// fails.
const ItemTypeCase kCases[] = {
    {ItemTypeHexBinary, "0fA0", "0FA0", nullptr, 2, "Invalid Value for v [0FA0]"},
    {ItemTypeBase64Binary, "TW Fu", "TWFu", nullptr, 3, "Invalid Value for v [TWFu]"},
    {ItemTypeI1, "-5", "-5", "-5", -1, "Invalid Value for v [-5]"},
    {ItemTypeI2, " 300 ", "300", "300", -1, "Invalid Value for v [300]"},
    {ItemTypeI4, "-70000", "-70000", "-70000", -1, "Invalid Value for v [-70000]"},
    {ItemTypeI8, "9000000000", "9000000000", "9000000000", -1, "Invalid Value for v [9000000000]"},
    {ItemTypeUI1, "200", "200", "200", -1, "Invalid Value for v [200]"},
    {ItemTypeUI2, "60000", "60000", "60000", -1, "Invalid Value for v [60000]"},
    {ItemTypeUI4, "4000000000", "4000000000", "4000000000", -1, "Invalid Value for v [-294967296]"},
    {ItemTypeUI8, "18446744073709551615", "18446744073709551615", "18446744073709551615", -1,
     "Invalid Value for v [18446744073709551615]"},
    {ItemTypeR4, "1.5", "1.5", "1.5", -1, "Invalid Value for v [1.500000]"},
    {ItemTypeR8, "-2.25", "-2.25", "-2.25", -1, "Invalid Value for v [-2.250000]"},
    {ItemTypeDuration, "P1DT2H", "P1DT2H", "PT26H", -1, "Invalid Value for v [P1DT2H]"},
    {ItemTypeYearMonth, "2000-05", "2000-05", "2000-05", -1, "Invalid Value for v [2000-05]"},
    {ItemTypeMonthDay, "--05-17", "--05-17", "--05-17", -1, "Invalid Value for v [--05-17]"},
    {ItemTypeYear, "2000", "2000", "2000-01", -1, "Invalid Value for v [2000]"},
    {ItemTypeMonth, "--05", "--05", "--05", -1, "Invalid Value for v [5]"},
    {ItemTypeDay, "---17", "---17", "---17", -1, "Invalid Value for v [17]"},
    {ItemTypeDate, "2000-01-01Z", "2000-01-01Z", "2000-01-01+00:00", -1, "Invalid Value for v [2000-01-01Z]"},
    {ItemTypeDateTime, "2000-01-01T12:30:00.25+01:00", "2000-01-01T12:30:00.25+01:00", "2000-01-01T11:30:00.25Z",
     -1, "Invalid Value for v [2000-01-01T12:30:00.25+01:00]"},
    {ItemTypeTime, "12:30:00", "12:30:00", "12:30:00", -1, "Invalid Value for v [12:30:00]"},
    {ItemTypeChar, "c", "c", nullptr, -1, nullptr},
    {ItemTypeString, "  a   b ", "a b", nullptr, 3, "Invalid Value for v [a b]"},
    {ItemTypeBoolean, "1", "true", nullptr, -1, nullptr},
    {ItemTypeDecimal, "001.50", "1.5", "1.500", -1, "Invalid Value for v [1.5]"},
    {ItemTypeInteger, "+042", "42", "42", -1, "Invalid Value for v [42]"},
};

CPrimitiveRestrictions Passing(const ItemTypeCase& c)
{
    return CPrimitiveRestrictions(nullptr, -1, -1, c.bound, c.bound, nullptr, nullptr, c.length);
}

CPrimitiveRestrictions Failing(const ItemTypeCase& c)
{
    return CPrimitiveRestrictions(nullptr, -1, -1, nullptr, nullptr, c.bound, nullptr,
                                  c.length >= 0 ? c.length + 1 : -1);
}

} // namespace

TEST(ItemTypeRoundTripTest, EveryKindTravelsThroughTheVariantAndItsFacetCheck)
{
    static_assert(sizeof(kCases) / sizeof(kCases[0]) == ItemTypeInteger, "one case per item type 1 to 26");
    int expectedType = ItemTypeHexBinary;
    for (const ItemTypeCase& c : kCases) {
        SCOPED_TRACE(c.input);
        ASSERT_EQ(expectedType++, c.type);
        NxVariant value;
        value.FromString(c.input, c.type, CWhitespaceUtils::WhitespaceRuleCollapse);
        ASSERT_EQ(c.type, value.GetItemType());
        const std::string printed = value.ToString(nullptr);
        EXPECT_EQ(c.printed, printed);

        // The printed text reads back to the same text.
        NxVariant again;
        again.FromString(printed, c.type, CWhitespaceUtils::WhitespaceRuleNone);
        EXPECT_EQ(printed, again.ToString(nullptr));

        if (c.type == ItemTypeChar) {
            ExpectFailure<CNxInvalidValueException>(
                [&] { CXmlObjectHelper::CheckRestriction("v", value, c.type, CPrimitiveRestrictions()); },
                "unknown type [char]");
            continue;
        }
        EXPECT_NO_THROW(CXmlObjectHelper::CheckRestriction("v", value, c.type, Passing(c)));
        if (c.failure == nullptr) {
            // A boolean breaks nothing, whatever the record holds.
            const CPrimitiveRestrictions every("x", 9, 0, "2", "0", "2", "0", 9);
            EXPECT_NO_THROW(CXmlObjectHelper::CheckRestriction("v", value, c.type, every));
            continue;
        }
        ExpectFailure<CNxException>(
            [&] { CXmlObjectHelper::CheckRestriction("v", value, c.type, Failing(c)); }, c.failure);
    }
}
