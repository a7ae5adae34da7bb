// Where the nodes and names of one document live: elements, attributes and
// attribute lists come from large blocks instead of one heap allocation
// each, and are all given back at once when the document is cleaned up.
// Nodes that the document drops while parsing (through its filter) go to a
// free list and are reused, so a filtered parse stays small.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "NxXmlDocument.h"

namespace NxXmlLib9 {

class CXmlNodeStorage {
public:
    explicit CXmlNodeStorage(const CXmlDocument* document) : m_document(document) {}
    ~CXmlNodeStorage() { Release(); }
    CXmlNodeStorage(const CXmlNodeStorage&) = delete;
    CXmlNodeStorage& operator=(const CXmlNodeStorage&) = delete;

    CXmlElement* NewElement(const CXmlNodeName& name);
    CXmlAttribute* NewAttribute(const CXmlNodeName& name, std::string&& value);
    CXmlAttributedName* NewAttributedName(const CXmlNodeName& name);
    // The destructor of an element over a document ends its list with this.
    static void DestroyAttributedName(CXmlAttributedName* attributed) { attributed->~CXmlAttributedName(); }
    // Destroys an element taken out of the tree, with its subtree and
    // attributes, and keeps their memory for the next nodes.
    void Recycle(CXmlElement* element);
    // Gives back every block and forgets every name. Every node must have
    // been destroyed first.
    void Release();

    // The one record of a name pair.
    const CXmlNodeName& Name(std::string_view namespaceUri, std::string_view localName);
    // The record of a name as the XML parser reports it (UTF-8, the
    // namespace URI and the local name joined by the separator), or null
    // when the name has not been seen yet; AddRawName remembers one.
    const CXmlNodeName* FindRawName(std::string_view raw, size_t hash) const;
    void AddRawName(std::string_view raw, size_t hash, const CXmlNodeName& name);
    // Eight bytes at a time: names are short, and this runs for every
    // element and attribute the parser reports.
    static size_t Hash(std::string_view text)
    {
        const char* bytes = text.data();
        size_t remaining = text.size();
        std::uint64_t hash = remaining * 0x9E3779B97F4A7C15ULL;
        for (; remaining >= 8; bytes += 8, remaining -= 8) {
            std::uint64_t word;
            std::memcpy(&word, bytes, sizeof word);
            hash = (hash ^ word) * 0xFF51AFD7ED558CCDULL;
            hash ^= hash >> 32;
        }
        std::uint64_t tail = 0;
        for (size_t i = 0; i < remaining; ++i)
            tail |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
        hash = (hash ^ tail) * 0xC4CEB9FE1A85EC53ULL;
        return static_cast<size_t>(hash ^ (hash >> 29));
    }

private:
    // Open addressing over a power-of-two table; a slot with a null entry
    // is free.
    template <class Entry>
    class CIndex {
    public:
        template <class Equal>
        Entry* Find(size_t hash, Equal equal) const;
        void Insert(size_t hash, Entry* entry);
        void Clear() { m_slots.clear(), m_count = 0; }

    private:
        struct Slot {
            size_t hash;
            Entry* entry;
        };
        std::vector<Slot> m_slots;
        size_t m_count = 0;
    };
    struct RawName {
        std::string raw;
        const CXmlNodeName* name;
    };
    struct FreeBlock {
        FreeBlock* next;
    };

    void* Allocate(size_t size);
    void Free(void* memory, size_t size);
    void* NewBlock(size_t size);

    const CXmlDocument* m_document;
    std::vector<void*> m_blocks;
    char* m_position = nullptr;
    char* m_end = nullptr;
    size_t m_nextBlockSize = 0;
    // One free list per node size, in steps of the alignment.
    static const size_t ALIGNMENT = 8;
    static const size_t FREE_LISTS = 16;
    FreeBlock* m_free[FREE_LISTS] = {};

    std::deque<CXmlNodeName> m_names;
    CIndex<const CXmlNodeName> m_nameIndex;
    std::deque<RawName> m_rawNames;
    CIndex<const RawName> m_rawIndex;
};

} // namespace NxXmlLib9
