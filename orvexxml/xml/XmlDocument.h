// The intermediate tree every read goes through: a document of elements and
// attributes with their namespaces, the joined text of each element, and one prefix
// table. Readers fill it; the metadata walk reads it through the const accessors.
#pragma once

#include "orvexxml/Export.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/XmlSerializationContext.h"
#include "orvexxml/xml/detail/InternTable.h"
#include "orvexxml/xml/detail/NodePool.h"
#include "orvexxml/xml/detail/TextReaderChoice.h"
#include "orvexxml/xml/detail/TreeArena.h"

namespace OrvexXmlLib5 {

namespace Detail {

// A namespace URI and a local name, both the document's shared copies.
struct CQualifiedName
{
    const std::string* namespaceUri;
    const std::string* localName;
};

}  // namespace Detail

class CXmlDocument;
class CXmlElement;
class CExpatReader;
class CFastInfosetReader;
class CFastXmlReader;

// One attribute of an element; every string is in the local character encoding.
// The value lives in the document's own storage: GetValueView reads it as it is,
// GetValue makes a std::string of it at its first call, which then lives as long
// as the document.
class ORVEXXML_API CXmlAttribute : public CInstanceMonitor
{
public:
    CXmlAttribute(const CXmlAttribute&) = delete;
    CXmlAttribute& operator=(const CXmlAttribute&) = delete;

    // The name without a prefix (with it, when read without namespace processing).
    const std::string& GetLocalName() const { return *m_name->localName; }
    // The value, with entities and character references resolved.
    const std::string& GetValue() const;
    // The same value without a copy; a NUL follows its last byte.
    std::string_view GetValueView() const
    {
        return m_value ? std::string_view(m_value, Detail::CTreeArena::TextLength(m_value)) : std::string_view("", 0);
    }
    // Empty when the attribute is in no namespace.
    const std::string& GetNamespaceURI() const { return *m_name->namespaceUri; }
    // True for xmlns, xsi:type, xsi:schemaLocation and xsi:noNamespaceSchemaLocation,
    // which the data-binding walk passes over.
    bool IsNamespaceAttribute() const;

protected:
    // Made by the element that owns the attribute; the names and the value are the
    // document's (value null when empty).
    CXmlAttribute(CXmlDocument* document, const Detail::CQualifiedName* name, const char* value);
    virtual ~CXmlAttribute();

private:
    friend class CXmlElement;
    friend class CXmlDocument;
    friend class Detail::CNodePool<CXmlAttribute, false>;

    CXmlDocument* m_document;
    const Detail::CQualifiedName* m_name;
    const char* m_value;
};

// An element: names, attributes in document order, and its direct character data
// joined in document order (child elements contribute nothing, carriage returns are
// dropped). Elements live exactly as long as their document.
//
// The tree keeps text and attribute lists in its own compact storage: GetTextView
// and GetAttributeSpan read them as they are, while GetText and GetAttributes make
// a std::string or std::vector of them at their first call on an element, which
// then lives as long as the document.
class ORVEXXML_API CXmlElement : public CInstanceMonitor
{
public:
    // The attributes of an element in document order, as a range of pointers.
    class AttributeSpan
    {
    public:
        // count pointers from first on.
        AttributeSpan(CXmlAttribute* const* first, std::size_t count) : m_first(first), m_count(count) {}
        // The first attribute's pointer.
        CXmlAttribute* const* begin() const { return m_first; }
        // Just past the last attribute's pointer.
        CXmlAttribute* const* end() const { return m_first + m_count; }
        // The number of attributes.
        std::size_t size() const { return m_count; }
        // True when the element has no attribute.
        bool empty() const { return m_count == 0; }
        // The attribute at index, which must be below size().
        CXmlAttribute* operator[](std::size_t index) const { return m_first[index]; }

    private:
        CXmlAttribute* const* m_first;
        std::size_t m_count;
    };

    CXmlElement(const CXmlElement&) = delete;
    CXmlElement& operator=(const CXmlElement&) = delete;

