#include "engine/AttributeInfoShared.h"

#include "NxException.h"

namespace NxXmlLib9Data {

void ValidateRequiredAttribute(const CAttributeInfo& entry, bool found)
{
    if (!entry.IsOptional() && !found)
        throw NxXmlLib9::CNxValidationException(
            NxXmlLib9::FormatString("Failed to find the required Attribute [%s]", entry.GetName().c_str()));
}

} // namespace NxXmlLib9Data
