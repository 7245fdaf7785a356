// The library's byte buffer: copies share one reference-counted holder and a
// write takes a private copy first. Also the conversions of library text to bytes.
// The text forms (hex, base64, typed lists) and compression are defined in
// BinaryDataEncoding.cpp.
#pragma once

#include "orvexxml/Export.h"

#include <cstddef>
#include <string>

#include "orvexxml/frame/CompressionType.h"
#include "orvexxml/xml/XmlEnums.h"

namespace OrvexXmlLib5 {

// Text forms of GetAsString. 1 to 9 are the numbers of the built-in encoding
// algorithms of Fast Infoset, so that a reader can pass the number on; the item
// encodings read each item most significant octet first.
enum ByteEncoding : int
{
    ByteEncoding_Text = 0,     // the bytes unchanged
    ByteEncoding_Hex = 1,      // two upper-case digits per byte
    ByteEncoding_Base64 = 2,   // base64 with padding, one line
    ByteEncoding_Short = 3,    // signed 16-bit integers
    ByteEncoding_Int = 4,      // signed 32-bit integers
    ByteEncoding_Long = 5,     // signed 64-bit integers
    ByteEncoding_Boolean = 6,  // a bit list; the first half octet counts the unused bits at the end
    ByteEncoding_Float = 7,    // IEEE 754 single precision
    ByteEncoding_Double = 8,   // IEEE 754 double precision
    ByteEncoding_Uuid = 9      // 16 octets as 32 upper-case digits
};

// Shared storage of CBinaryData. A count of 1 means one owner, who may change it
// in place; a holder with a count above 1 is never changed.
struct ORVEXXML_API CDataHolder
{
    // The bytes, allocated with new[]; may be null when the length is 0.
    unsigned char* data;
    // Bytes in use.
    unsigned long length;
    // Bytes allocated.
    unsigned long capacity;
    // Number of CBinaryData objects sharing the holder.
    long refCount;

    // Gives the data array away; fails with "Failed to release data. [RefCount=%d]"
    // while the holder is shared.
    unsigned char* ReleaseData();
};

// A byte buffer. Copies share the bytes and a write first takes a private copy, so
// copying is cheap; an empty object has no holder at all. Also the text forms of
// bytes (hex, base64, typed lists) and compression.
class ORVEXXML_API CBinaryData
{
public:
    CBinaryData() : m_holder(nullptr) {}
    // Shares the bytes of other.
    CBinaryData(const CBinaryData& other);
    // With takeOwnership the array (from new[]) becomes the holder's; otherwise it is copied.
    CBinaryData(unsigned char* const data, unsigned long length, bool takeOwnership);
    // The bytes of text without the terminator; a null text gives a holder of length 0.
    CBinaryData(const char* text);
    ~CBinaryData() { Clear(); }

    // Shares the bytes of other and lets go of its own.
    CBinaryData& operator=(const CBinaryData& other);

    // Releases the holder; the object is then empty with a null holder.
    void Clear();

    // Null for an empty object; writing through it also changes every sharer.
    unsigned char* GetData() const { return m_holder ? m_holder->data : nullptr; }
    // Number of bytes; 0 for an empty object.
    unsigned long GetLength() const { return m_holder ? m_holder->length : 0; }
    // The bytes unchanged, NUL bytes included; empty for an empty object.
    std::string GetString() const;
    // Fails with "Index Out of range [%d]" at or beyond the length.
    const unsigned char& operator[](unsigned int index) const;
    // The same check; the holder is made private first, as the byte may be written.
    unsigned char& operator[](unsigned int index);

    // A null holder equals only a null holder, even one of length 0 does not.
    bool operator==(const CBinaryData& other) const;
    // The negation of operator==.
    bool operator!=(const CBinaryData& other) const { return !(*this == other); }

