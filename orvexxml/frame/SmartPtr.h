// Holds one reference on a reference-counted object of the CXmlObjectBase family.
#pragma once

#include <cstddef>

namespace OrvexXmlLib5 {

template <typename T>
class CSmartPtr
{
public:
    CSmartPtr() : m_p(nullptr) {}
    CSmartPtr(T* p) : m_p(p)
    {
        if (m_p) m_p->AddRef();
    }
    CSmartPtr(const CSmartPtr& other) : m_p(other.m_p)
    {
        if (m_p) m_p->AddRef();
    }
    template <typename U>
    CSmartPtr(const CSmartPtr<U>& other) : m_p(other.Get())
    {
        if (m_p) m_p->AddRef();
    }
    ~CSmartPtr()
    {
        if (m_p) m_p->Release();
    }

    // Adds a reference to the new object before releasing the old one, so that
    // assigning an object to the pointer that already holds it is safe.
    CSmartPtr& operator=(T* p)
    {
        if (p) p->AddRef();
        T* old = m_p;
        m_p = p;
        if (old) old->Release();
        return *this;
    }
    CSmartPtr& operator=(const CSmartPtr& other) { return *this = other.m_p; }

    T* Get() const { return m_p; }
    T* operator->() const { return m_p; }
    T& operator*() const { return *m_p; }
    operator T*() const { return m_p; }
    bool IsNull() const { return m_p == nullptr; }

private:
    T* m_p;
};

}  // namespace OrvexXmlLib5
