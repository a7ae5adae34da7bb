// CDecimal comparisons: both sides are brought to one divider, then the whole
// parts decide and the fractions break a tie.
#include "NxDecimal.h"

namespace NxXmlLib9 {

namespace {

// Compares copies brought to one divider: the whole parts with `wholeOrder`,
// and on equal whole parts the fractions with `fractionOrder`.
template <class WholeOrder, class FractionOrder>
bool CompareScaled(const CDecimal& left, const CDecimal& right, WholeOrder wholeOrder,
                   FractionOrder fractionOrder)
{
    CDecimal a(left);
    CDecimal b(right);
    CDecimal::Normalize(a, b);
    if (wholeOrder(a.GetWhole(), b.GetWhole()))
        return true;
    return a.GetWhole() == b.GetWhole() && fractionOrder(a.GetFraction(), b.GetFraction());
}

bool Never(const CBigInteger&, const CBigInteger&)
{
    return false;
}

} // namespace

bool CDecimal::operator==(const CDecimal& other) const
{
    return CompareScaled(*this, other, Never,
                         [](const CBigInteger& a, const CBigInteger& b) { return a == b; });
}

bool CDecimal::operator!=(const CDecimal& other) const
{
    return !(*this == other);
}

bool CDecimal::operator>(const CDecimal& other) const
{
    auto greater = [](const CBigInteger& a, const CBigInteger& b) { return a > b; };
    return CompareScaled(*this, other, greater, greater);
}

bool CDecimal::operator>=(const CDecimal& other) const
{
    return CompareScaled(
        *this, other, [](const CBigInteger& a, const CBigInteger& b) { return a > b; },
        [](const CBigInteger& a, const CBigInteger& b) { return a >= b; });
}

bool CDecimal::operator<(const CDecimal& other) const
{
    auto less = [](const CBigInteger& a, const CBigInteger& b) { return a < b; };
    return CompareScaled(*this, other, less, less);
}

bool CDecimal::operator<=(const CDecimal& other) const
{
    return CompareScaled(
        *this, other, [](const CBigInteger& a, const CBigInteger& b) { return a < b; },
        [](const CBigInteger& a, const CBigInteger& b) { return a <= b; });
}

} // namespace NxXmlLib9
