#pragma once
// The main job: a CAD model file exported to a ".vnz" scene by the real
// plug-in in the headless host, as a user would do it (open the model, press
// the export command, name the file, close the finish dialog), and the
// written scene read back and summarised.
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/cad/CadLoader.h"
#include "host/cad/CadModel.h"
#include "host/realmodel/ExportSettings.h"
#include "scenereader/SceneChecks.h"

namespace host::realmodel {

struct ExportRequest {
    std::filesystem::path model;
    std::filesystem::path output;
    std::filesystem::path plugin;
    // The folder of the plug-in's settings file; empty: the current directory.
    std::filesystem::path workdir;
    ExportSettings settings;
    cad::LoadOptions loading;
    // Told after each surface is meshed: surfaces done and in all.
    std::function<void(std::size_t done, std::size_t total)> progress;
    // Told when the model file has been read, before the plug-in runs.
    std::function<void()> modelRead;
};

struct ExportTimes {
    std::chrono::duration<double> loading{};    // reading the model file
    std::chrono::duration<double> exporting{};  // the plug-in's run, meshing and writing included
    std::chrono::duration<double> meshing{};    // the part of the run spent in the host's mesher
    std::chrono::duration<double> reading{};    // reading the scene back
};

struct ExportReport {
    std::filesystem::path output;               // absolute
    bool placed = false;                        // the scene replaced the output: it was sound
    scenereader::SceneSummary summary;
    std::vector<std::string> sceneProblems;     // what the reader's checks found
    std::uintmax_t bytes = 0;
    std::size_t surfaces = 0;                   // surfaces of all part occurrences
    // The first chord height that the plug-in asked for, and the same over
    // the diagonal of that part's outline: the plug-in's chord height is
    // that share of each part's size.
    double chordHeight = 0.0;
    double relativeChordHeight = 0.0;
    ExportTimes times;
    std::optional<cad::StepCodePage> nameCodePage;  // how a STEP file's names were decoded
};

// A model or a run that gives no sound scene: the message says why.
class ExportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The plug-in writes a temporary file beside the output, which replaces the
// output only when the scene reads back sound; until then an earlier file of
// that name stays as it was. Throws ExportError, before the model is read,
// when the output is the model file itself or can't be written;
// cad::CadLoadError for a model that can't be read, HostError for a plug-in
// that can't be started, and ExportError for errors that the session logged
// during the run or a scene that wasn't written or can't be read.
ExportReport runExport(const ExportRequest& request);

// The same for a model already loaded; `request.model` only names it.
ExportReport runExport(const ExportRequest& request, std::shared_ptr<const cad::CadModel> model);

// "12 groups, 30 objects, ... ; 1.2 MB in 0.84 s".
std::string describeReport(const ExportReport& report);

}  // namespace host::realmodel
