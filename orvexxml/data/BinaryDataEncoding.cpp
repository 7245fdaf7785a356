// CBinaryData's text forms (hex, base64, the typed lists of GetAsString) and its
// compression. The codecs themselves are in detail/ByteCodecs.
#include "orvexxml/data/BinaryData.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <zlib.h>

#include "orvexxml/data/detail/ByteCodecs.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/values/Conversions.h"

namespace OrvexXmlLib5 {

namespace {

struct ItemForm
{
    unsigned size;              // octets per item
    unsigned typicalWidth;      // characters per item and blank, to reserve the result
    const char* lengthFailure;  // takes the first byte of the data
};

// Indexed by the item encodings, ByteEncoding_Short to ByteEncoding_Uuid; the
// boolean bit list has no item size.
const ItemForm ItemForms[] = {
    {2, 7, "Invalid value [%c] for SHORT byte encoding."},  {4, 12, "Invalid value [%c] for INT byte encoding."},
    {8, 21, "Invalid value [%c] for LONG byte encoding."},  {0, 6, nullptr},
    {4, 15, "Invalid value [%c] for FLOAT byte encoding."}, {8, 24, "Invalid value [%c] for DOUBLE byte encoding."},
    {16, 33, "Invalid value [%c] for UUID byte encoding."},
};

std::uint64_t ReadBigEndian(const unsigned char* p, unsigned size)
{
    std::uint64_t value = 0;
    for (unsigned i = 0; i < size; ++i) value = value << 8 | p[i];
    return value;
}

template <typename Integer>
void AppendInteger(std::string& out, Integer value)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out.append(digits, end);
}

void AppendItem(std::string& out, ByteEncoding encoding, const unsigned char* item)
{
    switch (encoding) {
        case ByteEncoding_Short:
            AppendInteger(out, static_cast<std::int16_t>(ReadBigEndian(item, 2)));
            break;
        case ByteEncoding_Int:
            AppendInteger(out, static_cast<std::int32_t>(ReadBigEndian(item, 4)));
            break;
        case ByteEncoding_Long:
            AppendInteger(out, static_cast<std::int64_t>(ReadBigEndian(item, 8)));
            break;
        case ByteEncoding_Float: {
            const auto bits = static_cast<std::uint32_t>(ReadBigEndian(item, 4));
            float value;
            std::memcpy(&value, &bits, sizeof value);
            out += CConversions::r4ToString(value, nullptr);
            break;
        }
        case ByteEncoding_Double: {
            const std::uint64_t bits = ReadBigEndian(item, 8);
            double value;
            std::memcpy(&value, &bits, sizeof value);
            out += CConversions::r8ToString(value, nullptr);
            break;
        }
        default: {  // ByteEncoding_Uuid
            const std::size_t at = out.size();
            out.resize(at + 32);
            Detail::HexEncode(item, 16, &out[at]);
            break;
        }
    }
}

// The bit list: the high half of the first octet counts the unused bits of the last
// octet, and the values start in the low half of the first octet.
std::string BitListText(const unsigned char* data, std::size_t length)
{
    const std::string trueText = CConversions::booleanToString(true);
    const std::string falseText = CConversions::booleanToString(false);
    const std::size_t bits = 4 + 8 * (length - 1);
    const std::size_t unused = data[0] >> 4;
    const std::size_t count = bits > unused ? bits - unused : 0;
    std::string out;
    out.reserve(count * 6);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t position = i + 4;
        const bool value = (data[position / 8] >> (7 - position % 8)) & 1;
        if (i > 0) out += ' ';
        out += value ? trueText : falseText;
    }
    return out;
}

}  // namespace

void CBinaryData::TakeOver(unsigned char* data, unsigned long length)
{
    CDataHolder* fresh = new (std::nothrow) CDataHolder{data, length, length, 1};
    if (!fresh) {
        delete[] data;
        throw std::bad_alloc();
    }
    ReleaseHolder(m_holder);
    m_holder = fresh;
}

