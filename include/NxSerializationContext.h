// The options of one read or write, and the namespace aliases declared on
// the root element of a write.
#pragma once

#include <atomic>
#include <map>
#include <string>
#include <vector>

#include "NxFastInfosetContext.h"
#include "NxSmartPtr.h"

namespace NxXmlLib9 {

class CAttributeCol;

// Mode of the schema the generated code came from. Only
// SchemaTypeNoNamespaces changes anything: it makes the whole library ignore
// namespaces. Every other value behaves like SchemaTypeDefault.
enum SchemaType : int {
    SchemaTypeDefault = 0,
    SchemaTypeNoNamespaces = 2
};

// Prefix declarations wanted on the root element, keyed by namespace URI:
// iteration, and every scan below, runs in ascending byte order of the URI,
// whatever the order of insertion. One alias may stand at several URIs.
class CNamespaceAliasMap {
public:
    using const_iterator = std::map<std::string, std::string>::const_iterator;

    CNamespaceAliasMap() = default;
    CNamespaceAliasMap(const CNamespaceAliasMap&) = default;
    CNamespaceAliasMap(CNamespaceAliasMap&&) = default;
    CNamespaceAliasMap& operator=(const CNamespaceAliasMap&) = default;
    CNamespaceAliasMap& operator=(CNamespaceAliasMap&&) = default;
    virtual ~CNamespaceAliasMap();

    // Alias first, URI second, though the URI is the key. A URI already
    // present keeps its place and takes the new alias. Nothing is checked.
    void Add(const char* alias, const char* namespaceUri);
    // An unknown URI is no failure.
    void RemoveNamespace(const char* namespaceUri);

    int GetNamespaceCount() const;
    // URI of the entry index places after the first; an index of 0 or below
    // gives the first. Past the last entry, or on an empty map, the empty string.
    std::string GetNamespaceAt(int index) const;
    bool DoesAliasExist(const char* alias) const;
    bool DoesNamespaceExist(const char* namespaceUri) const;
    // The lowest URI that carries the alias; CNxException when none does.
    std::string GetNamespaceFromAlias(const char* alias) const;
    // The alias at the URI. An unknown URI is entered with an empty alias,
    // and so is declared from then on; this is the one change made through a
    // const map.
    std::string GetAliasFromNamespace(const char* namespaceUri) const;

    // Entries as (URI, alias), in URI order.
    const_iterator begin() const { return m_aliases.begin(); }
    const_iterator end() const { return m_aliases.end(); }

private:
    mutable std::map<std::string, std::string> m_aliases;
};

// The options of one serialization, handed by const reference through every
// read and write. Null text arguments are taken as empty texts.
class CXmlSerializationContext {
public:
    CXmlSerializationContext();
    // Copies every field. The alias map, the processing instructions and the
    // binary options with their vocabulary are deep copies; the additional
    // root attributes are shared, so attributes added through a copy show in
    // the source and the other way round.
    CXmlSerializationContext(const CXmlSerializationContext& other);
    CXmlSerializationContext& operator=(const CXmlSerializationContext& other);
    virtual ~CXmlSerializationContext();

    // What every operation given no context of its own uses. Changes to it
    // reach every later such call.
    static CXmlSerializationContext m_defaultContext;

    bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
    void SetIgnoreUnknownAttributes(bool value) { m_ignoreUnknownAttributes = value; }

    // Ignoring unknown elements and ignoring missing mandatory ones exclude
    // each other: turning one on while the other is on throws
    // CNxInvalidStateException and changes nothing.
    bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
    void SetIgnoreUnknownElements(bool value);
    bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
    void SetIgnoreMissingMandatoryElements(bool value);

    bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
    void SetIgnoreMissingChoice(bool value) { m_ignoreMissingChoice = value; }
    bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
    void SetIgnoreInvalidCollectionCounts(bool value) { m_ignoreInvalidCollectionCounts = value; }

    // Also true under SchemaTypeNoNamespaces, whatever was set here.
    bool GetIgnoreNamespaces() const
    {
        return m_ignoreNamespaces || m_schemaType == SchemaTypeNoNamespaces;
    }
    void SetIgnoreNamespaces(bool value) { m_ignoreNamespaces = value; }

    bool GetNoOptionalAttributeDefaultOutput() const { return m_noOptionalAttributeDefaultOutput; }
    void SetNoOptionalAttributeDefaultOutput(bool value) { m_noOptionalAttributeDefaultOutput = value; }
    bool GetWriteTypeAttribute() const { return m_writeTypeAttribute; }
    void SetWriteTypeAttribute(bool value) { m_writeTypeAttribute = value; }
    bool GetStripCDATA() const { return m_stripCDATA; }
    void SetStripCDATA(bool value) { m_stripCDATA = value; }

    SchemaType GetSchemaType() const { return m_schemaType; }
    void SetSchemaType(SchemaType schemaType) { m_schemaType = schemaType; }

    std::string GetDefaultNamespaceURI() const { return m_defaultNamespaceURI; }
    void SetDefaultNamespaceURI(const char* uri);
    std::string GetInLineSchema() const { return m_inLineSchema; }
    void SetInLineSchema(const char* schema);

    CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }
    const CNamespaceAliasMap& GetNamespaceAliases() const { return m_namespaceAliases; }
    std::vector<std::string>& GetProcessingInstructions() { return m_processingInstructions; }
    const std::vector<std::string>& GetProcessingInstructions() const { return m_processingInstructions; }

    // Extra attributes written on the root element. The collection is made
    // on the first request, even through a const context, and is shared by
    // every copy made after that; attributes are added to the collection
    // returned, since there is no setter.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;

    // The deepest nesting of elements a document load accepts: the reading
    // walks take stack space per level, so a hostile document must not nest
    // without bound. A load that opens an element deeper than this throws
    // CNxException. 0 means no limit; the default is 10000.
    unsigned long GetMaximumDepth() const { return m_maximumDepth; }
    void SetMaximumDepth(unsigned long maximumDepth) { m_maximumDepth = maximumDepth; }

    CFastInfosetContext& GetFIContext() { return m_fiContext; }
    const CFastInfosetContext& GetFIContext() const { return m_fiContext; }

private:
    // A new reference on the collection, or null.
    static CAttributeCol* Share(const std::atomic<CAttributeCol*>& attributes);

    std::string m_defaultNamespaceURI;
    bool m_writeTypeAttribute;
    CNamespaceAliasMap m_namespaceAliases;
    // Extra attributes of the root element: an attribute collection made on
    // first request, which a const context may do, and shared by copies.
    // Every root write asks for it, and threads may write with one context
    // at once, so the pointer is published atomically; it holds one
    // reference while set.
    mutable std::atomic<CAttributeCol*> m_additionalRootAttributes;
    std::vector<std::string> m_processingInstructions;
    std::string m_inLineSchema;
    bool m_ignoreInvalidCollectionCounts;
    bool m_ignoreMissingChoice;
    bool m_ignoreMissingMandatoryElements;
    bool m_ignoreUnknownElements;
    bool m_ignoreUnknownAttributes;
    bool m_ignoreNamespaces;
    SchemaType m_schemaType;
    bool m_noOptionalAttributeDefaultOutput;
    CFastInfosetContext m_fiContext;
    bool m_stripCDATA;
    unsigned long m_maximumDepth;
};

} // namespace NxXmlLib9
