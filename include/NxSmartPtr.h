// Intrusive reference-counting pointer over objects that offer AddRef and
// Release (the bound objects of the library).
#pragma once

#include <utility>

namespace NxXmlLib9 {

template <class T>
class CSmartPtr {
public:
    CSmartPtr() : m_p(nullptr) {}
    CSmartPtr(T* p) : m_p(p) { if (m_p) m_p->AddRef(); }
    CSmartPtr(const CSmartPtr& other) : CSmartPtr(other.m_p) {}
    CSmartPtr(CSmartPtr&& other) noexcept : m_p(other.m_p) { other.m_p = nullptr; }
    template <class U>
    CSmartPtr(const CSmartPtr<U>& other) : CSmartPtr(static_cast<U*>(other)) {}
    ~CSmartPtr() { if (m_p) m_p->Release(); }

    // The new object is counted before the old one is let go, so assigning
    // the pointer already held never destroys it.
    CSmartPtr& operator=(T* p)
    {
        if (p) p->AddRef();
        T* old = m_p;
        m_p = p;
        if (old) old->Release();
        return *this;
    }
    CSmartPtr& operator=(const CSmartPtr& other) { return *this = other.m_p; }
    CSmartPtr& operator=(CSmartPtr&& other) noexcept
    {
        if (this != &other) {
            T* old = m_p;
            m_p = other.m_p;
            other.m_p = nullptr;
            if (old) old->Release();
        }
        return *this;
    }
    template <class U>
    CSmartPtr& operator=(const CSmartPtr<U>& other) { return *this = static_cast<U*>(other); }

    T* operator->() const { return m_p; }
    T& operator*() const { return *m_p; }
    operator T*() const { return m_p; }

private:
    T* m_p;
};

} // namespace NxXmlLib9
