// Choice groups: the choice walks of CXmlGeneratedClass, the choice records
// and the helpers that generated setters call.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

const char* const kNoMember =
    "were populated. The element represents a choice, so one and only one element should be populated. The element "
    "contained no sutable child elements";
const char* const kXsi = "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";

std::string Leftover(const char* element, const char* child)
{
    return FormatString("Failed to process the element [%s]\nFailed read all the elements held within the element "
                        "[%s]. The unexpected element [%s] remains un processed",
                        element, element, child);
}

// c: a choice of x (urn:1), x (urn:2), then y of at most three characters.
CSmartPtr<TableClass> TwinChoice()
{
    auto table = std::make_shared<Table>(XmlElementGroupType_Choice);
    table->Add(new CElementInfoChoicePrimOpt("x", "urn:1", 0, ItemTypeString, nullptr, kCollapse, kNoFacets))
        .Add(new CElementInfoChoicePrimOpt("x", "urn:2", 1, ItemTypeString, nullptr, kCollapse, kNoFacets))
        .Add(new CElementInfoChoicePrimOpt("y", "", 2, ItemTypeString, nullptr, kCollapse,
                                           CPrimitiveRestrictions(nullptr, -1, 3, nullptr, nullptr, nullptr, nullptr,
                                                                  -1)));
    return new TableClass(table, "c");
}

// Outer: a choice of Bunch (class member), Other (a Bunch by substitution),
// Contact (a pseudo child) and H. A Bunch may not be empty on its own.
CSmartPtr<CXmlObjectBase> MakeOuterChild(int classNumber, const char* name)
{
    if (classNumber == 2)
        return new Contact();
    CSmartPtr<Bunch> bunch(new Bunch());
    bunch->SetElementName(name);
    return bunch;
}
CSmartPtr<CXmlObjectBase> MakeOther(CXmlElement* element) { return MakeOuterChild(1, element->GetLocalName().c_str()); }
enum { PBunch, POther, PContact, PH };
CSmartPtr<TableClass> Outer()
{
    auto table = std::make_shared<Table>(XmlElementGroupType_Choice, XmlElementType_Element, false);
    table->Add(new CElementInfoChoiceClsOpt("Bunch", "", PBunch, XmlElementType_Element, &MakeOuterChild, 1))
        .Add(new CElementInfoChoiceAbsClsOpt("Other", "", POther, XmlElementType_Element, &MakeOther))
        .Add(new CElementInfoChoiceClsOpt("Contact", "", PContact, XmlElementType_Pseudo, &MakeOuterChild, 2))
        .Add(new CElementInfoChoicePrimOpt("H", "", PH, ItemTypeString, nullptr, kCollapse, kNoFacets));
    return new TableClass(table, "Outer");
}

} // namespace

TEST(ChoiceRead, TheFirstMemberInTableOrderThatFitsIsChosen)
{
    CSmartPtr<TableClass> choice = TwinChoice();
    choice->FromXml("<c xmlns:b=\"urn:2\"><b:x>two</b:x></c>");
    EXPECT_EQ(choice->Text(0) + choice->Text(1), "-two");
    choice->FromXml("<c xmlns:b=\"urn:2\"><b:x>two</b:x></c>", With(&CXmlSerializationContext::SetIgnoreNamespaces));
    EXPECT_EQ(choice->Text(0) + choice->Text(1), "two-");

    // Writing checks the member's facets.
    choice->props.clear();
    choice->props[2].SetString("long");
    EXPECT_EQ(FailureOf([&] { choice->ToXml(); }), "Failed to convert the element [c] to XML\n"
                                                   "Invalid Value for y [long]");
}

