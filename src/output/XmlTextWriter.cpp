#include "NxXmlWriter.h"

#include "NxException.h"

#include <algorithm>
#include <cstring>

namespace NxXmlLib9 {

namespace {

// The stream is handed to a draining Flush once it holds more than this.
const unsigned long kFlushThreshold = 4095;

const char kInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";
const char kCDataStart[] = "<![CDATA[";
const size_t kCDataStartLength = sizeof(kCDataStart) - 1;
const char kAttributesFirst[] = "Attributes must be added before elements";
const char kInvalidEol[] = "Invalid EOL type.";

const char kTabs[] = "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
const unsigned kTabsLength = sizeof(kTabs) - 1;

} // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream& stream)
    : m_lineEnd("\n"), m_eolType(EOLTypeLF), m_format(true), m_stream(stream)
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

void CXmlTextWriter::FlushCheck()
{
    if (m_stream.GetLength() > kFlushThreshold)
        m_stream.Flush();
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

// Plain bytes are gathered into runs and appended in one call each; only the
// bytes that need a replacement break a run.
void CXmlTextWriter::PadAndAppend(const char* text, bool isAttribute)
{
    if (!text)
        return;
    // Characters that end a run of plain text: the terminator, line ends
    // and the five that are escaped.
    static const struct SpecialTable {
        bool special[256] = {};
        SpecialTable()
        {
            for (unsigned char c : {'\0', '\n', '\r', '"', '&', '<', '>'})
                special[c] = true;
        }
    } table;
    const char* run = text;
    const char* p = text;
    for (;; ++p) {
        while (!table.special[static_cast<unsigned char>(*p)])
            ++p;
        const char c = *p;
        const char* replacement;
        unsigned long replacementLength;
        switch (c) {
        case '\0':
            m_stream.Append(run, static_cast<unsigned long>(p - run));
            return;
        case '\n':
            if (isAttribute) {
                replacement = "&#xA;";
                replacementLength = 5;
            } else if (m_eolType == EOLTypeCRLF) {
                replacement = "\r\n";
                replacementLength = 2;
            } else if (m_eolType == EOLTypeLF) {
                replacement = "\n";
                replacementLength = 1;
            } else {
                m_stream.Append(run, static_cast<unsigned long>(p - run));
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
        case '>':
            replacement = "&gt;";
            replacementLength = 4;
            break;
        default:
            continue;
        }
        m_stream.Append(run, static_cast<unsigned long>(p - run));
        m_stream.Append(replacement, replacementLength);
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
    if (text.compare(0, kCDataStartLength, kCDataStart) == 0)
        m_stream.Append(text);
    else
        PadAndAppend(text.c_str(), false);
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
        const std::string& tagName = scope->StartTagName(isNew);
        m_stream.Append(tagName.data(), tagName.size());
        if (isNew) {
            m_stream.Append(" xmlns:", 7);
            m_stream.Append(tagName.data(), scope->GetTagPrefixLength() - 1);
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
        const std::string& tagName = scope->EndTagName();
        m_stream.Append(tagName.data(), tagName.size());
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
    PadAndAppend(value.c_str(), true);
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
