// Every test class is written by its records, read back through the library's
// walks into a new object, and compared field by field and by a second write.
#include <gtest/gtest.h>

#include <functional>

#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

// Writes the object with format off and on, reads each text into a new
// object, and expects equal fields and an equal second text.
// Formatted output indents around the text of mixed content, so text
// content reads back equal only from unformatted output.
template <class T>
void ExpectRoundTrip(const T& original, const CXmlSerializationContext& context = Default(),
                     const CXmlSerializationContext& readContext = Default(), bool alsoFormatted = true)
{
    for (bool format : {false, true}) {
        if (format && !alsoFormatted)
            continue;
        SCOPED_TRACE(format ? "format on" : "format off");
        const std::string xml = original.ToXml(true, format, EOLTypeLF, context);
        CSmartPtr<T> copy(new T());
        copy->FromXml(xml.c_str(), readContext);
        EXPECT_EQ(copy->Dump(), original.Dump());
        EXPECT_EQ(copy->ToXml(true, format, EOLTypeLF, context), xml);
    }
}

const char* const kXsiType = "xmlns:AA=\"urn:shapes\"  xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=";

const std::string kFullPerson =
    std::string("<Person id=\"7\" level=\"high\" verified=\"true\"><Name>Ann</Name><Nick> An </Nick>"
                "<Address kind=\"work\"><Street>Main</Street><City>Oslo</City><Geo><Lat>59.5</Lat></Geo></Address>"
                "<Billing><Street>Dock</Street></Billing><Email>a@b</Email><Coin>blue</Coin><Shape ") +
    kXsiType + "\"AA:Circle\"><Radius>4</Radius></Shape><Spare " + kXsiType +
    "\"AA:Shape\"><Label>plain</Label></Spare><Colour>blue</Colour><Shade>red</Shade><Phone>1</Phone>"
    "<Phone>2</Phone><Tag>green</Tag><Tag>red</Tag><Item><Street>I</Street></Item><Figure " +
    kXsiType + "\"AA:Square\"><Label>sq</Label><Side>3</Side></Figure><Figure " + kXsiType +
    "\"AA:Circle\"><Radius>1</Radius></Figure><Raw q=\"1\">r</Raw><Note>n</Note><free>f</free></Person>";

} // namespace

TEST(RoundTripSequence, EveryRecordKindIsWrittenExactlyWithFormatOffAndOn)
{
    CSmartPtr<Person> p = FullPerson();
    EXPECT_EQ(p->ToXml(false, false), kFullPerson);
    EXPECT_EQ(p->ToXml(true, true),
              std::string("<?xml version=\"1.0\"?>\n"
                          "<Person id=\"7\" level=\"high\" verified=\"true\">\n"
                          "\t<Name>Ann</Name>\n"
                          "\t<Nick> An </Nick>\n"
                          "\t<Address kind=\"work\">\n"
                          "\t\t<Street>Main</Street>\n"
                          "\t\t<City>Oslo</City>\n"
                          "\t\t<Geo>\n"
                          "\t\t\t<Lat>59.5</Lat>\n"
                          "\t\t</Geo>\n"
                          "\t</Address>\n"
                          "\t<Billing>\n"
                          "\t\t<Street>Dock</Street>\n"
                          "\t</Billing>\n"
                          "\t<Email>a@b</Email>\n"
                          "\t<Coin>blue</Coin>\n"
                          "\t<Shape ") +
                  kXsiType + "\"AA:Circle\">\n\t\t<Radius>4</Radius>\n\t</Shape>\n\t<Spare " + kXsiType +
                  "\"AA:Shape\">\n\t\t<Label>plain</Label>\n\t</Spare>\n"
                  "\t<Colour>blue</Colour>\n"
                  "\t<Shade>red</Shade>\n"
                  "\t<Phone>1</Phone>\n"
                  "\t<Phone>2</Phone>\n"
                  "\t<Tag>green</Tag>\n"
                  "\t<Tag>red</Tag>\n"
                  "\t<Item>\n\t\t<Street>I</Street>\n\t</Item>\n"
                  "\t<Figure " +
                  kXsiType + "\"AA:Square\">\n\t\t<Label>sq</Label>\n\t\t<Side>3</Side>\n\t</Figure>\n\t<Figure " +
                  kXsiType +
                  "\"AA:Circle\">\n\t\t<Radius>1</Radius>\n\t</Figure>\n"
                  "\t<Raw q=\"1\">r</Raw>\n"
                  "\t<Note>n</Note>\n"
                  "\t<free>f</free>\n"
                  "</Person>\n");
}

