// The local code pages through iconv: conversions of arbitrary bytes in both
// directions, and documents read into the echo class and written back in the local
// encoding. A conversion applied to its own output changes nothing; a document
// whose characters all exist in the code page writes, reads back from its UTF-8
// form and writes again to the same text.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "orvexxml/platform/CodePage.h"

using namespace OrvexFuzz;

namespace {

// Single-byte pages of every script, the multi-byte East Asian ones, UTF-8 under its
// three numbers, and a number iconv does not know (which converts as US-ASCII).
const unsigned int kCodePages[] = {1252,  1250,  1251,  1253,  1254,  1255,  1256,  1257, 1258, 874, 437,
                                   850,   866,   932,   936,   949,   950,   28591, 28592, 28595, 28605,
                                   20127, 20866, 51932, 54936, 65001, 0,     3,     99999};

void CheckConversions(const std::string& text)
{
    using namespace OrvexXmlLib5::Platform;
    const std::u16string wide = LocalToUtf16(text);
    const std::string local = Utf16ToLocal(wide.data(), wide.size());
    const std::u16string wideAgain = LocalToUtf16(local);
    if (Utf16ToLocal(wideAgain.data(), wideAgain.size()) != local)
        Fail("local text converted twice changes", local, Utf16ToLocal(wideAgain.data(), wideAgain.size()));
    if (Utf8ToLocal(LocalToUtf8(text)) != local) Fail("the UTF-8 route differs from the UTF-16 one", local, "");

    // UTF-8 of any bytes and back: invalid sequences become U+FFFD once, then stay.
    const std::u16string fromUtf8 = Utf8ToUtf16(text.data(), text.size());
    const std::string utf8 = Utf16ToUtf8(fromUtf8.data(), fromUtf8.size());
    if (Utf8ToUtf16(utf8.data(), utf8.size()) != fromUtf8) Fail("UTF-8 to UTF-16 does not round trip", utf8, "");
    // Units of any value, lone surrogates included.
    std::u16string units;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        units += static_cast<char16_t>(static_cast<std::uint8_t>(text[i]) | static_cast<std::uint8_t>(text[i + 1]) << 8);
    const std::string unitsUtf8 = Utf16ToUtf8(units.data(), units.size());
    const std::u16string unitsBack = Utf8ToUtf16(unitsUtf8.data(), unitsUtf8.size());
    if (Utf16ToUtf8(unitsBack.data(), unitsBack.size()) != unitsUtf8) Fail("UTF-16 to UTF-8 is not stable", unitsUtf8, "");
    (void)Utf16ToLocal(units.data(), units.size());
}

void CheckDocument(const std::string& document, bool formatted)
{
    using namespace OrvexXmlLib5::Platform;
    OrvexExamples::CEchoNode first;
    try {
        first.FromXml(document.c_str());
    } catch (const COrvexException&) {
        return;
    }
    std::string written;
    try {
        written = first.ToXml(false, formatted, EOL_LF);
    } catch (const COrvexException&) {
        return;
    }
    // Characters that the code page lacks came in as '?', and references can bring in
    // any character: only a document free of both must come back.
    if (document.find('&') != std::string::npos || document.find("encoding") != std::string::npos) return;
    if (LocalToUtf8(Utf8ToLocal(document)) != document) return;
    OrvexExamples::CEchoNode second;
    try {
        second.FromXml(LocalToUtf8(written).c_str());
    } catch (const COrvexException& e) {
        Fail("the local text written does not read back", written, e.GetFullMessage());
    }
    const std::string again = second.ToXml(false, formatted, EOL_LF);
    // Indentation joins the text of mixed content, so only the plain form is a fixed
    // point; blanks in attribute values may take one more round to settle.
    if (formatted || again == written) return;
    OrvexExamples::CEchoNode third;
    third.FromXml(LocalToUtf8(again).c_str());
    const std::string last = third.ToXml(false, formatted, EOL_LF);
    if (last != again) Fail("the writes do not settle", again, last);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1 || size > 16 * 1024) return 0;
    CByteCursor cursor(data, size);
    const std::uint8_t pick = cursor.Byte();
    const std::string text = cursor.Rest();
    SetLocalCharEncoding(kCodePages[(pick & 0x7F) % (sizeof kCodePages / sizeof kCodePages[0])]);
    CheckConversions(text);
    CheckDocument(text.c_str(), pick & 0x80);
    SetLocalCharEncoding(Platform::CodePageDefault);
    return 0;
}
