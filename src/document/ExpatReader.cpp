// The bridge from Expat to the document tree.
#include "NxExpatReader.h"

#include "NxEncoder.h"
#include "NxException.h"
#include "NxXmlDocument.h"
#include "document/XmlNodeStorage.h"
#include "foundation/TextArgument.h"

#include <expat.h>

#include <algorithm>
#include <climits>
#include <map>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>

namespace NxXmlLib9 {

namespace {

const unsigned long SCRATCH_SIZE = 1024;
// Between a namespace URI and a local name in the names the parser reports.
const char NAMESPACE_SEPARATOR = '|';
// The input reaches the parser in slices of this size: the parser copies
// what it is given into its own buffer, and slices keep that buffer small
// (and in the cache) beside the input, whatever the input's size. They also
// keep every length within the parser's int argument.
const unsigned long PARSE_SLICE = 32UL << 10;
// After every call that does not end the document the parser walks the
// bytes it consumed once more to keep its line and column count; the call
// that ends it skips that walk. So the tail of the input goes in as one
// final call: this share of the input, which the tree built so far (a
// little over twice the input) leaves room for, bounded so that its length
// still fits the int argument.
const unsigned long FINAL_SLICE_SHARE = 3;
const unsigned long FINAL_SLICE_LIMIT = 1UL << 30;
// Pending text that grew beyond this is given back once it has gone into
// its element, so that one long text does not hold memory for the rest of
// the parse.
const size_t PENDING_TEXT_KEPT = 64UL << 10;

// True when no byte has its high bit set: such UTF-8 reads the same in
// every local code page. Eight bytes at a time.
bool IsSevenBit(const char* text, size_t length)
{
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(text);
    size_t i = 0;
    for (; i + 8 <= length; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes + i, sizeof word);
        if (word & 0x8080808080808080ULL)
            return false;
    }
    for (; i < length; ++i)
        if (bytes[i] & 0x80)
            return false;
    return true;
}

} // namespace

CExpatReader::CExpatReader(CXmlDocument& document)
    : CInstanceMonitor("CExpatReader"), m_document(document), m_scratch(nullptr), m_scratchSize(0), m_parser(nullptr)
{
}

CExpatReader::~CExpatReader()
{
    Cleanup();
    FreeParser();
}

void CExpatReader::Cleanup()
{
    delete[] m_scratch;
    m_scratch = nullptr;
    m_scratchSize = 0;
}

void CExpatReader::FreeParser()
{
    if (m_parser) {
        XML_ParserFree(m_parser);
        m_parser = nullptr;
    }
}

void CExpatReader::CreateParser()
{
    FreeParser();
    Cleanup();
    m_pendingFailure = nullptr;
    m_scratch = new char[SCRATCH_SIZE];
    m_scratchSize = SCRATCH_SIZE;

    if (m_document.GetSchemaType() == SchemaTypeNoNamespaces)
        m_parser = XML_ParserCreate(nullptr);
    else
        m_parser = XML_ParserCreateNS(nullptr, NAMESPACE_SEPARATOR);
    if (!m_parser)
        throw std::bad_alloc();

    XML_SetUserData(m_parser, this);
    // A document never makes the reader open a file or a URL: no external
    // entity handler is set, so external entities are skipped, and neither
    // the external DTD nor external parameter entities are read. Expat's own
    // guard against entity expansion bombs stays at its defaults.
    XML_SetParamEntityParsing(m_parser, XML_PARAM_ENTITY_PARSING_NEVER);
    XML_SetElementHandler(m_parser, FnStartElement, FnEndElement);
    // Without namespace processing the parser never calls this. Declarations
    // are not scoped, so nothing is undone at their end and no end handler
    // is set.
    XML_SetNamespaceDeclHandler(m_parser, FnStartNamespace, nullptr);
    XML_SetCharacterDataHandler(m_parser, FnText);
    // Otherwise the content of a CDATA section arrives as plain text.
    if (!m_document.GetContext().GetStripCDATA())
        XML_SetCdataSectionHandler(m_parser, FnStartCDATA, FnEndCDATA);
}

