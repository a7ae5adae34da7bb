#include <gtest/gtest.h>

#include <type_traits>

#include "ElementInfoTestClasses.h"
#include "ExpectFailure.h"

using namespace NxElementTest;

namespace {

const char* const kXsi = "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";

// Property numbers of the class that holds one record of every sequence kind.
enum {
    PName,
    PNick,
    PAddress,
    PExtra,
    PShape,
    PSpare,
    PColour,
    PShade,
    PPhone,
    PTag,
    PItem,
    PFigure,
    PNote,
    PRaw,
    PAny
};

const CPrimitiveRestrictions kNoFacets;
const CPrimitiveRestrictions kUpToFour(nullptr, -1, 4, nullptr, nullptr, nullptr, nullptr, -1);

struct SeqRecords : ::testing::Test {
    Table address {XmlElementGroupType_Sequence, XmlElementType_Element, "AddressType"};
    Table shape {XmlElementGroupType_Sequence, XmlElementType_Element, "Shape"};
    Table circle {XmlElementGroupType_Sequence, XmlElementType_Element, "Circle"};
    Table person {XmlElementGroupType_Sequence, XmlElementType_Element, "Person"};

    SeqRecords()
    {
        address.Add<CElementInfoSeqPrimMnd>("Street", kNs, 0, ItemTypeString, nullptr,
                                            CWhitespaceUtils::WhitespaceRuleCollapse, kNoFacets);
        address.Add<CElementInfoSeqPrimOpt>("City", kNs, 1, ItemTypeString, nullptr,
                                            CWhitespaceUtils::WhitespaceRulePreserve, kNoFacets);
        shape.Add<CElementInfoSeqPrimOpt>("Side", kNs, 0, ItemTypeI4, nullptr, CWhitespaceUtils::WhitespaceRuleCollapse,
                                          kNoFacets);
        circle.Add<CElementInfoSeqPrimMnd>("Radius", kNs, 0, ItemTypeI4, nullptr,
                                           CWhitespaceUtils::WhitespaceRuleCollapse, kNoFacets);
        TablesByNumber() = {{1, &address}};
        TablesByType() = {{"Shape", &shape}, {"Circle", &circle}};

        person.Add<CElementInfoSeqPrimMnd>("Name", kNs, PName, ItemTypeString, nullptr,
                                           CWhitespaceUtils::WhitespaceRuleCollapse, kUpToFour);
        person.Add<CElementInfoSeqPrimOpt>("Nick", kNs, PNick, ItemTypeString, nullptr,
                                           CWhitespaceUtils::WhitespaceRulePreserve, kNoFacets);
        person.Add<CElementInfoSeqClsMnd>("Address", kNs, PAddress, XmlElementType_Element, &MakeByNumber, 1, true);
        person.Add<CElementInfoSeqClsOpt>("Extra", kNs, PExtra, XmlElementType_Element, &MakeByNumber, 1);
        person.Add<CElementInfoSeqAbsClsMnd>("Shape", kNs, PShape, XmlElementType_Element, &MakeByType);
        person.Add<CElementInfoSeqAbsClsOpt>("Spare", kNs, PSpare, XmlElementType_Element, &MakeByType);
        person.Add<CElementInfoSeqEnumMnd>("Colour", kNs, PColour, &ColourToText, &ColourFromText);
        person.Add<CElementInfoSeqEnumOpt>("Shade", kNs, PShade, &ColourToText, &ColourFromText);
        person.Add<CElementInfoSeqPrimCol>("Phone", kNs, PPhone);
        person.Add<CElementInfoSeqEnumCol>("Tag", kNs, PTag);
        person.Add<CElementInfoSeqClsCol>("Item", kNs, PItem, XmlElementType_Element);
        person.Add<CElementInfoSeqAbsClsCol>("Figure", kNs, PFigure, XmlElementType_Element);
        person.Add<CElementInfoSeqUntpdOpt>("Note", kNs, PNote, "##any", kNs);
        person.Add<CElementInfoSeqUntpdCol>("Raw", kNs, PRaw);
        person.Add<CElementInfoSeqUntpdMnd>("AnyElement", "", PAny, "##any", kNs);
    }

