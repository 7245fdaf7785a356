// Classes that orvex-gen wrote at build time from tests/gen/schemas (shop.xsd, the
// common.xsd it includes and the parts.xsd it imports), compiled and driven like hand-written ones: a document
// with every mapped construct read, checked value by value, written and read back;
// facets, choices and xsi:type through the generated code; and the generator's own
// failures on schemas it cannot map.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>

#include "TestUtil.h"
#include "e2e/EndToEndSupport.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "gen/Shop.h"

using namespace OrvexXmlLib5;
using namespace OrvexGenTest;
using OrvexExamples::ReadTextFile;
using OrvexTest::Replaced;

namespace {

const std::string kSchemas = std::string(ORVEX_TEST_SOURCE_DIR) + "/gen/schemas/";

std::string Catalogue()
{
    return ReadTextFile(std::string(ORVEX_TEST_SOURCE_DIR) + "/gen/data/catalogue.xml");
}

CSmartPtr<CCatalogue> Read(const std::string& xml)
{
    CSmartPtr<CCatalogue> catalogue = CCatalogue::CreateInstance();
    catalogue->FromXml(xml.c_str());
    return catalogue;
}

}  // namespace

TEST(GeneratedClasses, ReadEveryMappedConstruct)
{
    CSmartPtr<CCatalogue> c = Read(Catalogue());
    // Attributes: a group's required one and its default, a fixed one, and the wildcard.
    EXPECT_EQ("ada|1|2.0|Spring", c->GetCreatedBy() + "|" + std::to_string(c->GetRevision()) + "|" + c->GetVersion() +
                                      "|" + c->GetTitle());
    ASSERT_EQ(1, c->GetAnyAttribute()->GetCount());

    ASSERT_EQ(2, c->GetProduct()->GetCount());
    CSmartPtr<CProduct> hammer = c->GetProduct()->Item(0);
    // A keyword as an XML name (class), simple content and a list held as text, and the
    // xs:group reference: a choice whose children stand among the product's.
    EXPECT_EQ("ABC-0001|tools|Hammer|12.50|EUR|Pickup|Store 4|1 2 3|2024-03-01",
              hammer->GetSku() + "|" + hammer->GetClass() + "|" + hammer->GetName() + "|" +
                  hammer->GetPrice()->GetValue() + "|" + hammer->GetPrice()->GetCurrency() + "|" +
                  hammer->GetDelivery()->GetSelectedElement() + "|" + hammer->GetDelivery()->GetPickup() + "|" +
                  hammer->GetSizes() + "|" + hammer->GetReleased().ToString());
    EXPECT_EQ(Color_Red, hammer->GetColorAttribute());
    EXPECT_EQ(Color_LightBlue, hammer->GetColor());
    EXPECT_FALSE(hammer->IsValidNameElement());
    EXPECT_DOUBLE_EQ(0.75, hammer->GetWeight());
    EXPECT_EQ(40, hammer->GetStock());

    CSmartPtr<CProduct> saw = c->GetProduct()->Item(1);
    EXPECT_EQ("saw", saw->GetNameElement());  // differs from Name only in case
    EXPECT_EQ("alt", saw->GetNameAttribute());
    EXPECT_EQ(Color_Green, saw->GetColorAttribute());  // the attribute's default
    EXPECT_FALSE(saw->IsValidColor());
    EXPECT_EQ("Ship", saw->GetDelivery()->GetSelectedElement());
    EXPECT_EQ(CBigInteger(3), saw->GetDelivery()->GetShip());

    // The abstract type: each element made by the factory from its xsi:type.
    ASSERT_EQ(2, c->GetShape()->GetCount());
    const CCircle* circle = dynamic_cast<const CCircle*>(c->GetShape()->Item(0).Get());
    ASSERT_NE(nullptr, circle);
    EXPECT_EQ("round", circle->GetLabel());
    EXPECT_DOUBLE_EQ(2.5, circle->GetRadius());
    const CSquare* square = dynamic_cast<const CSquare*>(c->GetShape()->Item(1).Get());
    ASSERT_NE(nullptr, square);
    EXPECT_EQ(4, square->GetSide());
    EXPECT_TRUE(square->GetRotated());

    ASSERT_EQ(2, c->GetTag()->GetCount());
    EXPECT_EQ("sale", c->GetTag()->Item(1));
    ASSERT_TRUE(c->IsValidContact() && c->IsValidWindow());
    EXPECT_EQ("555-0100", c->GetContact()->GetPhone());
    EXPECT_EQ(20, c->GetWindow()->GetHeight());  // xs:all: any order
    // Types named like the library's own get a suffix.
    EXPECT_EQ(RuleEnum_Lax, c->GetWindow()->GetRule());
    const CSmartPtr<CElementType> element = c->GetWindow()->GetElement();
    EXPECT_EQ("e1", element->GetId());
    EXPECT_EQ(1, c->GetAnyElement()->GetCount());  // xs:any of another namespace
}

