#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "ExpectFailure.h"
#include "ScopedCType.h"

using namespace NxXmlLib9;

namespace {

using Helper = CXmlObjectHelper;

CPrimitiveRestrictions Lengths(int minLength, int maxLength, int length)
{
    return CPrimitiveRestrictions(nullptr, minLength, maxLength, nullptr, nullptr, nullptr, nullptr, length);
}

CPrimitiveRestrictions Bounds(const char* minInclusive, const char* maxInclusive, const char* minExclusive,
                              const char* maxExclusive)
{
    return CPrimitiveRestrictions(nullptr, -1, -1, minInclusive, maxInclusive, minExclusive, maxExclusive, -1);
}

CPrimitiveRestrictions PatternOnly(const char* pattern)
{
    return CPrimitiveRestrictions(pattern, -1, -1, nullptr, nullptr, nullptr, nullptr, -1);
}

// A broken facet is a bare CNxException, not one of its subclasses.
void ExpectFacetFailure(const std::function<void()>& call, const std::string& message)
{
    ExpectFailure<CNxException>(call, message);
}

} // namespace

TEST(PrimitiveRestrictions, DefaultAndNullTextsMeanNoFacet)
{
    const CPrimitiveRestrictions none;
    EXPECT_EQ(-1, none.MinLength);
    EXPECT_EQ(-1, none.MaxLength);
    EXPECT_EQ(-1, none.Length);
    EXPECT_NO_THROW(Helper::CheckRestrictionForstring("x", "", none));
    EXPECT_NO_THROW(Helper::CheckRestrictionFori8("x", std::numeric_limits<long long>::min(), none));
    const CPrimitiveRestrictions nulls(nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1);
    EXPECT_TRUE(nulls.Pattern.empty() && nulls.MinInclusive.empty() && nulls.MaxInclusive.empty() &&
                nulls.MinExclusive.empty() && nulls.MaxExclusive.empty());
}

TEST(StringFacets, LengthsCountBytes)
{
    ExpectFacetFailure([] { Helper::CheckRestrictionForstring("x", "a", Lengths(2, -1, -1)); },
                       "Invalid Value for x [a]");
    EXPECT_NO_THROW(Helper::CheckRestrictionForstring("x", "ab", Lengths(2, 2, 2)));
    ExpectFacetFailure([] { Helper::CheckRestrictionForstring("x", "abc", Lengths(-1, 2, -1)); },
                       "Invalid Value for x [abc]");
    ExpectFacetFailure([] { Helper::CheckRestrictionForstring("code", "a", Lengths(-1, -1, 2)); },
                       "Invalid Value for code [a]");
    // A two-byte character counts twice, whatever the locale.
    ExpectFacetFailure([] { Helper::CheckRestrictionForstring("x", "\xC3\xA9", Lengths(-1, 1, -1)); },
                       "Invalid Value for x [\xC3\xA9]");
    // Zero is a length; a negative one is none.
    EXPECT_NO_THROW(Helper::CheckRestrictionForstring("x", "", Lengths(-1, -1, 0)));
    ExpectFacetFailure([] { Helper::CheckRestrictionForstring("x", "a", Lengths(-1, 0, -1)); },
                       "Invalid Value for x [a]");
    EXPECT_NO_THROW(Helper::CheckRestrictionForstring("x", std::string(1000, 'z'), Lengths(-1, -1, -1)));
}

TEST(StringFacets, PatternMustMatchTheWholeValue)
{
    EXPECT_NO_THROW(Helper::CheckRestrictionForstring("zip", "12345", PatternOnly("\\d{5}")));
    ExpectFacetFailure([] { Helper::CheckRestrictionForstring("zip", "1234a", PatternOnly("\\d{5}")); },
                       "Invalid Value for zip [1234a]");
    ExpectFacetFailure([] { Helper::CheckRestrictionForstring("zip", "ab", PatternOnly("a|ab")); },
                       "Invalid Value for zip [ab]");
}

