// The parsed tree: a document that loads XML text, byte streams and files,
// and the elements and attributes it is made of. The tree is small on
// purpose: an element has a name, a namespace URI, its attributes in parser
// order, a singly linked list of child elements and one text string that
// gathers all its character data.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "NxFoundation.h"
#include "NxSerializationContext.h"

namespace NxXmlLib9 {

class CXmlDocument;
class CExpatReader;
class CFastInfosetReader;
class CXmlNodeStorage;

// The name pair of an element or attribute. A document keeps one record per
// pair and all its nodes share it; a node made without a document has a
// record of its own (document null).
struct CXmlNodeName {
    std::string localName;
    std::string namespaceUri;
    const CXmlDocument* document;
};

class CXmlAttribute;

// The name of an element that has attributes, with the list of them: only
// such elements pay for a list.
struct CXmlAttributedName {
    const CXmlNodeName* name;
    std::vector<CXmlAttribute*> attributes;
};

class CXmlAttribute : public CInstanceMonitor {
public:
    CXmlAttribute(const std::string& localName, const std::string& value, const std::string& namespaceUri);
    ~CXmlAttribute() override;
    CXmlAttribute(const CXmlAttribute&) = delete;
    CXmlAttribute& operator=(const CXmlAttribute&) = delete;

    const std::string& GetNamespaceURI() const { return m_name->namespaceUri; }
    const std::string& GetLocalName() const { return m_name->localName; }
    const std::string& GetValue() const { return m_value; }

    // True for xmlns, type, schemaLocation and noNamespaceSchemaLocation in
    // the schema-instance or the xmlns namespace: the pair decides, so a
    // type attribute in no namespace is an ordinary one.
    bool IsNamespaceAttribute() const;
    // True for nil in either of those two namespaces.
    bool IsNilAttribute() const;

protected:
    // Over a name record of the document, which outlives the attribute.
    CXmlAttribute(const CXmlNodeName* name, std::string&& value) noexcept;

private:
    const CXmlNodeName* m_name;
    std::string m_value;
};

// Elements (and their attributes) over a document live in the document's
// node storage: they are freed together at its next Cleanup, so an element
// taken out of the tree with RemoveLastChildElement must be deleted, if at
// all, before then. Elements made without a document live on the heap.
class CXmlElement : public CInstanceMonitor {
public:
    explicit CXmlElement(const CXmlDocument* document);
    // Frees the whole subtree, whatever its depth, and the attributes.
    ~CXmlElement() override;
    CXmlElement(const CXmlElement&) = delete;
    CXmlElement& operator=(const CXmlElement&) = delete;

    // The members themselves: nothing is copied, and what is returned lives
    // as long as the element.
    CXmlElement* GetFirstElement() const { return m_lastChild ? Untagged(m_lastChild->m_link) : nullptr; }
    CXmlElement* GetNextSiblingElement() const
    {
        return (m_link & LAST_CHILD_TAG) ? nullptr : reinterpret_cast<CXmlElement*>(m_link);
    }
    const std::string& GetNamespaceURI() const { return NameRecord().namespaceUri; }
    // Without prefix; in namespace-free mode the name as written.
    const std::string& GetLocalName() const { return NameRecord().localName; }
    // All character data of the element, concatenated, without carriage
    // returns.
    const std::string& GetText() const { return m_text; }
    const std::vector<CXmlAttribute*>& GetAttributes() const
    {
        return HasAttributeList() ? Attributed()->attributes : NoAttributes();
    }
    // The document whose namespace prefixes apply to this element.
    const CXmlDocument* GetDocument() const { return NameRecord().document; }

    // Value of the first attribute with that local name and namespace; a
    // missing attribute gives a reference to one process-wide empty string,
    // so it looks like an empty one.
    const std::string& GetAttribute(const std::string& localName, const std::string& namespaceUri) const;

