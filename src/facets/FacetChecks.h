// Shared pieces of the facet checks: the failure texts and the order tests
// that every ordered kind applies in the same sequence.
#pragma once

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

} // namespace Facets
} // namespace NxXmlLib9
