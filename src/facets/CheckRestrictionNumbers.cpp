// Order facets of the integer and real kinds.

#include "NxXmlObjectHelper.h"

#include "facets/FacetChecks.h"

namespace NxXmlLib9 {

using Facets::CheckOrderFacets;
using Facets::DescribeInteger;
using Facets::DescribeReal;
using Facets::DescribeText;

// The four-byte kinds are printed through "%d" as their low 32 bits, signed,
// as their text form shows them.

void CXmlObjectHelper::CheckRestrictionFori1(const char* name, char value, const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::i1FromString, [&] { return DescribeInteger(name, value); });
}

void CXmlObjectHelper::CheckRestrictionFori2(const char* name, short value, const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::i2FromString, [&] { return DescribeInteger(name, value); });
}

void CXmlObjectHelper::CheckRestrictionFori4(const char* name, long value, const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::i4FromString,
                     [&] { return DescribeInteger(name, static_cast<int>(value)); });
}

void CXmlObjectHelper::CheckRestrictionFori8(const char* name, long long value,
                                             const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::i8FromString,
                     [&] { return DescribeText(name, CConversions::i8ToString(value)); });
}

void CXmlObjectHelper::CheckRestrictionForui1(const char* name, unsigned char value,
                                              const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::ui1FromString, [&] { return DescribeInteger(name, value); });
}

void CXmlObjectHelper::CheckRestrictionForui2(const char* name, unsigned short value,
                                              const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::ui2FromString, [&] { return DescribeInteger(name, value); });
}

void CXmlObjectHelper::CheckRestrictionForui4(const char* name, unsigned long value,
                                              const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::ui4FromString,
                     [&] { return DescribeInteger(name, static_cast<int>(value)); });
}

void CXmlObjectHelper::CheckRestrictionForui8(const char* name, unsigned long long value,
                                              const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::ui8FromString,
                     [&] { return DescribeText(name, CConversions::ui8ToString(value)); });
}

void CXmlObjectHelper::CheckRestrictionForr4(const char* name, float value, const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::r4FromString, [&] { return DescribeReal(name, value); });
}

void CXmlObjectHelper::CheckRestrictionForr8(const char* name, double value, const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::r8FromString, [&] { return DescribeReal(name, value); });
}

} // namespace NxXmlLib9
