// Small classes in the shape the code generator emits, one per walk that the
// driver tests look at: static tables built once, AccessProperty switching on the
// index, Init resetting the properties. The test readers below take or decline
// one element with none of the cells' recovery rules, so that the driver's walks
// are seen on their own; the all-group cells have no reading of their own yet.
#pragma once

#include <string>

#include "examples/binding/Order.h"
#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexTest {

using namespace OrvexXmlLib5;
using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

inline CPrimitiveRestrictions NoFacets() { return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1); }

struct CTables
{
    CParentElementInfo* info;
    CElementInfo** elements;
    CAttributeInfo** attributes;
};

// The table getters and identity every test class shares; Derived::Tables() builds
// the tables on first use.
template <typename Derived>
class CShape : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:t"; }
    std::string GetNamespace() const override { return "urn:t"; }
    CParentElementInfo* GetClassInfo() const override { return Derived::Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Derived::Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Derived::Tables().attributes; }
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
                        CXmlElement** current, const char*, XmlElementType) override;
};

// <Tag code="i4 <= 100" k:kind="enum, required" x:..., y:... >text</Tag>
class CTag : public CShape<CTag>
{
public:
    CTag() { SetElementName("Tag"); Init(); }
    static const CTables& Tables();
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    void Init() override;

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
    static const CTables& Tables();
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    void Init() override { code.SetInvalid(); }

    OrvexVariant code;
};

// A pseudo class: its children A, C stand among the host's, its attribute pa in the host's
// tag. Both classes see each other's attributes, so neither fails on unknown ones.
class CGroup : public CShape<CGroup>
{
public:
    CGroup() { Init(); }
    static const CTables& Tables();
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
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
    static const CTables& Tables();
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
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
    static const CTables& Tables();
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    void Init() override { x.SetInvalid(); y.SetInvalid(); lines->Clear(); }

    OrvexVariant x, y;
    CSmartPtr<OrvexExamples::CLineCol> lines;
};

// <Bag> P Q? in any order </Bag>
class CBag : public CShape<CBag>
{
public:
    CBag() { SetElementName("Bag"); Init(); }
    static const CTables& Tables();
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    void Init() override { p.SetInvalid(); q.SetInvalid(); }

    OrvexVariant p, q;
};

// <Run> a b </Run> with members that decline instead of failing.
class CRun : public CShape<CRun>
{
public:
    CRun() { SetElementName("Run"); Init(); }
    static const CTables& Tables();
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    void Init() override { a.SetInvalid(); b.SetInvalid(); }

    OrvexVariant a, b;
};

// A class whose tables name no known group.
class CBroken : public CShape<CBroken>
{
public:
    CBroken() { SetElementName("Broken"); }
    static const CTables& Tables();
    void AccessProperty(int, bool, OrvexVariant&) override {}
    void Init() override {}
};

// ---------------------------------------------------------------------------

inline bool CChoiceColReader::ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                             CXmlElement* parent, CXmlElement** current, const char*, XmlElementType)
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

inline const CTables& CTag::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Tag", "urn:t", 3, true, false),
        new CElementInfo* [1] { nullptr },
        new CAttributeInfo* [4] {
            new CAttributeInfoPrimitive("code", "", 0, true, ItemType_i4, nullptr, Rule::Collapse,
                                        CPrimitiveRestrictions("", -1, -1, "", "100", "", "", -1)),
            new CAttributeInfoEnum("kind", "urn:k", 1, false, OrvexExamples::OrderStatusToString,
                                   OrvexExamples::OrderStatusFromString),
            new CAttributeInfoAny("AnyAttribute", "", 2, true, "urn:x urn:y", "urn:t"),
            nullptr
        }
    };
    return tables;
}

inline void CTag::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read) value = code;
            else code = value;
            break;
        case 1:
            if (read) value.SetI4(kind);
            else kind = value.GetI4();
            break;
        case 2:
            if (read) value.SetXmlCollection(extras);
            break;
        case 3:
            if (read) value.SetString(text);
            else text = value.GetString();
            break;
    }
}

