// The shared part of every attribute record: matching and the ways into the
// generated object.
#include "NxMetadata.h"

#include "NxGeneratedClass.h"
#include "NxXmlDocument.h"
#include "NxXmlObjectHelper.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;

CAttributeInfo::CAttributeInfo(const char* name, const char* attributeNamespace, int propertyIndex, bool optional,
                               const char* defaultValue)
    : m_name(OrEmpty(name)),
      m_namespace(OrEmpty(attributeNamespace)),
      m_propertyIndex(propertyIndex),
      m_optional(optional),
      m_defaultValue(OrEmpty(defaultValue))
{
}

CAttributeInfo::~CAttributeInfo() = default;

bool CAttributeInfo::IsThisAttribute(const CXmlSerializationContext& context, CXmlAttribute* attribute) const
{
    if (!attribute || attribute->GetLocalName() != m_name)
        return false;
    return context.GetIgnoreNamespaces() || attribute->GetNamespaceURI() == m_namespace;
}

void CAttributeInfo::AccessProperty(CXmlGeneratedClass* object, bool read, NxVariant& value) const
{
    object->AccessProperty(m_propertyIndex, read, value);
}

void CAttributeInfo::ReadProperty(const CXmlGeneratedClass* object, NxVariant& value) const
{
    object->ReadProperty(m_propertyIndex, value);
}

std::string CAttributeInfo::GetTargetNamespace(const CXmlObjectBase* object) const
{
    return object->GetTargetNamespace();
}

void CAttributeInfo::TestNamespace(const std::string& namespaceUri, const std::string& wildcard,
                                   const std::string& targetNamespace) const
{
    CXmlObjectHelper::TestNamespace(namespaceUri, wildcard, targetNamespace);
}

void CAttributeInfo::ToXml_Int(const CXmlObjectBase* target, CXmlWriter* writer, bool isRoot,
                               const char* elementNamespace, const CXmlSerializationContext& context,
                               bool isOptionalChoice) const
{
    CXmlObjectBase::ToXml_Int(target, writer, isRoot, elementNamespace, context, isOptionalChoice);
}

} // namespace NxXmlLib9Data
