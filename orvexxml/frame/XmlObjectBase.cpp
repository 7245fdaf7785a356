#include "orvexxml/frame/XmlObjectBase.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/fastinfoset/FastInfosetWriter.h"
#include "orvexxml/xml/XmlDocument.h"
#include "orvexxml/xml/XmlTextWriter.h"

#include <cstring>

namespace OrvexXmlLib5 {

CXmlObjectBase::CXmlObjectBase() : m_refCount(0) {}

CXmlObjectBase::CXmlObjectBase(const CXmlObjectBase& other) : m_elementName(other.m_elementName), m_refCount(0) {}

CXmlObjectBase& CXmlObjectBase::operator=(const CXmlObjectBase& other)
{
    m_elementName = other.m_elementName;
    return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

std::int32_t CXmlObjectBase::Release()
{
    std::int32_t count = --m_refCount;
    if (count == 0) delete this;
    return count;
}

void CXmlObjectBase::OnEvent(CXmlObjectBase*, MsgType, void*) {}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, const CXmlSerializationContext&) const {}

void CXmlObjectBase::AttributesToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer,
                                         const CXmlSerializationContext& context)
{
    object->AttributesToXml_Int(writer, context);
}

void CXmlObjectBase::ToXml_Int(const CXmlObjectBase* object, CXmlWriter* writer, bool isRoot,
                               const char* namespaceUri, const CXmlSerializationContext& context, bool isOptional)
{
    object->ToXml_Int(writer, isRoot, namespaceUri, context, isOptional);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                         const CXmlSerializationContext& context)
{
    return object->FromXml_Int(element, firstChild, context, false);
}

CXmlElement* CXmlObjectBase::FromXml_IntMade(CXmlObjectBase* object, CXmlElement* element, CXmlElement* firstChild,
                                             const CXmlSerializationContext& context)
{
    // A class that does not take the mark leaves it for no later read.
    struct CClearMark
    {
        CXmlObjectBase* object;
        ~CClearMark() { object->m_justMade = false; }
    } clear{object};
    object->m_justMade = true;
    return object->FromXml_Int(element, firstChild, context, false);
}

void CXmlObjectBase::FromXml(const char* xml, const CXmlSerializationContext& context)
{
    CXmlDocument document(context);
    document.LoadXml(xml);
    CXmlElement* root = document.GetDocumentElement();
    FromXml_Int(root, root->GetFirstElement(), context, false);
}

void CXmlObjectBase::FromXml(const unsigned short* xml, const CXmlSerializationContext& context)
{
    CXmlDocument document(context);
    document.LoadXml(xml);
    CXmlElement* root = document.GetDocumentElement();
    FromXml_Int(root, root->GetFirstElement(), context, false);
}

void CXmlObjectBase::ReadDocument(CXmlDocument& document, const CXmlSerializationContext& context)
{
    CXmlElement* root = document.GetDocumentElement();
    FromXml_Int(root, root->GetFirstElement(), context, false);
}

void CXmlObjectBase::FromXmlFile(const char* fileName, const CXmlSerializationContext& context)
{
    CXmlDocument document(context);
    document.Load(fileName);
    ReadDocument(document, context);
}

void CXmlObjectBase::FromXmlStream(unsigned char* const data, unsigned long length,
                                   const CXmlSerializationContext& context)
{
    CXmlDocument document(context);
    document.LoadXmlStream(data, length);
    ReadDocument(document, context);
}

void CXmlObjectBase::FromXmlStream(const CBinaryData& data, const CXmlSerializationContext& context)
{
    FromXmlStream(data.GetData(), data.GetLength(), context);
}

void CXmlObjectBase::FromXmlElement(const CXmlElement* element, CXmlSerializationContext& context)
{
    // No tree to read from is the same failure as a document without an element.
    if (!element) throw COrvexException("Invalid or empty XML document");
    // The walk takes mutable pointers to move along the tree; it never changes it.
    CXmlElement* start = const_cast<CXmlElement*>(element);
    FromXml_Int(start, start->GetFirstElement(), context, false);
}

