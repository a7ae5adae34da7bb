// Binary data, decimals and big integers to and from text. Each reader
// applies the whitespace rule and hands the text to the value class, whose
// failures pass through unchanged.
#include "NxConversions.h"

#include <climits>

#include "values/ParseAfterRule.h"

namespace NxXmlLib9 {

namespace {

// A decimal's format is the number of fractional digits to print, written
// in decimal digits only. Anything else would print a number the caller
// did not ask for, so it is refused.
int FractionDigitsOf(const char* format)
{
    long long digits = 0;
    const char* p = format;
    for (; *p >= '0' && *p <= '9'; ++p) {
        digits = digits * 10 + (*p - '0');
        if (digits > INT_MAX)
            break;
    }
    if (p == format || *p != '\0') {
        throw CNxInvalidParamException(
            FormatString("The format [%s] can not be used to convert a decimal", format));
    }
    return static_cast<int>(digits);
}

} // namespace

std::string CConversions::hexBinaryToString(const CBinaryData& value)
{
    return value.GetAsHexString();
}

std::string CConversions::base64BinaryToString(const CBinaryData& value)
{
    return value.GetAsBase64();
}

CBinaryData CConversions::hexBinaryFromString(const std::string& input, WhitespaceRule rule)
{
    return ParseAfterRule(CBinaryData(), &CBinaryData::SetAsHexString, input, rule);
}

CBinaryData CConversions::base64BinaryFromString(const std::string& input, WhitespaceRule rule)
{
    return ParseAfterRule(CBinaryData(), &CBinaryData::SetAsBase64, input, rule);
}

std::string CConversions::decimalToString(const CDecimal& value, const char* format)
{
    if (format == nullptr)
        return value.ToString();
    return value.ToString(FractionDigitsOf(format));
}

CDecimal CConversions::decimalFromString(const std::string& text, WhitespaceRule rule)
{
    return CDecimal(CWhitespaceUtils::ApplyRule(rule, text).c_str());
}

std::string CConversions::integerToString(const CBigInteger& value)
{
    return value.ToString();
}

CBigInteger CConversions::integerFromString(const std::string& text, WhitespaceRule rule)
{
    return CBigInteger(CWhitespaceUtils::ApplyRule(rule, text).c_str());
}

} // namespace NxXmlLib9
