// What a generated factory learns from xsi:type.
#include <gtest/gtest.h>

#include "orvexxml/OrvexXmlLib5.h"

using namespace OrvexXmlLib5;

namespace {

struct CFactory : CClassfactoryBase
{
    using CClassfactoryBase::GetElementType;
    using CClassfactoryBase::GetElementTypeNamespaceUri;
};

}  // namespace

TEST(ClassFactoryBase, TypeAndNamespaceFromXsiType)
{
    struct Case { const char* attribute; const char* type; const char* namespaceUri; } cases[] = {
        {" xsi:type=\"a:Car\"", "Car", "urn:a"},         {" xsi:type=\"Car\"", "Car", "urn:x"},
        {" xsi:type=\"q:Car\"", "Car", "urn:x"},         {"", "", "urn:x"},
        {" xsi:type=\"a:Car:Van\"", "Car:Van", "urn:a"},
    };
    for (const Case& c : cases) {
        CXmlDocument document;
        const std::string xml =
            "<v xmlns=\"urn:x\" xmlns:a=\"urn:a\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"" +
            std::string(c.attribute) + "/>";
        document.LoadXml(xml.c_str());
        EXPECT_EQ(c.type, CFactory::GetElementType(document.GetDocumentElement())) << xml;
        EXPECT_EQ(c.namespaceUri, CFactory::GetElementTypeNamespaceUri(document.GetDocumentElement())) << xml;
    }
    EXPECT_EQ("", CFactory::GetElementType(nullptr));
    // Without namespace processing there is no xsi:type to find.
    CXmlDocument plain(SchemaType_NoNamespaces);
    plain.LoadXml("<v xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:type=\"Car\"/>");
    EXPECT_EQ("", CFactory::GetElementType(plain.GetDocumentElement()));
}
