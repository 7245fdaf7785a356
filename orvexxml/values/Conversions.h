// Text forms of the primitive XSD types: one xToString and one xFromString per type.
// Parsing applies the whitespace rule first; failures are COrvexInvalidValueException
// for the plain types, and those of the value class for the others.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <string>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/values/BigInteger.h"
#include "orvexxml/values/DateTime.h"
#include "orvexxml/values/DateTimeSpan.h"
#include "orvexxml/values/Decimal.h"
#include "orvexxml/values/WhitespaceUtils.h"

namespace OrvexXmlLib5 {

// The numeric parsers read their text as a C string: a zero byte ends it, as it
// ends the text that the collapse and replace rules give. Leading whitespace is
// skipped by every numeric parser, trailing whitespace is refused.
class ORVEXXML_API CConversions
{
public:
    // The whitespace rule applied before parsing.
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    // Decimal digits with a leading minus for negative values.
    static std::string i1ToString(char value);
    // Decimal digits with a leading minus for negative values.
    static std::string i2ToString(short value);
    // Decimal digits with a leading minus for negative values.
    static std::string i4ToString(std::int32_t value);
    // Decimal digits with a leading minus for negative values.
    static std::string i8ToString(std::int64_t value);
    // Decimal digits.
    static std::string ui1ToString(unsigned char value);
    // Decimal digits.
    static std::string ui2ToString(unsigned short value);
    // Decimal digits.
    static std::string ui4ToString(std::uint32_t value);
    // Decimal digits.
    static std::string ui8ToString(std::uint64_t value);
    // A null format means "%.7g". A format must hold exactly one floating conversion
    // (f, F, e, E, g, G, a, A, no '*'), else COrvexInvalidParamException.
    static std::string r4ToString(float value, const char* format = nullptr);
    // A null format means "%.16g"; same rule for the format as r4ToString.
    static std::string r8ToString(double value, const char* format = nullptr);
    // "true" or "false".
    static std::string booleanToString(bool value);
    // The zero character gives an empty string.
    static std::string charToString(char value);
    // The text unchanged.
    static std::string stringToString(const std::string& value);
    // The year's decimal digits.
    static std::string yearToString(unsigned short value);
    // "--" and two digits, as xs:gMonth writes it ("--07").
    static std::string monthToString(unsigned char value);
    // "---" and two digits, as xs:gDay writes it ("---09").
    static std::string dayToString(unsigned char value);

    // Empty text gives 0; beyond 32 bits fails "to large", other text "can not be converted".
    static std::int32_t i4FromString(const std::string& text, WhitespaceRule rule);
    // A minus sign wraps the value, as the C library's unsigned parser does.
    static std::uint32_t ui4FromString(const std::string& text, WhitespaceRule rule);
    // As i4FromString; outside -128 to 127 fails with "to large to fit in a i1".
    static char i1FromString(const std::string& text, WhitespaceRule rule);
    // As i4FromString; outside -32768 to 32767 fails with "to large to fit in a i2".
    static short i2FromString(const std::string& text, WhitespaceRule rule);
    // As ui4FromString; above 255 fails with "to large to fit in a ui1".
    static unsigned char ui1FromString(const std::string& text, WhitespaceRule rule);
    // As ui4FromString; above 65535 fails with "to large to fit in a ui2".
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
    // The text after the whitespace rule; never fails.
    static std::string stringFromString(const std::string& text, WhitespaceRule rule);

    // The value classes hand over to their own text forms.

    // A null format gives the shortest form; otherwise the leading decimal number of
    // the format (0 when it has none) is the count of places, and a negative count
    // fails as CDecimal::ToString(int) does.
    static std::string decimalToString(const CDecimal& value, const char* format = nullptr);
    // All the digits, with a leading minus for negative values; "0" for zero.
    static std::string integerToString(const CBigInteger& value);
    // The five date forms are one operation: the kind held by the value decides the
    // form, and the unset value gives "Invalid Year Zero".
    static std::string dateToString(const CDateTime& value);
    // The same operation as dateToString: the kind held by the value decides the form.
    static std::string datetimeToString(const CDateTime& value);
    // The same operation as dateToString: the kind held by the value decides the form.
    static std::string timeToString(const CDateTime& value);
    // The same operation as dateToString: the kind held by the value decides the form.
    static std::string yearMonthToString(const CDateTime& value);
    // The same operation as dateToString: the kind held by the value decides the form.
    static std::string monthDayToString(const CDateTime& value);
    // The xs:duration form, as CDateTimeSpan::ToString gives it.
    static std::string durationToString(const CDateTimeSpan& value);
    // Two upper-case digits per byte; empty for an empty buffer.
    static std::string hexBinaryToString(const CBinaryData& value);
    // One line, padded; empty for an empty buffer.
    static std::string base64BinaryToString(const CBinaryData& value);

    // As the CDecimal constructor reads text, and fails as it does.
    static CDecimal decimalFromString(const std::string& text, WhitespaceRule rule);
    // As the CBigInteger constructor reads text, and fails as it does.
    static CBigInteger integerFromString(const std::string& text, WhitespaceRule rule);
    // An xs:duration, as CDateTimeSpan::ParseXSDDuration reads it.
    static CDateTimeSpan durationFromString(const std::string& text, WhitespaceRule rule);
    // An xs:dateTime, as CDateTime::ParseXSDDateTime reads it.
    static CDateTime datetimeFromString(const std::string& text, WhitespaceRule rule);
    // An xs:time, as CDateTime::ParseXSDTime reads it.
    static CDateTime timeFromString(const std::string& text, WhitespaceRule rule);
    // These three accept every form without a time and keep the kind that the
    // shape of the text gives: "2000" is a gYear whichever of them reads it.
    static CDateTime dateFromString(const std::string& text, WhitespaceRule rule);
    // The same operation as dateFromString: the text decides the kind.
    static CDateTime yearMonthFromString(const std::string& text, WhitespaceRule rule);
    // The same operation as dateFromString: the text decides the kind.
    static CDateTime monthDayFromString(const std::string& text, WhitespaceRule rule);
    // The year of any form with a year, as its 16 bits ("-0001" gives 65535); a form
    // without a year fails with COrvexInvalidStateException, as do the next two for
    // forms without a month or a day. "99" fails: a year has four digits.
    static unsigned short yearFromString(const std::string& text, WhitespaceRule rule);
    // The month of any form with a month; see yearFromString.
    static unsigned char monthFromString(const std::string& text, WhitespaceRule rule);
    // The day of any form with a day; see yearFromString.
    static unsigned char dayFromString(const std::string& text, WhitespaceRule rule);
    // As CBinaryData::SetAsHexString reads text, and fails as it does.
    static CBinaryData hexBinaryFromString(const std::string& text, WhitespaceRule rule);
    // As CBinaryData::SetAsBase64 reads text; never fails.
    static CBinaryData base64BinaryFromString(const std::string& text, WhitespaceRule rule);
};

}  // namespace OrvexXmlLib5
