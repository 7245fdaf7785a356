// OrvexXml: everything public in namespace OrvexXmlLib5.
#pragma once

#include "orvexxml/platform/CodePage.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/frame/XmlSerializationContext.h"

#include "orvexxml/xml/StringBuffer.h"
#include "orvexxml/xml/XmlEnums.h"
#include "orvexxml/xml/XmlTextWriter.h"
#include "orvexxml/xml/XmlWriter.h"

#include "orvexxml/values/WhitespaceUtils.h"