std::string CBinaryData::GetAsHexString(unsigned char* const data, unsigned long length)
{
    if (data == nullptr || length == 0) return std::string();
    std::string text(2 * static_cast<std::size_t>(length), '\0');
    Detail::HexEncode(data, length, &text[0]);
    return text;
}

std::string CBinaryData::GetAsHexString() const
{
    return GetAsHexString(GetData(), GetLength());
}

void CBinaryData::SetAsHexString(const char* text)
{
    const std::size_t length = text ? std::strlen(text) : 0;
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[length / 2 + 1]);
    char badChar = '\0';
    if (length > 0 && !Detail::HexDecode(text, length, bytes.get(), badChar))
        throw COrvexException(FormatString("Invalid char in hex string [%c]", badChar));
    TakeOver(bytes.release(), static_cast<unsigned long>(length / 2));
}

std::string CBinaryData::GetAsBase64() const
{
    const unsigned long length = GetLength();
    if (length == 0 || GetData() == nullptr) return std::string();
    Detail::CBase64Codec codec(GetData(), length);
    std::string text(Detail::CBase64Codec::EncodedLength(length), '\0');
    codec.Encode(&text[0]);
    return text;
}

void CBinaryData::SetAsBase64(const char* text)
{
    const std::size_t length = text ? std::strlen(text) : 0;
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[Detail::CBase64Codec::DecodedCapacity(length)]);
    Detail::CBase64Codec codec(text, length);
    const std::size_t decoded = codec.Decode(bytes.get());
    // A text that decoded to nothing need not keep an array of its own size.
    if (decoded == 0 && length > 0) bytes.reset(new unsigned char[1]);
    TakeOver(bytes.release(), static_cast<unsigned long>(decoded));
}

std::string CBinaryData::GetAsString(ByteEncoding encoding) const
{
    if (m_holder == nullptr) return std::string();
    switch (encoding) {
        case ByteEncoding_Text:
            return GetString();
        case ByteEncoding_Hex:
            return GetAsHexString();
        case ByteEncoding_Base64:
            return GetAsBase64();
        default:
            break;
    }
    if (encoding < ByteEncoding_Short || encoding > ByteEncoding_Uuid) throw COrvexException("Unknown byte encoding.");

    const unsigned char* data = m_holder->data;
    const std::size_t length = data ? m_holder->length : 0;
    if (length == 0) return std::string();
    if (encoding == ByteEncoding_Boolean) return BitListText(data, length);

    const ItemForm& form = ItemForms[encoding - ByteEncoding_Short];
    if (length % form.size != 0) throw COrvexException(FormatString(form.lengthFailure, static_cast<char>(data[0])));
    const std::size_t count = length / form.size;
    std::string out;
    out.reserve(count * form.typicalWidth);
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) out += ' ';
        AppendItem(out, encoding, data + i * form.size);
    }
    return out;
}

CBinaryData CBinaryData::CompressData(CompressionType type)
{
    GetExclusiveDataHolder();
    if (m_holder && m_holder->refCount > 1)
        throw COrvexException(
            FormatString("Failed to compress data. [RefCount=%d]", static_cast<int>(m_holder->refCount)));
    if (type == Compression_GZIP || type == Compression_ZLIB) {
        // The output may be no longer than the input; an empty object counts as 0
        // bytes, which no wrapper fits into.
        const unsigned long length = GetLength();
        std::unique_ptr<unsigned char[]> out(new unsigned char[length]);
        std::size_t written = 0;
        const int result = Detail::DeflateInto(GetData(), length, out.get(), length, type == Compression_GZIP, written);
        if (result != Z_STREAM_END || m_holder == nullptr)
            throw COrvexException(FormatString("Failed to compress data. [Error Code: %d]", result));
        delete[] m_holder->data;
        m_holder->data = out.release();
        m_holder->length = static_cast<unsigned long>(written);
        m_holder->capacity = length;
    }
    return *this;
}

}  // namespace OrvexXmlLib5
