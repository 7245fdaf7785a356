#include "orvexxml/data/BinaryData.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/platform/CodePage.h"

namespace OrvexXmlLib5 {

namespace {

constexpr unsigned long MinimumCapacity = 4096;

[[noreturn]] void ThrowWriteFailure(const char* fileName, int error)
{
    throw COrvexException(
        FormatString("Failed to write data to the file [%s] error [0x%08X]", fileName, static_cast<unsigned>(error)));
}

// Writes everything, resuming after partial writes and interrupted calls.
bool WriteAll(int fd, const unsigned char* data, std::size_t length)
{
    while (length > 0) {
        ssize_t n = ::write(fd, data, length);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        data += n;
        length -= static_cast<std::size_t>(n);
    }
    return true;
}

// UTF-16 to UTF-8 in two passes, size then bytes. A surrogate that is not part of a
// pair stops the encoder: the size pass gives 0 and the result is empty.
std::size_t Utf8Size(const char16_t* text, std::size_t length)
{
    std::size_t size = 0;
    for (std::size_t i = 0; i < length; ++i) {
        char16_t c = text[i];
        if (c < 0x80) {
            size += 1;
        } else if (c < 0x800) {
            size += 2;
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            if (c > 0xDBFF || i + 1 >= length || text[i + 1] < 0xDC00 || text[i + 1] > 0xDFFF) return 0;
            ++i;
            size += 4;
        } else {
            size += 3;
        }
    }
    return size;
}

void Utf8Encode(const char16_t* text, std::size_t length, unsigned char* out)
{
    for (std::size_t i = 0; i < length; ++i) {
        std::uint32_t c = text[i];
        if (c < 0x80) {
            *out++ = static_cast<unsigned char>(c);
        } else if (c < 0x800) {
            *out++ = static_cast<unsigned char>(0xC0 | (c >> 6));
            *out++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
        } else if (c >= 0xD800 && c <= 0xDBFF) {
            c = ((c - 0xD800) << 10) + (std::uint32_t(text[++i]) - 0xDC00) + 0x10000;
            *out++ = static_cast<unsigned char>(0xF0 | (c >> 18));
            *out++ = static_cast<unsigned char>(0x80 | ((c >> 12) & 0x3F));
            *out++ = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
            *out++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
        } else {
            *out++ = static_cast<unsigned char>(0xE0 | (c >> 12));
            *out++ = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
            *out++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
        }
    }
}

CBinaryData TakeBytes(unsigned char* data, std::size_t length)
{
    return CBinaryData(data, static_cast<unsigned long>(length), true);
}

bool IsAscii(const char* text, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i)
        if (static_cast<unsigned char>(text[i]) >= 0x80) return false;
    return true;
}

}  // namespace

unsigned char* CDataHolder::ReleaseData()
{
    if (refCount > 1) throw COrvexException(FormatString("Failed to release data. [RefCount=%d]", int(refCount)));
    unsigned char* released = data;
    data = nullptr;
    length = 0;
    capacity = 0;
    return released;
}

CDataHolder* CBinaryData::NewCopyingHolder(const unsigned char* data, unsigned long length)
{
    unsigned long capacity = length > MinimumCapacity / 2 ? length * 2 : MinimumCapacity;
    unsigned char* bytes = new unsigned char[capacity];
    if (length > 0) {
        if (data)
            std::memcpy(bytes, data, length);
        else
            std::memset(bytes, 0, length);
    }
    CDataHolder* holder = new (std::nothrow) CDataHolder{bytes, length, capacity, 1};
    if (!holder) {
        delete[] bytes;
        throw std::bad_alloc();
    }
    return holder;
}

void CBinaryData::ReleaseHolder(CDataHolder* holder)
{
    if (holder && --holder->refCount == 0) {
        delete[] holder->data;
        delete holder;
    }
}

CBinaryData::CBinaryData(const CBinaryData& other) : m_holder(other.m_holder)
{
    if (m_holder) ++m_holder->refCount;
}

CBinaryData::CBinaryData(unsigned char* const data, unsigned long length, bool takeOwnership) : m_holder(nullptr)
{
    if (takeOwnership)
        m_holder = data ? new CDataHolder{data, length, length, 1} : new CDataHolder{nullptr, 0, 0, 1};
    else
        m_holder = NewCopyingHolder(data, length);
}

CBinaryData::CBinaryData(const char* text) : m_holder(nullptr)
{
    SetBuffer(text);
}

CBinaryData& CBinaryData::operator=(const CBinaryData& other)
{
    if (m_holder == other.m_holder) return *this;
    CDataHolder* old = m_holder;
    m_holder = other.m_holder;
    if (m_holder) ++m_holder->refCount;
    ReleaseHolder(old);
    return *this;
}

