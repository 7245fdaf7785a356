// Append-only text buffer of fixed-size chunks: nothing already written moves
// while a document is built; the chunks are joined once, when the text is taken.
#pragma once

#include "orvexxml/Export.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/xml/XmlEnums.h"

namespace OrvexXmlLib5 {

// A text buffer that only grows at its end, kept in chunks of a fixed size so that
// nothing written moves; the text writer builds its output in one.
class ORVEXXML_API CStringBuffer : public CInstanceMonitor
{
public:
    // Each chunk holds chunkSize - 1 bytes of text and a terminator. A size below 2
    // is taken as 2, so that every chunk holds at least one byte.
    explicit CStringBuffer(unsigned long chunkSize);
    virtual ~CStringBuffer();

    CStringBuffer(const CStringBuffer&) = delete;
    CStringBuffer& operator=(const CStringBuffer&) = delete;

    // Frees every chunk; the chunk capacity stays.
    void Reset();

    // A null pointer appends nothing.
    void Append(const char* text) { if (text) Append(text, std::strlen(text)); }
    // Appends all of text, embedded zero bytes included.
    void Append(const std::string& text) { Append(text.data(), text.size()); }
    void Append(const char* text, std::size_t length)
    {
        // Before the first chunk there is no target at all, not even for no bytes.
        if (length == 0) return;
        if (length <= m_lastCapacity - m_used) {
            std::memcpy(m_lastChunk + m_used, text, length);
            m_used += length;
        } else {
            AppendSpanning(text, length);
        }
    }
    // Appends one byte.
    void AppendChar(char value)
    {
        if (m_used == m_lastCapacity) NewChunk();
        m_lastChunk[m_used++] = value;
    }

    // Appends text up to its terminator with the markup characters replaced by
    // entities, carriage returns dropped and each line feed written as the line end
    // of eol. An eol other than EOL_CRLF or EOL_LF fails with "Invalid EOL type."
    // before anything is appended. A null pointer appends nothing.
    void AppendEscaped(const char* text, EOLType eol);

    // The whole text. Several chunks are joined into one, which then stands for them.
    std::string GetString();
    // The whole text, copied straight from the chunks, which stay as they are.
    std::string CopyString() const;
    // Bytes appended since the last Reset.
    std::size_t GetLength() const;
    // Number of chunks currently held.
    std::size_t GetChunkCount() const { return m_chunks.size(); }

private:
    void AppendSpanning(const char* text, std::size_t length);
    void NewChunk();

    std::vector<char*> m_chunks;
    std::vector<std::size_t> m_chunkSizes;
    std::size_t m_chunkCapacity;
    std::size_t m_used;
    std::size_t m_lastCapacity;
    char* m_lastChunk;
};

}  // namespace OrvexXmlLib5
