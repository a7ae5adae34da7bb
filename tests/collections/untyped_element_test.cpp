#include <gtest/gtest.h>

#include <memory>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "UntypedTestSupport.h"

using namespace NxXmlLib9;
using NxTest::Parsed;
using NxTest::Walks;

namespace {

// Attribute names with namespaces, in order: "a=1{urn:x}".
std::string Attributes(const CElement& element)
{
    std::string result;
    for (CNode* node = element.GetAttributes()->begin(); node; node = node->next) {
        CSmartPtr<CAttribute> attribute = dynamic_cast<CAttribute*>(static_cast<CXmlObjectBase*>(node->item));
        result += attribute->GetName() + "=" + attribute->GetValue() + "{" + attribute->GetNamespace() + "} ";
    }
    return result;
}
} // namespace

TEST(UntypedElement, ConstructionAndItsNamespaceChecks)
{
    CSmartPtr<CElement> own(new CElement("a", "urn:x"));
    EXPECT_EQ(own->GetNamespaceRestriction(), "urn:x");
    EXPECT_EQ(own->GetRestrictionTargetNamespace(), "");
    CSmartPtr<CElement> empty(new CElement("", "", "##any", ""));
    for (const char* keyword : {"##any", "##other", "##local", "##targetNamespace"})
        ExpectFailure<CNxInvalidNamespaceException>([&] { CElement e("a", keyword); },
                                                    std::string("Invalid Namespace [") + keyword + "]");
    ExpectFailure<CNxInvalidNamespaceException>(
        [] { CElement e("a", "urn:x", "##local", "urn:t"); },
        "Invalid namespace [urn:x]. The namespace must be one of [##local] where the target namespace is [urn:t]");
    ExpectFailure<CNxInvalidNamespaceException>([] { CElement e(nullptr, "", nullptr, nullptr); },
                                                "Element Name must have a value");
    ExpectFailure<CNxInvalidNamespaceException>([] { CElement e("a", "", nullptr, nullptr); },
                                                "Namespace Restriction must have a value");
    ExpectFailure<CNxInvalidNamespaceException>([] { CElement e("a", "", "##any", nullptr); },
                                                "Target Namespace must have a value");

    // Init starts afresh, with collections that admit any namespace and
    // lend the element's namespace to what is added by name.
    own->GetAttributes()->Add("x", "1");
    own->Init("b", "urn:b", "##other", "urn:t");
    EXPECT_EQ(own->GetAttributes()->GetCount(), 0);
    EXPECT_EQ(own->GetTargetNamespace(), "urn:b");
    EXPECT_EQ(own->GetAttributes()->GetNamespaceRestriction(), "##any");
    EXPECT_EQ(own->GetElements()->GetNamespaceRestriction(), "##any");
    EXPECT_EQ(own->GetAttributes()->Add("y")->GetNamespace(), "urn:b");
    EXPECT_EQ(own->GetElements()->Add("c")->GetNamespace(), "urn:b");
    // A refused namespace leaves the element as it was.
    EXPECT_THROW(own->Init("c", "urn:t", "##other", "urn:t"), CNxInvalidNamespaceException);
    EXPECT_EQ(own->GetName(), "b");
    EXPECT_EQ(own->GetAttributes()->GetCount(), 1);
}

TEST(UntypedElement, CollectionsMadeOnFirstUseLendTheNamespaceOfInit)
{
    CSmartPtr<CElement> element(new CElement("e", "urn:a", "##any", ""));
    element->SetNamespace("urn:b");
    CSmartPtr<CElement> clone = element->Clone();
    EXPECT_EQ(element->GetAttributes()->Add("x")->GetNamespace(), "urn:a");
    EXPECT_EQ(clone->GetElements()->Add("c")->GetNamespace(), "urn:a");
    // An element read without attributes or children takes its namespace
    // from the document; its collections still lend the one of Init.
    CSmartPtr<CElement> read(new CElement("r", "", "##any", ""));
    read->FromXml("<r xmlns='urn:r'>t</r>");
    EXPECT_EQ(read->GetNamespace(), "urn:r");
    EXPECT_EQ(read->GetAttributes()->GetCount(), 0);
    EXPECT_EQ(read->GetAttributes()->Add("y")->GetNamespace(), "");
}

