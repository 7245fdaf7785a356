#include "orvexxml/platform/CodePage.h"

#include <cerrno>
#include <cstring>
#include <iconv.h>
#include <string>

#include "orvexxml/frame/detail/ThreadOwned.h"

namespace OrvexXmlLib5 {

namespace {

// Start-up value: the calling thread's code page, which is the platform default.
unsigned int g_localCodePage = Platform::CodePageThreadDefault;

constexpr char32_t kReplacement = 0xFFFD;

inline bool IsUtf8CodePage(unsigned int cp)
{
    return cp == Platform::CodePageDefault || cp == Platform::CodePageThreadDefault || cp == Platform::CodePageUtf8;
}

// Decodes one UTF-8 sequence at text[i]; advances i. Invalid input (bad lead,
// truncated, overlong, surrogate, beyond U+10FFFF) gives U+FFFD for one byte.
char32_t DecodeUtf8(const unsigned char* s, std::size_t n, std::size_t& i)
{
    unsigned char c = s[i];
    if (c < 0x80) {
        ++i;
        return c;
    }
    int extra;
    char32_t cp;
    char32_t min;
    if (c >= 0xC2 && c <= 0xDF) {
        extra = 1;
        cp = c & 0x1F;
        min = 0x80;
    } else if (c >= 0xE0 && c <= 0xEF) {
        extra = 2;
        cp = c & 0x0F;
        min = 0x800;
    } else if (c >= 0xF0 && c <= 0xF4) {
        extra = 3;
        cp = c & 0x07;
        min = 0x10000;
    } else {
        ++i;
        return kReplacement;
    }
    std::size_t j = i + 1;
    for (int k = 0; k < extra; ++k, ++j) {
        if (j >= n || (s[j] & 0xC0) != 0x80) {
            i = j;  // skip the lead and the valid continuation bytes seen so far
            return kReplacement;
        }
        cp = (cp << 6) | (s[j] & 0x3F);
    }
    if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        i = j;
        return kReplacement;
    }
    i = j;
    return cp;
}

void AppendUtf16(std::u16string& out, char32_t cp)
{
    if (cp < 0x10000) {
        out += static_cast<char16_t>(cp);
    } else {
        cp -= 0x10000;
        out += static_cast<char16_t>(0xD800 + (cp >> 10));
        out += static_cast<char16_t>(0xDC00 + (cp & 0x3FF));
    }
}

// Decodes one UTF-16 unit or pair at s[i]; a lone surrogate gives U+FFFD.
char32_t DecodeUtf16(const char16_t* s, std::size_t n, std::size_t& i)
{
    char16_t c = s[i++];
    if (c >= 0xD800 && c <= 0xDBFF) {
        if (i < n && s[i] >= 0xDC00 && s[i] <= 0xDFFF) {
            char32_t cp = 0x10000 + ((static_cast<char32_t>(c) - 0xD800) << 10) + (s[i] - 0xDC00);
            ++i;
            return cp;
        }
        return kReplacement;
    }
    if (c >= 0xDC00 && c <= 0xDFFF) return kReplacement;
    return c;
}

bool IsAscii(const char* text, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i)
        if (static_cast<unsigned char>(text[i]) >= 0x80) return false;
    return true;
}

bool IsValidUtf8(const char* text, std::size_t length)
{
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text);
    std::size_t i = 0;
    while (i < length) {
        if (s[i] < 0x80) {
            ++i;
            continue;
        }
        std::size_t before = i;
        char32_t cp = DecodeUtf8(s, length, i);
        if (cp == kReplacement && !(i - before == 3 && s[before] == 0xEF && s[before + 1] == 0xBF && s[before + 2] == 0xBD))
            return false;
    }
    return true;
}

