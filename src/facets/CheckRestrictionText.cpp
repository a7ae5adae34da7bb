// Facets of strings and booleans.

#include "NxXmlObjectHelper.h"

#include "NxBinaryData.h"
#include "NxEncoder.h"
#include "NxRegEx.h"
#include "facets/FacetChecks.h"

namespace NxXmlLib9 {

using Facets::BreaksLengthFacets;
using Facets::DescribeText;
using Facets::ThrowFacetFailure;

void CXmlObjectHelper::CheckRestrictionForstring(const char* name, std::string value,
                                                 const CPrimitiveRestrictions& restrictions)
{
    // Lengths count the bytes of the local text, not its characters.
    if (BreaksLengthFacets(value.length(), restrictions))
        ThrowFacetFailure(DescribeText(name, value));

    if (!restrictions.Pattern.empty()) {
        const CBinaryData utf8 = CEncoder::LocalCodePageToUtf8Binary(restrictions.Pattern.c_str());
        std::string pattern;
        if (utf8.GetData())
            pattern.assign(reinterpret_cast<const char*>(utf8.GetData()), utf8.GetLength());
        if (!TestRegEx(std::move(pattern), value))
            ThrowFacetFailure(DescribeText(name, value));
    }
}

void CXmlObjectHelper::CheckRestrictionForboolean(const char* name, bool value,
                                                  const CPrimitiveRestrictions& restrictions)
{
    // true and false meet every facet a boolean may carry.
    (void)name;
    (void)value;
    (void)restrictions;
}

} // namespace NxXmlLib9
