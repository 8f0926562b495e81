// The built plug-in library as the host sees it: its exported symbols and
// the resource files beside it.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace {

const std::filesystem::path pluginFile = VANTREL_PLUGIN_FILE;

// The demangled names of the defined dynamic symbols ("ADDRESS TYPE NAME"),
// or the lines of a file of them.
std::set<std::string> linesOf(FILE* stream) {
    std::set<std::string> lines;
    char buffer[1024];
    while (std::fgets(buffer, sizeof buffer, stream)) {
        std::string line(buffer);
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
        if (!line.empty()) lines.insert(line);
    }
    return lines;
}

// The two entry points of the handshake and the members of xstring, as
// listed by hand in exported_symbols.txt, and nothing else.
TEST(PluginLibrary, ExportsTheEntryPointsAndTheMembersOfXstring) {
    ASSERT_TRUE(std::filesystem::exists(pluginFile)) << pluginFile;
    FILE* list = std::fopen(VANTREL_EXPORTED_SYMBOLS_FILE, "r");
    ASSERT_NE(list, nullptr) << VANTREL_EXPORTED_SYMBOLS_FILE;
    const std::set<std::string> expected = linesOf(list);
    std::fclose(list);
    EXPECT_EQ(expected.size(), 57u);
    FILE* output = popen(("nm -DC --defined-only '" + pluginFile.string() + "' | cut -d' ' -f3-").c_str(), "r");
    ASSERT_NE(output, nullptr);
    const std::set<std::string> symbols = linesOf(output);
    EXPECT_EQ(pclose(output), 0);
    EXPECT_EQ(symbols, expected);
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
