#include <gtest/gtest.h>

#include "NxXmlLib9.h"
#include "ExpectFailure.h"

using namespace NxXmlLib9;

namespace {

const char* const UNKNOWN_FIRST_TEXT =
    "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, "
    "you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements "
    "to true";
const char* const MANDATORY_FIRST_TEXT =
    "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, "
    "you can not ignore both\nSet IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements "
    "to true";

} // namespace

TEST(SerializationContext, UnknownAndMissingMandatoryExcludeEachOther)
{
    CXmlSerializationContext context;
    context.SetIgnoreMissingMandatoryElements(true);
    ExpectFailure<CNxInvalidStateException>([&] { context.SetIgnoreUnknownElements(true); }, UNKNOWN_FIRST_TEXT);
    EXPECT_FALSE(context.GetIgnoreUnknownElements());
    EXPECT_NO_THROW(context.SetIgnoreUnknownElements(false));

    CXmlSerializationContext other;
    other.SetIgnoreUnknownElements(true);
    ExpectFailure<CNxInvalidStateException>([&] { other.SetIgnoreMissingMandatoryElements(true); },
                                            MANDATORY_FIRST_TEXT);
    EXPECT_FALSE(other.GetIgnoreMissingMandatoryElements());
    other.SetIgnoreUnknownElements(false);
    EXPECT_NO_THROW(other.SetIgnoreMissingMandatoryElements(true));
    EXPECT_TRUE(other.GetIgnoreMissingMandatoryElements());
}

TEST(SerializationContext, NoNamespacesSchemaImpliesIgnoreNamespaces)
{
    CXmlSerializationContext context;
    context.SetSchemaType(SchemaTypeNoNamespaces);
    EXPECT_TRUE(context.GetIgnoreNamespaces());
    context.SetSchemaType(SchemaTypeDefault);
    EXPECT_FALSE(context.GetIgnoreNamespaces());
    context.SetSchemaType(static_cast<SchemaType>(1));
    EXPECT_FALSE(context.GetIgnoreNamespaces());
    EXPECT_EQ(1, context.GetSchemaType());

    // The stored option is independent of the schema type.
    context.SetIgnoreNamespaces(true);
    context.SetSchemaType(SchemaTypeNoNamespaces);
    context.SetSchemaType(SchemaTypeDefault);
    EXPECT_TRUE(context.GetIgnoreNamespaces());
}

TEST(SerializationContext, CopyTakesEveryFieldAndIsDeep)
{
    CXmlSerializationContext source;
    source.SetDefaultNamespaceURI("urn:default");
    source.SetWriteTypeAttribute(false);
    source.GetNamespaceAliases().Add("a", "urn:a");
    source.GetProcessingInstructions().push_back("pi one");
    source.SetInLineSchema("<schema/>");
    source.SetIgnoreInvalidCollectionCounts(true);
    source.SetIgnoreMissingChoice(true);
    source.SetIgnoreUnknownElements(true);
    source.SetIgnoreUnknownAttributes(true);
    source.SetIgnoreNamespaces(true);
    source.SetSchemaType(static_cast<SchemaType>(7));
    source.SetNoOptionalAttributeDefaultOutput(true);
    source.GetFIContext().SetElementMaxAddLength(42);
    source.GetFIContext().GetVocabulary().AddLocalName("name");
    source.SetStripCDATA(false);

    CXmlSerializationContext copy(source);
    EXPECT_EQ("urn:default", copy.GetDefaultNamespaceURI());
    EXPECT_FALSE(copy.GetWriteTypeAttribute());
    EXPECT_EQ("a", copy.GetNamespaceAliases().GetAliasFromNamespace("urn:a"));
    ASSERT_EQ(1u, copy.GetProcessingInstructions().size());
    EXPECT_EQ("pi one", copy.GetProcessingInstructions()[0]);
    EXPECT_EQ("<schema/>", copy.GetInLineSchema());
    EXPECT_TRUE(copy.GetIgnoreInvalidCollectionCounts());
    EXPECT_TRUE(copy.GetIgnoreMissingChoice());
    EXPECT_TRUE(copy.GetIgnoreUnknownElements());
    EXPECT_FALSE(copy.GetIgnoreMissingMandatoryElements());
    EXPECT_TRUE(copy.GetIgnoreUnknownAttributes());
    EXPECT_TRUE(copy.GetIgnoreNamespaces());
    EXPECT_EQ(7, copy.GetSchemaType());
    EXPECT_TRUE(copy.GetNoOptionalAttributeDefaultOutput());
    EXPECT_EQ(42u, copy.GetFIContext().GetElementMaxAddLength());
    EXPECT_EQ(1u, copy.GetFIContext().GetVocabulary().GetLocalNamesTable().size());
    EXPECT_FALSE(copy.GetStripCDATA());

    copy.GetNamespaceAliases().Add("b", "urn:b");
    copy.GetProcessingInstructions().push_back("pi two");
    copy.GetFIContext().GetVocabulary().AddLocalName("other");
    EXPECT_EQ(1, source.GetNamespaceAliases().GetNamespaceCount());
    EXPECT_EQ(1u, source.GetProcessingInstructions().size());
    EXPECT_EQ(1u, source.GetFIContext().GetVocabulary().GetLocalNamesTable().size());

    CXmlSerializationContext assigned;
    assigned = source;
    EXPECT_EQ("urn:default", assigned.GetDefaultNamespaceURI());
    EXPECT_TRUE(assigned.GetIgnoreUnknownElements());
}

TEST(SerializationContext, NullTextsAreTakenAsEmpty)
{
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI("urn:x");
    context.SetInLineSchema("s");
    context.SetDefaultNamespaceURI(nullptr);
    context.SetInLineSchema(nullptr);
    EXPECT_EQ("", context.GetDefaultNamespaceURI());
    EXPECT_EQ("", context.GetInLineSchema());
}
