#include "orvexxml/fastinfoset/FastInfosetReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <filesystem>

#include "fastinfoset/FastInfosetTestSupport.h"
#include "fastinfoset/FiBytes.h"
#include "xml/TreeSignature.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;
using namespace FiBytes;

namespace {

const std::string kVectors = std::string(ORVEX_TEST_SOURCE_DIR) + "/fastinfoset/vectors";

std::vector<std::string> VectorFiles()
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(kVectors))
        if (entry.path().extension() == ".finf") files.push_back(entry.path().filename().string());
    std::sort(files.begin(), files.end());
    return files;
}

// The tree of a binary or text document, without places.
std::string Tree(const Bytes& bytes)
{
    CXmlDocument document;
    Load(document, bytes);
    return OrvexTest::TreeSignature(document, false);
}

// Loads bytes and gives the failure text, or "" when the load succeeded.
std::string Failure(const Bytes& bytes)
{
    try {
        CXmlDocument document;
        Load(document, bytes);
        return "";
    } catch (const COrvexException& e) {
        return e.GetMessage();
    }
}

// A root r with attributes, its first attribute a literal name a, then rest.
Bytes RootA(const Bytes& rest)
{
    return kHeader + Octets({0x7C}) + Identifier("r") + Octets({0x78}) + Identifier("a") + rest;
}

bool IsReaderFailure(const std::string& message) { return message.rfind("Failed to parse FastInfoset.", 0) == 0; }

// ---- tables filled through a declared vocabulary, so a large table costs two octets an entry ----

enum class Table { Prefix, Namespace, LocalName, ElementName, AttributeName, AttributeValue, Chunk };

Bytes WithVocabulary(unsigned int first, unsigned int second, const Bytes& lists)
{
    return Octets({0xE0, 0x00, 0x00, 0x01, 0x20, first, second}) + lists;
}

// count entries, the last one "last" and the others "x".
Bytes Strings(std::uint32_t count, bool encoded)
{
    Bytes out = SequenceLength(count);
    for (std::uint32_t i = 1; i <= count; ++i) {
        const std::string text = i == count ? "last" : "x";
        out += encoded ? Value(0, 0, text) : Identifier(text);
    }
    return out;
}

// count name surrogates, the last one naming local name 2 and the others local name 1.
Bytes Surrogates(std::uint32_t count)
{
    Bytes out = SequenceLength(count);
    for (std::uint32_t i = 1; i <= count; ++i) out += Octets({0x00}) + IntOnSecondBit(i == count ? 2 : 1);
    return out;
}

// A document whose table holds entries entries (its built-in one included) and that
// refers to entry reference; what the reference gave is read back by Referred.
Bytes TableDocument(Table table, std::uint32_t entries, std::uint32_t reference)
{
    const Bytes end = Octets({0xFF});
    switch (table) {
    case Table::Prefix:
        return WithVocabulary(entries > 1 ? 0x02 : 0, 0, entries > 1 ? Strings(entries - 1, false) : Bytes()) +
               Octets({0x38, 0xCF}) + IdentifierIndex(reference) + Identifier("urn:p") + Octets({0xF0, 0x3C}) +
               Identifier("r") + end;
    case Table::Namespace:
        return WithVocabulary(entries > 1 ? 0x01 : 0, 0, entries > 1 ? Strings(entries - 1, false) : Bytes()) +
               Octets({0x3D}) + IdentifierIndex(reference) + Identifier("r") + end;
    case Table::LocalName:
        return WithVocabulary(0, 0x80, Strings(entries, false)) + Octets({0x3C}) + IdentifierIndex(reference) + end;
    case Table::ElementName:
        return WithVocabulary(0, 0x82, Strings(2, false) + Surrogates(entries)) + IntOnThirdBit(reference) + end;
    case Table::AttributeName:
        return WithVocabulary(0, 0x81, Strings(2, false) + Surrogates(entries)) + Octets({0x7C}) + Identifier("r") +
               IntOnSecondBit(reference) + Value(0, 0, "v") + Octets({0xFF, 0xF0});
    case Table::AttributeValue:
        return WithVocabulary(0, 0x10, Strings(entries, true)) + Octets({0x7C}) + Identifier("r") +
               Octets({0x78}) + Identifier("a") + Or(IntOnSecondBit(reference), 0x80) + Octets({0xFF, 0xF0});
    case Table::Chunk:
        return WithVocabulary(0, 0x08, Strings(entries, true)) + Octets({0x3C}) + Identifier("r") +
               Or(IntOnFourthBit(reference), 0xA0) + end;
    }
    return Bytes();
}