TEST(UntypedElement, ReadAndWrittenTextComesAfterTheChildren)
{
    CSmartPtr<CElement> element(new CElement("root"));
    element->FromXml("<p:root xmlns:p='urn:r' a='1' p:b='2'>x<c xmlns='urn:c'>in<d/></c>y</p:root>");
    EXPECT_EQ(element->GetText(), "xy");
    EXPECT_EQ(Attributes(*element), "a=1{} b=2{urn:r} ");
    EXPECT_EQ(element->ToXml(false, false),
              "<AA:root xmlns:AA=\"urn:r\" a=\"1\" AA:b=\"2\"><AB:c xmlns:AB=\"urn:c\"><AB:d/>in</AB:c>xy</AA:root>");
}

TEST(UntypedElement, ARefusedNamespaceLeavesTheElementUnread)
{
    CSmartPtr<CElement> element(new CElement("keep", "urn:k"));
    element->FromXml("<other xmlns='urn:other' a='1'><c/>text</other>");
    EXPECT_EQ(element->GetName(), "keep");
    EXPECT_EQ(element->GetNamespace(), "urn:k");
    EXPECT_EQ(element->GetText(), "");
    EXPECT_EQ(element->GetAttributes()->GetCount(), 0);
    EXPECT_EQ(element->GetElements()->GetCount(), 0);

    // The walk hands the refused element back unconsumed; an accepted one
    // gives its next sibling.
    Parsed doc("<r xmlns='urn:k'><a xmlns='urn:other'/><b/></r>");
    CXmlElement* first = doc.Root()->GetFirstElement();
    EXPECT_EQ(Walks::Read(element, doc.Root(), first), first);
    EXPECT_EQ(Walks::Read(element, doc.Root(), first->GetNextSiblingElement()), nullptr);
    EXPECT_EQ(element->GetName(), "b");
    // A second read adds to what the first one left.
    element->FromXml("<b xmlns='urn:k' x='1'><c/></b>");
    element->FromXml("<b xmlns='urn:k' x='1'><c/></b>");
    EXPECT_EQ(Attributes(*element), "x=1{} x=1{} ");
    EXPECT_EQ(element->GetElements()->GetCount(), 2);
}

TEST(UntypedElement, ADefaultNamespaceWritesTheElementApartWithoutItsAttributes)
{
    CSmartPtr<CElement> outer(new CElement("outer", "urn:o"));
    CSmartPtr<CElement> kid = outer->GetElements()->Add("kid", "urn:o");
    kid->SetDefaultNamespace("urn:d");
    kid->GetAttributes()->Add("lost", "v");
    kid->GetElements()->Add("leaf", "urn:d")->SetText("t");
    kid->SetText("k");
    outer->SetText("o");
    EXPECT_EQ(outer->ToXml(false, false), "<AA:outer xmlns:AA=\"urn:o\"><AA:kid xmlns:AA=\"urn:o\" "
                                          "xmlns=\"urn:d\"><leaf>t</leaf>k</AA:kid>o</AA:outer>");
}

TEST(UntypedElement, CopyXmlElementReplacesEverythingAndKeepsADefaultDeclarationBothWays)
{
    CXmlSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaTypeNoNamespaces);
    Parsed doc("<r xmlns='urn:d' a='1'>t<c b='2'><g/></c></r>", noNamespaces);
    CSmartPtr<CElement> element(new CElement("old", "urn:old"));
    element->GetAttributes()->Add("stale", "x");
    element->GetElements()->Add("stale");
    element->CopyXmlElement(doc.Root());
    EXPECT_EQ(element->GetDefaultNamespace(), "urn:d");
    EXPECT_EQ(Attributes(*element), "xmlns=urn:d{} a=1{} ");
    element->SetDefaultNamespace("");
    EXPECT_EQ(element->ToXml(false, false), "<r xmlns=\"urn:d\" a=\"1\"><c b=\"2\"><g/></c>t</r>");
}

