// CBinaryData: a handle on a shared holder, with copy-on-write and the hex
// and base64 text forms.
#include "NxBinaryData.h"
#include "NxException.h"

#include <climits>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace NxXmlLib9 {

namespace {

using CDataHolder = CBinaryData::CDataHolder;

// A holder that owns data from the start: should the holder itself fail to
// allocate, the array is freed instead of leaking.
CDataHolder* AdoptArray(unsigned char* data, unsigned long length)
{
    std::unique_ptr<unsigned char[]> owned(data);
    CDataHolder* holder = new CDataHolder(data, length, true);
    owned.release();
    return holder;
}

unsigned char* TextBytes(const char* text)
{
    return reinterpret_cast<unsigned char*>(const_cast<char*>(text));
}

// Digit values of the hex alphabet; -1 for every other byte.
struct HexTable {
    signed char value[256];
    constexpr HexTable() : value()
    {
        for (int i = 0; i < 256; ++i)
            value[i] = -1;
        for (int i = 0; i < 10; ++i)
            value['0' + i] = static_cast<signed char>(i);
        for (int i = 0; i < 6; ++i) {
            value['A' + i] = static_cast<signed char>(10 + i);
            value['a' + i] = static_cast<signed char>(10 + i);
        }
    }
};
constexpr HexTable kHexDigits;

[[noreturn]] void ThrowBadHexChar(char c)
{
    // The formatter does not take %c and ends the process on it; this is
    // how a bad hex character has always been reported.
    throw CNxException(FormatString("Invalid char in hex string [%c]", c));
}

[[noreturn]] void ThrowIndexOutOfRange(unsigned long index)
{
    throw CNxException(FormatString("Index Out of range [%d]", static_cast<int>(index)));
}

} // namespace

CBinaryData::CBinaryData() : m_pHolder(nullptr) {}

CBinaryData::CBinaryData(const char* text)
    : m_pHolder(text ? new CDataHolder(TextBytes(text), std::strlen(text), false) : nullptr)
{
}

CBinaryData::CBinaryData(unsigned char* data, unsigned long length, bool adopt)
    : m_pHolder(adopt ? AdoptArray(data, length) : new CDataHolder(data, length, false))
{
}

CBinaryData::CBinaryData(const CBinaryData& other) : m_pHolder(other.m_pHolder)
{
    if (m_pHolder)
        m_pHolder->AddRef();
}

CBinaryData::CBinaryData(CBinaryData&& other) noexcept : m_pHolder(other.m_pHolder)
{
    other.m_pHolder = nullptr;
}

CBinaryData::~CBinaryData()
{
    Clear();
}

CBinaryData& CBinaryData::operator=(const CBinaryData& other)
{
    // The new reference is taken before the old one goes, so that
    // assigning a buffer to itself (or to a copy) keeps the bytes.
    CDataHolder* holder = other.m_pHolder;
    if (holder)
        holder->AddRef();
    Clear();
    m_pHolder = holder;
    return *this;
}

CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept
{
    if (this != &other) {
        Clear();
        m_pHolder = other.m_pHolder;
        other.m_pHolder = nullptr;
    }
    return *this;
}

unsigned char* CBinaryData::GetData() const
{
    return m_pHolder ? m_pHolder->GetData() : nullptr;
}

unsigned long CBinaryData::GetLength() const
{
    return m_pHolder ? m_pHolder->GetLength() : 0;
}

bool CBinaryData::operator==(const CBinaryData& other) const
{
    if (!m_pHolder || !other.m_pHolder)
        return !m_pHolder && !other.m_pHolder;
    const unsigned long length = m_pHolder->GetLength();
    if (length != other.m_pHolder->GetLength())
        return false;
    return length == 0 || m_pHolder == other.m_pHolder ||
           std::memcmp(m_pHolder->GetData(), other.m_pHolder->GetData(), length) == 0;
}

bool CBinaryData::operator!=(const CBinaryData& other) const
{
    return !(*this == other);
}

const unsigned char& CBinaryData::operator[](unsigned long index) const
{
    if (!m_pHolder || !m_pHolder->GetData() || index > m_pHolder->GetLength())
        ThrowIndexOutOfRange(index);
    return m_pHolder->At(index);
}

unsigned char& CBinaryData::operator[](unsigned long index)
{
    if (!m_pHolder || !m_pHolder->GetData() || index > m_pHolder->GetLength())
        ThrowIndexOutOfRange(index);
    m_pHolder = m_pHolder->GetExclusiveCopy();
    return m_pHolder->At(index);
}

