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

const char* const kNoMember =
    "No child elements within the element [c] were populated. The element represents a choice, so one and only "
    "one element should be populated. The element contained no sutable child elements";

// c: a choice of two text members x (urn:1) and x (urn:2), then y.
CSmartPtr<WalkObject> TextChoice(XmlElementType type = XmlElementType_Element)
{
    auto tables = std::make_shared<WalkTables>(XmlElementGroupType_Choice, type, "C", "", -1, false);
    tables->Element(new TextEntry("x", "urn:1", 0, ItemTypeString, Flavor::Choice, true))
        .Element(new TextEntry("x", "urn:2", 1, ItemTypeString, Flavor::Choice, true))
        .Element(new TextEntry("y", "", 2, ItemTypeString, Flavor::Choice, true));
    return CSmartPtr<WalkObject>(new WalkObject(tables, "c"));
}

// c: a choice of two string lists p and q with the given minimum.
CSmartPtr<WalkObject> ListChoice(int minOccurs)
{
    auto tables = std::make_shared<WalkTables>(XmlElementGroupType_Choice, XmlElementType_Element, "C", "", -1, false);
    tables->Element(new ListEntry("p", "", 0, Flavor::Choice)).Element(new ListEntry("q", "", 1, Flavor::Choice));
    CSmartPtr<WalkObject> choice(new WalkObject(tables, "c"));
    choice->onInit = [minOccurs](WalkObject& self) {
        self.props[0].SetXmlCollection(new TextList("p", "", minOccurs, -1));
        self.props[1].SetXmlCollection(new TextList("q", "", minOccurs, -1));
    };
    choice->Init();
    return choice;
}

TextList* List(WalkObject& object, int index)
{
    return dynamic_cast<TextList*>(static_cast<CXmlCollectionBase*>(object.props[index].GetXmlCollection()));
}

struct Doc {
    explicit Doc(const char* xml) { document.LoadXml(xml); }
    CXmlElement* Root() const { return document.GetDocumentElement(); }
    CXmlElement* First() const { return Root()->GetFirstElement(); }
    CXmlDocument document;
};

} // namespace

TEST(ChoiceRead, FirstMemberInTableOrderThatFitsIsChosen)
{
    CSmartPtr<WalkObject> choice = TextChoice();
    choice->FromXml("<c xmlns:b=\"urn:2\"><b:x>two</b:x></c>");
    EXPECT_EQ(choice->Text(0) + choice->Text(1), "-two");

    CXmlSerializationContext context;
    context.SetIgnoreNamespaces(true);
    choice->FromXml("<c xmlns:b=\"urn:2\"><b:x>two</b:x></c>", context);
    EXPECT_EQ(choice->Text(0) + choice->Text(1), "two-");
}

TEST(ChoiceRead, AnythingBehindTheMemberIsLeftOverAtALevelOfItsOwn)
{
    CSmartPtr<WalkObject> choice = TextChoice();
    EXPECT_EQ(FailureOf([&] { choice->FromXml("<c><y>1</y><y>2</y></c>"); }),
              "Failed to process the element [c]\n"
              "Failed read all the elements held within the element [c]. The unexpected element [y] remains un "
              "processed");
}

TEST(ChoiceRead, IgnoringUnknownElementsSkipsToAMatch)
{
    CSmartPtr<WalkObject> choice = TextChoice();
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    choice->FromXml("<c><zz/><ww/><y>1</y><vv/></c>", context);
    EXPECT_EQ(choice->Text(2), "1");

    // None matches: the cursor runs out and the walk ends without a member.
    Doc doc("<c><zz/><ww/></c>");
    EXPECT_EQ(choice->Read(doc.Root(), doc.First(), context, false), nullptr);
    EXPECT_EQ(choice->Text(2), "-");
}

TEST(ChoiceRead, APseudoLevelHandsUnmatchedInputBack)
{
    CSmartPtr<WalkObject> choice = TextChoice(XmlElementType_Pseudo);
    Doc doc("<r><zz/><y>1</y></r>");
    CXmlSerializationContext tolerant;
    tolerant.SetIgnoreUnknownElements(true);
    // At type 1 nothing is skipped; the start comes back.
    EXPECT_EQ(choice->ProcessElementChoiceFromXml(tolerant, doc.Root(), doc.First(), XmlElementType_Pseudo, false),
              doc.First());
    EXPECT_EQ(choice->ProcessElementChoiceFromXml(CXmlSerializationContext::m_defaultContext, doc.Root(),
                                                  doc.First(), XmlElementType_Pseudo, false),
              doc.First());
    // Another non-zero type returns the cursor as it is.
    EXPECT_EQ(choice->ProcessElementChoiceFromXml(tolerant, doc.Root(), doc.First(),
                                                  static_cast<XmlElementType>(2), false),
              doc.First());
    // A match at a pseudo level returns the cursor behind it.
    CXmlElement* y = doc.First()->GetNextSiblingElement();
    EXPECT_EQ(choice->ProcessElementChoiceFromXml(tolerant, doc.Root(), y, XmlElementType_Pseudo, false), nullptr);
    EXPECT_EQ(choice->Text(2), "1");
}

