// The cost of the exact road: real models (from ../shared/models beside the
// source tree) and the generated assembly of 30 occurrences
// (GeneratedAssembly.h) exported through the plug-in in the headless host
// with NURBS on and off. Each export runs three times on a freshly loaded
// model and the fastest run counts. Prints the plug-in's run time, the host's
// meshing within it, and what NURBS add (the exact road: the host's
// conversion to B-splines, the trim curves and the writing of the "nurbs"
// objects), which should stay below the meshing.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "bench/GeneratedAssembly.h"
#include "host/cad/CadLoader.h"
#include "host/cad/ExchangeReaders.h"
#include "host/realmodel/ExportJob.h"

namespace {

struct Run {
    double exporting = 1e300;
    double meshing = 0.0;
    std::size_t nurbsObjects = 0;
};

Run fastestExport(const std::filesystem::path& file, bool nurbs, const std::filesystem::path& folder) {
    Run best;
    for (int attempt = 0; attempt < 3; ++attempt) {
        host::realmodel::ExportRequest request;
        request.model = file;
        request.output = folder / "bench.vnz";
        request.plugin = VANTREL_PLUGIN_FILE;
        request.workdir = folder;
        request.settings.includeNurbs = nurbs;
        // A fresh copy each time: the kernel's meshes and conversions are kept per loaded model.
        auto copy = std::make_shared<const host::cad::CadModel>(host::cad::loadCadModel(file.string()));
        const host::realmodel::ExportReport report = host::realmodel::runExport(request, copy);
        if (report.times.exporting.count() < best.exporting) {
            best = {report.times.exporting.count(), report.times.meshing.count(), report.summary.nurbsObjects};
        }
    }
    return best;
}

void report(const std::filesystem::path& file, const std::filesystem::path& folder) {
    const Run off = fastestExport(file, false, folder);
    const Run on = fastestExport(file, true, folder);
    const double exact = on.exporting - off.exporting;
    std::printf("%s: without NURBS %.3f s (meshing %.3f s); with NURBS %.3f s (meshing %.3f s), %zu NURBS "
                "objects; the exact road %.3f s, %.2f of the meshing\n",
                file.filename().string().c_str(), off.exporting, off.meshing, on.exporting, on.meshing,
                on.nurbsObjects, exact, off.meshing > 0 ? exact / off.meshing : 0.0);
}

}  // namespace

int main() {
    host::cad::quietKernelMessages();
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "vantrel-nurbs-export-bench";
    std::filesystem::create_directories(folder);
    const std::filesystem::path generated = folder / "generated-30.step";
    writeGeneratedAssembly(generated);
    report(generated, folder);
    const std::filesystem::path models = std::filesystem::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models";
    if (std::filesystem::is_directory(models)) {
        for (const char* name : {"linkrods.step", "as1-oc-214-mat.stp", "screw.step"}) report(models / name, folder);
    } else {
        std::printf("nurbs_export_bench: no models at %s: the generated assembly only\n", models.string().c_str());
    }
    std::filesystem::remove_all(folder);
    return 0;
}
