// Holds one reference on a reference-counted object of the CXmlObjectBase family.
#pragma once

#include <cstddef>

namespace OrvexXmlLib5 {

// Holds one reference on a reference-counted object of the CXmlObjectBase family:
// AddRef when it takes the object, Release when it lets it go. A null pointer is allowed.
template <typename T>
class CSmartPtr
{
public:
    CSmartPtr() : m_p(nullptr) {}
    // Takes a reference on p; null is allowed.
    CSmartPtr(T* p) : m_p(p)
    {
        if (m_p) m_p->AddRef();
    }
    // Takes one more reference on the object of other.
    CSmartPtr(const CSmartPtr& other) : m_p(other.m_p)
    {
        if (m_p) m_p->AddRef();
    }
    // Takes a reference on the object of a pointer to a derived class.
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
    // Takes the object of other, as assigning a raw pointer does.
    CSmartPtr& operator=(const CSmartPtr& other) { return *this = other.m_p; }

    // The object, without a new reference; null when the pointer is empty.
    T* Get() const { return m_p; }
    // The object, for a member call; must not be null.
    T* operator->() const { return m_p; }
    // The object; must not be null.
    T& operator*() const { return *m_p; }
    // The object as a raw pointer, without a new reference; null when empty.
    operator T*() const { return m_p; }
    // True when no object is held.
    bool IsNull() const { return m_p == nullptr; }

private:
    T* m_p;
};

}  // namespace OrvexXmlLib5
