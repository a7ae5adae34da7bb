// The abstract output of every serialization, with its stack of element
// scopes and namespace prefixes, and the writer that turns it into XML text.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "NxFoundation.h"
#include "NxOutputOptions.h"
#include "NxTextStream.h"

namespace NxXmlLib9 {

// The output a write walk talks to; it does not know which form comes out.
// The writer keeps one scope per open element. Namespace prefixes live in
// maps from URI to prefix: the writer's own map, which the root scope
// copies when it is made, and below it a private map in each scope that
// declared something. Scopes that declared nothing share their ancestor's.
class CXmlWriter : public CInstanceMonitor {
public:
    // Namespace URI to prefix, iterated in URI order.
    typedef std::map<std::string, std::string> NamespaceMap;

    // One open element.
    class CXmlWriterContext : public CInstanceMonitor {
    public:
        // A child scope: it shares its parent's namespace state until it
        // declares something itself.
        CXmlWriterContext(const std::string& name, const std::string& namespaceUri,
                          CXmlWriterContext* parent);
        // A root scope: it starts from a copy of the given map, so that later
        // changes to that map do not reach it.
        CXmlWriterContext(const std::string& name, const std::string& namespaceUri,
                          const std::string& defaultNamespace, const NamespaceMap& map,
                          CXmlWriterContext* parent);
        CXmlWriterContext(const CXmlWriterContext&) = delete;
        CXmlWriterContext& operator=(const CXmlWriterContext&) = delete;
        // Destroys the whole chain of parents too, unless DetachParent was
        // called first.
        virtual ~CXmlWriterContext();

        // The effective map and default namespace: this scope's own, or those
        // of the nearest ancestor that has its own.
        // The map is handed out for changes too; whatever the scope worked
        // out from it before is worked out afresh afterwards.
        NamespaceMap& GetNamespaceMap() const;
        const std::string& GetDefaultNamespace() const { return NamespaceOwner()->m_defaultNamespace; }
        void SetDefaultNamespace(const std::string& namespaceUri);
        void SetNamespaceMapValue(const std::string& namespaceUri, const std::string& prefix);
        // The prefix of a URI in the effective map. A URI not in it is added
        // there with an empty prefix, and the empty prefix is returned.
        std::string GetNamespaceMapValue(const std::string& namespaceUri);
        std::string GetNamespaceMapValue(const char* namespaceUri);

        // Element children closed into this element so far.
        unsigned GetChildCount() const { return m_childCount; }
        void IncrementChildCount() { ++m_childCount; }
        // True while the start tag still accepts attributes.
        bool IsStartTagOpen() const { return m_startTagOpen; }
        void SetStartTagOpen(bool open) { m_startTagOpen = open; }
        // 0 for the root.
        unsigned GetDepth() const { return m_depth; }
        const std::string& GetNamespaceUri() const { return m_namespaceUri; }
        const std::string& GetElementName() const { return m_elementName; }
        CXmlWriterContext* GetParent() const { return m_parent; }
        // Clears and returns the parent, so that destroying this scope leaves
        // the parents alone.
        CXmlWriterContext* DetachParent();
        // Whether the element went out with its attribute flag set (binary
        // output only).
        bool GetAttributesWritten() const { return m_attributesWritten; }
        void SetAttributesWritten(bool written) { m_attributesWritten = written; }
        // True while this scope has no namespace state of its own.
        bool InheritsNamespaces() const { return m_inherits; }
        bool OwnsMap() const { return m_ownsMap; }

        // The effective map for the writers' own look-ups, which change it
        // only through the operations above.
        NamespaceMap& EffectiveMap() const { return *NamespaceOwner()->m_map; }

