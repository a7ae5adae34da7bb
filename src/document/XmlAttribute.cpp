// Attributes of the parsed tree.
#include "NxXmlDocument.h"

namespace NxXmlLib9 {

namespace {

const char* const SCHEMA_INSTANCE_URI = "http://www.w3.org/2001/XMLSchema-instance";
const char* const XMLNS_URI = "http://www.w3.org/2000/xmlns/";

bool InInstanceOrXmlnsNamespace(const std::string& namespaceUri)
{
    return namespaceUri == SCHEMA_INSTANCE_URI || namespaceUri == XMLNS_URI;
}

} // namespace

CXmlAttribute::CXmlAttribute(const std::string& localName, const std::string& value, const std::string& namespaceUri)
    : CInstanceMonitor("CXmlAttribute"), m_name(nullptr), m_value(value)
{
    m_name = new CXmlNodeName{localName, namespaceUri, nullptr};
}

CXmlAttribute::CXmlAttribute(const CXmlNodeName* name, std::string&& value) noexcept
    : CInstanceMonitor("CXmlAttribute"), m_name(name), m_value(std::move(value))
{
}

CXmlAttribute::~CXmlAttribute()
{
    // A name record without a document is the attribute's own.
    if (!m_name->document)
        delete m_name;
}

bool CXmlAttribute::IsNamespaceAttribute() const
{
    const std::string& name = m_name->localName;
    return InInstanceOrXmlnsNamespace(m_name->namespaceUri) &&
           (name == "xmlns" || name == "type" || name == "schemaLocation" || name == "noNamespaceSchemaLocation");
}

bool CXmlAttribute::IsNilAttribute() const
{
    return InInstanceOrXmlnsNamespace(m_name->namespaceUri) && m_name->localName == "nil";
}

} // namespace NxXmlLib9
