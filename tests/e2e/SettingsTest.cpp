// The settings example through FromXml and ToXml: the xs:all display block in
// every order, with children missing, doubled and unknown under each option of the
// context; and the storages chosen by xsi:type and written back with it.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "e2e/EndToEndSupport.h"
#include "examples/ExamplePaths.h"
#include "examples/purchase-order/PurchaseOrderTools.h"
#include "examples/settings/Settings.h"

using namespace OrvexXmlLib5;
using namespace OrvexExamples;
using namespace OrvexTest;

namespace {

const char* const kLocal = "<s:Storage xsi:type=\"LocalStorage\"><s:Path>/p</s:Path></s:Storage>";

std::string Settings(const std::string& content)
{
    return "<s:Settings xmlns:s=\"urn:orvex:settings\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
           "version=\"2\">" +
           content + "</s:Settings>";
}

std::string DisplayDoc(const std::string& children)
{
    return Settings("<s:Display>" + children + "</s:Display>" + kLocal);
}

std::string StorageDoc(const std::string& storage, const std::string& backup = "")
{
    return Settings("<s:Display><s:Theme>dark</s:Theme><s:Language>en</s:Language><s:Window><s:Width>640</s:Width>"
                    "<s:Height>480</s:Height></s:Window></s:Display>" +
                    storage + backup);
}

const char* const kTheme = "<s:Theme>light</s:Theme>";
const char* const kLanguage = "<s:Language>fr</s:Language>";
const char* const kFontSize = "<s:FontSize>14</s:FontSize>";
const char* const kWindow = "<s:Window><s:Height>700</s:Height><s:Width>1000</s:Width></s:Window>";
const char* const kFont = "<s:Font><s:Family>Mono</s:Family></s:Font>";
const char* const kShortcutA = "<s:Shortcut key=\"A\"><s:Action>all</s:Action></s:Shortcut>";
const char* const kShortcutB = "<s:Shortcut key=\"F2\"><s:Action>rename</s:Action></s:Shortcut>";

// The context options one by one, and all at once but for the missing elements,
// which the context does not let go together with the unknown ones.
const char* const kAll = "unknown choice counts namespaces";
const char* const kOptions[] = {"none", "unknown", "missing", "choice", "counts", "namespaces", kAll};

std::string InDisplay(const std::string& cause)
{
    return "Failed to process the element [Settings]\nFailed to process the element [Display]\n" + cause;
}

std::string Missing(const char* name)
{
    return std::string("Failed to find the mandatory element [") + name + "]";
}

const std::string kNoStorage =
    "Failed to process the element [Settings]\nFailed to find a suitable substitution element for [Storage]";

}  // namespace

TEST(Settings, SampleReadsIntoTypedPropertiesAndWritesBackWithItsTypes)
{
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    settings->FromXml(ReadTextFile(ExamplePath("settings/settings.xml")).c_str());
    EXPECT_EQ(Theme_Dark, settings->GetDisplay()->GetTheme());
    EXPECT_EQ(5000, dynamic_cast<CCloudStorage&>(*settings->GetStorage()).GetQuota());
    EXPECT_FALSE(dynamic_cast<CLocalStorage&>(*settings->GetBackup()).IsValidQuota());

    // Written in table order, each storage with the type it was read as; the
    // optional members the sample leaves out are not written.
    const std::string written = settings->ToXml(false, false, EOL_LF);
    EXPECT_EQ(
        "<AA:Settings xmlns:AA=\"urn:orvex:settings\" version=\"3\"><AA:Display><AA:Theme>dark</AA:Theme>"
        "<AA:Language>en</AA:Language><AA:Window><AA:Width>1440</AA:Width><AA:Height>900</AA:Height>"
        "<AA:Maximized>true</AA:Maximized></AA:Window><AA:Font><AA:Family>Inter</AA:Family><AA:Size>13</AA:Size>"
        "</AA:Font><AA:Shortcut key=\"S\"><AA:Action>save</AA:Action></AA:Shortcut><AA:Shortcut key=\"F5\">"
        "<AA:Action>refresh</AA:Action></AA:Shortcut></AA:Display><AA:Storage "
        "xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:CloudStorage\"><AA:Quota>5000"
        "</AA:Quota><AA:Provider>Nimbus</AA:Provider><AA:Region>eu-west</AA:Region></AA:Storage><AA:Backup "
        "xmlns:AB=\"http://www.w3.org/2001/XMLSchema-instance\" AB:type=\"AA:LocalStorage\"><AA:Path>"
        "/var/backups/app</AA:Path></AA:Backup></AA:Settings>",
        written);
    CSmartPtr<CSettings> again = CSettings::CreateInstance();
    again->FromXml(written.c_str());
    EXPECT_EQ(written, again->ToXml(false, false, EOL_LF));
}

