// Values stored once each, found by a key: the recently found ones by a slot the
// caller computes from the key, the first few in a list, all of them in an ordered
// index once there are more. The index is ordered rather than hashed: keys come
// from documents, and keys made to collide in a fixed hash would make every lookup
// walk them all. Values never move, so their addresses can stand for them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <utility>

#include "orvexxml/xml/detail/NodePool.h"

namespace OrvexXmlLib5 {
namespace Detail {

// KeyOf gives the key of a stored value; a Key compares equal to it and orders.
template <typename T, typename Key, Key (*KeyOf)(const T&)>
class CInternTable
{
public:
    // The stored value with this key, made from args at its first use. slot, below
    // RecentSlots, picks the place among the recent values that key is looked for in.
    template <typename... Args>
    const T* Intern(const Key& key, std::size_t slot, Args&&... args)
    {
        const T* recent = m_recent[slot];
        if (recent && KeyOf(*recent) == key) return recent;
        const T* value = nullptr;
        if (m_count <= Listed) {
            for (std::size_t i = 0; i < m_count && !value; ++i)
                if (KeyOf(*m_listed[i]) == key) value = m_listed[i];
        } else {
            auto found = m_index.find(key);
            if (found != m_index.end()) value = found->second;
        }
        if (!value) {
            // Should the index fail to grow, the stored value just stays unused until Clear.
            const T* made = m_values.Create(std::forward<Args>(args)...);
            if (m_count < Listed) {
                m_listed[m_count] = made;
            } else {
                if (m_count == Listed)
                    for (const T* known : m_listed) m_index.emplace(KeyOf(*known), known);
                m_index.emplace(KeyOf(*made), made);
            }
            ++m_count;
            value = made;
        }
        m_recent[slot] = value;
        return value;
    }

    // Forgets and frees every value.
    void Clear() noexcept
    {
        m_index.clear();
        m_count = 0;
        std::fill(std::begin(m_recent), std::end(m_recent), nullptr);
        m_values.Clear();
    }

    static constexpr std::size_t RecentSlots = 64;

private:
    static constexpr std::size_t Listed = 32;

    CNodePool<T> m_values;
    const T* m_listed[Listed] = {};
    std::size_t m_count = 0;
    std::map<Key, const T*> m_index;
    const T* m_recent[RecentSlots] = {};
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