TEST(RoundTripSequence, AFullPersonReadsBackIntoAnEqualObject)
{
    CSmartPtr<Person> p = FullPerson();
    ExpectRoundTrip(*p);

    CSmartPtr<Person> copy(new Person());
    copy->FromXml(kFullPerson.c_str());
    // Substitution made the derived classes; the pseudo children read their
    // elements and their attribute from the shared element.
    EXPECT_NE(dynamic_cast<Circle*>(static_cast<CXmlGeneratedClass*>(copy->shape)), nullptr);
    EXPECT_NE(dynamic_cast<Square*>(static_cast<CXmlObjectBase*>(copy->figure->At<CXmlObjectBase>(0))), nullptr);
    EXPECT_EQ(copy->contact->Dump(), "Contact{email='a@b' fax=- verified=1}");
    EXPECT_EQ(copy->pay->Dump(), "Pay{card=- coin=2}");
}

TEST(RoundTripSequence, OnlyTheMandatoryPartsAndAnOptionalPseudoChoiceLeftUnset)
{
    CSmartPtr<Person> p(new Person());
    p->name = "Bo";
    p->address->street = "S";
    p->contact->email = "e";
    p->shape = new Shape();
    p->colour = 0;
    p->any->SetName("x");
    p->id = 1;
    EXPECT_EQ(p->ToXml(false, false), "<Person id=\"1\"><Name>Bo</Name><Address><Street>S</Street></Address>"
                                      "<Email>e</Email><Shape/><Colour>red</Colour><x/></Person>");
    ExpectRoundTrip(*p);

    CSmartPtr<Person> copy(new Person());
    copy->FromXml(p->ToXml().c_str());
    // The pseudo choice read nothing, so it was dropped.
    EXPECT_EQ(copy->pay, nullptr);
    EXPECT_EQ(copy->billing, nullptr);
    EXPECT_EQ(copy->note, nullptr);
}

TEST(RoundTripSequence, ANilChildWritesOnlyItsTagAttributesAndNil)
{
    CSmartPtr<Person> p = FullPerson();
    p->address = new Address();
    p->address->street = "never written";
    p->address->kind = 1;
    p->address->nil = true;
    const std::string xml = p->ToXml(false, false);
    EXPECT_NE(xml.find("<Address kind=\"work\" xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" "
                       "AA:nil=\"true\"/><Billing>"),
              std::string::npos)
        << xml;
    CSmartPtr<Person> copy(new Person());
    copy->FromXml(xml.c_str());
    EXPECT_TRUE(copy->address->nil);
    EXPECT_EQ(copy->address->Dump(), "Address{nil=1 street=- city=- geo=- kind=1}");
    p->address->street.reset();
    ExpectRoundTrip(*p);

    // The value is compared without regard to case; children of a nil
    // element stay unread.
    copy->FromXml("<Person id=\"1\" xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\"><Name>B</Name>"
                  "<Address i:nil=\"TRUE\"><Street>ignored</Street></Address><Email>e</Email><Shape/>"
                  "<Colour>red</Colour><x/></Person>");
    EXPECT_EQ(copy->address->Dump(), "Address{nil=1 street=- city=- geo=- kind=-}");
}

TEST(RoundTripSequence, SubstitutionByTypeWithAndWithoutPrefix)
{
    CSmartPtr<Person> p(new Person());
    p->FromXml("<Person id=\"1\" xmlns:i=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:s=\"urn:shapes\">"
               "<Name>B</Name><Address><Street>S</Street></Address><Email>e</Email>"
               "<Shape i:type=\"Square\"><Side>2</Side></Shape><Spare i:type=\"s:Circle\"><Radius>5</Radius></Spare>"
               "<Colour>red</Colour><Figure/><Figure i:type=\"s:Square\"><Side>1</Side></Figure><x/></Person>");
    EXPECT_EQ(DumpShape(p->shape), "Shape:Square{label=- size=2}");
    EXPECT_EQ(DumpShape(p->spare), "Spare:Circle{label=- size=5}");
    ASSERT_EQ(p->figure->GetCount(), 2);
    EXPECT_EQ(DumpShape(p->figure->At<CXmlObjectBase>(0)), "Figure:Shape{label=- size=-}");
    EXPECT_EQ(DumpShape(p->figure->At<CXmlObjectBase>(1)), "Figure:Square{label=- size=1}");
    // Written back, each bears its type with the prefix of the type's
    // namespace.
    ExpectRoundTrip(*p);
}

