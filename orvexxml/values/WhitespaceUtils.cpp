#include "orvexxml/values/WhitespaceUtils.h"

#include "orvexxml/frame/OrvexException.h"

#include <cstring>

namespace OrvexXmlLib5 {

namespace {

// The results are built as zero-terminated text: a zero byte ends them.
std::string UpToZero(const std::string& s)
{
    std::size_t z = s.find('\0');
    return z == std::string::npos ? s : s.substr(0, z);
}

// True when Collapse gives text unchanged: no zero byte, carriage return, tab or
// line feed, and no space at either end or next to another space.
bool CollapseKeeps(const std::string& text)
{
    char previous = ' ';
    for (char c : text) {
        if (c == '\0' || c == '\r' || c == '\t' || c == '\n') return false;
        if (c == ' ' && previous == ' ') return false;
        previous = c;
    }
    return text.empty() || previous != ' ';
}

}  // namespace

const std::string& CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const std::string& text, std::string& scratch)
{
    switch (rule) {
        case WhitespaceRule::Preserve:
            if (text.find('\r') == std::string::npos) return text;
            scratch = Preserve(text);
            return scratch;
        case WhitespaceRule::Replace:
            if (text.find_first_of("\r\t\n\0", 0, 4) == std::string::npos) return text;
            scratch = Replace(text);
            return scratch;
        case WhitespaceRule::Collapse:
            if (CollapseKeeps(text)) return text;
            scratch = Collapse(text);
            return scratch;
    }
    throw COrvexException("Unknown WhitespaceRule");
}

std::string CWhitespaceUtils::ApplyRule(WhitespaceRule rule, const std::string& text)
{
    switch (rule) {
    case WhitespaceRule::Preserve: return Preserve(text);
    case WhitespaceRule::Replace: return Replace(text);
    case WhitespaceRule::Collapse: return Collapse(text);
    }
    throw COrvexException("Unknown WhitespaceRule");
}

std::string CWhitespaceUtils::Preserve(const std::string& text)
{
    if (text.find('\r') == std::string::npos) return text;
    return Preserve(text.c_str(), static_cast<int>(text.size()));
}

std::string CWhitespaceUtils::Preserve(const char* text, int length)
{
    std::string out;
    if (text == nullptr || length <= 0) return out;
    out.reserve(static_cast<std::size_t>(length));
    for (int i = 0; i < length && text[i] != '\0'; ++i)
        if (text[i] != '\r') out += text[i];
    return out;
}

std::string CWhitespaceUtils::Replace(const std::string& text)
{
    if (text.find_first_of("\r\t\n") == std::string::npos) return UpToZero(text);
    std::string out(text.size(), '\0');
    char* write = &out[0];
    for (char c : text) {
        if (c == '\0') break;
        if (c == '\r') continue;
        *write++ = (c == '\t' || c == '\n') ? ' ' : c;
    }
    out.resize(static_cast<std::size_t>(write - out.data()));
    return out;
}

std::string CWhitespaceUtils::Collapse(const std::string& text)
{
    // Written into a buffer of the input's size: the result is never longer.
    std::string out(text.size(), '\0');
    char* const begin = &out[0];
    char* write = begin;
    bool lastWasSpace = true;
    for (char c : text) {
        if (c == '\0') break;
        if (c == '\r') continue;
        if (c == ' ' || c == '\t' || c == '\n') {
            if (!lastWasSpace) {
                *write++ = ' ';
                lastWasSpace = true;
            }
        } else {
            *write++ = c;
            lastWasSpace = false;
        }
    }
    if (write != begin && write[-1] == ' ') --write;
    out.resize(static_cast<std::size_t>(write - begin));
    return out;
}

}  // namespace OrvexXmlLib5
