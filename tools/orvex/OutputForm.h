// The form `orvex convert` writes, and the writing of the bytes: to a file that
// appears whole or not at all, or to standard output.
#pragma once

#include <string>

#include "orvexxml/OrvexXmlLib5.h"

namespace OrvexTool {

struct COutputForm
{
    bool fastInfoset = false;
    OrvexXmlLib5::CompressionType compression = OrvexXmlLib5::Compression_None;
    // XML text only.
    bool utf16 = false;
    bool formatted = true;
    OrvexXmlLib5::EOLType eol = OrvexXmlLib5::EOL_LF;
    // The XML declaration; in front of Fast Infoset it is <?xml encoding='finf'?>.
    bool declaration = true;

    // "XML", "Fast Infoset+gzip" and so on.
    std::string Describe() const;
};

// The element in the given form. UTF-16 text starts with the byte order mark FF FE,
// inside the compressed stream when there is one. Compressed output longer than its
// input fails with COrvexException, with the library's failure as inner exception.
OrvexXmlLib5::CBinaryData Encode(const OrvexXmlLib5::CElement& element, const COutputForm& form);

// Writes bytes to path, or to standard output for "-". A file is written beside its
// final name and renamed over it once complete, so that a failure leaves the old file
// (or none). Failures come as COrvexException.
void WriteOutput(const std::string& path, const OrvexXmlLib5::CBinaryData& bytes);

}  // namespace OrvexTool
