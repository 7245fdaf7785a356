// Small classes in the shape the code generator emits, one per walk that the
// driver tests look at: static tables built once, AccessProperty switching on the
// index, Init resetting the properties. The test readers below take or decline
// one element with none of the cells' recovery rules, so that the driver's walks
// are seen on their own; the all-group cells have no reading of their own yet.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>

#include "examples/binding/Order.h"
#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexTest {

using namespace OrvexXmlLib5;
using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

inline CPrimitiveRestrictions NoFacets()
{
    return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1);
}

struct CTables
{
    CParentElementInfo* info;
    CElementInfo** elements;
    CAttributeInfo** attributes;
};

// Null-terminated tables, as generated code declares them.
inline CTables MakeTables(CParentElementInfo* info, std::initializer_list<CElementInfo*> elements,
                          std::initializer_list<CAttributeInfo*> attributes = {})
{
    CTables tables{info, new CElementInfo*[elements.size() + 1], new CAttributeInfo*[attributes.size() + 1]};
    *std::copy(elements.begin(), elements.end(), tables.elements) = nullptr;
    *std::copy(attributes.begin(), attributes.end(), tables.attributes) = nullptr;
    return tables;
}

inline CParentElementInfo* Parent(XmlElementGroupType group, const char* name, int anyIndex = -1,
                                  bool failOnUnknown = true, bool inHierarchy = false)
{
    return new CParentElementInfo(group, ElementType_Element, name, "urn:t", anyIndex, failOnUnknown, inHierarchy);
}

inline void Access(OrvexVariant& property, bool read, OrvexVariant& value)
{
    if (read) value = property;
    else property = value;
}

// The table getters and identity every test class shares; Derived::Build() makes
// the tables on first use.
template <typename Derived>
class CShape : public CXmlGeneratedClass
{
public:
    static const CTables& Tables()
    {
        static const CTables tables = Derived::Build();
        return tables;
    }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:t"; }
    std::string GetNamespace() const override { return "urn:t"; }
    CParentElementInfo* GetClassInfo() const override { return Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().attributes; }
    using CXmlGeneratedClass::CleanMetaData;
    using CXmlGeneratedClass::IsElementInList;
};

// A primitive member that takes its element when it stands at the position and
// declines otherwise: the plain reading of a choice alternative and of an all
// member, and of a sequence member of a pseudo owner.
template <typename Cell>
class CTakeOrDecline : public Cell
{
public:
    using Cell::Cell;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement*,
                        CXmlElement** current, const char*, XmlElementType) override
    {
        if (!this->IsThisElement(context, *current)) return false;
        OrvexVariant value;
        value.FromString((*current)->GetText(), this->GetItemType(), this->GetWhitespaceRule());
        this->AccessProperty(owner, false, value);
        *current = (*current)->GetNextSiblingElement();
        return true;
    }
};
using CTryPrimReader = CTakeOrDecline<CElementInfoSeqPrimMnd>;
using CChoicePrimReader = CTakeOrDecline<CElementInfoChoicePrimOpt>;
using CAllPrimMndReader = CTakeOrDecline<CElementInfoAllPrimMnd>;
using CAllPrimOptReader = CTakeOrDecline<CElementInfoAllPrimOpt>;

// A repeating alternative of a choice.
class CChoiceColReader : public CElementInfoChoiceCol
{
public:
    using CElementInfoChoiceCol::CElementInfoChoiceCol;
    bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner, CXmlElement* parent,
                        CXmlElement** current, const char*, XmlElementType) override
    {
        OrvexVariant value;
        AccessProperty(owner, true, value);
        CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
        CXmlElement* next = FromXml_Int(collection->GetBase(), parent, *current, context, false);
        if (next == *current) return false;
        *current = next;
        collection->ValidateCount(context);
        return true;
    }
};

// <Tag code="i4 <= 100" k:kind="enum, required" x:..., y:... >text</Tag>
class CTag : public CShape<CTag>
{
public:
    CTag() { SetElementName("Tag"); Init(); }
    static CTables Build()
    {
        return MakeTables(Parent(ElementGroup_Sequence, "Tag", 3), {},
                          {new CAttributeInfoPrimitive("code", "", 0, true, ItemType_i4, nullptr, Rule::Collapse,
                                                       CPrimitiveRestrictions("", -1, -1, "", "100", "", "", -1)),
                           new CAttributeInfoEnum("kind", "urn:k", 1, false, OrvexExamples::OrderStatusToString,
                                                  OrvexExamples::OrderStatusFromString),
                           new CAttributeInfoAny("AnyAttribute", "", 2, true, "urn:x urn:y", "urn:t")});
    }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override
    {
        if (propertyIndex == 0) Access(code, read, value);
        if (propertyIndex == 1 && read) value.SetI4(kind);
        if (propertyIndex == 1 && !read) kind = value.GetI4();
        if (propertyIndex == 2 && read) value.SetXmlCollection(extras);
        if (propertyIndex == 3 && read) value.SetString(text);
        if (propertyIndex == 3 && !read) text = value.GetString();
    }
    void Init() override
    {
        code.SetInvalid();
        kind = 0;
        extras = new CAttributeCol("", "urn:x urn:y", "urn:t");
        text.clear();
    }

    OrvexVariant code;  // invalid: absent
    int kind;
    CSmartPtr<CAttributeCol> extras;
    std::string text;
};

