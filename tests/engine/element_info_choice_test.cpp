#include <gtest/gtest.h>

#include <type_traits>

#include "ElementInfoTestClasses.h"
#include "ExpectFailure.h"

using namespace NxElementTest;

namespace {

enum { PPick, PShape, PNum, PColour, PNote, PPhones, PTags, PItems, PFigures, PRaws };

const CPrimitiveRestrictions kNoFacets;
const CPrimitiveRestrictions kAtMostNine(nullptr, -1, -1, nullptr, "9", nullptr, nullptr, -1);
const char* const kXsi = "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";

struct ChoiceRecords : ::testing::Test {
    Table leaf {XmlElementGroupType_Sequence, XmlElementType_Element, "Leaf"};
    Table round {XmlElementGroupType_Sequence, XmlElementType_Element, "Round"};
    Table choice {XmlElementGroupType_Choice, XmlElementType_Element, "Choice"};

    ChoiceRecords()
    {
        leaf.Add<CElementInfoSeqPrimOpt>("V", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                         kNoFacets);
        round.Add<CElementInfoSeqPrimOpt>("R", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                          kNoFacets);
        TablesByNumber() = {{1, &leaf}};
        TablesByType() = {{"Shape", &leaf}, {"Figure", &leaf}, {"Round", &round}};

        choice.Add<CElementInfoChoiceClsOpt>("Pick", kNs, PPick, XmlElementType_Element, &MakeByNumber, 1);
        choice.Add<CElementInfoChoiceAbsClsOpt>("Shape", kNs, PShape, XmlElementType_Element, &MakeByType);
        choice.Add<CElementInfoChoicePrimOpt>("Num", kNs, PNum, ItemTypeI4, nullptr,
                                              CWhitespaceUtils::WhitespaceRuleCollapse, kAtMostNine);
        choice.Add<CElementInfoChoiceEnumOpt>("Colour", kNs, PColour, &ColourToText, &ColourFromText);
        choice.Add<CElementInfoChoiceUntpdOpt>("Note", kNs, PNote, "##any", kNs);
        choice.Add<CElementInfoChoicePrimCol>("Phone", kNs, PPhones);
        choice.Add<CElementInfoChoiceEnumCol>("Tag", kNs, PTags);
        choice.Add<CElementInfoChoiceClsCol>("Item", kNs, PItems, XmlElementType_Element);
        choice.Add<CElementInfoChoiceAbsClsCol>("Figure", kNs, PFigures, XmlElementType_Element);
        choice.Add<CElementInfoChoiceUntpdCol>("Raw", kNs, PRaws);
    }

    CSmartPtr<Bag> NewChoice()
    {
        const Table* leafTable = &leaf;
        return new Bag(choice, "root", [=](Bag& bag) {
            bag.props[PPhones].SetXmlCollection(new TextList("Phone", 1, 2));
            bag.props[PTags].SetXmlCollection(new TextList("Tag", 0, -1));
            bag.props[PItems].SetXmlCollection(new BagList("Item", *leafTable, 0, -1));
            bag.props[PFigures].SetXmlCollection(new BagList("Figure", *leafTable, 0, -1, true));
            bag.props[PRaws].SetXmlCollection(new CElementCol("", "##any", "", 0, -1));
        });
    }
};

} // namespace

