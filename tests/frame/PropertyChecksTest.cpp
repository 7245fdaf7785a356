// The checks that generated setters call, driven the way a generated choice class
// drives them: one selected-name string per class.
#include <gtest/gtest.h>

#include "TestUtil.h"
#include "metadata/DescriptorFixtures.h"

using namespace OrvexTest;

namespace {

// Exposes the protected checks as a generated class sees them.
struct CChecks : CXmlObjectBase
{
    using CXmlObjectBase::Choice_CollectionChanged;
    using CXmlObjectBase::Choice_Read_Collection;
    using CXmlObjectBase::Choice_SelectElement;
    using CXmlObjectBase::Choice_SetElementValid;
};

const char* const kBracketed =
    "The Property [A] is already set. Only one element within this class bay be set at a time";
const char* const kPlain = "The Property A is already set. Only one element within this class bay be set at a time";

}  // namespace

TEST(PropertyChecks, SelectElementAndCollectionChanged)
{
    CSmartPtr<CLeaf> object(new CLeaf());
    // selected before, property, count (above 0: an object is given), selected
    // after each of the two operations ("!" = fails). Only an empty collection
    // differs from a null object: it selects nothing.
    struct Case { const char *before, *property; std::int32_t count; const char *afterSelect, *afterCount; } cases[] = {
        {"", "A", 0, "A", ""}, {"", "A", 2, "A", "A"},  {"A", "A", 1, "A", "A"},
        {"A", "A", 0, "", ""}, {"A", "B", 0, "A", "A"}, {"A", "B", 1, "!", "!"},
    };
    for (const Case& c : cases) {
        std::string selected = c.before;
        const std::string select =
            Failure([&] { CChecks::Choice_SelectElement(c.property, c.count > 0 ? object.Get() : nullptr, selected); });
        EXPECT_EQ(std::string(c.afterSelect) == "!" ? kBracketed : "no failure", select);
        // A failure leaves the selection as it was.
        EXPECT_EQ(select == "no failure" ? c.afterSelect : c.before, selected) << c.before << c.property << c.count;
        selected = c.before;
        const std::string count = Failure([&] { CChecks::Choice_CollectionChanged(c.property, c.count, selected); });
        EXPECT_EQ(std::string(c.afterCount) == "!" ? kBracketed : "no failure", count);
        EXPECT_EQ(count == "no failure" ? c.afterCount : c.before, selected) << c.before << c.property << c.count;
    }
}

TEST(PropertyChecks, SetElementValid)
{
    std::string selected = "A";
    EXPECT_TRUE(ThrowsExactly<COrvexInvalidStateException>(
        [&] { CChecks::Choice_SetElementValid(true, "B", selected); }, kPlain));
    CChecks::Choice_SetElementValid(true, "A", selected);
    EXPECT_EQ("A", selected);
    // Any property may clear the selection.
    CChecks::Choice_SetElementValid(false, "B", selected);
    EXPECT_EQ("", selected);
    CChecks::Choice_SetElementValid(true, "B", selected);
    EXPECT_EQ("B", selected);
}

TEST(PropertyChecks, ReadCollectionOnceThenCount)
{
    CXmlDocument document;
    document.LoadXml("<r xmlns=\"urn:t\"><T>a</T><T>b</T><Z/><T>c</T></r>");
    CXmlElement* parent = document.GetDocumentElement();
    CXmlSerializationContext context;
    std::int32_t itemsRead = 0;
    CXmlElement* current = nullptr;
    // Reads texts from the index-th child on; gives the name of the element reached.
    const auto read = [&](CTextCol* texts, int index) {
        for (current = parent->GetFirstElement(); index > 0; --index) current = current->GetNextSiblingElement();
        CChecks::Choice_Read_Collection(texts, parent, current, itemsRead, context);
        return current->GetLocalName();
    };
    CSmartPtr<CTextCol> texts(new CTextCol("T", 0, 2));
    EXPECT_EQ("Z", read(texts, 2));  // nothing to take: nothing moves, nothing is counted
    EXPECT_EQ(0, itemsRead);
    EXPECT_EQ("Z", read(texts, 0));
    EXPECT_EQ(1, itemsRead);
    EXPECT_EQ(2, texts->GetCount());
    // Once read, later runs are left alone.
    EXPECT_EQ("T", read(texts, 3));
    EXPECT_EQ(2, texts->GetCount());

    CSmartPtr<CTextCol> one(new CTextCol("T", 0, 1)), three(new CTextCol("T", 3, -1));
    itemsRead = 0;
    EXPECT_TRUE(ThrowsExactly<COrvexValidationException>(
        [&] { read(one, 0); }, "The Maximum number of [T] elements allowed in this collection is 1"));
    EXPECT_TRUE(ThrowsExactly<COrvexValidationException>(
        [&] { read(three, 0); }, "The Minimum number of [T] elements allowed in this collection is 3"));
    // The position has moved past the run before the count is tested.
    EXPECT_EQ("Z", current->GetLocalName());
    EXPECT_EQ(0, itemsRead);
    context.SetIgnoreInvalidCollectionCounts(true);
    three->Clear();
    EXPECT_EQ("Z", read(three, 0));
    EXPECT_EQ(1, itemsRead);
}
