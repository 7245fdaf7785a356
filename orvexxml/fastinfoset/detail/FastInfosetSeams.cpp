#include "orvexxml/fastinfoset/detail/FastInfosetSeams.h"

#include <cstring>

#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {
namespace Detail {

namespace {

// The identification and version octets that open every Fast Infoset document.
const unsigned char Identification[4] = {0xE0, 0x00, 0x00, 0x01};

// In the order of FInfoDecl from 1 to 9; all ASCII, so their UTF-8 form is the text.
const char* const Declarations[9] = {
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>"};

// At least one octet must follow the identification, so four octets alone are not a document.
bool StartsWithIdentification(const unsigned char* data, std::size_t length)
{
    return length > 4 && std::memcmp(data, Identification, 4) == 0;
}

// The recognition of the reader: the identification, or one of the declarations
// with the identification right behind it.
bool LooksLikeFastInfoset(const unsigned char* data, std::size_t length)
{
    if (!data) return false;
    if (StartsWithIdentification(data, length)) return true;
    for (const char* declaration : Declarations) {
        const std::size_t size = std::strlen(declaration);
        if (size < length && std::memcmp(data, declaration, size) == 0)
            return StartsWithIdentification(data + size, length - size);
    }
    return false;
}

}  // namespace

// Until the reader is built in, a Fast Infoset document is recognised and refused,
// so that it never reaches the XML parser as if it were text.
bool ReadFastInfoset(CXmlDocument* document, const unsigned char* data, std::size_t length)
{
    static_cast<void>(document);
    if (!LooksLikeFastInfoset(data, length)) return false;
    throw COrvexException("Failed to parse FastInfoset. This build has no Fast Infoset reader.");
}

CBinaryData WriteFastInfoset(const CXmlObjectBase& object, FInfoDecl declaration,
                             const CXmlSerializationContext& context)
{
    static_cast<void>(object);
    static_cast<void>(declaration);
    static_cast<void>(context);
    throw COrvexException("This build has no Fast Infoset writer.");
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
