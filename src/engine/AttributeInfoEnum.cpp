// An enumeration attribute record.
#include "NxAttributeInfos.h"

#include "NxException.h"
#include "NxGeneratedClass.h"
#include "NxXmlDocument.h"
#include "engine/AttributeInfoShared.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;

CAttributeInfoEnum::CAttributeInfoEnum(const char* name, const char* attributeNamespace, int propertyIndex,
                                       bool optional, const char* (*toText)(int), int (*fromText)(const char*),
                                       const char* defaultValue)
    : CAttributeInfo(name, attributeNamespace, propertyIndex, optional, defaultValue),
      m_fromText(fromText),
      m_toText(toText)
{
}

CAttributeInfoEnum::~CAttributeInfoEnum() = default;

void CAttributeInfoEnum::AttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* object,
                                        CXmlWriter* writer) const
{
    WriteValueAttribute(
        *this, context, object, writer,
        [this](const NxVariant& value, std::string& buffer) -> const std::string& {
            const long number = value.GetI4();
            const char* text = m_toText(static_cast<int>(number));
            // A number without a text would otherwise vanish from the output.
            if (!text)
                throw CNxInvalidValueException(FormatString("Invalid Value for %s [%ld]", m_name.c_str(), number));
            return buffer = text;
        },
        [](const NxVariant&) {}, // the enumeration's texts are its only facet
        [](const NxVariant&) { return ItemTypeString; });
}

bool CAttributeInfoEnum::AttributeFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* object,
                                          CXmlAttribute* attribute)
{
    if (!IsThisAttribute(context, attribute))
        return false;
    // The conversion function is the one to refuse an unknown text.
    NxVariant value;
    value.SetI4(m_fromText(attribute->GetValue().c_str()));
    AccessProperty(object, false, value);
    return true;
}

void CAttributeInfoEnum::Validate(const CXmlSerializationContext&, bool found) const
{
    ValidateRequiredAttribute(*this, found);
}

} // namespace NxXmlLib9Data
