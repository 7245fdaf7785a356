// The three walks of a generated class, through FromXml and ToXml: attribute
// kinds both ways, unknown attributes, pseudo classes, xsi:type, the group walks
// and the wrapping of failures.
#include <gtest/gtest.h>

#include "BindingShapes.h"
#include "TestUtil.h"

using namespace OrvexTest;

namespace {

const char* const kTagHead =
    "<t:Tag xmlns:t='urn:t' xmlns:k='urn:k' xmlns:x='urn:x' xmlns:y='urn:y' "
    "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ";

// The message of each level, outermost first; innermost receives the class of the last level.
template <typename Fn>
std::string ChainOf(Fn&& fn, const std::type_info** innermost = nullptr)
{
    try {
        fn();
    } catch (const COrvexException& e) {
        std::string chain = dynamic_cast<const COrvexValidationException*>(&e) ? "" : "not wrapped: ";
        const COrvexException* level = &e;
        for (; level->GetInnerException(); level = level->GetInnerException()) chain += level->GetMessage() + " / ";
        if (innermost)
            *innermost = &typeid(*level);
        return chain + level->GetMessage();
    }
    return "no failure";
}

}  // namespace

// The round trips below compare the whole written text, so they check what was read too.
TEST(GeneratedClassAttributes, AllThreeKindsReadAndWriteBack)
{
    CSmartPtr<CTag> tag(new CTag());
    tag->FromXml((std::string(kTagHead) +
                  "code=' 7 ' k:kind='closed' x:a='1' y:b='2' xsi:type='t:Tag' xsi:schemaLocation='s'>hi</t:Tag>")
                     .c_str());
    EXPECT_EQ(
        "<AA:Tag xmlns:AA=\"urn:t\" code=\"7\" xmlns:AB=\"urn:k\" AB:kind=\"closed\" xmlns:AC=\"urn:x\" "
        "AC:a=\"1\" xmlns:AD=\"urn:y\" AD:b=\"2\">hi</AA:Tag>",
        tag->ToXml(false, false));

    // Reading again starts from Init: the optional attribute is gone, the wildcard
    // collection holds only the new attributes.
    tag->FromXml((std::string(kTagHead) + "k:kind='open'/>").c_str());
    EXPECT_EQ("<AA:Tag xmlns:AA=\"urn:t\" xmlns:AB=\"urn:k\" AB:kind=\"open\"/>", tag->ToXml(false, false));
}

TEST(GeneratedClassAttributes, BadAttributesFailWithTheirOwnTextUnderTheElementLine)
{
    struct Case { const char* attributes; const char* chain; } withWildcard[] = {
        // Unqualified, kind is not the required k:kind.
        {"kind='open'", "Failed to process the element [Tag] / Failed to find the required Attribute [kind]"},
        // An attribute in a namespace goes to the wildcard, which refuses it by its
        // constraint before the unknown-attribute rule is reached.
        {"k:kind='open' t:c='1'", "Failed to process the element [Tag] / Invalid namespace [urn:t]. The namespace "
                                  "must be one of [urn:x urn:y] where the target namespace is [urn:t]"},
        {"k:kind='open' xsi:nil='true'",
         "Failed to process the element [Tag] / Invalid namespace [http://www.w3.org/2001/XMLSchema-instance]. The "
         "namespace must be one of [urn:x urn:y] where the target namespace is [urn:t]"},
    }, withoutWildcard[] = {
        {"xsi:nil='true'", "Failed to process the element [Bag] / Unexpected Attribute [nil] found."},
        {"xml:lang='en'", "Failed to process the element [Bag] / Unexpected Attribute [lang] found."},
        {"xsi:type='t:Bag' xsi:noNamespaceSchemaLocation='n' xmlns:q='urn:q'", "no failure"},
    };
    for (const Case& c : withWildcard) {
        CSmartPtr<CTag> tag(new CTag());
        const std::string xml = std::string(kTagHead) + c.attributes + "/>";
        const std::type_info* innermost = nullptr;
        EXPECT_EQ(c.chain, ChainOf([&] { tag->FromXml(xml.c_str()); }, &innermost)) << c.attributes;
        // The wrapped cause keeps its most derived class.
        if (std::string(c.attributes).find("t:c") != std::string::npos) {
            EXPECT_EQ(typeid(COrvexInvalidNamespaceException), *innermost);
        }
    }
    for (const Case& c : withoutWildcard) {
        CSmartPtr<CBag> bag(new CBag());
        const std::string xml =
            std::string("<t:Bag xmlns:t='urn:t' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ") +
            c.attributes + "><t:P>1</t:P></t:Bag>";
        EXPECT_EQ(c.chain, ChainOf([&] { bag->FromXml(xml.c_str()); })) << c.attributes;
    }
}

