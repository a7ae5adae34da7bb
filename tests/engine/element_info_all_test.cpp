#include <gtest/gtest.h>

#include <type_traits>

#include "ElementInfoTestClasses.h"
#include "ExpectFailure.h"

using namespace NxElementTest;

namespace {

enum { PA, PB, PChild, PLoose, POpt, PColour, PShade, PNote, PBody };

const CPrimitiveRestrictions kNoFacets;

struct AllRecords : ::testing::Test {
    Table leaf {XmlElementGroupType_Sequence, XmlElementType_Element, "Leaf"};
    Table all {XmlElementGroupType_All, XmlElementType_Element, "All"};

    AllRecords()
    {
        leaf.Add<CElementInfoSeqPrimOpt>("V", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                         kNoFacets);
        TablesByNumber() = {{1, &leaf}};
        TablesByType() = {{"Leaf", &leaf}};

        all.Add<CElementInfoAllPrimMnd>("A", kNs, PA, ItemTypeI4, nullptr, CWhitespaceUtils::WhitespaceRuleCollapse,
                                        kNoFacets);
        all.Add<CElementInfoAllPrimOpt>("B", kNs, PB, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                        kNoFacets);
        all.Add<CElementInfoAllClsMnd>("Child", kNs, PChild, XmlElementType_Element, &MakeByNumber, 1, true);
        all.Add<CElementInfoAllClsMnd>("Loose", kNs, PLoose, XmlElementType_Element, &MakeByNumber, 1, false);
        all.Add<CElementInfoAllClsOpt>("Opt", kNs, POpt, XmlElementType_Element, &MakeByNumber, 1);
        all.Add<CElementInfoAllEnumMnd>("Colour", kNs, PColour, &ColourToText, &ColourFromText);
        all.Add<CElementInfoAllEnumOpt>("Shade", kNs, PShade, &ColourToText, &ColourFromText);
        all.Add<CElementInfoAllUntpdOpt>("Note", kNs, PNote, "##any", kNs);
        // A wildcard would take whatever follows an element read in the same
        // pass; it has a test of its own.
        all.Add<CElementInfoAllUntpdMnd>("Body", kNs, PBody, "##any", kNs);
    }

    CSmartPtr<Bag> NewAll()
    {
        const Table* leafTable = &leaf;
        return new Bag(all, "root", [=](Bag& bag) {
            bag.SetObject(PChild, new Bag(*leafTable, "Child"));
            bag.SetObject(PLoose, new Bag(*leafTable, "Loose"));
            bag.SetObject(PBody, new CElement("Body", "", "##any", ""));
        });
    }
};

} // namespace

TEST_F(AllRecords, WriteInTableOrder)
{
    CSmartPtr<Bag> a = NewAll();
    a->SetNumber(PA, 5);
    a->SetText(PB, "b");
    a->Child(PChild)->SetText(0, "c");
    a->SetObject(POpt, new Bag(leaf, "Opt"));
    a->SetNumber(PColour, 1);
    a->SetObject(PNote, new CElement("Note"));
    EXPECT_EQ(Write(*a),
              "<root><A>5</A><B>b</B><Child><V>c</V></Child><Loose/><Opt/><Colour>green</Colour>"
              "<Note/><Body/></root>");
    EXPECT_EQ(Write(*a, true),
              "<root>\n\t<A>5</A>\n\t<B>b</B>\n\t<Child>\n\t\t<V>c</V>\n\t</Child>\n\t<Loose/>\n"
              "\t<Opt/>\n\t<Colour>green</Colour>\n\t<Note/>\n\t<Body/>\n</root>\n");
}

