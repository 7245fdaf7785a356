#include "orvexxml/fastinfoset/FastInfosetWriter.h"

#include "orvexxml/fastinfoset/detail/WriterOctets.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/platform/CodePage.h"

namespace OrvexXmlLib5 {

using namespace Detail;

namespace {

const char* const XsiNamespace = "http://www.w3.org/2001/XMLSchema-instance";

const char* const DeclarationTexts[] = {
    nullptr,
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};

// Attribute values and text chunks shorter than this (in bytes of library text)
// are indexed; longer ones are written out every time. The Java Fast Infoset
// library indexes up to 31 UTF-16 units by default; with its limit set to 6 it
// writes our bytes for ASCII text. A short non-ASCII value can still part: it
// counts characters where we count octets, so "\u00E4\u00F6\u00FC\u00DF\u00E9" (10
// octets) is indexed there and written out here.
constexpr std::size_t ValueIndexLimit = 6;

// Octets of the document structure.
constexpr unsigned char AttributesBit = 0x40;
constexpr unsigned char NamespaceAttributesMark = 0x38;
constexpr unsigned char NamespaceAttributeItem = 0xCC;
constexpr unsigned char Terminator = 0xF0;
constexpr unsigned char DoubleTerminator = 0xFF;

bool IsAscii(const std::string& text)
{
    for (unsigned char c : text)
        if (c & 0x80) return false;
    return true;
}

}  // namespace

const char* GetFInfoDeclText(FInfoDecl declaration)
{
    const int number = static_cast<int>(declaration);
    if (number < 0 || number >= static_cast<int>(sizeof(DeclarationTexts) / sizeof(DeclarationTexts[0])))
        return nullptr;
    return DeclarationTexts[number];
}

CFastInfosetWriter::CFastInfosetWriter()
    : CXmlWriter("CFastInfosetWriter"), m_nameOffset(0), m_terminatorPending(false), m_documentEnded(false)
{
    m_prefixes.Add("xml");
    m_namespaceNames.Add(XmlNamespace);
}

CFastInfosetWriter::~CFastInfosetWriter() = default;

void CFastInfosetWriter::WriteStartDocument(FInfoDecl declaration)
{
    m_output.clear();
    m_declarations.clear();
    m_terminatorPending = false;
    m_documentEnded = false;
    // A writer that starts a second document starts its tables afresh, as the
    // reader of that document will.
    for (Detail::CWriterVocabulary* table : {&m_attributeNames, &m_attributeValues, &m_characterChunks,
                                             &m_elementNames, &m_localNames, &m_namespaceNames, &m_prefixes})
        table->Clear();
    m_prefixes.Add("xml");
    m_namespaceNames.Add(XmlNamespace);

    if (const char* text = GetFInfoDeclText(declaration)) {
        // The declaration is ASCII, which is the same in every local encoding.
        m_output.append(text);
    }
    m_output.reserve(0x10000);
    m_output.append("\xE0\x00\x00\x01", 4);
    Put(m_output, 0x00);
}

CBinaryData CFastInfosetWriter::GetOutput() const
{
    return CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(m_output.data())),
                       static_cast<unsigned long>(m_output.size()), false);
}

void CFastInfosetWriter::WriteEndDocument()
{
    CXmlWriter::WriteEndDocument();
    if (m_documentEnded) return;
    m_documentEnded = true;
    // The last element and the document end together when a terminator is owed.
    Put(m_output, m_terminatorPending ? DoubleTerminator : Terminator);
    m_terminatorPending = false;
}

void CFastInfosetWriter::WriteComment(const std::string&)
{
}

void CFastInfosetWriter::WriteProcessingInstruction(const std::string&)
{
    CloseStartTag();
}

void CFastInfosetWriter::WriteInlineSchema(const std::string&)
{
}

void CFastInfosetWriter::CloseStartTag()
{
    CXmlWriterContext* context = m_currentContext;
    if (!context || !context->m_startTagOpen) return;
    context->m_startTagOpen = false;
    const unsigned char attributes = context->m_hasAttributes ? AttributesBit : 0;
    if (m_declarations.empty()) {
        // The name starts on the third bit of the element's first octet.
        m_output[m_nameOffset] = static_cast<char>(static_cast<unsigned char>(m_output[m_nameOffset]) | attributes);
    } else {
        // The namespace attributes stand between the element's first octet and
        // its name, which then starts in an octet of its own.
        m_declarations.insert(m_declarations.begin(), static_cast<char>(attributes | NamespaceAttributesMark));
        Put(m_declarations, Terminator);
        m_output.insert(m_nameOffset, m_declarations);
        m_declarations.clear();
    }
    // The end of the attributes goes out at once; only an element's own end is
    // held back to share an octet. The Java library holds this one back too, so
    // that an element with attributes and no content ends in FF where we write
    // F0 and hold the next: the same items end, at no cost in a whole document.
    if (context->m_hasAttributes) Put(m_output, Terminator);
}