    CSmartPtr<Bag> NewPerson(int minPhones = 0)
    {
        const Table* addressTable = &address;
        return new Bag(person, "root", [=](Bag& bag) {
            bag.SetObject(PAddress, new Bag(*addressTable, "Address"));
            bag.props[PPhone].SetXmlCollection(new TextList("Phone", minPhones, 3));
            bag.props[PTag].SetXmlCollection(new TextList("Tag", 0, -1));
            bag.props[PItem].SetXmlCollection(new BagList("Item", *addressTable, 0, -1));
            bag.props[PFigure].SetXmlCollection(new BagList("Figure", *addressTable, 0, -1, true));
            bag.props[PRaw].SetXmlCollection(new CElementCol("", "##any", "", 0, -1));
            bag.SetObject(PAny, new CElement("any", "", "##any", ""));
        });
    }

    // A person with every property set.
    CSmartPtr<Bag> FullPerson()
    {
        CSmartPtr<Bag> p = NewPerson();
        p->SetText(PName, "Ann");
        p->SetText(PNick, " An ");
        p->Child(PAddress)->SetText(0, "Main");
        CSmartPtr<Bag> extra(new Bag(address, "Extra"));
        extra->SetText(0, "Side");
        p->SetObject(PExtra, extra);
        CSmartPtr<Bag> shapeChild(new Bag(shape, "Shape"));
        shapeChild->SetNumber(0, 3);
        p->SetObject(PShape, shapeChild);
        p->SetNumber(PColour, 2);
        p->SetNumber(PShade, 0);
        p->As<TextList>(PPhone)->items = {"1", "2"};
        p->As<TextList>(PTag)->items = {"green"};
        CSmartPtr<Bag> item(new Bag(address, "Item"));
        item->SetText(0, "I");
        p->As<BagList>(PItem)->AppendItem(item);
        CSmartPtr<CElement> note(new CElement("Note"));
        note->SetText("n");
        p->SetObject(PNote, note);
        p->As<CElementCol>(PRaw)->Add("Raw", "")->SetText("r");
        p->As<CElement>(PAny)->SetName("free");
        p->As<CElement>(PAny)->SetText("f");
        return p;
    }
};

const char* const kFullPersonXml = "<root><Name>Ann</Name><Nick> An </Nick><Address><Street>Main</Street></Address>"
                                   "<Extra><Street>Side</Street></Extra><Shape><Side>3</Side></Shape>"
                                   "<Colour>blue</Colour><Shade>red</Shade><Phone>1</Phone><Phone>2</Phone>"
                                   "<Tag>green</Tag><Item><Street>I</Street></Item><Note>n</Note><Raw>r</Raw>"
                                   "<free>f</free></root>";

} // namespace

TEST_F(SeqRecords, WriteEveryKindInTableOrderAndLeaveOutWhatIsUnset)
{
    CSmartPtr<Bag> p = FullPerson();
    EXPECT_EQ(Write(*p), kFullPersonXml);
    EXPECT_EQ(Write(*p, true),
              "<root>\n"
              "\t<Name>Ann</Name>\n"
              "\t<Nick> An </Nick>\n"
              "\t<Address>\n\t\t<Street>Main</Street>\n\t</Address>\n"
              "\t<Extra>\n\t\t<Street>Side</Street>\n\t</Extra>\n"
              "\t<Shape>\n\t\t<Side>3</Side>\n\t</Shape>\n"
              "\t<Colour>blue</Colour>\n"
              "\t<Shade>red</Shade>\n"
              "\t<Phone>1</Phone>\n\t<Phone>2</Phone>\n"
              "\t<Tag>green</Tag>\n"
              "\t<Item>\n\t\t<Street>I</Street>\n\t</Item>\n"
              "\t<Note>n</Note>\n"
              "\t<Raw>r</Raw>\n"
              "\t<free>f</free>\n"
              "</root>\n");

    // Unset values, mandatory or not, and empty collections write nothing.
    CSmartPtr<Bag> empty = NewPerson();
    EXPECT_EQ(Write(*empty), "<root><Address/><any/></root>");
}