TEST(RoundTripAll, WrittenInTableOrderAndReadBackFromAnyOrder)
{
    CSmartPtr<Profile> p = FullProfile();
    const std::string xml =
        "<AA:Profile xmlns:AA=\"urn:rt\" since=\"2001\" extra=\"x\" xmlns:AB=\"urn:other\" AB:mark=\"y\">"
        "<AA:Age>41</AA:Age><AA:Email>p@q</AA:Email><AA:Mood>green</AA:Mood><AA:Shade>blue</AA:Shade>"
        "<AA:Home><Street>Elm</Street></AA:Home><AA:Work><Street>Mill</Street></AA:Work><AA:Bio>bio</AA:Bio>"
        "<AA:Misc>m</AA:Misc></AA:Profile>";
    EXPECT_EQ(p->ToXml(false, false), xml);
    ExpectRoundTrip(*p);

    // Reverse table order, then a shuffle: each pass takes what it can.
    CSmartPtr<Profile> copy(new Profile());
    copy->FromXml("<r:Profile xmlns:r=\"urn:rt\" xmlns:o=\"urn:other\" o:mark=\"y\" extra=\"x\" since=\"2001\">"
                  "<r:Misc>m</r:Misc><r:Bio>bio</r:Bio><r:Work><Street>Mill</Street></r:Work>"
                  "<r:Home><Street>Elm</Street></r:Home><r:Shade>blue</r:Shade><r:Mood>green</r:Mood>"
                  "<r:Email>p@q</r:Email><r:Age>41</r:Age></r:Profile>");
    // The wildcard keeps the attributes in document order.
    EXPECT_EQ(copy->Dump(), "Profile{age=41 email='p@q' mood=1 shade=2 home=Home{nil=0 street='Elm' city=- geo=- "
                            "kind=-} work=Work{nil=0 street='Mill' city=- geo=- kind=-} bio=<urn:rt|Bio>bio</> "
                            "misc=<urn:rt|Misc>m</> since='2001' any=[urn:other|mark=y;|extra=x;]}");

    copy->FromXml("<Profile xmlns=\"urn:rt\"><Home><Street xmlns=\"\">Elm</Street></Home><Age>41</Age><Bio>bio</Bio>"
                  "<Shade>blue</Shade><Mood>green</Mood></Profile>");
    EXPECT_EQ(copy->Dump(), "Profile{age=41 email=- mood=1 shade=2 home=Home{nil=0 street='Elm' city=- geo=- "
                            "kind=-} work=- bio=<urn:rt|Bio>bio</> misc=- since=- any=[]}");
}

TEST(RoundTripAll, RootMaterialOfTheContextIsWrittenAndReadBack)
{
    CSmartPtr<Profile> p = FullProfile();
    p->anyAttributes->Clear();
    CXmlSerializationContext context;
    context.GetProcessingInstructions().push_back("<?app go?>");
    context.GetNamespaceAliases().Add("p", kRtNs);
    context.GetNamespaceAliases().Add("o", "urn:other");
    context.GetAdditionalRootAttributes()->Add("note", "hi", "urn:other");
    EXPECT_EQ(p->ToXml(false, false, EOLTypeLF, context),
              "<?app go?>\n\n<p:Profile xmlns:o=\"urn:other\" xmlns:p=\"urn:rt\" o:note=\"hi\" since=\"2001\">"
              "<p:Age>41</p:Age><p:Email>p@q</p:Email><p:Mood>green</p:Mood><p:Shade>blue</p:Shade>"
              "<p:Home><Street>Elm</Street></p:Home><p:Work><Street>Mill</Street></p:Work><p:Bio>bio</p:Bio>"
              "<p:Misc>m</p:Misc></p:Profile>");
    // The additional root attribute comes from another namespace, so the
    // wildcard takes it on reading; the written text stays the same.
    CSmartPtr<Profile> withNote = FullProfile();
    withNote->anyAttributes->Clear();
    withNote->anyAttributes->Add("note", "hi", "urn:other");
    CSmartPtr<Profile> copy(new Profile());
    copy->FromXml(p->ToXml(true, true, EOLTypeLF, context).c_str());
    EXPECT_EQ(copy->Dump(), withNote->Dump());
    EXPECT_EQ(copy->ToXml(false, false, EOLTypeLF, context),
              "<?app go?>\n\n<p:Profile xmlns:o=\"urn:other\" xmlns:p=\"urn:rt\" o:note=\"hi\" since=\"2001\" "
              "o:note=\"hi\"><p:Age>41</p:Age><p:Email>p@q</p:Email><p:Mood>green</p:Mood><p:Shade>blue</p:Shade>"
              "<p:Home><Street>Elm</Street></p:Home><p:Work><Street>Mill</Street></p:Work><p:Bio>bio</p:Bio>"
              "<p:Misc>m</p:Misc></p:Profile>");
}

