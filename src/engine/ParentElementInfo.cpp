// The record that describes a generated class as a whole.
#include "NxMetadata.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9Data {

CParentElementInfo::CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType,
                                       const char* typeName, const char* typeNamespace, int textPropertyIndex,
                                       bool rejectUnknownAttributes, bool mayWriteTypeAttribute)
    : m_groupType(groupType),
      m_elementType(elementType),
      m_typeName(NxXmlLib9::OrEmpty(typeName)),
      m_typeNamespace(NxXmlLib9::OrEmpty(typeNamespace)),
      m_textPropertyIndex(textPropertyIndex),
      m_rejectUnknownAttributes(rejectUnknownAttributes),
      m_mayWriteTypeAttribute(mayWriteTypeAttribute)
{
}

CParentElementInfo::~CParentElementInfo() = default;

} // namespace NxXmlLib9Data
