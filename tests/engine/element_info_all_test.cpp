// The all-group records, on the Profile class of RoundTripClasses.h where it
// has the record, and on small tables where it has not.
#include <gtest/gtest.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

const char* const kMandatory[] = {"<Age>1</Age>", "<Home><Street xmlns=\"\">s</Street></Home>", "<Mood>red</Mood>",
                                  "<Bio/>"};

} // namespace

TEST(AllRecords, AMissingMandatoryMemberOfEachKindIsReportedWhateverTheContextSays)
{
    const CXmlSerializationContext ignoreMissing = With(&CXmlSerializationContext::SetIgnoreMissingMandatoryElements);
    const char* const names[] = {"Age", "Home", "Mood", "Bio"};
    for (int missing = 0; missing < 4; ++missing) {
        std::string xml = "<Profile xmlns=\"urn:rt\">";
        for (int i = 3; i >= 0; --i)
            xml += i == missing ? "" : kMandatory[i];
        xml += "</Profile>";
        for (const CXmlSerializationContext* context : {&Default(), &ignoreMissing}) {
            CSmartPtr<Profile> p(new Profile());
            EXPECT_EQ(FailureOf([&] { p->FromXml(xml.c_str(), *context); }),
                      std::string("Failed to process the element [Profile]\nFailed to find the mandatory element [") +
                          names[missing] + "]");
        }
    }
}

TEST(AllRecords, RecordsAnswerWhetherTheyConsumedAnElement)
{
    Doc doc("<r xmlns=\"urn:rt\"><x/><Work><Street xmlns=\"\">o</Street></Work><Misc/></r>");
    CSmartPtr<Profile> p(new Profile());
    const CXmlSerializationContext ignoreUnknown = With(&CXmlSerializationContext::SetIgnoreUnknownElements);
    CElementInfo** e = p->GetClassElementInfo();
    // Not their element: false at either level, cursor unmoved, nothing set.
    for (int index = 0; e[index]; ++index) {
        for (XmlElementType level : {XmlElementType_Element, XmlElementType_Pseudo}) {
            CXmlElement* cursor = doc.First();
            EXPECT_FALSE(e[index]->ElementFromXml(ignoreUnknown, p, doc.Root(), &cursor, "", level)) << index;
            EXPECT_EQ(cursor, doc.First());
        }
    }
    EXPECT_EQ(p->Dump(), CSmartPtr<Profile>(new Profile())->Dump());
    CXmlElement* end = nullptr;
    for (int index : {Profile::PMisc, Profile::PBio})
        EXPECT_FALSE(e[index]->ElementFromXml(ignoreUnknown, p, doc.Root(), &end, "", XmlElementType_Element));

    CXmlElement* cursor = doc.First()->GetNextSiblingElement();
    EXPECT_TRUE(e[Profile::PWork]->ElementFromXml(ignoreUnknown, p, doc.Root(), &cursor, "", XmlElementType_Element));
    EXPECT_EQ(*p->work->street, "o");
    EXPECT_TRUE(e[Profile::PMisc]->ElementFromXml(ignoreUnknown, p, doc.Root(), &cursor, "", XmlElementType_Element));
    EXPECT_EQ(DumpElement(p->misc), "<urn:rt|Misc></>");
    EXPECT_EQ(cursor, nullptr);
}

TEST(AllRecords, ValidateSettlesAbsenceByKind)
{
    CSmartPtr<Profile> p(new Profile());
    CElementInfo** e = p->GetClassElementInfo();
    for (int index : {Profile::PAge, Profile::PHome, Profile::PMood, Profile::PBio}) {
        EXPECT_TRUE(e[index]->Validate(Default(), p, true, true));
        EXPECT_FALSE(e[index]->Validate(Default(), p, false, false));
        ExpectFailure<CNxValidationException>([&] { e[index]->Validate(Default(), p, false, true); },
                                              "Failed to find the mandatory element [" + e[index]->GetName() + "]");
    }
    for (int index : {Profile::PEmail, Profile::PWork, Profile::PShade, Profile::PMisc})
        EXPECT_TRUE(e[index]->Validate(Default(), p, false, true));
}

