// Each option of the serialization context, shown on the real walks and
// records to change what is written or read.
#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

const char* const kMinimal = "<Person id=\"1\"><Name>Bo</Name><Address><Street>S</Street></Address>"
                             "<Email>e</Email><Shape/><Colour>red</Colour><x/></Person>";

CSmartPtr<Person> Read(const std::string& xml, const CXmlSerializationContext& context)
{
    CSmartPtr<Person> p(new Person());
    p->FromXml(xml.c_str(), context);
    return p;
}

} // namespace

TEST(RoundTripOptions, IgnoreUnknownElementsSkipsStrangersAndLeftovers)
{
    const std::string minimal = Read(kMinimal, CXmlSerializationContext())->Dump();
    const std::string stranger = Replace(kMinimal, "<Address>", "<Zzz><Street/></Zzz><Address>");
    const std::string trailing = Replace(kMinimal, "<x/>", "<x/><Trailing/>");
    CXmlSerializationContext strict;
    EXPECT_EQ(FailureOf([&] { Read(stranger, strict); }),
              "Failed to process the element [Person]\nFailed to find a required element [Address]");
    EXPECT_EQ(FailureOf([&] { Read(trailing, strict); }),
              "Failed to process the element [Person]\nFailed read all the elements held within the element "
              "[Person]. The unexpected element [Trailing] remains un processed");

    CXmlSerializationContext lenient;
    lenient.SetIgnoreUnknownElements(true);
    EXPECT_EQ(Read(stranger, lenient)->Dump(), minimal);
    EXPECT_EQ(Read(trailing, lenient)->Dump(), minimal);
}

TEST(RoundTripOptions, IgnoreMissingMandatoryElementsLeavesTheirFieldsUnset)
{
    const std::string noColour = Replace(kMinimal, "<Colour>red</Colour>", "");
    EXPECT_EQ(FailureOf([&] { Read(noColour, CXmlSerializationContext()); }),
              "Failed to process the element [Person]\nFailed to find a required element [Colour]");
    CXmlSerializationContext lenient;
    lenient.SetIgnoreMissingMandatoryElements(true);
    CSmartPtr<Person> p = Read(noColour, lenient);
    EXPECT_FALSE(p->colour);
    // Written back, the unset mandatory value is left out.
    EXPECT_EQ(p->ToXml(false, false), noColour);

}

TEST(RoundTripOptions, IgnoreMissingChoiceAcceptsAnEmptyChoiceOfCollections)
{
    CSmartPtr<Bunch> bunch(new Bunch());
    CXmlSerializationContext strict;
    EXPECT_EQ(FailureOf([&] { bunch->ToXml(false, false, EOLTypeLF, strict); }),
              "Failed to convert the element [Bunch] to XML\nThis element is a choice, and as such must have at one "
              "(and only one) valid item, currently there are none set");
    EXPECT_EQ(FailureOf([&] { bunch->FromXml("<Bunch/>", strict); }),
              "Failed to process the element [Bunch]\nNo child elements within the element [Bunch] were populated. "
              "The element represents a choice, so one and only one element should be populated. The element "
              "contained no sutable child elements");

    CXmlSerializationContext lenient;
    lenient.SetIgnoreMissingChoice(true);
    EXPECT_EQ(bunch->ToXml(false, false, EOLTypeLF, lenient), "<Bunch/>");
    bunch->FromXml("<Bunch/>", lenient);
    EXPECT_EQ(bunch->Dump(), "Bunch{place=[] form=[] word=[] hue=[]}");
}

TEST(RoundTripOptions, IgnoreInvalidCollectionCountsOnWritingAndReading)
{
    CSmartPtr<Person> p = FullPerson();
    p->phone->Add("3");
    p->phone->Add("4");
    CXmlSerializationContext strict;
    const std::string tooMany = "The Maximum number of [Phone] elements allowed in this collection is 3";
    EXPECT_EQ(FailureOf([&] { p->ToXml(false, false, EOLTypeLF, strict); }),
              "Failed to convert the element [Person] to XML\n" + tooMany);

    CXmlSerializationContext lenient;
    lenient.SetIgnoreInvalidCollectionCounts(true);
    const std::string xml = p->ToXml(false, false, EOLTypeLF, lenient);
    EXPECT_NE(xml.find("<Phone>1</Phone><Phone>2</Phone><Phone>3</Phone><Phone>4</Phone><Tag>"), std::string::npos);
    EXPECT_EQ(FailureOf([&] { Read(xml, strict); }), "Failed to process the element [Person]\n" + tooMany);
    EXPECT_EQ(Read(xml, lenient)->Dump(), p->Dump());
}

TEST(RoundTripOptions, IgnoreUnknownAttributesOnAClassThatRefusesThem)
{
    const std::string xml = Replace(kMinimal, "<Address>", "<Address zz=\"1\">");
    EXPECT_EQ(FailureOf([&] { Read(xml, CXmlSerializationContext()); }),
              "Failed to process the element [Person]\nFailed to process the element [Address]\n"
              "Unexpected Attribute [zz] found.");
    CXmlSerializationContext lenient;
    lenient.SetIgnoreUnknownAttributes(true);
    EXPECT_EQ(Read(xml, lenient)->Dump(), Read(kMinimal, lenient)->Dump());
    // A class with pseudo children shares its attributes with them and so
    // skips unknown ones anyway.
    EXPECT_EQ(Read(Replace(kMinimal, "<Person ", "<Person zz=\"1\" "), CXmlSerializationContext())->Dump(),
              Read(kMinimal, lenient)->Dump());
}

