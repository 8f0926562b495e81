// The plug-in library as the host sees it from outside: its dynamic symbol
// table holds the two entry points and the members of xstring, and nothing else.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <string>

namespace {

std::set<std::string> linesOf(std::FILE* stream) {
    std::set<std::string> lines;
    char buffer[1024];
    while (std::fgets(buffer, sizeof buffer, stream)) {
        std::string line(buffer);
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
        if (!line.empty()) lines.insert(line);
    }
    return lines;
}

// The demangled names of the defined dynamic symbols ("ADDRESS TYPE NAME").
std::set<std::string> exportedNames(const std::string& library) {
    std::string command = "nm -DC --defined-only '" + library + "' | cut -d' ' -f3-";
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return {};
    std::set<std::string> names = linesOf(pipe);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return names;
}

TEST(ExportedSymbols, AreTheEntryPointsAndTheMembersOfXstring) {
    std::FILE* file = std::fopen(VANTREL_EXPORTED_SYMBOLS_FILE, "r");
    ASSERT_NE(file, nullptr) << VANTREL_EXPORTED_SYMBOLS_FILE;
    std::set<std::string> expected = linesOf(file);
    std::fclose(file);
    EXPECT_EQ(expected.size(), 57u);
    EXPECT_EQ(exportedNames(VANTREL_PLUGIN_FILE), expected);
}

}  // namespace
