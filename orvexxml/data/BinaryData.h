// The library's byte buffer: copies share one reference-counted holder and a
// write takes a private copy first. Also the conversions of library text to bytes.
#pragma once

#include <cstddef>
#include <string>

#include "orvexxml/xml/XmlEnums.h"

namespace OrvexXmlLib5 {

// Shared storage of CBinaryData. A count of 1 means one owner, who may change it
// in place; a holder with a count above 1 is never changed.
struct CDataHolder
{
    unsigned char* data;
    unsigned long length;
    unsigned long capacity;
    long refCount;

    // Gives the data array away; fails with "Failed to release data. [RefCount=%d]"
    // while the holder is shared.
    unsigned char* ReleaseData();
};

class CBinaryData
{
public:
    CBinaryData() : m_holder(nullptr) {}
    CBinaryData(const CBinaryData& other);
    // With takeOwnership the array (from new[]) becomes the holder's; otherwise it is copied.
    CBinaryData(unsigned char* const data, unsigned long length, bool takeOwnership);
    // The bytes of text without the terminator; a null text gives a holder of length 0.
    CBinaryData(const char* text);
    ~CBinaryData() { Clear(); }

    CBinaryData& operator=(const CBinaryData& other);

    // Releases the holder; the object is then empty with a null holder.
    void Clear();

    // Null for an empty object; writing through it also changes every sharer.
    unsigned char* GetData() const { return m_holder ? m_holder->data : nullptr; }
    unsigned long GetLength() const { return m_holder ? m_holder->length : 0; }
    // The bytes unchanged, NUL bytes included; empty for an empty object.
    std::string GetString() const;
    // Fails with "Index Out of range [%d]" at or beyond the length.
    const unsigned char& operator[](unsigned int index) const;
    unsigned char& operator[](unsigned int index);

    // A null holder equals only a null holder, even one of length 0 does not.
    bool operator==(const CBinaryData& other) const;
    bool operator!=(const CBinaryData& other) const { return !(*this == other); }

    // Replaces the contents with a copy of length bytes; a null data gives zeros.
    void SetBuffer(unsigned char* const data, unsigned long length);
    void SetBuffer(const char* text);
    void Append(unsigned char* const data, unsigned long length);
    void Append(const char* text);
    void Append(const CBinaryData& other);
    void Append(unsigned char byte);
    // The caller owns the result (delete[]); the object keeps a holder of length 0.
    // Null when the object was empty.
    unsigned char* ReleaseData();

    // Creates or replaces the file; UTF-16 encodings put FF FE first. Fails with
    // "Failed to write data to the file [%s] error [0x%08X]" and errno.
    void ToFile(const char* fileName, XmlEncoding encoding) const;

    // Bytes allocated by the holder; 0 for an empty object.
    unsigned long GetCapacity() const { return m_holder ? m_holder->capacity : 0; }

protected:
    // Makes the holder private to this object when it is shared.
    void GetExclusiveDataHolder();

private:
    static CDataHolder* NewCopyingHolder(const unsigned char* data, unsigned long length);
    static void ReleaseHolder(CDataHolder* holder);
    void AppendBytes(const unsigned char* data, unsigned long length);

    CDataHolder* m_holder;
};

// Library text (local encoding) to UTF-8 bytes, no terminator. A lone surrogate
// in the text gives an empty result.
CBinaryData LocalToUtf8Bytes(const char* text, std::size_t length);
CBinaryData LocalToUtf8Bytes(const std::string& text);
// Library text to UTF-16 little-endian bytes, no terminator, no byte order mark.
CBinaryData LocalToUtf16Bytes(const char* text, std::size_t length);
CBinaryData LocalToUtf16Bytes(const std::string& text);
// Zero-terminated UTF-16 text to UTF-8 bytes; a lone surrogate gives an empty result.
CBinaryData WideToUtf8Bytes(const char16_t* text);
CBinaryData WideToUtf8Bytes(const char16_t* text, std::size_t length);
CBinaryData WideToUtf8Bytes(const unsigned short* text);

}  // namespace OrvexXmlLib5
