// The xs:whiteSpace facet: preserve, replace and collapse over bytes of text.
// Whitespace is exactly 0x20, 0x09, 0x0D and 0x0A; bytes from 0x80 never are.
#pragma once

#include "orvexxml/Export.h"

#include <string>

namespace OrvexXmlLib5 {

// The three xs:whiteSpace rules over text in bytes.
class ORVEXXML_API CWhitespaceUtils
{
public:
    // Stored in generated metadata: the numbers are fixed. A scoped enumeration,
    // so that its names do not clash with the operations of the same names.
    enum class WhitespaceRule : int
    {
        Preserve = 0,
        Replace = 1,
        Collapse = 2
    };

    // Fails with COrvexException "Unknown WhitespaceRule" for any other rule value.
    static std::string ApplyRule(WhitespaceRule rule, const std::string& text);
    // The same result without a copy when the rule leaves text as it is: then text
    // itself is given and scratch is not touched; otherwise the result is built in
    // scratch and scratch is given. The same failure for an unknown rule.
    static const std::string& ApplyRule(WhitespaceRule rule, const std::string& text, std::string& scratch);
    // Drops every carriage return.
    static std::string Preserve(const std::string& text);
    // The same over at most length bytes; stops at a zero byte, and a length of
    // zero or below gives an empty string.
    static std::string Preserve(const char* text, int length);
    // Tab, line feed and space become one space each; carriage returns go.
    static std::string Replace(const std::string& text);
    // Runs of whitespace become one space; leading and trailing ones go.
    static std::string Collapse(const std::string& text);
    // True for space, tab, carriage return and line feed.
    static bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
};

}  // namespace OrvexXmlLib5