TEST_F(ChoiceRecords, WritingStopsAtTheFirstMemberThatWritesSomething)
{
    CSmartPtr<Bag> c = NewChoice();
    EXPECT_EQ(Write(*c), "<root/>"); // empty collections write nothing, without a count check
    c->SetNumber(PColour, 2);
    c->As<TextList>(PTags)->items = {"x"};
    EXPECT_EQ(Write(*c), "<root><Colour>blue</Colour></root>");
    c->SetNumber(PNum, 9);
    EXPECT_EQ(Write(*c), "<root><Num>9</Num></root>");
    EXPECT_EQ(Write(*c, true), "<root>\n\t<Num>9</Num>\n</root>\n");
    c->SetNumber(PNum, 10);
    NxVariant ten;
    ten.SetI4(10);
    EXPECT_EQ(FailureOf([&] { Write(*c); }), "Failed to convert the element [root] to XML\n" + FailureOf([&] {
                                                 choice.Entries()[PNum]->CheckRestriction(ten);
                                             }));

    CSmartPtr<Bag> d = NewChoice();
    d->As<TextList>(PTags)->items = {"red", "blue"};
    EXPECT_EQ(Write(*d), "<root><Tag>red</Tag><Tag>blue</Tag></root>");
    d->SetObject(PNote, new CElement("Note"));
    EXPECT_EQ(Write(*d), "<root><Note/></root>");
}

TEST_F(ChoiceRecords, OnlyTheClassMemberTellsItsChildItStandsInAnOptionalChoice)
{
    CSmartPtr<Bag> c = NewChoice();
    CSmartPtr<Bag> pick(new Bag(leaf, "Pick"));
    c->SetObject(PPick, pick);
    EXPECT_EQ(Write(*c), "<root><Pick/></root>");
    EXPECT_EQ(pick->writesAsOptionalChoice, 1);

    CSmartPtr<Bag> shape(new Bag(leaf, "Shape"));
    CSmartPtr<Bag> d = NewChoice();
    d->SetObject(PShape, shape);
    EXPECT_EQ(Write(*d), "<root><Shape/></root>");
    EXPECT_EQ(shape->writesAsOptionalChoice, 0);

    c->FromXml("<root><Pick><V>v</V></Pick></root>");
    EXPECT_EQ(c->Child(PPick)->readsAsOptionalChoice, 1);
    EXPECT_EQ(c->Child(PPick)->Text(0), "v");
    d->FromXml("<root><Shape/></root>");
    EXPECT_EQ(d->Child(PShape)->readsAsOptionalChoice, 0);
}

TEST_F(ChoiceRecords, EachMemberReadsItsOwnElement)
{
    struct Case {
        const char* xml;
        int property;
    };
    const Case cases[] = {{"<root><Pick/></root>", PPick},
                          {"<root><Shape/></root>", PShape},
                          {"<root><Num> 4 </Num></root>", PNum},
                          {"<root><Colour>green</Colour></root>", PColour},
                          {"<root><Note>n</Note></root>", PNote}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.xml);
        CSmartPtr<Bag> bag = NewChoice();
        bag->FromXml(c.xml);
        // The members before the one that takes the element set nothing.
        std::vector<std::pair<int, bool>> expected {{c.property, false}};
        EXPECT_EQ(bag->writes, expected);
        EXPECT_EQ(Write(*bag), c.xml == cases[2].xml ? std::string("<root><Num>4</Num></root>") : c.xml);
    }
}

TEST_F(ChoiceRecords, ClassMembersAreSetBeforeTheyRead)
{
    CSmartPtr<Bag> c = NewChoice();
    // The child fails on what is left in it; the property was set before.
    EXPECT_EQ(FailureOf([&] { c->FromXml("<root><Pick><V>1</V><V>2</V></Pick></root>"); }),
              "Failed to process the element [root]\nFailed to process the element [Pick]\n"
              "Failed read all the elements held within the element [Pick]. The unexpected element [V] remains un "
              "processed");
    ASSERT_NE(c->Child(PPick), nullptr);
    EXPECT_EQ(c->Child(PPick)->Text(0), "1");
    EXPECT_EQ(FailureOf([&] { c->FromXml("<root><Shape><V>1</V><V>2</V></Shape></root>"); }),
              "Failed to process the element [root]\nFailed to process the element [Shape]\n"
              "Failed read all the elements held within the element [Shape]. The unexpected element [V] remains un "
              "processed");
    ASSERT_NE(c->Child(PShape), nullptr);
}

