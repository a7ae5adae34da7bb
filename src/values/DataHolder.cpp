// The shared, reference-counted storage behind CBinaryData.
#include "NxBinaryData.h"
#include "NxException.h"

#include <climits>
#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace NxXmlLib9 {

namespace {

// Holds the lock for a scope, and lets a path leave it early. The lock is
// not recursive, so nothing may call back into the holder while it is held.
class CLockScope {
public:
    explicit CLockScope(CNXCriticalSection& cs) : m_cs(cs), m_held(true) { m_cs.Enter(); }
    ~CLockScope() { Leave(); }
    CLockScope(const CLockScope&) = delete;
    CLockScope& operator=(const CLockScope&) = delete;

    void Leave()
    {
        if (m_held) {
            m_held = false;
            m_cs.Leave();
        }
    }

private:
    CNXCriticalSection& m_cs;
    bool m_held;
};

const unsigned long kMinimumCapacity = 8192;

} // namespace

using CDataHolder = CBinaryData::CDataHolder;

CDataHolder::CDataHolder(unsigned char* data, unsigned long length, bool adopt)
    : m_pData(nullptr), m_nLength(data ? length : 0), m_nCapacity(0), m_nRefCount(1), m_spare(0)
{
    if (adopt) {
        m_pData = data;
        m_nCapacity = m_nLength;
        return;
    }
    // Twice the length, doubled in 32 bits, but at least 8192. A wrapped
    // doubling never leaves less room than the bytes themselves.
    unsigned long capacity = static_cast<std::uint32_t>(static_cast<std::uint32_t>(m_nLength) * 2u);
    if (capacity < kMinimumCapacity)
        capacity = kMinimumCapacity;
    if (capacity < m_nLength)
        capacity = m_nLength;
    m_pData = new unsigned char[capacity];
    m_nCapacity = capacity;
    if (m_nLength != 0)
        std::memcpy(m_pData, data, m_nLength);
}

CDataHolder::~CDataHolder()
{
    delete[] m_pData;
}

unsigned char& CDataHolder::At(unsigned long index)
{
    return index < m_nCapacity ? m_pData[index] : m_spare;
}

long long CDataHolder::AddRef()
{
    CLockScope lock(m_cs);
    return ++m_nRefCount;
}

void CDataHolder::Append(unsigned char* data, unsigned long length)
{
    CLockScope lock(m_cs);
    if (m_nRefCount > 1) {
        const long count = m_nRefCount;
        lock.Leave();
        throw CNxException(FormatString("Failed to append. [RefCount=%d]", static_cast<int>(count)));
    }
    if (data == nullptr || length == 0)
        return;
    if (length > ULONG_MAX - m_nLength)
        throw std::length_error("CBinaryData: length overflow");

    const unsigned long newLength = m_nLength + length;
    if (newLength > m_nCapacity) {
        // Geometric growth keeps a run of appends linear.
        const unsigned long capacity = newLength <= ULONG_MAX / 2 ? newLength * 2 : newLength;
        unsigned char* grown = new unsigned char[capacity];
        if (m_nLength != 0)
            std::memcpy(grown, m_pData, m_nLength);
        // The source may lie in the old array (a buffer appended to itself),
        // so it is copied before that array goes.
        std::memcpy(grown + m_nLength, data, length);
        delete[] m_pData;
        m_pData = grown;
        m_nCapacity = capacity;
    } else {
        std::memmove(m_pData + m_nLength, data, length);
    }
    m_nLength = newLength;
}

long long CDataHolder::Release(bool keepData)
{
    CLockScope lock(m_cs);
    const long count = --m_nRefCount;
    if (keepData) {
        if (count > 0) {
            // The caller still holds its reference: give it back, so that
            // the failed hand-over leaves the count as it was.
            ++m_nRefCount;
            lock.Leave();
            throw CNxException(FormatString("Failed to release data. [RefCount=%d]", static_cast<int>(count)));
        }
        m_pData = nullptr;
    } else if (count != 0) {
        return count;
    }
    // A mutex must not be destroyed while held.
    lock.Leave();
    delete this;
    return 0;
}

CDataHolder* CDataHolder::GetExclusiveCopy()
{
    CLockScope lock(m_cs);
    if (m_nRefCount <= 1)
        return this;
    // While the count is above 1 nobody writes these bytes, and holding the
    // lock keeps it there until the copy is made.
    CDataHolder* copy = new CDataHolder(m_pData, m_nLength, false);
    // Release takes this same, non-recursive lock.
    lock.Leave();
    Release(false);
    return copy;
}

void CDataHolder::Reserve(unsigned long capacity)
{
    CLockScope lock(m_cs);
    if (m_nRefCount > 1) {
        const long count = m_nRefCount;
        lock.Leave();
        throw CNxException(FormatString("Failed to append. [RefCount=%d]", static_cast<int>(count)));
    }
    if (capacity <= m_nCapacity)
        return;
    unsigned char* grown = new unsigned char[capacity];
    if (m_nLength != 0)
        std::memcpy(grown, m_pData, m_nLength);
    delete[] m_pData;
    m_pData = grown;
    m_nCapacity = capacity;
}

} // namespace NxXmlLib9