TEST(ChoiceRead, AnOptionalChoiceStillRejectsLeftovers)
{
    CSmartPtr<WalkObject> choice = ListChoice(1);
    Doc doc("<c><zz/></c>");
    ExpectFailure<CNxValidationException>(
        [&] { choice->Read(doc.Root(), doc.First(), CXmlSerializationContext::m_defaultContext, true); },
        "Failed to process the element [c]");
    try {
        choice->Read(doc.Root(), doc.First(), CXmlSerializationContext::m_defaultContext, true);
    } catch (const CNxException& failure) {
        EXPECT_EQ(failure.GetFullMessage(), "Failed to process the element [c]\n"
                                            "Failed read all the elements held within the element [c]. The "
                                            "unexpected element [zz] remains un processed");
    }
    Doc empty("<c/>");
    EXPECT_EQ(choice->Read(empty.Root(), nullptr, CXmlSerializationContext::m_defaultContext, true), nullptr);
}

TEST(ChoiceRead, AnEmptyChoiceOfCollectionsWithAMinimumFails)
{
    CSmartPtr<WalkObject> choice = ListChoice(1);
    EXPECT_EQ(FailureOf([&] { choice->FromXml("<c/>"); }), std::string("Failed to process the element [c]\n") +
                                                               kNoMember);
    CXmlSerializationContext context;
    context.SetIgnoreMissingChoice(true);
    choice->FromXml("<c/>", context);

    // A collection that may be empty makes the empty choice legal.
    CSmartPtr<WalkObject> optional = ListChoice(0);
    optional->FromXml("<c/>");
    EXPECT_TRUE(optional->DoesElementContainOptionalElements());
    EXPECT_FALSE(choice->DoesElementContainOptionalElements());
    EXPECT_TRUE(TextChoice()->DoesElementContainOptionalElements());
}

