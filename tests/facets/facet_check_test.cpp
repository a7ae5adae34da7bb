// The facet checks of every kind: each value against a set of facets, with
// the exact text of the failure; a broken facet is a bare CNxException.
#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <string>

#include "DateBuilders.h"
#include "FacetOutcome.h"
#include "ScopedCType.h"

using namespace NxXmlLib9;

namespace {

using Helper = CXmlObjectHelper;

struct FacetCase {
    ItemType type;
    const char* value; // read as the kind, whitespace kept
    CPrimitiveRestrictions facets;
    const char* outcome; // "" when the value passes
};

CPrimitiveRestrictions PatternOnly(const char* pattern)
{
    return CPrimitiveRestrictions(pattern, -1, -1, nullptr, nullptr, nullptr, nullptr, -1);
}

std::string Check(ItemType type, const char* value, const CPrimitiveRestrictions& facets)
{
    NxVariant variant;
    variant.FromString(value, type, CWhitespaceUtils::WhitespaceRuleNone);
    return Outcome([&] { Helper::CheckRestriction("x", variant, type, facets); });
}

void ExpectOutcomes(const FacetCase* begin, const FacetCase* end)
{
    for (const FacetCase* c = begin; c != end; ++c) {
        SCOPED_TRACE(std::to_string(c - begin) + ": " + c->value);
        EXPECT_EQ(c->outcome, Check(c->type, c->value, c->facets));
    }
}

const char* const kLong = "100000000000000000000";
const char* const kInstant = "2000-01-01T00:00:00Z";

// Lengths count bytes; the lengths go before the pattern, which matches the
// whole value; bounds of a string are not looked at. The engine refuses the
// pattern "(" and would end the process: it must not be reached once a
// length failed.
const FacetCase kStringCases[] = {
    {ItemTypeString, "", CPrimitiveRestrictions(), ""},
    {ItemTypeString, "a", Lengths(2, -1, -1), "Invalid Value for x [a]"},
    {ItemTypeString, "ab", Lengths(2, 2, 2), ""},
    {ItemTypeString, "abc", Lengths(-1, 2, -1), "Invalid Value for x [abc]"},
    {ItemTypeString, "a", Lengths(-1, -1, 2), "Invalid Value for x [a]"},
    {ItemTypeString, "\xC3\xA9", Lengths(-1, 1, -1), "Invalid Value for x [\xC3\xA9]"},
    {ItemTypeString, "", Lengths(-1, -1, 0), ""},
    {ItemTypeString, "a", Lengths(-1, -1, 0), "Invalid Value for x [a]"},
    {ItemTypeString, "a", Lengths(-1, 0, -1), "Invalid Value for x [a]"},
    {ItemTypeString, "12345", PatternOnly("\\d{5}"), ""},
    {ItemTypeString, "1234a", PatternOnly("\\d{5}"), "Invalid Value for x [1234a]"},
    {ItemTypeString, "ab", PatternOnly("a|ab"), "Invalid Value for x [ab]"},
    {ItemTypeString, "a", CPrimitiveRestrictions("(", 5, -1, nullptr, nullptr, nullptr, nullptr, -1),
     "Invalid Value for x [a]"},
    {ItemTypeString, "a", Bounds("z", "b", "zz", "0"), ""},
    // Every facet here would fail, or end the process, if it were looked at.
    {ItemTypeBoolean, "true", CPrimitiveRestrictions("(", 9, 0, "abc", "abc", "abc", "abc", 3), ""},
};

// Each bound at its edge; a bound is read as the value's own kind, with the
// collapse rule, and only when its turn comes.
const FacetCase kNumberCases[] = {
    {ItemTypeI8, "-9223372036854775808", CPrimitiveRestrictions(), ""},
    {ItemTypeI4, "-1", Bounds("", "", "", ""), ""},
    {ItemTypeI4, "-1", Bounds("0", ""), "Invalid Value for x [-1]"},
    {ItemTypeI4, "0", Bounds("0", "10"), ""},
    {ItemTypeI4, "10", Bounds("0", "10"), ""},
    {ItemTypeI4, "11", Bounds(nullptr, "10"), "Invalid Value for x [11]"},
    {ItemTypeI4, "1", Bounds(nullptr, nullptr, "0", "2"), ""},
    {ItemTypeI4, "0", Bounds(nullptr, nullptr, "0"), "Invalid Value for x [0]"},
    {ItemTypeI4, "10", Bounds(nullptr, nullptr, nullptr, "10"), "Invalid Value for x [10]"},
    {ItemTypeUI2, "4", Bounds(" \t5\r\n ", nullptr), "Invalid Value for x [4]"},
    {ItemTypeI4, "5", Bounds("abc", nullptr), "InvalidValue: The value [abc] can not be converted to a i4"},
    {ItemTypeI4, "1", Bounds("5", "abc"), "Invalid Value for x [1]"},
    {ItemTypeI4, "7", Bounds("5", "abc"), "InvalidValue: The value [abc] can not be converted to a i4"},
    {ItemTypeI1, "5", Bounds("300", nullptr), "InvalidValue: The value [300] is to large to fit in a i1"},
    // NaN fails every bound; the reals print through %f.
    {ItemTypeR8, "NaN", Bounds("0", nullptr), "Invalid Value for x [nan]"},
    {ItemTypeR8, "NaN", Bounds(nullptr, "0"), "Invalid Value for x [nan]"},
    {ItemTypeR8, "NaN", Bounds(nullptr, nullptr, "0"), "Invalid Value for x [nan]"},
    {ItemTypeR4, "NaN", Bounds(nullptr, nullptr, nullptr, "0"), "Invalid Value for x [nan]"},
    {ItemTypeR8, "NaN", Bounds("", "", "", ""), ""},
    {ItemTypeR8, "INF", Bounds(nullptr, "INF"), ""},
    {ItemTypeR8, "INF", Bounds(nullptr, nullptr, nullptr, "INF"), "Invalid Value for x [inf]"},
    {ItemTypeR4, "1.5", Bounds("2", nullptr), "Invalid Value for x [1.500000]"},
    {ItemTypeI8, "-9223372036854775808", Bounds(nullptr, nullptr, "0"),
     "Invalid Value for x [-9223372036854775808]"},
    {ItemTypeUI8, "18446744073709551615", Bounds(nullptr, nullptr, nullptr, "0"),
     "Invalid Value for x [18446744073709551615]"},
    {ItemTypeI1, "-5", Bounds(nullptr, nullptr, "0"), "Invalid Value for x [-5]"},
    // The four-byte kinds print through %d: their low 32 bits, signed.
    {ItemTypeUI4, "4294967295", Bounds(nullptr, nullptr, nullptr, "0"), "Invalid Value for x [-1]"},
    {ItemTypeDecimal, "1.50", Bounds("1.5", "1.500", "1.49", "1.51"), ""},
    {ItemTypeDecimal, "1.50", Bounds(nullptr, nullptr, "1.5"), "Invalid Value for x [1.5]"},
    {ItemTypeDecimal, "-0.001", Bounds(" 0 ", nullptr), "Invalid Value for x [-0.001]"},
    // A negative zero orders below zero.
    {ItemTypeDecimal, "-0", Bounds("0", nullptr), "Invalid Value for x [0]"},
    {ItemTypeDecimal, "1.50", Bounds("1,5", nullptr),
     "InvalidValue: The string representing a Decimal, contained an invalid char at position 1 [1,5]"},
    {ItemTypeInteger, kLong, Bounds("99999999999999999999", nullptr), ""},
    {ItemTypeInteger, kLong, Bounds(nullptr, nullptr, nullptr, kLong), "Invalid Value for x [100000000000000000000]"},
    {ItemTypeInteger, "-3", Bounds(nullptr, nullptr, "-3"), "Invalid Value for x [-3]"},
};

// Binary lengths count decoded bytes, and nothing else is looked at.
const FacetCase kBinaryCases[] = {
    {ItemTypeBase64Binary, "TWFu", Lengths(3, 3, 3), ""},
    {ItemTypeBase64Binary, "TWFu", Lengths(4, -1, -1), "Invalid Value for x [TWFu]"},
    {ItemTypeBase64Binary, "TWFu", Lengths(-1, 2, -1), "Invalid Value for x [TWFu]"},
    {ItemTypeHexBinary, "4D616E", Lengths(-1, -1, 6), "Invalid Value for x [4D616E]"},
    {ItemTypeHexBinary, "78", CPrimitiveRestrictions("[0-9]+", -1, -1, "zz", "zz", "zz", "zz", -1), ""},
    {ItemTypeBase64Binary, "eA==", CPrimitiveRestrictions("[0-9]+", -1, -1, "zz", "zz", "zz", "zz", -1), ""},
    {ItemTypeHexBinary, "", Lengths(1, -1, -1), "Invalid Value for x []"},
};

// Dates order definitely or not at all; a value without a zone whose order
// is open passes every bound. The second widening starts from the first
// one's result, so the open window lies after the bound only.
const FacetCase kDateCases[] = {
    {ItemTypeDate, "2000-06-15", Bounds("2000-06-15", "2000-06-15"), ""},
    {ItemTypeDate, "2000-06-15", Bounds(nullptr, nullptr, "2000-06-14", "2000-06-16"), ""},
    {ItemTypeDate, "2000-06-15", Bounds("2000-06-16", nullptr), "Invalid Value for x [2000-06-15]"},
    {ItemTypeDate, "2000-06-15", Bounds(nullptr, "2000-06-14"), "Invalid Value for x [2000-06-15]"},
    {ItemTypeDate, "2000-06-15", Bounds(nullptr, nullptr, "2000-06-15"), "Invalid Value for x [2000-06-15]"},
    {ItemTypeDate, "2000-06-15", Bounds(nullptr, nullptr, nullptr, "2000-06-15"),
     "Invalid Value for x [2000-06-15]"},
    {ItemTypeDateTime, "2000-01-01T04:00:00", Bounds(kInstant, kInstant, kInstant, kInstant), ""},
    {ItemTypeDateTime, "2000-01-01T13:59:00", Bounds(kInstant, kInstant, kInstant, kInstant), ""},
    {ItemTypeDateTime, "1999-12-31T20:00:00", Bounds(kInstant, nullptr), "Invalid Value for x [1999-12-31T20:00:00]"},
    {ItemTypeDateTime, "2000-01-01T14:01:00", Bounds(nullptr, kInstant), "Invalid Value for x [2000-01-01T14:01:00]"},
    // Zones are compared on the normalised instant.
    {ItemTypeDateTime, "2000-01-01T01:00:00+02:00", Bounds(kInstant, nullptr),
     "Invalid Value for x [2000-01-01T01:00:00+02:00]"},
    {ItemTypeTime, "10:00:00", Bounds(" 09:00:00\n", nullptr), ""},
    {ItemTypeDate, "2000-01-01", Bounds("20x0-01-01", nullptr),
     "InvalidValue: Invalid XSD Date [20x0-01-01] expected CCYY-MM-DD[Z|[+|-]hh:mm]"},
    {ItemTypeTime, "10:00:00", Bounds("10:00", nullptr),
     "InvalidValue: Invalid XSD Time [10:00] expected hh:mm:ss[.ff]"},
    {ItemTypeDate, "2000-01-01", Bounds("2001-01-01", "bad"), "Invalid Value for x [2000-01-01]"},
    {ItemTypeYearMonth, "2000-05", Bounds(nullptr, "2000-04"), "Invalid Value for x [2000-05]"},
    {ItemTypeMonthDay, "--02-29", Bounds(nullptr, nullptr, nullptr, "--02-29"), "Invalid Value for x [--02-29]"},
    // Year, month and day compare as numbers, against any form that has them.
    {ItemTypeYear, "1999", Bounds("2000", nullptr), "Invalid Value for x [1999]"},
    {ItemTypeYear, "2000", Bounds("2000-12-31", nullptr), ""},
    {ItemTypeMonth, "--06", Bounds(nullptr, nullptr, nullptr, "--06"), "Invalid Value for x [6]"},
    {ItemTypeDay, "---31", Bounds(nullptr, "---30"), "Invalid Value for x [31]"},
    {ItemTypeYear, "2000", Bounds("--05", nullptr), "InvalidState: Failed to GetYear. Invalid Date Type: gMonth."},
    // Durations order through reference dates, which are days: what a span
    // holds below a day does not order it, and a month against 30 days is
    // open both ways.
    {ItemTypeDuration, "P2D", Bounds(nullptr, "P1D"), "Invalid Value for x [P2D]"},
    {ItemTypeDuration, "P12M", Bounds("P1Y", "P1Y"), ""},
    {ItemTypeDuration, "P12M", Bounds(nullptr, nullptr, "P1Y"), "Invalid Value for x [P12M]"},
    {ItemTypeDuration, "PT2H", Bounds(nullptr, "PT1H"), ""},
    {ItemTypeDuration, "PT2H", Bounds(nullptr, nullptr, nullptr, "PT1H"), "Invalid Value for x [PT2H]"},
    {ItemTypeDuration, "P1M", Bounds("P30D", "P30D", "P30D", "P30D"), ""},
    {ItemTypeDuration, "P1D", Bounds("P", nullptr),
     "InvalidValue: Invalid XSD Duration [P] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"},
};

} // namespace

