#include "orvexxml/values/detail/QuotedValue.h"

#include <cstring>

namespace OrvexXmlLib5 {
namespace detail {

namespace {

std::string Quote(const char* text, std::size_t length)
{
    if (length <= kQuotedValueBytes) return std::string(text, length);
    std::size_t cut = kQuotedValueBytes;
    // A continuation byte after the cut means the cut splits a character.
    for (int i = 0; i < 3 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80; ++i) --cut;
    std::string quoted(text, cut);
    quoted += "...";
    return quoted;
}

}  // namespace

std::string QuotedValue(const char* text)
{
    if (text == nullptr) return "(null)";
    return Quote(text, std::strlen(text));
}

std::string QuotedValue(const std::string& text)
{
    return Quote(text.data(), text.size());
}

}  // namespace detail
}  // namespace OrvexXmlLib5