    // The document that owns the element.
    const CXmlDocument* GetDocument() const { return m_document; }
    // Null when the element has no child element.
    CXmlElement* GetFirstElement() const { return m_firstChild; }
    // Null for the last child of its parent, and for the document element.
    CXmlElement* GetNextSiblingElement() const { return m_nextSibling; }
    // Empty when the element is in no namespace.
    const std::string& GetNamespaceURI() const { return *m_name->namespaceUri; }
    // The name without a prefix (with it, when read without namespace processing).
    const std::string& GetLocalName() const { return *m_name->localName; }
    // The element's own character data; empty when it has none.
    const std::string& GetText() const;
    // The same text without a copy; a NUL follows its last byte.
    std::string_view GetTextView() const
    {
        return m_text ? std::string_view(m_text, Detail::CTreeArena::TextLength(m_text)) : std::string_view("", 0);
    }
    // Every attribute in document order; the xmlns declarations are among them only
    // when the document is read without namespace processing.
    const std::vector<CXmlAttribute*>& GetAttributes() const;
    // The same attributes without a copy of the list.
    AttributeSpan GetAttributeSpan() const
    {
        return m_attributes ? AttributeSpan(m_attributes, AttributeCount()) : AttributeSpan(nullptr, 0);
    }
    // Value of the first attribute with this local name and namespace URI; an empty
    // string when there is none, which can't be told apart from an empty value.
    const std::string& GetAttribute(const std::string& localName, const std::string& namespaceUri) const;
    // The first attribute with this local name and namespace URI; null when there is none.
    const CXmlAttribute* FindAttribute(std::string_view localName, std::string_view namespaceUri) const;
    // Where the element's start tag is in the input it was read from.
    CSourceLocation GetLocation() const;

protected:
    // Made by document, which owns it.
    explicit CXmlElement(CXmlDocument* document);
    virtual ~CXmlElement();

    // Replaces the local name.
    void SetElementName(const std::string& localName);
    // Replaces the namespace URI.
    void SetNamespace(const std::string& namespaceUri);
    // Appends up to the terminator.
    void AppendText(const char* text);
    // Appends length bytes; a negative length appends nothing.
    void AppendText(const char* text, int length);
    // Creates an empty element at the end of this element's children.
    CXmlElement* CreateNewChildElement();
    // Appends an attribute and gives it; the element owns it.
    CXmlAttribute* AddAttribute(const std::string& localName, const std::string& value,
                                const std::string& namespaceUri);

private:
    friend class CXmlDocument;
    friend class CFastXmlReader;
    friend class Detail::CNodePool<CXmlElement, false>;

    void AppendBytes(const char* text, std::size_t length);
    CXmlAttribute* AddAttributeView(std::string_view localName, std::string_view value,
                                    std::string_view namespaceUri);
    // The attribute list lives in the document's arena: its count and capacity in
    // the two words in front of the first pointer.
    std::size_t AttributeCount() const { return reinterpret_cast<const std::size_t*>(m_attributes)[-2]; }
    std::size_t AttributeCapacity() const
    {
        return m_attributes ? reinterpret_cast<const std::size_t*>(m_attributes)[-1] : 0;
    }
    // Makes room for capacity attributes in all, keeping those there are.
    void ReserveAttributes(std::size_t capacity);

    CXmlDocument* m_document;
    CXmlElement* m_nextSibling;
    CXmlElement* m_firstChild;
    // The document's one copy of the pair of names: one pointer per element.
    const Detail::CQualifiedName* m_name;
    // The text in the document's arena; null when there is none.
    const char* m_text;
    // The attribute list in the document's arena; null when there is none.
    CXmlAttribute** m_attributes;
    // The start tag's place in one word: the kind in the top two bits, below them the
    // octet offset, or the line in 31 bits over the column in 31 bits. A text place
    // that does not fit is kept by the document; the word holds its index.
    static constexpr std::uint64_t LocationText = std::uint64_t(1) << 62;
    static constexpr std::uint64_t LocationBinary = std::uint64_t(2) << 62;
    static constexpr std::uint64_t LocationFar = std::uint64_t(3) << 62;
    static constexpr std::uint64_t LocationKind = std::uint64_t(3) << 62;
    static constexpr std::uint64_t LocationField = (std::uint64_t(1) << 31) - 1;
    std::uint64_t m_location = 0;
};

// A whole document loaded into a tree. Every load starts from the empty state, so a
// document can be reloaded; a failed load leaves what had been delivered up to the
// failure, and the destructor releases it.
class ORVEXXML_API CXmlDocument : public CInstanceMonitor
{
public:
    // Most entities a document type declaration may declare, general and parameter
    // entities together, unless the document allows more.
    static constexpr int MaxEntityDeclarations = 64;

