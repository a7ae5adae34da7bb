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

CSmartPtr<WalkObject> EmptyRec(std::shared_ptr<WalkTables> tables = RecTables())
{
    CSmartPtr<WalkObject> rec = MakeRec(std::move(tables));
    rec->Init();
    return rec;
}

std::string State(const WalkObject& rec)
{
    const WalkObject* kid = rec.Child(PKid);
    return rec.GetElementName() + " a=" + rec.Text(PA) + " b=" + rec.Text(PB) + " id=" + rec.Text(PId) +
           " colour=" + rec.Text(PColour) + " v=" + (kid ? kid->Text(PV) : "?");
}

} // namespace

TEST(ReadWalk, ReadsAttributesInAnyOrderAndElementsInTableOrder)
{
    CSmartPtr<WalkObject> rec = EmptyRec();
    rec->props[PA].SetString("stale");
    rec->FromXml("<other colour=\"blue\" id=\"12\" xmlns:q=\"urn:q\"><a>x</a><b> 4 </b><kid><v>y</v></kid></other>");
    // Init ran first; the element's name was taken over.
    EXPECT_EQ(State(*rec), "other a=x b=4 id=12 colour=2 v=y");

    rec->FromXml("<rec id=\"1\"><a>x</a><kid><v/></kid></rec>");
    EXPECT_EQ(State(*rec), "rec a=x b=- id=1 colour=- v=");
}

TEST(ReadWalk, WrittenTextReadsBackIntoAnEqualObject)
{
    CSmartPtr<WalkObject> rec = MakeRec(RecTables());
    CSmartPtr<WalkObject> copy = EmptyRec();
    copy->FromXml(rec->ToXml().c_str());
    EXPECT_EQ(State(*copy), State(*rec));
}

TEST(ReadWalk, UnknownAttributesFailUnlessIgnoredOrNotRejected)
{
    const char* xml = "<rec id=\"1\" zz=\"2\"><a>x</a><kid><v/></kid></rec>";
    CSmartPtr<WalkObject> rec = EmptyRec();
    EXPECT_EQ(FailureOf([&] { rec->FromXml(xml); }), "Failed to process the element [rec]\n"
                                                     "Unexpected Attribute [zz] found.");
    CXmlSerializationContext context;
    context.SetIgnoreUnknownAttributes(true);
    rec->FromXml(xml, context);
    EXPECT_EQ(rec->Text(PA), "x");

    auto tolerant = std::make_shared<WalkTables>(XmlElementGroupType_Sequence, XmlElementType_Element, "T", "", -1,
                                                 false);
    CSmartPtr<WalkObject> plain(new WalkObject(tolerant, "rec"));
    plain->FromXml("<rec zz=\"2\"/>");
    EXPECT_EQ(plain->inits, 1);
}

TEST(ReadWalk, RequiredAttributeIsRequiredUnderEveryOption)
{
    CSmartPtr<WalkObject> rec = EmptyRec();
    CXmlSerializationContext context;
    context.SetIgnoreUnknownAttributes(true);
    context.SetIgnoreUnknownElements(true);
    context.SetIgnoreNamespaces(true);
    context.SetIgnoreMissingChoice(true);
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec><a>x</a><kid><v/></kid></rec>", context); }),
              "Failed to process the element [rec]\n"
              "Failed to find the required Attribute [id]");
}

TEST(ReadWalk, NilSetsTheFlagAndSkipsTheContent)
{
    CSmartPtr<NillableObject> rec = MakeRec<NillableObject>(RecTables());
    rec->FromXml("<rec xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" id=\"5\" xsi:nil=\"TRUE\">"
                 "<zz/><a>x</a></rec>");
    EXPECT_TRUE(rec->nil);
    EXPECT_EQ(State(*rec), "rec a=- b=- id=5 colour=- v=-");

    rec->FromXml("<rec xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" id=\"5\" xsi:nil=\"False\">"
                 "<a>x</a><kid><v/></kid></rec>");
    EXPECT_FALSE(rec->nil);
    EXPECT_EQ(rec->Text(PA), "x");

    EXPECT_EQ(FailureOf([&] {
                  rec->FromXml("<rec xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" id=\"5\" xsi:nil=\"1\"/>");
              }),
              "Failed to process the element [rec]\n"
              "Unexpected Value for Attribute [nil] found.");
}

TEST(ReadWalk, NilOnAClassThatCannotBeNilFailsEvenWhenUnknownAttributesAreIgnored)
{
    CSmartPtr<WalkObject> rec = EmptyRec();
    CXmlSerializationContext context;
    context.SetIgnoreUnknownAttributes(true);
    EXPECT_EQ(FailureOf([&] {
                  rec->FromXml("<rec xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" id=\"5\" xsi:nil=\"true\">"
                               "<a>x</a><kid><v/></kid></rec>",
                               context);
              }),
              "Failed to process the element [rec]\n"
              "Unexpected Attribute [nil] found.");
}