bool CXmlObjectBase::DoesElementNameMatch(const CXmlSerializationContext& context, const CXmlElement* element,
                                          const char* name, const char* namespaceUri) const
{
    if (!element) return false;
    if (element->GetLocalName() != (name ? name : "")) return false;
    return context.GetIgnoreNamespaces() || element->GetNamespaceURI() == (namespaceUri ? namespaceUri : "");
}

bool CXmlObjectBase::IsNamespaceValid(const char* candidate, const char* allowed, const char* targetNamespace) const
{
    const std::string cand = candidate ? candidate : "";
    const std::string target = targetNamespace ? targetNamespace : "";
    const std::string list = allowed ? allowed : "";
    std::size_t start = 0;
    for (;;) {
        std::size_t end = list.find(' ', start);
        const std::string token = list.substr(start, end == std::string::npos ? std::string::npos : end - start);
        bool admits;
        if (token == "##any")
            admits = true;
        else if (token == "##other")
            admits = cand != target;
        else if (token == "##local")
            admits = cand.empty();
        else if (token == "##targetNamespace")
            admits = cand == target;
        else
            admits = cand == token || cand.empty();
        if (admits) return true;
        if (end == std::string::npos) return false;
        start = end + 1;
    }
}

void CXmlObjectBase::TestNamespace(const char* candidate, const char* allowed, const char* targetNamespace) const
{
    if (!IsNamespaceValid(candidate, allowed, targetNamespace))
        throw COrvexInvalidNamespaceException(FormatString(
            "Invalid namespace [%s]. The namespace must be one of [%s] where the target namespace is [%s]",
            candidate ? candidate : "", allowed ? allowed : "", targetNamespace ? targetNamespace : ""));
}

std::string CXmlObjectBase::ToXml(bool includeDocHeader, bool formatted, EOLType eol,
                                  const CXmlSerializationContext& context) const
{
    // On the stack, so that an exception from the walk releases every open element.
    CXmlTextWriter writer;
    writer.SetFormatted(formatted);
    writer.SetEOLType(eol);
    if (includeDocHeader) writer.WriteStartDocument(Encoding_Unspecified);
    const std::string targetNamespace = GetTargetNamespace();
    ToXml_Int(&writer, true, targetNamespace.c_str(), context, false);
    if (includeDocHeader) writer.WriteEndDocument();
    return writer.GetString();
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeDocHeader, bool formatted, XmlEncoding encoding, EOLType eol,
                                        const CXmlSerializationContext& context, CompressionType compression) const
{
    CXmlTextWriter writer;
    writer.SetFormatted(formatted);
    writer.SetEOLType(eol);
    if (includeDocHeader) writer.WriteStartDocument(encoding);
    const std::string targetNamespace = GetTargetNamespace();
    ToXml_Int(&writer, true, targetNamespace.c_str(), context, false);
    if (includeDocHeader) writer.WriteEndDocument();
    CBinaryData bytes = writer.GetBytes(encoding);
    return bytes.CompressData(compression);
}

void CXmlObjectBase::ToXmlFile(const char* fileName, bool includeDocHeader, bool formatted, XmlEncoding encoding,
                               EOLType eol, const CXmlSerializationContext& context,
                               CompressionType compression) const
{
    if (compression == Compression_ZLIB)
        throw COrvexException("ZLIB Compression only available for To Stream methods.");
    ToXmlStream(includeDocHeader, formatted, encoding, eol, context, compression).ToFile(fileName, encoding);
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration, const CXmlSerializationContext& context,
                                                CompressionType compression) const
{
    // On the stack, so that an exception from the walk releases every open element.
    CFastInfosetWriter writer;
    writer.WriteStartDocument(declaration);
    const std::string targetNamespace = GetTargetNamespace();
    ToXml_Int(&writer, true, targetNamespace.c_str(), context, false);
    writer.WriteEndDocument();
    CBinaryData output = writer.GetOutput();
    return output.CompressData(compression);
}

void CXmlObjectBase::ToFastInfosetFile(const char* fileName, FInfoDecl declaration,
                                       const CXmlSerializationContext& context, CompressionType compression) const
{
    if (compression == Compression_ZLIB)
        throw COrvexException("ZLIB Compression only available for To Stream methods.");
    ToFastInfosetStream(declaration, context, compression).ToFile(fileName, Encoding_Unspecified);
}

}  // namespace OrvexXmlLib5
