#include "examples/settings/Settings.h"

#include <cstring>

#include "orvexxml/xml/XmlDocument.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5Data;
using Rule = CWhitespaceUtils::WhitespaceRule;

const char* const kSettingsNamespace = "urn:orvex:settings";

namespace {

const char* const NS = kSettingsNamespace;

CPrimitiveRestrictions Facets(const char* pattern, int minLength, const char* minInclusive, const char* maxInclusive,
                              int length = -1)
{
    return CPrimitiveRestrictions(pattern, minLength, -1, minInclusive, maxInclusive, "", "", length);
}
CPrimitiveRestrictions NoFacets()
{
    return Facets("", -1, "", "");
}

[[noreturn]] void BadIndex(int propertyIndex)
{
    throw COrvexInvalidParamException(FormatString("Invalid property index %d", propertyIndex));
}

// Values outside an enumeration never reach a property.
std::int32_t CheckedEnum(std::int32_t value, std::int32_t count, const char* type)
{
    if (value < 0 || value >= count)
        throw COrvexInvalidValueException(FormatString("The value [%d] is not a valid %s", value, type));
    return value;
}

int EnumFromText(const char* text, const char* const* names, int count, const char* type)
{
    for (int i = 0; i < count; ++i)
        if (std::strcmp(text, names[i]) == 0) return i;
    throw COrvexInvalidValueException(FormatString("The value [%s] is not a valid %s", text, type));
}

const char* const kThemes[] = {"light", "dark", "system"};
const char* const kAccents[] = {"blue", "green", "red"};

// One set of tables per class, built on first use and shared by every object.
struct CTables
{
    CParentElementInfo* info = nullptr;
    CElementInfo** elements = nullptr;
    CAttributeInfo** attributes = nullptr;
};

CTables g_window, g_font, g_shortcut, g_display, g_local, g_cloud, g_settings;

const CTables& WindowTables()
{
    static const bool built = [] {
        g_window.info = new CParentElementInfo(ElementGroup_All, ElementType_Element, "Window", NS, -1, true, false);
        g_window.elements = new CElementInfo* [4] {
            new CElementInfoAllPrimMnd("Width", NS, 0, ItemType_i4, nullptr, Rule::Collapse,
                                       Facets("", -1, "100", "10000")),
                new CElementInfoAllPrimMnd("Height", NS, 1, ItemType_i4, nullptr, Rule::Collapse,
                                           Facets("", -1, "100", "10000")),
                new CElementInfoAllPrimOpt("Maximized", NS, 2, ItemType_boolean, nullptr, Rule::Collapse,
                                           NoFacets()),
                nullptr
        };
        g_window.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_window;
}

const CTables& FontTables()
{
    static const bool built = [] {
        g_font.info = new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Font", NS, -1, true, false);
        g_font.elements = new CElementInfo* [3] {
            new CElementInfoSeqPrimMnd("Family", NS, 0, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
                new CElementInfoSeqPrimOpt("Size", NS, 1, ItemType_i4, nullptr, Rule::Collapse,
                                           Facets("", -1, "6", "72")),
                nullptr
        };
        g_font.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_font;
}

const CTables& ShortcutTables()
{
    static const bool built = [] {
        g_shortcut.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Shortcut", NS, -1, true, false);
        g_shortcut.elements = new CElementInfo* [2] {
            new CElementInfoSeqPrimMnd("Action", NS, 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()), nullptr
        };
        g_shortcut.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("key", "", 0, false, ItemType_string, nullptr, Rule::Collapse,
                                        Facets("F[0-9]{1,2}|[A-Z]", -1, "", "")),
                nullptr
        };
        return true;
    }();
    (void)built;
    return g_shortcut;
}

const CTables& DisplayTables()
{
    static const bool built = [] {
        g_display.info = new CParentElementInfo(ElementGroup_All, ElementType_Element, "Display", NS, -1, true, false);
        g_display.elements = new CElementInfo* [8] {
            new CElementInfoAllEnumMnd("Theme", NS, 0, ThemeToString, ThemeFromString),
                new CElementInfoAllPrimMnd("Language", NS, 1, ItemType_string, nullptr, Rule::Collapse,
                                           Facets("", -1, "", "", 2)),
                new CElementInfoAllPrimOpt("FontSize", NS, 2, ItemType_i4, nullptr, Rule::Collapse,
                                           Facets("", -1, "6", "72")),
                new CElementInfoAllEnumOpt("Accent", NS, 3, AccentToString, AccentFromString),
                new CElementInfoAllClsMnd("Window", NS, 4, ElementType_Element, nullptr, 0, true),
                new CElementInfoAllClsOpt("Font", NS, 5, ElementType_Element, CSettingsFactory::CreateClass,
                                          CSettingsFactory::Class_Font),
                new CElementInfoAllClsCol("Shortcut", NS, 6, ElementType_Element), nullptr
        };
        g_display.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_display;
}

// The derived tables repeat the base's members first, as the extension does.
const CTables& LocalTables()
{
    static const bool built = [] {
        g_local.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "LocalStorage", NS, -1, true, true);
        g_local.elements = new CElementInfo* [3] {
            new CElementInfoSeqPrimOpt("Quota", NS, 0, ItemType_i4, nullptr, Rule::Collapse, Facets("", -1, "0", "")),
                new CElementInfoSeqPrimMnd("Path", NS, 1, ItemType_string, nullptr, Rule::Preserve,
                                           Facets("", 1, "", "")),
                nullptr
        };
        g_local.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_local;
}

const CTables& CloudTables()
{
    static const bool built = [] {
        g_cloud.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "CloudStorage", NS, -1, true, true);
        g_cloud.elements = new CElementInfo* [4] {
            new CElementInfoSeqPrimOpt("Quota", NS, 0, ItemType_i4, nullptr, Rule::Collapse, Facets("", -1, "0", "")),
                new CElementInfoSeqPrimMnd("Provider", NS, 1, ItemType_string, nullptr, Rule::Preserve, NoFacets()),
                new CElementInfoSeqPrimOpt("Region", NS, 2, ItemType_string, nullptr, Rule::Collapse, NoFacets()),
                nullptr
        };
        g_cloud.attributes = new CAttributeInfo* [1] { nullptr };
        return true;
    }();
    (void)built;
    return g_cloud;
}

const CTables& SettingsTables()
{
    static const bool built = [] {
        g_settings.info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Settings", NS, -1, true, false);
        g_settings.elements = new CElementInfo* [4] {
            new CElementInfoSeqClsMnd("Display", NS, 1, ElementType_Element, nullptr, 0, true),
                new CElementInfoSeqAbsClsMnd("Storage", NS, 2, ElementType_Element, CSettingsFactory::CreateStorage),
                new CElementInfoSeqAbsClsOpt("Backup", NS, 3, ElementType_Element, CSettingsFactory::CreateStorage),
                nullptr
        };
        g_settings.attributes = new CAttributeInfo* [2] {
            new CAttributeInfoPrimitive("version", "", 0, false, ItemType_i4, nullptr, Rule::Collapse,
                                        Facets("", -1, "1", "99")),
                nullptr
        };
        return true;
    }();
    (void)built;
    return g_settings;
}

// Releases the tables when the program ends.
struct CTablesCleaner
{
    ~CTablesCleaner()
    {
        CSettings::CleanMetaData();
        CCloudStorage::CleanMetaData();
        CLocalStorage::CleanMetaData();
        CDisplay::CleanMetaData();
        CShortcut::CleanMetaData();
        CFont::CleanMetaData();
        CWindow::CleanMetaData();
    }
} g_cleaner;

}  // namespace

const char* ThemeToString(int value)
{
    return value >= 0 && value < 3 ? kThemes[value] : "";
}
int ThemeFromString(const char* text)
{
    return EnumFromText(text, kThemes, 3, "Theme");
}
const char* AccentToString(int value)
{
    return value >= 0 && value < 3 ? kAccents[value] : "";
}
int AccentFromString(const char* text)
{
    return EnumFromText(text, kAccents, 3, "Accent");
}

// --- CWindow

CWindow::CWindow()
{
    SetElementName("Window");
    Init();
}

CSmartPtr<CWindow> CWindow::CreateInstance()
{
    return CSmartPtr<CWindow>(new CWindow());
}

void CWindow::Init()
{
    m_width = 800;
    m_height = 600;
    m_maximized = false;
    m_hasMaximized = false;
}

void CWindow::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetI4(m_width);
            else
                SetWidth(value.GetI4());
            break;
        case 1:
            if (read)
                value.SetI4(m_height);
            else
                SetHeight(value.GetI4());
            break;
        case 2:
            if (!read)
                SetMaximized(value.GetBoolean());
            else if (m_hasMaximized)
                value.SetBoolean(m_maximized);
            else
                value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CWindow::GetClassInfo() const
{
    return WindowTables().info;
}
CElementInfo** CWindow::GetClassElementInfo() const
{
    return WindowTables().elements;
}
CAttributeInfo** CWindow::GetClassAttributeInfo() const
{
    return WindowTables().attributes;
}
void CWindow::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_window.info, g_window.elements, g_window.attributes);
}

