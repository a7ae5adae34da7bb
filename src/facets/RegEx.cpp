// XSD patterns on the classic PCRE interface.

#include "NxRegEx.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include <pcre.h>

#include "NxBinaryData.h"
#include "NxEncoder.h"
#include "NxFoundation.h"
#include "facets/PatternTranslation.h"

namespace NxXmlLib9 {

namespace {

struct Rewrite {
    const char* find;
    const char* replaceWith;
};

// XSD escapes that Perl syntax lacks, replaced as plain text in this order.
// An escaped backslash is first hidden behind the byte 0x01 so that "\\i"
// stays a backslash followed by a letter, and is restored at the end; a
// pattern that holds 0x01 itself therefore comes out altered. The octal
// ranges are code points, since the pattern is compiled in UTF-8 mode.
const Rewrite kRewrites[] = {
    {"\\\\", "\x01"},
    {"\\i", "([^\\W\\d]|:)"},
    {"\\I", "([\\W\\d])"},
    {"\\c", "(\\w|\\.|-|:)"},
    {"\\C", "([^\\w\\.\\-\\:])"},
    {"\\p{IsBasicLatin}", "[\\000-\\177]"},
    {"\\p{IsLatin-1Supplement}", "[\\200-\\377]"},
    {"\\p{IsLatinExtended-A}", "[\\400-\\577]"},
    {"\\p{IsLatinExtended-B}", "[\\600-\\1117]"},
    {"\x01", "\\\\"},
};

struct CompiledPatternDeleter {
    void operator()(pcre* compiled) const { pcre_free(compiled); }
};
using CompiledPattern = std::unique_ptr<pcre, CompiledPatternDeleter>;

} // namespace

std::string TranslateXsdPattern(std::string pattern)
{
    for (const Rewrite& rewrite : kRewrites)
        FindReplace(pattern, rewrite.find, rewrite.replaceWith);
    return pattern;
}

bool TestRegEx(std::string pattern, std::string value)
{
    pattern = TranslateXsdPattern(std::move(pattern));

    const char* error = nullptr;
    int errorOffset = 0;
    CompiledPattern compiled(pcre_compile(pattern.c_str(), PCRE_UTF8, &error, &errorOffset, nullptr));
    // A schema pattern the engine rejects is a defect of the generated code,
    // not of the data: there is nothing a caller could do about it, so the
    // process stops here rather than report a failure.
    if (!compiled)
        std::abort();

    int captureCount = 0;
    if (pcre_fullinfo(compiled.get(), nullptr, PCRE_INFO_CAPTURECOUNT, &captureCount) != 0 || captureCount < 0)
        captureCount = 0;
    std::vector<int> offsets(static_cast<size_t>(captureCount + 1) * 3);

    // The subject is the value in UTF-8 up to its first zero byte.
    const CBinaryData subject = CEncoder::LocalCodePageToUtf8Binary(value.c_str());
    const char* text = subject.GetData() ? reinterpret_cast<const char*>(subject.GetData()) : "";
    size_t length = subject.GetLength();
    if (const void* zero = std::memchr(text, 0, length))
        length = static_cast<size_t>(static_cast<const char*>(zero) - text);
    if (length > static_cast<size_t>(INT_MAX))
        return false;
    const int subjectLength = static_cast<int>(length);

    const int found = pcre_exec(compiled.get(), nullptr, text, subjectLength, 0, PCRE_ANCHORED, offsets.data(),
                                static_cast<int>(offsets.size()));
    if (found < 1)
        return false;
    // The engine settles on its first match from the start; only then is
    // the end tested, so an alternative that matches a mere prefix wins.
    return offsets[0] == 0 && offsets[1] == subjectLength;
}

} // namespace NxXmlLib9
