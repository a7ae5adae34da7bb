#include "NxXmlWriter.h"

#include "NxException.h"

#include <algorithm>
#include <cstring>
#include <typeinfo>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace NxXmlLib9 {

namespace {

const char kInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";
const char kCDataStart[] = "<![CDATA[";
const size_t kCDataStartLength = sizeof(kCDataStart) - 1;
const char kAttributesFirst[] = "Attributes must be added before elements";
const char kInvalidEol[] = "Invalid EOL type.";

const char kTabs[] = "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
const unsigned kTabsLength = sizeof(kTabs) - 1;

} // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream& stream)
    : m_lineEnd("\n"),
      m_eolType(EOLTypeLF),
      m_format(true),
      m_stream(stream),
      m_streamDrains(typeid(stream) != typeid(CTextStream))
{
}

CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::Open()
{
    CXmlWriter::Open();
    m_stream.Open();
}

void CXmlTextWriter::Close()
{
    m_stream.Close();
    CXmlWriter::Close();
}

void CXmlTextWriter::SetEOLType(EOLType type)
{
    switch (type) {
    case EOLTypeCRLF:
        m_lineEnd = "\r\n";
        break;
    case EOLTypeLF:
        m_lineEnd = "\n";
        break;
    default:
        throw CNxException(kInvalidEol);
    }
    m_eolType = type;
}

void CXmlTextWriter::AppendIndent(unsigned depth)
{
    while (depth > 0) {
        const unsigned piece = std::min(depth, kTabsLength);
        m_stream.Append(kTabs, piece);
        depth -= piece;
    }
}

void CXmlTextWriter::AppendNamespaceDeclaration(const std::string& prefix,
                                                const std::string& namespaceUri)
{
    m_stream.Append("xmlns:", 6);
    m_stream.Append(prefix);
    m_stream.Append("=\"", 2);
    m_stream.Append(namespaceUri);
    m_stream.Append('"');
}

namespace {

// Bytes that end a run of plain text: the terminator, line ends and the
// five that are escaped.
struct SpecialTable {
    bool special[256] = {};
    SpecialTable()
    {
        for (unsigned char c : {'\0', '\n', '\r', '"', '&', '<', '>'})
            special[c] = true;
    }
};
const SpecialTable kSpecial;

// The first byte in [p, end) that ends a run, or end. Sixteen bytes are
// tested at a time where the processor allows it.
const char* FindSpecial(const char* p, const char* end)
{
#if defined(__SSE2__)
    const __m128i nul = _mm_setzero_si128();
    const __m128i lineFeed = _mm_set1_epi8('\n');
    const __m128i carriageReturn = _mm_set1_epi8('\r');
    const __m128i quote = _mm_set1_epi8('"');
    const __m128i ampersand = _mm_set1_epi8('&');
    const __m128i less = _mm_set1_epi8('<');
    const __m128i greater = _mm_set1_epi8('>');
    while (end - p >= 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        __m128i hits = _mm_or_si128(_mm_cmpeq_epi8(bytes, nul), _mm_cmpeq_epi8(bytes, lineFeed));
        hits = _mm_or_si128(hits, _mm_cmpeq_epi8(bytes, carriageReturn));
        hits = _mm_or_si128(hits, _mm_cmpeq_epi8(bytes, quote));
        hits = _mm_or_si128(hits, _mm_cmpeq_epi8(bytes, ampersand));
        hits = _mm_or_si128(hits, _mm_cmpeq_epi8(bytes, less));
        hits = _mm_or_si128(hits, _mm_cmpeq_epi8(bytes, greater));
        const int mask = _mm_movemask_epi8(hits);
        if (mask != 0)
            return p + __builtin_ctz(static_cast<unsigned>(mask));
        p += 16;
    }
#endif
    while (p != end && !kSpecial.special[static_cast<unsigned char>(*p)])
        ++p;
    return p;
}

} // namespace

void CXmlTextWriter::PadAndAppend(const char* text, bool isAttribute)
{
    if (text)
        PadAndAppend(m_stream, m_eolType, text, std::strlen(text), isAttribute);
}