std::string Referred(Table table, const CXmlDocument& document)
{
    const CXmlElement* root = document.GetDocumentElement();
    switch (table) {
    case Table::Prefix:
        for (const auto& binding : document.GetPrefixTable())
            if (binding.second == "urn:p") return binding.first;
        return "?";
    case Table::Namespace:
        return root->GetNamespaceURI();
    case Table::LocalName:
    case Table::ElementName:
        return root->GetLocalName();
    case Table::AttributeName:
        return root->GetAttributes().at(0)->GetLocalName();
    case Table::AttributeValue:
        return root->GetAttributes().at(0)->GetValue();
    case Table::Chunk:
        return root->GetText();
    }
    return "?";
}

}  // namespace

TEST(FastInfosetReader, EveryIndexFormOfEveryTableReachesItsEntry)
{
    // Each table at the last and first index of every length of its index, which stands
    // on the second bit (one to three octets), the third (element names, one to four) or
    // the fourth (chunks, one to four). Entry 1 of the prefix and namespace tables is built in.
    const std::vector<std::uint32_t> second = {1, 64, 65, 8256, 8257};
    const std::tuple<Table, std::vector<std::uint32_t>, const char*> cases[] = {  // table, indexes, first
        {Table::Prefix, second, "xml"},
        {Table::Namespace, second, "http://www.w3.org/XML/1998/namespace"},
        {Table::LocalName, {1, 64, 65, 8256, 8257, 100000}, "last"},
        {Table::ElementName, {1, 32, 33, 2080, 2081, 526368, 526369}, "last"},
        {Table::AttributeName, second, "last"},
        {Table::AttributeValue, second, "last"},
        {Table::Chunk, {1, 16, 17, 1040, 1041, 263184, 263185}, "last"},
    };
    for (const auto& [table, indexes, first] : cases)
        for (std::uint32_t index : indexes) {
            SCOPED_TRACE(std::to_string(static_cast<int>(table)) + " index " + std::to_string(index));
            CXmlDocument document;
            Load(document, TableDocument(table, index, index));
            EXPECT_EQ(Referred(table, document), index == 1 ? first : "last");
            // One entry past the end is never read.
            EXPECT_EQ(Failure(TableDocument(table, index, index + 1)),
                      "Failed to parse FastInfoset. Index out of range of its table.");
        }
}

TEST(FastInfosetReader, EveryLengthFormReadsWholeStrings)
{
    // The bit the length stands on (2: a literal name, 5: an attribute value, 7: a chunk), and the length.
    const std::pair<int, std::size_t> cases[] = {
        {2, 1}, {2, 64}, {2, 65}, {2, 320}, {2, 321}, {2, 70000}, {5, 1},   {5, 8},   {5, 9},
        {5, 264}, {5, 265}, {5, 70000}, {7, 1}, {7, 2}, {7, 3}, {7, 258}, {7, 259}, {7, 70000}};
    for (const auto& [position, length] : cases) {
        SCOPED_TRACE(std::to_string(position) + " " + std::to_string(length));
        const std::string text(length, 'n');
        const Bytes bytes = position == 2   ? kHeader + Octets({0x3C}) + Identifier(text) + Octets({0xFF})
                            : position == 5 ? RootA(Value(0, 0, text) + Octets({0xFF, 0xF0}))
                                            : Root(Chunk(0, 0, text));
        CXmlDocument document;
        Load(document, bytes);
        const CXmlElement* root = document.GetDocumentElement();
        const std::string& got = position == 2   ? root->GetLocalName()
                                 : position == 5 ? root->GetAttributes().at(0)->GetValue()
                                                 : root->GetText();
        EXPECT_EQ(got, text);
        // The same document cut anywhere inside the string runs out of input.
        EXPECT_EQ(Failure(bytes.substr(0, bytes.size() - 3)), "Failed to parse FastInfoset. Unexpected End of File.");
    }
}

