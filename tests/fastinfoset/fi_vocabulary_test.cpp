#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;

namespace {

using Parts = CFIVocabulary::CQNameParts;

void ExpectParts(const Parts& parts, unsigned long prefix, unsigned long namespaceName, unsigned long localName)
{
    EXPECT_EQ(prefix, parts.prefix);
    EXPECT_EQ(namespaceName, parts.namespaceName);
    EXPECT_EQ(localName, parts.localName);
}

} // namespace

TEST(FIVocabulary, DefaultContent)
{
    CFIVocabulary vocabulary;
    ASSERT_EQ(1u, vocabulary.GetPrefixNamesTable().size());
    EXPECT_EQ("xml", vocabulary.GetPrefixNamesTable()[0]);
    ASSERT_EQ(1u, vocabulary.GetNamespaceNamesTable().size());
    EXPECT_EQ("http://www.w3.org/XML/1998/namespace", vocabulary.GetNamespaceNamesTable()[0]);
    unsigned long index = 99;
    EXPECT_TRUE(vocabulary.FindPrefixNameIndex("xml", index));
    EXPECT_EQ(1u, index);
    EXPECT_TRUE(vocabulary.FindNamespaceNameIndex("http://www.w3.org/XML/1998/namespace", index));
    EXPECT_EQ(1u, index);

    index = 99;
    EXPECT_FALSE(vocabulary.FindLocalNameIndex("xml", index));
    EXPECT_EQ(99u, index);
    const std::vector<std::string> alphabets{"0123456789-+.e ", "0123456789-:TZ "};
    EXPECT_EQ(alphabets, vocabulary.GetRestrictedAlphabets());
}

TEST(FIVocabulary, AddedNamesTakeTheNextIndexes)
{
    CFIVocabulary vocabulary;
    vocabulary.AddPrefixName("p");
    vocabulary.AddLocalName("name");
    unsigned long index = 0;
    EXPECT_TRUE(vocabulary.FindPrefixNameIndex("p", index));
    EXPECT_EQ(2u, index);
    EXPECT_TRUE(vocabulary.FindLocalNameIndex("name", index));
    EXPECT_EQ(1u, index);
}

TEST(FIVocabulary, RepeatedValueStaysOnceInTheMapButTwiceInTheTable)
{
    CFIVocabulary vocabulary;
    vocabulary.AddLocalName("a");
    vocabulary.AddLocalName("b");
    vocabulary.AddLocalName("a");
    EXPECT_EQ(2u, vocabulary.GetLocalNamesMap().size());
    EXPECT_EQ(3u, vocabulary.GetLocalNamesTable().size());
    unsigned long index = 0;
    EXPECT_TRUE(vocabulary.FindLocalNameIndex("a", index));
    EXPECT_EQ(1u, index);

    vocabulary.AddElementValue("text");
    vocabulary.AddAttributeValue("value");
    EXPECT_EQ(1u, vocabulary.GetCharacterChunksMap().at("text"));
    EXPECT_EQ("text", vocabulary.GetCharacterChunksTable()[0]);
    EXPECT_EQ(1u, vocabulary.GetAttributeValuesMap().at("value"));
    EXPECT_EQ("value", vocabulary.GetAttributeValuesTable()[0]);
}

TEST(FIVocabulary, QualifiedNamesShareTheirParts)
{
    CFIVocabulary vocabulary;
    vocabulary.AddElement("p", "urn:x", "e");
    vocabulary.AddElement("p", "urn:x", "e");
    ASSERT_EQ(1u, vocabulary.GetElementNamesTable().size());
    EXPECT_EQ(2u, vocabulary.GetPrefixNamesTable().size());
    EXPECT_EQ(2u, vocabulary.GetNamespaceNamesTable().size());
    EXPECT_EQ(1u, vocabulary.GetLocalNamesTable().size());
    ExpectParts(vocabulary.GetElementNamesTable()[0], 2, 2, 1);
    EXPECT_EQ(1u, vocabulary.GetElementNamesMap().at(std::string("e\x01urn:x\x01p")));
    EXPECT_EQ(std::string("e\x01urn:x\x01p"), CFIVocabulary::MakeQNameKey("p", "urn:x", "e"));

    // Another prefix is another name; the known namespace and local name are reused.
    vocabulary.AddElement("xml", "urn:x", "e");
    ASSERT_EQ(2u, vocabulary.GetElementNamesTable().size());
    ExpectParts(vocabulary.GetElementNamesTable()[1], 1, 2, 1);
    EXPECT_EQ(2u, vocabulary.GetElementNamesMap().size());

    // Empty prefix and namespace are index 0 and never enter their tables.
    vocabulary.AddElement("", "", "f");
    ExpectParts(vocabulary.GetElementNamesTable()[2], 0, 0, 2);
    EXPECT_EQ(2u, vocabulary.GetPrefixNamesTable().size());
    EXPECT_EQ(2u, vocabulary.GetNamespaceNamesTable().size());

    // Attributes have their own name table but share the string tables.
    vocabulary.AddAttribute("", "urn:x", "e");
    ASSERT_EQ(1u, vocabulary.GetAttributeNamesTable().size());
    ExpectParts(vocabulary.GetAttributeNamesTable()[0], 0, 2, 1);
    EXPECT_EQ(3u, vocabulary.GetElementNamesTable().size());
    EXPECT_EQ(2u, vocabulary.GetLocalNamesTable().size());
}

TEST(FIVocabulary, TablesStopGrowingAtTwoToTheTwenty)
{
    CFIVocabulary vocabulary;
    const unsigned long limit = 0x100000;

    // Sorted keys fill the map in linear time.
    CFIVocabulary::CFIIndexMap map;
    char key[16];
    for (unsigned long i = 1; i < limit; ++i) {
        std::snprintf(key, sizeof key, "%08lu", i);
        map.emplace_hint(map.end(), key, i);
    }
    vocabulary.AddValueToMap("last", map);
    ASSERT_EQ(limit, map.size());
    EXPECT_EQ(limit, map.at("last"));
    vocabulary.AddValueToMap("beyond", map);
    EXPECT_EQ(limit, map.size());
    EXPECT_EQ(0u, map.count("beyond"));

    CFIVocabulary::CFIStringTable strings;
    for (unsigned long i = 1; i < limit; ++i)
        strings.push_back(std::string());
    vocabulary.AddValueToVector("last", strings);
    vocabulary.AddValueToVector("beyond", strings);
    ASSERT_EQ(limit, strings.size());
    EXPECT_EQ("last", strings[limit - 1]);

    CFIVocabulary::CFIQNameTable names;
    for (unsigned long i = 1; i < limit; ++i)
        names.push_back(Parts());
    vocabulary.AddQNameToVector(1, 2, 3, names);
    vocabulary.AddQNameToVector(4, 5, 6, names);
    ASSERT_EQ(limit, names.size());
    ExpectParts(names[limit - 1], 1, 2, 3);
}

TEST(FIVocabulary, CopyIsDeep)
{
    CFIVocabulary source;
    source.AddElement("p", "urn:x", "e");
    CFIVocabulary copy(source);
    copy.AddElement("q", "urn:y", "f");
    copy.AddElementValue("text");
    EXPECT_EQ(1u, source.GetElementNamesTable().size());
    EXPECT_EQ(1u, source.GetElementNamesMap().size());
    EXPECT_EQ(2u, source.GetPrefixNamesMap().size());
    EXPECT_TRUE(source.GetCharacterChunksTable().empty());
    EXPECT_EQ(2u, copy.GetElementNamesTable().size());
}
