// A schema type that contains itself, and untyped elements, fed documents nested
// far deeper than any real schema needs: reading and writing must end in an
// exception, not in a stack overflow.
#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

#include "TestUtil.h"

#include <string>
#include <vector>

using namespace OrvexXmlLib5;
using namespace OrvexXmlLib5Data;

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;

// <Nest><Label>..</Label><Nest>..</Nest></Nest>, written as the generator writes classes.
class CNest : public CXmlGeneratedClass
{
public:
    CNest() { SetElementName("Nest"); }
    static CSmartPtr<CXmlObjectBase> Create(int, const char*) { return CSmartPtr<CXmlObjectBase>(new CNest()); }

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ""; }
    std::string GetNamespace() const override { return ""; }
    void Init() override { m_label.clear(), m_child = nullptr; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override
    {
        if (propertyIndex == 0 && read) LendString(value, m_label);
        if (propertyIndex == 0 && !read) m_label = value.GetString();
        if (propertyIndex == 1 && read) value.SetXmlObject(m_child);
        if (propertyIndex == 1 && !read) m_child = dynamic_cast<CNest*>(value.GetXmlObject().Get());
    }
    CParentElementInfo* GetClassInfo() const override { return Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().attributes; }

    // Unlinks the chain from the top, so that a long one is not destroyed recursively.
    ~CNest() override
    {
        CSmartPtr<CNest> next = m_child;
        m_child = nullptr;
        while (next && next.Get() != nullptr) {
            CSmartPtr<CNest> after = next->m_child;
            next->m_child = nullptr;
            next = after;
        }
    }

    CSmartPtr<CNest> m_child;
    std::string m_label;

private:
    struct CTables
    {
        CParentElementInfo* info;
        CElementInfo** elements;
        CAttributeInfo** attributes;
        ~CTables() { CXmlGeneratedClass::CleanMetaData(info, elements, attributes); }
    };
    static const CTables& Tables()
    {
        static const CTables tables{
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Nest", "", -1, true, false),
            new CElementInfo* [3] {
                new CElementInfoSeqPrimOpt("Label", "", 0, ItemType_string, nullptr, Rule::Preserve,
                                           CPrimitiveRestrictions()),
                    new CElementInfoSeqClsOpt("Nest", "", 1, ElementType_Element, &CNest::Create, 0), nullptr
            },
            new CAttributeInfo* [1] { nullptr }};
        return tables;
    }
};

std::string Nested(int depth, const char* open = "<Nest><Label>x</Label>", const char* close = "</Nest>")
{
    std::string xml;
    for (int i = 0; i < depth; ++i) xml += open;
    for (int i = 0; i < depth; ++i) xml += close;
    return xml;
}

// As an untyped element writes <a> nested depth deep: the innermost one is empty.
std::string WrittenA(int depth)
{
    return Nested(depth - 1, "<a>", "</a>").insert(3 * (depth - 1), "<a/>");
}

}  // namespace

TEST(DeepNesting, HostileDepthFailsInsteadOfOverflowingTheStack)
{
    CSmartPtr<CNest> nest(new CNest());
    nest->FromXml(Nested(1000).c_str());  // the deepest document that still reads, and writes back
    EXPECT_EQ(Nested(1000), nest->ToXml(false, false, EOL_LF));
    for (int depth : {1001, 100000}) {
        try {
            nest->FromXml(Nested(depth).c_str());
            ADD_FAILURE() << depth << " levels read";
        } catch (const COrvexValidationException& e) {
            const COrvexException* cause = &e;
            int levels = 0;
            for (; cause->GetInnerException(); cause = cause->GetInnerException()) ++levels;
            EXPECT_EQ("Failed to process the element [Nest]", e.GetMessage());
            EXPECT_EQ("Elements are nested deeper than 1000 levels", cause->GetMessage());
            EXPECT_EQ(1001, levels);  // one wrapper per level, the refused one included
        }
    }
}

TEST(DeepNesting, WritingAChainBuiltInCodeStopsAtTheSameDepth)
{
    CSmartPtr<CNest> top(new CNest());
    CNest* last = top.Get();
    for (int i = 1; i < 1001; ++i) {
        last->m_child = new CNest();
        last = last->m_child.Get();
    }
    EXPECT_THROW(top->ToXml(false, false, EOL_LF), COrvexValidationException);
    top->m_child->m_child = nullptr;
    EXPECT_EQ("<Nest><Label/><Nest><Label/></Nest></Nest>", top->ToXml(false, false, EOL_LF));
}

TEST(DeepNesting, UntypedElementsPastTheLimitFailInsteadOfOverflowingTheStack)
{
    const std::string refusal = "Elements are nested deeper than 1000 levels";
    // At the limit an untyped element reads, writes, copies and frees the whole depth.
    CElement atLimit("a");
    atLimit.FromXml(Nested(1000, "<a>", "</a>").c_str());
    EXPECT_EQ(atLimit.ToXml(false, false, EOL_LF), WrittenA(1000));
    const CElement fromObject(&atLimit);
    EXPECT_EQ(fromObject.ToXml(false, false, EOL_LF), WrittenA(1000));

    // Hundreds of thousands of levels fail as the first level past the limit does,
    // from text and from the binary form.
    CXmlSerializationContext context;
    for (int depth : {1001, 300000}) {
        const std::string deep = Nested(depth, "<a>", "</a>"), wrapped = "<w>" + deep + "</w>";
        CElement tooDeep("a");
        EXPECT_THROW_MSG(tooDeep.FromXml(deep.c_str()), COrvexException, refusal) << depth;
        // The tree alone holds any depth: only the recursive walks are capped.
        CXmlDocument document(context);
        document.LoadXml(deep.c_str());
        CXmlObjectBase& asBase = tooDeep;
        CBinaryData bytes(reinterpret_cast<unsigned char*>(const_cast<char*>(wrapped.data())),
                          static_cast<unsigned long>(wrapped.size()), false);
        EXPECT_THROW_MSG(asBase.FromXmlStream(bytes, context), COrvexException, refusal) << depth;
    }

    // A tree built in code past the limit fails to write rather than recursing on.
    CElement top("a");
    CElement* last = &top;
    std::vector<CSmartPtr<CElement>> chain;
    for (int i = 1; i < 1001; ++i) {
        chain.push_back(new CElement("a"));
        last->GetChildElements()->Add(chain.back().Get());
        last = chain.back().Get();
    }
    EXPECT_THROW_MSG(top.ToXml(false, false, EOL_LF), COrvexException, refusal);
    EXPECT_THROW_MSG(top.ToFastInfosetStream(), COrvexException, refusal);
    chain[997]->GetChildElements()->Clear();
    EXPECT_EQ(top.ToXml(false, false, EOL_LF), WrittenA(999));
}
