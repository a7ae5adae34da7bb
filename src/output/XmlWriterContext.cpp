#include "NxXmlWriter.h"
#include "foundation/TextArgument.h"

namespace NxXmlLib9 {

typedef CXmlWriter::CXmlWriterContext Scope;

Scope::CXmlWriterContext(const std::string& name, const std::string& namespaceUri,
                         CXmlWriterContext* parent)
    : CInstanceMonitor("CXmlWriterContext"),
      m_childCount(0),
      m_startTagOpen(true),
      m_depth(parent ? parent->m_depth + 1 : 0),
      m_namespaceUri(namespaceUri),
      m_elementName(name),
      m_parent(parent),
      m_attributesWritten(false),
      m_map(nullptr),
      m_inherits(parent != nullptr),
      m_ownsMap(parent == nullptr),
      m_chainRoot(parent ? parent->m_chainRoot : this),
      m_takeovers(0),
      m_owner(this),
      m_ownerStamp(0)
{
    if (parent) {
        m_owner = parent->NamespaceOwner();
        m_ownerStamp = m_chainRoot->m_takeovers;
        m_map = m_owner->m_map;
    } else {
        // Without a parent there is nothing to share: start empty instead.
        m_map = new NamespaceMap();
    }
}

Scope::CXmlWriterContext(const std::string& name, const std::string& namespaceUri,
                         const std::string& defaultNamespace, const NamespaceMap& map,
                         CXmlWriterContext* parent)
    : CInstanceMonitor("CXmlWriterContext"),
      m_childCount(0),
      m_startTagOpen(true),
      m_depth(0),
      m_namespaceUri(namespaceUri),
      m_elementName(name),
      m_parent(parent),
      m_attributesWritten(false),
      m_defaultNamespace(defaultNamespace),
      m_map(new NamespaceMap(map)),
      m_inherits(false),
      m_ownsMap(true),
      m_chainRoot(this),
      m_takeovers(0),
      m_owner(this),
      m_ownerStamp(0)
{
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
}

Scope* Scope::DetachParent()
{
    CXmlWriterContext* parent = m_parent;
    m_parent = nullptr;
    return parent;
}

const Scope* Scope::NamespaceOwner() const
{
    if (!m_inherits)
        return this;
    if (m_ownerStamp != m_chainRoot->m_takeovers) {
        const CXmlWriterContext* scope = this;
        while (scope->m_inherits && scope->m_parent)
            scope = scope->m_parent;
        m_owner = scope;
        m_ownerStamp = m_chainRoot->m_takeovers;
    }
    return m_owner;
}

CXmlWriter::NamespaceMap& Scope::GetNamespaceMap() const
{
    return *NamespaceOwner()->m_map;
}

const std::string& Scope::GetDefaultNamespace() const
{
    return NamespaceOwner()->m_defaultNamespace;
}

// A scope that is about to declare something gets a map of its own, so that
// the declaration reaches its subtree only.
void Scope::TakePrivateMap()
{
    NamespaceMap* copy = new NamespaceMap(GetNamespaceMap());
    if (m_ownsMap)
        delete m_map;
    m_map = copy;
    m_ownsMap = true;
    m_inherits = false;
    m_owner = this;
    // Scopes below this one may have cached an ancestor as their owner.
    ++m_chainRoot->m_takeovers;
}

void Scope::SetDefaultNamespace(const std::string& namespaceUri)
{
    if (m_inherits)
        TakePrivateMap();
    m_defaultNamespace = namespaceUri;
}

void Scope::SetNamespaceMapValue(const std::string& namespaceUri, const std::string& prefix)
{
    if (m_inherits) {
        std::string inheritedDefault = GetDefaultNamespace();
        TakePrivateMap();
        m_defaultNamespace.swap(inheritedDefault);
    }
    (*m_map)[namespaceUri] = prefix;
}

std::string Scope::GetNamespaceMapValue(const std::string& namespaceUri)
{
    return GetNamespaceMap()[namespaceUri];
}

std::string Scope::GetNamespaceMapValue(const char* namespaceUri)
{
    return GetNamespaceMapValue(std::string(OrEmpty(namespaceUri)));
}

} // namespace NxXmlLib9
