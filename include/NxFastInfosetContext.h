// Options of the binary XML (Fast Infoset) reader and writer, and the
// vocabulary tables under them.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "NxOutputOptions.h"

namespace NxXmlLib9 {

inline constexpr unsigned long FI_DECLARATION_COUNT = 9;

// The declaration texts the format allows, in FInfoDecl order.
inline constexpr const char* FI_DECLARATION_LIST[FI_DECLARATION_COUNT] = {
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>"};

// Entry 1 of the prefix and namespace tables of every vocabulary.
inline constexpr char FI_DEFAULT_PREFIX[] = "xml";
inline constexpr char FI_DEFAULT_NAMESPACE[] = "http://www.w3.org/XML/1998/namespace";

// The two built-in restricted alphabets, numbers 1 and 2. Each ends in a blank.
inline constexpr char RESTRICTED_ALPHABET_VALUES_NUMERIC[] = "0123456789-+.e ";
inline constexpr char RESTRICTED_ALPHABET_VALUES_DATE_TIME[] = "0123456789-:TZ ";

// The string and name tables of a binary document. Each table is held twice:
// a map from string to index for the writer, which looks strings up, and a
// vector for the reader, which resolves indexes (index n at position n - 1).
class CFIVocabulary {
public:
    // Largest number of entries a table may hold (2^20).
    static constexpr unsigned long MAX_TABLE_SIZE = 0x100000;

    // Table indexes of the three parts of a qualified name; 0 means absent.
    struct CQNameParts {
        unsigned long prefix = 0;
        unsigned long namespaceName = 0;
        unsigned long localName = 0;
    };

    // Index-ordered table. push_back appends without a size limit (a reader
    // appends every literal it meets); the vocabulary's Add operations keep
    // to MAX_TABLE_SIZE.
    template <class T>
    class CFITable {
    public:
        using value_type = T;
        using const_iterator = typename std::vector<T>::const_iterator;

        CFITable() = default;
        CFITable(const CFITable&) = default;
        CFITable(CFITable&&) = default;
        CFITable& operator=(const CFITable&) = default;
        CFITable& operator=(CFITable&&) = default;
        virtual ~CFITable() = default;

        const_iterator begin() const { return m_items.begin(); }
        const_iterator end() const { return m_items.end(); }
        unsigned long size() const { return static_cast<unsigned long>(m_items.size()); }
        bool empty() const { return m_items.empty(); }
        // By vector position: table index n is at position n - 1.
        const T& operator[](unsigned long position) const { return m_items[position]; }

        void push_back(const T& item) { m_items.push_back(item); }
        void push_back(T&& item) { m_items.push_back(std::move(item)); }

    private:
        std::vector<T> m_items;
    };

    class CFIStringTable : public CFITable<std::string> {};
    class CFIQNameTable : public CFITable<CQNameParts> {};

    // Writer side: string (or composed qualified-name key) to table index.
    using CFIIndexMap = std::map<std::string, unsigned long>;

    CFIVocabulary();
    CFIVocabulary(const CFIVocabulary&) = default;
    CFIVocabulary(CFIVocabulary&&) = default;
    CFIVocabulary& operator=(const CFIVocabulary&) = default;
    CFIVocabulary& operator=(CFIVocabulary&&) = default;
    virtual ~CFIVocabulary();

    // Key of a qualified name in the attribute and element name maps: local
    // name, byte 1, namespace, byte 1, prefix.
    static std::string MakeQNameKey(const std::string& prefix, const std::string& namespaceName,
                                    const std::string& localName);

    const std::vector<std::string>& GetRestrictedAlphabets() const { return m_restrictedAlphabets; }

    CFIIndexMap& GetAttributeNamesMap() { return m_attributeNamesMap; }
    CFIIndexMap& GetAttributeValuesMap() { return m_attributeValuesMap; }
    CFIIndexMap& GetElementNamesMap() { return m_elementNamesMap; }
    CFIIndexMap& GetCharacterChunksMap() { return m_characterChunksMap; }
    CFIIndexMap& GetLocalNamesMap() { return m_localNamesMap; }
    CFIIndexMap& GetNamespaceNamesMap() { return m_namespaceNamesMap; }
    CFIIndexMap& GetPrefixNamesMap() { return m_prefixNamesMap; }
    const CFIIndexMap& GetAttributeNamesMap() const { return m_attributeNamesMap; }
    const CFIIndexMap& GetAttributeValuesMap() const { return m_attributeValuesMap; }
    const CFIIndexMap& GetElementNamesMap() const { return m_elementNamesMap; }
    const CFIIndexMap& GetCharacterChunksMap() const { return m_characterChunksMap; }
    const CFIIndexMap& GetLocalNamesMap() const { return m_localNamesMap; }
    const CFIIndexMap& GetNamespaceNamesMap() const { return m_namespaceNamesMap; }
    const CFIIndexMap& GetPrefixNamesMap() const { return m_prefixNamesMap; }

    CFIQNameTable& GetAttributeNamesTable() { return m_attributeNamesTable; }
    CFIStringTable& GetAttributeValuesTable() { return m_attributeValuesTable; }
    CFIQNameTable& GetElementNamesTable() { return m_elementNamesTable; }
    CFIStringTable& GetCharacterChunksTable() { return m_characterChunksTable; }
    CFIStringTable& GetLocalNamesTable() { return m_localNamesTable; }
    CFIStringTable& GetNamespaceNamesTable() { return m_namespaceNamesTable; }
    CFIStringTable& GetPrefixNamesTable() { return m_prefixNamesTable; }
    const CFIQNameTable& GetAttributeNamesTable() const { return m_attributeNamesTable; }
    const CFIStringTable& GetAttributeValuesTable() const { return m_attributeValuesTable; }
    const CFIQNameTable& GetElementNamesTable() const { return m_elementNamesTable; }
    const CFIStringTable& GetCharacterChunksTable() const { return m_characterChunksTable; }
    const CFIStringTable& GetLocalNamesTable() const { return m_localNamesTable; }
    const CFIStringTable& GetNamespaceNamesTable() const { return m_namespaceNamesTable; }
    const CFIStringTable& GetPrefixNamesTable() const { return m_prefixNamesTable; }

    // True with the index when key is in the map; false, index untouched, otherwise.
    bool FindIndex(const CFIIndexMap& map, const std::string& key, unsigned long& index) const;
    bool FindLocalNameIndex(const std::string& name, unsigned long& index) const;
    bool FindNamespaceNameIndex(const std::string& name, unsigned long& index) const;
    bool FindPrefixNameIndex(const std::string& name, unsigned long& index) const;

    // Each stops silently once its container holds MAX_TABLE_SIZE entries. A
    // key already in the map keeps its index.
    void AddValueToMap(const std::string& value, CFIIndexMap& map);
    void AddValueToVector(const std::string& value, CFIStringTable& table);
    void AddQNameToVector(unsigned long prefix, unsigned long namespaceIndex, unsigned long localName,
                          CFIQNameTable& table);

    // Map then table of the named kind. The map ignores a repeated value, the
    // table does not.
    void AddLocalName(const std::string& name);
    void AddNamespaceName(const std::string& name);
    void AddPrefixName(const std::string& name);
    void AddElementValue(const std::string& value);
    void AddAttributeValue(const std::string& value);

    // Enters a qualified name, and any of its parts not yet known, unless the
    // name is already in the map. An empty prefix or namespace is index 0.
    void AddQName(const std::string& prefix, const std::string& namespaceName, const std::string& localName,
                  CFIIndexMap& map, CFIQNameTable& table);
    void AddElement(const std::string& prefix, const std::string& namespaceName, const std::string& localName);
    void AddAttribute(const std::string& prefix, const std::string& namespaceName, const std::string& localName);

private:
    // Index of name in its map, or the index it gets when added now.
    unsigned long IndexOrAdd(const std::string& name, const CFIIndexMap& map,
                             void (CFIVocabulary::*add)(const std::string&), const CFIStringTable& table);

    std::vector<std::string> m_restrictedAlphabets;

    CFIIndexMap m_attributeNamesMap;
    CFIIndexMap m_attributeValuesMap;
    CFIIndexMap m_elementNamesMap;
    CFIIndexMap m_characterChunksMap;
    CFIIndexMap m_localNamesMap;
    CFIIndexMap m_namespaceNamesMap;
    CFIIndexMap m_prefixNamesMap;

    CFIQNameTable m_attributeNamesTable;
    CFIStringTable m_attributeValuesTable;
    CFIQNameTable m_elementNamesTable;
    CFIStringTable m_characterChunksTable;
    CFIStringTable m_localNamesTable;
    CFIStringTable m_namespaceNamesTable;
    CFIStringTable m_prefixNamesTable;
};

// The user's options for binary XML: how each item type is encoded, how long
// a string may be and still enter a table, and the ready-made vocabulary.
class CFastInfosetContext {
public:
    enum EncodingKind : int {
        EncodingDefault = 0,             // the document's default string encoding
        EncodingRestrictedAlphabet = 1,  // index: alphabet number, 1 or 2
        EncodingAlgorithm = 2            // index: built-in algorithm number, 1 to 10
    };

    struct EncodedCharacterString {
        EncodingKind kind = EncodingDefault;
        unsigned long index = 0;
    };

    // One encoding per ItemType, 0 to 28.
    static constexpr unsigned long ENCODING_COUNT = 29;

    CFastInfosetContext();

    unsigned long GetAttributeMaxAddLength() const { return m_attributeMaxAddLength; }
    void SetAttributeMaxAddLength(unsigned long length) { m_attributeMaxAddLength = length; }
    unsigned long GetElementMaxAddLength() const { return m_elementMaxAddLength; }
    void SetElementMaxAddLength(unsigned long length) { m_elementMaxAddLength = length; }

    // Turns on the encodings that keep documents small (numbers by their
    // algorithms, dates and times by their alphabet); other types keep theirs.
    void SetSuggestedValues();

    // 0 UTF-8, 1 UTF-16BE. Always 0 in this library.
    unsigned char GetDefaultStringEncoding() const { return m_defaultStringEncoding; }

    // An item type outside 0 to 28 reads as the default encoding and is
    // ignored when set.
    EncodedCharacterString GetEncoding(unsigned long itemType) const;
    void SetEncoding(unsigned long itemType, EncodedCharacterString encoding);

    bool GetUseGeneratedVocabulary() const { return m_useGeneratedVocabulary; }
    void SetUseGeneratedVocabulary(bool use) { m_useGeneratedVocabulary = use; }

    // The context's own vocabulary; writers and readers copy it.
    CFIVocabulary& GetVocabulary() { return m_vocabulary; }
    const CFIVocabulary& GetVocabulary() const { return m_vocabulary; }

    std::string GetExternalVocabularyURI() const { return m_externalVocabularyURI; }
    void SetExternalVocabularyURI(std::string uri) { m_externalVocabularyURI = std::move(uri); }

private:
    unsigned char m_defaultStringEncoding;
    EncodedCharacterString m_encodings[ENCODING_COUNT];
    unsigned long m_attributeMaxAddLength;
    unsigned long m_elementMaxAddLength;
    bool m_useGeneratedVocabulary;
    CFIVocabulary m_vocabulary;
    std::string m_externalVocabularyURI;
};

} // namespace NxXmlLib9