TEST(ChoiceRead, ACollectionMemberReadsItsWholeRun)
{
    CSmartPtr<WalkObject> choice = ListChoice(1);
    choice->FromXml("<c><q>1</q><q>2</q></c>");
    EXPECT_EQ(List(*choice, 0)->items.size(), 0u);
    EXPECT_EQ(List(*choice, 1)->items, (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(FailureOf([&] { choice->FromXml("<c><q>1</q><p>2</p></c>"); }),
              "Failed to process the element [c]\n"
              "Failed read all the elements held within the element [c]. The unexpected element [p] remains un "
              "processed");
}

TEST(ChoiceWrite, OnlyTheFirstMemberIsWritten)
{
    CSmartPtr<WalkObject> choice = ListChoice(1);
    List(*choice, 0)->items = {"a"};
    List(*choice, 1)->items = {"b"};
    EXPECT_EQ(choice->ToXml(false, false), "<c><p>a</p></c>");
    List(*choice, 0)->items.clear();
    EXPECT_EQ(choice->ToXml(false, false), "<c><q>b</q></c>");
}

TEST(ChoiceWrite, AnEmptyChoiceFailsOnlyWhenEveryMemberIsACollectionWithAMinimum)
{
    CSmartPtr<WalkObject> text = TextChoice();
    CXmlSerializationContext strict;
    EXPECT_EQ(text->ToXml(false, false, EOLTypeLF, strict), "<c/>");

    CSmartPtr<WalkObject> lists = ListChoice(1);
    EXPECT_EQ(FailureOf([&] { lists->ToXml(false, false); }),
              "Failed to convert the element [c] to XML\n"
              "This element is a choice, and as such must have at one (and only one) valid item, currently there "
              "are none set");
    CXmlSerializationContext lenient;
    lenient.SetIgnoreMissingChoice(true);
    EXPECT_EQ(lists->ToXml(false, false, EOLTypeLF, lenient), "<c/>");
    EXPECT_FALSE(lists->ProcessElementChoiceToXml(strict, lists->GetClassElementInfo(), nullptr, true));
}

TEST(ChoiceWrite, AnOptionalChoiceMemberTellsItsChildThatItMayBeEmpty)
{
    CSmartPtr<WalkObject> inner = ListChoice(1);
    inner->SetElementName("inner");
    auto tables = std::make_shared<WalkTables>(XmlElementGroupType_Sequence, XmlElementType_Element, "O", "", -1,
                                               false);
    tables->Element(new ChildEntry("inner", "", 0, XmlElementType_Element, Flavor::Choice, false));
    CSmartPtr<WalkObject> outer(new WalkObject(tables, "outer"));
    outer->props[0].SetXmlObject(inner);
    EXPECT_EQ(outer->ToXml(false, false), "<outer><inner/></outer>");
    // Read back: the child is told the same and accepts no member.
    outer->initial = outer->props;
    outer->FromXml("<outer><inner/></outer>");
}

TEST(ChoiceHelpers, SetElementValid)
{
    std::string selected = "a";
    CXmlObjectBase::Choice_SetElementValid(true, "a", selected);
    EXPECT_EQ(selected, "a");
    ExpectFailure<CNxInvalidStateException>(
        [&] { CXmlObjectBase::Choice_SetElementValid(true, "b", selected); },
        "The Property a is already set. Only one element within this class bay be set at a time");
    CXmlObjectBase::Choice_SetElementValid(false, "b", selected);
    EXPECT_EQ(selected, "");
    // An empty selection is not free here.
    ExpectFailure<CNxInvalidStateException>(
        [&] { CXmlObjectBase::Choice_SetElementValid(true, "b", selected); },
        "The Property  is already set. Only one element within this class bay be set at a time");
}

TEST(ChoiceHelpers, SelectElement)
{
    CSmartPtr<WalkObject> value = TextChoice();
    std::string selected;
    CXmlObjectBase::Choice_SelectElement("a", nullptr, selected);
    EXPECT_EQ(selected, "a");
    CXmlObjectBase::Choice_SelectElement("a", value, selected);
    EXPECT_EQ(selected, "a");
    CXmlObjectBase::Choice_SelectElement("b", nullptr, selected);
    EXPECT_EQ(selected, "a");
    ExpectFailure<CNxInvalidStateException>(
        [&] { CXmlObjectBase::Choice_SelectElement("b", value, selected); },
        "The Property [a] is already set. Only one element within this class bay be set at a time");
    CXmlObjectBase::Choice_SelectElement("a", nullptr, selected);
    EXPECT_EQ(selected, "");
}

TEST(ChoiceHelpers, CollectionChanged)
{
    std::string selected;
    CXmlObjectBase::Choice_CollectionChanged("a", -1, selected);
    EXPECT_EQ(selected, "");
    CXmlObjectBase::Choice_CollectionChanged("a", 2, selected);
    EXPECT_EQ(selected, "a");
    CXmlObjectBase::Choice_CollectionChanged("b", 0, selected);
    EXPECT_EQ(selected, "a");
    ExpectFailure<CNxInvalidStateException>(
        [&] { CXmlObjectBase::Choice_CollectionChanged("b", -1, selected); },
        "The Property [a] is already set. Only one element within this class bay be set at a time");
    CXmlObjectBase::Choice_CollectionChanged("a", 1, selected);
    EXPECT_EQ(selected, "a");
    CXmlObjectBase::Choice_CollectionChanged("a", 0, selected);
    EXPECT_EQ(selected, "");
}

TEST(ChoiceHelpers, ReadCollection)
{
    Doc doc("<c><p>1</p><p>2</p><p>3</p><z/></c>");
    CSmartPtr<TextList> list(new TextList("p", "", 0, 2));
    CXmlElement* cursor = doc.First();
    long count = 1;
    CXmlObjectBase::Choice_Read_Collection(list, doc.Root(), cursor, count, CXmlSerializationContext::m_defaultContext);
    EXPECT_EQ(cursor, doc.First());
    EXPECT_EQ(list->GetCount(), 0);

    count = 0;
    ExpectFailure<CNxValidationException>(
        [&] {
            CXmlObjectBase::Choice_Read_Collection(list, doc.Root(), cursor, count,
                                                   CXmlSerializationContext::m_defaultContext);
        },
        "The Maximum number of [p] elements allowed in this collection is 2");
    // The cursor moved ahead of the count check; the count did not rise.
    EXPECT_EQ(cursor->GetLocalName(), "z");
    EXPECT_EQ(count, 0);

    CXmlElement* z = cursor;
    CXmlObjectBase::Choice_Read_Collection(list, doc.Root(), cursor, count, CXmlSerializationContext::m_defaultContext);
    EXPECT_EQ(cursor, z);
    EXPECT_EQ(count, 0);
}
