#include "platform/CodePage.h"
#include "tests/plugin/PluginFixture.h"
#include "tests/support/LocaleScope.h"
#include "tests/support/NativeForms.h"

namespace {

using SettingsFile = PluginTest;

std::string document(const std::string& children) { return "<?xml version=\"1.0\" ?><any_root>" + children + "</any_root>"; }

void expectDefaults(const PluginSettings& settings) {
    EXPECT_EQ(settings.tessellationQuality, 0.2);
    EXPECT_EQ(settings.upAxis, 1);
    EXPECT_EQ(settings.selectionMode, 0);
    EXPECT_EQ(settings.exportPath + settings.fraPath, u"");
    EXPECT_EQ(std::vector<bool>({settings.promptForMechanism, settings.includeNURBS, settings.separateMaterials,
                                 settings.useAssemblyMaterials}),
              std::vector<bool>({false, true, true, false}));
}

TEST_F(SettingsFile, MissingEmptyOrMalformedFileLeavesTheDefaults) {
    for (const char* content : {"", "<vantrel_plugin_settings><upAxis>3</upAxis>"}) {
        writeSettings(content);
        VantrelPlugin plugin;
        expectDefaults(plugin.settings);
    }
    std::filesystem::remove(settingsFileName);
    expectDefaults(VantrelPlugin().settings);
}

TEST_F(SettingsFile, EveryFieldIsReadFromARootOfAnyName) {
    writeSettings(testData("every_field.xml"));
    VantrelPlugin plugin;
    const PluginSettings& settings = plugin.settings;
    EXPECT_EQ(settings.tessellationQuality + plugin.previousTessellationQuality, 1.5);
    EXPECT_EQ(settings.upAxis, 7) << "kept without a check";
    EXPECT_EQ(settings.selectionMode, 1);
    EXPECT_EQ(std::vector<bool>({settings.promptForMechanism, settings.includeNURBS, settings.separateMaterials,
                                 settings.useAssemblyMaterials}),
              std::vector<bool>({true, false, false, true}));
    EXPECT_EQ(settings.exportPath + settings.fraPath, u"/a & b.vnz/m.fra");
}

TEST_F(SettingsFile, OddTextsAndNodesChangeOnlyWhatTheRulesSay) {
    writeSettings(document("<upAxis>2</upAxis>"));
    VantrelPlugin plugin;
    EXPECT_EQ(plugin.settings.upAxis, 2);
    plugin.settings.upAxis = 1;
    expectDefaults(plugin.settings);

    plugin.settings.selectionMode = 1;
    plugin.settings.exportPath = u"/old.vnz";
    writeSettings(document("<selectionMode>Manual</selectionMode><includeNURBS>yes</includeNURBS>"
                           "<tessellationQuality>fine</tessellationQuality><exportPath></exportPath><fraPath/>"
                           "<!--upAxis--><upAxis>4</upAxis>"));
    loadSettings(plugin);
    EXPECT_EQ(plugin.settings.selectionMode, 1) << "\"Manual\" is no selection mode";
    EXPECT_FALSE(plugin.settings.includeNURBS) << "only \"true\" is true";
    EXPECT_EQ(plugin.settings.tessellationQuality, 0.0) << "a text that is no number gives 0";
    EXPECT_EQ(plugin.settings.exportPath, u"/old.vnz") << "an empty path element leaves the path";
    EXPECT_EQ(plugin.settings.upAxis, 1) << "the first child named upAxis is a comment, no element";
}

TEST_F(SettingsFile, SaveWritesEveryFieldInOrder) {
    VantrelPlugin plugin;
    plugin.settings.exportPath = u"/scenes/a<b>.vnz";
    plugin.settings.promptForMechanism = true;
    plugin.settings.selectionMode = 2;
    saveSettings(plugin);
    EXPECT_EQ(readSettings(), testsupport::nativeLineEnds(testData("saved_settings.xml")));
}

// Paths are written in the system code page, at most 1023 bytes of them and
// no character cut in two. Where that code page is UTF-8 they read back.
TEST_F(SettingsFile, PathsAreWrittenInTheSystemCodePageUpTo1023Bytes) {
    VantrelPlugin plugin;
    plugin.settings.tessellationQuality = 0.123456789;
#ifdef _WIN32
    // Windows' system code page (1252 under Wine's default settings) has a
    // byte a letter. The declaration names no encoding, which the XML
    // library reads as UTF-8: such bytes don't read back there.
    ASSERT_EQ(platform::systemCodePageName(), "windows-1252");
    plugin.settings.exportPath = u"/Gr\u00fc\u00dfe/\u00e9t\u00e9.vnz";
    plugin.settings.fraPath = std::u16string(1022, u'p') + u"\u00e9\u00e9";
    saveSettings(plugin);
    EXPECT_NE(readSettings().find("<exportPath>/Gr\xfc\xdf" "e/\xe9t\xe9.vnz</exportPath>"), std::string::npos)
        << readSettings();
    EXPECT_NE(readSettings().find("<fraPath>" + std::string(1022, 'p') + "\xe9</fraPath>"), std::string::npos)
        << "1023 bytes are kept";
#else
    testsupport::LocaleScope locale("C.UTF-8");
    ASSERT_TRUE(locale.ok()) << "the C.UTF-8 locale is not installed";
    plugin.settings.exportPath = u"/Gr\u00fc\u00dfe/\u6a21\u578b.vnz";
    plugin.settings.fraPath = std::u16string(1020, u'p') + u"\u00e9\u00e9";
    saveSettings(plugin);
    EXPECT_NE(readSettings().find("/Gr\xc3\xbc\xc3\x9f" "e/\xe6\xa8\xa1\xe5\x9e\x8b.vnz"), std::string::npos);
    VantrelPlugin reloaded;
    EXPECT_EQ(reloaded.settings.exportPath, plugin.settings.exportPath);
    EXPECT_EQ(reloaded.settings.fraPath, std::u16string(1020, u'p') + u"\u00e9") << "the second 2-byte e is cut";
    EXPECT_EQ(reloaded.settings.tessellationQuality, 0.123457) << "six decimals";
#endif
}

}  // namespace
