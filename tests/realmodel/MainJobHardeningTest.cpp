// The main job where a user expects it to work: fine qualities, the progress
// line, and the files around the scene it writes.
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <thread>

#include "../hostcad/CadTestSupport.h"
#include "ExportedScene.h"
#include "host/cad/XdeDocumentBuilder.h"
#include "host/realmodel/ProgressLine.h"

namespace host::realmodel::testing {
namespace {

using cad::testing::ScratchFolder;

std::string writeDrilledBlock(const ScratchFolder& folder) {
    cad::XdeDocumentBuilder builder;
    const TopoDS_Shape block = BRepPrimAPI_MakeBox(40.0, 30.0, 20.0).Shape();
    const TopoDS_Shape hole = BRepPrimAPI_MakeCylinder(gp_Ax2(gp_Pnt(20, 15, -1), gp::DZ()), 6.0, 22.0).Shape();
    builder.addPart("DRILLED", BRepAlgoAPI_Cut(block, hole).Shape());
    const std::string path = folder.file("drilled.step");
    builder.writeStep(path, "mm");
    return path;
}

// Past about 0.9 the plug-in's retry ladder asks for negative
// chord heights, which the host refuses with a status; the ladder goes on
// to a chord height the kernel meshes, and the run logs no error.
TEST(MainJobHardening, FineQualitiesUpToOneExportEveryFace) {
    ScratchFolder folder;
    const std::string model = writeDrilledBlock(folder);
    for (double quality : {0.93, 0.97, 1.0}) {
        ExportSettings settings;
        settings.quality = quality;
        ExportedScene scene;
        ASSERT_NO_THROW(scene = exportFile(model, folder.path(), settings)) << quality;
        EXPECT_TRUE(scene.report.sceneProblems.empty()) << quality;
        EXPECT_GT(triangleCount(scene.document), 12u) << quality;
    }
}

TEST(MainJobHardening, TheProgressLineEndsOnceEvenWithRetriesPastTheTotal) {
    char buffer[4096] = {};
    std::FILE* out = fmemopen(buffer, sizeof buffer - 1, "w");
    ASSERT_NE(out, nullptr);
    ProgressLine line(out);
    for (std::size_t done = 1; done <= 250; ++done) line.show(done, 200);
    std::fclose(out);
    const std::string text = buffer;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    EXPECT_TRUE(text.ends_with("\rmeshing surfaces: 200 of 200\n")) << text;
    // Every third request shows (200 / 100 + 1), and the total once.
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 200 / 3 + 1) << text;
}

TEST(MainJobHardening, TheReadingLineCountsSecondsUntilTheModelIsRead) {
    char buffer[4096] = {};
    std::FILE* out = fmemopen(buffer, sizeof buffer - 1, "w");
    ASSERT_NE(out, nullptr);
    {
        ReadingLine line(out, "big.step");
        std::this_thread::sleep_for(std::chrono::milliseconds(1200));
        line.done();
        line.done();
    }
    std::fclose(out);
    const std::string text = buffer;
    EXPECT_TRUE(text.starts_with("\rreading big.step\u2026 0 s")) << text;
    EXPECT_NE(text.find("\rreading big.step\u2026 1 s"), std::string::npos) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    EXPECT_TRUE(text.ends_with(" s\n")) << text;
}

}  // namespace
}  // namespace host::realmodel::testing
