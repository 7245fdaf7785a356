// Runs one XML text reader alone over a document, so that tests and fuzz targets can
// hold the fast reader's tree against Expat's for the same bytes.
#pragma once

#include "orvexxml/Export.h"

#include <string_view>

namespace OrvexXmlLib5 {

class CXmlDocument;

namespace Detail {

enum class TextReader
{
    Fast,
    Expat
};

// Loads text into document with the chosen reader only. The fast reader gives false
// for a document it leaves to Expat, with the tree empty; the Expat reader gives true
// or fails as a load does. The document keeps no view of text afterwards.
ORVEXXML_API bool LoadTextWith(CXmlDocument& document, std::string_view text, TextReader reader);

}  // namespace Detail
}  // namespace OrvexXmlLib5
