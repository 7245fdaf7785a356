// The collections of a repeating element of each primitive XSD type. The classes
// differ only in the item type, its conversions and, for the five CDateTime kinds,
// the kind they accept; so each is one line of the table below over one of two
// shared implementations (detail/PrimitiveCol.h, DateTimeCollections.h). Every
// class takes the same constructor arguments:
//   (name, namespaceUri, minOccurs, maxOccurs, pattern, minLength, maxLength,
//    minInclusive, maxInclusive, minExclusive, maxExclusive, length, rule, format)
// and offers Add, AddAt, Item, Remove, Clear, GetCount, begin and end.
#pragma once

#include "orvexxml/collections/DateTimeCollections.h"
#include "orvexxml/collections/detail/PrimitiveCol.h"
#include "orvexxml/values/Conversions.h"

// A plain value: CConversions::<Conversion>FromString reads an item,
// <Conversion>ToString writes it, and OrvexVariant::Setter carries it to the facet test.
#define ORVEXXML_PRIMITIVE_COLLECTION(Class, Type, Conversion, Setter)                                 \
    ORVEXXML_TYPED_COLLECTION(Class, Detail::TPrimitiveCol<Type, &CConversions::Conversion##FromString, \
                                                           &CConversions::Conversion##ToString,      \
                                                           &OrvexVariant::Setter>)
// A CDateTime of the one kind CDateTime::Kind, read by CConversions::<Conversion>FromString.
#define ORVEXXML_DATE_COLLECTION(Class, Type, Kind, Conversion) \
    ORVEXXML_TYPED_COLLECTION(Class, Detail::TDateCol<Type, CDateTime::Kind, &CConversions::Conversion##FromString>)

namespace OrvexXmlLib5 {

// The collection of xs:hexBinary items (CBinaryData).
ORVEXXML_PRIMITIVE_COLLECTION(ChexBinaryCol, ItemType_hexBinary, hexBinary, SetHexBinary);
// The collection of xs:base64Binary items (CBinaryData).
ORVEXXML_PRIMITIVE_COLLECTION(Cbase64BinaryCol, ItemType_base64Binary, base64Binary, SetBase64Binary);
// The collection of xs:byte items (char).
ORVEXXML_PRIMITIVE_COLLECTION(Ci1Col, ItemType_i1, i1, SetI1);
// The collection of xs:short items (short).
ORVEXXML_PRIMITIVE_COLLECTION(Ci2Col, ItemType_i2, i2, SetI2);
// The collection of xs:int items (std::int32_t).
ORVEXXML_PRIMITIVE_COLLECTION(Ci4Col, ItemType_i4, i4, SetI4);
// The collection of xs:long items (std::int64_t).
ORVEXXML_PRIMITIVE_COLLECTION(Ci8Col, ItemType_i8, i8, SetI8);
// The collection of xs:unsignedByte items (unsigned char).
ORVEXXML_PRIMITIVE_COLLECTION(Cui1Col, ItemType_ui1, ui1, SetUI1);
// The collection of xs:unsignedShort items (unsigned short).
ORVEXXML_PRIMITIVE_COLLECTION(Cui2Col, ItemType_ui2, ui2, SetUI2);
// The collection of xs:unsignedInt items (std::uint32_t).
ORVEXXML_PRIMITIVE_COLLECTION(Cui4Col, ItemType_ui4, ui4, SetUI4);
// The collection of xs:unsignedLong items (std::uint64_t).
ORVEXXML_PRIMITIVE_COLLECTION(Cui8Col, ItemType_ui8, ui8, SetUI8);
// The collection of xs:float items (float), written with the collection's number format.
ORVEXXML_PRIMITIVE_COLLECTION(Cr4Col, ItemType_r4, r4, SetR4);
// The collection of xs:double items (double), written with the collection's number format.
ORVEXXML_PRIMITIVE_COLLECTION(Cr8Col, ItemType_r8, r8, SetR8);
// The collection of xs:duration items (CDateTimeSpan).
ORVEXXML_PRIMITIVE_COLLECTION(CdurationCol, ItemType_duration, duration, SetDuration);
// The collection of xs:gYearMonth items (CDateTime of kind gYearMonth).
ORVEXXML_DATE_COLLECTION(CyearMonthCol, ItemType_yearMonth, gYearMonth, yearMonth);
// The collection of xs:gMonthDay items (CDateTime of kind gMonthDay).
ORVEXXML_DATE_COLLECTION(CmonthDayCol, ItemType_monthDay, gMonthDay, monthDay);
// The collection of xs:gYear items (unsigned short).
ORVEXXML_PRIMITIVE_COLLECTION(CyearCol, ItemType_year, year, SetYear);
// The collection of xs:gMonth items (unsigned char).
ORVEXXML_PRIMITIVE_COLLECTION(CmonthCol, ItemType_month, month, SetMonth);
// The collection of xs:gDay items (unsigned char).
ORVEXXML_PRIMITIVE_COLLECTION(CdayCol, ItemType_day, day, SetDay);
// The collection of xs:date items (CDateTime of kind date).
ORVEXXML_DATE_COLLECTION(CdateCol, ItemType_date, date, date);
// The collection of xs:dateTime items (CDateTime of kind dateTime).
ORVEXXML_DATE_COLLECTION(CdatetimeCol, ItemType_datetime, dateTime, datetime);
// The collection of xs:time items (CDateTime of kind time).
ORVEXXML_DATE_COLLECTION(CtimeCol, ItemType_time, time, time);
// The collection of string items (std::string).
ORVEXXML_PRIMITIVE_COLLECTION(CstringCol, ItemType_string, string, SetString);
// The collection of xs:boolean items (bool); the facets are not tested.
ORVEXXML_PRIMITIVE_COLLECTION(CbooleanCol, ItemType_boolean, boolean, SetBoolean);
// The collection of xs:decimal items (CDecimal), written with the collection's number format.
ORVEXXML_PRIMITIVE_COLLECTION(CdecimalCol, ItemType_decimal, decimal, SetDecimal);
// The collection of xs:integer items (CBigInteger).
ORVEXXML_PRIMITIVE_COLLECTION(CintegerCol, ItemType_integer, integer, SetInteger);

}  // namespace OrvexXmlLib5
