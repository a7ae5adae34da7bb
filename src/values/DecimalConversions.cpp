// CDecimal to native numbers and to CBigInteger. Each native conversion
// checks the range on the whole part and then reads the printed value with
// the C library, which stops at the point.
#include "NxDecimal.h"
#include "NxException.h"

#include <cstdlib>

namespace NxXmlLib9 {

long long CDecimal::ToLongLong() const
{
    // Rounding to one place never reaches the whole part: 1.96 becomes
    // 1 and 10 tenths and reads as 1.
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(1);
    if (rounded.m_whole > CBigInteger::MAX_LONGLONG || rounded.m_whole < CBigInteger::MIN_LONGLONG)
        throw CNxOverFlowException("The Decimal value if to large to fit into a LONGLONG");
    return std::strtoll(rounded.ToString().c_str(), nullptr, 10);
}

long CDecimal::ToLong() const
{
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    if (rounded.m_whole > CBigInteger::MAX_LONG || rounded.m_whole < CBigInteger::MIN_LONG)
        throw CNxOverFlowException("The Decimal value if to large to fit into a LONG");
    return std::strtol(rounded.ToString().c_str(), nullptr, 10);
}

double CDecimal::ToDouble() const
{
    if (m_whole > CBigInteger::MAX_DOUBLE || m_whole < CBigInteger::MIN_DOUBLE)
        throw CNxOverFlowException("The Decimal value if to large to fit into a Double");
    return std::strtod(ToString().c_str(), nullptr);
}

CBigInteger CDecimal::ToBigInteger() const
{
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    return rounded.m_whole;
}

} // namespace NxXmlLib9
