// OrvexXml: the metadata descriptors of namespace OrvexXmlLib5Data, which
// generated classes build their static tables from.
#pragma once

#include "orvexxml/OrvexXmlLib5.h"
