// The two places where the stream and file entry points meet the Fast Infoset
// reader and writer. Everything around them (inflating, compressing, files,
// recognition order) is done by the callers; these only run one reader or writer.
#pragma once

#include <cstddef>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/fastinfoset/FInfoDecl.h"
#include "orvexxml/frame/XmlSerializationContext.h"

namespace OrvexXmlLib5 {

class CXmlDocument;
class CXmlObjectBase;

namespace Detail {

// Reads data into document when it is a Fast Infoset document and answers true;
// answers false, having touched nothing, when it is not one. data and length are
// the document's input buffer, already inflated.
bool ReadFastInfoset(CXmlDocument* document, const unsigned char* data, std::size_t length);

// The whole Fast Infoset document of object: document start with declaration,
// the walk from the root, document end. Not yet compressed.
CBinaryData WriteFastInfoset(const CXmlObjectBase& object, FInfoDecl declaration,
                             const CXmlSerializationContext& context);

}  // namespace Detail
}  // namespace OrvexXmlLib5
