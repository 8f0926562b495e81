// Every host operation that an export calls, told to fail at its first call
// and at a later one: the plug-in goes on or stops, but never crashes, the
// scene it leaves (if any) reads back, and the next export in the same
// session is the export without faults.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "host/HostOperation.h"
#include "host/testing/InterfaceDataBuilder.h"
#include "scenereader/SceneReader.h"
#include "tests/exporthost/ExportScenario.h"

namespace exporttest {
namespace {

using namespace host::fixtures;

std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// An assembly with what an export visits: surfaces and a quilt with their
// exact twins, a mesh-only
// facet set, a part used twice, a sub-assembly, a view, a layer and an appearance.
void openAssembly(ExportScenario& run) {
    host::Session& session = run.session;
    host::Model& plate = session.addModel(part(u"plate", 2));
    addQuilt(plate, 2);
    giveExactSquares(plate);
    plate.appearance = appearance(u"paint", {1.0, 0.6, 0.2});
    host::Model& mesh = session.addModel(part(u"mesh", 0));
    addFacetSet(mesh, 4);
    host::Model& sub = session.addModel(assembly(u"sub"));
    addComponent(sub, &plate, 11, translation(1, 2, 3));
    addComponent(sub, &mesh, 12, rotationZ(90));
    host::Model& top = session.addModel(assembly(u"top"));
    addComponent(top, &sub, 21);
    addComponent(top, &plate, 22, rotationX(30));
    addView(top, u"FRONT", translation(0, 0, -5));
    addLayer(top, 1, u"SHOWN", PRO_LAYER_DISPLAY, {});
    run.open(top, PRO_MODE_ASSEMBLY);
}

TEST(FaultWalk, EveryOperationOfAnExportFailsAtItsFirstAndALaterCallWithoutHarm) {
    ExportScenario run;
    openAssembly(run);
    run.pressExport("clean.vnz");
    const std::string clean = bytesOf(run.path("clean.vnz"));
    ASSERT_FALSE(clean.empty());
    const host::CallRecord calls = run.session.calls();

    int walked = 0;
    int changed = 0;  // faulted runs whose scene differs from the clean one, or that wrote none
    for (int index = 0; index < host::hostOperationCount; ++index) {
        const auto operation = static_cast<host::HostOperation>(index);
        const uint64_t count = calls.count(operation);
        if (count == 0) continue;
        ++walked;
        std::vector<uint64_t> failing = {1};
        if (count > 1) failing.push_back(count / 2 + 1);
        for (const uint64_t call : failing) {
            const std::string name(host::operationName(operation));
            SCOPED_TRACE(name + " failing at call " + std::to_string(call) + " of " + std::to_string(count));
            // Calls are counted over the session: this run's n-th call comes after those before it.
            const uint64_t before = run.session.calls().count(operation);
            run.session.faults().add({name, before + call, nullptr, PRO_TK_GENERAL_ERROR});
            run.session.script().chooseFile(run.path("faulty.vnz").u16string());
            run.session.script().pressButton("ExportFinished", "ExportOk");
            run.press("Vantrel Plugin Export");
            run.session.faults().clear();
            run.session.script().clear();
            run.session.errors().clear();
            if (fs::exists(run.path("faulty.vnz"))) {
                const std::string faulty = bytesOf(run.path("faulty.vnz"));
                EXPECT_NO_THROW(scenereader::parseScene(faulty));
                changed += faulty != clean;
                fs::remove(run.path("faulty.vnz"));
            } else {
                ++changed;
            }
            run.pressExport("again.vnz");
            EXPECT_EQ(bytesOf(run.path("again.vnz")), clean);
        }
    }
    EXPECT_GT(walked, 40);
    // Most faults show in the scene; were none to, the faults would not reach the plug-in.
    EXPECT_GT(changed, 20);
    std::printf("fault walk: %d operations failed at their first and a later call; %d runs changed the scene\n",
                walked, changed);
}

}  // namespace
}  // namespace exporttest
