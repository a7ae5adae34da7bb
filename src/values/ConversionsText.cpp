// Characters, strings and booleans to and from text.
#include "NxConversions.h"

#include <strings.h>

namespace NxXmlLib9 {

std::string CConversions::charToString(char value)
{
    return std::string(1, value);
}

char CConversions::charFromString(const std::string& input, WhitespaceRule rule)
{
    const std::string text = CWhitespaceUtils::ApplyRule(rule, input);
    if (text.size() != 1) {
        throw CNxInvalidValueException(FormatString(
            "The value [%s] can not be a char as it is either empty of greater than 1 char long",
            text.c_str()));
    }
    return text[0];
}

std::string CConversions::stringToString(const std::string& value)
{
    return value;
}

std::string CConversions::stringFromString(const std::string& text, WhitespaceRule rule)
{
    return CWhitespaceUtils::ApplyRule(rule, text);
}

std::string CConversions::booleanToString(bool value)
{
    return value ? "true" : "false";
}

bool CConversions::booleanFromString(const std::string& input, WhitespaceRule rule)
{
    const std::string text = CWhitespaceUtils::ApplyRule(rule, input);
    const char* value = text.c_str();
    if (strcasecmp(value, "true") == 0 || strcasecmp(value, "1") == 0)
        return true;
    if (strcasecmp(value, "false") == 0 || strcasecmp(value, "0") == 0)
        return false;
    throw CNxInvalidValueException(FormatString(
        "A Boolean Value read from an XML document was invalid [%s]. Valid values are 'true', "
        "'false', '1', or '0'",
        input.c_str()));
}

} // namespace NxXmlLib9
