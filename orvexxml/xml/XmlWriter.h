// The abstract sink of every write: the stack of open elements, the namespace
// scopes with their prefixes, and the slots that the concrete writers fill.
#pragma once

#include "orvexxml/Export.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "orvexxml/frame/InstanceMonitor.h"

namespace OrvexXmlLib5 {

namespace Detail {
class CWriterAccess;
}

// The base of the XML text writer and the Fast Infoset writer: the stack of open
// elements, the namespace scopes with their prefixes, and the write operations
// that each concrete writer turns into its own output.
class ORVEXXML_API CXmlWriter : public CInstanceMonitor
{
public:
    // Namespace URI to prefix.
    typedef std::map<std::string, std::string> NamespaceMap;

    // One open element. A context shares the namespace scope of its parent until
    // something in it changes; then it takes a private copy that lives and dies
    // with it, so that a declaration is seen by the element and its descendants only.
    class CXmlWriterContext : public CInstanceMonitor
    {
    public:
        // A child element: depth one below parent, sharing the parent's scope.
        CXmlWriterContext(const std::string& localName, const std::string& namespaceUri, CXmlWriterContext* parent);
        // The root element: depth 0, with its own copy of the namespaces.
        CXmlWriterContext(const std::string& localName, const std::string& namespaceUri,
                          const std::string& defaultNamespace, const NamespaceMap& namespaces,
                          CXmlWriterContext* parent);
        // Deletes the parent chain as well; detach the parent first to keep it.
        virtual ~CXmlWriterContext();

        CXmlWriterContext(const CXmlWriterContext&) = delete;
        CXmlWriterContext& operator=(const CXmlWriterContext&) = delete;

        // The default namespace of the nearest context with its own scope.
        const std::string& GetDefaultNamespace() const;
        // The map of the nearest context with its own scope.
        NamespaceMap& GetNamespaceMap();
        // The const form of GetNamespaceMap.
        const NamespaceMap& GetNamespaceMap() const;
        // The prefix of namespaceUri; a missing entry is created empty, so look
        // it up in GetNamespaceMap() first when it may be missing.
        std::string& GetPrefix(const std::string& namespaceUri);
        // Both make this element's scope private before changing it.
        void AddNamespace(const std::string& namespaceUri, const std::string& prefix);
        // Sets the default namespace of this element and its descendants.
        void SetDefaultNamespace(const std::string& namespaceUri);

        // Gives up ownership of the parent and gives it back.
        CXmlWriterContext* DetachParent();
        // True while this element shares its parent's namespace scope.
        bool InheritsScope() const { return m_inheritsScope; }
        // Makes a closed child context, detached from its parent, a fresh child of parent.
        void Reuse(const std::string& localName, const std::string& namespaceUri, CXmlWriterContext* parent);

        // Child elements started inside this one so far.
        std::int32_t m_childCount;
        // True while the start tag can still take attributes.
        bool m_startTagOpen;
        // Nesting depth; 0 for the root.
        std::int32_t m_depth;
        // The element's namespace URI.
        std::string m_namespaceUri;
        // The element's local name.
        std::string m_localName;
        // The enclosing element; null for the root. Owned by this context.
        CXmlWriterContext* m_parent;
        // True once an attribute has been written into the start tag.
        bool m_hasAttributes;
        // What a text writer wrote before the local name in the start tag ("p:",
        // "xml:" or nothing), for the end tag to repeat.
        std::string m_tagPrefix;

    private:
        void MakeScopePrivate();
        const CXmlWriterContext* Scope() const;

        std::string m_defaultNamespace;
        NamespaceMap* m_namespaces;
        bool m_inheritsScope;
        bool m_ownsMap;
    };

    // className names the concrete writer.
    explicit CXmlWriter(const char* className);
    // Deletes every open context.
    virtual ~CXmlWriter();

    // A writer owns its element stack; copies would share it.
    CXmlWriter(const CXmlWriter&) = delete;
    CXmlWriter& operator=(const CXmlWriter&) = delete;

