#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "WalkTestEntries.h"

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;
using namespace NxWalkTest;

namespace {

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

} // namespace

TEST(WriteWalk, WritesTagAttributesChildrenInTableOrderWithFormatOnAndOff)
{
    CSmartPtr<WalkObject> rec = MakeRec(RecTables());
    EXPECT_EQ(rec->ToXml(false, false), "<rec id=\"7\" colour=\"green\"><a>x</a><b>3</b><kid><v>y</v></kid></rec>");
    EXPECT_EQ(rec->ToXml(false, true), "<rec id=\"7\" colour=\"green\">\n"
                                       "\t<a>x</a>\n"
                                       "\t<b>3</b>\n"
                                       "\t<kid>\n"
                                       "\t\t<v>y</v>\n"
                                       "\t</kid>\n"
                                       "</rec>\n");
}

TEST(WriteWalk, AllGroupsKeepTableOrderAndUnsetEntriesAreLeftOut)
{
    CSmartPtr<WalkObject> rec = MakeRec(RecTables(XmlElementGroupType_All));
    rec->props.erase(PB);
    rec->props.erase(PColour);
    EXPECT_EQ(rec->ToXml(false, false), "<rec id=\"7\"><a>x</a><kid><v>y</v></kid></rec>");
}

TEST(WriteWalk, RootMaterialComesInItsOrderOnlyOnTheRoot)
{
    CSmartPtr<WalkObject> rec = MakeRec(RecTables());
    rec->props.erase(PColour);
    CXmlSerializationContext context;
    context.GetProcessingInstructions().push_back("<?first one?>");
    context.GetProcessingInstructions().push_back("<?second?>");
    // Declared in URI order, whatever the order of adding.
    context.GetNamespaceAliases().Add("zz", "urn:b");
    context.GetNamespaceAliases().Add("yy", "urn:a");
    context.SetDefaultNamespaceURI("urn:default");
    context.GetAdditionalRootAttributes()->Add("extra", "1", "");
    context.SetInLineSchema("<schema/>");
    EXPECT_EQ(rec->ToXml(false, false, EOLTypeLF, context),
              "<?first one?>\n\n<?second?>\n\n"
              "<rec xmlns=\"urn:default\" xmlns:yy=\"urn:a\" xmlns:zz=\"urn:b\" extra=\"1\" id=\"7\" \n"
              "<schema/>\n"
              "><a>x</a><b>3</b><kid><v>y</v></kid></rec>");
}

TEST(WriteWalk, NilObjectWritesTagAttributesAndNilButNoChildrenOrText)
{
    CSmartPtr<NillableObject> rec = MakeRec<NillableObject>(RecTables(XmlElementGroupType_Sequence,
                                                                      XmlElementType_Element, PText));
    rec->props[PText].SetString("text");
    rec->nil = true;
    EXPECT_EQ(rec->ToXml(false, false),
              "<rec id=\"7\" colour=\"green\" xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "AA:nil=\"true\"/>");
    rec->nil = false;
    EXPECT_EQ(rec->ToXml(false, false),
              "<rec id=\"7\" colour=\"green\"><a>x</a><b>3</b><kid><v>y</v></kid>text</rec>");
}

TEST(WriteWalk, TypeAttributeOnlyWhenNameDiffersFromTypeAndBothAllowIt)
{
    CSmartPtr<WalkObject> rec =
        MakeRec(RecTables(XmlElementGroupType_Sequence, XmlElementType_Element, -1, true));
    rec->props.erase(PColour);
    CXmlSerializationContext context;
    const std::string withType = rec->ToXml(false, false, EOLTypeLF, context);
    EXPECT_EQ(withType.substr(0, withType.find('>') + 1),
              "<rec xmlns:AA=\"urn:types\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "AB:type=\"AA:RecType\" id=\"7\">");

    context.SetWriteTypeAttribute(false);
    EXPECT_EQ(rec->ToXml(false, false, EOLTypeLF, context).substr(0, 13), "<rec id=\"7\"><");

    context.SetWriteTypeAttribute(true);
    rec->SetElementName("RecType");
    EXPECT_EQ(rec->ToXml(false, false, EOLTypeLF, context).substr(0, 17), "<RecType id=\"7\"><");

    CSmartPtr<WalkObject> fixed = MakeRec(RecTables());
    fixed->props.erase(PColour);
    EXPECT_EQ(fixed->ToXml(false, false, EOLTypeLF, context).substr(0, 13), "<rec id=\"7\"><");
}

