// The write and read walks of CXmlGeneratedClass on the points that the
// round trips do not reach: root material, nil, the type attribute, pseudo
// levels entered directly, all groups that stop early, and unknown groups.
#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

const char* const kXsiNs = "http://www.w3.org/2001/XMLSchema-instance";

// Memo as a nillable element.
class NilMemo : public Memo, public INillable {
public:
    bool IsNil() const override { return nil; }
    void SetNil(bool value) override { nil = value; }
    void Init() override
    {
        nil = false;
        Memo::Init();
    }
    bool nil = false;
};

CSmartPtr<TableClass> OfGroup(int group)
{
    return new TableClass(std::make_shared<Table>(static_cast<XmlElementGroupType>(group)), "odd");
}

} // namespace

TEST(WriteWalk, RootMaterialComesInItsOrderOnlyOnTheRoot)
{
    CSmartPtr<Address> address(new Address());
    address->street = "S";
    address->kind = 1;
    address->geo = new Geo();
    address->geo->lat = 2.5;
    CXmlSerializationContext context;
    context.GetProcessingInstructions().push_back("<?first one?>");
    context.GetProcessingInstructions().push_back("<?second?>");
    // Declared in URI order, whatever the order of adding.
    context.GetNamespaceAliases().Add("zz", "urn:b");
    context.GetNamespaceAliases().Add("yy", "urn:a");
    context.SetDefaultNamespaceURI("urn:default");
    context.GetAdditionalRootAttributes()->Add("extra", "1", "");
    context.SetInLineSchema("<schema/>");
    EXPECT_EQ(address->ToXml(false, false, EOLTypeLF, context),
              "<?first one?>\n\n<?second?>\n\n"
              "<Address xmlns=\"urn:default\" xmlns:yy=\"urn:a\" xmlns:zz=\"urn:b\" extra=\"1\" kind=\"work\" \n"
              "<schema/>\n"
              "><Street>S</Street><Geo><Lat>2.5</Lat></Geo></Address>");

    // A class without an element of its own writes no tag and no root
    // material.
    CSmartPtr<Contact> contact(new Contact());
    contact->email = "e";
    EXPECT_EQ(contact->ToXml(false, false, EOLTypeLF, context), "<Email>e</Email>");
}

TEST(WriteWalk, UnsetOptionalMembersOfAnAllGroupAreLeftOut)
{
    CSmartPtr<Profile> p(new Profile());
    p->age = 1;
    p->mood = 0;
    p->home->street = "s";
    EXPECT_EQ(p->ToXml(false, false), "<AA:Profile xmlns:AA=\"urn:rt\"><AA:Age>1</AA:Age><AA:Mood>red</AA:Mood>"
                                      "<AA:Home><Street>s</Street></AA:Home><AA:Bio/></AA:Profile>");
}

TEST(WriteWalk, ANilObjectWritesNeitherChildrenNorText)
{
    CSmartPtr<NilMemo> memo(new NilMemo());
    memo->ref = 5;
    memo->text = "text";
    memo->nil = true;
    EXPECT_EQ(memo->ToXml(false, false),
              std::string("<Memo xmlns:AA=\"") + kXsiNs + "\" AA:nil=\"true\"/>");
    memo->nil = false;
    EXPECT_EQ(memo->ToXml(false, false), "<Memo><Ref>5</Ref>text</Memo>");
}

TEST(WriteWalk, TheRootBearsTheTypeAttributeOnlyWhenItsNameDiffersFromItsType)
{
    CSmartPtr<Circle> circle(new Circle("Shape"));
    circle->size = 4;
    EXPECT_EQ(circle->ToXml(false, false), std::string("<Shape xmlns:AA=\"urn:shapes\"  xmlns:AB=\"") + kXsiNs +
                                               "\" AB:type=\"AA:Circle\"><Radius>4</Radius></Shape>");
    circle->SetElementName("Circle");
    EXPECT_EQ(circle->ToXml(false, false), "<Circle><Radius>4</Radius></Circle>");
}

TEST(WriteWalk, APseudoChildPutsItsAttributesOnTheTagEvenWithoutElements)
{
    CSmartPtr<Person> p(new Person());
    p->contact->verified = false;
    p->id = 1;
    EXPECT_EQ(p->ToXml(false, false), "<Person id=\"1\" verified=\"false\"><Address/><any/></Person>");
}

TEST(Walks, AnUnknownGroupTypeFailsInsideTheWrapping)
{
    EXPECT_EQ(FailureOf([&] { OfGroup(7)->ToXml(); }), "Failed to convert the element [odd] to XML\n"
                                                       "Unknown XML Group Type");
    EXPECT_EQ(FailureOf([&] { OfGroup(3)->FromXml("<odd/>"); }), "Failed to process the element [odd]\n"
                                                                 "Unknow Group Type");
}