std::string IconvName(unsigned int cp)
{
    if (cp >= 28591 && cp <= 28599) return "ISO-8859-" + std::to_string(cp - 28590);
    switch (cp) {
    case 28603: return "ISO-8859-13";
    case 28605: return "ISO-8859-15";
    case 20127: return "ASCII";
    case 20866: return "KOI8-R";
    case 21866: return "KOI8-U";
    case 932: return "CP932";
    case 936: return "GBK";
    case 949: return "CP949";
    case 950: return "BIG5";
    case 51932: return "EUC-JP";
    case 51949: return "EUC-KR";
    case 54936: return "GB18030";
    case 1200: return "UTF-16LE";
    case 1201: return "UTF-16BE";
    case 12000: return "UTF-32LE";
    default: return "CP" + std::to_string(cp);
    }
}

// The two iconv descriptors of one code page, opened lazily and kept per thread
// so that a conversion costs no iconv_open.
struct IconvPair
{
    unsigned int codePage = 0xFFFFFFFFu;
    iconv_t toLocal = reinterpret_cast<iconv_t>(-1);
    iconv_t fromLocal = reinterpret_cast<iconv_t>(-1);
    // True when the code page writes each ASCII character as its own single byte
    // both ways, so ASCII text can skip the conversion. EBCDIC and the UTF-16 and
    // UTF-32 code pages do not.
    bool keepsAscii = true;

    void Close()
    {
        if (toLocal != reinterpret_cast<iconv_t>(-1)) iconv_close(toLocal);
        if (fromLocal != reinterpret_cast<iconv_t>(-1)) iconv_close(fromLocal);
        toLocal = fromLocal = reinterpret_cast<iconv_t>(-1);
    }
    ~IconvPair() { Close(); }

    void Select(unsigned int cp)
    {
        if (cp == codePage) return;
        Close();
        codePage = cp;
        std::string name = IconvName(cp);
        toLocal = iconv_open(name.c_str(), "UTF-32LE");
        fromLocal = iconv_open("UTF-32LE", name.c_str());
        if (toLocal == reinterpret_cast<iconv_t>(-1)) toLocal = iconv_open("ASCII", "UTF-32LE");
        if (fromLocal == reinterpret_cast<iconv_t>(-1)) fromLocal = iconv_open("UTF-32LE", "ASCII");
        keepsAscii = ProbeAscii();
    }

    bool ProbeAscii() const
    {
        const iconv_t none = reinterpret_cast<iconv_t>(-1);
        char32_t cps[128];
        char bytes[128];
        for (int c = 0; c < 128; ++c) {
            cps[c] = static_cast<char32_t>(c);
            bytes[c] = static_cast<char>(c);
        }
        if (toLocal != none) {
            iconv(toLocal, nullptr, nullptr, nullptr, nullptr);
            char out[1024];
            char* in = reinterpret_cast<char*>(cps);
            char* dst = out;
            std::size_t inLeft = sizeof cps, outLeft = sizeof out;
            if (iconv(toLocal, &in, &inLeft, &dst, &outLeft) == static_cast<std::size_t>(-1)) return false;
            if (dst - out != 128 || std::memcmp(out, bytes, 128) != 0) return false;
        }
        if (fromLocal != none) {
            iconv(fromLocal, nullptr, nullptr, nullptr, nullptr);
            char32_t out[256];
            char* in = bytes;
            char* dst = reinterpret_cast<char*>(out);
            std::size_t inLeft = sizeof bytes, outLeft = sizeof out;
            if (iconv(fromLocal, &in, &inLeft, &dst, &outLeft) == static_cast<std::size_t>(-1)) return false;
            if (dst - reinterpret_cast<char*>(out) != static_cast<std::ptrdiff_t>(sizeof cps) ||
                std::memcmp(out, cps, sizeof cps) != 0)
                return false;
        }
        return true;
    }
};

// The thread's converters for the local code page. At the thread's end, after
// they are gone, spare is opened instead; the caller holds it for the call.
IconvPair& Converters(IconvPair& spare)
{
    IconvPair* pair = Detail::CThreadOwned<IconvPair>::Get();
    if (!pair) pair = &spare;
    pair->Select(g_localCodePage);
    return *pair;
}

