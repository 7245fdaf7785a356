// OrvexXml: the metadata descriptors of namespace OrvexXmlLib5Data, which
// generated classes build their static tables from.
#pragma once

#include "orvexxml/OrvexXmlLib5.h"

#include "orvexxml/metadata/XmlElementEnums.h"
#include "orvexxml/metadata/ParentElementInfo.h"
#include "orvexxml/metadata/ElementInfo.h"
#include "orvexxml/metadata/ElementInfoSeq.h"
#include "orvexxml/metadata/ElementInfoAll.h"
#include "orvexxml/metadata/ElementInfoChoice.h"
#include "orvexxml/metadata/AttributeInfo.h"
