// Shared pieces of the facet checks: the failure texts and the order tests
// that every ordered kind applies in the same sequence.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "NxConversions.h"
#include "NxException.h"
#include "NxFoundation.h"
#include "NxPrimitiveRestrictions.h"

namespace NxXmlLib9 {
namespace Facets {

// A broken facet is reported as a bare CNxException naming the item and the
// value, never the facet.
[[noreturn]] inline void ThrowFacetFailure(std::string message)
{
    throw CNxException(std::move(message));
}

inline std::string DescribeInteger(const char* name, int value)
{
    return FormatString("Invalid Value for %s [%d]", name, value);
}

inline std::string DescribeReal(const char* name, double value)
{
    return FormatString("Invalid Value for %s [%f]", name, value);
}

inline std::string DescribeText(const char* name, const std::string& value)
{
    return FormatString("Invalid Value for %s [%s]", name, value.c_str());
}

// MinInclusive, MaxInclusive, MinExclusive, MaxExclusive, in that order,
// each skipped when its text is empty. A bound is parsed only when its turn
// comes, so a malformed bound fails with its parser's message only once the
// bounds before it have passed. The tests are written as comparisons that
// must hold, so a value that is unordered against a bound (a NaN) fails it.
// describe builds the failure text, and is called only on failure.
template <class T, class Parse, class Describe>
void CheckOrderFacets(const T& value, const CPrimitiveRestrictions& restrictions, Parse parse, Describe describe)
{
    constexpr CWhitespaceUtils::WhitespaceRule collapse = CWhitespaceUtils::WhitespaceRuleCollapse;
    if (!restrictions.MinInclusive.empty() && !(value >= parse(restrictions.MinInclusive, collapse)))
        ThrowFacetFailure(describe());
    if (!restrictions.MaxInclusive.empty() && !(value <= parse(restrictions.MaxInclusive, collapse)))
        ThrowFacetFailure(describe());
    if (!restrictions.MinExclusive.empty() && !(value > parse(restrictions.MinExclusive, collapse)))
        ThrowFacetFailure(describe());
    if (!restrictions.MaxExclusive.empty() && !(value < parse(restrictions.MaxExclusive, collapse)))
        ThrowFacetFailure(describe());
}

// MinLength, MaxLength and Length, each skipped when negative. Only the
// failure matters, not which of them failed, so they are tested together.
inline bool BreaksLengthFacets(size_t length, const CPrimitiveRestrictions& restrictions)
{
    return (restrictions.MinLength >= 0 && length < static_cast<size_t>(restrictions.MinLength)) ||
           (restrictions.MaxLength >= 0 && length > static_cast<size_t>(restrictions.MaxLength)) ||
           (restrictions.Length >= 0 && length != static_cast<size_t>(restrictions.Length));
}

// Presents a value with a partial order to CheckOrderFacets. Its CompareTo
// answers 0 equal, 1 less, 2 greater or 3 indeterminate, and a bound fails
// only on a definite answer against it: a value whose order against a bound
// is open passes that bound.
template <class T>
class DefiniteOrder {
public:
    explicit DefiniteOrder(const T& value) : m_value(value) {}

    bool operator>=(const T& bound) const { return m_value.CompareTo(bound) != kLess; }
    bool operator<=(const T& bound) const { return m_value.CompareTo(bound) != kGreater; }
    bool operator>(const T& bound) const
    {
        const int order = m_value.CompareTo(bound);
        return order != kEqual && order != kLess;
    }
    bool operator<(const T& bound) const
    {
        const int order = m_value.CompareTo(bound);
        return order != kEqual && order != kGreater;
    }

private:
    static constexpr int kEqual = 0;
    static constexpr int kLess = 1;
    static constexpr int kGreater = 2;

    const T& m_value;
};

} // namespace Facets
} // namespace NxXmlLib9
