#include "NxTextStream.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace NxXmlLib9 {

namespace {

const unsigned long kDefaultBlockSize = 4095;

// A block of one character or less could never take an append.
unsigned long BlockSizeFor(unsigned long requested)
{
    return requested > 2 ? requested - 1 : 1;
}

} // namespace

CStringBuffer::CStringBuffer()
    : CInstanceMonitor("CStringBuffer"),
      m_blockSize(kDefaultBlockSize),
      m_position(0),
      m_capacity(0),
      m_currentBlock(nullptr),
      m_totalLength(0)
{
}

CStringBuffer::CStringBuffer(unsigned long blockSize)
    : CInstanceMonitor("CStringBuffer"),
      m_blockSize(BlockSizeFor(blockSize)),
      m_position(0),
      m_capacity(0),
      m_currentBlock(nullptr),
      m_totalLength(0)
{
}

CStringBuffer::CStringBuffer(const CStringBuffer& other)
    : CInstanceMonitor("CStringBuffer"),
      m_blockSize(other.m_blockSize),
      m_position(0),
      m_capacity(0),
      m_currentBlock(nullptr),
      m_totalLength(0)
{
    *this = other;
}

CStringBuffer& CStringBuffer::operator=(const CStringBuffer& other)
{
    if (this == &other)
        return *this;
    Clear();
    m_blockSize = other.m_blockSize;
    for (size_t i = 0; i < other.m_blocks.size(); ++i) {
        const bool last = i + 1 == other.m_blocks.size();
        Append(other.m_blocks[i], last ? other.m_position : other.m_blockSizes[i]);
    }
    return *this;
}

CStringBuffer::~CStringBuffer()
{
    Clear();
}

void CStringBuffer::Clear()
{
    for (char* block : m_blocks)
        delete[] block;
    m_blocks.clear();
    m_blockSizes.clear();
    m_position = 0;
    m_capacity = 0;
    m_currentBlock = nullptr;
    m_totalLength = 0;
}

void CStringBuffer::Empty()
{
    if (m_blocks.size() == 1) {
        std::memset(m_currentBlock, 0, m_capacity + 1);
        m_position = 0;
        m_totalLength = 0;
    } else {
        Clear();
    }
}

void CStringBuffer::AddNewBlock()
{
    // A block is normally left only when full. One left early (a direct
    // call) records what it holds, so that joining copies its text only.
    if (!m_blockSizes.empty())
        m_blockSizes.back() = m_position;
    // One byte beyond the capacity is zero, so every full block is
    // terminated; GetText terminates the last one where its text ends.
    std::unique_ptr<char[]> block(new char[m_blockSize + 1]);
    block[m_blockSize] = '\0';
    // The lists grow geometrically; the block is owned until both hold it.
    m_blocks.push_back(block.get());
    try {
        m_blockSizes.push_back(m_blockSize);
    } catch (...) {
        m_blocks.pop_back();
        throw;
    }
    m_currentBlock = block.release();
    m_position = 0;
    m_capacity = m_blockSize;
}



void CStringBuffer::AppendAcrossBlocks(const char* text, unsigned long length)
{
    if (!text || length == 0)
        return;
    m_totalLength += length;
    while (length > 0) {
        if (m_position == m_capacity)
            AddNewBlock();
        const unsigned long piece = std::min(length, m_capacity - m_position);
        std::memcpy(m_currentBlock + m_position, text, piece);
        m_position += piece;
        text += piece;
        length -= piece;
    }
}

std::string CStringBuffer::ToString() const
{
    std::string text;
    text.reserve(m_totalLength);
    for (size_t i = 0; i + 1 < m_blocks.size(); ++i)
        text.append(m_blocks[i], m_blockSizes[i]);
    if (!m_blocks.empty())
        text.append(m_currentBlock, m_position);
    return text;
}

void CStringBuffer::SetText(const char* text)
{
    Clear();
    Append(text);
}

const char* CStringBuffer::GetText()
{
    static const char kEmpty[] = "";
    if (m_blocks.empty())
        return kEmpty;
    if (m_blocks.size() == 1) {
        m_currentBlock[m_position] = '\0';
        return m_currentBlock;
    }

    const unsigned long length = m_totalLength;
    char* joined = new char[length + 1];
    char* out = joined;
    for (size_t i = 0; i + 1 < m_blocks.size(); ++i) {
        std::memcpy(out, m_blocks[i], m_blockSizes[i]);
        out += m_blockSizes[i];
    }
    std::memcpy(out, m_currentBlock, m_position);
    joined[length] = '\0';

    Clear();
    m_blocks.push_back(joined);
    m_blockSizes.push_back(length);
    m_currentBlock = joined;
    m_capacity = length;
    m_position = length;
    m_totalLength = length;
    return joined;
}

} // namespace NxXmlLib9
