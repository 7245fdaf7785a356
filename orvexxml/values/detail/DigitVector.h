// The digit storage of CBigInteger: the part of std::vector<char> that the digit
// arithmetic uses, with room for the first digits inside the object, so that the
// numbers of everyday documents (quantities, prices) need no heap block.
#pragma once

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <new>

namespace OrvexXmlLib5 {
namespace detail {

// A vector of char whose first kLocal elements live in the object. Iterators are
// pointers; any change of size may move the elements, as with std::vector. A heap
// block keeps its capacity in the word in front of the elements, so the object is
// three words and the local room.
class CDigitVector
{
public:
    using value_type = char;
    using size_type = std::size_t;
    using iterator = char*;
    using const_iterator = const char*;

    CDigitVector() noexcept : m_data(m_local), m_size(0) {}
    // n zeros.
    explicit CDigitVector(size_type n) : CDigitVector() { assign(n, 0); }
    // n copies of value.
    CDigitVector(size_type n, char value) : CDigitVector() { assign(n, value); }
    CDigitVector(std::initializer_list<char> values) : CDigitVector() { assign(values.begin(), values.end()); }
    CDigitVector(const CDigitVector& other) : CDigitVector()
    {
        if (other.m_data == other.m_local)
            CopyLocal(other);
        else
            assign(other.begin(), other.end());
    }
    // Takes the elements over; other is left empty.
    CDigitVector(CDigitVector&& other) noexcept : CDigitVector() { Take(other); }
    ~CDigitVector() { Release(); }

    CDigitVector& operator=(const CDigitVector& other)
    {
        if (this == &other) return *this;
        if (m_data == m_local && other.m_data == other.m_local)
            CopyLocal(other);
        else
            assign(other.begin(), other.end());
        return *this;
    }
    CDigitVector& operator=(CDigitVector&& other) noexcept
    {
        if (this != &other) {
            Release();
            m_data = m_local;
            m_size = 0;
            Take(other);
        }
        return *this;
    }

    CDigitVector& operator=(std::initializer_list<char> values)
    {
        assign(values.begin(), values.end());
        return *this;
    }

    bool operator==(const CDigitVector& other) const noexcept
    {
        return m_size == other.m_size && (m_size == 0 || std::memcmp(m_data, other.m_data, m_size) == 0);
    }
    bool operator!=(const CDigitVector& other) const noexcept { return !(*this == other); }

    size_type size() const noexcept { return m_size; }
    bool empty() const noexcept { return m_size == 0; }
    char* data() noexcept { return m_data; }
    const char* data() const noexcept { return m_data; }
    char& operator[](size_type i) noexcept { return m_data[i]; }
    const char& operator[](size_type i) const noexcept { return m_data[i]; }
    char& back() noexcept { return m_data[m_size - 1]; }
    const char& back() const noexcept { return m_data[m_size - 1]; }
    iterator begin() noexcept { return m_data; }
    iterator end() noexcept { return m_data + m_size; }
    const_iterator begin() const noexcept { return m_data; }
    const_iterator end() const noexcept { return m_data + m_size; }

    void clear() noexcept { m_size = 0; }
    void reserve(size_type n)
    {
        if (n > Capacity()) Reallocate(n);
    }
    void push_back(char value)
    {
        if (m_size == Capacity()) Reallocate(Capacity() * 2);
        m_data[m_size++] = value;
    }
    void pop_back() noexcept { --m_size; }
    // New elements are value (zero unless given).
    void resize(size_type n, char value = 0)
    {
        if (n > m_size) {
            Grow(n);
            std::memset(m_data + m_size, value, n - m_size);
        }
        m_size = n;
    }
    void assign(size_type n, char value)
    {
        m_size = 0;
        resize(n, value);
    }
    // The range may lie inside this vector.
    void assign(const char* first, const char* last)
    {
        const size_type n = static_cast<size_type>(last - first);
        if (n > Capacity()) {
            char* fresh = NewBlock(n);
            std::memcpy(fresh, first, n);
            Release();
            m_data = fresh;
        } else if (n > 0) {
            std::memmove(m_data, first, n);
        }
        m_size = n;
    }
    // n copies of value before position.
    iterator insert(const_iterator position, size_type n, char value)
    {
        const size_type offset = static_cast<size_type>(position - m_data);
        Grow(m_size + n);
        std::memmove(m_data + offset + n, m_data + offset, m_size - offset);
        std::memset(m_data + offset, value, n);
        m_size += n;
        return m_data + offset;
    }
    iterator erase(const_iterator first, const_iterator last) noexcept
    {
        const size_type offset = static_cast<size_type>(first - m_data);
        const size_type n = static_cast<size_type>(last - first);
        std::memmove(m_data + offset, m_data + offset + n, m_size - offset - n);
        m_size -= n;
        return m_data + offset;
    }

private:
    static constexpr size_type kLocal = 16;

    // The elements the current room holds.
    size_type Capacity() const noexcept
    {
        if (m_data == m_local) return kLocal;
        size_type capacity;
        std::memcpy(&capacity, m_data - sizeof(size_type), sizeof(size_type));
        return capacity;
    }
    // A heap room for capacity elements, the capacity written in front of it.
    static char* NewBlock(size_type capacity)
    {
        if (capacity > static_cast<size_type>(-1) - sizeof(size_type)) throw std::bad_alloc();
        char* block = new char[sizeof(size_type) + capacity];
        std::memcpy(block, &capacity, sizeof(size_type));
        return block + sizeof(size_type);
    }
    // Room for at least n elements, growing geometrically.
    void Grow(size_type n)
    {
        const size_type capacity = Capacity();
        if (n > capacity) Reallocate(n > capacity * 2 ? n : capacity * 2);
    }
    void Reallocate(size_type capacity)
    {
        // Never below the local room, so that the elements always fit.
        if (capacity < kLocal) capacity = kLocal;
        if (capacity < m_size) capacity = m_size;
        char* fresh = NewBlock(capacity);
        std::memcpy(fresh, m_data, m_size);
        Release();
        m_data = fresh;
    }
    void Release() noexcept
    {
        if (m_data != m_local) delete[] (m_data - sizeof(size_type));
    }
    // Both in their local room: the whole room is copied, a fixed size the
    // compiler copies without a call.
    void CopyLocal(const CDigitVector& other) noexcept
    {
        std::memcpy(m_local, other.m_local, kLocal);
        m_size = other.m_size;
    }
    void Take(CDigitVector& other) noexcept
    {
        if (other.m_data == other.m_local) {
            std::memcpy(m_local, other.m_local, kLocal);
        } else {
            m_data = other.m_data;
            other.m_data = other.m_local;
        }
        m_size = other.m_size;
        other.m_size = 0;
    }

    char* m_data;  // m_local or the elements of a heap block
    size_type m_size;
    char m_local[kLocal] = {};
};

}  // namespace detail
}  // namespace OrvexXmlLib5
