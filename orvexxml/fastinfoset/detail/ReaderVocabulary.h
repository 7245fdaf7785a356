// The tables a Fast Infoset reader builds while it reads one document: strings it may
// later refer to by index, names by surrogate, and the restricted alphabets. Indexes
// are 1-based as in the binary format; lookups fail rather than leave a table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace OrvexXmlLib5 {
namespace Detail {

// A qualified name by the indexes of its parts; 0 for a prefix or namespace name that
// the name does not have. The local name index is never 0.
struct CReaderNameSurrogate
{
    std::uint32_t prefix;
    std::uint32_t namespaceName;
    std::uint32_t localName;
};

// An alphabet as its characters, each one UTF-8 encoded; the position of a character
// is the number that stands for it in an encoded string.
using CReaderAlphabet = std::vector<std::string>;

// Strings that only grow at the end, kept one after the other in one buffer so that an
// entry costs no allocation of its own. A view from At lasts until the next Add.
class CReaderStringTable
{
public:
    explicit CReaderStringTable(std::string_view first = std::string_view());

    void Add(std::string_view text)
    {
        m_entries.emplace_back(m_text.size(), text.size());
        m_text.append(text.data(), text.size());
    }
    // Entry index; fails with "Failed to parse FastInfoset. Index out of range of its
    // table." for 0 or an index past the end.
    std::string_view At(std::uint32_t index) const
    {
        if (index == 0 || index > m_entries.size()) IndexOutOfRange();
        const auto& entry = m_entries[index - 1];
        return std::string_view(m_text.data() + entry.first, entry.second);
    }
    std::uint32_t Size() const { return static_cast<std::uint32_t>(m_entries.size()); }

private:
    [[noreturn]] static void IndexOutOfRange();

    std::string m_text;
    std::vector<std::pair<std::size_t, std::size_t>> m_entries;  // offset and length
};

class CReaderVocabulary
{
public:
    // Index that the first alphabet a document declares receives; the ones below it
    // are the two built-in alphabets and entries held back for future built-ins.
    static constexpr std::uint32_t kFirstDeclaredAlphabet = 16;

    // The built-in entries: prefix "xml" and its namespace at index 1, and the
    // numeric and date-time alphabets at 1 and 2.
    CReaderVocabulary();

    // Entry index of table; fails as CReaderStringTable::At does.
    static const CReaderNameSurrogate& At(const std::vector<CReaderNameSurrogate>& table, std::uint32_t index);
    // Null for an index that nothing defined.
    const CReaderAlphabet* Alphabet(std::uint32_t index) const;
    // Splits the UTF-8 characters of text into a new alphabet at the end of the table.
    void AddAlphabet(const char* text, std::size_t length);

    CReaderStringTable prefixes;
    CReaderStringTable namespaceNames;
    CReaderStringTable localNames;
    CReaderStringTable attributeValues;
    CReaderStringTable contentChunks;
    std::vector<CReaderNameSurrogate> elementNames;
    std::vector<CReaderNameSurrogate> attributeNames;

private:
    // Entry i is alphabet index i + 1; reserved indexes hold empty alphabets.
    std::vector<CReaderAlphabet> m_alphabets;
};

// The XML declarations that may stand in front of the binary header, tried in this
// order; each must match byte for byte.
extern const char* const kReaderDeclarations[9];

}  // namespace Detail
}  // namespace OrvexXmlLib5
