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
    : CInstanceMonitor("CXmlAttribute"), m_localName(localName), m_value(value), m_namespaceUri(namespaceUri)
{
}

CXmlAttribute::~CXmlAttribute() = default;

bool CXmlAttribute::IsNamespaceAttribute() const
{
    return InInstanceOrXmlnsNamespace(m_namespaceUri) &&
           (m_localName == "xmlns" || m_localName == "type" || m_localName == "schemaLocation" ||
            m_localName == "noNamespaceSchemaLocation");
}

bool CXmlAttribute::IsNilAttribute() const
{
    return InInstanceOrXmlnsNamespace(m_namespaceUri) && m_localName == "nil";
}

} // namespace NxXmlLib9
