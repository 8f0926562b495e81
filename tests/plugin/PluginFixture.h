#pragma once
// A test of the plug-in in a working directory of its own, where the settings
// file lies, with the fake host's table in place.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "plugin/core/SettingsFile.h"
#include "plugin/core/VantrelPlugin.h"
#include "tests/toolkit/FakeHost.h"
#include "tests/toolkit/FileText.h"
#include "tests/toolkit/TemporaryDirectory.h"

class PluginTest : public testing::Test {
protected:
    void SetUp() override {
        fakehost::reset();
        fakehost::install(table);
    }
    void TearDown() override { VantrelPlugin::destroyInstance(); }

    static void writeSettings(const std::string& content) { std::ofstream(settingsFileName) << content; }
    static std::string readSettings() { return testsupport::fileText(settingsFileName); }

    // A file of the tests' data folder.
    static std::string testData(const std::string& name) { return testsupport::fileText(PLUGIN_TEST_DATA "/" + name); }

    TemporaryDirectory directory{"vantrel_plugin_test"};
    WorkingDirectoryScope workingDirectory{directory.path()};
    std::vector<HostFunctionEntry> table = fakehost::table();
};
