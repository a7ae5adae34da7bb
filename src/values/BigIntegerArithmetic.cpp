// CBigInteger signs and arithmetic, on top of the magnitude helpers.
#include "NxBigInteger.h"
#include "NxException.h"

#include <utility>

namespace NxXmlLib9 {

bool CBigInteger::IsZero() const
{
    return m_digits.empty() || (m_digits.size() == 1 && m_digits[0] == 0);
}

void CBigInteger::Abs()
{
    m_sign = 1;
}

CBigInteger CBigInteger::GetAbs() const
{
    CBigInteger copy(*this);
    copy.Abs();
    return copy;
}

void CBigInteger::Negate()
{
    m_sign = m_sign == -1 ? 1 : -1;
}

CBigInteger CBigInteger::GetNegative() const
{
    CBigInteger copy(*this);
    copy.Negate();
    return copy;
}

CBigInteger CBigInteger::operator-() const
{
    return GetNegative();
}

void CBigInteger::AddSigned(const CBigInteger& other, int otherSign)
{
    // Like signs add the magnitudes and keep the left sign.
    if (m_sign == otherSign) {
        Add(m_digits, other.m_digits, m_digits);
        return;
    }
    // Unlike signs: the larger magnitude gives the sign of the difference,
    // and equal magnitudes give a plain zero.
    const int order = Compare(m_digits, other.m_digits);
    if (order == 0) {
        m_sign = 1;
        m_digits.assign(1, 0);
    } else if (order > 0) {
        Subtract(m_digits, other.m_digits, m_digits);
    } else {
        Subtract(other.m_digits, m_digits, m_digits);
        m_sign = otherSign;
    }
}

CBigInteger CBigInteger::operator+(const CBigInteger& other) const
{
    CBigInteger sum(*this);
    sum += other;
    return sum;
}

CBigInteger CBigInteger::operator-(const CBigInteger& other) const
{
    CBigInteger difference(*this);
    difference -= other;
    return difference;
}

CBigInteger CBigInteger::operator*(const CBigInteger& other) const
{
    CBigInteger product(*this);
    product *= other;
    return product;
}

CBigInteger CBigInteger::operator/(const CBigInteger& other) const
{
    CBigInteger quotient(*this);
    quotient.DivideBy(other, true, "ERROR: Overflow in operator/.");
    return quotient;
}

CBigInteger CBigInteger::operator%(const CBigInteger& other) const
{
    CBigInteger remainder(*this);
    remainder.DivideBy(other, false, "ERROR: Overflow in operator%.");
    return remainder;
}

CBigInteger& CBigInteger::operator+=(const CBigInteger& other)
{
    AddSigned(other, other.m_sign);
    return *this;
}

CBigInteger& CBigInteger::operator-=(const CBigInteger& other)
{
    AddSigned(other, other.m_sign == -1 ? 1 : -1);
    return *this;
}

CBigInteger& CBigInteger::operator*=(const CBigInteger& other)
{
    // The sign is the product of the signs, also for a zero result.
    Multiply(m_digits, other.m_digits, m_digits);
    m_sign *= other.m_sign;
    return *this;
}

CBigInteger& CBigInteger::operator/=(const CBigInteger& other)
{
    DivideBy(other, true, "ERROR: Overflow in operator /=.");
    return *this;
}

CBigInteger& CBigInteger::operator%=(const CBigInteger& other)
{
    DivideBy(other, false, "ERROR: Overflow in operator%=.");
    return *this;
}

void CBigInteger::DivideBy(const CBigInteger& other, bool keepQuotient, const char* zeroMessage)
{
    if (other.IsZero())
        throw CNxInvalidValueException(zeroMessage);
    if (IsZero()) {
        // A zero quotient is a plain zero; a zero remainder keeps the sign of
        // the dividend like any other remainder.
        if (keepQuotient)
            m_sign = 1;
        m_digits.assign(1, 0);
        return;
    }
    Digits quotient;
    Digits remainder;
    Divide(m_digits, other.m_digits, quotient, remainder);
    // The quotient truncates toward zero; the remainder has the dividend's sign.
    if (keepQuotient) {
        m_digits.swap(quotient);
        m_sign = m_sign == other.m_sign ? 1 : -1;
    } else {
        m_digits.swap(remainder);
    }
}

CBigInteger CBigInteger::Pow10(unsigned int n)
{
    CBigInteger power;
    Pow10(n, power.m_digits);
    return power;
}

CBigInteger CBigInteger::SquareRoot() const
{
    if (m_sign == -1 && !IsZero())
        throw CNxInvalidValueException("ERROR: Negative Number in function SquareRoot().");
    // Newton's step would reach a division by zero for a zero value.
    if (IsZero())
        return CBigInteger(0);

    // Start above the root: ten to one more than half the digit count.
    CBigInteger x(10);
    const CBigInteger hundred(100);
    const CBigInteger zero(0);
    for (CBigInteger rest = GetAbs() / hundred; rest > zero; rest /= hundred)
        x *= CBigInteger(10);

    // From above, the integer Newton step falls to the root and then stops
    // falling; the last value before that is the root rounded down.
    const CBigInteger two(2);
    const CBigInteger value = GetAbs();
    CBigInteger previous;
    do {
        previous = x;
        x = (value / x + x) / two;
    } while (x < previous);
    previous.m_sign = 1;
    return previous;
}

} // namespace NxXmlLib9
