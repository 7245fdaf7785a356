// The XML declaration that may stand in front of a Fast Infoset document; the
// numbers are part of the interface.
#pragma once

#include "orvexxml/Export.h"

namespace OrvexXmlLib5 {

// The XML declaration written in front of a Fast Infoset document: none, one without
// a version, or one for XML 1.0 or 1.1, each with or without a standalone value.
enum FInfoDecl
{
    FInfoDecl_None = 0,
    FInfoDecl_Plain = 1,
    FInfoDecl_StandaloneYes = 2,
    FInfoDecl_StandaloneNo = 3,
    FInfoDecl_V10 = 4,
    FInfoDecl_V10_StandaloneYes = 5,
    FInfoDecl_V10_StandaloneNo = 6,
    FInfoDecl_V11 = 7,
    FInfoDecl_V11_StandaloneYes = 8,
    FInfoDecl_V11_StandaloneNo = 9
};

// The text of a declaration, such as "<?xml encoding='finf'?>". Null for
// FInfoDecl_None and for any number outside the enumeration.
ORVEXXML_API const char* GetFInfoDeclText(FInfoDecl declaration);

}  // namespace OrvexXmlLib5
