// Bump storage for the variable-sized parts of one document's tree: the text of
// elements and their lists of attributes. Nothing in it is freed on its own; the
// whole arena goes with the tree, so a tree costs a few large blocks instead of a
// heap block per text.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

namespace OrvexXmlLib5 {
namespace Detail {

class CTreeArena
{
public:
    CTreeArena() = default;
    CTreeArena(const CTreeArena&) = delete;
    CTreeArena& operator=(const CTreeArena&) = delete;
    ~CTreeArena() { Clear(); }

    // size bytes aligned to align (a power of two up to that of std::max_align_t).
    void* Allocate(std::size_t size, std::size_t align)
    {
        std::size_t offset = (m_used + align - 1) & ~(align - 1);
        if (m_blocks.empty() || offset > m_capacity || size > m_capacity - offset) {
            // A request beyond a quarter of a chunk gets a block of its own, so that a
            // long text wastes no chunk; the current chunk stays open for more.
            if (size > ChunkLimit / 4) return Own(size);
            Grow(size);
            offset = 0;
        }
        m_used = offset + size;
        return m_blocks.back() + offset;
    }

    // Stores first then second as one text, followed by a NUL; gives the first byte.
    // The length lies in front of it (see TextLength).
    const char* StoreText(std::string_view first, std::string_view second = std::string_view())
    {
        const std::size_t length = first.size() + second.size();
        const bool large = length >= SmallLimit;
        const std::size_t header = large ? 12 : 4;
        if (length > SIZE_MAX - header - 1) throw std::bad_alloc();
        char* block = static_cast<char*>(Allocate(header + length + 1, 4));
        const std::uint32_t small = large ? SmallLimit : static_cast<std::uint32_t>(length);
        if (large) {
            const std::uint64_t wide = length;
            std::memcpy(block, &wide, 8);
        }
        std::memcpy(block + header - 4, &small, 4);
        char* text = block + header;
        if (!first.empty()) std::memcpy(text, first.data(), first.size());
        if (!second.empty()) std::memcpy(text + first.size(), second.data(), second.size());
        text[length] = '\0';
        return text;
    }

    // The length of a text that StoreText gave.
    static std::size_t TextLength(const char* text)
    {
        std::uint32_t small;
        std::memcpy(&small, text - 4, 4);
        if (small != SmallLimit) return small;
        std::uint64_t wide;
        std::memcpy(&wide, text - 12, 8);
        return static_cast<std::size_t>(wide);
    }

    // Frees every block.
    void Clear() noexcept
    {
        for (char* block : m_blocks) ::operator delete(block);
        for (char* block : m_owned) ::operator delete(block);
        m_blocks.clear();
        m_owned.clear();
        m_used = m_capacity = 0;
    }

private:
    // Texts of this length or longer keep their length in eight more bytes.
    static constexpr std::uint32_t SmallLimit = 0xFFFFFFFFu;
    // Chunks double from FirstChunk bytes up to ChunkLimit, so that a small
    // document stays small and a large one needs few blocks.
    static constexpr std::size_t FirstChunk = 512;
    static constexpr std::size_t ChunkLimit = 256 * 1024;

    // A new chunk, of at least size bytes.
    void Grow(std::size_t size)
    {
        std::size_t capacity = m_blocks.empty() ? FirstChunk : std::min(m_capacity * 2, ChunkLimit);
        while (capacity < size) capacity *= 2;
        m_blocks.reserve(m_blocks.size() + 1);
        m_blocks.push_back(static_cast<char*>(::operator new(capacity)));
        m_capacity = capacity;
        m_used = 0;
    }

    void* Own(std::size_t size)
    {
        m_owned.reserve(m_owned.size() + 1);
        m_owned.push_back(static_cast<char*>(::operator new(size)));
        return m_owned.back();
    }

    std::vector<char*> m_blocks;  // chunks, the last one being filled
    std::vector<char*> m_owned;   // blocks of single large requests
    std::size_t m_used = 0;       // bytes taken in the last chunk
    std::size_t m_capacity = 0;   // size of the last chunk
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
