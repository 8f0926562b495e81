// A long session: one headless host with the plug-in loaded once exports the
// same model many times in a row (by default the generated assembly of 30
// occurrences, 200 runs). After every run, what the host handed to the
// plug-in must have come back, except the saved views' names, which the
// plug-in keeps by design (one array a run); and the resident memory after
// the last run must be within 5 % of that after the tenth (the second in a
// soak of fewer than 20 runs).
//   export_soak [--update] [RUNS [MODEL]]
// MODEL "scale" is the generated scale case: 5,000 occurrences of 50 parts
// with 20,100 faces in all; each run's time and the peak memory are printed.
// With --update, a real vantrel-app runs in a private home: the model is
// rendered into it once, then the runs alternate Export and Update.
// Exits 1 when a check fails.
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "bench/GeneratedAssembly.h"
#include "bench/PrivateRenderer.h"
#include "host/Host.h"
#include "host/Session.h"
#include "host/cad/ExchangeReaders.h"
#include "host/realmodel/ModelLoading.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* exportCommand = "Vantrel Plugin Export";
constexpr const char* renderCommand = "Vantrel Plugin Render";
constexpr const char* updateCommand = "Vantrel Plugin Update";
constexpr double allowedGrowth = 0.05;

long residentKilobytes() {
    std::ifstream statm("/proc/self/statm");
    long size = 0, resident = 0;
    statm >> size >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

// What the plug-in still holds of what the host handed out, beyond the
// views' names: at most one array of those a run of a command.
size_t heldBeyondViewNames(host::Session& session, int commands) {
    const size_t viewNames = session.arrays().outstanding("view names");
    const size_t extraViewNames = viewNames > static_cast<size_t>(commands) ? viewNames - commands : 0;
    return session.handles().outstanding() + session.handedOutStrings().outstanding() +
           session.handedOutWideStrings().outstanding() + session.handedOutStringArrays().outstanding() +
           (session.arrays().outstanding() - viewNames) + extraViewNames;
}

// One press of the command (Export into `output`); the host's own records of the run's
// requests are emptied, so that only the plug-in's memory is measured.
bool pressOnce(host::Host& host, const char* command, const fs::path& output) {
    host::Session& session = host.session();
    if (command == exportCommand) {
        session.script().chooseFile(output.u16string());
        session.script().pressButton("ExportFinished", "ExportOk");
    }
    host.press(command);
    session.tessellationRequests().clear();
    session.fileDialogs().clear();
    const bool clean = session.errors().empty() && session.script().finished();
    session.errors().clear();
    session.script().clear();
    return clean;
}

}  // namespace

int main(int argc, char** argv) {
    host::cad::quietKernelMessages();
    const bool alternate = argc > 1 && std::string(argv[1]) == "--update";
    if (alternate) {
        --argc;
        ++argv;
    }
    const int runs = argc > 1 ? std::atoi(argv[1]) : 200;
    // Memory is compared from the tenth run on, or from the second in a short soak.
    const int measuredFrom = runs >= 20 ? 10 : 2;
    const fs::path folder = fs::temp_directory_path() / ("vantrel-export-soak-" + std::to_string(getpid()));
    fs::create_directories(folder);
    const std::string named = argc > 2 ? argv[2] : "";
    fs::path model = named.empty() || named == "scale" ? folder / "generated.step" : fs::absolute(named);
    if (named.empty()) writeGeneratedAssembly(model);
    if (named == "scale") writeScaleAssembly(model);
    fs::current_path(folder);

    host::Session session;
    host::Host host(session, VANTREL_PLUGIN_FILE);
    host::realmodel::loadModelIntoSession(session, model.string());
    std::optional<PrivateRenderer> renderer;
    if (alternate) {
        renderer.emplace(folder / "renderer");
        if (!renderer->running() || !pressOnce(host, renderCommand, {})) {
            std::printf("the model could not be rendered into a renderer of our own\n");
            return 1;
        }
    }
    long residentAtStart = 0;
    long residentAtLast = 0;
    bool healthy = true;
    for (int run = 1; run <= runs && healthy; ++run) {
        const fs::path output = folder / (run % 2 ? "a.vnz" : "b.vnz");
        const auto start = std::chrono::steady_clock::now();
        const bool updating = alternate && run % 2 == 0;
        const bool exported = pressOnce(host, updating ? updateCommand : exportCommand, output);
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (!exported) {
            std::printf("run %d: the %s went wrong\n", run, updating ? "update" : "export");
            healthy = false;
        }
        if (const size_t held = heldBeyondViewNames(session, run + (alternate ? 1 : 0))) {
            std::printf("run %d: the plug-in still holds %zu things that the host handed out\n", run, held);
            healthy = false;
        }
        residentAtLast = residentKilobytes();
        if (run == measuredFrom) residentAtStart = residentAtLast;
        if (run <= 3 || run % 20 == 0) std::printf("run %d: %.2f s, resident %ld kB\n", run, seconds, residentAtLast);
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak resident memory %ld kB; each scene %.1f MB\n", usage.ru_maxrss,
                static_cast<double>(fs::file_size(folder / "a.vnz")) / 1e6);
    // Read back only where the scene is small: the reader holds all of it.
    if (named != "scale") {
        const auto last = scenereader::summarize(scenereader::readSceneFile((folder / "a.vnz").string()));
        std::printf("each scene: %s\n", scenereader::describeSummary(last).c_str());
    }
    if (renderer) {
        // The render and every update reached the renderer whole.
        const std::size_t streams = renderer->streamsReceived();
        std::printf("the renderer took %zu streams\n", streams);
        healthy = healthy && streams == static_cast<std::size_t>(1 + runs / 2);
        renderer.reset();
    }
    fs::current_path(fs::temp_directory_path());
    fs::remove_all(folder);
    if (!healthy) return 1;
    const double growth =
        residentAtStart > 0 ? static_cast<double>(residentAtLast - residentAtStart) / residentAtStart : 0.0;
    std::printf("%d runs; resident memory after run %d: %ld kB, after the last: %ld kB (%+.1f %%); "
                "view-name arrays kept: %zu\n",
                runs, measuredFrom, residentAtStart, residentAtLast, growth * 100.0,
                session.arrays().outstanding("view names"));
    if (growth > allowedGrowth) {
        std::printf("over the allowed growth of %.0f %%\n", allowedGrowth * 100.0);
        return 1;
    }
    return 0;
}
