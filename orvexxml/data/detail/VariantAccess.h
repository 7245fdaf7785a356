// What the descriptors may do with a variant that callers may not: lend it the text
// of the tree for the one property store they make from it, and read its text
// without a copy.
#pragma once

#include <string>

#include "orvexxml/data/OrvexVariant.h"

namespace OrvexXmlLib5 {
namespace Detail {

class CVariantAccess
{
public:
    // value.FromString(text, type, rule), except that a string the rule leaves as
    // it is refers to text instead of copying it. text must stay alive and unchanged
    // until value changes or ends; a copy of value holds its own string.
    static void FromTextLent(OrvexVariant& value, const std::string& text, ItemType type,
                             CWhitespaceUtils::WhitespaceRule rule)
    {
        value.FromStringBorrowing(text, type, rule);
    }

    // value.ToString(format), without a copy when value holds a string (whose text
    // is the string itself); otherwise made holds the text.
    static const std::string& Text(const OrvexVariant& value, const char* format, std::string& made)
    {
        if (value.GetItemType() == ItemType_string) return value.GetStringRef();
        made = value.ToString(format);
        return made;
    }
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
