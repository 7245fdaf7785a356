#include "orvexxml/frame/XmlGeneratedClass.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "orvexxml/collections/Attribute.h"
#include "orvexxml/collections/XmlCollectionBase.h"
#include "orvexxml/data/detail/VariantAccess.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/detail/NestingGuard.h"
#include "orvexxml/metadata/AttributeInfo.h"
#include "orvexxml/metadata/ElementInfo.h"
#include "orvexxml/metadata/ElementInfoChoice.h"
#include "orvexxml/metadata/ParentElementInfo.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlWriter.h"
#include "orvexxml/xml/detail/TextLease.h"

namespace OrvexXmlLib5 {

using OrvexXmlLib5Data::CAttributeInfo;
using OrvexXmlLib5Data::CElementInfo;
using OrvexXmlLib5Data::CElementInfoChoiceCol;
using OrvexXmlLib5Data::CParentElementInfo;

namespace {
const char* Text(const char* s) { return s ? s : ""; }

const char* const kUnexpectedElement =
    "Failed read all the elements held within the element [%s]. The unexpected element [%s] remains un processed";

using Detail::CNestingGuard;

// A failure that no deeper level has placed is placed at the element being read.
void PlaceFailure(COrvexException& e, const CXmlElement* element)
{
    if (element && !e.GetLocation().IsKnown()) e.SetLocation(element->GetLocation());
}

// One child descriptor's read, with the failure placed at the child it was on.
bool ReadChild(CElementInfo* descriptor, const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
               CXmlElement* parent, CXmlElement** current, const char* parentNamespace, XmlElementType type)
{
    try {
        return descriptor->ElementFromXml(context, owner, parent, current, parentNamespace, type);
    } catch (COrvexException& e) {
        PlaceFailure(e, *current);
        throw;
    }
}

[[noreturn]] void ThrowUnexpectedElement(const CXmlElement* parent, const CXmlElement* current)
{
    COrvexValidationException e(
        FormatString(kUnexpectedElement, parent->GetLocalName().c_str(), current->GetLocalName().c_str()));
    PlaceFailure(e, current);
    throw e;
}
// One mark per member of a class for a walk over an element: on the stack for the
// usual few members, on the heap beyond.
class CMarks
{
public:
    explicit CMarks(int count) : m_marks(m_local)
    {
        if (count > static_cast<int>(sizeof m_local)) {
            m_more.assign(static_cast<std::size_t>(count), 0);
            m_marks = m_more.data();
        }
    }
    CMarks(const CMarks&) = delete;
    CMarks& operator=(const CMarks&) = delete;
    char& operator[](int i) { return m_marks[i]; }

private:
    char m_local[32] = {};
    std::vector<char> m_more;
    char* m_marks;
};

}  // namespace

// ---------------------------------------------------------------------------
// Writing

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                                   const CXmlSerializationContext& context, bool isOptional) const
{
    try {
        CNestingGuard guard;
        ToXmlBody(writer, isRoot, namespaceUri, context, isOptional);
    } catch (const COrvexException& e) {
        throw COrvexValidationException(
            FormatString("Failed to convert the element [%s] to XML", ElementNameRef().c_str()), e);
    }
}

