// The choice alternatives one call at a time: true only when the alternative was
// taken, and what each leaves in the property.
#include <gtest/gtest.h>

#include "DescriptorFixtures.h"
#include "TestUtil.h"

using namespace OrvexTest;

TEST(ElementInfoChoiceClsOpt, EmptyRealElementIsTakenEvenForAnEmptyChoiceChild)
{
    CElementInfoChoiceClsOpt pick("Pick", "urn:t", 0, ElementType_Element, MakePick, 1);
    CSlots owner;
    EXPECT_EQ("true@Z", Step(pick, owner, "<Pick/><Z/>", ElementType_Element));
    EXPECT_EQ(1, owner.stores);
    EXPECT_FALSE(owner.props[0].GetXmlObject().IsNull());
}

TEST(ElementInfoChoiceClsOpt, PseudoAlternativeThatTakesNothingIsTakenOutAgain)
{
    CElementInfoChoiceClsOpt pair("Pair", "urn:t", 0, ElementType_Pseudo, MakePair, 1);
    CSlots owner;
    EXPECT_EQ("false@-", Step(pair, owner, "", ElementType_Element));
    EXPECT_EQ(0, owner.stores);
    EXPECT_EQ("false@Z", Step(pair, owner, "<Z/>", ElementType_Element));
    EXPECT_EQ(2, owner.stores);
    EXPECT_TRUE(owner.props[0].GetXmlObject().IsNull());
    EXPECT_EQ("true@-", Step(pair, owner, "<A>x</A><B>y</B>", ElementType_Element));
    EXPECT_EQ("x", static_cast<CPair*>(owner.props[0].GetXmlObject().Get())->Text(0));
}

TEST(ElementInfoChoiceAbsClsOpt, NullFromTheFactoryIsStoredAndDeclines)
{
    CElementInfoChoiceAbsClsOpt leaf("Leaf", "urn:t", 0, ElementType_Element, LeafByKind);
    CSlots owner;
    owner.props[0].SetXmlObject(new CLeaf());
    EXPECT_EQ("false@Leaf", Step(leaf, owner, "<Leaf/>", ElementType_Element));
    EXPECT_EQ(1, owner.stores);
    EXPECT_TRUE(owner.props[0].GetXmlObject().IsNull());
    EXPECT_EQ("true@-", Step(leaf, owner, "<Leaf kind=\"leaf\"><V>3</V></Leaf>", ElementType_Element));
    EXPECT_EQ(3, static_cast<CLeaf*>(owner.props[0].GetXmlObject().Get())->props[0].GetI4());
}

TEST(ElementInfoChoiceCol, AbsentAlternativeIsNotHeldToItsMinimum)
{
    CElementInfoChoicePrimCol items("T", "urn:t", 0);
    CSlots owner;
    CSmartPtr<CTextCol> texts(new CTextCol("T", 2, -1));
    owner.props[0].SetXmlCollection(texts);
    EXPECT_EQ("false@Z", Step(items, owner, "<Z/>", ElementType_Element));
    EXPECT_TRUE(
        ThrowsExactly<COrvexValidationException>([&] { Step(items, owner, "<T>a</T><Z/>", ElementType_Element); },
                                                 "The Minimum number of [T] elements allowed in this collection is 2"));
    texts->Clear();
    CXmlSerializationContext counts;
    counts.SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ("true@Z", Step(items, owner, "<T>a</T><Z/>", ElementType_Element, counts));
    EXPECT_EQ("true@-", Step(items, owner, "<T>b</T><T>c</T>", ElementType_Element));
    EXPECT_EQ(3, texts->GetCount());
}

TEST(ElementInfoChoicePlain, EnumAndPrimitiveTakeOnlyTheirOwnElement)
{
    CElementInfoChoiceEnumOpt e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoChoicePrimOpt v("V", "urn:t", 1, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CSlots owner;
    EXPECT_EQ("true@V", Step(e, owner, "<E>one</E><V>1</V>", ElementType_Element));
    EXPECT_EQ("true@-", Step(v, owner, "<V> 12 </V>", ElementType_Element));
    EXPECT_EQ(1, owner.props[0].GetI4());
    EXPECT_EQ(12, owner.props[1].GetI4());
    EXPECT_TRUE(ThrowsExactly<COrvexException>([&] { v.Validate(CXmlSerializationContext(), &owner, false, true); },
                                               "Not implemented, should never be called"));
}

TEST(ElementInfoChoice, AbsentAlternativeDeclinesWhateverTheOptionsAndOwner)
{
    CElementInfoChoiceClsOpt pick("Pick", "urn:t", 0, ElementType_Element, MakePick, 1);
    CElementInfoChoiceAbsClsOpt leaf("Leaf", "urn:t", 0, ElementType_Element, LeafByKind);
    CElementInfoChoiceEnumOpt e("E", "urn:t", 0, NumberToString, NumberFromString);
    CElementInfoChoicePrimOpt v("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CElementInfoChoicePrimCol items("T", "urn:t", 0);
    CElementInfo* const members[] = {&pick, &leaf, &e, &v, &items};
    CXmlSerializationContext contexts[4];
    contexts[1].SetIgnoreUnknownElements(true);
    contexts[2].SetIgnoreMissingMandatoryElements(true);
    contexts[3].SetIgnoreMissingChoice(true);
    for (CElementInfo* member : members) {
        for (const CXmlSerializationContext& context : contexts) {
            for (XmlElementType parentType : {ElementType_Element, ElementType_Pseudo}) {
                CSlots owner;
                owner.props[0].SetXmlCollection(new CTextCol("T", 1, -1));
                EXPECT_EQ("false@Z", Step(*member, owner, "<Z/><Pick/><Leaf kind=\"leaf\"/><E>one</E><V>1</V><T/>",
                                          parentType, context));
                EXPECT_EQ("false@-", Step(*member, owner, "", parentType, context));
                EXPECT_EQ(0, owner.stores);
            }
        }
    }
}
