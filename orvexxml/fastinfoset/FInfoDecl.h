// The XML declaration written in front of a Fast Infoset document, if any; the
// numbers are part of the interface, and the reader tries the strings in this order.
#pragma once

namespace OrvexXmlLib5 {

enum FInfoDecl
{
    FInfoDecl_None = 0,                 // nothing
    FInfoDecl_Plain = 1,                // <?xml encoding='finf'?>
    FInfoDecl_StandaloneYes = 2,        // <?xml encoding='finf' standalone='yes'?>
    FInfoDecl_StandaloneNo = 3,         // <?xml encoding='finf' standalone='no'?>
    FInfoDecl_V10 = 4,                  // <?xml version='1.0' encoding='finf'?>
    FInfoDecl_V10_StandaloneYes = 5,    // <?xml version='1.0' encoding='finf' standalone='yes'?>
    FInfoDecl_V10_StandaloneNo = 6,     // <?xml version='1.0' encoding='finf' standalone='no'?>
    FInfoDecl_V11 = 7,                  // <?xml version='1.1' encoding='finf'?>
    FInfoDecl_V11_StandaloneYes = 8,    // <?xml version='1.1' encoding='finf' standalone='yes'?>
    FInfoDecl_V11_StandaloneNo = 9      // <?xml version='1.1' encoding='finf' standalone='no'?>
};

}  // namespace OrvexXmlLib5
