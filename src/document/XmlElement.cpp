// Elements of the parsed tree.
#include "NxXmlDocument.h"

#include "document/XmlNodeStorage.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace NxXmlLib9 {

namespace {

// What an element made without a document is called until it is named.
const CXmlNodeName& Unnamed()
{
    static const CXmlNodeName unnamed{std::string(), std::string(), nullptr};
    return unnamed;
}

} // namespace

const std::vector<CXmlAttribute*>& CXmlElement::NoAttributes()
{
    static const std::vector<CXmlAttribute*> none;
    return none;
}

CXmlElement::CXmlElement(const CXmlDocument* document)
    : CInstanceMonitor("CXmlElement"),
      m_link(0),
      m_lastChild(nullptr),
      m_name(reinterpret_cast<std::uintptr_t>(document ? &document->Name(std::string_view(), std::string_view())
                                                        : &Unnamed()))
{
}

CXmlElement::CXmlElement(const CXmlNodeName& name) noexcept
    : CInstanceMonitor("CXmlElement"), m_link(0), m_lastChild(nullptr), m_name(reinterpret_cast<std::uintptr_t>(&name))
{
}

CXmlElement::~CXmlElement()
{
    // Descendants are freed from one flat chain: before an element goes, its
    // children are spliced into the chain in its place, so every element is
    // deleted childless and deep documents cannot exhaust the stack.
    CXmlElement* chain = GetFirstElement();
    if (m_lastChild)
        m_lastChild->m_link = 0;
    m_lastChild = nullptr;
    while (chain) {
        CXmlElement* element = chain;
        chain = reinterpret_cast<CXmlElement*>(element->m_link);
        if (element->m_lastChild) {
            CXmlElement* first = element->GetFirstElement();
            element->m_lastChild->m_link = reinterpret_cast<std::uintptr_t>(chain);
            element->m_lastChild = nullptr;
            chain = first;
        }
        element->m_link = 0;
        delete element;
    }
    const CXmlNodeName* name = &NameRecord();
    if (HasAttributeList()) {
        CXmlAttributedName* attributed = Attributed();
        for (CXmlAttribute* attribute : attributed->attributes)
            delete attribute;
        // Over a document the list lives in the document's storage.
        if (name->document)
            CXmlNodeStorage::DestroyAttributedName(attributed);
        else
            delete attributed;
    }
    if (!name->document && name != &Unnamed())
        delete name;
}

void CXmlElement::SetNameRecord(const CXmlNodeName* name)
{
    if (HasAttributeList())
        Attributed()->name = name;
    else
        m_name = reinterpret_cast<std::uintptr_t>(name);
}

const std::string& CXmlElement::GetAttribute(const std::string& localName, const std::string& namespaceUri) const
{
    static const std::string missing;
    for (const CXmlAttribute* attribute : GetAttributes()) {
            if (attribute->GetLocalName() == localName && attribute->GetNamespaceURI() == namespaceUri)
                return attribute->GetValue();
        }
    return missing;
}

CXmlNodeName& CXmlElement::OwnName()
{
    if (&NameRecord() == &Unnamed())
        SetNameRecord(new CXmlNodeName{std::string(), std::string(), nullptr});
    return const_cast<CXmlNodeName&>(NameRecord());
}

void CXmlElement::SetNamespace(const std::string& namespaceUri)
{
    if (const CXmlDocument* document = GetDocument())
        SetNameRecord(&document->Name(namespaceUri, GetLocalName()));
    else
        OwnName().namespaceUri = namespaceUri;
}

void CXmlElement::SetElementName(const std::string& localName)
{
    if (const CXmlDocument* document = GetDocument())
        SetNameRecord(&document->Name(GetNamespaceURI(), localName));
    else
        OwnName().localName = localName;
}

std::vector<CXmlAttribute*>& CXmlElement::AttributeList()
{
    if (!HasAttributeList()) {
        const CXmlNodeName* name = &NameRecord();
        CXmlAttributedName* attributed = name->document ? name->document->m_storage->NewAttributedName(*name)
                                                        : new CXmlAttributedName{name, {}};
        m_name = reinterpret_cast<std::uintptr_t>(attributed) | ATTRIBUTES_TAG;
    }
    return Attributed()->attributes;
}

void CXmlElement::AddAttribute(const std::string& localName, const std::string& value, const std::string& namespaceUri)
{
    std::vector<CXmlAttribute*>& attributes = AttributeList();
    // The slot is made first, so a failed allocation leaks no attribute.
    attributes.push_back(nullptr);
    try {
        if (const CXmlDocument* document = GetDocument())
            attributes.back() =
                document->m_storage->NewAttribute(document->Name(namespaceUri, localName), std::string(value));
        else
            attributes.back() = new CXmlAttribute(localName, value, namespaceUri);
    } catch (...) {
        attributes.pop_back();
        throw;
    }
}

void CXmlElement::AppendText(const char* text, int length)
{
    if (!text || length <= 0)
        return;
    const size_t size = static_cast<size_t>(length);
    if (m_text.empty()) {
        // The first piece is taken at its own size, since most elements get
        // exactly one.
        if (m_text.capacity() < size)
            m_text = std::string(text, size);
        else
            m_text.assign(text, size);
        return;
    }
    // Doubling keeps many small appends linear.
    const size_t needed = m_text.size() + size;
    if (m_text.capacity() < needed)
        m_text.reserve(std::max(2 * m_text.capacity(), needed));
    m_text.append(text, size);
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

void CXmlElement::AppendChild(CXmlElement* child)
{
    if (m_lastChild) {
        child->m_link = m_lastChild->m_link;
        m_lastChild->m_link = reinterpret_cast<std::uintptr_t>(child);
    } else {
        child->m_link = reinterpret_cast<std::uintptr_t>(child) | LAST_CHILD_TAG;
    }
    m_lastChild = child;
}

CXmlElement* CXmlElement::CreateNewChildElement()
{
    const CXmlDocument* document = GetDocument();
    CXmlElement* child = document ? document->m_storage->NewElement(document->Name(std::string_view(), std::string_view()))
                                  : new CXmlElement(nullptr);
    AppendChild(child);
    return child;
}

CXmlElement* CXmlElement::RemoveLastChildElement()
{
    CXmlElement* last = m_lastChild;
    if (!last)
        return nullptr;
    CXmlElement* first = Untagged(last->m_link);
    if (first == last) {
        m_lastChild = nullptr;
    } else {
        CXmlElement* previous = first;
        while (previous->m_link != reinterpret_cast<std::uintptr_t>(last))
            previous = reinterpret_cast<CXmlElement*>(previous->m_link);
        previous->m_link = last->m_link;
        m_lastChild = previous;
    }
    last->m_link = 0;
    return last;
}

} // namespace NxXmlLib9
