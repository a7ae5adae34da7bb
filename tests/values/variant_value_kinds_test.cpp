#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "NxXmlLib9.h"
#include "DateBuilders.h"
#include "ExpectFailure.h"

using namespace NxXmlLib9;
using WS = CWhitespaceUtils;

namespace {

const WS::WhitespaceRule kNone = WS::WhitespaceRuleNone;

struct SetterCase {
    std::function<void(NxVariant&)> set;
    ItemType type;
    const char* name;
    const char* text;
};

// Every kind a setter stores, with its name and its text.
std::vector<SetterCase> SetterCases()
{
    return {
        {[](NxVariant& v) { v.SetI1(-5); }, ItemTypeI1, "i1", "-5"},
        {[](NxVariant& v) { v.SetI2(-300); }, ItemTypeI2, "i2", "-300"},
        {[](NxVariant& v) { v.SetI4(-70000); }, ItemTypeI4, "i4", "-70000"},
        {[](NxVariant& v) { v.SetI8(-5000000000LL); }, ItemTypeI8, "i8", "-5000000000"},
        {[](NxVariant& v) { v.SetUI1(200); }, ItemTypeUI1, "ui1", "200"},
        {[](NxVariant& v) { v.SetUI2(60000); }, ItemTypeUI2, "ui2", "60000"},
        {[](NxVariant& v) { v.SetUI4(4000000000UL); }, ItemTypeUI4, "ui4", "4000000000"},
        {[](NxVariant& v) { v.SetUI8(18000000000000000000ULL); }, ItemTypeUI8, "ui8", "18000000000000000000"},
        {[](NxVariant& v) { v.SetR4(0.25f); }, ItemTypeR4, "r4", "0.25"},
        {[](NxVariant& v) { v.SetR8(2.5); }, ItemTypeR8, "r8", "2.5"},
        {[](NxVariant& v) { v.SetYear(1999); }, ItemTypeYear, "year", "1999"},
        {[](NxVariant& v) { v.SetMonth(3); }, ItemTypeMonth, "month", "--03"},
        {[](NxVariant& v) { v.SetDay(7); }, ItemTypeDay, "day", "---07"},
        {[](NxVariant& v) { v.SetChar('q'); }, ItemTypeChar, "char", "q"},
        {[](NxVariant& v) { v.SetBoolean(true); }, ItemTypeBoolean, "boolean", "true"},
        {[](NxVariant& v) { v.SetString("text"); }, ItemTypeString, "string", "text"},
        {[](NxVariant& v) { v.SetHexBinary(CBinaryData("Ma")); }, ItemTypeHexBinary, "hexBinary", "4D61"},
        {[](NxVariant& v) { v.SetBase64Binary(CBinaryData("Ma")); }, ItemTypeBase64Binary, "base64Binary", "TWE="},
        {[](NxVariant& v) { v.SetDuration(Span("PT90S")); }, ItemTypeDuration, "duration", "PT90S"},
        {[](NxVariant& v) { v.SetYearMonth(Date("2000-05")); }, ItemTypeYearMonth, "yearMonth", "2000-05"},
        {[](NxVariant& v) { v.SetMonthDay(Date("--05-17")); }, ItemTypeMonthDay, "monthDay", "--05-17"},
        {[](NxVariant& v) { v.SetDate(Date("2000-05-17Z")); }, ItemTypeDate, "date", "2000-05-17Z"},
        {[](NxVariant& v) { v.SetDateTime(CDateTime("2000-05-17T10:00:00-05:00")); }, ItemTypeDateTime,
         "datetime", "2000-05-17T10:00:00-05:00"},
        {[](NxVariant& v) { v.SetTime(Time("10:00:00.001")); }, ItemTypeTime, "time", "10:00:00.001"},
        {[](NxVariant& v) { v.SetDecimal(CDecimal("-0.25")); }, ItemTypeDecimal, "decimal", "-0.25"},
        {[](NxVariant& v) { v.SetInteger(CBigInteger("-98765432109876543210")); }, ItemTypeInteger, "integer",
         "-98765432109876543210"},
    };
}

} // namespace

