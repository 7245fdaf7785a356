// Arbitrary text through every conversion (plain kinds, value classes, date parts), the variant and the facet check:
// each call either gives a value or throws from the COrvexException family.
#include <cstddef>
#include <cstdint>
#include <string>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"
#include "orvexxml/values/Conversions.h"

using namespace OrvexXmlLib5;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    const auto rule = static_cast<CWhitespaceUtils::WhitespaceRule>(data[0] % 3);
    const auto type = static_cast<ItemType>(data[1] % 30);
    std::string text(reinterpret_cast<const char*>(data + 2), size - 2);
    // Text before the first zero byte is a pattern or a bound, the rest the value.
    std::string::size_type split = text.find('\0');
    std::string facet = split == std::string::npos ? std::string() : text.substr(0, split);
    std::string value = split == std::string::npos ? text : text.substr(split + 1);
    try {
        OrvexVariant v;
        v.FromString(value, type, rule);
        OrvexVariant copy(v);
        (void)copy.ToString(nullptr);
        CPrimitiveRestrictions facets(facet.c_str(), -1, static_cast<int>(size % 64), facet.c_str(), nullptr, nullptr,
                                      facet.c_str(), -1);
        CheckPrimitiveRestriction("f", copy, type, facets);
    } catch (const COrvexException&) {
    }
    (void)LocalToUtf8Bytes(value);
    (void)LocalToUtf16Bytes(value);
    (void)WideToUtf8Bytes(reinterpret_cast<const char16_t*>(value.data()), value.size() / 2);
    return 0;
}
