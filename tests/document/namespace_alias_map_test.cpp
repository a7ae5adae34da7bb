#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "ExpectFailure.h"
#include "NxXmlLib9.h"

using namespace NxXmlLib9;

TEST(NamespaceAliasMap, OrderIsByUriNotInsertionNorAlias)
{
    CNamespaceAliasMap map;
    EXPECT_EQ(0, map.GetNamespaceCount());
    EXPECT_FALSE(map.DoesAliasExist("xml"));
    map.Add("a", "urn:c");
    map.Add("z", "urn:a");
    map.Add("m", "urn:b");

    ASSERT_EQ(3, map.GetNamespaceCount());
    EXPECT_EQ("urn:a", map.GetNamespaceAt(0));
    EXPECT_EQ("urn:b", map.GetNamespaceAt(1));
    EXPECT_EQ("urn:c", map.GetNamespaceAt(2));
    EXPECT_EQ("urn:a", map.GetNamespaceAt(-4));
    EXPECT_EQ("", map.GetNamespaceAt(3));

    std::vector<std::pair<std::string, std::string>> entries(map.begin(), map.end());
    std::vector<std::pair<std::string, std::string>> expected{{"urn:a", "z"}, {"urn:b", "m"}, {"urn:c", "a"}};
    EXPECT_EQ(expected, entries);
}

TEST(NamespaceAliasMap, AUriKeepsItsLastAliasAndAnAliasFindsItsLowestUri)
{
    CNamespaceAliasMap map;
    map.Add("first", "urn:x");
    map.Add("second", "urn:x");
    EXPECT_EQ("second", map.GetAliasFromNamespace("urn:x"));
    EXPECT_FALSE(map.DoesAliasExist("first"));
    map.Add("p", "urn:z");
    map.Add("p", "urn:b");
    map.Add("", "urn:q");
    map.Add("", "urn:r");
    EXPECT_EQ(5, map.GetNamespaceCount());
    EXPECT_EQ("urn:b", map.GetNamespaceFromAlias("p"));
    EXPECT_EQ("urn:q", map.GetNamespaceFromAlias(""));
    EXPECT_TRUE(map.DoesAliasExist("p"));
    EXPECT_TRUE(map.DoesNamespaceExist("urn:z"));
    EXPECT_FALSE(map.DoesNamespaceExist("p"));
    // An unknown alias fails and changes nothing.
    ExpectFailure<CNxException>([&] { map.GetNamespaceFromAlias("urn:p"); }, "Namespace alias [urn:p] not found");
    EXPECT_EQ(5, map.GetNamespaceCount());
}

TEST(NamespaceAliasMap, AliasOfUnknownUriIsEmptyAndEntersTheUri)
{
    CNamespaceAliasMap map;
    map.Add("p", "urn:p");
    const CNamespaceAliasMap& constant = map;
    EXPECT_EQ("", constant.GetAliasFromNamespace("urn:new"));
    EXPECT_EQ(2, constant.GetNamespaceCount());
    EXPECT_TRUE(constant.DoesNamespaceExist("urn:new"));
    EXPECT_EQ("urn:new", constant.GetNamespaceFromAlias(""));
}

TEST(NamespaceAliasMap, RemoveNamespace)
{
    CNamespaceAliasMap map;
    map.Add("a", "urn:a");
    map.Add("b", "urn:b");
    map.RemoveNamespace("urn:unknown");
    map.RemoveNamespace("a");
    EXPECT_EQ(2, map.GetNamespaceCount());
    map.RemoveNamespace("urn:a");
    EXPECT_EQ(1, map.GetNamespaceCount());
    EXPECT_EQ("urn:b", map.GetNamespaceAt(0));
    EXPECT_FALSE(map.DoesAliasExist("a"));
}
