// The whitespace facet. Each transformation is one pass over the text into
// a result reserved up front, so all of them are linear.
#include "NxConversions.h"

#include <cstring>

namespace NxXmlLib9 {

namespace {

const char kCarriageReturn = '\r';

// Blank, tab and line feed: the white space that survives as a blank.
// Carriage returns are handled apart because they always vanish.
inline bool IsSeparator(char c)
{
    return c == ' ' || c == '\t' || c == '\n';
}

// True when collapsing would give the text back unchanged: no tab, line
// feed or carriage return, and blanks only single and inside. Most values
// are like that, and are then copied once instead of rebuilt.
bool AlreadyCollapsed(const std::string& text)
{
    if (!text.empty() && (text.front() == ' ' || text.back() == ' '))
        return false;
    char previous = 0;
    for (char c : text) {
        if (c == '\t' || c == '\n' || c == kCarriageReturn || (c == ' ' && previous == ' '))
            return false;
        previous = c;
    }
    return true;
}

} // namespace

bool CWhitespaceUtils::IsWhiteSpace(char c)
{
    return IsSeparator(c) || c == kCarriageReturn;
}

std::string CWhitespaceUtils::Preserve(const char* text, int length)
{
    if (text == nullptr)
        return std::string();
    const size_t size = length < 0 ? std::strlen(text) : static_cast<size_t>(length);
    std::string result;
    result.reserve(size);
    for (size_t i = 0; i < size; ++i) {
        if (text[i] != kCarriageReturn)
            result += text[i];
    }
    return result;
}

std::string CWhitespaceUtils::Preserve(const std::string& text)
{
    if (text.find(kCarriageReturn) == std::string::npos)
        return text;
    std::string result;
    result.reserve(text.size());
    for (char c : text) {
        if (c != kCarriageReturn)
            result += c;
    }
    return result;
}

std::string CWhitespaceUtils::Replace(const std::string& text)
{
    std::string result;
    result.reserve(text.size());
    for (char c : text) {
        if (c == kCarriageReturn)
            continue;
        result += IsSeparator(c) ? ' ' : c;
    }
    return result;
}

std::string CWhitespaceUtils::Collapse(const std::string& text)
{
    if (AlreadyCollapsed(text))
        return text;
    std::string result;
    result.reserve(text.size());
    // Starts set so that leading white space writes nothing. A carriage
    // return leaves it alone: "a\rb" stays one word.
    bool lastWasBlank = true;
    for (char c : text) {
        if (c == kCarriageReturn)
            continue;
        if (IsSeparator(c)) {
            if (!lastWasBlank) {
                result += ' ';
                lastWasBlank = true;
            }
        } else {
            result += c;
            lastWasBlank = false;
        }
    }
    if (!result.empty() && result.back() == ' ')
        result.pop_back();
    return result;
}

std::string CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const std::string& text)
{
    switch (rule) {
    case WhitespaceRuleNone:
        return text;
    case WhitespaceRulePreserve:
        return Preserve(text);
    case WhitespaceRuleReplace:
        return Replace(text);
    case WhitespaceRuleCollapse:
        return Collapse(text);
    }
    throw CNxException("Unknown WhitespaceRule");
}

} // namespace NxXmlLib9
