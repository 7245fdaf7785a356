// The lending library read and written through FromXml and ToXml: round trips,
// and every failure of the sequence and choice members under each option of the
// context, checked by exact text along the chain from the root.
#include <gtest/gtest.h>

#include "TestUtil.h"
#include "e2e/EndToEndSupport.h"
#include "examples/ExamplePaths.h"
#include "examples/library/Library.h"
#include "examples/purchase-order/PurchaseOrderTools.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;
using namespace OrvexTest;

namespace {

const char* const kAddress =
    "<l:Address country=\"GB\"><l:Street>4 Mill Lane</l:Street><l:City>Ely</l:City></l:Address>";

std::string Library(const std::string& content)
{
    return "<l:Library xmlns:l=\"urn:orvex:library\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
           "name=\"Riverside\">" +
           content + "</l:Library>";
}

std::string Book(const std::string& body)
{
    return "<l:Book isbn=\"9780141439518\">" + body + "</l:Book>";
}

// A library of one book with the given body.
std::string BookDoc(const std::string& body)
{
    return Library(kAddress + Book(body));
}

const char* const kPlainBody = "<l:Title>Emma</l:Title><l:Author>Jane Austen</l:Author><l:Genre>fiction</l:Genre>";

std::string EditionDoc(const std::string& edition)
{
    return BookDoc(std::string(kPlainBody) + "<l:Edition>" + edition + "</l:Edition>");
}

std::string InBook(const std::string& cause)
{
    return "Failed to process the element [Library]\nFailed to process the element [Book]\n" + cause;
}

std::string InEdition(const std::string& cause)
{
    return InBook("Failed to process the element [Edition]\n" + cause);
}

const std::string kNoChoice =
    "No child elements within the element [Edition] were populated. The element represents a choice, so one and "
    "only one element should be populated. The element contained no sutable child elements";

}  // namespace

TEST(Library, SampleReadsIntoTypedPropertiesAndWritesBackTheSame)
{
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    library->FromXml(ReadTextFile(ExamplePath("library/library.xml")).c_str());
    EXPECT_EQ("Riverside Lending Library|CB7 4AA", library->GetName() + "|" + library->GetAddress()->GetPostcode());
    ASSERT_EQ(3, library->GetBooks()->GetCount());
    CSmartPtr<CBook> first = library->GetBooks()->Item(0), second = library->GetBooks()->Item(1);
    EXPECT_EQ(Genre_Fiction, first->GetGenre());
    EXPECT_EQ(1813, first->GetYear());
    EXPECT_DOUBLE_EQ(7.99, first->GetPrice());
    EXPECT_EQ(432, first->GetEdition()->GetPrint()->GetPages());
    EXPECT_FALSE(second->IsValidYear());
    EXPECT_EQ("epub", second->GetEdition()->GetEbook());
    EXPECT_EQ(1260, library->GetBooks()->Item(2)->GetEdition()->GetAudio());

    ASSERT_EQ(2, library->GetMembers()->GetCount());
    EXPECT_DOUBLE_EQ(25.0, dynamic_cast<CAdultMembership&>(*library->GetMembers()->Item(0)->GetMembership()).GetFee());
    EXPECT_EQ("Ely College",
              dynamic_cast<CStudentMembership&>(*library->GetMembers()->Item(1)->GetMembership()).GetSchool());

    // The derived class tells its type; reading the output back gives the same output.
    const std::string written = library->ToXml(false, false, EOL_LF);
    EXPECT_NE(std::string::npos, written.find("<AA:Membership xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                              "AB:type=\"AA:StudentMembership\">"));
    CSmartPtr<CLibrary> again = CLibrary::CreateInstance();
    ASSERT_EQ("read", ReadChain(again, written));
    EXPECT_EQ(written, WriteChain(again));
}

// Mandatory members of a sequence under the options. The descriptors' own tests
// take each kind alone; here the chain from the root, and skipping across levels.
TEST(LibrarySeqMandatory, MissingAndUnknownElementsUnderTheOptions)
{
    const std::string noTitle = InBook("Failed to find a required element [Title]");
    const std::string plain = kPlainBody;
    const struct { std::string xml; const char* option; std::string chain; int year; } cases[] = {
        {BookDoc("<l:Author>A</l:Author><l:Genre>fiction</l:Genre>"), "", noTitle, 0},
        {EditionDoc("<l:Print pages=\"10\"/>"), "",
         InEdition("Failed to process the element [Print]\nFailed to find a required element [Binding]"), 0},
        // An unknown element in front of a mandatory one is passed over only when skipping.
        {BookDoc("<l:Blurb/>" + plain), "", noTitle, 0},
        {BookDoc("<l:Blurb/><l:Note>x</l:Note>" + plain), "unknown", "read", 0},
        // The missing Address skips the books themselves before it gives up.
        {Library(Book(plain)), "unknown",
         "Failed to process the element [Library]\nFailed to find a required element [Address]", 0},
        {Library(Book(plain)), "missing", "read", 0},
        // Optional members never skip: an unknown element in front of Year hides it,
        // and the leftover is passed over in silence.
        {BookDoc(plain + "<l:Blurb/><l:Year>1815</l:Year>"), "unknown", "read", 0},
        // Giving up keeps the position for the next member, and the foreign element
        // is not consumed by it, so it is still left over.
        {BookDoc("<l:Genre>history</l:Genre><l:Year>1990</l:Year>"), "missing", "read", 1990},
        {BookDoc("<l:Title>T</l:Title><l:Blurb/><l:Genre>fiction</l:Genre>"), "missing",
         InBook(Leftover("Book", "Blurb")), 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.xml + " / " + c.option);
        CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
        EXPECT_EQ(c.chain, ReadChain(library, c.xml, c.option));
        if (c.chain != "read") continue;
        const CSmartPtr<CBook> book = library->GetBooks()->Item(0);
        EXPECT_EQ(c.year, book->IsValidYear() ? book->GetYear() : 0);
    }
}

