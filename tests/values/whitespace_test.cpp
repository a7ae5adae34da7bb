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

// Replace turns separators into blanks, collapse joins runs and trims; both
// drop carriage returns, and a return between blanks does not end the run.
TEST(WhitespaceTest, ReplaceAndCollapse)
{
    const struct {
        const char* text;
        const char* replaced;
        const char* collapsed;
    } cases[] = {
        {"a\r\nb", "a b", "a b"},       {"\t a\n\tb\r ", "  a  b ", "a b"}, {"a\rb", "ab", "ab"},
        {"", "", ""},                   {"  a  b  ", "  a  b  ", "a b"},    {"a \r b", "a  b", "a b"},
        {"\t\na\t\t\n b\r\n\rc\n", "  a    b c ", "a b c"},                  {"\r", "", ""},
        {" \t\r\n ", "    ", ""},      {"x", "x", "x"},                     {"a \r\r b \r", "a  b ", "a b"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.replaced, WS::Replace(c.text)) << "[" << c.text << "]";
        EXPECT_EQ(c.collapsed, WS::Collapse(c.text)) << "[" << c.text << "]";
    }
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
