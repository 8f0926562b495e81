// vantrel-host export and sample as a user runs them: exit statuses, the
// summary, the settings file handed to the plug-in, and the messages of bad
// input.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "../hostcad/CadTestSupport.h"

namespace host::realmodel::testing {
namespace {

using cad::testing::ScratchFolder;

struct ProgramRun {
    int exitCode = -1;
    std::string out;
    std::string err;
};

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

ProgramRun run(const ScratchFolder& folder, const std::string& arguments) {
    const std::filesystem::path errors = folder.path() / "stderr.txt";
    // The sample needs no plug-in, and takes no option for one.
    const std::string plugin =
        arguments.starts_with("sample") ? "" : std::string("--plugin '") + VANTREL_PLUGIN_FILE + "' ";
    const std::string command = std::string("'") + VANTREL_HOST_PROGRAM + "' " + plugin + arguments + " 2>'" +
                                errors.string() + "'";
    ProgramRun result;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return result;
    char buffer[4096];
    for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) result.out.append(buffer, n);
    const int status = pclose(pipe);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.err = contentsOf(errors);
    return result;
}

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
    // Not a terminal: no progress line.
    EXPECT_EQ(exported.err.find("meshing surfaces"), std::string::npos) << exported.err;

    const std::string settings = contentsOf(folder.path() / "vantrel_plugin_settings.xml");
    EXPECT_NE(settings.find("<tessellationQuality>0.500000</tessellationQuality>"), std::string::npos) << settings;
    EXPECT_NE(settings.find("<upAxis>2</upAxis>"), std::string::npos) << settings;
    EXPECT_NE(settings.find("<includeNURBS>false</includeNURBS>"), std::string::npos) << settings;
    EXPECT_NE(settings.find("<useAssemblyMaterials>true</useAssemblyMaterials>"), std::string::npos) << settings;
    // The plug-in saved the path it was given at the end of its run.
    EXPECT_NE(settings.find("<exportPath>" + folder.file("sample.vnz") + "</exportPath>"), std::string::npos)
        << settings;
    const std::string scene = contentsOf(folder.path() / "sample.vnz");
    EXPECT_NE(scene.find("\"import_up_vector\" 2,"), std::string::npos);
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

    const ProgramRun badAxis = run(folder, "export m.step -o o.vnz --up w");
    EXPECT_EQ(badAxis.exitCode, 2);
    EXPECT_NE(badAxis.err.find("--up needs x, y, z, -x, -y or -z"), std::string::npos);
}

}  // namespace
}  // namespace host::realmodel::testing
