// orvex-gen's naming pass on its own: identifiers from XML names, member names, and
// the order in which colliding names are resolved.
#include <gtest/gtest.h>

#include <memory>

#include "NameMapper.h"

using namespace OrvexGen;

TEST(NameMapper, XmlNamesBecomeIdentifiers)
{
    const std::pair<const char*, const char*> cases[] = {
        {"purchaseOrder", "purchaseOrder"}, {"shipping-address", "shippingAddress"}, {"a.b.c", "aBC"},
        {"2nd", "_2nd"},                    {"under_score", "under_score"},         {"", "_"},
        {"caf\xC3\xA9", "cafxc3xa9"},       {"-lead", "Lead"},                      {"a--b", "aB"},
    };
    for (const auto& [xml, identifier] : cases) EXPECT_EQ(identifier, Identifier(xml)) << xml;
}

TEST(NameMapper, MembersLowerTheLeadingCapitalsButTheNextWordsFirst)
{
    const std::pair<const char*, const char*> cases[] = {
        {"USPrice", "usPrice"}, {"URL", "url"},   {"Name", "name"}, {"name", "name"},
        {"X", "x"},             {"IDs", "iDs"},   {"A1", "a1"},     {"ABCd", "abCd"},
    };
    for (const auto& [name, member] : cases) EXPECT_EQ(member, LowerLead(name)) << name;
}

TEST(NameMapper, CollisionsAreResolvedInAFixedOrder)
{
    CFileModel file;
    file.outputName = "shop";
    file.targetNamespace = "urn:x";
    std::vector<std::unique_ptr<CClassModel>> owned;
    auto add = [&](const char* schemaName, bool elementOnly, bool pseudo, const char* hint) {
        owned.push_back(std::make_unique<CClassModel>());
        CClassModel* cls = owned.back().get();
        cls->schemaName = cls->elementName = schemaName;
        cls->elementOnly = elementOnly;
        cls->pseudo = pseudo;
        cls->hint = hint;
        cls->file = &file;
        return cls;
    };
    // Listed in the order the binder would make them: the claim order does not follow it.
    CClassModel* group = add("book", false, true, "group");
    CClassModel* element = add("Book", true, false, "element");
    CClassModel* anonymous = add("BOOK", false, false, "anonymous");
    CClassModel* type = add("Book", false, false, "");
    CClassModel* library = add("Element", false, false, "");
    CClassModel* derived = add("Novel", false, false, "");
    derived->base = type;

    auto property = [](const char* xmlName, bool isAttribute = false) {
        CPropertyModel property;
        property.xmlName = xmlName;
        property.isAttribute = isAttribute;
        return property;
    };
    type->properties = {property("Value", true), property("value"), property("base")};
    derived->properties = {property("VALUE")};

    CEnumModel colors;
    colors.xmlName = "rule";
    colors.values = {"red", "Red", "", "2x", "a-b"};
    colors.file = &file;

    std::vector<CFileModel*> files = {&file};
    std::vector<CClassModel*> classes;
    for (auto& cls : owned) classes.push_back(cls.get());
    AssignNames(files, classes, {&colors});

    EXPECT_EQ("CShopFactory", file.factoryName);
    EXPECT_EQ("kShopNamespace", file.namespaceConstant);
    EXPECT_EQ("CBook", type->cppName);
    EXPECT_EQ("CBOOKType", anonymous->cppName);
    EXPECT_EQ("CBookElement", element->cppName);
    EXPECT_EQ("CBookGroup", group->cppName);
    EXPECT_EQ("CElementType", library->cppName);  // the library has a CElement
    EXPECT_EQ("Value", type->properties[1].name);   // elements claim first
    EXPECT_EQ("ValueAttribute", type->properties[0].name);
    EXPECT_EQ("BaseElement", type->properties[2].name);  // GetBase is the library's
    EXPECT_EQ("VALUEElement", derived->properties[0].name);  // clear of the base's names
    EXPECT_EQ("valueElement", derived->properties[0].member);
    EXPECT_EQ("RuleEnum", colors.cppName);  // Rule is the sources' whitespace alias
    const std::vector<std::string> enumerators = {"RuleEnum_Red", "RuleEnum_Red2", "RuleEnum_Empty", "RuleEnum__2x",
                                                  "RuleEnum_AB"};
    EXPECT_EQ(enumerators, colors.enumerators);
}
