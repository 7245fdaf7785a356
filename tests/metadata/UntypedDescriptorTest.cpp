// The xs:any members of the three groups, one call at a time: what each takes, what
// it leaves at the position, what it stores, and its failures.
#include <gtest/gtest.h>

#include "DescriptorFixtures.h"
#include "TestUtil.h"

using namespace OrvexTest;

namespace {

std::string Name(const OrvexVariant& value)
{
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    CElement* element = dynamic_cast<CElement*>(object.Get());
    return element ? element->GetName() : std::string("-");
}

// step: result@position; stored: the name of the element in the property, "-" for none.
struct COptionalCase { const char *what, *name, *content, *step, *stored; };

TEST(UntypedDescriptors, OptionalMembersOfEachGroup)
{
    const COptionalCase cases[] = {
        {"wildcard takes any element", "AnyElement", "<x:Q xmlns:x=\"urn:x\"><c/></x:Q><Z/>", "true@Z", "Q"},
        {"a name takes only its local name", "Q", "<Z/><Q/>", "true@Z", "-"},
        {"the name in any namespace", "Q", "<Q xmlns=\"urn:other\"/>", "true@-", "Q"},
        {"the end of the children", "AnyElement", "", "true@-", "-"},
    };
    for (const COptionalCase& c : cases) {
        SCOPED_TRACE(c.what);
        CSlots owner;
        CElementInfoSeqUntpdOpt seq(c.name, "urn:t", 0, "##any", "urn:t");
        EXPECT_EQ(c.step, Step(seq, owner, c.content, E));
        EXPECT_EQ(c.stored, Name(owner.props[0]));

        // Choice and all give false where nothing was taken.
        const std::string notTaken = std::string("false@") + (std::string(c.step).substr(5));
        const std::string expected = std::string(c.stored) == "-" ? notTaken : std::string(c.step);
        CSlots choiceOwner;
        choiceOwner.props[0].SetXmlObject(new CElement("old"));
        CElementInfoChoiceUntpdOpt choice(c.name, "urn:t", 0, "##any", "urn:t");
        EXPECT_EQ(expected, Step(choice, choiceOwner, c.content, E));
        // The choice clears an alternative it did not take (when it looked at all).
        if (*c.content) {
            EXPECT_EQ(c.stored, Name(choiceOwner.props[0]));
        }
        CSlots allOwner;
        allOwner.props[0].SetXmlObject(new CElement("old"));
        CElementInfoAllUntpdOpt all(c.name, "urn:t", 0, "##any", "urn:t");
        EXPECT_EQ(expected, Step(all, allOwner, c.content, E));
        // The all member leaves the property alone when it takes nothing.
        EXPECT_EQ(std::string(c.stored) == "-" ? "old" : c.stored, Name(allOwner.props[0]));
    }
}

TEST(UntypedDescriptors, MandatoryMembersFailOrGiveFalse)
{
    CSlots owner;
    owner.props[0].SetXmlObject(new CElement("held", "urn:t", "urn:t", ""));
    CElementInfoSeqUntpdMnd seq("AnyElement", "urn:t", 0, "urn:t", "urn:t");
    // The held element admits only urn:t, so an element of urn:u is not consumed.
    ExpectRows(seq, owner,
               {{"", P, kStrict, "Failed to find a required element [AnyElement]"},
                {"<Q xmlns=\"urn:u\"/>", E, kStrict, "Failed to find the required element from namespace [urn:t]"},
                {"<Q xmlns=\"urn:u\"/>", P, kStrict, "false@Q"},
                {"<Q a=\"1\">t</Q><Z/>", E, kStrict, "true@Z"}});
    EXPECT_EQ("Q", Name(owner.props[0]));
    EXPECT_EQ(0, owner.stores);

    CElementInfoAllUntpdMnd all("Q", "urn:t", 0, "urn:t", "urn:t");
    ExpectRows(all, owner,
               {{"", E, kStrict, "false@-"}, {"<Z/>", E, kStrict, "false@Z"}, {"<Q/>", E, kStrict, "true@-"}});
    CSlots empty;
    ExpectRows(
        seq, empty,
        {{"<Q/>", E, kStrict, "Serialization Data Error : The property for the element [AnyElement] holds no object"}});
}

TEST(UntypedDescriptors, CollectionsTakeARunWildOrByName)
{
    CSlots owner;
    CSmartPtr<CElementCol> items(new CElementCol("", "##any", "urn:t", 0, -1));
    owner.props[0].SetXmlCollection(items.Get());
    CElementInfoSeqUntpdCol wild("AnyElement", "urn:t", 0);
    EXPECT_EQ("true@-", Step(wild, owner, "<A/><B xmlns=\"urn:b\"/><C/>", E));
    EXPECT_EQ(3, items->GetCount());

    items->Clear();
    CElementInfoSeqUntpdCol named("A", "urn:t", 0);
    // The run stops at the first sibling of another name, and the end reads nothing.
    EXPECT_EQ("true@B", Step(named, owner, "<A/><A/><B/><A/>", E));
    EXPECT_EQ(2, items->GetCount());
    EXPECT_EQ("true@-", Step(named, owner, "", E));

    items->Clear();
    CElementInfoChoiceUntpdCol choice("A", "urn:t", 0);
    ExpectRows(choice, owner,
               {{"<B/><A/>", E, kStrict, "false@B"}, {"", E, kStrict, "false@-"}, {"<A/><A/>", E, kStrict, "true@-"}});
    EXPECT_EQ(2, items->GetCount());
}

}  // namespace
