#include "NameMapper.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace OrvexGen {

namespace {

std::string Folded(const std::string& text)
{
    std::string out = text;
    std::transform(out.begin(), out.end(), out.begin(), [](unsigned char c) { return std::tolower(c); });
    return out;
}

// Names compared without case: two identifiers that differ only in case would
// confuse readers and clash on case-insensitive file systems.
class CNameSpace
{
public:
    bool Taken(const std::string& name) const { return m_names.count(Folded(name)) != 0; }
    void Take(const std::string& name) { m_names.insert(Folded(name)); }
    // candidate, else candidate + suffix, else those with 2, 3, ...
    std::string Claim(const std::string& candidate, const std::string& suffix)
    {
        std::string name = candidate;
        if (Taken(name) && !suffix.empty()) name = candidate + suffix;
        for (int n = 2; Taken(name); ++n) name = candidate + suffix + std::to_string(n);
        Take(name);
        return name;
    }

private:
    std::set<std::string> m_names;
};

// Property names that would hide or clash with members of the library's classes.
const char* const kReserved[] = {"Base", "ClassInfo", "ClassElementInfo", "ClassAttributeInfo",
                                 "ClassElementInfoCount", "ClassAttributeInfoCount", "DefaultContext",
                                 "ElementName", "Namespace", "TargetNamespace", "SelectedElement", "Selected"};

// Type names the generated code must not declare again: the library's classes and
// types (the generated code uses its namespace), the helpers of a generated source,
// and macros of the C library.
const char* const kTakenTypes[] = {
    "CAttribute", "CAttributeCol", "CAttributeInfo", "CAttributeInfoAny", "CAttributeInfoEnum",
    "CAttributeInfoPrimitive", "CBase", "CBigInteger", "CBinaryData", "CClassfactoryBase", "CConversions",
    "CDataHolder", "CDateTime", "CDateTimeSpan", "CDecimal", "CElement", "CElementCol", "CElementInfo",
    "CElementInfoAll", "CElementInfoAllAbsClsCol", "CElementInfoAllAbsClsMnd", "CElementInfoAllAbsClsOpt",
    "CElementInfoAllClsCol", "CElementInfoAllClsMnd", "CElementInfoAllClsOpt", "CElementInfoAllCol",
    "CElementInfoAllEnumCol", "CElementInfoAllEnumMnd", "CElementInfoAllEnumOpt", "CElementInfoAllNonCol",
    "CElementInfoAllPrimCol", "CElementInfoAllPrimMnd", "CElementInfoAllPrimOpt", "CElementInfoAllUntpdCol",
    "CElementInfoAllUntpdMnd", "CElementInfoAllUntpdOpt", "CElementInfoChoice", "CElementInfoChoiceAbsClsCol",
    "CElementInfoChoiceAbsClsOpt", "CElementInfoChoiceClsCol", "CElementInfoChoiceClsOpt",
    "CElementInfoChoiceCol", "CElementInfoChoiceEnumCol", "CElementInfoChoiceEnumOpt",
    "CElementInfoChoicePrimCol", "CElementInfoChoicePrimOpt", "CElementInfoChoiceUntpdCol",
    "CElementInfoChoiceUntpdOpt", "CElementInfoSeq", "CElementInfoSeqAbsClsCol", "CElementInfoSeqAbsClsMnd",
    "CElementInfoSeqAbsClsOpt", "CElementInfoSeqClsCol", "CElementInfoSeqClsMnd", "CElementInfoSeqClsOpt",
    "CElementInfoSeqCol", "CElementInfoSeqEnumCol", "CElementInfoSeqEnumMnd", "CElementInfoSeqEnumOpt",
    "CElementInfoSeqNonCol", "CElementInfoSeqPrimCol", "CElementInfoSeqPrimMnd", "CElementInfoSeqPrimOpt",
    "CElementInfoSeqUntpdCol", "CElementInfoSeqUntpdMnd", "CElementInfoSeqUntpdOpt", "CExpatReader",
    "CFastInfosetReader", "CFastInfosetWriter", "CInstanceMonitor", "CNamespaceAliasMap", "CNode", "CNodePool",
    "CObjectAccess", "COrvexException", "COrvexInvalidNamespaceException", "COrvexInvalidParamException",
    "COrvexInvalidStateException", "COrvexInvalidValueException", "COrvexIterator", "COrvexOverFlowException",
    "COrvexValidationException", "CParentElementInfo", "CPrimitiveRestrictions", "CReaderNameSurrogate",
    "CReaderStringTable", "CReaderVocabulary", "CSmartPtr", "CSourceLocation", "CStringBuffer",
    "CWhitespaceUtils", "CWriterVocabulary", "CXmlAttribute", "CXmlCollection", "CXmlCollectionBase",
    "CXmlDocument", "CXmlElement", "CXmlGeneratedClass", "CXmlObjectBase", "CXmlSerializationContext",
    "CXmlTextWriter", "CXmlTypeCollection", "CXmlWriter", "CXmlWriterContext", "CbooleanCol", "CdateCol",
    "CdatetimeBaseCol", "CdatetimeCol", "CdayCol", "CdecimalCol", "CdurationCol", "Ci1Col", "Ci2Col", "Ci4Col",
    "Ci8Col", "CintegerCol", "CmonthCol", "Cr4Col", "Cr8Col", "CstringCol", "CtimeCol", "Cui1Col", "Cui2Col",
    "Cui4Col", "Cui8Col", "CyearCol",
    "ItemType", "ByteEncoding", "EOLType", "FInfoDecl", "SchemaType", "XmlElementGroupType", "XmlElementType",
    "XmlEncoding", "OrvexVariant", "CompressionType", "ClassFactoryFn", "ElementFactoryFn", "EnumToStringFn",
    "EnumFromStringFn", "Rule", "NullTerminated", "BadIndex", "RequireKind", "CheckedEnum", "EnumFromText",
    "CTables", "CTablesCleaner", "NULL", "EOF", "TRUE", "FALSE"};

int Rank(const CClassModel* cls)
{
    if (cls->pseudo) return 3;
    if (cls->elementOnly) return 2;
    if (!cls->hint.empty()) return 1;  // anonymous
    return 0;
}

}  // namespace