// Plain bytes are gathered into runs and appended in one call each; only the
// bytes that need a replacement break a run. The text ends at its length or
// at a zero byte, whichever comes first.
void CXmlTextWriter::PadAndAppend(CTextStream& stream, EOLType eolType, const char* text, size_t length,
                                  bool isAttribute)
{
    const char* const end = text + length;
    const char* run = text;
    for (const char* p = text;; ++p) {
        p = FindSpecial(p, end);
        if (p == end || *p == '\0') {
            stream.Append(run, static_cast<unsigned long>(p - run));
            return;
        }
        const char* replacement;
        unsigned long replacementLength;
        switch (*p) {
        case '\n':
            if (isAttribute) {
                replacement = "&#xA;";
                replacementLength = 5;
            } else if (eolType == EOLTypeCRLF) {
                replacement = "\r\n";
                replacementLength = 2;
            } else if (eolType == EOLTypeLF) {
                replacement = "\n";
                replacementLength = 1;
            } else {
                stream.Append(run, static_cast<unsigned long>(p - run));
                throw CNxException(kInvalidEol);
            }
            break;
        case '\r':
            replacement = "";
            replacementLength = 0;
            break;
        case '"':
            replacement = "&quot;";
            replacementLength = 6;
            break;
        case '&':
            replacement = "&amp;";
            replacementLength = 5;
            break;
        case '<':
            replacement = "&lt;";
            replacementLength = 4;
            break;
        default: // '>'
            replacement = "&gt;";
            replacementLength = 4;
            break;
        }
        stream.Append(run, static_cast<unsigned long>(p - run));
        stream.Append(replacement, replacementLength);
        run = p + 1;
    }
}

void CXmlTextWriter::WriteStartDocument()
{
    m_stream.Append("<?xml version=\"1.0\"");
    switch (m_stream.GetEncoding()) {
    case XmlEncodingUTF8:
        m_stream.Append(" encoding=\"UTF-8\"");
        break;
    case XmlEncodingUTF16:
        m_stream.Append(" encoding=\"UTF-16\"");
        break;
    default:
        break;
    }
    m_stream.Append("?>", 2);
    AppendLineEnd();
    FlushCheck();
}

void CXmlTextWriter::WriteHeaderDirective(const std::string& text)
{
    if (GetCurrentContext())
        throw CNxException("Headed directives must appear before an Element has been added.");
    m_stream.Append(text);
    AppendLineEnd();
    FlushCheck();
}

void CXmlTextWriter::WritePI(const std::string& text)
{
    m_stream.Append(text);
    AppendLineEnd();
    AppendLineEnd();
    FlushCheck();
}

void CXmlTextWriter::WriteComment(const std::string& text)
{
    m_stream.Append("<!--", 4);
    PadAndAppend(text.c_str(), false);
    m_stream.Append("-->", 3);
    AppendLineEnd();
    FlushCheck();
}

void CXmlTextWriter::WriteInlineSchema(const std::string& text)
{
    m_stream.Append(' ');
    AppendLineEnd();
    m_stream.Append(text);
    AppendLineEnd();
    FlushCheck();
}

void CXmlTextWriter::WriteRawElement(const std::string& text)
{
    m_stream.Append(text);
    if (m_format)
        AppendLineEnd();
}

void CXmlTextWriter::WriteString(const std::string& text, ItemType /*item*/)
{
    if (text.empty())
        return;
    CXmlWriterContext* scope = GetCurrentContext();
    if (scope && scope->IsStartTagOpen()) {
        m_stream.Append('>');
        scope->SetStartTagOpen(false);
    }
    if (text.size() >= kCDataStartLength && std::memcmp(text.data(), kCDataStart, kCDataStartLength) == 0)
        m_stream.Append(text);
    else
        PadAndAppend(m_stream, m_eolType, text.data(), text.size(), false);
    FlushCheck();
}

void CXmlTextWriter::CloseParentElm()
{
    CXmlWriterContext* scope = GetCurrentContext();
    if (!scope)
        return;
    scope->IncrementChildCount();
    if (scope->IsStartTagOpen()) {
        scope->SetStartTagOpen(false);
        m_stream.Append('>');
        if (m_format)
            AppendLineEnd();
    }
}