// The count test itself, maximum and minimum, is the collections' own; here the
// sequence's class collection calls it, and only when the option allows.
TEST(LibrarySeqCollection, CountsAreTestedUnlessIgnored)
{
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    EXPECT_EQ(
        "Failed to process the element [Library]\nThe Minimum number of [Book] elements allowed in this "
        "collection is 1",
        ReadChain(library, Library(kAddress)));
    EXPECT_EQ("read", ReadChain(library, Library(kAddress), "counts"));
    EXPECT_EQ(0, library->GetBooks()->GetCount());
    // An empty collection writes nothing, so that the short document is written.
    EXPECT_EQ(0u, WriteChain(library).find("<AA:Library"));
}

// The Edition choice.
// What the generic choice tests do not see: unknown elements are no alternative,
// with or without skipping, and the empty choice read leniently is written back
// only under the same leniency.
TEST(LibraryChoice, UnknownElementsAreNoAlternative)
{
    const struct { std::string edition; const char* option; std::string chain; } cases[] = {
        {"", "", InEdition(kNoChoice)},
        {"<l:Vinyl/>", "", InEdition(kNoChoice)},
        {"<l:Vinyl/><l:Tape/>", "unknown", InEdition(kNoChoice)},
        {"<l:Vinyl/><l:Tape/><l:Audio>60</l:Audio>", "unknown", "read"},
        {"", "choice", "read"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.edition);
        CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
        ASSERT_EQ(c.chain, ReadChain(library, EditionDoc(c.edition), c.option));
        if (c.chain != "read") continue;
        EXPECT_EQ(c.edition.empty() ? "" : "Audio", library->GetBooks()->Item(0)->GetEdition()->GetSelectedElement());
        if (!c.edition.empty()) continue;
        // The empty choice cannot be written back, unless the writing context ignores it too.
        EXPECT_EQ(
            "Failed to convert the element [Library] to XML\nFailed to convert the element [Book] to XML\n"
            "Failed to convert the element [Edition] to XML\nThis element is a choice, and as such must have at "
            "one (and only one) valid item, currently there are none set",
            WriteChain(library));
        EXPECT_EQ(0u, WriteChain(library, c.option).find("<AA:Library"));
    }
}

TEST(LibraryChoice, ClassAlternativeIsStoredBeforeItsContent)
{
    CSmartPtr<CLibrary> library = CLibrary::CreateInstance();
    // The Print alternative fails inside, yet it had been selected already.
    EXPECT_EQ(InEdition("Failed to process the element [Print]\nThe value [spiral] is not a valid Binding"),
              ReadChain(library, EditionDoc("<l:Print pages=\"3\"><l:Binding>spiral</l:Binding></l:Print>")));
    ASSERT_EQ("read",
              ReadChain(library, EditionDoc("<l:Print pages=\"3\"><l:Binding>hardcover</l:Binding></l:Print>")));
    EXPECT_EQ(Binding_Hardcover, library->GetBooks()->Item(0)->GetEdition()->GetPrint()->GetBinding());
    // Facets are tested on writing only: a facet of an alternative fails there, below
    // the choice's line.
    ASSERT_EQ("read", ReadChain(library, EditionDoc("<l:Ebook>djvu</l:Ebook>")));
    EXPECT_EQ(0u, WriteChain(library).find("Failed to convert the element [Library] to XML\nFailed to convert the "
                                           "element [Book] to XML\nFailed to convert the element [Edition] to XML\n"));
}

// A class property takes only an object of its own element name.
TEST(LibrarySetters, NamedObjectProperty)
{
    CSmartPtr<CBook> book = CBook::CreateInstance();
    EXPECT_TRUE(ThrowsExactly<COrvexInvalidParamException>(
        [&] { book->SetEdition(CEdition::CreateInstance("Version")); },
        "This property requrires an element with the name Edition the element being set has the element name "
        "Version"));
    EXPECT_TRUE(book->GetEdition().IsNull());
    book->SetEdition(nullptr);
}
