#include "orvexxml/xml/StringBuffer.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>

#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {

namespace {

// Bytes that end a run of text copied unchanged by AppendEscaped: the terminator
// and the characters that are replaced or dropped.
constexpr std::array<bool, 256> MakeEscapeStops()
{
    std::array<bool, 256> stops{};
    stops[0] = true;
    stops[static_cast<unsigned char>('\n')] = true;
    stops[static_cast<unsigned char>('\r')] = true;
    stops[static_cast<unsigned char>('"')] = true;
    stops[static_cast<unsigned char>('&')] = true;
    stops[static_cast<unsigned char>('<')] = true;
    stops[static_cast<unsigned char>('>')] = true;
    return stops;
}

constexpr std::array<bool, 256> EscapeStops = MakeEscapeStops();

}  // namespace

CStringBuffer::CStringBuffer(unsigned long chunkSize)
    : CInstanceMonitor("CStringBuffer"), m_chunkCapacity(0), m_used(0), m_lastCapacity(0), m_lastChunk(nullptr)
{
    if (chunkSize < 2) chunkSize = 2;
    const unsigned long largest = std::numeric_limits<std::uint32_t>::max();
    if (chunkSize > largest) chunkSize = largest;
    m_chunkCapacity = static_cast<std::size_t>(chunkSize) - 1;
}

CStringBuffer::~CStringBuffer()
{
    Reset();
}

void CStringBuffer::Reset()
{
    for (char* chunk : m_chunks) std::free(chunk);
    m_chunks.clear();
    m_chunkSizes.clear();
    m_used = 0;
    m_lastCapacity = 0;
    m_lastChunk = nullptr;
}

void CStringBuffer::NewChunk()
{
    if (m_chunks.size() == m_chunks.capacity()) m_chunks.reserve(m_chunks.size() * 2 + 8);
    if (m_chunkSizes.size() == m_chunkSizes.capacity()) m_chunkSizes.reserve(m_chunkSizes.size() * 2 + 8);
    // Not zero-filled: every reader of a chunk takes its length, never a terminator.
    char* chunk = static_cast<char*>(std::malloc(m_chunkCapacity + 1));
    if (!chunk) throw std::bad_alloc();
    m_chunks.push_back(chunk);
    m_chunkSizes.push_back(m_chunkCapacity);
    m_lastChunk = chunk;
    m_lastCapacity = m_chunkCapacity;
    m_used = 0;
}

void CStringBuffer::AppendSpanning(const char* text, std::size_t length)
{
    while (length > 0) {
        if (m_used == m_lastCapacity) NewChunk();
        std::size_t part = m_lastCapacity - m_used;
        if (part > length) part = length;
        std::memcpy(m_lastChunk + m_used, text, part);
        m_used += part;
        text += part;
        length -= part;
    }
}

void CStringBuffer::AppendEscaped(const char* text, EOLType eol)
{
    const char* lineEnd;
    std::size_t lineEndLength;
    switch (eol) {
        case EOL_CRLF:
            lineEnd = "\r\n";
            lineEndLength = 2;
            break;
        case EOL_LF:
            lineEnd = "\n";
            lineEndLength = 1;
            break;
        default:
            throw COrvexException("Invalid EOL type.");
    }
    if (!text) return;

    const unsigned char* p = reinterpret_cast<const unsigned char*>(text);
    for (;;) {
        const unsigned char* run = p;
        while (!EscapeStops[*p]) ++p;
        if (p != run) Append(reinterpret_cast<const char*>(run), static_cast<std::size_t>(p - run));
        switch (*p) {
            case 0:
                return;
            case '\n':
                Append(lineEnd, lineEndLength);
                break;
            case '\r':
                break;
            case '"':
                Append("&quot;", 6);
                break;
            case '&':
                Append("&amp;", 5);
                break;
            case '<':
                Append("&lt;", 4);
                break;
            default:  // '>'
                Append("&gt;", 4);
                break;
        }
        ++p;
    }
}

std::size_t CStringBuffer::GetLength() const
{
    std::size_t total = 0;
    if (m_chunks.empty()) return 0;
    for (std::size_t i = 0; i + 1 < m_chunkSizes.size(); ++i) total += m_chunkSizes[i];
    return total + m_used;
}

std::string CStringBuffer::CopyString() const
{
    std::string text;
    text.reserve(GetLength());
    if (m_chunks.empty()) return text;
    const std::size_t last = m_chunks.size() - 1;
    for (std::size_t i = 0; i < last; ++i) text.append(m_chunks[i], m_chunkSizes[i]);
    text.append(m_lastChunk, m_used);
    return text;
}

std::string CStringBuffer::GetString()
{
    if (m_chunks.empty()) return std::string();
    if (m_chunks.size() > 1) {
        const std::size_t total = GetLength();
        char* block = static_cast<char*>(std::malloc(total + 1));
        if (!block) throw std::bad_alloc();
        std::size_t offset = 0;
        const std::size_t last = m_chunks.size() - 1;
        for (std::size_t i = 0; i < last; ++i) {
            std::memcpy(block + offset, m_chunks[i], m_chunkSizes[i]);
            offset += m_chunkSizes[i];
        }
        std::memcpy(block + offset, m_chunks[last], m_used);
        block[total] = '\0';
        Reset();
        // The joined block is full, so the next append opens a fresh chunk behind it.
        m_chunks.push_back(block);
        m_chunkSizes.push_back(total);
        m_lastChunk = block;
        m_lastCapacity = total;
        m_used = total;
    }
    return std::string(m_lastChunk, m_used);
}

}  // namespace OrvexXmlLib5