    void SetNamespace(const std::string& namespaceUri);
    void SetElementName(const std::string& localName);
    // Appended after the existing ones; duplicates are kept.
    void AddAttribute(const std::string& localName, const std::string& value, const std::string& namespaceUri);
    // Appends length bytes (nothing when length is not positive). The first
    // piece is taken at its own size; later ones grow the text
    // geometrically, so text arriving in many small pieces costs linear
    // time overall.
    void AppendText(const char* text, int length);
    void AppendText(const char* text);
    // A new empty child over the same document, linked after the last one.
    CXmlElement* CreateNewChildElement();
    // Unlinks the last child and hands it, and its ownership, to the caller;
    // null when there are no children. Linear in the number of children.
    CXmlElement* RemoveLastChildElement();

private:
    friend class CXmlDocument;
    friend class CXmlNodeStorage;
    friend class CExpatReader;

    // The link of the last child carries this bit and points back to the
    // first child, so that the parent needs one pointer for constant-time
    // appends and still finds its first child.
    static const std::uintptr_t LAST_CHILD_TAG = 1;
    static CXmlElement* Untagged(std::uintptr_t link)
    {
        return reinterpret_cast<CXmlElement*>(link & ~LAST_CHILD_TAG);
    }
    static const std::vector<CXmlAttribute*>& NoAttributes();
    // The name word holds the name record, or, with this bit, the element's
    // attributed name.
    static const std::uintptr_t ATTRIBUTES_TAG = 1;
    bool HasAttributeList() const { return (m_name & ATTRIBUTES_TAG) != 0; }
    CXmlAttributedName* Attributed() const { return reinterpret_cast<CXmlAttributedName*>(m_name & ~ATTRIBUTES_TAG); }
    const CXmlNodeName& NameRecord() const
    {
        return HasAttributeList() ? *Attributed()->name : *reinterpret_cast<const CXmlNodeName*>(m_name);
    }
    void SetNameRecord(const CXmlNodeName* name);

protected:
    // Over a name record of the document.
    explicit CXmlElement(const CXmlNodeName& name) noexcept;

private:
    void AppendChild(CXmlElement* child);
    // A name record of this element's own, for an element without document.
    CXmlNodeName& OwnName();
    std::vector<CXmlAttribute*>& AttributeList();

    // The next sibling, or, tagged, the first child of the parent.
    std::uintptr_t m_link;
    CXmlElement* m_lastChild;
    // A CXmlNodeName*, or a tagged CXmlAttributedName* once the element has
    // an attribute list.
    std::uintptr_t m_name;
    std::string m_text;
};

// Loads one input and owns the tree built from it. Strings, narrow and wide,
// are always XML text; files and byte streams go through Parse(). Pointers
// into the tree stay valid until the next load, Cleanup or destruction.
// A document belongs to one thread at a time; the context must outlive it.
class CXmlDocument : public CInstanceMonitor {
public:
    // Without a context the document reads
    // CXmlSerializationContext::m_defaultContext; without a filter every
    // element stays in the tree.
    CXmlDocument();
    explicit CXmlDocument(const CXmlSerializationContext& context);
    // The filter sees each element once it has ended, with its subtree,
    // attributes and text complete, and answers true to have it dropped
    // from its parent. Children are shown before their parents. It is called
    // for XML text only, and must answer false for the document element,
    // which has no parent to be dropped from (a true answer there is ignored).
    explicit CXmlDocument(bool (*filter)(CXmlElement*));
    CXmlDocument(bool (*filter)(CXmlElement*), const CXmlSerializationContext& context);
    ~CXmlDocument() override;
    CXmlDocument(const CXmlDocument&) = delete;
    CXmlDocument& operator=(const CXmlDocument&) = delete;

    // Frees the tree and the input, empties the open elements and the
    // prefix map. Safe on an empty document; every load starts with it.
    virtual void Cleanup();
    // Makes the document empty and samples the schema type of the context
    // again; the constructors end with it.
    void Init();

