// Zero-padded numbers and second fractions without going through printf.
#include "orvexxml/values/detail/DateTimeText.h"

namespace OrvexXmlLib5 {
namespace detail {

void AppendPadded(std::string& out, std::int64_t value, int width)
{
    std::uint64_t magnitude = static_cast<std::uint64_t>(value);
    if (value < 0) {
        out += '-';
        magnitude = 0 - magnitude;
        --width;
    }
    char digits[24];
    int count = 0;
    do {
        digits[count++] = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    for (int i = count; i < width; ++i)
        out += '0';
    while (count > 0)
        out += digits[--count];
}

void AppendFraction(std::string& out, unsigned milli, unsigned micro, unsigned nano)
{
    unsigned last;
    if (nano > 0) {
        out += '.';
        AppendPadded(out, milli, 3);
        AppendPadded(out, micro, 3);
        last = nano;
    } else if (micro > 0) {
        out += '.';
        AppendPadded(out, milli, 3);
        last = micro;
    } else if (milli > 0) {
        out += '.';
        last = milli;
    } else {
        return;
    }
    const std::string::size_type start = out.size();
    AppendPadded(out, last, 3);
    std::string::size_type end = out.size();
    while (end > start + 1 && out[end - 1] == '0')
        --end;
    out.resize(end);
}

}  // namespace detail
}  // namespace OrvexXmlLib5
