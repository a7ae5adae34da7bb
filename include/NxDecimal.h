// CDecimal: the XSD decimal, a fixed-point number of any size made of two
// big integers. The value is whole + fraction / 10^divider; both parts carry
// the sign, and a zero whole part keeps the sign of a number between -1 and 0
// in its own sign field.
#pragma once

#include <string>

#include "NxBigInteger.h"

namespace NxXmlLib9 {

class CDecimal {
public:
    // The most fractional digits a parsed value, a product or a quotient keeps;
    // further digits are rounded away.
    static constexpr int m_maxDivider = 30;

    CDecimal();
    CDecimal(int value);
    CDecimal(const CBigInteger& whole);
    // Stored as given; a negative divider throws CNxInvalidParamException.
    CDecimal(const CBigInteger& whole, const CBigInteger& fraction, int divider);
    // Same as Parse; a null text is zero.
    CDecimal(const char* text);
    // Keeps 13 fractional digits of the value.
    CDecimal(double value);
    CDecimal(const CDecimal& other) = default;
    CDecimal(CDecimal&& other) noexcept = default;
    CDecimal& operator=(const CDecimal& other) = default;
    CDecimal& operator=(CDecimal&& other) noexcept = default;
    virtual ~CDecimal();

    // Digits with an optional point and exponent; signs and white space are
    // taken anywhere before the point. Any other character throws
    // CNxInvalidValueException naming its position.
    void Parse(const char* text);
    // Every digit of the value, the fraction zero padded to the divider.
    std::string ToString() const;
    // Adds a half unit of the sign of the whole part, then cuts the fraction
    // to `digits` characters.
    std::string ToString(int digits) const;

    void Negate();
    CDecimal GetNegative() const;

    // Rescales the fraction to `divider` digits, rounding what is dropped;
    // an exact half stays down. A negative divider throws
    // CNxInvalidParamException.
    void ChangeFractionalDivider(int divider);
    // Drops trailing zero digits of the fraction, down to one digit.
    void Rationalise();
    // Brings both to the larger divider and returns it.
    static int Normalize(CDecimal& a, CDecimal& b);

    CDecimal operator+(const CDecimal& other) const;
    CDecimal operator-(const CDecimal& other) const;
    CDecimal operator*(const CDecimal& other) const;
    // A zero divisor throws CNxInvalidValueException.
    CDecimal operator/(const CDecimal& other) const;
    CDecimal& operator+=(const CDecimal& other);
    CDecimal& operator-=(const CDecimal& other);
    CDecimal& operator*=(const CDecimal& other);
    CDecimal& operator/=(const CDecimal& other);
    CDecimal& operator++();
    CDecimal operator++(int);
    CDecimal& operator--();
    CDecimal operator--(int);

    bool operator==(const CDecimal& other) const;
    bool operator!=(const CDecimal& other) const;
    bool operator<(const CDecimal& other) const;
    bool operator<=(const CDecimal& other) const;
    bool operator>(const CDecimal& other) const;
    bool operator>=(const CDecimal& other) const;

    // The native conversions throw CNxOverFlowException out of range.
    long long ToLongLong() const;
    long ToLong() const;
    double ToDouble() const;
    CBigInteger ToBigInteger() const;

    const CBigInteger& GetWhole() const { return m_whole; }
    const CBigInteger& GetFraction() const { return m_fraction; }
    int GetDivider() const { return m_divider; }

private:
    // If the whole part is zero it takes the sign of the fraction.
    void WholeTakesFractionSign();

    CBigInteger m_whole;
    CBigInteger m_fraction;
    int m_divider;
};

} // namespace NxXmlLib9
