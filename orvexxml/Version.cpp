#include "orvexxml/Version.h"

namespace OrvexXmlLib5 {

int GetLibraryVersion()
{
    return ORVEXXML_VERSION;
}

const char* GetLibraryVersionString()
{
    return ORVEXXML_VERSION_STRING;
}

}  // namespace OrvexXmlLib5
