// The node storage of a document.
#include "document/XmlNodeStorage.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace NxXmlLib9 {

namespace {

// The first block is small, so that a small document stays small; each
// further one doubles up to the largest size, which stays below the size
// from which the allocator maps fresh pages for a block: blocks then come
// back from one load to the next without the cost of mapping and zeroing.
const size_t FIRST_BLOCK_SIZE = 4096;
const size_t LARGEST_BLOCK_SIZE = 64UL << 10;

size_t Aligned(size_t size, size_t alignment)
{
    return (size + alignment - 1) / alignment * alignment;
}

// The nodes the storage makes. Their memory belongs to the storage: a
// delete through the base class runs the destructor and leaves the memory
// to the storage, which frees it with its blocks.
class CStoredElement final : public CXmlElement {
public:
    explicit CStoredElement(const CXmlNodeName& name) noexcept : CXmlElement(name) {}
    static void* operator new(size_t, void* memory) noexcept { return memory; }
    static void operator delete(void*) noexcept {}
    static void operator delete(void*, void*) noexcept {}
};

class CStoredAttribute final : public CXmlAttribute {
public:
    CStoredAttribute(const CXmlNodeName* name, std::string&& value) noexcept : CXmlAttribute(name, std::move(value))
    {
    }
    static void* operator new(size_t, void* memory) noexcept { return memory; }
    static void operator delete(void*) noexcept {}
    static void operator delete(void*, void*) noexcept {}
};

} // namespace

template <class Entry>
template <class Equal>
Entry* CXmlNodeStorage::CIndex<Entry>::Find(size_t hash, Equal equal) const
{
    if (m_slots.empty())
        return nullptr;
    const size_t mask = m_slots.size() - 1;
    for (size_t i = hash & mask;; i = (i + 1) & mask) {
        const Slot& slot = m_slots[i];
        if (!slot.entry)
            return nullptr;
        if (slot.hash == hash && equal(*slot.entry))
            return slot.entry;
    }
}

template <class Entry>
void CXmlNodeStorage::CIndex<Entry>::Insert(size_t hash, Entry* entry)
{
    // At most half full, so that every search soon meets a free slot.
    if (2 * (m_count + 1) > m_slots.size()) {
        std::vector<Slot> slots(std::max<size_t>(16, 2 * m_slots.size()), Slot{0, nullptr});
        const size_t mask = slots.size() - 1;
        for (const Slot& slot : m_slots) {
            if (!slot.entry)
                continue;
            size_t i = slot.hash & mask;
            while (slots[i].entry)
                i = (i + 1) & mask;
            slots[i] = slot;
        }
        m_slots.swap(slots);
    }
    const size_t mask = m_slots.size() - 1;
    size_t i = hash & mask;
    while (m_slots[i].entry)
        i = (i + 1) & mask;
    m_slots[i] = Slot{hash, entry};
    ++m_count;
}

void* CXmlNodeStorage::NewBlock(size_t size)
{
    m_nextBlockSize = std::min(LARGEST_BLOCK_SIZE, std::max(FIRST_BLOCK_SIZE, 2 * m_nextBlockSize));
    const size_t blockSize = std::max(m_nextBlockSize, size);
    m_blocks.reserve(m_blocks.size() + 1);
    char* block = static_cast<char*>(::operator new(blockSize));
    m_blocks.push_back(block);
    m_position = block + size;
    m_end = block + blockSize;
    return block;
}

void* CXmlNodeStorage::Allocate(size_t size)
{
    size = Aligned(size, ALIGNMENT);
    const size_t list = size / ALIGNMENT;
    if (list < FREE_LISTS && m_free[list]) {
        FreeBlock* reused = m_free[list];
        m_free[list] = reused->next;
        return reused;
    }
    if (static_cast<size_t>(m_end - m_position) >= size) {
        void* memory = m_position;
        m_position += size;
        return memory;
    }
    return NewBlock(size);
}

