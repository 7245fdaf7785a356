// Content of other namespaces (xs:any, xs:anyAttribute) kept through a read and a
// write of the note example, and any document read and written without a schema:
// the written document must parse to the same tree as the one that was read.
#include <gtest/gtest.h>

#include <dirent.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "examples/ExamplePaths.h"
#include "examples/extension/Note.h"
#include "examples/purchase-order/PurchaseOrderTools.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

namespace {

bool IsBlank(const std::string& text)
{
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

// The tree as the parser gives it: names, namespaces, attributes (declarations
// left out, order ignored) and the text of each element; dropBlank leaves out
// text of white space alone, which a class without mixed content does not keep.
std::string Canonical(const CXmlElement* element, bool dropBlank)
{
    std::set<std::tuple<std::string, std::string, std::string>> attributes;
    for (const CXmlAttribute* a : element->GetAttributes())
        if (!a->IsNamespaceAttribute()) attributes.emplace(a->GetNamespaceURI(), a->GetLocalName(), a->GetValue());
    std::string out = "{" + element->GetNamespaceURI() + "}" + element->GetLocalName();
    for (const auto& a : attributes)
        out += " {" + std::get<0>(a) + "}" + std::get<1>(a) + "=[" + std::get<2>(a) + "]";
    out += " text=[" + (dropBlank && IsBlank(element->GetText()) ? std::string() : element->GetText()) + "]\n";
    for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
        out += Canonical(child, dropBlank);
    return out;
}

std::string CanonicalOf(const std::string& text, bool dropBlank = false)
{
    CXmlDocument document;
    document.LoadXml(text.c_str());
    return Canonical(document.GetDocumentElement(), dropBlank);
}

TEST(Extension, UnknownContentSurvivesAReadAndAWrite)
{
    const std::string original = ReadTextFile(ExamplePath("extension/note.xml"));
    CSmartPtr<CNote> note = CNote::CreateInstance();
    note->FromXml(original.c_str());
    EXPECT_EQ(2, note->GetExtensions()->GetCount());
    // Compact output keeps every text as it was read. (Content built in code is
    // written by the same path; the element and attribute collections test that.)
    const std::string written = note->ToXml(true, false, EOL_LF);
    EXPECT_EQ(CanonicalOf(original, true), CanonicalOf(written, true)) << written;
}

// Every XML file below a few folders that Debian packages fill, read into a
// CElement without a schema and written back as XML and as Fast Infoset. Folders that are not there are
// passed over; the test needs at least one document to mean anything.
TEST(Extension, RealFilesRoundTripWithoutASchema)
{
    const char* const folders[] = {"/usr/share/mime/packages", "/etc/fonts", "/usr/share/xml/fontconfig",
                                   "/usr/share/gtk-doc", "/usr/share/doc-base"};
    int documents = 0;
    for (const char* folder : folders) {
        DIR* dir = opendir(folder);
        if (!dir) continue;
        std::vector<std::string> names;
        while (dirent* entry = readdir(dir)) {
            const std::string name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".xml") == 0) names.push_back(name);
        }
        closedir(dir);
        for (const std::string& name : names) {
            const std::string path = std::string(folder) + "/" + name;
            SCOPED_TRACE(path);
            const std::string original = ReadTextFile(path);
            std::string expected;
            try {
                expected = CanonicalOf(original);
            } catch (const COrvexException&) {
                continue;  // a DTD the parser refuses to read without its files, say
            }
            CSmartPtr<CElement> element(new CElement(""));
            element->FromXml(original.c_str());
            EXPECT_EQ(expected, CanonicalOf(element->ToXml(true, false, EOL_LF)));
            // And as Fast Infoset, through the reader that recognises it from its bytes.
            CBinaryData binary = element->ToFastInfosetStream();
            CXmlDocument document;
            document.LoadXmlStream(binary.GetData(), binary.GetLength());
            EXPECT_EQ(expected, Canonical(document.GetDocumentElement(), false));
            ++documents;
        }
    }
    if (documents == 0) GTEST_SKIP() << "no XML files found in the usual folders";
    RecordProperty("documents", documents);
}

}  // namespace
