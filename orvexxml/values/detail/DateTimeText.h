// Number formatting shared by the writers of date-times and durations.
#pragma once

#include <cstdint>
#include <string>

namespace OrvexXmlLib5 {
namespace detail {

// Appends value in decimal, left-padded with zeros to width digits; a negative
// value gets its "-" in front of the padding, as printf's "%0*d" does.
void AppendPadded(std::string& out, std::int64_t value, int width);

// Appends the decimal fraction of a second: nothing when all three are 0, else a
// "." and three-digit groups up to the last non-zero one, whose trailing zeros
// are cut down to at least one digit.
void AppendFraction(std::string& out, unsigned milli, unsigned micro, unsigned nano);

}  // namespace detail
}  // namespace OrvexXmlLib5