TEST(ChoiceRead, WhatFollowsTheMemberIsLeftOverUnlessUnknownElementsAreIgnored)
{
    CSmartPtr<Pick> pick(new Pick());
    const std::string xsi = std::string("<Pick ") + kXsi + ">";
    EXPECT_EQ(FailureOf([&] { pick->FromXml("<Pick><Code>1</Code><Code>2</Code></Pick>"); }),
              Leftover("Pick", "Code"));
    // A type the factory does not know leaves the element to the walk.
    EXPECT_EQ(FailureOf([&] { pick->FromXml((xsi + "<Shape xsi:type=\"Hexagon\"/></Pick>").c_str()); }),
              Leftover("Pick", "Shape"));
    // A run of an untyped collection keeps to the first one's namespace.
    EXPECT_EQ(FailureOf([&] { pick->FromXml("<Pick><Raw xmlns=\"urn:r\">1</Raw><Raw>2</Raw></Pick>"); }),
              Leftover("Pick", "Raw"));

    const CXmlSerializationContext ignoreUnknown = With(&CXmlSerializationContext::SetIgnoreUnknownElements);
    pick->FromXml("<Pick><zz/><ww/><Code>1</Code><vv/></Pick>", ignoreUnknown);
    EXPECT_EQ(*pick->code, 1);
    // None matches: the cursor runs out and the walk ends without a member.
    Doc doc("<Pick><zz/><ww/></Pick>");
    pick->Init();
    EXPECT_EQ(pick->ProcessElementChoiceFromXml(ignoreUnknown, doc.Root(), doc.First(), XmlElementType_Element, false),
              nullptr);
    EXPECT_EQ(pick->Dump(), CSmartPtr<Pick>(new Pick())->Dump());
}

TEST(ChoiceRead, APseudoLevelHandsUnmatchedInputBack)
{
    CSmartPtr<Pay> pay(new Pay());
    Doc doc("<r><zz/><Coin>red</Coin></r>");
    const CXmlSerializationContext tolerant = With(&CXmlSerializationContext::SetIgnoreUnknownElements);
    // At a pseudo level nothing is skipped; the start comes back.
    for (const CXmlSerializationContext* context : {&tolerant, &Default()})
        EXPECT_EQ(pay->ProcessElementChoiceFromXml(*context, doc.Root(), doc.First(), XmlElementType_Pseudo, false),
                  doc.First());
    // Another non-zero type returns the cursor as it is.
    EXPECT_EQ(pay->ProcessElementChoiceFromXml(tolerant, doc.Root(), doc.First(), static_cast<XmlElementType>(2),
                                               false),
              doc.First());
    // A match at a pseudo level returns the cursor behind it.
    CXmlElement* coin = doc.First()->GetNextSiblingElement();
    EXPECT_EQ(pay->ProcessElementChoiceFromXml(tolerant, doc.Root(), coin, XmlElementType_Pseudo, false), nullptr);
    EXPECT_EQ(pay->Dump(), "Pay{card=- coin=0}");
}

TEST(ChoiceRead, AnOptionalChoiceMayBeEmptyButStillRejectsLeftovers)
{
    CSmartPtr<Bunch> bunch(new Bunch());
    Doc doc("<Bunch><zz/></Bunch>");
    EXPECT_EQ(FailureOf([&] {
                  bunch->ProcessElementChoiceFromXml(Default(), doc.Root(), doc.First(), XmlElementType_Element, true);
              }),
              "Failed read all the elements held within the element [Bunch]. The unexpected element [zz] remains un "
              "processed");
    EXPECT_EQ(bunch->ProcessElementChoiceFromXml(Default(), doc.Root(), nullptr, XmlElementType_Element, true),
              nullptr);
}

TEST(ChoiceRead, AClassMemberIsSetBeforeItReads)
{
    CSmartPtr<Pick> pick(new Pick());
    EXPECT_EQ(FailureOf([&] { pick->FromXml("<Pick><Memo><Ref>1</Ref><Ref>2</Ref></Memo></Pick>"); }),
              "Failed to process the element [Pick]\n" + Leftover("Memo", "Ref"));
    ASSERT_NE(pick->memo, nullptr);
    EXPECT_EQ(*pick->memo->ref, 1);
    EXPECT_EQ(FailureOf([&] { pick->FromXml("<Pick><Shape><Label>1</Label><Label>2</Label></Shape></Pick>"); }),
              "Failed to process the element [Pick]\n" + Leftover("Shape", "Label"));
    EXPECT_NE(pick->shape, nullptr);
}

TEST(ChoiceRecords, OnlyAClassMemberTellsItsChildThatItStandsInAnOptionalChoice)
{
    CSmartPtr<TableClass> outer = Outer();
    outer->props[PBunch].SetXmlObject(new Bunch());
    EXPECT_EQ(outer->ToXml(false, false), "<Outer><Bunch/></Outer>");
    outer->FromXml("<Outer><Bunch/></Outer>");
    EXPECT_NE(outer->Object<Bunch>(PBunch), nullptr);

    CSmartPtr<Bunch> other(new Bunch());
    other->SetElementName("Other");
    outer->props.clear();
    outer->props[POther].SetXmlObject(other);
    const std::string noneSet = "This element is a choice, and as such must have at one (and only one) valid item, "
                                "currently there are none set";
    EXPECT_EQ(FailureOf([&] { outer->ToXml(); }),
              "Failed to convert the element [Outer] to XML\nFailed to convert the element [Other] to XML\n" +
                  noneSet);
    EXPECT_EQ(FailureOf([&] { outer->FromXml("<Outer><Other/></Outer>"); }),
              "Failed to process the element [Outer]\nFailed to process the element [Other]\nNo child elements "
              "within the element [Other] " +
                  std::string(kNoMember));
}