TEST(FacetChecks, Strings) { ExpectOutcomes(std::begin(kStringCases), std::end(kStringCases)); }
TEST(FacetChecks, Numbers) { ExpectOutcomes(std::begin(kNumberCases), std::end(kNumberCases)); }
TEST(FacetChecks, BinaryData) { ExpectOutcomes(std::begin(kBinaryCases), std::end(kBinaryCases)); }
TEST(FacetChecks, DatesAndDurations) { ExpectOutcomes(std::begin(kDateCases), std::end(kDateCases)); }

TEST(FacetChecks, PatternSeesTheValueByCodePoint)
{
    REQUIRE_UTF8_LOCALE(locale);
    EXPECT_EQ("", Check(ItemTypeString, "caf\xC3\xA9", PatternOnly("\\p{IsBasicLatin}{3}.")));
    EXPECT_EQ("Invalid Value for x [caf\xC3\xA9]",
              Check(ItemTypeString, "caf\xC3\xA9", PatternOnly("\\p{IsBasicLatin}*")));
}

TEST(FacetChecks, YearMonthCheckHasTwoNames)
{
    const CDateTime yearMonth = Date("2000-05");
    EXPECT_EQ("Invalid Value for ym [2000-05]",
              Outcome([&] { Helper::CheckRestrictionFormonthYear("ym", yearMonth, Bounds(nullptr, "2000-04")); }));
    EXPECT_EQ("", Outcome([&] { Helper::CheckRestrictionFormonthYear("ym", yearMonth, Bounds(nullptr, "2000-05")); }));
}

