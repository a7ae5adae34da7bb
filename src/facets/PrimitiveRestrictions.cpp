#include "NxPrimitiveRestrictions.h"

#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

CPrimitiveRestrictions::CPrimitiveRestrictions() : MinLength(-1), MaxLength(-1), Length(-1) {}

CPrimitiveRestrictions::CPrimitiveRestrictions(const char* pattern, int minLength, int maxLength,
                                               const char* minInclusive, const char* maxInclusive,
                                               const char* minExclusive, const char* maxExclusive, int length)
    : Pattern(TextArgument(pattern)),
      MinLength(minLength),
      MaxLength(maxLength),
      MinInclusive(TextArgument(minInclusive)),
      MaxInclusive(TextArgument(maxInclusive)),
      MinExclusive(TextArgument(minExclusive)),
      MaxExclusive(TextArgument(maxExclusive)),
      Length(length)
{
}

CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

} // namespace NxXmlLib9