// The context's IgnoreUnknownAttributes is driven end to end by the purchase order test.
TEST(GeneratedClassAttributes, UnknownAttributesDroppedByTheClass)
{
    // A primitive attribute needs its namespace even when namespaces are ignored;
    // the class's own flag drops what nobody takes, whatever the context says.
    CXmlSerializationContext loose;
    loose.SetIgnoreNamespaces(true);
    CSmartPtr<CLooseTag> looseTag(new CLooseTag());
    looseTag->FromXml("<Tag xmlns:k='urn:k' k:code='3' other='1'/>", loose);
    EXPECT_FALSE(looseTag->code.IsValid());
    looseTag->FromXml("<Tag code='3' other='1'/>");
    EXPECT_EQ(3, looseTag->code.GetI4());

    // An enumerated attribute matches by local name alone under ignored namespaces.
    CSmartPtr<CTag> tag(new CTag());
    tag->FromXml("<Tag kind='closed'/>", loose);
    EXPECT_EQ(OrvexExamples::OrderStatus_Closed, tag->kind);
}

TEST(GeneratedClassAttributes, WritingTestsFacetsAndWrapsTheFailure)
{
    CSmartPtr<CTag> tag(new CTag());
    tag->code.SetI4(101);
    const std::type_info* innermost = nullptr;
    EXPECT_EQ(
        "Failed to convert the element [Tag] to XML / Failed to convert attributes to XML / Invalid Value for "
        "code [101]",
        ChainOf([&] { tag->ToXml(); }, &innermost));
    EXPECT_EQ(typeid(COrvexException), *innermost);
    tag->code.SetI4(100);
    tag->kind = 2;
    tag->text = "a<b";
    EXPECT_EQ("<AA:Tag xmlns:AA=\"urn:t\" code=\"100\" xmlns:AB=\"urn:k\" AB:kind=\"held\">a&lt;b</AA:Tag>",
              tag->ToXml(false, false));
}

namespace {

// A wildcard that stands in front of a mandatory attribute, as a table must not
// have it, and whose property can be switched to hold something else than a CAttributeCol.
class CWild : public CShape<CWild>
{
public:
    CWild() : extras(new CAttributeCol("", "##any", "urn:t")), other(new CBag()) { SetElementName("Wild"); Init(); }
    static CTables Build()
    {
        return MakeTables(Parent(ElementGroup_Sequence, "Wild"), {},
                          {new CAttributeInfoAny("AnyAttribute", "", 1, false, "##any", "urn:t"),
                           new CAttributeInfoPrimitive("m", "", 0, false, ItemType_i4, nullptr, Rule::Collapse,
                                                       CPrimitiveRestrictions("", -1, -1, "", "5", "", "", -1))});
    }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override
    {
        if (propertyIndex == 0) Access(m, read, value);
        else if (read && holdsBag) value.SetXmlObject(other);
        else if (read) value.SetXmlCollection(extras);
    }
    void Init() override { m.SetInvalid(); extras->Clear(); }

    OrvexVariant m;
    bool holdsBag = false;
    CSmartPtr<CAttributeCol> extras;
    CSmartPtr<CBag> other;
};

}  // namespace

TEST(GeneratedClassAttributes, WildcardTakesWhatReachesItAndNeverFailsValidation)
{
    struct Case { bool holdsBag; const char* xml; const char* chain; int extras; } cases[] = {
        // The wildcard is not optional and saw nothing, yet only the primitive fails.
        {false, "<Wild/>", "Failed to process the element [Wild] / Failed to find the required Attribute [m]", 0},
        // Standing first, the wildcard takes the attribute meant for the next descriptor.
        {false, "<Wild m='3'/>", "Failed to process the element [Wild] / Failed to find the required Attribute [m]", 1},
        {true, "<Wild m='3'/>", "Failed to process the element [Wild] / Serialization Data Error : The collection "
                                "should be a CAttributeCol, it was not!", 0},
    };
    for (const Case& c : cases) {
        CSmartPtr<CWild> wild(new CWild());
        wild->holdsBag = c.holdsBag;
        const std::type_info* innermost = nullptr;
        EXPECT_EQ(c.chain, ChainOf([&] { wild->FromXml(c.xml); }, &innermost)) << c.xml;
        EXPECT_EQ(c.extras, wild->extras->GetCount()) << c.xml;
        if (c.holdsBag) {
            EXPECT_EQ(typeid(COrvexException), *innermost);
        }
    }
}

