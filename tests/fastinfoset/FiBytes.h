// Hand-built binary documents for the reader's tests: the integer and length forms at
// each bit position.
#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/xml/XmlDocument.h"

namespace FiBytes {

using Bytes = std::string;

inline Bytes Octets(std::initializer_list<unsigned int> values)
{
    Bytes out;
    for (unsigned int v : values) out.push_back(static_cast<char>(v));
    return out;
}

inline Bytes Be32(std::uint64_t v)
{
    return Octets({unsigned(v >> 24) & 0xFF, unsigned(v >> 16) & 0xFF, unsigned(v >> 8) & 0xFF, unsigned(v) & 0xFF});
}

// Each form leaves the bits in front of its position clear; callers OR them into octet 0.
inline Bytes IntOnSecondBit(std::uint32_t v)
{
    if (v <= 64) return Octets({v - 1});
    if (v <= 8256) return Octets({0x40 | ((v - 65) >> 8), (v - 65) & 0xFF});
    const std::uint32_t w = v - 8257;
    return Octets({0x60 | (w >> 16), (w >> 8) & 0xFF, w & 0xFF});
}

inline Bytes IntOnThirdBit(std::uint32_t v)
{
    if (v <= 32) return Octets({v - 1});
    if (v <= 2080) return Octets({0x20 | ((v - 33) >> 8), (v - 33) & 0xFF});
    if (v <= 526368) {
        const std::uint32_t w = v - 2081;
        return Octets({0x28 | (w >> 16), (w >> 8) & 0xFF, w & 0xFF});
    }
    const std::uint32_t w = v - 526369;
    return Octets({0x30, w >> 16, (w >> 8) & 0xFF, w & 0xFF});
}

inline Bytes IntOnFourthBit(std::uint32_t v)
{
    if (v <= 16) return Octets({v - 1});
    if (v <= 1040) return Octets({0x10 | ((v - 17) >> 8), (v - 17) & 0xFF});
    if (v <= 263184) {
        const std::uint32_t w = v - 1041;
        return Octets({0x14 | (w >> 16), (w >> 8) & 0xFF, w & 0xFF});
    }
    const std::uint32_t w = v - 263185;
    return Octets({0x18, w >> 16, (w >> 8) & 0xFF, w & 0xFF});
}

inline Bytes LenOnSecondBit(std::uint64_t n)
{
    if (n <= 64) return Octets({unsigned(n - 1)});
    if (n <= 320) return Octets({0x40, unsigned(n - 65)});
    return Octets({0x60}) + Be32(n - 321);
}

inline Bytes LenOnFifthBit(std::uint64_t n)
{
    if (n <= 8) return Octets({unsigned(n - 1)});
    if (n <= 264) return Octets({0x08, unsigned(n - 9)});
    return Octets({0x0C}) + Be32(n - 265);
}

inline Bytes LenOnSeventhBit(std::uint64_t n)
{
    if (n <= 2) return Octets({unsigned(n - 1)});
    if (n <= 258) return Octets({0x02, unsigned(n - 3)});
    return Octets({0x03}) + Be32(n - 259);
}

inline Bytes SequenceLength(std::uint32_t n)
{
    if (n <= 128) return Octets({n - 1});
    const std::uint32_t w = n - 129;
    return Octets({0x80 | (w >> 16), (w >> 8) & 0xFF, w & 0xFF});
}

inline Bytes Or(Bytes form, unsigned int bits)
{
    form[0] = static_cast<char>(static_cast<unsigned char>(form[0]) | bits);
    return form;
}

// IdentifyingStringOrIndex: a literal UTF-8 string or an index.
inline Bytes Identifier(const std::string& text) { return LenOnSecondBit(text.size()) + text; }
inline Bytes IdentifierIndex(std::uint32_t index) { return Or(IntOnSecondBit(index), 0x80); }

// A character chunk (starts with bits 10) and an attribute value, each in one of the four
// string kinds: 0 UTF-8, 1 UTF-16, 2 restricted alphabet, 3 encoding algorithm; field is
// the table index minus one for the last two.
inline Bytes Chunk(unsigned int kind, unsigned int field, const Bytes& payload, bool add = false)
{
    const unsigned int first = 0x80 | (add ? 0x10 : 0) | (kind << 2);
    const Bytes length = LenOnSeventhBit(payload.size());
    if (kind < 2) return Or(length, first) + payload;
    return Octets({first | (field >> 6)}) + Or(length, (field & 0x3F) << 2) + payload;
}

inline Bytes Value(unsigned int kind, unsigned int field, const Bytes& payload, bool add = false)
{
    const unsigned int first = (add ? 0x40 : 0) | (kind << 4);
    const Bytes length = LenOnFifthBit(payload.size());
    if (kind < 2) return Or(length, first) + payload;
    return Octets({first | (field >> 4)}) + Or(length, (field & 0x0F) << 4) + payload;
}

inline const Bytes kHeader = Octets({0xE0, 0x00, 0x00, 0x01, 0x00});

// A document holding only <r> with body as its content: header, body, end of <r> and
// of the document.
inline Bytes Root(const Bytes& body) { return kHeader + Octets({0x3C}) + Identifier("r") + body + Octets({0xFF}); }

inline void Load(OrvexXmlLib5::CXmlDocument& document, const Bytes& bytes)
{
    document.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                           static_cast<unsigned long>(bytes.size()));
}

}  // namespace FiBytes
