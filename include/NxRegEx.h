// Matching of XML Schema patterns.
#pragma once

#include <string>

namespace NxXmlLib9 {

// True when the whole value matches the XSD pattern. The pattern is UTF-8;
// the value is text in the local code page and is matched by code point.
//
// The schema's multi-character escapes (\i \I \c \C) and the Latin block
// names (\p{IsBasicLatin}, \p{IsLatin-1Supplement}, \p{IsLatinExtended-A},
// \p{IsLatinExtended-B}) are rewritten by plain text replacement before the
// regular expression engine sees the pattern, so inside a character class
// they take a different meaning. The match is anchored at the start and must
// then end exactly at the end of the value: the first alternative that
// matches a prefix wins, so 'a|ab' does not match "ab" while 'ab|a' does.
//
// A pattern the engine cannot compile ends the process abnormally; there is
// no failure to catch. Every call compiles the pattern afresh.
bool TestRegEx(std::string pattern, std::string value);

} // namespace NxXmlLib9
