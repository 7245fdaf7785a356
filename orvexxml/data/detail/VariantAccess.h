// What the reading descriptors may do with a variant that callers may not: lend it
// the text of the tree for the one property store they make from it.
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
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