// --- CFont

CFont::CFont(const char* elementName)
{
    SetElementName(elementName);
    Init();
}

CSmartPtr<CFont> CFont::CreateInstance(const char* elementName)
{
    return CSmartPtr<CFont>(new CFont(elementName));
}

void CFont::Init()
{
    m_family.clear();
    m_size = 0;
    m_hasSize = false;
}

void CFont::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                LendString(value, m_family);
            else
                SetFamily(value.GetString());
            break;
        case 1:
            if (!read)
                SetSize(value.GetI4());
            else if (m_hasSize)
                value.SetI4(m_size);
            else
                value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CFont::GetClassInfo() const
{
    return FontTables().info;
}
CElementInfo** CFont::GetClassElementInfo() const
{
    return FontTables().elements;
}
CAttributeInfo** CFont::GetClassAttributeInfo() const
{
    return FontTables().attributes;
}
void CFont::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_font.info, g_font.elements, g_font.attributes);
}

// --- CShortcut and its collection

CShortcut::CShortcut()
{
    SetElementName("Shortcut");
    Init();
}

CSmartPtr<CShortcut> CShortcut::CreateInstance()
{
    return CSmartPtr<CShortcut>(new CShortcut());
}

void CShortcut::Init()
{
    m_key.clear();
    m_action.clear();
}

