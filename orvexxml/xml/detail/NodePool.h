// Chunked storage for the nodes of one document: nodes are constructed in place
// and all destroyed together, so neither building nor tearing down a tree costs
// one heap block per node, and teardown never recurses, however deep the tree.
// With Destroy false the nodes' destructors are not run: for nodes that own
// nothing, so that teardown need not touch them at all.
#pragma once

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

namespace OrvexXmlLib5 {
namespace Detail {

template <typename T, bool Destroy = true>
class CNodePool
{
public:
    CNodePool() = default;
    CNodePool(const CNodePool&) = delete;
    CNodePool& operator=(const CNodePool&) = delete;
    ~CNodePool() { Clear(); }

    // Constructs a node in the pool. If the constructor throws, nothing is added.
    template <typename... Args>
    T* Create(Args&&... args)
    {
        if (m_chunks.empty() || m_usedInLast == m_chunks.back().capacity) Grow();
        Chunk& chunk = m_chunks.back();
        T* node = new (chunk.storage + m_usedInLast * sizeof(T)) T(std::forward<Args>(args)...);
        ++m_usedInLast;
        return node;
    }

    // Destroys every node, newest chunk first, and frees the storage.
    void Clear() noexcept
    {
        while (!m_chunks.empty()) {
            Chunk& chunk = m_chunks.back();
            if (Destroy)
                for (std::size_t i = 0; i < m_usedInLast; ++i)
                    reinterpret_cast<T*>(chunk.storage + i * sizeof(T))->~T();
            ::operator delete(chunk.storage, std::align_val_t(alignof(T)));
            m_chunks.pop_back();
            m_usedInLast = m_chunks.empty() ? 0 : m_chunks.back().capacity;
        }
    }

private:
    struct Chunk
    {
        unsigned char* storage;
        std::size_t capacity;
    };

    // Chunks double from 16 nodes up to 4096, so a small document stays small and a
    // large one needs few blocks.
    void Grow()
    {
        std::size_t capacity = m_chunks.empty() ? 16 : m_chunks.back().capacity * 2;
        if (capacity > 4096) capacity = 4096;
        m_chunks.reserve(m_chunks.size() + 1);
        auto* storage = static_cast<unsigned char*>(::operator new(capacity * sizeof(T), std::align_val_t(alignof(T))));
        m_chunks.push_back(Chunk{storage, capacity});
        m_usedInLast = 0;
    }

    std::vector<Chunk> m_chunks;
    std::size_t m_usedInLast = 0;  // nodes constructed in the last chunk; all earlier chunks are full
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
