// The live road against the file road in the same run: the generated
// assembly of 30 occurrences (GeneratedAssembly.h) sent by Render to a real
// vantrel-app over the loopback link, and written by Export to a file. Each
// road runs three times, in turns, on a freshly loaded model and the fastest
// run counts;
// the time is that of the command, from the press to the end of the run
// (for Render, until the renderer has read, merged and saved the stream).
// The live road should cost at most 1.2 times the file road.
//
// The renderer runs in a private home (HOME and the XDG folders in a
// temporary folder), registered there, and is stopped at the end.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "bench/GeneratedAssembly.h"
#include "bench/PrivateRenderer.h"
#include "host/Host.h"
#include "host/Session.h"
#include "host/cad/CadLoader.h"
#include "host/cad/ExchangeReaders.h"
#include "host/realmodel/ModelLoading.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Seconds of one press of the command on a fresh copy of the model;
// `prepare` scripts the dialogs of the command.
template <typename Prepare>
double timedPress(const fs::path& file, const char* command, Prepare prepare) {
    host::Session session;
    host::Host plugin(session, VANTREL_PLUGIN_FILE);
    auto copy = std::make_shared<const host::cad::CadModel>(host::cad::loadCadModel(file.string()));
    host::realmodel::openInSession(session, copy);
    prepare(session);
    const auto start = Clock::now();
    plugin.press(command);
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    for (const std::string& error : session.errors().messages()) std::fprintf(stderr, "%s\n", error.c_str());
    return seconds;
}

}  // namespace

int main() {
    host::cad::quietKernelMessages();
    const fs::path folder = fs::temp_directory_path() / ("vantrel-live-road-bench-" + std::to_string(getpid()));
    PrivateRenderer renderer(folder);
    fs::current_path(folder);
    const fs::path generated = folder / "generated-30.step";
    writeGeneratedAssembly(generated);
    if (!renderer.running()) {
        std::fprintf(stderr, "live_road_bench: the renderer didn't start\n");
        return 1;
    }

    const fs::path exported = folder / "generated.vnz";
    // The roads take turns, so that neither has the warmer machine.
    double file = 1e300, live = 1e300;
    for (int round = 0; round < 3; ++round) {
        file = std::min(file, timedPress(generated, "Vantrel Plugin Export", [&](host::Session& session) {
            session.script().chooseFile(exported.u16string());
            session.script().pressButton("ExportFinished", "ExportOk");
        }));
        live = std::min(live, timedPress(generated, "Vantrel Plugin Render", [](host::Session&) {}));
    }
    std::printf("generated assembly of 30 occurrences, %ju bytes: file road %.3f s, live road %.3f s, "
                "live / file %.2f (target 1.20 at most)\n",
                static_cast<std::uintmax_t>(fs::file_size(exported)), file, live, live / file);

    fs::current_path(fs::temp_directory_path());
    fs::remove_all(folder);
    return live <= 1.2 * file ? 0 : 1;
}