void CXmlNodeStorage::Free(void* memory, size_t size)
{
    const size_t list = Aligned(size, ALIGNMENT) / ALIGNMENT;
    if (list >= FREE_LISTS)
        return;
    FreeBlock* freed = static_cast<FreeBlock*>(memory);
    freed->next = m_free[list];
    m_free[list] = freed;
}

void CXmlNodeStorage::Release()
{
    for (void* block : m_blocks)
        ::operator delete(block);
    m_blocks.clear();
    m_position = m_end = nullptr;
    m_nextBlockSize = 0;
    std::fill(m_free, m_free + FREE_LISTS, nullptr);
    m_rawIndex.Clear();
    m_rawNames.clear();
    m_nameIndex.Clear();
    m_names.clear();
}

CXmlElement* CXmlNodeStorage::NewElement(const CXmlNodeName& name)
{
    return new (Allocate(sizeof(CStoredElement))) CStoredElement(name);
}

CXmlAttribute* CXmlNodeStorage::NewAttribute(const CXmlNodeName& name, std::string&& value)
{
    return new (Allocate(sizeof(CStoredAttribute))) CStoredAttribute(&name, std::move(value));
}

CXmlAttributedName* CXmlNodeStorage::NewAttributedName(const CXmlNodeName& name)
{
    return new (Allocate(sizeof(CXmlAttributedName))) CXmlAttributedName{&name, {}};
}

void CXmlNodeStorage::Recycle(CXmlElement* element)
{
    // The subtree is taken apart along one flat chain, as the destructor
    // does, so that its depth does not matter.
    element->m_link = 0;
    CXmlElement* chain = element;
    while (chain) {
        CXmlElement* current = chain;
        chain = reinterpret_cast<CXmlElement*>(current->m_link);
        if (current->m_lastChild) {
            CXmlElement* first = CXmlElement::Untagged(current->m_lastChild->m_link);
            current->m_lastChild->m_link = reinterpret_cast<std::uintptr_t>(chain);
            current->m_lastChild = nullptr;
            chain = first;
        }
        if (current->HasAttributeList()) {
            CXmlAttributedName* attributed = current->Attributed();
            current->m_name = reinterpret_cast<std::uintptr_t>(attributed->name);
            for (CXmlAttribute* attribute : attributed->attributes) {
                attribute->~CXmlAttribute();
                Free(attribute, sizeof(CStoredAttribute));
            }
            attributed->~CXmlAttributedName();
            Free(attributed, sizeof(CXmlAttributedName));
        }
        current->m_link = 0;
        current->~CXmlElement();
        Free(current, sizeof(CStoredElement));
    }
}

const CXmlNodeName& CXmlNodeStorage::Name(std::string_view namespaceUri, std::string_view localName)
{
    const size_t hash = Hash(localName) * 31 + Hash(namespaceUri);
    const CXmlNodeName* found = m_nameIndex.Find(hash, [&](const CXmlNodeName& name) {
        return name.localName == localName && name.namespaceUri == namespaceUri;
    });
    if (found)
        return *found;
    CXmlNodeName& name = m_names.emplace_back(CXmlNodeName{std::string(localName), std::string(namespaceUri), m_document});
    try {
        m_nameIndex.Insert(hash, &name);
    } catch (...) {
        m_names.pop_back();
        throw;
    }
    return name;
}

const CXmlNodeName* CXmlNodeStorage::FindRawName(std::string_view raw, size_t hash) const
{
    const RawName* found = m_rawIndex.Find(hash, [&](const RawName& entry) { return entry.raw == raw; });
    return found ? found->name : nullptr;
}

void CXmlNodeStorage::AddRawName(std::string_view raw, size_t hash, const CXmlNodeName& name)
{
    const RawName& entry = m_rawNames.emplace_back(RawName{std::string(raw), &name});
    try {
        m_rawIndex.Insert(hash, &entry);
    } catch (...) {
        m_rawNames.pop_back();
        throw;
    }
}

} // namespace NxXmlLib9
