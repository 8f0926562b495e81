// The appearance that an assembly shows for its occurrences, read through the
// object toolkit with the assembly-materials setting, and a toolkit exception
// in the middle of a run.
#include <gtest/gtest.h>

#include <unistd.h>


#include "tests/exporthost/ExportScenario.h"
#include "tests/toolkit/FileText.h"

namespace exporttest {
namespace {

using namespace host::fixtures;

// Two occurrences of one grey part; the first is painted red in the assembly.
struct PaintedAssembly {
    explicit PaintedAssembly(ExportScenario& run) {
        run.setSetting("includeNURBS", "false");
        run.setSetting("separateMaterials", "false");
        host::Model& bracket = run.session.addModel(part(u"bracket", 1));
        bracket.appearance = appearance(u"steel", {0.5, 0.5, 0.5});
        host::Model& frame = run.session.addModel(assembly(u"frame"));
        addComponent(frame, &bracket, 11, translation(0, 0, 0));
        addComponent(frame, &bracket, 12, translation(5, 0, 0));
        painted = &frame.features[frame.features.size() - 2];  // taken once the list stands
        painted->shownAppearance = appearance(u"paint", {1, 0, 0});
        run.open(frame, PRO_MODE_ASSEMBLY);
    }
    host::Feature* painted = nullptr;
};

// The material keys of each occurrence's group, in order.
std::vector<std::vector<std::string>> keysPerOccurrence(const scenereader::Document& scene) {
    std::vector<std::vector<std::string>> keys;
    for (const scenereader::Block* group : topGroup(scene).children("group")) keys.push_back(materialKeys(*group));
    return keys;
}

using testsupport::fileText;

TEST(AssemblyMaterials, AnEmptyVisibleLabelGivesAnEmptyName) {
    ExportScenario run;
    PaintedAssembly model(run);
    model.painted->shownAppearance = appearance(u"paint", {0.2, 0.2, 0.2}, 0.8, u"");
    run.setSetting("useAssemblyMaterials", "true");
    run.pressExport();
    // 0.2 * 255 + 0.5 truncates to 51; 51 * 0.8 + 0.5 to 41.
    EXPECT_EQ(keysPerOccurrence(run.readScene()).front(), std::vector<std::string>{":41:41:41"});
}

TEST(AssemblyMaterials, TheLastImageOfTheVisibleTexturesWins) {
    struct Case {
        std::vector<int> placements;
        const char* expected;  // empty: no texture
    };
    const Case cases[] = {
        {{PRO_TEXTURE_TYPE_DECAL, PRO_TEXTURE_TYPE_COLOR, PRO_TEXTURE_TYPE_BUMP}, "maps/second.tif"},
        {{PRO_TEXTURE_TYPE_COLOR, PRO_TEXTURE_TYPE_DECAL}, "maps/first.png"},
        {{PRO_TEXTURE_TYPE_BUMP, PRO_TEXTURE_TYPE_NONE}, ""},
    };
    for (const Case& c : cases) {
        ExportScenario run;
        PaintedAssembly model(run);
        model.painted->shownTexture = texture("maps/second.tif", "maps/first.png", "maps/third.JPG");
        for (int type : c.placements) model.painted->shownPlacements.push_back({type, {1, 1}, {0, 0}, 0});
        run.setSetting("useAssemblyMaterials", "true");
        run.pressExport();
        run.readScene();
        std::string scene = fileText(run.path("scene.vnz"));
        for (const char* image : {"maps/first.png", "maps/second.tif", "maps/third.JPG"})
            EXPECT_EQ(scene.find(image) != std::string::npos, std::string(image) == c.expected) << image;
    }
}

bool processHolds(const fs::path& file) {
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code ignored;
        if (fs::read_symlink(entry.path(), ignored) == file) return true;
    }
    return false;
}

// The host answers a failure for the painted occurrence: the toolkit's
// exception ends the run at the command, the file is closed, the host lives
// on, and the next export works.
TEST(AssemblyMaterials, AToolkitExceptionEndsTheRunAndTheNextExportWorks) {
    ExportScenario run;
    PaintedAssembly model(run);
    run.session.faults().add({"ProMdlVisibleAppearancepropsGet", 0, nullptr, PRO_TK_GENERAL_ERROR});
    run.setSetting("useAssemblyMaterials", "true");
    run.start();
    run.session.script().chooseFile(run.path("failed.vnz").u16string());
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(run.press("Vantrel Plugin Export"), 0);
    const std::string reported = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(reported.find("Vantrel Plugin Export: pfcExceptions::XToolkitGeneralError (in "
                            "wfcSelect::WSelection::GetVisibleAppearance, ProMdlVisibleAppearancepropsGet -1)"),
              std::string::npos)
        << reported;
    EXPECT_TRUE(fs::exists(run.path("failed.vnz")));
    EXPECT_FALSE(processHolds(fs::canonical(run.path("failed.vnz"))));

    run.session.faults().clear();
    run.pressExport("after.vnz");
    EXPECT_EQ(keysPerOccurrence(run.readScene("after.vnz")).front(), std::vector<std::string>{"paint:255:0:0"});
}

}  // namespace
}  // namespace exporttest