    // An empty document that reads names by schemaType and the default reading options.
    explicit CXmlDocument(SchemaType schemaType = SchemaType_Namespaced);
    // Takes the schema type and the reading options of the context.
    explicit CXmlDocument(const CXmlSerializationContext& context);
    CXmlDocument(const CXmlDocument&) = delete;
    CXmlDocument& operator=(const CXmlDocument&) = delete;
    virtual ~CXmlDocument();

    // Parses UTF-8 text, or text whose declaration names an encoding the parser knows.
    // Null or empty text fails with "XML String is empty!"; a document without an
    // element fails with "Invalid or empty XML document"; a parser error fails with
    // "<parser text> at line <n>", and so does a document cut short unless truncated
    // documents are allowed.
    void LoadXml(const char* text);
    // Parses zero-terminated UTF-16 text. Null or empty text reaches the parser and
    // fails with "Invalid or empty XML document".
    void LoadXml(const unsigned short* text);
    // Reads the whole file and parses it as a stream. Fails with "Failed to open the
    // file [%s] Error [0x%08x]", "Failed to get the size of the file [%s] Error
    // [0x%08x]" or "Failed to read the contents of the file [%s] Error [0x%08x]" and
    // errno (0 when the file came back shorter than its size, ENOMEM when it does not
    // fit in memory); the file is closed by then. Files beyond 4 GiB load whole.
    void Load(const char* fileName);
    // Parses a copy of the bytes: XML text in any encoding the parser recognises,
    // Fast Infoset, or the gzip or zlib stream of either, told apart by the bytes.
    // A length of 0 (or null data) fails with "XML Stream is empty!".
    void LoadXmlStream(unsigned char* const data, unsigned long length);

    // Largest number of bytes a compressed input may inflate to (0: no limit);
    // CXmlSerializationContext::DefaultMaxInflatedSize until set.
    void SetMaxInflatedSize(std::uint64_t value) { m_maxInflatedSize = value; }
    // The limit set by SetMaxInflatedSize.
    std::uint64_t GetMaxInflatedSize() const { return m_maxInflatedSize; }

    // Null before a successful load.
    CXmlElement* GetDocumentElement() const { return m_documentElement; }
    // URI bound to prefix anywhere in the document (the last declaration wins); the
    // default namespace is the empty prefix. Empty when the prefix is unknown.
    std::string LookupNamespaceFromAlias(const char* prefix) const;
    // Every prefix declared in the document with the URI that LookupNamespaceFromAlias gives.
    const std::map<std::string, std::string>& GetPrefixTable() const { return m_prefixTable; }
    // How names are read: with or without namespace processing.
    SchemaType GetSchemaType() const { return m_schemaType; }

    // Reading options, as on CXmlSerializationContext; both are off by default.
    bool GetAllowTruncatedDocuments() const { return m_allowTruncatedDocuments; }
    // Sets GetAllowTruncatedDocuments.
    void SetAllowTruncatedDocuments(bool value) { m_allowTruncatedDocuments = value; }
    // True when a document type declaration may declare more than MaxEntityDeclarations entities.
    bool GetAllowManyEntityDeclarations() const { return m_allowManyEntityDeclarations; }
    // Sets GetAllowManyEntityDeclarations.
    void SetAllowManyEntityDeclarations(bool value) { m_allowManyEntityDeclarations = value; }

protected:
    // Back to the empty state: tree, input buffer, open element stack and prefix table.
    virtual void Cleanup();

private:
    friend class CXmlAttribute;
    friend class CXmlElement;
    friend class CExpatReader;
    friend class CFastInfosetReader;
    friend class CFastXmlReader;
    friend bool Detail::LoadTextWith(CXmlDocument& document, std::string_view text,
                                     Detail::TextReader reader);

