// The xs:all members one call at a time, their Validate, and the all-group walk
// checked against the plain repeated passes on many generated child lists.
#include <gtest/gtest.h>

#include <random>

#include "DescriptorFixtures.h"
#include "TestUtil.h"

using namespace OrvexTest;

TEST(ElementInfoAll, MembersTakeOnlyTheirOwnElementAndGiveFalseOtherwise)
{
    CSlots owner;
    CElementInfoAllPrimMnd prim("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CElementInfoAllEnumOpt number("E", "urn:t", 1, NumberToString, NumberFromString);
    // Unknown elements are not skipped by a member, whatever the context says.
    ExpectRows(prim, owner,
               {{"", E, kStrict, "false@-"},
                {"<V> 7 </V><Z/>", P, kStrict, "true@Z"},
                {"<Z/><V>1</V>", E, kSkip, "false@Z"},
                {"<V xmlns=\"urn:u\">1</V>", E, kStrict, "false@V"}});
    ExpectRows(number, owner, {{"<Z/><E>one</E>", E, kStrict, "false@Z"}});
    EXPECT_EQ(7, owner.props[0].GetI4());
    EXPECT_EQ(1, owner.stores);
    EXPECT_EQ("true@-", Step(prim, owner, "<V xmlns=\"urn:u\">1</V>", E, Context(kNoNamespaces)));
}

TEST(ElementInfoAll, PseudoChildrenReadInPlace)
{
    CSlots owner;
    owner.props[0].SetXmlObject(new CPair());
    CElementInfoAllClsMnd mandatory("Pair", "urn:t", 0, P, nullptr, 0, true);
    ExpectRows(mandatory, owner, {{"<Z/>", E, kStrict, "false@Z"}, {"", E, kStrict, "false@-"},
                                  {"<A>1</A><B>2</B><Z/>", E, kStrict, "true@Z"}});
    EXPECT_EQ("2", static_cast<CPair*>(owner.props[0].GetXmlObject().Get())->Text(1));

    CElementInfoAllClsOpt optional("Pair", "urn:t", 1, P, MakePair, 0);
    const int calls = FactoryCalls();
    EXPECT_EQ("false@-", Step(optional, owner, "", E));
    EXPECT_EQ(calls, FactoryCalls());
    // A pair that takes nothing is made and dropped.
    EXPECT_EQ("false@Z", Step(optional, owner, "<Z/>", E));
    EXPECT_EQ(calls + 1, FactoryCalls());
    EXPECT_EQ(0, owner.stores);
    EXPECT_EQ("true@-", Step(optional, owner, "<A>x</A><B>y</B>", E));
    EXPECT_EQ(1, owner.stores);
    EXPECT_EQ("x", static_cast<CPair*>(owner.props[1].GetXmlObject().Get())->Text(0));
}

TEST(ElementInfoAll, CollectionTakesItsRunAndIsNeverDone)
{
    CSlots owner, empty;
    CSmartPtr<CTextCol> texts(new CTextCol("T", 0, 2));
    owner.props[0].SetXmlCollection(texts);
    CElementInfoAllPrimCol col("T", "urn:t", 0);
    ExpectRows(col, owner, {{"<T>a</T><T>b</T><Z/><T>c</T>", E, kStrict, "false@Z"}, {"<Z/>", E, kStrict, "false@Z"},
                            {"", E, kStrict, "false@-"}});
    EXPECT_EQ(2u, texts->items.size());
    ExpectRows(
        col, empty,
        {{"<T/>", E, kStrict, "Serialization Data Error : The property for the element [T] holds no collection"}});

    const CXmlSerializationContext strict;
    EXPECT_TRUE(col.Validate(strict, &owner, false, true));
    texts->items.push_back("c");
    const std::string tooMany = "The Maximum number of [T] elements allowed in this collection is 2";
    // The count's validation class is dropped: the plain class leaves.
    EXPECT_TRUE(ThrowsExactly<COrvexException>([&] { col.Validate(strict, &owner, true, true); }, tooMany));
    EXPECT_FALSE(col.Validate(strict, &owner, false, false));
    EXPECT_TRUE(col.Validate(Context(kAnyCount), &owner, false, true));
}

TEST(ElementInfoAll, ValidateOfTheMandatoryAndOptionalKindsAndNoReadingOfAbstractOnes)
{
    CSlots owner;
    CElementInfoAllPrimMnd prim("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CElementInfoAllPrimOpt primOpt("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets());
    CElementInfoAllEnumMnd number("E", "urn:t", 1, NumberToString, NumberFromString);
    CElementInfoAllEnumOpt numberOpt("E", "urn:t", 1, NumberToString, NumberFromString);
    CElementInfoAllAbsClsMnd abs("Leaf", "urn:t", 2, E, LeafByKind, 0);
    CElementInfoAllAbsClsOpt absOpt("Leaf", "urn:t", 2, E, LeafByKind);
    CElementInfoAllClsMnd keep("Leaf", "urn:t", 2, E, nullptr, 0, false);
    CElementInfoAllClsMnd consume("Leaf", "urn:t", 2, E, nullptr, 0, true);
    CElementInfoAllClsMnd pseudo("Pair", "urn:t", 2, P, nullptr, 0, false);
    CElementInfoAllClsOpt clsOpt("Leaf", "urn:t", 2, E, MakeLeaf, 0);
    // name null: passes when not seen under a real element.
    struct Case { CElementInfo* descriptor; const char* name; } cases[] = {
        {&prim, "V"},    {&number, "E"},       {&abs, "Leaf"},        {&consume, "Leaf"},    {&pseudo, "Pair"},
        {&keep, nullptr}, {&primOpt, nullptr}, {&numberOpt, nullptr}, {&absOpt, nullptr}, {&clsOpt, nullptr},
    };
    CXmlSerializationContext strict, forgiving;
    forgiving.SetIgnoreMissingMandatoryElements(true);
    for (const Case& c : cases)
        for (CXmlSerializationContext* context : {&strict, &forgiving}) {
            EXPECT_TRUE(c.descriptor->Validate(*context, &owner, true, true));
            EXPECT_TRUE(c.descriptor->Validate(*context, &owner, true, false));
            if (!c.name) {
                EXPECT_TRUE(c.descriptor->Validate(*context, &owner, false, true));
                continue;
            }
            // The option about missing elements has no say here.
            EXPECT_TRUE(ThrowsExactly<COrvexValidationException>(
                [&] { c.descriptor->Validate(*context, &owner, false, true); },
                std::string("Failed to find the mandatory element [") + c.name + "]"));
            EXPECT_FALSE(c.descriptor->Validate(*context, &owner, false, false));
        }
    EXPECT_TRUE(keep.Validate(forgiving, &owner, false, true));
    EXPECT_FALSE(keep.Validate(forgiving, &owner, false, false));

    // Abstract children cannot be read at all.
    for (CElementInfo* descriptor : std::initializer_list<CElementInfo*>{&abs, &absOpt})
        for (const char* content : {"<Leaf kind=\"leaf\"/>", "<Z/>", ""})
            EXPECT_TRUE(ThrowsExactly<COrvexException>([&] { Step(*descriptor, owner, content, E); },
                                                       "AllAbsClsMndElm.ProcessXml, has not been implemented fully"));
    EXPECT_EQ(0, owner.stores);
}

namespace {

// An xs:all owner with members of every reading shape: two members of one name,
// one in another namespace, a pseudo pair whose A and B are also members of the
// owner, and a collection of T.
class CMix : public CFixture<CMix>
{
public:
    CMix() : CFixture("Mix", 8), texts(new CTextCol("T", 0, 3)) { CMix::Init(); }
    static CTables Build()
    {
        return FixtureTables(
            ElementGroup_All, E, "Mix",
            {new CElementInfoAllPrimOpt("B", "urn:t", 0, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoAllClsOpt("Pair", "urn:t", 1, P, MakePair, 0),
             new CElementInfoAllPrimOpt("A", "urn:t", 2, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoAllPrimCol("T", "urn:t", 3),
             new CElementInfoAllEnumMnd("D", "urn:u", 4, NumberToString, NumberFromString),
             new CElementInfoAllPrimOpt("A", "urn:t", 5, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoAllClsOpt("Leaf", "urn:t", 6, E, MakeLeaf, 0),
             new CElementInfoAllPrimOpt("E", "urn:t", 7, ItemType_string, nullptr, Rule::Preserve, NoFacets())});
    }
    void Init() override
    {
        CFixture::Init();
        texts->Clear();
        props[3].SetXmlCollection(texts);
    }
    // Everything the members stored, in one line.
    std::string State() const
    {
        std::string state = std::to_string(stores);
        for (std::size_t i = 0; i < props.size(); ++i) {
            if (!props[i].IsValid() || i == 3) continue;
            CSmartPtr<CXmlObjectBase> object;
            if (props[i].GetItemType() == ItemType_XmlObject) object = props[i].GetXmlObject();
            if (CPair* pair = dynamic_cast<CPair*>(object.Get()))
                state += " pair(" + pair->Text(0) + "," + pair->Text(1) + ")";
            else if (CLeaf* leaf = dynamic_cast<CLeaf*>(object.Get()))
                state += " leaf(" + std::to_string(leaf->props[0].GetI4()) + ")";
            else
                state += " " + std::to_string(i) + "=" + props[i].ToString(nullptr);
        }
        for (const std::string& text : texts->items) state += " T" + text;
        return state;
    }

    CSmartPtr<CTextCol> texts;
};

// The walk as plain passes over every member not yet done, then Validate and the
// test of what is left; the same results and texts as the library's walk.
std::string PlainPasses(CMix& mix, CXmlElement* parent, const CXmlSerializationContext& context)
{
    mix.Init();
    CElementInfo** elements = CMix::Tables().elements;
    bool seen[8] = {};
    CXmlElement* current = parent->GetFirstElement();
    try {
        bool moved = true;
        while (current && moved) {
            CXmlElement* const before = current;
            for (int i = 0; elements[i]; ++i)
                if (!seen[i]) seen[i] = elements[i]->ElementFromXml(context, &mix, parent, &current, "urn:t", E);
            moved = current != before;
        }
        for (int i = 0; elements[i]; ++i) elements[i]->Validate(context, &mix, seen[i], true);
    } catch (const COrvexException& e) {
        return e.GetMessage();
    }
    if (!current || context.GetIgnoreUnknownElements()) return "read";
    return "Failed read all the elements held within the element [Mix]. The unexpected element [" +
           current->GetLocalName() + "] remains un processed";
}

std::string Walk(CMix& mix, const std::string& xml, const CXmlSerializationContext& context)
{
    try {
        mix.FromXml(xml.c_str(), context);
    } catch (const COrvexException& e) {
        const COrvexException* cause = &e;
        while (cause->GetInnerException()) cause = cause->GetInnerException();
        return cause->GetMessage();
    }
    return "read";
}

}  // namespace

TEST(ElementInfoAllWalk, LookUpByNameGivesTheResultsOfThePlainPasses)
{
    const char* const pieces[] = {"<A>a</A>",         "<B>b</B>",         "<T>t</T>",  "<u:D>one</u:D>", "<D>one</D>",
                                  "<Leaf><V>4</V></Leaf>", "<E>e</E>", "<Z/>",      "<A>a2</A>"};
    std::mt19937 random(20261124);
    int reads = 0, differentOutcomes = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string content;
        const int length = static_cast<int>(random() % 9);
        for (int i = 0; i < length; ++i) content += pieces[random() % (sizeof pieces / sizeof *pieces)];
        const std::string xml = "<Mix xmlns=\"urn:t\" xmlns:u=\"urn:u\">" + content + "</Mix>";
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        for (int option = 0; option <= (kSkip | kNoNamespaces); ++option) {
            const CXmlSerializationContext context = Context(option);
            CMix plain, walked;
            const std::string expected = PlainPasses(plain, document.GetDocumentElement(), context);
            const std::string outcome = Walk(walked, xml, context);
            ASSERT_EQ(expected, outcome) << content << " option " << option;
            ASSERT_EQ(plain.State(), walked.State()) << content << " option " << option;
            ++reads;
            if (expected != "read") ++differentOutcomes;
        }
    }
    // The lists cover taking, leaving and failing alike.
    EXPECT_GT(differentOutcomes, reads / 10);
    EXPECT_LT(differentOutcomes, reads * 9 / 10);
}