void CBinaryData::Clear()
{
    CDataHolder* old = m_holder;
    m_holder = nullptr;
    ReleaseHolder(old);
}

std::string CBinaryData::GetString() const
{
    if (!m_holder || !m_holder->data) return std::string();
    return std::string(reinterpret_cast<const char*>(m_holder->data), m_holder->length);
}

const unsigned char& CBinaryData::operator[](unsigned int index) const
{
    if (!m_holder || index >= m_holder->length) throw COrvexException(FormatString("Index Out of range [%d]", index));
    return m_holder->data[index];
}

unsigned char& CBinaryData::operator[](unsigned int index)
{
    if (!m_holder || index >= m_holder->length) throw COrvexException(FormatString("Index Out of range [%d]", index));
    GetExclusiveDataHolder();
    return m_holder->data[index];
}

bool CBinaryData::operator==(const CBinaryData& other) const
{
    if (!m_holder || !other.m_holder) return m_holder == other.m_holder;
    if (m_holder->length != other.m_holder->length) return false;
    return m_holder->length == 0 || std::memcmp(m_holder->data, other.m_holder->data, m_holder->length) == 0;
}

void CBinaryData::SetBuffer(unsigned char* const data, unsigned long length)
{
    CDataHolder* fresh = NewCopyingHolder(data, length);
    ReleaseHolder(m_holder);
    m_holder = fresh;
}

void CBinaryData::SetBuffer(const char* text)
{
    unsigned long length = text ? static_cast<unsigned long>(std::strlen(text)) : 0;
    SetBuffer(reinterpret_cast<unsigned char*>(const_cast<char*>(text)), length);
}

void CBinaryData::GetExclusiveDataHolder()
{
    if (m_holder && m_holder->refCount > 1) {
        CDataHolder* fresh = NewCopyingHolder(m_holder->data, m_holder->length);
        ReleaseHolder(m_holder);
        m_holder = fresh;
    }
}

void CBinaryData::AppendBytes(const unsigned char* data, unsigned long length)
{
    if (!m_holder) {
        m_holder = NewCopyingHolder(data, length);
        return;
    }
    GetExclusiveDataHolder();
    // The source may lie in this very buffer, which growth frees.
    const auto base = reinterpret_cast<std::uintptr_t>(m_holder->data);
    const auto source = reinterpret_cast<std::uintptr_t>(data);
    const bool inside = data && m_holder->data && source >= base && source < base + m_holder->capacity;
    unsigned long newLength = m_holder->length + length;
    if (newLength > m_holder->capacity) {
        unsigned long capacity = newLength * 2;
        unsigned char* bytes = new unsigned char[capacity];
        if (m_holder->length > 0) std::memcpy(bytes, m_holder->data, m_holder->length);
        delete[] m_holder->data;
        m_holder->data = bytes;
        m_holder->capacity = capacity;
        if (inside) data = bytes + (source - base);
    }
    if (length > 0) {
        if (data)
            std::memmove(m_holder->data + m_holder->length, data, length);
        else
            std::memset(m_holder->data + m_holder->length, 0, length);
    }
    m_holder->length = newLength;
}

void CBinaryData::Append(unsigned char* const data, unsigned long length)
{
    AppendBytes(data, length);
}

void CBinaryData::Append(const char* text)
{
    unsigned long length = text ? static_cast<unsigned long>(std::strlen(text)) : 0;
    AppendBytes(reinterpret_cast<const unsigned char*>(text), length);
}

void CBinaryData::Append(const CBinaryData& other)
{
    if (other.GetLength() == 0) {
        if (!m_holder) m_holder = NewCopyingHolder(nullptr, 0);
        return;
    }
    AppendBytes(other.m_holder->data, other.m_holder->length);
}

void CBinaryData::Append(unsigned char byte)
{
    if (m_holder && m_holder->refCount == 1 && m_holder->length < m_holder->capacity) {
        m_holder->data[m_holder->length++] = byte;
        return;
    }
    AppendBytes(&byte, 1);
}

unsigned char* CBinaryData::ReleaseData()
{
    if (!m_holder) return nullptr;
    GetExclusiveDataHolder();
    return m_holder->ReleaseData();
}

