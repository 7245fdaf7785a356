// Format strings from the caller. FormatString gets one conversion at a time built
// from the fuzzer's bytes (flags, width, precision, a C or Microsoft size prefix)
// between literal texts, and must print what the C library prints for the same
// conversion spelt the C99 way. The floating, decimal, date and variant text
// functions get format text as it comes: each either fails with the library's
// exception or prints, and the floating ones print what the C library prints.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "FuzzSupport.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/values/Conversions.h"

using namespace OrvexFuzz;

namespace {

// Size prefixes as the caller may write them, and the C99 spelling of each.
struct Prefix
{
    const char* written;
    const char* c99;
};
const Prefix kIntegerPrefixes[] = {{"", ""},       {"h", "h"},     {"hh", "hh"}, {"l", "l"},    {"ll", "ll"},
                                   {"I64", "ll"},  {"I32", ""},    {"I", "z"},   {"z", "z"},    {"j", "j"},
                                   {"Fl", "l"},    {"Nh", "h"},    {"F", ""},    {"N", ""},     {"t", "t"}};
const Prefix kFloatingPrefixes[] = {{"", ""}, {"l", "l"}, {"L", "L"}, {"F", ""}, {"N", ""}, {"FL", "L"}};

std::string Literal(const std::string& text)
{
    std::string out;
    for (char c : text) {
        out += c;
        if (c == '%') out += '%';
    }
    return out;
}

// The format is the one under test, built at run time on purpose.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wformat-security"
#pragma clang diagnostic ignored "-Wformat-nonliteral"
template <typename... Args>
std::string Reference(const std::string& format, Args... args)
{
    const int needed = std::snprintf(nullptr, 0, format.c_str(), args...);
    if (needed < 0) return std::string();
    std::string out(static_cast<std::size_t>(needed) + 1, '\0');
    std::snprintf(&out[0], out.size(), format.c_str(), args...);
    out.resize(static_cast<std::size_t>(needed));
    // FormatString's result ends at the first terminator, as a C string would (%c of 0).
    const std::size_t end = out.find('\0');
    if (end != std::string::npos) out.resize(end);
    return out;
}
#pragma clang diagnostic pop

template <typename... Args>
void Compare(const std::string& written, const std::string& c99, Args... args)
{
    const std::string ours = FormatString(written.c_str(), args...);
    const std::string theirs = Reference(c99, args...);
    if (ours != theirs) Fail(("FormatString differs for [" + written + "]").c_str(), ours, theirs);
}

void CheckFormatString(CByteCursor& cursor)
{
    const std::string before = Literal(cursor.Until('\x01')), after = Literal(cursor.Until('\x01'));
    const std::uint8_t shape = cursor.Byte(), sizes = cursor.Byte();
    std::string spec = "%";
    static const char flags[] = "-+ #0";
    for (int i = 0; i < 5; ++i)
        if (shape & (1 << i)) spec += flags[i];
    if (shape & 0x20) spec += std::to_string(cursor.Byte() % 40);
    if (shape & 0x40) spec += "." + std::to_string(cursor.Byte() % 40);
    const std::uint64_t bits = static_cast<std::uint64_t>(cursor.Word()) << 32 | cursor.Word();
    const std::string head = before + spec, tail = after;

    static const char integers[] = "diouxX";
    static const char floating[] = "eEfFgGaA";
    switch (sizes % 4) {
        case 0: {
            const Prefix& p = kIntegerPrefixes[(sizes >> 2) % (sizeof kIntegerPrefixes / sizeof *kIntegerPrefixes)];
            const char conversion = integers[(sizes >> 6) % 6 + 0];
            const std::string written = head + p.written + conversion + tail, c99 = head + p.c99 + conversion + tail;
            const std::string size = p.c99;
            if (size == "ll")
                Compare(written, c99, static_cast<long long>(bits));
            else if (size == "l")
                Compare(written, c99, static_cast<long>(bits));
            else if (size == "z")
                Compare(written, c99, static_cast<std::size_t>(bits));
            else if (size == "j")
                Compare(written, c99, static_cast<std::intmax_t>(bits));
            else if (size == "t")
                Compare(written, c99, static_cast<std::ptrdiff_t>(bits));
            else
                Compare(written, c99, static_cast<int>(bits));
            break;
        }
        case 1: {
            const Prefix& p = kFloatingPrefixes[(sizes >> 2) % (sizeof kFloatingPrefixes / sizeof *kFloatingPrefixes)];
            const char conversion = floating[(sizes >> 5) % 8];
            // "%lFa" reads as the far prefix before %a as well as %lF before a letter;
            // the library takes the first reading, so a letter never follows here.
            const std::string rest = conversion == 'F' ? "|" + tail : tail;
            const std::string written = head + p.written + conversion + rest, c99 = head + p.c99 + conversion + rest;
            double value;
            std::memcpy(&value, &bits, sizeof value);
            if (std::string(p.c99) == "L")
                Compare(written, c99, static_cast<long double>(value));
            else
                Compare(written, c99, value);
            break;
        }
        case 2: {
            const std::string text = cursor.Until('\x01').c_str();
            Compare(head + "s" + tail, head + "s" + tail, text.c_str());
            Compare(head + "c" + tail, head + "c" + tail, static_cast<int>(bits & 0xFF));
            break;
        }
        default:
            // A null string argument prints as the C library prints it.
            Compare(before + "%s" + tail, before + "%s" + tail, static_cast<const char*>(nullptr));
            Compare(head + "%" + tail, head + "%" + tail);
            break;
    }
}

// Width and precision that fit in a few digits: a caller who asks for a number
// billions of characters wide gets one, which is no finding.
bool ModestNumbers(const std::string& format)
{
    int run = 0;
    for (char c : format) {
        run = (c >= '0' && c <= '9') ? run + 1 : 0;
        if (run > 4) return false;
    }
    return true;
}

void CheckCallerFormats(CByteCursor& cursor)
{
    // Both reach the library as C strings, ending at the first zero byte.
    const std::string format = cursor.Until('\x01').c_str();
    const std::string number = cursor.Until('\x01').c_str();
    if (!ModestNumbers(format)) return;
    double value = 0.0;
    try {
        value = CConversions::r8FromString(number, CWhitespaceUtils::WhitespaceRule::Collapse);
    } catch (const COrvexException&) {
    }
    try {
        const std::string text = CConversions::r8ToString(value, format.c_str());
        const std::string reference = Reference(format, value);
        if (text != reference) Fail(("r8ToString differs for [" + format + "]").c_str(), text, reference);
    } catch (const COrvexInvalidParamException&) {
    }
    try {
        const std::string text = CConversions::r4ToString(static_cast<float>(value), format.c_str());
        const std::string reference = Reference(format, static_cast<double>(static_cast<float>(value)));
        if (text != reference) Fail(("r4ToString differs for [" + format + "]").c_str(), text, reference);
    } catch (const COrvexInvalidParamException&) {
    }
    try {
        const CDecimal decimal(number.c_str());
        const std::string text = CConversions::decimalToString(decimal, format.c_str());
        Check(!text.empty(), "decimalToString gave nothing");
        OrvexVariant variant;
        variant.SetDecimal(decimal);
        Check(variant.ToString(format.c_str()) == text, "the variant prints a decimal differently");
    } catch (const COrvexException&) {
    }
    try {
        const CDateTime moment(number.c_str());
        const std::string text = moment.ToString(format.c_str());
        if (!format.empty() && format != "s" && format != "G" && text != "Unknown Format: " + format)
            Fail("an unknown date format", text, format);
    } catch (const COrvexException&) {
    }
    OrvexVariant variant;
    variant.SetR4(static_cast<float>(value));
    try {
        (void)variant.ToString(format.c_str());
    } catch (const COrvexException&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1 || size > 4096) return 0;
    CByteCursor cursor(data, size);
    if (cursor.Byte() & 1)
        CheckFormatString(cursor);
    else
        CheckCallerFormats(cursor);
    return 0;
}
