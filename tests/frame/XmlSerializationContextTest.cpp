#include "orvexxml/frame/XmlSerializationContext.h"

#include "TestUtil.h"

using namespace OrvexXmlLib5;

TEST(XmlSerializationContext, UnknownAndMissingMandatoryExcludeEachOther)
{
    const std::string both =
        "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, you "
        "can not ignore both\n";
    CXmlSerializationContext c;
    c.SetIgnoreUnknownElements(true);
    EXPECT_THROW_MSG(c.SetIgnoreMissingMandatoryElements(true), COrvexInvalidStateException,
                     both + "Set IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
    EXPECT_FALSE(c.GetIgnoreMissingMandatoryElements());
    c.SetIgnoreMissingMandatoryElements(false);
    c.SetIgnoreUnknownElements(false);
    c.SetIgnoreMissingMandatoryElements(true);
    EXPECT_THROW_MSG(c.SetIgnoreUnknownElements(true), COrvexInvalidStateException,
                     both + "Set IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
    EXPECT_FALSE(c.GetIgnoreUnknownElements());
    c.SetIgnoreUnknownElements(false);
}

TEST(XmlSerializationContext, NoNamespacesSchemaImpliesIgnoreNamespaces)
{
    CXmlSerializationContext c;
    c.SetIgnoreNamespaces(false);
    c.SetSchemaType(SchemaType_NoNamespaces);
    EXPECT_TRUE(c.GetIgnoreNamespaces());
    c.SetSchemaType(SchemaType_Namespaced);
    EXPECT_FALSE(c.GetIgnoreNamespaces());
    c.SetSchemaType(static_cast<SchemaType>(1));
    EXPECT_FALSE(c.GetIgnoreNamespaces());
}

TEST(XmlSerializationContext, CopiesAreDeepAndDefaultIsShared)
{
    CXmlSerializationContext a;
    a.GetProcessingInstructions().push_back("<?pi x?>");
    a.SetDefaultNamespaceURI("urn:a");
    a.SetAllowTruncatedDocuments(true);
    a.SetAllowManyEntityDeclarations(true);
    CXmlSerializationContext b(a);
    EXPECT_TRUE(b.GetAllowTruncatedDocuments());
    EXPECT_TRUE(b.GetAllowManyEntityDeclarations());
    b.GetProcessingInstructions().push_back("<?pi y?>");
    b.SetDefaultNamespaceURI(nullptr);
    EXPECT_EQ(a.GetProcessingInstructions().size(), 1u);
    EXPECT_EQ(a.GetDefaultNamespaceURI(), "urn:a");
    EXPECT_EQ(b.GetDefaultNamespaceURI(), "");
    EXPECT_EQ(&CXmlSerializationContext::GetDefaultContext(), &CXmlSerializationContext::GetDefaultContext());
}
