// Dispatch of a variant to the facet check of its declared kind.

#include "NxXmlObjectHelper.h"

#include "NxException.h"

namespace NxXmlLib9 {

void CXmlObjectHelper::CheckRestriction(const char* name, const NxVariant& value, ItemType type,
                                        const CPrimitiveRestrictions& restrictions)
{
    // The declared kind decides which getter reads the value; the variant's
    // own tag only names it in the failure below.
    switch (type) {
    case ItemTypeI1:
        return CheckRestrictionFori1(name, value.GetI1(), restrictions);
    case ItemTypeI2:
        return CheckRestrictionFori2(name, value.GetI2(), restrictions);
    case ItemTypeI4:
        return CheckRestrictionFori4(name, value.GetI4(), restrictions);
    case ItemTypeI8:
        return CheckRestrictionFori8(name, value.GetI8(), restrictions);
    case ItemTypeUI1:
        return CheckRestrictionForui1(name, value.GetUI1(), restrictions);
    case ItemTypeUI2:
        return CheckRestrictionForui2(name, value.GetUI2(), restrictions);
    case ItemTypeUI4:
        return CheckRestrictionForui4(name, value.GetUI4(), restrictions);
    case ItemTypeUI8:
        return CheckRestrictionForui8(name, value.GetUI8(), restrictions);
    case ItemTypeR4:
        return CheckRestrictionForr4(name, value.GetR4(), restrictions);
    case ItemTypeR8:
        return CheckRestrictionForr8(name, value.GetR8(), restrictions);
    case ItemTypeString:
        // Most strings carry no facet at all; they need no copy to pass.
        if (restrictions.Pattern.empty() && restrictions.MinLength < 0 && restrictions.MaxLength < 0 &&
            restrictions.Length < 0)
            return;
        return CheckRestrictionForstring(name, value.GetString(), restrictions);
    case ItemTypeBoolean:
        return CheckRestrictionForboolean(name, value.GetBoolean(), restrictions);
    case ItemTypeHexBinary:
        return CheckRestrictionForhexBinary(name, value.GetHexBinary(), restrictions);
    case ItemTypeBase64Binary:
        return CheckRestrictionForbase64Binary(name, value.GetBase64Binary(), restrictions);
    case ItemTypeDuration:
        return CheckRestrictionForduration(name, value.GetDuration(), restrictions);
    case ItemTypeYearMonth:
        return CheckRestrictionForyearMonth(name, value.GetYearMonth(), restrictions);
    case ItemTypeMonthDay:
        return CheckRestrictionFormonthDay(name, value.GetMonthDay(), restrictions);
    case ItemTypeYear:
        return CheckRestrictionForyear(name, value.GetYear(), restrictions);
    case ItemTypeMonth:
        return CheckRestrictionFormonth(name, value.GetMonth(), restrictions);
    case ItemTypeDay:
        return CheckRestrictionForday(name, value.GetDay(), restrictions);
    case ItemTypeDate:
        return CheckRestrictionFordate(name, value.GetDate(), restrictions);
    case ItemTypeDateTime:
        return CheckRestrictionFordatetime(name, value.GetDateTime(), restrictions);
    case ItemTypeTime:
        return CheckRestrictionFortime(name, value.GetTime(), restrictions);
    case ItemTypeDecimal:
        return CheckRestrictionFordecimal(name, value.GetDecimal(), restrictions);
    case ItemTypeInteger:
        return CheckRestrictionForinteger(name, value.GetInteger(), restrictions);
    default:
        // A single char has no check, nor has anything that is not a
        // primitive; GetType fails first on a variant whose tag has no name.
        throw CNxInvalidValueException("unknown type [" + value.GetType() + "]");
    }
}

} // namespace NxXmlLib9
