// A failed read says where it stopped: the start tag of the element being read, by
// line and column, for the parser's own errors and for the binding's alike, while
// the messages along the chain stay exactly as they were.
#include <gtest/gtest.h>

#include <string>

#include "examples/library/Library.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;

namespace {

// Line 1 is the root; each later line holds one piece of content.
std::string LibraryLines(const std::string& lines)
{
    return "<l:Library xmlns:l=\"urn:orvex:library\" name=\"Riverside\">\n"
           "<l:Address country=\"GB\"><l:Street>4 Mill Lane</l:Street><l:City>Ely</l:City></l:Address>\n" +
           lines + "</l:Library>";
}

const char* const kBookStart = "<l:Book isbn=\"9780141439518\"><l:Title>Emma</l:Title><l:Author>J</l:Author>";

TEST(FailureLocation, ReadFailuresNameTheStartTagOfTheElementBeingRead)
{
    const struct { const char* what; std::string document; const char* place; const char* lastMessage; } cases[] = {
        {"a bad enumerated value in a child",
         LibraryLines(std::string(kBookStart) + "\n   <l:Genre>comic</l:Genre></l:Book>\n"), "line 4, column 4",
         "The value [comic] is not a valid Genre"},
        {"an element the sequence does not know",
         LibraryLines(std::string(kBookStart) + "<l:Genre>fiction</l:Genre></l:Book>\n  <l:Shelf/>\n"),
         "line 4, column 3", nullptr},
        {"a required attribute missing", LibraryLines("<l:Book><l:Title>Emma</l:Title></l:Book>\n"),
         "line 3, column 1", nullptr},
        {"a syntax error", LibraryLines("<l:Book>\n <a b=1/>"), "line 4, column 7", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
        try {
            library->FromXml(c.document.c_str());
            ADD_FAILURE() << "read";
        } catch (const COrvexException& e) {
            const std::string full = e.GetFullMessage();
            EXPECT_EQ(c.place, e.GetLocation().ToString()) << full;
            if (c.lastMessage) {
                EXPECT_EQ(c.lastMessage, full.substr(full.rfind('\n') + 1));
            }
            // The place is told beside the messages, never inside them.
            EXPECT_EQ(std::string::npos, full.find("column")) << full;
        }
    }
}

TEST(FailureLocation, Utf16InputCountsColumnsInCharacters)
{
    // Two characters of two octets each in UTF-8 in front of the failing element.
    const std::string text = LibraryLines(std::string(kBookStart) + "\n@@<l:Genre>comic</l:Genre></l:Book>\n");
    std::u16string wide(text.begin(), text.end());
    wide.replace(wide.find(u"@@"), 2, u"\u00E9\u00E9");
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    try {
        library->FromXml(reinterpret_cast<const unsigned short*>(wide.c_str()));
        ADD_FAILURE() << "read";
    } catch (const COrvexException& e) {
        EXPECT_EQ("line 4, column 3", e.GetLocation().ToString()) << e.GetFullMessage();
    }
}

TEST(FailureLocation, CopiesAndChainsKeepThePlaceAndOtherFailuresHaveNone)
{
    COrvexInvalidValueException inner("inner");
    EXPECT_FALSE(inner.GetLocation().IsKnown());
    EXPECT_EQ("", inner.GetLocation().ToString());
    inner.SetLocation(CSourceLocation::InBinary(1234));
    const COrvexException outer("outer", inner);
    EXPECT_EQ("octet 1234", outer.GetLocation().ToString());
    COrvexException assigned;
    assigned = outer;
    EXPECT_EQ("octet 1234", assigned.GetLocation().ToString());
    EXPECT_EQ("octet 1234", assigned.GetInnerException()->GetLocation().ToString());
    EXPECT_EQ("outer\ninner", assigned.GetFullMessage());
}

}  // namespace
