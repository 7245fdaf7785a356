// Turns the schema model into the class model: which class each complex type,
// anonymous type, nested group and global element becomes, which property and
// descriptor each attribute, element and wildcard becomes, and how each simple
// type is held. What has no mapping fails with "file:line: construct".
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "ClassModel.h"
#include "SchemaModel.h"

namespace OrvexGen {

class CBinder
{
public:
    explicit CBinder(const CSchemaSet& set);

    // Binds every file named on the command line; fails with CSchemaException.
    void Bind();

    const std::vector<std::unique_ptr<CFileModel>>& Files() const { return m_files; }
    std::vector<CClassModel*> Classes() const;
    std::vector<CEnumModel*> Enums() const;

private:
    CFileModel* FileOf(const CSchemaDocument* schema, const CLocation& where);
    CClassModel* NewClass(const CSchemaDocument* schema, const CLocation& where);

    CClassModel* ClassOfType(const CComplexType* type, const std::string& anonymousName);
    void BuildClass(CClassModel* cls, const CComplexType* type);
    void AddContent(CClassModel* cls, const CParticle& particle, const CComplexType* owner);
    void AddParticles(CClassModel* cls, const CParticle& group, const CComplexType* owner);
    void AddElement(CClassModel* cls, const CParticle& particle, const CComplexType* owner);
    CClassModel* PseudoClass(const CParticle& particle, const CComplexType* owner, const std::string& name);
    void AddAttributes(CClassModel* cls, const std::vector<CAttributeItem>& items, const CWildcard* anyAttribute,
                       std::vector<CPropertyModel>& out, std::vector<CQName>& seenGroups);
    void AddAttribute(const CAttributeDecl& decl, std::vector<CPropertyModel>& out);

    // The value type of a simple type; enumeration gets the enumeration, if any.
    CValueType BindSimple(const CQName& name, const CLocation& where, const CEnumModel** enumeration,
                          const std::string& hint, const CSchemaDocument* schema);
    CValueType BindSimpleType(const CSimpleType& type, const CEnumModel** enumeration, const std::string& hint);
    void ApplyFacets(CValueType& value, const CFacets& facets, const CLocation& where);
    void ApplyFixed(CPropertyModel& property, const std::string& fixed);
    const CParticle& ResolveGroup(const CQName& ref, const CLocation& where) const;
    void EnterGroup(const CQName& ref, const CLocation& where);
    void Finish();

    const CSchemaSet& m_set;
    std::vector<std::unique_ptr<CFileModel>> m_files;
    std::map<const CSchemaDocument*, CFileModel*> m_fileOf;
    std::vector<std::unique_ptr<CClassModel>> m_classes;
    std::vector<std::unique_ptr<CEnumModel>> m_enums;
    std::map<const CComplexType*, CClassModel*> m_classOf;
    std::map<const CSimpleType*, CEnumModel*> m_enumOf;
    std::map<const CComplexType*, bool> m_building;
    std::vector<CQName> m_groupsOpen;            // the xs:group references being expanded
    std::set<const CSimpleType*> m_simpleOpen;  // the simple types being bound
    std::map<const CClassModel*, int> m_pseudoCount;  // the anonymous nested groups of each class
};

}  // namespace OrvexGen
