// OrvexXml: everything public in namespace OrvexXmlLib5.
#pragma once

#include "orvexxml/platform/Clock.h"
#include "orvexxml/platform/CodePage.h"
#include "orvexxml/platform/SystemTime.h"

#include "orvexxml/frame/CompressionType.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/frame/XmlSerializationContext.h"
#include "orvexxml/frame/XmlGeneratedClass.h"
#include "orvexxml/frame/ClassFactoryBase.h"

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/collections/XmlCollection.h"
#include "orvexxml/collections/XmlTypeCollection.h"
#include "orvexxml/collections/DateTimeCollections.h"
#include "orvexxml/collections/TypedCollections.h"
#include "orvexxml/collections/OrvexIterator.h"
#include "orvexxml/collections/Attribute.h"
#include "orvexxml/collections/Element.h"

#include "orvexxml/xml/ExpatReader.h"
#include "orvexxml/xml/StringBuffer.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlEnums.h"
#include "orvexxml/xml/NamespaceAliasMap.h"
#include "orvexxml/xml/XmlTextWriter.h"
#include "orvexxml/xml/XmlWriter.h"

#include "orvexxml/values/Conversions.h"
#include "orvexxml/values/DateTime.h"
#include "orvexxml/values/DateTimeSpan.h"
#include "orvexxml/values/WhitespaceUtils.h"
#include "orvexxml/values/BigInteger.h"
#include "orvexxml/values/Decimal.h"

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/data/OrvexVariant.h"

#include "orvexxml/metadata/PrimitiveRestrictions.h"
