#include <gtest/gtest.h>

#include <utility>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;

using Encoding = CFastInfosetContext::EncodedCharacterString;

TEST(FastInfosetContext, Defaults)
{
    CFastInfosetContext context;
    for (unsigned long item = 0; item < 29; ++item) {
        EXPECT_EQ(CFastInfosetContext::EncodingDefault, context.GetEncoding(item).kind) << item;
        EXPECT_EQ(0u, context.GetEncoding(item).index) << item;
    }
    EXPECT_EQ(6u, context.GetAttributeMaxAddLength());
    EXPECT_EQ(6u, context.GetElementMaxAddLength());
}

TEST(FastInfosetContext, SuggestedValuesSetTheirTypesOnly)
{
    CFastInfosetContext context;
    const Encoding marker{CFastInfosetContext::EncodingAlgorithm, 9};
    for (unsigned long item : {0, 22, 23, 27, 28, 5})
        context.SetEncoding(item, marker);
    context.SetSuggestedValues();

    // {kind, index} per item type 0..28; 9/9 marks "kept as it was".
    const std::pair<int, unsigned long> expected[29] = {
        {2, 9}, {2, 1}, {2, 2}, {2, 3}, {2, 3}, {2, 4}, {2, 5}, {2, 3}, {2, 4}, {2, 5},
        {2, 5}, {2, 7}, {2, 8}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2},
        {1, 2}, {1, 2}, {2, 9}, {2, 9}, {2, 6}, {1, 1}, {1, 1}, {2, 9}, {2, 9}};
    for (unsigned long item = 0; item < 29; ++item) {
        EXPECT_EQ(expected[item].first, context.GetEncoding(item).kind) << item;
        EXPECT_EQ(expected[item].second, context.GetEncoding(item).index) << item;
    }
}

TEST(FastInfosetContext, EncodingOutsideTheItemTypesIsIgnored)
{
    CFastInfosetContext context;
    context.SetEncoding(29, Encoding{CFastInfosetContext::EncodingAlgorithm, 4});
    context.SetEncoding(ItemTypeString, Encoding{CFastInfosetContext::EncodingRestrictedAlphabet, 1});
    EXPECT_EQ(CFastInfosetContext::EncodingDefault, context.GetEncoding(29).kind);
    EXPECT_EQ(CFastInfosetContext::EncodingDefault, context.GetEncoding(ItemTypeXmlCollection).kind);
    EXPECT_EQ(CFastInfosetContext::EncodingRestrictedAlphabet, context.GetEncoding(ItemTypeString).kind);
}

TEST(FastInfosetContext, DeclarationTexts)
{
    EXPECT_EQ(9, FInfoDeclVersion11StandaloneNo);
    EXPECT_STREQ("<?xml encoding='finf'?>", FI_DECLARATION_LIST[FInfoDeclEncoding - 1]);
    EXPECT_STREQ("<?xml encoding='finf' standalone='no'?>", FI_DECLARATION_LIST[FInfoDeclEncodingStandaloneNo - 1]);
    EXPECT_STREQ("<?xml version='1.0' encoding='finf' standalone='yes'?>",
                 FI_DECLARATION_LIST[FInfoDeclVersion10StandaloneYes - 1]);
    EXPECT_STREQ("<?xml version='1.1' encoding='finf' standalone='no'?>",
                 FI_DECLARATION_LIST[FInfoDeclVersion11StandaloneNo - 1]);
}