TEST(FastInfosetReader, StringKindsAlphabetsAndAlgorithms)
{
    // Alphabets a document declares are numbered from 16: one of three characters (two
    // bits each) and the 95 printable ASCII characters (seven bits each).
    std::string printable;
    for (char c = 0x20; c < 0x7F; ++c) printable += c;
    const Bytes declared = Octets({0xE0, 0x00, 0x00, 0x01, 0x20, 0x08, 0x00}) + SequenceLength(2) + Identifier("abc") +
                           Identifier(printable) + Octets({0x3C}) + Identifier("r");
    const std::tuple<Bytes, const char*> cases[] = {  // bytes, text
        {Root(Chunk(0, 0, "caf\xC3\xA9")), "caf\xC3\xA9"},
        {Root(Chunk(1, 0, Octets({0x00, 'h', 0x00, 0xE9, 0xD8, 0x3D, 0xDE, 0x00}))), "h\xC3\xA9\xF0\x9F\x98\x80"},
        {Root(Chunk(2, 0, Octets({0x12, 0x3F}))), "123"},          // the low half F ends an odd count
        {Root(Chunk(2, 0, Octets({0x12, 0x34}))), "1234"},
        {Root(Chunk(2, 0, Octets({0xCD, 0xEF}))), ".E "},         // the numeric alphabet's E is upper case
        {Root(Chunk(2, 1, Octets({0x2C, 0x0F}))), "2T0"},          // date and time
        {Root(Chunk(3, 0, Octets({0xAB, 0xCD}))), "ABCD"},         // hexadecimal
        {Root(Chunk(3, 1, Octets({0x01, 0x02, 0x03}))), "AQID"},   // base64
        {Root(Chunk(3, 3, Octets({0x00, 0x00, 0x00, 0x07, 0xFF, 0xFF, 0xFF, 0xFE}))), "7 -2"},  // int
        {Root(Chunk(3, 9, "<b>")), "<b>"},                         // cdata
        {declared + Chunk(2, 15, Octets({0x87})) + Octets({0xFF}), "cab"},  // 10 00 01, then ones
        {declared + Chunk(2, 16, Octets({(40 << 1) | (73 >> 6), ((73 & 0x3F) << 2) | 3})) + Octets({0xFF}), "Hi"},
        {RootA(Value(2, 0, Octets({0x1F})) + Octets({0xFF, 0xF0})), "1"},
        {RootA(Value(1, 0, Octets({0x00, 'x'})) + Octets({0xFF, 0xF0})), "x"},
    };
    for (const auto& [bytes, text] : cases) {
        CXmlDocument document;
        Load(document, bytes);
        const CXmlElement* root = document.GetDocumentElement();
        EXPECT_EQ(root->GetAttributes().empty() ? root->GetText() : root->GetAttributes()[0]->GetValue(), text);
    }
}

