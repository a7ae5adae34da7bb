// Facet records for the tables of facet cases.
#pragma once

#include "../values/Outcome.h"

inline NxXmlLib9::CPrimitiveRestrictions Lengths(int minLength, int maxLength, int length)
{
    return NxXmlLib9::CPrimitiveRestrictions(nullptr, minLength, maxLength, nullptr, nullptr, nullptr, nullptr,
                                             length);
}

inline NxXmlLib9::CPrimitiveRestrictions Bounds(const char* minInclusive, const char* maxInclusive,
                                                const char* minExclusive = nullptr,
                                                const char* maxExclusive = nullptr)
{
    return NxXmlLib9::CPrimitiveRestrictions(nullptr, -1, -1, minInclusive, maxInclusive, minExclusive,
                                             maxExclusive, -1);
}
