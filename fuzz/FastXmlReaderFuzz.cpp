// Differential target for the fast XML text reader: on every input, under both schema
// types, a document the fast reader takes must be one that Expat takes too, with the
// same tree; a document it leaves must leave nothing behind. Inputs it refuses go to
// Expat in a real load, so they need no comparison.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/detail/TextReaderChoice.h"
#include "tests/xml/TreeSignature.h"

namespace {

using namespace OrvexXmlLib5;

[[noreturn]] void Disagree(const char* what, const std::string& fast, const std::string& expat)
{
    std::fprintf(stderr, "%s\n--- fast reader\n%s\n--- Expat\n%s\n", what, fast.c_str(), expat.c_str());
    std::abort();
}

void Compare(std::string_view text, SchemaType schemaType)
{
    CXmlDocument fast(schemaType);
    if (!Detail::LoadTextWith(fast, text, Detail::TextReader::Fast)) {
        if (fast.GetDocumentElement() || !fast.GetPrefixTable().empty())
            Disagree("the fast reader left a tree behind", OrvexTest::TreeSignature(fast), "");
        return;
    }
    const std::string fastTree = OrvexTest::TreeSignature(fast);
    CXmlDocument expat(schemaType);
    try {
        Detail::LoadTextWith(expat, text, Detail::TextReader::Expat);
    } catch (const COrvexException& e) {
        Disagree("the fast reader took a document that Expat refuses", fastTree, e.GetMessageA());
    }
    const std::string expatTree = OrvexTest::TreeSignature(expat);
    if (fastTree != expatTree) Disagree("the trees differ", fastTree, expatTree);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Compare(text, SchemaType_Namespaced);
    Compare(text, SchemaType_NoNamespaces);
    return 0;
}