TEST(ReadWalk, LeftoverElementsFailAtARealLevelAndChainsNameEveryLevel)
{
    CSmartPtr<WalkObject> rec = EmptyRec();
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec id=\"1\"><a>x</a><kid><v/></kid><zz/></rec>"); }),
              "Failed to process the element [rec]\n"
              "Failed read all the elements held within the element [rec]. The unexpected element [zz] remains un "
              "processed");
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec id=\"1\"><a>x</a><kid><v/><w/></kid></rec>"); }),
              "Failed to process the element [rec]\n"
              "Failed to process the element [kid]\n"
              "Failed read all the elements held within the element [kid]. The unexpected element [w] remains un "
              "processed");
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec id=\"1\"><a>x</a><b>four</b></rec>"); }).substr(0, 36),
              "Failed to process the element [rec]\n");
}

TEST(ReadWalk, IgnoringUnknownElementsSkipsThemAndTheLeftovers)
{
    CSmartPtr<WalkObject> rec = EmptyRec();
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    rec->FromXml("<rec id=\"1\"><zz/><a>x</a><yy/><kid><v>y</v></kid><xx/></rec>", context);
    EXPECT_EQ(State(*rec), "rec a=x b=- id=1 colour=- v=y");
}

TEST(ReadWalk, SequenceRefusalReturnsTheStartCursorKeepingWhatWasRead)
{
    auto doc = std::make_unique<CXmlDocument>();
    doc->LoadXml("<rec id=\"1\"><a>x</a><zz/><kid/></rec>");
    CXmlElement* root = doc->GetDocumentElement();
    CSmartPtr<WalkObject> rec = EmptyRec();
    CXmlElement* start = root->GetFirstElement();
    EXPECT_EQ(rec->ProcessElementSeqFromXml(CXmlSerializationContext::m_defaultContext, root, start,
                                            XmlElementType_Element),
              start);
    EXPECT_EQ(rec->Text(PA), "x");
}

TEST(ReadWalk, PseudoChildSharesElementAttributesAndCursor)
{
    auto tables = RecTables(XmlElementGroupType_Sequence, XmlElementType_Pseudo);
    // A class with a pseudo child has to take unknown attributes.
    auto shared = std::make_shared<WalkTables>(XmlElementGroupType_Sequence, XmlElementType_Element, "RecType", "",
                                               -1, false);
    for (auto& owner : tables->elementOwners)
        shared->Element(owner.release());
    for (auto& owner : tables->attributeOwners)
        shared->Attribute(owner.release());
    CSmartPtr<WalkObject> rec = MakeRec(shared, XmlElementType_Pseudo);
    rec->Init();
    rec->FromXml("<rec id=\"1\" pa=\"p\"><a>x</a><v>y</v></rec>");
    WalkObject* kid = rec->Child(PKid);
    EXPECT_EQ(State(*rec), "rec a=x b=- id=1 colour=- v=y");
    EXPECT_EQ(kid->Text(PId), "p");
    // A pseudo level does not take the element's name.
    EXPECT_EQ(kid->GetElementName(), "kid");

    // A pseudo level hands its leftovers up; the real level reports them.
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec id=\"1\"><a>x</a><v>y</v><w/></rec>"); }),
              "Failed to process the element [rec]\n"
              "Failed read all the elements held within the element [rec]. The unexpected element [w] remains un "
              "processed");
}

TEST(ReadWalk, AFailureInsideAPseudoLevelNamesTheSharedElementOnceMore)
{
    auto group = std::make_shared<WalkTables>(XmlElementGroupType_Sequence, XmlElementType_Pseudo, "G", "", -1, false);
    group->Element(new TextEntry("n", "", 0, ItemTypeI4, Flavor::Seq, false));
    auto outer = std::make_shared<WalkTables>(XmlElementGroupType_Sequence, XmlElementType_Element, "R", "", -1, false);
    outer->Element(new ChildEntry("g", "", 0, XmlElementType_Pseudo, Flavor::Seq, false));
    CSmartPtr<WalkObject> rec(new WalkObject(outer, "rec"));
    rec->onInit = [group](WalkObject& self) { self.props[0].SetXmlObject(new WalkObject(group, "g")); };
    rec->FromXml("<rec><n>12</n></rec>");
    EXPECT_EQ(rec->Child(0)->Text(0), "12");
    const std::string chain = FailureOf([&] { rec->FromXml("<rec><n>abc</n></rec>"); });
    EXPECT_EQ(chain.substr(0, 72), "Failed to process the element [rec]\n"
                                   "Failed to process the element [rec]\n");
    EXPECT_NE(chain.find("abc"), std::string::npos);
}

