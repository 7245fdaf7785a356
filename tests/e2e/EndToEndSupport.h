// Shared by the end-to-end tests: objects read and written under contexts named by
// their options, with the whole chain of a failure as the result.
#pragma once

#include <string>

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/frame/XmlSerializationContext.h"

namespace OrvexTest {

// A context with each ignore option named in options set: "unknown", "missing",
// "choice", "counts", "namespaces"; any other text sets none.
inline OrvexXmlLib5::CXmlSerializationContext ContextWith(const std::string& options)
{
    const auto has = [&](const char* name) { return options.find(name) != std::string::npos; };
    OrvexXmlLib5::CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(has("unknown"));
    context.SetIgnoreMissingMandatoryElements(has("missing"));
    context.SetIgnoreMissingChoice(has("choice"));
    context.SetIgnoreInvalidCollectionCounts(has("counts"));
    context.SetIgnoreNamespaces(has("namespaces"));
    return context;
}

// The whole chain of a failed read, or "read" when the document was taken.
inline std::string ReadChain(OrvexXmlLib5::CXmlObjectBase* object, const std::string& xml,
                             const std::string& options = "")
{
    try {
        object->FromXml(xml.c_str(), ContextWith(options));
    } catch (const OrvexXmlLib5::COrvexException& e) {
        return e.GetFullMessage();
    }
    return "read";
}

// The compact text written, or the whole chain of the failure.
inline std::string WriteChain(const OrvexXmlLib5::CXmlObjectBase* object, const std::string& options = "")
{
    try {
        return object->ToXml(false, false, OrvexXmlLib5::EOL_LF, ContextWith(options));
    } catch (const OrvexXmlLib5::COrvexException& e) {
        return e.GetFullMessage();
    }
}

inline std::string Leftover(const char* parent, const char* element)
{
    return std::string("Failed read all the elements held within the element [") + parent +
           "]. The unexpected element [" + element + "] remains un processed";
}

}  // namespace OrvexTest