TEST_F(SeqRecords, WritingChecksFacetsOfPrimitivesAndBoundsOfCollections)
{
    CSmartPtr<Bag> p = FullPerson();
    p->SetText(PName, "Annabel");
    NxVariant tooLong;
    tooLong.SetString("Annabel");
    const std::string facet = FailureOf([&] { person.Entries()[PName]->CheckRestriction(tooLong); });
    ASSERT_NE(facet, "(no failure)");
    EXPECT_EQ(FailureOf([&] { Write(*p); }), "Failed to convert the element [root] to XML\n" + facet);

    p = NewPerson(1);
    EXPECT_EQ(FailureOf([&] { Write(*p); }),
              "Failed to convert the element [root] to XML\n"
              "The Minimum number of [Phone] elements allowed in this collection is 1");
    CXmlSerializationContext lenient;
    lenient.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ(Write(*p, false, lenient), "<root><Address/><any/></root>");
}

TEST_F(SeqRecords, ReadEveryKindBackIntoAnEqualObject)
{
    CSmartPtr<Bag> p = NewPerson();
    p->FromXml(kFullPersonXml);
    EXPECT_EQ(p->Text(PName), "Ann");
    EXPECT_EQ(p->Text(PNick), " An ");
    EXPECT_EQ(p->Child(PAddress)->Text(0), "Main");
    EXPECT_EQ(p->Child(PAddress)->Text(1), "(unset)");
    ASSERT_NE(p->Child(PExtra), nullptr);
    EXPECT_EQ(p->Child(PExtra)->GetElementName(), "Extra");
    EXPECT_EQ(p->Child(PExtra)->Text(0), "Side");
    // No xsi:type: the factory picks the table of the element's own name.
    EXPECT_EQ(p->Child(PShape)->GetClassInfo(), shape.Info());
    EXPECT_EQ(p->Child(PShape)->Number(0), 3);
    EXPECT_FALSE(p->Has(PSpare));
    EXPECT_EQ(p->Number(PColour), 2);
    EXPECT_EQ(p->Number(PShade), 0);
    EXPECT_EQ(p->As<TextList>(PPhone)->items, (std::vector<std::string> {"1", "2"}));
    EXPECT_EQ(p->As<TextList>(PTag)->items, (std::vector<std::string> {"green"}));
    ASSERT_EQ(p->As<BagList>(PItem)->GetCount(), 1);
    EXPECT_EQ(p->As<BagList>(PItem)->Item(0)->Text(0), "I");
    EXPECT_EQ(p->As<CElement>(PNote)->GetText(), "n");
    ASSERT_EQ(p->As<CElementCol>(PRaw)->GetCount(), 1);
    EXPECT_EQ(p->As<CElementCol>(PRaw)->Item(0)->GetText(), "r");
    EXPECT_EQ(p->As<CElement>(PAny)->GetName(), "free");

    EXPECT_EQ(Write(*p), kFullPersonXml);
}

TEST_F(SeqRecords, OptionalChildrenAreSetOnceAndMandatoryChildrenOnlyRead)
{
    CSmartPtr<Bag> p = NewPerson();
    p->FromXml("<root><Name>A</Name><Address><Street>S</Street></Address><Extra><Street>E</Street></Extra>"
               "<Shape/><Colour>red</Colour><any/></root>");
    std::vector<std::pair<int, bool>> childAccess;
    for (const auto& access : p->log)
        if (access.first == PAddress || access.first == PExtra || access.first == PShape)
            childAccess.push_back(access);
    EXPECT_EQ(childAccess, (std::vector<std::pair<int, bool>> {{PAddress, true}, {PExtra, false}, {PShape, false}}));
}

