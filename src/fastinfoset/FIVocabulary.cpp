// The vocabulary tables: each string table is kept as a map for look-ups by
// the writer and as a vector for look-ups by index in the reader.
#include "NxFastInfosetContext.h"

namespace NxXmlLib9 {

CFIVocabulary::CFIVocabulary()
{
    m_restrictedAlphabets.emplace_back(RESTRICTED_ALPHABET_VALUES_NUMERIC);
    m_restrictedAlphabets.emplace_back(RESTRICTED_ALPHABET_VALUES_DATE_TIME);
    AddPrefixName(FI_DEFAULT_PREFIX);
    AddNamespaceName(FI_DEFAULT_NAMESPACE);
}

CFIVocabulary::~CFIVocabulary() = default;

std::string CFIVocabulary::MakeQNameKey(const std::string& prefix, const std::string& namespaceName,
                                        const std::string& localName)
{
    std::string key;
    key.reserve(localName.size() + namespaceName.size() + prefix.size() + 2);
    key.append(localName).append(1, '\x01').append(namespaceName).append(1, '\x01').append(prefix);
    return key;
}

bool CFIVocabulary::FindIndex(const CFIIndexMap& map, const std::string& key, unsigned long& index) const
{
    auto found = map.find(key);
    if (found == map.end())
        return false;
    index = found->second;
    return true;
}

bool CFIVocabulary::FindLocalNameIndex(const std::string& name, unsigned long& index) const
{
    return FindIndex(m_localNamesMap, name, index);
}

bool CFIVocabulary::FindNamespaceNameIndex(const std::string& name, unsigned long& index) const
{
    return FindIndex(m_namespaceNamesMap, name, index);
}

bool CFIVocabulary::FindPrefixNameIndex(const std::string& name, unsigned long& index) const
{
    return FindIndex(m_prefixNamesMap, name, index);
}

void CFIVocabulary::AddValueToMap(const std::string& value, CFIIndexMap& map)
{
    if (map.size() >= MAX_TABLE_SIZE)
        return;
    map.emplace(value, static_cast<unsigned long>(map.size()) + 1);
}

void CFIVocabulary::AddValueToVector(const std::string& value, CFIStringTable& table)
{
    if (table.size() < MAX_TABLE_SIZE)
        table.push_back(value);
}

void CFIVocabulary::AddQNameToVector(unsigned long prefix, unsigned long namespaceIndex, unsigned long localName,
                                     CFIQNameTable& table)
{
    if (table.size() < MAX_TABLE_SIZE)
        table.push_back(CQNameParts{prefix, namespaceIndex, localName});
}

void CFIVocabulary::AddLocalName(const std::string& name)
{
    AddValueToMap(name, m_localNamesMap);
    AddValueToVector(name, m_localNamesTable);
}

void CFIVocabulary::AddNamespaceName(const std::string& name)
{
    AddValueToMap(name, m_namespaceNamesMap);
    AddValueToVector(name, m_namespaceNamesTable);
}

void CFIVocabulary::AddPrefixName(const std::string& name)
{
    AddValueToMap(name, m_prefixNamesMap);
    AddValueToVector(name, m_prefixNamesTable);
}

void CFIVocabulary::AddElementValue(const std::string& value)
{
    AddValueToMap(value, m_characterChunksMap);
    AddValueToVector(value, m_characterChunksTable);
}

void CFIVocabulary::AddAttributeValue(const std::string& value)
{
    AddValueToMap(value, m_attributeValuesMap);
    AddValueToVector(value, m_attributeValuesTable);
}

// A name not yet in its map is added, and its index is then taken as the
// table's new size, which is where the reader will find it.
unsigned long CFIVocabulary::IndexOrAdd(const std::string& name, const CFIIndexMap& map,
                                        void (CFIVocabulary::*add)(const std::string&), const CFIStringTable& table)
{
    unsigned long index = 0;
    if (!FindIndex(map, name, index)) {
        (this->*add)(name);
        index = table.size();
    }
    return index;
}

void CFIVocabulary::AddQName(const std::string& prefix, const std::string& namespaceName,
                             const std::string& localName, CFIIndexMap& map, CFIQNameTable& table)
{
    std::string key = MakeQNameKey(prefix, namespaceName, localName);
    unsigned long index = 0;
    if (FindIndex(map, key, index))
        return;

    unsigned long prefixIndex = 0;
    if (!prefix.empty())
        prefixIndex = IndexOrAdd(prefix, m_prefixNamesMap, &CFIVocabulary::AddPrefixName, m_prefixNamesTable);
    unsigned long namespaceIndex = 0;
    if (!namespaceName.empty())
        namespaceIndex = IndexOrAdd(namespaceName, m_namespaceNamesMap, &CFIVocabulary::AddNamespaceName,
                                    m_namespaceNamesTable);
    unsigned long localIndex = IndexOrAdd(localName, m_localNamesMap, &CFIVocabulary::AddLocalName, m_localNamesTable);

    AddValueToMap(key, map);
    AddQNameToVector(prefixIndex, namespaceIndex, localIndex, table);
}

void CFIVocabulary::AddElement(const std::string& prefix, const std::string& namespaceName,
                               const std::string& localName)
{
    AddQName(prefix, namespaceName, localName, m_elementNamesMap, m_elementNamesTable);
}

void CFIVocabulary::AddAttribute(const std::string& prefix, const std::string& namespaceName,
                                 const std::string& localName)
{
    AddQName(prefix, namespaceName, localName, m_attributeNamesMap, m_attributeNamesTable);
}

} // namespace NxXmlLib9
