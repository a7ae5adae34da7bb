#include <gtest/gtest.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TestObjects.h"

using namespace NxXmlLib9;

namespace {

bool Valid(const char* uri, const char* specification, const char* target)
{
    return CXmlObjectHelper::IsNamespaceValid(uri, specification, target);
}

// Parses a document and keeps it alive for the elements handed out.
struct Parsed {
    explicit Parsed(const char* xml, const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext)
        : document(context)
    {
        document.LoadXml(xml);
    }
    CXmlElement* Root() const { return document.GetDocumentElement(); }
    CXmlElement* Child(int index) const
    {
        CXmlElement* child = Root()->GetFirstElement();
        while (index-- > 0)
            child = child->GetNextSiblingElement();
        return child;
    }
    CXmlDocument document;
};

} // namespace

TEST(NamespaceWildcard, Keywords)
{
    EXPECT_TRUE(Valid("urn:x", "##any", "urn:t"));
    EXPECT_TRUE(Valid("", "##any", ""));

    EXPECT_TRUE(Valid("urn:x", "##other", "urn:t"));
    EXPECT_FALSE(Valid("urn:t", "##other", "urn:t"));
    EXPECT_FALSE(Valid("", "##other", ""));
    EXPECT_TRUE(Valid("", "##other", "urn:t"));

    EXPECT_TRUE(Valid("", "##local", "urn:t"));
    EXPECT_FALSE(Valid("urn:x", "##local", "urn:t"));
    EXPECT_FALSE(Valid("urn:t", "##local", "urn:t"));

    EXPECT_TRUE(Valid("urn:t", "##targetNamespace", "urn:t"));
    EXPECT_FALSE(Valid("urn:x", "##targetNamespace", "urn:t"));
    // Unlike a URI token, the target namespace keyword does not admit the
    // empty namespace.
    EXPECT_FALSE(Valid("", "##targetNamespace", "urn:t"));
}

TEST(NamespaceWildcard, SingleUriAdmitsItselfAndTheEmptyNamespace)
{
    EXPECT_TRUE(Valid("urn:a", "urn:a", "urn:t"));
    EXPECT_FALSE(Valid("urn:b", "urn:a", "urn:t"));
    EXPECT_TRUE(Valid("", "urn:a", "urn:t"));
    // Comparison is exact: no prefix or case folding.
    EXPECT_FALSE(Valid("urn:A", "urn:a", ""));
    EXPECT_FALSE(Valid("urn:a", "urn:ab", ""));
    // The empty specification is one empty token.
    EXPECT_TRUE(Valid("", "", "urn:t"));
    EXPECT_FALSE(Valid("urn:t", "", "urn:t"));
}

TEST(NamespaceWildcard, ListIsDecidedByItsFirstTokenAndTheEmptyTokenRule)
{
    // First token decides when it admits.
    EXPECT_TRUE(Valid("urn:x", "##other urn:a", "urn:t"));
    EXPECT_TRUE(Valid("urn:t", "##targetNamespace urn:a", "urn:t"));
    // Later tokens are never weighed on their own: a list that names a URI
    // second does not admit it, and the answer is false rather than a hang.
    EXPECT_FALSE(Valid("urn:a", "##targetNamespace urn:a", "urn:t"));
    EXPECT_FALSE(Valid("urn:b", "urn:a urn:b", ""));
    // A first URI token compares with the whole list text, not with itself.
    EXPECT_FALSE(Valid("urn:a", "urn:a urn:b", ""));
    EXPECT_TRUE(Valid("urn:a urn:b", "urn:a urn:b", ""));
    // Any list admits the empty namespace, even behind ##other with an
    // empty target namespace, which alone refuses it.
    EXPECT_TRUE(Valid("", "##other ##local", ""));
    EXPECT_TRUE(Valid("", "##targetNamespace urn:a", "urn:t"));
    // A leading blank makes the first token empty.
    EXPECT_TRUE(Valid("", " urn:a", ""));
    EXPECT_FALSE(Valid("urn:a", " urn:a", ""));
}

TEST(NamespaceWildcard, TestNamespaceThrowsWithTheThreeTexts)
{
    EXPECT_NO_THROW(CXmlObjectHelper::TestNamespace("urn:x", "##any", ""));
    ExpectFailure<CNxInvalidNamespaceException>(
        [] { CXmlObjectHelper::TestNamespace("urn:x", "##local urn:y", "urn:t"); },
        "Invalid namespace [urn:x]. The namespace must be one of [##local urn:y] where the target namespace is "
        "[urn:t]");
}