        // What the element's start tag puts ahead of its name: "prefix:"
        // when its namespace is neither empty nor the default, nothing
        // otherwise. A namespace with no prefix yet gets a generated one,
        // stored in this scope, and isNew is set so that the caller declares
        // it. The text stays valid while the scope is open and its bindings
        // do not change.
        const std::string& StartTagPrefix(bool& isNew);
        // The same for the end tag, with the prefix the effective map holds
        // now (an unbound namespace is added with an empty prefix).
        const std::string& EndTagPrefix();
        // Length of the element name up to its first zero byte, as tags
        // spell it.
        std::string::size_type GetTagNameLength() const { return m_tagNameLength; }

    private:
        friend class CXmlWriter;

        void InitChild(const std::string& name, const std::string& namespaceUri, CXmlWriterContext* parent);
        void InitRoot(const std::string& name, const std::string& namespaceUri, const std::string& defaultNamespace,
                      const NamespaceMap& map);
        // Keeps an owned map for the next use of the scope, which spares
        // its nodes.
        void SetMapAside();
        // The map kept aside (or a new one), filled by fill; freed when
        // fill throws.
        template <class Fill>
        NamespaceMap* SpareMapFilled(Fill fill);
        // Makes map the scope's own namespace state; StartChain also makes
        // the scope the root of its chain of owners.
        void OwnMap(NamespaceMap* map);
        void StartChain(NamespaceMap* map);
        // The nearest scope with namespace state of its own; the answer is
        // cached until the state of the chain changes.
        const CXmlWriterContext* NamespaceOwner() const
        {
            if (!m_inherits)
                return this;
            if (m_ownerStamp == NamespaceStamp())
                return m_owner;
            return FindNamespaceOwner();
        }
        const CXmlWriterContext* FindNamespaceOwner() const;
        // Makes this scope's map a copy of the effective one, with the given
        // binding added when there is one.
        void TakePrivateMap(const std::string* namespaceUri = nullptr, const std::string* prefix = nullptr);
        // The prefix stays right while the scope whose state it came from is
        // still the one in force and has not changed since.
        bool TagPrefixTrusted() const
        {
            if (!m_tagPrefixHolder)
                return false;
            const CXmlWriterContext* owner = NamespaceOwner();
            return owner == m_tagPrefixOwner && owner->m_version == m_tagPrefixVersion;
        }
        // Marks a change of this scope's own map or default namespace. The
        // mark is new among all scopes, so a scope made later at the same
        // address never repeats a mark that another scope remembers.
        void NoteStateChange() const { m_version = NextVersion(); }
        static unsigned long NextVersion();
        // Takes back the map and prefix this scope made for its own tag the
        // last time, when they are still what working them out would give.
        bool ReuseMadeBinding(const CXmlWriterContext* owner);
        // Sets this scope's tag prefix from a bound prefix (null for none).
        void SetTagPrefix(const std::string* prefix);
        void ForgetTagPrefix();
        // Counts a scope of the chain taking state of its own: the owners
        // cached before it are no longer trusted.
        void NoteNamespaceChange() const { ++m_chainRoot->m_takeovers; }
        unsigned long NamespaceStamp() const { return m_chainRoot->m_takeovers; }

        unsigned m_childCount;
        bool m_startTagOpen;
        unsigned m_depth;
        std::string m_namespaceUri;
        std::string m_elementName;
        CXmlWriterContext* m_parent = nullptr;
        bool m_attributesWritten;
        std::string m_defaultNamespace;
        NamespaceMap* m_map = nullptr;
        bool m_inherits;
        bool m_ownsMap = false;

        // Finding the nearest scope with its own namespace state would walk
        // the parents on every look-up, which is quadratic in a deep tree.
        // The answer is cached, and the cache is dropped whenever any scope
        // of the chain takes state of its own (counted at the chain's root).
        CXmlWriterContext* m_chainRoot;
        mutable unsigned long m_takeovers = 0;
        mutable const CXmlWriterContext* m_owner;
        mutable unsigned long m_ownerStamp;

