#include "orvexxml/data/detail/ByteCodecs.h"

#include <algorithm>
#include <cstring>
#include <zlib.h>

namespace OrvexXmlLib5 {
namespace Detail {

const char HexDigits[17] = "0123456789ABCDEF";
const char Base64Alphabet[65] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

namespace {

constexpr unsigned char NoHexDigit = 0xFF;
constexpr signed char Base64Skip = -1;
constexpr signed char Base64Stop = -2;

constexpr std::uint32_t NotInAlphabet = 0xFF000000;

struct CodecTables
{
    char hexPairs[512];            // the two digits of every byte value
    char base64Pairs[8192];        // the two characters of every 12-bit group
    unsigned char hexValue[256];   // 0 to 15, or NoHexDigit
    signed char base64Value[128];  // 0 to 63, Base64Skip for '=', else Base64Stop
    // base64Value shifted to its place in a group of four characters; anything
    // outside the alphabet, '=' included, sets the top byte.
    std::uint32_t base64Shifted[4][128];

    CodecTables()
    {
        for (int b = 0; b < 256; ++b) {
            hexPairs[2 * b] = HexDigits[b >> 4];
            hexPairs[2 * b + 1] = HexDigits[b & 0xF];
            hexValue[b] = NoHexDigit;
        }
        for (int g = 0; g < 4096; ++g) {
            base64Pairs[2 * g] = Base64Alphabet[g >> 6];
            base64Pairs[2 * g + 1] = Base64Alphabet[g & 0x3F];
        }
        for (int d = 0; d < 10; ++d) hexValue['0' + d] = static_cast<unsigned char>(d);
        for (int d = 0; d < 6; ++d) {
            hexValue['A' + d] = static_cast<unsigned char>(10 + d);
            hexValue['a' + d] = static_cast<unsigned char>(10 + d);
        }
        std::memset(base64Value, Base64Stop, sizeof base64Value);
        for (int v = 0; v < 64; ++v)
            base64Value[static_cast<unsigned char>(Base64Alphabet[v])] = static_cast<signed char>(v);
        base64Value[static_cast<unsigned char>('=')] = Base64Skip;
        for (int c = 0; c < 128; ++c)
            for (int k = 0; k < 4; ++k)
                base64Shifted[k][c] =
                    base64Value[c] < 0 ? NotInAlphabet : std::uint32_t(base64Value[c]) << (6 * (3 - k));
    }
};

const CodecTables& Tables()
{
    static const CodecTables tables;
    return tables;
}

}  // namespace

void HexEncode(const unsigned char* data, std::size_t length, char* out)
{
    const char* pairs = Tables().hexPairs;
    for (std::size_t i = 0; i < length; ++i) std::memcpy(out + 2 * i, pairs + 2 * data[i], 2);
}

bool HexDecode(const char* text, std::size_t length, unsigned char* out, char& badChar)
{
    const unsigned char* value = Tables().hexValue;
    const auto* in = reinterpret_cast<const unsigned char*>(text);
    const std::size_t pairs = length / 2;
    for (std::size_t i = 0; i < pairs; ++i) {
        const unsigned char high = value[in[2 * i]];
        const unsigned char low = value[in[2 * i + 1]];
        if ((high | low) & 0xF0) {
            badChar = text[high == NoHexDigit ? 2 * i : 2 * i + 1];
            return false;
        }
        out[i] = static_cast<unsigned char>(high << 4 | low);
    }
    if (length % 2 != 0) {
        // The last digit pairs with the terminator, unless it is no digit itself.
        badChar = value[in[length - 1]] == NoHexDigit ? text[length - 1] : '\0';
        return false;
    }
    return true;
}

void CBase64Codec::Encode(char* out)
{
    const char* pairs = Tables().base64Pairs;
    const unsigned char* s = source;
    std::size_t left = sourceLength;
    while (left >= 3) {
        const std::uint32_t group = std::uint32_t(s[0]) << 16 | std::uint32_t(s[1]) << 8 | s[2];
        std::memcpy(out, pairs + 2 * (group >> 12), 2);
        std::memcpy(out + 2, pairs + 2 * (group & 0xFFF), 2);
        s += 3;
        out += 4;
        left -= 3;
    }
    if (left > 0) {
        const std::uint32_t group = std::uint32_t(s[0]) << 16 | (left == 2 ? std::uint32_t(s[1]) << 8 : 0);
        out[0] = Base64Alphabet[group >> 18];
        out[1] = Base64Alphabet[(group >> 12) & 0x3F];
        out[2] = left == 2 ? Base64Alphabet[(group >> 6) & 0x3F] : '=';
        out[3] = '=';
    }
}

std::size_t CBase64Codec::Decode(unsigned char* out)
{
    const CodecTables& tables = Tables();
    const signed char* value = tables.base64Value;
    const auto& shifted = tables.base64Shifted;
    unsigned char* o = out;
    const unsigned char* p = source;
    const unsigned char* const end = source + sourceLength;
    bitsHeld = 0;
    accumulator = 0;
    while (p < end) {
        // Whole groups of four alphabet characters on a byte boundary: the usual case.
        if (bitsHeld == 0) {
            while (end - p >= 4) {
                const std::uint32_t group = shifted[0][p[0] & 0x7F] | shifted[1][p[1] & 0x7F] |
                                            shifted[2][p[2] & 0x7F] | shifted[3][p[3] & 0x7F];
                if (group & NotInAlphabet) break;
                o[0] = static_cast<unsigned char>(group >> 16);
                o[1] = static_cast<unsigned char>(group >> 8);
                o[2] = static_cast<unsigned char>(group);
                o += 3;
                p += 4;
            }
            if (p == end) break;
        }
        const int v = value[*p++ & 0x7F];
        if (v == Base64Stop) return 0;
        if (v == Base64Skip) continue;
        accumulator = accumulator << 6 | std::uint32_t(v);
        bitsHeld += 6;
        if (bitsHeld >= 8) {
            bitsHeld -= 8;
            *o++ = static_cast<unsigned char>(accumulator >> bitsHeld);
            accumulator &= (1u << bitsHeld) - 1;
        }
    }
    return static_cast<std::size_t>(o - out);
}

int DeflateInto(const unsigned char* in, std::size_t inLength, unsigned char* out, std::size_t outCapacity, bool gzip,
                std::size_t& written, std::size_t chunkLimit)
{
    chunkLimit = std::min<std::size_t>(std::max<std::size_t>(chunkLimit, 1), UINT_MAX);
    z_stream stream;
    std::memset(&stream, 0, sizeof stream);
    if (gzip)
        deflateInit2(&stream, 1, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
    else
        deflateInit(&stream, 1);

    // zlib sees at most chunkLimit bytes on either side per call; the rest waits here.
    std::size_t inRest = inLength;
    std::size_t outRest = outCapacity;
    stream.next_in = const_cast<Bytef*>(in);
    stream.next_out = out;
    auto refill = [&] {
        if (stream.avail_in == 0 && inRest > 0) {
            stream.avail_in = static_cast<uInt>(std::min(inRest, chunkLimit));
            inRest -= stream.avail_in;
        }
        if (stream.avail_out == 0 && outRest > 0) {
            stream.avail_out = static_cast<uInt>(std::min(outRest, chunkLimit));
            outRest -= stream.avail_out;
        }
    };

    // With buffers that fit one call, this is exactly one deflate without flushing
    // and one finishing deflate, whose result tells whether the output fitted.
    int result;
    for (;;) {
        refill();
        result = deflate(&stream, Z_NO_FLUSH);
        if (result != Z_OK) break;
        const bool moreIn = stream.avail_in > 0 || inRest > 0;
        const bool roomOut = stream.avail_out > 0 || outRest > 0;
        if (!moreIn || !roomOut) break;
    }
    for (;;) {
        refill();
        if (inRest > 0) {
            // Finishing now would cut the input short: the output is full.
            result = Z_BUF_ERROR;
            break;
        }
        result = deflate(&stream, Z_FINISH);
        if (result != Z_OK || stream.avail_out > 0 || outRest == 0) break;
    }
    written = static_cast<std::size_t>(stream.total_out);
    deflateEnd(&stream);
    return result;
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
