// The magnitude arithmetic of CBigInteger on decimal digit vectors, least
// significant digit first. Addition, subtraction and comparison are linear;
// multiplication and division are the schoolbook algorithms.
#include "NxBigInteger.h"
#include "NxException.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace NxXmlLib9 {

using Digits = CBigInteger::Digits;

namespace {

// The number of digits without high zeros; a zero (or empty) vector has one.
size_t SignificantLength(const Digits& digits)
{
    size_t length = digits.size();
    while (length > 1 && digits[length - 1] == 0)
        --length;
    return length == 0 ? 1 : length;
}

bool IsZeroMagnitude(const Digits& digits)
{
    return SignificantLength(digits) == 1 && (digits.empty() || digits[0] == 0);
}

template <class Unsigned>
void BuildUnsigned(Unsigned value, Digits& digits)
{
    digits.clear();
    do {
        digits.push_back(static_cast<char>(value % 10));
        value /= 10;
    } while (value != 0);
}

// remainder -= divisor, in place; the caller guarantees remainder >= divisor
// and that both are clean.
void SubtractInPlace(Digits& remainder, const Digits& divisor)
{
    int borrow = 0;
    for (size_t i = 0; i < remainder.size(); ++i) {
        int d = remainder[i] - borrow - (i < divisor.size() ? divisor[i] : 0);
        borrow = d < 0 ? 1 : 0;
        remainder[i] = static_cast<char>(d + 10 * borrow);
        if (i >= divisor.size() && borrow == 0)
            break;
    }
    CBigInteger::Clean(remainder);
}

} // namespace

void CBigInteger::Build(unsigned int value, Digits& digits)
{
    BuildUnsigned(value, digits);
}

void CBigInteger::BuildDWORDLONG(unsigned long long value, Digits& digits)
{
    BuildUnsigned(value, digits);
}

void CBigInteger::BuildDouble(double value, Digits& digits)
{
    if (!std::isfinite(value))
        throw CNxInvalidValueException("ERROR: Value out of bound of BigInteger.");
    digits.clear();
    // Rounds half down: ceil(2.5 - 0.5) is 2.
    double rest = std::ceil(value - 0.5);
    if (rest <= 0) {
        digits.push_back(0);
        return;
    }
    while (rest > 0) {
        digits.push_back(static_cast<char>(std::fmod(rest, 10.0)));
        rest = std::trunc(rest / 10.0);
    }
    Clean(digits);
}

void CBigInteger::Build(const std::string& text, Digits& digits)
{
    digits.clear();
    for (size_t i = text.size(); i > 0; --i) {
        const char c = text[i - 1];
        if (c < '0' || c > '9')
            break;
        digits.push_back(static_cast<char>(c - '0'));
    }
    Clean(digits);
}

void CBigInteger::Clean(Digits& digits)
{
    digits.resize(SignificantLength(digits), 0);
}

size_t CBigInteger::Position(const Digits& digits)
{
    return digits.empty() ? 1 : digits.size();
}

int CBigInteger::Compare(const Digits& a, const Digits& b)
{
    const size_t lengthA = SignificantLength(a);
    const size_t lengthB = SignificantLength(b);
    if (lengthA != lengthB)
        return lengthA < lengthB ? -1 : 1;
    for (size_t i = lengthA; i > 0; --i) {
        const char da = i - 1 < a.size() ? a[i - 1] : 0;
        const char db = i - 1 < b.size() ? b[i - 1] : 0;
        if (da != db)
            return da < db ? -1 : 1;
    }
    return 0;
}

void CBigInteger::ShiftLeft(Digits& digits, size_t n)
{
    // A zero stays a single digit rather than growing a run of zeros.
    if (n == 0 || IsZeroMagnitude(digits))
        return;
    digits.insert(digits.begin(), n, 0);
}

void CBigInteger::Add(const Digits& a, const Digits& b, Digits& result)
{
    // Addition commutes: make the result, if it is an operand, the first one.
    if (&result == &b && &result != &a) {
        Add(b, a, result);
        return;
    }
    const size_t sizeB = b.size();
    if (&result != &a)
        result = a;
    result.resize(std::max(result.size(), sizeB), 0);
    int carry = 0;
    for (size_t i = 0; i < result.size(); ++i) {
        if (i >= sizeB && carry == 0)
            break;
        const int d = result[i] + (i < sizeB ? b[i] : 0) + carry;
        carry = d >= 10 ? 1 : 0;
        result[i] = static_cast<char>(d - 10 * carry);
    }
    if (carry != 0)
        result.push_back(1);
    Clean(result);
}