// Code points to the local code page; characters it lacks become '?'.
std::string CodePointsToLocal(const std::u32string& cps)
{
    std::string out;
    if (cps.empty()) return out;
    IconvPair spare;
    IconvPair& conv = Converters(spare);
    if (conv.toLocal == reinterpret_cast<iconv_t>(-1)) {
        for (char32_t cp : cps) out += cp < 0x80 ? static_cast<char>(cp) : '?';
        return out;
    }
    iconv(conv.toLocal, nullptr, nullptr, nullptr, nullptr);
    char* in = const_cast<char*>(reinterpret_cast<const char*>(cps.data()));
    std::size_t inLeft = cps.size() * 4;
    out.resize(cps.size() * 2 + 16);
    std::size_t used = 0;
    while (inLeft > 0) {
        char* dst = &out[used];
        std::size_t outLeft = out.size() - used;
        std::size_t r = iconv(conv.toLocal, &in, &inLeft, &dst, &outLeft);
        used = out.size() - outLeft;
        if (r != static_cast<std::size_t>(-1)) break;
        if (errno == E2BIG) {
            out.resize(out.size() * 2);
        } else {
            // Unmappable or invalid character: substitute and skip it.
            if (used + 1 > out.size()) out.resize(out.size() * 2);
            out[used++] = '?';
            in += 4;
            inLeft -= inLeft >= 4 ? 4 : inLeft;
        }
    }
    // Flush any shift state of stateful encodings.
    for (;;) {
        char* dst = &out[used];
        std::size_t outLeft = out.size() - used;
        std::size_t r = iconv(conv.toLocal, nullptr, nullptr, &dst, &outLeft);
        used = out.size() - outLeft;
        if (r != static_cast<std::size_t>(-1) || errno != E2BIG) break;
        out.resize(out.size() * 2);
    }
    out.resize(used);
    return out;
}

// Local code page bytes to code points; bytes it cannot decode become U+FFFD.
std::u32string LocalToCodePoints(const char* text, std::size_t length)
{
    std::u32string out;
    if (length == 0) return out;
    IconvPair spare;
    IconvPair& conv = Converters(spare);
    if (conv.fromLocal == reinterpret_cast<iconv_t>(-1)) {
        for (std::size_t i = 0; i < length; ++i) {
            unsigned char c = static_cast<unsigned char>(text[i]);
            out += c < 0x80 ? static_cast<char32_t>(c) : kReplacement;
        }
        return out;
    }
    iconv(conv.fromLocal, nullptr, nullptr, nullptr, nullptr);
    char* in = const_cast<char*>(text);
    std::size_t inLeft = length;
    out.resize(length + 4);
    std::size_t used = 0;  // in code points
    while (inLeft > 0) {
        char* dst = reinterpret_cast<char*>(&out[used]);
        std::size_t outLeft = (out.size() - used) * 4;
        std::size_t r = iconv(conv.fromLocal, &in, &inLeft, &dst, &outLeft);
        used = out.size() - outLeft / 4;
        if (r != static_cast<std::size_t>(-1)) break;
        if (errno == E2BIG) {
            out.resize(out.size() * 2);
        } else {
            // EILSEQ: a byte that the code page does not define. EINVAL: a
            // truncated multi-byte sequence at the end.
            if (used + 1 > out.size()) out.resize(out.size() * 2);
            out[used++] = kReplacement;
            ++in;
            --inLeft;
        }
    }
    // The decoders of 1255 and 1258 hold a base letter back until they know whether
    // a combining mark follows; without this flush the last letter of the text is lost.
    for (;;) {
        if (used + 2 > out.size()) out.resize(out.size() * 2);
        char* dst = reinterpret_cast<char*>(&out[used]);
        std::size_t outLeft = (out.size() - used) * 4;
        std::size_t r = iconv(conv.fromLocal, nullptr, nullptr, &dst, &outLeft);
        used = out.size() - outLeft / 4;
        if (r != static_cast<std::size_t>(-1) || errno != E2BIG) break;
        out.resize(out.size() * 2);
    }
    out.resize(used);
    return out;
}

}  // namespace

