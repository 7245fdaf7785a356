// The base of every element descriptor: the data of one child element of a
// generated class and the writing operations that the descriptor cells share.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/frame/XmlSerializationContext.h"
#include "orvexxml/metadata/PrimitiveRestrictions.h"
#include "orvexxml/metadata/XmlElementEnums.h"
#include "orvexxml/values/WhitespaceUtils.h"

namespace OrvexXmlLib5 {
class CXmlElement;
class CXmlWriter;
class CXmlObjectBase;
class CXmlGeneratedClass;
}  // namespace OrvexXmlLib5

namespace OrvexXmlLib5Data {

// Creates the generated object numbered classId, named elementName.
typedef CSmartPtr<CXmlObjectBase> (*ClassFactoryFn)(int classId, const char* elementName);
// Creates the object for element, looking at xsi:type; null when no class suits.
typedef CSmartPtr<CXmlObjectBase> (*ElementFactoryFn)(CXmlElement* element);
// The generated function that gives the text of an enumeration value.
typedef const char* (*EnumToStringFn)(int value);
// Gives the enumeration value of text.
typedef int (*EnumFromStringFn)(const char* text);

// The base of every element descriptor: one child of a generated class (its name,
// namespace and property index, and for simple types the conversion and facets)
// and the operations that read it from the tree and write it.
class ORVEXXML_API CElementInfo
{
public:
    // Copies every field.
    CElementInfo(const CElementInfo& other) = default;
    // The same as the copy.
    CElementInfo& operator=(const CElementInfo& other) = default;
    virtual ~CElementInfo() = default;

    // Writes this descriptor's element or elements; true when anything was written.
    virtual bool ElementToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                              CXmlWriter* writer) const = 0;
    // Takes what belongs to this descriptor from *current on and moves *current past it.
    virtual bool ElementFromXml(const CXmlSerializationContext& context, CXmlGeneratedClass* owner,
                                CXmlElement* parent, CXmlElement** current, const char* parentNamespace,
                                XmlElementType parentType) = 0;
    // Called by the all-group walk after reading; seen tells that ElementFromXml gave true.
    virtual bool Validate(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner, bool seen,
                          bool parentIsElement) const = 0;
    // Writes the attributes of a pseudo child into the enclosing start tag; nothing here.
    virtual void PseudoChildAttributeToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                           CXmlWriter* writer) const;

    // Tests value against the facets; a descriptor built without facets fails with
    // COrvexException "Cannot CheckRestriction for type: " and the type name.
    void CheckRestriction(const OrvexVariant& value) const;

protected:
    // A descriptor of a child that is not of a simple type: name and namespaceUri name
    // the element (null counts as empty), propertyIndex is its property.
    CElementInfo(const char* name, const char* namespaceUri, int propertyIndex);
    // A descriptor of a child of a simple type: itemType, format and rule say how the
    // text is converted, restrictions holds the facets.
    CElementInfo(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                 const char* format, CWhitespaceUtils::WhitespaceRule rule,
                 const CPrimitiveRestrictions& restrictions);

    // The element's local name.
    std::string GetElementName() const { return m_elementName; }
    // The element's namespace; empty for none.
    std::string GetElementNamespace() const { return m_elementNamespace; }
    // The element's local name without a copy.
    const std::string& ElementNameRef() const { return m_elementName; }
    // The element's namespace without a copy.
    const std::string& ElementNamespaceRef() const { return m_elementNamespace; }
    // The index of the property in the owner's AccessProperty.
    int GetPropertyIndex() const { return m_propertyIndex; }
    // The value type of a simple-type child.
    ItemType GetItemType() const { return m_itemType; }
    // The format used to write the value; may be null.
    const char* GetFormat() const { return m_format; }
    // The whitespace rule applied to the text before it is converted.
    CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }
    // The facets of a simple-type child.
    const CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions; }
    // True when the descriptor was built with facets.
    bool GetHasRestrictions() const { return m_hasRestrictions; }

    // False for a null element; the local name must match, and the namespace too
    // unless the context ignores namespaces.
    bool IsThisElement(const CXmlSerializationContext& context, const CXmlElement* element) const;

    // Reads (read true) or stores value through the owner's AccessProperty at this
    // descriptor's property index.
    void AccessProperty(CXmlGeneratedClass* owner, bool read, OrvexVariant& value) const;
    // Reads the property into value from a const owner.
    void ReadProperty(const CXmlGeneratedClass* owner, OrvexVariant& value) const;

    // Reaches the walks of another object; gives the next unconsumed element.
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                    const CXmlSerializationContext& context, bool isOptional);
    // Lets object write its attributes into the start tag that writer has open.
    void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                             const CXmlSerializationContext& context) const;

    // The object in the property writes itself; false when there is none.
    bool ElementToXmlCls(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                         CXmlWriter* writer, bool isOptional) const;
    // The collection in the property writes one element per item; false when empty.
    bool ElementToXmlCol(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                         CXmlWriter* writer) const;
    // An invalid variant writes nothing and gives false; a value outside its facets
    // fails before anything is written.
    bool ElementToXmlPrim(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                          CXmlWriter* writer) const;
    // The same as ElementToXmlPrim.
    bool ElementToXmlPrimOpt(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                             CXmlWriter* writer) const;
    // An invalid variant writes nothing and gives false; no facet test.
    bool ElementToXmlEnum(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                          CXmlWriter* writer, EnumToStringFn toString) const;
    // The same as ElementToXmlEnum.
    bool ElementToXmlEnumOpt(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                             CXmlWriter* writer, EnumToStringFn toString) const;

    // Stores the text of element, parsed as the item type under the whitespace
    // rule, through the owner's AccessProperty.
    void ElementFromXmlPrim(CXmlGeneratedClass* owner, const CXmlElement* element) const;
    // Stores what fromString makes of the text of element (0 without fromString).
    void ElementFromXmlEnum(CXmlGeneratedClass* owner, const CXmlElement* element, EnumFromStringFn fromString) const;

    // The two forms of PseudoChildAttributeToXml of the class kinds: only a child
    // type of exactly 1 carries attributes up.
    void PseudoChildObjectAttributesToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer, XmlElementType childType) const;
    // The form for a property that holds a collection.
    void PseudoChildCollectionAttributesToXml(const CXmlSerializationContext& context,
                                              const CXmlGeneratedClass* owner, CXmlWriter* writer,
                                              XmlElementType childType) const;

    // The namespace a new untyped element gets for the xs:any constraint.
    static std::string GetAnyDefaultNamespace(const char* constraint, const char* defaultNamespace,
                                              const char* targetNamespace);

    // Declares that ElementFromXml gives false, touching nothing, whenever
    // IsThisElement is false for the position (a null one included). The all-group
    // walk then offers the descriptor only elements of its own name.
    void SetMatchesOnlyItsOwnElement() { m_matchesOnlyItsOwnElement = true; }

private:
    friend class OrvexXmlLib5::CXmlGeneratedClass;

    std::string m_elementName;
    std::string m_elementNamespace;
    int m_propertyIndex;
    CPrimitiveRestrictions m_restrictions;
    ItemType m_itemType;
    // Stored as given; generated code passes a literal.
    const char* m_format;
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;
    bool m_hasRestrictions;
    bool m_matchesOnlyItsOwnElement = false;
};

}  // namespace OrvexXmlLib5Data
