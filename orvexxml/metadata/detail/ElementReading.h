// What the reading descriptors take out of a property: the object or collection
// that generated code must have put there, with a failure instead of a null.
#pragma once

#include <string>

#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/metadata/XmlElementEnums.h"

namespace OrvexXmlLib5Data {
namespace Detail {

// Fails with COrvexException when the property of element name holds no object.
inline CSmartPtr<CXmlObjectBase> RequireObject(const OrvexVariant& value, const std::string& name)
{
    CSmartPtr<CXmlObjectBase> object = value.GetXmlObject();
    if (object.IsNull())
        throw COrvexException(
            FormatString("Serialization Data Error : The property for the element [%s] holds no object", name.c_str()));
    return object;
}

// Fails with COrvexException when the property of element name holds no collection.
inline CSmartPtr<CXmlCollectionBase> RequireCollection(const OrvexVariant& value, const std::string& name)
{
    CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
    if (collection.IsNull())
        throw COrvexException(FormatString(
            "Serialization Data Error : The property for the element [%s] holds no collection", name.c_str()));
    return collection;
}

}  // namespace Detail
}  // namespace OrvexXmlLib5Data