TEST(NamespaceWildcard, ObjectForwardersTakeNullAsEmpty)
{
    CSmartPtr<NxTest::CountedObject> object(new NxTest::CountedObject);
    EXPECT_TRUE(object->IsNamespaceValid(nullptr, "##local", nullptr));
    EXPECT_FALSE(object->IsNamespaceValid("urn:a", "##local", ""));
    EXPECT_NO_THROW(object->TestNamespace("urn:t", "##targetNamespace", "urn:t"));
    ExpectFailure<CNxInvalidNamespaceException>(
        [&] { object->TestNamespace("urn:a", "##other", "urn:a"); },
        "Invalid namespace [urn:a]. The namespace must be one of [##other] where the target namespace is [urn:a]");
}

TEST(ElementNameMatch, NameAndNamespaceUnlessTheContextIgnoresNamespaces)
{
    Parsed doc("<r xmlns='urn:r'><item/><Item/><item xmlns='urn:o'/></r>");
    CXmlSerializationContext context;
    EXPECT_TRUE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(0), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(1), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(2), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(0), "item", ""));

    context.SetIgnoreNamespaces(true);
    EXPECT_TRUE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(2), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(context, doc.Child(1), "item", "urn:r"));

    // A namespace-free schema compares the local name alone, whatever the
    // ignore option says.
    CXmlSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaTypeNoNamespaces);
    EXPECT_TRUE(CXmlObjectHelper::DoesElementNameMatch(noNamespaces, doc.Child(2), "item", "urn:r"));
    EXPECT_FALSE(CXmlObjectHelper::DoesElementNameMatch(noNamespaces, doc.Child(1), "item", "urn:r"));

    CSmartPtr<NxTest::CountedObject> object(new NxTest::CountedObject);
    EXPECT_TRUE(object->DoesElementNameMatch(context, doc.Child(0), "item", nullptr));
    EXPECT_FALSE(object->DoesElementNameMatch(CXmlSerializationContext(), doc.Child(0), "item", nullptr));
}

TEST(ClassFactory, TypeNameIsWhatFollowsTheFirstColon)
{
    Parsed doc("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:p='urn:p'>"
               "<a xsi:type='p:Derived'/><b xsi:type='Plain'/><c xsi:type='p:x:y'/><d/>"
               "<e type='p:NotSchemaInstance'/></r>");
    EXPECT_EQ(CClassfactoryBase::GetElementType(doc.Child(0)), "Derived");
    EXPECT_EQ(CClassfactoryBase::GetElementType(doc.Child(1)), "Plain");
    EXPECT_EQ(CClassfactoryBase::GetElementType(doc.Child(2)), "x:y");
    EXPECT_EQ(CClassfactoryBase::GetElementType(doc.Child(3)), "");
    EXPECT_EQ(CClassfactoryBase::GetElementType(doc.Child(4)), "");
}

TEST(ClassFactory, TypeNamespaceResolvesThePrefixOrFallsBackOnTheElementsOwn)
{
    Parsed doc("<r xmlns='urn:default' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:p='urn:p'>"
               "<a xsi:type='p:Derived'/><b xsi:type='Plain'/><c xsi:type='q:Undeclared'/><d/>"
               "<e xmlns='urn:e' xsi:type='Plain'/></r>");
    EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(doc.Child(0)), "urn:p");
    // Without a prefix the element's own namespace is taken; here that is
    // the default namespace only because the element stands in it.
    EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(doc.Child(1)), "urn:default");
    EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(doc.Child(2)), "urn:default");
    EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(doc.Child(3)), "urn:default");
    EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(doc.Child(4)), "urn:e");
}

TEST(ClassFactory, NamespaceFreeSchemaKeepsTheTypeValueAsWritten)
{
    // In namespace-free mode the xsi:type attribute is not in the schema
    // instance namespace, so no type is found and the element's own (empty)
    // namespace is the answer.
    CXmlSerializationContext context;
    context.SetSchemaType(SchemaTypeNoNamespaces);
    Parsed doc("<r xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'><a xsi:type='Derived'/></r>", context);
    EXPECT_EQ(CClassfactoryBase::GetElementType(doc.Child(0)), "");
    EXPECT_EQ(CClassfactoryBase::GetElementTypeNamespaceUri(doc.Child(0)), "");
}
