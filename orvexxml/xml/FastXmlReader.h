// A reader for the common shape of XML text that builds the tree straight from the
// input bytes, without Expat's callbacks and copies in between.
#pragma once

#include "orvexxml/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "orvexxml/frame/InstanceMonitor.h"

namespace OrvexXmlLib5 {

class CXmlDocument;
class CXmlElement;
namespace Detail {
struct CQualifiedName;
}

// Reads well-formed UTF-8 text into a CXmlDocument when it is certain of the result:
// no document type declaration, no entity beyond the five predefined ones, no name
// outside ASCII, an XML declaration (if any) of version 1.0 in UTF-8, and no error
// of any kind. Whatever it is not certain of it leaves to CExpatReader: it then
// empties the tree and gives false, so that every message and every lenient reading
// stays Expat's. For a document it takes, the tree (names, namespaces, text,
// attributes, start-tag places, prefix table) is the one Expat's reading builds.
class ORVEXXML_API CFastXmlReader : public CInstanceMonitor
{
public:
    // Attributes per element beyond which the reader leaves the element to Expat,
    // which finds doubled names through a hash table rather than by comparing pairs.
    static constexpr std::size_t MaxAttributes = 64;
    // Namespace declarations in scope at once beyond which the document goes to Expat:
    // prefixes are looked up by walking the declarations in scope, which must stay short.
    static constexpr std::size_t MaxBindings = 256;

    // The document is filled, not owned; it must outlive the reader.
    explicit CFastXmlReader(CXmlDocument* document);
    CFastXmlReader(const CFastXmlReader&) = delete;
    CFastXmlReader& operator=(const CFastXmlReader&) = delete;
    virtual ~CFastXmlReader();

    // Reads the document's input buffer. True when the tree is built; false, with the
    // tree and prefix table empty again, when the input is left to Expat. Only a
    // failure to allocate comes out as an exception.
    bool Parse();

private:
    struct Uncertain
    {
    };
    struct Attribute
    {
        std::string_view name;
        // Views the input, or one of the decoded values when the value needed decoding.
        std::string_view value;
        bool declaration;  // xmlns or xmlns:prefix, when namespaces are processed
    };
    struct QName
    {
        std::string_view prefix;
        std::string_view local;
    };
    struct Resolved
    {
        const std::string* uri;
        std::string_view local;
    };
    // An element name as written, and the pair of namespace URI and local name it
    // resolved to in the scope of the given generation.
    struct ResolvedName
    {
        std::string_view raw;
        std::uint64_t generation = 0;
        const Detail::CQualifiedName* name = nullptr;
    };
    static constexpr std::size_t NameCacheSize = 64;
    struct OpenElement
    {
        std::string_view name;
        std::size_t bindings;  // size of m_bindings before the element's declarations
    };
    struct Binding
    {
        std::string_view prefix;  // empty for the default namespace
        const std::string* uri;
    };

    [[noreturn]] static void GiveUp();
    void Run();
    void Declaration();
    // Spaces, comments and processing instructions before and after the document element.
    void Misc();
    void Content();
    // Markup inside the document element, at its '<'.
    void Markup();
    void StartTag();
    void EndTag();
    void Comment();
    // Moves through the characters of a comment or processing instruction; at each
    // '-', '?' or ']' ends(c) tells whether the markup closes there (and moves past it).
    template <typename Ends>
    void SkipMarkupText(Ends ends);
    void ProcessingInstruction();
    void CData();

    bool SkipSpace();
    std::string_view Name();
    // Moves past one UTF-8 sequence that starts at m_p with a byte of 0x80 or more.
    void MultiByte();
    // Moves past a tab, a line end or a UTF-8 sequence; any other byte below a space
    // is not XML.
    void OtherChar();
    // Decodes the reference at m_p (on '&') and appends its text to out; a carriage
    // return is appended only when keepCR is true.
    void Reference(std::string& out, bool keepCR);
    std::string_view AttributeValue();
    void NewLine(const unsigned char* next);
    // At a line feed or a carriage return: moves past the line end ("\r\n" is one)
    // and starts the next line.
    void LineEnd();
    std::uint64_t Column(const unsigned char* at) const;
    // Text of the open element, as the tree keeps it.
    void AppendText(const unsigned char* from, const unsigned char* to);
    void AppendText(std::string_view text);
    // A qualified name split at its colon; a name that is not one is left to Expat.
    static QName Split(std::string_view name);
    // URI bound to prefix where the reader is; null when the prefix is unbound.
    const std::string* Lookup(std::string_view prefix);
    // Namespace declarations, the element with its namespace, and its attributes.
    void OpenNamespaced(std::string_view name, std::uint64_t line, std::uint64_t column);
    void OpenPlain(std::string_view name, std::uint64_t line, std::uint64_t column);
    void Close();

    CXmlDocument* m_document;
    bool m_namespaced;
    const unsigned char* m_p;
    const unsigned char* m_end;
    // Place: the line, where it starts, and how many bytes on it so far are the
    // second and later bytes of a UTF-8 sequence (columns count characters).
    std::uint64_t m_line;
    const unsigned char* m_lineStart;
    std::uint64_t m_wide;
    CXmlElement* m_open;
    std::vector<OpenElement> m_stack;
    std::vector<Binding> m_bindings;
    // Changes whenever a declaration comes into scope or leaves it.
    std::uint64_t m_scopeGeneration = 1;
    ResolvedName m_names[NameCacheSize];
    std::vector<Attribute> m_attributes;
    std::vector<Resolved> m_resolved;
    std::vector<std::string> m_decoded;
    std::size_t m_decodedUsed;
    std::string m_scratch;
    // The document's shared empty string: the namespace of names in none.
    const std::string* m_emptyUri;
};

}  // namespace OrvexXmlLib5
