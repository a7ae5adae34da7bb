// Documents written to attack the reader: entity expansion bombs are
// refused, and nothing in a document makes the reader open a file or a URL
// (external entities, external DTDs and external parameter entities are
// ignored).
#include "DocumentTestSupport.h"

using namespace NxXmlLib9;
using NxTest::FailureOf;

namespace {

const char* const kSecret = "secret-file-content";

std::string Dump(const CXmlElement* element)
{
    std::string text = element->GetLocalName() + "[" + element->GetText() + "]";
    for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
        text += "(" + Dump(child) + ")";
    return text;
}

// The tree of a document that loads, or the message of its failure.
std::string Outcome(const std::string& xml)
{
    CXmlDocument document;
    try {
        document.LoadXml(xml.c_str());
    } catch (const CNxException& failure) {
        return failure.GetMessage();
    }
    return Dump(document.GetDocumentElement());
}

} // namespace

TEST(HostileXml, EntityExpansionBombsAreRefused)
{
    // Ten levels of tenfold expansion: ten billion "lol"s.
    std::string laughs = "<!DOCTYPE a [<!ENTITY l0 'lol'>";
    for (int i = 1; i <= 10; ++i)
        laughs += "<!ENTITY l" + std::to_string(i) + " '" + [i] {
            std::string refs;
            for (int j = 0; j < 10; ++j)
                refs += "&l" + std::to_string(i - 1) + ";";
            return refs;
        }() + "'>";
    laughs += "]><a>&l10;</a>";
    // One large entity used many times: quadratic growth.
    std::string quadratic = "<!DOCTYPE a [<!ENTITY big '" + std::string(100000, 'x') + "'>]><a>";
    for (int i = 0; i < 2000; ++i)
        quadratic += "&big;";
    quadratic += "</a>";
    // An attribute value is expanded the same way.
    std::string inAttribute = laughs.substr(0, laughs.find("]>")) + "]><a v='&l10;'/>";
    for (const std::string& bomb : {laughs, quadratic, inAttribute})
        EXPECT_EQ("limit on input amplification factor (from DTD and entities) breached at line 1", Outcome(bomb));
    // Modest internal entities still expand.
    EXPECT_EQ("a[lol lol]", Outcome("<!DOCTYPE a [<!ENTITY l 'lol'>]><a>&l; &l;</a>"));
}

TEST(HostileXml, NothingOutsideTheDocumentIsRead)
{
    NxTest::TempFile secret(kSecret);
    NxTest::TempFile dtd(std::string("<!ENTITY e '") + kSecret + "'>");
    NxTest::TempFile parameters(std::string("<!ENTITY e '") + kSecret + "'>");
    const std::string file = "file://" + secret.Path();
    const struct {
        std::string xml;
        std::string outcome;
    } cases[] = {
        // An external general entity in content is skipped.
        {"<!DOCTYPE a [<!ENTITY e SYSTEM '" + file + "'>]><a>&e;</a>", "a[]"},
        {"<!DOCTYPE a [<!ENTITY e SYSTEM '" + secret.Path() + "'>]><a>x&e;y</a>", "a[xy]"},
        {"<!DOCTYPE a [<!ENTITY e SYSTEM 'http://127.0.0.1:9/x'>]><a>&e;</a>", "a[]"},
        // In an attribute value it is an error of the document.
        {"<!DOCTYPE a [<!ENTITY e SYSTEM '" + file + "'>]><a v='&e;'/>",
         "reference to external entity in attribute at line 1"},
        // An external DTD is not loaded, so what it declares is unknown.
        {"<!DOCTYPE a SYSTEM '" + dtd.Path() + "'><a>&e;</a>", "a[]"},
        {"<!DOCTYPE a PUBLIC '-//x//y' 'http://127.0.0.1:9/x.dtd'><a>t</a>", "a[t]"},
        // Nor is an external parameter entity.
        {"<!DOCTYPE a [<!ENTITY % p SYSTEM '" + parameters.Path() + "'> %p;]><a>&e;</a>", "a[]"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(each.outcome, Outcome(each.xml)) << each.xml;
}