TEST(FastInfosetReader, DamagedDocumentsFailWithTheirOwnText)
{
    const std::string p = "Failed to parse FastInfoset. ";
    const std::tuple<Bytes, std::string> cases[] = {  // bytes, message
        {kHeader + Octets({0x38, 0xF0, 0x38}),
         p + "Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet."},
        {Root(Octets({0xBC})), p + "Invalid Encoding of integers 1 To 2^20 type  on the fourth bit of an octet."},
        {RootA(Octets({0xE0, 0x00})),
         p + "Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet."},
        {kHeader + Octets({0x3C, 0x41}), p + "Invalid NonEmptyOctetString type  on the second bit of an octet."},
        {RootA(Octets({0x09})),
         p + "Invalid NonEmptyOctetString type  on the fifth bit of an octet."},
        {kHeader + Octets({0x3E}), p + "Invalid QName type Prefix without Namespace."},
        {Root(Octets({0xC0})), p + "Invalid Encoding of Element type."},
        {Root(Octets({0xF0})) + Octets({0x3C}) + Identifier("s") + Octets({0xFF}),  // a second root
         p + "Invalid Encoding of Element type."},
        {Root(Chunk(3, 10, "x")), p + "Invalid NonEmptyOctetEncryptedString."},
        {Root(Chunk(2, 20, "x")), p + "Index out of range of its table."},
        {Root(Chunk(2, 2, "x")),  // reserved for built-in alphabets that do not exist
         p + "Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and 2^20 characters."},
        {Root(Chunk(2, 0, Octets({0xF1}))), p + "Invalid Encoding of Restricted Alphabet. Character out of the alphabet."},
        {Root(Octets({0xA0})), p + "Index out of range of its table."},
        {kHeader + Octets({0x3C, 0x00}), p + "Unexpected End of File."},
        {kHeader + Octets({0x3C}) + Identifier("r"), p + "Unexpected End of File."},  // no terminator
        {kHeader + Octets({0xF0}), "Invalid or empty XML document"},
        {kHeader + Octets({0xE2, 0xFF, 0xF0}), "Invalid or empty XML document"},
    };
    for (const auto& [bytes, message] : cases) EXPECT_EQ(Failure(bytes), message);
    // A value that is not a whole number of items (3 octets are no int) keeps its own reason inside.
    try {
        CXmlDocument document;
        Load(document, Root(Chunk(3, 3, "abc")));
        ADD_FAILURE();
    } catch (const COrvexException& e) {
        EXPECT_EQ(e.GetMessage(), p + "Invalid NonEmptyOctetEncryptedString.");
        ASSERT_NE(e.GetInnerException(), nullptr);
        EXPECT_FALSE(e.GetInnerException()->GetMessage().empty());
    }
}

TEST(FastInfosetReader, DocumentStructure)
{
    const Bytes r = Octets({0x3C}) + Identifier("r");
    const Bytes comment = Octets({0xE2}) + Value(0, 0, "c");
    const Bytes pi = Octets({0xE1}) + Identifier("t") + Value(0, 0, "d");
    const Bytes doctype = Octets({0xC7}) + Identifier("sys") + Identifier("pub") + pi + Octets({0xF0});
    const std::tuple<Bytes, const char*> cases[] = {  // bytes, xml
        // Comments, processing instructions and a type declaration before and after the root.
        {kHeader + comment + pi + doctype + r + Octets({0xF0}) + comment + pi + Octets({0xF0}), "<r/>"},
        // The declarations that may stand in front; a declaration matches only exactly.
        {Bytes("<?xml version='1.0' encoding='finf'?>") + kHeader + r + Octets({0xFF}), "<r/>"},
        {Bytes("<?xml encoding='finf' standalone='no'?>") + kHeader + r + Octets({0xFF}), "<r/>"},
        // Every optional header component, then the root.
        {Octets({0xE0, 0x00, 0x00, 0x01, 0x5F}) + SequenceLength(1) + Identifier("id") + Identifier("data") +
             Octets({0xC3}) + Identifier("n") + Identifier("s") + Identifier("p") + Octets({0xF0}) + Octets({0xD1}) +
             Identifier("e") + Identifier("s") + Identifier("p") + Identifier("n") + Octets({0xF0}) +
             Identifier("UTF-8") + Octets({0x01}) + Value(0, 0, "1.0") + r + Octets({0xFF}),
         "<r/>"},
        // Attributes then 0xFF close only the element; 0xFF after a child closes two.
        {RootA(Octets({0xFF, 0xFF, 0xF0})), "<r a=''/>"},
        {kHeader + r + Octets({0x3C}) + Identifier("c") + r + Octets({0xFF, 0x3C}) + Identifier("d") +
             Octets({0xFF, 0xF0}),
         "<r><c><r/></c><d/></r>"},
        // Text joins across comments, PIs, entity references and children; carriage returns go.
        {Root(Chunk(0, 0, "a\r") + comment + Chunk(0, 0, "b") + pi + Octets({0xCB}) + Identifier("e") +
              Identifier("s") + Identifier("p") + Octets({0x3C}) + Identifier("c") + Octets({0xF0}) +
              Chunk(0, 0, "c")),
         "<r>abc<c/></r>"},
        // Prefix and namespace 1 are built in; a declaration of the default namespace has no prefix.
        {kHeader + Octets({0x78, 0xCD}) + Identifier("urn:d") + Octets({0xF0, 0x3D}) + IdentifierIndex(2) +
             Identifier("r") + Octets({0x7B}) + IdentifierIndex(1) + IdentifierIndex(1) + Identifier("lang") +
             Value(0, 0, "en") + Octets({0xFF, 0xF0}),
         "<r xmlns='urn:d' xml:lang='en'/>"},
        {Root(Chunk(0, 0, "x", true) + Octets({0xA0})), "<r>xx</r>"},
    };
    // Texts that only look like binary documents are checked in XmlDocumentStreamTest.
    for (const auto& [bytes, xml] : cases) EXPECT_EQ(Tree(bytes), Tree(xml)) << xml;
    // Added values come back by index; one without the add bit takes no place. The names
    // repeat by index too, which no text document can do.
    CXmlDocument document;
    Load(document, RootA(Value(0, 0, "one", true) + Octets({0x78}) + Identifier("b") + Value(0, 0, "two") +
                         Octets({0x00, 0x80, 0x01, 0xFF, 0xFF, 0xF0})));
    std::string attributes;
    for (const CXmlAttribute* a : document.GetDocumentElement()->GetAttributes())
        attributes += a->GetLocalName() + "=" + a->GetValue() + " ";
    EXPECT_EQ(attributes, "a=one b=two a=one b= ");
}

