#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NxXmlLib9.h"
#include "RegisterVersion.h"

using namespace NxXmlLib9;

namespace {

// The smallest primitive collection: it keeps the texts it is given.
class TextCollection : public CXmlTypeCollection {
public:
    TextCollection()
        : CXmlTypeCollection(ItemTypeString, "Phone", "urn:p", 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr,
                             nullptr, -1, CWhitespaceUtils::WhitespaceRuleCollapse, nullptr)
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

} // namespace

TEST(TypeCollection, ReadsTheRunOfMatchingSiblingsAndStopsAtTheFirstOther)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:p'><Phone>1</Phone><Phone> 2 </Phone><Fax>3</Fax><Phone>4</Phone></r>");
    const CXmlSerializationContext& context = CXmlSerializationContext::m_defaultContext;
    CSmartPtr<TextCollection> phones(new TextCollection);
    CXmlElement* rest = phones->Read(document.GetDocumentElement()->GetFirstElement(), context);
    ASSERT_NE(rest, nullptr);
    EXPECT_EQ(rest->GetLocalName(), "Fax");
    // The text goes to AddFromString as it stands.
    EXPECT_EQ(phones->texts, (std::vector<std::string>{"1", " 2 "}));
    EXPECT_EQ(phones->Read(rest->GetNextSiblingElement(), context), nullptr);
    EXPECT_EQ(phones->texts.size(), 3u);
    EXPECT_EQ(phones->Read(nullptr, context), nullptr);
}

TEST(TypeCollection, NamespaceDecidesUnlessTheSchemaIsNamespaceFree)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns='urn:other'><Phone>1</Phone></r>");
    CXmlElement* first = document.GetDocumentElement()->GetFirstElement();
    CSmartPtr<TextCollection> phones(new TextCollection);
    EXPECT_EQ(phones->Read(first, CXmlSerializationContext::m_defaultContext), first);
    EXPECT_TRUE(phones->texts.empty());
    CXmlSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaTypeNoNamespaces);
    EXPECT_EQ(phones->Read(first, noNamespaces), nullptr);
    EXPECT_EQ(phones->texts, (std::vector<std::string>{"1"}));
}
