#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>

#include "tests/host/PluginFolder.h"
#include "tests/toolkit/FileText.h"

namespace {

struct ProgramRun {
    int exitCode = -1;
    std::string out;
    std::string err;
};

using testsupport::fileText;

std::string dataFile(const std::string& name) { return fileText(std::filesystem::path(HOST_TEST_DATA) / name); }

// Runs vantrel-host as a process on a test plug-in, by default the minimal
// one with its message file in place.
class CommandLine : public testing::Test {
protected:
    explicit CommandLine(const std::filesystem::path& library = VANTREL_TEST_PLUGIN_MINIMAL,
                         std::string_view fileName = "libtest_plugin.so")
        : folder(library, fileName) {
        folder.write("text/usascii/test_plugin_msg.txt", testMessageFile);
    }

    // The arguments are already quoted for the shell.
    ProgramRun run(const std::string& arguments, const std::filesystem::path& program = VANTREL_HOST_PROGRAM,
                   const std::string& environment = "") const {
        std::filesystem::path out = folder.root() / "stdout.txt";
        std::filesystem::path err = folder.root() / "stderr.txt";
        // The per-user working directory is below the folder unless the environment says otherwise.
        std::string command = "XDG_CONFIG_HOME='" + (folder.root() / "config").string() + "' " + environment + "'" +
                              program.string() + "' " + arguments + " >'" + out.string() + "' 2>'" + err.string() + "'";
        int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, fileText(out), fileText(err)};
    }
    std::string withPlugin(const std::string& arguments) const {
        return "--plugin '" + folder.plugin().string() + "' " + arguments;
    }

    PluginFolder folder;
};

TEST_F(CommandLine, ListsCommandsAndPressesOne) {
    folder.write("text/resource/test.png", "png");
    ProgramRun listing = run(withPlugin("commands"));
    EXPECT_EQ(listing.exitCode, 0) << listing.err;
    EXPECT_EQ(listing.out, dataFile("commands_listing.txt"));
    EXPECT_EQ(listing.err, "");
    ProgramRun press = run(withPlugin("press 'Test Command'"));
    EXPECT_EQ(press.exitCode, 0) << press.err;
    EXPECT_EQ(press.out, dataFile("press_output.txt"));
}

TEST_F(CommandLine, ErrorsAreNamedWithANonZeroExit) {
    ProgramRun unknown = run(withPlugin("press 'No Such Command'"));
    EXPECT_EQ(unknown.exitCode, 1);
    EXPECT_EQ(unknown.err, "vantrel-host: error: unknown command \"No Such Command\"\n");

    std::filesystem::remove(folder.root() / "text" / "usascii" / "test_plugin_msg.txt");
    ProgramRun logged = run(withPlugin("press 'Test Command'"));
    EXPECT_EQ(logged.exitCode, 1);
    EXPECT_NE(logged.err.find("vantrel-host: ProMessageToBuffer: message file \"test_plugin_msg.txt\" not found"),
              std::string::npos)
        << logged.err;

    ProgramRun missing = run("--plugin /nonexistent/libnothing.so commands");
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_NE(missing.err.find("can't load the plug-in \"/nonexistent/libnothing.so\""), std::string::npos);

    ProgramRun usage = run("press");
    EXPECT_EQ(usage.exitCode, 2);
    EXPECT_NE(usage.err.find("press needs a command name"), std::string::npos) << usage.err;

    ProgramRun help = run("--help");
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.starts_with("usage: vantrel-host [--plugin PATH] [--workdir DIR] commands\n")) << help.out;
}

// The subcommands and options come from one table each: the usage lists
// them all, and an option is read in both spellings.
TEST_F(CommandLine, UsageVersionAndOptionSpellingsFollowTheTables) {
    ProgramRun bare = run("");
    EXPECT_EQ(bare.exitCode, 0);
    EXPECT_EQ(bare.out, run("--help").out);
    for (const char* listed : {"\n       vantrel-host [options] export MODEL -o OUT.vnz\n",
                               "\n       vantrel-host sample OUT.step\n", "\n  press       runs the command's",
                               "\n  --up AXIS ", "\n  --version "}) {
        EXPECT_NE(bare.out.find(listed), std::string::npos) << listed;
    }
    ProgramRun version = run("--version");
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(version.out.starts_with("vantrel-host ")) << version.out;

    ProgramRun joined = run("--plugin='" + folder.plugin().string() + "' commands");
    EXPECT_EQ(joined.exitCode, 0) << joined.err;
    EXPECT_EQ(joined.out, run(withPlugin("commands")).out);

    ProgramRun foreign = run(withPlugin("commands --quality 0.5"));
    EXPECT_EQ(foreign.exitCode, 2);
    EXPECT_NE(foreign.err.find("commands takes no option --quality"), std::string::npos) << foreign.err;
    ProgramRun flagValue = run("--no-nurbs=1 export m.step -o o.vnz");
    EXPECT_EQ(flagValue.exitCode, 2);
    EXPECT_NE(flagValue.err.find("--no-nurbs takes no value"), std::string::npos) << flagValue.err;
}

class CommandLineBesideThePlugin : public CommandLine {
protected:
    CommandLineBesideThePlugin() : CommandLine(VANTREL_TEST_PLUGIN_MINIMAL, "libvantrel_plugin.so") {
        std::filesystem::copy_file(VANTREL_HOST_PROGRAM, program);
    }
    std::filesystem::path program = folder.root() / "vantrel-host";
};

TEST_F(CommandLineBesideThePlugin, LoadsItByDefaultInTheGivenWorkingDirectory) {
    // The plug-in reads its settings from the working directory.
    folder.write("work/test_plugin_settings.txt", "from_settings.png\n");
    ProgramRun listing = run("--workdir '" + (folder.root() / "work").string() + "' commands", program);
    EXPECT_EQ(listing.exitCode, 0) << listing.err;
    EXPECT_NE(listing.out.find("  icon:  from_settings.png (file not found)\n"), std::string::npos) << listing.out;

    // A working directory that doesn't exist is made; one that can't be made is named.
    const std::filesystem::path made = folder.root() / "new" / "work";
    ProgramRun fresh = run("--workdir '" + made.string() + "' commands", program);
    EXPECT_EQ(fresh.exitCode, 0) << fresh.err;
    EXPECT_TRUE(std::filesystem::is_directory(made));
    folder.write("plain.txt", "");
    const std::string impossible = (folder.root() / "plain.txt" / "dir").string();
    ProgramRun badDirectory = run("--workdir '" + impossible + "' commands", program);
    EXPECT_EQ(badDirectory.exitCode, 1);
    EXPECT_NE(badDirectory.err.find("can't create the working directory \"" + impossible + "\""), std::string::npos)
        << badDirectory.err;

    // By default the per-user directory, and a settings file there that isn't XML is named.
    folder.write("config/vantrel-host/vantrel_plugin_settings.xml", "<broken");
    ProgramRun byDefault = run("commands", program, "XDG_CONFIG_HOME='" + (folder.root() / "config").string() + "' ");
    EXPECT_EQ(byDefault.exitCode, 0) << byDefault.err;
    EXPECT_NE(byDefault.err.find("warning: the settings file " +
                                 (folder.root() / "config/vantrel-host/vantrel_plugin_settings.xml").string() +
                                 " is not sound XML"),
              std::string::npos)
        << byDefault.err;
}

}  // namespace