    // Each load throws a CNxException on any failure; a parser's failure
    // passes through unchanged, and the tree built up to it stays until the
    // next Cleanup.
    void Load(const char* path);
    void LoadXml(const char* text);
    // Handed to the parser as UTF-16, little-endian with a byte order mark;
    // each wide character is cut to its low 16 bits.
    void LoadXml(const wchar_t* text);
    void LoadXmlStream(unsigned char* bytes, unsigned long size);

    // The path of files and byte streams: unpacks compressed input and
    // recognises binary documents ahead of reading the input as XML text.
    void Parse();
    // Reads the input as XML text.
    void ParseText();

    CXmlElement* GetDocumentElement() const { return m_documentElement; }
    // The URI last bound to the alias anywhere in the document; the default
    // namespace stands under the empty alias. Unknown aliases give "".
    std::string LookupNamespaceFromAlias(const char* alias) const;

    // The input being parsed, kept until the next Cleanup. A narrow
    // string is parsed in place, without a copy: after a load from one
    // that succeeded there is no input buffer (null, size 0); after one that
    // failed the document holds a copy.
    const unsigned char* GetInputBuffer() const { return m_inputBuffer; }
    unsigned long GetInputSize() const { return m_inputSize; }
    SchemaType GetSchemaType() const { return m_schemaType; }
    const CXmlSerializationContext& GetContext() const { return m_context; }

    // What the parsers feed the tree with. The open elements form a stack:
    // its top receives text and children.
    CXmlElement* AddDocElement(const char* namespaceUri, const char* localName);
    // Throws CNxInvalidStateException when no element is open.
    CXmlElement* AddChildElement(const char* namespaceUri, const char* localName);
    static void AddElementAttribute(CXmlElement* element, const std::string& localName, const std::string& value,
                                    const std::string& namespaceUri);
    // The only way character data enters the tree: appends the text with
    // every carriage return dropped, stopping at the first zero byte or
    // after length bytes.
    static void AppendTextExcludingCR(CXmlElement* element, const char* text, unsigned long length);
    static void AppendTextExcludingCR(CXmlElement* element, const char* text);
    // Closes the top element and shows it to the filter. Throws
    // CNxInvalidStateException when no element is open.
    void EndElement();

private:
    friend class CExpatReader;
    friend class CFastInfosetReader;
    friend class CXmlElement;

    // The record of a name pair that every node of this document with that
    // pair shares; it stays until the next Cleanup.
    const CXmlNodeName& Name(std::string_view namespaceUri, std::string_view localName) const;
    // AddDocElement and AddChildElement over a name record of this
    // document: every element of either parser is added through these two.
    CXmlElement* AddNamedDocElement(const CXmlNodeName& name);
    CXmlElement* AddNamedChildElement(const CXmlNodeName& name);

    void FreeContent();
    static void ReleaseTextSlack(CXmlElement* element);
    void AdoptInput(unsigned char* buffer, unsigned long size);
    // After a failed load of a caller's text, the document keeps a copy of
    // the input, as it does of any other input.
    void KeepBorrowedInput();
    // The stages ahead of the XML text parser on the path of files and
    // streams.
    void DecompressInput();
    bool ParseFastInfoset();

    CXmlElement* m_documentElement;
    std::vector<CXmlElement*> m_openElements;
    std::map<std::string, std::string, std::less<>> m_prefixMap;
    unsigned char* m_inputBuffer;
    unsigned long m_inputSize;
    // False while a narrow string is read in place: the caller owns it.
    bool m_ownsInput;
    SchemaType m_schemaType;
    bool (*m_filter)(CXmlElement*);
    const CXmlSerializationContext& m_context;
    // The nodes and name records of the tree.
    std::unique_ptr<CXmlNodeStorage> m_storage;
};

// Stored for the callers that set it; reading files does not depend on it.
void AsyncFromXmlFile(bool asyncFromXmlFile);

} // namespace NxXmlLib9