TEST(Settings, BuiltInCodeTheDerivedClassesWriteTheirTypeUnderADefaultNamespace)
{
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    settings->GetDisplay()->SetLanguage("de");
    CSmartPtr<CLocalStorage> local = CLocalStorage::CreateInstance();
    local->SetPath("/data");
    settings->SetStorage(local);
    CSmartPtr<CCloudStorage> cloud = CCloudStorage::CreateInstance("Backup");
    cloud->SetProvider("Nimbus");
    settings->SetBackup(cloud);
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI("urn:orvex:settings");
    const std::string written = settings->ToXml(false, false, EOL_LF, context);
    EXPECT_NE(std::string::npos, written.find("<Storage xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                              "AA:type=\"LocalStorage\"><Path>/data</Path></Storage>"))
        << written;
    EXPECT_NE(std::string::npos, written.find("AA:type=\"CloudStorage\"><Provider>Nimbus</Provider></Backup>"))
        << written;

    CSmartPtr<CSettings> again = CSettings::CreateInstance();
    ASSERT_EQ("read", ReadChain(again, written));
    EXPECT_EQ(written, again->ToXml(false, false, EOL_LF, context));
}

// Six different children in each of their 720 orders, and a second shortcut at
// every place in each of them: all are read, the shortcuts in document order, and
// the object writes the same text every time.
TEST(SettingsAll, EveryOrderReadsTheSame)
{
    std::vector<std::string> children = {kTheme, kLanguage, kFontSize, kWindow, kFont, kShortcutA};
    std::sort(children.begin(), children.end());
    std::string expected[2];  // by whether A or F2 comes first
    int reads = 0;
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    do {
        for (std::size_t place = 0; place <= children.size(); ++place) {
            std::vector<std::string> order = children;
            order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), kShortcutB);
            std::string body;
            for (const std::string& child : order) body += child;
            ASSERT_EQ("read", ReadChain(settings, DisplayDoc(body))) << body;
            // The written text does not depend on the order of reading, apart from
            // the order of the shortcuts.
            const bool aFirst = std::find(order.begin(), order.end(), kShortcutA) <
                                std::find(order.begin(), order.end(), kShortcutB);
            const std::string written = settings->ToXml(false, false, EOL_LF);
            if (expected[aFirst].empty()) expected[aFirst] = written;
            EXPECT_EQ(expected[aFirst], written) << body;
            ++reads;
        }
    } while (std::next_permutation(children.begin(), children.end()));
    EXPECT_LT(expected[true].find("key=\"A\""), expected[true].find("key=\"F2\""));
    EXPECT_GT(expected[false].find("key=\"A\""), expected[false].find("key=\"F2\""));
    for (const char* value : {"light</AA:Theme>", ">14</AA:FontSize>", ">700</AA:Height>", ">Mono</AA:Family>"})
        EXPECT_NE(std::string::npos, expected[false].find(value)) << value;
    EXPECT_EQ(720 * 7, reads);
}

TEST(SettingsAll, OptionalChildrenMayBeLeftOutAndAreNotWritten)
{
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    ASSERT_EQ("read", ReadChain(settings, DisplayDoc(std::string(kWindow) + kLanguage + kTheme)));
    EXPECT_NE(std::string::npos,
              settings->ToXml(false, false, EOL_LF)
                  .find("<AA:Display><AA:Theme>light</AA:Theme><AA:Language>fr</AA:Language><AA:Window><AA:Width>"
                        "1000</AA:Width><AA:Height>700</AA:Height></AA:Window></AA:Display>"));
    // A second read starts from Init: what the first one set is gone.
    ASSERT_EQ("read", ReadChain(settings, DisplayDoc(std::string(kFont) + kWindow + kLanguage + kTheme)));
    ASSERT_EQ("read", ReadChain(settings, DisplayDoc(std::string(kWindow) + kLanguage + kTheme)));
    EXPECT_TRUE(settings->GetDisplay()->GetFont().IsNull());
}

