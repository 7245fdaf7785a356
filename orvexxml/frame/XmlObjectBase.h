// The root of everything that is read from or written to XML: the element name,
// the reference count, and the entry points where a caller enters the library.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <string>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/fastinfoset/FInfoDecl.h"
#include "orvexxml/frame/CompressionType.h"
#include "orvexxml/frame/InstanceMonitor.h"
#include "orvexxml/frame/SmartPtr.h"
#include "orvexxml/frame/XmlSerializationContext.h"
#include "orvexxml/xml/XmlEnums.h"

// The library: the object base and entry points, the collections, the XML and Fast
// Infoset readers and writers, the value classes and the platform layer. The
// metadata descriptors of generated classes are in OrvexXmlLib5Data.
namespace OrvexXmlLib5 {

class CXmlDocument;
class CXmlElement;
class CXmlWriter;
class CXmlCollectionBase;
namespace Detail {
class CObjectAccess;
}

// The root of everything that is read from or written to XML: the element name, the
// reference count, and the entry points that read a document into the object and
// write the object as a document. Made on the heap and held by CSmartPtr.
class ORVEXXML_API CXmlObjectBase
{
public:
    // The events an object gets through OnEvent.
    enum MsgType
    {
        MsgType_CollectionChange = 0
    };

    CXmlObjectBase();
    // A copy takes over the element name and starts with no references of its own.
    CXmlObjectBase(const CXmlObjectBase& other);
    // Assignment takes over the element name; the count stays with the object.
    CXmlObjectBase& operator=(const CXmlObjectBase& other);
    virtual ~CXmlObjectBase();

    // The CXmlObjectBase part of the object; collections use it as the object's
    // identity. Each concrete class gives itself.
    virtual CXmlObjectBase* GetBase() = 0;
    // The const form of GetBase.
    const CXmlObjectBase* GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }

    // Parses UTF-8 text (or text whose declaration names an encoding the parser
    // knows) and reads the document element into this object. Empty input or bad
    // XML fails with COrvexException; a failure inside the walk of a generated
    // class comes as COrvexValidationException with its cause as inner chain.
    void FromXml(const char* xml, const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());
    // The same for zero-terminated UTF-16 text.
    void FromXml(const unsigned short* xml,
                 const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());
    // Reads a whole file: XML text, Fast Infoset, or the gzip or zlib stream of
    // either, told apart by the bytes. File failures name the file and errno; a
    // compressed file that inflates beyond the context's limit fails as well.
    void FromXmlFile(const char* fileName,
                     const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());
    // The same for bytes in memory; length 0 fails with "XML Stream is empty!".
    void FromXmlStream(unsigned char* const data, unsigned long length,
                       const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());
    // The same for the bytes of data; empty data fails with "XML Stream is empty!".
    void FromXmlStream(const CBinaryData& data,
                       const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());
    // Reads from an element of a tree that stays alive for the call; nothing is copied.
    void FromXmlElement(const CXmlElement* element,
                        CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext());

    // Writes this object as XML text in the local character encoding. With
    // includeDocHeader, the text starts with the declaration and an element left
    // open fails; an invalid eol fails with "Invalid EOL type.".
    std::string ToXml(bool includeDocHeader = true, bool formatted = true, EOLType eol = EOL_CRLF,
                      const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext()) const;

    // This object as XML text in UTF-8 (Encoding_UTF8) or UTF-16 little-endian
    // without byte order mark (the two UTF-16 values), then compressed. Any other
    // encoding fails with "Unknown Encoding, select UTF-8", and compression fails
    // when its output would be longer than the text.
    CBinaryData ToXmlStream(bool includeDocHeader = true, bool formatted = true, XmlEncoding encoding = Encoding_UTF8,
                            EOLType eol = EOL_CRLF,
                            const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext(),
                            CompressionType compression = Compression_None) const;
    // ToXmlStream written to a file, behind FF FE for the UTF-16 encodings (also in
    // front of compressed bytes). Compression_ZLIB fails with "ZLIB Compression only
    // available for To Stream methods." before anything is done. The file appears
    // complete or not at all: an existing one is replaced only once the new one is
    // whole. Write failures give "Failed to write data to the file [%s] error
    // [0x%08X]" and errno.
    void ToXmlFile(const char* fileName, bool includeDocHeader = true, bool formatted = true,
                   XmlEncoding encoding = Encoding_UTF8, EOLType eol = EOL_CRLF,
                   const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext(),
                   CompressionType compression = Compression_None) const;
    // This object as a Fast Infoset document behind the given declaration, then compressed.
    CBinaryData ToFastInfosetStream(FInfoDecl declaration = FInfoDecl_None,
                                    const CXmlSerializationContext& context =
                                        CXmlSerializationContext::GetDefaultContext(),
                                    CompressionType compression = Compression_None) const;
    // ToFastInfosetStream written to a file with no byte order mark; the rules of
    // ToXmlFile for Compression_ZLIB and for failures.
    void ToFastInfosetFile(const char* fileName, FInfoDecl declaration = FInfoDecl_None,
                           const CXmlSerializationContext& context = CXmlSerializationContext::GetDefaultContext(),
                           CompressionType compression = Compression_None) const;

