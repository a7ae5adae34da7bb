#include <gtest/gtest.h>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"
#include "TableClass.h"
#include "UntypedTestSupport.h"

using namespace NxXmlLib9;
using NxTest::Parsed;
using NxTest::Walks;

namespace {

// A generated root element "root", holding the content, when given, in an
// untyped collection record.
CSmartPtr<NxRoundTrip::TableClass> Root(CElementCol* content = nullptr)
{
    auto table = std::make_shared<NxRoundTrip::Table>(NxXmlLib9Data::XmlElementGroupType_Sequence);
    if (content)
        table->Add(new NxXmlLib9Data::CElementInfoSeqUntpdCol("c", "", 0));
    CSmartPtr<NxRoundTrip::TableClass> root(new NxRoundTrip::TableClass(table, "root"));
    if (content)
        root->props[0].SetXmlCollection(content);
    return root;
}
} // namespace

TEST(UntypedAttributeCol, DefaultNamespaceComesFromTheNamespaceOrAFirstUriToken)
{
    const char* cases[][3] = {{"", "urn:a urn:b", "urn:a"}, {"urn:n", "urn:a", "urn:n"}, {"", "##other urn:a", ""},
                              {"", "u#", ""},                {"", "u", ""},              {"", "ab", "ab"}};
    for (const auto& c : cases) {
        CSmartPtr<CAttributeCol> attributes(new CAttributeCol(c[0], c[1], "urn:t"));
        EXPECT_EQ(attributes->GetTargetNamespace(), c[2]) << c[1];
    }
}

TEST(UntypedAttributeCol, AddTestsTheNamespaceExceptForAnObject)
{
    CSmartPtr<CAttributeCol> attributes(new CAttributeCol("urn:a", "##targetNamespace", "urn:a"));
    EXPECT_EQ(attributes->Add("x")->GetValue(), "");
    EXPECT_EQ(attributes->Add("y", "2")->GetNamespace(), "urn:a");
    ExpectFailure<CNxInvalidNamespaceException>(
        [&] { attributes->Add("z", "3", "urn:b"); },
        "Invalid namespace [urn:b]. The namespace must be one of [##targetNamespace] where the target namespace "
        "is [urn:a]");
    attributes->Add(new CAttribute("z", "3", "urn:b"));
    ASSERT_EQ(attributes->GetCount(), 3);
    EXPECT_EQ(attributes->Item(2)->GetNamespace(), "urn:b");

    // The default taken from a list of URIs is then refused by that same
    // list, which admits only the empty namespace and its whole text.
    CSmartPtr<CAttributeCol> listed(new CAttributeCol("", "urn:a urn:b", ""));
    EXPECT_THROW(listed->Add("x"), CNxInvalidNamespaceException);
    EXPECT_EQ(listed->Add("y", "", "")->GetNamespace(), "");
}

TEST(UntypedAttributeCol, ReadingRefusesAnAttributeOutsideTheRestriction)
{
    Parsed doc("<r xmlns:o='urn:o' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' a='1' "
               "xsi:type='T' o:b='2'/>");
    CSmartPtr<CAttributeCol> any(new CAttributeCol("", "##any", ""));
    EXPECT_EQ(Walks::Read(any, doc.Root(), doc.Root()), doc.Root());
    // Nothing is skipped: the type attribute lands in the collection too.
    ASSERT_EQ(any->GetCount(), 3);
    EXPECT_EQ(any->Item(1)->GetName(), "type");
    EXPECT_EQ(any->Item(2)->GetNamespace(), "urn:o");

    CSmartPtr<CAttributeCol> local(new CAttributeCol("", "##local", ""));
    ExpectFailure<CNxInvalidNamespaceException>([&] { Walks::Read(local, doc.Root(), nullptr); },
                                                "Invalid Attribute [type]. The attributes namespace is "
                                                "Inappropriate.");
    EXPECT_EQ(local->GetCount(), 1);
}