TEST_F(SeqRecords, SubstitutionFollowsTheTypeAttribute)
{
    CSmartPtr<Bag> p = NewPerson();
    p->FromXml((std::string("<root ") + kXsi
                + "><Name>A</Name><Address><Street>S</Street></Address>"
                  "<Shape xsi:type=\"Circle\"><Radius> 7 </Radius></Shape>"
                  "<Spare xsi:type=\"Circle\"><Radius>8</Radius></Spare>"
                  "<Colour>red</Colour>"
                  "<Figure xsi:type=\"Circle\"><Radius>9</Radius></Figure>"
                  "<Figure xsi:type=\"Shape\"><Side>3</Side></Figure><x/></root>")
                   .c_str());
    EXPECT_EQ(p->Child(PShape)->GetClassInfo(), circle.Info());
    EXPECT_EQ(p->Child(PShape)->GetElementName(), "Shape");
    EXPECT_EQ(p->Child(PShape)->Number(0), 7);
    EXPECT_EQ(p->Child(PSpare)->GetClassInfo(), circle.Info());
    EXPECT_EQ(p->Child(PSpare)->Number(0), 8);
    ASSERT_EQ(p->As<BagList>(PFigure)->GetCount(), 2);
    EXPECT_EQ(p->As<BagList>(PFigure)->Item(0)->GetClassInfo(), circle.Info());
    EXPECT_EQ(p->As<BagList>(PFigure)->Item(1)->GetClassInfo(), shape.Info());

    // An unknown type: the mandatory record fails, whatever the options say;
    // the optional one lets the element go on to the next record.
    const std::string unknownShape = std::string("<root ") + kXsi
        + "><Name>A</Name><Address><Street>S</Street></Address><Shape xsi:type=\"Square\"/><Colour>red</Colour>"
          "<any/></root>";
    CXmlSerializationContext ignoreMissing, ignoreUnknown;
    ignoreMissing.SetIgnoreMissingMandatoryElements(true);
    ignoreUnknown.SetIgnoreUnknownElements(true);
    for (const CXmlSerializationContext* lenient : {&ignoreMissing, &ignoreUnknown})
        EXPECT_EQ(FailureOf([&] { p->FromXml(unknownShape.c_str(), *lenient); }),
                  "Failed to process the element [root]\nFailed to find a suitable substitution element for [Shape]");
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml("<root><Name>A</Name><Address><Street>S</Street></Address><Colour>red</Colour></root>");
              }),
              "Failed to process the element [root]\nFailed to find a suitable substitution element for [Shape]");
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml((std::string("<root ") + kXsi
                              + "><Name>A</Name><Address><Street>S</Street></Address><Shape/><Spare "
                                "xsi:type=\"Square\"/><Colour>red</Colour>"
                                "<any/></root>")
                                 .c_str());
              }),
              "Failed to process the element [root]\nFailed to find a required element [Colour]");
}

TEST_F(SeqRecords, MissingMandatoryElementsFailOrPassAsTheContextSays)
{
    CSmartPtr<Bag> p = NewPerson();
    EXPECT_EQ(FailureOf([&] { p->FromXml("<root><Name>A</Name><Shape/></root>"); }),
              "Failed to process the element [root]\nFailed to find a required element [Address]");
    EXPECT_EQ(
        FailureOf([&] { p->FromXml("<root><Name>A</Name><Address><Street>S</Street></Address><Shape/></root>"); }),
        "Failed to process the element [root]\nFailed to find a required element [Colour]");
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml(
                      "<root><Name>A</Name><Address><Street>S</Street></Address><Shape/><Colour>red</Colour></root>");
              }),
              "Failed to process the element [root]\nFailed to find a required element [AnyElement]");
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml(
                      "<root><Name>A</Name><Address><Street>S</Street></Address><Shape/><Colour>pink</Colour></root>");
              }),
              "Failed to process the element [root]\nUnknown colour [pink]");
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml("<root><Name>A</Name><Address><Street>S</Street><Street>T</Street>"
                             "</Address></root>");
              }),
              "Failed to process the element [root]\nFailed to process the element [Address]\n"
              "Failed read all the elements held within the element [Address]. The unexpected element [Street] "
              "remains un processed");

    // Missing mandatory elements pass without moving the cursor: the Address
    // child stays as Init left it and the Shape goes to its own record.
    CXmlSerializationContext ignoreMissing;
    ignoreMissing.SetIgnoreMissingMandatoryElements(true);
    p->FromXml("<root><Shape/><other/></root>", ignoreMissing);
    EXPECT_FALSE(p->Has(PName));
    EXPECT_EQ(p->Child(PAddress)->Text(0), "(unset)");
    EXPECT_EQ(p->Child(PShape)->GetElementName(), "Shape");
    EXPECT_FALSE(p->Has(PColour));
    EXPECT_EQ(p->As<CElement>(PAny)->GetName(), "other");

    // Unknown elements are run over until the record's own comes; when it
    // never comes the record fails all the same.
    CXmlSerializationContext ignoreUnknown;
    ignoreUnknown.SetIgnoreUnknownElements(true);
    p->FromXml("<root><x/><Name>A</Name><y/><Address><Street>S</Street></Address><Shape/><z/>"
               "<Colour>green</Colour><any/></root>",
               ignoreUnknown);
    EXPECT_EQ(p->Text(PName), "A");
    EXPECT_EQ(p->Child(PAddress)->Text(0), "S");
    EXPECT_EQ(p->Number(PColour), 1);
    EXPECT_EQ(FailureOf([&] { p->FromXml("<root><Name>A</Name><x/><y/></root>", ignoreUnknown); }),
              "Failed to process the element [root]\nFailed to find a required element [Address]");
}

