#include "SchemaReader.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexGen {

using namespace OrvexXmlLib5;
namespace fs = std::filesystem;

const char* const kXsdNamespace = "http://www.w3.org/2001/XMLSchema";
const char* const kGenNamespace = "urn:orvex:gen";
namespace {
const char* const kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

bool IsXsd(const CXmlElement* e, const char* localName)
{
    return e->GetNamespaceURI() == kXsdNamespace && e->GetLocalName() == localName;
}

bool HasAttribute(const CXmlElement* e, const char* name)
{
    for (const CXmlAttribute* a : e->GetAttributes())
        if (a->GetLocalName() == name && a->GetNamespaceURI().empty()) return true;
    return false;
}

const std::string& Attr(const CXmlElement* e, const char* name)
{
    return e->GetAttribute(name, "");
}

// Whitespace around values is allowed in attributes of the schema's own types.
std::string Trimmed(const std::string& text)
{
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return std::string();
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

bool FileExists(const std::string& path)
{
    struct stat info;
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}
}  // namespace

std::string CLocation::ToString() const
{
    return file + ":" + std::to_string(line);
}

void Fail(const CLocation& where, const std::string& what)
{
    throw CSchemaException(where.ToString() + ": " + what);
}

std::string CQName::ToString() const
{
    return ns.empty() ? name : "{" + ns + "}" + name;
}

CSchemaReader::CSchemaReader(CSchemaSet& set, std::vector<std::string> searchPath)
    : m_set(set), m_searchPath(std::move(searchPath))
{
}

void CSchemaReader::ReadRoot(const std::string& path, const std::string& outputName)
{
    CLocation commandLine{"orvex-gen", 0};
    CSchemaDocument* doc = Read(path, std::string(), commandLine);
    doc->generate = true;
    doc->outputName = outputName;
}

std::string CSchemaReader::Locate(const std::string& location, const std::string& baseDir,
                                  const CLocation& from) const
{
    if (location.find("://") != std::string::npos) {
        // No network: a remote location is looked up by its last segment on the search path.
        const std::string name = location.substr(location.find_last_of('/') + 1);
        for (const std::string& dir : m_searchPath)
            if (FileExists(dir + "/" + name)) return dir + "/" + name;
        Fail(from, "schema [" + location + "] is remote and not found on the search path");
    }
    if (fs::path(location).is_absolute() && FileExists(location)) return location;
    if (FileExists(baseDir + "/" + location)) return baseDir + "/" + location;
    for (const std::string& dir : m_searchPath) {
        if (FileExists(dir + "/" + location)) return dir + "/" + location;
        const std::string name = fs::path(location).filename().string();
        if (FileExists(dir + "/" + name)) return dir + "/" + name;
    }
    Fail(from, "schema [" + location + "] not found");
}

CSchemaDocument* CSchemaReader::Read(const std::string& path, const std::string& chameleonNamespace,
                                     const CLocation& from)
{
    std::error_code error;
    const std::string canonical = fs::weakly_canonical(fs::absolute(path), error).string();
    for (auto& known : m_set.documents)
        if (known->path == canonical) return known.get();
    if (!FileExists(canonical)) {
        if (from.line == 0) throw CSchemaException("schema file [" + path + "] not found");
        Fail(from, "schema file [" + path + "] not found");
    }

    CXmlDocument xml;
    try {
        xml.Load(canonical.c_str());
    } catch (const COrvexException& e) {
        Fail(CLocation{fs::path(path).filename().string(), 0}, e.what());
    }
    const CXmlElement* root = xml.GetDocumentElement();
    auto owned = std::make_unique<CSchemaDocument>();
    CSchemaDocument* doc = owned.get();
    doc->path = canonical;
    doc->displayName = fs::path(path).filename().string();
    m_set.documents.push_back(std::move(owned));

    // Save the state of the including file: reading nests.
    CSchemaDocument* const savedDoc = m_doc;
    const CXmlDocument* const savedXml = m_xml;
    const std::string savedTns = m_tns;
    const bool savedChameleon = m_chameleon;
    m_doc = doc;
    m_xml = &xml;
    if (!IsXsd(root, "schema")) Fail(Where(root), "the document element is not xs:schema");
    doc->targetNamespace = Attr(root, "targetNamespace");
    m_chameleon = doc->targetNamespace.empty() && !chameleonNamespace.empty();
    if (m_chameleon) doc->targetNamespace = chameleonNamespace;
    m_tns = doc->targetNamespace;
    doc->elementQualified = Trimmed(Attr(root, "elementFormDefault")) == "qualified";
    doc->attributeQualified = Trimmed(Attr(root, "attributeFormDefault")) == "qualified";

    const std::string baseDir = fs::path(canonical).parent_path().string();
    for (const CXmlElement* e = root->GetFirstElement(); e; e = e->GetNextSiblingElement()) {
        if (IsXsd(e, "include") || IsXsd(e, "import")) {
            const std::string location = Trimmed(Attr(e, "schemaLocation"));
            if (location.empty()) {
                if (IsXsd(e, "include")) Fail(Where(e), "xs:include without schemaLocation");
                continue;  // the namespace must come from another file named on the command line
            }
            const std::string found = Locate(location, baseDir, Where(e));
            const CLocation at = Where(e);
            CSchemaDocument* referenced = Read(found, IsXsd(e, "include") ? m_tns : std::string(), at);
            if (IsXsd(e, "import") && referenced->targetNamespace != Attr(e, "namespace"))
                Fail(at, "xs:import of namespace [" + Attr(e, "namespace") + "] reads a schema of namespace [" +
                             referenced->targetNamespace + "]");
            doc->references.push_back(referenced);
        } else if (IsXsd(e, "redefine")) {
            Unsupported(e, "xs:redefine");
        } else {
            ReadTop(*doc, e);
        }
    }

    m_doc = savedDoc;
    m_xml = savedXml;
    m_tns = savedTns;
    m_chameleon = savedChameleon;
    return doc;
}

CLocation CSchemaReader::Where(const CXmlElement* e) const
{
    return CLocation{m_doc->displayName, static_cast<unsigned long>(e->GetLocation().line)};
}

void CSchemaReader::Unsupported(const CXmlElement* e, const std::string& construct) const
{
    Fail(Where(e), construct + " is not supported");
}

CQName CSchemaReader::ResolveQName(const CXmlElement* e, const std::string& text) const
{
    const std::string value = Trimmed(text);
    const auto colon = value.find(':');
    CQName result;
    if (colon == std::string::npos) {
        result.name = value;
        result.ns = m_xml->LookupNamespaceFromAlias("");
    } else {
        const std::string prefix = value.substr(0, colon);
        result.name = value.substr(colon + 1);
        if (prefix == "xml")
            result.ns = kXmlNamespace;
        else {
            result.ns = m_xml->LookupNamespaceFromAlias(prefix.c_str());
            if (result.ns.empty()) Fail(Where(e), "prefix [" + prefix + "] of [" + value + "] is not declared");
        }
    }
    // A file without a target namespace included into one takes that namespace,
    // its references included.
    if (m_chameleon && result.ns.empty()) result.ns = m_tns;
    return result;
}

void CSchemaReader::ReadTop(CSchemaDocument& doc, const CXmlElement* e)
{
    if (e->GetNamespaceURI() != kXsdNamespace) return;
    const std::string& kind = e->GetLocalName();
    const CQName name{m_tns, Trimmed(Attr(e, "name"))};
    if (kind == "annotation" || kind == "notation") return;
    auto duplicate = [&](bool exists) {
        if (exists) Fail(Where(e), "xs:" + kind + " [" + name.ToString() + "] is declared twice");
    };
    if (kind == "element") {
        duplicate(m_set.elements.count(name) != 0);
        auto decl = ReadElement(e, true);
        doc.elements.push_back(decl.get());
        m_set.elements[name] = std::move(decl);
    } else if (kind == "complexType") {
        duplicate(m_set.complexTypes.count(name) != 0 || m_set.simpleTypes.count(name) != 0);
        auto type = ReadComplexType(e);
        doc.complexTypes.push_back(type.get());
        m_set.complexTypes[name] = std::move(type);
    } else if (kind == "simpleType") {
        duplicate(m_set.complexTypes.count(name) != 0 || m_set.simpleTypes.count(name) != 0);
        auto type = ReadSimpleType(e);
        doc.simpleTypes.push_back(type.get());
        m_set.simpleTypes[name] = std::move(type);
    } else if (kind == "attribute") {
        duplicate(m_set.attributes.count(name) != 0);
        m_set.attributes[name] = ReadAttribute(e, true);
    } else if (kind == "group") {
        duplicate(m_set.groups.count(name) != 0);
        auto group = std::make_unique<CGroupDef>();
        group->where = Where(e);
        group->name = name;
        for (const CXmlElement* c = e->GetFirstElement(); c; c = c->GetNextSiblingElement())
            if (IsXsd(c, "sequence") || IsXsd(c, "choice") || IsXsd(c, "all")) group->particle = ReadParticle(c);
        if (!group->particle) Fail(Where(e), "xs:group [" + name.name + "] has no content model");
        m_set.groups[name] = std::move(group);
    } else if (kind == "attributeGroup") {
        duplicate(m_set.attributeGroups.count(name) != 0);
        auto group = std::make_unique<CAttributeGroupDef>();
        group->where = Where(e);
        group->name = name;
        ReadAttributeItems(e->GetFirstElement(), group->attributes, group->anyAttribute);
        m_set.attributeGroups[name] = std::move(group);
    } else {
        Unsupported(e, "xs:" + kind);
    }
}

template <typename Decl>
void CSchemaReader::ReadDeclaration(const CXmlElement* e, bool qualified, const char* what, Decl& decl)
{
    decl.where = Where(e);
    if (HasAttribute(e, "ref")) {
        decl.ref = ResolveQName(e, Attr(e, "ref"));
    } else {
        decl.name = Trimmed(Attr(e, "name"));
        if (decl.name.empty()) Fail(decl.where, std::string(what) + " without name or ref");
        if (HasAttribute(e, "form")) qualified = Trimmed(Attr(e, "form")) == "qualified";
        if (qualified) decl.ns = m_tns;
    }
    if (HasAttribute(e, "type")) decl.type = ResolveQName(e, Attr(e, "type"));
    if (HasAttribute(e, "default")) {
        decl.hasDefault = true;
        decl.defaultValue = Attr(e, "default");
    }
    if (HasAttribute(e, "fixed")) {
        decl.hasFixed = true;
        decl.fixedValue = Attr(e, "fixed");
    }
}

std::unique_ptr<CElementDecl> CSchemaReader::ReadElement(const CXmlElement* e, bool global)
{
    auto decl = std::make_unique<CElementDecl>();
    ReadDeclaration(e, global || m_doc->elementQualified, "xs:element", *decl);
    decl->global = global;
    decl->schema = m_doc;
    decl->isAbstract = Trimmed(Attr(e, "abstract")) == "true";
    decl->propertyName = Trimmed(e->GetAttribute("property", kGenNamespace));
    decl->format = Trimmed(e->GetAttribute("format", kGenNamespace));
    if (HasAttribute(e, "substitutionGroup"))
        decl->substitutionGroup = ResolveQName(e, Attr(e, "substitutionGroup"));
    for (const CXmlElement* c = e->GetFirstElement(); c; c = c->GetNextSiblingElement()) {
        if (IsXsd(c, "complexType"))
            decl->inlineComplex = ReadComplexType(c);
        else if (IsXsd(c, "simpleType"))
            decl->inlineSimple = ReadSimpleType(c);
    }
    return decl;
}

void CSchemaReader::ReadWildcard(const CXmlElement* e, CWildcard& wildcard)
{
    wildcard.where = Where(e);
    if (HasAttribute(e, "namespace")) wildcard.namespaces = Trimmed(Attr(e, "namespace"));
    wildcard.targetNamespace = m_tns;
}

std::unique_ptr<CParticle> CSchemaReader::ReadParticle(const CXmlElement* e)
{
    auto particle = std::make_unique<CParticle>();
    particle->where = Where(e);
    if (HasAttribute(e, "minOccurs")) particle->minOccurs = std::atoi(Trimmed(Attr(e, "minOccurs")).c_str());
    if (HasAttribute(e, "maxOccurs")) {
        const std::string max = Trimmed(Attr(e, "maxOccurs"));
        particle->maxOccurs = max == "unbounded" ? -1 : std::atoi(max.c_str());
    }
    const std::string& kind = e->GetLocalName();
    if (kind == "element") {
        particle->kind = CParticle::Element;
        particle->element = ReadElement(e, false);
        return particle;
    }
    if (kind == "any") {
        particle->kind = CParticle::Any;
        ReadWildcard(e, particle->wildcard);
        return particle;
    }
    if (kind == "group") {
        particle->kind = CParticle::GroupRef;
        particle->ref = ResolveQName(e, Attr(e, "ref"));
        return particle;
    }
    if (kind == "sequence")
        particle->kind = CParticle::Sequence;
    else if (kind == "choice")
        particle->kind = CParticle::Choice;
    else if (kind == "all")
        particle->kind = CParticle::All;
    else
        Unsupported(e, "xs:" + kind + " as a particle");
    for (const CXmlElement* c = e->GetFirstElement(); c; c = c->GetNextSiblingElement()) {
        if (c->GetNamespaceURI() != kXsdNamespace || c->GetLocalName() == "annotation") continue;
        particle->children.push_back(ReadParticle(c));
    }
    return particle;
}

std::unique_ptr<CAttributeDecl> CSchemaReader::ReadAttribute(const CXmlElement* e, bool global)
{
    auto decl = std::make_unique<CAttributeDecl>();
    ReadDeclaration(e, global || m_doc->attributeQualified, "xs:attribute", *decl);
    const std::string use = Trimmed(Attr(e, "use"));
    decl->required = use == "required";
    decl->prohibited = use == "prohibited";
    for (const CXmlElement* c = e->GetFirstElement(); c; c = c->GetNextSiblingElement())
        if (IsXsd(c, "simpleType")) decl->inlineType = ReadSimpleType(c);
    return decl;
}

void CSchemaReader::ReadAttributeItems(const CXmlElement* first, std::vector<CAttributeItem>& items,
                                       std::unique_ptr<CWildcard>& anyAttribute)
{
    for (const CXmlElement* c = first; c; c = c->GetNextSiblingElement()) {
        if (IsXsd(c, "attribute")) {
            CAttributeItem item;
            item.where = Where(c);
            item.decl = ReadAttribute(c, false);
            items.push_back(std::move(item));
        } else if (IsXsd(c, "attributeGroup")) {
            CAttributeItem item;
            item.where = Where(c);
            item.groupRef = ResolveQName(c, Attr(c, "ref"));
            items.push_back(std::move(item));
        } else if (IsXsd(c, "anyAttribute")) {
            anyAttribute = std::make_unique<CWildcard>();
            ReadWildcard(c, *anyAttribute);
        }
    }
}

void CSchemaReader::ReadFacets(const CXmlElement* restriction, CFacets& facets)
{
    for (const CXmlElement* f = restriction->GetFirstElement(); f; f = f->GetNextSiblingElement()) {
        if (f->GetNamespaceURI() != kXsdNamespace) continue;
        const std::string& kind = f->GetLocalName();
        const std::string& value = Attr(f, "value");
        if (kind == "pattern")
            facets.patterns.push_back(value);
        else if (kind == "enumeration")
            facets.enumerations.push_back(value);
        else if (kind == "minLength")
            facets.minLength = Trimmed(value);
        else if (kind == "maxLength")
            facets.maxLength = Trimmed(value);
        else if (kind == "length")
            facets.length = Trimmed(value);
        else if (kind == "minInclusive")
            facets.minInclusive = Trimmed(value);
        else if (kind == "maxInclusive")
            facets.maxInclusive = Trimmed(value);
        else if (kind == "minExclusive")
            facets.minExclusive = Trimmed(value);
        else if (kind == "maxExclusive")
            facets.maxExclusive = Trimmed(value);
        else if (kind == "whiteSpace")
            facets.whiteSpace = Trimmed(value);
        // totalDigits and fractionDigits are not checked by the library.
    }
}

std::unique_ptr<CSimpleType> CSchemaReader::ReadSimpleType(const CXmlElement* e)
{
    auto type = std::make_unique<CSimpleType>();
    type->where = Where(e);
    type->schema = m_doc;
    if (HasAttribute(e, "name")) type->name = CQName{m_tns, Trimmed(Attr(e, "name"))};
    for (const CXmlElement* c = e->GetFirstElement(); c; c = c->GetNextSiblingElement()) {
        if (IsXsd(c, "restriction")) {
            type->variety = CSimpleType::Restriction;
            if (HasAttribute(c, "base")) type->base = ResolveQName(c, Attr(c, "base"));
            for (const CXmlElement* b = c->GetFirstElement(); b; b = b->GetNextSiblingElement())
                if (IsXsd(b, "simpleType")) type->inlineBase = ReadSimpleType(b);
            ReadFacets(c, type->facets);
        } else if (IsXsd(c, "list")) {
            type->variety = CSimpleType::List;
        } else if (IsXsd(c, "union")) {
            type->variety = CSimpleType::Union;
        }
    }
    return type;
}

std::unique_ptr<CComplexType> CSchemaReader::ReadComplexType(const CXmlElement* e)
{
    auto type = std::make_unique<CComplexType>();
    type->where = Where(e);
    type->schema = m_doc;
    if (HasAttribute(e, "name")) type->name = CQName{m_tns, Trimmed(Attr(e, "name"))};
    type->isAbstract = Trimmed(Attr(e, "abstract")) == "true";
    type->mixed = Trimmed(Attr(e, "mixed")) == "true";
    const CXmlElement* body = e;  // where the particle and the attributes are
    for (const CXmlElement* c = e->GetFirstElement(); c; c = c->GetNextSiblingElement()) {
        if (IsXsd(c, "simpleContent") || IsXsd(c, "complexContent")) {
            type->simpleContent = IsXsd(c, "simpleContent");
            if (IsXsd(c, "complexContent") && Trimmed(Attr(c, "mixed")) == "true") type->mixed = true;
            for (const CXmlElement* d = c->GetFirstElement(); d; d = d->GetNextSiblingElement()) {
                if (IsXsd(d, "extension") || IsXsd(d, "restriction")) {
                    type->derivation = IsXsd(d, "extension") ? CComplexType::Extension : CComplexType::Restriction;
                    type->base = ResolveQName(d, Attr(d, "base"));
                    body = d;
                    if (type->simpleContent && type->derivation == CComplexType::Restriction)
                        ReadFacets(d, type->simpleFacets);
                }
            }
        }
    }
    for (const CXmlElement* c = body->GetFirstElement(); c; c = c->GetNextSiblingElement()) {
        if (IsXsd(c, "sequence") || IsXsd(c, "choice") || IsXsd(c, "all") || IsXsd(c, "group"))
            type->particle = ReadParticle(c);
    }
    ReadAttributeItems(body->GetFirstElement(), type->attributes, type->anyAttribute);
    return type;
}

}  // namespace OrvexGen
