// printf-style formatting into a std::string that is never truncated.
#pragma once

#include "orvexxml/Export.h"

#include <cstdarg>
#include <string>

namespace OrvexXmlLib5 {

// Accepts the C conversions and the Microsoft size prefixes I64, I32, I, h, l, L,
// F and N. A null %s argument prints "(null)".
ORVEXXML_API std::string FormatString(const char* format, ...)
    ;

// FormatString with the arguments in a va_list, which the call consumes.
ORVEXXML_API std::string FormatStringV(const char* format, va_list args);

}  // namespace OrvexXmlLib5
