#include "orvexxml/frame/FormatString.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace OrvexXmlLib5 {

namespace {

bool IsConversion(char c)
{
    return std::strchr("diouxXeEfFgGaAcsSpn", c) != nullptr && c != '\0';
}

// Rewrites Microsoft size prefixes into their C99 spellings; everything else is
// copied. Returns false when the format holds no prefix to rewrite.
bool TranslateFormat(const char* format, std::string& out)
{
    bool changed = false;
    const char* p = format;
    while (*p) {
        if (*p != '%') {
            out += *p++;
            continue;
        }
        out += *p++;
        if (*p == '%') {
            out += *p++;
            continue;
        }
        while (*p && std::strchr("-+ #0'", *p)) out += *p++;
        while (*p && (*p == '*' || (*p >= '0' && *p <= '9'))) out += *p++;
        if (*p == '.') {
            out += *p++;
            while (*p && (*p == '*' || (*p >= '0' && *p <= '9'))) out += *p++;
        }
        // Size prefixes.
        for (;;) {
            if (p[0] == 'I' && p[1] == '6' && p[2] == '4') {
                out += "ll";
                p += 3;
                changed = true;
            } else if (p[0] == 'I' && p[1] == '3' && p[2] == '2') {
                p += 3;
                changed = true;
            } else if (p[0] == 'I') {
                out += 'z';
                ++p;
                changed = true;
            } else if (p[0] == 'F' || p[0] == 'N') {
                // Far and near pointer prefixes mean nothing on a flat address space.
                if (IsConversion(p[1]) || std::strchr("hlL", p[1])) {
                    ++p;
                    changed = true;
                } else {
                    break;
                }
            } else if (p[0] == 'h' || p[0] == 'l' || p[0] == 'L' || p[0] == 'q' || p[0] == 'j' || p[0] == 'z' ||
                       p[0] == 't') {
                out += *p++;
            } else {
                break;
            }
        }
        if (*p) out += *p++;
    }
    return changed;
}

}  // namespace

std::string FormatStringV(const char* format, va_list args)
{
    if (format == nullptr) return std::string();
    std::string translated;
    if (TranslateFormat(format, translated)) format = translated.c_str();

    char small[512];
    va_list copy;
    va_copy(copy, args);
    int needed = std::vsnprintf(small, sizeof small, format, copy);
    va_end(copy);
    if (needed < 0) return std::string();
    // The result ends at the first terminator, even one written by a %c of zero.
    if (static_cast<size_t>(needed) < sizeof small) return std::string(small, strnlen(small, static_cast<size_t>(needed)));

    std::string result(static_cast<size_t>(needed) + 1, '\0');
    va_copy(copy, args);
    std::vsnprintf(&result[0], result.size(), format, copy);
    va_end(copy);
    result.resize(std::strlen(result.c_str()));
    return result;
}

std::string FormatString(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string result = FormatStringV(format, args);
    va_end(args);
    return result;
}

}  // namespace OrvexXmlLib5
