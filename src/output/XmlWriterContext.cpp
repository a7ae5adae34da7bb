#include "NxXmlWriter.h"
#include "foundation/TextArgument.h"

#include <atomic>
#include <cstring>

namespace NxXmlLib9 {

typedef CXmlWriter::CXmlWriterContext Scope;

unsigned long Scope::NextVersion()
{
    // Writers on several threads draw from the one counter.
    static std::atomic<unsigned long> counter(0);
    return counter.fetch_add(1, std::memory_order_relaxed) + 1;
}

Scope::CXmlWriterContext(const std::string& name, const std::string& namespaceUri,
                         CXmlWriterContext* parent)
    : CInstanceMonitor("CXmlWriterContext")
{
    InitChild(name, namespaceUri, parent);
}

Scope::CXmlWriterContext(const std::string& name, const std::string& namespaceUri,
                         const std::string& defaultNamespace, const NamespaceMap& map,
                         CXmlWriterContext* parent)
    : CInstanceMonitor("CXmlWriterContext")
{
    InitRoot(name, namespaceUri, defaultNamespace, map);
    m_parent = parent;
}

// Both are also how a recycled scope starts over: every field is set again,
// and the strings keep their storage.
void Scope::InitChild(const std::string& name, const std::string& namespaceUri, CXmlWriterContext* parent)
{
    SetMapAside();
    m_childCount = 0;
    m_startTagOpen = true;
    m_depth = parent ? parent->m_depth + 1 : 0;
    // A recycled scope mostly had the same namespace already.
    if (m_namespaceUri != namespaceUri)
        m_namespaceUri = namespaceUri;
    m_elementName = name;
    m_parent = parent;
    m_attributesWritten = false;
    m_defaultNamespace.clear();
    ForgetTagPrefix();
    if (parent) {
        m_inherits = true;
        m_ownsMap = false;
        m_chainRoot = parent->m_chainRoot;
        m_owner = parent->NamespaceOwner();
        m_ownerStamp = NamespaceStamp();
        m_map = m_owner->m_map;
    } else {
        // Without a parent there is nothing to share: start empty instead.
        StartChain(SpareMapFilled([](NamespaceMap& map) { map.clear(); }));
    }
}

void Scope::InitRoot(const std::string& name, const std::string& namespaceUri, const std::string& defaultNamespace,
                     const NamespaceMap& map)
{
    SetMapAside();
    NamespaceMap* copy = SpareMapFilled([&map](NamespaceMap& target) { target = map; });
    m_childCount = 0;
    m_startTagOpen = true;
    m_depth = 0;
    m_namespaceUri = namespaceUri;
    m_elementName = name;
    m_parent = nullptr;
    m_attributesWritten = false;
    m_defaultNamespace = defaultNamespace;
    ForgetTagPrefix();
    // A recycled scope is new state: nothing kept from its last use matches.
    StartChain(copy);
}

template <class Fill>
CXmlWriter::NamespaceMap* Scope::SpareMapFilled(Fill fill)
{
    NamespaceMap* map = m_spareMap ? m_spareMap : new NamespaceMap();
    m_spareMap = nullptr;
    m_madeValid = false;
    try {
        fill(*map);
    } catch (...) {
        // Also when called from the constructor, which has no destructor
        // to run yet.
        delete map;
        throw;
    }
    return map;
}

void Scope::OwnMap(NamespaceMap* map)
{
    m_map = map;
    m_ownsMap = true;
    m_inherits = false;
    m_owner = this;
    NoteStateChange();
}

void Scope::StartChain(NamespaceMap* map)
{
    OwnMap(map);
    m_chainRoot = this;
    m_ownerStamp = m_takeovers;
}

void Scope::SetMapAside()
{
    if (m_ownsMap && m_map) {
        if (m_spareMap) {
            delete m_map;
        } else {
            m_spareMap = m_map;
            // Still the map of the binding made for the tag, and nothing else?
            m_madeValid = m_madePending && m_version == m_madeVersion && m_map->size() == m_madeSize;
        }
    }
    m_madePending = false;
    m_map = nullptr;
    m_ownsMap = false;
}

// The chain of parents goes with the scope. It is taken down in a loop, not
// by recursion, so that a deep tree left open cannot exhaust the stack.
Scope::~CXmlWriterContext()
{
    CXmlWriterContext* ancestor = DetachParent();
    while (ancestor) {
        CXmlWriterContext* next = ancestor->DetachParent();
        delete ancestor;
        ancestor = next;
    }
    if (m_ownsMap)
        delete m_map;
    delete m_spareMap;
}

Scope* Scope::DetachParent()
{
    CXmlWriterContext* parent = m_parent;
    m_parent = nullptr;
    return parent;
}

const Scope* Scope::FindNamespaceOwner() const
{
    const CXmlWriterContext* scope = this;
    while (scope->m_inherits && scope->m_parent)
        scope = scope->m_parent;
    m_owner = scope;
    m_ownerStamp = NamespaceStamp();
    return scope;
}

// Whoever holds the map may change it behind the scope's back, so nothing
// worked out from it before is trusted afterwards.
CXmlWriter::NamespaceMap& Scope::GetNamespaceMap() const
{
    const CXmlWriterContext* owner = NamespaceOwner();
    owner->NoteStateChange();
    return *owner->m_map;
}

namespace {

// Makes target equal to source with the binding (uri, prefix) added, when
// uri is not null. A target that already has the same URIs, as a recycled
// map of the same place in the tree has, only takes the prefixes over, which
// allocates nothing; any other is copied whole.
void CopyMapWith(CXmlWriter::NamespaceMap& target, const CXmlWriter::NamespaceMap& source,
                 const std::string* uri, const std::string* prefix)
{
    const CXmlWriter::NamespaceMap::size_type size = target.size();
    if (size == source.size() || (uri && size == source.size() + 1)) {
        // Both are in URI order, so the binding stands at the same place in
        // both, or in the target alone.
        auto from = source.begin();
        bool placed = false;
        auto to = target.begin();
        for (; to != target.end(); ++to) {
            if (uri && !placed && to->first == *uri) {
                if (from != source.end() && from->first == *uri)
                    ++from;
                to->second = *prefix;
                placed = true;
            } else if (from != source.end() && from->first == to->first) {
                to->second = from->second;
                ++from;
            } else {
                break;
            }
        }
        if (to == target.end() && from == source.end() && (placed || !uri))
            return;
    }
    target = source;
    if (uri)
        target[*uri] = *prefix;
}

} // namespace

// A scope that is about to declare something gets a map of its own, so that
// the declaration reaches its subtree only.
void Scope::TakePrivateMap(const std::string* namespaceUri, const std::string* prefix)
{
    NamespaceMap* copy = SpareMapFilled(
        [&](NamespaceMap& target) { CopyMapWith(target, EffectiveMap(), namespaceUri, prefix); });
    if (m_ownsMap)
        delete m_map;
    OwnMap(copy);
    // Scopes below this one may have cached an ancestor as their owner.
    NoteNamespaceChange();
}

void Scope::SetDefaultNamespace(const std::string& namespaceUri)
{
    if (m_inherits)
        TakePrivateMap();
    m_defaultNamespace = namespaceUri;
    NoteStateChange();
}

void Scope::SetNamespaceMapValue(const std::string& namespaceUri, const std::string& prefix)
{
    if (m_inherits) {
        std::string inheritedDefault = GetDefaultNamespace();
        TakePrivateMap(&namespaceUri, &prefix);
        m_defaultNamespace.swap(inheritedDefault);
    } else {
        (*m_map)[namespaceUri] = prefix;
    }
    NoteStateChange();
}

// Adding an empty prefix for a URI that had none changes no answer given
// before, so it is no change of state.
std::string Scope::GetNamespaceMapValue(const std::string& namespaceUri)
{
    return EffectiveMap()[namespaceUri];
}

std::string Scope::GetNamespaceMapValue(const char* namespaceUri)
{
    return GetNamespaceMapValue(std::string(OrEmpty(namespaceUri)));
}

void Scope::ForgetTagPrefix()
{
    m_tagPrefixHolder = nullptr;
    m_tagPrefixOwner = nullptr;
    m_tagPrefixVersion = 0;
    // Names end at a zero byte, as the stream takes them.
    m_tagNameLength = std::strlen(m_elementName.c_str());
}

void Scope::SetTagPrefix(const std::string* prefix)
{
    if (prefix) {
        // A prefix ends at a zero byte, as the stream takes it.
        m_tagPrefix.assign(prefix->c_str());
        m_tagPrefix.push_back(':');
    } else {
        m_tagPrefix.clear();
    }
    m_tagPrefixHolder = this;
    m_tagPrefixOwner = NamespaceOwner();
    m_tagPrefixVersion = m_tagPrefixOwner->m_version;
}

const std::string& Scope::StartTagPrefix(bool& isNew)
{
    isNew = false;
    if (TagPrefixTrusted())
        return m_tagPrefixHolder->m_tagPrefix;
    // A child in its parent's namespace that shares the parent's bindings
    // spells it as the parent did.
    CXmlWriterContext* parent = m_parent;
    const bool likeParent = m_inherits && parent && parent->m_namespaceUri == m_namespaceUri;
    if (likeParent && parent->TagPrefixTrusted()) {
        m_tagPrefixHolder = parent->m_tagPrefixHolder;
        m_tagPrefixOwner = parent->m_tagPrefixOwner;
        m_tagPrefixVersion = parent->m_tagPrefixVersion;
        return m_tagPrefixHolder->m_tagPrefix;
    }

    const CXmlWriterContext* owner = NamespaceOwner();
    if (m_namespaceUri.empty() || m_namespaceUri == owner->m_defaultNamespace) {
        SetTagPrefix(nullptr);
    } else if (m_inherits && ReuseMadeBinding(owner)) {
        isNew = true;
    } else {
        NamespaceMap& map = *owner->m_map;
        const std::size_t ownerSize = map.size();
        const unsigned long ownerVersion = owner->m_version;
        NamespaceMap::iterator found = map.find(m_namespaceUri);
        if (found == map.end()) {
            const bool wasInheriting = m_inherits;
            SetNamespaceMapValue(m_namespaceUri, CXmlWriter::GetUniquePrefix(map));
            found = m_map->find(m_namespaceUri);
            isNew = true;
            SetTagPrefix(&found->second);
            if (wasInheriting) {
                // Remembered for the next use of this scope.
                m_madeOwner = owner;
                m_madeOwnerVersion = ownerVersion;
                m_madeOwnerSize = ownerSize;
                m_madeUri = m_namespaceUri;
                m_madeTagPrefix = m_tagPrefix;
                m_madeVersion = m_version;
                m_madeSize = m_map->size();
                m_madePending = true;
            }
        } else {
            SetTagPrefix(&found->second);
        }
    }
    // The parent, in the same namespace and with the same bindings, spells
    // its own tags alike; it keeps the answer for the next child and its end
    // tag. No other scope below it is open to rely on what it held.
    if (likeParent && !isNew) {
        parent->m_tagPrefix = m_tagPrefix;
        parent->m_tagPrefixHolder = parent;
        parent->m_tagPrefixOwner = m_tagPrefixOwner;
        parent->m_tagPrefixVersion = m_tagPrefixVersion;
        m_tagPrefixHolder = parent;
    }
    return m_tagPrefixHolder->m_tagPrefix;
}

bool Scope::ReuseMadeBinding(const CXmlWriterContext* owner)
{
    if (!m_madeValid || owner != m_madeOwner || owner->m_version != m_madeOwnerVersion ||
        owner->m_map->size() != m_madeOwnerSize || m_namespaceUri != m_madeUri)
        return false;
    // The same steps as taking a private map with the binding added, without
    // the copy: the spare map holds the result already.
    m_defaultNamespace = owner->m_defaultNamespace;
    OwnMap(SpareMapFilled([](NamespaceMap&) {}));
    NoteNamespaceChange();
    m_tagPrefix = m_madeTagPrefix;
    m_tagPrefixHolder = this;
    m_tagPrefixOwner = this;
    m_tagPrefixVersion = m_version;
    m_madeVersion = m_version;
    m_madeSize = m_map->size();
    m_madePending = true;
    return true;
}

const std::string& Scope::EndTagPrefix()
{
    if (TagPrefixTrusted())
        return m_tagPrefixHolder->m_tagPrefix;
    if (m_namespaceUri.empty() || m_namespaceUri == GetDefaultNamespace())
        SetTagPrefix(nullptr);
    else
        SetTagPrefix(&EffectiveMap()[m_namespaceUri]);
    return m_tagPrefix;
}

} // namespace NxXmlLib9