        // The "prefix:" of the element's tags, held by this scope or by the
        // ancestor that worked it out for a child in its own namespace (null
        // while unknown). Worked out for the start tag and trusted for the
        // end tag, and for children in the same namespace, while the scope
        // whose map and default namespace decided it stays in force
        // unchanged (its version).
        std::string m_tagPrefix;
        const CXmlWriterContext* m_tagPrefixHolder;
        const CXmlWriterContext* m_tagPrefixOwner;
        unsigned long m_tagPrefixVersion;
        // Changes of this scope's own namespace state, never reset.
        mutable unsigned long m_version = 0;
        std::string::size_type m_tagNameLength;
        // An owned map from an earlier use of a recycled scope.
        NamespaceMap* m_spareMap = nullptr;

        // A recycled scope often opens the next element of a namespace that
        // its bindings lack, as the last one did: it then made a prefix and
        // a private map, the effective one with that binding added. While
        // the spare map still holds exactly that (m_madeValid) and the scope
        // it was copied from is unchanged (same mark, same size, as a look-up
        // of a missing URI adds it without a new mark), both are taken back.
        const CXmlWriterContext* m_madeOwner = nullptr;
        unsigned long m_madeOwnerVersion = 0;
        std::size_t m_madeOwnerSize = 0;
        std::string m_madeUri;
        std::string m_madeTagPrefix;
        // The state of the map right after the binding was made, to tell
        // whether it is set aside unchanged.
        unsigned long m_madeVersion = 0;
        std::size_t m_madeSize = 0;
        bool m_madePending = false;
        bool m_madeValid = false;
    };

    // "http://www.w3.org/XML/1998/namespace", bound to the prefix "xml".
    static const std::string XML_NAMESPACE;

    CXmlWriter();
    CXmlWriter(const CXmlWriter&) = delete;
    CXmlWriter& operator=(const CXmlWriter&) = delete;
    // Destroys any scopes left open; raises nothing.
    virtual ~CXmlWriter();

    virtual void Open();
    // Raises when an element is still open.
    virtual void Close();
    // Before the root: the writer's default namespace. Inside an element:
    // that element's, for its subtree.
    virtual void SetDefaultNamespace(const std::string& namespaceUri);
    // Binds a prefix to a URI, replacing an earlier prefix of the same URI.
    // Before the root the binding is declared on the root; inside an element
    // it only steers prefix choice in that element's subtree.
    virtual void AddNamespace(const std::string& prefix, const std::string& namespaceUri);

    virtual void WriteComment(const std::string& text) = 0;
    virtual void WritePI(const std::string& text) = 0;
    virtual void WriteInlineSchema(const std::string& text) = 0;
    virtual void WriteStartElement(const std::string& name, const std::string& namespaceUri) = 0;
    virtual void WriteString(const std::string& text, ItemType item) = 0;
    virtual void WriteEndElement() = 0;
    virtual void WriteAttributeString(const std::string& name, const std::string& namespaceUri,
                                      const std::string& value, ItemType item) = 0;
    virtual void WriteAttributeType(const std::string& namespaceUri, const std::string& typeName,
                                    ItemType item) = 0;
    virtual void WriteAttributeNil() = 0;

    // The generated prefix of number i: two letters, AA, AB, ... AZ, BA, ...
    static std::string NsIntToString(int i);
    // The first generated prefix that is not a prefix in the map.
    static std::string GetUniquePrefix(const NamespaceMap& map);

    // The innermost open element, or null outside the root.
    CXmlWriterContext* GetCurrentContext() const { return m_pCurrentContext; }
    // The writer's own default namespace and map, as declared on the root.
    const std::string& GetDefaultNamespace() const { return m_defaultNamespace; }
    const NamespaceMap& GetNamespaceMap() const { return m_namespaceMap; }

protected:
    // The scope of a new element: below the current element, or a root scope
    // made from the writer's default namespace and map. It is not current.
    CXmlWriterContext* NewScope(const std::string& name, const std::string& namespaceUri) const;
    // Makes a scope from NewScope current.
    void PushScope(CXmlWriterContext* scope);
    // Closes the current scope; its parent becomes current.
    void PopScope();
    // Deletes a scope from NewScope that never became current.
    static void DiscardScope(CXmlWriterContext* scope);