TEST(RoundTripAll, UnderADefaultNamespaceUnqualifiedChildrenFallIntoIt)
{
    CSmartPtr<Profile> p = FullProfile();
    p->anyAttributes->Clear();
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(kRtNs);
    const std::string xml = p->ToXml(false, false, EOLTypeLF, context);
    EXPECT_EQ(xml, "<Profile xmlns=\"urn:rt\" since=\"2001\"><Age>41</Age><Email>p@q</Email><Mood>green</Mood>"
                   "<Shade>blue</Shade><Home><Street>Elm</Street></Home><Work><Street>Mill</Street></Work>"
                   "<Bio>bio</Bio><Misc>m</Misc></Profile>");
    // Nothing undeclares the default namespace for the unqualified Street,
    // so it reads back only when namespaces are ignored.
    CSmartPtr<Profile> copy(new Profile());
    EXPECT_THROW(copy->FromXml(xml.c_str()), CNxValidationException);
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    ExpectRoundTrip(*p, context, ignoring);
}

TEST(RoundTripChoice, EachSingleMemberAndTheUntypedCollection)
{
    const std::string circle = std::string("<Pick><Shape ") + kXsiType + "\"AA:Circle\"><Radius>9</Radius></Shape></Pick>";
    const struct {
        std::function<void(Pick&)> fill;
        std::string expected;
    } cases[] = {
        {[](Pick& p) {
             p.memo = new Memo();
             p.memo->ref = 5;
             p.memo->text = "words";
         },
         "<Pick><Memo><Ref>5</Ref>words</Memo></Pick>"},
        {[](Pick& p) {
             CSmartPtr<Circle> shape(new Circle("Shape"));
             shape->size = 9;
             p.shape = shape;
         },
         circle},
        {[](Pick& p) { p.code = 12; }, "<Pick><Code>12</Code></Pick>"},
        {[](Pick& p) { p.tone = 1; }, "<Pick><Tone>green</Tone></Pick>"},
        {[](Pick& p) {
             p.blob = new CElement("Blob");
             p.blob->SetText("b");
         },
         "<Pick><Blob>b</Blob></Pick>"},
        {[](Pick& p) {
             p.raw->Add("Raw", "")->SetText("1");
             p.raw->Add("Raw", "")->SetText("2");
         },
         "<Pick><Raw>1</Raw><Raw>2</Raw></Pick>"},
        // Only the first member that has something is written.
        {[](Pick& p) {
             p.code = 12;
             p.tone = 2;
         },
         "<Pick><Code>12</Code></Pick>"},
        // An empty choice of optional members is no failure either way.
        {[](Pick&) {}, "<Pick/>"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.expected);
        CSmartPtr<Pick> pick(new Pick());
        c.fill(*pick);
        EXPECT_EQ(pick->ToXml(false, false), c.expected);
        // Formatted output indents around the memo's text, which then reads
        // back changed.
        if (!(pick->code && pick->tone))
            ExpectRoundTrip(*pick, Default(), Default(), !pick->memo);
    }
}

TEST(RoundTripChoice, AChoiceOfCollections)
{
    CSmartPtr<Bunch> words(new Bunch());
    words->word->Add("a");
    words->word->Add("b");
    EXPECT_EQ(words->ToXml(false, false), "<Bunch><Word>a</Word><Word>b</Word></Bunch>");
    ExpectRoundTrip(*words);

    CSmartPtr<Bunch> places(new Bunch());
    CSmartPtr<Address> place(new Address("Place"));
    place->street = "P";
    place->kind = 0;
    places->place->AppendItem(place);
    EXPECT_EQ(places->ToXml(false, false), "<Bunch><Place kind=\"home\"><Street>P</Street></Place></Bunch>");
    ExpectRoundTrip(*places);

    CSmartPtr<Bunch> forms(new Bunch());
    CSmartPtr<Square> square(new Square("Form"));
    square->size = 6;
    forms->form->AppendItem(square);
    forms->form->AppendItem(new Shape("Form"));
    EXPECT_EQ(forms->ToXml(false, false),
              std::string("<Bunch><Form ") + kXsiType + "\"AA:Square\"><Side>6</Side></Form><Form " + kXsiType +
                  "\"AA:Shape\"/></Bunch>");
    ExpectRoundTrip(*forms);

    CSmartPtr<Bunch> hues(new Bunch());
    hues->hue->items = {2, 2, 0};
    EXPECT_EQ(hues->ToXml(false, true), "<Bunch>\n\t<Hue>blue</Hue>\n\t<Hue>blue</Hue>\n\t<Hue>red</Hue>\n</Bunch>\n");
    ExpectRoundTrip(*hues);
}