TEST_F(ChoiceRecords, SubstitutionFollowsTheTypeAttributeAndAnUnknownTypeClearsTheMember)
{
    CSmartPtr<Bag> c = NewChoice();
    c->FromXml((std::string("<root ") + kXsi + "><Shape xsi:type='Round'><R>r</R></Shape></root>").c_str());
    EXPECT_EQ(c->Child(PShape)->GetClassInfo(), round.Info());
    EXPECT_EQ(c->Child(PShape)->Text(0), "r");

    c->writes.clear();
    EXPECT_EQ(
        FailureOf([&] { c->FromXml((std::string("<root ") + kXsi + "><Shape xsi:type='Square'/></root>").c_str()); }),
        "Failed to process the element [root]\nFailed read all the elements held within the element [root]. "
        "The unexpected element [Shape] remains un processed");
    // Set to nothing before the refusal; the untyped member cleared its own.
    EXPECT_EQ(c->writes, (std::vector<std::pair<int, bool>> {{PShape, true}, {PNote, true}}));

    c->FromXml(
        (std::string("<root ") + kXsi + "><Figure xsi:type='Round'><R>1</R></Figure><Figure><V>2</V></Figure></root>")
            .c_str());
    ASSERT_EQ(c->As<BagList>(PFigures)->GetCount(), 2);
    EXPECT_EQ(c->As<BagList>(PFigures)->Item(0)->GetClassInfo(), round.Info());
    EXPECT_EQ(c->As<BagList>(PFigures)->Item(1)->Text(0), "2");
}

