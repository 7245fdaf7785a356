// Untyped elements: construction and its failures, the collection's namespaces and
// events, sharing between copies, namespace restrictions, and reading and writing
// any document without a schema.
#include <gtest/gtest.h>

#include "TestUtil.h"
#include "orvexxml/OrvexXmlLib5.h"

using namespace OrvexXmlLib5;

namespace {

TEST(Element, ConstructorsCheckTheirArgumentsExactly)
{
    EXPECT_THROW_MSG(CElement e(static_cast<const char*>(nullptr)), COrvexInvalidNamespaceException, "Element Name must have a value");
    EXPECT_THROW_MSG(CElement e("a", "", nullptr, ""), COrvexInvalidNamespaceException,
                     "Namespace Restriction must have a value");
    EXPECT_THROW_MSG(CElement e("a", "", "##any", nullptr), COrvexInvalidNamespaceException,
                     "Target Namespace must have a value");
    for (const char* word : {"##any", "##other", "##local", "##targetNamespace"})
        EXPECT_THROW_MSG(CElement e("a", word), COrvexInvalidNamespaceException,
                         std::string("Invalid Namespace [") + word + "]");
    EXPECT_THROW(CElement e("a", "urn:x", "urn:y", ""), COrvexInvalidNamespaceException);
    // A child added by name takes the element's namespace.
    EXPECT_EQ("urn:x", CElement("a", "urn:x").GetChildElements()->Add("b")->GetNamespace());
}

TEST(Element, ChildCollectionNamespacesPositionsAndCopies)
{
    // No namespace: the restriction word becomes the default, so Add(name) works.
    CElement plain("a");
    EXPECT_EQ("##any", plain.GetChildElements()->Add("b")->GetNamespace());
    CElementCol none("", "urn:a urn:b", "", 0, -1);
    EXPECT_THROW_MSG(none.Add("x"), COrvexInvalidStateException, "A Namespace has not been set for this Collection");
    // The collection admits every namespace whatever it was built with.
    EXPECT_EQ("urn:other", none.Add("x", "urn:other")->GetNamespace());
    CSmartPtr<CElement> first = none.Add("one", "urn:a");
    none.Add(new CElement("three", "urn:z"));
    none.AddAfter(first.Get(), new CElement("two"));
    ASSERT_EQ(4, none.GetCount());
    EXPECT_EQ("two", none.Item(2)->GetName());
    EXPECT_THROW(none.Add(static_cast<CElement*>(nullptr)), COrvexInvalidParamException);

    // Copies share the collections but not the strings.
    CElement copy(plain);
    copy.GetAttributes()->Add("k", "v");
    copy.SetText("only the copy");
    EXPECT_EQ(1, plain.GetAttributes()->GetCount());
    EXPECT_EQ("", plain.GetText());
}

TEST(Element, SetNamespaceRestrictionsTestsTheTreeAndStoresNothing)
{
    CElement root("r", "urn:a", "##any", "");
    root.GetChildElements()->Add("c", "urn:b");
    EXPECT_NO_THROW(root.SetNamespaceRestrictions("urn:a urn:b", ""));
    EXPECT_THROW_MSG(root.SetNamespaceRestrictions("urn:b", ""), COrvexInvalidNamespaceException,
                     "The namespace urn:a in the class r is invalid against restriction urn:b");
    try {
        root.SetNamespaceRestrictions("urn:a", "");
        ADD_FAILURE();
    } catch (const COrvexException& e) {
        // The child's own failure, one level below the element that holds it.
        EXPECT_EQ("The namespace urn:b in the class c is invalid against restriction urn:a", e.GetMessage());
    }
}

TEST(Element, AnyDocumentReadsAndWritesBackTheSameTree)
{
    const char* const documents[] = {
        "<a/>",
        "<a x=\"1\" y=\"&amp;&lt;\">text</a>",
        "<p:a xmlns:p=\"urn:p\" xmlns:q=\"urn:q\" q:k=\"v\"><p:b><q:c>deep</q:c></p:b><d/></p:a>",
        "<a xmlns=\"urn:default\"><b>x</b>tail</a>",
    };
    for (const char* text : documents) {
        SCOPED_TRACE(text);
        CSmartPtr<CElement> element(new CElement(""));
        element->FromXml(text);
        const std::string written = element->ToXml(false, false, EOL_LF);
        CSmartPtr<CElement> again(new CElement(""));
        again->FromXml(written.c_str());
        EXPECT_EQ(written, again->ToXml(false, false, EOL_LF));
    }
    // Children come before the text, which is one string per element.
    CSmartPtr<CElement> mixed(new CElement(""));
    mixed->FromXml("<a>one<b/>two</a>");
    EXPECT_EQ("<a><b/>onetwo</a>", mixed->ToXml(false, false, EOL_LF));
    // Reading a root outside the restriction changes nothing.
    CSmartPtr<CElement> element(new CElement("keep", "urn:a", "urn:a", ""));
    element->FromXml("<x xmlns=\"urn:b\"><y/></x>");
    EXPECT_EQ("keep", element->GetName());
    EXPECT_EQ(0, element->GetChildElements()->GetCount());
}

TEST(Element, CopyOfAnObjectIsItsXml)
{
    CSmartPtr<CElement> source(new CElement(""));
    source->FromXml("<r xmlns=\"urn:r\" a=\"1\"><c>t</c></r>");
    CElement copy(source.Get());
    EXPECT_EQ("r", copy.GetName());
    EXPECT_EQ("urn:r", copy.GetNamespace());
    EXPECT_EQ(source->ToXml(false, false, EOL_LF), copy.ToXml(false, false, EOL_LF));
}

}  // namespace