void CBigInteger::Subtract(const Digits& a, const Digits& b, Digits& result)
{
    if (Compare(a, b) < 0)
        throw CNxInvalidParamException("ERROR: Subtrahend larger than minuend in function Subtract().");
    if (&result == &b && &result != &a) {
        Digits difference;
        Subtract(a, b, difference);
        result.swap(difference);
        return;
    }
    const size_t sizeB = std::min(b.size(), SignificantLength(b));
    if (&result != &a)
        result = a;
    int borrow = 0;
    for (size_t i = 0; i < result.size(); ++i) {
        if (i >= sizeB && borrow == 0)
            break;
        const int d = result[i] - (i < sizeB ? b[i] : 0) - borrow;
        borrow = d < 0 ? 1 : 0;
        result[i] = static_cast<char>(d + 10 * borrow);
    }
    Clean(result);
}

void CBigInteger::Multiply(const Digits& a, char digit, Digits& result)
{
    const unsigned factor = static_cast<unsigned char>(digit);
    if (factor == 0 || IsZeroMagnitude(a)) {
        result.assign(1, 0);
        return;
    }
    Digits product;
    product.reserve(a.size() + 3);
    unsigned carry = 0;
    for (const char d : a) {
        const unsigned t = static_cast<unsigned>(d) * factor + carry;
        product.push_back(static_cast<char>(t % 10));
        carry = t / 10;
    }
    for (; carry != 0; carry /= 10)
        product.push_back(static_cast<char>(carry % 10));
    Clean(product);
    result.swap(product);
}

void CBigInteger::Multiply(const Digits& a, const Digits& b, Digits& result)
{
    if (IsZeroMagnitude(a) || IsZeroMagnitude(b)) {
        result.assign(1, 0);
        return;
    }
    const size_t sizeA = SignificantLength(a);
    const size_t sizeB = SignificantLength(b);
    Digits product(sizeA + sizeB, 0);
    for (size_t j = 0; j < sizeB; ++j) {
        const int factor = b[j];
        if (factor == 0)
            continue;
        int carry = 0;
        for (size_t i = 0; i < sizeA; ++i) {
            const int t = product[i + j] + a[i] * factor + carry;
            product[i + j] = static_cast<char>(t % 10);
            carry = t / 10;
        }
        for (size_t k = j + sizeA; carry != 0; ++k) {
            const int t = product[k] + carry;
            product[k] = static_cast<char>(t % 10);
            carry = t / 10;
        }
    }
    Clean(product);
    result.swap(product);
}

void CBigInteger::Divide(const Digits& a, const Digits& b, Digits& quotient, Digits& remainder)
{
    if (IsZeroMagnitude(b))
        throw CNxInvalidValueException("ERROR: Overflow in operator/.");
    if (Compare(a, b) < 0) {
        Digits rest = a;
        Clean(rest);
        quotient.assign(1, 0);
        remainder.swap(rest);
        return;
    }
    Digits divisor = b;
    Clean(divisor);
    const size_t sizeA = SignificantLength(a);
    const size_t sizeB = divisor.size();

    // Decimals divide by powers of ten all the time: that is a split of the
    // digits.
    if (divisor.back() == 1 && std::all_of(divisor.begin(), divisor.end() - 1, [](char d) { return d == 0; })) {
        const auto split = a.begin() + static_cast<std::ptrdiff_t>(sizeB - 1);
        Digits low(a.begin(), split);
        Digits high(split, a.begin() + static_cast<std::ptrdiff_t>(sizeA));
        Clean(low);
        Clean(high);
        quotient.swap(high);
        remainder.swap(low);
        return;
    }

    // Long division from the high end. The running remainder starts with the
    // top sizeB - 1 digits of a, so each step below brings in one digit and
    // yields one quotient digit found by at most nine subtractions.
    Digits rest(a.begin() + static_cast<std::ptrdiff_t>(sizeA - (sizeB - 1)),
                a.begin() + static_cast<std::ptrdiff_t>(sizeA));
    Clean(rest);
    Digits high; // quotient digits, most significant first
    high.reserve(sizeA - sizeB + 1);
    for (size_t i = sizeA - (sizeB - 1); i > 0; --i) {
        if (rest.size() == 1 && rest[0] == 0)
            rest[0] = a[i - 1];
        else
            rest.insert(rest.begin(), a[i - 1]);
        char count = 0;
        while (Compare(rest, divisor) >= 0) {
            SubtractInPlace(rest, divisor);
            ++count;
        }
        high.push_back(count);
    }
    std::reverse(high.begin(), high.end());
    Clean(high);
    quotient.swap(high);
    remainder.swap(rest);
}

void CBigInteger::Pow10(unsigned int n, Digits& digits)
{
    digits.assign(static_cast<size_t>(n) + 1, 0);
    digits[n] = 1;
}

} // namespace NxXmlLib9