TEST(ChoiceRecords, APseudoMemberThatReadsNothingTakesItsSelectionBack)
{
    CSmartPtr<TableClass> outer = Outer();
    outer->FromXml("<Outer verified=\"true\"><H>h</H></Outer>");
    EXPECT_EQ(outer->Text(PH), "h");
    EXPECT_EQ(outer->Object<Contact>(PContact), nullptr);

    outer->FromXml("<Outer verified=\"true\"><Email>g</Email></Outer>");
    ASSERT_NE(outer->Object<Contact>(PContact), nullptr);
    EXPECT_EQ(outer->Object<Contact>(PContact)->Dump(), "Contact{email='g' fax=- verified=1}");
    EXPECT_EQ(outer->ToXml(false, false), "<Outer verified=\"true\"><Email>g</Email></Outer>");

    Doc doc("<Outer/>");
    CXmlElement* end = nullptr;
    EXPECT_FALSE(outer->GetClassElementInfo()[PContact]->ElementFromXml(Default(), outer, doc.Root(), &end, "",
                                                                        XmlElementType_Element));
}

TEST(ChoiceRecords, CollectionMembersAreSelectedWhenTheyReadAndCheckTheirCounts)
{
    CSmartPtr<Bunch> bunch(new Bunch());
    EXPECT_EQ(FailureOf([&] { bunch->FromXml("<Bunch><Word/><Word/><Word/><Word/></Bunch>"); }),
              "Failed to process the element [Bunch]\n"
              "The Maximum number of [Word] elements allowed in this collection is 3");
    EXPECT_EQ(FailureOf([&] { bunch->FromXml("<Bunch><Word>1</Word><Hue>red</Hue></Bunch>"); }),
              Leftover("Bunch", "Hue"));
    // Only the first member that has items is written.
    bunch->Init();
    bunch->word->Add("w");
    bunch->hue->items = {1};
    EXPECT_EQ(bunch->ToXml(false, false), "<Bunch><Word>w</Word></Bunch>");

    // At a pseudo level a bad count refuses the selection, cursor unmoved;
    // without the check the same run is taken.
    Doc doc("<Bunch><Word>1</Word><Word>2</Word><Word>3</Word><Word>4</Word></Bunch>");
    CElementInfo* words = bunch->GetClassElementInfo()[Bunch::PWord];
    CXmlElement* cursor = doc.First();
    bunch->Init();
    EXPECT_FALSE(words->ElementFromXml(Default(), bunch, doc.Root(), &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, doc.First());
    EXPECT_TRUE(words->ElementFromXml(With(&CXmlSerializationContext::SetIgnoreInvalidCollectionCounts), bunch,
                                      doc.Root(), &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, nullptr);
    // Nothing to read: no selection, at the end of the input as well.
    EXPECT_FALSE(words->ElementFromXml(Default(), bunch, doc.Root(), &cursor, "", XmlElementType_Element));
    CSmartPtr<Pick> pick(new Pick());
    EXPECT_FALSE(pick->GetClassElementInfo()[Pick::PRaw]->ElementFromXml(Default(), pick, doc.Root(), &cursor, "",
                                                                         XmlElementType_Element));
}

TEST(ChoiceRecords, AWildcardCollectionTakesAnyRun)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_Choice);
    table->Add(new CElementInfoChoiceUntpdCol("AnyElement", "", 0));
    CSmartPtr<TableClass> any(new TableClass(
        table, "r", [](TableClass& self) { self.props[0].SetXmlCollection(new CElementCol("", "##any", "", 0, -1)); }));
    any->FromXml("<r><a/><b xmlns=\"urn:b\"/></r>");
    ASSERT_EQ(any->Collection<CElementCol>(0)->GetCount(), 2);
    EXPECT_EQ(any->Collection<CElementCol>(0)->Item(1)->GetName(), "b");
    EXPECT_EQ(any->ToXml(false, false), "<r><a/><AA:b xmlns:AA=\"urn:b\"/></r>");
}

