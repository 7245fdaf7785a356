// The base of every generated class. A generated class supplies three static
// metadata tables and one property access function; the walks here read and write
// the object by those tables.
#pragma once

#include "orvexxml/Export.h"

#include <string>

#include "orvexxml/data/OrvexVariant.h"
#include "orvexxml/frame/XmlObjectBase.h"
#include "orvexxml/metadata/XmlElementEnums.h"

namespace OrvexXmlLib5Data {
class CParentElementInfo;
class CElementInfo;
class CAttributeInfo;
}  // namespace OrvexXmlLib5Data

namespace OrvexXmlLib5 {

// The base of every class generated from a schema. The class describes itself in
// three static tables and reads and writes its properties through AccessProperty;
// the walks here turn the object into XML and back by those tables.
class ORVEXXML_API CXmlGeneratedClass : public CXmlObjectBase
{
public:
    CXmlGeneratedClass() = default;
    // Copies the element name; the copy starts with no references of its own.
    CXmlGeneratedClass(const CXmlGeneratedClass& other) = default;
    // Assigns the element name; the reference count stays with the object.
    CXmlGeneratedClass& operator=(const CXmlGeneratedClass& other) = default;
    ~CXmlGeneratedClass() override = default;

    // The interface to generated code. With read true, fills value from property
    // propertyIndex; with read false, stores value there as the property's setter would.
    virtual void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) = 0;
    // The class's own description; never null.
    virtual OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const = 0;
    // Null-terminated tables in schema order; never null, possibly just the terminator.
    virtual OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const = 0;
    // The attribute descriptors, null-terminated in the same way.
    virtual OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const = 0;
    // Brings the properties back to their starting state; afterwards every mandatory
    // class child and every collection must be in place.
    virtual void Init() = 0;

protected:
    // Failures inside the walks come out as one new exception per level, with the
    // caught one as inner: COrvexValidationException "Failed to process the element
    // [%s]", COrvexValidationException "Failed to convert the element [%s] to XML",
    // and COrvexException "Failed to convert attributes to XML".
    void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const override;
    // Writes the element: its start tag with the attributes, then the children in the
    // order the content model gives.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;

    // AccessProperty for reading, on a const object.
    void ReadProperty(int propertyIndex, OrvexVariant& value) const;
    // For AccessProperty reading a string member: value.SetString(member), except that
    // while the object is being written the variant may refer to member instead of
    // holding a copy. member must be the object's own and stay unchanged meanwhile.
    static void LendString(OrvexVariant& value, const std::string& member);

    // True when some element descriptor matches element.
    bool IsElementInList(const CXmlSerializationContext& context, CXmlElement* element) const;
    // True when a collection alternative of a choice may repeat zero times, so that
    // an empty choice is legal.
    bool DoesElementContainOptionalElementCollections() const;
    // Offers each attribute of element to the attribute descriptors, then lets each
    // descriptor validate. An attribute that none takes fails with
    // COrvexValidationException "Unexpected Attribute [%s] found." when
    // failIfAttributeUnknown is true and the context does not ignore unknown attributes.
    void ProcessAttributesFromXml(const CXmlSerializationContext& context, CXmlElement* element,
                                  bool failIfAttributeUnknown);

    // Destroys the class description, each descriptor and both tables, and clears
    // the three references; null ones are passed over.
    static void CleanMetaData(OrvexXmlLib5Data::CParentElementInfo*& info,
                              OrvexXmlLib5Data::CElementInfo**& elements,
                              OrvexXmlLib5Data::CAttributeInfo**& attributes);

private:
    friend class OrvexXmlLib5Data::CElementInfo;
    friend class OrvexXmlLib5Data::CAttributeInfo;

    int GetClassElementInfoCount() const;
    int GetClassAttributeInfoCount() const;
    CXmlElement* ProcessElementSeqFromXml(const CXmlSerializationContext& context, CXmlElement* parent,
                                          CXmlElement* current, XmlElementType type);
    CXmlElement* ProcessElementAllFromXml(const CXmlSerializationContext& context, CXmlElement* parent,
                                          CXmlElement* current, XmlElementType type);
    CXmlElement* ProcessElementChoiceFromXml(const CXmlSerializationContext& context, CXmlElement* parent,
                                             CXmlElement* current, XmlElementType type, bool isOptional);
    void ProcessElementSeqToXml(const CXmlSerializationContext& context, OrvexXmlLib5Data::CElementInfo** elements,
                                CXmlWriter* writer) const;
    void ProcessElementAllToXml(const CXmlSerializationContext& context, OrvexXmlLib5Data::CElementInfo** elements,
                                CXmlWriter* writer) const;
    void ProcessElementChoiceToXml(const CXmlSerializationContext& context, OrvexXmlLib5Data::CElementInfo** elements,
                                   CXmlWriter* writer, bool isOptional) const;
    void ProcessAttributesToXml(const CXmlSerializationContext& context, OrvexXmlLib5Data::CElementInfo** elements,
                                OrvexXmlLib5Data::CAttributeInfo** attributes, CXmlWriter* writer) const;

    void ToXmlBody(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const;
    CXmlElement* FromXmlBody(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional);
    void AttributesToXmlBody(CXmlWriter* writer, const CXmlSerializationContext& context) const;
};

}  // namespace OrvexXmlLib5
