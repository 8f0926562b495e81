// The export of a large part and of a large assembly through the real
// plug-in in the headless host. Each surface's geometry times itself, so the
// run can be split into the host's tessellation and everything else: the
// plug-in's own code, the scene writing and the host's other answers.
//
// Reports:
//   part:      plugin_share = (whole run - host tessellation) / whole run
//   assembly:  traversal_us_per_occurrence = (whole run - host tessellation) / occurrences
#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>

#include "host/Host.h"
#include "host/Session.h"
#include "host/geometry/TestSurface.h"
#include "host/testing/ModelBuilder.h"
#include "host/testing/TestSession.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using namespace host::fixtures;

// A grid of `cells` x `cells` squares in the plane z = 0 at `corner`.
host::SurfaceMesh grid(host::Point3 corner, int cells) {
    host::SurfaceMesh mesh;
    for (int j = 0; j <= cells; ++j)
        for (int i = 0; i <= cells; ++i) {
            double u = double(i) / cells, v = double(j) / cells;
            mesh.vertices.push_back({corner[0] + u, corner[1] + v, corner[2]});
            mesh.normals.push_back({0, 0, 1});
            mesh.parameters.push_back({u, v});
        }
    for (int j = 0; j < cells; ++j)
        for (int i = 0; i < cells; ++i) {
            int a = j * (cells + 1) + i, b = a + 1, c = a + cells + 1, d = c + 1;
            mesh.triangles.push_back({a, b, d});
            mesh.triangles.push_back({a, d, c});
        }
    return mesh;
}

// Time spent inside the surfaces' tessellation, over all of them.
std::chrono::nanoseconds tessellationTime{0};

class TimedSurface : public host::TestSurface {
public:
    using host::TestSurface::TestSurface;
    host::TessellationOutcome tessellate(double chordHeight, host::SurfaceMesh& mesh) const override {
        auto start = Clock::now();
        host::TessellationOutcome outcome = host::TestSurface::tessellate(chordHeight, mesh);
        tessellationTime += Clock::now() - start;
        return outcome;
    }
};

void giveGrids(host::Model& model, int cells) {
    for (host::Surface& surface : model.surfaces)
        surface.geometry = std::make_shared<TimedSurface>(grid({double(surface.id), 0, 0}, cells));
}

// Runs one Export of the current model; answers the whole run's time.
std::chrono::nanoseconds exportOnce(host::Session& session, host::Host& plugin, const fs::path& directory) {
    session.script().chooseFile((directory / "bench.vnz").u16string());
    session.script().pressButton("ExportFinished", "ExportOk");
    tessellationTime = {};
    auto start = Clock::now();
    plugin.press("Vantrel Plugin Export");
    auto whole = Clock::now() - start;
    if (!session.errors().empty()) throw std::runtime_error("the host logged errors during the export");
    return whole;
}

void BM_ExportPartOf2000Surfaces(benchmark::State& state) {
    const int surfaces = 2000;
    host::Session session;
    session.setDefaultAppearance(appearance(u"default", {0.5, 0.5, 0.5}));
    host::Model& model = session.addModel(part(u"manifold", surfaces));
    for (size_t i = 0; i < model.surfaces.size(); ++i)
        model.surfaces[i].appearance = appearance(i % 2 ? u"steel" : u"paint", {0.5, double(i % 7) / 7, 0.5});
    giveGrids(model, 10);
    session.setCurrentModel(&model);
    session.setMode(1);
    fs::path previous = fs::current_path(), directory = fs::temp_directory_path() / "vantrel_export_bench_part";
    fs::create_directories(directory);
    fs::current_path(directory);
    std::unique_ptr<host::Host> plugin = startPlugin(session);
    double wholeSeconds = 0, tessellationSeconds = 0;
    for (auto _ : state) {
        auto whole = exportOnce(session, *plugin, directory);
        wholeSeconds += std::chrono::duration<double>(whole).count();
        tessellationSeconds += std::chrono::duration<double>(tessellationTime).count();
        state.SetIterationTime(std::chrono::duration<double>(whole).count());
    }
    plugin.reset();
    fs::current_path(previous);
    fs::remove_all(directory);
    state.counters["surfaces"] = surfaces;
    state.counters["plugin_share"] = (wholeSeconds - tessellationSeconds) / wholeSeconds;
    state.counters["host_tessellation_share"] = tessellationSeconds / wholeSeconds;
}
BENCHMARK(BM_ExportPartOf2000Surfaces)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_ExportAssemblyOf5000Occurrences(benchmark::State& state) {
    const int subassemblies = 50, partsEach = 100;
    host::Session session;
    session.setDefaultAppearance(appearance(u"default", {0.5, 0.5, 0.5}));
    host::Model& bolt = session.addModel(part(u"bolt", 1));
    giveGrids(bolt, 1);
    host::Model& nut = session.addModel(part(u"nut", 1));
    giveGrids(nut, 1);
    host::Model& top = session.addModel(assembly(u"plant"));
    for (int s = 0; s < subassemblies; ++s) {
        host::Model& rack = session.addModel(assembly(u"rack" + std::u16string(1, char16_t(u'A' + s % 26))));
        for (int p = 0; p < partsEach; ++p)
            addComponent(rack, p % 2 ? &bolt : &nut, 100 + p, translation(p, 0, 0));
        addComponent(top, &rack, 10 + s, translation(0, s, 0));
    }
    session.setCurrentModel(&top);
    session.setMode(5);
    const int occurrences = subassemblies * (partsEach + 1);
    fs::path previous = fs::current_path(), directory = fs::temp_directory_path() / "vantrel_export_bench_assembly";
    fs::create_directories(directory);
    fs::current_path(directory);
    std::unique_ptr<host::Host> plugin = startPlugin(session);
    double traversalSeconds = 0;
    int runs = 0;
    for (auto _ : state) {
        auto whole = exportOnce(session, *plugin, directory);
        traversalSeconds += std::chrono::duration<double>(whole - tessellationTime).count();
        ++runs;
        state.SetIterationTime(std::chrono::duration<double>(whole).count());
    }
    plugin.reset();
    fs::current_path(previous);
    fs::remove_all(directory);
    state.counters["occurrences"] = occurrences;
    state.counters["traversal_us_per_occurrence"] = traversalSeconds / runs / occurrences * 1e6;
}
BENCHMARK(BM_ExportAssemblyOf5000Occurrences)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