TEST_F(AllRecords, ReadElementsInAnyOrder)
{
    CSmartPtr<Bag> a = NewAll();
    a->FromXml("<root><Note>n</Note><Shade>blue</Shade><Colour>red</Colour><Opt><V>o</V></Opt>"
               "<Loose><V>l</V></Loose><Child><V>c</V></Child><B>b</B><A> 3 </A><Body>t</Body></root>");
    EXPECT_EQ(a->Number(PA), 3);
    EXPECT_EQ(a->Text(PB), "b");
    EXPECT_EQ(a->Child(PChild)->Text(0), "c");
    EXPECT_EQ(a->Child(PLoose)->Text(0), "l");
    EXPECT_EQ(a->Child(POpt)->Text(0), "o");
    EXPECT_EQ(a->Child(POpt)->GetElementName(), "Opt");
    EXPECT_EQ(a->Number(PColour), 0);
    EXPECT_EQ(a->Number(PShade), 2);
    EXPECT_EQ(a->As<CElement>(PNote)->GetText(), "n");
    EXPECT_EQ(a->As<CElement>(PBody)->GetText(), "t");
    EXPECT_EQ(Write(*a),
              "<root><A>3</A><B>b</B><Child><V>c</V></Child><Loose><V>l</V></Loose><Opt><V>o</V></Opt>"
              "<Colour>red</Colour><Shade>blue</Shade><Note>n</Note><Body>t</Body></root>");

    // Optional members may be missing, as may a real mandatory child whose
    // last argument is false.
    a->FromXml("<root><Colour>green</Colour><Child/><A>1</A><Body/></root>");
    EXPECT_FALSE(a->Has(PB));
    EXPECT_FALSE(a->Has(POpt));
    EXPECT_FALSE(a->Has(PNote));
    EXPECT_EQ(a->Child(PLoose)->Text(0), "(unset)");
}

TEST_F(AllRecords, MissingMandatoryElementsAreReportedWhateverTheContextSays)
{
    CSmartPtr<Bag> a = NewAll();
    CXmlSerializationContext ignoreMissing;
    ignoreMissing.SetIgnoreMissingMandatoryElements(true);
    for (const CXmlSerializationContext* context : {&CXmlSerializationContext::m_defaultContext, &ignoreMissing}) {
        EXPECT_EQ(FailureOf([&] { a->FromXml("<root><Colour>red</Colour><Child/><Body/></root>", *context); }),
                  "Failed to process the element [root]\nFailed to find the mandatory element [A]");
        EXPECT_EQ(FailureOf([&] { a->FromXml("<root><A>1</A><Colour>red</Colour><Body/></root>", *context); }),
                  "Failed to process the element [root]\nFailed to find the mandatory element [Child]");
        EXPECT_EQ(FailureOf([&] { a->FromXml("<root><A>1</A><Child/><Body/></root>", *context); }),
                  "Failed to process the element [root]\nFailed to find the mandatory element [Colour]");
        EXPECT_EQ(FailureOf([&] { a->FromXml("<root><A>1</A><Child/><Colour>red</Colour></root>", *context); }),
                  "Failed to process the element [root]\nFailed to find the mandatory element [Body]");
    }
}

TEST_F(AllRecords, AnElementNoRecordTakesStopsTheWalk)
{
    CSmartPtr<Bag> a = NewAll();
    // A second B stays unread and is reported as left over.
    EXPECT_EQ(FailureOf([&] { a->FromXml("<root><B>1</B><B>2</B><A>1</A><Child/><Colour>red</Colour></root>"); }),
              "Failed to process the element [root]\nFailed to find the mandatory element [A]");
    // Even when unknown elements may be ignored, the walk stops at the first
    // element that no record takes.
    Table noWildcard {XmlElementGroupType_All, XmlElementType_Element, "All"};
    noWildcard.Add<CElementInfoAllPrimMnd>("A", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                           kNoFacets);
    noWildcard.Add<CElementInfoAllPrimOpt>("B", kNs, 1, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                           kNoFacets);
    CSmartPtr<Bag> b(new Bag(noWildcard, "root"));
    CXmlSerializationContext ignoreUnknown;
    ignoreUnknown.SetIgnoreUnknownElements(true);
    EXPECT_EQ(FailureOf([&] { b->FromXml("<root><B>b</B><x/><A>a</A></root>", ignoreUnknown); }),
              "Failed to process the element [root]\nFailed to find the mandatory element [A]");
    EXPECT_EQ(b->Text(1), "b");
    EXPECT_EQ(FailureOf([&] { b->FromXml("<root><A>a</A><B>1</B><B>2</B></root>"); }),
              "Failed to process the element [root]\nFailed read all the elements held within the element [root]. "
              "The unexpected element [B] remains un processed");
    EXPECT_EQ(b->Text(1), "1");
}

TEST_F(AllRecords, AWildcardTakesTheFirstElementOfferedToIt)
{
    Table greedy {XmlElementGroupType_All, XmlElementType_Element, "All"};
    greedy.Add<CElementInfoAllUntpdMnd>("AnyElement", "", 0, "##any", "");
    greedy.Add<CElementInfoAllPrimOpt>("B", kNs, 1, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                       kNoFacets);
    CSmartPtr<Bag> g(new Bag(greedy, "root", [](Bag& bag) { bag.SetObject(0, new CElement("any", "", "##any", "")); }));
    g->FromXml("<root><B>b</B></root>");
    EXPECT_EQ(g->As<CElement>(0)->GetName(), "B");
    EXPECT_FALSE(g->Has(1));
}

