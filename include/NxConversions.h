// Whitespace handling and the conversions between text and the primitive
// kinds. Every FromString first applies the property's whitespace rule and
// then parses; every failure to parse is a CNxInvalidValueException.
#pragma once

#include <string>

#include "NxException.h"
#include "NxFoundation.h"

namespace NxXmlLib9 {

// The whitespace facet. Unlike the schema facet of the same name, every
// transformation here (Preserve included) drops carriage returns outright:
// a carriage return never becomes a blank and never separates words.
class CWhitespaceUtils {
public:
    enum WhitespaceRule : int {
        WhitespaceRuleNone = 0,     // the text is taken unchanged
        WhitespaceRulePreserve = 1,
        WhitespaceRuleReplace = 2,
        WhitespaceRuleCollapse = 3
    };

    CWhitespaceUtils() = delete;

    // Blank, tab, carriage return and line feed.
    static bool IsWhiteSpace(char c);

    // Every byte except carriage returns. A null text gives the empty text;
    // a negative length means "up to the terminating zero".
    static std::string Preserve(const char* text, int length);
    static std::string Preserve(const std::string& text);
    // Tab, line feed and blank become a blank; carriage returns vanish.
    static std::string Replace(const std::string& text);
    // Runs of white space become one blank, leading and trailing white space
    // vanish; carriage returns vanish without separating anything.
    static std::string Collapse(const std::string& text);

    // Throws CNxException "Unknown WhitespaceRule" for any other value.
    static std::string ApplyRule(WhitespaceRule rule, const std::string& text);
};

// Text forms of the primitive kinds, one ToString/FromString pair per kind.
// The kinds backed by value classes (binary data, durations, dates, decimals,
// big integers) and the parsing of year, month and day join this class as
// further static members of the same shape.
class CConversions {
public:
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    CConversions() = delete;

    // Signed integers. i4 has the platform width of long; its text shows the
    // low 32 bits only, as a signed int.
    static std::string i1ToString(char value);
    static std::string i2ToString(short value);
    static std::string i4ToString(long value);
    static std::string i8ToString(long long value);
    static char i1FromString(const std::string& text, WhitespaceRule rule);
    static short i2FromString(const std::string& text, WhitespaceRule rule);
    static long i4FromString(const std::string& text, WhitespaceRule rule);
    static long long i8FromString(const std::string& text, WhitespaceRule rule);

    // Unsigned integers; ui4 is unsigned long, shown by its low 32 bits.
    static std::string ui1ToString(unsigned char value);
    static std::string ui2ToString(unsigned short value);
    static std::string ui4ToString(unsigned long value);
    static std::string ui8ToString(unsigned long long value);
    static unsigned char ui1FromString(const std::string& text, WhitespaceRule rule);
    static unsigned short ui2FromString(const std::string& text, WhitespaceRule rule);
    static unsigned long ui4FromString(const std::string& text, WhitespaceRule rule);
    static unsigned long long ui8FromString(const std::string& text, WhitespaceRule rule);

    // Reals. A null format means "%.7g" (r4) or "%.16g" (r8). A format is a
    // printf format with at most one floating-point directive (e, f, g, a in
    // either case); anything else throws CNxInvalidParamException.
    static std::string r4ToString(float value, const char* format);
    static std::string r8ToString(double value, const char* format);
    static float r4FromString(const std::string& text, WhitespaceRule rule);
    static double r8FromString(const std::string& text, WhitespaceRule rule);

    // The bare-number forms of gYear, gMonth ("--MM") and gDay ("---DD").
    static std::string yearToString(unsigned short value);
    static std::string monthToString(unsigned char value);
    static std::string dayToString(unsigned char value);

    static std::string charToString(char value);
    static char charFromString(const std::string& text, WhitespaceRule rule);

    static std::string stringToString(const std::string& value);
    static std::string stringFromString(const std::string& text, WhitespaceRule rule);

    // "true"/"false"; reading also takes "1"/"0", in any letter case.
    static std::string booleanToString(bool value);
    static bool booleanFromString(const std::string& text, WhitespaceRule rule);
};

} // namespace NxXmlLib9
