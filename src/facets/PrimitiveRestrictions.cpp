#include "NxPrimitiveRestrictions.h"

#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

CPrimitiveRestrictions::CPrimitiveRestrictions() : MinLength(-1), MaxLength(-1), Length(-1) {}

CPrimitiveRestrictions::CPrimitiveRestrictions(const char* pattern, int minLength, int maxLength,
                                               const char* minInclusive, const char* maxInclusive,
                                               const char* minExclusive, const char* maxExclusive, int length)
    : Pattern(OrEmpty(pattern)),
      MinLength(minLength),
      MaxLength(maxLength),
      MinInclusive(OrEmpty(minInclusive)),
      MaxInclusive(OrEmpty(maxInclusive)),
      MinExclusive(OrEmpty(minExclusive)),
      MaxExclusive(OrEmpty(maxExclusive)),
      Length(length)
{
}

CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

} // namespace NxXmlLib9