TEST(VariantValueKindsTest, SettersStoreTheirKindAndPrintIt)
{
    for (const SetterCase& c : SetterCases()) {
        SCOPED_TRACE(c.name);
        NxVariant v;
        v.SetString("replaced");
        c.set(v);
        EXPECT_EQ(c.type, v.GetItemType());
        EXPECT_EQ(c.name, v.GetType());
        EXPECT_EQ(c.text, v.ToString(nullptr));
        // A copy, assigned over another value object, prints the same.
        NxVariant copy;
        copy.SetDecimal(CDecimal(7));
        copy = v;
        v.Clear();
        EXPECT_EQ(c.text, copy.ToString(nullptr));
        // A moved variant hands its object over.
        NxVariant moved(std::move(copy));
        EXPECT_FALSE(copy.IsValid());
        EXPECT_EQ(c.text, moved.ToString(nullptr));
    }
}

TEST(VariantValueKindsTest, SetterAndGetterCopyTheObject)
{
    CDecimal source("1.5");
    NxVariant v;
    v.SetDecimal(source);
    source.Negate();
    CDecimal read = v.GetDecimal();
    read += CDecimal(1);
    EXPECT_EQ("1.5", v.ToString(nullptr));
    EXPECT_EQ("2.5", read.ToString());

    CDateTimeSpan span = Span("P1D");
    v.SetDuration(span);
    span.SetDays(2);
    EXPECT_EQ(1u, v.GetDuration().GetDays());
}

TEST(VariantValueKindsTest, BinaryCopiesShareTheBytes)
{
    const CBinaryData data("bytes");
    NxVariant v;
    v.SetHexBinary(data);
    NxVariant copy(v);
    EXPECT_EQ(data.GetData(), v.GetHexBinary().GetData());
    EXPECT_EQ(data.GetData(), copy.GetHexBinary().GetData());
    // Both binary getters read the one object.
    EXPECT_EQ(data.GetData(), copy.GetBase64Binary().GetData());
}

TEST(VariantValueKindsTest, DateGettersReadTheValueWithItsOwnKind)
{
    NxVariant v;
    v.FromString("2000-05", ItemTypeDate, kNone);
    EXPECT_EQ(ItemTypeDate, v.GetItemType());
    EXPECT_EQ(CDateTime::dt_gYearMonth, v.GetDate().GetType());
    EXPECT_EQ(CDateTime::dt_gYearMonth, v.GetTime().GetType());
    EXPECT_EQ("2000-05", v.ToString(nullptr));
}

TEST(VariantValueKindsTest, GetterOfAnotherClassGivesAnEmptyValue)
{
    NxVariant v;
    v.SetI8(0x123456789LL);
    EXPECT_EQ("0", v.GetDecimal().ToString());
    EXPECT_EQ(CDateTime::dt_yearZero, v.GetDate().GetType());
    EXPECT_EQ(0u, v.GetHexBinary().GetLength());
    v.SetDuration(Span("P1D"));
    EXPECT_EQ("0", v.GetInteger().ToString());
    EXPECT_EQ("", v.GetString());
}

TEST(VariantValueKindsTest, FailedFromStringKeepsThePreviousValue)
{
    NxVariant v;
    v.SetDecimal(CDecimal("1.5"));
    ExpectFailure<CNxInvalidValueException>(
        [&] { v.FromString("P", ItemTypeDuration, kNone); },
        "Invalid XSD Duration [P] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    ExpectFailure<CNxInvalidStateException>([&] { v.FromString("--05", ItemTypeYear, kNone); },
                                            "Failed to GetYear. Invalid Date Type: gMonth.");
    ExpectFailure<CNxInvalidValueException>([&] { v.FromString("1900-02-29", ItemTypeDate, kNone); },
                                            "Invalid Day [29] (1 <= day <= days in month");
    EXPECT_EQ(ItemTypeDecimal, v.GetItemType());
    EXPECT_EQ("1.5", v.ToString(nullptr));
}

TEST(VariantValueKindsTest, FormatReachesTheDecimalOnly)
{
    NxVariant v;
    v.SetDecimal(CDecimal("1.25"));
    EXPECT_EQ("1.25", v.ToString(nullptr));
    EXPECT_EQ("1.7", v.ToString("1"));
    v.SetInteger(CBigInteger(12));
    EXPECT_EQ("12", v.ToString("1"));
}
