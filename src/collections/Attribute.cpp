// One untyped attribute.
#include "NxUntyped.h"
#include "NxXmlWriter.h"

#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

CAttribute::CAttribute(const char* name, const char* value, const char* namespaceUri)
    : CInstanceMonitor("CAttribute"),
      m_name(OrEmpty(name)),
      m_value(OrEmpty(value)),
      m_namespace(OrEmpty(namespaceUri))
{
}

CAttribute::~CAttribute() = default;

CXmlObjectBase* CAttribute::GetBase() { return this; }

std::string CAttribute::GetTargetNamespace() const { return m_namespace; }

std::string CAttribute::GetNamespace() const { return m_namespace; }

CSmartPtr<CAttribute> CAttribute::Clone() const
{
    return new CAttribute(m_name.c_str(), m_value.c_str(), m_namespace.c_str());
}

void CAttribute::SetName(const char* name)
{
    FireOnChangeName(name);
    m_name = OrEmpty(name);
}

void CAttribute::SetValue(const char* value) { m_value = OrEmpty(value); }

void CAttribute::SetNamespace(const char* namespaceUri)
{
    FireOnChangeNamespace(namespaceUri);
    m_namespace = OrEmpty(namespaceUri);
}

void CAttribute::FireOnChangeName(const char*) {}

void CAttribute::FireOnChangeNamespace(const char*) {}

void CAttribute::ToXml_Int(CXmlWriter* writer, bool, const char*, const CXmlSerializationContext&, bool) const
{
    writer->WriteAttributeString(m_name, m_namespace, m_value, ItemTypeString);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, const CXmlSerializationContext&, bool)
{
    throw CNxException("This should be done by the collection");
}

} // namespace NxXmlLib9
