// Numbered enumerations of the text writer; the numbers are part of the interface.
#pragma once

namespace OrvexXmlLib5 {

// The encoding of written XML text, and what its declaration names.
enum XmlEncoding
{
    Encoding_Unspecified = 0,
    Encoding_UTF8 = 1,
    Encoding_UTF16 = 2,
    Encoding_UTF16_NoDeclaration = 3
};

// The line end written for each line break.
enum EOLType
{
    EOL_CRLF = 0,
    EOL_LF = 1
};

}  // namespace OrvexXmlLib5
