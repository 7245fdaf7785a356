// The writer's image of one vocabulary table of the reader: which strings the
// reader of the document being written will find at which index.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

namespace OrvexXmlLib5 {
namespace Detail {

// Every literal that the reader adds to its table counts, even a string that the
// table already holds: the reader then has it twice, and the next new string's
// index is one further on. So the next index is the count of literals plus one,
// never the size of the lookup. A table stops growing at its limit, as the
// reader's does; strings past it stay literals for good.
class CWriterVocabulary
{
public:
    // The largest table a reader builds.
    static constexpr std::uint32_t MaxEntries = 1u << 20;

    explicit CWriterVocabulary(std::uint32_t limit = MaxEntries) : m_count(0), m_limit(limit) {}

    // The 1-based index of text; 0 when the reader will not have it.
    std::uint32_t Find(const std::string& text) const
    {
        const auto found = m_index.find(text);
        return found == m_index.end() ? 0 : found->second;
    }

    bool IsFull() const { return m_count >= m_limit; }

    // Records a literal that the reader adds to its table and gives its index;
    // 0 when the table is full and the reader adds nothing. A string that is
    // there already keeps its first index, which is the one lookups give.
    std::uint32_t Add(const std::string& text)
    {
        if (IsFull()) return 0;
        ++m_count;
        m_index.emplace(text, m_count);
        return m_count;
    }

    // Back to the state of a new document with the given first entries.
    void Clear()
    {
        m_index.clear();
        m_count = 0;
    }

    std::uint32_t GetCount() const { return m_count; }

private:
    std::unordered_map<std::string, std::uint32_t> m_index;
    std::uint32_t m_count;
    std::uint32_t m_limit;
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