    // With an open element: declared on the next element started, whose scope it
    // joins; otherwise the default namespace declared on the root.
    virtual void SetDefaultNamespace(const std::string& namespaceUri);
    // With an open element: declared on the next element started, whose scope it
    // joins; otherwise added to the namespaces declared on the root. Writes nothing itself.
    virtual void AddNamespace(const std::string& alias, const std::string& namespaceUri);
    // Fails with "An Element has not been closed." while an element is open.
    virtual void WriteEndDocument();
    // Writes a comment with text; a writer whose output has no comments writes nothing.
    virtual void WriteComment(const std::string& text) = 0;
    // Writes text, a whole processing instruction, as it is; a writer that has no text
    // form only closes an open start tag.
    virtual void WriteProcessingInstruction(const std::string& text) = 0;
    // Writes text into the root start tag as it is; a writer that has no text form
    // writes nothing.
    virtual void WriteInlineSchema(const std::string& text) = 0;
    // Opens an element, inside the current one or as the root; it becomes the current one.
    virtual void WriteStartElement(const std::string& localName, const std::string& namespaceUri) = 0;
    // Writes character data into the current element, escaped as the output needs.
    virtual void WriteText(const std::string& text) = 0;
    // Closes the current element; its parent becomes current.
    virtual void WriteEndElement() = 0;
    // Fails with "Attributes must be added before elements" once the start tag is closed.
    virtual void WriteAttribute(const std::string& localName, const std::string& namespaceUri,
                                const std::string& value) = 0;
    // The same failure as WriteAttribute.
    virtual void WriteXsiType(const std::string& namespaceUri, const std::string& typeName) = 0;

    // Number of open elements.
    std::int32_t GetOpenElementCount() const;

    // The namespace of xml:lang and xml:space. Its prefix xml is bound by definition:
    // writers use it as it is and never declare it, since binding that namespace to
    // any other prefix makes a document no namespace-aware parser accepts.
    static constexpr char XmlNamespace[] = "http://www.w3.org/XML/1998/namespace";
    // The prefix that XmlNamespace always has.
    static constexpr char XmlPrefix[] = "xml";
    // True for XmlNamespace.
    static bool IsXmlNamespace(const std::string& namespaceUri)
    {
        return namespaceUri.size() == sizeof XmlNamespace - 1 && namespaceUri == XmlNamespace;
    }

protected:
    // A whole element without attributes or children: the same as WriteStartElement,
    // WriteText and WriteEndElement one after the other, which is what this one does.
    // A writer may write it in one step where the output is certain to be the same.
    virtual void WriteSimpleElement(const std::string& localName, const std::string& namespaceUri,
                                    const std::string& text);

    // 'A' + number / 26, then 'A' + number % 26: AA, AB, ..., ZZ. Numbers from 676
    // on take more letters, so that every number still gives its own prefix.
    static std::string NsIntToString(int number);
    // The first of AA, AB, ... that is no prefix in namespaces.
    static std::string GetUniquePrefix(const NamespaceMap& namespaces);

    // A new context for an element that starts now: a child of the current context,
    // or the root with the writer's default namespace and map. It is not made current.
    CXmlWriterContext* NewContext(const std::string& localName, const std::string& namespaceUri);
    // Makes context current; it must be a child of the current context or the root.
    void PushContext(CXmlWriterContext* context) { m_currentContext = context; }
    // Replaces the current context with its parent and deletes it (or keeps it for
    // the next NewContext).
    void PopContext();
    // Moves the declarations asked for while an element was open into the scope of
    // context, the element starting now. Returns true when there were any; the
    // concrete writer then declares defaultNamespace (when hasDefault) and namespaces.
    bool TakePendingDeclarations(CXmlWriterContext* context, bool& hasDefault, std::string& defaultNamespace,
                                 NamespaceMap& namespaces);

    // The default namespace declared on the root element.
    std::string m_defaultNamespace;
    // The open element being written; null before the root and after it ends.
    CXmlWriterContext* m_currentContext;
    // The namespaces declared on the root element, URI to prefix.
    NamespaceMap m_namespaces;
    // Declarations asked for while an element was open. An element's start tag may
    // already be written, so they wait for the next element started.
    NamespaceMap m_pendingNamespaces;
    // The default namespace asked for while an element was open.
    std::string m_pendingDefaultNamespace;
    // True when m_pendingDefaultNamespace holds a declaration.
    bool m_hasPendingDefault = false;
    // Closed child contexts, kept so that an element costs no allocation.
    std::vector<CXmlWriterContext*> m_spareContexts;

private:
    friend class Detail::CWriterAccess;
};

}  // namespace OrvexXmlLib5