void CXmlGeneratedClass::ToXmlBody(CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                                   const CXmlSerializationContext& context, bool isOptional) const
{
    const CParentElementInfo* info = GetClassInfo();
    const bool ownElement = info->GetElementType() == ElementType_Element;
    if (ownElement) {
        if (isRoot) {
            for (const std::string& instruction : context.GetProcessingInstructions())
                writer->WriteProcessingInstruction(instruction);
            const CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
            for (int index = 0; index < aliases.GetNamespaceCount(); ++index) {
                const std::string namespaceUri = aliases.GetNamespaceAt(index);
                const std::string alias = aliases.GetAliasFromNamespace(namespaceUri.c_str());
                // The map refuses empty aliases; one made by looking up an unknown URI
                // is not declared, since "xmlns:" is not XML.
                if (!alias.empty()) writer->AddNamespace(alias, namespaceUri);
            }
            const std::string defaultNamespace = context.GetDefaultNamespaceURI();
            if (!defaultNamespace.empty()) writer->SetDefaultNamespace(defaultNamespace);
        }
        writer->WriteStartElement(ElementNameRef(), Text(namespaceUri));
        if (isRoot) {
            // Read without a reference: a shared context's counts are not touched.
            if (const CAttributeCol* additional = context.PeekAdditionalRootAttributes())
                CXmlObjectBase::ToXml_Int(additional, writer, false, namespaceUri, context, isOptional);
        }
        AttributesToXml_Int(writer, context);
        if (isRoot) {
            const std::string schema = context.GetInLineSchema();
            if (!schema.empty()) writer->WriteInlineSchema(schema);
        }
    }

    CElementInfo** elements = GetClassElementInfo();
    switch (info->GetElementGroupType()) {
        case ElementGroup_Sequence:
            ProcessElementSeqToXml(context, elements, writer);
            break;
        case ElementGroup_Choice:
            ProcessElementChoiceToXml(context, elements, writer, isOptional);
            break;
        case ElementGroup_All:
            ProcessElementAllToXml(context, elements, writer);
            break;
        default:
            throw COrvexException("Unknown XML Group Type");
    }

    const int textIndex = info->GetElementTextPropertyIndex();
    if (textIndex != -1) {
        OrvexVariant value;
        Detail::CVariantAccess::AllowLending(value);
        ReadProperty(textIndex, value);
        // An unset text property has nothing to write; a text property of another
        // kind than string is written in its lexical form.
        if (value.GetItemType() == ItemType_string)
            writer->WriteText(value.GetStringRef());
        else if (value.IsValid())
            writer->WriteText(value.ToString(nullptr));
    }

    if (ownElement) writer->WriteEndElement();
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const
{
    try {
        AttributesToXmlBody(writer, context);
    } catch (const COrvexException& e) {
        throw COrvexException("Failed to convert attributes to XML", e);
    }
}

void CXmlGeneratedClass::AttributesToXmlBody(CXmlWriter* writer, const CXmlSerializationContext& context) const
{
    const CParentElementInfo* info = GetClassInfo();
    if (info->GetHasBaseClasses() && info->GetElementName() != ElementNameRef())
        writer->WriteXsiType(info->GetElementNamespace(), info->GetElementName());
    ProcessAttributesToXml(context, GetClassElementInfo(), GetClassAttributeInfo(), writer);
}

void CXmlGeneratedClass::ProcessElementSeqToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                                CXmlWriter* writer) const
{
    for (CElementInfo** element = elements; *element; ++element) (*element)->ElementToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementAllToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                                CXmlWriter* writer) const
{
    ProcessElementSeqToXml(context, elements, writer);
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                                   CXmlWriter* writer, bool isOptional) const
{
    for (CElementInfo** element = elements; *element; ++element)
        if ((*element)->ElementToXml(context, this, writer)) return;
    if (DoesElementContainOptionalElementCollections() || isOptional || context.GetIgnoreMissingChoice()) return;
    throw COrvexValidationException(
        "This element is a choice, and as such must have at one (and only one) valid item, currently there are none "
        "set");
}

void CXmlGeneratedClass::ProcessAttributesToXml(const CXmlSerializationContext& context, CElementInfo** elements,
                                                CAttributeInfo** attributes, CXmlWriter* writer) const
{
    for (CAttributeInfo** attribute = attributes; *attribute; ++attribute)
        (*attribute)->AttributeToXml(context, this, writer);
    for (CElementInfo** element = elements; *element; ++element)
        (*element)->PseudoChildAttributeToXml(context, this, writer);
}

bool CXmlGeneratedClass::DoesElementContainOptionalElementCollections() const
{
    for (CElementInfo** element = GetClassElementInfo(); *element; ++element) {
        if (!dynamic_cast<const CElementInfoChoiceCol*>(*element)) continue;
        OrvexVariant value;
        ReadProperty((*element)->GetPropertyIndex(), value);
        CSmartPtr<CXmlCollectionBase> collection = value.GetXmlCollection();
        if (!collection.IsNull() && collection->GetMinOccurs() == 0) return true;
    }
    return false;
}

// ---------------------------------------------------------------------------
// Reading

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                             const CXmlSerializationContext& context, bool isOptional)
{
    try {
        CNestingGuard guard;
        return FromXmlBody(element, firstChild, context, isOptional);
    } catch (const COrvexException& e) {
        COrvexValidationException wrapped(
            FormatString("Failed to process the element [%s]", element ? element->GetLocalName().c_str() : ""), e);
        PlaceFailure(wrapped, element);
        throw wrapped;
    }
}