TEST(UntypedElementCol, ConstructionAndAddByName)
{
    CSmartPtr<CElementCol> uriOnly(new CElementCol("", "urn:x", "urn:t", 0, -1));
    ExpectFailure<CNxInvalidStateException>([&] { uriOnly->Add("c"); },
                                            "A Namespace has not been set for this Collection");
    // The keyword itself becomes the namespace of elements added by name.
    CSmartPtr<CElementCol> keyword(new CElementCol("", "##any", "urn:t", 2, 3));
    EXPECT_EQ(keyword->Add("c")->GetNamespace(), "##any");
    EXPECT_EQ(keyword->GetNamespace(), "urn:t");
    // The bounds are ignored and the restriction is widened to any namespace.
    EXPECT_EQ(keyword->GetMinOccurs(), 0);
    EXPECT_EQ(keyword->GetMaxOccurs(), -1);
    EXPECT_EQ(keyword->GetNamespaceRestriction(), "##any");
    CSmartPtr<CElementCol> named(new CElementCol("urn:n", "##other", "urn:t", 0, -1));
    EXPECT_EQ(named->Add("c")->GetNamespace(), "urn:n");
    EXPECT_EQ(named->Add("d", "urn:t")->GetNamespace(), "urn:t");
    ExpectFailure<CNxInvalidNamespaceException>(
        [] { CElementCol bad("urn:t", "##other", "urn:t", 0, -1); },
        "Invalid namespace [urn:t]. The namespace must be one of [##other] where the target namespace is [urn:t]");

    // A clone keeps the source's default, even an empty one.
    EXPECT_THROW(uriOnly->Clone()->Add("c"), CNxInvalidStateException);
    CSmartPtr<CElementCol> clone = named->Clone();
    ASSERT_EQ(clone->GetCount(), 2);
    EXPECT_EQ(clone->Item(1)->GetNamespace(), "urn:t");
    EXPECT_EQ(clone->Add("e")->GetNamespace(), "urn:n");
}

TEST(UntypedElementCol, BoundsGivenAtConstructionAreNeverEnforced)
{
    CSmartPtr<CElementCol> bounded(new CElementCol("", "##any", "", 2, 3));
    CSmartPtr<NxRoundTrip::TableClass> root = Root(bounded);
    EXPECT_EQ(root->ToXml(false, false), "<root/>");
    for (int i = 0; i < 4; ++i)
        bounded->Add("c", "");
    EXPECT_EQ(root->ToXml(false, false), "<root><c/><c/><c/><c/></root>");
}

TEST(UntypedElementCol, ReadingALockedNameTakesOnlyThatRun)
{
    Parsed doc("<r xmlns='urn:r'><a>1</a><a x='y'>2</a><b/><a/></r>");
    CSmartPtr<CElementCol> elements(new CElementCol("urn:r", "##any", "urn:t", 0, -1));
    CXmlElement* rest = elements->FromXmlLockElementName_Int("a", "urn:r", doc.Root(),
                                                             doc.Root()->GetFirstElement(),
                                                             CXmlSerializationContext::m_defaultContext, false);
    ASSERT_NE(rest, nullptr);
    EXPECT_EQ(rest->GetLocalName(), "b");
    ASSERT_EQ(elements->GetCount(), 2);
    EXPECT_EQ(elements->Item(1)->GetText(), "2");
    EXPECT_EQ(elements->Item(1)->GetAttributes()->GetCount(), 1);
    EXPECT_EQ(elements->Item(1)->GetNamespaceRestriction(), "##any");
    // The namespace must match exactly as well.
    EXPECT_EQ(elements->FromXmlLockElementName_Int("b", "", doc.Root(), rest,
                                                   CXmlSerializationContext::m_defaultContext, false),
              rest);
    // The plain read takes every sibling up to the end.
    EXPECT_EQ(Walks::Read(elements, doc.Root(), rest), nullptr);
    EXPECT_EQ(elements->GetCount(), 4);
}

TEST(AdditionalRootAttributes, MadeOnFirstRequestAndSharedByLaterCopies)
{
    const CXmlSerializationContext source;
    CXmlSerializationContext earlyCopy(source);
    CSmartPtr<CAttributeCol> attributes = source.GetAdditionalRootAttributes();
    EXPECT_EQ(attributes->GetNamespace(), "");
    EXPECT_EQ(attributes->GetNamespaceRestriction(), "##any");

    CXmlSerializationContext copy(source);
    copy.GetAdditionalRootAttributes()->Add(
        "schemaLocation", "urn:r r.xsd", "http://www.w3.org/2001/XMLSchema-instance");
    CXmlSerializationContext assigned;
    assigned = source;
    assigned.GetAdditionalRootAttributes()->Add("extra", "1");

    CSmartPtr<NxRoundTrip::TableClass> root = Root();
    const std::string expected = "<root xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                 "AA:schemaLocation=\"urn:r r.xsd\" extra=\"1\"/>";
    EXPECT_EQ(root->ToXml(false, false, EOLTypeLF, source), expected);
    EXPECT_EQ(root->ToXml(false, false, EOLTypeLF, copy), expected);
    // A copy made before the first request has a collection of its own.
    EXPECT_EQ(root->ToXml(false, false, EOLTypeLF, earlyCopy), "<root/>");
}