TEST(ChoiceWrite, AnEmptyChoiceFailsOnlyWhenEveryMemberIsACollectionWithAMinimum)
{
    CSmartPtr<Bunch> bunch(new Bunch());
    EXPECT_FALSE(bunch->DoesElementContainOptionalElements());
    // Asked as an optional choice, the walk answers without failing.
    EXPECT_FALSE(bunch->ProcessElementChoiceToXml(Default(), bunch->GetClassElementInfo(), nullptr, true));
    // A collection that may be empty makes the empty choice legal.
    bunch->word = NewStringCol("Word", 0, 3);
    EXPECT_TRUE(bunch->DoesElementContainOptionalElements());
    EXPECT_EQ(bunch->ToXml(false, false), "<Bunch/>");
    EXPECT_TRUE(CSmartPtr<Pick>(new Pick())->DoesElementContainOptionalElements());
}

namespace {

// One call of a helper on the selection: the selection after it, or the
// start of the failure it raises.
struct Step {
    std::function<void(std::string&)> call;
    const char* after;
    const char* failure = nullptr;
};

void RunSteps(std::string selected, const std::vector<Step>& steps)
{
    for (const Step& step : steps) {
        if (!step.failure) {
            step.call(selected);
            EXPECT_EQ(selected, step.after);
            continue;
        }
        ExpectFailure<CNxInvalidStateException>(
            [&] { step.call(selected); },
            step.failure + std::string(" is already set. Only one element within this class bay be set at a time"));
    }
}

} // namespace

TEST(ChoiceHelpers, SetElementValidSelectElementAndCollectionChanged)
{
    auto valid = [](bool valid, const char* name) {
        return [=](std::string& s) { CXmlObjectBase::Choice_SetElementValid(valid, name, s); };
    };
    // An empty selection is not free here.
    RunSteps("a", {{valid(true, "a"), "a"}, {valid(true, "b"), "", "The Property a"}, {valid(false, "b"), ""},
              {valid(true, "b"), "", "The Property "}});

    CSmartPtr<Memo> value(new Memo());
    auto select = [&](const char* name, bool withValue) {
        CXmlObjectBase* given = withValue ? static_cast<CXmlObjectBase*>(value) : nullptr;
        return [=](std::string& s) { CXmlObjectBase::Choice_SelectElement(name, given, s); };
    };
    RunSteps("", {{select("a", false), "a"}, {select("a", true), "a"}, {select("b", false), "a"},
             {select("b", true), "", "The Property [a]"}, {select("a", false), ""}});

    auto changed = [](const char* name, long count) {
        return [=](std::string& s) { CXmlObjectBase::Choice_CollectionChanged(name, count, s); };
    };
    RunSteps("", {{changed("a", -1), ""}, {changed("a", 2), "a"}, {changed("b", 0), "a"},
             {changed("b", -1), "", "The Property [a]"}, {changed("a", 1), "a"}, {changed("a", 0), ""}});
}

TEST(ChoiceHelpers, ReadCollection)
{
    Doc doc("<c><p>1</p><p>2</p><p>3</p><z/></c>");
    CSmartPtr<CstringCol> list = NewStringCol("p", 0, 2);
    CXmlElement* cursor = doc.First();
    long count = 1;
    CXmlObjectBase::Choice_Read_Collection(list, doc.Root(), cursor, count, Default());
    EXPECT_EQ(cursor, doc.First());
    EXPECT_EQ(list->GetCount(), 0);

    count = 0;
    ExpectFailure<CNxValidationException>(
        [&] { CXmlObjectBase::Choice_Read_Collection(list, doc.Root(), cursor, count, Default()); },
        "The Maximum number of [p] elements allowed in this collection is 2");
    // The cursor moved ahead of the count check; the count did not rise.
    EXPECT_EQ(cursor->GetLocalName(), "z");
    EXPECT_EQ(count, 0);

    CXmlElement* z = cursor;
    CXmlObjectBase::Choice_Read_Collection(list, doc.Root(), cursor, count, Default());
    EXPECT_EQ(cursor, z);
    EXPECT_EQ(count, 0);
}

TEST(ChoiceRecords, ValidateIsNeverToBeCalled)
{
    CSmartPtr<Pick> pick(new Pick());
    CElementInfo** e = pick->GetClassElementInfo();
    for (int index = 0; e[index]; ++index)
        ExpectFailure<CNxException>([&] { e[index]->Validate(Default(), pick, false, true); },
                                    "Not implemented, should never be called");
}
