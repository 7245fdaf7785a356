// Values as failure messages quote them: cut to a bounded length.
#pragma once

#include <cstddef>
#include <string>

namespace OrvexXmlLib5 {
namespace detail {

// A value longer than this many bytes is quoted by its first kQuotedValueBytes bytes
// (up to three fewer where the cut would split a UTF-8 sequence) followed by "...",
// so that a message stays short whatever a document holds. Only the message is cut:
// the value itself, and every value of this length or less, is quoted as it is.
constexpr std::size_t kQuotedValueBytes = 256;

// A null text quotes as "(null)", as FormatString prints it.
std::string QuotedValue(const char* text);
std::string QuotedValue(const std::string& text);

}  // namespace detail
}  // namespace OrvexXmlLib5
