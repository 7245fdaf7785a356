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
// The generated text functions of an enumeration.
typedef const char* (*EnumToStringFn)(int value);
typedef int (*EnumFromStringFn)(const char* text);

class ORVEXXML_API CElementInfo
{
public:
    CElementInfo(const CElementInfo& other) = default;
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
    CElementInfo(const char* name, const char* namespaceUri, int propertyIndex);
    CElementInfo(const char* name, const char* namespaceUri, int propertyIndex, ItemType itemType,
                 const char* format, CWhitespaceUtils::WhitespaceRule rule,
                 const CPrimitiveRestrictions& restrictions);

    std::string GetElementName() const { return m_elementName; }
    std::string GetElementNamespace() const { return m_elementNamespace; }
    int GetPropertyIndex() const { return m_propertyIndex; }
    ItemType GetItemType() const { return m_itemType; }
    const char* GetFormat() const { return m_format; }
    CWhitespaceUtils::WhitespaceRule GetWhitespaceRule() const { return m_whitespaceRule; }
    const CPrimitiveRestrictions& GetRestrictions() const { return m_restrictions; }
    bool GetHasRestrictions() const { return m_hasRestrictions; }

    // False for a null element; the local name must match, and the namespace too
    // unless the context ignores namespaces.
    bool IsThisElement(const CXmlSerializationContext& context, const CXmlElement* element) const;

    void AccessProperty(CXmlGeneratedClass* owner, bool read, OrvexVariant& value) const;
    void ReadProperty(const CXmlGeneratedClass* owner, OrvexVariant& value) const;

    // Reaches the walks of another object; gives the next unconsumed element.
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                    const CXmlSerializationContext& context, bool isOptional);
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
    bool ElementToXmlPrimOpt(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                             CXmlWriter* writer) const;
    // An invalid variant writes nothing and gives false; no facet test.
    bool ElementToXmlEnum(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                          CXmlWriter* writer, EnumToStringFn toString) const;
    bool ElementToXmlEnumOpt(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                             CXmlWriter* writer, EnumToStringFn toString) const;

    // The two forms of PseudoChildAttributeToXml of the class kinds: only a child
    // type of exactly 1 carries attributes up.
    void PseudoChildObjectAttributesToXml(const CXmlSerializationContext& context, const CXmlGeneratedClass* owner,
                                          CXmlWriter* writer, XmlElementType childType) const;
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
