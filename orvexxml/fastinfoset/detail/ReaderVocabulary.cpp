#include "orvexxml/fastinfoset/detail/ReaderVocabulary.h"

#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {
namespace Detail {

namespace {

CReaderAlphabet FromAscii(const char* characters)
{
    CReaderAlphabet alphabet;
    for (const char* c = characters; *c; ++c) alphabet.emplace_back(1, *c);
    return alphabet;
}

[[noreturn]] void ThrowIndexOutOfRange()
{
    throw COrvexException("Failed to parse FastInfoset. Index out of range of its table.");
}

}  // namespace

const char* const kReaderDeclarations[9] = {
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};

CReaderVocabulary::CReaderVocabulary()
    : prefixes("xml"), namespaceNames("http://www.w3.org/XML/1998/namespace")
{
    m_alphabets.reserve(kFirstDeclaredAlphabet);
    // The numeric alphabet holds an upper-case E. Writers put the exponent of a
    // number in that case, so an alphabet with a lower-case e would turn every
    // "1.5E3" they send into "1.5e3" and make a value differ from its XML form.
    m_alphabets.push_back(FromAscii("0123456789-+.E "));
    m_alphabets.push_back(FromAscii("0123456789-:TZ "));
    m_alphabets.resize(kFirstDeclaredAlphabet - 1);
}

CReaderStringTable::CReaderStringTable(std::string_view first)
{
    if (!first.empty()) Add(first);
}

void CReaderStringTable::IndexOutOfRange()
{
    ThrowIndexOutOfRange();
}

const CReaderNameSurrogate& CReaderVocabulary::At(const std::vector<CReaderNameSurrogate>& table,
                                                  std::uint32_t index)
{
    if (index == 0 || index > table.size()) ThrowIndexOutOfRange();
    return table[index - 1];
}

const CReaderAlphabet* CReaderVocabulary::Alphabet(std::uint32_t index) const
{
    if (index == 0 || index > m_alphabets.size()) return nullptr;
    return &m_alphabets[index - 1];
}

void CReaderVocabulary::AddAlphabet(const char* text, std::size_t length)
{
    CReaderAlphabet alphabet;
    std::size_t i = 0;
    while (i < length) {
        // A character is its lead byte and the continuation bytes after it; a stray
        // continuation byte stands alone, so every byte belongs to some character.
        std::size_t end = i + 1;
        if (static_cast<unsigned char>(text[i]) >= 0xC0)
            while (end < length && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
        alphabet.emplace_back(text + i, end - i);
        i = end;
    }
    m_alphabets.push_back(std::move(alphabet));
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
