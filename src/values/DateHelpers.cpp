// Calendar helpers shared by date arithmetic and validation.
#include "NxDateTime.h"

#include <climits>
#include <cmath>
#include <cstdint>

namespace NxXmlLib9 {

bool IsLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int GetQuotient(long long a, int b)
{
    // Single precision on purpose: date arithmetic is defined through it.
    const float quotient = std::floor(static_cast<float>(a) / static_cast<float>(b));
    // Converting a float outside int is undefined; saturate instead (this
    // also covers a zero divisor, whose infinite or NaN result has no int).
    if (std::isnan(quotient))
        return 0;
    if (quotient >= 2147483648.0f)
        return INT_MAX;
    if (quotient < -2147483648.0f)
        return INT_MIN;
    return static_cast<int>(quotient);
}

int GetModulo(long long a, int b)
{
    // The product wraps in 32 bits; work in unsigned arithmetic so the wrap
    // is defined, then read it back as a signed 32-bit value.
    const uint32_t product = static_cast<uint32_t>(b) * static_cast<uint32_t>(GetQuotient(a, b));
    const long long difference = static_cast<long long>(static_cast<unsigned long long>(a) -
                                                        static_cast<unsigned long long>(static_cast<int32_t>(product)));
    return static_cast<int>(difference);
}

} // namespace NxXmlLib9
