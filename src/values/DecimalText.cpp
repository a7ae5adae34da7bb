// CDecimal construction, text reading and the two text forms.
#include "NxConversions.h"
#include "NxDecimal.h"
#include "NxException.h"
#include "NxFoundation.h"

#include <cstdlib>
#include <cstring>

namespace NxXmlLib9 {

namespace {

// Beyond this an exponent would only build a power of ten too large to hold.
const long kMaxExponent = 100000;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The digits of the magnitude, without a sign.
void AppendMagnitude(std::string& text, const CBigInteger& value)
{
    const CBigInteger::Digits& digits = value.GetDigits();
    if (digits.empty()) {
        text += '0';
        return;
    }
    for (size_t i = digits.size(); i > 0; --i)
        text += static_cast<char>('0' + digits[i - 1]);
}

// The fraction's digits, zero padded on the left to at least `width`.
std::string FractionText(const CBigInteger& fraction, int width)
{
    std::string digits;
    AppendMagnitude(digits, fraction);
    if (width > 0 && digits.size() < static_cast<size_t>(width))
        digits.insert(0, static_cast<size_t>(width) - digits.size(), '0');
    return digits;
}

[[noreturn]] void ThrowInvalidChar(size_t position, const char* text)
{
    throw CNxInvalidValueException(
        FormatString("The string representing a Decimal, contained an invalid char at position %d [%s]",
                     static_cast<int>(position), text));
}

} // namespace

CDecimal::CDecimal() : m_whole(0), m_fraction(0), m_divider(1) {}

CDecimal::CDecimal(int value) : m_whole(value), m_fraction(0), m_divider(1) {}

CDecimal::CDecimal(const CBigInteger& whole) : m_whole(whole), m_fraction(0), m_divider(1) {}

CDecimal::CDecimal(const CBigInteger& whole, const CBigInteger& fraction, int divider)
    : m_whole(whole), m_fraction(fraction), m_divider(divider)
{
    if (divider < 0)
        throw CNxInvalidParamException("ERROR: Negative fractional divider.");
}

CDecimal::CDecimal(const char* text) : m_whole(0), m_fraction(0), m_divider(1)
{
    Parse(text);
}

CDecimal::CDecimal(double value) : m_whole(0), m_fraction(0), m_divider(1)
{
    // Thirteen fractional digits; the line feed is read as white space.
    char buffer[1024];
    std::snprintf(buffer, sizeof buffer, "%.13f\n", value);
    Parse(buffer);
}

CDecimal::~CDecimal() = default;

void CDecimal::Parse(const char* text)
{
    enum State { Whole, Fraction, ExponentSign, ExponentDigits, ExponentEnded };

    std::string wholeDigits;
    std::string fractionDigits;
    std::string exponentDigits;
    bool negative = false;
    bool negativeExponent = false;
    State state = Whole;
    const size_t length = text == nullptr ? 0 : std::strlen(text);
    for (size_t i = 0; i < length; ++i) {
        const char c = text[i];
        switch (state) {
        case Whole:
            // Signs count wherever they stand before the point; the last wins.
            if (IsDigit(c))
                wholeDigits += c;
            else if (c == '-' || c == '+')
                negative = c == '-';
            else if (c == '.')
                state = Fraction;
            else if (c == 'e' || c == 'E')
                state = ExponentSign;
            else if (!CWhitespaceUtils::IsWhiteSpace(c))
                ThrowInvalidChar(i, text);
            break;
        case Fraction:
            if (IsDigit(c))
                fractionDigits += c;
            else if (c == 'e' || c == 'E')
                state = ExponentSign;
            else if (!CWhitespaceUtils::IsWhiteSpace(c))
                ThrowInvalidChar(i, text);
            break;
        case ExponentSign:
            if (IsDigit(c)) {
                exponentDigits += c;
                state = ExponentDigits;
            } else if (c == '-' || c == '+') {
                negativeExponent = c == '-';
            } else if (!CWhitespaceUtils::IsWhiteSpace(c)) {
                ThrowInvalidChar(i, text);
            }
            break;
        case ExponentDigits:
            // White space ends the exponent.
            if (IsDigit(c))
                exponentDigits += c;
            else if (CWhitespaceUtils::IsWhiteSpace(c))
                state = ExponentEnded;
            else
                ThrowInvalidChar(i, text);
            break;
        case ExponentEnded:
            // Only digits may follow, and they no longer count.
            if (!IsDigit(c))
                ThrowInvalidChar(i, text);
            break;
        }
    }

    long exponent = 0;
    if (!exponentDigits.empty()) {
        exponent = std::strtol(exponentDigits.c_str(), nullptr, 10);
        if (exponent > kMaxExponent) {
            throw CNxInvalidValueException(
                FormatString("The string representing a Decimal, has an exponent out of range [%s]", text));
        }
    }

    m_whole.Parse(wholeDigits.c_str());
    m_fraction.Parse(fractionDigits.c_str());
    m_divider = fractionDigits.empty() ? 1 : static_cast<int>(fractionDigits.size());
    if (negative) {
        m_whole.Negate();
        m_fraction.Negate();
    }

    if (exponent != 0) {
        const CDecimal scale(CBigInteger::Pow10(static_cast<unsigned int>(exponent)));
        *this = negativeExponent ? *this / scale : *this * scale;
    }
    Rationalise();
    if (m_divider > m_maxDivider)
        ChangeFractionalDivider(m_maxDivider);
}

std::string CDecimal::ToString() const
{
    if (m_fraction.IsZero())
        return m_whole.ToString();
    std::string text;
    text.reserve(m_whole.GetDigits().size() + static_cast<size_t>(m_divider) + 3);
    if (m_whole.GetSign() == -1)
        text += '-';
    AppendMagnitude(text, m_whole);
    text += '.';
    text += FractionText(m_fraction, m_divider);
    return text;
}

std::string CDecimal::ToString(int digits) const
{
    // The rounding term is always a half unit of the first place, with the
    // sign of the whole part, whatever the number of digits asked for; the
    // fraction is then cut, not rounded again.
    const bool negative = m_whole.GetSign() == -1;
    CBigInteger halfWhole(0);
    if (negative)
        halfWhole.Negate();
    const CDecimal half(halfWhole, CBigInteger(negative ? -5 : 5), 1);
    const CDecimal rounded = half + *this;

    std::string fraction = FractionText(rounded.m_fraction, rounded.m_divider);
    const size_t keep = digits > 0 ? static_cast<size_t>(digits) : 0;
    if (fraction.size() > keep)
        fraction.resize(keep);

    std::string text;
    if (rounded.m_whole.GetSign() == -1)
        text += '-';
    AppendMagnitude(text, rounded.m_whole);
    text += '.';
    text += fraction;
    return text;
}

} // namespace NxXmlLib9
