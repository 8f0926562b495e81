// The animation dialog before an Export with the prompt set: what it shows,
// Export reading the file typed in or browsed to, Cancel ending the run, and
// the folder and name that Browse offers.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "host/DialogBoard.h"
#include "scenereader/SceneAnimations.h"
#include "scenereader/SceneReader.h"
#include "tests/exporthost/ExportScenario.h"
#include "tests/support/NativeForms.h"
#include "tests/toolkit/FileText.h"

namespace exporttest {
namespace {

using namespace host::fixtures;
using testsupport::native;

constexpr const char* dialog = "Vantrel_Animation";
constexpr const char* panel = "Vantrel_Animation_Inputpanel";

std::string expectedLayout() { return testsupport::fileText(VANTREL_TEST_DATA "/animation_dialog.txt"); }

// Frame k of component 11 stands at x = k; component 12 never moves.
std::string motionOfTwoFrames() {
    return "parts: 2\nframes: 2\n"
           "MaFrame 1\nPart: 1 (11) 1 0 0 0 1 0 0 0 1 0 0 0\nPart: 1 (12) 1 0 0 0 1 0 0 0 1 0 0 5\n"
           "MaFrame 2\nPart: 1 (11) 1 0 0 0 1 0 0 0 1 1 0 0\nPart: 1 (12) 1 0 0 0 1 0 0 0 1 0 0 5\n";
}

// rig: frame 11 and cover 12, both parts; the prompt set, "motions/walk.fra"
// the file last chosen.
class AnimationDialog : public ::testing::Test {
protected:
    AnimationDialog() {
        run.setSetting("promptForMechanism", "true");
        run.setSetting("fraPath", "motions/walk.fra");
        host::Model& frame = run.session.addModel(part(u"frame", 1));
        host::Model& cover = run.session.addModel(part(u"cover", 1));
        host::Model& rig = run.session.addModel(assembly(u"rig"));
        addComponent(rig, &frame, 11);
        addComponent(rig, &cover, 12);
        run.open(rig, PRO_MODE_ASSEMBLY);
        fs::create_directories(run.path("motions"));
        std::ofstream(run.path("motions/run.fra")) << motionOfTwoFrames();
    }
    host::UserScript& script() { return run.session.script(); }
    // Presses Export, naming `scene`; the animation dialog gets the steps
    // scripted before.
    void pressExport(const std::string& scene = "scene.vnz") { run.pressExport(scene); }
    const host::ShownDialog& shown(size_t index = 0) const { return run.session.dialogs().history().at(index); }
    const host::DialogComponent& closing(const char* name, size_t index = 0) const {
        for (const host::DialogComponent& c : shown(index).closing)
            if (c.name == name) return c;
        throw std::runtime_error(std::string("no component ") + name);
    }
    bool savedHas(const std::string& element) const { return run.settingsFile().find(element) != std::string::npos; }
    // The scene's animations; read without the reader's checks, which a
    // scene of more matrices than frames fails.
    std::vector<scenereader::Animation> animations(const std::string& scene) const {
        scenereader::Document document = scenereader::readSceneFile(run.path(scene).string());
        std::vector<std::string> problems;
        std::vector<scenereader::Animation> found = scenereader::readAnimations(document.root, problems);
        for (scenereader::Animation& animation : found) animation.block = nullptr;
        return found;
    }

