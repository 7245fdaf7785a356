// Number text of any kind: the parsers either fail with the library's exception or
// give values whose text reads back to the same value; sums undo exactly.
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/values/BigInteger.h"
#include "orvexxml/values/Decimal.h"

#include <cstddef>
#include <cstdint>
#include <string>

using namespace OrvexXmlLib5;

namespace {

void Check(bool condition)
{
    if (!condition)
        __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = input.find('\0');
    const std::string first = input.substr(0, split);
    const std::string second = split == std::string::npos ? std::string("1") : input.substr(split + 1);
    try {
        const CDecimal a(first.c_str());
        const std::string text = a.ToString();
        Check(CDecimal(text.c_str()) == a);
        Check(CDecimal(text.c_str()).ToString() == text);
        a.ToString(static_cast<int>(size % 40));
        try {
            const CDecimal b(second.c_str());
            Check((a + b) - b == a);
            a * b;
            if (!(b == CDecimal(0)))
                a / b;
        } catch (const COrvexException&) {
        }
    } catch (const COrvexException&) {
    }
    try {
        const CBigInteger i(first.c_str());
        const std::string text = i.ToString();
        Check(CBigInteger(text.c_str()) == i);
        if (text.size() < 200) {
            const CBigInteger seven(7);
            Check(i / seven * seven + i % seven == i);
        }
    } catch (const COrvexException&) {
    }
    return 0;
}
