// vantrel-host driving the plug-in's dialogs as a user would: the export's
// options set in the settings dialog, the dialog drawn by press --show, and
// a recorded motion answered in the animation dialog. Every run has a time
// limit, so that a run that hangs fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "animation/FraReader.h"
#include "host/Host.h"
#include "host/cad/CadShapes.h"
#include "host/realmodel/ModelLoading.h"
#include "host/realmodel/MotionRecording.h"
#include "platform/CodePage.h"
#include "scenereader/SceneAnimations.h"
#include "scenereader/SceneChecks.h"
#include "scenereader/SceneReader.h"
#include "tests/realmodel/HostProgram.h"

namespace host::realmodel::testing {
namespace {

namespace fs = std::filesystem;
using cad::testing::ScratchFolder;

std::string quoted(const fs::path& path) { return "'" + path.string() + "'"; }

// The sample model, written once per test.
fs::path writeSample(const ScratchFolder& folder) {
    const fs::path model = folder.path() / "sample.step";
    const ProgramRun sample = runHost(folder, "sample " + quoted(model));
    EXPECT_EQ(sample.exitCode, 0) << sample.err;
    return model;
}

void writeSettings(const fs::path& workdir, const std::string& elements) {
    fs::create_directories(workdir);
    std::ofstream(workdir / "vantrel_plugin_settings.xml")
        << "<?xml version=\"1.0\" ?>\n<vantrel_plugin_settings>\n" << elements << "</vantrel_plugin_settings>\n";
}

// The export as it ran before the settings went through the dialog: the
// settings file written first, then the export command pressed. The model is
// meshed whole at the first request, as the command line's export does.
void exportWithSettingsFile(const fs::path& model, const fs::path& workdir, const fs::path& scene) {
    const fs::path previous = fs::current_path();
    fs::current_path(workdir);
    {
        Session session;
        Host host(session, VANTREL_PLUGIN_FILE);
        loadModelIntoSession(session, model.string()).cad->shapes->meshWholeModelAhead();
        session.script().chooseFile(scene.u16string());
        session.script().pressButton("ExportFinished", "ExportOk");
        host.press("Vantrel Plugin Export");
        EXPECT_TRUE(session.errors().empty());
    }
    fs::current_path(previous);
}

TEST(DialogCommandLine, ExportOptionsThroughTheSettingsDialogGiveTheSceneOfTheSettingsFile) {
    ScratchFolder folder;
    const fs::path model = writeSample(folder);
    const ProgramRun dialog = runHost(folder, "export " + quoted(model) + " -o " + quoted(folder.path() / "dialog.vnz") +
                                                  " --quality 0.7 --up z --no-nurbs --workdir " +
                                                  quoted(folder.path() / "dialog"));
    ASSERT_EQ(dialog.exitCode, 0) << dialog.err;
    const std::string saved = contentsOf(folder.path() / "dialog" / "vantrel_plugin_settings.xml");
    for (const char* element : {"<tessellationQuality>0.700000</tessellationQuality>", "<upAxis>2</upAxis>",
                                "<includeNURBS>false</includeNURBS>", "<promptForMechanism>false</promptForMechanism>"})
        EXPECT_NE(saved.find(element), std::string::npos) << element << " in\n" << saved;

    // Any edit in the dialog holds the quality in single precision, and the
    // mesher's chord height follows it: the file holds the same value.
    char quality[64];
    std::snprintf(quality, sizeof quality, "%.17g", static_cast<double>(0.7f));
    writeSettings(folder.path() / "file", "<tessellationQuality>" + std::string(quality) +
                                              "</tessellationQuality>\n<upAxis>2</upAxis>\n"
                                          "<selectionMode>automatic</selectionMode>\n<includeNURBS>false</includeNURBS>\n"
                                          "<separateMaterials>true</separateMaterials>\n"
                                          "<useAssemblyMaterials>false</useAssemblyMaterials>\n"
                                          "<promptForMechanism>false</promptForMechanism>\n");
    exportWithSettingsFile(model, folder.path() / "file", folder.path() / "file.vnz");
    const std::string direct = contentsOf(folder.path() / "file.vnz");
    ASSERT_FALSE(direct.empty());
    EXPECT_TRUE(contentsOf(folder.path() / "dialog.vnz") == direct) << "the two scenes differ";
}

TEST(DialogCommandLine, PressShowDrawsTheSettingsDialogOfTheSettingsFile) {
    ScratchFolder folder;
    const fs::path model = writeSample(folder);
    writeSettings(folder.path() / "work",
                  "<tessellationQuality>0.57</tessellationQuality>\n<upAxis>2</upAxis>\n"
                  "<selectionMode>manual</selectionMode>\n<separateMaterials>false</separateMaterials>\n"
                  "<useAssemblyMaterials>true</useAssemblyMaterials>\n<includeNURBS>true</includeNURBS>\n"
                  "<promptForMechanism>false</promptForMechanism>\n");
    const ProgramRun shown = runHost(folder, "press 'Vantrel Plugin Settings' --model " + quoted(model) +
                                                 " --show --click Vantrel_Settings/Vantrel_Cancel --workdir " +
                                                 quoted(folder.path() / "work"));
    ASSERT_EQ(shown.exitCode, 0) << shown.err;
    const std::string expected =
        contentsOf(fs::path(VANTREL_SOURCE_DIR) / "tests" / "exporthost" / "expected" / "settings_dialog.txt") +
        "pressed \"Vantrel Plugin Settings\": the action answered 0\n";
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(shown.out.substr(0, expected.size()), expected);
}

TEST(DialogCommandLine, BadMotionsAreNamedWithANonZeroExit_bad_) {
    ScratchFolder folder;
    const fs::path model = writeSample(folder);
    const struct {
        std::string arguments;
        int exitCode;
        std::string message;
    } cases[] = {
        {"motion m.step -o x.fra --axis z", 2, "--axis follows a --rotate"},
        {"motion m.step -o x.fra --translate 4 --degrees 9", 2, "--degrees follows a --rotate"},
        {"motion m.step -o x.fra --rotate '4 x' --degrees 9", 2, "--rotate needs component ids separated by blanks"},
        {"motion m.step -o x.fra --translate 4 --by 1,2", 2, "--by needs three numbers X,Y,Z, not \"1,2\""},
        {"motion m.step -o x.fra --rotate 4 --axis w --degrees 9", 2, "--axis needs x, y or z"},
        {"motion m.step -o x.fra --rotate 4 --degrees 9 --frames 0", 2, "--frames needs a whole number"},
        {"motion m.step --rotate 4 --degrees 9", 2, "motion needs -o MOTION.fra"},
        {"motion m.step -o x.fra --rotate 4", 2, "each --rotate needs its --degrees"},
        {"motion " + quoted(model) + " -o x.fra --rotate '99 98' --degrees 9", 1, "\"99 98\" is no component path"},
        {"press 'Vantrel Plugin Settings' --click Vantrel_Cancel", 2, "--click needs DIALOG/BUTTON"},
    };
    for (const auto& c : cases) {
        const ProgramRun run = runHost(folder, c.arguments);
        EXPECT_EQ(run.exitCode, c.exitCode) << c.arguments << "\n" << run.err;
        EXPECT_NE(run.err.find(c.message), std::string::npos) << c.arguments << "\n" << run.err;
    }
}

// Motion files cut short or without the words "parts:" and "frames:": the
// export ends within its time limit and writes its scene without animation.
TEST(DialogCommandLine, TruncatedOrWordlessMotionFilesNeverHangTheExport) {
    ScratchFolder folder;
    const fs::path model = writeSample(folder);
    const char* motions[] = {"", "no header words here\n1 2 3\n", "parts: 1\n", "parts: 1\n1 41\nframes: 2\n1 0 0",
                             "frames: 2\n"};
    for (size_t k = 0; k < std::size(motions); ++k) {
        const fs::path motion = folder.path() / ("m" + std::to_string(k) + ".fra");
        std::ofstream(motion, std::ios::binary) << motions[k];
        const fs::path scene = folder.path() / ("m" + std::to_string(k) + ".vnz");
        const ProgramRun run = runHost(
            folder, "export " + quoted(model) + " -o " + quoted(scene) + " --no-nurbs --animation " + quoted(motion), 60);
        ASSERT_EQ(run.exitCode, 0) << "motion " << k << ": " << run.err;
        std::vector<std::string> problems;
        EXPECT_TRUE(scenereader::readAnimations(scenereader::readSceneFile(scene.string()).root, problems).empty())
            << "motion " << k;
    }
}

// The ids of a component path as `components` lists them: "41 7\tframe/bolt".
std::vector<std::vector<int>> pathsListed(const std::string& listing) {
    std::vector<std::vector<int>> paths;
    std::istringstream lines(listing);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream ids(line.substr(0, line.find('\t')));
        std::vector<int>& path = paths.emplace_back();
        for (int id; ids >> id;) path.push_back(id);
    }
    return paths;
}

// A quarter turn of a sub-assembly of a real model, recorded by vantrel-host
// motion and exported with it: one block, for exactly the moving component,
// whose first and last matrices times the component's placement give the
// recorded frames back, within the six digits that the scene prints.
TEST(DialogCommandLine, ARecordedTurnOfASubassemblyIsExportedForThatComponentOnly) {
    const fs::path model = fs::path(VANTREL_SOURCE_DIR) / ".." / "shared" / "models" / "as1-oc-214-mat.stp";
    if (!fs::exists(model)) GTEST_SKIP() << "no shared model at " << model << ": the recorded motion is skipped";
    ScratchFolder folder;
    const ProgramRun listed = runHost(folder, "components " + quoted(model));
    ASSERT_EQ(listed.exitCode, 0) << listed.err;
    const std::vector<std::vector<int>> paths = pathsListed(listed.out);
    auto turned = std::find_if(paths.begin(), paths.end(), [&](const std::vector<int>& path) {
        return std::any_of(paths.begin(), paths.end(), [&](const std::vector<int>& other) {
            return other.size() > path.size() && std::equal(path.begin(), path.end(), other.begin());
        });
    });
    ASSERT_NE(turned, paths.end()) << "the model has a sub-assembly:\n" << listed.out;
    std::string ids;
    for (int id : *turned) ids += (ids.empty() ? "" : " ") + std::to_string(id);

    const fs::path motion = folder.path() / "turn.fra";
    const ProgramRun recorded = runHost(folder, "motion " + quoted(model) + " -o " + quoted(motion) + " --rotate '" +
                                                    ids + "' --axis z --degrees 90 --frames 10");
    ASSERT_EQ(recorded.exitCode, 0) << recorded.err;
    const fs::path scene = folder.path() / "turn.vnz";
    const ProgramRun exported =
        runHost(folder, "export " + quoted(model) + " -o " + quoted(scene) + " --animation " + quoted(motion));
    ASSERT_EQ(exported.exitCode, 0) << exported.err;

    AnimationFrameTable frames;
    std::int32_t frameCount = 0;
    readFraFile(contentsOf(motion), frames, frameCount);
    ASSERT_EQ(frames.size(), 1u) << "one component moves";
    const FrameSequence& sequence = frames.begin()->second;
    ASSERT_EQ(sequence.size(), 10u);

    scenereader::Document document = scenereader::readSceneFile(scene.string());
    EXPECT_EQ(scenereader::checkScene(document), std::vector<std::string>{});
    std::vector<std::string> problems;
    std::vector<scenereader::Animation> animations = scenereader::readAnimations(document.root, problems);
    ASSERT_EQ(animations.size(), 1u) << "one block, for the one moving component";

    Session session;
    const std::vector<AssemblyComponent> components =
        listComponentPaths(*loadModelIntoSession(session, model.string()).models.top);
    auto component = std::find_if(components.begin(), components.end(),
                                  [&](const AssemblyComponent& c) { return c.ids == *turned; });
    ASSERT_NE(component, components.end());
    EXPECT_EQ(animations[0].name, platform::wideToSystem(component->names.back()));
    for (size_t frame : {size_t{0}, size_t{9}}) {
        const std::array<double, 16>& written = animations[0].matrices[frame];
        for (size_t row = 0; row < 4; ++row) {
            for (size_t column = 0; column < 4; ++column) {
                double back = 0;
                for (size_t k = 0; k < 4; ++k) back += written[row * 4 + k] * component->placement[k][column];
                const double expected = sequence[frame][row][column];
                EXPECT_NEAR(back, expected, 1e-5 * std::max(1.0, std::fabs(expected)))
                    << "frame " << frame << ", row " << row << ", column " << column;
            }
        }
    }
}

}  // namespace
}  // namespace host::realmodel::testing
