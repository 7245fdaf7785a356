// The sequence members one call at a time: what each gives back and where it
// leaves the position, for real and pseudo owners and children, under the options.
#include <gtest/gtest.h>

#include "DescriptorFixtures.h"
#include "orvexxml/frame/detail/ObjectAccess.h"
#include "TestUtil.h"

using namespace OrvexTest;

namespace {

CXmlSerializationContext Skipping()
{
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    return context;
}

CXmlSerializationContext Forgiving()
{
    CXmlSerializationContext context;
    context.SetIgnoreMissingMandatoryElements(true);
    return context;
}

}  // namespace

TEST(ElementInfoSeqClsMnd, PseudoChildThatMustConsume)
{
    CElementInfoSeqClsMnd pair("Pair", "urn:t", 0, ElementType_Pseudo, nullptr, 0, true);
    CSlots owner;
    owner.props[0].SetXmlObject(new CPair());
    // At the end of the children it fails, though an empty pair might have done.
    EXPECT_EQ("Failed to find a required element [Pair]", Failure([&] { Step(pair, owner, "", ElementType_Element); }));
    EXPECT_EQ("false@-", Step(pair, owner, "", ElementType_Pseudo));
    EXPECT_EQ("Failed to find a required element [Pair]",
              Failure([&] { Step(pair, owner, "<Z/>", ElementType_Element); }));
    EXPECT_EQ("false@Z", Step(pair, owner, "<Z/>", ElementType_Pseudo));
    EXPECT_EQ("true@Z", Step(pair, owner, "<A>1</A><B>2</B><Z/>", ElementType_Element));
    EXPECT_EQ("2", static_cast<CPair*>(owner.props[0].GetXmlObject().Get())->Text(1));
    EXPECT_EQ(0, owner.stores);
}

TEST(ElementInfoSeqClsMnd, PseudoChildThatNeedNotConsume)
{
    CElementInfoSeqClsMnd pair("Pair", "urn:t", 0, ElementType_Pseudo, nullptr, 0, false);
    CSlots owner;
    owner.props[0].SetXmlObject(new CPair());
    EXPECT_EQ("true@-", Step(pair, owner, "", ElementType_Element));
    EXPECT_EQ("true@Z", Step(pair, owner, "<Z/>", ElementType_Element));
    // Taking nothing in front of an unknown element lets the walk skip it.
    EXPECT_EQ("false@Z", Step(pair, owner, "<Z/>", ElementType_Element, Skipping()));
    EXPECT_EQ("true@Z", Step(pair, owner, "<Z/>", ElementType_Pseudo, Skipping()));
}

TEST(ElementInfoSeqClsMnd, RealChildUnderTheOptions)
{
    CElementInfoSeqClsMnd leaf("Leaf", "urn:t", 0, ElementType_Element, nullptr, 0, true);
    CSlots owner;
    owner.props[0].SetXmlObject(new CLeaf());
    EXPECT_EQ("false@Z", Step(leaf, owner, "<Z/><Leaf/>", ElementType_Pseudo));
    EXPECT_EQ("true@Y", Step(leaf, owner, "<Z/><Leaf><V>4</V></Leaf><Y/>", ElementType_Element, Skipping()));
    EXPECT_EQ(4, static_cast<CLeaf*>(owner.props[0].GetXmlObject().Get())->props[0].GetI4());
}

TEST(ElementInfoSeqClsOpt, PseudoChildThatTakesNothingIsDropped)
{
    CElementInfoSeqClsOpt pair("Pair", "urn:t", 0, ElementType_Pseudo, MakePair, 7);
    CSlots owner;
    const int calls = FactoryCalls();
    EXPECT_EQ("true@Z", Step(pair, owner, "<Z/>", ElementType_Element));
    EXPECT_EQ(calls + 1, FactoryCalls());
    EXPECT_EQ(0, owner.stores);
    EXPECT_EQ("true@-", Step(pair, owner, "", ElementType_Element));
    EXPECT_EQ(calls + 1, FactoryCalls());
    EXPECT_EQ("true@-", Step(pair, owner, "<A>a</A><B>b</B>", ElementType_Element));
    EXPECT_EQ(1, owner.stores);

    CElementInfoSeqClsOpt leaf("Leaf", "urn:t", 1, ElementType_Element, MakeLeaf, 3);
    EXPECT_EQ("true@Z", Step(leaf, owner, "<Z/>", ElementType_Element));
    EXPECT_EQ("true@Z", Step(leaf, owner, "<Leaf><V>9</V></Leaf><Z/>", ElementType_Element));
    EXPECT_EQ("Leaf", OrvexXmlLib5::Detail::CObjectAccess::ElementName(owner.props[1].GetXmlObject()));
}

TEST(ElementInfoSeqAbsCls, FactoryWithoutASuitableClass)
{
    CSlots owner;
    CElementInfoSeqAbsClsOpt optional("Leaf", "urn:t", 0, ElementType_Element, LeafByKind);
    EXPECT_EQ("true@Leaf", Step(optional, owner, "<Leaf/>", ElementType_Element));
    EXPECT_EQ(0, owner.stores);
    EXPECT_EQ("true@Z", Step(optional, owner, "<Z/>", ElementType_Element));
    EXPECT_EQ("true@-", Step(optional, owner, "<Leaf kind=\"leaf\"><V>2</V></Leaf>", ElementType_Element));
    EXPECT_EQ(1, owner.stores);

    CElementInfoSeqAbsClsMnd mandatory("Leaf", "urn:t", 1, ElementType_Element, LeafByKind);
    const char* const text = "Failed to find a suitable substitution element for [Leaf]";
    EXPECT_EQ(text, Failure([&] { Step(mandatory, owner, "<Leaf/>", ElementType_Element); }));
    EXPECT_EQ(text,
              Failure([&] { Step(mandatory, owner, "<Z/><Leaf kind=\"leaf\"/>", ElementType_Element, Skipping()); }));
    EXPECT_EQ("false@Leaf", Step(mandatory, owner, "<Leaf/>", ElementType_Pseudo));
    EXPECT_EQ("true@Z", Step(mandatory, owner, "<Leaf kind=\"leaf\"/><Z/>", ElementType_Element));
}

