// Whitespace handling and the conversions between text and the primitive
// kinds. Every FromString first applies the property's whitespace rule and
// then parses; every failure to parse is a CNxInvalidValueException.
#pragma once

#include <string>

#include "NxBigInteger.h"
#include "NxBinaryData.h"
#include "NxDateTime.h"
#include "NxDateTimeSpan.h"
#include "NxDecimal.h"
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
// The kinds backed by value classes print through the class's own text form
// and read through its own parser, whose failures pass through unchanged.
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

    // Binary data: hex text in upper case, base64 without line breaks.
    // Reading hex takes either case; reading base64 skips white space and
    // '=' anywhere, and a character outside the alphabet gives no bytes.
    static std::string hexBinaryToString(const CBinaryData& value);
    static std::string base64BinaryToString(const CBinaryData& value);
    static CBinaryData hexBinaryFromString(const std::string& text, WhitespaceRule rule);
    static CBinaryData base64BinaryFromString(const std::string& text, WhitespaceRule rule);

    static std::string durationToString(const CDateTimeSpan& value);
    static CDateTimeSpan durationFromString(const std::string& text, WhitespaceRule rule);

    // The date kinds print the value's own form, whatever kind it holds.
    static std::string yearMonthToString(const CDateTime& value);
    static std::string monthDayToString(const CDateTime& value);
    static std::string dateToString(const CDateTime& value);
    static std::string datetimeToString(const CDateTime& value);
    static std::string timeToString(const CDateTime& value);
    // The three date readers take every date form (gYear, gYearMonth, date,
    // gMonth, gDay, gMonthDay) and return it with the kind of that form, not
    // the kind in their name.
    static CDateTime yearMonthFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime monthDayFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime dateFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime datetimeFromString(const std::string& text, WhitespaceRule rule);
    static CDateTime timeFromString(const std::string& text, WhitespaceRule rule);
    // A date form read for one of its fields; a form without that field
    // throws CNxInvalidStateException. A year before the common era comes
    // back as its bit pattern in an unsigned short.
    static unsigned short yearFromString(const std::string& text, WhitespaceRule rule);
    static unsigned char monthFromString(const std::string& text, WhitespaceRule rule);
    static unsigned char dayFromString(const std::string& text, WhitespaceRule rule);

    // A null format prints every digit; otherwise the format is a count of
    // fractional digits in decimal ("2"), and the value is printed rounded
    // for output by CDecimal::ToString(int). A format that is not such a
    // count throws CNxInvalidParamException.
    static std::string decimalToString(const CDecimal& value, const char* format);
    static CDecimal decimalFromString(const std::string& text, WhitespaceRule rule);

    static std::string integerToString(const CBigInteger& value);
    static CBigInteger integerFromString(const std::string& text, WhitespaceRule rule);
};

} // namespace NxXmlLib9
