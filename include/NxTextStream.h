// The in-memory text sink of the XML text writer and the block buffer that
// holds its characters.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "NxBinaryData.h"
#include "NxFoundation.h"
#include "NxOutputOptions.h"

namespace NxXmlLib9 {

// Text held in a list of fixed-size blocks. Appending never moves text that
// is already held: a full block is left as it is and a fresh one started, so
// a long output costs one allocation per block instead of a reallocation and
// copy of everything. Each block has one byte more than its capacity and is
// zero-filled when made, so every block is terminated. Reading the whole
// text joins the blocks once.
class CStringBuffer : public CInstanceMonitor {
public:
    // Blocks of 4095 characters.
    CStringBuffer();
    // Blocks of blockSize - 1 characters (at least one).
    explicit CStringBuffer(unsigned long blockSize);
    CStringBuffer(const CStringBuffer& other);
    CStringBuffer& operator=(const CStringBuffer& other);
    virtual ~CStringBuffer();

    // Characters held in all blocks.
    unsigned long GetLength() const { return m_totalLength; }

    // Frees every block.
    void Clear();
    // Forgets the text. A single block is kept, zeroed, for reuse.
    void Empty();
    // Starts a fresh block, terminated at its capacity, and makes it the
    // current one.
    void AddNewBlock();

    // The common case, a piece that fits the current block, is inline.
    void Append(char c)
    {
        if (m_position == m_capacity)
            AddNewBlock();
        m_currentBlock[m_position++] = c;
        ++m_totalLength;
    }
    // Appends up to the first zero byte; a null pointer appends nothing.
    void Append(const char* text)
    {
        if (text)
            Append(text, std::strlen(text));
    }
    // Appends up to the first zero byte inside the string.
    void Append(const std::string& text) { Append(text.c_str()); }
    // Appends exactly length bytes, zero bytes included.
    void Append(const char* text, unsigned long length)
    {
        if (text && length != 0 && length <= m_capacity - m_position) {
            CopyBytes(m_currentBlock + m_position, text, length);
            m_position += length;
            m_totalLength += length;
            return;
        }
        AppendAcrossBlocks(text, length);
    }

    // Replaces the text.
    void SetText(const char* text);
    // The whole text as one string, copied once from the blocks; the buffer
    // stays as it is.
    std::string ToString() const;

    // The whole text, zero terminated, valid until the next change. Several
    // blocks are joined into one first; the next append then starts a new
    // block behind it.
    const char* GetText();

private:
    void AppendAcrossBlocks(const char* text, unsigned long length);
    // Markup comes in short pieces: up to 16 bytes are copied with a few
    // moves instead of a call.
    static void CopyBytes(char* to, const char* from, unsigned long length)
    {
        if (length > 16) {
            std::memcpy(to, from, length);
        } else if (length >= 8) {
            std::uint64_t head, tail;
            std::memcpy(&head, from, 8);
            std::memcpy(&tail, from + length - 8, 8);
            std::memcpy(to, &head, 8);
            std::memcpy(to + length - 8, &tail, 8);
        } else if (length >= 4) {
            std::uint32_t head, tail;
            std::memcpy(&head, from, 4);
            std::memcpy(&tail, from + length - 4, 4);
            std::memcpy(to, &head, 4);
            std::memcpy(to + length - 4, &tail, 4);
        } else {
            to[0] = from[0];
            if (length > 1) {
                to[1] = from[1];
                to[length - 1] = from[length - 1];
            }
        }
    }

    std::vector<char*> m_blocks;
    std::vector<unsigned long> m_blockSizes;
    unsigned long m_blockSize;
    unsigned long m_position;
    unsigned long m_capacity;
    char* m_currentBlock;
    unsigned long m_totalLength;
};

// A text sink in memory. Derived streams drain the buffer elsewhere from
// Flush, which the writer calls whenever the text has grown past 4095
// characters.
class CTextStream : public CInstanceMonitor {
public:
    explicit CTextStream(XmlEncoding encoding = XmlEncodingNone);
    CTextStream(const CTextStream&) = delete;
    CTextStream& operator=(const CTextStream&) = delete;
    virtual ~CTextStream();

    // Discards any text held.
    virtual void Open();
    virtual void Close();
    virtual void Flush();

    unsigned long GetLength() const { return m_buffer.GetLength(); }
    XmlEncoding GetEncoding() const;
    // The buffered text, zero terminated, valid until the next change.
    const char* GetText() const;
    // The text as a string, in one copy.
    std::string GetString() const { return m_buffer.ToString(); }
    // The text as bytes of the stream's encoding: UTF-8 for XmlEncodingUTF8,
    // 4-byte wide units in native order for the two wide encodings. Any other
    // encoding raises.
    CBinaryData GetEncodedStream() const;

    void Append(char c) { m_buffer.Append(c); }
    void Append(const char* text) { m_buffer.Append(text); }
    void Append(const std::string& text) { m_buffer.Append(text); }
    // Exactly length bytes; lets a writer hand over a run of a larger text.
    void Append(const char* text, unsigned long length) { m_buffer.Append(text, length); }

protected:
    // Mutable because reading the text joins the buffer's blocks, which
    // changes the layout but not the content.
    mutable CStringBuffer m_buffer;
    XmlEncoding m_encoding;
};

} // namespace NxXmlLib9