TEST(ElementInfoSeqPrimMnd, PseudoOwnerSkipsOnlyWhenUnknownElementsAreIgnored)
{
    CElementInfoSeqPrimMnd v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted());
    CSlots owner;
    EXPECT_EQ("false@Z", Step(v, owner, "<Z/><V>5</V><W/>", ElementType_Pseudo));
    EXPECT_EQ("true@W", Step(v, owner, "<Z/><V> 5 </V><W/>", ElementType_Pseudo, Skipping()));
    EXPECT_EQ(5, owner.props[0].GetI4());
    EXPECT_EQ("false@-", Step(v, owner, "<Z/><W/>", ElementType_Pseudo, Skipping()));
    // The enumeration kind does not skip under a pseudo owner.
    CElementInfoSeqEnumMnd e("E", "urn:t", 1, NumberToString, NumberFromString);
    EXPECT_EQ("false@Z", Step(e, owner, "<Z/><E>one</E>", ElementType_Pseudo, Skipping()));
    EXPECT_EQ("true@-", Step(e, owner, "<Z/><E>one</E>", ElementType_Element, Skipping()));
    EXPECT_EQ(1, owner.props[1].GetI4());
}

TEST(ElementInfoSeq, ValidateIsNeverForASequence)
{
    CElementInfoSeqPrimOpt v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted());
    CSlots owner;
    EXPECT_TRUE(ThrowsExactly<COrvexException>([&] { v.Validate(CXmlSerializationContext(), &owner, true, true); },
                                               "Not implemented, should never be called"));
}

TEST(ElementInfoSeqOpt, NothingToTakeGivesTrueWithoutMovingOrStoring)
{
    CElementInfoSeqClsOpt leaf("Leaf", "urn:t", 0, ElementType_Element, MakeLeaf, 3);
    CElementInfoSeqAbsClsOpt abstractLeaf("Leaf", "urn:t", 0, ElementType_Element, LeafByKind);
    CElementInfoSeqEnumOpt e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoSeqPrimOpt v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted());
    CElementInfo* const members[] = {&leaf, &abstractLeaf, &e, &v};
    const char* const contents[] = {"", "<Z/>", "<Z/><Leaf kind=\"leaf\"/><E>one</E><V>1</V>"};
    for (CElementInfo* member : members) {
        for (const char* content : contents) {
            CSlots owner;
            const std::string expected = *content ? "true@Z" : "true@-";
            EXPECT_EQ(expected, Step(*member, owner, content, ElementType_Element, Skipping())) << content;
            EXPECT_EQ(expected, Step(*member, owner, content, ElementType_Pseudo)) << content;
            EXPECT_EQ(0, owner.stores) << content;
        }
    }
}

TEST(ElementInfoSeqMnd, EachMandatoryKindRecoversOrFailsByTheOptions)
{
    CElementInfoSeqClsMnd leaf("Leaf", "urn:t", 0, ElementType_Element, nullptr, 0, true);
    CElementInfoSeqEnumMnd e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoSeqPrimMnd v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted());
    const struct
    {
        CElementInfo* member;
        const char* name;
    } cases[] = {{&leaf, "Leaf"}, {&e, "E"}, {&v, "V"}};
    for (const auto& c : cases) {
        CSlots owner;
        owner.props[0].SetXmlObject(new CLeaf());
        const std::string missing = std::string("Failed to find a required element [") + c.name + "]";
        const std::string content = std::string("<Z/><Y/><") + c.name + ">1</" + c.name + "><X/>";
        // Giving up stores nothing and keeps even the foreign element.
        EXPECT_EQ("true@Z", Step(*c.member, owner, content, ElementType_Element, Forgiving())) << c.name;
        EXPECT_EQ("true@-", Step(*c.member, owner, "", ElementType_Element, Forgiving())) << c.name;
        EXPECT_EQ(0, owner.stores);
        EXPECT_TRUE(ThrowsExactly<COrvexValidationException>(
            [&] { Step(*c.member, owner, content, ElementType_Element); }, missing));
        EXPECT_TRUE(ThrowsExactly<COrvexValidationException>(
            [&] { Step(*c.member, owner, "<Z/><Y/>", ElementType_Element, Skipping()); }, missing));
        EXPECT_EQ("true@X", Step(*c.member, owner, content, ElementType_Element, Skipping())) << c.name;
    }
}

TEST(ElementInfoSeqEnum, RawTextGoesToTheGeneratedFunction)
{
    // Unlike a primitive, the enumeration text is not collapsed first.
    CElementInfoSeqEnumMnd mandatory("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoSeqEnumOpt optional("E", "urn:t", 1, NumberToString, NumberFromString);
    CSlots owner;
    const struct
    {
        const char* text;
        int value;
    } cases[] = {{"one", 1}, {" one ", 0}, {"", 0}};
    for (const auto& c : cases) {
        const std::string content = std::string("<E>") + c.text + "</E><Z/>";
        EXPECT_EQ("true@Z", Step(mandatory, owner, content, ElementType_Element));
        EXPECT_EQ("true@Z", Step(optional, owner, content, ElementType_Pseudo));
        EXPECT_EQ(c.value, owner.props[0].GetI4()) << c.text;
        EXPECT_EQ(c.value, owner.props[1].GetI4()) << c.text;
    }
}
