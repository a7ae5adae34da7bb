// CDecimal scaling, rounding and the four operations.
#include "NxDecimal.h"
#include "NxException.h"

#include <algorithm>
#include <utility>

namespace NxXmlLib9 {

namespace {

// Quotients are computed to two digits beyond the kept ones and then rounded.
const unsigned int kQuotientDigits = CDecimal::m_maxDivider + 2;

} // namespace

void CDecimal::WholeTakesFractionSign()
{
    if (m_whole.IsZero())
        m_whole.m_sign = m_fraction.m_sign;
}

void CDecimal::Negate()
{
    m_whole.Negate();
    m_fraction.Negate();
}

CDecimal CDecimal::GetNegative() const
{
    CDecimal copy(*this);
    copy.Negate();
    return copy;
}

void CDecimal::ChangeFractionalDivider(int divider)
{
    if (divider < 0)
        throw CNxInvalidParamException("ERROR: Negative fractional divider.");
    if (m_divider <= divider) {
        // Scaling up is exact: append zero digits.
        CBigInteger::ShiftLeft(m_fraction.m_digits, static_cast<size_t>(divider - m_divider));
        m_divider = divider;
        return;
    }

    const CBigInteger unit = CBigInteger::Pow10(static_cast<unsigned int>(m_divider - divider));
    const CBigInteger dropped = m_fraction % unit;
    m_fraction /= unit;
    m_divider = divider;

    // Round what was dropped; an exact half is not rounded away from zero.
    int adjustment = 0;
    if (dropped > unit / CBigInteger(2))
        adjustment = 1;
    else if (dropped < unit / CBigInteger(-2))
        adjustment = -1;
    if (adjustment == 0)
        return;

    if (divider == 0) {
        m_whole += CBigInteger(adjustment);
        return;
    }
    // A fraction rounded up to a whole unit stays as it is (0.96 to one digit
    // is 0 and 10 tenths); only a change of sign is mended.
    const CBigInteger zero(0);
    const CBigInteger one(1);
    const CBigInteger whole = CBigInteger::Pow10(static_cast<unsigned int>(divider));
    m_fraction += CBigInteger(adjustment);
    if (m_whole > zero && m_fraction < zero) {
        m_fraction += whole;
        m_whole -= one;
    } else if (m_whole < zero && m_fraction > zero) {
        m_fraction -= whole;
        m_whole += one;
    }
    WholeTakesFractionSign();
}

void CDecimal::Rationalise()
{
    if (m_divider <= 1)
        return;
    CBigInteger::Digits& digits = m_fraction.m_digits;
    const size_t limit = static_cast<size_t>(m_divider - 1);
    if (m_fraction.IsZero()) {
        // Dividing a zero gives a plain zero.
        m_fraction = CBigInteger(0);
        m_divider = 1;
        return;
    }
    size_t zeros = 0;
    while (zeros < limit && zeros < digits.size() && digits[zeros] == 0)
        ++zeros;
    digits.erase(digits.begin(), digits.begin() + static_cast<std::ptrdiff_t>(zeros));
    m_divider -= static_cast<int>(zeros);
}

int CDecimal::Normalize(CDecimal& a, CDecimal& b)
{
    const int divider = std::max(a.m_divider, b.m_divider);
    a.ChangeFractionalDivider(divider);
    b.ChangeFractionalDivider(divider);
    return divider;
}

CDecimal CDecimal::operator+(const CDecimal& other) const
{
    CDecimal a(*this);
    CDecimal b(other);
    const int divider = Normalize(a, b);
    const CBigInteger unit = CBigInteger::Pow10(static_cast<unsigned int>(divider));
    const CBigInteger zero(0);
    const CBigInteger one(1);

    CDecimal sum(a.m_whole + b.m_whole, a.m_fraction + b.m_fraction, divider);
    // Carry whole units out of the fraction. A fraction that cancels to zero
    // is a plain zero, as the unit-by-unit subtraction would leave it.
    if (CBigInteger::Compare(sum.m_fraction.m_digits, unit.m_digits) >= 0) {
        sum.m_whole += sum.m_fraction / unit;
        sum.m_fraction %= unit;
        if (sum.m_fraction.IsZero())
            sum.m_fraction.m_sign = 1;
    }
    // Give both parts one sign.
    if (sum.m_whole > zero && sum.m_fraction < zero) {
        sum.m_fraction += unit;
        sum.m_whole -= one;
    }
    if (sum.m_whole < zero && sum.m_fraction > zero) {
        sum.m_fraction -= unit;
        sum.m_whole += one;
    }
    sum.WholeTakesFractionSign();
    sum.Rationalise();
    return sum;
}

CDecimal CDecimal::operator-(const CDecimal& other) const
{
    return *this + other.GetNegative();
}

CDecimal CDecimal::operator*(const CDecimal& other) const
{
    CDecimal a(*this);
    CDecimal b(other);
    const int divider = Normalize(a, b);
    const CBigInteger unit = CBigInteger::Pow10(static_cast<unsigned int>(divider));
    const CBigInteger square = CBigInteger::Pow10(2u * static_cast<unsigned int>(divider));

    const CBigInteger total = a.m_whole * b.m_whole * square + a.m_whole * b.m_fraction * unit +
                              a.m_fraction * b.m_whole * unit + a.m_fraction * b.m_fraction;
    CDecimal product(total / square, total % square, 2 * divider);
    product.Rationalise();
    if (product.m_divider > m_maxDivider)
        product.ChangeFractionalDivider(m_maxDivider);
    return product;
}

CDecimal CDecimal::operator/(const CDecimal& other) const
{
    CDecimal a(*this);
    CDecimal b(other);
    const int divider = Normalize(a, b);
    const CBigInteger unit = CBigInteger::Pow10(static_cast<unsigned int>(divider));
    const CBigInteger scale = CBigInteger::Pow10(kQuotientDigits);

    const CBigInteger dividend = (a.m_whole * unit + a.m_fraction) * scale;
    const CBigInteger divisor = b.m_whole * unit + b.m_fraction;
    const CBigInteger quotient = dividend / divisor;
    CDecimal result(quotient / scale, quotient % scale, static_cast<int>(kQuotientDigits));
    result.Rationalise();
    if (result.m_divider > m_maxDivider)
        result.ChangeFractionalDivider(m_maxDivider);
    return result;
}

CDecimal& CDecimal::operator+=(const CDecimal& other)
{
    *this = *this + other;
    return *this;
}

CDecimal& CDecimal::operator-=(const CDecimal& other)
{
    *this = *this - other;
    return *this;
}

CDecimal& CDecimal::operator*=(const CDecimal& other)
{
    *this = *this * other;
    return *this;
}

CDecimal& CDecimal::operator/=(const CDecimal& other)
{
    *this = *this / other;
    return *this;
}

CDecimal& CDecimal::operator++()
{
    return *this += CDecimal(1);
}

CDecimal CDecimal::operator++(int)
{
    CDecimal before(*this);
    *this += CDecimal(1);
    return before;
}

CDecimal& CDecimal::operator--()
{
    return *this -= CDecimal(1);
}

CDecimal CDecimal::operator--(int)
{
    CDecimal before(*this);
    *this -= CDecimal(1);
    return before;
}

} // namespace NxXmlLib9
