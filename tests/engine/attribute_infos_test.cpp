#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

enum { PLang, PHue, PCount, PAny };

CAttributeInfoPrimitive* Lang(bool optional, const char* defaultValue, const char* ns = "")
{
    return new CAttributeInfoPrimitive("lang", ns, PLang, optional, ItemTypeString, nullptr, kCollapse, kNoFacets,
                                       defaultValue);
}

CAttributeInfoEnum* Colour(const char* ns = "", bool optional = true)
{
    return new CAttributeInfoEnum("colour", ns, PHue, optional, &ColourToText, &ColourFromText,
                                  optional ? "red" : nullptr);
}

// An element with only the given attribute records; unknown attributes are
// refused. The wildcard's property holds an attribute collection.
CSmartPtr<TableClass> Holder(std::initializer_list<CAttributeInfo*> attributes)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_Sequence);
    for (CAttributeInfo* attribute : attributes)
        table->Add(attribute);
    return new TableClass(table, "h",
                          [](TableClass& self) { self.props[PAny].SetXmlCollection(new CAttributeCol("", "##any", "")); });
}

const CXmlSerializationContext kTerse = With(&CXmlSerializationContext::SetNoOptionalAttributeDefaultOutput);

} // namespace

TEST(AttributeInfoPrimitive, DefaultsAreLeftOutOnlyWhenAskedAndNeverForRequiredOrEmptyDefaults)
{
    struct Case {
        bool optional;
        const char* defaultValue;
        const char* value; // null: unset
        const char* plain;
        const char* terse;
    };
    const Case cases[] = {
        {true, "en", nullptr, "<h/>", "<h/>"},
        {true, "en", "en", "<h lang=\"en\"/>", "<h/>"},
        {true, "en", "EN", "<h lang=\"EN\"/>", "<h lang=\"EN\"/>"},
        {true, "", "", "<h lang=\"\"/>", "<h lang=\"\"/>"},
        {false, "en", "en", "<h lang=\"en\"/>", "<h lang=\"en\"/>"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.plain);
        CSmartPtr<TableClass> holder = Holder({Lang(c.optional, c.defaultValue)});
        if (c.value)
            holder->props[PLang].SetString(c.value);
        EXPECT_EQ(holder->ToXml(false, false), c.plain);
        EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, kTerse), c.terse);
    }
}

TEST(AttributeInfoPrimitive, FacetsAreCheckedOnWrittenValuesOnly)
{
    CSmartPtr<TableClass> holder = Holder({new CAttributeInfoPrimitive(
        "count", "", PCount, true, ItemTypeI4, nullptr, kCollapse,
        CPrimitiveRestrictions(nullptr, -1, -1, nullptr, "10", nullptr, nullptr, -1), "20")});
    holder->props[PCount].SetI4(20);
    // Left out as the default, so not checked.
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, kTerse), "<h/>");
    try {
        holder->ToXml(false, false);
        ADD_FAILURE() << "no failure";
    } catch (const CNxValidationException& failure) {
        EXPECT_EQ(failure.GetFullMessage(), "Failed to convert the element [h] to XML\n"
                                            "Failed to convert attributes to XML\n"
                                            "Invalid Value for count [20]");
        // The layer of the attributes is a plain failure.
        ASSERT_NE(failure.GetInnerException(), nullptr);
        EXPECT_EQ(typeid(*failure.GetInnerException()), typeid(CNxException));
    }
    // Reading checks no facets.
    holder->FromXml("<h count=\"30\"/>");
    EXPECT_EQ(holder->Text(PCount), "30");
}

TEST(AttributeInfoEnum, WritesTheTextOfTheNumberAndReadsItBack)
{
    CSmartPtr<TableClass> holder = Holder({Colour()});
    EXPECT_EQ(holder->ToXml(false, false), "<h/>");
    holder->props[PHue].SetI4(0);
    EXPECT_EQ(holder->ToXml(false, false), "<h colour=\"red\"/>");
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, kTerse), "<h/>");
    holder->props[PHue].SetI4(2);
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, kTerse), "<h colour=\"blue\"/>");
    holder->FromXml("<h colour=\"green\"/>");
    EXPECT_EQ(holder->Text(PHue), "1");
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<h colour=\"pink\"/>"); }),
              "Failed to process the element [h]\n[pink] is not a colour");
}