void SetLocalCharEncoding(unsigned int codePage)
{
    g_localCodePage = codePage;
}

unsigned int GetLocalCharEncoding()
{
    return g_localCodePage;
}

namespace Platform {

void AppendUtf8(std::string& out, char32_t cp)
{
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

bool LocalIsUtf8()
{
    return IsUtf8CodePage(g_localCodePage);
}

bool LocalKeepsAscii()
{
    if (LocalIsUtf8()) return true;
    IconvPair spare;
    return Converters(spare).keepsAscii;
}

std::size_t Utf16Length(const char16_t* text)
{
    std::size_t n = 0;
    if (text)
        while (text[n]) ++n;
    return n;
}

std::u16string Utf8ToUtf16(const char* text, std::size_t length)
{
    std::u16string out;
    out.reserve(length);
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text);
    std::size_t i = 0;
    while (i < length) {
        if (s[i] < 0x80) {
            out += static_cast<char16_t>(s[i++]);
            continue;
        }
        AppendUtf16(out, DecodeUtf8(s, length, i));
    }
    return out;
}

std::string Utf16ToUtf8(const char16_t* text, std::size_t length)
{
    std::string out;
    out.reserve(length);
    std::size_t i = 0;
    while (i < length) AppendUtf8(out, DecodeUtf16(text, length, i));
    return out;
}

std::string Utf8ToLocal(const char* text, std::size_t length)
{
    if (length == 0) return std::string();
    if (IsAscii(text, length) && LocalKeepsAscii()) return std::string(text, length);
    if (LocalIsUtf8()) {
        if (IsValidUtf8(text, length)) return std::string(text, length);
        std::string out;
        const unsigned char* s = reinterpret_cast<const unsigned char*>(text);
        std::size_t i = 0;
        while (i < length) AppendUtf8(out, DecodeUtf8(s, length, i));
        return out;
    }
    std::u32string cps;
    cps.reserve(length);
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text);
    std::size_t i = 0;
    while (i < length) cps += DecodeUtf8(s, length, i);
    return CodePointsToLocal(cps);
}

std::string Utf16ToLocal(const char16_t* text, std::size_t length)
{
    if (length == 0) return std::string();
    if (LocalIsUtf8()) return Utf16ToUtf8(text, length);
    std::u32string cps;
    cps.reserve(length);
    std::size_t i = 0;
    while (i < length) cps += DecodeUtf16(text, length, i);
    return CodePointsToLocal(cps);
}

std::u16string LocalToUtf16(const char* text, std::size_t length)
{
    if (length == 0) return std::u16string();
    if (IsAscii(text, length) && LocalKeepsAscii()) return std::u16string(text, text + length);
    if (LocalIsUtf8()) return Utf8ToUtf16(text, length);
    std::u32string cps = LocalToCodePoints(text, length);
    std::u16string out;
    out.reserve(cps.size());
    for (char32_t cp : cps) AppendUtf16(out, cp);
    return out;
}

std::string LocalToUtf8(const char* text, std::size_t length)
{
    if (length == 0) return std::string();
    if (IsAscii(text, length) && LocalKeepsAscii()) return std::string(text, length);
    if (LocalIsUtf8()) return Utf8ToLocal(text, length);
    std::u32string cps = LocalToCodePoints(text, length);
    std::string out;
    out.reserve(cps.size() * 2);
    for (char32_t cp : cps) AppendUtf8(out, cp);
    return out;
}

}  // namespace Platform
}  // namespace OrvexXmlLib5
