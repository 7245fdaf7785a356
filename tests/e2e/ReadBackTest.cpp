// What the library reads from any input encoding it writes so that it reads back:
// names that only the parser's Latin-1 and UTF-16 reading would let through are
// refused on every input, as UTF-8 input refuses them.
#include <gtest/gtest.h>

#include <string>

#include "TestUtil.h"
#include "examples/binding/Order.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

namespace {

const char16_t kBody[] = u" xmlns:o=\"urn:orvex:order\" id=\"7\" status=\"held\"><o:Customer vip=\"true\"><o:Name>Ada"
                         u"</o:Name><o:Address country=\"GB\"><o:Street>1 Way</o:Street><o:City>Leeds</o:City>"
                         u"<o:Zip>7</o:Zip></o:Address></o:Customer><o:Line sku=\"A1\"><o:Quantity>3</o:Quantity>pens</o:Line>"
                         u"<o:Note>noon</o:Note>";

const unsigned short* Units(const std::u16string& text) { return reinterpret_cast<const unsigned short*>(text.c_str()); }

std::string Utf8(char16_t c)
{
    return c < 0x80 ? std::string(1, static_cast<char>(c))
                    : std::string{static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
}

bool Utf8TakesName(const std::string& name)
{
    try {
        CXmlDocument document;
        document.LoadXml(("<" + name + "/>").c_str());
        return true;
    } catch (const COrvexException&) {
        return false;
    }
}

const char* const kInvalidToken = "not well-formed (invalid token) at line 1";

}  // namespace

// Each character of the Latin-1 range as part of a root name read from UTF-16 and
// from declared Latin-1 text: either both refuse it as UTF-8 does, or the object
// writes a name that reads back the same.
TEST(ReadBack, RootNamesFromUtf16AndLatin1WriteWhatReadsBack)
{
    int refused = 0;
    for (char16_t c = 0x80; c <= 0xFF; ++c) {
        const std::u16string names[] = {u"O" + std::u16string(1, c), std::u16string(1, c)};
        for (const std::u16string& name : names) {
            const std::u16string xml = u"<" + name + kBody + u"</" + name + u">";
            std::string latin1 = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
            for (char16_t unit : xml) latin1 += static_cast<char>(unit);
            std::string utf8Name;
            for (char16_t unit : name) utf8Name += Utf8(unit);
            const bool valid = Utf8TakesName(utf8Name);

            CSmartPtr<COrder> fromWide = COrder::CreateInstance();
            CSmartPtr<COrder> fromLatin1 = COrder::CreateInstance();
            if (!valid) {
                ++refused;
                EXPECT_THROW_MSG(fromWide->FromXml(Units(xml)), COrvexException, kInvalidToken) << int(c);
                EXPECT_THROW_MSG(fromLatin1->FromXml(latin1.c_str()), COrvexException, kInvalidToken) << int(c);
                continue;
            }
            fromWide->FromXml(Units(xml));
            fromLatin1->FromXml(latin1.c_str());
            const std::string written = fromWide->ToXml(false, false, EOL_LF);
            EXPECT_EQ(written, fromLatin1->ToXml(false, false, EOL_LF)) << int(c);
            CSmartPtr<COrder> back = COrder::CreateInstance();
            back->FromXml(written.c_str());
            EXPECT_EQ(written, back->ToXml(false, false, EOL_LF)) << int(c);
            EXPECT_EQ(0u, written.find("<AA:" + utf8Name + " ")) << int(c);
        }
    }
    // U+0080 to U+00BF, the times and the division sign are refused in both places,
    // except the middle dot after the first character.
    EXPECT_EQ(2 * 0x40 + 2 * 2 - 1, refused);
}

// Attribute names and namespace prefixes go by the same rule.
TEST(ReadBack, AttributeNamesAndPrefixesFromUtf16)
{
    const std::u16string cases[] = {
        u"<o:Order xmlns:o=\"urn:orvex:order\" x\u00B5=\"1\"/>",
        u"<o:Order xmlns:o=\"urn:orvex:order\" xmlns:\u00BA=\"urn:x\" \u00BA:x=\"1\"/>",
        u"<\u00AA:Order xmlns:\u00AA=\"urn:orvex:order\"/>",
    };
    for (const std::u16string& xml : cases) {
        CSmartPtr<COrder> order = COrder::CreateInstance();
        EXPECT_THROW_MSG(order->FromXml(Units(xml)), COrvexException, kInvalidToken);
    }
}
