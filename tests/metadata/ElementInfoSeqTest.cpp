// The sequence members one call at a time: what each gives back and where it
// leaves the position, for real and pseudo owners and children, under the options.
#include <gtest/gtest.h>

#include "DescriptorFixtures.h"
#include "orvexxml/frame/detail/ObjectAccess.h"
#include "TestUtil.h"

using namespace OrvexTest;


TEST(ElementInfoSeqClsMnd, PseudoAndRealChildrenUnderTheOptions)
{
    CElementInfoSeqClsMnd consuming("Pair", "urn:t", 0, P, nullptr, 0, true);
    CElementInfoSeqClsMnd lazy("Pair", "urn:t", 0, P, nullptr, 0, false);
    CElementInfoSeqClsMnd leaf("Leaf", "urn:t", 1, E, nullptr, 0, true);
    CSlots owner;
    owner.props[0].SetXmlObject(new CPair());
    owner.props[1].SetXmlObject(new CLeaf());
    // Taking nothing in front of an unknown element lets the walk skip it.
    ExpectRows(lazy, owner, {{"", E, kStrict, "true@-"},
                {"<Z/>", E, kStrict, "true@Z"}, {"<Z/>", E, kSkip, "false@Z"}, {"<Z/>", P, kSkip, "true@Z"}});
    // At the end of the children it fails, though an empty pair might have done.
    ExpectRows(consuming, owner, {{"", E, kStrict, "Failed to find a required element [Pair]"},
                {"", P, kStrict, "false@-"}, {"<Z/>", E, kStrict, "Failed to find a required element [Pair]"},
                {"<Z/>", P, kStrict, "false@Z"}, {"<A>1</A><B>2</B><Z/>", E, kStrict, "true@Z"}});
    ExpectRows(leaf, owner,
               {{"<Z/><Leaf/>", P, kStrict, "false@Z"}, {"<Z/><Leaf><V>4</V></Leaf><Y/>", E, kSkip, "true@Y"}});
    EXPECT_EQ("2", static_cast<CPair*>(owner.props[0].GetXmlObject().Get())->Text(1));
    EXPECT_EQ(4, static_cast<CLeaf*>(owner.props[1].GetXmlObject().Get())->props[0].GetI4());
    EXPECT_EQ(0, owner.stores);
}

TEST(ElementInfoSeqClsOpt, PseudoChildThatTakesNothingIsDroppedAndAnAbstractOneNeedsASuitableClass)
{
    CElementInfoSeqClsOpt pair("Pair", "urn:t", 0, P, MakePair, 7);
    CSlots owner;
    const int calls = FactoryCalls();
    EXPECT_EQ("true@Z", Step(pair, owner, "<Z/>", E));
    EXPECT_EQ(calls + 1, FactoryCalls());
    EXPECT_EQ(0, owner.stores);
    EXPECT_EQ("true@-", Step(pair, owner, "", E));
    EXPECT_EQ(calls + 1, FactoryCalls());
    EXPECT_EQ("true@-", Step(pair, owner, "<A>a</A><B>b</B>", E));
    EXPECT_EQ(1, owner.stores);

    CElementInfoSeqClsOpt leaf("Leaf", "urn:t", 1, E, MakeLeaf, 3);
    EXPECT_EQ("true@Z", Step(leaf, owner, "<Leaf><V>9</V></Leaf><Z/>", E));
    EXPECT_EQ("Leaf", OrvexXmlLib5::Detail::CObjectAccess::ElementName(owner.props[1].GetXmlObject()));

    CElementInfoSeqAbsClsOpt optional("Leaf", "urn:t", 2, E, LeafByKind);
    EXPECT_EQ("true@Leaf", Step(optional, owner, "<Leaf/>", E));
    EXPECT_EQ(2, owner.stores);
    EXPECT_EQ("true@-", Step(optional, owner, "<Leaf kind=\"leaf\"><V>2</V></Leaf>", E));
    EXPECT_EQ(3, owner.stores);

    CElementInfoSeqAbsClsMnd mandatory("Leaf", "urn:t", 3, E, LeafByKind);
    const char* const text = "Failed to find a suitable substitution element for [Leaf]";
    ExpectRows(mandatory, owner, {{"<Leaf/>", E, kStrict, text},
                {"<Z/><Leaf kind=\"leaf\"/>", E, kSkip, text}, {"<Leaf/>", P, kStrict, "false@Leaf"},
                {"<Leaf kind=\"leaf\"/><Z/>", E, kStrict, "true@Z"}});
}

