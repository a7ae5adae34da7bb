#include <gtest/gtest.h>

#include "NxXmlLib9.h"

using namespace NxXmlLib9;
using WS = CWhitespaceUtils;

TEST(WhitespaceTest, IsWhiteSpaceKnowsExactlyFourBytes)
{
    for (int c = -128; c < 128; ++c) {
        const bool expected = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        EXPECT_EQ(expected, WS::IsWhiteSpace(static_cast<char>(c))) << c;
    }
}

TEST(WhitespaceTest, PreserveDropsOnlyCarriageReturns)
{
    EXPECT_EQ(" a\t\n b ", WS::Preserve(std::string(" a\r\t\r\n b \r")));
    EXPECT_EQ("", WS::Preserve(std::string("\r\r")));
    const std::string withZero("a\0\rb", 4);
    EXPECT_EQ(std::string("a\0b", 3), WS::Preserve(withZero));
}

TEST(WhitespaceTest, PreserveOfBufferHonoursLength)
{
    EXPECT_EQ("a b", WS::Preserve("a\r bcd", 4));
    EXPECT_EQ("", WS::Preserve("abc", 0));
    EXPECT_EQ("", WS::Preserve(nullptr, 5));
    EXPECT_EQ("ab", WS::Preserve("a\rb", -1));
}

TEST(WhitespaceTest, ReplaceTurnsSeparatorsIntoBlanksAndDropsReturns)
{
    EXPECT_EQ("a b", WS::Replace("a\r\nb"));
    EXPECT_EQ("  a  b ", WS::Replace("\t a\n\tb\r "));
    EXPECT_EQ("ab", WS::Replace("a\rb"));
    EXPECT_EQ("", WS::Replace(""));
}

TEST(WhitespaceTest, CollapseJoinsRunsAndTrims)
{
    EXPECT_EQ("a b", WS::Collapse("  a  b  "));
    EXPECT_EQ("ab", WS::Collapse("a\rb"));
    EXPECT_EQ("a b", WS::Collapse("a \r b"));
    EXPECT_EQ("a b c", WS::Collapse("\t\na\t\t\n b\r\n\rc\n"));
    EXPECT_EQ("", WS::Collapse("\r"));
    EXPECT_EQ("", WS::Collapse(" \t\r\n "));
    EXPECT_EQ("", WS::Collapse(""));
    EXPECT_EQ("x", WS::Collapse("x"));
    // A return between blanks does not end the run of blanks.
    EXPECT_EQ("a b", WS::Collapse("a \r\r b \r"));
}

TEST(WhitespaceTest, ApplyRuleDispatchesAndRejectsUnknownRules)
{
    const std::string text = " a\r\n\tb ";
    EXPECT_EQ(text, WS::ApplyRule(WS::WhitespaceRuleNone, text));
    EXPECT_EQ(" a\n\tb ", WS::ApplyRule(WS::WhitespaceRulePreserve, text));
    EXPECT_EQ(" a  b ", WS::ApplyRule(WS::WhitespaceRuleReplace, text));
    EXPECT_EQ("a b", WS::ApplyRule(WS::WhitespaceRuleCollapse, text));
    EXPECT_EQ(3, static_cast<int>(WS::WhitespaceRuleCollapse));

    try {
        WS::ApplyRule(static_cast<WS::WhitespaceRule>(4), text);
        FAIL() << "no exception";
    } catch (const CNxValidationException&) {
        FAIL() << "wrong class";
    } catch (const CNxException& e) {
        EXPECT_EQ("Unknown WhitespaceRule", e.GetMessage());
    }
}
