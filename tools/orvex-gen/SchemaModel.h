// The schema model of orvex-gen: what the schema files say, resolved to qualified
// names but knowing nothing of C++. The reader fills it; the binder reads it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "orvexxml/OrvexXmlLib5.h"

namespace OrvexGen {

// A construct the generator cannot map, or a schema that does not hold together:
// the message starts with "file:line: ".
class CSchemaException : public OrvexXmlLib5::COrvexException
{
public:
    explicit CSchemaException(std::string message) : COrvexException(std::move(message)) {}
};

struct CLocation
{
    std::string file;
    unsigned long line = 0;
    // "po.xsd:12"
    std::string ToString() const;
};

[[noreturn]] void Fail(const CLocation& where, const std::string& what);

struct CQName
{
    std::string ns;
    std::string name;
    bool IsEmpty() const { return name.empty(); }
    bool operator<(const CQName& other) const { return ns != other.ns ? ns < other.ns : name < other.name; }
    bool operator==(const CQName& other) const { return ns == other.ns && name == other.name; }
    // "{urn:x}name", or the name alone without a namespace.
    std::string ToString() const;
};

extern const char* const kXsdNamespace;
// The namespace of orvex-gen's own attributes on schema declarations.
extern const char* const kGenNamespace;

struct CSchemaDocument;

// The facets of one restriction step, as written.
struct CFacets
{
    std::vector<std::string> patterns;
    std::vector<std::string> enumerations;
    std::string minLength, maxLength, length;
    std::string minInclusive, maxInclusive, minExclusive, maxExclusive;
    std::string whiteSpace;
};

struct CSimpleType
{
    enum Variety
    {
        Restriction,
        List,
        Union
    };
    CLocation where;
    CQName name;  // empty for an anonymous type
    Variety variety = Restriction;
    CQName base;  // restriction base, or the item type of a list
    std::unique_ptr<CSimpleType> inlineBase;
    CFacets facets;
    const CSchemaDocument* schema = nullptr;
};

struct CAttributeDecl
{
    CLocation where;
    std::string name;
    std::string ns;  // the attribute's namespace (qualified or global), else empty
    CQName ref;
    CQName type;
    std::unique_ptr<CSimpleType> inlineType;
    bool required = false;
    bool prohibited = false;
    bool hasDefault = false, hasFixed = false;
    std::string defaultValue, fixedValue;
};

struct CWildcard
{
    CLocation where;
    std::string namespaces = "##any";
    std::string targetNamespace;
};

struct CAttributeItem
{
    // Either a group reference or a declaration.
    CQName groupRef;
    CLocation where;
    std::unique_ptr<CAttributeDecl> decl;
};

struct CComplexType;
struct CElementDecl;

struct CParticle
{
    enum Kind
    {
        Element,
        Sequence,
        Choice,
        All,
        GroupRef,
        Any
    };
    CLocation where;
    Kind kind = Sequence;
    int minOccurs = 1;
    int maxOccurs = 1;  // -1: unbounded
    std::unique_ptr<CElementDecl> element;
    std::vector<std::unique_ptr<CParticle>> children;
    CQName ref;
    CWildcard wildcard;
};

struct CComplexType
{
    enum Derivation
    {
        None,
        Extension,
        Restriction
    };
    CLocation where;
    CQName name;  // empty for an anonymous type
    bool isAbstract = false;
    bool mixed = false;
    bool simpleContent = false;
    Derivation derivation = None;
    CQName base;
    CFacets simpleFacets;  // of a simple content restriction
    std::unique_ptr<CParticle> particle;
    std::vector<CAttributeItem> attributes;
    std::unique_ptr<CWildcard> anyAttribute;
    const CSchemaDocument* schema = nullptr;
};

struct CElementDecl
{
    CLocation where;
    std::string name;
    std::string ns;  // the element's namespace (qualified or global), else empty
    CQName ref;
    CQName type;
    std::unique_ptr<CComplexType> inlineComplex;
    std::unique_ptr<CSimpleType> inlineSimple;
    bool isAbstract = false;
    bool global = false;
    bool hasDefault = false, hasFixed = false;
    std::string defaultValue, fixedValue;
    CQName substitutionGroup;
    // Customizations given as attributes of the namespace kGenNamespace on the
    // declaration: the property's name, and the printf format of a number.
    std::string propertyName;
    std::string format;
    const CSchemaDocument* schema = nullptr;
};

struct CGroupDef
{
    CLocation where;
    CQName name;
    std::unique_ptr<CParticle> particle;
};

struct CAttributeGroupDef
{
    CLocation where;
    CQName name;
    std::vector<CAttributeItem> attributes;
    std::unique_ptr<CWildcard> anyAttribute;
};

// One schema file with the global components it declares, in document order.
struct CSchemaDocument
{
    std::string path;
    std::string displayName;  // the file name as errors give it
    std::string targetNamespace;
    bool elementQualified = false;
    bool attributeQualified = false;
    // Named on the command line: classes are written for it.
    bool generate = false;
    std::string outputName;
    std::vector<CElementDecl*> elements;
    std::vector<CComplexType*> complexTypes;
    std::vector<CSimpleType*> simpleTypes;
    std::vector<const CSchemaDocument*> references;  // included and imported files
};

// Every file read, and the global components of all of them by qualified name.
struct CSchemaSet
{
    std::vector<std::unique_ptr<CSchemaDocument>> documents;
    std::map<CQName, std::unique_ptr<CElementDecl>> elements;
    std::map<CQName, std::unique_ptr<CComplexType>> complexTypes;
    std::map<CQName, std::unique_ptr<CSimpleType>> simpleTypes;
    std::map<CQName, std::unique_ptr<CAttributeDecl>> attributes;
    std::map<CQName, std::unique_ptr<CGroupDef>> groups;
    std::map<CQName, std::unique_ptr<CAttributeGroupDef>> attributeGroups;
};

}  // namespace OrvexGen
