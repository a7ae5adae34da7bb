// Reading the XSD lexical forms of the date and time kinds. A date form is
// recognised by the length of its body once the zone is set aside.
#include "NxDateTime.h"

#include <cstring>
#include <string>

#include "NxException.h"
#include "NxFoundation.h"

namespace NxXmlLib9 {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Reads count digits at text; false when any of them is not a digit.
bool ReadDigits(const char* text, int count, int& value)
{
    value = 0;
    for (int i = 0; i < count; ++i) {
        if (!IsDigit(text[i]))
            return false;
        value = value * 10 + (text[i] - '0');
    }
    return true;
}

[[noreturn]] void ThrowBadDate(const char* text)
{
    throw CNxInvalidValueException(
        FormatString("Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text));
}

[[noreturn]] void ThrowBadTime(const char* text)
{
    throw CNxInvalidValueException(FormatString("Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text));
}

} // namespace

void CDateTime::ParseXSDDate(const char* text)
{
    Clear();
    SetXSDDate(text);
    Validate();
}

void CDateTime::ParseXSDTime(const char* text)
{
    Clear();
    SetXSDTime(text);
    Validate();
}

void CDateTime::ParseXSDDateTime(const char* text)
{
    if (text == nullptr)
        throw CNxInvalidValueException("Invalid DateTime (Null String)");
    const char* separator = std::strchr(text, 'T');
    if (separator == nullptr)
        throw CNxInvalidValueException(FormatString("Invalid XSD DateTime [%s]", text));
    Clear();
    SetXSDDate(std::string(text, separator).c_str());
    if (m_type != dt_date)
        throw CNxInvalidValueException(
            FormatString("Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", text));
    SetXSDTime(separator + 1);
    m_type = dt_dateTime;
    Validate();
}

void CDateTime::SetXSDDate(const char* text)
{
    if (text == nullptr)
        throw CNxInvalidValueException("Invalid Date (Null String)");
    const int length = static_cast<int>(std::strlen(text));
    if (length == 0)
        throw CNxInvalidValueException("Invalid Date (Empty String)");
    if (std::strchr(text, 'T') != nullptr)
        throw CNxInvalidValueException("Invalid Date ('T' not allowed)");

    // Set the zone aside: a final "Z", or "+hh:mm" (the only place a colon
    // may stand in a date).
    const bool utc = text[length - 1] == 'Z';
    const bool offset = std::strchr(text, ':') != nullptr;
    if (utc && offset)
        throw CNxInvalidValueException("Invalid Date (Bad Zone value)");
    int body = length;
    if (utc)
        body = length - 1;
    else if (offset)
        body = length - 6;
    const char* zone = text + (body > 0 ? body : 0);

    int value = 0;
    DTType type = dt_yearZero;
    if (body >= 2 && text[0] == '-' && text[1] == '-') {
        switch (body) {
        case 4: // --MM
        case 6: // --MM-- : the trailing dashes are not looked at
            if (!ReadDigits(text + 2, 2, value))
                ThrowBadDate(text);
            m_month = static_cast<unsigned char>(value);
            type = dt_gMonth;
            break;
        case 5: // ---DD
            if (text[2] != '-' || !ReadDigits(text + 3, 2, value))
                ThrowBadDate(text);
            m_day = static_cast<unsigned char>(value);
            type = dt_gDay;
            break;
        case 7: // --MM-DD
            if (!ReadDigits(text + 2, 2, value))
                ThrowBadDate(text);
            m_month = static_cast<unsigned char>(value);
            if (text[4] != '-' || !ReadDigits(text + 5, 2, value))
                ThrowBadDate(text);
            m_day = static_cast<unsigned char>(value);
            type = dt_gMonthDay;
            break;
        default:
            ThrowBadDate(text);
        }
    } else {
        const char* p = text;
        const bool negative = body > 0 && *p == '-';
        if (negative) {
            ++p;
            --body;
        }
        if (body != 4 && body != 7 && body != 10)
            ThrowBadDate(text);
        if (!ReadDigits(p, 4, value))
            ThrowBadDate(text);
        m_year = static_cast<short>(negative ? -value : value);
        type = dt_gYear;
        if (body >= 7) {
            if (p[4] != '-' || !ReadDigits(p + 5, 2, value))
                ThrowBadDate(text);
            m_month = static_cast<unsigned char>(value);
            type = dt_gYearMonth;
        }
        if (body == 10) {
            if (p[7] != '-' || !ReadDigits(p + 8, 2, value))
                ThrowBadDate(text);
            m_day = static_cast<unsigned char>(value);
            type = dt_date;
        }
    }
    m_type = type;
    if (utc || offset)
        SetZone(zone);
}

void CDateTime::SetXSDTime(const char* text)
{
    if (text == nullptr)
        throw CNxInvalidValueException("Invalid Time (Null String)");
    if (*text == '\0')
        throw CNxInvalidValueException("Invalid XSD Time (Empty String)");
    if (std::strlen(text) < 8 || text[2] != ':' || text[5] != ':')
        ThrowBadTime(text);

    int value = 0;
    if (!ReadDigits(text, 2, value) || value > 23)
        ThrowBadTime(text);
    m_hour = static_cast<unsigned char>(value);
    if (!ReadDigits(text + 3, 2, value) || value > 59)
        ThrowBadTime(text);
    m_minute = static_cast<unsigned char>(value);
    if (!ReadDigits(text + 6, 2, value) || value > 59)
        ThrowBadTime(text);
    m_second = static_cast<unsigned char>(value);

    // The fraction belongs to this time: a value read earlier does not
    // survive into it.
    m_milli = 0;
    m_micro = 0;
    m_nano = 0;
    const char* p = text + 8;
    if (*p == '.') {
        static const unsigned short weights[3] = {100, 10, 1};
        int count = 0;
        for (++p; IsDigit(*p); ++p) {
            if (++count > 9)
                throw CNxInvalidValueException(FormatString("Invalid XSD Time [%s] Fraction part too long", text));
            const unsigned short digit = static_cast<unsigned short>(*p - '0');
            unsigned short& group = count <= 3 ? m_milli : count <= 6 ? m_micro : m_nano;
            group = static_cast<unsigned short>(group + digit * weights[(count - 1) % 3]);
        }
    }
    if (*p != '\0')
        SetZone(p);
    m_type = dt_time;
}

void CDateTime::SetZone(const char* text)
{
    // Anything but a zone is ignored, so trailing text after a time passes.
    if (text == nullptr)
        return;
    if (*text == 'Z') {
        SetUTC();
        return;
    }
    if (*text != '+' && *text != '-')
        return;
    int hour = 0;
    int minute = 0;
    if (std::strlen(text) != 6 || text[3] != ':' || !ReadDigits(text + 1, 2, hour) ||
        !ReadDigits(text + 4, 2, minute))
        throw CNxInvalidValueException(FormatString("Invalid XSD Time Zone [%s]", text));
    // "24:00" names the same offset as "00:00".
    if (hour == 24)
        hour = 0;
    SetTimeZone(static_cast<short>(*text == '-' ? -hour : hour), static_cast<unsigned char>(minute));
}

} // namespace NxXmlLib9