void CExpatReader::Parse(bool isFinal)
{
    if (!m_parser)
        throw CNxInvalidStateException("The XML parser has not been created, or has already parsed its input");

    const char* data = reinterpret_cast<const char*>(m_document.GetInputBuffer());
    unsigned long remaining = m_document.GetInputSize();
    const unsigned long finalSlice =
        std::min(std::max(remaining / FINAL_SLICE_SHARE, PARSE_SLICE), FINAL_SLICE_LIMIT);
    bool parsed = true;
    do {
        const unsigned long slice = remaining <= finalSlice ? remaining : std::min(remaining, PARSE_SLICE);
        const bool last = slice == remaining;
        parsed = XML_Parse(m_parser, data, static_cast<int>(slice), isFinal && last) != XML_STATUS_ERROR;
        data += slice;
        remaining -= slice;
    } while (parsed && remaining > 0);

    if (parsed && !m_pendingFailure) {
        // Text still gathered belongs to the element the input stops in.
        FlushText();
        if (isFinal)
            FreeParser();
        return;
    }
    // A failed parse leaves the tree as far as it got, text included.
    try {
        FlushText();
    } catch (...) {
        m_pendingText.clear();
    }

    if (m_pendingFailure) {
        std::exception_ptr failure = m_pendingFailure;
        m_pendingFailure = nullptr;
        Cleanup();
        FreeParser();
        std::rethrow_exception(failure);
    }
    const XML_Size line = XML_GetCurrentLineNumber(m_parser);
    const XML_LChar* error = XML_ErrorString(XML_GetErrorCode(m_parser));
    std::string message = FormatString("%s at line %d", OrEmpty(error), static_cast<int>(line));
    Cleanup();
    FreeParser();
    throw CNxException(std::move(message));
}

// Runs one callback's work. A failure must not unwind through the parser:
// it is kept, the parser is stopped, and Parse rethrows it once the parser
// has returned. Callbacks that still come after the stop are ignored.
template <class Step>
void CExpatReader::Guarded(void* userData, Step step)
{
    CExpatReader& reader = *static_cast<CExpatReader*>(userData);
    if (reader.m_pendingFailure)
        return;
    try {
        step(reader);
    } catch (...) {
        reader.m_pendingFailure = std::current_exception();
        XML_StopParser(reader.m_parser, XML_FALSE);
    }
}

// Local text of UTF-8 input through the scratch buffer: its first half is
// the wide work area, its second half the byte work area, so that short
// names and text convert without allocating.
std::string CExpatReader::ToLocal(const char* text, int length)
{
    return CEncoder::Utf8ToLocalCodePage(reinterpret_cast<unsigned char*>(const_cast<char*>(text)), length,
                                         reinterpret_cast<wchar_t*>(m_scratch), m_scratchSize / 8,
                                         m_scratch + m_scratchSize / 2, m_scratchSize / 2);
}

// The same without the scratch buffer, for attribute names and values.
std::string CExpatReader::ToLocal(const char* text)
{
    return CEncoder::Utf8ToLocalCodePage(text);
}

// The document's record of a name as the parser reports it. The raw name
// is looked up first, so a name seen before costs one hash; a new one is
// converted to the local code page (unless it is 7-bit) and split at the
// first separator.
const CXmlNodeName& CExpatReader::NameOf(const char* name, bool useScratch)
{
    CXmlNodeStorage& storage = *m_document.m_storage;
    const std::string_view raw(name);
    const size_t hash = CXmlNodeStorage::Hash(raw);
    if (const CXmlNodeName* known = storage.FindRawName(raw, hash))
        return *known;
    std::string converted;
    std::string_view whole = raw;
    if (!IsSevenBit(raw.data(), raw.size())) {
        converted = useScratch ? ToLocal(name, static_cast<int>(raw.size())) : ToLocal(name);
        whole = std::string_view(converted.c_str());
    }
    const size_t separator = whole.find(NAMESPACE_SEPARATOR);
    const CXmlNodeName& record = separator == std::string_view::npos
                                     ? storage.Name(std::string_view(), whole)
                                     : storage.Name(whole.substr(0, separator), whole.substr(separator + 1));
    storage.AddRawName(raw, hash, record);
    return record;
}

void CExpatReader::AddText(const char* text, size_t length)
{
    // Carriage returns that the parser lets through (written as character
    // references) are dropped.
    const char* end = text + length;
    while (text < end) {
        const char* cr = static_cast<const char*>(std::memchr(text, '\r', static_cast<size_t>(end - text)));
        const char* runEnd = cr ? cr : end;
        m_pendingText.append(text, static_cast<size_t>(runEnd - text));
        text = cr ? cr + 1 : end;
    }
}

