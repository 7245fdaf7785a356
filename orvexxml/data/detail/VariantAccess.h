// What the descriptors may do with a variant that callers may not: lend it the text
// of the tree for the one property store they make from it, borrow a generated
// object's strings while it is written, and read its text without a copy.
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

    // Lets a generated class lend value its string members (see
    // CXmlGeneratedClass::LendString) until value changes or ends. For the variants
    // of the writing descriptors only, which live while the object is written.
    static void AllowLending(OrvexVariant& value) { value.m_mayBorrow = true; }

    // value.SetString(member), or, when value allows lending, a reference to it.
    static void LendString(OrvexVariant& value, const std::string& member) { value.SetStringLent(member); }

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
