// Intrusive reference-counting pointer over objects that offer AddRef and
// Release (the bound objects of the library).
#pragma once

#include <atomic>
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

// A counted pointer that const readers may fill on first use from several
// threads at once: the first object published wins, a loser lets its own go.
// Assignment replaces the object outright and is a writer's operation, like
// any other change of the owner.
template <class T>
class CLazySmartPtr {
public:
    CLazySmartPtr() : m_p(nullptr) {}
    CLazySmartPtr(const CLazySmartPtr& other) : m_p(nullptr) { *this = other.get(); }
    ~CLazySmartPtr() { *this = nullptr; }

    CLazySmartPtr& operator=(T* p)
    {
        if (p) p->AddRef();
        if (T* old = m_p.exchange(p, std::memory_order_acq_rel)) old->Release();
        return *this;
    }
    CLazySmartPtr& operator=(const CLazySmartPtr& other) { return *this = other.get(); }

    // The held object, made by make() and published when there is none.
    template <class Make>
    T& GetOrMake(Make make) const
    {
        T* held = get();
        if (held) return *held;
        CSmartPtr<T> made(make());
        if (m_p.compare_exchange_strong(held, made, std::memory_order_acq_rel, std::memory_order_acquire)) {
            made->AddRef();
            return *made;
        }
        return *held;
    }

    T* get() const { return m_p.load(std::memory_order_acquire); }
    T* operator->() const { return get(); }
    operator T*() const { return get(); }

private:
    mutable std::atomic<T*> m_p;
};

} // namespace NxXmlLib9
