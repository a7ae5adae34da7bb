// Booleans packed one bit each into 64-bit words.
#include "NxTypedCollections.h"

namespace NxXmlLib9 {

namespace {

constexpr int kWordBits = 64;

// The bits of a word below position bit.
std::uint64_t BitsBelow(int bit) { return (std::uint64_t(1) << bit) - 1; }

} // namespace

bool CBitVector::Get(int index) const
{
    return (m_words[static_cast<size_t>(index / kWordBits)] >> (index % kWordBits)) & 1u;
}

// The bits at and above index move up one place: whole words from the top
// down to the word of index, each taking the top bit of the word below it,
// then the upper part of index's own word.
void CBitVector::InsertAt(int index, bool value)
{
    if (m_count % kWordBits == 0)
        m_words.push_back(0);
    const size_t first = static_cast<size_t>(index / kWordBits);
    for (size_t w = m_words.size() - 1; w > first; --w)
        m_words[w] = (m_words[w] << 1) | (m_words[w - 1] >> (kWordBits - 1));
    const int bit = index % kWordBits;
    std::uint64_t& word = m_words[first];
    const std::uint64_t low = word & BitsBelow(bit);
    word = low | ((word & ~BitsBelow(bit)) << 1) | (std::uint64_t(value ? 1 : 0) << bit);
    ++m_count;
}

// The mirror of InsertAt: the bits above index move down one place, each
// word taking the lowest bit of the word above it as its top bit.
void CBitVector::EraseAt(int index)
{
    const size_t first = static_cast<size_t>(index / kWordBits);
    const int bit = index % kWordBits;
    std::uint64_t& word = m_words[first];
    word = (word & BitsBelow(bit)) | ((word >> 1) & ~BitsBelow(bit));
    for (size_t w = first; w + 1 < m_words.size(); ++w) {
        m_words[w] |= m_words[w + 1] << (kWordBits - 1);
        m_words[w + 1] >>= 1;
    }
    --m_count;
    if (m_count % kWordBits == 0)
        m_words.pop_back();
}

} // namespace NxXmlLib9
