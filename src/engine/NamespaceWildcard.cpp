#include "NxNamespaceWildcard.h"

#include "foundation/TextArgument.h"

namespace NxXmlLib9Data {

CNamespaceWildcard::CNamespaceWildcard(const char* wildcard, const char* targetNamespace)
    : m_wildcard(NxXmlLib9::OrEmpty(wildcard)), m_targetNamespace(NxXmlLib9::OrEmpty(targetNamespace))
{
}

} // namespace NxXmlLib9Data