TEST(ElementInfoSeqPrimMnd, PseudoOwnerSkipsOnlyWhenUnknownElementsAreIgnored)
{
    CElementInfoSeqPrimMnd v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CSlots owner;
    ExpectRows(v, owner, {{"<Z/><V>5</V><W/>", P, kStrict, "false@Z"},
                {"<Z/><V> 5 </V><W/>", P, kSkip, "true@W"}, {"<Z/><W/>", P, kSkip, "false@-"}});
    EXPECT_EQ(5, owner.props[0].GetI4());
    // The enumeration kind does not skip under a pseudo owner.
    CElementInfoSeqEnumMnd e("E", "urn:t", 1, NumberToString, NumberFromString);
    ExpectRows(e, owner, {{"<Z/><E>one</E>", P, kSkip, "false@Z"}, {"<Z/><E>one</E>", E, kSkip, "true@-"}});
    EXPECT_EQ(1, owner.props[1].GetI4());
}

TEST(ElementInfoSeqOpt, NothingToTakeGivesTrueWithoutMovingOrStoring)
{
    CElementInfoSeqClsOpt leaf("Leaf", "urn:t", 0, E, MakeLeaf, 3);
    CElementInfoSeqAbsClsOpt abstractLeaf("Leaf", "urn:t", 0, E, LeafByKind);
    CElementInfoSeqEnumOpt e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoSeqPrimOpt v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    for (CElementInfo* member : std::initializer_list<CElementInfo*>{&leaf, &abstractLeaf, &e, &v}) {
        CSlots owner;
        // Whatever stands behind a foreign element is not looked for.
        const char* const behind = "<Z/><Leaf kind=\"leaf\"/><E>one</E><V>1</V>";
        ExpectRows(*member, owner,
                   {{"", E, kSkip, "true@-"},
                    {behind, E, kSkip, "true@Z"}, {behind, E, kStrict, "true@Z"}, {"", P, kStrict, "true@-"},
                    {behind, P, kStrict, "true@Z"}});
        EXPECT_EQ(0, owner.stores);
    }
    CSlots owner;
    EXPECT_TRUE(ThrowsExactly<COrvexException>([&] { v.Validate(CXmlSerializationContext(), &owner, true, true); },
                                               "Not implemented, should never be called"));
}

TEST(ElementInfoSeqMnd, EachMandatoryKindRecoversOrFailsByTheOptions)
{
    CElementInfoSeqClsMnd leaf("Leaf", "urn:t", 0, E, nullptr, 0, true);
    CElementInfoSeqEnumMnd e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoSeqPrimMnd v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    const std::pair<CElementInfo*, std::string> cases[] = {{&leaf, "Leaf"}, {&e, "E"}, {&v, "V"}};
    for (const auto& [member, name] : cases) {
        CSlots owner;
        owner.props[0].SetXmlObject(new CLeaf());
        const std::string missing = "Failed to find a required element [" + name + "]";
        const std::string content = "<Z/><Y/><" + name + ">1</" + name + "><X/>";
        // Giving up stores nothing and keeps even the foreign element.
        EXPECT_EQ("true@Z", Step(*member, owner, content, E, Context(kForgive))) << name;
        EXPECT_EQ("true@-", Step(*member, owner, "", E, Context(kForgive))) << name;
        EXPECT_EQ(0, owner.stores);
        EXPECT_TRUE(ThrowsExactly<COrvexValidationException>([&] { Step(*member, owner, content, E); }, missing));
        EXPECT_TRUE(ThrowsExactly<COrvexValidationException>(
            [&] { Step(*member, owner, "<Z/><Y/>", E, Context(kSkip)); }, missing));
        EXPECT_EQ("true@X", Step(*member, owner, content, E, Context(kSkip))) << name;
    }
}

TEST(ElementInfoSeqEnum, RawTextGoesToTheGeneratedFunction)
{
    // Unlike a primitive, the enumeration text is not collapsed first.
    CElementInfoSeqEnumMnd mandatory("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoSeqEnumOpt optional("E", "urn:t", 1, NumberToString, NumberFromString);
    CSlots owner;
    for (const auto& [text, value] : {std::pair<const char*, int>{"one", 1}, {" one ", 0}, {"", 0}}) {
        const std::string content = std::string("<E>") + text + "</E><Z/>";
        EXPECT_EQ("true@Z", Step(mandatory, owner, content, E));
        EXPECT_EQ("true@Z", Step(optional, owner, content, P));
        EXPECT_EQ(value, owner.props[0].GetI4()) << text;
        EXPECT_EQ(value, owner.props[1].GetI4()) << text;
    }
}
