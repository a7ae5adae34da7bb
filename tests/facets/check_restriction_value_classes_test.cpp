#include "NxXmlLib9.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "DateBuilders.h"
#include "ExpectFailure.h"

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

void ExpectFacetFailure(const std::function<void()>& call, const std::string& message)
{
    ExpectFailure<CNxException>(call, message);
}

CDateTime DateTime(const char* text)
{
    return CDateTime(text);
}

} // namespace

TEST(BinaryFacetsTest, LengthsCountDecodedBytes)
{
    CBinaryData man;
    man.SetAsBase64("TWFu");
    // Four characters of text, three bytes.
    EXPECT_NO_THROW(Helper::CheckRestrictionForbase64Binary("b", man, Lengths(3, 3, 3)));
    ExpectFacetFailure([&] { Helper::CheckRestrictionForbase64Binary("b", man, Lengths(4, -1, -1)); },
                       "Invalid Value for b [TWFu]");
    ExpectFacetFailure([&] { Helper::CheckRestrictionForbase64Binary("b", man, Lengths(-1, 2, -1)); },
                       "Invalid Value for b [TWFu]");
    ExpectFacetFailure([&] { Helper::CheckRestrictionForhexBinary("h", man, Lengths(-1, -1, 6)); },
                       "Invalid Value for h [4D616E]");
}

TEST(BinaryFacetsTest, PatternAndBoundsAreNotLookedAt)
{
    const CBinaryData data("x");
    const CPrimitiveRestrictions r("[0-9]+", -1, -1, "zz", "zz", "zz", "zz", -1);
    EXPECT_NO_THROW(Helper::CheckRestrictionForhexBinary("h", data, r));
    EXPECT_NO_THROW(Helper::CheckRestrictionForbase64Binary("b", data, r));
    // An empty buffer has length 0.
    ExpectFacetFailure([] { Helper::CheckRestrictionForhexBinary("h", CBinaryData(), Lengths(1, -1, -1)); },
                       "Invalid Value for h []");
}

TEST(DateFacetsTest, EachBoundFailsOnADefiniteOrder)
{
    const CDateTime value = Date("2000-06-15");
    const std::string failure = "Invalid Value for d [2000-06-15]";
    EXPECT_NO_THROW(Helper::CheckRestrictionFordate("d", value, Bounds("2000-06-15", "2000-06-15", nullptr, nullptr)));
    EXPECT_NO_THROW(Helper::CheckRestrictionFordate("d", value, Bounds(nullptr, nullptr, "2000-06-14", "2000-06-16")));
    ExpectFacetFailure([&] { Helper::CheckRestrictionFordate("d", value, Bounds("2000-06-16", nullptr, nullptr, nullptr)); },
                       failure);
    ExpectFacetFailure([&] { Helper::CheckRestrictionFordate("d", value, Bounds(nullptr, "2000-06-14", nullptr, nullptr)); },
                       failure);
    ExpectFacetFailure([&] { Helper::CheckRestrictionFordate("d", value, Bounds(nullptr, nullptr, "2000-06-15", nullptr)); },
                       failure);
    ExpectFacetFailure([&] { Helper::CheckRestrictionFordate("d", value, Bounds(nullptr, nullptr, nullptr, "2000-06-15")); },
                       failure);
}

TEST(DateFacetsTest, ValueWithoutZoneWhoseOrderIsOpenPassesEveryBound)
{
    const char* bound = "2000-01-01T00:00:00Z";
    const CPrimitiveRestrictions all = Bounds(bound, bound, bound, bound);
    EXPECT_NO_THROW(Helper::CheckRestrictionFordatetime("t", DateTime("2000-01-01T04:00:00"), all));
    EXPECT_NO_THROW(Helper::CheckRestrictionFordatetime("t", DateTime("2000-01-01T13:59:00"), all));
    // The second widening starts from the first one's result, so the open
    // window lies after the bound only: a value before it is before it.
    ExpectFacetFailure(
        [&] {
            Helper::CheckRestrictionFordatetime("t", DateTime("1999-12-31T20:00:00"),
                                                Bounds(bound, nullptr, nullptr, nullptr));
        },
        "Invalid Value for t [1999-12-31T20:00:00]");
    ExpectFacetFailure(
        [&] {
            Helper::CheckRestrictionFordatetime("t", DateTime("2000-01-01T14:01:00"),
                                                Bounds(nullptr, bound, nullptr, nullptr));
        },
        "Invalid Value for t [2000-01-01T14:01:00]");
    // Zones are compared on the normalised instant.
    ExpectFacetFailure(
        [&] {
            Helper::CheckRestrictionFordatetime("t", DateTime("2000-01-01T01:00:00+02:00"),
                                                Bounds(bound, nullptr, nullptr, nullptr));
        },
        "Invalid Value for t [2000-01-01T01:00:00+02:00]");
}

