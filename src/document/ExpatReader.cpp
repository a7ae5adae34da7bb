// The bridge from Expat to the document tree.
#include "NxExpatReader.h"

#include "NxEncoder.h"
#include "NxException.h"
#include "NxXmlDocument.h"
#include "foundation/TextArgument.h"

#include <expat.h>

#include <algorithm>
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
// beside the input, whatever the input's size. They also keep every length
// within the parser's int argument.
const unsigned long PARSE_SLICE = 1UL << 20;

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
    bool parsed = true;
    do {
        const unsigned long slice = std::min(remaining, PARSE_SLICE);
        const bool last = slice == remaining;
        parsed = XML_Parse(m_parser, data, static_cast<int>(slice), isFinal && last) != XML_STATUS_ERROR;
        data += slice;
        remaining -= slice;
    } while (parsed && remaining > 0);

    if (parsed && !m_pendingFailure) {
        if (isFinal)
            FreeParser();
        return;
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

// The document's interned namespace URI and local name of a name the
// parser reports. A 7-bit name reads the same in the local code page and is
// split where it lies; any other is converted first.
void CExpatReader::InternName(const char* name, bool useScratch, const std::string*& namespaceUri,
                              const std::string*& localName)
{
    const size_t length = std::strlen(name);
    std::string converted;
    if (DoesUTF8StrContainAnyCharsLargerThanOneByte(reinterpret_cast<unsigned char*>(const_cast<char*>(name)),
                                                    static_cast<unsigned long>(length))) {
        converted = useScratch ? ToLocal(name, static_cast<int>(length)) : ToLocal(name);
        name = converted.c_str();
    }
    const std::string_view whole(name);
    const size_t separator = whole.find(NAMESPACE_SEPARATOR);
    if (separator == std::string_view::npos) {
        namespaceUri = &m_document.Intern(std::string_view());
        localName = &m_document.Intern(whole);
        return;
    }
    namespaceUri = &m_document.Intern(whole.substr(0, separator));
    localName = &m_document.Intern(whole.substr(separator + 1));
}

void CExpatReader::FnStartElement(void* userData, const char* name, const char** attributes)
{
    Guarded(userData, [name, attributes](CExpatReader& reader) {
        CXmlDocument& document = reader.m_document;
        const std::string* namespaceUri = nullptr;
        const std::string* localName = nullptr;
        reader.InternName(name, true, namespaceUri, localName);
        CXmlElement* element = document.GetDocumentElement()
                                   ? document.AddInternedChildElement(*namespaceUri, *localName)
                                   : document.AddInternedDocElement(*namespaceUri, *localName);
        for (const char** attribute = attributes; attribute && attribute[0]; attribute += 2) {
            reader.InternName(attribute[0], false, namespaceUri, localName);
            const char* value = attribute[1];
            const size_t valueLength = std::strlen(value);
            std::string localValue =
                DoesUTF8StrContainAnyCharsLargerThanOneByte(reinterpret_cast<unsigned char*>(const_cast<char*>(value)),
                                                            static_cast<unsigned long>(valueLength))
                    ? ToLocal(value)
                    : std::string(value, valueLength);
            element->AddInternedAttribute(*localName, std::move(localValue), *namespaceUri);
        }
    });
}

void CExpatReader::FnEndElement(void* userData, const char* name)
{
    (void)name;
    Guarded(userData, [](CExpatReader& reader) { reader.m_document.EndElement(); });
}

void CExpatReader::FnStartNamespace(void* userData, const char* prefix, const char* uri)
{
    // A null prefix is the default namespace, a null URI an undeclaration:
    // both stand as empty texts. The map is flat, so the last declaration
    // in document order wins.
    Guarded(userData, [prefix, uri](CExpatReader& reader) {
        std::string alias = prefix ? reader.ToLocal(prefix, static_cast<int>(std::strlen(prefix))) : std::string();
        std::string namespaceUri = uri ? reader.ToLocal(uri, static_cast<int>(std::strlen(uri))) : std::string();
        reader.m_document.m_prefixMap[std::move(alias)] = std::move(namespaceUri);
    });
}

void CExpatReader::FnText(void* userData, const char* text, int length)
{
    if (length <= 0)
        return;
    Guarded(userData, [text, length](CExpatReader& reader) {
        std::vector<CXmlElement*>& open = reader.m_document.m_openElements;
        if (open.empty())
            return;
        // 7-bit text goes into the tree straight from the parser's buffer.
        if (!DoesUTF8StrContainAnyCharsLargerThanOneByte(reinterpret_cast<unsigned char*>(const_cast<char*>(text)),
                                                         static_cast<unsigned long>(length))) {
            CXmlDocument::AppendTextExcludingCR(open.back(), text, static_cast<unsigned long>(length));
            return;
        }
        const std::string local = reader.ToLocal(text, length);
        CXmlDocument::AppendTextExcludingCR(open.back(), local.c_str());
    });
}

void CExpatReader::FnStartCDATA(void* userData)
{
    Guarded(userData, [](CExpatReader& reader) {
        std::vector<CXmlElement*>& open = reader.m_document.m_openElements;
        if (!open.empty())
            CXmlDocument::AppendTextExcludingCR(open.back(), "<![CDATA[");
    });
}

void CExpatReader::FnEndCDATA(void* userData)
{
    Guarded(userData, [](CExpatReader& reader) {
        std::vector<CXmlElement*>& open = reader.m_document.m_openElements;
        if (!open.empty())
            CXmlDocument::AppendTextExcludingCR(open.back(), "]]>");
    });
}

} // namespace NxXmlLib9