TEST(RoundTripOptions, IgnoreNamespacesAndTheNamespaceFreeSchemaType)
{
    const std::string written = FullProfile()->ToXml(false, false);
    const std::string foreign = Replace(written, "xmlns:AA=\"urn:rt\"", "xmlns:AA=\"urn:wrong\"");
    CSmartPtr<Profile> p(new Profile());
    EXPECT_EQ(FailureOf([&] { p->FromXml(foreign.c_str()); }),
              "Failed to process the element [Profile]\nFailed to find the mandatory element [Age]");

    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    p->FromXml(foreign.c_str(), ignoring);
    // The untyped elements keep the namespace they were read in.
    EXPECT_EQ(p->Dump(), Replace(Replace(FullProfile()->Dump(), "bio=<urn:rt|", "bio=<urn:wrong|"), "misc=<urn:rt|",
                                 "misc=<urn:wrong|"));

    // A namespace-free schema parses without namespaces: prefixes stay part
    // of the names, and an unprefixed document matches whatever it declares.
    CXmlSerializationContext namespaceFree;
    namespaceFree.SetSchemaType(SchemaTypeNoNamespaces);
    CSmartPtr<Profile> q(new Profile());
    EXPECT_EQ(FailureOf([&] { q->FromXml(foreign.c_str(), namespaceFree); }),
              "Failed to process the element [AA:Profile]\nFailed to find the mandatory element [Age]");
    CXmlSerializationContext defaultNamespace;
    defaultNamespace.SetDefaultNamespaceURI(kRtNs);
    const std::string unprefixed =
        Replace(FullProfile()->ToXml(false, false, EOLTypeLF, defaultNamespace), "\"urn:rt\"", "\"urn:wrong\"");
    EXPECT_THROW(q->FromXml(unprefixed.c_str()), CNxValidationException);
    q->FromXml(unprefixed.c_str(), namespaceFree);
    // Without namespace processing the declarations are plain attributes,
    // which the wildcard takes like any other.
    EXPECT_EQ(q->Dump(), Replace(Replace(Replace(FullProfile()->Dump(), "bio=<urn:rt|", "bio=<|"), "misc=<urn:rt|",
                                         "misc=<|"),
                                 "any=[|extra=x;urn:other|mark=y;]",
                                 "any=[|xmlns=urn:wrong;|extra=x;|xmlns:AA=urn:other;|AA:mark=y;]"));
}

TEST(RoundTripOptions, NoOptionalAttributeDefaultOutputLeavesDefaultsOut)
{
    CSmartPtr<Person> p = Read(kMinimal, CXmlSerializationContext());
    p->level = 0;
    p->address->kind = 0;
    EXPECT_EQ(p->ToXml(false, false), "<Person id=\"1\" level=\"low\"><Name>Bo</Name><Address kind=\"home\">"
                                      "<Street>S</Street></Address><Email>e</Email><Shape/><Colour>red</Colour><x/>"
                                      "</Person>");
    CXmlSerializationContext terse;
    terse.SetNoOptionalAttributeDefaultOutput(true);
    EXPECT_EQ(p->ToXml(false, false, EOLTypeLF, terse), kMinimal);
    // A value other than the default is written all the same.
    p->level = 1;
    EXPECT_EQ(p->ToXml(false, false, EOLTypeLF, terse), Replace(kMinimal, "id=\"1\"", "id=\"1\" level=\"high\""));
}

TEST(RoundTripOptions, WithoutTheTypeAttributeASubstitutedChildCannotBeReadBack)
{
    CSmartPtr<Person> p = Read(kMinimal, CXmlSerializationContext());
    CSmartPtr<Circle> circle(new Circle("Shape"));
    circle->size = 4;
    p->shape = circle;
    CXmlSerializationContext untyped;
    untyped.SetWriteTypeAttribute(false);
    const std::string xml = p->ToXml(false, false, EOLTypeLF, untyped);
    EXPECT_EQ(xml, Replace(kMinimal, "<Shape/>", "<Shape><Radius>4</Radius></Shape>"));
    EXPECT_EQ(FailureOf([&] { Read(xml, untyped); }),
              "Failed to process the element [Person]\nFailed to process the element [Shape]\nFailed read all the "
              "elements held within the element [Shape]. The unexpected element [Radius] remains un processed");
    EXPECT_EQ(DumpShape(Read(p->ToXml(), untyped)->shape), "Shape:Circle{label=- size=4}");
}

TEST(RoundTripOptions, StripCDATA)
{
    const std::string xml = Replace(kMinimal, "<Address>", "<Nick><![CDATA[a<b]]></Nick><Address>");
    EXPECT_EQ(*Read(xml, CXmlSerializationContext())->nick, "a<b");
    CXmlSerializationContext keep;
    keep.SetStripCDATA(false);
    CSmartPtr<Person> p = Read(xml, keep);
    EXPECT_EQ(*p->nick, "<![CDATA[a<b]]>");
    // Text that starts a section is written unescaped, so the section comes
    // back as it was.
    EXPECT_EQ(p->ToXml(false, false), xml);
}
