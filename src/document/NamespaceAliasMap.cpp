// Root namespace declarations of a write, keyed by URI.
#include "NxSerializationContext.h"

#include <algorithm>
#include <iterator>

#include "NxException.h"
#include "NxFoundation.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

namespace {

using AliasMap = std::map<std::string, std::string>;

// First entry, in URI order, whose alias is the given one.
AliasMap::const_iterator FindAlias(const AliasMap& aliases, const char* alias)
{
    const std::string wanted = OrEmpty(alias);
    return std::find_if(aliases.begin(), aliases.end(),
                        [&wanted](const AliasMap::value_type& entry) { return entry.second == wanted; });
}

} // namespace

CNamespaceAliasMap::~CNamespaceAliasMap() = default;

void CNamespaceAliasMap::Add(const char* alias, const char* namespaceUri)
{
    m_aliases[OrEmpty(namespaceUri)] = OrEmpty(alias);
}

void CNamespaceAliasMap::RemoveNamespace(const char* namespaceUri)
{
    m_aliases.erase(OrEmpty(namespaceUri));
}

int CNamespaceAliasMap::GetNamespaceCount() const
{
    return static_cast<int>(m_aliases.size());
}

std::string CNamespaceAliasMap::GetNamespaceAt(int index) const
{
    const std::size_t position = index > 0 ? static_cast<std::size_t>(index) : 0;
    if (position >= m_aliases.size())
        return std::string();
    return std::next(m_aliases.begin(), static_cast<std::ptrdiff_t>(position))->first;
}

bool CNamespaceAliasMap::DoesAliasExist(const char* alias) const
{
    return FindAlias(m_aliases, alias) != m_aliases.end();
}

bool CNamespaceAliasMap::DoesNamespaceExist(const char* namespaceUri) const
{
    return m_aliases.find(OrEmpty(namespaceUri)) != m_aliases.end();
}

std::string CNamespaceAliasMap::GetNamespaceFromAlias(const char* alias) const
{
    auto found = FindAlias(m_aliases, alias);
    if (found == m_aliases.end())
        throw CNxException(FormatString("Namespace alias [%s] not found", OrEmpty(alias)));
    return found->first;
}

std::string CNamespaceAliasMap::GetAliasFromNamespace(const char* namespaceUri) const
{
    return m_aliases[OrEmpty(namespaceUri)];
}

} // namespace NxXmlLib9