    // The prefix of a URI in the scope's effective map. When absent, a new
    // prefix is generated and stored in the scope, and isNew is set.
    static std::string FindOrCreatePrefix(CXmlWriterContext& scope, const std::string& namespaceUri,
                                          bool& isNew);
    // The same, as a reference into the scope's effective map, valid until
    // that map changes.
    static const std::string& FindOrCreatePrefixInPlace(CXmlWriterContext& scope, const std::string& namespaceUri,
                                                        bool& isNew);
    // URIs under the XML namespace are never declared.
    static bool IsXmlNamespace(const std::string& namespaceUri);

private:
    std::string m_defaultNamespace;
    CXmlWriterContext* m_pCurrentContext;
    NamespaceMap m_namespaceMap;
    // Closed scopes, kept for the next elements: one per level of the
    // deepest tree written so far, so that an element costs no allocation.
    mutable std::vector<CXmlWriterContext*> m_spareScopes;
};

// Writes XML text into a text stream, which it does not own.
class CXmlTextWriter : public CXmlWriter {
public:
    explicit CXmlTextWriter(CTextStream& stream);
    ~CXmlTextWriter() override;

    // Opens the stream, which empties it.
    void Open() override;
    // Closes the stream first, then raises when an element is still open.
    void Close() override;

    void WriteComment(const std::string& text) override;
    // The text is the whole instruction; it goes out unescaped.
    void WritePI(const std::string& text) override;
    // Lands inside a start tag that is still open.
    void WriteInlineSchema(const std::string& text) override;
    void WriteStartElement(const std::string& name, const std::string& namespaceUri) override;
    // Text beginning with a CDATA section goes out whole and unescaped.
    void WriteString(const std::string& text, ItemType item) override;
    void WriteEndElement() override;
    void WriteAttributeString(const std::string& name, const std::string& namespaceUri,
                              const std::string& value, ItemType item) override;
    void WriteAttributeType(const std::string& namespaceUri, const std::string& typeName,
                            ItemType item) override;
    void WriteAttributeNil() override;

    bool GetFormat() const { return m_format; }
    void SetFormat(bool format) { m_format = format; }
    EOLType GetEOLType() const { return m_eolType; }
    void SetEOLType(EOLType type);

    // The XML declaration, with the encoding of the stream.
    void WriteStartDocument();
    // Unescaped text ahead of the root element.
    void WriteHeaderDirective(const std::string& text);
    // Unescaped markup, such as an element written apart.
    void WriteRawElement(const std::string& text);
    // Ends a start tag that is still open and counts a child of it.
    void CloseParentElm();
    // Appends the text with the markup characters escaped; line feeds become
    // line ends in text and character references in attribute values.
    void PadAndAppend(const char* text, bool isAttribute);

private:
    // PadAndAppend on a text of known length, which ends early at a zero
    // byte all the same.
    static void PadAndAppend(CTextStream& stream, EOLType eolType, const char* text, size_t length,
                             bool isAttribute);
    void AppendLineEnd() { m_stream.Append(m_lineEnd); }
    void AppendIndent(unsigned depth);
    void AppendNamespaceDeclaration(const std::string& prefix, const std::string& namespaceUri);
    // A stream that drains elsewhere is asked to once it holds more than
    // 4095 characters. A plain in-memory stream has nothing to drain, so it
    // is spared the call on every piece of markup once it is that long.
    void FlushCheck()
    {
        if (m_streamDrains && m_stream.GetLength() > 4095)
            m_stream.Flush();
    }
    CXmlWriterContext& OpenStartTag() const;

    std::string m_lineEnd;
    EOLType m_eolType;
    bool m_format;
    CTextStream& m_stream;
    // False when the stream is exactly a CTextStream, whose Flush does nothing.
    bool m_streamDrains;
};

} // namespace NxXmlLib9