    // Back to an empty tree and prefix table, keeping the input buffer for another reader.
    void ClearTree();
    // Runs a reader over the input buffer, then frees it. isText is true for text
    // given as a string, which is always XML text; other input is inflated first
    // when it is compressed, and may be Fast Infoset.
    void Parse(bool isText);
    // Replaces the input buffer by its inflated form when it holds a whole gzip or
    // zlib stream; otherwise leaves it as it is.
    void InflateInput();

    // Reader side. Each Add*Element creates the element, makes it the receiver of
    // text and children, and gives it back.
    CXmlElement* AddDocElement(const char* namespaceUri, const char* localName);
    CXmlElement* AddChildElement(const char* namespaceUri, const char* localName);
    // Document element when there is none yet, otherwise a child of the open element.
    CXmlElement* AddElement(std::string_view namespaceUri, std::string_view localName);
    // The same with the namespace URI already one of the document's shared copies.
    CXmlElement* AddElement(const std::string* namespaceUri, std::string_view localName);
    // The same with both names the document's shared copies.
    CXmlElement* AddInternedElement(const std::string* namespaceUri, const std::string* localName);
    // The same with the pair of names the document's shared copy.
    CXmlElement* AddNamedElement(const Detail::CQualifiedName* name);
    static void AddElementAttribute(CXmlElement* element, const std::string& localName, const std::string& value,
                                    const std::string& namespaceUri);
    static void AddElementAttributeView(CXmlElement* element, std::string_view localName, std::string_view value,
                                        std::string_view namespaceUri);
    static void ReserveAttributes(CXmlElement* element, std::size_t count);
    // Records where a reader found the element's start tag.
    static void SetElementTextLocation(CXmlElement* element, std::uint64_t line, std::uint64_t column)
    {
        if (line <= CXmlElement::LocationField && column <= CXmlElement::LocationField)
            element->m_location = CXmlElement::LocationText | line << 31 | column;
        else
            SetElementFarLocation(element, line, column);
    }
    // The same for a place beyond 31 bits of line or column, which the document keeps.
    static void SetElementFarLocation(CXmlElement* element, std::uint64_t line, std::uint64_t column);
    static void SetElementBinaryLocation(CXmlElement* element, std::uint64_t octetOffset);
    // Appends up to length bytes or the first NUL, every carriage return left out.
    static void AppendTextExcludingCR(CXmlElement* element, const char* text, unsigned long length);
    static void AppendTextExcludingCR(CXmlElement* element, const char* text);
    // The element that receives text now; null when none is open.
    CXmlElement* GetOpenElement() const { return m_openDepth ? m_openElements[m_openDepth - 1].element : nullptr; }
    // Appends length bytes to the text of the element that receives text now; one must be open.
    void AppendOpenText(const char* text, std::size_t length) { m_openElements[m_openDepth - 1].text.append(text, length); }
    // Closes the open element, storing its text; nothing happens when none is open.
    void EndElement();
    // Stores the text gathered so far for every element still open: run when a
    // reader has finished, also by failing, so that the tree holds all it delivered.
    void StoreOpenText();
    // Binds prefix to namespaceUri for the whole document, replacing an earlier binding.
    void SetNamespaceAlias(std::string_view prefix, std::string_view namespaceUri);

    // Input buffer: owned bytes that a load fills and Parse hands to a reader.
    unsigned char* AllocateInput(std::size_t length);
    // Takes over bytes prepared elsewhere (inflated input, for one) in place of the buffer.
    void ReplaceInput(std::unique_ptr<unsigned char[]> data, std::size_t length);
    void FreeInput();
    // Reads the caller's bytes in place, for text that is parsed as it is.
    void BorrowInput(const char* text, std::size_t length);
    const unsigned char* GetInput() const { return m_inputData; }
    std::size_t GetInputLength() const { return m_inputLength; }