TEST(StringFacets, LengthsComeBeforeThePatternAndBoundsAreIgnored)
{
    // The engine refuses this pattern and would end the process: it must
    // not be reached once a length has failed.
    const CPrimitiveRestrictions r("(", 5, -1, nullptr, nullptr, nullptr, nullptr, -1);
    ExpectFacetFailure([&] { Helper::CheckRestrictionForstring("x", "a", r); }, "Invalid Value for x [a]");
    EXPECT_NO_THROW(Helper::CheckRestrictionForstring("x", "a", Bounds("z", "b", "zz", "0")));
}

TEST(StringFacets, PatternSeesTheValueByCodePoint)
{
    REQUIRE_UTF8_LOCALE(locale);
    EXPECT_NO_THROW(Helper::CheckRestrictionForstring("x", "caf\xC3\xA9", PatternOnly("\\p{IsBasicLatin}{3}.")));
    ExpectFacetFailure(
        [] { Helper::CheckRestrictionForstring("x", "caf\xC3\xA9", PatternOnly("\\p{IsBasicLatin}*")); },
        "Invalid Value for x [caf\xC3\xA9]");
}

TEST(NumberFacets, EachBoundAtItsEdge)
{
    EXPECT_NO_THROW(Helper::CheckRestrictionFori4("x", -1, Bounds("", "", "", "")));
    ExpectFacetFailure([] { Helper::CheckRestrictionFori4("x", -1, Bounds("0", "", "", "")); },
                       "Invalid Value for x [-1]");
    EXPECT_NO_THROW(Helper::CheckRestrictionFori4("x", 0, Bounds("0", "10", nullptr, nullptr)));
    EXPECT_NO_THROW(Helper::CheckRestrictionFori4("x", 10, Bounds("0", "10", nullptr, nullptr)));
    ExpectFacetFailure([] { Helper::CheckRestrictionFori4("x", 11, Bounds(nullptr, "10", nullptr, nullptr)); },
                       "Invalid Value for x [11]");
    EXPECT_NO_THROW(Helper::CheckRestrictionFori4("x", 1, Bounds(nullptr, nullptr, "0", "2")));
    ExpectFacetFailure([] { Helper::CheckRestrictionFori4("x", 0, Bounds(nullptr, nullptr, "0", nullptr)); },
                       "Invalid Value for x [0]");
    ExpectFacetFailure([] { Helper::CheckRestrictionFori4("x", 10, Bounds(nullptr, nullptr, nullptr, "10")); },
                       "Invalid Value for x [10]");
    ExpectFacetFailure([] { Helper::CheckRestrictionForui2("x", 4, Bounds(" \t5\r\n ", nullptr, nullptr, nullptr)); },
                       "Invalid Value for x [4]");
}

TEST(NumberFacets, MalformedBoundFailsWithTheParsersMessage)
{
    ExpectFailure<CNxInvalidValueException>(
        [] { Helper::CheckRestrictionFori4("x", 5, Bounds("abc", nullptr, nullptr, nullptr)); },
        "The value [abc] can not be converted to a i4");
    // Bounds are parsed in turn: a failing earlier bound hides a malformed
    // later one, and a passing one reveals it.
    ExpectFacetFailure([] { Helper::CheckRestrictionFori4("x", 1, Bounds("5", "abc", nullptr, nullptr)); },
                       "Invalid Value for x [1]");
    ExpectFailure<CNxInvalidValueException>(
        [] { Helper::CheckRestrictionFori4("x", 7, Bounds("5", "abc", nullptr, nullptr)); },
        "The value [abc] can not be converted to a i4");
    // A bound is parsed as the value's own kind.
    ExpectFailure<CNxInvalidValueException>(
        [] { Helper::CheckRestrictionFori1("x", 5, Bounds("300", nullptr, nullptr, nullptr)); },
        "The value [300] is to large to fit in a i1");
}

