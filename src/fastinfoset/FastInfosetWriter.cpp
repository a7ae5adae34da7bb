// The binary writer's document, elements and attributes: the deferred element
// head, the namespace attributes of the root and the folded terminators.
#include "NxFastInfosetWriter.h"

#include "FastInfosetWriterOutput.h"
#include "NxEncoder.h"
#include "NxException.h"

namespace NxXmlLib9 {

namespace {

const char kInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";
const char kAttributesFirst[] = "Attributes must be added before elements";

// Header: the identification octets and version 1.
const unsigned char kHeader[4] = {0xE0, 0x00, 0x00, 0x01};
// Optional components: none, or an initial vocabulary that only names an
// external vocabulary.
const unsigned char kNoOptionalComponents = 0x00;
const unsigned char kExternalVocabularyHead[3] = {0x20, 0x10, 0x00};

const unsigned char kAttributesPresent = 0x40;
const unsigned char kNamespaceAttributesPresent = 0x38;
const unsigned char kDefaultNamespaceAttribute = 0xCD;
const unsigned char kPrefixedNamespaceAttribute = 0xCF;
const unsigned char kTerminator = 0xF0;
const unsigned char kDoubleTerminator = 0xFF;
const unsigned char kCharacterChunk = 0x80;

} // namespace

CFastInfosetWriter::CFastInfosetWriter(const CFastInfosetContext& context, CBinaryStream& stream)
    : m_stream(stream),
      m_context(context),
      m_pendingElement(nullptr),
      m_pendingTerminator(false),
      m_vocabulary(context.GetUseGeneratedVocabulary() ? new CFIVocabulary(context.GetVocabulary())
                                                        : new CFIVocabulary()),
      m_nesting(0)
{
}

// A started element that never went out is not part of the scope chain, so
// it is released here. Octets still held go to the stream; a destructor
// cannot report a failure to take them.
CFastInfosetWriter::~CFastInfosetWriter()
{
    try {
        FlushOutput();
    } catch (...) {
    }
    DiscardScope(m_pendingElement);
    delete m_vocabulary;
}

void CFastInfosetWriter::FlushOutput()
{
    if (m_output.empty())
        return;
    m_stream.Append(m_output.data(), static_cast<unsigned long>(m_output.size()));
    m_output.clear();
}

void CFastInfosetWriter::Put(const unsigned char* data, unsigned long length)
{
    m_output.insert(m_output.end(), data, data + length);
}

void CFastInfosetWriter::WriteComment(const std::string&) {}

void CFastInfosetWriter::WriteInlineSchema(const std::string&) {}

void CFastInfosetWriter::WritePI(const std::string&)
{
    WriteElement(false);
}

void CFastInfosetWriter::WriteStartDocument(FInfoDecl declaration)
{
    Emit([&] {
        if (declaration != FInfoDeclNone) {
            if (declaration < FInfoDeclNone || static_cast<unsigned long>(declaration) > FI_DECLARATION_COUNT)
                throw CNxException(FormatString("Invalid Fast Infoset declaration [%d]", static_cast<int>(declaration)));
            const CBinaryData text = CEncoder::LocalCodePageToUtf8Binary(FI_DECLARATION_LIST[declaration - 1]);
            Put(text.GetData(), text.GetLength());
        }
        Put(kHeader, sizeof kHeader);
        if (!m_context.GetUseGeneratedVocabulary()) {
            Put(kNoOptionalComponents);
            return;
        }
        Put(kExternalVocabularyHead, sizeof kExternalVocabularyHead);
        const std::string uri = m_context.GetExternalVocabularyURI();
        NonEmptyOctetUTF8StringBit2(0, uri.empty() ? std::string(ORVANE_URI) : uri);
    });
}

void CFastInfosetWriter::WriteEndDocument()
{
    Emit([&] { Put(m_pendingTerminator ? kDoubleTerminator : kTerminator); });
    FlushOutput();
}

// Ends the attribute list of an element whose start tag is still open: its
// first content or child decides that no attribute follows.
void CFastInfosetWriter::CloseStartTag(CXmlWriterContext* scope)
{
    if (!scope || !scope->IsStartTagOpen())
        return;
    scope->SetStartTagOpen(false);
    if (scope->GetAttributesWritten())
        Put(kTerminator);
}

void CFastInfosetWriter::WriteStartElement(const std::string& name, const std::string& namespaceUri)
{
    Emit([&] {
        WriteElement(false);
        if (m_pendingTerminator) {
            Put(kTerminator);
            m_pendingTerminator = false;
        }
        CXmlWriterContext* parent = GetCurrentContext();
        if (parent) {
            parent->IncrementChildCount();
            CloseStartTag(parent);
        }
        m_pendingElement = NewScope(name, namespaceUri);
    });
}

void CFastInfosetWriter::WriteElement(bool hasAttributes)
{
    if (!m_pendingElement)
        return;
    Emit([&] {
        CXmlWriterContext& scope = *m_pendingElement;
        unsigned char first = hasAttributes ? kAttributesPresent : 0;
        if (hasAttributes)
            scope.SetAttributesWritten(true);

        // Namespace attributes are declared on the root only, from the
        // writer's own bindings; the "xml" binding is always there, so the
        // list is written even when it turns out empty.
        if (!GetCurrentContext() && (!GetDefaultNamespace().empty() || !GetNamespaceMap().empty())) {
            Put(static_cast<unsigned char>(first | kNamespaceAttributesPresent));
            if (!GetDefaultNamespace().empty()) {
                Put(kDefaultNamespaceAttribute);
                PutIdentifyingString(GetDefaultNamespace(), false);
            }
            for (const auto& binding : GetNamespaceMap()) {
                if (IsXmlNamespace(binding.first))
                    continue;
                Put(kPrefixedNamespaceAttribute);
                PutIdentifyingString(binding.second, true);
                PutIdentifyingString(binding.first, false);
            }
            Put(kTerminator);
            first = 0;
        }

        // A namespace other than the default takes a prefix, generated when
        // none is bound; the pair travels in the literal name only.
        const std::string& namespaceUri = scope.GetNamespaceUri();
        std::string prefix;
        if (!namespaceUri.empty() && namespaceUri != scope.GetDefaultNamespace()) {
            bool isNew = false;
            prefix = FindOrCreatePrefix(scope, namespaceUri, isNew);
        }
        QualifiedNameOrIndexBit3(first, prefix, namespaceUri, scope.GetElementName(),
                                 m_vocabulary->GetElementNamesMap());
        PushScope(m_pendingElement);
        m_pendingElement = nullptr;
    });
}

void CFastInfosetWriter::WriteString(const std::string& text, ItemType item)
{
    Emit([&] {
        WriteElement(false);
        CloseStartTag(GetCurrentContext());
        if (!text.empty())
            NonIdentifyingStringOrIndexBit3(kCharacterChunk, text, m_vocabulary->GetCharacterChunksMap(),
                                            m_context.GetElementMaxAddLength(), item);
    });
}

void CFastInfosetWriter::WriteEndElement()
{
    Emit([&] {
        WriteElement(false);
        CloseStartTag(GetCurrentContext());
        if (m_pendingTerminator) {
            Put(kDoubleTerminator);
            m_pendingTerminator = false;
        } else {
            m_pendingTerminator = true;
        }
        PopScope();
    });
}

// The scope that takes an attribute now, after the pending head went out
// with its attribute bit.
CFastInfosetWriter::CXmlWriterContext& CFastInfosetWriter::OpenStartTag()
{
    WriteElement(true);
    CXmlWriterContext* scope = GetCurrentContext();
    if (!scope || !scope->IsStartTagOpen())
        throw CNxException(kAttributesFirst);
    return *scope;
}

void CFastInfosetWriter::WriteAttributeString(const std::string& name, const std::string& namespaceUri,
                                              const std::string& value, ItemType item)
{
    Emit([&] {
        CXmlWriterContext& scope = OpenStartTag();
        std::string prefix;
        if (!namespaceUri.empty()) {
            bool isNew = false;
            prefix = FindOrCreatePrefix(scope, namespaceUri, isNew);
        }
        QualifiedNameOrIndexBit2(0, prefix, namespaceUri, name, m_vocabulary->GetAttributeNamesMap());
        NonIdentifyingStringOrIndexBit1(value, m_vocabulary->GetAttributeValuesMap(),
                                        m_context.GetAttributeMaxAddLength(), item);
    });
}

void CFastInfosetWriter::WriteAttributeType(const std::string& namespaceUri, const std::string& typeName,
                                            ItemType item)
{
    Emit([&] {
        CXmlWriterContext& scope = OpenStartTag();
        if (namespaceUri.empty() || namespaceUri == scope.GetDefaultNamespace()) {
            WriteAttributeString("type", kInstanceNamespace, typeName, item);
            return;
        }
        // A known namespace names the instance namespace's "type" under the
        // type's prefix; an unknown one names the type itself in its own
        // namespace. Readers drop attribute prefixes, and this is the form
        // documents have always had.
        IndexMap& names = m_vocabulary->GetAttributeNamesMap();
        NamespaceMap& map = scope.GetNamespaceMap();
        auto bound = map.find(namespaceUri);
        std::string prefix;
        if (bound != map.end()) {
            prefix = bound->second;
            QualifiedNameOrIndexBit2(0, prefix, kInstanceNamespace, "type", names);
        } else {
            bool isNew = false;
            prefix = FindOrCreatePrefix(scope, namespaceUri, isNew);
            QualifiedNameOrIndexBit2(0, prefix, namespaceUri, typeName, names);
        }
        NonIdentifyingStringOrIndexBit1(prefix + ":" + typeName, m_vocabulary->GetAttributeValuesMap(),
                                        m_context.GetAttributeMaxAddLength(), item);
    });
}

void CFastInfosetWriter::WriteAttributeNil()
{
    Emit([&] {
        OpenStartTag();
        WriteAttributeString("nil", kInstanceNamespace, "true", ItemTypeBoolean);
    });
}

} // namespace NxXmlLib9
