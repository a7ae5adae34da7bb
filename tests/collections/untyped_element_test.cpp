#include <gtest/gtest.h>

#include <memory>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "UntypedTestSupport.h"

using namespace NxXmlLib9;
using NxTest::Parsed;
using NxTest::Walks;

namespace {
NxTest::VersionRegistration registerVersion;

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

TEST(UntypedElement, ConstructorsAndTheirNamespaceChecks)
{
    CSmartPtr<CElement> plain(new CElement("a"));
    EXPECT_EQ(plain->GetNamespace(), "");
    EXPECT_EQ(plain->GetNamespaceRestriction(), "##any");
    CSmartPtr<CElement> own(new CElement("a", "urn:x"));
    EXPECT_EQ(own->GetNamespaceRestriction(), "urn:x");
    EXPECT_EQ(own->GetRestrictionTargetNamespace(), "");
    CSmartPtr<CElement> full(new CElement("a", "urn:t", "##targetNamespace", "urn:t"));
    // Both namespace getters give the element's namespace, not the target.
    EXPECT_EQ(full->GetTargetNamespace(), "urn:t");
    CSmartPtr<CElement> emptyName(new CElement("", "", "##any", ""));
    EXPECT_EQ(emptyName->GetName(), "");

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
}

TEST(UntypedElement, InitStartsAfreshWithCollectionsThatAdmitAnyNamespace)
{
    CSmartPtr<CElement> element(new CElement("a", "urn:a", "urn:a", ""));
    element->GetAttributes()->Add("x", "1");
    element->GetElements()->Add("c");
    CSmartPtr<CAttributeCol> before = element->GetAttributes();
    element->Init("b", "urn:b", "##other", "urn:t");
    EXPECT_NE(static_cast<CAttributeCol*>(element->GetAttributes()), static_cast<CAttributeCol*>(before));
    EXPECT_EQ(element->GetAttributes()->GetCount(), 0);
    EXPECT_EQ(element->GetElements()->GetCount(), 0);
    EXPECT_EQ(element->GetAttributes()->GetNamespaceRestriction(), "##any");
    EXPECT_EQ(element->GetElements()->GetNamespaceRestriction(), "##any");
    // Attributes added by name take the element's namespace.
    EXPECT_EQ(element->GetAttributes()->Add("y")->GetNamespace(), "urn:b");
    EXPECT_EQ(element->GetElements()->Add("c")->GetNamespace(), "urn:b");
    // A refused namespace leaves the element as it was.
    EXPECT_THROW(element->Init("c", "urn:t", "##other", "urn:t"), CNxInvalidNamespaceException);
    EXPECT_EQ(element->GetName(), "b");
    EXPECT_EQ(element->GetAttributes()->GetCount(), 1);
}

TEST(UntypedElement, ReadAndWrittenTextComesAfterTheChildren)
{
    CSmartPtr<CElement> element(new CElement("root"));
    element->FromXml("<p:root xmlns:p='urn:r' a='1' p:b='2'>x<c xmlns='urn:c'>in<d/></c>y</p:root>");
    EXPECT_EQ(element->GetName(), "root");
    EXPECT_EQ(element->GetNamespace(), "urn:r");
    EXPECT_EQ(element->GetText(), "xy");
    EXPECT_EQ(Attributes(*element), "a=1{} b=2{urn:r} ");
    ASSERT_EQ(element->GetElements()->GetCount(), 1);
    CSmartPtr<CElement> child = element->GetElements()->Item(0);
    EXPECT_EQ(child->GetNamespace(), "urn:c");
    EXPECT_EQ(child->GetText(), "in");
    EXPECT_EQ(child->GetElements()->Item(0)->GetName(), "d");

    EXPECT_EQ(element->ToXml(false, false),
              "<AA:root xmlns:AA=\"urn:r\" a=\"1\" AA:b=\"2\"><AB:c xmlns:AB=\"urn:c\"><AB:d/>in</AB:c>xy</AA:root>");
}

TEST(UntypedElement, ReadingTwiceAddsUpAttributesAndChildren)
{
    Parsed doc("<r a='1'><c/></r>");
    CSmartPtr<CElement> element(new CElement("r"));
    EXPECT_EQ(Walks::Read(element, nullptr, doc.Root()), nullptr);
    EXPECT_EQ(Walks::Read(element, nullptr, doc.Root()), nullptr);
    EXPECT_EQ(Attributes(*element), "a=1{} a=1{} ");
    EXPECT_EQ(element->GetElements()->GetCount(), 2);
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
    EXPECT_EQ(element->GetName(), "r");
    EXPECT_EQ(element->GetNamespace(), "");
    EXPECT_EQ(element->GetText(), "t");
    EXPECT_EQ(element->GetDefaultNamespace(), "urn:d");
    EXPECT_EQ(Attributes(*element), "xmlns=urn:d{} a=1{} ");
    ASSERT_EQ(element->GetElements()->GetCount(), 1);
    CSmartPtr<CElement> child = element->GetElements()->Item(0);
    EXPECT_EQ(Attributes(*child), "b=2{} ");
    EXPECT_EQ(child->GetElements()->Item(0)->GetName(), "g");
}

TEST(UntypedElement, CloneIsDeepAndLeavesTheDefaultNamespaceBehind)
{
    CSmartPtr<CElement> element(new CElement("e", "urn:e"));
    element->FromXml("<e xmlns='urn:e' a='1'><c>x</c>t</e>");
    element->SetDefaultNamespace("urn:d");
    CSmartPtr<CElement> clone = element->Clone();
    EXPECT_EQ(clone->GetDefaultNamespace(), "");
    EXPECT_EQ(clone->GetNamespaceRestriction(), "urn:e");
    EXPECT_EQ(clone->GetText(), "t");
    EXPECT_EQ(Attributes(*clone), "a=1{} ");
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

    try {
        element->SetNamespaceRestrictions("##local", "urn:t");
        FAIL() << "no exception";
    } catch (CNxInvalidNamespaceException* thrown) {
        std::unique_ptr<CNxInvalidNamespaceException> owned(thrown);
        EXPECT_EQ(owned->GetMessage(), "The namespace e in the class urn:e is invalid against restriction ##local");
        ASSERT_NE(owned->GetInnerException(), nullptr);
        EXPECT_EQ(owned->GetInnerException()->GetMessage(),
                  "Invalid namespace [urn:e]. The namespace must be one of [##local] where the target namespace "
                  "is [urn:t]");
    }
    // The element passes, an attribute fails: thrown by value as it stands.
    ExpectFailure<CNxInvalidNamespaceException>(
        [&] { element->SetNamespaceRestrictions("##other", "urn:attr"); },
        "Invalid namespace [urn:attr]. The namespace must be one of [##other] where the target namespace is "
        "[urn:attr]");
    // A child fails: thrown by pointer from the child's own check.
    try {
        element->SetNamespaceRestrictions("##other", "urn:kid");
        FAIL() << "no exception";
    } catch (CNxInvalidNamespaceException* thrown) {
        std::unique_ptr<CNxInvalidNamespaceException> owned(thrown);
        EXPECT_EQ(owned->GetMessage(),
                  "The namespace kid in the class urn:kid is invalid against restriction ##other");
    }
    EXPECT_NO_THROW(element->SetNamespaceRestrictions("##other", "urn:t"));
    EXPECT_EQ(element->GetNamespaceRestriction(), "urn:e");
    EXPECT_EQ(element->GetRestrictionTargetNamespace(), "");
}

TEST(UntypedAttribute, WritesItselfAndRefusesToReadAlone)
{
    CSmartPtr<CAttribute> attribute(new CAttribute("a", "x<y", "urn:a"));
    EXPECT_EQ(attribute->GetNamespace(), "urn:a");
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
