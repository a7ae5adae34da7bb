#include <gtest/gtest.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "WalkTestEntries.h"

using namespace NxXmlLib9;
using namespace NxXmlLib9Data;
using namespace NxWalkTest;

namespace {

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

enum { PLang = 10, PHue, PCount, PAny, PRequired };

CAttributeInfoPrimitive* Lang(bool optional, const char* defaultValue, const char* ns = "")
{
    return new CAttributeInfoPrimitive("lang", ns, optional ? PLang : PRequired, optional, ItemTypeString, nullptr,
                                       CWhitespaceUtils::WhitespaceRuleCollapse, CPrimitiveRestrictions(),
                                       defaultValue);
}

CAttributeInfoEnum* Colour(const char* ns = "")
{
    return new CAttributeInfoEnum("colour", ns, PHue, true, &ColourText, &ColourNumber, "red");
}

// An element with only the given attribute records; unknown attributes are
// refused.
CSmartPtr<WalkObject> Holder(std::initializer_list<CAttributeInfo*> attributes, bool withAny = false)
{
    auto tables = std::make_shared<WalkTables>(XmlElementGroupType_Sequence, XmlElementType_Element, "H", "", -1,
                                               true);
    for (CAttributeInfo* attribute : attributes)
        tables->Attribute(attribute);
    if (withAny)
        tables->Attribute(new CAttributeInfoAny("any", "", PAny, true, "##other", "urn:own", nullptr));
    CSmartPtr<WalkObject> holder(new WalkObject(tables, "h"));
    holder->onInit = [](WalkObject& self) {
        self.props[PAny].SetXmlCollection(new CAttributeCol("", "##any", ""));
    };
    holder->Init();
    return holder;
}

CXmlSerializationContext NoDefaults()
{
    CXmlSerializationContext context;
    context.SetNoOptionalAttributeDefaultOutput(true);
    return context;
}

} // namespace

TEST(AttributeInfoPrimitive, UnsetOptionalIsLeftOutAndDefaultsAreSuppressedOnlyWhenAsked)
{
    CSmartPtr<WalkObject> holder = Holder({Lang(true, "en")});
    EXPECT_EQ(holder->ToXml(false, false), "<h/>");
    holder->props[PLang].SetString("en");
    EXPECT_EQ(holder->ToXml(false, false), "<h lang=\"en\"/>");
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, NoDefaults()), "<h/>");
    holder->props[PLang].SetString("EN");
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, NoDefaults()), "<h lang=\"EN\"/>");
}

TEST(AttributeInfoPrimitive, EmptyDefaultIsNoDefaultAndRequiredAttributesAreAlwaysWritten)
{
    CSmartPtr<WalkObject> empty = Holder({Lang(true, "")});
    empty->props[PLang].SetString("");
    EXPECT_EQ(empty->ToXml(false, false, EOLTypeLF, NoDefaults()), "<h lang=\"\"/>");

    CSmartPtr<WalkObject> required = Holder({Lang(false, "en")});
    required->props[PRequired].SetString("en");
    EXPECT_EQ(required->ToXml(false, false, EOLTypeLF, NoDefaults()), "<h lang=\"en\"/>");
}

TEST(AttributeInfoPrimitive, FacetsAreCheckedOnWrittenValuesOnly)
{
    CPrimitiveRestrictions upTo;
    upTo.MaxInclusive = "10";
    CSmartPtr<WalkObject> holder = Holder({new CAttributeInfoPrimitive(
        "count", "", PCount, true, ItemTypeI4, nullptr, CWhitespaceUtils::WhitespaceRuleCollapse, upTo, "20")});
    holder->props[PCount].SetI4(20);
    // Left out as the default, so not checked.
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, NoDefaults()), "<h/>");
    EXPECT_EQ(FailureOf([&] { holder->ToXml(false, false); }), "Failed to convert the element [h] to XML\n"
                                                               "Failed to convert attributes to XML\n"
                                                               "Invalid Value for count [20]");
    // Reading checks no facets.
    holder->FromXml("<h count=\"30\"/>");
    EXPECT_EQ(holder->Text(PCount), "30");
}

TEST(AttributeInfoEnum, WritesTheTextOfTheNumberWithDefaultSuppression)
{
    CSmartPtr<WalkObject> holder = Holder({Colour()});
    EXPECT_EQ(holder->ToXml(false, false), "<h/>");
    holder->props[PHue].SetI4(0);
    EXPECT_EQ(holder->ToXml(false, false), "<h colour=\"red\"/>");
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, NoDefaults()), "<h/>");
    holder->props[PHue].SetI4(2);
    EXPECT_EQ(holder->ToXml(false, false, EOLTypeLF, NoDefaults()), "<h colour=\"blue\"/>");
    holder->FromXml("<h colour=\"green\"/>");
    EXPECT_EQ(holder->Text(PHue), "1");
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<h colour=\"pink\"/>"); }), "Failed to process the element [h]\n"
                                                                          "Unknown colour [pink]");
}