TEST(NumberFacets, RealsAgainstNaNAndInfinity)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    ExpectFacetFailure([=] { Helper::CheckRestrictionForr8("x", nan, Bounds("0", nullptr, nullptr, nullptr)); },
                       "Invalid Value for x [nan]");
    ExpectFacetFailure([=] { Helper::CheckRestrictionForr8("x", nan, Bounds(nullptr, "0", nullptr, nullptr)); },
                       "Invalid Value for x [nan]");
    ExpectFacetFailure([=] { Helper::CheckRestrictionForr8("x", nan, Bounds(nullptr, nullptr, "0", nullptr)); },
                       "Invalid Value for x [nan]");
    ExpectFacetFailure([] {
        Helper::CheckRestrictionForr4("x", std::numeric_limits<float>::quiet_NaN(),
                                      Bounds(nullptr, nullptr, nullptr, "0"));
    },
                       "Invalid Value for x [nan]");
    EXPECT_NO_THROW(Helper::CheckRestrictionForr8("x", nan, Bounds("", "", "", "")));
    EXPECT_NO_THROW(Helper::CheckRestrictionForr8("x", inf, Bounds(nullptr, "INF", nullptr, nullptr)));
    ExpectFacetFailure([=] { Helper::CheckRestrictionForr8("x", inf, Bounds(nullptr, nullptr, nullptr, "INF")); },
                       "Invalid Value for x [inf]");
    ExpectFacetFailure([] { Helper::CheckRestrictionForr4("x", 1.5f, Bounds("2", nullptr, nullptr, nullptr)); },
                       "Invalid Value for x [1.500000]");
}

TEST(NumberFacets, FailureTextsBeyondThirtyTwoBits)
{
    const CPrimitiveRestrictions aboveZero = Bounds(nullptr, nullptr, "0", nullptr);
    const CPrimitiveRestrictions belowZero = Bounds(nullptr, nullptr, nullptr, "0");
    ExpectFacetFailure([&] { Helper::CheckRestrictionFori8("n", -9223372036854775807LL - 1, aboveZero); },
                       "Invalid Value for n [-9223372036854775808]");
    ExpectFacetFailure([&] { Helper::CheckRestrictionForui8("n", 18446744073709551615ULL, belowZero); },
                       "Invalid Value for n [18446744073709551615]");
    ExpectFacetFailure([&] { Helper::CheckRestrictionFori1("n", -5, aboveZero); }, "Invalid Value for n [-5]");
    // The four-byte kinds print through %d: their low 32 bits, signed.
    ExpectFacetFailure([&] { Helper::CheckRestrictionForui4("n", 4294967295UL, belowZero); },
                       "Invalid Value for n [-1]");
}

TEST(BooleanFacets, NeverRefused)
{
    // Every facet here would fail, or end the process, if it were looked at.
    const CPrimitiveRestrictions r("(", 9, 0, "abc", "abc", "abc", "abc", 3);
    EXPECT_NO_THROW(Helper::CheckRestrictionForboolean("b", true, r));
}

TEST(CheckRestrictionDispatch, DeclaredTypeChoosesTheGetter)
{
    NxVariant value;
    value.SetI4(300);
    const CPrimitiveRestrictions atMost100 = Bounds(nullptr, "100", nullptr, nullptr);
    ExpectFacetFailure([&] { Helper::CheckRestriction("n", value, ItemTypeI4, atMost100); },
                       "Invalid Value for n [300]");
    // Read as one unsigned byte, 300 is 44.
    EXPECT_NO_THROW(Helper::CheckRestriction("n", value, ItemTypeUI1, atMost100));
}

TEST(CheckRestrictionDispatch, KindsWithoutACheck)
{
    const CPrimitiveRestrictions none;
    NxVariant value;
    value.SetString("s");
    ExpectFailure<CNxInvalidValueException>(
        [&] { Helper::CheckRestriction("s", value, ItemTypeXmlObject, none); }, "unknown type [string]");
    ExpectFailure<CNxInvalidValueException>(
        [&] { Helper::CheckRestriction("s", value, static_cast<ItemType>(29), none); }, "unknown type [string]");
    // A variant whose own tag has no name fails in naming it.
    NxVariant invalid;
    ExpectFailure<CNxException>([&] { Helper::CheckRestriction("s", invalid, ItemTypeNone, none); },
                                "Invalid Type 0");
}
