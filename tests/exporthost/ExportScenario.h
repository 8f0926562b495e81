#pragma once
// A run of the real plug-in in the headless host: a session with models, a
// working directory of its own for the settings file, the user's answers,
// and the written scene read back with the project's reader.
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "host/Host.h"
#include "host/Session.h"
#include "host/testing/ModelBuilder.h"
#include "scenereader/SceneDocument.h"

namespace exporttest {

namespace fs = std::filesystem;

class ExportScenario {
public:
    ExportScenario();
    ~ExportScenario();

    host::Session session;

    // Settings the plug-in reads at start, as the settings file holds them.
    void setSetting(const std::string& element, const std::string& text) { settings_[element] = text; }
    // Makes a model the current one in the host's mode (1 part, 5 assembly).
    void open(host::Model& model, int mode);
    // Starts the plug-in, if it isn't running yet.
    void start();
    // Presses Export: the file dialog is answered with `fileName` in the
    // working directory and the finish dialog with OK.
    void pressExport(const std::string& fileName = "scene.vnz");
    void openAndExport(host::Model& model, int mode) {
        open(model, mode);
        pressExport();
    }
    int press(const std::string& command);

    fs::path path(const std::string& fileName) const { return directory_ / fileName; }
    // Reads a written scene back; the reader's mesh checks must hold.
    scenereader::Document readScene(const std::string& fileName = "scene.vnz") const;
    // The text of the settings file in the working directory.
    std::string settingsFile() const;

private:
    void writeSettings() const;

    fs::path previous_, directory_;
    std::map<std::string, std::string> settings_;
    std::unique_ptr<host::Host> plugin_;
};

// Navigation of a read scene.
const scenereader::Block& topGroup(const scenereader::Document& scene);
std::vector<const scenereader::Block*> objectsOf(const scenereader::Block& block);
// The float triples, floats or ints of a geometry's array attribute.
std::vector<float> floatsOf(const scenereader::Block& geometry, std::string_view name);
std::vector<int32_t> intsOf(const scenereader::Block& geometry, std::string_view name);
std::vector<double> doublesOf(const scenereader::Block& geometry, std::string_view name);
// The keys of every material below a block, in file order.
std::vector<std::string> materialKeys(const scenereader::Block& block);
// The value of a parameter-form option of the importer's module, as text.
std::string importerOption(const scenereader::Document& scene, std::string_view name);

}  // namespace exporttest
