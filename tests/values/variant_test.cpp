#include <gtest/gtest.h>

#include <utility>

#include "NxXmlLib9.h"
#include "TestObjects.h"
#include "ExpectFailure.h"

using namespace NxXmlLib9;
using WS = CWhitespaceUtils;

namespace {

// The present count of a bound object, read through the public counting.
long long CountOf(CXmlObjectBase* object)
{
    object->AddRef();
    return object->Release();
}

} // namespace

TEST(VariantTest, FreshVariantIsInvalidAndHasNoType)
{
    NxVariant v;
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(ItemTypeNone, v.GetItemType());
    ExpectFailure<CNxException>([&] { v.GetType(); }, "Invalid Type 0");
    ExpectFailure<CNxException>([&] { v.ToString(nullptr); }, "Invalid Type 0 to convert to string");
}

TEST(VariantTest, SetInvalidDropsTheValue)
{
    NxVariant v;
    v.SetString("text");
    EXPECT_EQ("text", v.GetString());
    v.SetInvalid();
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ("", v.GetString());
}

TEST(VariantTest, FormatReachesOnlyTheRealKinds)
{
    NxVariant v;
    v.SetR8(1.0 / 3.0);
    EXPECT_EQ("0.3333333333333333", v.ToString(nullptr));
    EXPECT_EQ("0.33", v.ToString("%.2f"));
    v.SetR4(1.5f);
    EXPECT_EQ("1.5", v.ToString(nullptr));
    EXPECT_EQ("1.50", v.ToString("%.2f"));
    v.SetI4(12);
    EXPECT_EQ("12", v.ToString("%.2f"));
    v.SetString("%s");
    EXPECT_EQ("%s", v.ToString("%d"));
}

TEST(VariantTest, CopiesAreIndependent)
{
    NxVariant original;
    original.SetString("first");
    NxVariant copy(original);
    original.SetString("second");
    EXPECT_EQ("first", copy.GetString());
    copy = original;
    EXPECT_EQ("second", copy.GetString());
    copy.SetI4(3);
    EXPECT_EQ("second", original.GetString());

    NxVariant number;
    number.SetR8(4.5);
    copy = number;
    EXPECT_EQ(ItemTypeR8, copy.GetItemType());
    EXPECT_EQ(4.5, copy.GetR8());

    NxVariant invalid;
    copy = invalid;
    EXPECT_FALSE(copy.IsValid());
    NxVariant copyOfInvalid(invalid);
    EXPECT_FALSE(copyOfInvalid.IsValid());
}

TEST(VariantTest, SelfAssignmentLeavesTheVariantInvalid)
{
    NxVariant v;
    v.SetString("gone");
    NxVariant& alias = v;
    v = alias;
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(ItemTypeNone, v.GetItemType());

    int destroyed = 0;
    auto* object = new NxTest::CountedObject(&destroyed);
    v.SetXmlObject(object);
    v = alias;
    EXPECT_FALSE(v.IsValid());
    EXPECT_EQ(1, destroyed);
}

TEST(VariantTest, MoveTakesTheValueOver)
{
    NxVariant source;
    source.SetString("moved");
    NxVariant target(std::move(source));
    EXPECT_EQ("moved", target.GetString());
    EXPECT_FALSE(source.IsValid());

    NxVariant other;
    other.SetI2(9);
    target = std::move(other);
    EXPECT_EQ(ItemTypeI2, target.GetItemType());
    EXPECT_EQ(9, target.GetI2());
}

TEST(VariantObjectTest, NullObjectIsValidAndHasNoTextForm)
{
    NxVariant v;
    v.SetXmlObject(nullptr);
    EXPECT_TRUE(v.IsValid());
    EXPECT_EQ(ItemTypeXmlObject, NxVariant(v).GetItemType());
    EXPECT_EQ(nullptr, static_cast<CXmlObjectBase*>(v.GetXmlObject()));
    ExpectFailure<CNxException>([&] { v.GetType(); }, "Invalid Type 27");
    ExpectFailure<CNxException>([&] { v.ToString(nullptr); }, "Invalid Type 27 to convert to string");
    v.SetXmlCollection(nullptr);
    EXPECT_EQ(ItemTypeXmlCollection, v.GetItemType());
    EXPECT_TRUE(v.IsValid());
    ExpectFailure<CNxException>([&] { v.GetType(); }, "Invalid Type 28");
    ExpectFailure<CNxException>([&] { v.ToString(nullptr); }, "Invalid Type 28 to convert to string");
}

