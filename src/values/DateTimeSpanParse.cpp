// Reading the XSD duration form "[-]P[nY][nM][nD][T[nH][nM][n[.fff]S]]".
#include "NxDateTimeSpan.h"

#include <cstring>

#include "NxException.h"
#include "NxFoundation.h"

namespace NxXmlLib9 {

namespace {

// How far the reading has come: each designator is legal only in some of
// these, which keeps the parts in their order.
enum ParseState {
    StateStart = 0,
    StateYears = 1,
    StateMonths = 2,
    StateDays = 3,
    StateTime = 4,
    StateHours = 5,
    StateMinutes = 6,
    StateSeconds = 7,
    StateFraction = 8
};

[[noreturn]] void ThrowBadDuration(const char* text)
{
    throw CNxInvalidValueException(
        FormatString("Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", text));
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

void CDateTimeSpan::ParseXSDDuration(const char* text)
{
    Clear();
    if (text == nullptr)
        throw CNxInvalidValueException("Invalid XSD Duration (Null String)");
    if (*text == '\0')
        throw CNxInvalidValueException("Invalid XSD Duration (Empty String)");

    const char* p = text;
    if (*p == '-') {
        m_negative = true;
        ++p;
    }
    if (*p != 'P')
        ThrowBadDuration(text);
    ++p;

    int state = StateStart;
    while (*p != '\0') {
        // Numbers wrap silently when too long for their field.
        unsigned long long number = 0;
        while (IsDigit(*p))
            number = number * 10 + static_cast<unsigned>(*p++ - '0');

        switch (*p) {
        case 'Y':
            // Years are accepted at any point, even after the time part.
            m_years = static_cast<unsigned short>(number);
            state = StateYears;
            break;
        case 'M':
            if (state == StateStart || state == StateYears) {
                m_months = static_cast<unsigned long>(number);
                state = StateMonths;
            } else if (state == StateTime || state == StateHours) {
                m_minutes = number;
                state = StateMinutes;
            } else {
                ThrowBadDuration(text);
            }
            break;
        case 'D':
            if (state > StateMonths)
                ThrowBadDuration(text);
            m_days = static_cast<unsigned long>(number);
            state = StateDays;
            break;
        case 'T':
            if (state > StateDays)
                ThrowBadDuration(text);
            state = StateTime;
            break;
        case 'H':
            if (state != StateTime)
                ThrowBadDuration(text);
            m_hours = static_cast<unsigned long>(number);
            state = StateHours;
            break;
        case 'S':
        case '.':
            if (state < StateTime || state > StateMinutes)
                ThrowBadDuration(text);
            m_seconds = number;
            state = StateSeconds;
            // A point that ends the text counts as the 'S'.
            if (*p == '.' && p[1] != '\0') {
                ++p;
                int count = 0;
                for (; IsDigit(*p); ++p) {
                    const unsigned short digit = static_cast<unsigned short>(*p - '0');
                    ++count;
                    if (count > 9)
                        throw CNxInvalidValueException(
                            FormatString("Invalid XSD Duration [%s] Fraction part too long", text));
                    static const unsigned short weights[3] = {100, 10, 1};
                    if (count <= 3)
                        m_milli = static_cast<unsigned short>(m_milli + digit * weights[count - 1]);
                    else if (count <= 6)
                        m_micro = static_cast<unsigned short>(m_micro + digit * weights[count - 4]);
                    else
                        m_nano = digit; // each of these digits replaces the last, unweighted
                }
                if (*p != 'S')
                    ThrowBadDuration(text);
                state = StateFraction;
            }
            break;
        default:
            ThrowBadDuration(text);
        }
        ++p;
    }
    if (state == StateStart || state == StateTime)
        ThrowBadDuration(text);
}

} // namespace NxXmlLib9
