// The common step of the text readers of the value classes: the whitespace
// rule first, then the value class's own parser, whose failures pass through
// unchanged.
#pragma once

#include <string>

#include "NxConversions.h"

namespace NxXmlLib9 {

// value, filled by its member parse from the text after the rule.
template <class T, class Parse>
T ParseAfterRule(T value, Parse parse, const std::string& input, CWhitespaceUtils::WhitespaceRule rule)
{
    const std::string text = CWhitespaceUtils::ApplyRule(rule, input);
    (value.*parse)(text.c_str());
    return value;
}

} // namespace NxXmlLib9
