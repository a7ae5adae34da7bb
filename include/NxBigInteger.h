// CBigInteger: the XSD integer, an integer of any length held as decimal
// digits. Values travel between text and text, so the digits are kept in
// the form the text has, and the arithmetic works digit by digit.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NxXmlLib9 {

class CDecimal;

class CBigInteger {
public:
    // One element per decimal digit (the value 0 to 9, not the character),
    // least significant digit first.
    using Digits = std::vector<char>;

    // Bounds used by the conversions of CDecimal. The LONG pair is the 32-bit
    // range whatever the width of the platform's long.
    static const CBigInteger MAX_LONG;
    static const CBigInteger MIN_LONG;
    static const CBigInteger MAX_LONGLONG;
    static const CBigInteger MIN_LONGLONG;
    static const CBigInteger MAX_DOUBLE;
    static const CBigInteger MIN_DOUBLE;

    // Sign 1 and no digits; prints as "0" and counts as zero everywhere.
    CBigInteger();
    CBigInteger(int value);
    // Rounds to the nearest integer, an exact half toward zero: 2.5 gives 2
    // and -2.5 gives -2. A NaN or an infinity throws CNxInvalidValueException.
    CBigInteger(double value);
    // Same as Parse; a null text is zero.
    CBigInteger(const char* text);
    // The decimal rounded to no fractional digit (an exact half stays down).
    explicit CBigInteger(const CDecimal& value);
    CBigInteger(const CBigInteger& other) = default;
    CBigInteger(CBigInteger&& other) noexcept = default;
    CBigInteger& operator=(const CBigInteger& other) = default;
    CBigInteger& operator=(CBigInteger&& other) noexcept = default;
    virtual ~CBigInteger();

    // Lenient: a text of signs, digits and white space keeps the sign of a
    // leading '-' and the trailing run of digits ("12-34" is 34); any other
    // text is read as a decimal and rounded. Only the decimal reading fails.
    void Parse(const char* text);
    std::string ToString() const;

    void Abs();
    CBigInteger GetAbs() const;
    void Negate();
    CBigInteger GetNegative() const;
    CBigInteger operator-() const;

    CBigInteger operator+(const CBigInteger& other) const;
    CBigInteger operator-(const CBigInteger& other) const;
    CBigInteger operator*(const CBigInteger& other) const;
    // Truncates toward zero; the remainder has the sign of the dividend.
    // A zero divisor throws CNxInvalidValueException.
    CBigInteger operator/(const CBigInteger& other) const;
    CBigInteger operator%(const CBigInteger& other) const;
    CBigInteger& operator+=(const CBigInteger& other);
    CBigInteger& operator-=(const CBigInteger& other);
    CBigInteger& operator*=(const CBigInteger& other);
    CBigInteger& operator/=(const CBigInteger& other);
    CBigInteger& operator%=(const CBigInteger& other);

    // Equality takes a zero with sign -1 as zero; the ordering operators go by
    // the sign field, so such a zero orders below a positive zero.
    bool operator==(const CBigInteger& other) const;
    bool operator!=(const CBigInteger& other) const;
    bool operator<(const CBigInteger& other) const;
    bool operator<=(const CBigInteger& other) const;
    bool operator>(const CBigInteger& other) const;
    bool operator>=(const CBigInteger& other) const;

    // Throws CNxInvalidValueException outside the range of a 32-bit int.
    operator int() const;
    // The integer square root (rounded down); a negative value throws
    // CNxInvalidValueException.
    CBigInteger SquareRoot() const;
    static CBigInteger Pow10(unsigned int n);

    // 1 or -1.
    int GetSign() const { return m_sign; }
    const Digits& GetDigits() const { return m_digits; }

    // Magnitude helpers the arithmetic is written in. Every result parameter
    // may be the same object as an operand.
    static void Build(unsigned int value, Digits& digits);
    static void BuildDWORDLONG(unsigned long long value, Digits& digits);
    // Rounds as the double constructor does; the value must be finite.
    static void BuildDouble(double value, Digits& digits);
    // The trailing run of decimal digits of the text.
    static void Build(const std::string& text, Digits& digits);
    // Drops high zero digits; an empty vector becomes a single 0.
    static void Clean(Digits& digits);
    // The number of digits, 1 for an empty vector.
    static size_t Position(const Digits& digits);
    // -1, 0 or 1 on the magnitudes.
    static int Compare(const Digits& a, const Digits& b);
    static void ShiftLeft(Digits& digits, size_t n);
    static void Add(const Digits& a, const Digits& b, Digits& result);
    // a must not be smaller than b: CNxInvalidParamException otherwise.
    static void Subtract(const Digits& a, const Digits& b, Digits& result);
    static void Multiply(const Digits& a, char digit, Digits& result);
    static void Multiply(const Digits& a, const Digits& b, Digits& result);
    // A zero divisor throws CNxInvalidValueException.
    static void Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder);
    static void Pow10(unsigned int n, Digits& digits);

private:
    friend class CDecimal;

    bool IsZero() const;
    // Adds other, taken with the given sign, to this value in place.
    void AddSigned(const CBigInteger& other, int otherSign);
    // The shared body of / and %, with the message of the calling operator.
    void DivideBy(const CBigInteger& other, bool keepQuotient, const char* zeroMessage);

    int m_sign;
    Digits m_digits;
};

} // namespace NxXmlLib9