void CFastInfosetWriter::CheckAttributeAllowed() const
{
    if (!m_currentContext || !m_currentContext->m_startTagOpen)
        throw COrvexException("Attributes must be added before elements");
}

void CFastInfosetWriter::WriteStartElement(const std::string& localName, const std::string& namespaceUri)
{
    if (m_currentContext) {
        ++m_currentContext->m_childCount;
        CloseStartTag();
    }
    if (m_terminatorPending) {
        Put(m_output, Terminator);
        m_terminatorPending = false;
    }
    CXmlWriterContext* context = NewContext(localName, namespaceUri);
    // Made current at once, so that the writer owns it whatever fails below. Its
    // name goes out now; what stands in front of the name (the attributes bit and
    // the namespace attributes) is settled when the start tag closes, since the
    // attributes may still make prefixes that must be declared on this element.
    PushContext(context);

    m_declarations.clear();
    if (context->m_depth == 0) {
        // The root declares the writer's default namespace and map, ascending by URI.
        if (!m_defaultNamespace.empty()) AppendDeclaration("", m_defaultNamespace);
        for (const auto& entry : m_namespaces) AppendDeclaration(entry.second, entry.first);
    }

    // Elements are not tested against the default namespace: an element in it
    // takes a prefix from the map, or a made-up one, like any other.
    const std::string prefix = namespaceUri.empty() ? std::string() : ResolvePrefix(namespaceUri);
    m_nameOffset = m_output.size();
    WriteQualifiedName(m_output, 0, NameForm_Element, prefix, namespaceUri, localName);
}

std::string CFastInfosetWriter::ResolvePrefix(const std::string& namespaceUri)
{
    // The xml prefix is bound by definition and sits at index 1 of both tables;
    // it is never declared.
    if (namespaceUri == XmlNamespace) return "xml";
    const NamespaceMap& namespaces = m_currentContext->GetNamespaceMap();
    NamespaceMap::const_iterator found = namespaces.find(namespaceUri);
    if (found != namespaces.end()) return found->second;
    const std::string prefix = GetUniquePrefix(namespaces);
    m_currentContext->AddNamespace(namespaceUri, prefix);
    // A made-up prefix is declared with a namespace attribute on the element that
    // introduces it, as the text writer does. A name with a prefix that nothing
    // declares would be legal in the encoding but not in the infoset, and common
    // readers refuse it; declared, it also reaches the reader's prefix scope, so
    // that the document reads back with its namespaces. The element's children
    // see the prefix through the element's scope and declare nothing.
    AppendDeclaration(prefix, namespaceUri);
    return prefix;
}

void CFastInfosetWriter::AppendDeclaration(const std::string& prefix, const std::string& namespaceUri)
{
    // A string that the reader has already seen is sent as its index, so that
    // each string takes one table entry, whatever declares it again.
    Put(m_declarations, NamespaceAttributeItem | (prefix.empty() ? 0 : 0x02) | (namespaceUri.empty() ? 0 : 0x01));
    if (!prefix.empty()) WriteNamePart(m_declarations, prefix, m_prefixes);
    if (!namespaceUri.empty()) WriteNamePart(m_declarations, namespaceUri, m_namespaceNames);
}

void CFastInfosetWriter::WriteQualifiedName(std::string& out, unsigned char bits, NameForm form,
                                            const std::string& prefix, const std::string& namespaceUri,
                                            const std::string& localName)
{
    Detail::CWriterVocabulary& surrogates = form == NameForm_Element ? m_elementNames : m_attributeNames;
    // The same local name under another prefix is another name.
    m_key.assign(prefix);
    m_key.push_back('\x01');
    m_key.append(namespaceUri);
    m_key.push_back('\x01');
    m_key.append(localName);
    if (const std::uint32_t index = surrogates.Find(m_key)) {
        if (form == NameForm_Element)
            WriteIntegerOnThirdBit(out, bits, index);
        else
            WriteIntegerOnSecondBit(out, bits, index);
        return;
    }
    unsigned char header = form == NameForm_Element ? 0x3C : 0x78;
    // A prefix sets both bits: it never stands without a namespace.
    if (!prefix.empty())
        header |= 0x03;
    else if (!namespaceUri.empty())
        header |= 0x01;
    Put(out, bits | header);
    if (!prefix.empty()) WriteNamePart(out, prefix, m_prefixes);
    if (!namespaceUri.empty()) WriteNamePart(out, namespaceUri, m_namespaceNames);
    WriteNamePart(out, localName, m_localNames);
    surrogates.Add(m_key);
}

