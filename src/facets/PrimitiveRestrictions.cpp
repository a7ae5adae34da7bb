#include "NxPrimitiveRestrictions.h"

namespace NxXmlLib9 {

namespace {
std::string TextOrEmpty(const char* text)
{
    return text ? std::string(text) : std::string();
}
} // namespace

CPrimitiveRestrictions::CPrimitiveRestrictions() : MinLength(-1), MaxLength(-1), Length(-1) {}

CPrimitiveRestrictions::CPrimitiveRestrictions(const char* pattern, int minLength, int maxLength,
                                               const char* minInclusive, const char* maxInclusive,
                                               const char* minExclusive, const char* maxExclusive, int length)
    : Pattern(TextOrEmpty(pattern)),
      MinLength(minLength),
      MaxLength(maxLength),
      MinInclusive(TextOrEmpty(minInclusive)),
      MaxInclusive(TextOrEmpty(maxInclusive)),
      MinExclusive(TextOrEmpty(minExclusive)),
      MaxExclusive(TextOrEmpty(maxExclusive)),
      Length(length)
{
}

CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

} // namespace NxXmlLib9
