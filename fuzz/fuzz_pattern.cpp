// The translation of XSD patterns on any text: the input is a pattern, a
// zero byte and a value. A pattern the engine cannot compile would end the
// process by design, so only a translation that compiles is matched.
#include "FuzzSupport.h"
#include "NxRegEx.h"
#include "facets/PatternTranslation.h"

#include <cstring>
#include <pcre.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string input = NxFuzz::Text(data, size);
    const size_t zero = input.find('\0');
    const std::string pattern = input.substr(0, zero);
    const std::string value = zero == std::string::npos ? std::string() : input.substr(zero + 1);
    const std::string translated = NxXmlLib9::TranslateXsdPattern(pattern);
    const char* error = nullptr;
    int offset = 0;
    pcre* compiled = pcre_compile(translated.c_str(), PCRE_UTF8, &error, &offset, nullptr);
    if (!compiled)
        return 0;
    pcre_free(compiled);
    NxFuzz::Expecting([&] { (void)NxXmlLib9::TestRegEx(pattern, value); });
    return 0;
}
