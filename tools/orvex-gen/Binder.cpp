#include "Binder.h"

#include <algorithm>
#include <set>

namespace OrvexGen {

namespace {

struct CBuiltin
{
    const char* name;
    const char* itemType;
    const char* cppType;
    const char* variant;
    const char* collection;
    const char* conversion;
    const char* rule;
    const char* dateKind;
    bool isInteger;
    const char* minInclusive;  // what the type implies
    const char* maxInclusive;
};

// The XSD built-in types and how the library holds each. Types the library has no
// value class for (lists, QName, anyURI, ...) are held as text.
const CBuiltin kBuiltins[] = {
    {"string", "ItemType_string", "std::string", "String", "CstringCol", "string", "Preserve", "", false, "", ""},
    {"normalizedString", "ItemType_string", "std::string", "String", "CstringCol", "string", "Replace", "", false, "",
     ""},
    {"anySimpleType", "ItemType_string", "std::string", "String", "CstringCol", "string", "Preserve", "", false, "",
     ""},
    {"token", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"language", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"Name", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"NCName", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"NMTOKEN", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"NMTOKENS", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"ID", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"IDREF", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"IDREFS", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"ENTITY", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"ENTITIES", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"anyURI", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"QName", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"NOTATION", "ItemType_string", "std::string", "String", "CstringCol", "string", "Collapse", "", false, "", ""},
    {"boolean", "ItemType_boolean", "bool", "Boolean", "CbooleanCol", "boolean", "Collapse", "", false, "", ""},
    {"decimal", "ItemType_decimal", "CDecimal", "Decimal", "CdecimalCol", "decimal", "Collapse", "", false, "", ""},
    {"integer", "ItemType_integer", "CBigInteger", "Integer", "CintegerCol", "integer", "Collapse", "", false, "",
     ""},
    {"nonNegativeInteger", "ItemType_integer", "CBigInteger", "Integer", "CintegerCol", "integer", "Collapse", "",
     false, "0", ""},
    {"positiveInteger", "ItemType_integer", "CBigInteger", "Integer", "CintegerCol", "integer", "Collapse", "", false,
     "1", ""},
    {"nonPositiveInteger", "ItemType_integer", "CBigInteger", "Integer", "CintegerCol", "integer", "Collapse", "",
     false, "", "0"},
    {"negativeInteger", "ItemType_integer", "CBigInteger", "Integer", "CintegerCol", "integer", "Collapse", "", false,
     "", "-1"},
    {"long", "ItemType_i8", "std::int64_t", "I8", "Ci8Col", "i8", "Collapse", "", true, "", ""},
    {"int", "ItemType_i4", "std::int32_t", "I4", "Ci4Col", "i4", "Collapse", "", true, "", ""},
    {"short", "ItemType_i2", "short", "I2", "Ci2Col", "i2", "Collapse", "", true, "", ""},
    {"byte", "ItemType_i1", "char", "I1", "Ci1Col", "i1", "Collapse", "", true, "", ""},
    {"unsignedLong", "ItemType_ui8", "std::uint64_t", "UI8", "Cui8Col", "ui8", "Collapse", "", true, "", ""},
    {"unsignedInt", "ItemType_ui4", "std::uint32_t", "UI4", "Cui4Col", "ui4", "Collapse", "", true, "", ""},
    {"unsignedShort", "ItemType_ui2", "unsigned short", "UI2", "Cui2Col", "ui2", "Collapse", "", true, "", ""},
    {"unsignedByte", "ItemType_ui1", "unsigned char", "UI1", "Cui1Col", "ui1", "Collapse", "", true, "", ""},
    {"float", "ItemType_r4", "float", "R4", "Cr4Col", "r4", "Collapse", "", false, "", ""},
    {"double", "ItemType_r8", "double", "R8", "Cr8Col", "r8", "Collapse", "", false, "", ""},
    {"duration", "ItemType_duration", "CDateTimeSpan", "Duration", "CdurationCol", "duration", "Collapse", "", false,
     "", ""},
    {"dateTime", "ItemType_datetime", "CDateTime", "DateTime", "CdatetimeCol", "datetime", "Collapse", "dateTime",
     false, "", ""},
    {"date", "ItemType_date", "CDateTime", "Date", "CdateCol", "date", "Collapse", "date", false, "", ""},
    {"time", "ItemType_time", "CDateTime", "Time", "CtimeCol", "time", "Collapse", "time", false, "", ""},
    {"gYearMonth", "ItemType_yearMonth", "CDateTime", "YearMonth", "CyearMonthCol", "yearMonth", "Collapse",
     "gYearMonth", false, "", ""},
    {"gMonthDay", "ItemType_monthDay", "CDateTime", "MonthDay", "CmonthDayCol", "monthDay", "Collapse", "gMonthDay",
     false, "", ""},
    {"gYear", "ItemType_year", "unsigned short", "Year", "CyearCol", "year", "Collapse", "", true, "", ""},
    {"gMonth", "ItemType_month", "unsigned char", "Month", "CmonthCol", "month", "Collapse", "", true, "", ""},
    {"gDay", "ItemType_day", "unsigned char", "Day", "CdayCol", "day", "Collapse", "", true, "", ""},
    {"hexBinary", "ItemType_hexBinary", "CBinaryData", "HexBinary", "ChexBinaryCol", "hexBinary", "Collapse", "",
     false, "", ""},
    {"base64Binary", "ItemType_base64Binary", "CBinaryData", "Base64Binary", "Cbase64BinaryCol", "base64Binary",
     "Collapse", "", false, "", ""},
};

const CBuiltin* FindBuiltin(const CQName& name)
{
    if (name.ns != kXsdNamespace) return nullptr;
    for (const CBuiltin& builtin : kBuiltins)
        if (name.name == builtin.name) return &builtin;
    return nullptr;
}

CValueType FromBuiltin(const CBuiltin& builtin)
{
    CValueType value;
    value.itemType = builtin.itemType;
    value.cppType = builtin.cppType;
    value.variant = builtin.variant;
    value.collection = builtin.collection;
    value.conversion = builtin.conversion;
    value.rule = builtin.rule;
    value.dateKind = builtin.dateKind;
    value.isString = value.cppType == "std::string";
    value.isInteger = builtin.isInteger;
    value.minInclusive = builtin.minInclusive;
    value.maxInclusive = builtin.maxInclusive;
    return value;
}

CValueType TextValue()
{
    CValueType value;
    value.rule = "Collapse";
    return value;
}

bool IsAnyType(const CQName& name)
{
    return name.ns == kXsdNamespace && name.name == "anyType";
}

// The characters that a pattern treats as syntax, escaped so that the text matches itself.
std::string EscapePattern(const std::string& text)
{
    std::string out;
    for (char c : text) {
        if (std::string("\\.?*+|{}()[]^$-").find(c) != std::string::npos) out += '\\';
        out += c;
    }
    return out;
}

int ToInt(const std::string& text)
{
    return text.empty() ? -1 : std::stoi(text);
}

}  // namespace

std::vector<const CPropertyModel*> CClassModel::AllProperties() const
{
    std::vector<const CPropertyModel*> all;
    if (base) all = base->AllProperties();
    for (const CPropertyModel& property : properties) all.push_back(&property);
    return all;
}

CBinder::CBinder(const CSchemaSet& set) : m_set(set)
{
}

std::vector<CClassModel*> CBinder::Classes() const
{
    std::vector<CClassModel*> all;
    for (const auto& cls : m_classes) all.push_back(cls.get());
    return all;
}

std::vector<CEnumModel*> CBinder::Enums() const
{
    std::vector<CEnumModel*> all;
    for (const auto& e : m_enums) all.push_back(e.get());
    return all;
}

CFileModel* CBinder::FileOf(const CSchemaDocument* schema, const CLocation& where)
{
    auto found = m_fileOf.find(schema);
    if (found != m_fileOf.end()) return found->second;
    if (!schema->generate)
        Fail(where, "a component of " + schema->displayName + " is used, but the file is not among the schemas to generate");
    auto file = std::make_unique<CFileModel>();
    file->schemaFile = schema->displayName;
    file->outputName = schema->outputName;
    file->targetNamespace = schema->targetNamespace;
    CFileModel* raw = file.get();
    m_files.push_back(std::move(file));
    m_fileOf[schema] = raw;
    return raw;
}

CClassModel* CBinder::NewClass(const CSchemaDocument* schema, const CLocation& where)
{
    auto cls = std::make_unique<CClassModel>();
    cls->file = FileOf(schema, where);
    CClassModel* raw = cls.get();
    m_classes.push_back(std::move(cls));
    return raw;
}

void CBinder::Bind()
{
    // Files first, in command-line order, so that output follows it.
    for (const auto& doc : m_set.documents)
        if (doc->generate) FileOf(doc.get(), CLocation{doc->displayName, 0});
    for (const auto& doc : m_set.documents) {
        if (!doc->generate) continue;
        for (const CComplexType* type : doc->complexTypes) ClassOfType(type, std::string());
        for (const CElementDecl* element : doc->elements) {
            if (!element->substitutionGroup.IsEmpty())
                Fail(element->where, "substitutionGroup");
            if (element->isAbstract) continue;
            if (element->inlineComplex) {
                CClassModel* cls = ClassOfType(element->inlineComplex.get(), element->name);
                cls->elementName = element->name;
                continue;
            }
            auto named = m_set.complexTypes.find(element->type);
            if (named == m_set.complexTypes.end()) continue;  // a simple type: no class
            CClassModel* type = ClassOfType(named->second.get(), std::string());
            CClassModel* cls = NewClass(element->schema, element->where);
            cls->elementOnly = true;
            cls->base = type;
            type->declaredBy.insert(element->name);
            cls->schemaName = type->schemaName;
            cls->elementName = element->name;
            cls->hint = "The global element " + element->name + "; it adds only its element name to its type.";
        }
        for (const CSimpleType* simple : doc->simpleTypes) {
            const CEnumModel* enumeration = nullptr;
            BindSimpleType(*simple, &enumeration, simple->name.name);
        }
    }
    Finish();
}

void CBinder::EnterGroup(const CQName& ref, const CLocation& where)
{
    // A group that holds itself would have no end.
    if (std::find(m_groupsOpen.begin(), m_groupsOpen.end(), ref) != m_groupsOpen.end())
        Fail(where, "xs:group [" + ref.ToString() + "] contains itself");
    m_groupsOpen.push_back(ref);
}

const CParticle& CBinder::ResolveGroup(const CQName& ref, const CLocation& where) const
{
    auto group = m_set.groups.find(ref);
    if (group == m_set.groups.end()) Fail(where, "xs:group [" + ref.ToString() + "] is not declared");
    return *group->second->particle;
}

CClassModel* CBinder::ClassOfType(const CComplexType* type, const std::string& anonymousName)
{
    auto found = m_classOf.find(type);
    if (found != m_classOf.end()) return found->second;
    CClassModel* cls = NewClass(type->schema, type->where);
    m_classOf[type] = cls;
    if (type->name.IsEmpty()) {
        cls->schemaName = anonymousName;
        cls->hint = "The anonymous type of the element " + anonymousName + ".";
    } else {
        cls->schemaName = type->name.name;
    }
    cls->elementName = cls->schemaName;
    cls->isAbstract = type->isAbstract;
    BuildClass(cls, type);
    return cls;
}

void CBinder::BuildClass(CClassModel* cls, const CComplexType* type)
{
    std::vector<CPropertyModel> attributes;
    std::vector<CQName> seenGroups;
    const CComplexType* baseType = nullptr;
    bool textFromSimpleBase = false;
    CValueType textValue = TextValue();

    if (type->derivation != CComplexType::None && !IsAnyType(type->base)) {
        auto base = m_set.complexTypes.find(type->base);
        if (base != m_set.complexTypes.end()) {
            baseType = base->second.get();
            if (m_building[baseType]) Fail(type->where, "a type derived from itself");
        } else if (type->simpleContent) {
            const CEnumModel* ignored = nullptr;
            textValue = BindSimple(type->base, type->where, &ignored, cls->schemaName, type->schema);
            textFromSimpleBase = true;
        } else {
            Fail(type->where, "complex content derived from [" + type->base.ToString() + "], which is no complex type");
        }
    }
    m_building[type] = true;
    if (baseType) {
        CClassModel* base = ClassOfType(baseType, std::string());
        cls->base = base;
        cls->group = base->group;
        for (CClassModel* ancestor = base; ancestor; ancestor = ancestor->base) ancestor->hasDerived = true;
    }
    // A restriction restates attributes its base has: the base's descriptors serve.
    if (!(type->derivation == CComplexType::Restriction && cls->base))
        AddAttributes(cls, type->attributes, type->anyAttribute.get(), attributes, seenGroups);
    cls->properties = attributes;

    if (type->simpleContent) {
        if (textFromSimpleBase) {
            CPropertyModel text;
            text.kind = CPropertyModel::Text;
            text.xmlName = "Value";
            text.value = TextValue();
            cls->properties.push_back(text);
        }
        // A simple content restriction narrows the base's text; the facets are not kept.
    } else if (type->particle) {
        if (type->derivation == CComplexType::Restriction && cls->base) {
            // The restricted content is a subset of the base's: the base's descriptors read it.
        } else {
            AddContent(cls, *type->particle, type);
        }
        bool hasText = false;
        for (const CClassModel* c = cls; c; c = c->base)
            for (const CPropertyModel& p : c->properties) hasText = hasText || p.kind == CPropertyModel::Text;
        if (type->mixed && !hasText) {
            // Mixed content: the character data between the children is held joined,
            // and written after them.
            CPropertyModel text;
            text.kind = CPropertyModel::Text;
            text.xmlName = "Text";
            text.value = TextValue();
            cls->properties.push_back(text);
        }
    } else if (type->mixed) {
        CPropertyModel text;
        text.kind = CPropertyModel::Text;
        text.xmlName = "Value";
        text.value = TextValue();
        cls->properties.push_back(text);
    }
    m_building[type] = false;
}

void CBinder::AddContent(CClassModel* cls, const CParticle& particle, const CComplexType* owner)
{
    const CParticle* model = &particle;
    if (particle.kind == CParticle::GroupRef && particle.minOccurs == 1 && particle.maxOccurs == 1)
        model = &ResolveGroup(particle.ref, particle.where);
    if (model->kind == CParticle::Element || model->kind == CParticle::Any) {
        AddElement(cls, *model, owner);
        return;
    }
    bool baseHasElements = false;
    if (cls->base)
        for (const CPropertyModel* p : cls->base->AllProperties())
            baseHasElements = baseHasElements || (!p->isAttribute && p->kind != CPropertyModel::Text);
    const bool repeats = model->minOccurs != 1 || model->maxOccurs != 1 || model->kind == CParticle::GroupRef;
    if (model->children.empty() && model->kind != CParticle::GroupRef) return;
    const char* group = model->kind == CParticle::Choice ? "Choice" : model->kind == CParticle::All ? "All" : "Sequence";
    if (!repeats && (!baseHasElements || (cls->group == std::string("Sequence") && model->kind == CParticle::Sequence))) {
        cls->group = group;
        AddParticles(cls, *model, owner);
        return;
    }
    if (baseHasElements && cls->group != std::string("Sequence"))
        Fail(model->where, "extension of a content model that is not a sequence");
    // The content stands as one nested group inside a sequence.
    cls->group = "Sequence";
    AddElement(cls, particle, owner);
}

void CBinder::AddParticles(CClassModel* cls, const CParticle& group, const CComplexType* owner)
{
    for (const auto& child : group.children) {
        const CParticle& particle = *child;
        // A sequence inside a sequence, once and mandatory, adds its children in place.
        if (cls->group == std::string("Sequence") && particle.minOccurs == 1 && particle.maxOccurs == 1) {
            if (particle.kind == CParticle::Sequence) {
                AddParticles(cls, particle, owner);
                continue;
            }
            if (particle.kind == CParticle::GroupRef) {
                const CParticle& resolved = ResolveGroup(particle.ref, particle.where);
                if (resolved.kind == CParticle::Sequence) {
                    EnterGroup(particle.ref, particle.where);
                    AddParticles(cls, resolved, owner);
                    m_groupsOpen.pop_back();
                    continue;
                }
            }
        }
        AddElement(cls, particle, owner);
    }
}

CClassModel* CBinder::PseudoClass(const CParticle& particle, const CComplexType* owner, const std::string& name)
{
    CClassModel* cls = NewClass(owner->schema, particle.where);
    cls->pseudo = true;
    // The enclosing element's attributes reach a nested group too: they are not its to refuse.
    cls->failIfAttributeUnknown = false;
    cls->schemaName = name;
    cls->elementName = name;
    cls->hint = "A nested group, its children stand among those of the enclosing element.";
    const CParticle& model = particle.kind == CParticle::GroupRef ? ResolveGroup(particle.ref, particle.where) : particle;
    cls->group = model.kind == CParticle::Choice ? "Choice" : model.kind == CParticle::All ? "All" : "Sequence";
    if (particle.kind == CParticle::GroupRef) EnterGroup(particle.ref, particle.where);
    AddParticles(cls, model, owner);
    if (particle.kind == CParticle::GroupRef) m_groupsOpen.pop_back();
    return cls;
}

void CBinder::AddElement(CClassModel* cls, const CParticle& particle, const CComplexType* owner)
{
    CPropertyModel property;
    property.minOccurs = particle.minOccurs;
    property.maxOccurs = particle.maxOccurs;
    if (particle.maxOccurs == -1 || particle.maxOccurs > 1)
        property.occurrence = CPropertyModel::Collection;
    else if (particle.minOccurs == 0 || cls->group == std::string("Choice"))
        property.occurrence = CPropertyModel::Optional;
    if (particle.maxOccurs == 0) return;
    if (cls->group == std::string("All") && property.occurrence == CPropertyModel::Collection)
        Fail(particle.where, "xs:all member with maxOccurs above 1");

    if (particle.kind == CParticle::Any) {
        property.kind = CPropertyModel::Untyped;
        property.xmlName = "AnyElement";  // the name by which the walks know a wildcard
        property.wildcard = particle.wildcard.namespaces;
        cls->properties.push_back(property);
        return;
    }
    if (particle.kind != CParticle::Element) {
        std::string name;
        if (particle.kind == CParticle::GroupRef)
            name = particle.ref.name;
        else
            name = std::string(particle.kind == CParticle::Choice ? "Choice" : particle.kind == CParticle::All ? "All" : "Sequence") +
                   std::to_string(++m_pseudoCount[cls]);
        property.kind = CPropertyModel::Class;
        property.pseudo = true;
        property.xmlName = name;
        property.type = PseudoClass(particle, owner, cls->schemaName + name);
        if (particle.kind == CParticle::GroupRef) property.type->schemaName = property.type->elementName = name;
        cls->properties.push_back(property);
        return;
    }

    const CElementDecl* decl = particle.element.get();
    if (!decl->ref.IsEmpty()) {
        auto global = m_set.elements.find(decl->ref);
        if (global == m_set.elements.end()) Fail(decl->where, "element [" + decl->ref.ToString() + "] is not declared");
        decl = global->second.get();
        if (decl->isAbstract) Fail(particle.where, "reference to the abstract element [" + decl->name + "] (substitution group)");
    }
    property.xmlName = decl->name;
    property.xmlNamespace = decl->ns;
    property.customName = particle.element->propertyName.empty() ? decl->propertyName : particle.element->propertyName;
    if (decl->inlineComplex) {
        property.kind = CPropertyModel::Class;
        property.type = ClassOfType(decl->inlineComplex.get(), decl->name);
    } else if (decl->inlineSimple) {
        property.value = BindSimpleType(*decl->inlineSimple, &property.enumeration, decl->name);
        property.kind = property.enumeration ? CPropertyModel::Enum : CPropertyModel::Prim;
    } else if (decl->type.IsEmpty() || IsAnyType(decl->type)) {
        // Content of any kind under a known name: held untyped.
        property.kind = CPropertyModel::Untyped;
        property.wildcard = decl->ns.empty() ? "##local" : decl->ns;
    } else if (m_set.complexTypes.count(decl->type)) {
        property.kind = CPropertyModel::Class;
        property.type = ClassOfType(m_set.complexTypes.at(decl->type).get(), std::string());
    } else {
        property.value = BindSimple(decl->type, decl->where, &property.enumeration, decl->name, decl->schema);
        property.kind = property.enumeration ? CPropertyModel::Enum : CPropertyModel::Prim;
    }
    if (property.kind == CPropertyModel::Class) property.type->declaredBy.insert(property.xmlName);
    if (property.kind == CPropertyModel::Prim) {
        property.value.format = particle.element->format.empty() ? decl->format : particle.element->format;
        if (!property.value.format.empty() && property.value.itemType != "ItemType_r4" &&
            property.value.itemType != "ItemType_r8" && property.value.itemType != "ItemType_decimal")
            Fail(particle.element->where, "a format for a value that is not a float, double or decimal");
    }
    if (property.kind == CPropertyModel::Prim || property.kind == CPropertyModel::Enum) {
        if (decl->hasFixed) ApplyFixed(property, decl->fixedValue);
        if (decl->hasDefault && property.occurrence != CPropertyModel::Collection) {
            property.hasInitial = true;
            property.initial = decl->defaultValue;
        }
    }
    if (property.kind == CPropertyModel::Enum && property.occurrence == CPropertyModel::Collection) {
        // A repeating enumerated element is held as text; the pattern keeps its values.
        std::string alternatives;
        for (const std::string& v : property.enumeration->values)
            alternatives += (alternatives.empty() ? "" : "|") + EscapePattern(v);
        property.value = TextValue();
        property.value.pattern = alternatives;
        property.kind = CPropertyModel::Prim;
        property.enumeration = nullptr;
    }
    cls->properties.push_back(property);
}

void CBinder::ApplyFixed(CPropertyModel& property, const std::string& fixed)
{
    property.hasInitial = true;
    property.initial = fixed;
    if (property.kind != CPropertyModel::Prim) return;
    if (property.value.isString)
        property.value.pattern = EscapePattern(property.value.rule == "Collapse" ? fixed : fixed);
    else if (property.value.itemType != "ItemType_boolean" && property.value.itemType != "ItemType_hexBinary" &&
             property.value.itemType != "ItemType_base64Binary" && property.value.itemType != "ItemType_duration")
        property.value.minInclusive = property.value.maxInclusive = fixed;
}

void CBinder::AddAttributes(CClassModel* cls, const std::vector<CAttributeItem>& items, const CWildcard* anyAttribute,
                            std::vector<CPropertyModel>& out, std::vector<CQName>& seenGroups)
{
    for (const CAttributeItem& item : items) {
        if (item.decl) {
            AddAttribute(*item.decl, out);
            continue;
        }
        if (std::find(seenGroups.begin(), seenGroups.end(), item.groupRef) != seenGroups.end()) continue;
        seenGroups.push_back(item.groupRef);
        auto group = m_set.attributeGroups.find(item.groupRef);
        if (group == m_set.attributeGroups.end())
            Fail(item.where, "xs:attributeGroup [" + item.groupRef.ToString() + "] is not declared");
        std::vector<CPropertyModel> nested;
        AddAttributes(cls, group->second->attributes, group->second->anyAttribute.get(), nested, seenGroups);
        out.insert(out.end(), nested.begin(), nested.end());
    }
    // The wildcard takes every attribute that reaches it, so it stands last.
    const bool hasWildcard =
        std::any_of(out.begin(), out.end(), [](const CPropertyModel& p) { return p.kind == CPropertyModel::AnyAttribute; });
    if (anyAttribute && !hasWildcard) {
        CPropertyModel property;
        property.kind = CPropertyModel::AnyAttribute;
        property.isAttribute = true;
        property.occurrence = CPropertyModel::Optional;
        property.xmlName = "AnyAttribute";
        property.wildcard = anyAttribute->namespaces;
        out.push_back(property);
    }
    std::stable_partition(out.begin(), out.end(),
                          [](const CPropertyModel& p) { return p.kind != CPropertyModel::AnyAttribute; });
}

void CBinder::AddAttribute(const CAttributeDecl& local, std::vector<CPropertyModel>& out)
{
    if (local.prohibited) return;
    const CAttributeDecl* decl = &local;
    if (!local.ref.IsEmpty()) {
        auto global = m_set.attributes.find(local.ref);
        if (global == m_set.attributes.end()) {
            if (local.ref.ns == "http://www.w3.org/XML/1998/namespace") {
                // xml:lang, xml:space and xml:base, known without their schema.
                CPropertyModel property;
                property.isAttribute = true;
                property.xmlName = local.ref.name;
                property.xmlNamespace = local.ref.ns;
                property.occurrence = local.required ? CPropertyModel::Mandatory : CPropertyModel::Optional;
                property.value = TextValue();
                out.push_back(property);
                return;
            }
            Fail(local.where, "attribute [" + local.ref.ToString() + "] is not declared");
        }
        decl = global->second.get();
    }
    CPropertyModel property;
    property.isAttribute = true;
    property.xmlName = decl->name;
    property.xmlNamespace = decl->ns;
    property.occurrence = local.required ? CPropertyModel::Mandatory : CPropertyModel::Optional;
    if (decl->inlineType)
        property.value = BindSimpleType(*decl->inlineType, &property.enumeration, decl->name);
    else if (decl->type.IsEmpty())
        property.value = FromBuiltin(kBuiltins[2]);
    else
        property.value = BindSimple(decl->type, decl->where, &property.enumeration, decl->name, nullptr);
    property.kind = property.enumeration ? CPropertyModel::Enum : CPropertyModel::Prim;
    const bool hasFixed = local.hasFixed || decl->hasFixed;
    const bool hasDefault = local.hasDefault || decl->hasDefault;
    if (hasFixed)
        ApplyFixed(property, local.hasFixed ? local.fixedValue : decl->fixedValue);
    else if (hasDefault) {
        property.hasInitial = true;
        property.initial = local.hasDefault ? local.defaultValue : decl->defaultValue;
    }
    out.push_back(property);
}

CValueType CBinder::BindSimple(const CQName& name, const CLocation& where, const CEnumModel** enumeration,
                               const std::string& hint, const CSchemaDocument*)
{
    if (const CBuiltin* builtin = FindBuiltin(name)) return FromBuiltin(*builtin);
    auto simple = m_set.simpleTypes.find(name);
    if (simple != m_set.simpleTypes.end()) return BindSimpleType(*simple->second, enumeration, hint);
    if (m_set.complexTypes.count(name)) Fail(where, "complex type [" + name.ToString() + "] where a simple type is needed");
    Fail(where, "type [" + name.ToString() + "] is not declared");
}

CValueType CBinder::BindSimpleType(const CSimpleType& type, const CEnumModel** enumeration, const std::string& hint)
{
    if (type.variety != CSimpleType::Restriction) return TextValue();  // lists and unions: text
    if (!m_simpleOpen.insert(&type).second) Fail(type.where, "a simple type derived from itself");
    CValueType value;
    if (type.inlineBase)
        value = BindSimpleType(*type.inlineBase, enumeration, hint);
    else
        value = BindSimple(type.base, type.where, enumeration, hint, type.schema);
    m_simpleOpen.erase(&type);
    ApplyFacets(value, type.facets, type.where);
    if (!type.facets.enumerations.empty()) {
        auto known = m_enumOf.find(&type);
        if (known != m_enumOf.end()) {
            *enumeration = known->second;
        } else {
            auto model = std::make_unique<CEnumModel>();
            model->xmlName = type.name.IsEmpty() ? hint : type.name.name;
            for (const std::string& v : type.facets.enumerations)
                if (std::find(model->values.begin(), model->values.end(), v) == model->values.end())
                    model->values.push_back(v);
            model->file = FileOf(type.schema, type.where);
            *enumeration = model.get();
            m_enumOf[&type] = model.get();
            m_enums.push_back(std::move(model));
        }
    }
    return value;
}

void CBinder::ApplyFacets(CValueType& value, const CFacets& facets, const CLocation&)
{
    if (!facets.patterns.empty()) {
        // Patterns of one step are alternatives; a step's patterns replace the base's.
        if (facets.patterns.size() == 1) {
            value.pattern = facets.patterns.front();
        } else {
            std::string joined;
            for (const std::string& p : facets.patterns) joined += (joined.empty() ? "(" : "|(") + p + ")";
            value.pattern = joined;
        }
    }
    if (!facets.minLength.empty()) value.minLength = ToInt(facets.minLength);
    if (!facets.maxLength.empty()) value.maxLength = ToInt(facets.maxLength);
    if (!facets.length.empty()) value.length = ToInt(facets.length);
    if (!facets.minInclusive.empty()) value.minInclusive = facets.minInclusive;
    if (!facets.maxInclusive.empty()) value.maxInclusive = facets.maxInclusive;
    if (!facets.minExclusive.empty()) value.minExclusive = facets.minExclusive;
    if (!facets.maxExclusive.empty()) value.maxExclusive = facets.maxExclusive;
    if (facets.whiteSpace == "preserve") value.rule = "Preserve";
    if (facets.whiteSpace == "replace") value.rule = "Replace";
    if (facets.whiteSpace == "collapse") value.rule = "Collapse";
}

void CBinder::Finish()
{
    // A child of a type that others derive from, or of an abstract type, is made
    // by the factory from xsi:type.
    for (const auto& cls : m_classes) {
        if (cls->elementOnly) continue;
        for (CClassModel* ancestor = cls->base; ancestor; ancestor = ancestor->base)
            if (!cls->isAbstract) ancestor->derived.push_back(cls.get());
    }
    for (const auto& cls : m_classes) {
        int index = cls->base ? static_cast<int>(cls->base->AllProperties().size()) : 0;
        cls->firstIndex = index;
        for (CPropertyModel& property : cls->properties) {
            property.index = index++;
            if (property.kind == CPropertyModel::Text) cls->textIndex = property.index;
            if (property.kind == CPropertyModel::Class && property.type &&
                (property.type->isAbstract || property.type->hasDerived))
                property.kind = CPropertyModel::AbsClass;
            if (property.occurrence == CPropertyModel::Collection &&
                (property.kind == CPropertyModel::Class || property.kind == CPropertyModel::AbsClass))
                property.type->needsCollection = true;
        }
    }
    // Class ids in the factory of the class's file, for the optional children.
    std::map<const CFileModel*, int> nextId;
    for (const auto& cls : m_classes)
        for (CPropertyModel& property : cls->properties)
            if (property.kind == CPropertyModel::Class && property.occurrence == CPropertyModel::Optional &&
                property.type->classId == 0)
                property.type->classId = ++nextId[property.type->file];
    for (const auto& cls : m_classes)
        for (const CClassModel* ancestor = cls->base; ancestor && cls->textIndex == -1; ancestor = ancestor->base)
            for (const CPropertyModel& property : ancestor->properties)
                if (property.kind == CPropertyModel::Text) cls->textIndex = property.index;
}

}  // namespace OrvexGen