TEST(ReadWalk, NilIsReadWithoutRegardToCaseAndOnlyByNillableClasses)
{
    const std::string xsi = std::string("xmlns:xsi=\"") + kXsiNs + "\"";
    CSmartPtr<Address> address(new Address());
    address->FromXml(("<Address " + xsi + " xsi:nil=\"False\"><Street>s</Street></Address>").c_str());
    EXPECT_EQ(address->Dump(), "Address{nil=0 street='s' city=- geo=- kind=-}");
    EXPECT_EQ(FailureOf([&] { address->FromXml(("<Address " + xsi + " xsi:nil=\"1\"/>").c_str()); }),
              "Failed to process the element [Address]\nUnexpected Value for Attribute [nil] found.");
    // A class that cannot be nil refuses it even when unknown attributes are
    // ignored.
    CSmartPtr<Geo> geo(new Geo());
    EXPECT_EQ(FailureOf([&] {
                  geo->FromXml(("<Geo " + xsi + " xsi:nil=\"true\"><Lat>1</Lat></Geo>").c_str(),
                               With(&CXmlSerializationContext::SetIgnoreUnknownAttributes));
              }),
              "Failed to process the element [Geo]\nUnexpected Attribute [nil] found.");
}

TEST(ReadWalk, TextAroundChildElementsIsJoined)
{
    CSmartPtr<Memo> memo(new Memo());
    memo->FromXml("<Memo>  head <Ref>1</Ref> tail</Memo>");
    EXPECT_EQ(memo->Dump(), "Memo{ref=1 text='  head  tail'}");
}

TEST(ReadWalk, APseudoLevelRefusesWithTheStartCursorKeepingWhatWasRead)
{
    Doc doc("<r><Name>x</Name><zz/></r>");
    CSmartPtr<Person> p(new Person());
    EXPECT_EQ(p->ProcessElementSeqFromXml(Default(), doc.Root(), doc.First(), XmlElementType_Pseudo), doc.First());
    EXPECT_EQ(*p->name, "x");

    // A pseudo child reading from the shared element keeps its own name.
    p->FromXml("<Person id=\"1\"><Name>Bo</Name><Address><Street>S</Street></Address><Email>e</Email><Shape/>"
               "<Colour>red</Colour><x/></Person>");
    EXPECT_EQ(p->contact->GetElementName(), "Contact");
    EXPECT_EQ(*p->contact->email, "e");
}

TEST(ReadWalk, AnAllGroupStopsAtTheFirstElementNoRecordTakes)
{
    const std::string body = "<Age>1</Age><Mood>red</Mood><Home><Street xmlns=\"\">s</Street></Home><Bio/>";
    auto profile = [](const std::string& children) { return "<Profile xmlns=\"urn:rt\">" + children + "</Profile>"; };
    const CXmlSerializationContext ignoreUnknown = With(&CXmlSerializationContext::SetIgnoreUnknownElements);
    struct Case {
        std::string xml;
        const CXmlSerializationContext* context;
        const char* failure;
    };
    const Case cases[] = {
        // A second Age is left over.
        {profile(body + "<Age>2</Age>"), &Default(),
         "Failed read all the elements held within the element [Profile]. The unexpected element [Age] remains un "
         "processed"},
        // A second Email stops the passes before Age is reached.
        {profile("<Email>1</Email><Email>2</Email>" + body), &Default(), "Failed to find the mandatory element [Age]"},
        // An unknown element stops them even when unknown elements are ignored.
        {profile("<Age>1</Age><zz/><Mood>red</Mood><Home><Street xmlns=\"\">s</Street></Home><Bio/>"), &ignoreUnknown,
         "Failed to find the mandatory element [Mood]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.xml);
        CSmartPtr<Profile> p(new Profile());
        EXPECT_EQ(FailureOf([&] { p->FromXml(c.xml.c_str(), *c.context); }),
                  std::string("Failed to process the element [Profile]\n") + c.failure);
    }
    // Behind an unknown element, an optional member stays unread.
    CSmartPtr<Profile> p(new Profile());
    p->FromXml(profile(body + "<zz/><Email>e</Email>").c_str(), ignoreUnknown);
    EXPECT_EQ(*p->age, 1);
    EXPECT_FALSE(p->email);
}

TEST(ReadWalk, AnAllGroupAtAPseudoLevelMissingAMandatoryMemberReturnsTheStart)
{
    Doc doc("<r xmlns=\"urn:rt\"><Mood>red</Mood><c/></r>");
    CSmartPtr<Profile> p(new Profile());
    EXPECT_EQ(p->ProcessElementAllFromXml(Default(), doc.Root(), doc.First(), XmlElementType_Pseudo), doc.First());
    // At a level of its own the same group reports the missing one.
    EXPECT_EQ(FailureOf([&] {
                  p->ProcessElementAllFromXml(Default(), doc.Root(), doc.First(), XmlElementType_Element);
              }),
              "Failed to find the mandatory element [Age]");
}
