// Elements of the parsed tree.
#include "NxXmlDocument.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace NxXmlLib9 {

namespace {

// What an element without a name or namespace points to.
const std::string& EmptyName()
{
    static const std::string empty;
    return empty;
}

} // namespace

struct CXmlElement::OwnNames {
    std::string localName;
    std::string namespaceUri;
};

CXmlElement::CXmlElement(const CXmlDocument* document)
    : CInstanceMonitor("CXmlElement"),
      m_document(document),
      m_nextSibling(nullptr),
      m_firstChild(nullptr),
      m_lastChild(nullptr),
      m_localName(&EmptyName()),
      m_namespaceUri(&EmptyName())
{
}

CXmlElement::~CXmlElement()
{
    // Descendants are freed from one flat chain: before an element goes, its
    // children are spliced into the chain in its place, so every element is
    // deleted childless and deep documents cannot exhaust the stack.
    CXmlElement* chain = m_firstChild;
    m_firstChild = m_lastChild = nullptr;
    while (chain) {
        CXmlElement* element = chain;
        if (element->m_firstChild) {
            element->m_lastChild->m_nextSibling = element->m_nextSibling;
            chain = element->m_firstChild;
            element->m_firstChild = element->m_lastChild = nullptr;
        } else {
            chain = element->m_nextSibling;
        }
        element->m_nextSibling = nullptr;
        delete element;
    }
    for (CXmlAttribute* attribute : m_attributes)
        delete attribute;
}

const std::string& CXmlElement::GetAttribute(const std::string& localName, const std::string& namespaceUri) const
{
    static const std::string missing;
    for (const CXmlAttribute* attribute : m_attributes) {
        if (attribute->GetLocalName() == localName && attribute->GetNamespaceURI() == namespaceUri)
            return attribute->GetValue();
    }
    return missing;
}

const std::string& CXmlElement::KeepName(const std::string& name, bool isNamespace)
{
    if (m_document)
        return m_document->Intern(name);
    if (!m_ownNames)
        m_ownNames.reset(new OwnNames);
    std::string& own = isNamespace ? m_ownNames->namespaceUri : m_ownNames->localName;
    own = name;
    return own;
}

void CXmlElement::SetNamespace(const std::string& namespaceUri)
{
    m_namespaceUri = &KeepName(namespaceUri, true);
}

void CXmlElement::SetElementName(const std::string& localName)
{
    m_localName = &KeepName(localName, false);
}

void CXmlElement::SetInternedNames(const std::string& namespaceUri, const std::string& localName)
{
    m_namespaceUri = &namespaceUri;
    m_localName = &localName;
}

void CXmlElement::AddAttribute(const std::string& localName, const std::string& value, const std::string& namespaceUri)
{
    if (m_document) {
        AddInternedAttribute(m_document->Intern(localName), std::string(value), m_document->Intern(namespaceUri));
        return;
    }
    // The slot is made first, so a failed allocation leaks no attribute.
    m_attributes.push_back(nullptr);
    try {
        m_attributes.back() = new CXmlAttribute(localName, value, namespaceUri);
    } catch (...) {
        m_attributes.pop_back();
        throw;
    }
}

void CXmlElement::AddInternedAttribute(const std::string& localName, std::string&& value,
                                       const std::string& namespaceUri)
{
    m_attributes.push_back(nullptr);
    try {
        m_attributes.back() = new CXmlAttribute(&localName, std::move(value), &namespaceUri);
    } catch (...) {
        m_attributes.pop_back();
        throw;
    }
}

void CXmlElement::AppendText(const char* text, int length)
{
    if (!text || length <= 0)
        return;
    const size_t needed = m_text.size() + static_cast<size_t>(length);
    // Doubling keeps many small appends linear; the first piece is taken at
    // its own size, since most elements get exactly one.
    if (!m_text.empty() && m_text.capacity() < needed)
        m_text.reserve(std::max(2 * m_text.capacity(), needed));
    m_text.append(text, static_cast<size_t>(length));
}

void CXmlElement::AppendText(const char* text)
{
    if (!text)
        return;
    // One call per int-sized slice, so that no length is cut.
    size_t remaining = std::strlen(text);
    while (remaining > 0) {
        const int slice = static_cast<int>(std::min<size_t>(remaining, INT_MAX));
        AppendText(text, slice);
        text += slice;
        remaining -= static_cast<size_t>(slice);
    }
}

CXmlElement* CXmlElement::CreateNewChildElement()
{
    CXmlElement* child = new CXmlElement(m_document);
    if (m_lastChild)
        m_lastChild->m_nextSibling = child;
    else
        m_firstChild = child;
    m_lastChild = child;
    return child;
}

CXmlElement* CXmlElement::RemoveLastChildElement()
{
    CXmlElement* last = m_lastChild;
    if (!last)
        return nullptr;
    if (m_firstChild == last) {
        m_firstChild = m_lastChild = nullptr;
        return last;
    }
    CXmlElement* previous = m_firstChild;
    while (previous->m_nextSibling != last)
        previous = previous->m_nextSibling;
    previous->m_nextSibling = nullptr;
    m_lastChild = previous;
    return last;
}

} // namespace NxXmlLib9
