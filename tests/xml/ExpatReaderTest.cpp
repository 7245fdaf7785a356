#include "orvexxml/xml/ExpatReader.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>
#include <tuple>

#include "TestUtil.h"
#include "orvexxml/platform/CodePage.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;

// Allocation failure on demand, to raise an exception inside the parser's callbacks.
// Every form of new and delete is replaced so that the pairs stay matched (also
// under AddressSanitizer); unarmed, they are plain malloc and free.
namespace {

std::atomic<long> g_allocationsBeforeFailure{-1};

void* Allocate(std::size_t size)
{
    if (g_allocationsBeforeFailure.load() >= 0 && g_allocationsBeforeFailure.fetch_sub(1) == 0) throw std::bad_alloc();
    void* memory = std::malloc(size ? size : 1);
    if (!memory) throw std::bad_alloc();
    return memory;
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment)
{
    if (g_allocationsBeforeFailure.load() >= 0 && g_allocationsBeforeFailure.fetch_sub(1) == 0) throw std::bad_alloc();
    const std::size_t align = static_cast<std::size_t>(alignment);
    void* memory = std::aligned_alloc(align, (size + align - 1) / align * align);
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return Allocate(size);
    } catch (...) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void* operator new(std::size_t size, std::align_val_t alignment) { return AllocateAligned(size, alignment); }
void* operator new[](std::size_t size, std::align_val_t alignment) { return AllocateAligned(size, alignment); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }

namespace {

// Restores the process-wide encoding whatever a test sets.
class ExpatReader : public ::testing::Test
{
protected:
    void TearDown() override { SetLocalCharEncoding(3); }
};

const unsigned short* Units(const std::u16string& text) { return reinterpret_cast<const unsigned short*>(text.c_str()); }

// e-acute, a-umlaut, the euro sign (0x80 in 1252) and a CJK character that 1252 lacks.
const char kSample[] = "<\xC3\xA9 xmlns:\xC3\xA4='urn:\xC3\xA4' \xC3\xA4:n='\xC3\xBC'>\xE2\x82\xAC \xE4\xB8\xAD"
                       "<\xC3\xA4:c/></\xC3\xA9>";

}  // namespace

TEST_F(ExpatReader, LocalEncodingsConvertNamesValuesTextAndPrefixes)
{
    // Code page, then the root's name, the prefix, its URI, the attribute's value and the text.
    const std::tuple<unsigned int, std::string, std::string, std::string, std::string, std::string> cases[] = {
        {65001, "\xC3\xA9", "\xC3\xA4", "urn:\xC3\xA4", "\xC3\xBC", "\xE2\x82\xAC \xE4\xB8\xAD"},
        {3, "\xC3\xA9", "\xC3\xA4", "urn:\xC3\xA4", "\xC3\xBC", "\xE2\x82\xAC \xE4\xB8\xAD"},
        {1252, "\xE9", "\xE4", "urn:\xE4", "\xFC", "\x80 ?"},
        {28591, "\xE9", "\xE4", "urn:\xE4", "\xFC", "? ?"},
    };
    for (const auto& [codePage, name, prefix, uri, value, text] : cases) {
        SetLocalCharEncoding(codePage);
        CXmlDocument document;
        document.LoadXml(kSample);
        const CXmlElement* root = document.GetDocumentElement();
        EXPECT_EQ(root->GetLocalName(), name) << codePage;
        EXPECT_EQ(root->GetText(), text) << codePage;
        EXPECT_EQ(root->GetAttribute("n", uri), value) << codePage;
        EXPECT_EQ(root->GetFirstElement()->GetNamespaceURI(), uri) << codePage;
        EXPECT_EQ(document.LookupNamespaceFromAlias(prefix.c_str()), uri) << codePage;
    }
}

TEST_F(ExpatReader, LongNonAsciiNamesAndUtf16UnderALatinCodePage)
{
    std::string name;
    for (int i = 0; i < 300; ++i) name += "\xC3\xA9";
    SetLocalCharEncoding(1252);
    CXmlDocument document;
    document.LoadXml(("<" + name + ">" + name + "</" + name + ">").c_str());
    EXPECT_EQ(document.GetDocumentElement()->GetLocalName(), std::string(300, '\xE9'));
    EXPECT_EQ(document.GetDocumentElement()->GetText(), std::string(300, '\xE9'));
    document.LoadXml(Units(u"<a b='\u00E9'>\u20AC\u4E2D\U0001F600</a>"));
    EXPECT_EQ(document.GetDocumentElement()->GetAttribute("b", ""), "\xE9");
    EXPECT_EQ(document.GetDocumentElement()->GetText(), "\x80??");
}

// EBCDIC moves ASCII too: names, values, prefixes and all-ASCII text are converted
// like the rest, not passed through as they are for code pages that keep ASCII.
TEST_F(ExpatReader, EbcdicConvertsAsciiNamesAndTextToo)
{
    SetLocalCharEncoding(1140);
    CXmlDocument document;
    document.LoadXml("<a xmlns:p='urn:x' p:b='c'>\xC3\xA9\xE2\x82\xAC<p:a>abc</p:a></a>");
    const CXmlElement* root = document.GetDocumentElement();
    EXPECT_EQ(root->GetLocalName(), "\x81");
    EXPECT_EQ(root->GetText(), "\x51\x9F");
    EXPECT_EQ(root->GetAttribute("\x82", "\xA4\x99\x95\x7A\xA7"), "\x83");
    EXPECT_EQ(root->GetFirstElement()->GetText(), "\x81\x82\x83");
    EXPECT_EQ(root->GetFirstElement()->GetNamespaceURI(), "\xA4\x99\x95\x7A\xA7");
    EXPECT_EQ(document.LookupNamespaceFromAlias("\x97"), "\xA4\x99\x95\x7A\xA7");
    EXPECT_EQ(Platform::LocalToUtf8(std::string("\x81\x51")), "a\xC3\xA9");
    EXPECT_EQ(Platform::LocalToUtf16(std::string("\x81")), u"a");
    SetLocalCharEncoding(1252);
    document.LoadXml("<a>abc</a>");
    EXPECT_EQ(document.GetDocumentElement()->GetText(), "abc");
}

// Each allocation in turn fails while the tree is built: the failure must come out of
// the load as std::bad_alloc, never cross the parser's C frames, and leave a
// document that releases cleanly (the leak checker of the sanitizer build watches).
TEST_F(ExpatReader, AllocationFailureInsideCallbacksLeavesThroughTheLoad)
{
    // Names of their own make the tree's name tables grow along with its storage.
    std::string xml = "<r xmlns='urn:a-long-enough-namespace-uri' xmlns:p='urn:p'>";
    for (int i = 0; i < 40; ++i)
        xml += "<p:item-with-a-long-name-" + std::to_string(i) + " n" + std::to_string(i) +
               "='1' text='a value beyond the small string size'>"
               "some text that is long enough to live on the heap &amp; more</p:item-with-a-long-name-" +
               std::to_string(i) + ">\n";
    xml += "</r>";
    for (unsigned int codePage : {65001u, 1252u}) {
        SetLocalCharEncoding(codePage);
        int failures = 0;
        bool loaded = false;
        for (long before = 0; before < 5000 && !loaded; ++before) {
            CXmlDocument document;
            g_allocationsBeforeFailure = before;
            try {
                document.LoadXml(xml.c_str());
                loaded = document.GetDocumentElement()->GetFirstElement() != nullptr;
            } catch (const std::bad_alloc&) {
                ++failures;
            }
            g_allocationsBeforeFailure = -1;
        }
        EXPECT_TRUE(loaded) << codePage;
        EXPECT_GT(failures, 100) << codePage;
    }
}
