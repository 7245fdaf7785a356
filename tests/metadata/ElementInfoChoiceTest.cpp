// The choice alternatives one call at a time: true only when the alternative was
// taken, and what each leaves in the property.
#include <gtest/gtest.h>

#include "DescriptorFixtures.h"
#include "TestUtil.h"

using namespace OrvexTest;

TEST(ElementInfoChoiceClsOpt, EmptyRealChildIsTakenAndAPseudoOneThatTakesNothingIsTakenOutAgain)
{
    CElementInfoChoiceClsOpt pick("Pick", "urn:t", 0, E, MakePick, 1);
    CElementInfoChoiceClsOpt pair("Pair", "urn:t", 1, P, MakePair, 1);
    CSlots owner;
    // Taken although the choice child in it is empty.
    EXPECT_EQ("true@Z", Step(pick, owner, "<Pick/><Z/>", E));
    EXPECT_FALSE(owner.props[0].GetXmlObject().IsNull());
    EXPECT_EQ("false@-", Step(pair, owner, "", E));
    EXPECT_EQ(1, owner.stores);
    EXPECT_EQ("false@Z", Step(pair, owner, "<Z/>", E));
    EXPECT_EQ(3, owner.stores);
    EXPECT_TRUE(owner.props[1].GetXmlObject().IsNull());
    EXPECT_EQ("true@-", Step(pair, owner, "<A>x</A><B>y</B>", E));
    EXPECT_EQ("x", static_cast<CPair*>(owner.props[1].GetXmlObject().Get())->Text(0));
}

TEST(ElementInfoChoiceAbsClsOpt, NullFromTheFactoryIsStoredAndDeclines)
{
    CElementInfoChoiceAbsClsOpt leaf("Leaf", "urn:t", 0, E, LeafByKind);
    CSlots owner;
    owner.props[0].SetXmlObject(new CLeaf());
    EXPECT_EQ("false@Leaf", Step(leaf, owner, "<Leaf/>", E));
    EXPECT_EQ(1, owner.stores);
    EXPECT_TRUE(owner.props[0].GetXmlObject().IsNull());
    EXPECT_EQ("true@-", Step(leaf, owner, "<Leaf kind=\"leaf\"><V>3</V></Leaf>", E));
    EXPECT_EQ(3, static_cast<CLeaf*>(owner.props[0].GetXmlObject().Get())->props[0].GetI4());
}

TEST(ElementInfoChoiceCol, AbsentAlternativeIsNotHeldToItsMinimum)
{
    CElementInfoChoicePrimCol items("T", "urn:t", 0);
    CSlots owner;
    CSmartPtr<CTextCol> texts(new CTextCol("T", 2, -1));
    owner.props[0].SetXmlCollection(texts);
    EXPECT_EQ("false@Z", Step(items, owner, "<Z/>", E));
    EXPECT_TRUE(
        ThrowsExactly<COrvexValidationException>([&] { Step(items, owner, "<T>a</T><Z/>", E); },
                                                 "The Minimum number of [T] elements allowed in this collection is 2"));
    texts->Clear();
    ExpectRows(items, owner, {{"<T>a</T><Z/>", E, kAnyCount, "true@Z"}, {"<T>b</T><T>c</T>", E, kStrict, "true@-"}});
    EXPECT_EQ(3, texts->GetCount());
}

TEST(ElementInfoChoicePlain, EnumAndPrimitiveTakeOnlyTheirOwnElement)
{
    CElementInfoChoiceEnumOpt e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoChoicePrimOpt v("V", "urn:t", 1, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CSlots owner;
    EXPECT_EQ("true@V", Step(e, owner, "<E>one</E><V>1</V>", E));
    EXPECT_EQ("true@-", Step(v, owner, "<V> 12 </V>", E));
    EXPECT_EQ(1, owner.props[0].GetI4());
    EXPECT_EQ(12, owner.props[1].GetI4());
    EXPECT_TRUE(ThrowsExactly<COrvexException>([&] { v.Validate(CXmlSerializationContext(), &owner, false, true); },
                                               "Not implemented, should never be called"));
}

TEST(ElementInfoChoice, AbsentAlternativeDeclinesWhateverTheOptionsAndOwner)
{
    CElementInfoChoiceClsOpt pick("Pick", "urn:t", 0, E, MakePick, 1);
    CElementInfoChoiceAbsClsOpt leaf("Leaf", "urn:t", 0, E, LeafByKind);
    CElementInfoChoiceEnumOpt e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoChoicePrimOpt v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CElementInfoChoicePrimCol items("T", "urn:t", 0);
    CXmlSerializationContext missingChoice;
    missingChoice.SetIgnoreMissingChoice(true);
    for (CElementInfo* member : std::initializer_list<CElementInfo*>{&pick, &leaf, &e, &v, &items})
        for (const CXmlSerializationContext& context :
             {Context(kStrict), Context(kSkip), Context(kForgive), missingChoice})
            for (XmlElementType parentType : {E, P}) {
                CSlots owner;
                owner.props[0].SetXmlCollection(new CTextCol("T", 1, -1));
                EXPECT_EQ("false@Z", Step(*member, owner, "<Z/><Pick/><Leaf kind=\"leaf\"/><E>one</E><V>1</V><T/>",
                                          parentType, context));
                EXPECT_EQ("false@-", Step(*member, owner, "", parentType, context));
                EXPECT_EQ(0, owner.stores);
            }
}
