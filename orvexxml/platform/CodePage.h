// The local character encoding and the text conversions the library is built on.
// Every char string inside the library is in one process-wide code page: 0 and 3
// mean the platform default (UTF-8 here), 65001 is UTF-8, and any other number is
// a Windows code page converted through iconv. Conversions never fail: a byte
// sequence that is not valid in its source becomes U+FFFD, and a character the
// target code page lacks becomes '?'.
#pragma once

#include "orvexxml/Export.h"

#include <cstddef>
#include <string>

namespace OrvexXmlLib5 {

// Replaces the process-wide local character encoding. Meant for start-up, before
// any document is read or written; there is no lock. A code page iconv does not
// know converts as US-ASCII.
ORVEXXML_API void SetLocalCharEncoding(unsigned int codePage);
// The code page set by SetLocalCharEncoding; 3 (the platform default) until then.
ORVEXXML_API unsigned int GetLocalCharEncoding();

// The platform layer: the clock, calendar conversions and character encodings that
// the library is built on, usable on their own.
namespace Platform {

// The platform default code page, UTF-8 here.
constexpr unsigned int CodePageDefault = 0;
// The default code page of the calling thread; UTF-8 here as well.
constexpr unsigned int CodePageThreadDefault = 3;
// UTF-8.
constexpr unsigned int CodePageUtf8 = 65001;

// True when the local character encoding is UTF-8 (0, 3 or 65001).
ORVEXXML_API bool LocalIsUtf8();
// True when ASCII text is the same bytes in the local encoding as in UTF-8, so it
// needs no conversion (false for EBCDIC and the wide code pages).
ORVEXXML_API bool LocalKeepsAscii();

// UTF-8 bytes to UTF-16 units; invalid sequences become U+FFFD.
ORVEXXML_API std::u16string Utf8ToUtf16(const char* text, std::size_t length);
// UTF-16 units to UTF-8 bytes; a lone surrogate becomes U+FFFD.
ORVEXXML_API std::string Utf16ToUtf8(const char16_t* text, std::size_t length);

// Parser text (UTF-8) to library text.
ORVEXXML_API std::string Utf8ToLocal(const char* text, std::size_t length);
// The same for a std::string.
inline std::string Utf8ToLocal(const std::string& text) { return Utf8ToLocal(text.data(), text.size()); }
// Wide text (UTF-16) to library text.
ORVEXXML_API std::string Utf16ToLocal(const char16_t* text, std::size_t length);
// Library text to wide text (UTF-16).
ORVEXXML_API std::u16string LocalToUtf16(const char* text, std::size_t length);
// The same for a std::string.
inline std::u16string LocalToUtf16(const std::string& text) { return LocalToUtf16(text.data(), text.size()); }
// Library text to UTF-8, through UTF-16 as the Windows conversions do.
ORVEXXML_API std::string LocalToUtf8(const char* text, std::size_t length);
// The same for a std::string.
inline std::string LocalToUtf8(const std::string& text) { return LocalToUtf8(text.data(), text.size()); }

// Appends the UTF-8 form of one code point (at most U+10FFFF).
ORVEXXML_API void AppendUtf8(std::string& out, char32_t codePoint);

// Length in units of a zero-terminated UTF-16 string.
ORVEXXML_API std::size_t Utf16Length(const char16_t* text);

}  // namespace Platform
}  // namespace OrvexXmlLib5