    ExportScenario run;
};

TEST_F(AnimationDialog, OffersTheLastFileAndCancelEndsTheRunWithoutAWord) {
    script().pressButton(dialog, "Vantrel_Animation_Cancel");
    pressExport();

    ASSERT_EQ(run.session.dialogs().history().size(), 2u);
    EXPECT_EQ(host::drawDialog(dialog, shown().components), expectedLayout());
    for (const host::DialogComponent& c : shown().components) {
        ProUIGridopts expected{c.grid.column, c.grid.row, 1, 1, 1, 1, 1, 1, 1, 1, -1, -1, -1, -1};
        EXPECT_EQ(std::memcmp(&c.grid, &expected, sizeof expected), 0) << c.name;
    }
    EXPECT_EQ(shown().exitStatus, -3);
    EXPECT_FALSE(run.session.dialogs().find(dialog)) << "destroyed after its activation";
    EXPECT_FALSE(fs::exists(run.path("scene.vnz"))) << "the run ended";
    EXPECT_EQ(shown(1).name, "ExportFinished") << "shown all the same";
    EXPECT_TRUE(savedHas("<fraPath>motions/walk.fra</fraPath>"));
    EXPECT_TRUE(run.session.errors().empty());
}

// A typed path is read and saved; a second Export appends the file's frames
// to those of the first, as only Render empties the table.
TEST_F(AnimationDialog, ExportReadsTheFileTypedInAndASecondExportAppends) {
    script().setValue(dialog, panel, "motions/run.fra");
    script().pressButton(dialog, "Vantrel_Animation_Export");
    pressExport("first.vnz");
    EXPECT_EQ(shown().exitStatus, 0);
    EXPECT_TRUE(savedHas("<fraPath>motions/run.fra</fraPath>")) << run.settingsFile();
    std::vector<scenereader::Animation> first = animations("first.vnz");
    ASSERT_EQ(first.size(), 1u) << "only component 11 moves";
    EXPECT_EQ(first[0].name, "frame");
    EXPECT_EQ(first[0].matrices.size(), 2u);
    EXPECT_EQ(first[0].matrices[1][12], 1.0) << "frame 2 at x = 1";

    script().pressButton(dialog, "Vantrel_Animation_Export");  // the offered file again
    pressExport("second.vnz");
    std::vector<scenereader::Animation> second = animations("second.vnz");
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(second[0].matrices.size(), 4u) << "two reads of two frames";
    EXPECT_EQ(second[0].timestamps, (std::vector<int32_t>{0, 40}));
    EXPECT_TRUE(run.session.errors().empty());
}

// Browse offers the folder and name of the last file; a name of 40
// characters or more is offered empty, and so is a path without a folder's
// name. Cancel after Browse leaves the last file as it was.
TEST_F(AnimationDialog, BrowseOffersTheLastFolderAndNameAndCancelAfterItChangesNothing) {
    const std::string name39(35, 'n'), name40(36, 'n');
    struct Case {
        std::string fraPath, directory, name;
    } cases[] = {
        {native("motions/walk.fra"), "motions", "walk.fra"},
        {native("motions/" + name39 + ".fra"), "motions", name39 + ".fra"},
        {native("motions/" + name40 + ".fra"), "motions", ""},
        {"walk.fra", "walk.fra", ""},
    };
    for (size_t i = 0; i < std::size(cases); ++i) {
        const Case& c = cases[i];
        script().setValue(dialog, panel, c.fraPath);
        script().pressButton(dialog, "Vantrel_Animation_Export");  // saves it as the last file
        pressExport("scene" + std::to_string(i) + ".vnz");
        script().pressButton(dialog, "Vantrel_Animation_Browse");
        script().pressButton(dialog, "Vantrel_Animation_Cancel");
        script().chooseFile(run.path("cancelled.vnz").u16string());  // the export's file dialog first
        script().chooseFile(u"motions/run.fra");
        script().pressButton("ExportFinished", "ExportOk");
        EXPECT_EQ(run.press("Vantrel Plugin Export"), 0);
        const host::FileDialogRequest& browse = run.session.fileDialogs().back();
        EXPECT_EQ(browse.operation, "ProFileOpen");
        EXPECT_EQ(browse.title, u"Locate .fra animation");
        EXPECT_EQ(browse.filter, u"*.fra");
        EXPECT_EQ(browse.defaultDirectory, std::u16string(c.directory.begin(), c.directory.end())) << c.fraPath;
        EXPECT_EQ(browse.defaultName, std::u16string(c.name.begin(), c.name.end())) << c.fraPath;
        const size_t browsed = run.session.dialogs().history().size() - 2;
        EXPECT_EQ(closing(panel, browsed).value, u"motions/run.fra");
        EXPECT_EQ(shown(browsed).exitStatus, -3);
        EXPECT_TRUE(savedHas("<fraPath>" + c.fraPath + "</fraPath>")) << run.settingsFile();
    }
    EXPECT_TRUE(run.session.errors().empty());
}

}  // namespace
}  // namespace exporttest