// The same element, read by a class that drops attributes it does not know.
class CLooseTag : public CShape<CLooseTag>
{
public:
    CLooseTag() { SetElementName("Tag"); Init(); }
    static CTables Build()
    {
        return MakeTables(
            Parent(ElementGroup_Sequence, "Tag", -1, false), {},
            {new CAttributeInfoPrimitive("code", "", 0, true, ItemType_i4, nullptr, Rule::Collapse, NoFacets())});
    }
    void AccessProperty(int index, bool read, OrvexVariant& value) override { if (!index) Access(code, read, value); }
    void Init() override { code.SetInvalid(); }

    OrvexVariant code;
};

// A pseudo class: its children A, C stand among the host's, its attribute pa in the host's
// tag. Both classes see each other's attributes, so neither fails on unknown ones.
class CGroup : public CShape<CGroup>
{
public:
    CGroup() { Init(); }
    static CTables Build()
    {
        return MakeTables(
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Pseudo, "GroupType", "urn:t", -1, false, false),
            {new CElementInfoSeqPrimMnd("A", "urn:t", 0, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoSeqPrimOpt("C", "urn:t", 1, ItemType_i4, nullptr, Rule::Collapse, NoFacets())},
            {new CAttributeInfoPrimitive("pa", "", 2, true, ItemType_string, nullptr, Rule::Preserve, NoFacets())});
    }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override
    {
        if (propertyIndex == 0 && read) value.SetString(a);
        if (propertyIndex == 0 && !read) a = value.GetString();
        if (propertyIndex > 0) Access(propertyIndex == 1 ? c : pa, read, value);
    }
    void Init() override { a.clear(); c.SetInvalid(); pa.SetInvalid(); }

    std::string a;
    OrvexVariant c;
    OrvexVariant pa;
};

// <Host ha=".." pa=".."> A C? B? </Host>, and in a hierarchy: written under another
// name than HostType it tells its type.
class CHost : public CShape<CHost>
{
public:
    CHost() : group(new CGroup()) { SetElementName("Host"); Init(); }
    static CTables Build()
    {
        return MakeTables(
            Parent(ElementGroup_Sequence, "HostType", -1, false, true),
            {new CElementInfoSeqClsMnd("Group", "urn:t", 1, ElementType_Pseudo, nullptr, 0, true),
             new CElementInfoSeqPrimOpt("B", "urn:t", 2, ItemType_string, nullptr, Rule::Preserve, NoFacets())},
            {new CAttributeInfoPrimitive("ha", "", 0, true, ItemType_string, nullptr, Rule::Preserve, NoFacets())});
    }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override
    {
        if (propertyIndex == 1 && read) value.SetXmlObject(group);
        if (propertyIndex == 1 && !read) group = dynamic_cast<CGroup*>(value.GetXmlObject().Get());
        if (propertyIndex != 1) Access(propertyIndex == 0 ? ha : b, read, value);
    }
    void Init() override { ha.SetInvalid(); b.SetInvalid(); group->Init(); }
    void Rename(const char* name) { SetElementName(name); }

    OrvexVariant ha;
    CSmartPtr<CGroup> group;
    OrvexVariant b;
};

// <Pick> X | Y | Line* </Pick>, a choice whose collection alternative may be empty
// when lineMin is 0.
class CPick : public CShape<CPick>
{
public:
    explicit CPick(int lineMin = 1) : lines(new OrvexExamples::CLineCol("Line", "urn:t", lineMin, -1))
    {
        SetElementName("Pick");
        Init();
    }
    static CTables Build()
    {
        return MakeTables(Parent(ElementGroup_Choice, "Pick"),
                          {new CChoicePrimReader("X", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
                           new CChoicePrimReader("Y", "urn:t", 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
                           new CChoiceColReader("Line", "urn:t", 2)});
    }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override
    {
        if (propertyIndex < 2) Access(propertyIndex == 0 ? x : y, read, value);
        if (propertyIndex == 2 && read) value.SetXmlCollection(lines);
    }
    void Init() override { x.SetInvalid(); y.SetInvalid(); lines->Clear(); }

    OrvexVariant x, y;
    CSmartPtr<OrvexExamples::CLineCol> lines;
};

// <Bag> P Q? in any order </Bag>
class CBag : public CShape<CBag>
{
public:
    CBag() { SetElementName("Bag"); Init(); }
    static CTables Build()
    {
        return MakeTables(
            Parent(ElementGroup_All, "Bag"),
            {new CAllPrimMndReader("P", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
             new CAllPrimOptReader("Q", "urn:t", 1, ItemType_string, nullptr, Rule::Preserve, NoFacets())});
    }
    void AccessProperty(int index, bool read, OrvexVariant& value) override { Access(index ? q : p, read, value); }
    void Init() override { p.SetInvalid(); q.SetInvalid(); }

    OrvexVariant p, q;
};

// <Run> a b </Run> with members that decline instead of failing.
class CRun : public CShape<CRun>
{
public:
    CRun() { SetElementName("Run"); Init(); }
    static CTables Build()
    {
        return MakeTables(Parent(ElementGroup_Sequence, "Run"),
                          {new CTryPrimReader("a", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
                           new CTryPrimReader("b", "urn:t", 1, ItemType_i4, nullptr, Rule::Collapse, NoFacets())});
    }
    void AccessProperty(int index, bool read, OrvexVariant& value) override { Access(index ? b : a, read, value); }
    void Init() override { a.SetInvalid(); b.SetInvalid(); }

    OrvexVariant a, b;
};

// A class whose tables name no known group.
class CBroken : public CShape<CBroken>
{
public:
    CBroken() { SetElementName("Broken"); }
    static CTables Build() { return MakeTables(Parent(static_cast<XmlElementGroupType>(7), "Broken"), {}); }
    void AccessProperty(int, bool, OrvexVariant&) override {}
    void Init() override {}
};

}  // namespace OrvexTest