TEST(AttributeInfos, IgnoringNamespacesReachesEnumerationsButNotPrimitives)
{
    CSmartPtr<WalkObject> holder = Holder({Lang(true, nullptr, "urn:a"), Colour("urn:a")});
    const char* foreign = "<h xmlns:f=\"urn:f\" f:colour=\"blue\"/>";
    EXPECT_EQ(FailureOf([&] { holder->FromXml(foreign); }), "Failed to process the element [h]\n"
                                                            "Unexpected Attribute [colour] found.");
    CXmlSerializationContext context;
    context.SetIgnoreNamespaces(true);
    holder->FromXml(foreign, context);
    EXPECT_EQ(holder->Text(PHue), "2");
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<h xmlns:f=\"urn:f\" f:lang=\"de\"/>", context); }),
              "Failed to process the element [h]\n"
              "Unexpected Attribute [lang] found.");
    holder->FromXml("<h xmlns:a=\"urn:a\" a:lang=\"de\"/>", context);
    EXPECT_EQ(holder->Text(PLang), "de");
}

TEST(AttributeInfos, RequiredAttributeMissingFails)
{
    CSmartPtr<WalkObject> holder = Holder({Lang(false, "en")});
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<h/>"); }), "Failed to process the element [h]\n"
                                                           "Failed to find the required Attribute [lang]");
    auto* required = new CAttributeInfoEnum("colour", "", PHue, false, &ColourText, &ColourNumber, nullptr);
    CSmartPtr<WalkObject> other = Holder({required});
    ExpectFailure<CNxValidationException>([&] { required->Validate(CXmlSerializationContext::m_defaultContext, false); },
                                          "Failed to find the required Attribute [colour]");
    required->Validate(CXmlSerializationContext::m_defaultContext, true);
}

TEST(AttributeInfoAny, TakesEveryAllowedAttributeInDocumentOrderAndWritesThemBack)
{
    CSmartPtr<WalkObject> holder = Holder({Lang(true, nullptr)}, true);
    holder->FromXml("<h xmlns:p=\"urn:p\" p:z=\"1\" lang=\"de\" p:a=\"2\"/>");
    EXPECT_EQ(holder->Text(PLang), "de");
    CSmartPtr<CAttributeCol> any = dynamic_cast<CAttributeCol*>(
        static_cast<CXmlCollectionBase*>(holder->props[PAny].GetXmlCollection()));
    ASSERT_EQ(any->GetCount(), 2);
    EXPECT_EQ(any->Item(0)->GetName() + any->Item(1)->GetName(), "za");
    EXPECT_EQ(holder->ToXml(false, false), "<h lang=\"de\" xmlns:AA=\"urn:p\" AA:z=\"1\" AA:a=\"2\"/>");
}

TEST(AttributeInfoAny, RefusedNamespaceFailsWhateverTheContextSays)
{
    CSmartPtr<WalkObject> holder = Holder({}, true);
    CXmlSerializationContext context;
    context.SetIgnoreUnknownAttributes(true);
    try {
        holder->FromXml("<h xmlns:o=\"urn:own\" o:z=\"1\"/>", context);
        ADD_FAILURE() << "no failure";
    } catch (const CNxValidationException& failure) {
        ASSERT_NE(failure.GetInnerException(), nullptr);
        EXPECT_EQ(typeid(*failure.GetInnerException()), typeid(CNxInvalidNamespaceException));
    }
}

TEST(AttributeInfoAny, APropertyThatIsNotAnAttributeCollectionFails)
{
    CSmartPtr<WalkObject> holder = Holder({}, true);
    holder->props[PAny].SetXmlCollection(new TextList("p", "", 0, -1));
    holder->initial = holder->props;
    holder->onInit = nullptr;
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<h xmlns:p=\"urn:p\" p:z=\"1\"/>"); }),
              "Failed to process the element [h]\n"
              "Serialization Data Error : The collection should be a CAttributeCol, it was not!");
}

TEST(AttributeInfoAny, AWildcardAheadOfOtherRecordsSwallowsTheirAttributes)
{
    auto tables = std::make_shared<WalkTables>(XmlElementGroupType_Sequence, XmlElementType_Element, "H", "", -1,
                                               true);
    tables->Attribute(new CAttributeInfoAny("any", "", PAny, true, "##any", "", nullptr)).Attribute(Lang(true, nullptr));
    CSmartPtr<WalkObject> holder(new WalkObject(tables, "h"));
    holder->onInit = [](WalkObject& self) {
        self.props[PAny].SetXmlCollection(new CAttributeCol("", "##any", ""));
    };
    holder->FromXml("<h lang=\"de\"/>");
    EXPECT_EQ(holder->Text(PLang), "-");
    EXPECT_EQ(holder->props[PAny].GetXmlCollection()->GetCount(), 1);
}
