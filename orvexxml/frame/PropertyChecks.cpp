// The checks that generated setters and choice classes call to keep an object
// legal while it is filled by hand.
#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/XmlObjectBase.h"

namespace OrvexXmlLib5 {

namespace {

const char* Text(const char* s)
{
    return s ? s : "";
}

[[noreturn]] void ThrowAlreadySet(const std::string& selected)
{
    throw COrvexInvalidStateException(FormatString(
        "The Property [%s] is already set. Only one element within this class bay be set at a time", selected.c_str()));
}

}  // namespace

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, const char* propertyName)
{
    if (!value)
        throw COrvexInvalidParamException(
            FormatString("The Property [%s] is mandatory, it may node be NULL", Text(propertyName)));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, const char* requiredName)
{
    if (!value) return;
    const std::string& name = value->GetBase()->m_elementName;
    if (name != Text(requiredName))
        throw COrvexInvalidParamException(
            FormatString("This property requrires an element with the name %s the element being set has the element "
                         "name %s",
                         Text(requiredName), name.c_str()));
}

void CXmlObjectBase::Choice_SelectElement(const char* propertyName, CXmlObjectBase* value, std::string& selected)
{
    if (selected == Text(propertyName)) {
        if (!value) selected.clear();
        return;
    }
    if (selected.empty()) {
        selected = Text(propertyName);
        return;
    }
    if (!value) return;
    ThrowAlreadySet(selected);
}

void CXmlObjectBase::Choice_CollectionChanged(const char* propertyName, std::int32_t count, std::string& selected)
{
    if (selected == Text(propertyName)) {
        if (count == 0) selected.clear();
        return;
    }
    if (selected.empty()) {
        if (count > 0) selected = Text(propertyName);
        return;
    }
    if (count == 0) return;
    ThrowAlreadySet(selected);
}

void CXmlObjectBase::Choice_SetElementValid(bool valid, const char* propertyName, std::string& selected)
{
    if (!valid) {
        selected.clear();
        return;
    }
    if (!selected.empty() && selected != Text(propertyName))
        throw COrvexInvalidStateException(
            FormatString("The Property %s is already set. Only one element within this class bay be set at a time",
                         selected.c_str()));
    selected = Text(propertyName);
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent, CXmlElement*& current,
                                            std::int32_t& itemsRead, const CXmlSerializationContext& context)
{
    if (itemsRead > 0) return;
    if (!collection) throw COrvexInvalidParamException("The collection to read may not be NULL");
    CXmlElement* next = collection->GetBase()->FromXml_Int(parent, current, context, false);
    if (next == current) return;
    current = next;
    collection->ValidateCount(context);
    ++itemsRead;
}

}  // namespace OrvexXmlLib5
