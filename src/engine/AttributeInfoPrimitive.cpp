// A primitive attribute record.
#include "NxAttributeInfos.h"

#include "NxGeneratedClass.h"
#include "NxXmlDocument.h"
#include "NxXmlObjectHelper.h"
#include "engine/AttributeInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;

CAttributeInfoPrimitive::CAttributeInfoPrimitive(const char* name, const char* attributeNamespace, int propertyIndex,
                                                 bool optional, ItemType type, const char* format,
                                                 CWhitespaceUtils::WhitespaceRule rule,
                                                 const CPrimitiveRestrictions& restrictions,
                                                 const char* defaultValue)
    : CAttributeInfo(name, attributeNamespace, propertyIndex, optional, defaultValue),
      m_restrictions(restrictions),
      m_itemType(type),
      m_format(format),
      m_whitespaceRule(rule)
{
}

CAttributeInfoPrimitive::~CAttributeInfoPrimitive() = default;

void CAttributeInfoPrimitive::AttributeToXml(const CXmlSerializationContext& context,
                                             const CXmlGeneratedClass* object, CXmlWriter* writer) const
{
    WriteValueAttribute(
        *this, context, object, writer,
        [this](const NxVariant& value, std::string& buffer) -> const std::string& {
            // A string is its own text.
            if (value.GetItemType() == ItemTypeString)
                return value.GetStringRef();
            return buffer = value.ToString(m_format);
        },
        // The public check takes its value by copy; writing checks in place.
        [this](const NxVariant& value) {
            CXmlObjectHelper::CheckRestriction(m_name.c_str(), value, m_itemType, m_restrictions);
        },
        [](const NxVariant& value) { return value.GetItemType(); });
}

bool CAttributeInfoPrimitive::AttributeFromXml(const CXmlSerializationContext&, CXmlGeneratedClass* object,
                                               CXmlAttribute* attribute)
{
    // Matched here on name and namespace alone, not through
    // IsThisAttribute: ignoring namespaces does not reach primitive
    // attributes. No facets are checked on reading.
    if (!attribute || attribute->GetLocalName() != m_name || attribute->GetNamespaceURI() != m_namespace)
        return false;
    NxVariant value;
    value.FromString(attribute->GetValue(), m_itemType, m_whitespaceRule);
    AccessProperty(object, false, value);
    return true;
}

void CAttributeInfoPrimitive::Validate(const CXmlSerializationContext&, bool found) const
{
    ValidateRequiredAttribute(*this, found);
}

void CAttributeInfoPrimitive::CheckRestriction(NxVariant value) const
{
    CXmlObjectHelper::CheckRestriction(m_name.c_str(), value, m_itemType, m_restrictions);
}

} // namespace NxXmlLib9Data
