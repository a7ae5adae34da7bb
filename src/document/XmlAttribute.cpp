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

struct CXmlAttribute::OwnNames {
    std::string localName;
    std::string namespaceUri;
};

CXmlAttribute::CXmlAttribute(const std::string& localName, const std::string& value, const std::string& namespaceUri)
    : CInstanceMonitor("CXmlAttribute"), m_value(value), m_ownNames(new OwnNames{localName, namespaceUri})
{
    m_localName = &m_ownNames->localName;
    m_namespaceUri = &m_ownNames->namespaceUri;
}

CXmlAttribute::CXmlAttribute(const std::string* localName, std::string&& value, const std::string* namespaceUri)
    : CInstanceMonitor("CXmlAttribute"), m_localName(localName), m_value(std::move(value)), m_namespaceUri(namespaceUri)
{
}

CXmlAttribute::~CXmlAttribute() = default;

bool CXmlAttribute::IsNamespaceAttribute() const
{
    const std::string& name = *m_localName;
    return InInstanceOrXmlnsNamespace(*m_namespaceUri) &&
           (name == "xmlns" || name == "type" || name == "schemaLocation" || name == "noNamespaceSchemaLocation");
}

bool CXmlAttribute::IsNilAttribute() const
{
    return InInstanceOrXmlnsNamespace(*m_namespaceUri) && *m_localName == "nil";
}

} // namespace NxXmlLib9
