// The octet forms of integers and string lengths that the Fast Infoset writer
// lays down: each takes the bits already set in the first octet.
#pragma once

#include <cstdint>
#include <string>

namespace OrvexXmlLib5 {
namespace Detail {

inline void Put(std::string& out, unsigned int octet)
{
    out.push_back(static_cast<char>(static_cast<unsigned char>(octet)));
}

// Length octets after the first: a value in 1, 2, 3 or 4 octets, most significant first.
inline void PutBigEndian(std::string& out, std::uint32_t value, int octets)
{
    for (int shift = (octets - 1) * 8; shift >= 0; shift -= 8) Put(out, (value >> shift) & 0xFF);
}

// Integers from 1 to 2^20, starting on the second, third or fourth bit.
inline void WriteIntegerOnSecondBit(std::string& out, unsigned char bits, std::uint32_t value)
{
    if (value <= 64) {
        Put(out, bits | (value - 1));
    } else if (value <= 8256) {
        const std::uint32_t v = value - 65;
        Put(out, bits | 0x40 | (v >> 8));
        Put(out, v & 0xFF);
    } else {
        const std::uint32_t v = value - 8257;
        Put(out, bits | 0x60 | (v >> 16));
        PutBigEndian(out, v & 0xFFFF, 2);
    }
}

inline void WriteIntegerOnThirdBit(std::string& out, unsigned char bits, std::uint32_t value)
{
    if (value <= 32) {
        Put(out, bits | (value - 1));
    } else if (value <= 2080) {
        const std::uint32_t v = value - 33;
        Put(out, bits | 0x20 | (v >> 8));
        Put(out, v & 0xFF);
    } else if (value <= 526368) {
        const std::uint32_t v = value - 2081;
        Put(out, bits | 0x28 | (v >> 16));
        PutBigEndian(out, v & 0xFFFF, 2);
    } else {
        Put(out, bits | 0x30);
        PutBigEndian(out, (value - 526369) & 0x0FFFFF, 3);
    }
}

inline void WriteIntegerOnFourthBit(std::string& out, unsigned char bits, std::uint32_t value)
{
    if (value <= 16) {
        Put(out, bits | (value - 1));
    } else if (value <= 1040) {
        const std::uint32_t v = value - 17;
        Put(out, bits | 0x10 | (v >> 8));
        Put(out, v & 0xFF);
    } else if (value <= 263184) {
        const std::uint32_t v = value - 1041;
        Put(out, bits | 0x14 | (v >> 16));
        PutBigEndian(out, v & 0xFFFF, 2);
    } else {
        Put(out, bits | 0x18);
        PutBigEndian(out, (value - 263185) & 0x0FFFFF, 3);
    }
}

// Lengths and UTF-8 octets of strings, the length starting on the second, fifth or
// seventh bit. The length is at least 1: empty names, values and chunks never
// reach them.
inline void WriteStringOnSecondBit(std::string& out, unsigned char bits, const std::string& utf8)
{
    const std::uint32_t length = static_cast<std::uint32_t>(utf8.size());
    if (length <= 64) {
        Put(out, bits | ((length - 1) & 0x3F));
    } else if (length <= 320) {
        Put(out, bits | 0x40);
        Put(out, length - 65);
    } else {
        Put(out, bits | 0x60);
        PutBigEndian(out, length - 321, 4);
    }
    out.append(utf8);
}

inline void WriteStringOnFifthBit(std::string& out, unsigned char bits, const std::string& utf8)
{
    const std::uint32_t length = static_cast<std::uint32_t>(utf8.size());
    if (length <= 8) {
        Put(out, bits | ((length - 1) & 0x07));
    } else if (length <= 264) {
        Put(out, bits | 0x08);
        Put(out, length - 9);
    } else {
        Put(out, bits | 0x0C);
        PutBigEndian(out, length - 265, 4);
    }
    out.append(utf8);
}

inline void WriteStringOnSeventhBit(std::string& out, unsigned char bits, const std::string& utf8)
{
    const std::uint32_t length = static_cast<std::uint32_t>(utf8.size());
    if (length <= 2) {
        Put(out, bits | ((length - 1) & 0x01));
    } else if (length <= 258) {
        Put(out, bits | 0x02);
        Put(out, length - 3);
    } else {
        Put(out, bits | 0x03);
        PutBigEndian(out, length - 259, 4);
    }
    out.append(utf8);
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
