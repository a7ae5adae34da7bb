#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;

namespace {

// The smallest primitive collection: it keeps the texts it is given.
class TextCollection : public CXmlTypeCollection {
public:
    TextCollection(const char* name, const char* namespaceUri)
        : CXmlTypeCollection(ItemTypeString, name, namespaceUri, 0, -1, "[a-z]*", 1, 9, nullptr, nullptr, nullptr,
                             nullptr, -1, CWhitespaceUtils::WhitespaceRuleCollapse, "%g")
    {
    }
    int GetCount() const override { return static_cast<int>(texts.size()); }
    void Clear() override { texts.clear(); }
    void Remove(int index) override { texts.erase(texts.begin() + index); }
    void AddFromString(std::string text) override { texts.push_back(std::move(text)); }

    CXmlElement* Read(CXmlElement* cursor, const CXmlSerializationContext& context)
    {
        return FromXml_Int(nullptr, cursor, context, false);
    }

    std::vector<std::string> texts;

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
};

struct VersionRegistration {
    VersionRegistration() { RegisterGeneratorVersion(9, 0); }
} registerVersion;

} // namespace

TEST(TypeCollection, ConstructorFillsTheFacetsInOrder)
{
    static const char format[] = "%g";
    CSmartPtr<TextCollection> collection(new TextCollection("Phone", "urn:p"));
    EXPECT_EQ(collection->GetElementName(), "Phone");
    EXPECT_EQ(collection->GetNamespace(), "urn:p");
    EXPECT_EQ(collection->GetItemType(), ItemTypeString);
    EXPECT_EQ(collection->GetWhitespaceRule(), CWhitespaceUtils::WhitespaceRuleCollapse);
    EXPECT_STREQ(collection->GetFormat(), format);
    const CPrimitiveRestrictions& facets = collection->GetRestrictions();
    EXPECT_EQ(facets.Pattern, "[a-z]*");
    EXPECT_EQ(facets.MinLength, 1);
    EXPECT_EQ(facets.MaxLength, 9);
    EXPECT_EQ(facets.MinInclusive, "");
    EXPECT_EQ(facets.Length, -1);
}

TEST(TypeCollection, ReadsTheRunOfMatchingSiblingsAndStopsAtTheFirstOther)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:p'><Phone>1</Phone><Phone> 2 </Phone><Fax>3</Fax><Phone>4</Phone></r>");
    CXmlElement* first = document.GetDocumentElement()->GetFirstElement();
    CSmartPtr<TextCollection> phones(new TextCollection("Phone", "urn:p"));
    CXmlElement* rest = phones->Read(first, CXmlSerializationContext::m_defaultContext);
    ASSERT_NE(rest, nullptr);
    EXPECT_EQ(rest->GetLocalName(), "Fax");
    // The text goes to AddFromString as it stands; the rule is the
    // conversion's business.
    EXPECT_EQ(phones->texts, (std::vector<std::string>{"1", " 2 "}));
    // The last run ends with the siblings.
    EXPECT_EQ(phones->Read(rest->GetNextSiblingElement(), CXmlSerializationContext::m_defaultContext), nullptr);
    EXPECT_EQ(phones->texts.size(), 3u);
    EXPECT_EQ(phones->Read(nullptr, CXmlSerializationContext::m_defaultContext), nullptr);
}

TEST(TypeCollection, NamespaceDecidesUnlessTheSchemaIsNamespaceFree)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:other'><Phone>1</Phone></r>");
    CXmlElement* first = document.GetDocumentElement()->GetFirstElement();
    CSmartPtr<TextCollection> phones(new TextCollection("Phone", "urn:p"));
    EXPECT_EQ(phones->Read(first, CXmlSerializationContext::m_defaultContext), first);
    EXPECT_TRUE(phones->texts.empty());

    CXmlSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaTypeNoNamespaces);
    EXPECT_EQ(phones->Read(first, noNamespaces), nullptr);
    EXPECT_EQ(phones->texts, (std::vector<std::string>{"1"}));
}
