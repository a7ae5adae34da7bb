#include <gtest/gtest.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TestObjects.h"

using namespace NxXmlLib9;

namespace {

bool Valid(const char* uri, const char* wildcard, const char* target)
{
    return CXmlObjectHelper::IsNamespaceValid(uri, wildcard, target);
}

// Parses a document and hands out the children of its root.
struct Parsed {
    explicit Parsed(const char* xml) { document.LoadXml(xml); }
    CXmlElement* Child(int index) const
    {
        CXmlElement* child = document.GetDocumentElement()->GetFirstElement();
        while (index-- > 0)
            child = child->GetNextSiblingElement();
        return child;
    }
    CXmlDocument document;
};

} // namespace

TEST(NamespaceWildcard, KeywordsAndSingleUris)
{
    EXPECT_TRUE(Valid("", "##any", ""));
    EXPECT_TRUE(Valid("urn:x", "##other", "urn:t"));
    EXPECT_FALSE(Valid("urn:t", "##other", "urn:t"));
    EXPECT_FALSE(Valid("", "##other", ""));
    EXPECT_TRUE(Valid("", "##other", "urn:t"));
    EXPECT_TRUE(Valid("", "##local", "urn:t"));
    EXPECT_FALSE(Valid("urn:t", "##local", "urn:t"));
    EXPECT_TRUE(Valid("urn:t", "##targetNamespace", "urn:t"));
    EXPECT_FALSE(Valid("", "##targetNamespace", "urn:t"));
    // A URI admits itself, exactly, and the empty namespace.
    EXPECT_TRUE(Valid("urn:a", "urn:a", "urn:t"));
    EXPECT_TRUE(Valid("", "urn:a", "urn:t"));
    EXPECT_FALSE(Valid("urn:b", "urn:a", "urn:t"));
    EXPECT_FALSE(Valid("urn:A", "urn:a", ""));
    EXPECT_FALSE(Valid("urn:t", "", "urn:t"));
}

TEST(NamespaceWildcard, ListIsDecidedByItsFirstTokenAndTheEmptyTokenRule)
{
    EXPECT_TRUE(Valid("urn:x", "##other urn:a", "urn:t"));
    EXPECT_TRUE(Valid("urn:t", "##targetNamespace urn:a", "urn:t"));
    // Later tokens are never weighed on their own; the answer is false
    // rather than an endless walk.
    EXPECT_FALSE(Valid("urn:a", "##targetNamespace urn:a", "urn:t"));
    EXPECT_FALSE(Valid("urn:b", "urn:a urn:b", ""));
    // A URI token compares with the whole list text, not with itself.
    EXPECT_FALSE(Valid("urn:a", "urn:a urn:b", ""));
    EXPECT_TRUE(Valid("urn:a urn:b", "urn:a urn:b", ""));
    // Any list admits the empty namespace, even where its first token alone
    // would refuse it.
    EXPECT_TRUE(Valid("", "##other ##local", ""));
    EXPECT_FALSE(Valid("urn:a", " urn:a", ""));
}

TEST(NamespaceWildcard, TestNamespaceThrowsWithTheThreeTextsAlsoThroughTheObject)
{
    ExpectFailure<CNxInvalidNamespaceException>(
        [] { CXmlObjectHelper::TestNamespace("urn:x", "##local urn:y", "urn:t"); },
        "Invalid namespace [urn:x]. The namespace must be one of [##local urn:y] where the target namespace is "
        "[urn:t]");
    CSmartPtr<NxTest::CountedObject> object(new NxTest::CountedObject);
    EXPECT_TRUE(object->IsNamespaceValid(nullptr, "##local", nullptr));
    EXPECT_NO_THROW(object->TestNamespace("urn:t", "##targetNamespace", "urn:t"));
    ExpectFailure<CNxInvalidNamespaceException>(
        [&] { object->TestNamespace("urn:a", "##other", "urn:a"); },
        "Invalid namespace [urn:a]. The namespace must be one of [##other] where the target namespace is [urn:a]");
}

TEST(ElementNameMatch, NameAndNamespaceUnlessIgnoredOrTheSchemaIsNamespaceFree)
{
    Parsed doc("<r xmlns='urn:r'><item/><Item/><item xmlns='urn:o'/></r>");
    CXmlSerializationContext context;
    EXPECT_TRUE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(0), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(1), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(2), "item", "urn:r"));

    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    EXPECT_TRUE(CXmlObjectHelper::DoesElementNameMatch(ignoring, doc.Child(2), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(ignoring, doc.Child(1), "item", "urn:r"));

    CXmlSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaTypeNoNamespaces);
    EXPECT_TRUE(CXmlObjectHelper::DoesElementNameMatch(noNamespaces, doc.Child(2), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(noNamespaces, doc.Child(1), "item", "urn:r"));

    CSmartPtr<NxTest::CountedObject> object(new NxTest::CountedObject);
    EXPECT_FALSE(object->DoesElementNameMatch(context, doc.Child(0), "item", nullptr));
    EXPECT_TRUE(object->DoesElementNameMatch(ignoring, doc.Child(0), "item", nullptr));
}

TEST(ClassFactory, TypeAttributeWithAndWithoutPrefix)
{
    Parsed doc("<r xmlns='urn:default' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:p='urn:p'>"
               "<a xsi:type='p:Derived'/><b xsi:type='Plain'/><c xsi:type='q:x:y'/><d type='p:NoXsi'/>"
               "<e xmlns='urn:e' xsi:type='Plain'/></r>");
    const char* names[] = {"Derived", "Plain", "x:y", "", "Plain"};
    // Without a prefix, with an undeclared one and without the attribute,
    // the element's own namespace is the answer, not the default one.
    const char* namespaces[] = {"urn:p", "urn:default", "urn:default", "urn:default", "urn:e"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(CClassfactoryBase::GetElementType(doc.Child(i)), names[i]) << i;
        EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(doc.Child(i)), namespaces[i]) << i;
    }
}