TEST(ReadWalk, TextAndChildElementsOfOneElement)
{
    CSmartPtr<WalkObject> rec = EmptyRec(RecTables(XmlElementGroupType_Sequence, XmlElementType_Element, PText));
    rec->FromXml("<rec id=\"1\">  head <a>x</a>mid<kid><v/></kid> tail</rec>");
    EXPECT_EQ(rec->Text(PText), "  head mid tail");
    EXPECT_EQ(rec->Text(PA), "x");
}

TEST(ReadWalk, AllGroupTakesElementsInAnyOrder)
{
    CSmartPtr<WalkObject> rec = EmptyRec(RecTables(XmlElementGroupType_All));
    rec->FromXml("<rec id=\"1\"><kid><v>y</v></kid><b>2</b><a>x</a></rec>");
    EXPECT_EQ(State(*rec), "rec a=x b=2 id=1 colour=- v=y");
}

TEST(ReadWalk, AllGroupReportsMissingMandatoryAndDuplicates)
{
    CSmartPtr<WalkObject> rec = EmptyRec(RecTables(XmlElementGroupType_All));
    CXmlSerializationContext context;
    context.SetIgnoreMissingMandatoryElements(true);
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec id=\"1\"><kid><v/></kid></rec>", context); }),
              "Failed to process the element [rec]\n"
              "Failed to find the mandatory element [a]");
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec id=\"1\"><a>x</a><kid><v/></kid><a>z</a></rec>"); }),
              "Failed to process the element [rec]\n"
              "Failed read all the elements held within the element [rec]. The unexpected element [a] remains un "
              "processed");
}

TEST(ReadWalk, AllGroupNeverSkipsAnUnknownElement)
{
    CSmartPtr<WalkObject> rec = EmptyRec(RecTables(XmlElementGroupType_All));
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    // The unknown element stops the passes; kid behind it stays unread.
    EXPECT_EQ(FailureOf([&] { rec->FromXml("<rec id=\"1\"><a>x</a><zz/><kid><v>y</v></kid></rec>", context); }),
              "Failed to process the element [rec]\n"
              "Failed to find the mandatory element [kid]");
    rec->FromXml("<rec id=\"1\"><kid><v>y</v></kid><a>x</a><zz/><b>2</b></rec>", context);
    EXPECT_EQ(State(*rec), "rec a=x b=- id=1 colour=- v=y");
}

TEST(ReadWalk, PseudoAllGroupMissingMandatoryReturnsTheStart)
{
    auto tables = std::make_shared<WalkTables>(XmlElementGroupType_All, XmlElementType_Pseudo, "G", "", -1, false);
    tables->Element(new TextEntry("a", "", PA, ItemTypeString, Flavor::All, false))
        .Element(new TextEntry("b", "", PB, ItemTypeString, Flavor::All, false));
    CSmartPtr<WalkObject> group(new WalkObject(tables, "g"));
    auto doc = std::make_unique<CXmlDocument>();
    doc->LoadXml("<r><b>1</b><c/></r>");
    CXmlElement* root = doc->GetDocumentElement();
    EXPECT_EQ(group->Read(root, root->GetFirstElement(), CXmlSerializationContext::m_defaultContext, false),
              root->GetFirstElement());
    // The same group of its own level reports the missing one.
    EXPECT_EQ(FailureOf([&] {
                  group->ProcessElementAllFromXml(CXmlSerializationContext::m_defaultContext, root,
                                                  root->GetFirstElement(), XmlElementType_Element);
              }),
              "Failed to find the mandatory element [a]");
}

TEST(ReadWalk, AllGroupOffersEveryOpenEntryInPasses)
{
    auto tables = std::make_shared<WalkTables>(XmlElementGroupType_All, XmlElementType_Element, "G", "", -1, true);
    auto* a = new TextEntry("a", "", 0, ItemTypeString, Flavor::All, false);
    auto* b = new TextEntry("b", "", 1, ItemTypeString, Flavor::All, false);
    auto* c = new TextEntry("c", "", 2, ItemTypeString, Flavor::All, false);
    tables->Element(a).Element(b).Element(c);
    CSmartPtr<WalkObject> group(new WalkObject(tables, "g"));
    group->FromXml("<g><c>3</c><b>2</b><a>1</a></g>");
    EXPECT_EQ(group->Text(0) + group->Text(1) + group->Text(2), "123");
    // c takes its element at the first offer and is offered nothing more;
    // a is offered each of the three elements, one per pass.
    EXPECT_EQ(c->offers, 1);
    EXPECT_EQ(a->offers, 3);
}

TEST(ReadWalk, UnknownGroupTypeFailsInsideTheWrapping)
{
    auto tables = std::make_shared<WalkTables>(static_cast<XmlElementGroupType>(3), XmlElementType_Element, "T", "",
                                               -1, false);
    CSmartPtr<WalkObject> odd(new WalkObject(tables, "odd"));
    EXPECT_EQ(FailureOf([&] { odd->FromXml("<odd/>"); }), "Failed to process the element [odd]\n"
                                                          "Unknow Group Type");
}
