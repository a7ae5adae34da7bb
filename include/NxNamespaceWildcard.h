// The namespaces a wildcard record (xs:any, xs:anyAttribute) admits: the
// wildcard text, such as "##any", "##other" or a list of URIs, and the target
// namespace that "##targetNamespace" and "##other" are read against.
#pragma once

#include <string>

namespace NxXmlLib9Data {

class CNamespaceWildcard {
public:
    // A null text is the empty one.
    CNamespaceWildcard(const char* wildcard, const char* targetNamespace);

    const std::string& GetWildcard() const { return m_wildcard; }
    const std::string& GetTargetNamespace() const { return m_targetNamespace; }

private:
    std::string m_wildcard;
    std::string m_targetNamespace;
};

} // namespace NxXmlLib9Data