TEST_F(ChoiceRecords, APseudoMemberThatReadsNothingTakesItsSelectionBack)
{
    Table group {XmlElementGroupType_Sequence, XmlElementType_Pseudo, "Group"};
    group.Add<CElementInfoSeqPrimMnd>("G", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
    TablesByNumber()[2] = &group;
    Table t {XmlElementGroupType_Choice, XmlElementType_Element, "T"};
    t.Add<CElementInfoChoiceClsOpt>("Group", kNs, 0, XmlElementType_Pseudo, &MakeByNumber, 2);
    t.Add<CElementInfoChoicePrimOpt>("H", kNs, 1, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                     kNoFacets);
    CSmartPtr<Bag> bag(new Bag(t, "root"));
    bag->FromXml("<root code='c'><H>h</H></root>");
    EXPECT_EQ(bag->Text(1), "h");
    EXPECT_EQ(bag->writes, (std::vector<std::pair<int, bool>> {{0, false}, {0, true}, {1, false}}));

    bag->FromXml("<root code='c'><G>g</G></root>");
    ASSERT_NE(bag->Child(0), nullptr);
    EXPECT_EQ(bag->Child(0)->Text(0), "g");
    EXPECT_EQ(bag->Child(0)->code, "c");
    bag->code.clear();
    EXPECT_EQ(Write(*bag), "<root code=\"c\"><G>g</G></root>");

    CXmlDocument document;
    document.LoadXml("<root/>");
    CXmlElement* end = nullptr;
    EXPECT_FALSE(t.Entries()[0]->ElementFromXml(CXmlSerializationContext(), bag, document.GetDocumentElement(), &end,
                                                "", XmlElementType_Element));
}

TEST_F(ChoiceRecords, CollectionMembersAreSelectedWhenTheyReadAndCheckTheirCounts)
{
    CSmartPtr<Bag> c = NewChoice();
    c->FromXml("<root><Phone>1</Phone><Phone>2</Phone></root>");
    EXPECT_EQ(c->As<TextList>(PPhones)->items, (std::vector<std::string> {"1", "2"}));
    EXPECT_EQ(FailureOf([&] { c->FromXml("<root><Phone>1</Phone><Phone>2</Phone><Phone>3</Phone></root>"); }),
              "Failed to process the element [root]\n"
              "The Maximum number of [Phone] elements allowed in this collection is 2");
    c->FromXml("<root><Tag>a</Tag></root>");
    EXPECT_EQ(c->As<TextList>(PTags)->items, (std::vector<std::string> {"a"}));
    EXPECT_EQ(c->As<TextList>(PPhones)->GetCount(), 0);
    c->FromXml("<root><Item><V>i</V></Item></root>");
    EXPECT_EQ(c->As<BagList>(PItems)->Item(0)->Text(0), "i");
    c->FromXml("<root><Raw xmlns='urn:r'>1</Raw><Raw xmlns='urn:r'>2</Raw></root>");
    EXPECT_EQ(c->As<CElementCol>(PRaws)->GetCount(), 2);
    EXPECT_EQ(FailureOf([&] { c->FromXml("<root><Raw xmlns='urn:r'>1</Raw><Raw>2</Raw></root>"); }),
              "Failed to process the element [root]\nFailed read all the elements held within the element [root]. "
              "The unexpected element [Raw] remains un processed");

    // At a pseudo level a bad count refuses the selection, cursor unmoved.
    CXmlDocument document;
    document.LoadXml("<root><Phone>1</Phone><Phone>2</Phone><Phone>3</Phone></root>");
    CXmlElement* root = document.GetDocumentElement();
    CXmlElement* cursor = root->GetFirstElement();
    CElementInfo* phones = choice.Entries()[PPhones];
    EXPECT_FALSE(phones->ElementFromXml(CXmlSerializationContext(), c, root, &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, root->GetFirstElement());
    // Without the check the same run is taken.
    CXmlSerializationContext ignoreCounts;
    ignoreCounts.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_TRUE(phones->ElementFromXml(ignoreCounts, c, root, &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, nullptr);
    // Nothing to read: no selection, at the end of the input as well.
    EXPECT_FALSE(phones->ElementFromXml(CXmlSerializationContext(), c, root, &cursor, "", XmlElementType_Element));
    EXPECT_FALSE(choice.Entries()[PRaws]->ElementFromXml(CXmlSerializationContext(), c, root, &cursor, "",
                                                         XmlElementType_Element));
}

TEST_F(ChoiceRecords, AWildcardCollectionTakesAnyRun)
{
    Table t {XmlElementGroupType_Choice, XmlElementType_Element, "T"};
    t.Add<CElementInfoChoiceUntpdCol>("AnyElement", "", 0);
    CSmartPtr<Bag> bag(
        new Bag(t, "root", [](Bag& b) { b.props[0].SetXmlCollection(new CElementCol("", "##any", "", 0, -1)); }));
    bag->FromXml("<root><a/><b xmlns='urn:b'/></root>");
    ASSERT_EQ(bag->As<CElementCol>(0)->GetCount(), 2);
    EXPECT_EQ(bag->As<CElementCol>(0)->Item(1)->GetName(), "b");
    EXPECT_EQ(Write(*bag), "<root><a/><AA:b xmlns:AA=\"urn:b\"/></root>");
}

TEST_F(ChoiceRecords, ValidateIsNeverToBeCalled)
{
    CSmartPtr<Bag> c = NewChoice();
    for (int index : {PPick, PPhones})
        ExpectFailure<CNxException>(
            [&] { choice.Entries()[index]->Validate(CXmlSerializationContext(), c, false, true); },
            "Not implemented, should never be called");
}

TEST_F(ChoiceRecords, TheClassTreeSeparatesOptionalFromRepeatingMembers)
{
    static_assert(std::is_base_of_v<CElementInfoChoiceCol, CElementInfoChoiceUntpdCol>);
    static_assert(std::is_base_of_v<CElementInfoChoiceCol, CElementInfoChoiceEnumCol>);
    static_assert(!std::is_base_of_v<CElementInfoChoiceCol, CElementInfoChoiceUntpdOpt>);
    static_assert(std::is_base_of_v<CElementInfoChoice, CElementInfoChoiceClsOpt>);
    CElementInfo** e = choice.Entries();
    for (int index = 0; e[index]; ++index)
        EXPECT_EQ(dynamic_cast<CElementInfoChoiceCol*>(e[index]) != nullptr, index >= PPhones) << index;
}
