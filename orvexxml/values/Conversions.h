// Text forms of the primitive XSD types: one xToString and one xFromString per type.
// Parsing applies the whitespace rule first; failures are COrvexInvalidValueException.
#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/values/WhitespaceUtils.h"

namespace OrvexXmlLib5 {

// The numeric parsers read their text as a C string: a zero byte ends it, as it
// ends the text that the collapse and replace rules give. Leading whitespace is
// skipped by every numeric parser, trailing whitespace is refused.
class CConversions
{
public:
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    static std::string i1ToString(char value);
    static std::string i2ToString(short value);
    static std::string i4ToString(std::int32_t value);
    static std::string i8ToString(std::int64_t value);
    static std::string ui1ToString(unsigned char value);
    static std::string ui2ToString(unsigned short value);
    static std::string ui4ToString(std::uint32_t value);
    static std::string ui8ToString(std::uint64_t value);
    // A null format means "%.7g". A format must hold exactly one floating conversion
    // (f, F, e, E, g, G, a, A, no '*'), else COrvexInvalidParamException.
    static std::string r4ToString(float value, const char* format = nullptr);
    // A null format means "%.16g"; same rule for the format as r4ToString.
    static std::string r8ToString(double value, const char* format = nullptr);
    static std::string booleanToString(bool value);
    // The zero character gives an empty string.
    static std::string charToString(char value);
    static std::string stringToString(const std::string& value);
    static std::string yearToString(unsigned short value);
    static std::string monthToString(unsigned char value);
    static std::string dayToString(unsigned char value);

    // Empty text gives 0; beyond 32 bits fails "to large", other text "can not be converted".
    static std::int32_t i4FromString(const std::string& text, WhitespaceRule rule);
    // A minus sign wraps the value, as the C library's unsigned parser does.
    static std::uint32_t ui4FromString(const std::string& text, WhitespaceRule rule);
    static char i1FromString(const std::string& text, WhitespaceRule rule);
    static short i2FromString(const std::string& text, WhitespaceRule rule);
    static unsigned char ui1FromString(const std::string& text, WhitespaceRule rule);
    static unsigned short ui2FromString(const std::string& text, WhitespaceRule rule);
    // Never fails: stops at the first character it can not use and wraps modulo 2^64.
    static std::int64_t i8FromString(const std::string& text, WhitespaceRule rule);
    // The bits of i8FromString read as unsigned.
    static std::uint64_t ui8FromString(const std::string& text, WhitespaceRule rule);
    // Empty text gives 0.0; overflow gives infinity without failing.
    static double r8FromString(const std::string& text, WhitespaceRule rule);
    // As r8FromString, then narrowed to float (overflow becomes infinity).
    static float r4FromString(const std::string& text, WhitespaceRule rule);
    // "true", "false", "1", "0" in any case; anything else fails.
    static bool booleanFromString(const std::string& text, WhitespaceRule rule);
    // Fails unless the processed text is exactly one byte long.
    static char charFromString(const std::string& text, WhitespaceRule rule);
    static std::string stringFromString(const std::string& text, WhitespaceRule rule);
};

}  // namespace OrvexXmlLib5