void CFastInfosetWriter::WriteNamePart(std::string& out, const std::string& part, Detail::CWriterVocabulary& table)
{
    if (const std::uint32_t index = table.Find(part)) {
        WriteIntegerOnSecondBit(out, 0x80, index);
        return;
    }
    WriteStringOnSecondBit(out, 0, Utf8(part));
    // The reader adds every literal name it can; past the limit neither side does.
    table.Add(part);
}

void CFastInfosetWriter::WriteAttribute(const std::string& localName, const std::string& namespaceUri,
                                        const std::string& value)
{
    CheckAttributeAllowed();
    const std::string prefix = namespaceUri.empty() ? std::string() : ResolvePrefix(namespaceUri);
    m_currentContext->m_hasAttributes = true;
    WriteQualifiedName(m_output, 0, NameForm_Attribute, prefix, namespaceUri, localName);
    WriteAttributeValue(value);
}

void CFastInfosetWriter::WriteXsiType(const std::string& namespaceUri, const std::string& typeName)
{
    CheckAttributeAllowed();
    if (namespaceUri.empty() || namespaceUri == m_currentContext->GetDefaultNamespace()) {
        WriteAttribute("type", XsiNamespace, typeName);
        return;
    }
    // The attribute's own name is xsi:type under the prefix of the XML Schema
    // instance namespace; the prefix of the type's namespace goes into the value
    // only, and both are declared when they are new.
    const std::string typePrefix = ResolvePrefix(namespaceUri);
    WriteAttribute("type", XsiNamespace, typePrefix + ":" + typeName);
}

void CFastInfosetWriter::WriteText(const std::string& text)
{
    CloseStartTag();
    if (text.empty()) return;
    // The chunk belongs to the parent of an element that has just ended.
    if (m_terminatorPending) {
        Put(m_output, Terminator);
        m_terminatorPending = false;
    }
    WriteCharacterChunk(text);
}

void CFastInfosetWriter::WriteEndElement()
{
    if (!m_currentContext) throw COrvexException("There is no open Element to end.");
    CloseStartTag();
    if (m_terminatorPending) {
        // Two elements end in one octet.
        Put(m_output, DoubleTerminator);
        m_terminatorPending = false;
    } else {
        m_terminatorPending = true;
    }
    PopContext();
}

void CFastInfosetWriter::WriteAttributeValue(const std::string& value)
{
    if (value.empty()) {
        Put(m_output, DoubleTerminator);  // index zero: the empty string
        return;
    }
    if (value.size() < ValueIndexLimit) {
        if (const std::uint32_t index = m_attributeValues.Find(value)) {
            WriteIntegerOnSecondBit(m_output, 0x80, index);
            return;
        }
        // With the add-to-table bit while the table has room.
        if (m_attributeValues.Add(value)) {
            WriteStringOnFifthBit(m_output, 0x40, Utf8(value));
            return;
        }
    }
    WriteStringOnFifthBit(m_output, 0, Utf8(value));
}

void CFastInfosetWriter::WriteCharacterChunk(const std::string& text)
{
    if (text.size() < ValueIndexLimit) {
        if (const std::uint32_t index = m_characterChunks.Find(text)) {
            WriteIntegerOnFourthBit(m_output, 0xA0, index);
            return;
        }
        if (m_characterChunks.Add(text)) {
            WriteStringOnSeventhBit(m_output, 0x90, Utf8(text));
            return;
        }
    }
    WriteStringOnSeventhBit(m_output, 0x80, Utf8(text));
}

const std::string& CFastInfosetWriter::Utf8(const std::string& text)
{
    if (IsAscii(text)) return text;
    m_utf8 = Platform::LocalToUtf8(text);
    return m_utf8;
}

}  // namespace OrvexXmlLib5
