// Failures three levels deep, on writing and on reading: each level of the
// tree wraps the failure once, so the full message names the path from the
// root to the cause.
#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "TableClass.h"

using namespace NxRoundTrip;

namespace {

const std::string kPersonWithGeo = "<Person id=\"1\"><Name>Bo</Name><Address><Street>S</Street><Geo><Lat>LAT</Lat>"
                                   "</Geo></Address><Email>e</Email><Shape/><Colour>red</Colour><x/></Person>";

std::string WithLat(const char* lat)
{
    std::string xml = kPersonWithGeo;
    return xml.replace(xml.find("LAT"), 3, lat);
}

} // namespace

TEST(RoundTripFailures, AFacetThreeLevelsDownOnWriting)
{
    CSmartPtr<Person> p(new Person());
    p->FromXml(WithLat("10").c_str());
    p->address->geo->lat = 100;
    EXPECT_EQ(FailureOf([&] { p->ToXml(); }), "Failed to convert the element [Person] to XML\n"
                                            "Failed to convert the element [Address] to XML\n"
                                            "Failed to convert the element [Geo] to XML\n"
                                            "Invalid Value for Lat [100.000000]");
}

TEST(RoundTripFailures, AnAttributeFacetHasALayerOfItsOwn)
{
    CSmartPtr<Person> p = FullPerson();
    p->id = 1000;
    EXPECT_EQ(FailureOf([&] { p->ToXml(); }), "Failed to convert the element [Person] to XML\n"
                                            "Failed to convert attributes to XML\n"
                                            "Invalid Value for id [1000]");
}

TEST(RoundTripFailures, ABadValueThreeLevelsDownOnReading)
{
    CSmartPtr<Person> p(new Person());
    EXPECT_EQ(FailureOf([&] { p->FromXml(WithLat("north").c_str()); }), "Failed to process the element [Person]\n"
                                                                      "Failed to process the element [Address]\n"
                                                                      "Failed to process the element [Geo]\n"
                                                                      "The value [north] can not be converted to a r8");
    // Nothing is rolled back: what came before the failure stays read.
    EXPECT_EQ(*p->name, "Bo");
    EXPECT_EQ(*p->address->street, "S");

    // A missing mandatory element at the same depth.
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml("<Person id=\"1\"><Name>Bo</Name><Address><Street>S</Street><Geo/></Address></Person>");
              }),
              "Failed to process the element [Person]\nFailed to process the element [Address]\n"
              "Failed to process the element [Geo]\nFailed to find a required element [Lat]");
}

TEST(RoundTripFailures, ReadingFailuresOfPseudoChildrenSubstitutionAndWildcards)
{
    CSmartPtr<Person> p(new Person());
    // The pseudo child must consume an element.
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml("<Person id=\"1\"><Name>Bo</Name><Address><Street>S</Street></Address><Shape/>"
                             "<Colour>red</Colour><x/></Person>");
              }),
              "Failed to process the element [Person]\nFailed to find a required element [Contact]");
    // A failure inside a pseudo child names the shared element once more.
    EXPECT_EQ(FailureOf([&] {
                  p->FromXml("<Person id=\"1\" verified=\"perhaps\"><Name>Bo</Name><Address><Street>S</Street>"
                             "</Address><Email>e</Email><Shape/><Colour>red</Colour><x/></Person>");
              }),
              "Failed to process the element [Person]\nFailed to process the element [Person]\nA Boolean Value read "
              "from an XML document was invalid [perhaps]. Valid values are 'true', 'false', '1', or '0'");
}
