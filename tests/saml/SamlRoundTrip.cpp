// Reads a SAML 2.0 document into the classes that orvex-gen generates from the
// SAML, XML Signature and XML Encryption schemas, and writes it back.
// Usage: saml-roundtrip INPUT OUTPUT; the document element picks the class.
#include <iostream>
#include <string>

#include "saml/SamlAssertion.h"
#include "saml/SamlMetadata.h"
#include "saml/SamlProtocol.h"
#include "orvexxml/xml/XmlDocument.h"

using namespace OrvexXmlLib5;

namespace {

// The input's prefixes are declared on the output's root: xsi:type values inside
// untyped content (AttributeValue) name types through them.
template <typename T>
void RoundTrip(const char* input, const char* output, const CXmlDocument& document)
{
    CSmartPtr<T> object = T::CreateInstance();
    object->FromXmlFile(input);
    CXmlSerializationContext context;
    for (const auto& prefix : document.GetPrefixTable())
        if (!prefix.first.empty()) context.GetNamespaceAliases().Add(prefix.first.c_str(), prefix.second.c_str());
    object->ToXmlFile(output, true, true, Encoding_UTF8, EOL_LF, context);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: saml-roundtrip INPUT OUTPUT\n";
        return 2;
    }
    try {
        CXmlDocument document;
        document.Load(argv[1]);
        const std::string root = document.GetDocumentElement()->GetLocalName();
        if (root == "Assertion")
            RoundTrip<OrvexSaml::CAssertion>(argv[1], argv[2], document);
        else if (root == "AuthnRequest")
            RoundTrip<OrvexSaml::CAuthnRequest>(argv[1], argv[2], document);
        else if (root == "Response")
            RoundTrip<OrvexSaml::CResponse>(argv[1], argv[2], document);
        else if (root == "EntityDescriptor")
            RoundTrip<OrvexSaml::CEntityDescriptor>(argv[1], argv[2], document);
        else {
            std::cerr << "no class for the document element " << root << "\n";
            return 1;
        }
    } catch (const COrvexException& e) {
        std::cerr << e.GetFullMessage() << "\n";
        return 1;
    }
    return 0;
}
