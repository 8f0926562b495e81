#include "host/realmodel/ExportJob.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <system_error>

#include "host/Host.h"
#include "host/HostError.h"
#include "host/cad/CadLoader.h"
#include "host/cad/CadShapes.h"
#include "host/realmodel/ModelLoading.h"
#include "host/realmodel/TemporaryOutput.h"
#include "scenereader/SceneReader.h"

namespace host::realmodel {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* exportCommand = "Vantrel Plugin Export";
constexpr const char* finishDialog = "ExportFinished";
constexpr const char* finishButton = "ExportOk";

// Runs in another working directory and comes back when it goes.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::filesystem::path& folder) {
        if (folder.empty()) return;
        previous_ = std::filesystem::current_path();
        std::error_code error;
        std::filesystem::current_path(folder, error);
        if (error) {
            throw HostError("can't change to the working directory \"" + folder.string() + "\": " + error.message());
        }
    }
    ~WorkingDirectory() {
        std::error_code ignored;
        if (!previous_.empty()) std::filesystem::current_path(previous_, ignored);
    }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    std::filesystem::path previous_;
};

std::string joined(const std::vector<std::string>& messages) {
    std::string text;
    for (const std::string& message : messages) text += (text.empty() ? "" : "; ") + message;
    return text;
}

// Sets the settings in the plug-in's settings dialog and presses its OK,
// then presses the export command as the user would, answering its file
// dialog with `output`, the animation dialog with the motion file, if any,
// and the finish dialog with OK.
void pressExport(const ExportRequest& request, const std::shared_ptr<const cad::CadModel>& model,
                 const std::filesystem::path& output, ExportReport& report) {
    Session session;
    for (const Fault& fault : request.faults) session.faults().add(fault);
    Host host(session, request.plugin);
    LoadedModel loaded = openInSession(session, model);
    report.surfaces = loaded.models.surfaceOccurrences;
    if (request.progress) loaded.progress->setObserver(request.progress);
    scriptSettingsDialog(session.script(), request.settings);
    host.press(settingsCommand);
    session.script().chooseFile(output.u16string());
    scriptAnimationDialog(session.script(), request.settings);
    session.script().pressButton(finishDialog, finishButton);
    if (model->shapes) model->shapes->meshWholeModelAhead();
    const auto start = Clock::now();
    host.press(exportCommand);
    report.times.exporting = Clock::now() - start;
    report.times.meshing = loaded.progress->meshingTime();
    report.chordHeight = loaded.progress->firstChordHeight();
    if (loaded.progress->firstPartIndex() >= 0) {
        const double diagonal = model->parts.at(static_cast<size_t>(loaded.progress->firstPartIndex())).outline.diagonal();
        if (diagonal > 0.0) report.relativeChordHeight = report.chordHeight / diagonal;
    }
    if (!session.script().finished()) session.errors().add("the plug-in left some of the user's answers unasked for");
    if (!session.errors().empty()) {
        throw ExportError("the export of \"" + request.model.string() + "\" went wrong: " +
                          joined(session.errors().messages()));
    }
}

// The same file by identity, whatever the spelling of either path.
void refuseModelAsOutput(const ExportRequest& request) {
    std::error_code error;
    if (std::filesystem::equivalent(request.model, request.output, error)) {
        throw ExportError("the scene \"" + request.output.string() + "\" would overwrite the model file \"" +
                          request.model.string() + "\"");
    }
}

// The plug-in reads the motion file in its own working directory, and passes
// over one that it can't open without a word: the path is made absolute, and
// a file that can't be read is refused before the model is read.
ExportRequest withReadableAnimation(const ExportRequest& request) {
    ExportRequest checked = request;
    if (request.settings.animation.empty()) return checked;
    checked.settings.animation = std::filesystem::absolute(request.settings.animation);
    std::ifstream file(checked.settings.animation);
    if (!file) throw ExportError("can't read the motion file \"" + request.settings.animation.string() + "\"");
    return checked;
}

// The plug-in writes the temporary file; the scene is read back from it and
// put in place only when it is sound.
ExportReport exportThrough(const ExportRequest& request, const std::shared_ptr<const cad::CadModel>& model,
                           TemporaryOutput& output) {
    ExportReport report;
    report.output = output.target();
    report.nameCodePage = model->nameCodePage;
    {
        WorkingDirectory workdir(request.workdir);
        pressExport(request, model, output.path(), report);
        // The plug-in keeps the name it was given as its next default: the target's.
        replaceExportPath(std::filesystem::current_path(), output.path(), output.target());
    }

    std::error_code error;
    report.bytes = std::filesystem::file_size(output.path(), error);
    if (error || report.bytes == 0) throw ExportError("the plug-in wrote no scene \"" + report.output.string() + "\"");
    const auto start = Clock::now();
    try {
        const scenereader::Document scene = scenereader::readSceneFile(output.path().string());
        report.sceneProblems = scenereader::checkScene(scene);
        report.summary = scenereader::summarize(scene);
    } catch (const std::exception& failure) {
        throw ExportError(std::string("the written scene can't be read: ") + failure.what());
    }
    report.times.reading = Clock::now() - start;
    if (report.sceneProblems.empty()) {
        output.putInPlace();
        report.placed = true;
    }
    return report;
}

}  // namespace

ExportReport runExport(const ExportRequest& request) {
    refuseModelAsOutput(request);
    const ExportRequest checked = withReadableAnimation(request);
    TemporaryOutput output(std::filesystem::absolute(request.output));
    const auto start = Clock::now();
    auto model = std::make_shared<const cad::CadModel>(
        cad::loadCadModel(std::filesystem::absolute(request.model).string(), request.loading));
    const auto loading = Clock::now() - start;
    if (request.modelRead) request.modelRead();
    ExportReport report = exportThrough(checked, model, output);
    report.times.loading = loading;
    return report;
}

ExportReport runExport(const ExportRequest& request, std::shared_ptr<const cad::CadModel> model) {
    refuseModelAsOutput(request);
    const ExportRequest checked = withReadableAnimation(request);
    TemporaryOutput output(std::filesystem::absolute(request.output));
    return exportThrough(checked, model, output);
}

std::string describeReport(const ExportReport& report) {
    std::ostringstream text;
    text << scenereader::describeSummary(report.summary);
    char figures[128];
    std::snprintf(figures, sizeof figures, "; %.1f kB in %.2f s (reading the model %.2f s, meshing %.2f s)",
                  static_cast<double>(report.bytes) / 1024.0,
                  report.times.loading.count() + report.times.exporting.count(), report.times.loading.count(),
                  report.times.meshing.count());
    text << figures;
    // Said only where it matters: names beyond ASCII, or a code page the user named.
    if (const auto& codePage = report.nameCodePage; codePage && (codePage->eightBitNames || !codePage->detected)) {
        text << "; names read as " << codePage->displayName << (codePage->detected ? " (detected)" : "");
    }
    return text.str();
}

}  // namespace host::realmodel
