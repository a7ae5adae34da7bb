// The document: its lifetime, the prefix map and the operations through
// which the parsers build the tree.
#include "NxXmlDocument.h"

#include "NxException.h"
#include "document/XmlNodeStorage.h"
#include "foundation/TextArgument.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>

namespace NxXmlLib9 {

namespace {

// The short form of AppendTextExcludingCR stops at the terminator, bounded
// only by the widest length a caller could pass.
const unsigned long UNBOUNDED_TEXT = 4294967295UL;

// Appends one run in int-sized slices, so that no length is cut.
void AppendRun(CXmlElement* element, const char* run, size_t size)
{
    while (size > 0) {
        const int slice = static_cast<int>(std::min<size_t>(size, INT_MAX));
        element->AppendText(run, slice);
        run += slice;
        size -= static_cast<size_t>(slice);
    }
}

// Slack below which a finished text keeps its capacity: a reallocation
// would cost more than it frees.
const size_t TEXT_SLACK_KEPT = 64;
// Texts longer than this keep their capacity too: near the end of a large
// load, a shrinking copy would add its own size to the peak.
const size_t TEXT_SHRINK_LIMIT = 1UL << 20;

} // namespace

CXmlDocument::CXmlDocument() : CXmlDocument(nullptr, CXmlSerializationContext::m_defaultContext) {}

CXmlDocument::CXmlDocument(const CXmlSerializationContext& context) : CXmlDocument(nullptr, context) {}

CXmlDocument::CXmlDocument(bool (*filter)(CXmlElement*))
    : CXmlDocument(filter, CXmlSerializationContext::m_defaultContext)
{
}

CXmlDocument::CXmlDocument(bool (*filter)(CXmlElement*), const CXmlSerializationContext& context)
    : CInstanceMonitor("CXmlDocument"),
      m_documentElement(nullptr),
      m_inputBuffer(nullptr),
      m_inputSize(0),
      m_ownsInput(true),
      m_schemaType(SchemaTypeDefault),
      m_filter(filter),
      m_context(context),
      m_storage(new CXmlNodeStorage(this))
{
    Init();
}

CXmlDocument::~CXmlDocument()
{
    Cleanup();
}

void CXmlDocument::Cleanup()
{
    FreeContent();
}

void CXmlDocument::Init()
{
    FreeContent();
    m_schemaType = m_context.GetSchemaType();
}

void CXmlDocument::FreeContent()
{
    // The nodes' destructors free what they hold outside the storage (their
    // texts); the storage then gives back the nodes themselves.
    delete m_documentElement;
    m_documentElement = nullptr;
    if (m_ownsInput)
        delete[] m_inputBuffer;
    m_inputBuffer = nullptr;
    m_inputSize = 0;
    m_ownsInput = true;
    m_openElements.clear();
    m_prefixMap.clear();
    m_storage->Release();
}

const CXmlNodeName& CXmlDocument::Name(std::string_view namespaceUri, std::string_view localName) const
{
    return m_storage->Name(namespaceUri, localName);
}

void CXmlDocument::AdoptInput(unsigned char* buffer, unsigned long size)
{
    if (m_ownsInput)
        delete[] m_inputBuffer;
    m_inputBuffer = buffer;
    m_inputSize = size;
    m_ownsInput = true;
}

std::string CXmlDocument::LookupNamespaceFromAlias(const char* alias) const
{
    const auto found = m_prefixMap.find(OrEmpty(alias));
    return found == m_prefixMap.end() ? std::string() : found->second;
}

CXmlElement* CXmlDocument::AddDocElement(const char* namespaceUri, const char* localName)
{
    return AddNamedDocElement(Name(OrEmpty(namespaceUri), OrEmpty(localName)));
}

CXmlElement* CXmlDocument::AddChildElement(const char* namespaceUri, const char* localName)
{
    return AddNamedChildElement(Name(OrEmpty(namespaceUri), OrEmpty(localName)));
}

CXmlElement* CXmlDocument::AddNamedDocElement(const CXmlNodeName& name)
{
    std::unique_ptr<CXmlElement> element(m_storage->NewElement(name));
    // A second root replaces the first, whose open elements die with it.
    delete m_documentElement;
    m_documentElement = nullptr;
    m_openElements.clear();
    m_openElements.push_back(element.get());
    m_documentElement = element.release();
    return m_documentElement;
}

CXmlElement* CXmlDocument::AddNamedChildElement(const CXmlNodeName& name)
{
    if (m_openElements.empty())
        throw CNxInvalidStateException("No element is open to take a child element");
    // Both parsers open every element below the root here, so this one test
    // bounds the depth of every tree, whatever the input's form.
    const unsigned long maximumDepth = m_context.GetMaximumDepth();
    if (maximumDepth != 0 && m_openElements.size() >= maximumDepth)
        throw CNxException(
            FormatString("Failed to parse the document. It is nested deeper than [%lu] levels.", maximumDepth));
    // Linked first: the parent owns the child even if the push fails.
    CXmlElement* element = m_storage->NewElement(name);
    m_openElements.back()->AppendChild(element);
    m_openElements.push_back(element);
    return element;
}

void CXmlDocument::AddElementAttribute(CXmlElement* element, const std::string& localName, const std::string& value,
                                       const std::string& namespaceUri)
{
    element->AddAttribute(localName, value, namespaceUri);
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const char* text, unsigned long length)
{
    if (!element || !text || length == 0)
        return;
    const char* end = text + strnlen(text, length);
    while (text < end) {
        const char* cr = static_cast<const char*>(std::memchr(text, '\r', static_cast<size_t>(end - text)));
        const char* runEnd = cr ? cr : end;
        AppendRun(element, text, static_cast<size_t>(runEnd - text));
        text = cr ? cr + 1 : end;
    }
}

void CXmlDocument::AppendTextExcludingCR(CXmlElement* element, const char* text)
{
    AppendTextExcludingCR(element, text, UNBOUNDED_TEXT);
}

// Text that came in several pieces (every line is one) ends with up to
// twice its size reserved. Once the element has ended its text is final,
// so the spare capacity of ordinary texts is given back.
void CXmlDocument::ReleaseTextSlack(CXmlElement* element)
{
    std::string& text = element->m_text;
    const size_t size = text.size();
    if (size <= TEXT_SHRINK_LIMIT && text.capacity() >= size + size / 4 + TEXT_SLACK_KEPT)
        text.shrink_to_fit();
}

void CXmlDocument::EndElement()
{
    if (m_openElements.empty())
        throw CNxInvalidStateException("No element is open to be ended");
    CXmlElement* ended = m_openElements.back();
    m_openElements.pop_back();
    ReleaseTextSlack(ended);
    // The document element has no parent to be dropped from: the filter's
    // answer on it changes nothing.
    if (!m_filter || !m_filter(ended) || m_openElements.empty())
        return;
    // The dropped subtree's memory serves the elements still to come, so
    // a filtered parse stays as small as the tree it keeps.
    if (CXmlElement* dropped = m_openElements.back()->RemoveLastChildElement())
        m_storage->Recycle(dropped);
}

} // namespace NxXmlLib9