TEST(UntypedElement, CloneIsDeepAndLeavesTheDefaultNamespaceBehind)
{
    CSmartPtr<CElement> element(new CElement("e", "urn:e"));
    element->FromXml("<e xmlns='urn:e' a='1'><c>x</c>t</e>");
    element->SetDefaultNamespace("urn:d");
    CSmartPtr<CElement> clone = element->Clone();
    EXPECT_EQ(clone->GetDefaultNamespace(), "");
    EXPECT_EQ(clone->GetNamespaceRestriction(), "urn:e");
    clone->GetElements()->Item(0)->SetText("changed");
    clone->GetAttributes()->Item(0)->SetValue("2");
    EXPECT_EQ(element->GetElements()->Item(0)->GetText(), "x");
    EXPECT_EQ(Attributes(*element), "a=1{} ");
    EXPECT_EQ(clone->ToXml(false, false), "<AA:e xmlns:AA=\"urn:e\" a=\"2\"><AA:c>changed</AA:c>t</AA:e>");
}

TEST(UntypedElement, SetNamespaceRestrictionsChecksAndStoresNothing)
{
    CSmartPtr<CElement> element(new CElement("e", "urn:e"));
    element->GetAttributes()->Add("a", "1", "urn:attr");
    element->GetElements()->Add("kid", "urn:kid");
    // The failure of an element's own namespace comes as a pointer, which
    // the catcher owns.
    auto thrownPointer = [&](const char* restriction, const char* target) {
        try {
            element->SetNamespaceRestrictions(restriction, target);
        } catch (CNxInvalidNamespaceException* thrown) {
            return std::unique_ptr<CNxInvalidNamespaceException>(thrown);
        }
        return std::unique_ptr<CNxInvalidNamespaceException>();
    };
    auto own = thrownPointer("##local", "urn:t");
    ASSERT_TRUE(own);
    EXPECT_EQ(own->GetMessage(), "The namespace e in the class urn:e is invalid against restriction ##local");
    ASSERT_NE(own->GetInnerException(), nullptr);
    EXPECT_EQ(own->GetInnerException()->GetMessage(),
              "Invalid namespace [urn:e]. The namespace must be one of [##local] where the target namespace is "
              "[urn:t]");
    // An attribute's failure comes by value, as it stands.
    ExpectFailure<CNxInvalidNamespaceException>(
        [&] { element->SetNamespaceRestrictions("##other", "urn:attr"); },
        "Invalid namespace [urn:attr]. The namespace must be one of [##other] where the target namespace is "
        "[urn:attr]");
    auto child = thrownPointer("##other", "urn:kid");
    ASSERT_TRUE(child);
    EXPECT_EQ(child->GetMessage(), "The namespace kid in the class urn:kid is invalid against restriction ##other");
    EXPECT_FALSE(thrownPointer("##other", "urn:t"));
    EXPECT_EQ(element->GetNamespaceRestriction(), "urn:e");
}

TEST(UntypedAttribute, WritesItselfAndRefusesToReadAlone)
{
    CSmartPtr<CAttribute> attribute(new CAttribute("a", "x<y", "urn:a"));
    EXPECT_EQ(attribute->GetTargetNamespace(), "urn:a");
    CSmartPtr<CAttribute> clone = attribute->Clone();
    attribute->SetValue("changed");
    EXPECT_EQ(clone->GetValue(), "x<y");
    ExpectFailure<CNxException>([&] { Walks::Read(attribute, nullptr, nullptr); },
                                "This should be done by the collection");
    CSmartPtr<CElement> element(new CElement("e"));
    element->GetAttributes()->Add(clone);
    EXPECT_EQ(element->ToXml(false, false), "<e xmlns:AA=\"urn:a\" AA:a=\"x&lt;y\"/>");
}