TEST_F(AllRecords, RecordsAnswerWhetherTheyConsumedAnElement)
{
    CXmlDocument document;
    document.LoadXml("<root><x/><Opt><V>o</V></Opt><Note/></root>");
    CXmlElement* root = document.GetDocumentElement();
    CXmlElement* x = root->GetFirstElement();
    CSmartPtr<Bag> a = NewAll();
    CXmlSerializationContext ignoreUnknown;
    ignoreUnknown.SetIgnoreUnknownElements(true);
    CElementInfo** e = all.Entries();
    // Not their element: false at either level, cursor unmoved, nothing set.
    for (int index : {PA, PB, PChild, POpt, PColour, PShade, PNote}) {
        for (XmlElementType level : {XmlElementType_Element, XmlElementType_Pseudo}) {
            CXmlElement* cursor = x;
            EXPECT_FALSE(e[index]->ElementFromXml(ignoreUnknown, a, root, &cursor, "", level)) << index;
            EXPECT_EQ(cursor, x);
        }
    }
    EXPECT_FALSE(a->Has(POpt));
    EXPECT_FALSE(a->Has(PNote));
    CXmlElement* end = nullptr;
    EXPECT_FALSE(e[PNote]->ElementFromXml(ignoreUnknown, a, root, &end, "", XmlElementType_Element));
    EXPECT_FALSE(e[PBody]->ElementFromXml(ignoreUnknown, a, root, &end, "", XmlElementType_Element));

    CXmlElement* cursor = x->GetNextSiblingElement();
    EXPECT_TRUE(e[POpt]->ElementFromXml(ignoreUnknown, a, root, &cursor, "", XmlElementType_Element));
    EXPECT_EQ(a->Child(POpt)->Text(0), "o");
    EXPECT_TRUE(e[PNote]->ElementFromXml(ignoreUnknown, a, root, &cursor, "", XmlElementType_Element));
    EXPECT_EQ(a->As<CElement>(PNote)->GetName(), "Note");
    EXPECT_EQ(cursor, nullptr);
}

