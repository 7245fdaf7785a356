// Owners and children for driving one element descriptor at a time on a parsed
// tree: an owner whose properties are plain variants, a pseudo child, a real
// child, a choice child, a text collection, and the factories for them.
#pragma once

#include <initializer_list>
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

// The tables of one fixture class, built once and released at exit.
struct CFixtureTables : private CXmlGeneratedClass
{
    CFixtureTables(XmlElementGroupType group, XmlElementType type, const char* name,
                   std::initializer_list<CElementInfo*> members)
        : info(new CParentElementInfo(group, type, name, "urn:t", -1, false, false)),
          elements(new CElementInfo*[members.size() + 1]),
          attributes(new CAttributeInfo* [1] { nullptr })
    {
        std::size_t i = 0;
        for (CElementInfo* member : members) elements[i++] = member;
        elements[i] = nullptr;
    }
    ~CFixtureTables() override { CleanMetaData(info, elements, attributes); }

    CParentElementInfo* info;
    CElementInfo** elements;
    CAttributeInfo** attributes;

private:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }
    void AccessProperty(int, bool, OrvexVariant&) override {}
    CParentElementInfo* GetClassInfo() const override { return info; }
    CElementInfo** GetClassElementInfo() const override { return elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return attributes; }
    void Init() override {}
};

// Identity and table getters; Derived::Tables() holds the tables. Every property
// is a variant of props; stores counts the writes, so a test sees whether a
// descriptor stored at all.
template <typename Derived>
class CFixture : public CXmlGeneratedClass
{
public:
    explicit CFixture(const char* name, std::size_t count = 2) : props(count) { SetElementName(name); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:t"; }
    std::string GetNamespace() const override { return "urn:t"; }
    CParentElementInfo* GetClassInfo() const override { return Derived::Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Derived::Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Derived::Tables().attributes; }
    void AccessProperty(int index, bool read, OrvexVariant& value) override
    {
        if (read) {
            value = props.at(index);
        } else {
            props.at(index) = value;
            ++stores;
        }
    }
    void Init() override
    {
        for (OrvexVariant& prop : props) prop.SetInvalid();
    }
    std::string Text(int index) const { return props.at(index).GetString(); }

    std::vector<OrvexVariant> props;
    int stores = 0;
};

// The owner the descriptors are tried on; its tables are not walked.
class CSlots : public CFixture<CSlots>
{
public:
    CSlots() : CFixture("Slots", 4) {}
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables(ElementGroup_Sequence, ElementType_Element, "Slots", {});
        return tables;
    }
};

// A pseudo child: its members A and B stand among the owner's children.
class CPair : public CFixture<CPair>
{
public:
    CPair() : CFixture("Pair") {}
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables(
            ElementGroup_Sequence, ElementType_Pseudo, "Pair",
            {new CElementInfoSeqPrimMnd("A", "urn:t", 0, ItemType_string, nullptr, Rule::Preserve, Unrestricted()),
             new CElementInfoSeqPrimMnd("B", "urn:t", 1, ItemType_string, nullptr, Rule::Preserve, Unrestricted())});
        return tables;
    }
};

// A real child with one optional member V.
class CLeaf : public CFixture<CLeaf>
{
public:
    explicit CLeaf(const char* name = "Leaf") : CFixture(name, 1) {}
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables(
            ElementGroup_Sequence, ElementType_Element, "Leaf",
            {new CElementInfoSeqPrimOpt("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted())});
        return tables;
    }
};

// A real child that is itself a choice of X.
class CPick1 : public CFixture<CPick1>
{
public:
    CPick1() : CFixture("Pick", 1) {}
    static const CFixtureTables& Tables()
    {
        static const CFixtureTables tables(
            ElementGroup_Choice, ElementType_Element, "Pick",
            {new CElementInfoChoicePrimOpt("X", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, Unrestricted())});
        return tables;
    }
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

// "true@X" or "false@X": the result of one ElementFromXml on the children of
// <r xmlns="urn:t">content</r>, and the local name of the element reached ("-": none).
inline std::string Step(CElementInfo& descriptor, CSlots& owner, const std::string& content, XmlElementType parentType,
                        const CXmlSerializationContext& context = CXmlSerializationContext())
{
    CXmlDocument document;
    document.LoadXml(("<r xmlns=\"urn:t\">" + content + "</r>").c_str());
    CXmlElement* parent = document.GetDocumentElement();
    CXmlElement* current = parent->GetFirstElement();
    const bool result = descriptor.ElementFromXml(context, &owner, parent, &current, "urn:t", parentType);
    return (result ? "true@" : "false@") + (current ? current->GetLocalName() : std::string("-"));
}

// The message of the outermost failure of fn, or "no failure".
template <typename Fn>
std::string Failure(Fn&& fn)
{
    try {
        fn();
    } catch (const COrvexException& e) {
        return e.GetMessage();
    }
    return "no failure";
}

}  // namespace OrvexTest
