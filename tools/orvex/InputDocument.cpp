#include "tools/orvex/InputDocument.h"

#include "tools/orvex/ProgressLine.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace OrvexTool {

using namespace OrvexXmlLib5;

namespace {

// CopyXmlElement takes the element it is given as the element itself, where the
// inherited read entry points take that element's first child.
class CLoadedElement : public CElement
{
public:
    explicit CLoadedElement(CXmlElement* element) : CElement("") { CopyXmlElement(element); }
};

std::vector<unsigned char> ReadStandardInput()
{
    std::vector<unsigned char> bytes;
    unsigned char chunk[1 << 16];
    for (;;) {
        const std::size_t got = std::fread(chunk, 1, sizeof chunk, stdin);
        bytes.insert(bytes.end(), chunk, chunk + got);
        if (got < sizeof chunk) break;
    }
    if (std::ferror(stdin))
        throw COrvexException(std::string("Failed to read the standard input: ") + std::strerror(errno));
    return bytes;
}

// The first octets of a file, for DetectInputForm; fewer when the file is shorter
// or unreadable, in which case the load that follows reports why.
std::vector<unsigned char> ReadHead(const std::string& path)
{
    std::vector<unsigned char> head(64);
    std::FILE* file = std::fopen(path.c_str(), "rb");
    std::size_t got = 0;
    if (file) {
        got = std::fread(head.data(), 1, head.size(), file);
        std::fclose(file);
    }
    head.resize(got);
    return head;
}

bool StartsWith(const unsigned char* bytes, std::size_t length, const char* prefix)
{
    const std::size_t n = std::strlen(prefix);
    return length >= n && std::memcmp(bytes, prefix, n) == 0;
}

}  // namespace

InputForm DetectInputForm(const unsigned char* bytes, std::size_t length)
{
    if (length >= 2 && bytes[0] == 0x1F && bytes[1] == 0x8B) return InputForm_Gzip;
    // zlib: deflate method, a window of at most 32 KiB, and the header check.
    if (length >= 2 && (bytes[0] & 0x0F) == 8 && (bytes[0] >> 4) <= 7 && (bytes[0] * 256 + bytes[1]) % 31 == 0)
        return InputForm_Zlib;
    if (length >= 4 && bytes[0] == 0xE0 && bytes[1] == 0 && bytes[2] == 0 && bytes[3] == 1)
        return InputForm_FastInfoset;
    // A declaration in front of Fast Infoset names the encoding 'finf'.
    if (StartsWith(bytes, length, "<?xml")) {
        const std::string head(reinterpret_cast<const char*>(bytes), length);
        const std::size_t end = head.find("?>");
        if (end != std::string::npos && head.substr(0, end).find("finf") != std::string::npos)
            return InputForm_FastInfoset;
    }
    if (length >= 2 && ((bytes[0] == 0xFF && bytes[1] == 0xFE) || (bytes[0] == 0xFE && bytes[1] == 0xFF) ||
                        (bytes[0] == '<' && bytes[1] == 0) || (bytes[0] == 0 && bytes[1] == '<')))
        return InputForm_XmlUtf16;
    return InputForm_Xml;
}

const char* DescribeInputForm(InputForm form)
{
    switch (form) {
        case InputForm_Xml: return "XML text";
        case InputForm_XmlUtf16: return "XML text in UTF-16";
        case InputForm_FastInfoset: return "Fast Infoset";
        case InputForm_Gzip: return "gzip";
        case InputForm_Zlib: return "zlib";
    }
    return "unknown";
}

std::uint64_t CInputDocument::InputSize(const std::string& path)
{
    struct stat status;
    const int result = path == "-" ? ::fstat(0, &status) : ::stat(path.c_str(), &status);
    return result == 0 && S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

CInputDocument::CInputDocument(const std::string& path, std::uint64_t maxInflatedSize, CProgressLine* progress)
{
    m_document.SetMaxInflatedSize(maxInflatedSize);
    if (progress) progress->SetStep("reading");
    if (path == "-") {
        std::vector<unsigned char> bytes = ReadStandardInput();
        m_size = bytes.size();
        m_form = DetectInputForm(bytes.data(), bytes.size());
        if (progress) progress->SetStep("parsing");
        m_document.LoadXmlStream(bytes.data(), static_cast<unsigned long>(bytes.size()));
    } else {
        const std::vector<unsigned char> head = ReadHead(path);
        m_form = DetectInputForm(head.data(), head.size());
        m_size = InputSize(path);
        if (progress) progress->SetStep("reading and parsing");
        m_document.Load(path.c_str());
    }
}

CSmartPtr<CElement> CInputDocument::ToElement(bool keepBlank) const
{
    std::vector<std::pair<const CXmlElement*, int>> below{{m_document.GetDocumentElement(), 1}};
    while (!below.empty()) {
        const auto [element, depth] = below.back();
        below.pop_back();
        if (depth > MaxElementDepth) {
            COrvexException tooDeep(FormatString("Elements are nested deeper than %d levels", MaxElementDepth));
            tooDeep.SetLocation(element->GetLocation());
            throw tooDeep;
        }
        for (const CXmlElement* child = element->GetFirstElement(); child; child = child->GetNextSiblingElement())
            below.emplace_back(child, depth + 1);
    }
    CSmartPtr<CElement> root(new CLoadedElement(m_document.GetDocumentElement()));
    if (keepBlank) return root;
    std::vector<CElement*> pending{root.Get()};
    while (!pending.empty()) {
        CElement* element = pending.back();
        pending.pop_back();
        const CSmartPtr<CElementCol> children = element->GetChildElements();
        if (children->GetCount() == 0) continue;
        if (element->GetText().find_first_not_of(" \t\r\n") == std::string::npos) element->SetText("");
        for (CElement* child : *children) pending.push_back(child);
    }
    return root;
}

}  // namespace OrvexTool