void CExpatReader::FlushText()
{
    if (m_pendingText.empty())
        return;
    std::vector<CXmlElement*>& open = m_document.m_openElements;
    if (!open.empty()) {
        const char* text = m_pendingText.data();
        size_t remaining = m_pendingText.size();
        while (remaining > 0) {
            const int slice = static_cast<int>(std::min<size_t>(remaining, INT_MAX));
            open.back()->AppendText(text, slice);
            text += slice;
            remaining -= static_cast<size_t>(slice);
        }
    }
    m_pendingText.clear();
    if (m_pendingText.capacity() > PENDING_TEXT_KEPT)
        std::string().swap(m_pendingText);
}

void CExpatReader::FnStartElement(void* userData, const char* name, const char** attributes)
{
    Guarded(userData, [name, attributes](CExpatReader& reader) {
        CXmlDocument& document = reader.m_document;
        // The parent's text so far goes in ahead of the child.
        reader.FlushText();
        const CXmlNodeName& elementName = reader.NameOf(name, true);
        CXmlElement* element = document.GetDocumentElement() ? document.AddNamedChildElement(elementName)
                                                             : document.AddNamedDocElement(elementName);
        if (!attributes || !attributes[0])
            return;
        size_t count = 0;
        while (attributes[2 * count])
            ++count;
        CXmlNodeStorage& storage = *document.m_storage;
        std::vector<CXmlAttribute*>& list = element->AttributeList();
        // Reserved ahead, so that no attribute is made that the list could
        // then fail to take.
        list.reserve(list.size() + count);
        for (const char** attribute = attributes; attribute[0]; attribute += 2) {
            const CXmlNodeName& attributeName = reader.NameOf(attribute[0], false);
            const char* value = attribute[1];
            const size_t valueLength = std::strlen(value);
            std::string localValue = IsSevenBit(value, valueLength) ? std::string(value, valueLength) : ToLocal(value);
            list.push_back(storage.NewAttribute(attributeName, std::move(localValue)));
        }
    });
}

void CExpatReader::FnEndElement(void* userData, const char* name)
{
    (void)name;
    Guarded(userData, [](CExpatReader& reader) {
        reader.FlushText();
        reader.m_document.EndElement();
    });
}

void CExpatReader::FnStartNamespace(void* userData, const char* prefix, const char* uri)
{
    // A null prefix is the default namespace, a null URI an undeclaration:
    // both stand as empty texts. The map is flat, so the last declaration
    // in document order wins.
    Guarded(userData, [prefix, uri](CExpatReader& reader) {
        const std::string_view alias(OrEmpty(prefix));
        const std::string_view namespaceUri(OrEmpty(uri));
        std::map<std::string, std::string, std::less<>>& map = reader.m_document.m_prefixMap;
        if (IsSevenBit(alias.data(), alias.size()) && IsSevenBit(namespaceUri.data(), namespaceUri.size())) {
            // A declaration repeated on every record costs a look-up only.
            const auto found = map.find(alias);
            if (found == map.end())
                map.emplace(std::string(alias), std::string(namespaceUri));
            else if (found->second != namespaceUri)
                found->second.assign(namespaceUri.data(), namespaceUri.size());
            return;
        }
        std::string localAlias = reader.ToLocal(alias.data(), static_cast<int>(alias.size()));
        std::string localUri = reader.ToLocal(namespaceUri.data(), static_cast<int>(namespaceUri.size()));
        map[std::move(localAlias)] = std::move(localUri);
    });
}

void CExpatReader::FnText(void* userData, const char* text, int length)
{
    if (length <= 0)
        return;
    Guarded(userData, [text, length](CExpatReader& reader) {
        if (reader.m_document.m_openElements.empty())
            return;
        const size_t size = static_cast<size_t>(length);
        if (IsSevenBit(text, size)) {
            reader.AddText(text, size);
            return;
        }
        const std::string local = reader.ToLocal(text, length);
        reader.AddText(local.c_str(), std::strlen(local.c_str()));
    });
}

void CExpatReader::FnStartCDATA(void* userData)
{
    Guarded(userData, [](CExpatReader& reader) {
        if (!reader.m_document.m_openElements.empty())
            reader.AddText("<![CDATA[", 9);
    });
}

void CExpatReader::FnEndCDATA(void* userData)
{
    Guarded(userData, [](CExpatReader& reader) {
        if (!reader.m_document.m_openElements.empty())
            reader.AddText("]]>", 3);
    });
}

} // namespace NxXmlLib9