TEST(VariantObjectTest, CopiesCountTheObject)
{
    int destroyed = 0;
    CSmartPtr<CXmlObjectBase> object(new NxTest::CountedObject(&destroyed));
    EXPECT_EQ(1, CountOf(object));
    {
        NxVariant v;
        v.SetXmlObject(object);
        EXPECT_EQ(2, CountOf(object));
        {
            NxVariant copy(v);
            EXPECT_EQ(3, CountOf(object));
            EXPECT_EQ(static_cast<CXmlObjectBase*>(object), static_cast<CXmlObjectBase*>(copy.GetXmlObject()));
            NxVariant assigned;
            assigned.SetString("replaced");
            assigned = v;
            EXPECT_EQ(4, CountOf(object));
            assigned.SetI4(1);
            EXPECT_EQ(3, CountOf(object));
        }
        EXPECT_EQ(2, CountOf(object));
        {
            CSmartPtr<CXmlObjectBase> held = v.GetXmlObject();
            EXPECT_EQ(3, CountOf(object));
        }
        // Setting the held object again keeps it alive and counted once.
        v.SetXmlObject(object);
        EXPECT_EQ(2, CountOf(object));
    }
    EXPECT_EQ(1, CountOf(object));
    EXPECT_EQ(0, destroyed);
    object = nullptr;
    EXPECT_EQ(1, destroyed);
}

TEST(VariantObjectTest, VariantAloneKeepsTheObjectAlive)
{
    int destroyed = 0;
    NxVariant v;
    v.SetXmlObject(new NxTest::CountedObject(&destroyed));
    // The only count belongs to the variant: setting the same raw pointer
    // again must not destroy it on the way.
    v.SetXmlObject(static_cast<CXmlObjectBase*>(v.GetXmlObject()));
    EXPECT_EQ(0, destroyed);
    {
        CSmartPtr<CXmlObjectBase> held = v.GetXmlObject();
        EXPECT_EQ(2, CountOf(held));
    }
    v.Clear();
    EXPECT_EQ(1, destroyed);
    EXPECT_FALSE(v.IsValid());
}

TEST(VariantObjectTest, CollectionsAreCountedToo)
{
    CSmartPtr<CXmlCollectionBase> collection(new NxTest::EmptyCollection("item", "urn:x", 0, -1));
    NxVariant v;
    v.SetXmlCollection(collection);
    EXPECT_EQ(2, CountOf(collection));
    NxVariant copy;
    copy = v;
    EXPECT_EQ(3, CountOf(collection));
    CSmartPtr<CXmlCollectionBase> got = copy.GetXmlCollection();
    EXPECT_EQ(static_cast<CXmlCollectionBase*>(collection), static_cast<CXmlCollectionBase*>(got));
    EXPECT_EQ(4, CountOf(collection));
    got = nullptr;
    v.SetInvalid();
    copy.SetI1(1);
    EXPECT_EQ(1, CountOf(collection));
}

TEST(VariantFromStringTest, FailedParseKeepsThePreviousValue)
{
    NxVariant v;
    v.SetI2(17);
    ExpectFailure<CNxInvalidValueException>(
        [&] { v.FromString("70000", ItemTypeI2, WS::WhitespaceRuleNone); },
        "The value [70000] is to large to fit in a i2");
    EXPECT_EQ(ItemTypeI2, v.GetItemType());
    EXPECT_EQ(17, v.GetI2());

    v.SetString("kept");
    ExpectFailure<CNxInvalidValueException>(
        [&] { v.FromString("maybe", ItemTypeBoolean, WS::WhitespaceRuleNone); },
        "A Boolean Value read from an XML document was invalid [maybe]. Valid values are "
        "'true', 'false', '1', or '0'");
    EXPECT_EQ("kept", v.GetString());
}

TEST(VariantFromStringTest, UnusableKindReportsThePresentType)
{
    NxVariant v;
    v.SetBoolean(false);
    for (int type : {0, 27, 28, 29, -1}) {
        ExpectFailure<CNxException>(
            [&] { v.FromString("1", static_cast<ItemType>(type), WS::WhitespaceRuleNone); },
            "Invalid Type 24 to convert to string");
    }
    EXPECT_EQ(ItemTypeBoolean, v.GetItemType());
    NxVariant fresh;
    ExpectFailure<CNxException>(
        [&] { fresh.FromString("1", ItemTypeXmlObject, WS::WhitespaceRuleNone); },
        "Invalid Type 0 to convert to string");
}
