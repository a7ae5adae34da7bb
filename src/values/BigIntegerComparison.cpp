// CBigInteger comparisons and the conversion to int.
#include "NxBigInteger.h"
#include "NxException.h"

namespace NxXmlLib9 {

bool CBigInteger::operator==(const CBigInteger& other) const
{
    if (Compare(m_digits, other.m_digits) != 0)
        return false;
    return IsZero() || m_sign == other.m_sign;
}

bool CBigInteger::operator!=(const CBigInteger& other) const
{
    return !(*this == other);
}

// The ordering goes by the sign fields alone, then by the magnitudes.
bool CBigInteger::operator>(const CBigInteger& other) const
{
    if (m_sign != other.m_sign)
        return m_sign == 1;
    const int order = Compare(m_digits, other.m_digits);
    return m_sign == 1 ? order > 0 : order < 0;
}

bool CBigInteger::operator<(const CBigInteger& other) const
{
    if (m_sign != other.m_sign)
        return m_sign == -1;
    const int order = Compare(m_digits, other.m_digits);
    return m_sign == 1 ? order < 0 : order > 0;
}

bool CBigInteger::operator<=(const CBigInteger& other) const
{
    return !(*this > other);
}

bool CBigInteger::operator>=(const CBigInteger& other) const
{
    return !(*this < other);
}

CBigInteger::operator int() const
{
    if (*this > MAX_LONG || *this < MIN_LONG)
        throw CNxInvalidValueException("ERROR: Value out of bound of int.");
    // Within the range there are at most ten digits, so the wider type
    // holds every partial sum and power.
    long long value = 0;
    long long power = 1;
    for (const char digit : m_digits) {
        value += m_sign == -1 ? -digit * power : digit * power;
        power *= 10;
    }
    return static_cast<int>(value);
}

} // namespace NxXmlLib9