void CShortcut::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                LendString(value, m_key);
            else
                SetKey(value.GetString());
            break;
        case 1:
            if (read)
                LendString(value, m_action);
            else
                SetAction(value.GetString());
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CShortcut::GetClassInfo() const
{
    return ShortcutTables().info;
}
CElementInfo** CShortcut::GetClassElementInfo() const
{
    return ShortcutTables().elements;
}
CAttributeInfo** CShortcut::GetClassAttributeInfo() const
{
    return ShortcutTables().attributes;
}
void CShortcut::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_shortcut.info, g_shortcut.elements, g_shortcut.attributes);
}

CSmartPtr<CShortcut> CShortcutCol::Add()
{
    CSmartPtr<CShortcut> shortcut = CShortcut::CreateInstance();
    SetElementName(shortcut.Get(), GetElementName().c_str());
    AppendItem(shortcut);
    return shortcut;
}

CSmartPtr<CShortcut> CShortcutCol::Item(int index) const
{
    return CSmartPtr<CShortcut>(static_cast<CShortcut*>(GetNodeAtIndex(index)->GetItem()));
}

void CShortcutCol::ToXml_Int(CXmlWriter* writer, bool, const char* namespaceUri,
                             const CXmlSerializationContext& context, bool) const
{
    ValidateCount(context);
    for (CNode* node = GetHead(); node; node = node->GetNext())
        CXmlObjectBase::ToXml_Int(node->GetItem(), writer, false, namespaceUri, context, false);
}

CXmlElement* CShortcutCol::FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext& context,
                                       bool)
{
    const std::string& name = ElementNameRef();
    const std::string namespaceUri = GetNamespace();
    CXmlElement* current = firstChild;
    while (current && DoesElementNameMatch(context, current, name.c_str(), namespaceUri.c_str())) {
        CSmartPtr<CShortcut> shortcut = CShortcut::CreateInstance();
        CXmlObjectBase::FromXml_Int(shortcut.Get(), current, current->GetFirstElement(), context);
        AppendItem(shortcut);
        current = current->GetNextSiblingElement();
    }
    return current;
}

// --- CDisplay

CDisplay::CDisplay() : m_window(CWindow::CreateInstance()), m_shortcuts(new CShortcutCol("Shortcut", NS, 0, 4))
{
    SetElementName("Display");
    Init();
}

