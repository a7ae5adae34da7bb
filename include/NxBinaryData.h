// Byte buffers whose copies share one reference-counted holder, with their
// hex and base64 text forms.
#pragma once

#include "NxFoundation.h"

#include <string>

namespace NxXmlLib9 {

// A byte buffer for hexBinary and base64Binary values, encoded text,
// compressed data and Fast Infoset octets. Copying is cheap: copies share a
// holder, and the first write through a shared holder takes a private copy,
// so the other copies never see it.
class CBinaryData {
public:
    // Storage shared by the copies of a buffer. It always lives on the heap
    // and destroys itself when its last reference is released.
    class CDataHolder {
    public:
        // adopt true: takes over an array made with new[]; capacity is the
        // length. adopt false: copies the bytes into an array with room to
        // grow. The reference count starts at 1.
        CDataHolder(unsigned char* data, unsigned long length, bool adopt);
        CDataHolder(const CDataHolder&) = delete;
        CDataHolder& operator=(const CDataHolder&) = delete;

        long long AddRef();
        unsigned char* GetData() const { return m_pData; }
        unsigned long GetLength() const { return m_nLength; }
        // The byte at index, for an index up to the length. The index equal
        // to the length is the byte past the end: inside the array when it
        // has room, else a spare byte of the holder, so that it never lies
        // outside the holder's memory.
        unsigned char& At(unsigned long index);
        // Appends in place; fails when the holder is shared.
        void Append(unsigned char* data, unsigned long length);
        // Grows the array to hold capacity bytes in all; never shrinks it.
        // Fails when the holder is shared.
        void Reserve(unsigned long capacity);
        // Drops one reference. keepData false: the last reference frees the
        // bytes and the holder. keepData true: the caller takes the array
        // and the holder goes; fails (and keeps the reference) when shared.
        long long Release(bool keepData);
        // This holder when unshared; otherwise a private copy, with this
        // holder released once.
        CDataHolder* GetExclusiveCopy();

    private:
        ~CDataHolder();

        unsigned char* m_pData;
        unsigned long m_nLength;
        unsigned long m_nCapacity;
        long m_nRefCount;
        CNXCriticalSection m_cs;
        unsigned char m_spare;
    };

    CBinaryData();
    // The bytes of the text, without its terminating zero.
    CBinaryData(const char* text);
    CBinaryData(unsigned char* data, unsigned long length, bool adopt = false);
    CBinaryData(const CBinaryData& other);
    CBinaryData(CBinaryData&& other) noexcept;
    virtual ~CBinaryData();

    CBinaryData& operator=(const CBinaryData& other);
    CBinaryData& operator=(CBinaryData&& other) noexcept;

    // Null and 0 for a buffer without a holder.
    unsigned char* GetData() const;
    unsigned long GetLength() const;

    // Two buffers without a holder are equal; one without a holder equals
    // nothing else; otherwise the lengths and bytes decide.
    bool operator==(const CBinaryData& other) const;
    bool operator!=(const CBinaryData& other) const;

    // The index may equal the length: the test is only that it is not above
    // it. The non-const form separates a shared holder first.
    const unsigned char& operator[](unsigned long index) const;
    unsigned char& operator[](unsigned long index);

    void Append(unsigned char* data, unsigned long length);
    void Append(const CBinaryData& data);
    void Append(const char* text);
    void Append(const std::string& text);
    void Append(char value);
    void Append(unsigned char value);
    // Makes room for capacity bytes in all, so that appends up to that size
    // neither reallocate nor copy. A shared buffer is separated first.
    void Reserve(unsigned long capacity);

    void Clear();
    void SetBuffer(unsigned char* data, unsigned long length);
    void SetBuffer(const char* text);

    // Hands the array (made with new[]) to the caller and leaves the buffer
    // empty. Null for an empty buffer; fails when the holder is shared.
    unsigned char* ReleaseData();

    std::string GetAsHexString() const;
    static std::string GetAsHexString(unsigned char* data, unsigned long length);
    void SetAsHexString(const char* text);
    // Decodes hex text into a new[] array stored in *result; returns its
    // byte count. A character that is not a hex digit ends the process.
    static unsigned long ConvertToHexData(const char* text, unsigned char** result);

    std::string GetAsBase64() const;
    // White space and '=' are skipped anywhere; any other character outside
    // the alphabet gives an empty buffer, silently.
    void SetAsBase64(const char* text);

protected:
    CDataHolder* m_pHolder;
};

// The base64 coder (standard alphabet, no line breaks).
class CBase64 {
public:
    CBase64();
    virtual ~CBase64();

    std::string Encode(unsigned char* data, int length);
    // Writes the decoded bytes to out, which must hold strlen(text) bytes;
    // returns their count, or 0 at the first character outside the alphabet.
    int Decode(const char* text, unsigned char* out);
    // Takes the next bits (1 to 8) of the input given to Encode.
    int Read(int bits, int* got, int& position);
    // Adds bits (1 to 8) to the output, storing each completed byte.
    void Write(unsigned int value, int bits, unsigned char* out, int& position);

    static const char m_sBase64Alphabet[65];
    static const int m_nMask[9];

private:
    int m_nInputLength;
    int m_nBitCount;
    int m_nBits;
    const unsigned char* m_pInput;
};

} // namespace NxXmlLib9