void CXmlTextWriter::WriteStartElement(const std::string& name, const std::string& namespaceUri)
{
    CloseParentElm();

    const bool isRoot = GetCurrentContext() == nullptr;
    CXmlWriterContext* scope = NewScope(name, namespaceUri);
    try {
        if (m_format && scope->GetDepth() != 0)
            AppendIndent(scope->GetDepth());
        m_stream.Append('<');

        // A namespace other than the default is spelled with its prefix, and
        // declared here when the prefix was made for this element.
        bool isNew = false;
        const std::string& prefix = scope->StartTagPrefix(isNew);
        m_stream.Append(prefix.data(), prefix.size());
        m_stream.Append(name.data(), scope->GetTagNameLength());
        if (isNew) {
            m_stream.Append(" xmlns:", 7);
            m_stream.Append(prefix.data(), prefix.size() - 1);
            m_stream.Append("=\"", 2);
            m_stream.Append(namespaceUri);
            m_stream.Append('"');
        }

        // The root declares the writer's own bindings. A prefix generated
        // above for the root's namespace lives in the root scope's copy of
        // the map only, so it is not repeated here.
        if (isRoot) {
            const std::string& defaultNamespace = GetDefaultNamespace();
            if (!defaultNamespace.empty()) {
                m_stream.Append(" xmlns=\"", 8);
                m_stream.Append(defaultNamespace);
                m_stream.Append('"');
            }
            for (const auto& entry : GetNamespaceMap()) {
                if (IsXmlNamespace(entry.first))
                    continue;
                m_stream.Append(' ');
                AppendNamespaceDeclaration(entry.second, entry.first);
            }
        }

        FlushCheck();
    } catch (...) {
        DiscardScope(scope);
        throw;
    }
    PushScope(scope);
}

void CXmlTextWriter::WriteEndElement()
{
    CXmlWriterContext* scope = GetCurrentContext();
    if (!scope)
        throw CNxInvalidStateException("There is no open Element to end.");

    if (scope->IsStartTagOpen()) {
        m_stream.Append("/>", 2);
    } else {
        if (m_format && scope->GetChildCount() != 0)
            AppendIndent(scope->GetDepth());
        m_stream.Append("</", 2);
        const std::string& prefix = scope->EndTagPrefix();
        m_stream.Append(prefix.data(), prefix.size());
        m_stream.Append(scope->GetElementName().data(), scope->GetTagNameLength());
        m_stream.Append('>');
    }
    if (m_format)
        AppendLineEnd();
    FlushCheck();
    PopScope();
}

CXmlWriter::CXmlWriterContext& CXmlTextWriter::OpenStartTag() const
{
    CXmlWriterContext* scope = GetCurrentContext();
    if (!scope || !scope->IsStartTagOpen())
        throw CNxException(kAttributesFirst);
    return *scope;
}

void CXmlTextWriter::WriteAttributeString(const std::string& name, const std::string& namespaceUri,
                                          const std::string& value, ItemType /*item*/)
{
    CXmlWriterContext& scope = OpenStartTag();
    m_stream.Append(' ');
    // Unlike an element, an attribute in the default namespace still needs a
    // prefix: unprefixed attributes are in no namespace.
    if (!namespaceUri.empty()) {
        bool isNew = false;
        const std::string& prefix = FindOrCreatePrefixInPlace(scope, namespaceUri, isNew);
        if (isNew) {
            AppendNamespaceDeclaration(prefix, namespaceUri);
            m_stream.Append(' ');
        }
        m_stream.Append(prefix);
        m_stream.Append(':');
    }
    m_stream.Append(name);
    m_stream.Append("=\"", 2);
    PadAndAppend(m_stream, m_eolType, value.data(), value.size(), true);
    m_stream.Append('"');
    FlushCheck();
}

void CXmlTextWriter::WriteAttributeType(const std::string& namespaceUri, const std::string& typeName,
                                        ItemType item)
{
    CXmlWriterContext& scope = OpenStartTag();
    if (!namespaceUri.empty() && namespaceUri != scope.GetDefaultNamespace()) {
        bool isNew = false;
        const std::string& prefix = FindOrCreatePrefixInPlace(scope, namespaceUri, isNew);
        if (isNew) {
            m_stream.Append(' ');
            AppendNamespaceDeclaration(prefix, namespaceUri);
            m_stream.Append(' ');
        }
        std::string value;
        value.reserve(prefix.size() + 1 + typeName.size());
        value.append(prefix).append(1, ':').append(typeName);
        WriteAttributeString("type", kInstanceNamespace, value, item);
    } else {
        WriteAttributeString("type", kInstanceNamespace, typeName, item);
    }
}

void CXmlTextWriter::WriteAttributeNil()
{
    OpenStartTag();
    WriteAttributeString("nil", kInstanceNamespace, "true", ItemTypeBoolean);
}

} // namespace NxXmlLib9
