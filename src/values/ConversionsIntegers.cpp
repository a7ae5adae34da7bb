// Integer kinds to and from text. All eight FromString functions share one
// parse step and one range step; they differ only in the C parser, the type,
// the bounds and the kind named in the message.
#include "NxConversions.h"

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdlib>

namespace NxXmlLib9 {

namespace {

template <class T>
std::string IntegerText(T value)
{
    char buffer[24];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    return std::string(buffer, result.ptr);
}

[[noreturn]] void ThrowTooLarge(const std::string& text, const char* kind)
{
    throw CNxInvalidValueException(
        FormatString("The value [%s] is to large to fit in a %s", text.c_str(), kind));
}

// Applies the rule and runs the C parser in base 10. Only a true range error
// of the parser fails as "too large"; trailing bytes fail as "can not be
// converted" unless they start with a zero byte. What the C parser accepts by
// itself (leading white space, a sign, the empty text) passes.
template <class Parsed>
Parsed ParseInteger(const std::string& input, CWhitespaceUtils::WhitespaceRule rule,
                    Parsed (*parse)(const char*, char**, int), const char* kind)
{
    const std::string text = CWhitespaceUtils::ApplyRule(rule, input);
    const char* begin = text.c_str();
    char* end = nullptr;
    errno = 0;
    const Parsed value = parse(begin, &end, 10);
    if (errno == ERANGE)
        ThrowTooLarge(text, kind);
    if (end != begin + text.size() && *end != '\0') {
        throw CNxInvalidValueException(
            FormatString("The value [%s] can not be converted to a %s", text.c_str(), kind));
    }
    return value;
}

// The narrow kinds parse through their wide kind and then test their own
// bounds; that failure names the narrow kind and shows the input as it came.
template <class Narrow, class Wide>
Narrow NarrowInteger(Wide value, Wide low, Wide high, const std::string& input, const char* kind)
{
    if (value < low || value > high)
        ThrowTooLarge(input, kind);
    return static_cast<Narrow>(value);
}

} // namespace

// i1 is a signed byte whatever the signedness of the platform's char.
std::string CConversions::i1ToString(char value)
{
    return IntegerText(static_cast<int>(static_cast<signed char>(value)));
}

std::string CConversions::i2ToString(short value)
{
    return IntegerText(static_cast<int>(value));
}

// A long may be wider than 32 bits; the text shows the low 32 bits only.
std::string CConversions::i4ToString(long value)
{
    return IntegerText(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

std::string CConversions::i8ToString(long long value)
{
    return IntegerText(value);
}

std::string CConversions::ui1ToString(unsigned char value)
{
    return IntegerText(static_cast<unsigned int>(value));
}

std::string CConversions::ui2ToString(unsigned short value)
{
    return IntegerText(static_cast<unsigned int>(value));
}

std::string CConversions::ui4ToString(unsigned long value)
{
    return IntegerText(static_cast<std::uint32_t>(value));
}

std::string CConversions::ui8ToString(unsigned long long value)
{
    return IntegerText(value);
}

std::string CConversions::yearToString(unsigned short value)
{
    return IntegerText(static_cast<unsigned int>(value));
}

namespace {

// "%02u" behind a fixed prefix.
std::string PrefixedTwoDigits(const char* prefix, unsigned int value)
{
    std::string text(prefix);
    if (value < 10)
        text += '0';
    text += IntegerText(value);
    return text;
}

} // namespace

std::string CConversions::monthToString(unsigned char value)
{
    return PrefixedTwoDigits("--", value);
}

std::string CConversions::dayToString(unsigned char value)
{
    return PrefixedTwoDigits("---", value);
}

long CConversions::i4FromString(const std::string& text, WhitespaceRule rule)
{
    return ParseInteger<long>(text, rule, &std::strtol, "i4");
}

// i8 goes through the unsigned parser, so a leading '-' negates in unsigned
// arithmetic and the result is read back as signed.
long long CConversions::i8FromString(const std::string& text, WhitespaceRule rule)
{
    return static_cast<long long>(ParseInteger<unsigned long long>(text, rule, &std::strtoull, "i8"));
}

unsigned long CConversions::ui4FromString(const std::string& text, WhitespaceRule rule)
{
    return ParseInteger<unsigned long>(text, rule, &std::strtoul, "ui4");
}

unsigned long long CConversions::ui8FromString(const std::string& text, WhitespaceRule rule)
{
    return ParseInteger<unsigned long long>(text, rule, &std::strtoull, "ui8");
}

char CConversions::i1FromString(const std::string& text, WhitespaceRule rule)
{
    return NarrowInteger<char, long>(i4FromString(text, rule), SCHAR_MIN, SCHAR_MAX, text, "i1");
}

short CConversions::i2FromString(const std::string& text, WhitespaceRule rule)
{
    return NarrowInteger<short, long>(i4FromString(text, rule), SHRT_MIN, SHRT_MAX, text, "i2");
}

unsigned char CConversions::ui1FromString(const std::string& text, WhitespaceRule rule)
{
    return NarrowInteger<unsigned char, unsigned long>(ui4FromString(text, rule), 0, UCHAR_MAX, text, "ui1");
}

unsigned short CConversions::ui2FromString(const std::string& text, WhitespaceRule rule)
{
    return NarrowInteger<unsigned short, unsigned long>(ui4FromString(text, rule), 0, USHRT_MAX, text, "ui2");
}

} // namespace NxXmlLib9