TEST(GeneratedClasses, ImportedNamespaceRecursionAndNestedGroups)
{
    CSmartPtr<CCatalogue> c = Read(Catalogue());
    ASSERT_TRUE(c->IsValidAssembly());
    CSmartPtr<CAssembly> a = c->GetAssembly();
    EXPECT_EQ(2, a->GetCount());  // a qualified attribute
    // A union held as text, an unqualified local element, one qualified by its own form.
    EXPECT_EQ("7|frame|fragile", a->GetKind() + "|" + a->GetLabel() + "|" + a->GetNote());
    // The repeated sequence: one item per key and value.
    ASSERT_EQ(2, a->GetSequence1()->GetCount());
    EXPECT_EQ("colour", a->GetSequence1()->Item(0)->GetKey());
    EXPECT_EQ("matt", a->GetSequence1()->Item(1)->GetValue());
    // The optional choice, present here and absent in the parts below.
    ASSERT_TRUE(a->IsValidChoice2());
    EXPECT_EQ("two bars", a->GetChoice2()->GetSketch());
    // The recursive type.
    ASSERT_EQ(2, a->GetPart()->GetCount());
    EXPECT_EQ("urn:drawing:1", a->GetPart()->Item(0)->GetChoice2()->GetDrawing());
    CSmartPtr<CAssembly> bolt = a->GetPart()->Item(1);
    EXPECT_EQ("spare", bolt->GetKind());
    EXPECT_EQ(1, bolt->GetCount());  // the attribute's default
    EXPECT_FALSE(bolt->IsValidChoice2());
    EXPECT_EQ(0, bolt->GetSequence1()->GetCount());
    ASSERT_EQ(1, bolt->GetPart()->GetCount());
    EXPECT_EQ("thread", bolt->GetPart()->Item(0)->GetLabel());
    EXPECT_NE(nullptr, dynamic_cast<const CLeafAssembly*>(bolt->GetPart()->Item(0).Get()));  // the restriction
    EXPECT_EQ(nullptr, dynamic_cast<const CLeafAssembly*>(bolt.Get()));
}

TEST(GeneratedClasses, WrittenDocumentReadsBackToTheSameText)
{
    CSmartPtr<CCatalogue> first = Read(Catalogue());
    const std::string written = first->ToXml(false, false);
    CSmartPtr<CCatalogue> second = Read(written);
    EXPECT_EQ(written, second->ToXml(false, false));
    // The polymorphic items keep their types through the round trip.
    EXPECT_NE(std::string::npos, written.find("Circle"));
    EXPECT_NE(std::string::npos, written.find(":Side>4</"));
    EXPECT_NE(std::string::npos, written.find(":type=\"AC:LeafAssembly\""));
    EXPECT_EQ(std::string::npos, written.find(":type=\"AC:Assembly\""));  // declared so: no xsi:type
    EXPECT_NE(std::string::npos, written.find("kept as it is"));

    // What the classes write is valid by the schema they come from.
    if (std::system("xmllint --version > /dev/null 2>&1") != 0) GTEST_SKIP() << "xmllint is not installed";
    const std::string path = OrvexTest::TempPath("gen-catalogue.xml");
    first->ToXmlFile(path.c_str());
    const std::string command = "xmllint --noout --schema " + kSchemas + "shop.xsd " + path + " > /dev/null 2>&1";
    EXPECT_EQ(0, std::system(command.c_str()));
}

