// The schema facets of one primitive property, as generated metadata
// carries them: texts and numbers, parsed again whenever a value is checked.
#pragma once

#include <string>

namespace NxXmlLib9 {

// A text facet is absent when empty, a number facet when negative. Order
// bounds are written as text of the value's own kind. There is no field for
// totalDigits, fractionDigits or enumeration: digit facets are not checked,
// and enumerations and the whitespace rule live elsewhere in the metadata.
class CPrimitiveRestrictions {
public:
    // No facet at all.
    CPrimitiveRestrictions();
    // Any null pointer stands for an absent (empty) text facet.
    CPrimitiveRestrictions(const char* pattern, int minLength, int maxLength, const char* minInclusive,
                           const char* maxInclusive, const char* minExclusive, const char* maxExclusive,
                           int length);
    CPrimitiveRestrictions(const CPrimitiveRestrictions&) = default;
    CPrimitiveRestrictions(CPrimitiveRestrictions&&) = default;
    CPrimitiveRestrictions& operator=(const CPrimitiveRestrictions&) = default;
    CPrimitiveRestrictions& operator=(CPrimitiveRestrictions&&) = default;
    virtual ~CPrimitiveRestrictions();

    std::string Pattern;      // XSD regular expression, in the local code page
    int MinLength;
    int MaxLength;
    std::string MinInclusive;
    std::string MaxInclusive;
    std::string MinExclusive;
    std::string MaxExclusive;
    int Length;
};

} // namespace NxXmlLib9