void CBinaryData::Append(unsigned char* data, unsigned long length)
{
    if (!m_pHolder) {
        m_pHolder = new CDataHolder(data, length, false);
        return;
    }
    m_pHolder = m_pHolder->GetExclusiveCopy();
    m_pHolder->Append(data, length);
}

void CBinaryData::Reserve(unsigned long capacity)
{
    if (!m_pHolder)
        m_pHolder = new CDataHolder(nullptr, 0, false);
    m_pHolder = m_pHolder->GetExclusiveCopy();
    m_pHolder->Reserve(capacity);
}

void CBinaryData::Append(const CBinaryData& data)
{
    Append(data.GetData(), data.GetLength());
}

void CBinaryData::Append(const char* text)
{
    Append(TextBytes(text), text ? std::strlen(text) : 0);
}

void CBinaryData::Append(const std::string& text)
{
    Append(TextBytes(text.data()), text.size());
}

void CBinaryData::Append(char value)
{
    Append(reinterpret_cast<unsigned char*>(&value), 1);
}

void CBinaryData::Append(unsigned char value)
{
    Append(&value, 1);
}

void CBinaryData::Clear()
{
    if (m_pHolder) {
        CDataHolder* holder = m_pHolder;
        m_pHolder = nullptr;
        holder->Release(false);
    }
}

void CBinaryData::SetBuffer(unsigned char* data, unsigned long length)
{
    // Copied before the old holder goes: the bytes may be this buffer's own.
    CDataHolder* holder = new CDataHolder(data, length, false);
    Clear();
    m_pHolder = holder;
}

void CBinaryData::SetBuffer(const char* text)
{
    SetBuffer(TextBytes(text), text ? std::strlen(text) : 0);
}

unsigned char* CBinaryData::ReleaseData()
{
    if (!m_pHolder)
        return nullptr;
    unsigned char* data = m_pHolder->GetData();
    m_pHolder->Release(true);
    m_pHolder = nullptr;
    return data;
}

std::string CBinaryData::GetAsHexString() const
{
    return GetAsHexString(GetData(), GetLength());
}

std::string CBinaryData::GetAsHexString(unsigned char* data, unsigned long length)
{
    static const char digits[] = "0123456789ABCDEF";
    if (!data)
        return std::string();
    std::string text(static_cast<size_t>(length) * 2, '\0');
    char* out = &text[0];
    for (unsigned long i = 0; i < length; ++i) {
        *out++ = digits[data[i] >> 4];
        *out++ = digits[data[i] & 0x0F];
    }
    return text;
}

void CBinaryData::SetAsHexString(const char* text)
{
    unsigned char* bytes = nullptr;
    const unsigned long count = ConvertToHexData(text, &bytes);
    CDataHolder* holder = AdoptArray(bytes, count);
    Clear();
    m_pHolder = holder;
}

unsigned long CBinaryData::ConvertToHexData(const char* text, unsigned char** result)
{
    const size_t length = text ? std::strlen(text) : 0;
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[length / 2 + 1]);
    unsigned long count = 0;
    // Two characters at a time: an odd length meets the terminating zero
    // as a second digit, which is not a hex digit.
    for (size_t i = 0; i < length; i += 2) {
        const int high = kHexDigits.value[static_cast<unsigned char>(text[i])];
        if (high < 0)
            ThrowBadHexChar(text[i]);
        const int low = kHexDigits.value[static_cast<unsigned char>(text[i + 1])];
        if (low < 0)
            ThrowBadHexChar(text[i + 1]);
        bytes[count++] = static_cast<unsigned char>((high << 4) | low);
    }
    if (result)
        *result = bytes.release();
    return count;
}

std::string CBinaryData::GetAsBase64() const
{
    if (!m_pHolder)
        return std::string();
    // The coder counts in int; a longer buffer must not be cut silently.
    if (m_pHolder->GetLength() > static_cast<unsigned long>(INT_MAX))
        throw std::length_error("CBinaryData: buffer too long for base64");
    CBase64 coder;
    return coder.Encode(m_pHolder->GetData(), static_cast<int>(m_pHolder->GetLength()));
}

void CBinaryData::SetAsBase64(const char* text)
{
    // Decoded before the old holder goes: the text may be this buffer's own.
    const size_t length = text ? std::strlen(text) : 0;
    if (length > static_cast<size_t>(INT_MAX))
        throw std::length_error("CBinaryData: base64 text too long");
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[length + 1]);
    CBase64 coder;
    const int count = coder.Decode(text, bytes.get());
    CDataHolder* holder = AdoptArray(bytes.release(), static_cast<unsigned long>(count));
    Clear();
    m_pHolder = holder;
}

} // namespace NxXmlLib9
