// The shared part of every child element record: matching, facets and the
// ways into the generated object and its children.
#include "NxMetadata.h"

#include "NxException.h"
#include "NxGeneratedClass.h"
#include "NxXmlDocument.h"
#include "NxXmlObjectHelper.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9Data {

using namespace NxXmlLib9;

CElementInfo::CElementInfo(const char* name, const char* elementNamespace, int propertyIndex)
    : m_name(OrEmpty(name)),
      m_namespace(OrEmpty(elementNamespace)),
      m_propertyIndex(propertyIndex),
      // Not described as a primitive: these fields are never looked at, and
      // are given harmless values rather than left undefined.
      m_itemType(ItemTypeNone),
      m_format(nullptr),
      m_whitespaceRule(CWhitespaceUtils::WhitespaceRuleNone),
      m_hasPrimitiveDescription(false)
{
}

CElementInfo::CElementInfo(const char* name, const char* elementNamespace, int propertyIndex, ItemType type,
                           const char* format, CWhitespaceUtils::WhitespaceRule rule,
                           const CPrimitiveRestrictions& restrictions)
    : m_name(OrEmpty(name)),
      m_namespace(OrEmpty(elementNamespace)),
      m_propertyIndex(propertyIndex),
      m_restrictions(restrictions),
      m_itemType(type),
      m_format(format),
      m_whitespaceRule(rule),
      m_hasPrimitiveDescription(true)
{
}

CElementInfo::~CElementInfo() = default;

void CElementInfo::PseudoChildAttributeToXml(const CXmlSerializationContext&, const CXmlGeneratedClass*,
                                             CXmlWriter*) const
{
}

bool CElementInfo::IsThisElement(const CXmlSerializationContext& context, const CXmlElement* element) const
{
    if (!element || element->GetLocalName() != m_name)
        return false;
    return context.GetIgnoreNamespaces() || element->GetNamespaceURI() == m_namespace;
}

std::string CElementInfo::GetAnyDefaultNamespace(const char* wildcard, const char* classNamespace,
                                                 const char* targetNamespace)
{
    const std::string text = OrEmpty(wildcard);
    if (text == "##any")
        return OrEmpty(classNamespace);
    if (text == "##other")
        return *OrEmpty(classNamespace) == '\0' ? "DefaultNamespace" : "";
    if (text == "##local")
        return "";
    if (text == "##targetNamespace")
        return OrEmpty(targetNamespace);
    // A list that opens with a token decides by its first token; a list
    // that opens with a URI, like a single URI, gives no default.
    const std::string::size_type blank = text.find(' ');
    if (blank != std::string::npos && text.size() >= 3 && text.compare(0, 2, "##") == 0)
        return GetAnyDefaultNamespace(text.substr(0, blank).c_str(), classNamespace, targetNamespace);
    return "";
}

void CElementInfo::CheckRestriction(const NxVariant& value) const
{
    if (!m_hasPrimitiveDescription)
        throw CNxException("Cannot CheckRestriction for type: " + value.GetType());
    CXmlObjectHelper::CheckRestriction(m_name.c_str(), value, m_itemType, m_restrictions);
}

void CElementInfo::AccessProperty(CXmlGeneratedClass* object, bool read, NxVariant& value) const
{
    object->AccessProperty(m_propertyIndex, read, value);
}

void CElementInfo::ReadProperty(const CXmlGeneratedClass* object, NxVariant& value) const
{
    object->ReadProperty(m_propertyIndex, value);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* target, CXmlElement* element, CXmlElement* cursor,
                                       const CXmlSerializationContext& context, bool isOptionalChoice) const
{
    // Called directly rather than through the object base's forwarder,
    // which would drop isOptionalChoice: an optional choice member must
    // tell its child that it may be empty.
    return target->FromXml_Int(element, cursor, context, isOptionalChoice);
}

void CElementInfo::AttributesToXml_Int(const CXmlObjectBase* target, CXmlWriter* writer,
                                       const CXmlSerializationContext& context) const
{
    CXmlObjectBase::AttributesToXml_Int(target, writer, context);
}

// A child element is never the root of the document.
void CElementInfo::ToXml_Int(const CXmlObjectBase* target, CXmlWriter* writer, const char* elementNamespace,
                             const CXmlSerializationContext& context, bool isOptionalChoice) const
{
    CXmlObjectBase::ToXml_Int(target, writer, false, elementNamespace, context, isOptionalChoice);
}

} // namespace NxXmlLib9Data