CXmlElement* CXmlGeneratedClass::FromXmlBody(CXmlElement* element, CXmlElement* firstChild,
                                             const CXmlSerializationContext& context, bool isOptional)
{
    // An object its maker has just constructed is in its starting state already.
    if (!TakeJustMade()) Init();
    // Every walk below reads the element; a tree without one has nothing to give.
    if (!element) throw COrvexException("Invalid or empty XML document");
    const CParentElementInfo* info = GetClassInfo();
    const XmlElementType type = info->GetElementType();
    // The name is most often the one the object was made with: then nothing changes.
    if (type == ElementType_Element && ElementNameRef() != element->GetLocalName())
        SetElementName(element->GetLocalName().c_str());

    ProcessAttributesFromXml(context, element, info->GetFromXmlFailIfAttributeUnknown());

    CXmlElement* next;
    switch (info->GetElementGroupType()) {
        case ElementGroup_Sequence:
            next = ProcessElementSeqFromXml(context, element, firstChild, type);
            break;
        case ElementGroup_Choice:
            next = ProcessElementChoiceFromXml(context, element, firstChild, type, isOptional);
            break;
        case ElementGroup_All:
            next = ProcessElementAllFromXml(context, element, firstChild, type);
            break;
        default:
            throw COrvexException("Unknow Group Type");
    }

    const int textIndex = info->GetElementTextPropertyIndex();
    if (textIndex != -1) {
        Detail::CTextLease text;
        OrvexVariant value;
        value.SetString(text.Hold(element->GetTextView()));
        AccessProperty(textIndex, false, value);
    }
    return next;
}