TEST_F(AllRecords, PseudoChildrenAnswerWhetherTheyMovedAndAreMandatoryWhenPseudo)
{
    Table group {XmlElementGroupType_All, XmlElementType_Pseudo, "Group"};
    group.Add<CElementInfoAllPrimMnd>("P", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
    group.Add<CElementInfoAllPrimOpt>("Q", kNs, 1, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
    TablesByNumber()[2] = &group;
    Table t {XmlElementGroupType_All, XmlElementType_Element, "T"};
    // The last argument is false, yet a missing pseudo child fails.
    t.Add<CElementInfoAllClsMnd>("Group", kNs, 0, XmlElementType_Pseudo, &MakeByNumber, 2, false);
    t.Add<CElementInfoAllClsOpt>("More", kNs, 1, XmlElementType_Pseudo, &MakeByNumber, 2);
    t.Add<CElementInfoAllPrimOpt>("R", kNs, 2, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                  kNoFacets);
    const Table* groupTable = &group;
    CSmartPtr<Bag> bag(new Bag(t, "root", [=](Bag& b) { b.SetObject(0, new Bag(*groupTable, "")); }));

    // First pass: the groups find nothing they can use at R, and R is read.
    // Second: the group takes Q and P, then More takes the second P.
    bag->FromXml("<root code='k'><R>r</R><Q>q</Q><P>p</P><P>p2</P></root>");
    EXPECT_EQ(bag->Child(0)->Text(0), "p");
    EXPECT_EQ(bag->Child(0)->Text(1), "q");
    EXPECT_EQ(bag->Text(2), "r");
    ASSERT_NE(bag->Child(1), nullptr);
    EXPECT_EQ(bag->Child(1)->Text(0), "p2");
    EXPECT_EQ(bag->Child(0)->code, "k");

    EXPECT_EQ(FailureOf([&] { bag->FromXml("<root><R>r</R></root>"); }),
              "Failed to process the element [root]\nFailed to find the mandatory element [Group]");
    EXPECT_FALSE(bag->Has(1)); // the optional pseudo child read nothing and was dropped
}

TEST_F(AllRecords, ValidateSettlesAbsenceByKind)
{
    CSmartPtr<Bag> a = NewAll();
    const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext;
    CElementInfo** e = all.Entries();
    for (int index : {PA, PChild, PColour, PBody}) {
        EXPECT_TRUE(e[index]->Validate(context, a, true, true));
        EXPECT_FALSE(e[index]->Validate(context, a, false, false));
        ExpectFailure<CNxValidationException>([&] { e[index]->Validate(context, a, false, true); },
                                              "Failed to find the mandatory element [" + e[index]->GetName() + "]");
    }
    EXPECT_TRUE(e[PLoose]->Validate(context, a, false, true));
    EXPECT_FALSE(e[PLoose]->Validate(context, a, false, false));
    for (int index : {PB, POpt, PShade, PNote})
        EXPECT_TRUE(e[index]->Validate(context, a, false, true));
}

TEST_F(AllRecords, SubstitutableChildrenAreWrittenButCannotBeRead)
{
    Table t {XmlElementGroupType_All, XmlElementType_Element, "T"};
    auto* mandatory = t.Add<CElementInfoAllAbsClsMnd>("Shape", kNs, 0, XmlElementType_Element, &MakeByType, 7);
    auto* optional = t.Add<CElementInfoAllAbsClsOpt>("Spare", kNs, 1, XmlElementType_Element, &MakeByType);
    CSmartPtr<Bag> bag(new Bag(t, "root"));
    bag->SetObject(0, new Bag(leaf, "Shape"));
    bag->SetObject(1, new Bag(leaf, "Spare"));
    EXPECT_EQ(Write(*bag), "<root><Shape/><Spare/></root>");

    EXPECT_EQ(FailureOf([&] { bag->FromXml("<root><Shape/></root>"); }),
              "Failed to process the element [root]\nCElementInfoAllAbsClsMnd::ElementFromXml, has not been "
              "implemented fully, contact support@orvane.example");
    CXmlElement* cursor = nullptr;
    ExpectFailure<CNxException>(
        [&] {
            optional->ElementFromXml(CXmlSerializationContext(), bag, nullptr, &cursor, "", XmlElementType_Element);
        },
        "CElementInfoAllAbsClsOpt::ElementFromXml, has not been implemented fully, contact support@orvane.example");
    EXPECT_TRUE(optional->Validate(CXmlSerializationContext(), bag, false, true));
    EXPECT_FALSE(mandatory->Validate(CXmlSerializationContext(), bag, false, false));
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

TEST_F(AllRecords, CollectionRecordsCannotBeMadeButKeepTheirWalks)
{
    static_assert(std::is_abstract_v<CElementInfoAll>);
    static_assert(std::is_abstract_v<CElementInfoAllCol>);
    static_assert(std::is_abstract_v<CElementInfoAllClsCol>);
    static_assert(std::is_abstract_v<CElementInfoAllAbsClsCol>);
    static_assert(std::is_abstract_v<CElementInfoAllPrimCol>);
    static_assert(std::is_abstract_v<CElementInfoAllUntpdCol>);
    static_assert(std::is_abstract_v<CElementInfoAllEnumCol>);
    static_assert(!std::is_base_of_v<CElementInfoAllCol, CElementInfoAllEnumCol>);
    static_assert(std::is_base_of_v<CElementInfoAll, CElementInfoAllEnumCol>);
    static_assert(!std::is_abstract_v<CElementInfoAllAbsClsOpt>);

    Table t {XmlElementGroupType_All, XmlElementType_Element, "T"};
    auto* entry = t.Add<UsableAllCol>("Phone", kNs, 0);
    CSmartPtr<Bag> bag(new Bag(t, "root", [](Bag& b) { b.props[0].SetXmlCollection(new TextList("Phone", 1, -1)); }));
    CXmlDocument document;
    document.LoadXml("<root><Phone>1</Phone><Phone>2</Phone><x/></root>");
    CXmlElement* root = document.GetDocumentElement();
    CXmlElement* cursor = root->GetFirstElement();
    EXPECT_FALSE(entry->ElementFromXml(CXmlSerializationContext(), bag, root, &cursor, "", XmlElementType_Element));
    EXPECT_EQ(cursor->GetLocalName(), "x");
    EXPECT_EQ(bag->As<TextList>(0)->items, (std::vector<std::string> {"1", "2"}));
    EXPECT_EQ(Write(*bag), "<root><Phone>1</Phone><Phone>2</Phone></root>");
    bag->As<TextList>(0)->items.clear();
    EXPECT_EQ(FailureOf([&] { Write(*bag); }),
              "Failed to convert the element [root] to XML\n"
              "The Minimum number of [Phone] elements allowed in this collection is 1");
}
