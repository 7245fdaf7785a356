// Application settings, written the way the code generator emits classes. The
// display block is an xs:all group: its children come in any order, some may be
// left out, and shortcuts repeat. Where the settings are kept is an abstract type
// that the document names with xsi:type. The schema (namespace urn:orvex:settings):
//
//   Settings   @version (1..99, required)   Display, Storage, Backup?
//   Display    all of: Theme (light|dark|system), Language (2 bytes), FontSize? (6..72),
//              Accent? (blue|green|red), Window, Font?, Shortcut (0..4)
//   Window     all of: Width (100..10000), Height (100..10000), Maximized? (boolean)
//   Font       Family, Size? (6..72)
//   Shortcut   @key (F[0-9]{1,2}|[A-Z], required)   Action
//   Storage    abstract: Quota? (>= 0); by xsi:type either
//     LocalStorage  + Path (>= 1 byte)
//     CloudStorage  + Provider, Region?
#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace OrvexExamples {

using namespace OrvexXmlLib5;

extern const char* const kSettingsNamespace;

enum Theme
{
    Theme_Light = 0,
    Theme_Dark = 1,
    Theme_System = 2
};
// Generated text functions; an unknown text fails with COrvexInvalidValueException.
const char* ThemeToString(int value);
int ThemeFromString(const char* text);

enum Accent
{
    Accent_Blue = 0,
    Accent_Green = 1,
    Accent_Red = 2
};
const char* AccentToString(int value);
int AccentFromString(const char* text);

// An xs:all class nested in another.
class CWindow : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kSettingsNamespace; }
    std::string GetNamespace() const override { return kSettingsNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CWindow();
    static CSmartPtr<CWindow> CreateInstance();

    std::int32_t GetWidth() const { return m_width; }
    void SetWidth(std::int32_t value) { m_width = value; }
    std::int32_t GetHeight() const { return m_height; }
    void SetHeight(std::int32_t value) { m_height = value; }
    bool GetMaximized() const { return m_maximized; }
    void SetMaximized(bool value)
    {
        m_maximized = value;
        m_hasMaximized = true;
    }
    bool IsValidMaximized() const { return m_hasMaximized; }
    void ClearMaximized() { m_hasMaximized = false; }

private:
    std::int32_t m_width;
    std::int32_t m_height;
    bool m_maximized;
    bool m_hasMaximized;
};

class CFont : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kSettingsNamespace; }
    std::string GetNamespace() const override { return kSettingsNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    // elementName is the name under which the object is read and written.
    explicit CFont(const char* elementName = "Font");
    static CSmartPtr<CFont> CreateInstance(const char* elementName = "Font");

    std::string GetFamily() const { return m_family; }
    void SetFamily(const std::string& value) { m_family = value; }
    std::int32_t GetSize() const { return m_size; }
    void SetSize(std::int32_t value)
    {
        m_size = value;
        m_hasSize = true;
    }
    bool IsValidSize() const { return m_hasSize; }

private:
    std::string m_family;
    std::int32_t m_size;
    bool m_hasSize;
};

class CShortcut : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kSettingsNamespace; }
    std::string GetNamespace() const override { return kSettingsNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CShortcut();
    static CSmartPtr<CShortcut> CreateInstance();

    std::string GetKey() const { return m_key; }
    void SetKey(const std::string& value) { m_key = value; }
    std::string GetAction() const { return m_action; }
    void SetAction(const std::string& value) { m_action = value; }

private:
    std::string m_key;
    std::string m_action;
};

// The generated collection of Shortcut elements.
class CShortcutCol : public CXmlCollection
{
public:
    CShortcutCol(const char* name, const char* namespaceUri, int minOccurs, int maxOccurs)
        : CXmlCollection(name, namespaceUri, minOccurs, maxOccurs)
    {
    }

    // A new shortcut named after the collection, appended.
    CSmartPtr<CShortcut> Add();
    // Fails with COrvexInvalidParamException outside 0 to GetCount() - 1.
    CSmartPtr<CShortcut> Item(int index) const;
    COrvexIterator<CShortcut> begin() const { return COrvexIterator<CShortcut>(GetHead()); }
    COrvexIterator<CShortcut> end() const { return COrvexIterator<CShortcut>(); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, const char* namespaceUri, const CXmlSerializationContext& context,
                   bool isOptional) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool isOptional) override;
};

