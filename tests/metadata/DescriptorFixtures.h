// Owners and children for driving one element descriptor at a time on a parsed
// tree: an owner whose properties are plain variants, a pseudo child, a real
// child, a choice child, a text collection, and the factories for them.
#pragma once

#include <string>
#include <vector>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexTest {

using namespace OrvexXmlLib5;
using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

inline CPrimitiveRestrictions Unrestricted()
{
    return CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1);
}

// Tables built once per class, released at exit.
struct CFixtureTables
{
    CParentElementInfo* info;
    CElementInfo** elements;
    CAttributeInfo** attributes;
    ~CFixtureTables() { CXmlGeneratedClassAccess::Clean(info, elements, attributes); }

    struct CXmlGeneratedClassAccess : CXmlGeneratedClass
    {
        static void Clean(CParentElementInfo*& i, CElementInfo**& e, CAttributeInfo**& a) { CleanMetaData(i, e, a); }
    };
};

template <typename Derived>
class CFixture : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:t"; }
    std::string GetNamespace() const override { return "urn:t"; }
    CParentElementInfo* GetClassInfo() const override { return Derived::Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Derived::Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Derived::Tables().attributes; }
};

// Four variant properties; counts the stores, so that a test sees whether a
// descriptor wrote at all.
class CSlots : public CFixture<CSlots>
{
public:
    CSlots() : props(4) { SetElementName("Slots"); }
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables{
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Slots", "urn:t", -1, true, false),
            new CElementInfo* [1] { nullptr }, new CAttributeInfo* [1] { nullptr }};
        return tables;
    }
    void AccessProperty(int index, bool read, OrvexVariant& value) override
    {
        if (read) {
            value = props.at(index);
        } else {
            props.at(index) = value;
            ++stores;
        }
    }
    void Init() override {}

    std::vector<OrvexVariant> props;
    int stores = 0;
};

// A pseudo child: its members A and B stand among the owner's children.
class CPair : public CFixture<CPair>
{
public:
    CPair() { Init(); }
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables{
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Pseudo, "Pair", "urn:t", -1, false, false),
            new CElementInfo* [3] {
                new CElementInfoSeqPrimMnd("A", "urn:t", 0, ItemType_string, nullptr, Rule::Preserve, Unrestricted()),
                    new CElementInfoSeqPrimMnd("B", "urn:t", 1, ItemType_string, nullptr, Rule::Preserve,
                                               Unrestricted()),
                    nullptr
            },
            new CAttributeInfo* [1] { nullptr }};
        return tables;
    }
    void AccessProperty(int index, bool read, OrvexVariant& value) override
    {
        std::string& field = index == 0 ? a : b;
        if (read)
            value.SetString(field);
        else
            field = value.GetString();
    }
    void Init() override
    {
        a.clear();
        b.clear();
    }

    std::string a, b;
};

// A real child with one optional member V; its element name is the one it was made with.
class CLeaf : public CFixture<CLeaf>
{
public:
    explicit CLeaf(const char* name = "Leaf")
    {
        SetElementName(name);
        Init();
    }
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables{
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Leaf", "urn:t", -1, false, false),
            new CElementInfo* [2] {
                new CElementInfoSeqPrimOpt("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted()),
                    nullptr
            },
            new CAttributeInfo* [1] { nullptr }};
        return tables;
    }
    void AccessProperty(int, bool read, OrvexVariant& value) override
    {
        if (read)
            value = v;
        else
            v = value;
    }
    void Init() override { v.SetInvalid(); }

    OrvexVariant v;
};

// A real child that is itself a choice of X.
class CPick1 : public CFixture<CPick1>
{
public:
    CPick1()
    {
        SetElementName("Pick");
        Init();
    }
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables{
            new CParentElementInfo(ElementGroup_Choice, ElementType_Element, "Pick", "urn:t", -1, false, false),
            new CElementInfo* [2] {
                new CElementInfoChoicePrimOpt("X", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted()),
                    nullptr
            },
            new CAttributeInfo* [1] { nullptr }};
        return tables;
    }
    void AccessProperty(int, bool read, OrvexVariant& value) override
    {
        if (read)
            value = x;
        else
            x = value;
    }
    void Init() override { x.SetInvalid(); }

    OrvexVariant x;
};

// Item texts of a run of elements, as a primitive collection holds them.
class CTextCol : public CXmlTypeCollection
{
public:
    CTextCol(const char* name, int minOccurs, int maxOccurs)
        : CXmlTypeCollection(ItemType_string, name, "urn:t", minOccurs, maxOccurs, "", -1, -1, "", "", "", "", -1,
                             Rule::Preserve, nullptr)
    {
    }
    void AddFromString(std::string text) override { items.push_back(text); }
    int GetCount() const override { return static_cast<int>(items.size()); }
    void Clear() override { items.clear(); }
    void Remove(int index) override { items.erase(items.begin() + index); }

    std::vector<std::string> items;

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
};

// The factories the descriptors hold; the counter tells that one was called.
inline int& FactoryCalls()
{
    static int calls = 0;
    return calls;
}
inline CSmartPtr<CXmlObjectBase> MakePair(int, const char*)
{
    ++FactoryCalls();
    return CSmartPtr<CXmlObjectBase>(new CPair());
}
inline CSmartPtr<CXmlObjectBase> MakeLeaf(int, const char* name)
{
    ++FactoryCalls();
    return CSmartPtr<CXmlObjectBase>(new CLeaf(name));
}
inline CSmartPtr<CXmlObjectBase> MakePick(int, const char*)
{
    return CSmartPtr<CXmlObjectBase>(new CPick1());
}
// A leaf only for an element that says kind="leaf"; null otherwise.
inline CSmartPtr<CXmlObjectBase> LeafByKind(CXmlElement* element)
{
    if (element->GetAttribute("kind", "") != "leaf") return CSmartPtr<CXmlObjectBase>();
    return CSmartPtr<CXmlObjectBase>(new CLeaf(element->GetLocalName().c_str()));
}

inline const char* NumberToString(int value)
{
    return value == 1 ? "one" : "other";
}
inline int NumberFromString(const char* text)
{
    return std::string(text) == "one" ? 1 : 0;
}

// One call of ElementFromXml on the children of <r xmlns="urn:t">content</r>.
struct CStep
{
    bool result = false;
    std::string current;  // local name of the element reached, "-" for none
};

inline CStep Step(CElementInfo& descriptor, CSlots& owner, const std::string& content, XmlElementType parentType,
                  const CXmlSerializationContext& context = CXmlSerializationContext())
{
    CXmlDocument document;
    document.LoadXml(("<r xmlns=\"urn:t\">" + content + "</r>").c_str());
    CXmlElement* parent = document.GetDocumentElement();
    CXmlElement* current = parent->GetFirstElement();
    CStep step;
    step.result = descriptor.ElementFromXml(context, &owner, parent, &current, "urn:t", parentType);
    step.current = current ? current->GetLocalName() : "-";
    return step;
}

}  // namespace OrvexTest