CSmartPtr<CDisplay> CDisplay::CreateInstance()
{
    return CSmartPtr<CDisplay>(new CDisplay());
}

void CDisplay::Init()
{
    m_theme = Theme_System;
    m_language.clear();
    m_fontSize = 0;
    m_hasFontSize = false;
    m_accent = Accent_Blue;
    m_hasAccent = false;
    m_window->Init();
    m_font = nullptr;
    m_shortcuts->Clear();
}

void CDisplay::SetWindow(CWindow* value)
{
    Throw_IfPropertyIsNull(value, "Window");
    Throw_IfElementNameDiffers(value, "Window");
    m_window = value;
}

void CDisplay::SetFont(CFont* value)
{
    Throw_IfElementNameDiffers(value, "Font");
    m_font = value;
}

void CDisplay::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetI4(m_theme);
            else
                SetTheme(static_cast<Theme>(CheckedEnum(value.GetI4(), 3, "Theme")));
            break;
        case 1:
            if (read)
                LendString(value, m_language);
            else
                SetLanguage(value.GetString());
            break;
        case 2:
            if (!read)
                SetFontSize(value.GetI4());
            else if (m_hasFontSize)
                value.SetI4(m_fontSize);
            else
                value.SetInvalid();
            break;
        case 3:
            if (!read)
                SetAccent(static_cast<Accent>(CheckedEnum(value.GetI4(), 3, "Accent")));
            else if (m_hasAccent)
                value.SetI4(m_accent);
            else
                value.SetInvalid();
            break;
        case 4:
            if (read)
                value.SetXmlObject(m_window);
            else
                SetWindow(dynamic_cast<CWindow*>(value.GetXmlObject().Get()));
            break;
        case 5:
            if (read)
                value.SetXmlObject(m_font);
            else
                SetFont(dynamic_cast<CFont*>(value.GetXmlObject().Get()));
            break;
        case 6:
            if (read) value.SetXmlCollection(m_shortcuts);
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CDisplay::GetClassInfo() const
{
    return DisplayTables().info;
}
CElementInfo** CDisplay::GetClassElementInfo() const
{
    return DisplayTables().elements;
}
CAttributeInfo** CDisplay::GetClassAttributeInfo() const
{
    return DisplayTables().attributes;
}
void CDisplay::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_display.info, g_display.elements, g_display.attributes);
}

// --- CStorage and its two derived classes

CStorage::CStorage(const char* elementName)
{
    SetElementName(elementName);
    CStorage::Init();
}

void CStorage::Init()
{
    m_quota = 0;
    m_hasQuota = false;
}

void CStorage::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (!read)
                SetQuota(value.GetI4());
            else if (m_hasQuota)
                value.SetI4(m_quota);
            else
                value.SetInvalid();
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CLocalStorage::CLocalStorage(const char* elementName) : CStorage(elementName)
{
    CLocalStorage::Init();
}

CSmartPtr<CLocalStorage> CLocalStorage::CreateInstance(const char* elementName)
{
    return CSmartPtr<CLocalStorage>(new CLocalStorage(elementName));
}

void CLocalStorage::Init()
{
    CStorage::Init();
    m_path.clear();
}

void CLocalStorage::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 1:
            if (read)
                LendString(value, m_path);
            else
                SetPath(value.GetString());
            break;
        default:
            CStorage::AccessProperty(propertyIndex, read, value);
    }
}

CParentElementInfo* CLocalStorage::GetClassInfo() const
{
    return LocalTables().info;
}
CElementInfo** CLocalStorage::GetClassElementInfo() const
{
    return LocalTables().elements;
}
CAttributeInfo** CLocalStorage::GetClassAttributeInfo() const
{
    return LocalTables().attributes;
}
void CLocalStorage::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_local.info, g_local.elements, g_local.attributes);
}

CCloudStorage::CCloudStorage(const char* elementName) : CStorage(elementName)
{
    CCloudStorage::Init();
}

CSmartPtr<CCloudStorage> CCloudStorage::CreateInstance(const char* elementName)
{
    return CSmartPtr<CCloudStorage>(new CCloudStorage(elementName));
}

void CCloudStorage::Init()
{
    CStorage::Init();
    m_provider.clear();
    m_region.clear();
    m_hasRegion = false;
}

