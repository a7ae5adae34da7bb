// Facets of binary data, decimals and big integers.

#include "NxXmlObjectHelper.h"

#include "facets/FacetChecks.h"

namespace NxXmlLib9 {

using Facets::BreaksLengthFacets;
using Facets::CheckOrderFacets;
using Facets::DescribeText;
using Facets::ThrowFacetFailure;

// Lengths count the decoded bytes, not the characters of the text the data
// came from. The text is made only for the failure.

void CXmlObjectHelper::CheckRestrictionForhexBinary(const char* name, const CBinaryData& value,
                                                    const CPrimitiveRestrictions& restrictions)
{
    if (BreaksLengthFacets(value.GetLength(), restrictions))
        ThrowFacetFailure(DescribeText(name, value.GetAsHexString()));
}

void CXmlObjectHelper::CheckRestrictionForbase64Binary(const char* name, const CBinaryData& value,
                                                       const CPrimitiveRestrictions& restrictions)
{
    if (BreaksLengthFacets(value.GetLength(), restrictions))
        ThrowFacetFailure(DescribeText(name, value.GetAsBase64()));
}

void CXmlObjectHelper::CheckRestrictionFordecimal(const char* name, const CDecimal& value,
                                                  const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::decimalFromString,
                     [&] { return DescribeText(name, value.ToString()); });
}

void CXmlObjectHelper::CheckRestrictionForinteger(const char* name, const CBigInteger& value,
                                                  const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::integerFromString,
                     [&] { return DescribeText(name, value.ToString()); });
}

} // namespace NxXmlLib9