    // Replaces the contents with a copy of length bytes; a null data gives zeros.
    void SetBuffer(unsigned char* const data, unsigned long length);
    // Replaces the contents with a copy of text without the terminator; null gives length 0.
    void SetBuffer(const char* text);
    // Appends a copy of length bytes, taking a private holder first.
    void Append(unsigned char* const data, unsigned long length);
    // Appends the bytes of text without the terminator; null appends nothing.
    void Append(const char* text);
    // Appends the bytes of other.
    void Append(const CBinaryData& other);
    // Appends one byte.
    void Append(unsigned char byte);
    // The caller owns the result (delete[]); the object keeps a holder of length 0.
    // Null when the object was empty.
    unsigned char* ReleaseData();

    // Creates or replaces the file; UTF-16 encodings put FF FE first. Fails with
    // "Failed to write data to the file [%s] error [0x%08X]" and errno.
    void ToFile(const char* fileName, XmlEncoding encoding) const;

    // Bytes allocated by the holder; 0 for an empty object.
    unsigned long GetCapacity() const { return m_holder ? m_holder->capacity : 0; }

    // Two upper-case digits per byte, no separators; empty for an empty object.
    std::string GetAsHexString() const;
    // Digits of either case, in pairs, nothing skipped. Fails with "Invalid char in hex
    // string [%c]" on the first non-digit, or the terminator after an odd count; the old
    // contents then stay. Empty or null text gives a holder of length 0.
    void SetAsHexString(const char* text);
    // Padded base64 in one line; empty for an empty object.
    std::string GetAsBase64() const;
    // Never fails: '=' is skipped wherever it stands, and any other character outside the
    // alphabet, white space included, gives a holder of length 0. Bits that make no whole
    // byte at the end are dropped.
    void SetAsBase64(const char* text);
    // The bytes as text in the given form, items joined with one blank. Empty for an empty
    // object whatever the encoding, and for a holder of length 0. Fails with "Unknown byte
    // encoding." outside 0 to 9 and with "Invalid value [%c] for INT byte encoding." (and
    // likewise) when the length is no multiple of the item size.
    std::string GetAsString(ByteEncoding encoding) const;
    // Compresses this object's bytes in place at level 1 and returns an object sharing
    // them; Compression_None changes nothing. Fails with "Failed to compress data. [Error
    // Code: %d]" when the result would be longer than the input, which then stays as it was.
    CBinaryData CompressData(CompressionType type);

protected:
    // Makes the holder private to this object when it is shared.
    void GetExclusiveDataHolder();
    // Hex text of any bytes; null data gives an empty string.
    static std::string GetAsHexString(unsigned char* const data, unsigned long length);

private:
    static CDataHolder* NewCopyingHolder(const unsigned char* data, unsigned long length);
    static void ReleaseHolder(CDataHolder* holder);
    void AppendBytes(const unsigned char* data, unsigned long length);
    // Replaces the holder by one that owns data (from new[]), capacity equal to length.
    // On failure data is freed and the object keeps its old holder.
    void TakeOver(unsigned char* data, unsigned long length);

    CDataHolder* m_holder;
};

// Library text (local encoding) to UTF-8 bytes, no terminator. A lone surrogate
// in the text gives an empty result.
ORVEXXML_API CBinaryData LocalToUtf8Bytes(const char* text, std::size_t length);
// The same for a std::string.
ORVEXXML_API CBinaryData LocalToUtf8Bytes(const std::string& text);
// Library text to UTF-16 little-endian bytes, no terminator, no byte order mark.
ORVEXXML_API CBinaryData LocalToUtf16Bytes(const char* text, std::size_t length);
// The same for a std::string.
ORVEXXML_API CBinaryData LocalToUtf16Bytes(const std::string& text);
// Zero-terminated UTF-16 text to UTF-8 bytes; a lone surrogate gives an empty result.
ORVEXXML_API CBinaryData WideToUtf8Bytes(const char16_t* text);
// The same for length units, which may include zeros.
ORVEXXML_API CBinaryData WideToUtf8Bytes(const char16_t* text, std::size_t length);
// The same for zero-terminated UTF-16 text in unsigned short units.
ORVEXXML_API CBinaryData WideToUtf8Bytes(const unsigned short* text);

}  // namespace OrvexXmlLib5
