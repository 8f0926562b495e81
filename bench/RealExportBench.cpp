// Exports real models (from ../shared/models beside the source tree) through
// the plug-in in the headless host, and in the same run takes the same files
// through the kernel's own pipeline: read into an XDE document, mesh the
// whole model with each part at the chord height that the plug-in asked for
// it (the same share of the part's size), write glTF.
// Each measurement runs in a child process of its own, so that its peak
// memory is its own. Prints one line a measurement and the ratio of the
// times (target: at most 1.0). Beside the shared models, an assembly of 30
// part occurrences that the benchmark writes itself.
#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <Bnd_Box.hxx>
#include <IMeshTools_Parameters.hxx>
#include <RWGltf_CafWriter.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>

#include "bench/GeneratedAssembly.h"
#include "host/cad/ExchangeReaders.h"
#include "host/cad/XdeDocument.h"
#include "host/realmodel/ExportJob.h"

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// The mesher's angle, as the host's face tessellation uses it.
constexpr double meshAngle = 0.5;

struct Figures {
    double reading = 0.0;
    double meshing = 0.0;
    double ownWork = 0.0;  // the plug-in's own work, writing the scene as it goes; the kernel's: none
    double writing = 0.0;  // the kernel's glTF writer
    double relativeChordHeight = 0.0;
    double total() const { return reading + meshing + ownWork + writing; }
};

long peakMemoryKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

Figures exportThroughPlugin(const std::filesystem::path& model, double quality, const std::filesystem::path& folder) {
    host::realmodel::ExportRequest request;
    request.model = model;
    request.output = folder / "bench.vnz";
    request.plugin = VANTREL_PLUGIN_FILE;
    request.workdir = folder;
    request.settings.quality = quality;
    // Meshes against meshes: the kernel's pipeline writes no exact surfaces.
    request.settings.includeNurbs = false;
    const host::realmodel::ExportReport report = host::realmodel::runExport(request);
    Figures figures;
    figures.reading = report.times.loading.count();
    figures.meshing = report.times.meshing.count();
    figures.ownWork = report.times.exporting.count() - report.times.meshing.count();
    figures.relativeChordHeight = report.relativeChordHeight;
    std::printf("  plug-in: %zu surfaces, %zu triangles, %.1f kB; ", report.surfaces, report.summary.triangles,
                static_cast<double>(report.bytes) / 1024.0);
    return figures;
}

double diagonalOf(const TopoDS_Shape& shape) {
    Bnd_Box box;
    BRepBndLib::Add(shape, box, false);
    return box.IsVoid() ? 0.0 : std::sqrt(box.SquareExtent());
}

Figures convertWithKernel(const std::filesystem::path& model, double relativeChordHeight,
                          const std::filesystem::path& folder) {
    Figures figures;
    figures.relativeChordHeight = relativeChordHeight;
    host::cad::XdeDocument document;
    auto start = Clock::now();
    host::cad::readStep(model, document, std::nullopt);
    figures.reading = Seconds(Clock::now() - start).count();

    start = Clock::now();
    TDF_LabelSequence parts;
    XCAFDoc_DocumentTool::ShapeTool(document.get()->Main())->GetShapes(parts);
    for (const TDF_Label& part : parts) {
        if (!XCAFDoc_ShapeTool::IsSimpleShape(part)) continue;
        const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(part);
        IMeshTools_Parameters parameters;
        parameters.Deflection = relativeChordHeight * diagonalOf(shape);
        parameters.Angle = meshAngle;
        parameters.Relative = Standard_False;
        parameters.InParallel = Standard_False;
        if (parameters.Deflection > 0.0) BRepMesh_IncrementalMesh(shape, parameters);
    }
    figures.meshing = Seconds(Clock::now() - start).count();

    start = Clock::now();
    const std::string output = (folder / "bench.glb").string();
    RWGltf_CafWriter writer(output.c_str(), true);
    writer.Perform(document.get(), TColStd_IndexedDataMapOfStringString(), Message_ProgressRange());
    figures.writing = Seconds(Clock::now() - start).count();
    std::printf("  kernel: %.1f kB; ", static_cast<double>(std::filesystem::file_size(output)) / 1024.0);
    return figures;
}

void printFigures(const Figures& figures) {
    std::printf("reading %.3f s, meshing %.3f s, own work and writing %.3f s, total %.3f s, peak %ld MB\n",
                figures.reading, figures.meshing, figures.ownWork + figures.writing, figures.total(),
                peakMemoryKilobytes() / 1024);
}

// Runs `measure` in a child process; the child writes its figures into a pipe.
template <typename Measure>
bool inChild(Measure measure, Figures& figures) {
    int ends[2];
    if (pipe(ends) != 0) return false;
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        int status = 1;
        try {
            const Figures measured = measure();
            status = write(ends[1], &measured, sizeof measured) == sizeof measured ? 0 : 1;
        } catch (const std::exception& failure) {
            std::printf("failed: %s\n", failure.what());
        }
        std::fflush(stdout);
        _exit(status);
    }
    close(ends[1]);
    const bool read = ::read(ends[0], &figures, sizeof figures) == sizeof figures;
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return read && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

int main() {
    host::cad::quietKernelMessages();
    const std::filesystem::path models = std::filesystem::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models";
    if (!std::filesystem::is_directory(models)) {
        std::printf("real_export_bench: skipped: no models at %s\n", models.string().c_str());
        return 0;
    }
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "vantrel-real-export-bench";
    std::filesystem::create_directories(folder);
    bool allWithinTarget = true;
    const std::filesystem::path generated = folder / "generated-30.step";
    writeGeneratedAssembly(generated);
    for (const std::filesystem::path& model :
         {models / "as1-oc-214-mat.stp", models / "linkrods.step", models / "screw.step", generated}) {
        for (double quality : {0.2, 0.5}) {
            std::printf("%s at quality %.1f\n", model.filename().string().c_str(), quality);
            // The faster of three runs each, alternating, so that a busy
            // machine weighs on both roads alike.
            Figures ours, kernel;
            for (int run = 0; run < 3; ++run) {
                Figures oursNow, kernelNow;
                if (!inChild([&] {
                        Figures figures = exportThroughPlugin(model, quality, folder);
                        printFigures(figures);
                        return figures;
                    }, oursNow))
                    return 1;
                if (!inChild([&] {
                        Figures figures = convertWithKernel(model, oursNow.relativeChordHeight, folder);
                        printFigures(figures);
                        return figures;
                    }, kernelNow))
                    return 1;
                if (run == 0 || oursNow.total() < ours.total()) ours = oursNow;
                if (run == 0 || kernelNow.total() < kernel.total()) kernel = kernelNow;
            }
            const double ratio = ours.total() / kernel.total();
            allWithinTarget = allWithinTarget && ratio <= 1.0;
            std::printf("  chord height %.3g of each part's size; our export takes %.2f times the kernel's pipeline\n",
                        ours.relativeChordHeight, ratio);
        }
    }
    std::filesystem::remove_all(folder);
    std::printf(allWithinTarget ? "all within the target of 1.0\n" : "over the target of 1.0\n");
    return 0;
}