// A missing mandatory child is found at the end, whatever the options say.
TEST(SettingsAll, MissingMandatoryChildrenFailUnderEveryOption)
{
    struct Case { std::string children; std::string chain; } cases[] = {
        {std::string(kLanguage) + kWindow, InDisplay(Missing("Theme"))},
        {std::string(kTheme) + kLanguage + kFont, InDisplay(Missing("Window"))},
        {std::string(kTheme) + kLanguage + "<s:Window><s:Width>900</s:Width></s:Window>",
         InDisplay("Failed to process the element [Window]\n" + Missing("Height"))},
    };
    for (const Case& c : cases)
        for (const char* option : kOptions) {
            CSmartPtr<CSettings> settings = CSettings::CreateInstance();
            EXPECT_EQ(c.chain, ReadChain(settings, DisplayDoc(c.children), option))
                << c.children << " / " << option;
        }
}

// A doubled child is an element that no descriptor takes any more, as an unknown
// one is: it ends the passes, so what stands behind it stays unread.
TEST(SettingsAll, DoubledAndUnknownChildrenUnderEachOption)
{
    const std::string themeTwiceAtTheEnd = std::string(kLanguage) + kWindow + kTheme + "<s:Theme>dark</s:Theme>";
    const std::string themeTwiceFirst = std::string(kTheme) + "<s:Theme>dark</s:Theme>" + kLanguage + kWindow;
    const std::string windowTwice = std::string(kTheme) + kLanguage + kWindow + kWindow + kFont;
    const std::string atTheEnd = std::string(kTheme) + kLanguage + kWindow + "<s:Colour>red</s:Colour>";
    const std::string beforeOptional = std::string(kTheme) + kLanguage + kWindow + "<s:Colour/>" + kFont;
    const std::string beforeMandatory = std::string(kTheme) + "<s:Colour/>" + kLanguage + kWindow;
    const std::string foreign = std::string(kLanguage) + kWindow + "<o:Theme xmlns:o=\"urn:other\">dark</o:Theme>";
    const struct { const std::string* children; const char* option; std::string chain; } cases[] = {
        {&themeTwiceAtTheEnd, "none", InDisplay(Leftover("Display", "Theme"))},
        {&themeTwiceAtTheEnd, "unknown", "read"},
        {&themeTwiceFirst, "unknown", InDisplay(Missing("Language"))},
        {&windowTwice, "none", InDisplay(Leftover("Display", "Window"))},
        {&windowTwice, "unknown", "read"},
        {&atTheEnd, "none", InDisplay(Leftover("Display", "Colour"))},
        {&atTheEnd, "unknown", "read"},
        // Ignoring unknown elements does not skip over one here: the font is not read.
        {&beforeOptional, "unknown", "read"},
        {&beforeMandatory, "unknown", InDisplay(Missing("Language"))},
        {&foreign, "unknown", InDisplay(Missing("Theme"))},
        {&foreign, "namespaces", "read"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(*c.children + " / " + c.option);
        CSmartPtr<CSettings> settings = CSettings::CreateInstance();
        EXPECT_EQ(c.chain, ReadChain(settings, DisplayDoc(*c.children), c.option));
        if (c.chain != "read") continue;
        // The first of two counts; with the second window the font behind it is lost.
        EXPECT_EQ(c.children == &foreign ? Theme_Dark : Theme_Light, settings->GetDisplay()->GetTheme());
        EXPECT_TRUE(settings->GetDisplay()->GetFont().IsNull());
    }
}

TEST(SettingsAll, CollectionCountIsTestedOnceAtTheEnd)
{
    // Five shortcuts apart from each other: all reach the collection, and the count
    // fails once.
    const std::string five = std::string(kShortcutA) + kTheme + kShortcutA + kShortcutA + kLanguage + kShortcutA +
                             kWindow + kShortcutA;
    const std::string tooMany = "The Maximum number of [Shortcut] elements allowed in this collection is 4";
    for (const char* option : kOptions) {
        CSmartPtr<CSettings> settings = CSettings::CreateInstance();
        const bool ignored = std::string(option).find("counts") != std::string::npos;
        EXPECT_EQ(ignored ? "read" : InDisplay(tooMany), ReadChain(settings, DisplayDoc(five), option))
            << option;
        if (ignored) {
            EXPECT_EQ(5, settings->GetDisplay()->GetShortcuts()->GetCount());
        }
    }
}

// Storage is abstract and mandatory, Backup abstract and optional; the factory
// decides by xsi:type (how it reads prefixes is tested with the factory itself).
TEST(SettingsSubstitution, TypeWithAndWithoutPrefix)
{
    struct Case { const char* storage; bool cloud; } cases[] = {
        {"<s:Storage xsi:type=\"s:CloudStorage\"><s:Provider>N</s:Provider></s:Storage>", true},
        {"<s:Storage xsi:type=\"LocalStorage\"><s:Path>/x</s:Path></s:Storage>", false},
        // The element in the default namespace, the type unprefixed.
        {"<Storage xmlns=\"urn:orvex:settings\" xsi:type=\"CloudStorage\"><Quota>3</Quota><Provider>N</Provider>"
         "</Storage>",
         true},
    };
    for (const Case& c : cases) {
        CSmartPtr<CSettings> settings = CSettings::CreateInstance();
        ASSERT_EQ("read", ReadChain(settings, StorageDoc(c.storage))) << c.storage;
        EXPECT_EQ(c.cloud, dynamic_cast<CCloudStorage*>(settings->GetStorage().Get()) != nullptr) << c.storage;
        // The class writes its own type name, so a wrong class shows here too.
        const std::string written = settings->ToXml(false, false, EOL_LF);
        EXPECT_NE(std::string::npos,
                  written.find(c.cloud ? "AB:type=\"AA:CloudStorage\"" : "AB:type=\"AA:LocalStorage\""))
            << written;
    }
}

TEST(SettingsSubstitution, NoSuitableClassForTheMandatoryStorageFailsUnderEveryOption)
{
    const char* const storages[] = {
        // The abstract base without xsi:type.
        "<s:Storage><s:Path>/x</s:Path></s:Storage>",
        // A type name this schema does not have.
        "<s:Storage xsi:type=\"s:TapeStorage\"><s:Path>/x</s:Path></s:Storage>",
        "<s:Storage xsi:type=\"Storage\"><s:Path>/x</s:Path></s:Storage>",
        // The right name in another namespace.
        "<s:Storage xmlns:o=\"urn:other\" xsi:type=\"o:LocalStorage\"><s:Path>/x</s:Path></s:Storage>",
        // No storage at all.
        "",
    };
    for (const char* storage : storages)
        for (const char* option : kOptions) {
            CSmartPtr<CSettings> settings = CSettings::CreateInstance();
            EXPECT_EQ(kNoStorage, ReadChain(settings, StorageDoc(storage), option))
                << storage << " / " << option;
        }
}

TEST(SettingsSubstitution, UnknownTypeOfTheOptionalBackupLeavesItUnread)
{
    const std::string xml = StorageDoc(kLocal, "<s:Backup xsi:type=\"s:TapeStorage\"><s:Path>/b</s:Path></s:Backup>");
    CSmartPtr<CSettings> settings = CSettings::CreateInstance();
    EXPECT_EQ("Failed to process the element [Settings]\n" + Leftover("Settings", "Backup"), ReadChain(settings, xml));
    ASSERT_EQ("read", ReadChain(settings, xml, "unknown"));
    EXPECT_TRUE(settings->GetBackup().IsNull());
    // A derived class whose own members are wrong fails inside its element.
    EXPECT_EQ("Failed to process the element [Settings]\nFailed to process the element [Backup]\n"
              "Failed to find a required element [Path]",
              ReadChain(settings, StorageDoc(kLocal, "<s:Backup xsi:type=\"LocalStorage\"/>")));
}