TEST(WriteWalk, PseudoChildPutsAttributesOnParentTagAndChildrenAmongItsOwn)
{
    CSmartPtr<WalkObject> rec = MakeRec(RecTables(XmlElementGroupType_Sequence, XmlElementType_Pseudo),
                                        XmlElementType_Pseudo);
    rec->Child(PKid)->props[PId].SetString("p");
    EXPECT_EQ(rec->ToXml(false, false), "<rec id=\"7\" colour=\"green\" pa=\"p\"><a>x</a><b>3</b><v>y</v></rec>");

    // The attributes come even when the pseudo child has no elements.
    rec->Child(PKid)->props.erase(PV);
    EXPECT_EQ(rec->ToXml(false, false), "<rec id=\"7\" colour=\"green\" pa=\"p\"><a>x</a><b>3</b></rec>");
}

TEST(WriteWalk, PseudoClassAsRootWritesNoTagAndNoRootMaterial)
{
    auto tables = KidTables(XmlElementType_Pseudo);
    CSmartPtr<WalkObject> group(new WalkObject(tables, "group"));
    group->props[PV].SetString("y");
    CXmlSerializationContext context;
    context.GetProcessingInstructions().push_back("pi");
    context.SetInLineSchema("<schema/>");
    EXPECT_EQ(group->ToXml(false, false, EOLTypeLF, context), "<v>y</v>");
}

TEST(WriteWalk, TextContentFollowsTheChildren)
{
    CSmartPtr<WalkObject> rec = MakeRec(RecTables(XmlElementGroupType_Sequence, XmlElementType_Element, PText));
    rec->props.erase(PB);
    rec->props[PText].SetString("tail & more");
    EXPECT_EQ(rec->ToXml(false, false),
              "<rec id=\"7\" colour=\"green\"><a>x</a><kid><v>y</v></kid>tail &amp; more</rec>");
}

TEST(WriteWalk, FailuresAreWrappedOncePerLevel)
{
    CSmartPtr<WalkObject> rec = MakeRec(RecTables());
    rec->Child(PKid)->props[PV].SetString("long");
    EXPECT_EQ(FailureOf([&] { rec->ToXml(); }), "Failed to convert the element [rec] to XML\n"
                                                "Failed to convert the element [kid] to XML\n"
                                                "Invalid Value for v [long]");

    // An attribute failure has one layer more, and that one is plain.
    rec->Child(PKid)->props[PV].SetString("ok");
    rec->props[PId].SetI4(100);
    try {
        rec->ToXml();
        ADD_FAILURE() << "no failure";
    } catch (const CNxValidationException& failure) {
        EXPECT_EQ(failure.GetFullMessage(), "Failed to convert the element [rec] to XML\n"
                                            "Failed to convert attributes to XML\n"
                                            "Invalid Value for id [100]");
        ASSERT_NE(failure.GetInnerException(), nullptr);
        EXPECT_EQ(typeid(*failure.GetInnerException()), typeid(CNxException));
    }
}

TEST(WriteWalk, UnknownGroupTypeFailsInsideTheWrapping)
{
    auto tables = std::make_shared<WalkTables>(static_cast<XmlElementGroupType>(7), XmlElementType_Element, "T", "");
    CSmartPtr<WalkObject> odd(new WalkObject(tables, "odd"));
    EXPECT_EQ(FailureOf([&] { odd->ToXml(); }), "Failed to convert the element [odd] to XML\n"
                                                "Unknown XML Group Type");
}
