// The sequence records, on the Person class of RoundTripClasses.h where it
// has the record, and on small tables where it has not.
#include <gtest/gtest.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

const std::string kMinimal = "<Person id=\"1\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"><Name>Bo</Name>"
                             "<Address><Street>S</Street></Address><Email>e</Email><Shape/><Colour>red</Colour><x/>"
                             "</Person>";

CSmartPtr<Person> Read(const std::string& xml, const CXmlSerializationContext& context = Default())
{
    CSmartPtr<Person> p(new Person());
    p->FromXml(xml.c_str(), context);
    return p;
}

} // namespace

TEST(SeqRecords, ReadingFailuresOfMandatoryRecordsAndSubstitution)
{
    const CXmlSerializationContext ignoreMissing = With(&CXmlSerializationContext::SetIgnoreMissingMandatoryElements);
    const CXmlSerializationContext ignoreUnknown = With(&CXmlSerializationContext::SetIgnoreUnknownElements);
    const std::string noSubstitute = "Failed to find a suitable substitution element for [Shape]";
    const std::string hexagon = Replace(kMinimal, "<Shape/>", "<Shape xsi:type=\"Hexagon\"/>");
    struct Case {
        std::string xml;
        const CXmlSerializationContext* context;
        std::string failure;
    };
    const Case cases[] = {
        // An unknown type fails the mandatory record whatever the options say.
        {hexagon, &Default(), noSubstitute},
        {hexagon, &ignoreMissing, noSubstitute},
        {hexagon, &ignoreUnknown, noSubstitute},
        {Replace(kMinimal, "<Shape/>", ""), &Default(), noSubstitute},
        // The optional record lets the element go on to the next record.
        {Replace(kMinimal, "<Shape/>", "<Shape/><Spare xsi:type=\"Hexagon\"/>"), &Default(),
         "Failed to find a required element [Colour]"},
        {Replace(kMinimal, "<x/>", ""), &Default(), "Failed to find a required element [AnyElement]"},
        {Replace(kMinimal, ">red<", ">pink<"), &Default(), "[pink] is not a colour"},
        // Unknown elements are run over until the record's own comes; when it
        // never comes the record fails all the same.
        {"<Person id=\"1\"><Name>A</Name><y/><z/></Person>", &ignoreUnknown,
         "Failed to find a required element [Address]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.xml);
        EXPECT_EQ(FailureOf([&] { Read(c.xml, *c.context); }), "Failed to process the element [Person]\n" + c.failure);
    }
}

TEST(SeqRecords, MissingMandatoryElementsPassWithTheCursorUnmovedWhenIgnored)
{
    // A pseudo child that needs content is not missing-tolerant, so it gets
    // its element.
    CSmartPtr<Person> p = Read("<Person id=\"1\"><Email>e</Email><Shape/><other/></Person>",
                               With(&CXmlSerializationContext::SetIgnoreMissingMandatoryElements));
    EXPECT_FALSE(p->name);
    EXPECT_EQ(p->address->Dump(), "Address{nil=0 street=- city=- geo=- kind=-}");
    EXPECT_EQ(DumpShape(p->shape), "Shape:Shape{label=- size=-}");
    EXPECT_FALSE(p->colour);
    EXPECT_EQ(p->any->GetName(), "other");

    p = Read("<Person id=\"1\"><x/><Name>A</Name><y/><Address><Street>S</Street></Address><Email>e</Email><Shape/>"
             "<z/><Colour>green</Colour><any/></Person>",
             With(&CXmlSerializationContext::SetIgnoreUnknownElements));
    EXPECT_EQ(*p->name, "A");
    EXPECT_EQ(*p->address->street, "S");
    EXPECT_EQ(*p->colour, 1);
}

TEST(SeqRecords, UntypedRecordsMatchByLocalNameOnly)
{
    // The run of a named collection keeps to the first one's namespace, so
    // the third Raw goes on to the wildcard.
    CSmartPtr<Person> p = Read(Replace(kMinimal, "<x/>",
                                       "<Raw xmlns=\"urn:a\">1</Raw><Raw xmlns=\"urn:a\">2</Raw>"
                                       "<Raw xmlns=\"urn:c\">3</Raw>"));
    ASSERT_EQ(p->raw->GetCount(), 2);
    EXPECT_EQ(p->raw->Item(1)->GetText(), "2");
    EXPECT_EQ(DumpElement(p->any), "<urn:c|Raw>3</>");
    EXPECT_EQ(p->note, nullptr);
    p = Read(Replace(kMinimal, "<x/>", "<Note xmlns=\"urn:other\">n</Note><x/>"));
    EXPECT_EQ(DumpElement(p->note), "<urn:other|Note>n</>");

    // A named mandatory record refuses an element of another name.
    auto table = std::make_shared<Table>(XmlElementGroupType_Sequence);
    table->Add(new CElementInfoSeqUntpdMnd("Body", "urn:b", 0, "##any", ""));
    CSmartPtr<TableClass> body(new TableClass(
        table, "r", [](TableClass& self) { self.props[0].SetXmlObject(new CElement("Body", "", "##any", "")); }));
    EXPECT_EQ(FailureOf([&] { body->FromXml("<r><Other/></r>"); }),
              "Failed to process the element [r]\nFailed to find the required element from namespace [urn:b]");
    body->FromXml("<r><Body xmlns=\"urn:z\">b</Body></r>");
    EXPECT_EQ(DumpElement(body->Object<CElement>(0)), "<urn:z|Body>b</>");
}

TEST(SeqRecords, AMandatoryPseudoChildWithoutRequiredContentMayReadNothing)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_Sequence, XmlElementType_Element, false);
    table->Add(new CElementInfoSeqClsMnd("Contact", "", 0, XmlElementType_Pseudo, &MakeContact, 0, false))
        .Add(new CElementInfoSeqPrimOpt("C", "", 1, ItemTypeString, nullptr, kCollapse, kNoFacets));
    CSmartPtr<TableClass> holder(
        new TableClass(table, "r", [](TableClass& self) { self.props[0].SetXmlObject(new Contact()); }));
    holder->FromXml("<r><C>c</C></r>");
    EXPECT_EQ(holder->Text(1), "c");
    EXPECT_EQ(holder->Object<Contact>(0)->Dump(), "Contact{email=- fax=- verified=-}");
    holder->FromXml("<r verified=\"1\"><Email>e</Email><C>c</C></r>");
    EXPECT_EQ(holder->Object<Contact>(0)->Dump(), "Contact{email='e' fax=- verified=1}");

    // Entered directly: under ignored unknown elements the record refuses at
    // a real level and is satisfied at a pseudo level, cursor unmoved either
    // way; with content required it refuses, also at the end of the input.
    Doc doc("<r><x/></r>");
    const CXmlSerializationContext ignoreUnknown = With(&CXmlSerializationContext::SetIgnoreUnknownElements);
    CElementInfo* loose = table->elements[0];
    CXmlElement* cursor = doc.First();
    EXPECT_FALSE(loose->ElementFromXml(ignoreUnknown, holder, doc.Root(), &cursor, "", XmlElementType_Element));
    EXPECT_TRUE(loose->ElementFromXml(ignoreUnknown, holder, doc.Root(), &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, doc.First());
    CSmartPtr<Person> p(new Person());
    CElementInfo* required = p->GetClassElementInfo()[Person::PContact];
    EXPECT_FALSE(required->ElementFromXml(ignoreUnknown, p, doc.Root(), &cursor, "", XmlElementType_Pseudo));
    CXmlElement* end = nullptr;
    EXPECT_FALSE(required->ElementFromXml(ignoreUnknown, p, doc.Root(), &end, "", XmlElementType_Pseudo));
}