namespace {

// A name beside fileName that no other writer uses: the process id and a counter,
// so that two threads or processes writing the same file never share one.
std::string TemporaryName(const char* fileName, unsigned attempt)
{
    static std::atomic<unsigned> counter{0};
    return std::string(fileName) + ".~" + std::to_string(static_cast<long>(::getpid())) + "-" +
           std::to_string(counter.fetch_add(1) + attempt);
}

// Creates a new file for writing: beside target when that works, so that target
// can be replaced in one rename, otherwise target itself. A target that exists and
// is no regular file (a device, a pipe) is always written in place. Gives the
// descriptor and, in temporary, the name written to, which is empty in place.
int CreateOutput(const char* target, std::string& temporary)
{
    temporary.clear();
    struct stat existing;
    const bool exists = ::stat(target, &existing) == 0;
    if (!exists || S_ISREG(existing.st_mode)) {
        for (unsigned attempt = 0; attempt < 8; ++attempt) {
            std::string name = TemporaryName(target, attempt);
            int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (fd >= 0) {
                // A file that is replaced keeps its permission bits.
                if (exists) static_cast<void>(::fchmod(fd, existing.st_mode & 07777));
                temporary = std::move(name);
                return fd;
            }
            if (errno != EEXIST) break;
        }
    }
    // No file could be made beside the target (a directory without write permission,
    // a name at the length limit): write the target directly, as before.
    return ::open(target, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
}

}  // namespace

void CBinaryData::ToFile(const char* fileName, XmlEncoding encoding) const
{
    if (fileName == nullptr) ThrowWriteFailure(fileName, EINVAL);
    std::string temporary;
    int fd = CreateOutput(fileName, temporary);
    if (fd < 0) ThrowWriteFailure(fileName, errno);
    // On any failure the half-written temporary file goes; the target is then as it was.
    auto fail = [&](int error) {
        ::close(fd);
        if (!temporary.empty()) ::unlink(temporary.c_str());
        ThrowWriteFailure(fileName, error);
    };
    if (encoding == Encoding_UTF16 || encoding == Encoding_UTF16_NoDeclaration) {
        static const unsigned char mark[2] = {0xFF, 0xFE};
        if (!WriteAll(fd, mark, 2)) fail(errno);
    }
    if (m_holder && m_holder->length > 0 && !WriteAll(fd, m_holder->data, m_holder->length)) fail(errno);
    if (::close(fd) != 0 && errno != EINTR) {
        const int error = errno;
        if (!temporary.empty()) ::unlink(temporary.c_str());
        ThrowWriteFailure(fileName, error);
    }
    if (!temporary.empty() && ::rename(temporary.c_str(), fileName) != 0) {
        const int error = errno;
        ::unlink(temporary.c_str());
        ThrowWriteFailure(fileName, error);
    }
}

CBinaryData WideToUtf8Bytes(const char16_t* text, std::size_t length)
{
    if (text == nullptr || length == 0) return CBinaryData();
    std::size_t size = 0;
    bool ascii = true;
    for (std::size_t i = 0; i < length; ++i)
        if (text[i] >= 0x80) {
            ascii = false;
            break;
        }
    size = ascii ? length : Utf8Size(text, length);
    if (size == 0) return CBinaryData();
    unsigned char* bytes = new unsigned char[size];
    if (ascii) {
        for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<unsigned char>(text[i]);
    } else {
        Utf8Encode(text, length, bytes);
    }
    return TakeBytes(bytes, size);
}

CBinaryData WideToUtf8Bytes(const char16_t* text)
{
    return text ? WideToUtf8Bytes(text, Platform::Utf16Length(text)) : CBinaryData();
}

CBinaryData WideToUtf8Bytes(const unsigned short* text)
{
    return WideToUtf8Bytes(reinterpret_cast<const char16_t*>(text));
}

CBinaryData LocalToUtf8Bytes(const char* text, std::size_t length)
{
    if (text == nullptr || length == 0) return CBinaryData();
    if (Platform::LocalIsUtf8() && IsAscii(text, length)) {
        unsigned char* bytes = new unsigned char[length];
        std::memcpy(bytes, text, length);
        return TakeBytes(bytes, length);
    }
    std::u16string wide = Platform::LocalToUtf16(text, length);
    return WideToUtf8Bytes(wide.data(), wide.size());
}

CBinaryData LocalToUtf8Bytes(const std::string& text)
{
    return LocalToUtf8Bytes(text.data(), text.size());
}

CBinaryData LocalToUtf16Bytes(const char* text, std::size_t length)
{
    if (text == nullptr || length == 0) return CBinaryData();
    std::u16string wide = Platform::LocalToUtf16(text, length);
    if (wide.empty()) return CBinaryData();
    std::size_t size = wide.size() * 2;
    unsigned char* bytes = new unsigned char[size];
    for (std::size_t i = 0; i < wide.size(); ++i) {
        bytes[2 * i] = static_cast<unsigned char>(wide[i] & 0xFF);
        bytes[2 * i + 1] = static_cast<unsigned char>(wide[i] >> 8);
    }
    return TakeBytes(bytes, size);
}

CBinaryData LocalToUtf16Bytes(const std::string& text)
{
    return LocalToUtf16Bytes(text.data(), text.size());
}

}  // namespace OrvexXmlLib5