void CXmlGeneratedClass::ProcessAttributesFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                                  bool failIfAttributeUnknown)
{
    CAttributeInfo** descriptors = GetClassAttributeInfo();
    const int count = GetClassAttributeInfoCount();
    CMarks seen(count);

    for (CXmlAttribute* attribute : element->GetAttributeSpan()) {
        if (attribute->IsNamespaceAttribute()) continue;
        bool taken = false;
        for (int i = 0; i < count && !taken; ++i) {
            if (descriptors[i]->AttributeFromXml(context, this, attribute)) {
                seen[i] = 1;
                taken = true;
            }
        }
        if (!taken && failIfAttributeUnknown && !context.GetIgnoreUnknownAttributes())
            throw COrvexValidationException(
                FormatString("Unexpected Attribute [%s] found.", attribute->GetLocalName().c_str()));
    }

    for (int i = 0; i < count; ++i) descriptors[i]->Validate(context, seen[i] != 0);
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(const CXmlSerializationContext& context,
                                                          CXmlElement* parent, CXmlElement* current,
                                                          XmlElementType type)
{
    CXmlElement* const start = current;
    CElementInfo** elements = GetClassElementInfo();
    const std::string parentNamespace = GetNamespace();
    for (int i = 0; elements[i];) {
        if (ReadChild(elements[i], context, this, parent, &current, parentNamespace.c_str(), type)) {
            ++i;
            continue;
        }
        if (!context.GetIgnoreUnknownElements() || !current) return start;
        current = current->GetNextSiblingElement();
    }
    if (type != ElementType_Element || !current || context.GetIgnoreUnknownElements()) return current;
    ThrowUnexpectedElement(parent, current);
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(const CXmlSerializationContext& context,
                                                          CXmlElement* parent, CXmlElement* current,
                                                          XmlElementType type)
{
    CXmlElement* const start = current;
    CElementInfo** elements = GetClassElementInfo();
    const int count = GetClassElementInfoCount();
    CMarks seen(count);
    const std::string parentNamespace = GetNamespace();

    // The walk goes over the children again and again; in each pass every
    // descriptor not yet done is offered the position, in table order. Children in
    // table order are all taken by the first pass. When more passes are needed,
    // offers that cannot take anything are skipped: most descriptors give false,
    // touching nothing, unless the position carries their own name, so they are
    // looked up by name, and only the others ("open": collections, pseudo children)
    // are offered every position. The calls that remain, their order and their
    // results are those of the plain passes, and a child out of order costs one
    // look-up instead of one offer per descriptor per pass.
    struct CNamed
    {
        const std::string* name;
        int index;
    };
    struct CByName
    {
        bool operator()(const CNamed& a, const CNamed& b) const
        {
            const int order = a.name->compare(*b.name);
            return order != 0 ? order < 0 : a.index < b.index;
        }
        bool operator()(const CNamed& a, const std::string& b) const { return *a.name < b; }
        bool operator()(const std::string& a, const CNamed& b) const { return a < *b.name; }
    };
    std::vector<CNamed> named;
    std::vector<int> open;

    // The next descriptor from table index `from` on that the plain pass would
    // call with something to do at the position; count when there is none.
    auto nextToOffer = [&](int from) {
        int next = count;
        for (auto it = std::lower_bound(open.begin(), open.end(), from); it != open.end(); ++it) {
            if (!seen[*it]) {
                next = *it;
                break;
            }
        }
        if (!current) return next;
        const auto range = std::equal_range(named.begin(), named.end(), current->GetLocalName(), CByName());
        for (auto it = range.first; it != range.second && it->index < next; ++it) {
            if (it->index < from || seen[it->index]) continue;
            if (elements[it->index]->IsThisElement(context, current)) return it->index;
        }
        return next;
    };
    auto offer = [&](int i) {
        seen[i] = ReadChild(elements[i], context, this, parent, &current, parentNamespace.c_str(), type) ? 1 : 0;
    };

    bool moved = true;
    bool firstPass = true;
    bool indexed = false;
    while (current && moved) {
        CXmlElement* const before = current;
        if (firstPass) {
            for (int i = 0; i < count; ++i) offer(i);
            firstPass = false;
        } else {
            if (!indexed) {
                indexed = true;
                for (int i = 0; i < count; ++i) {
                    if (elements[i]->m_matchesOnlyItsOwnElement)
                        named.push_back(CNamed{&elements[i]->m_elementName, i});
                    else
                        open.push_back(i);
                }
                std::sort(named.begin(), named.end(), CByName());
            }
            for (int i = nextToOffer(0); i < count; i = nextToOffer(i + 1)) offer(i);
        }
        moved = current != before;
    }

    for (int i = 0; i < count; ++i)
        if (!elements[i]->Validate(context, this, seen[i] != 0, type == ElementType_Element)) return start;

    if (type != ElementType_Element || !current) return current;
    if (context.GetIgnoreUnknownElements()) return current;
    ThrowUnexpectedElement(parent, current);
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(const CXmlSerializationContext& context,
                                                             CXmlElement* parent, CXmlElement* current,
                                                             XmlElementType type, bool isOptional)
{
    CXmlElement* const start = current;
    CElementInfo** elements = GetClassElementInfo();
    const std::string parentNamespace = GetNamespace();
    bool found = false;

    for (;;) {
        for (CElementInfo** element = elements; *element; ++element) {
            found = ReadChild(*element, context, this, parent, &current, parentNamespace.c_str(), type);
            if (found) break;
        }
        if (context.GetIgnoreUnknownElements() && !found && current && type == ElementType_Element) {
            current = current->GetNextSiblingElement();
            if (current) continue;
        }
        break;
    }

    if (found || isOptional) {
        if (type != ElementType_Element) return current;
    } else {
        if (type == ElementType_Pseudo) return context.GetIgnoreUnknownElements() ? start : current;
        if (type != ElementType_Element) return current;
        if (!DoesElementContainOptionalElementCollections() && !context.GetIgnoreMissingChoice())
            throw COrvexValidationException(FormatString(
                "No child elements within the element [%s] were populated. The element represents a choice, so one "
                "and only one element should be populated. The element contained no sutable child elements",
                parent->GetLocalName().c_str()));
    }

    if (!current || context.GetIgnoreUnknownElements()) return current;
    ThrowUnexpectedElement(parent, current);
}

// ---------------------------------------------------------------------------
// Tables

void CXmlGeneratedClass::ReadProperty(int propertyIndex, OrvexVariant& value) const
{
    // Reading does not change the object; the slot is shared with storing.
    const_cast<CXmlGeneratedClass*>(this)->AccessProperty(propertyIndex, true, value);
}

void CXmlGeneratedClass::LendString(OrvexVariant& value, const std::string& member)
{
    Detail::CVariantAccess::LendString(value, member);
}

bool CXmlGeneratedClass::IsElementInList(const CXmlSerializationContext& context, CXmlElement* element) const
{
    for (CElementInfo** descriptor = GetClassElementInfo(); *descriptor; ++descriptor)
        if ((*descriptor)->IsThisElement(context, element)) return true;
    return false;
}

int CXmlGeneratedClass::GetClassElementInfoCount() const
{
    int count = 0;
    for (CElementInfo** element = GetClassElementInfo(); *element; ++element) ++count;
    return count;
}

int CXmlGeneratedClass::GetClassAttributeInfoCount() const
{
    int count = 0;
    for (CAttributeInfo** attribute = GetClassAttributeInfo(); *attribute; ++attribute) ++count;
    return count;
}

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& info, CElementInfo**& elements,
                                       CAttributeInfo**& attributes)
{
    delete info;
    info = nullptr;
    if (elements) {
        for (CElementInfo** element = elements; *element; ++element) delete *element;
        delete[] elements;
        elements = nullptr;
    }
    if (attributes) {
        for (CAttributeInfo** attribute = attributes; *attribute; ++attribute) delete *attribute;
        delete[] attributes;
        attributes = nullptr;
    }
}

}  // namespace OrvexXmlLib5