// The declared kind picks the getter, whatever the variant holds.
TEST(FacetChecks, DeclaredKindChoosesTheGetter)
{
    const CPrimitiveRestrictions none;
    NxVariant value;
    value.SetI4(300);
    EXPECT_EQ("Invalid Value for n [300]",
              Outcome([&] { Helper::CheckRestriction("n", value, ItemTypeI4, Bounds(nullptr, "100")); }));
    // Read as one unsigned byte, 300 is 44.
    EXPECT_EQ("", Outcome([&] { Helper::CheckRestriction("n", value, ItemTypeUI1, Bounds(nullptr, "100")); }));
    value.SetYearMonth(Date("2000-05"));
    EXPECT_EQ("Invalid Value for d [2000-05]", Outcome([&] {
                  Helper::CheckRestriction("d", value, ItemTypeDate, Bounds(nullptr, nullptr, "2000-05"));
              }));
    value.SetBase64Binary(CBinaryData("Man"));
    EXPECT_EQ("Invalid Value for b [4D616E]",
              Outcome([&] { Helper::CheckRestriction("b", value, ItemTypeHexBinary, Lengths(-1, 2, -1)); }));
    EXPECT_EQ("Invalid Value for b [TWFu]",
              Outcome([&] { Helper::CheckRestriction("b", value, ItemTypeBase64Binary, Lengths(-1, 2, -1)); }));

    // Kinds without a check; a variant whose own tag has no name fails in
    // naming it.
    value.SetString("s");
    EXPECT_EQ("InvalidValue: unknown type [string]",
              Outcome([&] { Helper::CheckRestriction("s", value, ItemTypeXmlObject, none); }));
    EXPECT_EQ("InvalidValue: unknown type [string]",
              Outcome([&] { Helper::CheckRestriction("s", value, static_cast<ItemType>(29), none); }));
    NxVariant invalid;
    EXPECT_EQ("Invalid Type 0", Outcome([&] { Helper::CheckRestriction("s", invalid, ItemTypeNone, none); }));
}