TEST(DateFacetsTest, BoundsAreReadWithTheCollapseRuleByTheKindsReader)
{
    EXPECT_NO_THROW(Helper::CheckRestrictionFortime("t", Time("10:00:00"), Bounds(" 09:00:00\n", nullptr, nullptr, nullptr)));
    ExpectFailure<CNxInvalidValueException>(
        [] { Helper::CheckRestrictionFordate("d", Date("2000-01-01"), Bounds("20x0-01-01", nullptr, nullptr, nullptr)); },
        "Invalid XSD Date [20x0-01-01] expected CCYY-MM-DD[Z|[+|-]hh:mm]");
    ExpectFailure<CNxInvalidValueException>(
        [] { Helper::CheckRestrictionFortime("t", Time("10:00:00"), Bounds("10:00", nullptr, nullptr, nullptr)); },
        "Invalid XSD Time [10:00] expected hh:mm:ss[.ff]");
    // A bound is read only when its turn comes.
    ExpectFacetFailure(
        [] { Helper::CheckRestrictionFordate("d", Date("2000-01-01"), Bounds("2001-01-01", "bad", nullptr, nullptr)); },
        "Invalid Value for d [2000-01-01]");
}

TEST(DateFacetsTest, PartialDateKindsAndTheirTwoNames)
{
    const CDateTime yearMonth = Date("2000-05");
    const CPrimitiveRestrictions below = Bounds(nullptr, "2000-04", nullptr, nullptr);
    ExpectFacetFailure([&] { Helper::CheckRestrictionForyearMonth("ym", yearMonth, below); },
                       "Invalid Value for ym [2000-05]");
    ExpectFacetFailure([&] { Helper::CheckRestrictionFormonthYear("ym", yearMonth, below); },
                       "Invalid Value for ym [2000-05]");
    EXPECT_NO_THROW(Helper::CheckRestrictionFormonthYear("ym", yearMonth, Bounds(nullptr, "2000-05", nullptr, nullptr)));
    ExpectFacetFailure(
        [] { Helper::CheckRestrictionFormonthDay("md", Date("--02-29"), Bounds(nullptr, nullptr, nullptr, "--02-29")); },
        "Invalid Value for md [--02-29]");
}