    // Adds one reference and gives the new count.
    std::int32_t AddRef() { return ++m_refCount; }
    // Drops one reference and destroys the object when none is left; gives the new count.
    std::int32_t Release();

    // The namespace of the schema the class comes from; empty for none.
    virtual std::string GetTargetNamespace() const = 0;
    // The namespace of the element this object is written as.
    virtual std::string GetNamespace() const = 0;

protected:
    // Called when something the object listens to changes, e.g. a collection property of
    // a choice; source is the object that changed. Does nothing here.
    virtual void OnEvent(CXmlObjectBase* source, MsgType type, void* data);
    // Writes the object's attributes into the start tag that writer has open; nothing here.
    virtual void AttributesToXml_Int(CXmlWriter* writer, const CXmlSerializationContext& context) const;
    // Writes the object as an element. isRoot makes it the document element (with the
    // root attributes and declarations of the context); namespaceUri is the namespace it
    // is written in; with isOptional an object with nothing to write may write nothing.
    virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                           const CXmlSerializationContext& context, bool isOptional) const = 0;
    // Gives the next element not consumed by this object.
    virtual CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                     const CXmlSerializationContext& context, bool isOptional) = 0;

    // Reach the protected virtuals of another object.
    static void AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                    const CXmlSerializationContext& context);
    // Calls the ToXml_Int of object.
    static void ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot, const char* namespaceUri,
                          const CXmlSerializationContext& context, bool isOptional);
    // Calls the FromXml_Int of object, as a mandatory element.
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                    const CXmlSerializationContext& context);
    // The same for an object the caller has just made, whose constructor brought it
    // to its starting state: a generated class does not run Init a second time.
    static CXmlElement* FromXml_IntMade(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                        const CXmlSerializationContext& context);
    // True once after FromXml_IntMade has entered the object's read: the object is
    // as its constructor left it. Reading clears it.
    bool TakeJustMade()
    {
        const bool made = m_justMade;
        m_justMade = false;
        return made;
    }

    // A copy of the name of the element this object is written as.
    std::string GetElementName() const { return m_elementName; }
    // The element name without a copy.
    const std::string& ElementNameRef() const { return m_elementName; }
    // Sets the element name; null gives an empty name.
    void SetElementName(const char* name) { m_elementName = name ? name : ""; }
    // Sets the element name of another object; null gives an empty name.
    static void SetElementName(CXmlObjectBase* object, const char* name) { object->SetElementName(name); }

    // Tells listener, which must not be null, that collection has changed.
    static void FireOnCollectionChangeEvent(CXmlObjectBase* listener, CXmlCollectionBase* collection);

    // Fails with COrvexInvalidNamespaceException when candidate is not admitted by
    // the space-separated list allowed (with `##any`, `##other`, `##local`, `##targetNamespace`).
    void TestNamespace(const char* candidate, const char* allowed, const char* targetNamespace) const;
    // The test of TestNamespace without the exception.
    bool IsNamespaceValid(const char* candidate, const char* allowed, const char* targetNamespace) const;
    // Local name equal to name and, unless namespaces are ignored, namespace equal to namespaceUri.
    bool DoesElementNameMatch(const CXmlSerializationContext& context, const CXmlElement* element, const char* name,
                              const char* namespaceUri) const;

    // Checks for generated setters; the library itself calls none of them.
    // A null value fails with COrvexInvalidParamException "The Property [%s] is mandatory, it may node be NULL".
    static void Throw_IfPropertyIsNull(CXmlObjectBase* value, const char* propertyName);
    // A non-null value whose element name is not requiredName fails with COrvexInvalidParamException.
    static void Throw_IfElementNameDiffers(CXmlObjectBase* value, const char* requiredName);
    // selected names the filled alternative of a choice, empty when none is. Filling
    // a second one fails with COrvexInvalidStateException; null or 0 empties the own one.
    static void Choice_SelectElement(const char* propertyName, CXmlObjectBase* value, std::string& selected);
    // Marks the alternative propertyName as filled (valid) or empty (not valid). Filling it
    // while another one is selected fails with COrvexInvalidStateException.
    static void Choice_SetElementValid(bool valid, const char* propertyName, std::string& selected);
    // Follows the count of the collection alternative propertyName: above 0 it becomes the
    // selected one (COrvexInvalidStateException when another one is), at 0 it stops being so.
    static void Choice_CollectionChanged(const char* propertyName, std::int32_t count, std::string& selected);
    // Reads a collection alternative once: nothing happens when itemsRead is above 0;
    // when the collection took elements, current moves past them and the count is tested.
    static void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* parent, CXmlElement*& current,
                                       std::int32_t& itemsRead, const CXmlSerializationContext& context);

private:
    // The walk from the root of a document that has just been loaded.
    void ReadDocument(CXmlDocument& document, const CXmlSerializationContext& context);

    // The metadata descriptors reach the protected walks of any object through it.
    friend class Detail::CObjectAccess;

    std::string m_elementName;
    std::int32_t m_refCount;
    // Set by FromXml_IntMade for the read it starts; never copied.
    bool m_justMade = false;
};

}  // namespace OrvexXmlLib5