TEST(GeneratedClasses, ObjectsBuiltInCodeWriteAValidDocument)
{
    CSmartPtr<CCatalogue> c = CCatalogue::CreateInstance();
    c->SetCreatedBy("bob");
    c->SetTitle("Built");
    CSmartPtr<CProduct> product = c->GetProduct()->Add();
    product->SetSku("QQQ-1234");
    product->SetName("Glue");
    product->GetPrice()->SetValue("1.25");
    product->GetPrice()->SetCurrency("GBP");
    product->GetDelivery()->SetShip(CBigInteger(2));
    CSmartPtr<CCircle> circle = CCircle::CreateInstance();
    circle->SetLabel("dot");
    circle->SetRadius(1);
    c->GetShape()->Add(circle.Get());
    CSmartPtr<CContact> contact = CContact::CreateInstance();
    contact->SetEmail("a@b.c");
    c->SetContact(contact.Get());

    CSmartPtr<CCatalogue> back = Read(c->ToXml());
    ASSERT_EQ(1, back->GetProduct()->GetCount());
    EXPECT_EQ("GBP", back->GetProduct()->Item(0)->GetPrice()->GetCurrency());
    EXPECT_EQ(CBigInteger(2), back->GetProduct()->Item(0)->GetDelivery()->GetShip());
    ASSERT_EQ(1, back->GetShape()->GetCount());
    EXPECT_NE(nullptr, dynamic_cast<const CCircle*>(back->GetShape()->Item(0).Get()));
    EXPECT_EQ("a@b.c", back->GetContact()->GetEmail());
    EXPECT_EQ("2.0", back->GetVersion());
}

TEST(GeneratedClasses, FacetsFromTheSchemaFailOnWriting)
{
    struct Case { const char* what; std::function<void(CCatalogue&)> spoil; } cases[] = {
        {"sku pattern", [](CCatalogue& c) { c.GetProduct()->Item(0)->SetSku("abc-0001"); }},
        {"stock above its maximum", [](CCatalogue& c) { c.GetProduct()->Item(0)->SetStock(10001); }},
        {"stock below its minimum", [](CCatalogue& c) { c.GetProduct()->Item(0)->SetStock(-1); }},
        {"weight at its exclusive minimum", [](CCatalogue& c) { c.GetProduct()->Item(0)->SetWeight(0); }},
        {"currency of 4 characters", [](CCatalogue& c) { c.GetProduct()->Item(0)->GetPrice()->SetCurrency("EURO"); }},
        {"version other than the fixed 2.0", [](CCatalogue& c) { c.SetVersion("3.0"); }},
    };
    for (const Case& c : cases) {
        CSmartPtr<CCatalogue> catalogue = Read(Catalogue());
        c.spoil(*catalogue);
        EXPECT_THROW(catalogue->ToXml(), COrvexException) << c.what;
    }
    CSmartPtr<CCatalogue> catalogue = Read(Catalogue());
    // A typed collection checks its facets when the item is added.
    EXPECT_THROW_MSG(catalogue->GetTag()->Add("far-too-long"), COrvexException, "Invalid Value for Tag [far-too-long]");
}

TEST(GeneratedClasses, ReadingFailuresNameThePathFromTheRoot)
{
    const std::string text = Catalogue();
    // path: an element of the chain below the root
    const struct { const char* from; const char* to; const char* path; } cases[] = {
        {"<s:Stock>40</s:Stock>", "<s:Stock>forty</s:Stock>", "Product"},
        {"<s:Radius>2.5</s:Radius>", "<s:Radius>wide</s:Radius>", "Shape"},
        {"<s:Price currency=\"EUR\">12.50</s:Price>", "", "Product"},
        {"<s:Color>light-blue</s:Color>", "<s:Color>blue</s:Color>", "Product"},
    };
    for (const auto& c : cases) {
        const std::string full = OrvexTest::ReadChain(CCatalogue::CreateInstance(), Replaced(text, c.from, c.to));
        EXPECT_NE(std::string::npos, full.find("Catalogue")) << c.to << "\n" << full;
        EXPECT_NE(std::string::npos, full.find(c.path)) << c.to << "\n" << full;
    }
}

TEST(GeneratedClasses, ChoiceTakesOneAlternative)
{
    CSmartPtr<CContact> contact = CContact::CreateInstance();
    EXPECT_EQ("", contact->GetSelectedElement());
    contact->SetEmail("a@b.c");
    EXPECT_EQ("Email", contact->GetSelectedElement());
    EXPECT_THROW(contact->SetPhone("1"), COrvexInvalidStateException);
    contact->SetValidEmail(false);
    EXPECT_EQ("", contact->GetSelectedElement());
    contact->SetPhone("1");
    EXPECT_EQ("Phone", contact->GetSelectedElement());
}

TEST(GeneratedClasses, SettersGuardTheirValues)
{
    CSmartPtr<CProduct> product = CProduct::CreateInstance();
    EXPECT_THROW(product->SetPrice(nullptr), COrvexInvalidParamException);
    EXPECT_THROW(product->SetReleased(CDateTime(2024, 3, 1, 10, 0, 0)), COrvexInvalidParamException);
    product->SetReleased(CDateTime(2024, 3, 1));
    EXPECT_TRUE(product->IsValidReleased());
    OrvexVariant value;
    value.SetI4(7);
    EXPECT_THROW(product->AccessProperty(99, false, value), COrvexInvalidParamException);
    EXPECT_THROW(product->AccessProperty(3, false, value), COrvexInvalidValueException);  // not a Color
}