TEST(GeneratedClassAttributes, MandatoryAttributeIsAlwaysWrittenOrFails)
{
    const std::string head = "Failed to convert the element [Wild] to XML / Failed to convert attributes to XML / ";
    CSmartPtr<CWild> wild(new CWild());
    // Unset and mandatory: no facet stops it, the conversion to text does.
    EXPECT_EQ(head + "Invalid Type 0 to convert to string", ChainOf([&] { wild->ToXml(); }));
    wild->m.SetI4(6);
    EXPECT_EQ(head + "Invalid Value for m [6]", ChainOf([&] { wild->ToXml(); }));
    wild->m.SetI4(5);
    wild->extras->Add("x", "1");
    EXPECT_EQ("<AA:Wild xmlns:AA=\"urn:t\" x=\"1\" m=\"5\"/>", wild->ToXml(false, false));
}

TEST(GeneratedClassPseudo, PseudoChildReadsInPlaceAndWritesIntoTheHostTag)
{
    CSmartPtr<CHost> host(new CHost());
    host->FromXml("<Item xmlns='urn:t' pa='2' ha='1'><A>a</A><C>3</C><B>b</B></Item>");
    // Named otherwise than its type, the host tells its type; the pseudo child's
    // attribute follows the host's own ones.
    EXPECT_EQ(
        "<AA:Item xmlns:AA=\"urn:t\" xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" "
        "AB:type=\"AA:HostType\" ha=\"1\" pa=\"2\"><AA:A>a</AA:A><AA:C>3</AA:C><AA:B>b</AA:B></AA:Item>",
        host->ToXml(false, false));
    host->Rename("HostType");
    EXPECT_EQ(
        "<AA:HostType xmlns:AA=\"urn:t\" ha=\"1\" pa=\"2\"><AA:A>a</AA:A><AA:C>3</AA:C><AA:B>b</AA:B>"
        "</AA:HostType>",
        host->ToXml(false, false));

    // Missing pseudo content fails only under the real element.
    EXPECT_EQ("Failed to process the element [Host] / Failed to find a required element [Group]",
              ChainOf([&] { host->FromXml("<Host xmlns='urn:t'><B>b</B></Host>"); }));
}

TEST(GeneratedClassSequence, DecliningMemberStopsQuietlyOrSkipsUnknownElements)
{
    CSmartPtr<CRun> run(new CRun());
    run->FromXml("<Run xmlns='urn:t'><a>1</a><x/><b>2</b></Run>");
    EXPECT_EQ(1, run->a.GetI4());
    EXPECT_FALSE(run->b.IsValid());

    CXmlSerializationContext skipping;
    skipping.SetIgnoreUnknownElements(true);
    run->FromXml("<Run xmlns='urn:t'><a>1</a><x/><y/><b>2</b><z/></Run>", skipping);
    EXPECT_EQ(2, run->b.GetI4());
}

TEST(GeneratedClassChoice, EmptyChoiceFailsBothWaysUnlessALineMayBeAbsent)
{
    const std::string noChild =
        "Failed to process the element [Pick] / No child elements within the element [Pick] were populated. The "
        "element represents a choice, so one and only one element should be populated. The element contained no "
        "sutable child elements";
    const std::string noneSet =
        "Failed to convert the element [Pick] to XML / This element is a choice, and as such "
        "must have at one (and only one) valid item, currently there are none set";
    CSmartPtr<CPick> pick(new CPick());
    EXPECT_EQ(noChild, ChainOf([&] { pick->FromXml("<Pick xmlns='urn:t'/>"); }));
    EXPECT_EQ(noneSet, ChainOf([&] { pick->ToXml(); }));

    // An alternative that may repeat zero times makes the empty choice legal.
    CSmartPtr<CPick> open(new CPick(0));
    EXPECT_NO_THROW(open->FromXml("<Pick xmlns='urn:t'/>"));
    EXPECT_EQ("<AA:Pick xmlns:AA=\"urn:t\"/>", open->ToXml(false, false));
}

TEST(GeneratedClassChoice, FirstAlternativeWinsAndLeftoversFail)
{
    CSmartPtr<CPick> pick(new CPick());
    pick->FromXml("<Pick xmlns='urn:t'><Y>why</Y></Pick>");
    EXPECT_EQ("why", pick->y.GetString());
    EXPECT_FALSE(pick->x.IsValid());
    pick->x.SetI4(5);
    EXPECT_EQ("<AA:Pick xmlns:AA=\"urn:t\"><AA:X>5</AA:X></AA:Pick>", pick->ToXml(false, false));

    EXPECT_EQ(
        "Failed to process the element [Pick] / Failed read all the elements held within the element [Pick]. "
        "The unexpected element [Y] remains un processed",
        ChainOf([&] { pick->FromXml("<Pick xmlns='urn:t'><X>1</X><Y>2</Y></Pick>"); }));
    CXmlSerializationContext skipping;
    skipping.SetIgnoreUnknownElements(true);
    pick->FromXml("<Pick xmlns='urn:t'><u/><v/><X>1</X><Y>2</Y></Pick>", skipping);
    EXPECT_EQ(1, pick->x.GetI4());
    EXPECT_FALSE(pick->y.IsValid());
}