TEST(SeqRecords, MandatoryRecordsAtAPseudoLevelRefuseInsteadOfFailing)
{
    Doc doc("<r><x/><Name>n</Name><Colour>red</Colour></r>");
    CSmartPtr<Person> p(new Person());
    const CXmlSerializationContext ignoreUnknown = With(&CXmlSerializationContext::SetIgnoreUnknownElements);
    CElementInfo** e = p->GetClassElementInfo();
    // Everything refuses at once without the option, with the cursor unmoved.
    for (int index : {Person::PName, Person::PAddress, Person::PShape, Person::PColour}) {
        CXmlElement* cursor = doc.First();
        EXPECT_FALSE(e[index]->ElementFromXml(Default(), p, doc.Root(), &cursor, "", XmlElementType_Pseudo)) << index;
        EXPECT_EQ(cursor, doc.First()) << index;
    }
    // The primitive record skips unknown elements while allowed...
    CXmlElement* cursor = doc.First();
    EXPECT_TRUE(e[Person::PName]->ElementFromXml(ignoreUnknown, p, doc.Root(), &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(*p->name, "n");
    EXPECT_EQ(cursor->GetLocalName(), "Colour");
    // ...the enumeration record does not.
    cursor = doc.First();
    EXPECT_FALSE(e[Person::PColour]->ElementFromXml(ignoreUnknown, p, doc.Root(), &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor, doc.First());
    // The untyped record fails at the end of the input at any level.
    CXmlElement* end = nullptr;
    ExpectFailure<CNxValidationException>(
        [&] { e[Person::PAny]->ElementFromXml(Default(), p, doc.Root(), &end, "", XmlElementType_Pseudo); },
        "Failed to find a required element [AnyElement]");

    // A collection with a bad count refuses at a pseudo level, and its run
    // is consumed all the same.
    Doc phones("<r><Phone>1</Phone><Phone>2</Phone><Phone>3</Phone><Phone>4</Phone><x/></r>");
    cursor = phones.First();
    EXPECT_FALSE(e[Person::PPhone]->ElementFromXml(Default(), p, phones.Root(), &cursor, "", XmlElementType_Pseudo));
    EXPECT_EQ(cursor->GetLocalName(), "x");
}

TEST(SeqRecords, TheMinimumOfACollectionIsCheckedOnWritingAndReading)
{
    const std::string tooFew = "The Minimum number of [Phone] elements allowed in this collection is 1";
    CSmartPtr<Person> p = Read(kMinimal);
    p->phone = NewStringCol("Phone", 1, 3);
    EXPECT_EQ(FailureOf([&] { p->ToXml(); }), "Failed to convert the element [Person] to XML\n" + tooFew);
    EXPECT_EQ(p->ToXml(false, false, EOLTypeLF, With(&CXmlSerializationContext::SetIgnoreInvalidCollectionCounts)),
              "<Person id=\"1\"><Name>Bo</Name><Address><Street>S</Street></Address><Email>e</Email><Shape/>"
              "<Colour>red</Colour><x/></Person>");

    auto table = std::make_shared<Table>(XmlElementGroupType_Sequence);
    table->Add(new CElementInfoSeqPrimCol("Phone", "", 0));
    CSmartPtr<TableClass> phones(new TableClass(
        table, "r", [](TableClass& self) { self.props[0].SetXmlCollection(NewStringCol("Phone", 1, 3)); }));
    EXPECT_EQ(FailureOf([&] { phones->FromXml("<r/>"); }), "Failed to process the element [r]\n" + tooFew);
}

TEST(SeqRecords, PseudoCollectionsPutTheirItemsAttributesOnTheParentsTag)
{
    auto table = std::make_shared<Table>(XmlElementGroupType_Sequence);
    table->Add(new CElementInfoSeqClsCol("Contact", "", 0, XmlElementType_Pseudo))
        .Add(new CElementInfoSeqAbsClsCol("Real", "", 1, XmlElementType_Element));
    CSmartPtr<TableClass> holder(new TableClass(table, "r", [](TableClass& self) {
        self.props[0].SetXmlCollection(new ObjectCol("Contact", "", 0, -1, nullptr));
        self.props[1].SetXmlCollection(new ObjectCol("Real", "", 0, -1, nullptr));
    }));
    CSmartPtr<Contact> contact(new Contact());
    contact->email = "a";
    contact->verified = true;
    holder->Collection<ObjectCol>(0)->AppendItem(contact);
    CSmartPtr<Address> real(new Address("Real"));
    real->kind = 1;
    holder->Collection<ObjectCol>(1)->AppendItem(real);
    EXPECT_EQ(holder->ToXml(false, false), "<r verified=\"true\"><Email>a</Email><Real kind=\"work\"/></r>");
}

TEST(SeqRecords, ValidateIsNeverToBeCalled)
{
    CSmartPtr<Person> p(new Person());
    CElementInfo** e = p->GetClassElementInfo();
    for (int index = 0; e[index]; ++index)
        ExpectFailure<CNxException>([&] { e[index]->Validate(Default(), p, true, index % 2 == 0); },
                                    "Not implemented, should never be called");
}
