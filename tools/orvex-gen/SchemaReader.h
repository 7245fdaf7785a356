// Reads schema files into the schema model with the library's own document tree,
// following xs:include and xs:import to local files only.
#pragma once

#include <string>
#include <vector>

#include "SchemaModel.h"

namespace OrvexXmlLib5 {
class CXmlElement;
class CXmlDocument;
}  // namespace OrvexXmlLib5

namespace OrvexGen {

class CSchemaReader
{
public:
    // searchPath: folders tried, in order, for a schemaLocation that is not found
    // beside the file that names it.
    CSchemaReader(CSchemaSet& set, std::vector<std::string> searchPath);

    // Reads a file named on the command line (and what it includes and imports);
    // classes are written for it under outputName. Fails with CSchemaException.
    void ReadRoot(const std::string& path, const std::string& outputName);

private:
    CSchemaDocument* Read(const std::string& path, const std::string& chameleonNamespace, const CLocation& from);
    std::string Locate(const std::string& location, const std::string& baseDir, const CLocation& from) const;

    void ReadTop(CSchemaDocument& doc, const OrvexXmlLib5::CXmlElement* e);
    std::unique_ptr<CElementDecl> ReadElement(const OrvexXmlLib5::CXmlElement* e, bool global);
    std::unique_ptr<CComplexType> ReadComplexType(const OrvexXmlLib5::CXmlElement* e);
    std::unique_ptr<CSimpleType> ReadSimpleType(const OrvexXmlLib5::CXmlElement* e);
    std::unique_ptr<CParticle> ReadParticle(const OrvexXmlLib5::CXmlElement* e);
    std::unique_ptr<CAttributeDecl> ReadAttribute(const OrvexXmlLib5::CXmlElement* e, bool global);
    // What element and attribute declarations share: name or ref, namespace, type,
    // default and fixed value. what names the construct in a failure.
    template <typename Decl>
    void ReadDeclaration(const OrvexXmlLib5::CXmlElement* e, bool qualified, const char* what, Decl& decl);
    void ReadAttributeItems(const OrvexXmlLib5::CXmlElement* first, std::vector<CAttributeItem>& items,
                            std::unique_ptr<CWildcard>& anyAttribute);
    void ReadFacets(const OrvexXmlLib5::CXmlElement* restriction, CFacets& facets);
    void ReadWildcard(const OrvexXmlLib5::CXmlElement* e, CWildcard& wildcard);

    CLocation Where(const OrvexXmlLib5::CXmlElement* e) const;
    CQName ResolveQName(const OrvexXmlLib5::CXmlElement* e, const std::string& text) const;
    [[noreturn]] void Unsupported(const OrvexXmlLib5::CXmlElement* e, const std::string& construct) const;

    CSchemaSet& m_set;
    std::vector<std::string> m_searchPath;
    // The state of the file being read.
    CSchemaDocument* m_doc = nullptr;
    const OrvexXmlLib5::CXmlDocument* m_xml = nullptr;
    std::string m_tns;
    bool m_chameleon = false;
};

}  // namespace OrvexGen
