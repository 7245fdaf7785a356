// The tables a Fast Infoset reader builds while it reads one document: strings it may
// later refer to by index, names by surrogate, and the restricted alphabets. Indexes
// are 1-based as in the binary format; lookups fail rather than leave a table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
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

class CReaderVocabulary
{
public:
    // Index that the first alphabet a document declares receives; the ones below it
    // are the two built-in alphabets and entries held back for future built-ins.
    static constexpr std::uint32_t kFirstDeclaredAlphabet = 16;

    // The built-in entries: prefix "xml" and its namespace at index 1, and the
    // numeric and date-time alphabets at 1 and 2.
    CReaderVocabulary();

    // Entry index of table; fails with "Failed to parse FastInfoset. Index out of
    // range of its table." for 0 or an index past the end.
    static const std::string& At(const std::vector<std::string>& table, std::uint32_t index);
    static const CReaderNameSurrogate& At(const std::vector<CReaderNameSurrogate>& table, std::uint32_t index);
    // Null for an index that nothing defined.
    const CReaderAlphabet* Alphabet(std::uint32_t index) const;
    // Splits the UTF-8 characters of text into a new alphabet at the end of the table.
    void AddAlphabet(const char* text, std::size_t length);

    std::vector<std::string> prefixes;
    std::vector<std::string> namespaceNames;
    std::vector<std::string> localNames;
    std::vector<std::string> attributeValues;
    std::vector<std::string> contentChunks;
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