// The xs:all block.
class CDisplay : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kSettingsNamespace; }
    std::string GetNamespace() const override { return kSettingsNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CDisplay();
    static CSmartPtr<CDisplay> CreateInstance();

    Theme GetTheme() const { return m_theme; }
    void SetTheme(Theme value) { m_theme = value; }
    std::string GetLanguage() const { return m_language; }
    void SetLanguage(const std::string& value) { m_language = value; }
    std::int32_t GetFontSize() const { return m_fontSize; }
    void SetFontSize(std::int32_t value)
    {
        m_fontSize = value;
        m_hasFontSize = true;
    }
    bool IsValidFontSize() const { return m_hasFontSize; }
    void ClearFontSize() { m_hasFontSize = false; }
    Accent GetAccent() const { return m_accent; }
    void SetAccent(Accent value)
    {
        m_accent = value;
        m_hasAccent = true;
    }
    bool IsValidAccent() const { return m_hasAccent; }
    CSmartPtr<CWindow> GetWindow() const { return m_window; }
    // Mandatory: null fails with COrvexInvalidParamException, as does an object
    // named other than "Window".
    void SetWindow(CWindow* value);
    CSmartPtr<CFont> GetFont() const { return m_font; }
    // Null removes the font; an object named other than "Font" fails.
    void SetFont(CFont* value);
    CSmartPtr<CShortcutCol> GetShortcuts() const { return m_shortcuts; }

private:
    Theme m_theme;
    std::string m_language;
    std::int32_t m_fontSize;
    bool m_hasFontSize;
    Accent m_accent;
    bool m_hasAccent;
    CSmartPtr<CWindow> m_window;
    CSmartPtr<CFont> m_font;
    CSmartPtr<CShortcutCol> m_shortcuts;
};

// The abstract base of the two storages; the factory picks the derived class from
// xsi:type, and a derived object written under the base's element name says its
// type the same way.
class CStorage : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kSettingsNamespace; }
    std::string GetNamespace() const override { return kSettingsNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    void Init() override;

    std::int32_t GetQuota() const { return m_quota; }
    void SetQuota(std::int32_t value)
    {
        m_quota = value;
        m_hasQuota = true;
    }
    bool IsValidQuota() const { return m_hasQuota; }

protected:
    explicit CStorage(const char* elementName);

private:
    std::int32_t m_quota;
    bool m_hasQuota;
};

class CLocalStorage : public CStorage
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    explicit CLocalStorage(const char* elementName = "Storage");
    static CSmartPtr<CLocalStorage> CreateInstance(const char* elementName = "Storage");

    std::string GetPath() const { return m_path; }
    void SetPath(const std::string& value) { m_path = value; }

private:
    std::string m_path;
};

class CCloudStorage : public CStorage
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    explicit CCloudStorage(const char* elementName = "Storage");
    static CSmartPtr<CCloudStorage> CreateInstance(const char* elementName = "Storage");

    std::string GetProvider() const { return m_provider; }
    void SetProvider(const std::string& value) { m_provider = value; }
    std::string GetRegion() const { return m_region; }
    void SetRegion(const std::string& value)
    {
        m_region = value;
        m_hasRegion = true;
    }
    bool IsValidRegion() const { return m_hasRegion; }

private:
    std::string m_provider;
    std::string m_region;
    bool m_hasRegion;
};

class CSettings : public CXmlGeneratedClass
{
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return kSettingsNamespace; }
    std::string GetNamespace() const override { return kSettingsNamespace; }
    void AccessProperty(int propertyIndex, bool read, OrvexVariant& value) override;
    OrvexXmlLib5Data::CParentElementInfo* GetClassInfo() const override;
    OrvexXmlLib5Data::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlLib5Data::CAttributeInfo** GetClassAttributeInfo() const override;
    void Init() override;
    static void CleanMetaData();

    CSettings();
    static CSmartPtr<CSettings> CreateInstance();

    std::int32_t GetVersion() const { return m_version; }
    void SetVersion(std::int32_t value) { m_version = value; }
    CSmartPtr<CDisplay> GetDisplay() const { return m_display; }
    // Mandatory: null fails with COrvexInvalidParamException, as does an object
    // named other than "Display".
    void SetDisplay(CDisplay* value);
    CSmartPtr<CStorage> GetStorage() const { return m_storage; }
    // Mandatory: null fails, as does an object named other than "Storage".
    void SetStorage(CStorage* value);
    CSmartPtr<CStorage> GetBackup() const { return m_backup; }
    // Null removes the backup; an object named other than "Backup" fails.
    void SetBackup(CStorage* value);

private:
    std::int32_t m_version;
    CSmartPtr<CDisplay> m_display;
    CSmartPtr<CStorage> m_storage;
    CSmartPtr<CStorage> m_backup;
};

// The generated factory of this schema: class ids for the optional children and
// the choice of a storage by xsi:type.
class CSettingsFactory : public CClassfactoryBase
{
public:
    enum ClassId
    {
        Class_Font = 1
    };
    // The object numbered classId, named elementName; an unknown id fails with
    // COrvexInvalidParamException.
    static CSmartPtr<CXmlObjectBase> CreateClass(int classId, const char* elementName);
    // LocalStorage or CloudStorage of this namespace, named after the element;
    // null for any other type, and for an element without xsi:type, since the base
    // is abstract.
    static CSmartPtr<CXmlObjectBase> CreateStorage(CXmlElement* element);
};

}  // namespace OrvexExamples
