// The hex and base64 decoders against plain one-character-at-a-time versions of the
// same rules, and the typed-list forms and compression of arbitrary bytes: every call
// either gives a result or throws from the COrvexException family.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/frame/OrvexException.h"

using namespace OrvexXmlLib5;

namespace {

int HexValue(unsigned char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

// False when the text is refused.
bool ReferenceHex(const std::string& text, std::string& out)
{
    if (text.size() % 2) return false;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = HexValue(text[i]), low = HexValue(text[i + 1]);
        if (high < 0 || low < 0) return false;
        out += static_cast<char>(high << 4 | low);
    }
    return true;
}

std::string ReferenceBase64(const std::string& text)
{
    static const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    std::uint32_t accumulator = 0;
    int bits = 0;
    for (unsigned char c : text) {
        c &= 0x7F;
        if (c == '=') continue;
        const char* at = c ? std::strchr(alphabet, c) : nullptr;
        if (at == nullptr) return std::string();
        accumulator = accumulator << 6 | static_cast<std::uint32_t>(at - alphabet);
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            out += static_cast<char>((accumulator >> bits) & 0xFF);
        }
    }
    return out;
}

void Check(bool condition)
{
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::string text(bytes.c_str());  // the decoders read up to the first zero byte
    CBinaryData raw(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                    static_cast<unsigned long>(bytes.size()), false);

    CBinaryData hex("old");
    std::string expected;
    const bool valid = ReferenceHex(text, expected);
    try {
        hex.SetAsHexString(text.c_str());
        Check(valid && hex.GetString() == expected);
    } catch (const COrvexException&) {
        Check(!valid && hex.GetString() == "old");
    }

    CBinaryData base64;
    base64.SetAsBase64(text.c_str());
    Check(base64.GetString() == ReferenceBase64(text));
    CBinaryData again;
    again.SetAsBase64(raw.GetAsBase64().c_str());
    Check(again == raw);
    again.SetAsHexString(raw.GetAsHexString().c_str());
    Check(again == raw);

    try {
        (void)raw.GetAsString(static_cast<ByteEncoding>(data[0] % 12));
    } catch (const COrvexException&) {
    }
    if (data[0] & 0x80) {
        try {
            CBinaryData packed(raw);
            packed.CompressData(data[0] & 0x40 ? Compression_GZIP : Compression_ZLIB);
            Check(packed.GetLength() <= raw.GetLength() && raw.GetString() == bytes);
        } catch (const COrvexException&) {
        }
    }
    return 0;
}
