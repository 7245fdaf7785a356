// Reads arbitrary text into the example classes under reading options taken from
// the first byte. Whatever loads is written back, the written text is read into a
// fresh object and written again: the second read must succeed, and without
// indentation the writes must settle on one text.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"

using namespace OrvexFuzz;

namespace {

void RoundTrip(int which, const std::string& text, const CXmlSerializationContext& context, std::uint8_t form)
{
    const bool header = form & 0x01, formatted = form & 0x02;
    const EOLType eol = (form & 0x04) ? EOL_CRLF : EOL_LF;
    CExample first(which);
    try {
        first.Object().FromXml(text.c_str(), context);
    } catch (const COrvexException&) {
        return;
    }
    std::string written;
    try {
        written = first.Object().ToXml(header, formatted, eol, context);
    } catch (const COrvexException&) {
        return;  // what was read may break a facet that only writing checks
    }
    CExample second(which);
    try {
        second.Object().FromXml(written.c_str(), context);
    } catch (const COrvexException& e) {
        Fail("the written text does not read back", written, e.GetFullMessage());
    }
    std::string again;
    try {
        again = second.Object().ToXml(header, formatted, eol, context);
    } catch (const COrvexException& e) {
        Fail("what was read back does not write", written, e.GetFullMessage());
    }
    // Indentation joins the text of mixed content, so only the plain form is a fixed
    // point. Line feeds and tabs inside attribute values are written as they are and
    // read back as blanks, so the fixed point may take one more round.
    if (formatted || again == written) return;
    CExample third(which);
    try {
        third.Object().FromXml(again.c_str(), context);
    } catch (const COrvexException& e) {
        Fail("the second write does not read back", again, e.GetFullMessage());
    }
    const std::string last = third.Object().ToXml(header, formatted, eol, context);
    if (last != again) Fail("the writes do not settle", again, last);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2 || size > 64 * 1024) return 0;
    CByteCursor cursor(data, size);
    const std::uint8_t flags = cursor.Byte();
    const std::uint8_t form = cursor.Byte();
    const std::string text = cursor.Rest();
    const CXmlSerializationContext context = ContextFrom(flags);
    // The top bits pick one class; without them every class reads the text.
    if (form & 0x80) {
        RoundTrip((form >> 4) & 0x03, text, context, form);
    } else {
        for (int which = 0; which < CExample::Count; ++which) RoundTrip(which, text, context, form);
    }
    return 0;
}