TEST(AttributeInfos, IgnoringNamespacesReachesEnumerationsButNotPrimitives)
{
    CSmartPtr<TableClass> holder = Holder({Lang(true, nullptr, "urn:a"), Colour("urn:a")});
    const char* foreign = "<h xmlns:f=\"urn:f\" f:colour=\"blue\"/>";
    EXPECT_EQ(FailureOf([&] { holder->FromXml(foreign); }), "Failed to process the element [h]\n"
                                                            "Unexpected Attribute [colour] found.");
    const CXmlSerializationContext ignoring = With(&CXmlSerializationContext::SetIgnoreNamespaces);
    holder->FromXml(foreign, ignoring);
    EXPECT_EQ(holder->Text(PHue), "2");
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<h xmlns:f=\"urn:f\" f:lang=\"de\"/>", ignoring); }),
              "Failed to process the element [h]\n"
              "Unexpected Attribute [lang] found.");
    holder->FromXml("<h xmlns:a=\"urn:a\" a:lang=\"de\"/>", ignoring);
    EXPECT_EQ(holder->Text(PLang), "de");
}

TEST(AttributeInfos, ARequiredAttributeIsRequiredUnderEveryOption)
{
    CXmlSerializationContext lenient;
    lenient.SetIgnoreUnknownAttributes(true);
    lenient.SetIgnoreUnknownElements(true);
    lenient.SetIgnoreNamespaces(true);
    lenient.SetIgnoreMissingChoice(true);
    const CXmlSerializationContext* contexts[] = {&Default(), &lenient};
    for (const CXmlSerializationContext* context : contexts) {
        CSmartPtr<TableClass> holder = Holder({Lang(false, "en")});
        EXPECT_EQ(FailureOf([&] { holder->FromXml("<h/>", *context); }),
                  "Failed to process the element [h]\nFailed to find the required Attribute [lang]");
    }
    std::unique_ptr<CAttributeInfoEnum> required(Colour("", false));
    ExpectFailure<CNxValidationException>([&] { required->Validate(Default(), false); },
                                          "Failed to find the required Attribute [colour]");
    required->Validate(Default(), true);
}

TEST(AttributeInfoAny, ARefusedNamespaceFailsWhateverTheContextSays)
{
    CSmartPtr<Profile> profile(new Profile());
    const std::string refused = "Failed to process the element [Profile]\nInvalid namespace [urn:rt]. The namespace "
                                "must be one of [##other] where the target namespace is [urn:rt]";
    const CXmlSerializationContext lenient = With(&CXmlSerializationContext::SetIgnoreUnknownAttributes);
    for (const CXmlSerializationContext* context : {&Default(), &lenient}) {
        try {
            profile->FromXml("<r:Profile xmlns:r=\"urn:rt\" r:own=\"1\"><r:Age>1</r:Age><r:Mood>red</r:Mood>"
                             "<r:Home><Street>s</Street></r:Home><r:Bio/></r:Profile>",
                             *context);
            ADD_FAILURE() << "no failure";
        } catch (const CNxValidationException& failure) {
            EXPECT_EQ(failure.GetFullMessage(), refused);
            ASSERT_NE(failure.GetInnerException(), nullptr);
            EXPECT_EQ(typeid(*failure.GetInnerException()), typeid(CNxInvalidNamespaceException));
        }
    }
}

TEST(AttributeInfoAny, APropertyThatIsNotAnAttributeCollectionFails)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_Sequence);
    table->Add(new CAttributeInfoAny("any", "", PAny, true, "##other", "urn:own", nullptr));
    CSmartPtr<TableClass> holder(new TableClass(
        table, "h", [](TableClass& self) { self.props[PAny].SetXmlCollection(NewStringCol("p", 0, -1)); }));
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<h xmlns:p=\"urn:p\" p:z=\"1\"/>"); }),
              "Failed to process the element [h]\n"
              "Serialization Data Error : The collection should be a CAttributeCol, it was not!");
}

TEST(AttributeInfoAny, AWildcardAheadOfOtherRecordsSwallowsTheirAttributes)
{
    CSmartPtr<TableClass> holder =
        Holder({new CAttributeInfoAny("any", "", PAny, true, "##any", "", nullptr), Lang(true, nullptr)});
    holder->FromXml("<h lang=\"de\"/>");
    EXPECT_EQ(holder->Text(PLang), "-");
    EXPECT_EQ(holder->props[PAny].GetXmlCollection()->GetCount(), 1);
}
