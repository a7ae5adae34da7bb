// r4 and r8 to and from text. Both kinds share one template; the traits
// below hold what differs: the kind's name, its default format and the size
// of the buffer that serves the common case without a heap allocation.
#include "NxConversions.h"

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace NxXmlLib9 {

namespace {

template <class T>
struct RealTraits;

template <>
struct RealTraits<float> {
    static constexpr const char* kind = "r4";
    static constexpr const char* defaultFormat = "%.7g";
    static constexpr size_t bufferSize = 32;
};

template <>
struct RealTraits<double> {
    static constexpr const char* kind = "r8";
    static constexpr const char* defaultFormat = "%.16g";
    static constexpr size_t bufferSize = 48;
};

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// A caller's format is handed to printf together with one double, so it may
// hold plain text, "%%" and at most one directive that consumes a double:
// flags, a decimal width and precision, an optional 'l', then e, f, g or a
// in either case. Anything else would read arguments that are not there.
bool IsRealFormat(const char* format)
{
    int directives = 0;
    for (const char* p = format; *p != '\0'; ++p) {
        if (*p != '%')
            continue;
        ++p;
        if (*p == '%')
            continue;
        while (*p != '\0' && std::strchr("-+ #0'", *p) != nullptr)
            ++p;
        while (IsDigit(*p))
            ++p;
        if (*p == '.') {
            ++p;
            while (IsDigit(*p))
                ++p;
        }
        if (*p == 'l')
            ++p;
        if (*p == '\0' || std::strchr("eEfFgGaA", *p) == nullptr)
            return false;
        ++directives;
    }
    return directives <= 1;
}

// The format is a run-time text, checked by IsRealFormat before use.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
template <class T>
std::string RealToString(T value, const char* format)
{
    using Traits = RealTraits<T>;
    if (std::isnan(value))
        return "NaN";
    if (value < -std::numeric_limits<T>::max())
        return "-INF";
    if (value > std::numeric_limits<T>::max())
        return "INF";

    if (format == nullptr) {
        format = Traits::defaultFormat;
    } else if (!IsRealFormat(format)) {
        throw CNxInvalidParamException(
            FormatString("The format [%s] can not be used to convert a %s", format, Traits::kind));
    }

    // A caller's format may print more than the buffer holds (a large "%f",
    // a wide field): then the text is printed again into a string of its
    // own length instead of being cut or overrunning the buffer.
    const double printed = static_cast<double>(value);
    char buffer[Traits::bufferSize];
    const int length = std::snprintf(buffer, sizeof(buffer), format, printed);
    if (length < 0)
        return std::string();
    if (static_cast<size_t>(length) < sizeof(buffer))
        return std::string(buffer, static_cast<size_t>(length));
    std::string text(static_cast<size_t>(length), '\0');
    std::snprintf(&text[0], text.size() + 1, format, printed);
    return text;
}
#pragma GCC diagnostic pop

// Narrowing an out-of-range double to float is undefined in C++. Do what the
// IEEE conversion does: round to the nearest float, and past the midpoint
// between the greatest float and 2^128 give infinity.
template <class T>
T NarrowReal(double value);

template <>
double NarrowReal<double>(double value)
{
    return value;
}

template <>
float NarrowReal<float>(double value)
{
    const double greatest = static_cast<double>(FLT_MAX);
    const double overflow = greatest + std::ldexp(1.0, FLT_MAX_EXP - FLT_MANT_DIG - 1);
    const double magnitude = std::fabs(value);
    if (std::isfinite(value) && magnitude > greatest) {
        const float bound = magnitude >= overflow ? std::numeric_limits<float>::infinity() : FLT_MAX;
        return value < 0 ? -bound : bound;
    }
    return static_cast<float>(value);
}

template <class T>
T RealFromString(const std::string& input, CWhitespaceUtils::WhitespaceRule rule)
{
    const std::string text = CWhitespaceUtils::ApplyRule(rule, input);
    if (text.empty() || text == "NaN" || text == "1.#QNAN" || text == "-NAN")
        return std::numeric_limits<T>::quiet_NaN();
    if (text == "-INF")
        return -std::numeric_limits<T>::infinity();
    if (text == "INF")
        return std::numeric_limits<T>::infinity();

    const char* begin = text.c_str();
    char* end = nullptr;
    const double value = std::strtod(begin, &end);
    if (end != begin + text.size() && *end != '\0') {
        throw CNxInvalidValueException(FormatString("The value [%s] can not be converted to a %s",
                                                    text.c_str(), RealTraits<T>::kind));
    }
    return NarrowReal<T>(value);
}

} // namespace

std::string CConversions::r4ToString(float value, const char* format)
{
    return RealToString(value, format);
}

std::string CConversions::r8ToString(double value, const char* format)
{
    return RealToString(value, format);
}

float CConversions::r4FromString(const std::string& text, WhitespaceRule rule)
{
    return RealFromString<float>(text, rule);
}

double CConversions::r8FromString(const std::string& text, WhitespaceRule rule)
{
    return RealFromString<double>(text, rule);
}

} // namespace NxXmlLib9
