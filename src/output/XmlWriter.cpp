#include "NxXmlWriter.h"

#include "NxException.h"

namespace NxXmlLib9 {

namespace {

// Spelled out here as well, so that a writer made during static
// initialisation of another library does not depend on the order in which
// the constants are built.
const char kXmlNamespace[] = "http://www.w3.org/XML/1998/namespace";
const size_t kXmlNamespaceLength = sizeof(kXmlNamespace) - 1;

// Generated prefixes repeat once the first character has run through every
// value of a char; past that point no new candidate exists.
const int kDistinctPrefixes = 256 * 26;

} // namespace

const std::string CXmlWriter::XML_NAMESPACE(kXmlNamespace);

CXmlWriter::CXmlWriter()
    : CInstanceMonitor("CXmlWriter"), m_pCurrentContext(nullptr)
{
    CXmlWriter::AddNamespace("xml", kXmlNamespace);
}

CXmlWriter::~CXmlWriter()
{
    delete m_pCurrentContext;
    for (CXmlWriterContext* scope : m_spareScopes)
        delete scope;
}

void CXmlWriter::Open() {}

void CXmlWriter::Close()
{
    if (m_pCurrentContext)
        throw CNxException("An Element has not been closed.");
}

void CXmlWriter::SetDefaultNamespace(const std::string& namespaceUri)
{
    if (m_pCurrentContext)
        m_pCurrentContext->SetDefaultNamespace(namespaceUri);
    else
        m_defaultNamespace = namespaceUri;
}

void CXmlWriter::AddNamespace(const std::string& prefix, const std::string& namespaceUri)
{
    if (m_pCurrentContext)
        m_pCurrentContext->SetNamespaceMapValue(namespaceUri, prefix);
    else
        m_namespaceMap[namespaceUri] = prefix;
}

std::string CXmlWriter::NsIntToString(int i)
{
    std::string prefix(2, 'A');
    prefix[0] = static_cast<char>('A' + i / 26);
    prefix[1] = static_cast<char>('A' + i % 26);
    return prefix;
}

std::string CXmlWriter::GetUniquePrefix(const NamespaceMap& map)
{
    // The candidates are compared in place; only the one chosen is made.
    for (int i = 0; i < kDistinctPrefixes; ++i) {
        const char first = static_cast<char>('A' + i / 26);
        const char second = static_cast<char>('A' + i % 26);
        bool taken = false;
        for (const auto& entry : map) {
            const std::string& prefix = entry.second;
            if (prefix.size() == 2 && prefix[0] == first && prefix[1] == second) {
                taken = true;
                break;
            }
        }
        if (!taken)
            return NsIntToString(i);
    }
    throw CNxException("No namespace prefix is left to generate.");
}

CXmlWriter::CXmlWriterContext* CXmlWriter::NewScope(const std::string& name,
                                                    const std::string& namespaceUri) const
{
    if (m_spareScopes.empty()) {
        if (m_pCurrentContext)
            return new CXmlWriterContext(name, namespaceUri, m_pCurrentContext);
        return new CXmlWriterContext(name, namespaceUri, m_defaultNamespace, m_namespaceMap, nullptr);
    }
    CXmlWriterContext* scope = m_spareScopes.back();
    m_spareScopes.pop_back();
    try {
        if (m_pCurrentContext)
            scope->InitChild(name, namespaceUri, m_pCurrentContext);
        else
            scope->InitRoot(name, namespaceUri, m_defaultNamespace, m_namespaceMap);
    } catch (...) {
        delete scope;
        throw;
    }
    return scope;
}

void CXmlWriter::PushScope(CXmlWriterContext* scope)
{
    m_pCurrentContext = scope;
}

void CXmlWriter::PopScope()
{
    CXmlWriterContext* scope = m_pCurrentContext;
    if (!scope)
        return;
    m_pCurrentContext = scope->DetachParent();
    try {
        m_spareScopes.push_back(scope);
    } catch (...) {
        delete scope;
    }
}

void CXmlWriter::DiscardScope(CXmlWriterContext* scope)
{
    if (!scope)
        return;
    scope->DetachParent();
    delete scope;
}

std::string CXmlWriter::FindOrCreatePrefix(CXmlWriterContext& scope, const std::string& namespaceUri,
                                           bool& isNew)
{
    return FindOrCreatePrefixInPlace(scope, namespaceUri, isNew);
}

const std::string& CXmlWriter::FindOrCreatePrefixInPlace(CXmlWriterContext& scope, const std::string& namespaceUri,
                                                         bool& isNew)
{
    NamespaceMap& map = scope.EffectiveMap();
    NamespaceMap::const_iterator found = map.find(namespaceUri);
    isNew = found == map.end();
    if (isNew) {
        scope.SetNamespaceMapValue(namespaceUri, GetUniquePrefix(map));
        // The scope may have taken a map of its own for it.
        found = scope.EffectiveMap().find(namespaceUri);
    }
    return found->second;
}

bool CXmlWriter::IsXmlNamespace(const std::string& namespaceUri)
{
    return namespaceUri.compare(0, kXmlNamespaceLength, kXmlNamespace) == 0;
}

} // namespace NxXmlLib9
