// What the writing descriptors may ask of a writer that callers may not.
#pragma once

#include <string>

#include "orvexxml/xml/XmlWriter.h"

namespace OrvexXmlLib5 {
namespace Detail {

class CWriterAccess
{
public:
    // An element with text and nothing else, as WriteStartElement, WriteText and
    // WriteEndElement would write it.
    static void WriteSimpleElement(CXmlWriter* writer, const std::string& localName,
                                   const std::string& namespaceUri, const std::string& text)
    {
        writer->WriteSimpleElement(localName, namespaceUri, text);
    }
};

}  // namespace Detail
}  // namespace OrvexXmlLib5
