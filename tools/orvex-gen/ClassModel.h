// The class model of orvex-gen: the C++ classes, properties and enumerations to
// write, with every choice already made. The binder fills it, the naming pass
// gives it identifiers, and the emitter writes it as it stands.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace OrvexGen {

struct CClassModel;
struct CFileModel;

// A simple type as the library holds it.
struct CValueType
{
    std::string itemType = "ItemType_string";  // the ItemType enumerator
    std::string cppType = "std::string";
    std::string variant = "String";             // OrvexVariant::Set<variant> / Get<variant>
    std::string collection = "CstringCol";      // the typed collection of a repeating element
    std::string conversion = "string";          // CConversions::<conversion>FromString
    std::string rule = "Preserve";              // CWhitespaceUtils::WhitespaceRule
    std::string format;                         // printf format of a number, empty for the default
    std::string dateKind;                       // CDateTime kind a setter insists on, if any
    bool isString = true;
    bool isInteger = false;                     // a C++ integral type
    // Facets in the order of CPrimitiveRestrictions; "" and -1 mean none.
    std::string pattern, minInclusive, maxInclusive, minExclusive, maxExclusive;
    int minLength = -1, maxLength = -1, length = -1;
    bool HasFacets() const
    {
        return !pattern.empty() || !minInclusive.empty() || !maxInclusive.empty() || !minExclusive.empty() ||
               !maxExclusive.empty() || minLength != -1 || maxLength != -1 || length != -1;
    }
};

struct CEnumModel
{
    std::string xmlName;  // for messages
    std::string cppName;
    std::vector<std::string> values;       // lexical forms, in schema order
    std::vector<std::string> enumerators;  // one per value
    const CFileModel* file = nullptr;
};

struct CPropertyModel
{
    enum Kind
    {
        Prim,
        Enum,
        Class,     // a child object made by its class
        AbsClass,  // a child object made by the factory from xsi:type
        Untyped,   // xs:any
        AnyAttribute,
        Text       // the text of simple content, held as a string
    };
    enum Occurrence
    {
        Mandatory,
        Optional,
        Collection
    };
    Kind kind = Prim;
    Occurrence occurrence = Mandatory;
    bool isAttribute = false;
    std::string xmlName;  // element or attribute name
    std::string xmlNamespace;
    int minOccurs = 1, maxOccurs = 1;
    CValueType value;
    const CEnumModel* enumeration = nullptr;
    CClassModel* type = nullptr;  // Class, AbsClass
    bool pseudo = false;          // the child class stands for a nested group
    std::string wildcard;         // namespace constraint of xs:any and xs:anyAttribute
    bool hasInitial = false;      // default or fixed: always present, starts with initial
    std::string initial;          // lexical form
    int index = 0;
    std::string customName;  // the property name the schema asks for, if any
    // Set by the layout pass: the property's class is complete where the holder is
    // declared, so the getter can be written inline.
    bool typeComplete = true;
    // Given by the naming pass.
    std::string name;    // Get<name>, Set<name>
    std::string member;  // m_<member>
};

struct CClassModel
{
    std::string schemaName;   // the type or element name (for the tables)
    std::string elementName;  // the name the object takes when made without one
    std::string group = "Sequence";  // Sequence, Choice, All
    bool pseudo = false;
    bool isAbstract = false;
    bool hasDerived = false;
    CClassModel* base = nullptr;
    // A global element of a named type: the class adds only its element name.
    bool elementOnly = false;
    std::vector<CPropertyModel> properties;  // own properties, attributes first
    int firstIndex = 0;  // the base's property count
    int textIndex = -1;
    bool failIfAttributeUnknown = true;
    bool needsCollection = false;
    int classId = 0;  // in the file's factory, 0 when not made by id
    std::vector<CClassModel*> derived;  // every concrete class that may stand for this one
    // The element names declared with exactly this type: under them an object of
    // this class needs no xsi:type.
    std::set<std::string> declaredBy;
    const CFileModel* file = nullptr;
    std::string hint;  // where the class comes from, for the comment above it
    // Given by the naming pass.
    std::string cppName;
    std::string tableName;  // the tables' function and variable
    std::string factoryName;  // Create<factoryName>(element) for AbsClass children
    // All properties of the class, the base's first, as the tables list them.
    std::vector<const CPropertyModel*> AllProperties() const;
};

// One schema file's output: a header and a source.
struct CFileModel
{
    std::string schemaFile;
    std::string outputName;   // PurchaseOrder -> PurchaseOrder.h / PurchaseOrder.cpp
    std::string targetNamespace;
    std::string namespaceConstant;  // kLibraryNamespace, or empty without a namespace
    std::string factoryName;        // CLibraryFactory
    std::vector<CEnumModel*> enums;
    std::vector<CClassModel*> classes;  // in writing order: a class after what it holds
    std::vector<const CFileModel*> includes;
};

}  // namespace OrvexGen
