// Writes a mesh of about 10 million vertices and 20 million triangles through
// the scene file writer (binary arrays) and, in the same run, the same bytes
// with plain fwrite to the same destination. The counters "ratio_best" and
// "ratio_median" are the writer's throughput over fwrite's: 1 means the writer
// adds nothing.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "importers/sceneapi/DemoContent.h"
#include "importers/sceneapi/nvxScene_api_file.h"

namespace {

constexpr int GRID = 3163;  // GRID * GRID vertices, just over 10 million

std::size_t meshBytes(const demo::TriangleMesh& mesh) {
    return (mesh.vertices.size() + mesh.normals.size()) * sizeof(nvx::Float3) + mesh.uvs.size() * sizeof(float) +
           mesh.triangles.size() * sizeof(int);
}

// A wavy square grid, two triangles a cell.
const demo::TriangleMesh& gridMesh() {
    static const demo::TriangleMesh mesh = [] {
        demo::TriangleMesh m;
        const std::size_t n = GRID;
        m.vertices.reserve(n * n);
        m.normals.reserve(n * n);
        m.uvs.reserve(n * n * 2);
        m.triangles.reserve((n - 1) * (n - 1) * 6);
        for (std::size_t row = 0; row < n; ++row) {
            for (std::size_t column = 0; column < n; ++column) {
                const float u = static_cast<float>(column) / (n - 1);
                const float v = static_cast<float>(row) / (n - 1);
                m.vertices.push_back({u, v, 0.01f * static_cast<float>((row ^ column) & 7)});
                m.normals.push_back({0.0f, 0.0f, 1.0f});
                m.uvs.insert(m.uvs.end(), {u, v});
            }
        }
        for (std::size_t row = 0; row + 1 < n; ++row) {
            for (std::size_t column = 0; column + 1 < n; ++column) {
                const int a = static_cast<int>(row * n + column);
                const int b = a + 1;
                const int c = a + static_cast<int>(n);
                const int d = c + 1;
                m.triangles.insert(m.triangles.end(), {a, b, d, a, d, c});
            }
        }
        return m;
    }();
    return mesh;
}

void writeThroughSceneWriter(FILE* file, const demo::TriangleMesh& mesh) {
    nvxScene_api_file writer(file, true);
    writer.begin_object("grid", true);
    demo::writeGeometry(writer, mesh);
    writer.end_object();
}

void writeThroughFwrite(FILE* file, const demo::TriangleMesh& mesh) {
    std::fwrite(mesh.vertices.data(), sizeof(nvx::Float3), mesh.vertices.size(), file);
    std::fwrite(mesh.normals.data(), sizeof(nvx::Float3), mesh.normals.size(), file);
    std::fwrite(mesh.uvs.data(), sizeof(float), mesh.uvs.size(), file);
    std::fwrite(mesh.triangles.data(), sizeof(int), mesh.triangles.size(), file);
}

// Seconds to open the destination, write and close it. A real file is
// removed and the page cache written back beforehand, outside the timing, so
// that neither writer pays for the other's dirty pages.
template <typename Write>
double timedWrite(const std::string& destination, Write write) {
    if (destination != "/dev/null") {
        std::remove(destination.c_str());
        ::sync();
    }
    const auto start = std::chrono::steady_clock::now();
    FILE* file = std::fopen(destination.c_str(), "wb");
    if (!file) return 0;
    write(file, gridMesh());
    std::fclose(file);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// The machine is shared, so single runs swing widely; the best and the
// median of the runs are compared rather than the totals.
void BM_SceneWriterAgainstFwrite(benchmark::State& state, std::string destination) {
    const demo::TriangleMesh& mesh = gridMesh();
    std::vector<double> writerSeconds;
    std::vector<double> fwriteSeconds;
    for (auto _ : state) {
        // Alternate the order so that neither always meets a warm cache.
        const bool writerFirst = writerSeconds.size() % 2 == 0;
        if (writerFirst) writerSeconds.push_back(timedWrite(destination, writeThroughSceneWriter));
        fwriteSeconds.push_back(timedWrite(destination, writeThroughFwrite));
        if (!writerFirst) writerSeconds.push_back(timedWrite(destination, writeThroughSceneWriter));
    }
    const double bytes = static_cast<double>(meshBytes(mesh));
    const double bestWriter = *std::min_element(writerSeconds.begin(), writerSeconds.end());
    const double bestFwrite = *std::min_element(fwriteSeconds.begin(), fwriteSeconds.end());
    state.counters["writer_MBps"] = bytes / bestWriter / 1e6;
    state.counters["fwrite_MBps"] = bytes / bestFwrite / 1e6;
    state.counters["ratio_best"] = bestFwrite / bestWriter;
    state.counters["ratio_median"] = median(fwriteSeconds) / median(writerSeconds);
    state.counters["vertices_M"] = static_cast<double>(mesh.vertices.size()) / 1e6;
    state.counters["triangles_M"] = static_cast<double>(mesh.triangles.size() / 3) / 1e6;
    if (destination != "/dev/null") std::remove(destination.c_str());
}

const std::string FILE_NAME = "vantrel_scene_write_bench_" + std::to_string(::getpid()) + ".vnz";

BENCHMARK_CAPTURE(BM_SceneWriterAgainstFwrite, tmp_file, "/tmp/" + FILE_NAME)->Iterations(8)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_SceneWriterAgainstFwrite, shm_file, "/dev/shm/" + FILE_NAME)
    ->Iterations(8)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_SceneWriterAgainstFwrite, dev_null, std::string("/dev/null"))
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);

}  // namespace
