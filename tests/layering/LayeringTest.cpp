// The project's layers, checked on its sources: a folder includes headers of
// its own layer and of the layers below it only, and no header reaches
// itself again through the headers it includes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Layer {
    std::string folder;                // relative to the source root, with a slash at the end
    std::vector<std::string> mayUse;  // the folders of the layers below it
};

// From the bottom up. The host stands in for the CAD system and the scene
// tools and the stand-in renderer for the renderer's side: none may reach
// into the plug-in.
const std::vector<Layer> layers = {
    {"platform/", {}},
    {"toolkit/", {"platform/"}},
    {"importers/sceneapi/", {"platform/"}},
    {"plugin/core/", {"toolkit/", "platform/"}},
    {"animation/", {"plugin/core/", "importers/sceneapi/", "toolkit/", "platform/"}},
    {"export/", {"animation/", "plugin/core/", "importers/sceneapi/", "toolkit/", "platform/"}},
    {"plugin/shell/", {"export/", "animation/", "plugin/core/", "importers/sceneapi/", "toolkit/", "platform/"}},
    {"scenereader/", {"importers/sceneapi/", "platform/"}},
    {"host/", {"scenereader/", "importers/sceneapi/", "toolkit/", "platform/"}},
    {"scenetools/", {"scenereader/", "importers/sceneapi/", "platform/"}},
    {"renderer/", {"scenereader/", "importers/sceneapi/", "platform/"}},
};

const Layer* layerOf(const std::string& path) {
    const Layer* found = nullptr;
    for (const Layer& layer : layers)
        if (path.rfind(layer.folder, 0) == 0 && (!found || layer.folder.size() > found->folder.size())) found = &layer;
    return found;
}

// The quoted header of an include line, or empty.
std::string quotedInclude(const std::string& line) {
    size_t hash = line.find_first_not_of(" \t");
    if (hash == std::string::npos || line[hash] != '#') return {};
    size_t word = line.find_first_not_of(" \t", hash + 1);
    if (word == std::string::npos || line.compare(word, 7, "include") != 0) return {};
    size_t open = line.find('"', word + 7), close = open == std::string::npos ? open : line.find('"', open + 1);
    if (close == std::string::npos || line.find_first_not_of(" \t", word + 7) != open) return {};
    return line.substr(open + 1, close - open - 1);
}

// Every source file of the project, relative to the root, with the project
// headers that it includes.
std::map<std::string, std::vector<std::string>> readIncludes(const fs::path& root) {
    std::map<std::string, std::vector<std::string>> files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp" && extension != ".inc")) continue;
        const std::string relative = fs::relative(entry.path(), root).generic_string();
        if (relative.rfind("build", 0) == 0 || relative.rfind(".git", 0) == 0) continue;
        std::ifstream in(entry.path());
        std::vector<std::string>& included = files[relative];
        for (std::string line; std::getline(in, line);) {
            const std::string header = quotedInclude(line);
            if (!header.empty() && fs::exists(root / header)) included.push_back(header);
        }
    }
    return files;
}

const fs::path sourceRoot = VANTREL_SOURCE_DIR;

TEST(Layering, NoFolderIncludesAHeaderOfALayerAboveIt) {
    const auto files = readIncludes(sourceRoot);
    ASSERT_GT(files.size(), 100u) << "the sources were not found under " << sourceRoot;
    std::vector<std::string> violations;
    for (const auto& [file, included] : files) {
        const Layer* from = layerOf(file);
        if (!from) continue;  // tests, benchmarks and tools may use any layer
        for (const std::string& header : included) {
            const Layer* to = layerOf(header);
            bool allowed = to == from || (to && std::count(from->mayUse.begin(), from->mayUse.end(), to->folder));
            if (!allowed) violations.push_back(file + " includes " + header);
        }
    }
    EXPECT_TRUE(violations.empty()) << ::testing::PrintToString(violations);
}

TEST(Layering, NoHeaderReachesItselfThroughItsIncludes) {
    const auto files = readIncludes(sourceRoot);
    enum class Mark { Open, Done };
    std::map<std::string, Mark> marks;
    std::vector<std::string> path, cycles;
    std::function<void(const std::string&)> visit = [&](const std::string& file) {
        marks[file] = Mark::Open;
        path.push_back(file);
        auto row = files.find(file);
        for (const std::string& header : row == files.end() ? std::vector<std::string>{} : row->second) {
            auto mark = marks.find(header);
            if (mark == marks.end()) {
                visit(header);
            } else if (mark->second == Mark::Open) {
                std::string cycle;
                for (auto it = std::find(path.begin(), path.end(), header); it != path.end(); ++it) cycle += *it + " -> ";
                cycles.push_back(cycle + header);
            }
        }
        path.pop_back();
        marks[file] = Mark::Done;
    };
    for (const auto& [file, included] : files)
        if (!marks.count(file)) visit(file);
    EXPECT_TRUE(cycles.empty()) << ::testing::PrintToString(cycles);
}

}  // namespace
