// The rewriting of an XSD pattern into the regular expression syntax of the
// engine, apart from its compilation so that it can be exercised alone.
#pragma once

#include <string>

namespace NxXmlLib9 {

// The XSD escapes that Perl syntax lacks, rewritten as plain text.
std::string TranslateXsdPattern(std::string pattern);

} // namespace NxXmlLib9