// --- the generator itself

namespace {

struct CRun { int status; std::string output; };

CRun RunGenerator(const std::string& arguments)
{
    const std::string command = std::string(ORVEX_GEN_PATH) + " " + arguments + " 2>&1";
    CRun run{-1, std::string()};
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return run;
    char buffer[512];
    while (std::fgets(buffer, sizeof buffer, pipe)) run.output += buffer;
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

}  // namespace

TEST(Generator, UnmappableConstructsAreReportedWithFileAndLineAndWriteNothing)
{
    const std::string bad = std::string(ORVEX_TEST_SOURCE_DIR) + "/gen/bad/";
    const struct { const char* file; std::string message; } cases[] = {
        {"choice-extension.xsd", "orvex-gen: choice-extension.xsd:9: extension of a content model that is not a sequence\n"},
        {"redefine.xsd", "orvex-gen: redefine.xsd:3: xs:redefine is not supported\n"},
        {"substitution.xsd", "orvex-gen: substitution.xsd:4: substitutionGroup\n"},
        {"undeclared.xsd", "orvex-gen: undeclared.xsd:5: type [{urn:bad}Missing] is not declared\n"},
        {"allmany.xsd", "orvex-gen: allmany.xsd:5: xs:all member with maxOccurs above 1\n"},
        {"missing-include.xsd", "orvex-gen: missing-include.xsd:3: schema [nowhere.xsd] not found\n"},
        {"broken.xsd", "orvex-gen: broken.xsd:0: mismatched tag at line 4\n"},
        {"group-cycle.xsd", "orvex-gen: group-cycle.xsd:6: xs:group [{urn:bad}Loop] contains itself\n"},
        {"simple-cycle.xsd", "orvex-gen: simple-cycle.xsd:3: a simple type derived from itself\n"},
        {"absent.xsd", "orvex-gen: schema file [" + bad + "absent.xsd] not found\n"},
    };
    for (const auto& c : cases) {
        const std::string out = OrvexTest::TempPath(std::string("gen-bad-") + c.file);
        const CRun run = RunGenerator("-o " + out + " " + bad + c.file + "=Bad");
        EXPECT_EQ(1, run.status) << c.file;
        EXPECT_EQ(c.message, run.output) << c.file;
        EXPECT_FALSE(std::ifstream(out + "/Bad.h").good()) << c.file;
    }
    EXPECT_EQ(2, RunGenerator("").status);
}

// The constructors and the table order are the contract with user code and with
// documents: a change here is a change of the generated interface. A second run
// must write the very same files.
TEST(Generator, OutputIsStableAndMatchesTheGoldenLists)
{
    const std::string first = OrvexTest::TempPath("gen-run1"), second = OrvexTest::TempPath("gen-run2");
    const std::string schemas =
        kSchemas + "shop.xsd=Shop " + kSchemas + "common.xsd=Common " + kSchemas + "parts.xsd=Parts";
    ASSERT_EQ(0, RunGenerator("-o " + first + " " + schemas).status);
    ASSERT_EQ(0, RunGenerator("-o " + second + " " + schemas).status);
    for (const char* name : {"/Shop.h", "/Shop.cpp", "/Common.h", "/Common.cpp", "/Parts.h", "/Parts.cpp"})
        EXPECT_EQ(ReadTextFile(first + name), ReadTextFile(second + name)) << name;

    auto linesWith = [](const std::string& text, std::initializer_list<const char*> needles) {
        std::istringstream in(text);
        std::string line, found;
        while (std::getline(in, line))
            for (const char* needle : needles)
                if (line.find(needle) != std::string::npos) {
                    found += line.substr(line.find_first_not_of(' ')) + "\n";
                    break;
                }
        return found;
    };
    const std::string golden = std::string(ORVEX_TEST_SOURCE_DIR) + "/gen/golden/";
    const auto tables = {"new CParentElementInfo", "new CElementInfo", "new CAttributeInfo"};
    for (const char* name : {"Shop", "Parts"}) {
        const std::string out = first + "/" + name;
        EXPECT_EQ(ReadTextFile(golden + name + ".constructors.txt"),
                  linesWith(ReadTextFile(out + ".h"), {"explicit C"}));
        EXPECT_EQ(ReadTextFile(golden + name + ".tables.txt"), linesWith(ReadTextFile(out + ".cpp"), tables));
    }
}
