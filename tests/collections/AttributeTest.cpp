// Untyped attributes: the default namespace taken from the restriction, the
// namespace test of Add, reading from a tree element, and the context's root attributes.
#include <gtest/gtest.h>

#include <tuple>

#include "TestUtil.h"
#include "orvexxml/collections/Attribute.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlTextWriter.h"

using namespace OrvexXmlLib5;

namespace {

// Opens the two walks of the collection for the tests.
class COpenAttributeCol : public CAttributeCol
{
public:
    using CAttributeCol::CAttributeCol;
    CXmlElement* Read(CXmlElement* element, CXmlElement* firstChild)
    {
        return FromXml_Int(element, firstChild, CXmlSerializationContext(), false);
    }
    std::string Write() const
    {
        CXmlTextWriter writer;
        writer.SetFormatted(false);
        writer.WriteStartElement("e", "");
        ToXml_Int(&writer, false, "", CXmlSerializationContext(), false);
        writer.WriteEndElement();
        return writer.GetString();
    }
};

}  // namespace

TEST(AttributeCol, DefaultNamespaceFromTheRestriction)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"", "urn:a urn:b", "urn:a"},     // first URI of a list
        {"", "##any", ""},                // a wildcard word gives none
        {"", "x", ""},                    // shorter than two bytes
        {"", "a#b", ""},                  // a '#' in either of the first two bytes
        {"", "ab#", "ab#"},               // only the first two bytes are looked at
        {"urn:own", "urn:a", "urn:own"},  // kept untested
    };
    for (const auto& [defaultNamespace, restriction, expected] : cases) {
        CSmartPtr<CAttributeCol> col(new CAttributeCol(defaultNamespace, restriction, "urn:t"));
        EXPECT_EQ(expected, col->GetNamespace()) << restriction;
        EXPECT_EQ(expected, col->GetTargetNamespace()) << restriction;
    }
}

TEST(AttributeCol, AddTestsTheNamespaceButAddingAnObjectDoesNot)
{
    CSmartPtr<CAttributeCol> col(new CAttributeCol("", "urn:a urn:b", "urn:t"));
    CSmartPtr<CAttribute> first = col->Add("n");
    EXPECT_EQ("urn:a", first->GetNamespace());
    EXPECT_EQ("", first->GetValue());
    col->Add("m", "2", "urn:b");
    EXPECT_THROW_MSG(col->Add("x", "3", "urn:c"), COrvexInvalidNamespaceException,
                     "Invalid namespace [urn:c]. The namespace must be one of [urn:a urn:b] where the target "
                     "namespace is [urn:t]");
    EXPECT_EQ(2, col->GetCount());

    CAttribute foreign(*first);
    foreign.SetNamespace("urn:c");
    foreign.SetName("f");
    foreign.SetValue("v");
    CSmartPtr<CAttribute> added = col->Add(new CAttribute(foreign));
    col->AddBefore(first, new CAttribute(foreign));
    EXPECT_EQ(4, col->GetCount());
    EXPECT_EQ("f", col->Item(0)->GetName());
    EXPECT_EQ("urn:c", col->Item(3)->GetNamespace());

    CSmartPtr<CAttributeCol> kept(new CAttributeCol("urn:z", "urn:a", ""));
    EXPECT_THROW(kept->Add("n"), COrvexInvalidNamespaceException);
}

TEST(AttributeCol, ReadsEveryAttributeGivesBackTheSamePositionAndWritesThemAll)
{
    CXmlDocument doc;
    doc.LoadXml("<e xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' a='1' xsi:schemaLocation='s'>"
                "<c/></e>");
    CXmlElement* e = doc.GetDocumentElement();
    CSmartPtr<COpenAttributeCol> col(new COpenAttributeCol("", "##any", ""));
    EXPECT_EQ("<e/>", col->Write());
    col->Add("pre", "x<y");
    EXPECT_EQ(e->GetFirstElement(), col->Read(e, e->GetFirstElement()));
    EXPECT_EQ(nullptr, col->Read(e, nullptr));
    // Added to those already there, the instance attribute included, twice over.
    ASSERT_EQ(5, col->GetCount());
    std::string names;
    for (CAttribute* attribute : *col) names += attribute->GetName() + ";";
    EXPECT_EQ("pre;a;schemaLocation;a;schemaLocation;", names);
    col->Remove(4);
    col->Remove(3);
    EXPECT_EQ("<e pre=\"x&lt;y\" a=\"1\" xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "AA:schemaLocation=\"s\"/>",
              col->Write());

    // Reading fails at the first attribute outside the restriction.
    doc.LoadXml("<e xmlns:p='urn:p' xmlns:q='urn:q' p:a='1' q:b='2' p:c='3'/>");
    CSmartPtr<COpenAttributeCol> restricted(new COpenAttributeCol("", "urn:p", ""));
    EXPECT_THROW_MSG(restricted->Read(doc.GetDocumentElement(), nullptr), COrvexInvalidNamespaceException,
                     "Invalid Attribute [b]. The attributes namespace is Inappropriate.");
    ASSERT_EQ(1, restricted->GetCount());
    EXPECT_EQ("a", restricted->Item(0)->GetName());
}

TEST(AttributeCol, ContextMakesOneRootCollectionAndCopiesShareIt)
{
    CXmlSerializationContext context;
    CSmartPtr<CAttributeCol> first = context.GetAdditionalRootAttributes();
    EXPECT_EQ(first.Get(), context.GetAdditionalRootAttributes().Get());
    EXPECT_EQ("##any", first->GetNamespaceRestriction());
    EXPECT_EQ("", first->GetNamespace());
    CXmlSerializationContext copy(context);
    EXPECT_EQ(first.Get(), copy.GetAdditionalRootAttributes().Get());
    CXmlSerializationContext assigned;
    assigned = context;
    EXPECT_EQ(first.Get(), assigned.GetAdditionalRootAttributes().Get());
}

TEST(Attribute, SingleAttributeIsNotReadAlone)
{
    CSmartPtr<COpenAttributeCol> col(new COpenAttributeCol("", "##any", ""));
    CSmartPtr<CAttribute> attribute = col->Add("a", "1");
    struct CReach : CXmlObjectBase
    {
        static void Read(CXmlObjectBase* object)
        {
            CXmlObjectBase::FromXml_Int(object, nullptr, nullptr, CXmlSerializationContext());
        }
    };
    EXPECT_THROW_MSG(CReach::Read(attribute), COrvexException, "This should be done by the collection");
}