std::string Identifier(const std::string& xmlName)
{
    std::string out;
    bool upper = false;
    for (unsigned char c : xmlName) {
        if (c == '-' || c == '.') {
            upper = true;
            continue;
        }
        if (std::isalnum(c) || c == '_') {
            out += upper ? static_cast<char>(std::toupper(c)) : static_cast<char>(c);
        } else if (c >= 0x80) {
            // Letters outside ASCII: the bytes in hexadecimal.
            static const char hex[] = "0123456789abcdef";
            out += 'x';
            out += hex[c >> 4];
            out += hex[c & 15];
        } else {
            out += '_';
        }
        upper = false;
    }
    if (out.empty() || std::isdigit(static_cast<unsigned char>(out[0]))) out = "_" + out;
    return out;
}

std::string UpperFirst(const std::string& text)
{
    std::string out = text;
    if (!out.empty()) out[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(out[0])));
    return out;
}

std::string LowerLead(const std::string& text)
{
    std::string out = text;
    std::size_t run = 0;
    while (run < out.size() && std::isupper(static_cast<unsigned char>(out[run]))) ++run;
    // In "USPrice" the P begins the next word and keeps its case.
    if (run > 1 && run < out.size() && std::islower(static_cast<unsigned char>(out[run]))) --run;
    for (std::size_t i = 0; i < run; ++i) out[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(out[i])));
    if (run == 0 && !out.empty()) out[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(out[0])));
    return out;
}

void AssignNames(std::vector<CFileModel*>& files, const std::vector<CClassModel*>& classes,
                 const std::vector<CEnumModel*>& enums)
{
    CNameSpace types;
    for (const char* taken : kTakenTypes) types.Take(taken);
    for (CFileModel* file : files) {
        const std::string stem = UpperFirst(Identifier(file->outputName));
        file->factoryName = types.Claim("C" + stem + "Factory", "");
        file->namespaceConstant = file->targetNamespace.empty() ? std::string() : "k" + stem + "Namespace";
    }
    std::vector<CClassModel*> ordered = classes;
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const CClassModel* a, const CClassModel* b) { return Rank(a) < Rank(b); });
    for (CClassModel* cls : ordered) {
        const std::string candidate =
            "C" + UpperFirst(Identifier(cls->elementOnly ? cls->elementName : cls->schemaName));
        cls->cppName = types.Claim(candidate, cls->elementOnly ? "Element" : cls->pseudo ? "Group" : "Type");
        cls->tableName = cls->cppName.substr(1);
        if (cls->needsCollection) types.Take(cls->cppName + "Col");
        cls->factoryName = cls->tableName;
    }
    // Enumerations and their text functions share the namespace with the classes.
    for (CEnumModel* model : enums) {
        model->cppName = types.Claim(UpperFirst(Identifier(model->xmlName)), "Enum");
        types.Take(model->cppName + "ToString");
        types.Take(model->cppName + "FromString");
        CNameSpace enumerators;
        for (const std::string& value : model->values) {
            const std::string word = value.empty() ? std::string("Empty") : UpperFirst(Identifier(value));
            model->enumerators.push_back(model->cppName + "_" + enumerators.Claim(word, ""));
        }
    }
    // Properties: a derived class's names stay clear of its bases'.
    std::set<const CClassModel*> done;
    std::vector<CClassModel*> pending = classes;
    while (!pending.empty()) {
        std::vector<CClassModel*> later;
        for (CClassModel* cls : pending) {
            if (cls->base && !done.count(cls->base)) {
                later.push_back(cls);
                continue;
            }
            CNameSpace names;
            for (const char* reserved : kReserved) names.Take(reserved);
            for (const CClassModel* ancestor = cls->base; ancestor; ancestor = ancestor->base)
                for (const CPropertyModel& property : ancestor->properties) names.Take(property.name);
            // Elements claim names before attributes: "Name" is the element, "NameAttribute" the attribute.
            for (bool attributes : {false, true})
                for (CPropertyModel& property : cls->properties) {
                    if (property.isAttribute != attributes) continue;
                    std::string candidate = UpperFirst(Identifier(
                        property.customName.empty() ? property.xmlName : property.customName));
                    const char* suffix = property.isAttribute ? "Attribute" : "Element";
                    property.name = names.Claim(candidate, suffix);
                    property.member = LowerLead(property.name);
                }
            done.insert(cls);
        }
        if (later.size() == pending.size()) break;  // cannot happen: derivation has no cycles
        pending = later;
    }
}

}  // namespace OrvexGen