TEST(FastInfosetReader, TreesCopiedFromTablesHaveABudget)
{
    // A 60000-octet chunk added once and sent back by index on one octet each time.
    Bytes body = Chunk(0, 0, std::string(60000, 'z'), true);
    body += std::string(1000, static_cast<char>(0xA0));
    EXPECT_EQ(Failure(Root(body)), "Failed to parse FastInfoset. The document expands far beyond its own size.");
}

TEST(FastInfosetReader, VectorsReadIntoTheTreeOfTheirXmlAndEveryDamageFailsCleanly)
{
    const std::vector<std::string> files = VectorFiles();
    ASSERT_GE(files.size(), 25u);
    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        const Bytes bytes = OrvexTest::ReadBinaryFile(kVectors + "/" + file);
        EXPECT_EQ(Tree(bytes),
                  Tree(OrvexTest::ReadBinaryFile(kVectors + "/" + file.substr(0, file.find('.')) + ".xml")));
        // Vectors under 4 KB are cut at every length, larger ones at a stride; the fuzz
        // target covers the rest.
        const std::size_t cutStride = bytes.size() < 4096 ? 1 : bytes.size() / 200;
        for (std::size_t cut = 5; cut < bytes.size(); cut += cutStride) {
            const std::string message = Failure(bytes.substr(0, cut));
            ASSERT_TRUE(IsReaderFailure(message)) << "cut at " << cut << ": " << message;
        }
        const std::size_t stride = std::max<std::size_t>(1, bytes.size() / 120);
        for (std::size_t at = 4; at < bytes.size(); at += stride) {
            for (unsigned int change : {0x01u, 0x80u, 0xFFu}) {
                Bytes damaged = bytes;
                damaged[at] = static_cast<char>(damaged[at] ^ change);
                const std::string message = Failure(damaged);
                // A damaged octet may still leave a well-formed document, or one that
                // ends before its root element.
                ASSERT_TRUE(message.empty() || IsReaderFailure(message) || message == "Invalid or empty XML document")
                    << "octet " << at << " ^ " << change << ": " << message;
            }
        }
    }
}

TEST(FastInfosetReader, DeepNestingCostsNoStack)
{
    const std::size_t depth = 300000;
    const Bytes bytes = kHeader + Octets({0x3C}) + Identifier("a") + std::string(depth, '\0') +
                        std::string(depth + 2, static_cast<char>(0xF0));
    CXmlDocument document;
    Load(document, bytes);
    std::size_t levels = 0;
    for (const CXmlElement* e = document.GetDocumentElement(); e; e = e->GetFirstElement()) ++levels;
    EXPECT_EQ(levels, depth + 1);
}
