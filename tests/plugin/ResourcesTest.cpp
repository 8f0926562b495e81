// The built plug-in library as the host sees it: its exported symbols and
// the resource files beside it.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace {

const std::filesystem::path pluginFile = VANTREL_PLUGIN_FILE;

TEST(PluginLibrary, ExportsOnlyTheTwoEntryPoints) {
    ASSERT_TRUE(std::filesystem::exists(pluginFile)) << pluginFile;
    std::set<std::string> symbols;
    FILE* output = popen(("nm -D --defined-only '" + pluginFile.string() + "'").c_str(), "r");
    ASSERT_NE(output, nullptr);
    char line[1024];
    while (std::fgets(line, sizeof line, output)) {
        std::string address, kind, name;
        if (std::istringstream(line) >> address >> kind >> name) symbols.insert(name);
    }
    pclose(output);
    EXPECT_EQ(symbols, (std::set<std::string>{"user_initialize_plus", "user_terminate_plus"}));
}

TEST(PluginLibrary, MessagesAndIconsLieBesideIt) {
    const std::filesystem::path text = pluginFile.parent_path() / "text";
    std::ifstream messages(text / "usascii" / "vantrel_plugin_msg.txt");
    std::string line;
    int lines = 0;
    std::set<std::string> keys;
    for (; std::getline(messages, line); ++lines) {
        if (lines % 4 == 0) keys.insert(line);
        if (lines % 4 == 3) {
            EXPECT_EQ(line, "#") << "message " << lines / 4;
        }
    }
    EXPECT_EQ(lines % 4, 0);
    EXPECT_EQ(keys.size() * 4, static_cast<std::size_t>(lines)) << "each key once";
    for (const char* key : {"vantrelPluginOK", "vantrelPluginOk", "vantrelPluginSettingsManualHelp",
                            "vantrelPluginPromptForMechanismHelp2", "vantrelPluginAnimationExportHelp"}) {
        EXPECT_EQ(keys.count(key), 1u) << key;
    }
    for (const char* icon : {"vr_settings.png", "vr_render.png", "vr_export.png", "vr_update.png",
                             "vr_update_checked.png", "vr_update_unchecked.png", "checked.png", "unchecked.png"}) {
        char signature[8] = {};
        std::ifstream(text / "resource" / icon, std::ios::binary).read(signature, sizeof signature);
        EXPECT_EQ(std::string(signature, 8), "\x89PNG\r\n\x1a\n") << icon;
    }
}

}  // namespace
