#include "scenereader/SceneCheckTool.h"

#include <exception>

#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"

namespace scenereader {

namespace {

// Answers whether the file read and passed its checks.
bool checkFile(const std::string& file, std::ostream& out, std::ostream& err) {
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
    return problems.empty();
}

}  // namespace

int runSceneCheck(const std::vector<std::string>& files, std::ostream& out, std::ostream& err) {
    if (files.empty()) {
        err << "usage: vantrel-scene-check FILE...\n"
               "Reads each \".vnz\" scene file, checks its meshes and exact surfaces and prints a summary.\n";
        return 2;
    }
    bool allPassed = true;
    for (const std::string& file : files) allPassed = checkFile(file, out, err) && allPassed;
    return allPassed ? 0 : 1;
}

}  // namespace scenereader
