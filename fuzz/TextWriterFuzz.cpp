// The text writer driven by a sequence of calls taken from the fuzzer's bytes, twice:
// once writing each element that has only text in one step, once through the three
// calls it stands for. Both writers must fail at the same call with the same message,
// or write the same text.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "orvexxml/xml/XmlTextWriter.h"
#include "orvexxml/xml/detail/WriterAccess.h"

using namespace OrvexFuzz;

namespace {

const char* const kNames[] = {"a", "b", "item", "lang", "type", "x"};
const char* const kUris[] = {"",
                             "urn:a",
                             "urn:b",
                             "http://www.w3.org/XML/1998/namespace",
                             "http://www.w3.org/2001/XMLSchema-instance",
                             "urn:a&\"<"};
const char* const kAliases[] = {"AA", "AB", "p", "q", "xsi", ""};

template <std::size_t N>
std::string Pick(CByteCursor& cursor, const char* const (&pool)[N])
{
    return pool[cursor.Byte() % N];
}

// One call on writer; oneStep says how an element with only text is written.
void Apply(OrvexXmlLib5::CXmlTextWriter& writer, int op, const std::string& name, const std::string& uri,
           const std::string& text, bool oneStep)
{
    switch (op) {
        case 0: writer.WriteStartElement(name, uri); break;
        case 1: writer.WriteEndElement(); break;
        case 2: writer.WriteText(text); break;
        case 3: writer.WriteAttribute(name, uri, text); break;
        case 4: writer.AddNamespace(text, uri); break;
        case 5: writer.SetDefaultNamespace(uri); break;
        case 6: writer.WriteComment(text); break;
        case 7: writer.WriteXsiType(uri, name); break;
        default:
            if (oneStep) {
                OrvexXmlLib5::Detail::CWriterAccess::WriteSimpleElement(&writer, name, uri, text);
            } else {
                writer.WriteStartElement(name, uri);
                writer.WriteText(text);
                writer.WriteEndElement();
            }
            break;
    }
}

// The message of the failure of one call, or empty when it succeeded.
std::string Outcome(OrvexXmlLib5::CXmlTextWriter& writer, int op, const std::string& name, const std::string& uri,
                    const std::string& text, bool oneStep)
{
    try {
        Apply(writer, op, name, uri, text, oneStep);
        return std::string();
    } catch (const OrvexXmlLib5::COrvexException& e) {
        return std::string("failed: ") + e.GetMessage();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CByteCursor cursor(data, size);
    const std::uint8_t options = cursor.Byte();
    OrvexXmlLib5::CXmlTextWriter oneStep, threeCalls;
    for (OrvexXmlLib5::CXmlTextWriter* writer : {&oneStep, &threeCalls}) {
        writer->SetFormatted((options & 1) != 0);
        writer->SetEOLType((options & 2) ? OrvexXmlLib5::EOL_CRLF : OrvexXmlLib5::EOL_LF);
    }
    for (int calls = 0; calls < 200 && !cursor.Empty(); ++calls) {
        const int op = cursor.Byte() % 12;
        const std::string name = Pick(cursor, kNames);
        const std::string uri = Pick(cursor, kUris);
        const std::uint8_t textKind = cursor.Byte();
        const std::string text = textKind & 0x80 ? Pick(cursor, kAliases) : cursor.Until('\x01');
        const std::string first = Outcome(oneStep, op, name, uri, text, true);
        const std::string second = Outcome(threeCalls, op, name, uri, text, false);
        Check(first == second, "the two writers disagree on a call");
        if (!first.empty()) return 0;
    }
    Check(oneStep.GetString() == threeCalls.GetString(), "the two writers wrote different text");
    return 0;
}