    CXmlElement* NewElement();
    // Opens element as the receiver of text and children.
    void PushOpen(CXmlElement* element);
    struct OpenElement;
    // Stores the text gathered for an open element after what it has stored already.
    void StoreGatheredText(OpenElement& entry);
    // Stores the whole text of an element in the arena, or gives a stored one equal to it.
    const char* StoreElementText(std::string_view text);
    // Appends text to element: to the text being gathered when it is open, else to
    // its stored text.
    void AppendElementText(CXmlElement* element, std::string_view text);
    // A copy of the text or the attribute list of element, made at the first request.
    const std::string& TextCopy(const CXmlElement* element) const;
    const std::vector<CXmlAttribute*>& AttributesCopy(const CXmlElement* element) const;
    const std::string& ValueCopy(const CXmlAttribute* attribute) const;
    // The document's one copy of a name or namespace URI, made at its first use.
    const std::string* Intern(std::string_view text);
    // The document's one copy of the pair of shared names.
    const Detail::CQualifiedName* InternName(const std::string* namespaceUri, const std::string* localName);
    CXmlAttribute* NewAttribute(std::string_view localName, std::string_view value, std::string_view namespaceUri);

    // An element between its start and its end: its last child so far, and its text
    // gathered so far, stored in the arena when the element ends.
    struct OpenElement
    {
        CXmlElement* element;
        CXmlElement* lastChild;
        std::string text;
    };

    CXmlElement* m_documentElement;
    // The open elements, the innermost last. The entries beyond the depth are kept
    // for the next elements at that depth, which reuse their text buffers.
    std::vector<OpenElement> m_openElements;
    std::size_t m_openDepth = 0;
    std::map<std::string, std::string> m_prefixTable;
    std::unique_ptr<unsigned char[]> m_input;
    const unsigned char* m_inputData = nullptr;  // m_input or borrowed bytes
    std::size_t m_inputLength;
    std::uint64_t m_maxInflatedSize;
    SchemaType m_schemaType;
    bool m_allowTruncatedDocuments;
    bool m_allowManyEntityDeclarations;
    // Storage of every node of the tree. Links between nodes never own, so the tree
    // is torn down without any walk.
    // Elements and attributes own nothing (their text, values and attribute lists
    // are in the arena), so they are freed without running their destructors.
    Detail::CNodePool<CXmlElement, false> m_elements;
    Detail::CNodePool<CXmlAttribute, false> m_attributes;
    Detail::CTreeArena m_arena;
    // Short texts recently stored, by length and a few bytes: stored texts never
    // change, so elements with equal short text share one copy.
    const char* m_recentTexts[256] = {};
    // What GetText and GetAttributes gave out, by element, for the document's life.
    mutable std::mutex m_copiesMutex;
    mutable std::unordered_map<const CXmlElement*, std::string> m_textCopies;
    mutable std::unordered_map<const CXmlElement*, std::vector<CXmlAttribute*>> m_attributeCopies;
    mutable std::unordered_map<const CXmlAttribute*, std::string> m_valueCopies;
    // The names of the tree, each once, keyed by their text (recent ones by length
    // and end bytes), and the pairs of names of elements and attributes, keyed by
    // the addresses of the two names.
    static std::string_view NameKey(const std::string& name) { return name; }
    using NamePair = std::pair<const std::string*, const std::string*>;
    static NamePair PairKey(const Detail::CQualifiedName& name) { return NamePair(name.namespaceUri, name.localName); }
    Detail::CInternTable<std::string, std::string_view, &CXmlDocument::NameKey> m_names;
    Detail::CInternTable<Detail::CQualifiedName, NamePair, &CXmlDocument::PairKey> m_qualifiedNames;
    // Places of start tags beyond what fits in an element's word: line and column.
    std::vector<std::pair<std::uint64_t, std::uint64_t>> m_farLocations;
};

}  // namespace OrvexXmlLib5