TEST_F(SeqRecords, UntypedRecordsMatchByLocalNameOnly)
{
    Table t {XmlElementGroupType_Sequence, XmlElementType_Element, "T"};
    t.Add<CElementInfoSeqUntpdOpt>("Note", "urn:n", 0, "##any", "urn:n");
    t.Add<CElementInfoSeqUntpdCol>("Raw", "urn:n", 1);
    t.Add<CElementInfoSeqUntpdMnd>("Body", "urn:b", 2, "##any", "");
    auto init = [](Bag& bag) {
        bag.props[1].SetXmlCollection(new CElementCol("", "##any", "", 0, -1));
        bag.SetObject(2, new CElement("Body", "", "##any", ""));
    };
    CSmartPtr<Bag> bag(new Bag(t, "root", init));
    // The run of a named collection keeps to the first one's namespace, so
    // the third Raw reaches the Body record, which refuses it.
    EXPECT_EQ(FailureOf([&] {
                  bag->FromXml("<root><Note xmlns='urn:other'>n</Note><Raw xmlns='urn:a'>1</Raw>"
                               "<Raw xmlns='urn:a'>2</Raw><Raw xmlns='urn:c'>3</Raw><Body>b</Body></root>");
              }),
              "Failed to process the element [root]\nFailed to find the required element from namespace [urn:b]");
    EXPECT_EQ(bag->As<CElement>(0)->GetNamespace(), "urn:other");
    ASSERT_EQ(bag->As<CElementCol>(1)->GetCount(), 2);
    EXPECT_EQ(bag->As<CElementCol>(1)->Item(1)->GetText(), "2");
    EXPECT_EQ(FailureOf([&] { bag->FromXml("<root><Raw>1</Raw><Other/></root>"); }),
              "Failed to process the element [root]\nFailed to find the required element from namespace [urn:b]");
    // The optional record makes nothing for an element of another name.
    bag->FromXml("<root><Body/></root>");
    EXPECT_FALSE(bag->Has(0));
    EXPECT_EQ(bag->As<CElementCol>(1)->GetCount(), 0);
}

