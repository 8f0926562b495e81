// vantrel-host export and sample as a user runs them: exit statuses, the
// summary, the settings that the plug-in saved, and the messages of bad
// input.
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <thread>
#include <fstream>
#include <sstream>

#include "../hostcad/CadTestSupport.h"
#include "tests/realmodel/HostProgram.h"

namespace host::realmodel::testing {
namespace {

using cad::testing::ScratchFolder;

ProgramRun run(const ScratchFolder& folder, const std::string& arguments) { return runHost(folder, arguments); }

TEST(ExportCommandLine, SampleExportsWithTheSettingsGiven) {
    ScratchFolder folder;
    const std::string model = folder.file("sample.step");
    const ProgramRun sample = run(folder, "sample '" + model + "'");
    ASSERT_EQ(sample.exitCode, 0) << sample.err;
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "sample-mesh.stl"));

    const ProgramRun exported = run(folder, "export '" + model + "' -o '" + folder.file("sample.vnz") +
                                                "' --quality=0.5 --up Z --no-nurbs --assembly-materials --workdir '" +
                                                folder.path().string() + "'");
    ASSERT_EQ(exported.exitCode, 0) << exported.err;
    EXPECT_NE(exported.out.find("exported " + model + " to " + folder.file("sample.vnz")), std::string::npos)
        << exported.out;
    EXPECT_NE(exported.out.find(" groups, "), std::string::npos) << exported.out;
    EXPECT_NE(exported.out.find(" cameras"), std::string::npos) << exported.out;
    EXPECT_NE(exported.out.find(" materials ("), std::string::npos) << exported.out;
    EXPECT_EQ(exported.out.find("meshes only"), std::string::npos) << exported.out;
    // Not a terminal: no progress line.
    EXPECT_EQ(exported.err.find("meshing surfaces"), std::string::npos) << exported.err;

    // The plug-in saved the settings and, at the end of its run, the path it was given.
    const std::string settings = contentsOf(folder.path() / "vantrel_plugin_settings.xml");
    for (const std::string& element : {std::string("<tessellationQuality>0.500000</tessellationQuality>"),
                                       std::string("<upAxis>2</upAxis>"), std::string("<includeNURBS>false</includeNURBS>"),
                                       std::string("<useAssemblyMaterials>true</useAssemblyMaterials>"),
                                       "<exportPath>" + folder.file("sample.vnz") + "</exportPath>"})
        EXPECT_NE(settings.find(element), std::string::npos) << element << " in\n" << settings;
    const std::string scene = contentsOf(folder.path() / "sample.vnz");
    EXPECT_NE(scene.find("\"import_up_vector\" 2,"), std::string::npos);

    const ProgramRun mesh = run(folder, "export '" + folder.file("sample-mesh.stl") + "' -o '" + folder.file("m.vnz") + "'");
    ASSERT_EQ(mesh.exitCode, 0) << mesh.err;
    EXPECT_NE(mesh.out.find("\nthe model holds meshes only: --quality has no effect on it\n"), std::string::npos)
        << mesh.out;
}

TEST(ExportCommandLine, BadInputIsNamedWithANonZeroExit_bad_) {
    ScratchFolder folder;
    std::ofstream(folder.path() / "drawing.dwg") << "not a model\n";
    const std::string output = " -o '" + folder.file("out.vnz") + "'";

    const ProgramRun missing = run(folder, "export '" + folder.file("missing.step") + "'" + output);
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_NE(missing.err.find(folder.file("missing.step")), std::string::npos) << missing.err;

    const ProgramRun unsupported = run(folder, "export '" + folder.file("drawing.dwg") + "'" + output);
    EXPECT_EQ(unsupported.exitCode, 1);
    EXPECT_NE(unsupported.err.find(folder.file("drawing.dwg")), std::string::npos) << unsupported.err;
    EXPECT_FALSE(std::filesystem::exists(folder.file("out.vnz")));

    const ProgramRun noOutput = run(folder, "export '" + folder.file("drawing.dwg") + "'");
    EXPECT_EQ(noOutput.exitCode, 2);
    EXPECT_NE(noOutput.err.find("export needs -o OUT.vnz"), std::string::npos) << noOutput.err;

    const ProgramRun badQuality = run(folder, "export m.step -o o.vnz --quality 1.5");
    EXPECT_EQ(badQuality.exitCode, 2);
    EXPECT_NE(badQuality.err.find("--quality needs a number from 0 to 1, not \"1.5\""), std::string::npos);

    const ProgramRun emptyOutput = run(folder, "export m.step -o ''");
    EXPECT_EQ(emptyOutput.exitCode, 2);
    EXPECT_NE(emptyOutput.err.find("-o needs a path"), std::string::npos) << emptyOutput.err;

    const ProgramRun badCodePage = run(folder, "export m.step -o o.vnz --codepage klingon");
    EXPECT_EQ(badCodePage.exitCode, 2);
    EXPECT_NE(badCodePage.err.find("--codepage needs one of utf-8, cp1250"), std::string::npos) << badCodePage.err;

    const ProgramRun badFault = run(folder, "export m.step -o o.vnz --fail ProNoSuchThing:1");
    EXPECT_EQ(badFault.exitCode, 2);
    EXPECT_NE(badFault.err.find("--fail needs OPERATION:N"), std::string::npos) << badFault.err;

    const ProgramRun badAxis = run(folder, "export m.step -o o.vnz --up w");
    EXPECT_EQ(badAxis.exitCode, 2);
    EXPECT_NE(badAxis.err.find("--up needs x, y, z, -x, -y or -z"), std::string::npos);
}