// The all-group walk's failures and options are driven end to end by the settings
// tests and against plain passes by the all-walk test of the descriptors.
TEST(GeneratedClassAll, AnyOrderReadWrittenInDeclaredOrder)
{
    CSmartPtr<CBag> bag(new CBag());
    bag->FromXml("<Bag xmlns='urn:t'><Q>q</Q><P>4</P></Bag>");
    EXPECT_EQ("<AA:Bag xmlns:AA=\"urn:t\"><AA:P>4</AA:P><AA:Q>q</AA:Q></AA:Bag>", bag->ToXml(false, false));
}

TEST(GeneratedClassGroups, UnknownGroupTypeFailsEachWay)
{
    CSmartPtr<CBroken> broken(new CBroken());
    EXPECT_EQ("Failed to process the element [Broken] / Unknow Group Type",
              ChainOf([&] { broken->FromXml("<Broken/>"); }));
    EXPECT_EQ("Failed to convert the element [Broken] to XML / Unknown XML Group Type",
              ChainOf([&] { broken->ToXml(); }));
}

// Each descriptor matches by local name, and by namespace unless namespaces are ignored.
TEST(GeneratedClassTables, ElementListFollowsTheNamespaceOption)
{
    CSmartPtr<CPick> pick(new CPick());
    CXmlDocument doc;
    doc.LoadXml("<r xmlns:q='urn:q'><Y xmlns='urn:t'/><q:Y/><y xmlns='urn:t'/></r>");
    CXmlElement* exact = doc.GetDocumentElement()->GetFirstElement();
    CXmlElement* foreign = exact->GetNextSiblingElement();
    CXmlSerializationContext strict, loose;
    loose.SetIgnoreNamespaces(true);
    EXPECT_TRUE(pick->IsElementInList(strict, exact));
    EXPECT_FALSE(pick->IsElementInList(strict, foreign));
    EXPECT_TRUE(pick->IsElementInList(loose, foreign));
    EXPECT_FALSE(pick->IsElementInList(loose, foreign->GetNextSiblingElement()));
    EXPECT_FALSE(pick->IsElementInList(loose, nullptr));
}

namespace {

// A tag that counts its Init calls and opens the two read entries of the base.
class CCountedTag : public CTag
{
public:
    void Init() override { ++inits; CTag::Init(); }
    static CXmlElement* Read(CXmlObjectBase* object, CXmlElement* element, bool justMade)
    {
        const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext();
        return justMade ? FromXml_IntMade(object, element, element->GetFirstElement(), context)
                        : CXmlObjectBase::FromXml_Int(object, element, element->GetFirstElement(), context);
    }
    int inits = 0;
};

// An object that reads itself without the generated walk.
class CPlainObject : public CXmlObjectBase
{
public:
    using CXmlObjectBase::TakeJustMade;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement*, const CXmlSerializationContext&, bool) override
    {
        read = true;
        return element;
    }
    bool read = false;
};

}  // namespace

// An object its maker has just constructed is read without a second Init; any
// other read starts from Init, also after a made read that failed.
TEST(GeneratedClassInit, JustMadeObjectsSkipTheSecondInitOnly)
{
    CXmlDocument document;
    document.LoadXml((std::string(kTagHead) + "code='7' k:kind='open' x:a='1'>hi</t:Tag>").c_str());
    CXmlDocument bad;
    bad.LoadXml((std::string(kTagHead) + "code='x' k:kind='open'/>").c_str());

    CSmartPtr<CCountedTag> tag(new CCountedTag());
    tag->inits = 0;
    CCountedTag::Read(tag, document.GetDocumentElement(), true);
    EXPECT_EQ(0, tag->inits);
    EXPECT_EQ(7, tag->code.GetI4());
    EXPECT_EQ(1, tag->extras->GetCount());

    CCountedTag::Read(tag, document.GetDocumentElement(), false);
    EXPECT_EQ(1, tag->inits);
    EXPECT_EQ(1, tag->extras->GetCount());  // Init made a new collection: no doubles

    EXPECT_THROW(CCountedTag::Read(tag, bad.GetDocumentElement(), true), COrvexValidationException);
    EXPECT_EQ(1, tag->inits);
    CCountedTag::Read(tag, document.GetDocumentElement(), false);
    EXPECT_EQ(2, tag->inits);

    // A class with a read of its own does not take the mark; it is gone all the same.
    CSmartPtr<CPlainObject> plain(new CPlainObject());
    CCountedTag::Read(plain, document.GetDocumentElement(), true);
    EXPECT_TRUE(plain->read);
    EXPECT_FALSE(plain->TakeJustMade());
}
