#include "orvexxml/frame/XmlObjectBase.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TestUtil.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;

namespace {

// A reader written by hand: takes the element's name and a few of its attributes,
// and lists the children it is handed, as generated code would walk them.
class CContact : public CXmlObjectBase
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return "urn:contacts"; }
    std::string GetNamespace() const override { return "urn:contacts"; }

    std::string Name() const { return GetElementName(); }
    std::string id;
    std::vector<std::string> children;
    const CXmlElement* firstChildSeen = nullptr;
    bool failInWalk = false;

    using CXmlObjectBase::DoesElementNameMatch;
    using CXmlObjectBase::IsNamespaceValid;
    using CXmlObjectBase::TestNamespace;

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}

    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override
    {
        EXPECT_FALSE(isOptional);
        SetElementName(element->GetLocalName().c_str());
        id = element->GetAttribute("id", "");
        firstChildSeen = firstChild;
        children.clear();
        CXmlElement* child = firstChild;
        for (; child; child = child->GetNextSiblingElement()) {
            if (!DoesElementNameMatch(context, child, "phone", "urn:contacts")) break;
            children.push_back(child->GetText());
        }
        if (failInWalk) throw COrvexValidationException("walk failed", COrvexException("inner"));
        return child;
    }
};

const char kContact[] = "<c:contact xmlns:c='urn:contacts' id='7'><c:phone>1</c:phone><c:phone>2</c:phone>"
                        "<c:email>x@y</c:email></c:contact>";

}  // namespace

TEST(XmlObjectBase, FromXmlReadsTextAndPassesFailuresOn)
{
    CSmartPtr<CContact> contact(new CContact);
    contact->FromXml(kContact);
    EXPECT_EQ(contact->Name(), "contact");
    EXPECT_EQ(contact->id, "7");
    EXPECT_EQ(contact->children, (std::vector<std::string>{"1", "2"}));
    // UTF-16 text and other root names are read back through generated classes in the read-back test.

    // The document's own failures pass through unchanged.
    EXPECT_THROW_MSG(contact->FromXml("<contact>\n</phone>"), COrvexException, "mismatched tag at line 2");
    contact->failInWalk = true;
    try {
        contact->FromXml(kContact);
        ADD_FAILURE() << "no exception";
    } catch (const COrvexValidationException& e) {
        EXPECT_EQ(e.GetFullMessage(), "walk failed\ninner");
    }
}

TEST(XmlObjectBase, FromXmlFollowsTheSchemaTypeAndFromXmlElementReadsASubtreeInPlace)
{
    CXmlSerializationContext context;
    context.SetSchemaType(SchemaType_NoNamespaces);
    CSmartPtr<CContact> contact(new CContact);
    contact->FromXml(kContact, context);
    // Prefixes stay in names, so c:phone is no phone.
    EXPECT_EQ(contact->Name(), "c:contact");
    EXPECT_TRUE(contact->children.empty());

    CXmlDocument document;
    document.LoadXml("<book><contact xmlns='urn:contacts' id='1'><phone>9</phone></contact></book>");
    const CXmlElement* subtree = document.GetDocumentElement()->GetFirstElement();
    contact->FromXmlElement(subtree);
    EXPECT_EQ(contact->Name(), "contact");
    EXPECT_EQ(contact->firstChildSeen, subtree->GetFirstElement());
    EXPECT_EQ(contact->children, std::vector<std::string>{"9"});
    EXPECT_THROW_MSG(contact->FromXmlElement(nullptr), COrvexException, "Invalid or empty XML document");
}

TEST(XmlObjectBase, DoesElementNameMatchComparesNamespaceUnlessIgnored)
{
    CXmlDocument document;
    document.LoadXml("<r><x xmlns='urn:a'/><x/></r>");
    const CXmlElement* inA = document.GetDocumentElement()->GetFirstElement();
    const CXmlElement* inNone = inA->GetNextSiblingElement();
    CXmlSerializationContext strict;
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    struct { const CXmlSerializationContext* context; const CXmlElement* node; const char *name, *uri; bool match; }
        cases[] = {
        {&strict, inA, "x", "urn:a", true},     {&strict, inA, "x", "", false},
        {&strict, inA, "y", "urn:a", false},    {&strict, inNone, "x", "", true},
        {&strict, inNone, "x", nullptr, true},  {&strict, inNone, "x", "urn:a", false},
        {&ignoring, inA, "x", "urn:b", true},   {&ignoring, inA, "X", "urn:a", false},
        {&strict, nullptr, "x", "", false},
    };
    CContact contact;
    for (const auto& c : cases)
        EXPECT_EQ(contact.DoesElementNameMatch(*c.context, c.node, c.name, c.uri), c.match)
            << c.name << " " << (c.uri ? c.uri : "(null)");
}

TEST(XmlObjectBase, NamespaceListsWithWildcardWords)
{
    struct Case { const char *candidate, *allowed, *target; bool valid; } cases[] = {
        {"urn:t", "##local ##targetNamespace", "urn:t", true}, {"urn:x", "##local ##targetNamespace", "urn:t", false},
        {"", "##local", "urn:t", true}, {"urn:x", "##other", "urn:t", true},  {"urn:x", "urn:a ##any", "urn:t", true},
        {"urn:t", "##other", "urn:t", false},
        {"", "##other", "urn:t", true},  // empty differs from a non-empty target
        {"", "##other", "", false}, {"urn:a", "urn:a urn:b", "urn:t", true}, {"urn:c", "urn:a urn:b", "urn:t", false},
        {"", "urn:a", "urn:t", true},  // an explicit URI also admits no namespace
        {"", "", "urn:t", true}, {"urn:a", "", "urn:t", false},
        {"urn:a", "urn:b  urn:a", "urn:t", true},  // a double blank gives an empty token in between
        {nullptr, "urn:a", nullptr, true},
    };
    CContact contact;
    for (const Case& c : cases) {
        EXPECT_EQ(contact.IsNamespaceValid(c.candidate, c.allowed, c.target), c.valid)
            << (c.candidate ? c.candidate : "(null)") << " in [" << c.allowed << "]";
        // Its exact text is checked through the attribute wildcard of the generated class test.
        if (c.valid)
            EXPECT_NO_THROW(contact.TestNamespace(c.candidate, c.allowed, c.target));
        else
            EXPECT_THROW(contact.TestNamespace(c.candidate, c.allowed, c.target), COrvexInvalidNamespaceException);
    }
}
