// The UTF-16 entry of the example classes and FromXmlElement. The same units read
// three ways must agree: FromXml on the UTF-16 text, FromXmlElement on the root of a
// tree loaded from it, and (for text the narrow entry can take unchanged) FromXml on
// its UTF-8 form. Every child element of the tree is also read on its own.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "orvexxml/platform/CodePage.h"

using namespace OrvexFuzz;

namespace {

// What a read gives: the written text, or the message of the failure.
struct Outcome
{
    bool loaded = false;
    std::string text;
};

Outcome Written(CExample& example, const CXmlSerializationContext& context)
{
    Outcome outcome;
    outcome.loaded = true;
    try {
        outcome.text = example.Object().ToXml(false, false, EOL_LF, context);
    } catch (const COrvexException& e) {
        outcome.text = "write failed: " + e.GetFullMessage();
    }
    return outcome;
}

template <typename Read>
Outcome ReadWith(int which, const CXmlSerializationContext& context, Read read)
{
    CExample example(which);
    try {
        read(example.Object());
    } catch (const COrvexException& e) {
        Outcome failed;
        failed.text = e.GetFullMessage();
        return failed;
    }
    return Written(example, context);
}

bool NarrowFormIsTheSameDocument(const std::u16string& units)
{
    // A byte order mark of its own, surrogates (lone ones turn into U+FFFD on the way
    // to UTF-8) and a declared encoding all read differently on the two entries.
    if (!units.empty() && units[0] == 0xFEFF) return false;
    for (char16_t unit : units)
        if (unit >= 0xD800 && unit <= 0xDFFF) return false;
    const std::string ascii(units.begin(), units.end());
    return ascii.find("encoding") == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2 || size > 64 * 1024) return 0;
    CByteCursor cursor(data, size);
    const std::uint8_t flags = cursor.Byte();
    const int which = cursor.Byte() % CExample::Count;
    const std::string bytes = cursor.Rest();
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const char16_t unit = static_cast<char16_t>(static_cast<std::uint8_t>(bytes[i]) |
                                                    static_cast<std::uint8_t>(bytes[i + 1]) << 8);
        if (unit == 0) break;
        units += unit;
    }
    const auto* wide = reinterpret_cast<const unsigned short*>(units.c_str());
    CXmlSerializationContext context = ContextFrom(flags);
    if (flags & 0x80) context.SetSchemaType(SchemaType_NoNamespaces);

    const Outcome direct = ReadWith(which, context, [&](CXmlObjectBase& object) { object.FromXml(wide, context); });

    CXmlDocument document(context);
    bool treeLoaded = true;
    try {
        document.LoadXml(wide);
    } catch (const COrvexException&) {
        treeLoaded = false;
    }
    if (treeLoaded != direct.loaded && direct.loaded) Fail("FromXml loaded a text the tree refused", direct.text, "");
    if (treeLoaded) {
        const Outcome fromTree = ReadWith(
            which, context, [&](CXmlObjectBase& object) { object.FromXmlElement(document.GetDocumentElement(), context); });
        if (fromTree.loaded != direct.loaded || (direct.loaded && fromTree.text != direct.text))
            Fail("FromXmlElement on the root differs from FromXml", direct.text, fromTree.text);
        // Any element of the tree reads on its own; the walk is iterative, so the
        // depth of the tree costs nothing here.
        std::vector<const CXmlElement*> pending{document.GetDocumentElement()};
        for (int visited = 0; !pending.empty() && visited < 64; ++visited) {
            const CXmlElement* element = pending.back();
            pending.pop_back();
            ReadWith(3, context, [&](CXmlObjectBase& object) { object.FromXmlElement(element, context); });
            for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
                pending.push_back(child);
        }
    }

    if (NarrowFormIsTheSameDocument(units)) {
        const std::string narrow = Platform::Utf16ToUtf8(units.c_str(), units.size());
        const Outcome fromNarrow =
            ReadWith(which, context, [&](CXmlObjectBase& object) { object.FromXml(narrow.c_str(), context); });
        if (fromNarrow.loaded != direct.loaded || (direct.loaded && fromNarrow.text != direct.text))
            Fail("the UTF-8 form reads differently from the UTF-16 text", direct.text, fromNarrow.text);
    }
    return 0;
}