TEST(AllRecords, PseudoChildrenAnswerWhetherTheyMovedAndAreMandatoryWhenPseudo)
{
    // Contact and More are pseudo children; Loose is a real child that may
    // be missing; R is plain.
    auto table = std::make_shared<Table>(XmlElementGroupType_All, XmlElementType_Element, false);
    table->Add(new CElementInfoAllClsMnd("Contact", "", 0, XmlElementType_Pseudo, &MakeContact, 0, false))
        .Add(new CElementInfoAllClsOpt("More", "", 1, XmlElementType_Pseudo, &MakeContact, 0))
        .Add(new CElementInfoAllPrimOpt("R", "", 2, ItemTypeString, nullptr, kCollapse, kNoFacets))
        .Add(new CElementInfoAllClsMnd("Loose", "", 3, XmlElementType_Element, &MakeByNumber, kAddressClass, false));
    CSmartPtr<TableClass> holder(new TableClass(table, "r", [](TableClass& self) {
        self.props[0].SetXmlObject(new Contact());
        self.props[3].SetXmlObject(new Address("Loose"));
    }));

    // First pass: the pseudo children find nothing they can use at R, and R
    // is read. Second: Contact takes Email and Fax, then More the next Email.
    holder->FromXml("<r verified=\"true\"><R>r</R><Email>e</Email><Fax>f</Fax><Email>e2</Email></r>");
    EXPECT_EQ(holder->Object<Contact>(0)->Dump(), "Contact{email='e' fax='f' verified=1}");
    ASSERT_NE(holder->Object<Contact>(1), nullptr);
    EXPECT_EQ(holder->Object<Contact>(1)->Dump(), "Contact{email='e2' fax=- verified=1}");
    EXPECT_EQ(holder->Text(2), "r");
    EXPECT_EQ(holder->Object<Address>(3)->Dump(), "Loose{nil=0 street=- city=- geo=- kind=-}");

    // The last argument is false, yet a missing pseudo child fails.
    EXPECT_EQ(FailureOf([&] { holder->FromXml("<r><R>r</R></r>"); }),
              "Failed to process the element [r]\nFailed to find the mandatory element [Contact]");
    EXPECT_EQ(holder->Object<Contact>(1), nullptr); // read nothing, so dropped
    EXPECT_TRUE(table->elements[3]->Validate(Default(), holder, false, true));
    EXPECT_FALSE(table->elements[3]->Validate(Default(), holder, false, false));
}

TEST(AllRecords, AWildcardTakesTheFirstElementOfferedToIt)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_All);
    table->Add(new CElementInfoAllUntpdMnd("AnyElement", "", 0, "##any", ""))
        .Add(new CElementInfoAllPrimOpt("B", "", 1, ItemTypeString, nullptr, kCollapse, kNoFacets));
    CSmartPtr<TableClass> greedy(new TableClass(
        table, "r", [](TableClass& self) { self.props[0].SetXmlObject(new CElement("any", "", "##any", "")); }));
    greedy->FromXml("<r><B>b</B></r>");
    EXPECT_EQ(greedy->Object<CElement>(0)->GetName(), "B");
    EXPECT_EQ(greedy->Text(1), "-");
}

TEST(AllRecords, SubstitutableChildrenAreWrittenButCannotBeRead)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_All);
    auto* mandatory = new CElementInfoAllAbsClsMnd("Shape", "", 0, XmlElementType_Element, &MakeShape, 7);
    auto* optional = new CElementInfoAllAbsClsOpt("Spare", "", 1, XmlElementType_Element, &MakeShape);
    table->Add(mandatory).Add(optional);
    CSmartPtr<TableClass> holder(new TableClass(table, "r"));
    holder->props[0].SetXmlObject(new Shape());
    holder->props[1].SetXmlObject(new Circle("Spare"));
    EXPECT_EQ(holder->ToXml(false, false), "<r><Shape/><Spare xmlns:AA=\"urn:shapes\"  xmlns:AB=\"http://www.w3.org/"
                                           "2001/XMLSchema-instance\" AB:type=\"AA:Circle\"/></r>");

    EXPECT_EQ(FailureOf([&] { holder->FromXml("<r><Shape/></r>"); }),
              "Failed to process the element [r]\nCElementInfoAllAbsClsMnd::ElementFromXml, has not been "
              "implemented fully, contact support@orvane.example");
    CXmlElement* cursor = nullptr;
    ExpectFailure<CNxException>(
        [&] { optional->ElementFromXml(Default(), holder, nullptr, &cursor, "", XmlElementType_Element); },
        "CElementInfoAllAbsClsOpt::ElementFromXml, has not been implemented fully, contact support@orvane.example");
    EXPECT_TRUE(optional->Validate(Default(), holder, false, true));
    EXPECT_FALSE(mandatory->Validate(Default(), holder, false, false));
}

namespace {

// The collection records keep no Validate, so no table can hold one; this
// one supplies it to reach the shared reading and writing.
class UsableAllCol : public CElementInfoAllPrimCol {
public:
    using CElementInfoAllPrimCol::CElementInfoAllPrimCol;
    bool Validate(const CXmlSerializationContext&, const CXmlGeneratedClass*, bool found, bool) const override
    {
        return found;
    }
};

} // namespace

TEST(AllRecords, CollectionRecordsCannotBeMadeButKeepTheirWalks)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_All);
    auto* record = new UsableAllCol("Phone", "", 0);
    table->Add(record);
    CSmartPtr<TableClass> holder(new TableClass(
        table, "r", [](TableClass& self) { self.props[0].SetXmlCollection(NewStringCol("Phone", 1, -1)); }));
    Doc doc("<r><Phone>1</Phone><Phone>2</Phone><x/></r>");
    CXmlElement* cursor = doc.First();
    EXPECT_FALSE(record->ElementFromXml(Default(), holder, doc.Root(), &cursor, "", XmlElementType_Element));
    EXPECT_EQ(cursor->GetLocalName(), "x");
    EXPECT_EQ(DumpStrings(holder->Collection<CstringCol>(0)), "['1';'2';]");
    EXPECT_EQ(holder->ToXml(false, false), "<r><Phone>1</Phone><Phone>2</Phone></r>");
    holder->Collection<CstringCol>(0)->Clear();
    EXPECT_EQ(FailureOf([&] { holder->ToXml(); }), "Failed to convert the element [r] to XML\n"
                                                   "The Minimum number of [Phone] elements allowed in this "
                                                   "collection is 1");
}
