// Table-driven hex and base64 codecs and the one-buffer deflate behind CBinaryData's
// text forms and compression. Raw buffers only: the callers own every allocation.
#pragma once

#include <climits>
#include <cstddef>
#include <cstdint>

namespace OrvexXmlLib5 {
namespace Detail {

extern const char HexDigits[17];
extern const char Base64Alphabet[65];

// Writes 2 * length upper-case digits to out (no terminator).
void HexEncode(const unsigned char* data, std::size_t length, char* out);

// Decodes length / 2 bytes into out, reading the characters pairwise from the start.
// Returns true on success; otherwise badChar is the first character that is no hex
// digit, '\0' when an odd length leaves the last digit without a partner.
bool HexDecode(const char* text, std::size_t length, unsigned char* out, char& badChar);

// Base64 in both directions over one source buffer. The encoder fills up the last
// group with zero bits and pads with '='; the decoder is lenient: '=' is skipped
// wherever it stands, a character above 127 counts as the one 128 below it, any
// other character outside the alphabet ends decoding with nothing decoded.
struct CBase64Codec
{
    std::size_t sourceLength;
    unsigned bitsHeld;
    std::uint32_t accumulator;
    const unsigned char* source;

    CBase64Codec(const void* data, std::size_t length)
        : sourceLength(length), bitsHeld(0), accumulator(0), source(static_cast<const unsigned char*>(data))
    {
    }

    static std::size_t EncodedLength(std::size_t length) { return (length + 2) / 3 * 4; }
    // Enough room for every byte that a text of length characters can give.
    static std::size_t DecodedCapacity(std::size_t length) { return length / 4 * 3 + 3; }

    // Writes EncodedLength(sourceLength) characters to out.
    void Encode(char* out);
    // Returns the number of bytes written to out, 0 for a text outside the alphabet.
    std::size_t Decode(unsigned char* out);
};

// Compresses at level 1 into out, which holds outCapacity bytes: a gzip member when
// gzip is set, else a zlib stream. One pass without growing the output; returns
// zlib's result of the finishing call (Z_STREAM_END on success) and, in written, the
// bytes produced. chunkLimit caps what one zlib call sees, whose counters are 32 bits.
int DeflateInto(const unsigned char* in, std::size_t inLength, unsigned char* out, std::size_t outCapacity, bool gzip,
                std::size_t& written, std::size_t chunkLimit = UINT_MAX);

}  // namespace Detail
}  // namespace OrvexXmlLib5