TEST(DurationFacetsTest, OrderThroughTheReferenceDates)
{
    ExpectFacetFailure([] { Helper::CheckRestrictionForduration("p", Span("P2D"), Bounds(nullptr, "P1D", nullptr, nullptr)); },
                       "Invalid Value for p [P2D]");
    EXPECT_NO_THROW(Helper::CheckRestrictionForduration("p", Span("P12M"), Bounds("P1Y", "P1Y", nullptr, nullptr)));
    ExpectFacetFailure([] { Helper::CheckRestrictionForduration("p", Span("P12M"), Bounds(nullptr, nullptr, "P1Y", nullptr)); },
                       "Invalid Value for p [P12M]");
    // The reference dates are days, so what a span holds below a day does
    // not order it: PT2H is equal to PT1H.
    EXPECT_NO_THROW(Helper::CheckRestrictionForduration("p", Span("PT2H"), Bounds(nullptr, "PT1H", nullptr, nullptr)));
    ExpectFacetFailure([] { Helper::CheckRestrictionForduration("p", Span("PT2H"), Bounds(nullptr, nullptr, nullptr, "PT1H")); },
                       "Invalid Value for p [PT2H]");
    // A month against 30 days is open in both directions.
    const CPrimitiveRestrictions thirty = Bounds("P30D", "P30D", "P30D", "P30D");
    EXPECT_NO_THROW(Helper::CheckRestrictionForduration("p", Span("P1M"), thirty));
    ExpectFailure<CNxInvalidValueException>(
        [] { Helper::CheckRestrictionForduration("p", Span("P1D"), Bounds("P", nullptr, nullptr, nullptr)); },
        "Invalid XSD Duration [P] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
}

TEST(DatePartFacetsTest, YearMonthAndDayCompareAsNumbersAgainstDateForms)
{
    ExpectFacetFailure([] { Helper::CheckRestrictionForyear("y", 1999, Bounds("2000", nullptr, nullptr, nullptr)); },
                       "Invalid Value for y [1999]");
    // Any form with a year is a year bound.
    EXPECT_NO_THROW(Helper::CheckRestrictionForyear("y", 2000, Bounds("2000-12-31", nullptr, nullptr, nullptr)));
    ExpectFacetFailure([] { Helper::CheckRestrictionFormonth("m", 6, Bounds(nullptr, nullptr, nullptr, "--06")); },
                       "Invalid Value for m [6]");
    ExpectFacetFailure([] { Helper::CheckRestrictionForday("d", 31, Bounds(nullptr, "---30", nullptr, nullptr)); },
                       "Invalid Value for d [31]");
    ExpectFailure<CNxInvalidStateException>(
        [] { Helper::CheckRestrictionForyear("y", 2000, Bounds("--05", nullptr, nullptr, nullptr)); },
        "Failed to GetYear. Invalid Date Type: gMonth.");
}

TEST(DecimalFacetsTest, OrderWithTheDecimalOperators)
{
    const CDecimal value("1.50");
    EXPECT_NO_THROW(Helper::CheckRestrictionFordecimal("x", value, Bounds("1.5", "1.500", "1.49", "1.51")));
    ExpectFacetFailure([&] { Helper::CheckRestrictionFordecimal("x", value, Bounds(nullptr, nullptr, "1.5", nullptr)); },
                       "Invalid Value for x [1.5]");
    ExpectFacetFailure([] { Helper::CheckRestrictionFordecimal("x", CDecimal("-0.001"), Bounds(" 0 ", nullptr, nullptr, nullptr)); },
                       "Invalid Value for x [-0.001]");
    // A negative zero orders below zero.
    ExpectFacetFailure([] { Helper::CheckRestrictionFordecimal("x", CDecimal("-0"), Bounds("0", nullptr, nullptr, nullptr)); },
                       "Invalid Value for x [0]");
    ExpectFailure<CNxInvalidValueException>(
        [&] { Helper::CheckRestrictionFordecimal("x", value, Bounds("1,5", nullptr, nullptr, nullptr)); },
        "The string representing a Decimal, contained an invalid char at position 1 [1,5]");
}

TEST(IntegerFacetsTest, OrderWithTheBigIntegerOperators)
{
    const CBigInteger big("100000000000000000000");
    EXPECT_NO_THROW(Helper::CheckRestrictionForinteger("n", big, Bounds("99999999999999999999", nullptr, nullptr, nullptr)));
    ExpectFacetFailure([&] { Helper::CheckRestrictionForinteger("n", big, Bounds(nullptr, nullptr, nullptr, "100000000000000000000")); },
                       "Invalid Value for n [100000000000000000000]");
    ExpectFacetFailure([] { Helper::CheckRestrictionForinteger("n", CBigInteger(-3), Bounds(nullptr, nullptr, "-3", nullptr)); },
                       "Invalid Value for n [-3]");
}

TEST(CheckRestrictionDispatchTest, ValueKindsReachTheirChecks)
{
    NxVariant value;
    // The declared kind picks the getter: a yearMonth is read as a date and
    // checked with the date's bounds.
    value.SetYearMonth(Date("2000-05"));
    ExpectFacetFailure(
        [&] { Helper::CheckRestriction("d", value, ItemTypeDate, Bounds(nullptr, nullptr, "2000-05", nullptr)); },
        "Invalid Value for d [2000-05]");
    value.SetBase64Binary(CBinaryData("Man"));
    ExpectFacetFailure([&] { Helper::CheckRestriction("b", value, ItemTypeHexBinary, Lengths(-1, 2, -1)); },
                       "Invalid Value for b [4D616E]");
    ExpectFacetFailure([&] { Helper::CheckRestriction("b", value, ItemTypeBase64Binary, Lengths(-1, 2, -1)); },
                       "Invalid Value for b [TWFu]");
}
