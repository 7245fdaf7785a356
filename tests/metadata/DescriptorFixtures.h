// Owners and children for driving one element descriptor at a time on a parsed
// tree: an owner whose properties are plain variants, a pseudo child, a real
// child, a choice child, a text collection, and the factories for them.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../frame/BindingShapes.h"

namespace OrvexTest {

// The tables of one fixture class; attributes are never read here.
inline CTables FixtureTables(XmlElementGroupType group, XmlElementType type, const char* name,
                             std::initializer_list<CElementInfo*> members)
{
    return MakeTables(new CParentElementInfo(group, type, name, "urn:t", -1, false, false), members);
}

// Every property is a variant of props; stores counts the writes, so a test sees
// whether a descriptor stored at all.
template <typename Derived>
class CFixture : public CShape<Derived>
{
public:
    explicit CFixture(const char* name, std::size_t count = 2) : props(count) { this->SetElementName(name); }
    void AccessProperty(int index, bool read, OrvexVariant& value) override
    {
        stores += read ? 0 : 1;
        Access(props.at(index), read, value);
    }
    void Init() override { for (OrvexVariant& prop : props) prop.SetInvalid(); }
    std::string Text(int index) const { return props.at(index).GetString(); }

    std::vector<OrvexVariant> props;
    int stores = 0;
};

// The owner the descriptors are tried on; its tables are not walked.
class CSlots : public CFixture<CSlots>
{
public:
    CSlots() : CFixture("Slots", 4) {}
    static CTables Build() { return FixtureTables(ElementGroup_Sequence, ElementType_Element, "Slots", {}); }
};

// A pseudo child: its members A and B stand among the owner's children.
class CPair : public CFixture<CPair>
{
public:
    CPair() : CFixture("Pair") {}
    static CTables Build()
    {
        return FixtureTables(
            ElementGroup_Sequence, ElementType_Pseudo, "Pair",
            {new CElementInfoSeqPrimMnd("A", "urn:t", 0, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
             new CElementInfoSeqPrimMnd("B", "urn:t", 1, ItemType_string, nullptr, Rule::Preserve, NoFacets())});
    }
};

// A real child with one optional member V.
class CLeaf : public CFixture<CLeaf>
{
public:
    explicit CLeaf(const char* name = "Leaf") : CFixture(name, 1) {}
    static CTables Build()
    {
        return FixtureTables(
            ElementGroup_Sequence, ElementType_Element, "Leaf",
            {new CElementInfoSeqPrimOpt("V", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets())});
    }
};

// A real child that is itself a choice of X.
class CPick1 : public CFixture<CPick1>
{
public:
    CPick1() : CFixture("Pick", 1) {}
    static CTables Build()
    {
        return FixtureTables(
            ElementGroup_Choice, ElementType_Element, "Pick",
            {new CElementInfoChoicePrimOpt("X", "urn:t", 0, ItemType_i4, nullptr, Rule::Collapse, NoFacets())});
    }
};

// Item texts of a run of elements, as a primitive collection holds them.
class CTextCol : public CXmlTypeCollection
{
public:
    CTextCol(const char* name, int minOccurs, int maxOccurs)
        : CXmlTypeCollection(ItemType_string, name, "urn:t", minOccurs, maxOccurs, "", -1, -1, "", "", "", "", -1,
                             Rule::Preserve, nullptr) {}
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
inline CSmartPtr<CXmlObjectBase> MakePick(int, const char*) { return CSmartPtr<CXmlObjectBase>(new CPick1()); }
// A leaf only for an element that says kind="leaf"; null otherwise.
inline CSmartPtr<CXmlObjectBase> LeafByKind(CXmlElement* element)
{
    if (element->GetAttribute("kind", "") != "leaf") return CSmartPtr<CXmlObjectBase>();
    return CSmartPtr<CXmlObjectBase>(new CLeaf(element->GetLocalName().c_str()));
}

inline const char* NumberToString(int value) { return value == 1 ? "one" : "other"; }
inline int NumberFromString(const char* text) { return std::string(text) == "one" ? 1 : 0; }

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

// Step's result, or the message of the outermost failure.
inline std::string Outcome(CElementInfo& descriptor, CSlots& owner, const std::string& content,
                           XmlElementType parentType,
                           const CXmlSerializationContext& context = CXmlSerializationContext())
{
    try {
        return Step(descriptor, owner, content, parentType, context);
    } catch (const COrvexException& e) {
        return e.GetMessage();
    }
}

// The owner kinds and the context options, short for the rows of one-call tables.
constexpr XmlElementType E = ElementType_Element, P = ElementType_Pseudo;
enum { kStrict = 0, kSkip = 1, kNoNamespaces = 2, kForgive = 4, kAnyCount = 8 };

inline CXmlSerializationContext Context(int options)
{
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(options & kSkip);
    context.SetIgnoreNamespaces(options & kNoNamespaces);
    context.SetIgnoreMissingMandatoryElements(options & kForgive);
    context.SetIgnoreInvalidCollectionCounts(options & kAnyCount);
    return context;
}

// One call: the owner's children, the owner's kind, the options, and the Outcome.
struct CRow
{
    const char* content;
    XmlElementType parentType;
    int options;
    const char* outcome;
};

inline void ExpectRows(CElementInfo& member, CSlots& owner, std::initializer_list<CRow> rows)
{
    for (const CRow& r : rows)
        EXPECT_EQ(r.outcome, Outcome(member, owner, r.content, r.parentType, Context(r.options)))
            << r.content << (r.parentType == P ? " (pseudo owner)" : "") << " options " << r.options;
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
