#include "scenereader/SceneCheckTool.h"

#include <exception>

#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"

namespace scenereader {

namespace {

// Answers whether the file read and passed its checks.
constexpr const char* usage =
    "usage: vantrel-scene-check [--tree] FILE...\n"
    "Reads each \".vnz\" scene file, checks its meshes and exact surfaces and prints a summary.\n"
    "  --tree   also lists the tree of groups, objects, meshes, materials and cameras\n"
    "  --help   shows this text\n"
    "Exits with 1 when a file can't be read or fails its checks, with 2 on a usage error.\n";

bool checkFile(const std::string& file, bool tree, std::ostream& out, std::ostream& err) {
    Document document;
    try {
        document = readSceneFile(file);
    } catch (const std::exception& error) {
        err << error.what() << "\n";
        return false;
    }
    std::vector<std::string> problems = checkScene(document);
    for (const std::string& problem : problems) err << file << ": " << problem << "\n";
    for (const std::string& warning : sceneWarnings(document)) err << file << ": warning: " << warning << "\n";
    out << file << ": " << describeSummary(summarize(document)) << "\n";
    if (tree) out << describeTree(document);
    return problems.empty();
}

}  // namespace

int runSceneCheck(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    bool tree = false;
    std::vector<std::string> files;
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "-h") {
            out << usage;
            return 0;
        }
        if (argument == "--tree") {
            tree = true;
        } else if (argument.size() > 1 && argument[0] == '-') {
            err << "vantrel-scene-check: unknown option " << argument << "\n" << usage;
            return 2;
        } else {
            files.push_back(argument);
        }
    }
    if (files.empty()) {
        err << usage;
        return 2;
    }
    bool allPassed = true;
    for (const std::string& file : files) allPassed = checkFile(file, tree, out, err) && allPassed;
    return allPassed ? 0 : 1;
}

}  // namespace scenereader