TEST_F(SeqRecords, PseudoChildrenShareTheParentsElementAndCursor)
{
    // group: (A, B) as a pseudo child; then C.
    Table group {XmlElementGroupType_Sequence, XmlElementType_Pseudo, "Group"};
    group.Add<CElementInfoSeqPrimMnd>("A", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
    group.Add<CElementInfoSeqPrimOpt>("B", kNs, 1, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
    TablesByNumber()[2] = &group;
    for (bool contentRequired : {false, true}) {
        SCOPED_TRACE(contentRequired);
        Table t {XmlElementGroupType_Sequence, XmlElementType_Element, "T"};
        t.Add<CElementInfoSeqClsMnd>("Group", kNs, 0, XmlElementType_Pseudo, &MakeByNumber, 2, contentRequired);
        t.Add<CElementInfoSeqClsOpt>("Opt", kNs, 1, XmlElementType_Pseudo, &MakeByNumber, 2);
        t.Add<CElementInfoSeqPrimOpt>("C", kNs, 2, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
        const Table* groupTable = &group;
        CSmartPtr<Bag> bag(new Bag(t, "root", [=](Bag& b) { b.SetObject(0, new Bag(*groupTable, "")); }));

        bag->FromXml("<root code='7'><A>a</A><B>b</B><A>a2</A><C>c</C></root>");
        EXPECT_EQ(bag->Child(0)->Text(0), "a");
        EXPECT_EQ(bag->Child(0)->Text(1), "b");
        EXPECT_EQ(bag->Child(0)->code, "7"); // the attributes of the shared element
        ASSERT_NE(bag->Child(1), nullptr);
        EXPECT_EQ(bag->Child(1)->code, "7");
        EXPECT_EQ(bag->code, "7");
        bag->code.clear();
        bag->Child(1)->code.clear();
        EXPECT_EQ(bag->Child(1)->Text(0), "a2");
        EXPECT_EQ(bag->Text(2), "c");
        bag->Child(0)->code = "8";
        EXPECT_EQ(Write(*bag), "<root code=\"8\"><A>a</A><B>b</B><A>a2</A><C>c</C></root>");

        // The group cannot use C: unless content is required, the record is
        // satisfied with the cursor unmoved and C goes to its own record; the
        // optional pseudo child that read nothing is dropped.
        if (contentRequired) {
            EXPECT_EQ(FailureOf([&] { bag->FromXml("<root><C>c</C></root>"); }),
                      "Failed to process the element [root]\nFailed to find a required element [Group]");
            EXPECT_EQ(FailureOf([&] { bag->FromXml("<root/>"); }),
                      "Failed to process the element [root]\nFailed to find a required element [Group]");
        } else {
            bag->FromXml("<root><C>c</C></root>");
            EXPECT_EQ(bag->Text(2), "c");
            EXPECT_FALSE(bag->Has(1));
            EXPECT_FALSE(bag->Child(0)->Has(0));
        }
    }
}

TEST_F(SeqRecords, APseudoChildWithoutRequiredContentRefusesUnderIgnoreUnknownElements)
{
    Table group {XmlElementGroupType_Sequence, XmlElementType_Pseudo, "Group"};
    group.Add<CElementInfoSeqPrimMnd>("A", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
    TablesByNumber()[2] = &group;
    CElementInfoSeqClsMnd entry("Group", kNs, 0, XmlElementType_Pseudo, &MakeByNumber, 2, false);
    Table t {XmlElementGroupType_Sequence, XmlElementType_Element, "T"};
    CSmartPtr<Bag> bag(new Bag(t, "root", [&](Bag& b) { b.SetObject(0, new Bag(group, "")); }));

    CXmlDocument document;
    document.LoadXml("<root><x/></root>");
    CXmlElement* root = document.GetDocumentElement();
    CXmlSerializationContext ignoreUnknown;
    ignoreUnknown.SetIgnoreUnknownElements(true);
    CXmlElement* cursor = root->GetFirstElement();
    EXPECT_FALSE(entry.ElementFromXml(ignoreUnknown, bag, root, &cursor, "", XmlElementType_Element));
    EXPECT_EQ(cursor, root->GetFirstElement());
    // At a pseudo level the same answer is true, cursor unmoved.
    EXPECT_TRUE(entry.ElementFromXml(ignoreUnknown, bag, root, &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, root->GetFirstElement());
    // Content required at a pseudo level: a plain refusal, also at the end.
    CElementInfoSeqClsMnd required("Group", kNs, 0, XmlElementType_Pseudo, &MakeByNumber, 2, true);
    EXPECT_FALSE(required.ElementFromXml(ignoreUnknown, bag, root, &cursor, "", XmlElementType_Pseudo));
    CXmlElement* end = nullptr;
    EXPECT_FALSE(required.ElementFromXml(ignoreUnknown, bag, root, &end, "", XmlElementType_Pseudo));
}

TEST_F(SeqRecords, MandatoryRecordsAtAPseudoLevelRefuseInsteadOfFailing)
{
    CXmlDocument document;
    document.LoadXml("<root><x/><Name>n</Name><Colour>red</Colour></root>");
    CXmlElement* root = document.GetDocumentElement();
    CXmlElement* first = root->GetFirstElement();
    CSmartPtr<Bag> p = NewPerson();
    CXmlSerializationContext strict, ignoreUnknown;
    ignoreUnknown.SetIgnoreUnknownElements(true);
    CElementInfo** e = person.Entries();

    // Everything refuses at once without the option, with the cursor unmoved.
    for (int index : {PName, PAddress, PShape, PColour}) {
        CXmlElement* cursor = first;
        EXPECT_FALSE(e[index]->ElementFromXml(strict, p, root, &cursor, "", XmlElementType_Pseudo)) << index;
        EXPECT_EQ(cursor, first) << index;
    }
    // The primitive record skips unknown elements while allowed...
    CXmlElement* cursor = first;
    EXPECT_TRUE(e[PName]->ElementFromXml(ignoreUnknown, p, root, &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(p->Text(PName), "n");
    EXPECT_EQ(cursor->GetLocalName(), "Colour");
    // ...the enumeration record does not.
    cursor = first;
    EXPECT_FALSE(e[PColour]->ElementFromXml(ignoreUnknown, p, root, &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, first);
    // The untyped record fails at the end of the input at any level.
    CXmlElement* end = nullptr;
    ExpectFailure<CNxValidationException>(
        [&] { e[PAny]->ElementFromXml(strict, p, root, &end, "", XmlElementType_Pseudo); },
        "Failed to find a required element [AnyElement]");
}

TEST_F(SeqRecords, CollectionCountsFailAtARealLevelAndRefuseAtAPseudoLevel)
{
    CSmartPtr<Bag> p = NewPerson(1);
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml(
                      "<root><Name>A</Name><Address><Street>S</Street></Address><Shape/><Colour>red</Colour></root>");
              }),
              "Failed to process the element [root]\n"
              "The Minimum number of [Phone] elements allowed in this collection is 1");
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml("<root><Name>A</Name><Address><Street>S</Street></Address><Shape/><Colour>red</Colour>"
                             "<Phone/><Phone/><Phone/><Phone/><any/></root>");
              }),
              "Failed to process the element [root]\n"
              "The Maximum number of [Phone] elements allowed in this collection is 3");

    CXmlDocument document;
    document.LoadXml("<root><Phone>1</Phone><Phone>2</Phone><Phone>3</Phone><Phone>4</Phone><x/></root>");
    CXmlElement* root = document.GetDocumentElement();
    CXmlElement* cursor = root->GetFirstElement();
    CXmlSerializationContext context;
    EXPECT_FALSE(person.Entries()[PPhone]->ElementFromXml(context, p, root, &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor->GetLocalName(), "x"); // the run is consumed all the same
}

TEST_F(SeqRecords, PseudoCollectionsPutTheirItemsAttributesOnTheParentsTag)
{
    Table group {XmlElementGroupType_Sequence, XmlElementType_Pseudo, "Group"};
    group.Add<CElementInfoSeqPrimMnd>("A", kNs, 0, ItemTypeString, nullptr, CWhitespaceUtils::WhitespaceRuleNone,
                                      kNoFacets);
    Table t {XmlElementGroupType_Sequence, XmlElementType_Element, "T"};
    t.Add<CElementInfoSeqClsCol>("Group", kNs, 0, XmlElementType_Pseudo);
    t.Add<CElementInfoSeqAbsClsCol>("Real", kNs, 1, XmlElementType_Element);
    CSmartPtr<Bag> bag(new Bag(t, "root", [&](Bag& b) {
        b.props[0].SetXmlCollection(new BagList("Group", group, 0, -1));
        b.props[1].SetXmlCollection(new BagList("Real", group, 0, -1));
    }));
    CSmartPtr<Bag> item(new Bag(group, ""));
    item->code = "c";
    item->SetText(0, "a");
    bag->As<BagList>(0)->AppendItem(item);
    CSmartPtr<Bag> real(new Bag(address, "Real"));
    real->code = "never";
    bag->As<BagList>(1)->AppendItem(real);
    EXPECT_EQ(Write(*bag), "<root code=\"c\"><A>a</A><Real code=\"never\"/></root>");
}

TEST_F(SeqRecords, ValidateIsNeverToBeCalled)
{
    CSmartPtr<Bag> p = NewPerson();
    ExpectFailure<CNxException>([&] { person.Entries()[PName]->Validate(CXmlSerializationContext(), p, true, true); },
                                "Not implemented, should never be called");
    ExpectFailure<CNxException>([&] { person.Entries()[PPhone]->Validate(CXmlSerializationContext(), p, true, false); },
                                "Not implemented, should never be called");
}

TEST_F(SeqRecords, TheClassTreeIsAsGeneratedTablesExpectIt)
{
    static_assert(std::is_base_of_v<CElementInfoSeq, CElementInfoSeqNonCol>);
    static_assert(std::is_base_of_v<CElementInfoSeqCol, CElementInfoSeqUntpdCol>);
    static_assert(!std::is_base_of_v<CElementInfoSeqNonCol, CElementInfoSeqPrimMnd>);
    static_assert(!std::is_abstract_v<CElementInfoSeqAbsClsOpt>);
    EXPECT_NE(dynamic_cast<CElementInfoSeqCol*>(person.Entries()[PRaw]), nullptr);
    EXPECT_EQ(dynamic_cast<CElementInfoSeqCol*>(person.Entries()[PAny]), nullptr);
}