inline void CTag::Init()
{
    code.SetInvalid();
    kind = 0;
    extras = new CAttributeCol("", "urn:x urn:y", "urn:t");
    text.clear();
}

inline const CTables& CLooseTag::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Tag", "urn:t", -1, false, false),
        new CElementInfo* [1] { nullptr },
        new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("code", "", 0, true, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
            nullptr
        }
    };
    return tables;
}

inline void CLooseTag::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    if (propertyIndex != 0) return;
    if (read) value = code;
    else code = value;
}

inline const CTables& CGroup::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(ElementGroup_Sequence, ElementType_Pseudo, "GroupType", "urn:t", -1, false, false),
        new CElementInfo* [3] {
            new CElementInfoSeqPrimMnd("A", "urn:t", 0, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            new CElementInfoSeqPrimOpt("C", "urn:t", 1, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
            nullptr
        },
        new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("pa", "", 2, true, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            nullptr
        }
    };
    return tables;
}

inline void CGroup::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read) value.SetString(a);
            else a = value.GetString();
            break;
        case 1:
            if (read) value = c;
            else c = value;
            break;
        case 2:
            if (read) value = pa;
            else pa = value;
            break;
    }
}

inline const CTables& CHost::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "HostType", "urn:t", -1, false, true),
        new CElementInfo* [3] {
            new CElementInfoSeqClsMnd("Group", "urn:t", 1, ElementType_Pseudo, nullptr, 0, true),
            new CElementInfoSeqPrimOpt("B", "urn:t", 2, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            nullptr
        },
        new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("ha", "", 0, true, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            nullptr
        }
    };
    return tables;
}

inline void CHost::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read) value = ha;
            else ha = value;
            break;
        case 1:
            if (read) value.SetXmlObject(group);
            else group = dynamic_cast<CGroup*>(value.GetXmlObject().Get());
            break;
        case 2:
            if (read) value = b;
            else b = value;
            break;
    }
}

inline const CTables& CPick::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(ElementGroup_Choice, ElementType_Element, "Pick", "urn:t", -1, true, false),
        new CElementInfo* [4] {
            new CChoicePrimReader("X", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
            new CChoicePrimReader("Y", "urn:t", 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            new CChoiceColReader("Line", "urn:t", 2),
            nullptr
        },
        new CAttributeInfo* [1] { nullptr }
    };
    return tables;
}

inline void CPick::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read) value = x;
            else x = value;
            break;
        case 1:
            if (read) value = y;
            else y = value;
            break;
        case 2:
            if (read) value.SetXmlCollection(lines);
            break;
    }
}

inline const CTables& CBag::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(ElementGroup_All, ElementType_Element, "Bag", "urn:t", -1, true, false),
        new CElementInfo* [3] {
            new CAllPrimMndReader("P", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
            new CAllPrimOptReader("Q", "urn:t", 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
            nullptr
        },
        new CAttributeInfo* [1] { nullptr }
    };
    return tables;
}

inline void CBag::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    OrvexVariant& property = propertyIndex == 0 ? p : q;
    if (read) value = property;
    else property = value;
}

inline const CTables& CRun::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Run", "urn:t", -1, true, false),
        new CElementInfo* [3] {
            new CTryPrimReader("a", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
            new CTryPrimReader("b", "urn:t", 1, ItemType_i4, nullptr, Rule::Collapse, NoFacets()),
            nullptr
        },
        new CAttributeInfo* [1] { nullptr }
    };
    return tables;
}

inline void CRun::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    OrvexVariant& property = propertyIndex == 0 ? a : b;
    if (read) value = property;
    else property = value;
}

inline const CTables& CBroken::Tables()
{
    static const CTables tables = {
        new CParentElementInfo(static_cast<XmlElementGroupType>(7), ElementType_Element, "Broken", "urn:t", -1, true,
                               false),
        new CElementInfo* [1] { nullptr },
        new CAttributeInfo* [1] { nullptr }
    };
    return tables;
}

}  // namespace OrvexTest
