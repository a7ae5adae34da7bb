// Facets of durations, of the date and time kinds and of year, month and
// day.

#include "NxXmlObjectHelper.h"

#include "facets/FacetChecks.h"

namespace NxXmlLib9 {

using Facets::CheckOrderFacets;
using Facets::DefiniteOrder;
using Facets::DescribeInteger;
using Facets::DescribeText;

namespace {

using DateParser = CDateTime (*)(const std::string&, CWhitespaceUtils::WhitespaceRule);

// Every date kind is checked the same way; they differ only in the reader
// of their bounds.
void CheckDateFacets(const char* name, const CDateTime& value, const CPrimitiveRestrictions& restrictions,
                     DateParser parse)
{
    CheckOrderFacets(DefiniteOrder<CDateTime>(value), restrictions, parse,
                     [&] { return DescribeText(name, value.ToString()); });
}

} // namespace

void CXmlObjectHelper::CheckRestrictionForduration(const char* name, const CDateTimeSpan& value,
                                                   const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(DefiniteOrder<CDateTimeSpan>(value), restrictions, &CConversions::durationFromString,
                     [&] { return DescribeText(name, value.ToString()); });
}

void CXmlObjectHelper::CheckRestrictionForyearMonth(const char* name, const CDateTime& value,
                                                    const CPrimitiveRestrictions& restrictions)
{
    CheckDateFacets(name, value, restrictions, &CConversions::yearMonthFromString);
}

void CXmlObjectHelper::CheckRestrictionFormonthYear(const char* name, const CDateTime& value,
                                                    const CPrimitiveRestrictions& restrictions)
{
    CheckRestrictionForyearMonth(name, value, restrictions);
}

void CXmlObjectHelper::CheckRestrictionFormonthDay(const char* name, const CDateTime& value,
                                                   const CPrimitiveRestrictions& restrictions)
{
    CheckDateFacets(name, value, restrictions, &CConversions::monthDayFromString);
}

void CXmlObjectHelper::CheckRestrictionFordate(const char* name, const CDateTime& value,
                                               const CPrimitiveRestrictions& restrictions)
{
    CheckDateFacets(name, value, restrictions, &CConversions::dateFromString);
}

void CXmlObjectHelper::CheckRestrictionFordatetime(const char* name, const CDateTime& value,
                                                   const CPrimitiveRestrictions& restrictions)
{
    CheckDateFacets(name, value, restrictions, &CConversions::datetimeFromString);
}

void CXmlObjectHelper::CheckRestrictionFortime(const char* name, const CDateTime& value,
                                               const CPrimitiveRestrictions& restrictions)
{
    CheckDateFacets(name, value, restrictions, &CConversions::timeFromString);
}

void CXmlObjectHelper::CheckRestrictionForyear(const char* name, unsigned short value,
                                               const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::yearFromString,
                     [&] { return DescribeInteger(name, value); });
}

void CXmlObjectHelper::CheckRestrictionFormonth(const char* name, unsigned char value,
                                                const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::monthFromString,
                     [&] { return DescribeInteger(name, value); });
}

void CXmlObjectHelper::CheckRestrictionForday(const char* name, unsigned char value,
                                              const CPrimitiveRestrictions& restrictions)
{
    CheckOrderFacets(value, restrictions, &CConversions::dayFromString, [&] { return DescribeInteger(name, value); });
}

} // namespace NxXmlLib9