void CCloudStorage::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 1:
            if (read)
                LendString(value, m_provider);
            else
                SetProvider(value.GetString());
            break;
        case 2:
            if (!read)
                SetRegion(value.GetString());
            else if (m_hasRegion)
                LendString(value, m_region);
            else
                value.SetInvalid();
            break;
        default:
            CStorage::AccessProperty(propertyIndex, read, value);
    }
}

CParentElementInfo* CCloudStorage::GetClassInfo() const
{
    return CloudTables().info;
}
CElementInfo** CCloudStorage::GetClassElementInfo() const
{
    return CloudTables().elements;
}
CAttributeInfo** CCloudStorage::GetClassAttributeInfo() const
{
    return CloudTables().attributes;
}
void CCloudStorage::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_cloud.info, g_cloud.elements, g_cloud.attributes);
}

// --- CSettings

CSettings::CSettings() : m_display(CDisplay::CreateInstance())
{
    SetElementName("Settings");
    Init();
}

CSmartPtr<CSettings> CSettings::CreateInstance()
{
    return CSmartPtr<CSettings>(new CSettings());
}

void CSettings::Init()
{
    m_version = 1;
    m_display->Init();
    // An abstract child has no default object: the factory makes one on reading.
    m_storage = nullptr;
    m_backup = nullptr;
}

void CSettings::SetDisplay(CDisplay* value)
{
    Throw_IfPropertyIsNull(value, "Display");
    Throw_IfElementNameDiffers(value, "Display");
    m_display = value;
}

void CSettings::SetStorage(CStorage* value)
{
    Throw_IfPropertyIsNull(value, "Storage");
    Throw_IfElementNameDiffers(value, "Storage");
    m_storage = value;
}

void CSettings::SetBackup(CStorage* value)
{
    Throw_IfElementNameDiffers(value, "Backup");
    m_backup = value;
}

void CSettings::AccessProperty(int propertyIndex, bool read, OrvexVariant& value)
{
    switch (propertyIndex) {
        case 0:
            if (read)
                value.SetI4(m_version);
            else
                SetVersion(value.GetI4());
            break;
        case 1:
            if (read)
                value.SetXmlObject(m_display);
            else
                SetDisplay(dynamic_cast<CDisplay*>(value.GetXmlObject().Get()));
            break;
        case 2:
            if (read)
                value.SetXmlObject(m_storage);
            else
                SetStorage(dynamic_cast<CStorage*>(value.GetXmlObject().Get()));
            break;
        case 3:
            if (read)
                value.SetXmlObject(m_backup);
            else
                SetBackup(dynamic_cast<CStorage*>(value.GetXmlObject().Get()));
            break;
        default:
            BadIndex(propertyIndex);
    }
}

CParentElementInfo* CSettings::GetClassInfo() const
{
    return SettingsTables().info;
}
CElementInfo** CSettings::GetClassElementInfo() const
{
    return SettingsTables().elements;
}
CAttributeInfo** CSettings::GetClassAttributeInfo() const
{
    return SettingsTables().attributes;
}
void CSettings::CleanMetaData()
{
    CXmlGeneratedClass::CleanMetaData(g_settings.info, g_settings.elements, g_settings.attributes);
}

// --- CSettingsFactory

CSmartPtr<CXmlObjectBase> CSettingsFactory::CreateClass(int classId, const char* elementName)
{
    switch (classId) {
        case Class_Font:
            return CSmartPtr<CXmlObjectBase>(CFont::CreateInstance(elementName).Get());
        default:
            throw COrvexInvalidParamException(FormatString("Unknown class id %d", classId));
    }
}

CSmartPtr<CXmlObjectBase> CSettingsFactory::CreateStorage(CXmlElement* element)
{
    if (GetElementTypeNamespaceUri(element) != kSettingsNamespace) return CSmartPtr<CXmlObjectBase>();
    const std::string type = GetElementType(element);
    const char* name = element->GetLocalName().c_str();
    if (type == "LocalStorage") return CSmartPtr<CXmlObjectBase>(CLocalStorage::CreateInstance(name).Get());
    if (type == "CloudStorage") return CSmartPtr<CXmlObjectBase>(CCloudStorage::CreateInstance(name).Get());
    return CSmartPtr<CXmlObjectBase>();
}

}  // namespace OrvexExamples
