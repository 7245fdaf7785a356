// The note of note.xsd, written the way the code generator emits classes: an
// extension point (xs:any of other namespaces, any number) held as a CElementCol,
// and xs:anyAttribute held as a CAttributeCol, so that content from namespaces no
// class here knows survives a read and a write.
//
//   Note  @id (required)  @##other*   Title, Body, ##other*
#pragma once

#include <string>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5;

extern const char* const kNoteNamespace;

class CNote : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kNoteNamespace; }
    std::string GetNamespace() const override { return kNoteNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    explicit CNote(const char* elementName = "Note");
    static CSmartPtr<CNote> CreateInstance(const char* elementName = "Note");

    std::string GetId() const { return m_id; }
    void SetId(const std::string& value) { m_id = value; }
    // Attributes of other namespaces.
    CSmartPtr<CAttributeCol> GetAnyAttributes() const { return m_anyAttributes; }
    std::string GetTitle() const { return m_title; }
    void SetTitle(const std::string& value) { m_title = value; }
    std::string GetBody() const { return m_body; }
    void SetBody(const std::string& value) { m_body = value; }
    // Elements of other namespaces after Body, in document order.
    CSmartPtr<CElementCol> GetExtensions() const { return m_extensions; }

private:
    std::string m_id;
    CSmartPtr<CAttributeCol> m_anyAttributes;
    std::string m_title;
    std::string m_body;
    CSmartPtr<CElementCol> m_extensions;
};

}  // namespace OrvexExamples
