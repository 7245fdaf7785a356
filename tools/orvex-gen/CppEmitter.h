// Writes one header and one source per file of the class model, in the shape of
// the classes under examples/. It makes no choices of its own: what it writes
// follows from the model.
#pragma once

#include <string>

#include "ClassModel.h"

namespace OrvexGen {

struct CEmitOptions
{
    std::string cppNamespace = "OrvexGenerated";
    // Prefix of the #include lines of generated headers ("examples/purchase-order").
    std::string includePrefix;
};

class CCppEmitter
{
public:
    CCppEmitter(const CFileModel& file, const CEmitOptions& options);

    std::string Header() const;
    std::string Source() const;

private:
    std::string IncludePath(const CFileModel& file) const;
    std::string NamespaceOf(const std::string& uri) const;

    void ClassDeclaration(std::string& out, const CClassModel& cls) const;
    void PropertyAccessors(std::string& out, const CClassModel& cls, const CPropertyModel& p) const;
    void CollectionDeclaration(std::string& out, const CClassModel& cls) const;
    void FactoryDeclaration(std::string& out) const;

    void Tables(std::string& out, const CClassModel& cls) const;
    std::string ElementDescriptor(const CClassModel& cls, const CPropertyModel& p) const;
    std::string AttributeDescriptor(const CPropertyModel& p) const;
    void ClassDefinition(std::string& out, const CClassModel& cls) const;
    void AccessCase(std::string& out, const CClassModel& cls, const CPropertyModel& p) const;
    void InitLine(std::string& out, const CPropertyModel& p) const;
    void CollectionDefinition(std::string& out, const CClassModel& cls) const;
    void FactoryDefinition(std::string& out) const;

    bool InChoice(const CClassModel& cls) const { return cls.group == "Choice"; }

    const CFileModel& m_file;
    CEmitOptions m_options;
};

}  // namespace OrvexGen
