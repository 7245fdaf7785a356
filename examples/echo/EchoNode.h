// A hand-written serialisable class with no schema behind it: it reads any
// element into its name, namespace, attributes, text and child nodes, and writes
// them back. The demo uses it to echo a document; the tests use it for round trips.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvexxml/OrvexXmlLib5.h"

namespace OrvexExamples {

class CEchoNode : public OrvexXmlLib5::CXmlObjectBase
{
public:
    struct Attribute
    {
        std::string name, ns, value;
    };

    std::string ns;
    std::string text;
    std::vector<Attribute> attributes;
    std::vector<std::unique_ptr<CEchoNode>> children;

    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return ns; }
    std::string GetNamespace() const override { return ns; }
    const std::string& Name() const { return ElementNameRef(); }

protected:
    // Text is written after the child elements, so mixed content comes back with
    // all of its text behind the children.
    void ToXml_Int(OrvexXmlLib5::CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                   const OrvexXmlLib5::CXmlSerializationContext& context, bool isOptional) const override;
    OrvexXmlLib5::CXmlElement* FromXml_Int(OrvexXmlLib5::CXmlElement* element, OrvexXmlLib5::CXmlElement* firstChild,
                                           const OrvexXmlLib5::CXmlSerializationContext& context,
                                           bool isOptional) override;
};

}  // namespace OrvexExamples