// Standard output holds only the summary; what the kernel
// says goes to standard error, plain, and only with a file it can't read.
TEST(ExportCommandLine, KernelMessagesGoToStandardErrorOnlyWhenAReadFails) {
    ScratchFolder folder;
    std::ofstream(folder.path() / "garbage.step") << "ISO-10303-21;\nHEADER;\nTHIS IS NOT STEP\n";
    const ProgramRun failed = run(folder, "export '" + folder.file("garbage.step") + "' -o '" + folder.file("o.vnz") + "'");
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_EQ(failed.out, "");
    EXPECT_NE(failed.err.find("cannot read STEP file"), std::string::npos) << failed.err;
    EXPECT_NE(failed.err.find("\n  kernel: "), std::string::npos) << failed.err;
    EXPECT_EQ(failed.err.find('\x1b'), std::string::npos) << failed.err;

    const std::string model = folder.file("sample.step");
    ASSERT_EQ(run(folder, "sample '" + model + "'").exitCode, 0);
    const ProgramRun done = run(folder, "export '" + model + "' -o '" + folder.file("s.vnz") + "'");
    ASSERT_EQ(done.exitCode, 0) << done.err;
    EXPECT_TRUE(done.out.starts_with("exported ")) << done.out;
    EXPECT_EQ(std::count(done.out.begin(), done.out.end(), '\n'), 3) << done.out;
    EXPECT_NE(done.out.find("\npreview: vantrel-scene preview " + folder.file("s.vnz") + " -o PICTURE.png\n"),
              std::string::npos) << done.out;
    EXPECT_EQ(done.err, "");

    // A refused first tessellation is met by the plug-in's retries: the same scene.
    const ProgramRun faulted = run(folder, "export '" + model + "' -o '" + folder.file("f.vnz") +
                                               "' --fail ProSurfaceTessellationGet:1");
    ASSERT_EQ(faulted.exitCode, 0) << faulted.err;
    const auto counts = [](const std::string& out) { return out.substr(out.find('\n'), out.find(';') - out.find('\n')); };
    EXPECT_EQ(counts(faulted.out), counts(done.out));
}

// Temporary scene files of a run beside `folder`'s files.
int temporaryFiles(const std::filesystem::path& folder) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().string().find(".part-") != std::string::npos) ++count;
    }
    return count;
}

// The output is never the model, is checked before
// the model is read, and replaces an earlier file only with a sound scene.
TEST(ExportCommandLine, TheOutputIsCheckedFirstAndReplacedOnlyBySoundScenes) {
    ScratchFolder folder;
    const std::string model = folder.file("sample.step");
    ASSERT_EQ(run(folder, "sample '" + model + "'").exitCode, 0);
    const std::string modelBytes = contentsOf(model);
    std::filesystem::create_symlink(model, folder.path() / "alias.vnz");
    for (const std::string& same : {folder.path().string() + "/./sample.step", folder.file("alias.vnz")}) {
        const ProgramRun refused = run(folder, "export '" + model + "' -o '" + same + "'");
        EXPECT_EQ(refused.exitCode, 1) << same;
        EXPECT_NE(refused.err.find("would overwrite the model file"), std::string::npos) << refused.err;
    }
    EXPECT_EQ(contentsOf(model), modelBytes);

    const ProgramRun unwritable = run(folder, "export '" + folder.file("missing.step") + "' -o /no/such/dir/x.vnz");
    EXPECT_EQ(unwritable.exitCode, 1);
    EXPECT_EQ(unwritable.err, "vantrel-host: error: can't write the scene \"/no/such/dir/x.vnz\": No such file or "
                              "directory\n");

    const std::string scene = folder.file("scene.vnz");
    std::ofstream(scene) << "earlier\n";
    const ProgramRun failed = run(folder, "export '" + model + "' -o '" + scene + "' --plugin /no/such/plugin.so");
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_EQ(contentsOf(scene), "earlier\n");
    EXPECT_EQ(temporaryFiles(folder.path()), 0);

    const ProgramRun done = run(folder, "export '" + model + "' -o '" + scene + "' --workdir '" + folder.path().string() + "'");
    ASSERT_EQ(done.exitCode, 0) << done.err;
    EXPECT_NE(contentsOf(scene), "earlier\n");
    EXPECT_EQ(temporaryFiles(folder.path()), 0);
    // The plug-in's next default is the file asked for, not the temporary one.
    EXPECT_NE(contentsOf(folder.path() / "vantrel_plugin_settings.xml").find("<exportPath>" + scene + "</exportPath>"),
              std::string::npos);
}

TEST(ExportCommandLine, AnInterruptLeavesTheEarlierSceneAndNoTemporaryFile) {
    ScratchFolder folder;
    const std::string model = folder.file("sample.step");
    ASSERT_EQ(run(folder, "sample '" + model + "'").exitCode, 0);
    const std::string scene = folder.file("scene.vnz");
    std::ofstream(scene) << "earlier\n";
    const std::string command = std::string("exec '") + VANTREL_HOST_PROGRAM + "' --plugin '" + VANTREL_PLUGIN_FILE +
                                "' export '" + model + "' -o '" + scene + "' --quality 1.0 --workdir '" +
                                folder.path().string() + "' >/dev/null 2>&1";
    const char* arguments[] = {"sh", "-c", command.c_str(), nullptr};
    pid_t child = 0;
    ASSERT_EQ(posix_spawn(&child, "/bin/sh", nullptr, nullptr, const_cast<char**>(arguments), environ), 0);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (temporaryFiles(folder.path()) == 0 && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const bool seen = temporaryFiles(folder.path()) > 0;
    kill(child, SIGINT);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(seen) << "the run made no temporary file";
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << "the run ended before the interrupt";
    EXPECT_EQ(contentsOf(scene), "earlier\n");
    EXPECT_EQ(temporaryFiles(folder.path()), 0);
}

}  // namespace
}  // namespace host::realmodel::testing
